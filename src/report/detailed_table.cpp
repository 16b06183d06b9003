#include "report/detailed_table.h"

#include "core/csv_cell.h"
#include "core/member_choices.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/stages.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr std::string_view kNone = "N/A";
constexpr double kUncoupled = 9e24;  // critical forces from here on stand for "never"

// Builds the rows from top to bottom. A quantity is written if `ran`.
class RowList {
public:
    void Heading(std::string_view text)
    {
        DetailedRow row;
        row.parameter = text;
        row.heading = true;
        rows_.push_back(std::move(row));
    }

    void Text(std::string_view parameter, std::string_view value, std::string_view unit = {},
              std::string_view reference = {})
    {
        DetailedRow row;
        row.parameter = parameter;
        row.value = value;
        row.unit = unit;
        row.reference = reference;
        rows_.push_back(std::move(row));
    }

    // `value` keeps its type: single precision is rounded to fewer digits.
    template <class Value>
    void Number(bool ran, std::string_view parameter, Value value, std::string_view unit = {},
                std::string_view reference = {}, std::string_view format = "#0.000")
    {
        if (!ran) {
            Text(parameter, kNone, unit, reference);
            return;
        }
        Text(parameter, FormatNum(value, format), unit, reference);
        rows_.back().number = value;
        rows_.back().format = format;
    }

    std::vector<DetailedRow> Take() { return std::move(rows_); }

private:
    std::vector<DetailedRow> rows_;
};

void AddShape(RowList& table, const ProjectState& s)
{
    const bool loads = s.loadmode == 1;  // end forces leave the shape of an earlier member
    table.Heading(" Moment shape");
    table.Text(" My", !loads ? kNone : s.mycurved == kTrue ? "q-load" : "P-load");
    table.Text(" My", !loads ? kNone : s.mylinear == kTrue ? "Line" : "Curve");
}

void AddLateral(RowList& table, const ProjectState& s, const StagesRun& run)
{
    constexpr std::string_view kReduction = " Ch 6.3.2.3";
    const bool annex_a = run.interaction && s.method == Method::annex_a;
    table.Heading(" Lateral Buckling Factors");
    table.Number(run.lateral, " Mcr", s.mcr / 1e6, " kNm", "", "0.000");  // Nmm to kNm
    table.Number(run.lateral, " C1", s.ltc1, "", " (Mcr)", "0.000");
    table.Number(run.lateral, " lamdaLt", s.lamlt, "", " Ch 6.3.2");
    table.Number(run.uniform, " Mcr0", s.mcr0 / 1e6, " kNm");
    table.Number(annex_a, " lamda0", s.lam0);
    table.Number(run.stage, " XLt", s.xlt0, "", kReduction);
    table.Number(run.stage, " XLtmod", s.xlt, "", kReduction);
    table.Number(run.stage, " kc", s.kc, "", kReduction);
    table.Number(run.stage, " f", s.ffactor);
}

void AddBuckling(RowList& table, const ProjectState& s, const StagesRun& run)
{
    constexpr std::string_view kFlexural = " Ch 6.3.1.2";
    table.Heading(" Buckling Factors");
    table.Number(run.axial, " Ncr,y", s.ncry, " kN", kFlexural);
    table.Number(run.axial, " lamday", s.lamy, "", kFlexural);
    table.Number(run.axial, " Xy", s.chiy, "", kFlexural);
    table.Number(run.axial, " Ncr,z", s.ncrz, " kN", kFlexural);
    table.Number(run.axial, " lamdaz", s.lamz, "", kFlexural);
    table.Number(run.axial, " Xz", s.chiz, "", kFlexural);
    table.Number(run.axial && s.ncrt != 0, " NcrT", s.ncrt, " kN");
    table.Number(run.axial && s.ncrtf != 0 && s.ncrtf < kUncoupled, " NcrTF", s.ncrtf, " kN");
}

