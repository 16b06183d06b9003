#pragma once

// What each fuzzer does with its bytes. A property that does not hold ends the program; the
// sanitizers end it for the rest. The same functions run over seeds and finds in the quick tests.

#include <span>
#include <string_view>

namespace kestrum::fuzz {

void ProjectFile(std::string_view bytes);
void SetupFile(std::string_view bytes);
void MaterialList(std::string_view bytes);
void ProfileTables(std::string_view bytes);  // the first byte selects the table
void Numbers(std::string_view bytes);
void Assignments(std::string_view bytes);   // NAME=VALUE, one a line; !NAME=VALUE unchecked
void MemberTables(std::string_view bytes);  // CSV or NDJSON of the batch
void ForceTables(std::string_view bytes);   // CSV of the envelope, members a, b and c
void SectionPools(std::string_view bytes);  // +WORD, =RANGE and -FIELD lines, then a list of prices
void Members(std::string_view bytes);       // fields set by number: calculated, written, read
void CInterface(std::string_view bytes);    // a project, or NAME=VALUE lines behind a byte
void LeftBehind(std::string_view bytes);    // a file of unsaved work, or of an unsaved table
void OfficeSettings(std::string_view bytes);  // or a logo
void TwoRoutes(std::string_view bytes);       // stations, then a member as in Members

struct Target {
    std::string_view name;  // of program, seeds and finds
    void (*run)(std::string_view bytes);
};
std::span<const Target> Targets();

}  // namespace kestrum::fuzz
