#include "cli/many.h"

#include "app/field_owner.h"
#include "app/table_record.h"
#include "app/unloaded_member.h"
#include "cli/text_stream.h"
#include "core/project_inputs.h"
#include "core/utf8_path.h"

#include <algorithm>
#include <filesystem>
#include <thread>

namespace kestrum::cli {

namespace {

bool IsJsonName(const std::string& out)
{
    const std::string ending = EndingOf(out);
    return ending == ".ndjson" || ending == ".jsonl";
}

}  // namespace

bool IsFile(const std::string& out)
{
    std::error_code fault;
    const auto type = std::filesystem::status(Utf8Path(out), fault).type();
    return !out.empty() && out != "-" &&
           (type == std::filesystem::file_type::regular ||
            type == std::filesystem::file_type::not_found);
}

void RequireAnswerName(const Options& options, const std::string& out)
{
    if (!IsFile(out)) {
        return;
    }
    if (!IsJsonName(out) && EndingOf(out) != ".csv") {
        throw BadInput(out + ": the name has to end in .csv, .ndjson or .jsonl");
    }
    if (options.format == Format::json && !IsJsonName(out)) {
        throw BadInput(out + ": holds CSV; JSON needs a name that ends in .ndjson or .jsonl");
    }
}

TableForm FormOf(const Options& options, const std::string& out)
{
    return options.format == Format::json || IsJsonName(out) ? TableForm::ndjson : TableForm::csv;
}

CsvForm CsvFormFor(const Options& options, const std::string& out, std::optional<bool> safe)
{
    return CsvFormOf(options, safe.value_or(IsFile(out)) ? CsvTexts::safe : CsvTexts::plain,
                     FormOf(options, out) == TableForm::csv);
}

Bases BasesOf(const std::string& basis)
{
    return basis == "program"    ? Bases::program
           : basis == "standard" ? Bases::standard
                                 : Bases::both;
}

void ComplainAll(std::string_view lines)
{
    while (!lines.empty()) {
        Complain(std::string(TakeLine(lines)));
    }
}

Shard ShardOf(const std::string& text, const std::string& out)
{
    Shard shard;
    if (!text.empty() && !ReadShard(text, shard)) {
        throw BadInput("--shard " + text + ": expected I/N, the first of four is 1/4");
    }
    if (!text.empty() && !IsFile(out)) {
        throw BadInput("--shard needs -o with a file, for `kestrum merge`");
    }
    return shard;
}

int ExitOf(const Tally& tally, bool faulty)
{
    int exit = faulty ? kBadInput : kAllWithin;
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        const auto verdict = static_cast<Verdict>(i);
        exit = tally.Count(verdict) > 0 ? GraverExit(exit, ExitCode(verdict)) : exit;
    }
    return exit;
}

unsigned Threads(int jobs)
{
    constexpr unsigned kMost = 256;
    const unsigned wanted =
        jobs > 0 ? static_cast<unsigned>(jobs) : std::thread::hardware_concurrency();
    return std::clamp(wanted, 1U, kMost);
}

HeldState BaseOf(const Library& library, const std::string& file)
{
    if (!file.empty()) {
        HeldState s = OpenProject(library, file);
        ClearLoads(s, InputsOf(s).loadmode == 1 ? LoadKind::endforce : LoadKind::load);
        return s;
    }
    return UnloadedMember(library);
}

std::string ReadTable(const std::string& file, const Interrupt& interrupt)
{
    TextStream stream(file, interrupt);
    std::string text;
    while (stream.Read(text)) {
    }
    if (interrupt.raised()) {
        interrupt.End();
    }
    return text;
}

MemberList ReadMembers(const std::string& file, const std::string& key, const Interrupt& interrupt,
                       bool& faulty, KeyUse use)
{
    MemberList members;
    const std::string refusal =
        members.Take(ReadTable(file, interrupt), file == "-" ? "standard input" : file, key, use);
    if (!refusal.empty()) {
        throw BadInput(refusal);
    }
    for (const std::string& fault : members.faults()) {
        Complain(fault);
        faulty = true;
    }
    return members;
}

}  // namespace kestrum::cli