void AddInteraction(RowList& table, const ProjectState& s, const StagesRun& run)
{
    const bool annex_a = s.method == Method::annex_a;
    const std::string_view method = annex_a ? " Method 1" : " Method 2";
    const auto add = [&](std::string_view parameter, auto value) {
        table.Number(run.interaction, parameter, value, "", method);
    };
    table.Heading(" Interaction Factors");
    add(" kyy", s.kyy);
    add(" kyz", s.kyz);
    add(" kzz", s.kzz);
    add(" kzy", s.kzy);
    add(" Cmy", s.cmy);
    table.Number(run.interaction && annex_a, " Cmy0", s.cmy0, "", method);
    add(" Cmz", s.cmz);
    add(" CmLt", s.cmlt);
    if (!annex_a) {
        return;
    }
    add(" Cyy", s.cyy);
    add(" Cyz", s.cyz);
    add(" Czy", s.czy);
    add(" Czz", s.czz);
    add(" aLt", s.alt);
    add(" bLt", s.blt);
    add(" cLt", s.clt);
    add(" dLt", s.dlt);
    add(" eLt", s.elt);
    add(" npl", s.npl);
    add(" uy", s.muy);
    add(" uz", s.muz);
    add(" wy", s.wy);
    add(" wz", s.wz);
    add(" ey", s.epsy);
}

std::string Trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

using Fields = std::array<std::string, 4>;

std::string CsvLine(const Fields& fields, const CsvForm& csv)
{
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        line.append(i > 0 ? 1 : 0, csv.delimiter);
        AppendCell(line, fields[i]);
    }
    return line + "\r\n";
}

Fields HeadingFields()
{
    Fields fields;
    std::copy(kDetailedColumns.begin(), kDetailedColumns.end(), fields.begin());
    return fields;
}

}  // namespace

std::vector<DetailedRow> FillDetailedResult(const ProjectState& s)
{
    const StagesRun run = StagesOf(s);
    RowList table;
    AddShape(table, s);
    AddLateral(table, s, run);
    table.Text("  ", "");
    AddBuckling(table, s, run);
    AddInteraction(table, s, run);
    table.Heading(" Shear area");
    table.Number(true, " Az", s.avz, " mm2", "", "#0 ");
    table.Number(true, " Ay", s.avy, " mm2", "", "#0 ");
    table.Heading(" Other");
    return table.Take();
}

std::string DetailedText(const std::vector<DetailedRow>& rows)
{
    constexpr std::size_t kValueWidth = 16;
    std::vector<Fields> lines{HeadingFields()};
    std::size_t first = 0, unit = 0;
    for (const DetailedRow& row : rows) {
        lines.push_back({row.parameter, Trimmed(row.value), row.unit, row.reference});
        first = std::max(first, row.heading ? 0 : row.parameter.size());
        unit = std::max(unit, row.unit.size());
    }
    first = std::max(first, lines.front()[0].size()) + 2;

    std::string out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Fields& line = lines[i];
        std::string text = line[0];
        if (i == 0 || !rows[i - 1].heading) {
            text.resize(std::max(first, text.size()), ' ');
            if (line[1].size() < kValueWidth) {
                text.append(kValueWidth - line[1].size(), ' ');
            }
            text += line[1] + (i == 0 ? " " : "");
            line[2].resize(unit + 1, ' ');
            text += line[2] + line[3];
        }
        text.erase(text.find_last_not_of(' ') + 1);
        out += text + "\n";
    }
    return out;
}

std::string DetailedCsv(const std::vector<DetailedRow>& rows, const CsvForm& csv)
{
    std::string out = CsvLine(HeadingFields(), csv);
    for (const DetailedRow& row : rows) {
        std::string value = row.number ? Trimmed(row.value) : row.value;
        if (row.number) {
            SetPoint(value, 0, csv);
        }
        out += CsvLine({row.parameter, std::move(value), row.unit, row.reference}, csv);
    }
    return out;
}

}  // namespace kestrum
