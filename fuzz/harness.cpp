#include "harness.h"
#include "core/project_state.h"
#include "harness_tools.h"

#include "app/assign_run.h"
#include "app/batch.h"
#include "app/envelope.h"
#include "app/without_effect.h"
#include "core/field_table.h"
#include "core/file_notation.h"
#include "core/material.h"
#include "core/number_format.h"
#include "core/parse_num.h"
#include "core/project_file.h"
#include "core/setup_file.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "engine/new_project.h"
#include "report/detailed_table.h"
#include "report/outcome.h"
#include "report/panel_text.h"
#include "report/state_json.h"
#include "sections/families.h"
#include "sections/load_library.h"
#include "sections/read_profiles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace kestrum::fuzz {

namespace {

// A pass that ends well leaves numbers, and texts that can be made.
void CalculateAndShow(const Library& library, ProjectState& s)
{
    const bool well = Calculate(library, s);
    Require(well != s.calculationerror, "outcome and flag differ");
    if (well && FindRoutines(s.family) != nullptr) {
        for (const double ir : {s.irsection, s.maxirbuckling, DeflectionRatio(s)}) {
            Require(std::isfinite(ir), "a ratio is no number");
        }
        for (const float ordinate : s.mydiag) {
            Require(std::isfinite(ordinate), "a diagram ordinate is no number");
        }
        const Outcome outcome = OutcomeOf(s, well);
        Require(!outcome.rated() || !outcome.control.empty(), "no row governs");
        PanelText(s);
    }
}

// From the first reading on a file repeats itself.
void RequireRepeats(ProjectState& s)
{
    std::array<std::string, 2> written;
    for (std::string& bytes : written) {
        bytes = WriteProject(s);
        s = Default();
        Require(!ReadProject(s, bytes), "a written file cannot be read");
    }
    Require(WriteProject(s) == written[1], "a file does not repeat itself");
}

// The same outcome twice.
void RequireRepeatable(const ProjectState& s)
{
    ProjectState a = s, b = s;
    Calculate(Delivered(), a);
    Calculate(Delivered(), b);
    Require(a == b || StateJson(a) == StateJson(b), "two passes of one record differ");
}

}  // namespace

void ProjectFile(std::string_view bytes)
{
    ProjectState s = Default();
    const auto fault = ReadProject(s, bytes);
    if (fault) {
        Require(fault->line > 0 && !fault->what.empty(), "a fault without place or words");
    }
    ProjectState calculated = s;
    CalculateAndShow(Delivered(), calculated);
    if (bytes.size() % 8 == 0) {  // it takes longer than all the rest
        StateJson(calculated);
    }
    RequireRepeats(s);
}

void SetupFile(std::string_view bytes)
{
    ProjectState s = Default();
    ReadSetup(s, bytes);
    std::array<std::string, 3> written;  // a text with quotes inside settles in the second
    for (std::string& text : written) {
        text = WriteSetup(s);
        Require(!ReadSetup(s, text), "a written setup cannot be read");
    }
    Require(written[1] == written[2], "a setup does not repeat itself");

    Library library = Delivered();
    library.setup = bytes;
    ProjectState started{};
    StartUp(library, started);
    CalculateAndShow(library, started);
}

void MaterialList(std::string_view bytes)
{
    Library library = Delivered();
    library.materials = ReadMaterialList(bytes);
    Require(library.materials.size() <= kMaterials, "too many materials");
    for (const Material& material : library.materials) {
        Require(std::isfinite(material.fy40) && std::isfinite(material.fyover), "no strength");
    }
    for (const int index : {-1, 0, 3, LastMaterial(library), kMaterials}) {
        ProjectState s = Default();
        s.fykindex = static_cast<i16>(index);
        CalculateAndShow(library, s);
    }
}

