#include "app/batch.h"

#include "app/field_hint.h"
#include "core/file_io.h"
#include "core/project_file.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "engine/new_project.h"
#include "report/state_json.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace kestrum {

namespace {

constexpr std::size_t kWorstShown = 10;
constexpr std::string_view kNotChecked = "nothing checked: no section control for this family";
constexpr std::string_view kDeflectionClause = "7.2";
constexpr std::array<std::string_view, kVerdicts> kWords = {"within limits", "above limit",
                                                            "calculation error", "bad input"};

void AppendCount(std::string& out, std::size_t count)
{
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), count);
    out.append(digits.data(), end.ptr);
}

template <class T> void AppendNumber(std::string& out, T value)
{
    std::array<char, 40> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), end.ptr);
}

// A name or message may quote what stands in the input, line ends and all.
std::string OnOneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return text;
}

// The larger of two rows; an empty one has no ratio.
const ResultRow* Worse(const ResultRow* a, const ResultRow* b)
{
    if (b->empty() || !b->judged) {
        return a;
    }
    return a == nullptr || b->ir > a->ir ? b : a;
}

// "NEd/NRd" of a row that begins with "IR = NEd/NRd = ".
std::string ControlOf(const ResultRow& row)
{
    constexpr std::string_view kHead = "IR = ", kTail = "= ";
    std::string text;
    for (const Literal& piece : row.label) {
        text.append(piece.text());
    }
    text.erase(0, text.starts_with(kHead) ? kHead.size() : 0);
    text.erase(text.find_last_not_of(kTail) + 1);
    return text;
}

// "6.2.4" of a limit that ends in "(Ch 6.2.4)"; deflections name none.
std::string_view ClauseOf(const ResultRow& row)
{
    for (const Literal& piece : row.limit) {
        const std::size_t at = piece.text().find("Ch ");
        if (at != std::string_view::npos) {
            const std::string_view clause = piece.text().substr(at + 3);
            return clause.substr(0, clause.find_first_not_of("0123456789./"));
        }
    }
    return kDeflectionClause;
}

// Takes the name of a member off the front of an answer line: plain, or in quotes with every quote
// doubled (CSV) or behind a backslash (JSON).
bool TakeMember(std::string_view& line, bool csv, std::string& member)
{
    member.clear();
    if (!line.starts_with('"')) {
        const std::size_t end = line.find(',');
        member = line.substr(0, end);
        line.remove_prefix(member.size());
        return csv && end != std::string_view::npos;
    }
    for (std::size_t at = 1; at < line.size(); ++at) {
        const bool pair =
            at + 1 < line.size() && line[at] == (csv ? '"' : '\\') && (!csv || line[at + 1] == '"');
        if (!pair && line[at] == '"') {
            line.remove_prefix(at + 1);
            return true;
        }
        at += pair ? 1 : 0;
        member.push_back(line[at]);
    }
    return false;
}

}  // namespace

std::string_view VerdictWord(Verdict verdict)
{
    return kWords[static_cast<std::size_t>(verdict)];
}

MemberAnswer AnswerOf(const ProjectState& s, bool well)
{
    MemberAnswer answer;
    if (FindRoutines(s.family) == nullptr) {
        answer.message = kNotChecked;
        return answer;
    }
    if (!well) {
        answer.verdict = Verdict::failed;
        answer.message = kCalculationError;
        return answer;
    }
    const ResultRow* row = nullptr;
    for (std::size_t i = 1; i <= 3; ++i) {
        row = Worse(row, &s.secline[i]);
    }
    for (const ResultRow* other : {&s.yline, &s.zline, &s.ltline}) {
        row = Worse(row, other);
    }
    answer.ir = std::max(s.irsection, s.maxirbuckling);
    if (s.checksls != kFalse) {
        for (const ResultRow* other : {&s.deflinez, &s.defliney}) {
            row = Worse(row, other);
            answer.ir = std::max(answer.ir, other->empty() ? 0.0 : other->ir);
        }
    }
    answer.verdict = answer.ir > s.irlimit ? Verdict::above : Verdict::within;
    if (row != nullptr) {
        answer.control = ControlOf(*row);
        answer.clause = ClauseOf(*row);
    }
    return answer;
}

