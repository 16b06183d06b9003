// What each deviation costs: for realistic random members the largest ratio by the standard, and by
// the standard with one deviation switched back to the program's rule.
//   kestrum-costs COUNT FOLDER [SEED]  draws COUNT members; of each deviation the one in which it
//                                      costs most, with no other inputs than it needs for that,
//                                      becomes FOLDER/dNNN.kst, unless it costs more in the project
//                                      that is there
//   kestrum-costs FOLDER               prints number, both ratios and their factor of the projects

#include "app/assign.h"
#include "core/project_file.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/state_json.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "sections/load_library.h"
#include "sections/read_profiles.h"
#include "standard/standard.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace kestrum;
namespace fs = std::filesystem;

// Of a member that is used and not absurd: the larger ratio of the two, and the smaller one, below
// which loads cancel and any factor is found.
constexpr double kLeastUsed = 0.5, kMostUsed = 1.3, kLeast = 0.15;
constexpr double kWorthTelling = 5e-4;  // of the ratio

// Inputs as `kestrum new --set` takes them.
struct Entry {
    std::string name, value;
};
using Entries = std::vector<Entry>;

struct Cost {
    double program = 0, standard = 0;  // ratios
    double Unsafe() const { return std::log(standard / program); }
    double Size() const { return std::abs(Unsafe()); }
    // A deviation that may lie on either side is told by its unsafe one.
    bool Exceeds(const Cost& other) const
    {
        const bool unsafe = Unsafe() > kWorthTelling, also = other.Unsafe() > kWorthTelling;
        return unsafe != also ? unsafe : Size() > other.Size();
    }
};

struct Finding {
    Entries inputs;
    Cost cost;
};

class Dice {
public:
    explicit Dice(unsigned seed) : random_(seed) {}

    int Whole(int low, int high)
    {
        return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
    }
    bool Happens(int percent) { return Whole(1, 100) <= percent; }
    double Between(double low, double high) { return low + (high - low) * Whole(0, 10000) / 1e4; }
    template <class T> T Of(std::initializer_list<T> values)
    {
        return values.begin()[Whole(0, static_cast<int>(values.size()) - 1)];
    }

private:
    std::mt19937 random_;
};

std::string Digits(double value, double step)
{
    return JsonNumber(static_cast<float>(std::round(value / step) * step));
}

// Three digits.
std::string Short(double value)
{
    const double step = std::pow(10, std::floor(std::log10(std::abs(value) + 1e-9)) - 2);
    return Digits(value, std::max(step, 1e-3));
}

void Roll(Entries& in, std::string name, double value, double step)
{
    in.push_back({std::move(name), Digits(value, step)});
}

// The plates of an I section or box in millimetres, as fabricators make them; returns the depth.
double RollPlates(Dice& dice, int family, Entries& in)
{
    const std::string form = "p" + std::to_string(family) + ".";
    const double h =
        family == 24 || family == 25 ? dice.Between(200, 500) : dice.Between(250, 1500);
    const double slender = dice.Between(40, family == 23 || family == 27 ? 120 : 150);
    const double b = h * dice.Between(0.25, 0.6);
    Roll(in, form + "isth", h, 10);
    Roll(in, form + "isttw", std::max(5.0, h / slender), 1);
    Roll(in, form + "istb1", std::max(100.0, b), 10);
    const double thin = dice.Between(12, 40);
    const double tf = std::max(8.0, b / thin);
    if (family == 21 || family == 23) {
        Roll(in, form + "isttf", tf, 1);
        if (family == 23 && dice.Happens(50)) {
            Roll(in, "p23.ista", tf * dice.Between(2, 14), 5);
        }
        return h;
    }
    const double wide =
        b * (family == 24 || family == 25 ? dice.Between(1.2, 2.0) : dice.Between(0.6, 2.0));
    Roll(in, form + "istb2", std::max(100.0, wide), 10);
    Roll(in, form + "isttf1", tf, 1);
    Roll(in, form + "isttf2", std::max(8.0, tf * dice.Between(0.6, 1.5)), 1);
    return h;
}

