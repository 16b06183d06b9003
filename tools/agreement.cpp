// Both bases over random members of each family, the same every time.
//   kestrum-agreement COUNT [SEED]        table, a row for each family
//   kestrum-agreement COUNT SEED FAMILY   and the members of one family that disagree
//
// Where no departure acted in the pass by the standard, both must agree but for the single
// precision in which the program keeps sections, forces and pi (D202). Every other member is plain:
// few forces, so that this happens at all.

#include "engine/calculate.h"
#include "random_member.h"
#include "report/outcome.h"
#include "sections/families.h"
#include "sections/load_library.h"
#include "standard/standard.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace {

using namespace kestrum;

constexpr double kSingle = 2e-6;  // of several values in single precision

// Few forces on the same section: by turns N, one moment, one shear force, N with a moment; forces
// at the ends or a uniform load.
void MakePlain(ProjectState& s, std::size_t number)
{
    const ProjectState rolled = s;
    s.selfweight = 0;
    s.qload = {};
    s.qt1 = s.qt2 = {};
    s.pm = {};
    s.nload = {};
    s.my1 = s.my2 = s.mz1 = s.mz2 = s.vz1 = s.vz2 = s.vy1 = s.vy2 = s.ne = 0;
    s.checkelastic = s.checkconsercontrol = kFalse;
    s.bcy = s.bcz = 0;
    s.ltb = 0;
    s.restraints = 0;
    s.webstiff = 0;
    s.cpmode = 0;
    s.hsqopt = 1;
    s.supportcase = 0;
    s.loadmode = number % 2 == 0 ? 0 : 1;
    if (s.loadmode == 1) {
        s.loadcomb = 4;
        s.lfulsg = s.lfulsq1 = s.lfulsq2 = s.lfslsg = s.lfslsq1 = s.lfslsq2 = 1;
        s.nload[1] = number % 4 == 1 ? rolled.nload[1] : 0;
        s.qload[1] = number % 4 == 3 ? 1 + std::abs(rolled.nload[2]) / 5 : 0;
        s.qdir[1] = 1;
        return;
    }
    s.ne = number % 3 == 0 ? rolled.ne : 0;
    s.my1 = s.my2 = number % 5 < 2 ? rolled.my1 : 0;
    s.vz1 = s.vz2 = number % 5 == 2 ? rolled.vz1 : 0;
    s.mz1 = s.mz2 = number % 7 == 3 ? rolled.mz1 / 5 : 0;
}

void Scale(ProjectState& s, float factor)
{
    for (auto* rows : {&s.nload, &s.qt1, &s.qt2}) {
        for (float& load : *rows) {
            load *= factor;
        }
    }
    for (float& load : s.qload) {
        load *= factor;
    }
    for (float& load : s.pm) {
        load *= factor;
    }
    for (float* force : {&s.ne, &s.my1, &s.my2, &s.vz1, &s.vz2, &s.mz1, &s.mz2, &s.vy1, &s.vy2}) {
        *force *= factor;
    }
}

// As an engineer leaves a member: the program's ratio between 0.6 and 1.1, roughly.
void LoadFully(const Library& library, ProjectState& s, std::size_t number)
{
    ProjectState tried = s;
    const bool passed = Calculate(library, tried);
    const Outcome outcome = OutcomeOf(tried, passed);
    const double target = 0.6 + 0.5 * static_cast<double>(number % 101) / 100;
    if (outcome.rated() && outcome.ir > 0 && std::isfinite(outcome.ir)) {
        Scale(s, static_cast<float>(target / outcome.ir));
    }
}

struct Row {
    int members = 0, rated = 0, differ = 0, same_rules = 0, disagree = 0;
    double largest = 0;
};

bool Same(double a, double b)
{
    return a == b || std::abs(a / b - 1) <= kSingle;
}

