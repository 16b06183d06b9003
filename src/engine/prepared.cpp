#include "engine/prepared.h"

#include "core/arithmetic_trap.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "design/section_control.h"
#include "engine/control_dispatch.h"
#include "engine/member_analysis.h"
#include "engine/section_dispatch.h"
#include "engine/validate.h"
#include "stability/critical_force.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace kestrum {

namespace {

void PrepareSection(const Library& library, ProjectState& s)
{
    ArmTrap();
    s.failure.stage = Stage::input;
    const InputFaults faults = Validate(s, &library);
    if (faults.count > 0) {
        throw CalculationStop{faults.fault[0]};
    }
    s.failure.stage = Stage::section;
    CalcSection(library, s);
    CheckTrap();
}

void Stop(ProjectState& s, const CalculationStop& stop)
{
    const Stage stage = s.failure.stage;
    s.failure = stop.failure;
    s.failure.stage = stage;
    s.calculationerror = true;
}

constexpr std::size_t kSectionEnd = FirstCheckOf(static_cast<std::size_t>(ResultRow::buckling_y));

// The section checks of the sections so far.
struct Kept {
    CheckList list;
    std::array<double, 3> ratio{};  // of the rows
};

void Keep(const ProjectState& s, Kept& kept)
{
    for (std::size_t id = 1; id < kSectionEnd; ++id) {
        if (s.checklist.checks[id].ratio > kept.list.checks[id].ratio) {
            kept.list.checks[id] = s.checklist.checks[id];
        }
    }
    const std::array<double, 3> ratio = {s.irrow1, s.irrow2, s.irrow3};
    for (std::size_t i = 0; i < ratio.size(); ++i) {
        if (ratio[i] > kept.ratio[i]) {
            kept.ratio[i] = ratio[i];
            kept.list.Govern(s.checklist.governs(kSectionRows[i]));
        }
    }
}

void TakeKept(const Kept& kept, ProjectState& s)
{
    ClearSectionRows(s);
    std::copy_n(kept.list.checks.begin(), kSectionEnd, s.checklist.checks.begin());
    std::copy_n(kept.list.governing.begin(), kept.ratio.size(), s.checklist.governing.begin());
    s.irrow1 = kept.ratio[0];
    s.irrow2 = kept.ratio[1];
    s.irrow3 = kept.ratio[2];
    CloseSectionRows(s);
}

// Check sections first to last - 1 with their axial force.
void TakeSections(std::span<const StationSection> sections, ProjectState& s)
{
    for (std::size_t k = 0; k < sections.size(); ++k) {
        s.xi[k] = sections[k].xi;
        s.mysec[k] = sections[k].my;
        s.vzsec[k] = sections[k].vz;
        s.mzsec[k] = sections[k].mz;
        s.vysec[k] = sections[k].vy;
    }
    s.npts = static_cast<i16>(sections.size() - 1);
    s.ned = sections.front().n;
}

}  // namespace

void PutLoadsAside(ProjectState& s)
{
    static_cast<LoadInputs&>(s) = {};
    s.loadmode = 1;
    s.loadcomb = kUserFactors;
    s.lfulsg = s.lfulsq1 = s.lfulsq2 = s.lfslsg = s.lfslsq1 = s.lfslsq2 = 1;
    s.checksls = kFalse;
    s.modal = 0;
    s.dropped = {};
    s.governing = 0;
}

double PreparedMember::Length() const
{
    return state->l;
}

double PreparedMember::Mass() const
{
    return state->weight;
}

PreparedMember Prepare(const Library& library, const ProjectState& member)
{
    auto state = std::make_shared<ProjectState>(member);
    ProjectState& s = *state;
    PutLoadsAside(s);
    s.errorflag = 0;
    s.flangeoverload = false;
    s.calculationerror = false;
    s.failure = {};
    bool usable = false;
    try {
        PrepareSection(library, s);
        ClearControl(s);
        s.failure = {};
        usable = true;
    } catch (const CalculationStop& stop) {
        Stop(s, stop);
    }
    ArmTrap();
    return {std::move(state), usable};
}

StationRun::StationRun() = default;
StationRun::~StationRun() = default;
StationRun::StationRun(StationRun&&) noexcept = default;
StationRun& StationRun::operator=(StationRun&&) noexcept = default;

// What a pass writes, as the prepared member has it.
void StationRun::Start(const PreparedMember& member)
{
    const ProjectState& from = *member.state;
    if (prepared_ != member.state) {
        prepared_ = member.state;
        s_ = std::make_unique<ProjectState>(from);
        return;
    }
    ProjectState& s = *s_;
    static_cast<MemberInputs&>(s) = from;
    s.hsqopt = from.hsqopt;
    static_cast<SectionRecord&>(s) = from;
    static_cast<Resistances&>(s) = from;
    static_cast<SectionChecks&>(s) = from;
    static_cast<Stability&>(s) = from;
    static_cast<Carry&>(s) = from;
    s.errorflag = 0;
    s.flangeoverload = false;
    s.calculationerror = false;
    s.failure = {};
    nvaried_ = false;
}

// Sections with the same N at once, as many as the record can hold.
void StationRun::Sections()
{
    ProjectState& s = *s_;
    const std::span<const StationSection> all = lines_.Sections();
    const double buckling = s.ned;
    const auto same = [&](const StationSection& at) { return at.n == all.front().n; };
    nvaried_ = !std::all_of(all.begin(), all.end(), same);
    if (!nvaried_ && all.size() <= kCheckSections) {
        CalcSectionControl(s);
        return;
    }
    Kept kept{};
    for (std::size_t first = 0; first < all.size();) {
        std::size_t last = first + 1;
        while (last < all.size() && last - first < kCheckSections && all[last].n == all[first].n) {
            ++last;
        }
        if (first > 0) {
            static_cast<SectionRecord&>(s) = *prepared_;
            static_cast<Resistances&>(s) = *prepared_;
        }
        TakeSections(all.subspan(first, last - first), s);
        CalcSectionControl(s);
        Keep(s, kept);
        first = last;
    }
    TakeKept(kept, s);
    TakeSections(all.first(std::min<std::size_t>(all.size(), kCheckSections)), s);
    s.ned = buckling;
}

void StationRun::Pass(std::span<const Station> stations)
{
    ProjectState& s = *s_;
    ArmTrap();
    s.failure.stage = Stage::forces;
    lines_.Fill(s, s, stations, s);
    HandOnDesignMoment(s, s);
    CheckTrap();
    ClearControl(s);
    Sections();
    CalcBucklingControl(s);
    CheckTrap();
    const double ratio = RatioOf(s);
    if (!(ratio <= std::numeric_limits<double>::max())) {
        throw CalculationStop{{.cause = Cause::not_finite, .quantity = "ratio"}};
    }
}

bool StationRun::Case(const PreparedMember& member, std::span<const Station> stations)
{
    Start(member);
    ProjectState& s = *s_;
    if (!member.usable) {
        return false;
    }
    try {
        Pass(stations);
        s.calculationerror = s.errorflag == kAxialOverload;
    } catch (const CalculationStop& stop) {
        Stop(s, stop);
    }
    if (!s.calculationerror) {
        s.failure = {};
    }
    ArmTrap();
    return !s.calculationerror;
}

double RatioOf(const ProjectState& s)
{
    return std::max(s.irsection, s.maxirbuckling);
}

}  // namespace kestrum