// Section; returns its depth in mm.
double RollSection(Dice& dice, const Library& library, Entries& in)
{
    static const std::vector<int> kFamilies = FamilyNumbers();
    const int family =
        kFamilies[static_cast<std::size_t>(dice.Whole(0, static_cast<int>(kFamilies.size()) - 1))];
    in.push_back({"family", std::to_string(family)});
    const FamilyTraits& traits = TraitsOf(family);
    if (traits.tables.empty()) {
        switch (family) {
        case 21:
        case 22:
        case 23:
        case 24:
        case 25:
        case 27:
            return RollPlates(dice, family, in);
        case 26:
            Roll(in, "p26.isth", dice.Between(100, 300), 10);
            Roll(in, "p26.istb1", dice.Between(100, 300), 10);
            return 200;
        case 28:
            Roll(in, "p28.isth", dice.Between(80, 300), 10);
            Roll(in, "p28.isttw", dice.Between(8, 40), 1);
            return 150;
        case 31: {
            const double d = dice.Between(60, 600);
            Roll(in, "p31.istd", d, 1);
            Roll(in, "p31.isttw", std::max(3.0, d / dice.Between(15, 60)), 0.5);
            return d;
        }
        case 51:
        case 53:
        case 56: {
            const std::string form = "p" + std::to_string(family) + ".";
            Roll(in, form + "istb1", dice.Between(200, 900), 10);
            Roll(in, form + "isttf1", dice.Between(6, 20), 1);
            Roll(in, form + "isth", dice.Between(100, 700), 10);
            Roll(in, form + "isttw", dice.Between(5, 15), 1);
            return 300;
        }
        case 41:
            in.push_back({"p41.istaz", dice.Of({"3000", "5000", "7000", "10000", "12000"})});
            return 300;
        default:
            return 300;
        }
    }
    const auto series =
        static_cast<std::size_t>(dice.Whole(0, static_cast<int>(traits.tables.size()) - 1));
    if (traits.tables.size() > 1) {
        in.push_back({family == 101 ? "series101" : "series103", std::to_string(series + 1)});
    }
    const Table table = traits.tables[series];
    const int row = dice.Whole(0, RowCount(table) - 1);
    const std::string_view file = ShapeOf(table).file;
    in.push_back({"row." + std::string(file.substr(0, file.find('.'))), std::to_string(row)});
    const float key = library.tables[static_cast<std::size_t>(table)].At(row, 1);
    return key > 20 && key < 1200 ? key : 300;
}

void RollMember(Dice& dice, double h, Entries& in)
{
    if (dice.Happens(40)) {
        in.push_back({"annexcode", dice.Of({"NO", "SW", "DK", "UK", "FI", "GE", "NK", "UD"})});
    }
    in.push_back({"fykindex", std::to_string(dice.Of({0, 1, 2, 2, 6, 7, 14, 17, 19, 23, 25}))});
    in.push_back({"loadcomb", std::to_string(dice.Of({0, 0, 1, 2, 3, 4, 5}))});
    for (const char* const name : {"psi1index", "psi2index"}) {
        if (dice.Happens(50)) {
            in.push_back({name, std::to_string(dice.Of({2, 4, 5, 6, 9}))});
        }
    }
    const int support = dice.Happens(60) ? 0 : dice.Whole(1, 5);
    const double slender = support == 4 ? dice.Between(4, 10) : dice.Between(8, 30);
    Roll(in, "l", std::max(0.5, slender * h / 1000), 0.1);
    in.push_back({"supportcase", std::to_string(support)});
    if (support == 3 || support == 5) {
        Roll(in, "spring", dice.Between(10, 80), 5);
    }
    for (const char* const name : {"ly", "lz"}) {
        in.push_back({name, support == 4 && dice.Happens(60)
                                ? "2"
                                : dice.Of({"1", "1", "1", "0.7", "0.5", "0.001"})});
    }
    in.push_back({"method", dice.Of({"1", "2"})});
    in.push_back({"ltb", dice.Happens(80) ? "1" : "0"});
    in.push_back({"restraints", dice.Of({"0", "0", "0", "1", "2", "3"})});
    in.push_back({"ltbcurve", dice.Of({"2", "3", "3"})});
    in.push_back(
        {"ltbk", support == 4 ? dice.Of({"1", "2", "2"}) : dice.Of({"1", "1", "1", "0.5", "0.7"})});
    in.push_back({"loadlevel", dice.Of({"1", "1", "2", "3"})});
    in.push_back({"endstiff", dice.Of({"0", "1"})});
    if (dice.Happens(30)) {
        in.push_back({"webstiff", "1"});
        Roll(in, "webstiffa", h * dice.Between(1, 3), 50);
    }
    for (const char* const name : {"weldopt", "class23", "rectaxis", "tubehot"}) {
        if (dice.Happens(30)) {
            in.push_back({name, dice.Of({"0", "1", "2"})});
        }
    }
    in.push_back({"selfweight", dice.Of({"0", "1"})});
    in.push_back({"checksls", dice.Happens(10) ? "true" : "false"});
}

