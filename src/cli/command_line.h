#pragma once

// The commands with their options, and what a command line says.

#include "cli/commands.h"

#include <CLI/CLI.hpp>

#include <span>
#include <string>
#include <vector>

namespace kestrum::cli {

struct CommandLine {
    Options options;
    int exit = kAllWithin;  // of the command that ran
    CheckArguments check;
    bool notes = false;  // taken and without effect
    std::vector<std::string> files;
    bool inputs = false;
    NewArguments fresh;
    SetArguments set;
    std::string family, field, file;
    DiagramArguments diagram;
    TableArguments table;
    ReportArguments report;
    BatchArguments batch;
    EnvelopeArguments envelope;
    OptimizeArguments optimize;
    MergeArguments merge;
    SummaryArguments summary;
};

// Adds all commands to `app`, options only to those that `words` name: a small check takes less
// time than making the options of all. `line` has to outlive `app`.
void AddCommands(CLI::App& app, CommandLine& line, std::span<const std::string> words);

}  // namespace kestrum::cli
