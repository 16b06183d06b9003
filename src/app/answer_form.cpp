#include "app/answer_form.h"

#include "app/choices.h"
#include "app/field_hint.h"
#include "app/view_section.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "core/utf8_text.h"
#include "report/state_json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

namespace kestrum {

namespace {

template <class T> void AppendShortest(std::string& out, T value)
{
    std::array<char, 40> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), end.ptr);
}

// Takes a text off the front of an answer line: plain, or in quotes with every quote
// doubled (CSV) or behind a backslash (JSON).
bool TakeText(std::string_view& line, bool csv, char delimiter, std::string& text)
{
    text.clear();
    if (!line.starts_with('"')) {
        const std::size_t end = line.find(delimiter);
        text = line.substr(0, end);
        line.remove_prefix(text.size());
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
        text.push_back(line[at]);
    }
    return false;
}

}  // namespace

void AppendNumber(std::string& out, double value)
{
    AppendShortest(out, value);
}

void AppendNumber(std::string& out, float value)
{
    AppendShortest(out, value);
}

void AppendNumber(std::string& out, std::size_t value)
{
    AppendShortest(out, value);
}

// The field of an item by its name, or what it is instead. Returns why there is none, or nothing.
std::string AnswerForm::Find(Item& item) const
{
    constexpr std::pair<std::string_view, Special> kSpecials[] = {
        {"control", Special::control},
        {"clause", Special::clause},
        {"message", Special::message},
        {"notes", Special::notes},
        {"dropped", Special::dropped},
        {kSection, Special::section},
        {"ir_standard", Special::ir_standard},
        {"standard_check", Special::standard_check},
        {"standard_clause", Special::standard_clause},
        {"deviations", Special::deviations},
    };
    constexpr std::string_view kName = ".name";
    const auto* const special = std::find_if(std::begin(kSpecials), std::end(kSpecials),
                                             [&](const auto& s) { return s.first == item.name; });
    if (special != std::end(kSpecials)) {
        item.special = special->second;
        return {};
    }
    std::string_view name = item.name;
    const bool named = name.ends_with(kName) || name == kSteel;
    name.remove_suffix(named && name != kSteel ? kName.size() : 0);
    name = name == kSteel ? "fykindex" : name == kAnnex ? "annexcode" : name;
    const std::optional<FieldRef> ref = ResolveField(name);
    if (!ref) {
        return item.name + ": no such field" + FieldHint(item.name, FieldsMeant::all);
    }
    item.ref = *ref;
    item.special = named ? Special::name : Special::none;
    return named && ChoiceOf(*ref->field) == nullptr
               ? item.name + ": the values of " + std::string(name) + " have no names"
               : std::string{};
}

std::string AnswerForm::Choose(TableForm form, const std::vector<std::string>& names,
                               const Library* library, CsvForm csv)
{
    form_ = form;
    csv_ = csv;
    library_ = library;
    items_.clear();
    for (const std::string& name : names) {
        Item item{name, Special::none, {}};
        std::string refusal = Find(item);
        if (!refusal.empty()) {
            return refusal;
        }
        items_.push_back(std::move(item));
    }
    return {};
}

void AnswerForm::KeepOthers(std::vector<std::string> columns)
{
    keepothers_ = true;
    others_ = std::move(columns);
}

std::string AnswerForm::NoPlace(const MemberColumns* columns) const
{
    if (!keepothers_ || form_ == TableForm::ndjson) {
        return {};
    }
    if (columns == nullptr) {
        return "--keep-columns passes names of NDJSON through to NDJSON only (--json)";
    }
    for (const std::string& name : columns->Others()) {
        if (std::find(others_.begin(), others_.end(), name) == others_.end()) {
            return "column \"" + name + "\": the first table has no such column to pass through";
        }
    }
    return {};
}

// No two columns of an answer have one name.
std::string AnswerForm::KeptName(std::string name) const
{
    const auto taken = [this](const std::string& wanted) {
        const auto same = [&](const Item& item) { return item.name == wanted; };
        return wanted == "member" || wanted == "verdict" || wanted == "ir" ||
               std::any_of(items_.begin(), items_.end(), same);
    };
    while (taken(name)) {
        name.insert(0, "input.");
    }
    return name;
}

