#include "calculation/calculation_report.h"

#include "calculation/chapters.h"
#include "calculation/symbol_list.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "core/version.h"
#include "report/both_bases.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrum {

namespace {

constexpr int kRatioDigits = 4;

// A pass that stops in Eq (6.10a) or (6.10b) leaves open in which of them: by its axial force.
i16 EquationStopped(const ProjectState& s)
{
    const auto missed = [&](int equation) {
        const LoadFactors f = StrengthFactors(s, s, equation);
        double n = 0;
        for (std::size_t i = 1; i < s.nload.size(); ++i) {
            n += s.nload[i] * (s.ntype[i] == 0 ? f.g : s.ntype[i] == 1 ? f.q1 : f.q2);
        }
        return std::abs(n - s.ned);
    };
    return missed(kEq610a) <= missed(kEq610b) ? 1 : 2;
}

CalculatedMember CalculateMember(const Library& library, const ProjectState& project, bool vortex)
{
    CalculatedMember m{.library = library,
                       .input = project,
                       .s = project,
                       .outcome = {},
                       .standard = {},
                       .stages = {},
                       .vortex = vortex};
    BothBases both = CalculateBoth(library, project, m.s);
    m.standard = std::move(both.standard);
    m.outcome = OutcomeOf(m.s, both.well);
    m.stages = StagesOf(m.s);
    if (m.outcome.verdict == Verdict::unstable && m.s.loadcomb == kEq610ab) {
        m.s.governing = EquationStopped(m.s);
    }
    return m;
}

void AddMember(const CalculatedMember& m, Document& d)
{
    AddVerdict(m, d);
    AddInputs(m, d);
    AddSection(m, d);
    AddActions(m, d);
    if (m.HasSection()) {
        AddClasses(m, d);
    }
    AddEffectiveSection(m, d);
    if (m.HasSection()) {
        AddForces(m, d);
        AddResistances(m, d);
    }
    AddSectionChecks(m, d);
    AddFlexuralBuckling(m, d);
    AddLateralBuckling(m, d);
    AddInteraction(m, d);
    AddMemberChecks(m, d);
    AddServiceability(m, d);
    AddVortexShedding(m, d);
    AddReactions(m, d);
    AddNotes(m, d);
}

std::string RatioText(bool rated, double ratio)
{
    return rated && std::isfinite(ratio) ? ResultText(ratio, kRatioDigits) : "-";
}

// Cover, contents, and the members by their ratios, the largest first; those without one on top.
void AddFront(std::span<const ReportedMember> members,
              const std::vector<CalculatedMember>& calculated, Document& d)
{
    d.Cover("Calculation report");
    if (!d.head.project.empty()) {
        d.Say(Strong(d.head.project));
    }
    d.Say(std::to_string(members.size()) + " members");
    d.Chapter("Contents");
    TextTable contents{.columns = {{"Member"}, {"Section"}, {"File"}, {"page", true}},
                       .contents = true};
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < members.size(); ++i) {
        contents.rows.push_back(
            {members[i].project->ident, ProfileOf(calculated[i]), members[i].file, "      "});
        order.push_back(i);
    }
    d.Add(std::move(contents));
    const auto ratio = [&](std::size_t i) {
        const Outcome& outcome = calculated[i].outcome;
        return outcome.rated() ? outcome.ir : std::numeric_limits<double>::infinity();
    };
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return ratio(a) > ratio(b); });
    d.Chapter("Summary, largest ratio first");
    TextTable summary{.columns = {{"Member"},
                                  {"Section"},
                                  {"IR, program", true},
                                  {"check"},
                                  {"verdict"},
                                  {"IR, standard", true},
                                  {"verdict"}}};
    for (const std::size_t i : order) {
        const CalculatedMember& m = calculated[i];
        summary.rows.push_back({members[i].project->ident, ProfileOf(m),
                                WithNumbers(RatioText(m.outcome.rated(), m.outcome.ir)),
                                GoverningName(m), VerdictText(m.outcome),
                                WithNumbers(RatioText(m.standard.rated, m.standard.ir)),
                                standard::VerdictOf(m.standard)});
    }
    d.Add(std::move(summary));
}

std::string FooterOf(std::span<const ReportedMember> members)
{
    std::string text = "Kestrum EC3 " + std::string(kVersion);
    if (members.size() == 1 && !members[0].file.empty()) {
        text += ", " + members[0].file + ", SHA-256 " + members[0].digest;
    }
    return text;
}

// Texts of figures with the decimal sign of the document.
void SetDecimals(Document& d)
{
    for (Block& block : d.blocks) {
        auto* const row = std::get_if<FigureRow>(&block);
        if (row == nullptr) {
            continue;
        }
        for (Figure& figure : row->figures) {
            for (auto& mark : figure.drawing.marks) {
                auto* const text = std::get_if<TextMark>(&mark);
                if (text != nullptr && !text->verbatim) {
                    text->text = PlainText(WithNumbers(text->text), d.head.decimal);
                }
            }
        }
    }
}

}  // namespace

Document CalculationReport(const Library& library, std::span<const ReportedMember> members,
                           DocumentHead head)
{
    Document d;
    d.head = std::move(head);
    std::vector<CalculatedMember> calculated;
    for (const ReportedMember& member : members) {
        calculated.push_back(CalculateMember(library, member.project, member.vortex));
    }
    const bool book = members.size() > 1;
    d.head.project = members.front().project->projname;
    d.head.ident = book ? "" : members.front().project->ident;
    d.head.title = "Calculation report" + (book ? "" : ": " + ProfileOf(calculated.front()));
    d.head.footer = FooterOf(members);
    if (book) {
        AddFront(members, calculated, d);
    }
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (book) {
            d.NewPage();
            const std::string& ident = members[i].project->ident;
            d.Member((ident.empty() ? "" : ident + ": ") + ProfileOf(calculated[i]));
            d.Say(members[i].file + ", SHA-256 " + members[i].digest, Paragraph::Kind::remark);
        } else {
            d.Member(d.head.title);
        }
        AddMember(calculated[i], d);
    }
    AddSymbols(d);
    AddClauses(d);
    if (d.head.decimal != '.') {
        SetDecimals(d);
    }
    return d;
}

}  // namespace kestrum