// Loads of size one to ten, scaled afterwards.
void RollLoads(Dice& dice, double l, Entries& in)
{
    const auto category = [&] { return std::to_string(dice.Of({0, 1, 2})); };
    if (dice.Happens(15)) {
        in.push_back({"loadmode", "0"});
        for (const char* const name : {"ne", "my1", "my2", "mz1", "mz2", "vz1", "vy1"}) {
            if (dice.Happens(45)) {
                const bool about_z = name[1] == 'z' || name[1] == 'y';
                const double size = name[0] == 'm' && about_z && name[1] == 'z' ? 2 : 10;
                Roll(in, name, (name[0] == 'n' ? 5 : 1) * dice.Between(-0.5 * size, size), 0.1);
            }
        }
        return;
    }
    for (const char* const row : {"[1]", "[2]", "[3]"}) {
        const std::string k = row;
        if (dice.Happens(k == "[1]" ? 80 : 35)) {
            Roll(in, "qload" + k, dice.Happens(85) ? dice.Between(1, 10) : dice.Between(-10, -1),
                 0.1);
            in.push_back({"qtype" + k, category()});
            in.push_back({"qdir" + k, dice.Happens(80) ? "1" : "0"});
            in.push_back({"qchecked" + k, "true"});
        }
        if (dice.Happens(30)) {
            Roll(in, "pm" + k, dice.Between(1, 10), 0.1);
            in.push_back({"pmkind" + k, dice.Happens(80) ? "0" : "1"});
            Roll(in, "pmx" + k, l * dice.Of({0.0, 0.25, 0.3, 0.5, 0.5, 0.7, 1.0}), 0.1);
            in.push_back({"pmtype" + k, category()});
            in.push_back({"pmdir" + k, dice.Happens(85) ? "1" : "0"});
            in.push_back({"pmchecked" + k, "true"});
        }
    }
    if (dice.Happens(40)) {
        Roll(in, "nload[1]", dice.Happens(70) ? dice.Between(5, 60) : dice.Between(-60, -5), 0.1);
        in.push_back({"ntype[1]", category()});
    }
    if (dice.Happens(10)) {
        Roll(in, "qt1[1]", dice.Between(0, 5), 0.1);
        Roll(in, "qt2[1]", dice.Between(0, 10), 0.1);
        in.push_back({"qtx2[1]", JsonNumber(static_cast<float>(l))});
        in.push_back({"qtchecked[1]", "true"});
    }
}

bool IsLoad(std::string_view name)
{
    constexpr std::array<std::string_view, 9> kLoads = {"qload[", "nload[", "pm[", "qt1[", "qt2[",
                                                        "ne",     "my",     "mz",  "v"};
    return std::any_of(kLoads.begin(), kLoads.end(),
                       [name](std::string_view load) { return name.starts_with(load); });
}

// The member of the inputs; what a box refuses keeps its default. As read back from its file.
ProjectState Member(const Library& library, const Entries& inputs)
{
    ProjectState s{};
    StartUp(library, s);
    s.qload[1] = s.nload[1] = 0;  // the example loads of a new project
    s.ne = s.my1 = s.vz1 = 0;
    for (const Entry& input : inputs) {
        AssignField(library, s, input.name, input.value, Assignment::checked);
    }
    ProjectState read{};
    StartUp(library, read);
    ReadProject(read, WriteProject(s));
    return read;
}

// The pass by the standard, and that of the program for deviations that are switched back to it.
class Passes {
public:
    Passes(const Library& library, const ProjectState& s) : library_(library), s_(s), program_(s)
    {
        calculated_ = Calculate(library_, program_);
        result_ = standard::CalculateStandard(library_, s_);
    }

    const standard::StandardResult& Standard() const { return result_; }
    bool Rated() const { return calculated_ && result_.rated && std::isfinite(result_.ir); }

    std::optional<Cost> Of(Dev deviation) const
    {
        const auto back = standard::CalculateStandard(library_, s_, Basis::StandardBut(deviation),
                                                      calculated_ ? &program_ : nullptr);
        if (!back.rated || !(back.ir > 0) || !std::isfinite(back.ir)) {
            return {};
        }
        return Cost{back.ir, result_.ir};
    }

private:
    const Library& library_;
    const ProjectState& s_;
    ProjectState program_;
    bool calculated_;
    standard::StandardResult result_;
};

bool Realistic(const Cost& cost)
{
    const auto [least, most] = std::minmax(cost.program, cost.standard);
    return least >= kLeast && most >= kLeastUsed && most <= kMostUsed &&
           cost.Size() > kWorthTelling;
}

std::optional<Cost> CostOf(const Library& library, const Entries& inputs, Dev deviation)
{
    const ProjectState s = Member(library, inputs);
    const Passes passes(library, s);
    if (!passes.Rated() || !passes.Standard().met[IndexOf(deviation)]) {
        return {};
    }
    const auto cost = passes.Of(deviation);
    return cost && Realistic(*cost) ? cost : std::nullopt;
}

