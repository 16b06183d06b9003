#include "app/member_table.h"

#include "app/assign_run.h"
#include "app/cell_reader.h"
#include "app/field_hint.h"
#include "core/annexes.h"
#include "core/json_scan.h"
#include "core/load_combination.h"
#include "core/project_inputs.h"
#include "core/utf8_text.h"

#include <algorithm>

namespace kestrum {

namespace {

// A field is one line: line ends in a cell become blanks, in the text that `joined` keeps.
std::string_view OneLine(std::string_view cell, std::string& joined)
{
    if (cell.find_first_of("\r\n") == std::string_view::npos) {
        return cell;
    }
    joined.clear();
    for (const char c : cell) {
        joined.append(c == '\r' ? 0 : 1, c == '\n' ? ' ' : c);
    }
    return joined;
}

std::string Told(std::string_view name, std::string_view what)
{
    return std::string(name) + ": " + std::string(Trimmed(what));
}

// What the reader of a project file settles behind its last field, so that a member of a table is
// that of its file. Returns the reason of a refusal, or nothing.
std::string Settle(ProjectState& s, AssignRun& run)
{
    const Refused refused = run.Finish();
    ProjectInputs& in = InputsOf(s);
    ApplyAnnexMaterial(in, in.annexindex);
    ApplyAnnexLoads(in, in, in.annexindex);
    return refused.name.empty() ? refused.what : Told(refused.name, refused.what);
}

// Whether the name is that of no field; an array without such an element is a field.
bool IsOther(std::string_view name)
{
    return FindField(name.substr(0, name.find('['))) == nullptr && name != kSection &&
           name != kSteel && name != kAnnex;
}

// What is passed on may have been meant for a field.
void TellPassed(LineExtras& extras, const std::string& name, const std::string& hint)
{
    if (!hint.empty()) {
        extras.remarks.push_back({name, "is not a field and is passed through" + hint});
    }
}

// Behind the line.
void TellRemarks(LineExtras& extras, const AssignRun& run)
{
    const std::vector<Remark> remarks = run.Remarks();
    extras.remarks.insert(extras.remarks.end(), remarks.begin(), remarks.end());
}

// One JSON object whose values are no objects, unless they are kept.
class JsonLine {
public:
    JsonLine(AssignRun& run, std::string_view line, JsonKeys& keys, LineExtras* kept)
        : run_(run), rest_(line), keys_(keys), kept_(kept)
    {
    }

    std::string Apply()
    {
        Take('{', "an object in braces");
        if (fault_.empty() && Peek() != '}') {
            do {
                Member();
            } while (fault_.empty() && TakeIf(','));
        }
        Take('}', "a comma or the closing brace");
        if (fault_.empty() && Peek() != '\0') {
            fault_ = "text behind the object";
        }
        return refusal_.empty() ? fault_ : refusal_;
    }

private:
    char Peek()
    {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
        return rest_.empty() ? '\0' : rest_.front();
    }

