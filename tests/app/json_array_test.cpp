#include "app/json_array.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

// The array cut into pieces of this length.
std::string Lines(std::string_view text, std::size_t piece, bool* closed = nullptr)
{
    JsonArray array;
    std::string lines;
    for (std::size_t at = 0; at < text.size(); at += piece) {
        array.Add(text.substr(at, piece), lines);
    }
    if (closed != nullptr) {
        *closed = array.closed();
    }
    return lines;
}

TEST(JsonArray, GivesALineForEachElementHoweverItComes)
{
    const std::string text = " [{\"a\": [1, 2],\n \"b\": \"x],\\\"y\"} ,{\"a\":{}},\n3]\n";
    for (std::size_t piece = 1; piece <= text.size(); ++piece) {
        bool closed = false;
        EXPECT_EQ(Lines(text, piece, &closed),
                  "{\"a\": [1, 2],  \"b\": \"x],\\\"y\"} \n{\"a\":{}}\n3\n");
        EXPECT_TRUE(closed);
    }
}

TEST(JsonArray, MayBeEmpty)
{
    bool closed = false;
    EXPECT_EQ(Lines("[ \n ]", 1, &closed), "");
    EXPECT_TRUE(closed);
}

TEST(JsonArray, WhatIsMissingOrTooMuchIsALine)
{
    EXPECT_EQ(Lines("[{},,{}]", 3), "{}\n,\n{}\n");
    EXPECT_EQ(Lines("[{} {}]", 3), "{} {}\n");
    EXPECT_EQ(Lines("[{}]x", 3), "{}\nx\n");
    EXPECT_EQ(Lines("[}},{}]", 3), "}}\n{}\n");
}

TEST(JsonArray, AnOpenQuoteEndsWithItsLine)
{
    EXPECT_EQ(Lines("[{\"a\": \"x\n},\n{}]", 2), "{\"a\": \"x }\n{}\n");
}

TEST(JsonArray, IsOpenUntilItsBracketComes)
{
    for (const char* text : {"[", "[{}", "[{},", "[{\"a\": \"]"}) {
        bool closed = true;
        Lines(text, 1, &closed);
        EXPECT_FALSE(closed) << text;
    }
}

}  // namespace
}  // namespace kestrum