void ProfileTables(std::string_view bytes)
{
    Source source(bytes);
    const auto table = static_cast<Table>(source.Byte() % kTables);
    Library library = Delivered();
    ProfileTable& profile = library.tables[static_cast<std::size_t>(table)];
    std::fill(profile.value.begin(), profile.value.end(), 0.0F);
    FillProfile(bytes.substr(std::min<std::size_t>(1, bytes.size())), ShapeOf(table), profile);

    // Families 1 to 11 and the rest that reads tables, every series.
    for (const int family : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 15, 16, 52, 54, 101, 102, 103}) {
        for (const i16 series : {i16{1}, i16{2}, i16{3}}) {
            ProjectState s = Default();
            s.family = static_cast<i16>(family);
            s.series101 = s.series103 = series;
            s.row.fill(static_cast<i16>(bytes.size() % 7));
            CalculateAndShow(library, s);
            if (family < 101) {
                break;
            }
        }
    }
}

void Numbers(std::string_view bytes)
{
    for (const bool comma : {false, true}) {
        const std::optional<float> value = ParseNum(bytes, comma);
        if (!value) {
            continue;
        }
        Require(std::isfinite(*value), "a number that is none");
        Require(static_cast<float>(WidenNum(*value)) == *value, "widening changes the number");
        for (const char* pattern : {"#0.00", "#.00", "##.0", "0.000E+0", "0.0##", "0", "#000"}) {
            FormatNum(*value, pattern);
            FormatNum(static_cast<double>(*value), pattern);
        }
        Require(ParseNum(FileNumber(*value), false) == *value, "a file number does not read back");
        Require(ParseNum(FileNumber(*value), true) == *value, "a file number does not read back");
    }
}

void Assignments(std::string_view bytes)
{
    Source source(bytes);
    const Assignment how = source.Byte() % 2 == 0 ? Assignment::checked : Assignment::raw;
    bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
    ProjectState s = Default();
    AssignRun run(Delivered(), s, how);
    bool refused = false;
    while (!bytes.empty()) {
        std::string_view line = TakeLine(bytes);
        const bool odd = line.starts_with('!');  // as a file may hold it, behind the run's back
        line.remove_prefix(odd ? 1 : 0);
        const std::size_t equals = std::min(line.find('='), line.size());
        const std::string_view name = line.substr(0, equals);
        const std::string_view value = line.substr(std::min(equals + 1, line.size()));
        ProjectState alone = s;
        if (!AssignField(Delivered(), alone, name, value, odd ? Assignment::raw : how).empty()) {
            Require(alone == s, "a refused value changes the record");
        }
        AssignTarget target;
        if (odd) {
            s = alone;
        } else if (FindTarget(name, target).empty()) {
            refused = !run.Assign(target, value).empty() || refused;
        }
        OverruledBy(Delivered(), s, name);
        WithoutEffect(Delivered(), s, name);
    }
    refused = !run.Finish().empty() || refused;
    Require(refused || how == Assignment::raw || MisplacedLoad(s).empty(),
            "a load off the member is taken");
    ProjectState calculated = s;
    CalculateAndShow(Delivered(), calculated);
    RequireRepeats(s);
}

void MemberTables(std::string_view bytes)
{
    constexpr std::size_t kMostBytes = 20000;  // calculation takes its time
    Source source(bytes);
    const std::uint8_t choice = source.Byte();
    bytes = bytes.substr(std::min<std::size_t>(1, bytes.size()), kMostBytes);
    AnswerForm answers;
    const TableForm out = (choice & 1U) != 0 ? TableForm::csv : TableForm::ndjson;
    Require(answers.Choose(out, {"control", "clause", "message", "l", "qload[2]", "ident", "mcr"})
                .empty(),
            "a field is missing");
    const Assignment how = (choice & 2U) != 0 ? Assignment::checked : Assignment::raw;

    MemberColumns columns;
    BatchChunk chunk{.columns = &columns, .table = "table", .row = 1, .line = 1};
    chunk.form = (choice & 4U) != 0 ? TableForm::csv : TableForm::ndjson;
    if (chunk.form == TableForm::csv && !columns.TakeHeader(TakeLine(bytes)).empty()) {
        return;
    }
    chunk.lines = bytes;
    std::size_t members = 0;
    while (!bytes.empty()) {
        members += NextMember(chunk, bytes).empty() ? 0 : 1;
    }

    BatchWorker worker(Delivered(), Default(), answers, how);
    worker.Work(chunk);
    Require(chunk.tally.Members() == members, "a member is lost");
    const std::string first = chunk.out;
    const auto lines = std::count(first.begin(), first.end(), '\n');
    Require(static_cast<std::size_t>(lines) == members, "a line of answer is lost");
    worker.Work(chunk);
    Require(chunk.out == first, "a second run answers otherwise");
    Tally read;
    std::string_view rest = first;
    while (!rest.empty()) {
        std::string member;
        Verdict verdict{};
        double ir = 0;
        Require(answers.ReadBack(TakeLine(rest), member, verdict, ir), "an answer is not read");
        read.Add(read.Members(), member, verdict, ir);
    }
    Require(read.Summary() == chunk.tally.Summary(), "answers read back sum up otherwise");
}

