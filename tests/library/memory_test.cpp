// Memory that runs out, and threads that the system does not give, behind the interface: a code
// instead of an exception, null instead of half an answer, and the member as it was.

#include <kestrum/kestrum.h>

#include "support/counted_memory.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <dlfcn.h>
#include <functional>
#include <pthread.h>
#include <string>
#include <utility>
#include <vector>

#ifndef KESTRUM_SANITIZED  // a sanitizer must see each thread begin
namespace {

bool nothreads = false;

}  // namespace

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*work)(void*), void* with) noexcept
{
    using Function = int(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static auto* const real = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, "pthread_create"));
    return nothreads ? EAGAIN : real(thread, attributes, work, with);
}
#endif

namespace {

using counted_memory::failat;
using counted_memory::requests;

class Memory : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(kestrum_catalogue_builtin(&catalogue, nullptr), KESTRUM_OK);
        ASSERT_EQ(kestrum_member_new(catalogue, &member, nullptr), KESTRUM_OK);
        ASSERT_EQ(kestrum_member_set(member, "nload[1]", "500", nullptr), KESTRUM_OK);
    }
    void TearDown() override
    {
        kestrum_member_free(member);
        kestrum_catalogue_free(catalogue);
    }

    // The project of the member, as a file has it.
    std::string Project() const
    {
        kestrum_text* text = nullptr;
        EXPECT_EQ(kestrum_member_project(member, &text, nullptr), KESTRUM_OK);
        std::string project(kestrum_text_data(text), kestrum_text_size(text));
        kestrum_text_free(text);
        return project;
    }

    // The act with a failure at one request after the other, of the later ones at each eighth part
    // more, until it ends without one. Returns the number of failures.
    static int FailEach(const std::function<kestrum_code(kestrum_error**)>& act)
    {
        int failures = 0;
        for (long k = 1;; k += 1 + k / 8) {
            kestrum_error* error = nullptr;
            requests = 0;
            failat = k;
            const kestrum_code code = act(&error);
            failat = 0;
            if (code == KESTRUM_OK) {
                EXPECT_EQ(error, nullptr);
                return failures;
            }
            ++failures;
            EXPECT_EQ(code, KESTRUM_NO_MEMORY) << k;
            EXPECT_STREQ(kestrum_error_text(error), "out of memory");
            kestrum_error_free(error);
        }
    }

    kestrum_catalogue* catalogue = nullptr;
    kestrum_member* member = nullptr;
};

TEST_F(Memory, ThatRunsOutIsACodeAndNoAnswer)
{
    EXPECT_GT(FailEach([&](kestrum_error** error) {
                  auto* text = reinterpret_cast<kestrum_text*>(this);
                  const kestrum_code code =
                      kestrum_catalogue_sections(catalogue, "IPE", &text, error);
                  EXPECT_EQ(text == nullptr, code != KESTRUM_OK);
                  kestrum_text_free(text);
                  return code;
              }),
              2);
    EXPECT_GT(FailEach([&](kestrum_error** error) {
                  auto* result = reinterpret_cast<kestrum_result*>(this);
                  const kestrum_code code =
                      kestrum_member_check(member, KESTRUM_BASIS_BOTH, &result, error);
                  EXPECT_EQ(result == nullptr, code != KESTRUM_OK);
                  kestrum_result_free(result);
                  return code;
              }),
              10);
    EXPECT_GT(FailEach([&](kestrum_error** error) {
                  auto* table = reinterpret_cast<kestrum_table*>(this);
                  const kestrum_code code = kestrum_table_check(
                      member, nullptr, 0, 3, KESTRUM_BASIS_BOTH, nullptr, 0, 1, &table, error);
                  EXPECT_EQ(table == nullptr, code != KESTRUM_OK);
                  kestrum_table_free(table);
                  return code;
              }),
              10);
}

TEST_F(Memory, ThatRunsOutLeavesTheMemberAsItWas)
{
    const std::string before = Project();
    const kestrum_setting settings[] = {{"section", "HEB 300"}, {"l", "7"}};
    bool done = false;
    EXPECT_GT(FailEach([&](kestrum_error** error) {
                  const kestrum_code code =
                      kestrum_member_set_all(member, settings, 2, nullptr, error);
                  done = code == KESTRUM_OK;
                  const long limit = std::exchange(failat, 0);
                  EXPECT_EQ(Project() == before, !done);
                  failat = limit;
                  return code;
              }),
              2);
    EXPECT_TRUE(done);
}

// Not even the words of the error find room: the code alone says it.
TEST_F(Memory, WithoutRoomForAnErrorTheCodeSaysIt)
{
    bool mute = false;
    for (long k = 1; k < 20 && !mute; ++k) {
        auto* error = reinterpret_cast<kestrum_error*>(this);
        auto* none = reinterpret_cast<kestrum_member*>(this);
        requests = 0;
        failat = k;
        const kestrum_code code = kestrum_member_new(nullptr, &none, &error);
        failat = 0;
        EXPECT_EQ(none, nullptr);
        EXPECT_TRUE(code == KESTRUM_NULL || code == KESTRUM_NO_MEMORY) << code;
        mute = error == nullptr;
        kestrum_error_free(error);
    }
    EXPECT_TRUE(mute);
}

#ifndef KESTRUM_SANITIZED
TEST_F(Memory, ThreadsThatTheSystemRefusesChangeNothing)
{
    constexpr std::size_t kRows = 200;
    std::vector<double> n(kRows);
    for (std::size_t i = 0; i < kRows; ++i) {
        n[i] = 10.0 * static_cast<double>(i + 1);
    }
    const kestrum_column column{"nload[1]", n.data(), nullptr};
    const auto ratios = [&](unsigned threads, bool refused) {
        kestrum_table* table = nullptr;
        nothreads = refused;
        EXPECT_EQ(kestrum_table_check(member, &column, 1, kRows, KESTRUM_BASIS_STANDARD, nullptr, 0,
                                      threads, &table, nullptr),
                  KESTRUM_OK);
        nothreads = false;
        const double* const first = kestrum_table_ratios(table, KESTRUM_BASIS_STANDARD);
        std::vector<double> copied(first, first + kRows);
        kestrum_table_free(table);
        return copied;
    };
    const std::vector<double> alone = ratios(1, false);
    EXPECT_EQ(ratios(4, true), alone);
    // Pure compression: a load twice as large has a ratio twice as large.
    EXPECT_NEAR(alone[9], 2 * alone[4], 1e-6 * alone[9]);
}
#endif

}  // namespace
