#include "calculation/symbol_list.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace kestrum {

namespace {

struct Meaning {
    std::string_view symbol, text;
};

// "c_n": of every number. Sorted as they are printed.
constexpr Meaning kMeanings[] = {
    {"A_M", "work of the moments on the buckling shape, Nm"},
    {"A_eff", "effective area, mm²"},
    {"A_g", "work of the loads by their level on the buckling shape, Nm"},
    {"A_j", "work of the moments by the asymmetry zj on the buckling shape, Nm"},
    {"A_v,y", "shear area along y, mm²"},
    {"A_v,z", "shear area along z, mm²"},
    {"A_w", "area of the webs, mm²"},
    {"C_1", "factor of the moment line; 1 without lateral torsional buckling"},
    {"C_1,a", "C1 of the table for k of the first value named at the equation"},
    {"C_1,b", "C1 of the table for k of the second value named at the equation"},
    {"C_2", "factor of the level of the loads"},
    {"C_2,a", "C2 of the table for k of the first value named at the equation"},
    {"C_2,b", "C2 of the table for k of the second value named at the equation"},
    {"C_3,0", "factor of the asymmetry under uniform moment"},
    {"C_3,a", "C3 of the table for k of the first value named at the equation"},
    {"C_3,b", "C3 of the table for k of the second value named at the equation"},
    {"C_a", "C1 of the table for the first ψ named at the equation"},
    {"C_b", "C1 of the table for the second ψ named at the equation"},
    {"I_w", "warping constant, mm⁶"},
    {"K_FI,G", "factor of the reliability class on permanent actions"},
    {"K_FI,Q", "factor of the reliability class on variable actions"},
    {"K_n", "factor of natural frequency n"},
    {"L_1", "length between restraints of the piece with the largest moment, m"},
    {"L_LT", "length of lateral torsional buckling, m"},
    {"L_T", "length of torsional buckling, m"},
    {"L_piece", "distance of lateral restraints, m"},
    {"M_1", "larger moment at the ends of the member or of the piece, kNm; of the factor "
            "α_cr,1 the largest of the piece"},
    {"M_2", "smaller moment at the ends of the member or of the piece, kNm"},
    {"M_n", "moment at quarter n of the length, kNm"},
    {"M_h", "moment at an end, Table B.3, kNm"},
    {"M_pl,y,Rd", "plastic resistance to bending about y, kNm"},
    {"M_pl,z,Rd", "plastic resistance to bending about z, kNm"},
    {"M_s", "moment in the span, Table B.3, kNm"},
    {"M_u,Ed", "design moment about u, kNm"},
    {"M_u,Rd,1", "resistance to bending about u with γ_M1, kNm"},
    {"M_u,max", "largest moment about u along the member, kNm"},
    {"M_v,Ed", "design moment about v, kNm"},
    {"M_v,Rd,1", "resistance to bending about v with γ_M1, kNm"},
    {"M_y,Ed", "design moment about y at the place of the check, kNm; its size in ratios"},
    {"M_y,Rd", "resistance to bending about y of the side that is compressed, kNm"},
    {"M_y,Rd,1", "resistance to bending about y of the side that is compressed, with γ_M1, kNm"},
    {"M_y,max", "largest moment about y along the member, kNm"},
    {"M_z,Ed", "design moment about z at the place of the check, kNm; its size in ratios"},
    {"M_z,Rd,1", "resistance to bending about z with γ_M1, kNm"},
    {"N_Ed", "design axial force, compression positive, kN"},
    {"N_Rd", "resistance to the axial force: N_c,Rd in compression, N_pl,Rd in tension, kN"},
    {"N_Rk", "characteristic resistance to compression, A f_y or A_eff f_y, kN"},
    {"N_c,Rd", "resistance to compression, kN"},
    {"N_cr", "smaller of the torsional and the torsional-flexural critical force, kN"},
    {"N_cr,T", "critical force of torsional buckling, kN"},
    {"N_cr,TF", "critical force of torsional-flexural buckling, kN; N_cr,T where the shear centre "
                "is the centroid"},
    {"N_cr,y", "critical force of flexural buckling about y, of angles about u, kN"},
    {"N_cr,z", "critical force of flexural buckling about z, of angles about v, kN"},
    {"Q_n", "sum of load n in the table of loads that count as masses, kN"},
    {"U_T", "energy of torsion in the buckling shape, Nm"},
    {"U_v", "energy of bending sideways in the buckling shape, Nm"},
    {"U_w", "energy of warping in the buckling shape, Nm"},
    {"V_y,Ed", "design shear force along y at the place of the check, kN; its size"},
    {"V_y,Rd", "resistance to shear along y of the ratio, kN"},
    {"V_z,Ed", "design shear force along z at the place of the check, kN; its size"},
    {"V_z,Rd", "resistance to shear along z of the ratio, kN"},
    {"W_bot,y", "modulus about y in use with the bottom compressed, mm³"},
    {"W_eff,y", "effective modulus about y, mm³"},
    {"W_eff,z", "effective modulus about z, mm³"},
    {"W_el,y", "smaller elastic modulus about y, mm³"},
    {"W_el,z", "smaller elastic modulus about z, mm³"},
    {"W_pl,eff,y", "plastic modulus with the effective web of 6.2.2.4, mm³"},
    {"W_pl,y", "plastic modulus about y, mm³"},
    {"W_top,y", "modulus about y in use with the top compressed, mm³"},
    {"W_u", "modulus about u by the class of the section, mm³"},
    {"W_u,c", "modulus about u by the class of the section, of the compressed side, mm³"},
    {"W_u,n", "elastic modulus about u of point n, mm³"},
    {"W_v", "modulus about v by the class of the section, mm³"},
    {"W_v,n", "elastic modulus about v of point n, mm³"},
    {"W_y", "modulus about y by the class of the section, of the compressed side, mm³"},
    {"W_y,n", "elastic modulus about y of point n, mm³"},
    {"W_y,bot", "modulus about y in use with the bottom compressed, mm³"},
    {"W_y,c", "modulus about y by the class of the section, of the compressed side, mm³"},
    {"W_y,top", "modulus about y in use with the top compressed, mm³"},
    {"W_z", "modulus about z by the class of the section, mm³"},
    {"W_z,n", "elastic modulus about z of point n, mm³"},
    {"b", "width of the section, mm"},
    {"b_bot", "width of the bottom flange, mm"},
    {"b_f", "width of the flange that anchors the web, mm"},
    {"b_top", "width of the top flange or plate, mm"},
    {"b_w", "clear width between the webs, mm"},
    {"c_f", "width of the compressed flange plate, mm"},
    {"c_fn", "width of part n of the flange, mm"},
    {"c_n", "width of plate n, mm"},
    {"c_w", "width of the bent plate, mm"},
    {"e", "distance of the centroid of the gross section from the compressed edge, mm"},
    {"e_max", "distance of the furthest corner from the axis, mm"},
    {"h_f", "distance of the centroids of the flanges, mm"},
    {"h_w", "clear height of the web between the flanges, mm"},
    {"k_cr,u", "factor of the buckling length about u, that of y as entered"},
    {"k_cr,v", "factor of the buckling length about v, that of z as entered"},
    {"m", "mass of the member, kg/m"},
    {"m_0", "mass of the section, kg/m"},
    {"n_y", "N_Ed over N_b,y,Rd"},
    {"n_z", "N_Ed over N_b,z,Rd"},
    {"o", "distance of the straight part of the bent plate from the compressed edge, mm"},
    {"q", "design load on the bottom flange next to one web, N/mm"},
    {"q_n", "line load n, kN/m"},
    {"q_sum", "design loads over the whole length, N/mm"},
    {"r", "root radius, mm"},
    {"s", "coordinate of the corner along u, mm"},
    {"s_n,1", "share of load n in mode 1, in the table of loads that count as masses"},
    {"s_n,2", "share of load n in mode 2, in the table of loads that count as masses"},
    {"s_n,3", "share of load n in mode 3, in the table of loads that count as masses"},
    {"t_bot", "thickness of the bottom flange, mm"},
    {"t_f", "thickness of the flange, mm"},
    {"t_fn", "thickness of part n of the flange, mm"},
    {"t_n", "thickness of plate n, mm"},
    {"t_top", "thickness of the top flange or plate, mm"},
    {"t_w", "thickness of the web, of the wall or of the legs, mm"},
    {"u_0", "distance of the shear centre from the centroid along u, mm"},
    {"v_0", "distance of the shear centre from the centroid along v, mm"},
    {"v_b", "basic wind velocity, m/s"},
    {"w", "distance of the corner from the axis u, mm"},
    {"w_n", "lost width of plate n, mm"},
    {"y_0", "distance of the shear centre from the centroid along y, mm"},
    {"y_n", "distance of the lost part of plate n from the centroid along y, mm"},
    {"z_0", "distance of the shear centre from the centroid along z, mm"},
    {"z_n", "distance of the lost part of plate n from the centroid along z, mm"},
    {"z_bot", "distance of the bottom edge from the centroid, mm"},
    {"z_cog", "distance of the centroid from the bottom edge, mm"},
    {"z_f", "distance of the middle of the compressed plate from its edge, mm"},
    {"z_g", "level of the loads above the shear centre, mm"},
    {"z_j", "asymmetry of the section, EN 1993-1-1, 6.3.2.2 (2), mm"},
    {"z_s", "distance of the shear centre above the centroid, mm"},
    {"z_top", "distance of the top edge from the centroid, mm"},
    {"α", "imperfection factor of the buckling curve, Table 6.1; exponent in 6.2.9.1 (6)"},
    {"α_0", "angle from y to the axis u of the gross section"},
    {"α_LT", "imperfection factor of lateral torsional buckling, Table 6.3"},
    {"α_cr,1", "critical factor of the piece with the largest moment, loads in the shear centre"},
    {"α_z", "imperfection factor of the curve of z, Table 6.1"},
    {"γ_G", "partial factor of permanent actions"},
    {"γ_Q1", "partial factor of the leading variable action"},
    {"γ_Q2", "partial factor of other variable actions"},
    {"δ_y", "largest deflection along y, mm; its size"},
    {"δ_z", "largest deflection along z, mm; its size"},
    {"κ_n", "wave number of mode n by the supports"},
    {"ξ", "reduction of permanent actions in EN 1990, Eq (6.10b)"},
    {"ψ_n", "combination factor of load n, in the table of loads that count as masses"},
    {"χ", "smallest reduction of flexural, torsional and torsional-flexural buckling"},
    {"χ_LT", "reduction of lateral torsional buckling; 1 where there is none"},
    {"χ_LT,mod", "modified reduction of lateral torsional buckling, 6.3.2.3 (2)"},
    {"χ_y", "reduction of flexural buckling about y, of angles about u"},
    {"χ_z", "reduction of flexural buckling about z, of angles about v"},
};

const Meaning* MeaningOf(std::string_view symbol)
{
    const auto* const found =
        std::find_if(std::begin(kMeanings), std::end(kMeanings),
                     [&](const Meaning& meaning) { return meaning.symbol == symbol; });
    return found == std::end(kMeanings) ? nullptr : found;
}

// A meaning with symbols in it, "N_c,Rd in compression".
Line MeaningLine(std::string_view text)
{
    Line line;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        const std::string_view word = text.substr(at, end - at);
        const std::size_t size = word.find_last_not_of(",;") + 1;
        line += word.find('_') == std::string_view::npos
                    ? Sentence(word)
                    : Line(Symbol(word.substr(0, size))) + Line(word.substr(size));
        line += Line(end < text.size() ? " " : "");
        at = end + 1;
    }
    return line;
}

