// Runs passes of one named member: kestrum-pass NAME COUNT, or kestrum-pass for the names.
// tools/instructions takes the difference of two counts.

#include "members.h"

#include <charconv>
#include <cstdio>
#include <string_view>

int main(int argc, char** argv)
{
    using namespace kestrum;
    const std::string_view wanted = argc > 1 ? argv[1] : "";
    const std::string_view digits = argc > 2 ? argv[2] : "1";
    int count = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), count);
    for (NamedMember& member : Members()) {
        if (wanted.empty()) {
            std::puts(member.name.c_str());
        }
        if (wanted != member.name) {
            continue;
        }
        for (int i = 0; i < count; ++i) {
            Calculate(Delivered(), member.state);
        }
        return 0;
    }
    return wanted.empty() ? 0 : 2;
}
