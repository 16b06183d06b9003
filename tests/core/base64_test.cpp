#include "core/base64.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kestrum {
namespace {

// RFC 4648, section 10; and the two last letters of its table, which six set bits and 111110 give.
TEST(Base64, IsThatOfRfc4648)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
        {"\xFB\xFF\xBF", "+/+/"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(Base64(bytes), text);
    }
}

}  // namespace
}  // namespace kestrum
