#include "app/project_origin.h"

#include "core/file_io.h"
#include "core/held_state.h"
#include "core/project_file.h"
#include "core/project_inputs.h"
#include "core/sha256.h"

namespace kestrum {

namespace {

ProjectOrigin OriginOf(const std::string& path, const std::string& bytes)
{
    return {path.substr(path.find_last_of("/\\") + 1), Sha256(bytes)};
}

}  // namespace

ProjectOrigin OriginOf(const ProjectState& s)
{
    std::string bytes;
    HeldState saved = s;
    const bool same =
        ReadWholeFile(InputsOf(s).filename, bytes).empty() && WriteProject(saved) == bytes;
    return same ? OriginOf(InputsOf(s).filename, bytes) : ProjectOrigin{};
}

ProjectOrigin OriginOf(const std::string& path)
{
    std::string bytes;
    const bool there = path != "-" && ReadWholeFile(path, bytes).empty();
    return there ? OriginOf(path, bytes) : ProjectOrigin{};
}

}  // namespace kestrum
