#include "standard/costs.h"

#include "standard/solved_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace kestrum::standard {

namespace {

constexpr double kRounding = 1e-6;  // of a ratio
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kMissing = std::numeric_limits<double>::infinity();  // rise

// Checks of one kind, of which a basis makes one or another.
constexpr std::array kInteraction = {CheckId::eq661, CheckId::eq662, CheckId::interaction_outside,
                                     CheckId::n_above_ncr};

// Rows of 6.3.1, all of them NEd/Nb,Rd: torsional buckling counts where it exceeds the others.
constexpr std::array kColumn = {CheckId::flexural_y, CheckId::flexural_z, CheckId::torsional};

bool IsInteraction(CheckId id)
{
    return std::find(kInteraction.begin(), kInteraction.end(), id) != kInteraction.end();
}

double RatioOf(const Checks& checks, CheckId id)
{
    return checks[id].present ? checks[id].ir : 0;
}

CheckId LargestOf(const Checks& checks, std::span<const CheckId> ids)
{
    return *std::max_element(ids.begin(), ids.end(), [&](CheckId a, CheckId b) {
        return RatioOf(checks, a) < RatioOf(checks, b);
    });
}

bool Above(double a, double b)
{
    return std::isfinite(b) && a > b * (1 + kRounding) + 1e-9;
}

struct Difference {
    bool any = false;
    double rise = 0, change = 0;  // see DeviationCost
    CheckId most{};

    void Take(CheckId id, double standard, double program)
    {
        if (Above(standard, program)) {
            any = true;
            rise = std::max(rise, standard / program - 1);
        }
        any = any || Above(program, standard);
        const double by = standard == program ? 0 : standard - program;  // infinite ones too
        if (std::abs(by) > std::abs(change)) {
            most = id;
            change = by;
        }
    }
    // The largest of checks that stand for each other.
    void TakeLargest(std::span<const CheckId> ids, const Checks& standard, const Checks& program)
    {
        const CheckId here = LargestOf(standard, ids), there = LargestOf(program, ids);
        Take(standard[here].present ? here : there, RatioOf(standard, here),
             RatioOf(program, there));
    }
};

Difference Compare(const Checks& standard, const Checks& program)
{
    Difference difference;
    for (std::size_t i = 0; i < kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        if (!IsInteraction(id) && id != CheckId::torsional) {
            difference.Take(id, RatioOf(standard, id), RatioOf(program, id));
        }
    }
    difference.TakeLargest(kColumn, standard, program);
    // The sum outside 6.3.3 and its equations stand for each other; rows of both are compared one
    // by one.
    if (standard[CheckId::interaction_outside].present ||
        program[CheckId::interaction_outside].present) {
        difference.TakeLargest(kInteraction, standard, program);
        return difference;
    }
    for (const CheckId id : kInteraction) {
        difference.Take(id, RatioOf(standard, id), RatioOf(program, id));
    }
    return difference;
}

Difference Compare(const StandardResult& standard, const StandardResult& program)
{
    Difference difference = Compare(standard.checks, program.checks);
    if (standard.rated != program.rated) {
        difference.any = true;
        difference.rise = kMissing;
    }
    if (!standard.rated || !program.rated) {
        difference.change = kNone;
    }
    return difference;
}

// Costs without a value come first: they decide whether there is a result at all.
bool Costlier(const DeviationCost& a, const DeviationCost& b)
{
    if (std::isnan(a.cost) || std::isnan(b.cost)) {
        return std::isnan(a.cost) && !std::isnan(b.cost);
    }
    return a.cost > b.cost;
}

// Rules of the standard that leave no result: the others are compared without them.
constexpr std::array kEnding = {Dev::d21, Dev::d22, Dev::d175};

// Roundings that no comparison within kRounding shows.
constexpr std::array kDigits = {Dev::d186, Dev::d202};

// Deviations that may hide each other: one alone changes nothing where the other rule of the
// standard governs.
struct Hiding {
    Dev one, other;
};
constexpr std::array kHiding = {Hiding{Dev::d27, Dev::d35}, Hiding{Dev::d28, Dev::d36},
                                Hiding{Dev::d216, Dev::d235}, Hiding{Dev::d238, Dev::d235},
                                Hiding{Dev::d40, Dev::d158}};

std::array<double, kCheckIds> RatiosOf(const Checks& checks)
{
    std::array<double, kCheckIds> ratios{};
    for (std::size_t i = 0; i < kCheckIds; ++i) {
        ratios[i] = RatioOf(checks, static_cast<CheckId>(i));
    }
    return ratios;
}

class Trials {
public:
    Trials(const Calculation& calculate, StandardResult& result)
        : calculate_(calculate), result_(result), from_(result)
    {
    }
    void Run();

private:
    struct Trial {
        Dev deviation;
        StandardResult back;
        bool acts;
    };

