#include "app/platform.h"

namespace kestrum {

std::vector<std::string> Arguments(int argc, char** argv)
{
    return {argv, argv + argc};
}

std::string RawCommandLine(int argc, char** argv)
{
    return argc > 1 ? '"' + std::string(argv[1]) + '"' : std::string{};
}

}  // namespace kestrum