std::string AnswerForm::Choose(TableForm form, const std::vector<std::string>& names)
{
    form_ = form;
    items_.clear();
    for (const std::string& name : names) {
        Item item{name, Special::none, {}};
        if (name == "control") {
            item.special = Special::control;
        } else if (name == "clause") {
            item.special = Special::clause;
        } else if (name == "message") {
            item.special = Special::message;
        } else if (const std::optional<FieldRef> ref = ResolveField(name)) {
            item.ref = *ref;
        } else {
            return name + ": no such field" + FieldHint(name, FieldsMeant::all);
        }
        items_.push_back(std::move(item));
    }
    return {};
}

std::string AnswerForm::Header() const
{
    if (form_ == TableForm::ndjson) {
        return {};
    }
    std::string line = "member,verdict,ir";
    for (const Item& item : items_) {
        line += ",";
        AppendCell(line, item.name);
    }
    return line + "\n";
}

void AnswerForm::AppendItem(std::string& out, const Item& item, const ProjectState& s,
                            const MemberAnswer& answer) const
{
    const bool json = form_ == TableForm::ndjson;
    const auto text = [&](std::string_view value) {
        if (json) {
            out.append(JsonText(value));
        } else {
            AppendCell(out, value);
        }
    };
    switch (item.special) {
    case Special::control:
        return text(answer.control);
    case Special::clause:
        return text(answer.clause);
    case Special::message:
        return text(answer.message);
    default:
        break;
    }
    const Field& field = *item.ref.field;
    const bool designed = answer.verdict == Verdict::within || answer.verdict == Verdict::above;
    if (!designed && field.role == FieldRole::derived) {
        out.append(json ? "null" : "");  // a pass that failed leaves no results
        return;
    }
    if (field.kind == FieldKind::text || field.kind == FieldKind::literal) {
        return text(TextOf(s, field));
    }
    const double value = NumberOf(s, field, item.ref.index);
    if (!std::isfinite(value)) {
        out.append(json ? "null" : "");
    } else if (field.kind == FieldKind::single) {
        AppendNumber(out, static_cast<float>(value));
    } else {
        AppendNumber(out, value);
    }
}

void AnswerForm::AppendLine(std::string& out, std::string_view member, const ProjectState& s,
                            const MemberAnswer& answer) const
{
    const bool designed = answer.verdict == Verdict::within || answer.verdict == Verdict::above;
    if (form_ == TableForm::csv) {
        AppendCell(out, member);
        out.append(",").append(VerdictWord(answer.verdict)).append(",");
        if (designed) {
            AppendNumber(out, answer.ir);
        }
        for (const Item& item : items_) {
            out.push_back(',');
            AppendItem(out, item, s, answer);
        }
        out.push_back('\n');
        return;
    }
    out.append("{\"member\":").append(JsonText(member));
    out.append(",\"verdict\":\"").append(VerdictWord(answer.verdict)).append("\",\"ir\":");
    if (designed) {
        AppendNumber(out, answer.ir);
    } else {
        out.append("null");
    }
    for (const Item& item : items_) {
        out.append(",").append(JsonText(item.name)).append(":");
        AppendItem(out, item, s, answer);
    }
    out.append("}\n");
}

bool AnswerForm::ReadBack(std::string_view line, std::string& member, Verdict& verdict,
                          double& ir) const
{
    const bool csv = form_ == TableForm::csv;
    const std::string_view head = csv ? "" : "{\"member\":", before = csv ? "," : ",\"verdict\":\"",
                           behind = csv ? "," : "\",\"ir\":";
    if (!line.starts_with(head)) {
        return false;
    }
    line.remove_prefix(head.size());
    if (!TakeMember(line, csv, member) || !line.starts_with(before)) {
        return false;
    }
    line.remove_prefix(before.size());
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        if (line.starts_with(kWords[i]) && line.substr(kWords[i].size()).starts_with(behind)) {
            verdict = static_cast<Verdict>(i);
            line.remove_prefix(kWords[i].size() + behind.size());
            ir = 0;
            std::from_chars(line.data(), line.data() + line.size(), ir);
            return true;
        }
    }
    return false;
}

void Tally::Add(std::size_t place, std::string_view member, Verdict verdict, double ir)
{
    ++count_[static_cast<std::size_t>(verdict)];
    const bool designed = verdict == Verdict::within || verdict == Verdict::above;
    const auto worse = [ir, place](const Worst& other) {
        return ir > other.ir || (ir == other.ir && place < other.place);
    };
    if (!designed || (worst_.size() == kWorstShown && !worse(worst_.back()))) {
        return;
    }
    const auto at = std::find_if(worst_.begin(), worst_.end(), worse);
    worst_.insert(at, {place, std::string(member), ir});
    worst_.resize(std::min(worst_.size(), kWorstShown));
}

