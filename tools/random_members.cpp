// Random members, the same every time; the locale is that of the environment.
//   kestrum-random COUNT [THREADS]         calculates each and prints it as JSON; tools/same-bits
//                                          compares the outputs of several builds
//   kestrum-random COUNT THREADS inputs    prints what a project file keeps of each, one a line, as
//                                          `kestrum batch - --raw` takes it

#include "app/ordered_run.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "random_member.h"
#include "report/state_json.h"
#include "sections/load_library.h"

#include <charconv>
#include <clocale>
#include <cstddef>
#include <cstdio>
#include <locale>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace kestrum;

struct Numbered {
    std::size_t number = 0;
    std::string out = {};
};

int CountOf(std::string_view digits)
{
    int count = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), count);
    return count;
}

std::string OneLine(std::string text)
{
    std::erase(text, '\n');  // between fields; within a text it is an escape
    return text + "\n";
}

}  // namespace

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "");
    const auto count = static_cast<std::size_t>(argc > 1 ? CountOf(argv[1]) : 100);
    const int threads = argc > 2 ? CountOf(argv[2]) : 1;
    const bool inputs = argc > 3 && std::string_view(argv[3]) == "inputs";
    const Library library = LoadLibrary(DataFolders());
    const auto work = [&library, inputs](Numbered& member) {
        ProjectState s = RandomMember(library, member.number);
        if (inputs) {
            member.out = OneLine(InputsJson(s));
            return;
        }
        Calculate(library, s);
        member.out = StateJson(s);
    };
    std::size_t next = 0;
    OrderedRun<Numbered> run(
        std::vector<OrderedRun<Numbered>::Work>(static_cast<std::size_t>(threads), work));
    run.Run(
        [&](Numbered& member) {
            member.number = next;
            return next++ < count;
        },
        [](Numbered& member) { std::fwrite(member.out.data(), 1, member.out.size(), stdout); });
    return 0;
}