    StandardResult With(std::initializer_list<Dev> back) const
    {
        Basis basis = Basis::Standard();
        for (const Dev deviation : back) {
            basis.SwitchBack(deviation);
        }
        for (const Dev deviation : ended_) {
            basis.SwitchBack(deviation);
        }
        return calculate_(basis, from_);
    }
    void Begin();
    void Alone(Dev deviation);
    void Together(Dev one, Dev other);
    Trial* Find(Dev deviation);

    const Calculation& calculate_;
    StandardResult& result_;
    StandardResult from_;     // that the others are compared with
    std::vector<Dev> ended_;  // that ended the calculation and are switched back in each trial
    std::vector<Trial> trials_;
};

void Trials::Begin()
{
    for (const Dev deviation : kEnding) {
        if (!from_.rated && from_.met[IndexOf(deviation)]) {
            ended_.push_back(deviation);
            from_ = With({});
        }
    }
    if (!from_.rated) {
        ended_.clear();
    }
    for (const Dev deviation : ended_) {
        result_.deviations.push_back(
            {deviation, from_.ir, kNone, kMissing, RatiosOf(from_.checks), {}, kNone});
    }
}

void Trials::Alone(Dev deviation)
{
    StandardResult back = With({deviation});
    const double without = back.rated ? back.ir : kNone;
    const double cost = from_.rated && back.rated ? from_.ir - back.ir : kNone;
    const Difference found = Compare(from_, back);
    if (found.any) {
        result_.deviations.push_back({deviation, without, cost, found.rise, RatiosOf(back.checks),
                                      found.most, found.change});
    }
    trials_.push_back({deviation, std::move(back), found.any});
}

Trials::Trial* Trials::Find(Dev deviation)
{
    const auto found =
        std::find_if(trials_.begin(), trials_.end(),
                     [deviation](const Trial& trial) { return trial.deviation == deviation; });
    return found == trials_.end() ? nullptr : &*found;
}

// Each against the rule of the program in place of the other; alone it changes nothing.
void Trials::Together(Dev one, Dev other)
{
    Trial* const a = Find(one);
    Trial* const b = Find(other);
    if (a == nullptr || b == nullptr || (a->acts && b->acts)) {
        return;
    }
    const StandardResult both = With({one, other});
    for (const auto& [hidden, hiding] : {std::pair{a, b}, std::pair{b, a}}) {
        const Difference found = Compare(hiding->back, both);
        if (!hidden->acts && found.any) {
            hidden->acts = true;
            result_.deviations.push_back(
                {hidden->deviation, result_.ir, 0, found.rise, RatiosOf(result_.checks), {}, 0});
        }
    }
}

void Trials::Run()
{
    result_.deviations.clear();
    Begin();
    for (std::size_t i = 0; i < kDeviations; ++i) {
        const auto deviation = static_cast<Dev>(i);
        const auto is = [deviation](Dev other) { return other == deviation; };
        if (from_.met[i] && std::none_of(kDigits.begin(), kDigits.end(), is) &&
            std::none_of(ended_.begin(), ended_.end(), is)) {
            Alone(deviation);
        }
    }
    for (const Hiding& pair : kHiding) {
        Together(pair.one, pair.other);
    }
    std::stable_sort(result_.deviations.begin(), result_.deviations.end(), Costlier);
}

}  // namespace

void CalculateCosts(const Library& library, const ProjectState& project,
                    const ProjectState* program, StandardResult& result)
{
    SolvedLines solved;
    CalculateCosts(
        [&](const Basis& basis, const StandardResult& alike) {
            return CalculateStandard(library, project, basis, program, solved, &alike);
        },
        result);
}

void CalculateCosts(const Calculation& calculate, StandardResult& result)
{
    Trials(calculate, result).Run();
}

bool ActsIn(const StandardResult& result, const DeviationCost& at, CheckId id)
{
    const double standard = RatioOf(result.checks, id);
    const double program = at.ratios[static_cast<std::size_t>(id)];
    return Above(standard, program) || Above(program, standard);
}

}  // namespace kestrum::standard
