#pragma once

// The equations of a calculation report as a reader finds them in its Markdown.

#include <string>
#include <vector>

namespace kestrum {

struct Printed {
    std::string symbol, calculation, value;  // no calculation: the value alone
    std::string remark;                      // clause and remark behind it
};

// "- `N = A·f_y = 5383·355·10^-3 = 1911.0 kN` \[6.2.3\]"
inline std::vector<Printed> PrintedOf(const std::string& markdown)
{
    std::vector<Printed> all;
    std::size_t at = 0;
    while ((at = markdown.find("\n- `", at)) != std::string::npos) {
        at += 4;
        const std::size_t end = markdown.find('`', at);
        const std::string text = markdown.substr(at, end - at);
        std::vector<std::string> parts;
        for (std::size_t from = 0, to = 0; to != std::string::npos; from = to + 3) {
            to = text.find(" = ", from);
            parts.push_back(text.substr(from, to == std::string::npos ? to : to - from));
        }
        const std::string& last = parts.back();
        all.push_back({parts.front(), parts.size() > 2 ? parts[parts.size() - 2] : "",
                       last.substr(0, last.find(' ')),
                       markdown.substr(end + 1, markdown.find('\n', end) - end - 1)});
    }
    return all;
}

}  // namespace kestrum