// Whether the deviations change the largest ratio neither all together nor those that the pass came
// across by themselves.
bool NoneActs(const Library& library, const ProjectState& s, const ProjectState* program,
              const standard::StandardResult& result)
{
    Basis all = Basis::Standard();
    for (std::size_t i = 0; i < kDeviations; ++i) {
        all.SwitchBack(static_cast<Dev>(i));
    }
    const standard::StandardResult back = standard::CalculateStandard(library, s, all, program);
    if (!back.rated || !Same(back.ir, result.ir)) {
        return false;
    }
    for (std::size_t i = 0; i < kDeviations; ++i) {
        if (!result.met[i]) {
            continue;
        }
        const Basis basis = Basis::StandardBut(static_cast<Dev>(i));
        const standard::StandardResult other =
            standard::CalculateStandard(library, s, basis, program);
        if (!other.rated || !Same(other.ir, result.ir)) {
            return false;
        }
    }
    return true;
}

void Tell(std::size_t number, const Outcome& program, const standard::StandardResult& result)
{
    const standard::Check& check = result.checks[result.governing];
    const std::string_view name = standard::NameOf(result.governing);
    std::printf("%zu: program %.9g %s, standard %.9g %.*s (%.*s), met", number, program.ir,
                program.control.c_str(), result.ir, static_cast<int>(name.size()), name.data(),
                static_cast<int>(check.clause.size()), check.clause.data());
    for (std::size_t i = 0; i < kDeviations; ++i) {
        if (result.met[i]) {
            const std::string_view met = NameOf(static_cast<Dev>(i));
            std::printf(" %.*s", static_cast<int>(met.size()), met.data());
        }
    }
    std::puts("");
}

void Compare(const Library& library, std::size_t number, int family, bool told, Row& row)
{
    ProjectState s = RandomMember(library, number);
    s.family = static_cast<i16>(family);
    if (number % 2 == 1) {
        MakePlain(s, number / 2);
    }
    LoadFully(library, s, number);
    ++row.members;
    ProjectState designed = s;
    const bool passed = Calculate(library, designed);
    const Outcome program = OutcomeOf(designed, passed);
    const standard::StandardResult result = standard::CalculateStandard(library, s);
    if (!result.rated || !program.rated() || program.verdict == Verdict::unstable) {
        return;
    }
    ++row.rated;
    row.differ += result.above != (program.verdict != Verdict::within);
    if (result.ir == 0 || !NoneActs(library, s, passed ? &designed : nullptr, result)) {
        return;
    }
    ++row.same_rules;
    const double off = std::abs(program.ir / result.ir - 1);
    row.largest = std::fmax(row.largest, off);
    if (off > kSingle) {
        ++row.disagree;
        if (told) {
            Tell(number, program, result);
        }
    }
}

std::size_t NumberOf(std::string_view digits)
{
    std::size_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::size_t count = argc > 1 ? NumberOf(argv[1]) : 1000;
    const std::size_t seed = argc > 2 ? NumberOf(argv[2]) : 1;
    const int only = argc > 3 ? static_cast<int>(NumberOf(argv[3])) : 0;
    const Library library = LoadLibrary(DataFolders());
    int disagree = 0;
    std::puts("| Family | members | rated by both | verdict differs | no departure acts | of them "
              "disagree | largest difference |\n|---|---|---|---|---|---|---|");
    for (const int family : FamilyNumbers()) {
        if (only != 0 && family != only) {
            continue;
        }
        Row row;
        for (std::size_t i = 0; i < count; ++i) {
            Compare(library, seed * 1000003 + i, family, only != 0, row);
        }
        std::printf("| %d | %d | %d | %.1f %% | %d | %d | %.1e |\n", family, row.members, row.rated,
                    row.rated > 0 ? 100.0 * row.differ / row.rated : 0.0, row.same_rules,
                    row.disagree, row.largest);
        disagree += row.disagree;
    }
    return disagree == 0 ? 0 : 1;
}
