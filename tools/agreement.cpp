// Both bases over random members of each family (tools/compare_bases.h).
//   kestrum-agreement COUNT [SEED]        table, a row for each family
//   kestrum-agreement COUNT SEED FAMILY   and the members of one family (0: of all) that disagree

#include "compare_bases.h"
#include "sections/families.h"
#include "sections/load_library.h"

#include <charconv>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace {

using namespace kestrum;

void Tell(std::size_t number, const ProjectState& designed, const Outcome& program,
          const standard::StandardResult& result)
{
    std::printf("family %d, member %zu: program %.9g %s, standard %.9g; checks", designed.family,
                number, program.ir, program.control.c_str(), result.ir);
    for (std::size_t i = 0; i < standard::kCheckIds; ++i) {
        const auto id = static_cast<standard::CheckId>(i);
        if (result.checks[id].present) {
            const std::string_view name = standard::NameOf(id);
            std::printf(" %.*s %.6g", static_cast<int>(name.size()), name.data(),
                        result.checks[id].ir);
        }
    }
    std::printf("; met");
    for (std::size_t i = 0; i < kDeviations; ++i) {
        if (result.met[i]) {
            const std::string_view met = NameOf(static_cast<Dev>(i));
            std::printf(" %.*s", static_cast<int>(met.size()), met.data());
        }
    }
    std::puts("");
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
        BothBases row;
        for (std::size_t i = 0; i < count; ++i) {
            CompareBases(
                library, seed * 1000003 + i, family,
                [&](std::size_t number, const ProjectState& designed, const Outcome& program,
                    const standard::StandardResult& result) {
                    if (argc > 3) {
                        Tell(number, designed, program, result);
                    }
                },
                row);
        }
        std::printf("| %d | %d | %d | %.1f %% | %d | %d | %.1e |\n", family, row.members, row.rated,
                    row.rated > 0 ? 100.0 * row.differ / row.rated : 0.0, row.same_rules,
                    row.disagree, row.largest);
        disagree += row.disagree;
    }
    return disagree == 0 ? 0 : 1;
}