// "c_n" of "c_1", "s_n,1" of "s_2,1".
std::string WithoutNumber(std::string symbol)
{
    const auto is_digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
    const std::size_t first = symbol.find('_') + 1;
    const std::size_t at =
        symbol.find(',') == first + 1 && is_digit(symbol[first]) ? first : symbol.size() - 1;
    if (at > 0 && is_digit(symbol[at])) {
        symbol[at] = 'n';
    }
    return symbol;
}

std::string WrittenAs(const Symbol& symbol)
{
    return symbol.subscript.empty() ? symbol.letter : symbol.letter + "_" + symbol.subscript;
}

void Collect(const Expr& expression, std::set<std::string>& used)
{
    if (expression == nullptr) {
        return;
    }
    if (expression->op == Op::symbol && !expression->symbol.bar) {
        used.insert(WrittenAs(expression->symbol));
    }
    for (const Expr& part : expression->parts) {
        Collect(part, used);
    }
}

// What a cell of a table gives, "f_y".
std::string SymbolIn(const Line& cell)
{
    std::string text;
    for (const Span& span : cell.spans) {
        text += (span.style == Span::Style::subscript ? "_" : "") + span.text;
    }
    return text;
}

// Used by formulas of one member and given by nothing in it.
class Member {
public:
    void Read(const Block& block)
    {
        if (const auto* const equation = std::get_if<Equation>(&block)) {
            given_.insert(WrittenAs(equation->symbol));
            Collect(equation->formula, used_);
        } else if (const auto* const table = std::get_if<TextTable>(&block)) {
            for (const auto& row : table->rows) {
                for (std::size_t i = 0; i < std::min<std::size_t>(row.size(), 2); ++i) {
                    given_.insert(SymbolIn(row[i]));
                }
            }
        }
    }
    void AddTo(std::set<std::string>& open) const
    {
        std::set_difference(used_.begin(), used_.end(), given_.begin(), given_.end(),
                            std::inserter(open, open.end()));
    }

private:
    std::set<std::string> used_, given_;
};

