// What each deviation costs: for realistic random members the largest ratio by the standard, and by
// the standard with one deviation switched back to the program's rule.
//   kestrum-costs COUNT FOLDER [SEED]  draws COUNT members; of each deviation the one in which it
//                                      costs most, with no other inputs than it needs for that,
//                                      becomes FOLDER/dNNN.kst, unless it costs more in the project
//                                      that is there
//   kestrum-costs FOLDER               prints number, both ratios and their factor of the projects

#include "app/assign.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "realistic_member.h"
#include "report/state_json.h"
#include "sections/load_library.h"
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

// Three digits.
std::string Short(double value)
{
    const double digit = std::pow(10, std::floor(std::log10(std::abs(value) + 1e-9)) - 2);
    const double step = std::max(digit, 1e-3);
    return JsonNumber(static_cast<float>(std::round(value / step) * step));
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
        Entries inputs = RealisticMember(library, seed + static_cast<unsigned>(i));
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
