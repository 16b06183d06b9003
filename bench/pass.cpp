// Runs passes of one named member: kestrum-pass NAME COUNT, or kestrum-pass for the names; with
// `standard` behind, passes by the standard. tools/instructions takes the difference of two counts.

#include "members.h"
#include "standard/standard.h"

#include <charconv>
#include <cstdio>
#include <string_view>

int main(int argc, char** argv)
{
    using namespace kestrum;
    const std::string_view wanted = argc > 1 ? argv[1] : "";
    const std::string_view digits = argc > 2 ? argv[2] : "1";
    const bool by_standard = argc > 3 && std::string_view(argv[3]) == "standard";
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
            if (by_standard) {
                standard::CalculateStandard(Delivered(), member.state);
            } else {
                Calculate(Delivered(), member.state);
            }
        }
        return 0;
    }
    return wanted.empty() ? 0 : 2;
}
