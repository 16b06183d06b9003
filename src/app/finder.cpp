#include "app/finder.h"

#include "app/assign_run.h"
#include "app/box_help.h"
#include "app/field_hint.h"
#include "app/locale_text.h"
#include "app/section_list.h"
#include "core/field_table.h"
#include "core/held_state.h"
#include "core/parse_num.h"
#include "core/project_inputs.h"
#include "sections/family_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace kestrum {

namespace {

constexpr std::size_t kMostSections = 8, kMostBoxes = 12;

// What an input is called beside its label and its meaning.
struct Alias {
    std::string_view field, words;
};
constexpr std::array<Alias, 8> kAliases{{{"ly", "k ky buckling length factor"},
                                         {"lz", "k kz buckling length factor"},
                                         {"l", "span"},
                                         {"qload", "uniform line load"},
                                         {"nload", "axial normal force"},
                                         {"fyk", "steel yield"},
                                         {"webstiffa", "stiffener"},
                                         {"pm", "point load"}}};

std::string Lower(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), Small);
    return lower;
}

std::vector<std::string> WordsOf(std::string_view text)
{
    std::vector<std::string> words;
    std::string word;
    for (const char c : Lower(text) + " ") {
        if (c != ' ' && c != ',') {
            word += c;
        } else if (!word.empty()) {
            words.push_back(std::exchange(word, {}));
        }
    }
    return words;
}

// How well the words describe the text: whole words count double. 0 when one is missing.
int Score(const std::string& text, const std::vector<std::string>& words)
{
    const std::vector<std::string> whole = WordsOf(text);
    const std::string lower = Lower(text);
    int score = 0;
    for (const std::string& word : words) {
        if (lower.find(word) == std::string::npos) {
            return 0;
        }
        score += std::find(whole.begin(), whole.end(), word) != whole.end() ? 2 : 1;
    }
    return score;
}

// A window that the project in hand can have.
bool Belongs(const ProjectState& s, const Box& box)
{
    const bool ofsection =
        std::any_of(Families().begin(), Families().end(),
                    [&](const FamilyTraits& family) { return family.form == box.form; });
    const FamilyTraits* const family = FindFamily(InputsOf(s).family);
    return !ofsection || (family != nullptr && family->form == box.form);
}

std::string NamesOf(const Box& box)
{
    const BoxHelp& help = HelpOf(box);
    std::string text =
        std::string(help.meaning) + " " + std::string(help.label) + " " + std::string(box.field);
    for (const Alias& alias : kAliases) {
        text += alias.field == box.field ? " " + std::string(alias.words) : "";
    }
    return text;
}

std::string Shortest(float value)
{
    std::array<char, 40> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

void AddBoxes(const Session& session, const std::vector<std::string>& words,
              const std::optional<float>& value, std::vector<Finding>& findings)
{
    std::vector<std::pair<int, Finding>> found;
    for (const Box& box : InputBoxes()) {
        const int score = Belongs(session.state(), box) ? Score(NamesOf(box), words) : 0;
        if (score == 0 || (box.form == "setup" && box.field == "fyk")) {
            continue;  // the strength stands in the main window as well
        }
        const Field& field = *FindField(box.field);
        Finding finding{.kind = value ? Finding::Kind::value : Finding::Kind::box, .box = &box};
        finding.row = field.shape == FieldShape::array ? 1 : 0;
        finding.name = IndexedName(field, finding.row);
        finding.text =
            std::string(HelpOf(box).meaning) + ": " + BoxText(session.state(), box, finding.row);
        if (value) {
            finding.value = Shortest(*value);
            finding.text += " to " + finding.value;
        }
        if (!HelpOf(box).unit.empty()) {
            finding.text += " " + std::string(HelpOf(box).unit);
        }
        finding.text = ForLocale(finding.text, session.decimalcomma());
        found.emplace_back(score, std::move(finding));
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    found.resize(std::min(found.size(), kMostBoxes));
    for (auto& [score, finding] : found) {
        findings.push_back(std::move(finding));
    }
}

void AddSections(const Session& session, std::string_view typed, std::vector<Finding>& findings)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < kTables; ++i) {
        const auto table = static_cast<Table>(i);
        for (int row = 0; row < RowCount(table); ++row) {
            std::string name = RowName(session.library(), table, row);
            if (Finds(typed, name)) {
                names.push_back(std::move(name));
            }
        }
    }
    std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return a.size() < b.size();  // the nearest to what was typed
    });
    names.resize(std::min(names.size(), kMostSections));
    for (std::string& name : names) {
        Finding finding{.kind = Finding::Kind::section, .name = name};
        finding.text = "Section " + ForLocale(std::move(name), session.decimalcomma());
        findings.push_back(std::move(finding));
    }
}

}  // namespace

bool HasWords(std::string_view text, std::string_view words)
{
    return Score(std::string(text), WordsOf(words)) > 0;
}

std::vector<Finding> FindByWords(const Session& session, std::string_view typed)
{
    std::vector<Finding> findings;
    const std::size_t end = typed.find_last_not_of(' ');
    if (end == std::string_view::npos) {
        return findings;
    }
    typed = typed.substr(0, end + 1);
    const std::size_t blank = typed.find_last_of(' ');
    if (blank != std::string_view::npos) {
        const std::string_view last = typed.substr(blank + 1);
        const bool digits = last.find_first_of("0123456789") != std::string_view::npos &&
                            last.find_first_not_of("+-.,0123456789eE") == std::string_view::npos;
        const std::optional<float> value =
            digits ? ParseNum(last, session.decimalcomma()) : std::nullopt;
        if (value) {
            AddBoxes(session, WordsOf(typed.substr(0, blank)), value, findings);
        }
    }
    AddSections(session, typed, findings);
    AddBoxes(session, WordsOf(typed), std::nullopt, findings);
    return findings;
}

bool Take(Session& session, const Finding& finding)
{
    HeldState s = session.state();
    std::string refusal;
    if (finding.kind == Finding::Kind::section) {
        refusal = AssignSection(session.library(), s, finding.name, false);
    } else if (finding.kind == Finding::Kind::value) {
        AssignTarget target;
        refusal = FindTarget(finding.name, target);
        AssignRun run(session.library(), s, Assignment::checked);
        if (refusal.empty()) {
            refusal = run.Assign(target, finding.value);
        }
        if (refusal.empty()) {
            refusal = run.Finish().what;
        }
    } else {
        return false;
    }
    if (!refusal.empty()) {
        session.surroundings().Warn(
            ForLocale(finding.text + ": " + refusal, session.decimalcomma()));
        return false;
    }
    session.Replace(s);
    session.Calculate();
    return true;
}

}  // namespace kestrum
