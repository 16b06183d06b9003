// The interface for C: null pointers and wrong sizes are errors, nothing is thrown, and the
// caller's floating-point environment is what it was.

#include <kestrum/kestrum.h>

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <utility>

namespace {

class CInterface : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(kestrum_catalogue_builtin(&catalogue, nullptr), KESTRUM_OK);
        ASSERT_EQ(kestrum_member_new(catalogue, &member, nullptr), KESTRUM_OK);
        ASSERT_EQ(kestrum_member_set(member, "section", "HEA 200", nullptr), KESTRUM_OK);
        ASSERT_EQ(kestrum_member_set_number(member, "nload[1]", 500, nullptr), KESTRUM_OK);
        ASSERT_EQ(kestrum_member_check(member, KESTRUM_BASIS_BOTH, &result, nullptr), KESTRUM_OK);
    }
    void TearDown() override
    {
        kestrum_result_free(result);
        kestrum_member_free(member);
        kestrum_catalogue_free(catalogue);
    }

    kestrum_catalogue* catalogue = nullptr;
    kestrum_member* member = nullptr;
    kestrum_result* result = nullptr;
    kestrum_text* text = reinterpret_cast<kestrum_text*>(this);  // must be overwritten
    kestrum_error* error = nullptr;
    double number = 0;
};

// Each call with one null where none may be; the answer is null and the error names the argument.
TEST_F(CInterface, NullPointersAreErrors)
{
    const auto expect_null = [&](kestrum_code code, const char* name) {
        EXPECT_EQ(code, KESTRUM_NULL) << name;
        EXPECT_STREQ(kestrum_error_field(error), name);
        EXPECT_STREQ(kestrum_error_text(error), (std::string(name) + " is null").c_str());
        kestrum_error_free(error);
        error = nullptr;
    };
    kestrum_member* none = nullptr;
    kestrum_result* nothing = nullptr;
    const kestrum_setting nameless{nullptr, "1"}, valueless{"l", nullptr};
    expect_null(kestrum_catalogue_builtin(nullptr, &error), "out");
    kestrum_catalogue* unopened = nullptr;
    expect_null(kestrum_catalogue_open(nullptr, &unopened, &error), "folder");
    expect_null(kestrum_catalogue_sections(nullptr, "IPE", &text, &error), "catalogue");
    EXPECT_EQ(text, nullptr);
    expect_null(kestrum_catalogue_sections(catalogue, nullptr, &text, &error), "family");
    expect_null(kestrum_member_new(nullptr, &none, &error), "catalogue");
    expect_null(kestrum_member_copy(nullptr, &none, &error), "member");
    expect_null(kestrum_member_set(nullptr, "l", "1", &error), "member");
    expect_null(kestrum_member_set(member, nullptr, "1", &error), "name");
    expect_null(kestrum_member_set(member, "l", nullptr, &error), "value");
    expect_null(kestrum_member_set_number(nullptr, "l", 1, &error), "member");
    expect_null(kestrum_member_set_number(member, nullptr, 1, &error), "name");
    expect_null(kestrum_member_set_number(member, nullptr, NAN, &error), "name");
    expect_null(kestrum_member_set_all(member, nullptr, 1, nullptr, &error), "settings");
    expect_null(kestrum_member_set_all(member, &nameless, 1, nullptr, &error), "name");
    expect_null(kestrum_member_set_all(member, &valueless, 1, nullptr, &error), "value");
    expect_null(kestrum_member_number(member, "l", nullptr, &error), "out");
    expect_null(kestrum_member_number(nullptr, "l", &number, &error), "member");
    expect_null(kestrum_member_text(member, nullptr, &text, &error), "name");
    expect_null(kestrum_member_read_project(member, nullptr, 5, &error), "bytes");
    expect_null(kestrum_member_project(nullptr, &text, &error), "member");
    expect_null(kestrum_member_check(nullptr, KESTRUM_BASIS_BOTH, &nothing, &error), "member");
    expect_null(kestrum_member_check(member, KESTRUM_BASIS_BOTH, nullptr, &error), "out");
    expect_null(kestrum_result_check(result, KESTRUM_BASIS_STANDARD, 0, nullptr, &error), "out");
    expect_null(kestrum_result_deviation(nullptr, 0, nullptr, &error), "result");
    kestrum_envelope* frame = nullptr;
    const kestrum_forces forces{1,       nullptr, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr, nullptr, nullptr};
    const auto envelope = [&](const kestrum_member* base, const kestrum_forces* acting,
                              kestrum_envelope** out) {
        return kestrum_envelope_check(base, nullptr, 0, 1, acting, KESTRUM_BASIS_BOTH, 1, out,
                                      &error);
    };
    expect_null(envelope(nullptr, &forces, &frame), "base");
    expect_null(envelope(member, nullptr, &frame), "forces");
    expect_null(envelope(member, &forces, &frame), "x");
    expect_null(envelope(member, &forces, nullptr), "out");
    expect_null(kestrum_envelope_check(member, nullptr, 1, 1, &forces, KESTRUM_BASIS_BOTH, 1,
                                       &frame, &error),
                "columns");
    expect_null(kestrum_envelope_worst(nullptr, 0, KESTRUM_BASIS_PROGRAM, nullptr, &error),
                "envelope");
    expect_null(kestrum_envelope_fault(nullptr, 0, nullptr, &error), "envelope");
    EXPECT_EQ(frame, nullptr);
    expect_null(kestrum_result_number(nullptr, "l", &number, &error), "result");
    expect_null(kestrum_result_json(nullptr, &text, &error), "result");
    expect_null(kestrum_result_panel(nullptr, &text, &error), "result");
    expect_null(kestrum_result_diagram_svg(nullptr, 'z', &text, &error), "result");
    expect_null(kestrum_result_section_svg(nullptr, &text, &error), "result");
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(nothing, nullptr);
}

