#include "app/ordered_run.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using Numbers = OrderedRun<int>;

// Doubles; the first pieces take longest.
void Double(int& piece)
{
    if (piece < 8) {
        std::this_thread::sleep_for(std::chrono::milliseconds(8 - piece));
    }
    piece *= 2;
}

std::vector<Numbers::Work> Workers(std::size_t count, const Numbers::Work& work = Double)
{
    return std::vector<Numbers::Work>(count, work);
}

// The numbers from 0 to the last.
std::function<bool(int&)> UpTo(int last)
{
    return [next = 0, last](int& piece) mutable {
        piece = next++;
        return piece <= last;
    };
}

TEST(OrderedRun, HandsOnInTheOrderOfTheStream)
{
    for (const std::size_t threads : {1U, 2U, 7U}) {
        for (const int last : {-1, 0, 5, 500}) {
            std::vector<int> expected, got;
            for (int i = 0; i <= last; ++i) {
                expected.push_back(2 * i);
            }
            Numbers run(Workers(threads));
            run.Run(UpTo(last), [&got](int& piece) { got.push_back(piece); });
            EXPECT_EQ(got, expected);
        }
    }
}

// A partner that waits for one answer before it asks the next is not left waiting.
TEST(OrderedRun, HandsOnWhatIsFinishedWhileTheStreamRests)
{
    std::vector<std::promise<void>> answered(3);
    std::size_t asked = 0;
    bool late = false;
    Numbers run(Workers(4));
    run.Run(
        [&](int& piece) {
            if (asked > 0 && asked <= answered.size()) {
                late = late || answered[asked - 1].get_future().wait_for(
                                   std::chrono::seconds(60)) != std::future_status::ready;
            }
            piece = static_cast<int>(asked++);
            return asked <= answered.size();
        },
        [&](int& piece) { answered[static_cast<std::size_t>(piece / 2)].set_value(); });
    EXPECT_FALSE(late);
}

TEST(OrderedRun, HoldsFewPiecesAtATime)
{
    constexpr int kThreads = 3, kHeld = 4 * kThreads;  // four a thread
    std::atomic<int> handed = 0;
    int most = 0, filled = 0;
    Numbers run(Workers(kThreads));
    run.Run(
        [&](int& piece) {
            most = std::max(most, filled - handed);
            piece = filled++;
            return piece < 200;
        },
        [&](int&) { ++handed; });
    EXPECT_LT(most, kHeld);
    EXPECT_EQ(handed, 200);
}

TEST(OrderedRun, AFailureOfAnybodyEndsItAndLeaves)
{
    const auto fails = [](int& piece) {
        if (piece == 20) {
            throw std::runtime_error("here");
        }
    };
    const auto nothing = [](int&) {};
    const auto happens = [](const std::function<void()>& act) {
        try {
            act();
        } catch (const std::runtime_error& error) {
            return std::string(error.what());
        }
        return std::string("nothing");
    };
    int last = -1;
    EXPECT_EQ(happens([&] {
                  Numbers run(Workers(2, fails));
                  run.Run(UpTo(1000), [&last](int& piece) { last = piece; });
              }),
              "here");
    EXPECT_EQ(last, 19);  // all in front of it were handed on
    EXPECT_EQ(happens([&] {
                  Numbers run(Workers(2, nothing));
                  run.Run(UpTo(1000), fails);
              }),
              "here");
    EXPECT_EQ(happens([&] {
                  Numbers run(Workers(2, nothing));
                  run.Run(
                      [&, next = 0](int& piece) mutable {
                          piece = next++;
                          fails(piece);
                          return true;
                      },
                      nothing);
              }),
              "here");
}

}  // namespace
}  // namespace kestrum
