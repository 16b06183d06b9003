#include "document/typeset.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kestrum {

namespace {

// As it is written, and as symbols, with a point between those of a product.
struct Word {
    std::string_view written, set;
};

// By their first letters, the longer one first where one begins another.
constexpr auto kWords = std::to_array<Word>({
    {"Aeff", "A_eff"},   {"C1", "C_1"},         {"C2", "C_2"},        {"C3", "C_3"},
    {"Cmy", "C_my"},     {"EIw", "E·I_w"},      {"EIz", "E·I_z"},     {"GIT", "G·I_T"},
    {"It of", "I_t of"}, {"It and", "I_t and"}, {"Iw", "I_w"},        {"My1", "M_y,1"},
    {"My2", "M_y,2"},    {"My", "M_y"},         {"Mz1", "M_z,1"},     {"Mz2", "M_z,2"},
    {"Mz", "M_z"},       {"NEd", "N_Ed"},       {"Ry1", "R_y,1"},     {"Ry2", "R_y,2"},
    {"Rz1", "R_z,1"},    {"Rz2", "R_z,2"},      {"Vy1", "V_y,1"},     {"Vy2", "V_y,2"},
    {"Vy", "V_y"},       {"Vz1", "V_z,1"},      {"Vz2", "V_z,2"},     {"Vz", "V_z"},
    {"cm4", "cm⁴"},      {"epsilon_y", "ε_y"},  {"eps", "ε"},         {"eta", "η"},
    {"gammaM0", "γ_M0"}, {"gammaM1", "γ_M1"},   {"hw", "h_w"},        {"kc", "k_c"},
    {"kzy", "k_zy"},     {"lamLT0", "~λ_LT,0"}, {"lambda0", "~λ_0"},  {"m/s2", "m/s²"},
    {"pi", "π"},         {"psi", "ψ"},          {"sqrt(C1)", "√C_1"}, {"tf", "t_f"},
    {"tw", "t_w"},       {"vcrit", "v_crit"},   {"vm", "v_m"},        {"z_j", "z_j"},
    {"zg", "z_g"},       {"zj", "z_j"},
});
static_assert(std::is_sorted(kWords.begin(), kWords.end(), [](const Word& a, const Word& b) {
    return a.written.front() < b.written.front();
}));

// Behind a comma in an index: "Npl,Rd", "Cmy,0".
constexpr std::string_view kIndexes[] = {"Rd", "Ed", "Rk", "TF", "LT", "y",
                                         "z",  "u",  "v",  "T",  "0"};

// A letter or digit; those beyond ASCII have bytes above it.
bool InWord(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           byte >= 0x80U;
}

std::string_view WordAt(std::string_view text, std::size_t at)
{
    std::size_t end = at;
    while (end < text.size() && InWord(text[end])) {
        ++end;
    }
    return text.substr(at, end - at);
}

// The index behind the comma that follows the word, or nothing.
std::string_view IndexBehind(std::string_view text, std::size_t end)
{
    const std::string_view index =
        end < text.size() && text[end] == ',' ? WordAt(text, end + 1) : std::string_view();
    const bool known =
        std::find(std::begin(kIndexes), std::end(kIndexes), index) != std::end(kIndexes);
    return known ? index : std::string_view();
}

const Word* Known(std::string_view text)
{
    const auto first = std::lower_bound(
        kWords.begin(), kWords.end(), text.front(),
        [](const Word& word, char letter) { return word.written.front() < letter; });
    for (auto word = first; word != kWords.end() && word->written.front() == text.front(); ++word) {
        const std::size_t length = word->written.size();
        if (text.starts_with(word->written) && (text.size() == length || !InWord(text[length]))) {
            return &*word;
        }
    }
    return nullptr;
}

// "E·I_w": the symbols of a product; a text behind a blank stays one.
Line SymbolsOf(std::string_view set)
{
    const std::size_t blank = std::min(set.find(' '), set.size());
    Line line;
    for (std::size_t from = 0; from < blank;) {
        constexpr std::string_view kTimes = "·";
        const std::size_t to = std::min(set.find(kTimes, from), blank);
        line += Line(Symbol(set.substr(from, to - from)));
        from = to + kTimes.size();
        if (to < blank) {
            line.Add(std::string(kTimes));
        }
    }
    if (blank < set.size()) {
        line.Add(std::string(set.substr(blank)));
    }
    return line;
}

// Appends the text, each span in the style, the letters of symbols in theirs.
void AddTypeset(Line& line, const Span& span)
{
    const std::string_view text = span.text;
    std::size_t done = 0;
    const auto put = [&](std::size_t at, std::size_t length, Line symbols) {
        if (at > done) {
            line.Add(std::string(text.substr(done, at - done)), span.style);
        }
        for (Span& part : symbols.spans) {
            if (part.style == Span::Style::plain) {
                part.style = span.style;
            }
        }
        line += symbols;
        done = at + length;
    };
    for (std::size_t at = 0; at < text.size();) {
        if (!InWord(text[at])) {
            ++at;
            continue;
        }
        const std::string_view word = WordAt(text, at);
        const std::string_view index = IndexBehind(text, at + word.size());
        if (!index.empty() && word.size() > 1 && word[0] >= 'A' && word[0] <= 'Z') {
            const std::size_t length = word.size() + 1 + index.size();
            Symbol symbol(word.substr(0, 1));
            symbol.subscript = text.substr(at + 1, length - 1);
            put(at, length, Line(symbol));
        } else if (const Word* const known = Known(text.substr(at)); known != nullptr) {
            put(at, known->written.size(), SymbolsOf(known->set));
        } else {
            at += word.size();
            continue;
        }
        at = done;
    }
    if (done == 0) {
        line.spans.push_back(span);
    } else if (done < text.size()) {
        line.Add(std::string(text.substr(done)), span.style);
    }
}

}  // namespace

Line Typeset(const Line& line)
{
    Line set;
    for (const Span& span : line.spans) {
        using Style = Span::Style;
        if (span.number || span.style == Style::subscript || span.style == Style::bar) {
            set.spans.push_back(span);
        } else {
            AddTypeset(set, span);
        }
    }
    return set;
}

}  // namespace kestrum
