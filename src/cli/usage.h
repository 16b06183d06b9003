#pragma once

// Manners of the command line: forms of the answer and files to write as options, and what is said
// of a line that cannot be taken.

#include "cli/context.h"

#include <CLI/CLI.hpp>

#include <string>
#include <utility>
#include <vector>

namespace kestrum::cli {

using Formats = std::vector<std::pair<std::string, Format>>;

// --format with these words, and --json. `formats` is kept by reference.
void AddFormat(CLI::App& command, Options& options, const Formats& formats);

// --delimiter and --decimal of a CSV.
void AddCsv(CLI::App& command, Options& options);

// --color with its words.
void AddColor(CLI::App& app, Options& options);

// --sign with its words: whether axial forces are positive in tension.
void AddSign(CLI::App& command, bool& tensionpositive);

// -o. An empty name is that of a shell variable without a value, and refused.
CLI::Option* AddOutput(CLI::App& command, std::string& file, const std::string& meaning);

// What is wrong with the command line, with the command or option that may have been meant.
std::string UsageFailure(const CLI::App* app, const CLI::Error& error);

// The help of a command by its name, of the program without one. Throws BadInput for no such
// command.
std::string HelpOf(const CLI::App& app, const std::string& command);

}  // namespace kestrum::cli
