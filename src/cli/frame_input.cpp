#include "cli/frame_input.h"

#include "cli/many.h"
#include "core/file_target.h"
#include "core/utf8_path.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace kestrum::cli {

ForceManner MannerOf(const FrameArguments& arguments)
{
    ForceManner manner;
    manner.tensionpositive = arguments.tensionpositive;
    manner.swapaxes = arguments.swap_axes;
    for (const std::string& pair : arguments.map) {
        const std::size_t equals = pair.rfind('=');
        if (equals == std::string::npos || equals == 0 || equals + 1 == pair.size()) {
            throw BadInput("--map " + pair + ": expected THEIRS=OURS");
        }
        manner.names.emplace_back(pair.substr(0, equals), pair.substr(equals + 1));
    }
    return manner;
}

void RequireTables(const FrameArguments& arguments)
{
    if (arguments.members == "-" && arguments.forces == "-") {
        throw BadInput("standard input cannot be both tables");
    }
    for (const std::string& name : {arguments.members, arguments.forces}) {
        if (name.empty()) {
            continue;
        }
        std::error_code fault;
        const std::filesystem::path path = Utf8Path(name);
        if (name != "-" && !std::filesystem::exists(path, fault)) {
            throw BadInput(name + ": no such file");
        }
        if (name != "-" && std::filesystem::is_directory(path, fault)) {
            throw BadInput(name + ": is a folder");
        }
        const std::string ending = EndingOf(name);
        if (ending == ".xlsx" || ending == ".xlsm" || ending == ".xls" || ending == ".ods") {
            throw BadInput(name + ": is a spreadsheet; save its sheet as CSV, or a workbook of the "
                                  "Structural Analysis Format by python3 -m kestrum.saf");
        }
    }
    std::error_code fault;
    if (arguments.members != "-" && arguments.forces != "-" && !arguments.forces.empty() &&
        std::filesystem::equivalent(Utf8Path(arguments.members), Utf8Path(arguments.forces),
                                    fault)) {
        throw BadInput(arguments.forces + ": is the table of members too");
    }
}

std::vector<std::string> WrittenFor(const std::string& out)
{
    std::vector<std::string> written{out.empty() ? "-" : out};
    if (IsFile(out)) {
        const std::string part = Utf8Name(TargetOf(out)) + ".part";
        written.insert(written.end(), {part, part + ".inputs"});
    }
    return written;
}

void SpareTables(const FrameArguments& arguments, const std::vector<std::string>& written)
{
    for (const std::string& out : written) {
        for (const std::string& input : {arguments.members, arguments.forces, arguments.base}) {
            if (!input.empty()) {
                SpareInput(out, input);
            }
        }
    }
}

void Tell(const Options& options, const ForceReader& forces)
{
    const auto list = [](const std::vector<std::string>& names) {
        std::string text;
        for (const std::string& name : names) {
            text += (text.empty() ? "" : ", ") + name;
        }
        return text;
    };
    const ForceColumns& columns = forces.columns();
    if (columns.saf()) {
        Hint(options, forces.name() + ": ResultInternalForce1D: N is positive in tension");
    }
    if (!columns.missing().empty()) {
        Hint(options, forces.name() + ": no column " + list(columns.missing()) + ": taken as 0");
    }
    if (!columns.unused().empty()) {
        Hint(options, forces.name() + ": not read: " + list(columns.unused()));
    }
}

}  // namespace kestrum::cli