std::string AnswerForm::Header() const
{
    if (form_ == TableForm::ndjson) {
        return {};
    }
    std::string line = CsvNames("member,verdict,ir", csv_);
    for (const Item& item : items_) {
        line += csv_.delimiter;
        AppendCell(line, item.name);
    }
    for (const std::string& name : others_) {
        line += csv_.delimiter;
        AppendCell(line, KeptName(name));
    }
    return line + "\n";
}

// Texts as one cell of a CSV, or as a list.
template <class Texts>
void AnswerForm::AppendList(std::string& out, const Texts& texts, std::string_view between) const
{
    std::string joined;
    for (const auto& text : texts) {
        const bool first = joined.empty();
        if (form_ == TableForm::ndjson) {
            joined.append(first ? "" : ",").append(JsonText(text));
        } else {
            joined.append(first ? "" : between).append(text);
        }
    }
    if (form_ == TableForm::ndjson) {
        out.append("[").append(joined).append("]");
    } else {
        AppendCell(out, joined);
    }
}

bool AnswerForm::asks_standard() const
{
    return std::any_of(items_.begin(), items_.end(), [](const Item& item) {
        return item.special == Special::ir_standard || item.special == Special::standard_check ||
               item.special == Special::standard_clause || MeasuresDeviations(item.special);
    });
}

bool AnswerForm::asks_costs() const
{
    return std::any_of(items_.begin(), items_.end(),
                       [](const Item& item) { return MeasuresDeviations(item.special); });
}

void AnswerForm::AppendNotes(std::string& out, const std::vector<DesignNote>& notes) const
{
    std::vector<std::string_view> numbers;
    for (const DesignNote& note : notes) {
        numbers.push_back(note.id);
    }
    AppendList(out, numbers, " ");
}

// "D233 0.123", or an object with id and cost: largest first.
void AnswerForm::AppendDeviations(std::string& out, const standard::StandardResult& result) const
{
    std::string list;
    for (const standard::DeviationCost& at : result.deviations) {
        const std::string cost = std::isfinite(at.cost) ? JsonNumber(at.cost) : "null";
        const std::string id(NameOf(at.deviation));
        list += form_ == TableForm::ndjson
                    ? (list.empty() ? "" : ", ") +
                          ("{\"id\": " + JsonText(id) + ", \"cost\": " + cost + "}")
                    : (list.empty() ? "" : "; ") +
                          (std::isfinite(at.cost) ? id + " " + FormatNum(at.cost, "0.000") : id);
    }
    if (form_ == TableForm::ndjson) {
        out.append("[").append(list).append("]");
    } else {
        AppendCell(out, list, csv_.texts);
    }
}

template <class T> void AnswerForm::AppendDecimal(std::string& out, T value) const
{
    const std::size_t first = out.size();
    AppendNumber(out, value);
    if (form_ == TableForm::csv) {
        SetPoint(out, first, csv_);
    }
}

// Empty, or null, for what the standard basis does not cover.
void AnswerForm::AppendStandard(std::string& out, Special what,
                                const standard::StandardResult* result) const
{
    const bool json = form_ == TableForm::ndjson;
    if (what == Special::deviations && result != nullptr) {
        return AppendDeviations(out, *result);
    }
    if (result == nullptr || !result->rated ||
        (what == Special::ir_standard && !std::isfinite(result->ir))) {
        out.append(json ? "null" : "");
        return;
    }
    if (what == Special::ir_standard) {
        return AppendDecimal(out, result->ir);
    }
    const std::string_view text = what == Special::standard_check
                                      ? standard::NameOf(result->governing)
                                      : result->checks[result->governing].clause;
    if (json) {
        out.append(JsonText(text));
    } else {
        AppendCell(out, text, csv_.texts);
    }
}

