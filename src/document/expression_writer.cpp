#include "document/expression_writer.h"

#include <algorithm>

namespace kestrum {

namespace {

int RankOf(const Term& term)
{
    switch (term.op) {
    case Op::add:
    case Op::subtract:
        return 1;
    case Op::multiply:
    case Op::divide:
        return 2;
    case Op::power:
        return 3;
    default:
        return 4;
    }
}

// a - (b + c), a/(b c), (a/b) c, (a^b)^c
bool Weaker(const Term& outer, const Term& inner, bool left)
{
    const int rank = RankOf(inner), around = RankOf(outer);
    if (rank != around) {
        return rank < around;
    }
    return outer.op == Op::power || inner.op == Op::divide ||
           (!left && (outer.op == Op::subtract || outer.op == Op::divide));
}

// Whether what is written begins with a minus.
bool BeginsNegative(const Term& term, const Reading& reading)
{
    switch (term.op) {
    case Op::symbol:
        return reading.numbers && term.value < 0;
    case Op::constant:
        return term.value < 0;
    case Op::add:
    case Op::subtract:
    case Op::multiply:
        return BeginsNegative(*term.parts[0], reading);
    case Op::divide:
        return reading.bars == 0 && BeginsNegative(*term.parts[0], reading);
    default:
        return false;
    }
}

// A number with a power of ten is a product.
bool IsProduct(const Term& term, const Reading& reading)
{
    return reading.numbers && term.op == Op::symbol &&
           NumberText(term.value, reading.digits).find('e') != std::string::npos;
}

}  // namespace

int BarsIn(const Term& outer, bool left, int bars)
{
    const bool exponent = outer.op == Op::power && !left;
    return exponent ? 0 : outer.op == Op::divide ? std::max(bars - 1, 0) : bars;
}

bool NeedsBrackets(const Term& outer, const Term& inner, bool left, const Reading& reading)
{
    const bool raised = outer.op == Op::power;
    if ((outer.op == Op::divide && reading.bars > 0) || (reading.set && raised && !left)) {
        return false;  // a bar or its height sets it apart
    }
    if (BeginsNegative(inner, reading) && (!left || raised)) {
        return true;
    }
    if (IsProduct(inner, reading) && (raised || (outer.op == Op::divide && !left))) {
        return true;
    }
    const bool fraction = reading.bars > 0 && inner.op == Op::divide && !raised;
    return !fraction && Weaker(outer, inner, left);
}

const Expr* WithoutScale(const Term& term)
{
    if (term.op != Op::multiply && term.op != Op::divide) {
        return nullptr;
    }
    if (term.parts[1]->op == Op::scale) {
        return &term.parts[0];
    }
    return term.op == Op::multiply && term.parts[0]->op == Op::scale ? &term.parts[1] : nullptr;
}

}  // namespace kestrum
