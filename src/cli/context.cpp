#include "cli/context.h"

#include "app/field_hint.h"
#include "core/arithmetic_trap.h"
#include "core/file_io.h"
#include "core/project_file.h"
#include "core/project_inputs.h"
#include "core/setup_file.h"
#include "core/utf8_path.h"
#include "core/utf8_text.h"
#include "engine/new_project.h"
#include "sections/load_library.h"
#include "service/vortex.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>
#include <utility>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

// As much as a file may hold.
std::string ReadStandardInput()
{
    std::string bytes;
    std::array<char, 65536> block;
    while (std::cin.read(block.data(), block.size()), std::cin.gcount() > 0) {
        bytes.append(block.data(), static_cast<std::size_t>(std::cin.gcount()));
        if (bytes.size() > kLargestFile) {
            throw BadInput("standard input: is larger than any file of this program");
        }
    }
    return bytes;
}

#ifdef _WIN32

bool SameFile(const std::string& out, const std::string& input)
{
    std::error_code fault;
    return out != "-" && input != "-" &&
           std::filesystem::equivalent(Utf8Path(out), Utf8Path(input), fault);
}

#else

// Device and inode; pipes and terminals are no files.
std::optional<std::pair<dev_t, ino_t>> FileOf(const std::string& name, int stream)
{
    struct stat status {};
    const int fault = name == "-" ? fstat(stream, &status) : stat(name.c_str(), &status);
    if (fault != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return std::pair(status.st_dev, status.st_ino);
}

bool SameFile(const std::string& out, const std::string& input)
{
    const auto written = FileOf(out, STDOUT_FILENO);
    return written && written == FileOf(input, STDIN_FILENO);
}

#endif

std::string ReadAll(const std::string& file)
{
    if (file == "-") {
        return ReadStandardInput();
    }
    std::string bytes;
    Require(file, ReadWholeFile(file, bytes));
    return bytes;
}

HeldState Project(const Library& library, const std::string& file, const std::string& bytes)
{
    HeldState s;
    if (const auto fault = ReadFresh(library, s, bytes)) {
        throw BadInput(FaultText(file, *fault));
    }
    InputsOf(s).filename = file;
    return s;
}

}  // namespace

void Require(const std::string& fault)
{
    if (!fault.empty()) {
        throw BadInput(fault);
    }
}

void Require(const std::string& of, const std::string& fault)
{
    if (!fault.empty()) {
        throw BadInput(of + ": " + fault);
    }
}

CsvForm CsvFormOf(const Options& options, CsvTexts texts, bool written)
{
    if (!written && (!options.delimiter.empty() || !options.decimal.empty())) {
        throw BadInput(std::string(options.delimiter.empty() ? "--decimal" : "--delimiter") +
                       " is of a CSV, and none is written");
    }
    CsvForm form(texts);
    form.point = options.decimal == "comma" ? ',' : '.';
    form.delimiter = options.delimiter == "tab"                                ? '\t'
                     : options.delimiter == "semicolon"                        ? ';'
                     : options.delimiter.empty() && options.decimal == "comma" ? ';'
                                                                               : ',';
    if (form.delimiter == ',' && form.point == ',') {
        throw BadInput("--decimal comma needs another delimiter than a comma");
    }
    return form;
}

std::string CsvOptions(const CsvForm& form)
{
    return std::string(form.delimiter == ','   ? ""
                       : form.delimiter == ';' ? " --delimiter semicolon"
                                               : " --delimiter tab") +
           (form.point == ',' ? " --decimal comma" : "");
}

Library LoadTables(const Options& options)
{
    if (!options.data.empty() && !std::filesystem::is_directory(Utf8Path(options.data))) {
        throw BadInput(options.data + ": no such folder");
    }
    Library library = options.data.empty() ? LoadUsualLibrary() : LoadLibrary(options.data);
    for (const std::string& fault : library.faults) {
        Complain(fault);
    }
    if (library.materials.empty()) {
        throw BadInput("no material list: " + std::string(kMaterialFile) +
                       " is in none of the data folders");
    }
    if (!options.setup.empty()) {
        library.setup = ReadAll(options.setup);
        HeldState scratch;
        if (const auto fault = ReadSetup(scratch, library.setup)) {
            throw BadInput(FaultText(options.setup, *fault));
        }
    }
    return library;
}

std::string VersionText(const Options& options)
{
    const std::string version = "kestrum " KESTRUM_VERSION;
    if (options.data.empty()) {
        return version;
    }
    const std::string own = OwnDataText(LoadTables(options));
    return version + "\n" + options.data + ": " + (own.empty() ? "data as delivered" : own);
}

HeldState OpenProject(const Library& library, const std::string& file)
{
    return Project(library, file, ReadAll(file));
}

HeldState OpenToChange(const Library& library, const std::string& file, const std::string& out,
                       FileLock& lock)
{
    Require(out, lock.Take(out));
    std::error_code fault;
    if (file == "-" || !std::filesystem::equivalent(Utf8Path(file), Utf8Path(out), fault)) {
        return OpenProject(library, file);
    }
    std::string bytes;
    Require(file, ReadLockedFile(file, bytes));
    return Project(library, file, bytes);
}

void SaveProject(ProjectState& s, const std::string& file)
{
    const std::string bytes = WriteProject(s);
    if (file.empty() || file == "-") {
        Print(OutputIsTerminal() ? PrintableLines(bytes) : bytes);
        return;
    }
    Require(file, WriteWholeFile(file, bytes));
}

void SaveChanged(ProjectState& s, const std::string& file, FileLock& lock)
{
    Require(file, lock.Write(WriteProject(s)));
}

void RequireVortexFamily(const ProjectState& s, const std::string& file)
{
    const int family = InputsOf(s).family;
    if (!VortexFamily(family)) {
        const std::string_view refusal = VortexRefusal(family);
        throw BadInput(file + ": " + std::string(refusal.empty() ? "no such family" : refusal));
    }
}

std::string EndingOf(const std::string& name)
{
    std::string ending = Utf8Name(Utf8Path(name).extension());
    std::transform(ending.begin(), ending.end(), ending.begin(), Small);
    return ending;
}

// Also when one of them or both are streams that the shell has opened.
void SpareInput(const std::string& out, const std::string& input)
{
    if (SameFile(out, input)) {
        throw BadInput((out == "-" ? "standard output" : out) + ": would overwrite the input");
    }
}

void Complain(const std::string& what)
{
    std::cerr << "kestrum: " + Printable(what) + "\n";  // at once: lines of two threads stay whole
}

void Hint(const Options& options, const std::string& what)
{
    if (!options.quiet) {
        Complain(what);
    }
}

void Print(const std::string& text)
{
    errno = 0;
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
    std::cout.flush();
    RequirePrinted();
}

void RequirePrinted()
{
    if (!std::cout) {
        throw BadInput("standard output: " + std::generic_category().message(errno));
    }
}

}  // namespace kestrum::cli