TEST_F(CInterface, NullHandlesHaveEmptyAnswers)
{
    EXPECT_STREQ(kestrum_error_text(nullptr), "");
    EXPECT_STREQ(kestrum_error_field(nullptr), "");
    EXPECT_STREQ(kestrum_error_nearest(nullptr), "");
    EXPECT_EQ(kestrum_error_line(nullptr), 0);
    EXPECT_STREQ(kestrum_text_data(nullptr), "");
    EXPECT_EQ(kestrum_text_size(nullptr), 0U);
    EXPECT_EQ(kestrum_result_status(nullptr, KESTRUM_BASIS_PROGRAM), KESTRUM_NOT_CHECKED);
    EXPECT_TRUE(std::isnan(kestrum_result_ratio(nullptr, KESTRUM_BASIS_PROGRAM)));
    EXPECT_STREQ(kestrum_result_failure(nullptr).stage, "");
    EXPECT_EQ(kestrum_result_checks(nullptr, KESTRUM_BASIS_PROGRAM) + kestrum_result_notes(nullptr),
              0U);
    EXPECT_EQ(kestrum_result_deviations(nullptr) + kestrum_envelope_members(nullptr) +
                  kestrum_envelope_faults(nullptr),
              0U);
    kestrum_envelope_free(nullptr);
    kestrum_error_free(nullptr);
    kestrum_text_free(nullptr);
    kestrum_result_free(nullptr);
    kestrum_member_free(nullptr);
    kestrum_catalogue_free(nullptr);
}

TEST_F(CInterface, NothingToSetNeedsNoSettings)
{
    EXPECT_EQ(kestrum_member_set_all(member, nullptr, 0, nullptr, &error), KESTRUM_OK);
    EXPECT_EQ(error, nullptr);
}