// Loads so that the ratio by the standard is about one; false where that does not succeed.
bool Scale(const Library& library, Entries& inputs)
{
    for (int step = 0; step < 3; ++step) {
        const ProjectState s = Member(library, inputs);
        const auto result = standard::CalculateStandard(library, s);
        if (!result.rated || !(result.ir > 1e-6) || !std::isfinite(result.ir)) {
            return false;
        }
        for (Entry& input : inputs) {
            if (IsLoad(input.name)) {
                double value = 0;
                std::from_chars(input.value.data(), input.value.data() + input.value.size(), value);
                input.value = value == 0 ? "0" : Short(value * 0.95 / result.ir);
            }
        }
    }
    return true;
}

// Without the inputs that the cost can do without.
Finding Simplified(const Library& library, Finding finding, Dev deviation)
{
    const double size = finding.cost.Size();
    for (std::size_t i = finding.inputs.size(); i-- > 1;) {
        Entries fewer = finding.inputs;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
        const auto cost = CostOf(library, fewer, deviation);
        if (cost && cost->Unsafe() * finding.cost.Unsafe() > 0 && cost->Size() > 0.98 * size) {
            finding = {std::move(fewer), *cost};
        }
    }
    return finding;
}

using Findings = std::map<Dev, Finding>;

void Search(const Library& library, unsigned seed, int count, Findings& findings)
{
    for (int i = 0; i < count; ++i) {
        Dice dice(seed + static_cast<unsigned>(i));
        Entries inputs;
        const double h = RollSection(dice, library, inputs);
        RollMember(dice, h, inputs);
        const ProjectState unloaded = Member(library, inputs);
        RollLoads(dice, unloaded.l, inputs);
        if (!Scale(library, inputs)) {
            continue;
        }
        const ProjectState s = Member(library, inputs);
        const Passes passes(library, s);
        for (std::size_t d = 0; d < kDeviations && passes.Rated(); ++d) {
            const auto deviation = static_cast<Dev>(d);
            const auto cost =
                passes.Standard().met[d] ? passes.Of(deviation) : std::optional<Cost>();
            if (!cost || !Realistic(*cost)) {
                continue;
            }
            Finding& best = findings[deviation];
            if (best.inputs.empty() || cost->Exceeds(best.cost)) {
                best = {inputs, *cost};
            }
        }
    }
}

fs::path FileOf(const fs::path& folder, Dev deviation)
{
    std::string name(NameOf(deviation));
    name[0] = 'd';
    return folder / (name + ".kst");
}

std::string ReadFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::optional<Cost> CostOfFile(const Library& library, const fs::path& path, Dev deviation)
{
    ProjectState s{};
    StartUp(library, s);
    if (!fs::exists(path) || ReadProject(s, ReadFile(path))) {
        return {};
    }
    const Passes passes(library, s);
    return passes.Rated() && passes.Standard().met[IndexOf(deviation)] ? passes.Of(deviation)
                                                                       : std::nullopt;
}

void Store(const Library& library, const Findings& findings, const fs::path& folder)
{
    fs::create_directories(folder);
    for (const auto& [deviation, found] : findings) {
        const Finding finding = Simplified(library, found, deviation);
        const fs::path path = FileOf(folder, deviation);
        const auto before = CostOfFile(library, path, deviation);
        if (before && !finding.cost.Exceeds(*before)) {
            continue;
        }
        ProjectState s = Member(library, finding.inputs);
        s.projname = std::string(NameOf(deviation));
        std::ofstream(path, std::ios::binary) << WriteProject(s);
        std::printf("%s:", path.filename().string().c_str());
        for (const Entry& input : finding.inputs) {
            std::printf(" %s=%s", input.name.c_str(), input.value.c_str());
        }
        std::printf("\n");
    }
}

void List(const Library& library, const fs::path& folder)
{
    for (std::size_t d = 0; d < kDeviations; ++d) {
        const auto deviation = static_cast<Dev>(d);
        if (const auto cost = CostOfFile(library, FileOf(folder, deviation), deviation)) {
            std::printf("%s %.2f %.2f %.2f\n", std::string(NameOf(deviation)).c_str(),
                        cost->program, cost->standard, cost->standard / cost->program);
        }
    }
}

int Number(std::string_view digits)
{
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv, argv + argc);
    if (words.size() < 2 || words.size() > 4) {
        std::fprintf(stderr, "usage: kestrum-costs COUNT FOLDER [SEED]\n"
                             "       kestrum-costs FOLDER\n");
        return 2;
    }
    const Library library = LoadLibrary(DataFolders());
    if (words.size() == 2) {
        List(library, words[1]);
        return 0;
    }
    Findings findings;
    const int seed = words.size() == 4 ? Number(words[3]) : 1;
    Search(library, static_cast<unsigned>(seed), Number(words[1]), findings);
    Store(library, findings, words[2]);
    List(library, words[2]);
    return 0;
}