void Tally::Add(const Tally& other)
{
    const auto before = count_;
    for (const Worst& worst : other.worst_) {
        Add(worst.place, worst.member, Verdict::above, worst.ir);
    }
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        count_[i] = before[i] + other.count_[i];
    }
}

std::size_t Tally::Members() const
{
    std::size_t sum = 0;
    for (const std::size_t count : count_) {
        sum += count;
    }
    return sum;
}

std::string Tally::Summary() const
{
    std::string text;
    AppendCount(text, Members());
    text += " members: ";
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        AppendCount(text, count_[i]);
        text.append(" ").append(kWords[i]).append(i + 1 < kVerdicts ? ", " : "\n");
    }
    for (const Worst& worst : worst_) {
        text += "  ";
        if (worst.ir <= std::numeric_limits<float>::max()) {
            AppendNumber(text, static_cast<float>(worst.ir));
        } else {
            AppendNumber(text, worst.ir);  // a power of 6.2.9 can be that large
        }
        text += "  " + worst.member + "\n";
    }
    return text;
}

BatchWorker::BatchWorker(const Library& library, const ProjectState& base, const AnswerForm& form,
                         Assignment how)
    : library_(library), base_(base), start_(StartState(library)), form_(form), how_(how)
{
}

void BatchWorker::Work(BatchChunk& chunk)
{
    chunk.out.clear();
    chunk.fault.clear();
    chunk.tally = {};
    place_ = chunk.place;
    if (!chunk.files.empty()) {
        for (const std::string& file : chunk.files) {
            File(chunk, file);
        }
        return;
    }
    Lines(chunk);
}

void BatchWorker::Lines(BatchChunk& chunk)
{
    std::string_view rest = chunk.lines;
    std::size_t row = chunk.row;
    for (std::size_t number = chunk.line; !rest.empty(); ++number) {
        const std::string_view line = TakeLine(rest);
        if (!line.empty()) {
            Line(chunk, line, row++, number);
        }
    }
}

void BatchWorker::Line(BatchChunk& chunk, std::string_view line, std::size_t row,
                       std::size_t number)
{
    s_ = base_;
    const bool csv = chunk.form == TableForm::csv;
    std::string refusal = "the line is too long";
    if (line.size() <= kLongestLine) {
        refusal = OnOneLine(csv ? chunk.columns->Apply(library_, s_, line, how_)
                                : ApplyJsonLine(library_, s_, line, how_));
    }
    if (!refusal.empty()) {
        chunk.fault += chunk.table + ":";
        AppendCount(chunk.fault, number);
        chunk.fault += ": member ";
        AppendCount(chunk.fault, row);
        chunk.fault += ": " + refusal + "\n";
    } else if (csv && row == 1) {
        for (const std::string& told : chunk.columns->Overruled(library_, s_)) {
            chunk.fault += chunk.table + ": column " + told + "\n";
        }
    }
    member_ = chunk.prefix;
    AppendCount(member_, row);
    Finish(chunk, member_, refusal);
}

void BatchWorker::File(BatchChunk& chunk, const std::string& name)
{
    s_ = start_;
    s_.filename = name;
    const std::string member = OnOneLine(name);
    std::string refusal = ReadWholeFile(name, chunk.lines);
    if (!refusal.empty()) {
        chunk.fault += member + ": " + refusal + "\n";
    } else if (const auto fault = ReadProject(s_, chunk.lines)) {
        refusal = fault->what;
        chunk.fault += FaultText(member, *fault) + "\n";
    }
    Finish(chunk, member, refusal);
}

void BatchWorker::Finish(BatchChunk& chunk, std::string_view member, std::string_view refusal)
{
    MemberAnswer answer;
    if (refusal.empty()) {
        const bool well = Calculate(library_, s_);
        answer = AnswerOf(s_, well);
        if (answer.verdict == Verdict::bad) {  // one that failed says so in its line
            chunk.fault.append(chunk.table).append(chunk.table.empty() ? "" : ": member ");
            chunk.fault.append(member).append(": ").append(answer.message).append("\n");
        }
    } else {
        answer.message = refusal;
    }
    form_.AppendLine(chunk.out, member, s_, answer);
    chunk.tally.Add(place_++, member, answer.verdict, answer.ir);
}

}  // namespace kestrum