TEST_F(CInterface, WrongSizesBasesAndNamesAreErrors)
{
    kestrum_check check;
    kestrum_note note;
    kestrum_result* other = nullptr;
    EXPECT_EQ(kestrum_result_check(result, KESTRUM_BASIS_STANDARD,
                                   kestrum_result_checks(result, KESTRUM_BASIS_STANDARD), &check,
                                   nullptr),
              KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(kestrum_result_note(result, std::numeric_limits<size_t>::max(), &note, nullptr),
              KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(kestrum_member_check(member, 0, &other, nullptr), KESTRUM_REFUSED);
    EXPECT_EQ(kestrum_member_check(member, KESTRUM_COSTS, &other, nullptr), KESTRUM_REFUSED);
    EXPECT_EQ(kestrum_member_check(member, 8, &other, nullptr), KESTRUM_REFUSED);
    EXPECT_EQ(kestrum_result_checks(result, KESTRUM_BASIS_BOTH), 0U);
    EXPECT_EQ(kestrum_result_deviations(result), 0U);  // not asked for
    EXPECT_EQ(kestrum_result_diagram_svg(result, 'x', &text, nullptr), KESTRUM_REFUSED);
    EXPECT_EQ(kestrum_result_number(result, "ident", &number, nullptr), KESTRUM_REFUSED);
    EXPECT_EQ(kestrum_result_number(result, "qload[99]", &number, nullptr), KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(kestrum_member_read_project(member, "", 0, &error), KESTRUM_BAD_FILE);
    EXPECT_EQ(kestrum_error_line(error), 1);
    kestrum_error_free(error);
}

// Compression alone: NEd gammaM0 / (A fy) with A = 5383 mm2 of the HEA 200, 6.2.4.
TEST_F(CInterface, TheResultSaysWhatWasChecked)
{
    EXPECT_EQ(kestrum_result_status(result, KESTRUM_BASIS_PROGRAM), KESTRUM_WITHIN);
    bool found = false;
    for (size_t i = 0; i < kestrum_result_checks(result, KESTRUM_BASIS_STANDARD); ++i) {
        kestrum_check check;
        ASSERT_EQ(kestrum_result_check(result, KESTRUM_BASIS_STANDARD, i, &check, nullptr),
                  KESTRUM_OK);
        if (std::string(check.check) == "section_N") {
            found = true;
            EXPECT_STREQ(check.clause, "6.2.4");
            ASSERT_EQ(kestrum_result_number(result, "fyk", &number, nullptr), KESTRUM_OK);
            double ned = 0, gammam0 = 0;
            ASSERT_EQ(kestrum_result_number(result, "gammam0", &gammam0, nullptr), KESTRUM_OK);
            ASSERT_EQ(kestrum_result_number(result, "ned", &ned, nullptr), KESTRUM_OK);
            EXPECT_NEAR(check.ratio, ned * 1e3 * gammam0 / (5383 * number), 1e-3);
        }
    }
    EXPECT_TRUE(found);
}

// Flags, rounding and traps of the caller neither reach the calculation nor are changed by it.
TEST_F(CInterface, TheFloatingPointEnvironmentIsKept)
{
    ASSERT_EQ(kestrum_result_json(result, &text, nullptr), KESTRUM_OK);
    const std::string usual = kestrum_text_data(text);
    kestrum_text_free(text);

    kestrum_result* upward = nullptr;
    kestrum_text* json = nullptr;
    std::fesetround(FE_UPWARD);
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_UNDERFLOW);
    const kestrum_code code = kestrum_member_check(member, KESTRUM_BASIS_BOTH, &upward, nullptr);
    const int rounding = std::fegetround();
    const int flags = std::fetestexcept(FE_ALL_EXCEPT);
    std::fesetround(FE_TONEAREST);
    std::feclearexcept(FE_ALL_EXCEPT);

    ASSERT_EQ(code, KESTRUM_OK);
    EXPECT_EQ(rounding, FE_UPWARD);
    EXPECT_EQ(flags, FE_UNDERFLOW);
    ASSERT_EQ(kestrum_result_json(upward, &json, nullptr), KESTRUM_OK);
    EXPECT_EQ(std::string(kestrum_text_data(json)), usual);
    kestrum_text_free(json);
    kestrum_result_free(upward);
}

// "1.3.1": three numbers.
TEST_F(CInterface, TheVersionHasThreeNumbers)
{
    int major = 0, minor = 0, patch = -1;
    char more = 0;
    EXPECT_EQ(std::sscanf(kestrum_version(), "%d.%d.%d%c", &major, &minor, &patch, &more), 3);
    EXPECT_GE(major, 1);
    EXPECT_GE(patch, 0);
}

// Sections, steels and choices by name, numbers as they read back; a text is no number.
TEST_F(CInterface, InputsReadBackAsTheyAreMeant)
{
    EXPECT_EQ(kestrum_member_set_all(member, nullptr, 0, &text, nullptr), KESTRUM_OK);
    EXPECT_EQ(kestrum_text_size(text), 0U);
    kestrum_text_free(text);
    const kestrum_setting settings[] = {
        {"steel", "S355"}, {"ident", "B7"}, {"l", "7.2"}, {"loadmode", "1"}};
    ASSERT_EQ(kestrum_member_set_all(member, settings, 4, nullptr, nullptr), KESTRUM_OK);
    const std::pair<const char*, const char*> texts[] = {{"section", "HEA 200"},
                                                         {"steel", "S355"},
                                                         {"ident", "B7"},
                                                         {"l", "7.2"},
                                                         {"nload[1]", "500"}};
    for (const auto& [name, value] : texts) {
        ASSERT_EQ(kestrum_member_text(member, name, &text, nullptr), KESTRUM_OK) << name;
        EXPECT_STREQ(kestrum_text_data(text), value);
        kestrum_text_free(text);
    }
    for (const char* name : {"section", "ident"}) {
        EXPECT_EQ(kestrum_member_number(member, name, &number, &error), KESTRUM_REFUSED);
        EXPECT_STREQ(kestrum_error_text(error), (std::string(name) + " is a text").c_str());
        kestrum_error_free(error);
    }
}

TEST_F(CInterface, AFamilyHasOneNumberAndItsNames)
{
    const auto refused = [&](const char* family, const char* what) {
        EXPECT_EQ(kestrum_catalogue_sections(catalogue, family, &text, &error),
                  KESTRUM_UNKNOWN_NAME);
        EXPECT_EQ(text, nullptr);
        EXPECT_STREQ(kestrum_error_text(error), (std::string(family) + what).c_str());
        EXPECT_STREQ(kestrum_error_field(error), "family");
        kestrum_error_free(error);
    };
    refused("99", ": no such family");
    refused("1x", ": no such family");
    refused("IPX", ": no such family");
}

// A box with unequal flanges takes no axial force here: it is put aside, and said so.
TEST_F(CInterface, AResultTellsOfLoadsThatWereNotTaken)
{
    kestrum_result* box = nullptr;
    ASSERT_EQ(kestrum_member_set(member, "family", "27", nullptr), KESTRUM_OK);
    ASSERT_EQ(kestrum_member_set(member, "nload[1]", "500", nullptr), KESTRUM_OK);
    ASSERT_EQ(kestrum_member_check(member, KESTRUM_BASIS_PROGRAM, &box, nullptr), KESTRUM_OK);
    EXPECT_EQ(kestrum_result_status(box, KESTRUM_BASIS_PROGRAM), KESTRUM_LOADS_DROPPED);
    EXPECT_TRUE(std::isnan(kestrum_result_ratio(box, KESTRUM_BASIS_PROGRAM)));
    const std::string message = kestrum_result_message(box, KESTRUM_BASIS_PROGRAM);
    EXPECT_EQ(message, "nload[1]: axial force 500 kN (G), not taken by this section family");
    kestrum_result_free(box);
}

// Flanges of 20 mm leave a section of 30 mm no web: that is not checked, and says by what.
TEST_F(CInterface, AFailureNamesWhatStoppedIt)
{
    kestrum_result* failed = nullptr;
    const kestrum_setting settings[] = {
        {"family", "21"}, {"p21.isth", "30"}, {"p21.isttf", "20"}, {"nload[1]", "1"}};
    ASSERT_EQ(kestrum_member_set_all(member, settings, 4, nullptr, &error), KESTRUM_OK)
        << kestrum_error_text(error);
    ASSERT_EQ(kestrum_member_check(member, KESTRUM_BASIS_PROGRAM, &failed, nullptr), KESTRUM_OK);
    EXPECT_EQ(kestrum_result_status(failed, KESTRUM_BASIS_PROGRAM), KESTRUM_NOT_CHECKED);
    const kestrum_failure failure = kestrum_result_failure(failed);
    EXPECT_STREQ(failure.stage, "section");
    EXPECT_STREQ(failure.cause, "impossible section");
    EXPECT_STREQ(failure.quantity, "clear web height hw");
    EXPECT_EQ(failure.value, -10);
    EXPECT_STREQ(failure.unit, "mm");
    EXPECT_EQ(kestrum_result_panel(failed, &text, nullptr), KESTRUM_REFUSED);
    EXPECT_EQ(text, nullptr);
    kestrum_result_free(failed);
}

// 1e37 kN/m over 100 m is a moment of 1.25e40 kNm, beyond single precision (3.4e38).
TEST_F(CInterface, AnOverflowIsAFailure)
{
    kestrum_result* failed = nullptr;
    const kestrum_setting settings[] = {{"l", "100"}, {"qload[1]", "1e37"}};
    ASSERT_EQ(kestrum_member_set_all(member, settings, 2, nullptr, &error), KESTRUM_OK)
        << kestrum_error_text(error);
    ASSERT_EQ(kestrum_member_check(member, KESTRUM_BASIS_PROGRAM, &failed, nullptr), KESTRUM_OK);
    EXPECT_EQ(kestrum_result_status(failed, KESTRUM_BASIS_PROGRAM), KESTRUM_FAILED);
    EXPECT_STREQ(kestrum_result_failure(failed).stage, "internal forces");
    EXPECT_TRUE(std::isnan(kestrum_result_ratio(failed, KESTRUM_BASIS_PROGRAM)));
    kestrum_result_free(failed);
}

TEST_F(CInterface, AMemberOutlivesItsCatalogue)
{
    kestrum_catalogue_free(catalogue);
    catalogue = nullptr;
    EXPECT_EQ(kestrum_member_set(member, "section", "HEB 300", nullptr), KESTRUM_OK);
}

}  // namespace
