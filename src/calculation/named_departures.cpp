#include "calculation/named_departures.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

namespace kestrum {

namespace {

bool IsPartOfAName(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

// "D207" where nothing of a name stands beside it.
void AddNumbersIn(std::string_view text, std::set<Dev>& named)
{
    constexpr std::string_view kDigits = "0123456789";
    for (std::size_t at = text.find('D'); at != std::string_view::npos;
         at = text.find('D', at + 1)) {
        const std::size_t end = std::min(text.find_first_not_of(kDigits, at + 1), text.size());
        const bool alone = (at == 0 || !IsPartOfAName(text[at - 1])) &&
                           (end == text.size() || !IsPartOfAName(text[end]));
        const auto found = alone ? DeviationOf(text.substr(at, end - at)) : std::nullopt;
        if (found) {
            named.insert(*found);
        }
    }
}

struct Reader {
    std::set<Dev>& named;

    void operator()(const Line& line) const { AddNumbersIn(PlainText(line), named); }
    void operator()(const Heading&) const {}
    void operator()(const Paragraph& paragraph) const { (*this)(paragraph.text); }
    void operator()(const TextTable& table) const
    {
        for (const auto& row : table.rows) {
            for (const Line& cell : row) {
                (*this)(cell);
            }
        }
    }
    void operator()(const Equation& equation) const
    {
        AddNumbersIn(equation.clause, named);
        (*this)(equation.remark);
    }
    void operator()(const FigureRow&) const {}
    void operator()(const PageBreak&) const {}
};

}  // namespace

std::set<Dev> NamedDepartures(const Document& d)
{
    const auto is_member = [](const Block& block) {
        const auto* const heading = std::get_if<Heading>(&block);
        return heading != nullptr && heading->level == 1;
    };
    std::set<Dev> named;
    const auto start = std::find_if(d.blocks.rbegin(), d.blocks.rend(), is_member).base();
    for (auto block = start; block != d.blocks.end(); ++block) {
        std::visit(Reader{named}, *block);
    }
    return named;
}

}  // namespace kestrum
