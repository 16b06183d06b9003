#include "calculation/check_formula.h"

#include "calculation/check_names.h"
#include "core/check_text.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace kestrum {

namespace {

// Reads sums, products, quotients and powers of names; each name takes the next number.
class FormulaReader {
public:
    FormulaReader(std::string_view text, std::span<const double> numbers, std::string_view lateral,
                  bool of_member)
        : text_(text), numbers_(numbers), lateral_(lateral), of_member_(of_member)
    {
    }

    Expr Read()
    {
        Expr sum = Sum();
        Skip();
        const bool whole = at_ == text_.size() || text_.substr(at_) == ")";  // a bracket too many
        return failed_ || !whole || taken_ != numbers_.size() ? nullptr : sum;
    }

private:
    void Skip()
    {
        while (at_ < text_.size() && text_[at_] == ' ') {
            ++at_;
        }
    }
    bool Take(std::string_view any)
    {
        Skip();
        if (at_ < text_.size() && any.find(text_[at_]) != std::string_view::npos) {
            ++at_;
            return true;
        }
        return false;
    }
    Expr Sum()
    {
        Expr sum = Product();
        while (!failed_ && Take("+")) {
            sum = sum + Product();
        }
        return sum;
    }
    Expr Product()
    {
        Expr product = Factor();
        for (;;) {
            if (failed_) {
                return product;
            }
            if (Take("*")) {
                product = product * Factor();
            } else if (Take("/")) {
                product = product / Factor();
            } else {
                return product;
            }
        }
    }
    Expr Factor()
    {
        Expr base = Primary();
        return !failed_ && Take("^") ? Power(base, Primary()) : base;
    }
    Expr Primary()
    {
        if (Take("([")) {
            Expr inner = Sum();
            failed_ = failed_ || !Take(")]");
            return inner;
        }
        const std::size_t start = at_;
        while (at_ < text_.size() &&
               (std::isalnum(static_cast<unsigned char>(text_[at_])) != 0 || text_[at_] == ',')) {
            ++at_;
        }
        if (at_ == start || taken_ == numbers_.size()) {
            failed_ = true;
            return Num(0);
        }
        const Symbol symbol = SymbolOfCheck(text_.substr(start, at_ - start), lateral_, of_member_);
        return std::make_shared<const Term>(
            Term{.op = Op::symbol, .symbol = symbol, .value = numbers_[taken_++]});
    }

    std::string_view text_;
    std::span<const double> numbers_;
    std::string_view lateral_;
    bool of_member_;
    std::size_t at_ = 0, taken_ = 0;
    bool failed_ = false;
};

}  // namespace

Symbol SymbolOfCheck(std::string_view name, std::string_view lateral, bool of_member)
{
    if (of_member && name.starts_with('M') && name.ends_with(",Rd")) {
        return SymbolOfCheck(std::string(name) + ",1", lateral, false);
    }
    if (name == "alfa") {
        return "α";
    }
    if (name == "beta") {
        return "β";
    }
    if (name == "xLT") {
        return std::string(lateral);
    }
    if (name == "dz" || name == "dy") {
        return "δ_" + std::string(name.substr(1));
    }
    if (name == "dzMax" || name == "dyMax") {
        return "δ_" + std::string(name.substr(1, 1)) + ",max";
    }
    return std::string(name.substr(0, 1)) + "_" + std::string(name.substr(1));
}

Expr FormulaOfCheck(const Check& check, std::string_view lateral)
{
    if (!IsJudged(check)) {
        return nullptr;
    }
    const std::array<double, 9> terms = AddedTerms(check);
    // Mu does not stress the heel, and has no number there.
    const std::string text =
        check.form == CheckForm::heel ? "NEd/NRd+Mv,Ed/Mv,Rd" : FormulaOf(check);
    const auto& rows = kBucklingRows;
    const bool of_member = std::find(std::begin(rows), std::end(rows),
                                     RowOf(TextsOf(check.form).id)) != std::end(rows);
    const Expr formula =
        FormulaReader(text, std::span(terms).first(TermsOf(check)), lateral, of_member).Read();
    // A single force counts with its size.
    return formula != nullptr && Evaluate(formula) < 0 && check.ratio > 0 ? Size(formula) : formula;
}

Line PlaceOf(const CheckPlace& place)
{
    const auto part = [&](int number) {
        return number == 0             ? std::string("0")
               : number == place.parts ? std::string("L")
                                       : (number == 1 ? "" : std::to_string(number)) + "L/" +
                                             std::to_string(place.parts);
    };
    switch (place.kind) {
    case CheckPlace::Kind::section:
        return Line("at x/L = ") + NumberLine(place.x, 4);
    case CheckPlace::Kind::point:
        return Line("at x/L = ") + NumberLine(place.x, 4) +
               Line(", point " + std::to_string(place.number));
    case CheckPlace::Kind::segment:
        return Line("between " + part(place.number - 1) + " and " + part(place.number));
    default:
        return {};
    }
}

void AddCheck(Document& d, const Check& check, std::string_view lateral, Line remark)
{
    if (!IsJudged(check)) {
        return;
    }
    Line behind = PlaceOf(check.place);
    if (!remark.Empty()) {
        behind += Line(behind.Empty() ? "" : "; ") + remark;
    }
    if (!behind.Empty()) {
        behind += Line(", ");
    }
    d.Add("IR", FormulaOfCheck(check, lateral), check.ratio, "", ClauseOf(check),
          behind + Line().Add(check.status == kAbove ? "ABOVE LIMIT" : "within limit",
                              check.status == kAbove ? Span::Style::bad : Span::Style::good));
}

}  // namespace kestrum
