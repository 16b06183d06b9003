#pragma once

// Runs the built program in a folder of its own and keeps what it said.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/wait.h>

namespace kestrum {

struct Said {
    int exit = -1;
    std::string out, err;
};

class CommandLine : public ::testing::Test {
protected:
    CommandLine()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kestrum-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
    }
    ~CommandLine() override { std::filesystem::remove_all(folder_); }

    std::string Path(const std::string& name) const { return folder_ + "/" + name; }

    void Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }

    std::string Read(const std::string& name) const
    {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Arguments as a shell takes them, in the folder.
    Said Kestrum(const std::string& arguments) const
    {
        return Shell("'" KESTRUM_BIN "/kestrum' " + arguments);
    }

    // Commands of a shell in the folder; the user's own data stays out of it.
    Said Shell(const std::string& commands) const
    {
        const std::string command = "cd '" + folder_ + "' && export XDG_DATA_HOME='" + folder_ +
                                    "' KESTRUM_DATA= && { " + commands + "\n} >'" + folder_ +
                                    "/.out' 2>'" + folder_ + "/.err'";
        Said said;
        const int status = std::system(command.c_str());
        said.exit = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        said.out = Read(".out");
        said.err = Read(".err");
        return said;
    }

    // A short, lightly loaded member.
    void WriteGood(const std::string& name) const
    {
        ASSERT_EQ(Kestrum("new -o " + name + " --set l=3 --set qload[1]=1 --set nload[1]=1").exit,
                  0);
    }

private:
    std::string folder_;
};

}  // namespace kestrum