void AnswerForm::AppendItem(std::string& out, const Item& item, const ProjectState& s,
                            const Outcome& outcome, const standard::StandardResult* standard) const
{
    const bool json = form_ == TableForm::ndjson;
    const auto text = [&](std::string_view value) {
        if (json) {
            out.append(JsonText(value));
        } else {
            AppendCell(out, value, csv_.texts);
        }
    };
    switch (item.special) {
    case Special::ir_standard:
    case Special::standard_check:
    case Special::standard_clause:
    case Special::deviations:
        return AppendStandard(out, item.special, standard);
    case Special::control:
        return text(outcome.control);
    case Special::clause:
        return text(outcome.clause);
    case Special::message:
        return text(outcome.message);
    case Special::notes:
        return AppendNotes(out, outcome.notes);
    case Special::dropped:
        return AppendList(out, outcome.dropped, "; ");
    case Special::section:
        return text(library_ != nullptr ? SectionName(*library_, s) : std::string{});
    case Special::name: {
        const int value = static_cast<int>(NumberOf(s, *item.ref.field, item.ref.index));
        return text(library_ != nullptr ? NameOfValue(*library_, *ChoiceOf(*item.ref.field), value)
                                        : std::string{});
    }
    default:
        break;
    }
    const Field& field = *item.ref.field;
    if (!outcome.designed() && field.role == FieldRole::derived) {
        out.append(json ? "null" : "");  // a pass that failed leaves no results
        return;
    }
    if (field.kind == FieldKind::text || field.kind == FieldKind::literal) {
        return text(TextOf(s, field));
    }
    const double value = InSignOf(field, NumberOf(s, field, item.ref.index), tensionpositive_);
    if (!std::isfinite(value)) {
        out.append(json ? "null" : "");
    } else if (field.kind == FieldKind::single) {
        AppendDecimal(out, static_cast<float>(value));
    } else {
        AppendDecimal(out, value);
    }
}

void AnswerForm::AppendKept(std::string& out, const std::vector<LineExtras::Kept>& kept) const
{
    if (form_ == TableForm::ndjson) {
        for (const LineExtras::Kept& each : kept) {
            out.append(",").append(JsonText(KeptName(each.name))).append(":");
            out.append(each.json ? each.value : JsonText(each.value));
        }
        return;
    }
    for (const std::string& name : others_) {
        const auto at = std::find_if(kept.begin(), kept.end(),
                                     [&](const LineExtras::Kept& k) { return k.name == name; });
        out.push_back(csv_.delimiter);
        AppendCell(out, at != kept.end() ? at->value : "", csv_.texts);
    }
}

void AnswerForm::AppendLine(std::string& out, std::string_view member, const ProjectState& s,
                            const Outcome& outcome, const LineExtras& extras,
                            const standard::StandardResult* standard) const
{
    if (form_ == TableForm::csv) {
        AppendCell(out, member, csv_.texts);
        out.push_back(csv_.delimiter);
        AppendCell(out, VerdictText(outcome));
        out.push_back(csv_.delimiter);
        if (outcome.rated()) {
            AppendDecimal(out, outcome.ir);
        }
        for (const Item& item : items_) {
            out.push_back(csv_.delimiter);
            AppendItem(out, item, s, outcome, standard);
        }
        AppendKept(out, extras.kept);
        out.push_back('\n');
        return;
    }
    out.append("{\"member\":").append(JsonText(member));
    out.append(",\"verdict\":\"").append(VerdictText(outcome)).append("\",\"ir\":");
    if (outcome.rated()) {
        AppendNumber(out, outcome.ir);
    } else {
        out.append("null");
    }
    for (const Item& item : items_) {
        out.append(",").append(JsonText(item.name)).append(":");
        AppendItem(out, item, s, outcome, standard);
    }
    AppendKept(out, extras.kept);
    out.append("}\n");
}

bool AnswerLines::ReadBack(std::string_view line, std::string& member, Verdict& verdict,
                           double& ir) const
{
    const bool csv = form_ == TableForm::csv;
    const std::string_view delimiter{&csv_.delimiter, 1};
    const std::string_view head = csv ? "" : "{\"member\":",
                           before = csv ? delimiter : ",\"verdict\":",
                           behind = csv ? delimiter : ",\"ir\":";
    if (!line.starts_with(head)) {
        return false;
    }
    line.remove_prefix(head.size());
    if (!TakeText(line, csv, csv_.delimiter, member) || !line.starts_with(before)) {
        return false;
    }
    line.remove_prefix(before.size());
    std::string written;
    if (!TakeText(line, csv, csv_.delimiter, written) || !line.starts_with(behind)) {
        return false;
    }
    const std::optional<Verdict> known = VerdictOf(written);
    if (!known) {
        return false;
    }
    verdict = *known;
    line.remove_prefix(behind.size());
    std::string digits(line.substr(0, line.find(csv ? csv_.delimiter : ',')));
    std::replace(digits.begin(), digits.end(), ',', '.');
    ir = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), ir);
    return true;
}

}  // namespace kestrum
