#pragma once

// The commands. Each returns the exit code of the program; BadInput leaves through the caller.

#include "cli/context.h"

#include <string>
#include <vector>

namespace kestrum::cli {

// What the text of a check has beside the result panel.
struct TextParts {
    bool loadcase = false;  // the governing load case
    bool notes = false;     // the design notes
};
int Check(const Options& options, const std::vector<std::string>& files, const TextParts& parts);
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

struct TableArguments {
    std::string file;
    std::string out;  // .xlsx or .csv; empty: text on standard output
};
int DetailedTable(const Options& options, const TableArguments& arguments);

struct ReportArguments {
    std::string kind;  // control, section, vortex
    std::string file, out;
};
int Report(const Options& options, const ReportArguments& arguments);

struct BatchArguments {
    std::vector<std::string> inputs;
    std::string out;   // empty: standard output
    std::string base;  // project that tables start from; empty: the default one
    std::vector<std::string> fields = {"control", "clause"};
    int jobs = 0;  // threads; 0: one a core
    bool resume = false;
    bool raw = false;
    bool quiet = false;  // no summary
};
int Batch(const Options& options, const BatchArguments& arguments);

}  // namespace kestrum::cli
