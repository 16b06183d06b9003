#pragma once

// The commands. Each returns the exit code of the program; BadInput leaves through the caller.

#include "cli/context.h"

#include <string>
#include <vector>

namespace kestrum::cli {

int Check(const Options& options, const std::vector<std::string>& files, bool page);
int Dump(const Options& options, const std::string& file, bool inputs);

struct NewArguments {
    std::string out;
    std::string family;  // as typed; empty: the default
    std::vector<std::string> set;
    bool raw = false;
};
int New(const Options& options, const NewArguments& arguments);

struct SetArguments {
    std::string file, out;
    std::vector<std::string> set;
    bool raw = false;
};
int Set(const Options& options, const SetArguments& arguments);

int Sections(const Options& options, const std::string& family);
int Vortex(const Options& options, const std::string& file);

struct DiagramArguments {
    std::string file, out;
    std::string axis = "z";  // of the loads: z or y
};
int Diagram(const Options& options, const DiagramArguments& arguments);

}  // namespace kestrum::cli
