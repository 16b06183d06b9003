// Seeds and finds of the fuzzers, without the fuzzer: each runs through its target again, whole,
// cut and disturbed.

#include "harness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace kestrum::fuzz {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const std::string& folder)
{
    std::vector<fs::path> files;
    const fs::path path = fs::path(KESTRUM_SOURCE) / folder;
    if (fs::is_directory(path)) {
        for (const auto& entry : fs::directory_iterator(path)) {
            if (entry.is_regular_file()) {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string BytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class CorpusReplay : public ::testing::TestWithParam<Target> {};

// The target ends the program when a property does not hold.
TEST_P(CorpusReplay, HoldsForSeedsAndFinds)
{
    const std::string name(GetParam().name);
    std::vector<fs::path> files = FilesOf("fuzz/seeds/" + name);
    ASSERT_FALSE(files.empty());
    for (const std::string& folder :
         {"fuzz/finds/" + name, std::string(name == "project_file" ? "examples" : "none")}) {
        const auto more = FilesOf(folder);
        files.insert(files.end(), more.begin(), more.end());
    }
    std::mt19937 random(20);
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.string());
        const std::string bytes = BytesOf(file);
        GetParam().run(bytes);
        for (int i = 0; i < 4 && !bytes.empty(); ++i) {
            std::string disturbed = bytes.substr(0, bytes.size() - random() % bytes.size() / 2);
            disturbed[random() % disturbed.size()] = static_cast<char>(random());
            GetParam().run(disturbed);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, CorpusReplay,
                         ::testing::ValuesIn(Targets().begin(), Targets().end()),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
}  // namespace kestrum::fuzz
