#include "app/lightest.h"

#include "app/box_help.h"
#include "app/consequences.h"
#include "app/view_section.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "sections/family_table.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kestrum {

namespace {

struct KindName {
    Kind kind;
    std::string_view name;
};
constexpr std::array<KindName, 5> kKinds{{{Kind::i_rolled, "I and H sections"},
                                          {Kind::hollow, "hollow sections"},
                                          {Kind::channel, "channels"},
                                          {Kind::angle, "angles"},
                                          {Kind::plate, "stiffened plates"}}};

std::vector<int> FamiliesOf(Kind kind)
{
    std::vector<int> families;
    for (const FamilyTraits& family : Families()) {
        if (family.kind == kind && HasTable(family.id)) {
            families.push_back(family.id);
        }
    }
    return families;
}

const Inputs& InputsIn(const ProjectState& s)
{
    return s;
}

// A flat bar is as high as a plate is wide; what is left stays as the member has it, so that the
// grid does not outgrow a search.
std::string ProposalFor(const FamilyTraits& family, std::string_view box)
{
    if (family.kind == Kind::tube) {
        return "tubes";
    }
    if (box == "isth") {
        return family.kind == Kind::flat ? "20:300:10" : "200:1200:50";
    }
    if (box == "istb1") {
        return "100:500:50";
    }
    return box == "isttw" || box == "isttf" || box == "isttf1" ? "plates:6:40" : "";
}

// The boxes of the section itself; a form also has others, such as a share of the load.
std::vector<const Box*> DimensionsOf(int family)
{
    std::vector<const Box*> boxes = SectionBoxes(family);
    std::erase_if(boxes, [](const Box* box) { return !box->field.starts_with(box->form); });
    return boxes;
}

std::string MassText(const RatedCandidate& rated)
{
    return rated.name + ", " + FormatNum(rated.figures.mass, "0.0") + " kg/m";
}

}  // namespace

std::vector<SectionGroup> SectionGroups(const ProjectState& s)
{
    std::vector<SectionGroup> groups;
    const FamilyTraits* const family = FindFamily(s.family);
    if (family == nullptr || !HasTable(s.family)) {
        return groups;
    }
    groups.push_back({std::string(family->text), {family->id}});
    const auto add = [&](bool own) {
        for (const auto& [kind, name] : kKinds) {
            if ((kind == family->kind) == own) {
                groups.push_back({std::string(name), FamiliesOf(kind)});
            }
        }
    };
    add(true);
    add(false);
    return groups;
}

std::vector<TriedSizes> ProposedSizes(int family)
{
    const FamilyTraits& traits = TraitsOf(family);
    std::vector<TriedSizes> sizes;
    if (traits.kind != Kind::general && traits.input == SectionInput::dimensions) {
        for (const Box* const box : DimensionsOf(family)) {
            sizes.push_back({box, ProposalFor(traits, box->id)});
        }
    }
    return sizes;
}

LightestSearch::LightestSearch(const Session& session, LightestWish wish)
    : library_(session.library()), wish_(std::move(wish)), given_(AsGiven(session.state())),
      member_(given_)
{
    if (session.lateraloff() != 0) {
        member_->ltb = 1;
        FollowLateralTick(member_);
    }
    for (const int family : wish_.group.families) {
        pool_.Add(library_, std::to_string(family));
        for (const Box* const box : DimensionsOf(family)) {
            const auto tried = std::find_if(wish_.sizes.begin(), wish_.sizes.end(),
                                            [box](const TriedSizes& t) { return t.box == box; });
            const bool kept = tried == wish_.sizes.end() || tried->sizes.empty();
            const std::string field(box->field);
            const std::string refusal =
                kept ? pool_.Keep(field) : pool_.Range(field + "=" + tried->sizes);
            answer_.message = answer_.message.empty() ? refusal : answer_.message;
        }
    }
    if (answer_.message.empty()) {
        answer_.message = pool_.Finish(library_);
    }
    for (const TriedSizes& tried : wish_.sizes) {
        if (answer_.message.starts_with(tried.box->field)) {
            answer_.message.replace(0, tried.box->field.size(), HelpOf(*tried.box).label);
        }
    }
}

void LightestSearch::Run(std::function<bool()> stopped)
{
    if (!answer_.message.empty()) {
        return;
    }
    OptimizeWishes wishes;
    wishes.bases = wish_.both ? Bases::both : Bases::program;
    optimizer_.emplace(library_, pool_, wishes);
    optimizer_->stopped = std::move(stopped);
    constexpr bool kNotes = false;  // the window measures those of the section that is taken
    LoadRater rater(library_, member_, kNotes);
    std::array<SectionRater*, 1> group{&rater};
    answer_ = optimizer_->Choose(group);
}

bool LightestSearch::Concerns(const Session& session) const
{
    return InputsIn(given_) == InputsIn(AsGiven(session.state()));
}

bool LightestSearch::Take(Session& session)
{
    if (answer_.found.empty()) {
        session.surroundings().Warn(wish_.group.name + (wish_.both ? ", by both: " : ": ") +
                                    answer_.message);
        return false;
    }
    ProjectState& s = session.edit();
    s = AsGiven(s);
    optimizer_->Give(s, answer_.found.front());
    if (Traits(s).design.lateral != LateralBuckling::off) {
        s.ltb = member_->ltb;
        s.ltbk = member_->ltbk;
    }
    session.Calculate();
    given_ = AsGiven(session.state());
    return true;
}

std::string LightestSearch::Text() const
{
    if (answer_.found.empty()) {
        return {};
    }
    const Bases bases = optimizer_->wishes().bases;
    const RatedCandidate& found = answer_.found.front();
    std::string text = MassText(found) + ": " + WhyText(found, bases);
    text += answer_.lighter
                ? ". " + MassText(*answer_.lighter) + ", fails: " + WhyText(*answer_.lighter, bases)
                : "; none is lighter";
    return text;
}

}  // namespace kestrum
