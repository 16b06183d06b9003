#include "report/page_loading.h"

#include "core/load_combination.h"
#include "core/number_format.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {

namespace {

constexpr std::string_view kLoad = "##0.0##", kPosition = "##0.000", kAxialLoad = "##0.0";

std::string_view Category(double type)
{
    return type == 0 ? "G" : type == 1 ? "Q1" : type == 2 ? "Q2" : "";
}

// Columns of a table of loads.
struct Stops {
    double load, value, position, category;
};

Stops StopsOf(double left, double right)
{
    const double width = right - left;
    return {left, left + 0.16 * width, left + 0.45 * width, left + 0.88 * width};
}

class LoadTable {
public:
    LoadTable(PageWriter& page, double left, double right)
        : page_(page), at_(StopsOf(left, right)), right_(right)
    {
    }

    void Head(std::string_view title)
    {
        page_.WriteBold(at_.load, title, right_);
        page_.Row();
        Line("Load", "kN/kNm", "x/x1/x2 (m)", "G/Q");
    }

    void Line(std::string_view load, std::string_view value, std::string_view position,
              std::string_view category)
    {
        constexpr double kGap = 1;
        page_.Write(at_.load, load, {}, at_.value - kGap);
        page_.Write(at_.value, value, {}, at_.position - kGap);
        page_.Write(at_.position, position, {}, at_.category - kGap);
        page_.Write(at_.category, category, {}, right_);
        page_.Row();
    }

private:
    PageWriter& page_;
    Stops at_;
    double right_;
};

// direction: 1 loads along z, 0 along y.
void AddLoads(LoadTable& table, const ProjectState& s, int direction)
{
    for (std::size_t i = 1; i < s.qload.size(); ++i) {
        if (s.qload[i] != 0 && s.qdir[i] == direction) {
            table.Line("q ", FormatNum(s.qload[i], kLoad), "", Category(s.qtype[i]));
        }
    }
    for (std::size_t i = 1; i < s.qt1.size(); ++i) {
        if ((s.qt1[i] != 0 || s.qt2[i] != 0) && s.qtdir[i] == static_cast<float>(direction)) {
            table.Line("q", FormatNum(s.qt1[i], kLoad) + "/" + FormatNum(s.qt2[i], kLoad),
                       FormatNum(s.qtx1[i], kPosition) + "/" + FormatNum(s.qtx2[i], kPosition),
                       Category(s.qttype[i]));
        }
    }
    const std::string_view moment = direction == 1 ? "My" : "Mz";
    for (std::size_t i = 1; i < s.pm.size(); ++i) {
        if (s.pm[i] != 0 && s.pmdir[i] == direction) {
            table.Line(s.pmkind[i] == 1 ? moment : "P", FormatNum(s.pm[i], kLoad),
                       FormatNum(s.pmx[i], kPosition), Category(s.pmtype[i]));
        }
    }
}

// "N = 100.0 (G)    N = 20.0 (Q1)"
std::string AxialText(const ProjectState& s)
{
    std::string text;
    for (std::size_t i = 1; i < s.nload.size(); ++i) {
        if (s.nload[i] != 0) {
            text += text.empty() ? "N = " : "    N = ";
            text +=
                FormatNum(s.nload[i], kAxialLoad) + " (" + std::string(Category(s.ntype[i])) + ")";
        }
    }
    return text;
}

}  // namespace

void PrintLoading(PageWriter& page, const ProjectState& s, double left, double right)
{
    constexpr double kSpace = 0.3;
    page.WriteBold(left, "Loading information: (kN/kNm/m)", right);
    page.Row();
    page.Write(left, "G=Permanent; Q1/Q2=Variable, Q1 = Main", {}, right);
    page.Row();
    const std::string axial = AxialText(s);
    if (!axial.empty()) {
        page.Write(left, axial, {}, right);
        page.Row();
    }
    LoadTable table(page, left, right);
    page.Row(kSpace);
    table.Head("Loading in z-direction:");
    AddLoads(table, s, 1);
    page.Row(kSpace);
    table.Head("Loading in y-direction:");
    AddLoads(table, s, 0);
}

void PrintLoadOptions(PageWriter& page, const ProjectState& s, double left, double right)
{
    page.Write(left,
               s.selfweight == 1 ? "Selfweight of member included "
                                 : "Selfweight of member not included",
               {}, right);
    page.Row();
    page.Write(left, "Psi(Q1/Q2) = " + FormatNum(s.psi1, "0.0") + "/" + FormatNum(s.psi2, "0.0"),
               {}, right);
    page.Row();
}

void PrintEndForces(PageWriter& page, const ProjectState& s, double left, double right)
{
    const auto force = [](std::string_view name, float value, std::string_view unit) {
        return Quantity{std::string(name), FormatNum(value, kLoad), std::string(unit)};
    };
    const Quantity axial[] = {force("N", s.ne, "kN")};
    const Quantity ends[] = {force("My1", s.my1, "kNm"), force("Vz1", s.vz1, "kN"),
                             force("Mz1", s.mz1, "kNm"), force("Vy1", s.vy1, "kN"),
                             force("My2", s.my2, "kNm"), force("Vz2", s.vz2, "kN"),
                             force("Mz2", s.mz2, "kNm"), force("Vy2", s.vy2, "kN")};
    page.WriteBold(left, "Endforces: (kN/kNm/m)", right);
    page.Row();
    page.Quantities(axial, 1, left, right);
    page.Quantities(ends, 2, left, right);
}

double CombinationWidth(const ProjectState& s)
{
    double width = 0;
    for (const std::string& text : ShowCombination(s)) {
        width = std::max(width, TextWidth(text, kPageText));
    }
    return width;
}

void PrintCombination(PageWriter& page, const ProjectState& s)
{
    for (const std::string& text : ShowCombination(s)) {
        page.Write(kPageLeft, text);
        page.Row();
    }
}

}  // namespace kestrum
