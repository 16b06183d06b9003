#include "core/json_scan.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

TEST(JsonScan, EndsWhereTheValueEnds)
{
    EXPECT_EQ(JsonValueLength("12,3"), 2U);
    EXPECT_EQ(JsonValueLength("-0.5e+3}"), 7U);
    EXPECT_EQ(JsonValueLength("2E5"), 3U);
    EXPECT_EQ(JsonValueLength("true,"), 4U);
    EXPECT_EQ(JsonValueLength("false"), 5U);
    EXPECT_EQ(JsonValueLength("0"), 1U);
    EXPECT_EQ(JsonValueLength("\"a,\\\"}\" ,1"), 7U);
    EXPECT_EQ(JsonValueLength("[]"), 2U);
    EXPECT_EQ(JsonValueLength("{ }x"), 3U);
    const std::string object = "{\"a\": [1, {\"b\":null}], \"c\":\"\\u00e9\"}";
    EXPECT_EQ(JsonValueLength(object + ",1"), object.size());
}

TEST(JsonScan, WhatIsNoValueHasNoLength)
{
    for (const char* text :
         {"",      " 1",      "nul",      "-",           "1.",        ".5",        "1e",
          "'a'",   "\"a",     "\"\\x\"",  "\"\\u12g4\"", "\"a\nb\"",  "[1",        "[1,]",
          "[1 2]", "{1:2}",   "{\"a\"}",  "{\"a\":1,}",  "[1}",       "{\"a\":1]", "\"\\",
          "{\"a",  "{\"a\":", "{\"a\":}", "\"\\xabcd\"", "\"\\u12\"", "[1"}) {
        EXPECT_EQ(JsonValueLength(text), 0U) << text;
    }
}

TEST(JsonScan, NestingHasAnEnd)
{
    const std::string deep(64, '['), deeper(65, '[');
    EXPECT_EQ(JsonValueLength(deep + std::string(64, ']')), 128U);
    EXPECT_EQ(JsonValueLength(deeper + std::string(65, ']')), 0U);
    EXPECT_EQ(JsonValueLength(std::string(1000000, '[')), 0U);
    std::string objects;
    for (int i = 0; i < 64; ++i) {
        objects += "{\"a\":";
    }
    EXPECT_EQ(JsonValueLength(objects + "1" + std::string(64, '}')), 5U * 64 + 1 + 64);
    EXPECT_EQ(JsonValueLength(objects + "{}" + std::string(64, '}')), 0U);
}

}  // namespace
}  // namespace kestrum
