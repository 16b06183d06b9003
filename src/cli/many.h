#pragma once

// What the commands over many members share: names and forms of the answers, threads, exit codes.

#include "app/batch.h"
#include "app/member_cases.h"
#include "app/member_list.h"
#include "app/shard.h"
#include "cli/context.h"
#include "cli/interrupt.h"

#include <string>
#include <string_view>

namespace kestrum::cli {

// A file with a name, no stream and no device.
bool IsFile(const std::string& out);

// The ending of a file says what is in it. Throws BadInput.
void RequireAnswerName(const Options& options, const std::string& out);

TableForm FormOf(const Options& options, const std::string& out);

// Of answers: of a file texts are safe for a spreadsheet unless it is said otherwise. Throws
// BadInput.
CsvForm CsvFormFor(const Options& options, const std::string& out, std::optional<bool> safe);

// program, standard or both.
Bases BasesOf(const std::string& basis);

// Each line with "kestrum: " in front.
void ComplainAll(std::string_view lines);

// "2/8" of --shard. Throws BadInput; a shard needs a file for its answers.
Shard ShardOf(const std::string& text, const std::string& out);

int ExitOf(const Tally& tally, bool faulty);

// Of as many as the user asks for, or one for each core.
unsigned Threads(int jobs);

// What a line of a table starts from: a project without loads, or a new one. Of the two kinds of
// load the base has those that its file holds; a member that begins from nothing has neither.
HeldState BaseOf(const Library& library, const std::string& file);

// A whole table as decoded text, "-" for standard input. Ends the program when the user stops it.
// Throws BadInput.
std::string ReadTable(const std::string& file, const Interrupt& interrupt);

// A table of members under their keys, which is held. Lines that are left out are told and make it
// faulty. Throws BadInput.
MemberList ReadMembers(const std::string& file, const std::string& key, const Interrupt& interrupt,
                       bool& faulty, KeyUse use = KeyUse::required);

}  // namespace kestrum::cli