void ForceTables(std::string_view bytes)
{
    constexpr std::size_t kMostBytes = 20000;  // calculation takes its time
    Source source(bytes);
    const std::uint8_t choice = source.Byte();
    bytes = bytes.substr(std::min<std::size_t>(1, bytes.size()), kMostBytes);
    MemberList members;
    Require(members
                .Take("id,section,family,l,ltb,method\na,IPE 300,,4,1,A\nb,,24,3,,\n"
                      "c,CHS 114.3x5,,2,,B\n",
                      "members", "")
                .empty(),
            "the members are not read");
    ForceManner manner;
    manner.tensionpositive = (choice & 1U) != 0;
    manner.swapaxes = (choice & 2U) != 0;
    ForceColumns columns;
    if (!columns.TakeHeader(TakeRecord(bytes, kAnySeparator), manner).empty()) {
        return;
    }
    EnvelopePlan plan{Delivered(), Default(), members};
    plan.bases = (choice & 4U) != 0 ? Bases::both : Bases::program;
    plan.all = (choice & 8U) != 0;
    EnvelopeWorker worker(plan, columns, "forces");
    ForcePiece piece{.lines = std::string(bytes), .line = 2};
    const EnvelopeForm form((choice & 16U) != 0 ? TableForm::csv : TableForm::ndjson, plan.bases,
                            CsvTexts::safe);
    const auto answers = [&] {
        worker.Work(piece);
        std::string text;
        std::size_t cases = 0;
        for (const MemberAnswer& answer : piece.answers) {
            form.AppendLine(text, members.Key(answer.member), answer);
            cases += answer.counts.cases;
        }
        Require(cases == piece.cases, "a case is lost");
        Require(!plan.all || piece.answers.size() == cases, "an answer is lost");
        return text;
    };
    const std::string first = answers();
    Require(answers() == first, "a second run answers otherwise");
    for (std::string_view rest = first; !rest.empty();) {
        std::string member;
        Verdict verdict{};
        double ir = 0;
        Require(form.ReadBack(TakeLine(rest), member, verdict, ir), "an answer is not read");
    }
}

void Members(std::string_view bytes)
{
    Source source(bytes);
    ProjectState s = MemberOf(source);
    RequireRepeatable(s);
    ProjectState calculated = s;
    CalculateAndShow(Delivered(), calculated);
    if (!calculated.calculationerror) {
        FillDetailedResult(calculated);
    }
    RequireRepeats(s);
    CalculateAndShow(Delivered(), s);
}

std::span<const Target> Targets()
{
    static constexpr std::array<Target, 14> kTargets{{{"project_file", ProjectFile},
                                                      {"setup_file", SetupFile},
                                                      {"material_list", MaterialList},
                                                      {"profile_tables", ProfileTables},
                                                      {"numbers", Numbers},
                                                      {"assignments", Assignments},
                                                      {"member_tables", MemberTables},
                                                      {"force_tables", ForceTables},
                                                      {"section_pools", SectionPools},
                                                      {"members", Members},
                                                      {"two_routes", TwoRoutes},
                                                      {"c_interface", CInterface},
                                                      {"left_work", LeftBehind},
                                                      {"office_settings", OfficeSettings}}};
    return kTargets;
}

}  // namespace kestrum::fuzz
