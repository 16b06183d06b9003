#include "app/platform.h"

#include <cstdlib>

namespace kestrum {

std::vector<std::string> Arguments(int argc, char** argv)
{
    return {argv, argv + argc};
}

std::string Variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string RawCommandLine(int argc, char** argv)
{
    return argc > 1 ? '"' + std::string(argv[1]) + '"' : std::string{};
}

}  // namespace kestrum
