#include "calculation/chapters.h"

#include "document/notation.h"
#include "report/page_header.h"
#include "report/page_quantities.h"
#include "report/section_figure.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// "Wel,y,top" as a symbol with subscript.
Symbol SymbolOfQuantity(std::string_view name)
{
    const bool word = name.size() > 1 && name.find(' ') != std::string_view::npos;
    if (name == "alfa") {
        return "α";
    }
    if (name == "Ix") {
        return "I_T";  // EN 1993-1-1, 1.7 and the formulas here
    }
    if (name == "Surface" || name.size() == 1 || word) {
        return std::string(name);
    }
    return std::string(name.substr(0, 1)) + "_" + std::string(name.substr(1));
}

// "3.692E+7" as printed pages have it is 36.92e6 here.
Line ValueLine(const std::string& value)
{
    const double number = NumberOf(value);
    return std::isfinite(number) ? NumberLine(number, 6) : Line(value);
}

TextTable QuantityTable(std::string caption, const std::vector<Quantity>& quantities)
{
    TextTable table{.columns = {{"Quantity"}, {"Value", true}, {"Unit"}},
                    .caption = std::move(caption)};
    for (const Quantity& quantity : quantities) {
        table.rows.push_back({SymbolOfQuantity(quantity.symbol), ValueLine(quantity.value),
                              quantity.unit == "deg" ? "°" : UnitText(quantity.unit)});
    }
    return table;
}

}  // namespace

std::string ProfileOf(const CalculatedMember& m)
{
    const std::string name = ProfileText(m.library, m.s, false);  // some are set off with blanks
    return name.substr(std::min(name.find_first_not_of(' '), name.size()));
}

void AddSection(const CalculatedMember& m, Document& d)
{
    d.Chapter("Section");
    const bool general = Is(m.s, Kind::general);
    d.Show(
        {{DrawSection(m.s),
          ProfileOf(m) + (general ? ", a symbol: its shape is not entered" : ", dimensions in mm"),
          80}});
    std::vector<Quantity> dimensions = DimensionsOf(m.s);
    const std::vector<Quantity> weights = WeightsOf(m.s);
    dimensions.insert(dimensions.end(), weights.begin(), weights.end());
    d.Add(QuantityTable("Dimensions", dimensions));
    std::vector<Quantity> properties = SectionPropertiesOf(m.s);
    const auto add = [&](const char* symbol, double value, const char* unit) {
        properties.push_back({symbol, NumberText(value, 6), unit});
    };
    const bool sides = std::any_of(properties.begin(), properties.end(),
                                   [](const Quantity& at) { return at.symbol == "Wel,y,top"; });
    if (sides) {  // the smaller of both, that of a moment of either sign
        add("Wel,y", m.s.wely, "mm3");
    }
    if (general) {  // as entered
        add("Aw", m.s.aweb, "mm2");
        add("Af", m.s.aflange, "mm2");
    } else if (m.s.hw > 0 && !Is(m.s, Kind::tube, Kind::flat, Kind::angle)) {
        add("hw", m.s.hw, "mm");
    }
    d.Add(QuantityTable("Properties", properties));
}

}  // namespace kestrum