    bool TakeIf(char c)
    {
        if (Peek() != c || rest_.empty()) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    void Take(char c, std::string_view expected)
    {
        if (fault_.empty() && !TakeIf(c)) {
            fault_ = "expected " + std::string(expected);
        }
    }

    void Member()
    {
        if (Peek() != '"') {
            fault_ = "expected a name in quotes";
            return;
        }
        Text(name_);
        Take(':', "a colon behind the name");
        if (!fault_.empty()) {
            return;
        }
        if (kept_ != nullptr && IsOther(name_)) {
            Keep();
        } else if (TakeIf('[')) {
            List();
        } else {
            Value(name_);
        }
    }

    // The value as it stands, whatever it is.
    void Keep()
    {
        Peek();
        const std::size_t length = JsonValueLength(rest_);
        if (length == 0) {
            fault_ = Told(name_, "expected a value");
            return;
        }
        const JsonKeys::Key& key = keys_.Find(name_);
        kept_->kept.push_back({name_, AsUtf8(rest_.substr(0, length)), true});
        TellPassed(*kept_, name_, key.hint);
        rest_.remove_prefix(length);
    }

    void List()
    {
        const Field* const field = FindField(name_);
        if (field == nullptr || field->shape == FieldShape::scalar) {
            fault_ = Told(name_, "no such list");
            return;
        }
        int index = field->first;
        if (Peek() != ']') {
            do {
                Value(name_ + "[" + std::to_string(index) + "]", index == 0);  // 0: self-weight
                ++index;
            } while (fault_.empty() && TakeIf(','));
        }
        Take(']', "a comma or the end of the list");
    }

    // A number, truth value, text or null, stored unless skipped.
    void Value(const std::string& name, bool skipped = false)
    {
        if (Peek() == '"') {
            Text(value_);
        } else {
            const std::size_t end = std::min(rest_.find_first_of(",]} \t"), rest_.size());
            value_ = rest_.substr(0, end);
            rest_.remove_prefix(end);
            const bool number =
                !value_.empty() && (value_[0] == '-' || (value_[0] >= '0' && value_[0] <= '9'));
            if (!number && value_ != "true" && value_ != "false" && value_ != "null") {
                fault_ = Told(name, "expected a number, a text, true, false or null");
            }
            skipped = skipped || value_ == "null";
        }
        if (!fault_.empty() || skipped) {
            return;
        }
        const JsonKeys::Key& key = keys_.Find(name);
        const std::string refusal =
            key.refusal.empty() ? run_.Assign(key.target, value_) : key.refusal;
        if (!refusal.empty()) {
            Refuse(Told(name, refusal));
        }
    }

    // What is to be kept may stand behind a value that is refused.
    void Refuse(std::string what)
    {
        std::string& first = kept_ != nullptr ? refusal_ : fault_;
        first = first.empty() ? std::move(what) : first;
    }

    void Text(std::string& text)
    {
        text.clear();
        rest_.remove_prefix(1);
        while (!rest_.empty() && rest_.front() != '"') {
            if (rest_.front() != '\\') {
                text.push_back(rest_.front());
                rest_.remove_prefix(1);
            } else if (!Escape(text)) {
                fault_ = "an escape that JSON does not have";
                return;
            }
        }
        if (rest_.empty()) {
            fault_ = kQuoteOpen;
            return;
        }
        rest_.remove_prefix(1);
    }

    bool Escape(std::string& text)
    {
        constexpr std::string_view kLetters = "\"\\/bfnrt", kMeant = "\"\\/\b\f\n\r\t";
        const char letter = rest_.size() > 1 ? rest_[1] : '\0';
        if (letter != 'u') {
            const std::size_t at = kLetters.find(letter);
            rest_.remove_prefix(std::min<std::size_t>(2, rest_.size()));
            text.append(at < kMeant.size() ? 1 : 0, at < kMeant.size() ? kMeant[at] : ' ');
            return at < kMeant.size();
        }
        unsigned code = 0;
        if (!Unit(code)) {
            return false;
        }
        if (code >= 0xD800 && code < 0xDC00) {  // the first half of a pair
            unsigned low = 0;
            if (!rest_.starts_with("\\u") || !Unit(low) || low < 0xDC00 || low >= 0xE000) {
                return false;
            }
            code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
        } else if (code >= 0xDC00 && code < 0xE000) {
            return false;
        }
        AppendUtf8(text, code);
        return true;
    }

    // \uXXXX
    bool Unit(unsigned& code)
    {
        constexpr std::size_t kLength = 6;
        if (rest_.size() < kLength) {
            return false;
        }
        for (const char c : rest_.substr(2, 4)) {
            const std::size_t digit = std::string_view("0123456789abcdefABCDEF").find(c);
            if (digit == std::string_view::npos) {
                return false;
            }
            code = code * 16 + static_cast<unsigned>(digit < 16 ? digit : digit - 6);
        }
        rest_.remove_prefix(kLength);
        return true;
    }

    AssignRun& run_;
    std::string_view rest_;
    JsonKeys& keys_;
    LineExtras* kept_;  // null: what is no field is refused
    std::string name_, value_;
    std::string fault_;    // where reading ends
    std::string refusal_;  // of the first value that cannot be taken
};

}  // namespace

std::string MemberColumns::TakeHeader(std::string_view line, bool keepothers)
{
    columns_.clear();
    if (line.starts_with("\xEF\xBB\xBF")) {
        line.remove_prefix(3);
    }
    if (Trimmed(line).empty()) {
        return "expected the names of the columns";
    }
    separator_ = SeparatorOf(line);
    CellReader cells(line, separator_);
    while (cells.Next()) {
        Column column{std::string(Trimmed(cells.cell())), {}, false, {}};
        const std::string refusal = FindTarget(column.name, column.target);
        column.other = !refusal.empty();
        const bool kept = keepothers && !column.name.empty() && IsOther(column.name);
        column.hint = kept ? FieldHint(column.name, FieldsMeant::inputs) : std::string{};
        const auto same = [&column](const Column& other) {
            const FieldRef &a = column.target.ref, &b = other.target.ref;
            const bool field =
                !column.other && !other.other && column.target.section == other.target.section;
            return other.name == column.name || (field && a.field == b.field && a.index == b.index);
        };
        if (column.other && !kept) {
            const bool may = !keepothers && IsOther(column.name);
            return Told("column \"" + column.name + "\"",
                        refusal + (may ? " (--keep-columns passes it through)" : ""));
        }
        if (std::any_of(columns_.begin(), columns_.end(), same)) {
            return Told(column.name, "is in two columns");
        }
        columns_.push_back(std::move(column));
    }
    return std::string(cells.fault());
}

std::string MemberColumns::Apply(const Library& library, ProjectState& s, std::string_view line,
                                 Manner manner, LineExtras* extras) const
{
    AssignRun run(library, s, manner);
    CellReader cells(line, separator_);
    std::size_t count = 0;
    std::string joined, refusal;
    for (; cells.Next(); ++count) {
        if (count == columns_.size()) {
            return "more cells than columns";
        }
        const Column& column = columns_[count];
        if (column.other) {
            if (extras != nullptr) {
                extras->kept.push_back({column.name, AsUtf8(cells.cell())});
                TellPassed(*extras, column.name, column.hint);
            }
            continue;
        }
        if (!refusal.empty()) {
            continue;  // for what is kept behind it
        }
        const bool text = column.target.ref.field->kind == FieldKind::text;
        const std::string_view cell = text ? cells.cell() : Trimmed(cells.cell());
        if (cell.empty()) {
            continue;
        }
        refusal = run.Assign(column.target, OneLine(cell, joined));
        if (!refusal.empty()) {
            refusal = Told(column.name, refusal);
        }
    }
    if (!refusal.empty()) {
        return refusal;
    }
    if (!cells.fault().empty()) {
        return std::string(cells.fault());
    }
    if (count < columns_.size()) {
        return "fewer cells than columns";
    }
    refusal = Settle(s, run);
    if (refusal.empty() && extras != nullptr) {
        TellRemarks(*extras, run);
    }
    return refusal;
}

std::vector<std::string> MemberColumns::Others() const
{
    std::vector<std::string> names;
    for (const Column& column : columns_) {
        if (column.other) {
            names.push_back(column.name);
        }
    }
    return names;
}

const JsonKeys::Key& JsonKeys::Find(const std::string& name)
{
    if (const auto at = keys_.find(name); at != keys_.end()) {
        return *at->second;
    }
    constexpr std::size_t kMost = 4096;
    auto key = std::make_unique<Key>();
    key->refusal = FindTarget(name, key->target);
    key->hint = IsOther(name) ? FieldHint(name, FieldsMeant::inputs) : std::string{};
    if (!key->refusal.empty() && keys_.size() >= kMost) {  // there is no end of those
        unknown_ = std::move(key);
        return *unknown_;
    }
    return *keys_.emplace(name, std::move(key)).first->second;
}

std::string ApplyJsonLine(const Library& library, ProjectState& s, std::string_view line,
                          Manner manner, JsonKeys& keys, bool keepothers, LineExtras& extras)
{
    AssignRun run(library, s, manner);
    std::string fault = JsonLine(run, line, keys, keepothers ? &extras : nullptr).Apply();
    fault = fault.empty() ? Settle(s, run) : fault;
    if (fault.empty()) {
        TellRemarks(extras, run);
    }
    return fault;
}

std::string ApplyJsonLine(const Library& library, ProjectState& s, std::string_view line,
                          Manner manner)
{
    JsonKeys keys;
    LineExtras extras;
    return ApplyJsonLine(library, s, line, manner, keys, false, extras);
}

}  // namespace kestrum
