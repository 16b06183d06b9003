#pragma once

// What the commands share: the options that hold for all of them, reading and writing of projects,
// and the messages of failure.

#include "cli/terminal.h"
#include "core/csv_cell.h"
#include "core/file_lock.h"
#include "core/held_state.h"
#include "core/library.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestrum {
struct ProjectState;
}

namespace kestrum::cli {

// Exit codes. Of several files the gravest one counts: bad input, then calculation error, then
// above the limit.
enum Exit : int { kAllWithin = 0, kSomeAbove = 1, kBadInput = 2, kFailedPass = 3 };

// Bad input; the text is the message without "kestrum: ".
struct BadInput : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Throws a fault; an empty one is none. `of` names the file or the option that has it.
void Require(const std::string& fault);
void Require(const std::string& of, const std::string& fault);

enum class Format { text, json, csv };

struct Options {
    std::string data;   // folder of tables and materials; empty: the usual places
    std::string setup;  // stored setup; empty: the one beside the tables
    Format format = Format::text;
    Color color = Color::automatic;
    bool quiet = false;  // no hints, no summary
    // Of a CSV that is written: comma, semicolon or tab; point or comma. Empty: not asked for.
    std::string delimiter, decimal;
};

// How a CSV is to be written. Numbers with a comma have semicolons between them unless another
// delimiter is asked for. Throws BadInput for two commas, and where no CSV is written that could
// follow what is asked for.
CsvForm CsvFormOf(const Options& options, CsvTexts texts, bool written = true);

// What of it decides what is in an answer, as options; nothing for the usual form.
std::string CsvOptions(const CsvForm& form);

// Tables, materials and setup. Throws BadInput when the folder or the setup cannot be read.
Library LoadTables(const Options& options);

// The version, and with --data whether the data there is the delivered one. Throws BadInput.
std::string VersionText(const Options& options);

// A fresh program with the project of the file, "-" for standard input. Throws BadInput.
HeldState OpenProject(const Library& library, const std::string& file);

// The same for a project that is to be saved to `out`: until the lock is gone no other program
// changes that file, be it the one read or another. Throws BadInput.
HeldState OpenToChange(const Library& library, const std::string& file, const std::string& out,
                       FileLock& lock);

// Writes the whole file or nothing; standard output without a name. Throws BadInput.
void SaveProject(ProjectState& s, const std::string& file);

// The ending of a name with its dot, in small letters; empty without one.
std::string EndingOf(const std::string& name);

// Writes the file of the lock. Throws BadInput.
void SaveChanged(ProjectState& s, const std::string& file, FileLock& lock);

// Throws BadInput when the output would be written over what is read.
void SpareInput(const std::string& out, const std::string& input);

// Vortex shedding: throws BadInput for a family that the control does not cover.
void RequireVortexFamily(const ProjectState& s, const std::string& file);

// "kestrum: FILE:LINE: what" on standard error, with nothing that a terminal obeys.
void Complain(const std::string& what);

// The same for what needs no answer: a hint or warning, left out by --quiet.
void Hint(const Options& options, const std::string& what);

// Standard output, whole. Throws BadInput when it does not take the text.
void Print(const std::string& text);
void RequirePrinted();  // what was printed by others

}  // namespace kestrum::cli
