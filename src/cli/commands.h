#pragma once

// The commands. Each returns the exit code of the program; BadInput leaves through the caller.

#include "cli/context.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kestrum::cli {

struct CheckArguments {
    std::vector<std::string> files;
    bool loadcase = false;   // the governing load case
    bool no_notes = false;   // leaves out the notes on deviations
    bool exit_zero = false;  // whatever the verdicts
    bool csv_safe = false;
    std::string basis = "both";  // or program, or standard
};
int Check(const Options& options, const CheckArguments& arguments);

// One object; a list of them for several files.
int Dump(const Options& options, const std::vector<std::string>& files, bool inputs);

struct NewArguments {
    std::string out;
    std::string family;  // as typed; empty: the default
    std::vector<std::string> set;
    bool raw = false;
    bool tensionpositive = false;  // nload and ne are given so
};
int New(const Options& options, const NewArguments& arguments);

struct SetArguments {
    std::string file, out;
    std::vector<std::string> set;
    bool raw = false;
    bool dry_run = false;
    bool tensionpositive = false;  // nload and ne are given so
};
int Set(const Options& options, const SetArguments& arguments);

int Sections(const Options& options, const std::string& family);
int Fields(const Options& options, const std::string& name);  // all without a name
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
    std::string kind;  // control, section, vortex, full
    std::vector<std::string> files;
    std::string out;
    // What the office writes on it, by the names of its file.
    std::map<std::string, std::string> head;
    std::string office;  // that file; empty: the one of the user
    bool reproducible = false;
    bool vortex = false;  // with the control of vortex shedding
};
int Report(const Options& options, const ReportArguments& arguments);
int ReportFull(const Options& options, const ReportArguments& arguments);  // kind full

struct BatchArguments {
    std::vector<std::string> inputs;
    std::string out;   // empty: standard output
    std::string base;  // project that tables start from; empty: the default one
    std::vector<std::string> fields = {"control", "clause", "message", "dropped"};
    std::string shard;  // "2/8": part of the members; empty: all
    int jobs = 0;       // threads; 0: one a core
    bool resume = false;
    bool raw = false;
    bool tensionpositive = false;  // nload, ne and ned are given and answered so
    bool keep_columns = false;     // what is no field is passed through
    bool exit_zero = false;        // when each member has its answer
    std::optional<bool> csv_safe;  // unset: for a file, not for a stream
};
int Batch(const Options& options, const BatchArguments& arguments);

// Members and their forces as tables.
struct FrameArguments {
    std::string members, forces;
    std::string base;              // project that members start from; empty: the default one
    std::string key;               // column of the members' keys; empty: the usual names
    std::vector<std::string> map;  // THEIRS=OURS
    int memory = 256;              // MB to sort in
    bool raw = false;
    bool tensionpositive = false;  // N of the forces
    bool swap_axes = false;        // their y is our z
};

struct EnvelopeArguments : FrameArguments {
    std::string out;             // empty: standard output
    std::string basis = "both";  // or program, or standard
    std::string shard;           // "2/8": part of the members; empty: all
    int jobs = 0;                // threads; 0: one a core
    int top = 0;                 // so many worst cases of each member
    bool all = false;            // a line for each case
    bool resume = false;
    bool exit_zero = false;
    std::optional<bool> csv_safe;  // unset: for a file, not for a stream
};
int Envelope(const Options& options, const EnvelopeArguments& arguments);

// `members` is a project, or a table of members, whose forces may follow.
struct OptimizeArguments : FrameArguments {
    std::string out;                // the project or table with its new sections
    std::vector<std::string> pool;  // families, series, sections, files; empty: the family
    std::vector<std::string> range, keep, steel;
    std::string by = "mass";     // or depth, price, surface
    std::string basis = "both";  // or program, or standard
    std::string group;           // column of a table
    std::optional<double> max_ir, max_h, max_b;
    int top = 1;
    int jobs = 0;        // threads; 0: one a core
    bool notes = false;  // of a table: measured in what is chosen
    bool exit_zero = false;
};
int Optimize(const Options& options, const OptimizeArguments& arguments);

struct MergeArguments {
    std::vector<std::string> parts;
    std::string out;  // empty: standard output
};
int Merge(const Options& options, const MergeArguments& arguments);

struct SummaryArguments {
    std::string answers;
    std::string out;      // .csv, .xlsx, .pdf, .svg or .png; empty: CSV on standard output
    std::string members;  // table for names, sections and masses; empty: without
    std::string base;     // project that members start from; empty: the default one
    std::string key;      // column of the members' keys; empty: the usual names
    int top = 0;          // so many are listed; 0: all
    bool raw = false;
};
int Summary(const Options& options, const SummaryArguments& arguments);

}  // namespace kestrum::cli