std::set<std::string> OpenSymbols(const Document& d)
{
    std::set<std::string> open;
    Member member;
    for (const Block& block : d.blocks) {
        const auto* const heading = std::get_if<Heading>(&block);
        if (heading != nullptr && heading->level == 1) {
            member.AddTo(open);
            member = Member();
        }
        member.Read(block);
    }
    member.AddTo(open);
    return open;
}

}  // namespace

void AddSymbols(Document& d)
{
    TextTable table{.columns = {{"Symbol"}, {"Meaning", false, 4}}};
    std::map<const Meaning*, Line> rows;
    for (const std::string& symbol : OpenSymbols(d)) {
        const Meaning* const own = MeaningOf(symbol);
        const Meaning* const meaning = own != nullptr ? own : MeaningOf(WithoutNumber(symbol));
        if (meaning != nullptr) {
            Line& symbols = rows[meaning];
            symbols += (symbols.Empty() ? Line() : Line(", ")) + Line(Symbol(symbol));
        }
    }
    for (auto& [meaning, symbols] : rows) {
        table.rows.push_back({std::move(symbols), MeaningLine(meaning->text)});
    }
    if (table.rows.empty()) {
        return;
    }
    d.Chapter("Symbols");
    d.Say("Of formulas; what an equation or a table gives is found there.",
          Paragraph::Kind::remark);
    d.Add(std::move(table));
}

}  // namespace kestrum
