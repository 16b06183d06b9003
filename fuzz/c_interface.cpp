// The C interface: what a caller may give it, and the same member through a table of `batch`.

#include "harness.h"
#include "harness_tools.h"

#include "app/batch.h"
#include "app/table_record.h"

#include <kestrum/kestrum.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kestrum::fuzz {

namespace {

constexpr std::size_t kMostSettings = 40;

struct Free {
    void operator()(kestrum_catalogue* each) const { kestrum_catalogue_free(each); }
    void operator()(kestrum_member* each) const { kestrum_member_free(each); }
    void operator()(kestrum_result* each) const { kestrum_result_free(each); }
    void operator()(kestrum_text* each) const { kestrum_text_free(each); }
    void operator()(kestrum_error* each) const { kestrum_error_free(each); }
    void operator()(kestrum_table* each) const { kestrum_table_free(each); }
    void operator()(kestrum_envelope* each) const { kestrum_envelope_free(each); }
};
template <class T> using Held = std::unique_ptr<T, Free>;

// Calls with the address of a result and one of an error: an error comes exactly with a code.
template <class T, class Call> Held<T> Made(Call call, kestrum_code& code)
{
    T* made = nullptr;
    kestrum_error* error = nullptr;
    code = call(&made, &error);
    const Held<kestrum_error> fault(error);
    Require((code == KESTRUM_OK) == (error == nullptr), "a code and its error differ");
    Require((code == KESTRUM_OK) == (made != nullptr), "a code and its result differ");
    Require(code != KESTRUM_INTERNAL, "a fault of the library");
    Require(!fault || *kestrum_error_text(error) != '\0', "an error without a word");
    return Held<T>(made);
}

const kestrum_catalogue* Catalogue()
{
    static const Held<kestrum_catalogue> kCatalogue = [] {
        kestrum_code code{};
        return Made<kestrum_catalogue>(
            [](auto** out, auto** error) { return kestrum_catalogue_builtin(out, error); }, code);
    }();
    return kCatalogue.get();
}

Held<kestrum_member> NewMember()
{
    kestrum_code code{};
    return Made<kestrum_member>(
        [](auto** out, auto** error) { return kestrum_member_new(Catalogue(), out, error); }, code);
}

std::string ProjectOf(const kestrum_member* member)
{
    kestrum_code code{};
    const Held<kestrum_text> text = Made<kestrum_text>(
        [&](auto** out, auto** error) { return kestrum_member_project(member, out, error); }, code);
    Require(code == KESTRUM_OK, "a member has no project");
    return {kestrum_text_data(text.get()), kestrum_text_size(text.get())};
}

using Settings = std::vector<std::pair<std::string, std::string>>;

// A refused value leaves the member as it was.
void OneByOne(const Settings& settings)
{
    const Held<kestrum_member> member = NewMember();
    for (const auto& [name, value] : settings) {
        const std::string before = ProjectOf(member.get());
        kestrum_error* error = nullptr;
        const kestrum_code code =
            kestrum_member_set(member.get(), name.c_str(), value.c_str(), &error);
        const Held<kestrum_error> fault(error);
        Require(code != KESTRUM_INTERNAL, "a fault of the library");
        Require(code == KESTRUM_OK || ProjectOf(member.get()) == before,
                "a refused value changes the member");
    }
    const std::string project = ProjectOf(member.get());
    const Held<kestrum_member> read = NewMember();
    Require(kestrum_member_read_project(read.get(), project.data(), project.size(), nullptr) ==
                KESTRUM_OK,
            "a written project cannot be read");
    Require(ProjectOf(read.get()) == project, "a project does not repeat itself");
}

// All of a result can be asked for, and none beyond.
void Walk(const kestrum_result* result)
{
    for (const unsigned basis : {KESTRUM_BASIS_PROGRAM, KESTRUM_BASIS_STANDARD}) {
        const std::size_t checks = kestrum_result_checks(result, basis);
        kestrum_check check{};
        for (std::size_t i = 0; i <= checks; ++i) {
            Require((kestrum_result_check(result, basis, i, &check, nullptr) == KESTRUM_OK) ==
                        (i < checks),
                    "a check is missing");
        }
        for (const char* word :
             {kestrum_result_verdict(result, basis), kestrum_result_governing(result, basis),
              kestrum_result_clause(result, basis), kestrum_result_message(result, basis)}) {
            Require(word != nullptr, "a word is missing");
        }
    }
    kestrum_code code{};
    for (const auto ask : {kestrum_result_json, kestrum_result_panel, kestrum_result_section_svg}) {
        Made<kestrum_text>([&](auto** out, auto** error) { return ask(result, out, error); }, code);
    }
}

bool Plain(const std::string& cell)
{
    return !cell.empty() && cell.find_first_of(",;|\t\"\r") == std::string::npos &&
           cell.front() != ' ' && cell.back() != ' ';
}

// The same member as a line of a table; what `batch` answers, or nothing where it takes no part.
struct Line {
    bool answered = false;
    Verdict verdict{};
    double ir = 0;
};

Line InBatch(const Settings& settings)
{
    std::string head = "id", cells = "a";
    std::set<std::string> names{"id"};
    for (const auto& [name, value] : settings) {
        if (!Plain(name) || !Plain(value) || !names.insert(name).second) {
            return {};
        }
        head += "," + name;
        cells += "," + value;
    }
    MemberColumns columns;
    AnswerForm answers;
    if (!columns.TakeHeader(head).empty() ||
        !answers.Choose(TableForm::ndjson, {"control"}).empty()) {
        return {};
    }
    BatchChunk chunk{.columns = &columns, .table = "table", .row = 1, .line = 2};
    chunk.form = TableForm::csv;
    chunk.lines = cells;
    BatchWorker worker(Delivered(), Default(), answers, Assignment::checked);
    worker.Work(chunk);
    Line line{.answered = true};
    std::string_view out = chunk.out;
    std::string member;
    Require(answers.ReadBack(TakeLine(out), member, line.verdict, line.ir),
            "an answer is no answer");
    return line;
}

// Set all at once, checked alone, and as a line of a table: the same answer.
void AllAtOnce(const Settings& settings, unsigned basis)
{
    std::vector<kestrum_setting> list;
    for (const auto& [name, value] : settings) {
        list.push_back({name.c_str(), value.c_str()});
    }
    const Held<kestrum_member> member = NewMember();
    kestrum_code code{};
    kestrum_error* error = nullptr;
    code = kestrum_member_set_all(member.get(), list.data(), list.size(), nullptr, &error);
    const Held<kestrum_error> fault(error);
    Require(code != KESTRUM_INTERNAL, "a fault of the library");
    const Line line = InBatch(settings);
    if (code != KESTRUM_OK) {
        Require(!line.answered || line.verdict == Verdict::bad,
                "batch takes what the library refuses");
        return;
    }
    const Held<kestrum_result> result = Made<kestrum_result>(
        [&](auto** out, auto** made) {
            return kestrum_member_check(member.get(), basis, out, made);
        },
        code);
    Require(code == KESTRUM_OK, "a member cannot be checked");
    Walk(result.get());
    if (line.answered) {
        Require(line.verdict != Verdict::bad, "batch refuses what the library takes");
        const std::string verdict(kestrum_result_verdict(result.get(), KESTRUM_BASIS_PROGRAM));
        Require(VerdictOf(verdict) == line.verdict, "verdicts of batch and library differ");
        const double ratio = kestrum_result_ratio(result.get(), KESTRUM_BASIS_PROGRAM);
        Require(!Outcome{.verdict = line.verdict}.rated() || ratio == line.ir,
                "ratios of batch and library differ");
    }
}

}  // namespace

void CInterface(std::string_view bytes)
{
    const Held<kestrum_member> scratch = NewMember();
    kestrum_member_read_project(scratch.get(), bytes.data(), bytes.size(), nullptr);
    ProjectOf(scratch.get());

    Source source(bytes);
    const bool costs = source.Byte() % 16 == 0;
    bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
    Settings settings;
    while (!bytes.empty() && settings.size() < kMostSettings) {
        const std::string line(TakeLine(bytes));
        const std::string text = line.substr(0, line.find('\0'));  // as C sees it
        const std::size_t equals = std::min(text.find('='), text.size());
        settings.emplace_back(text.substr(0, equals),
                              text.substr(std::min(equals + 1, text.size())));
    }
    OneByOne(settings);
    AllAtOnce(settings, KESTRUM_BASIS_BOTH | (costs ? unsigned{KESTRUM_COSTS} : 0U));
}

}  // namespace kestrum::fuzz
