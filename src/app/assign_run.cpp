#include "app/assign_run.h"

#include "app/box_help.h"
#include "app/without_effect.h"
#include "core/material.h"
#include "core/project_state.h"
#include "sections/families.h"
#include "sections/section_names.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestrum {

namespace {

// Whether the fields around it may turn the value into a good one.
bool MayFitLater(const AssignTarget& target)
{
    return target.box != nullptr && target.box->rule != BoxRule::plain;
}

// "(a number is expected, in m)"
std::string Expected(const AssignTarget& target)
{
    const std::string_view unit = target.box != nullptr ? HelpOf(*target.box).unit : "";
    return "(a number is expected" + (unit.empty() ? "" : ", in " + std::string(unit)) + ")";
}

bool IsFactorOfCase(int bucklingcase, float factor)
{
    return bucklingcase >= kOwnFactor || bucklingcase < 1 || BucklingFactor(bucklingcase) == factor;
}

}  // namespace

AssignRun::AssignRun(const Library& library, ProjectState& s, Manner manner)
    : library_(library), s_(s), manner_(manner), fyk_(s.fyk), fykindex_(s.fykindex),
      supportcase_(s.supportcase), bucklingcasey_(s.bucklingcasey), bucklingcasez_(s.bucklingcasez),
      ltb_(s.ltb), webstiff_(s.webstiff)
{
}

std::string AssignRun::Assign(const AssignTarget& target, std::string_view text)
{
    set_ |= target.tie;
    if (target.section) {  // which of two sections of one name may hang on the family
        section_ = text;
        return {};
    }
    std::string refusal = AssignTo(library_, s_, target, text, manner_.how);
    if (refusal == kMismatch) {
        return refusal + Expected(target);
    }
    if (!refusal.empty() && manner_.how == Assignment::checked && MayFitLater(target)) {
        waiting_.push_back({target, std::string(text), std::exchange(refusal, {})});
    } else if (refusal.empty()) {
        Note(target, text);
    }
    return refusal;
}

// Keeps what the value says about the member.
void AssignRun::Note(const AssignTarget& target, std::string_view text)
{
    const FieldRef& ref = target.ref;
    if (manner_.tensionpositive && IsAxial(*ref.field)) {
        auto& force = *static_cast<float*>(ref.field->locate(s_, ref.index));
        force = 0 - force;
    }
    if (target.idle != 0 || target.usual != 0) {
        const bool number = ref.field->kind != FieldKind::text;
        const double given = number ? NumberOf(s_, *ref.field, ref.index) : 0;
        watched_.push_back({ref, target.idle, target.usual, given});
    }
    if (target.owner.any() && claimed_ < claims_.size()) {
        const auto same = [&](const Claim& claim) { return claim.owner == target.owner; };
        auto* const end = claims_.begin() + claimed_;
        if (std::find_if(claims_.begin(), end, same) == end) {
            claims_[claimed_++] = {target.owner, ref};
        }
    }
    if ((target.tie & kTieFamily) != 0 && SeriesOf(s_) != 0) {
        const std::vector<NamedFamily> named = FamiliesOfName(text);
        set_ |= named.size() == 1 && named[0].series != 0 ? kTieSeries : 0U;
    }
    if (target.load != LoadKind::none && NumberOf(s_, *ref.field, ref.index) != 0) {
        std::optional<FieldRef>& first = target.load == LoadKind::load       ? load_
                                         : target.load == LoadKind::endforce ? endforce_
                                                                             : selfweight_;
        first = first ? first : ref;
    }
}

// The section by its name, behind the family with which it may share it.
Refused AssignRun::TakeSection()
{
    if (!section_) {
        return {};
    }
    std::string what = AssignSection(library_, s_, *section_, Set(kTieFamily));
    if (!what.empty()) {
        return {std::string(kSection), *section_, std::move(what)};
    }
    set_ |= kTieFamily | kTieSeries;
    return {};
}

// Family and series that the given dimensions and rows belong to.
Refused AssignRun::FitSection()
{
    for (std::size_t i = 0; i < claimed_; ++i) {
        const Owner& owner = claims_[i].owner;
        if (owner.one() && owner.families[0] > 0 && !Set(kTieFamily)) {
            s_.family = owner.families[0];
            set_ |= kTieFamily;
        }
        if (owner.series != 0 && s_.family == owner.families[0] && !Set(kTieSeries)) {
            s_.*Traits(s_).series = owner.series;
            set_ |= kTieSeries;
        }
    }
    for (std::size_t i = 0; i < claimed_; ++i) {
        const Claim& claim = claims_[i];
        if (!claim.owner.Has(s_)) {
            const Owner chosen{{s_.family, s_.family}, SeriesOf(s_)};
            return {NameOf(claim.field),
                    {},
                    "of family " + OwnerName(claim.owner) + ", the family is " + OwnerName(chosen)};
        }
    }
    return {};
}

// Loads along the member or given end forces, by what is given.
Refused AssignRun::FitMode()
{
    const std::optional<FieldRef> load = load_ ? load_ : selfweight_;
    if (endforce_ && load_ && !Set(kTieLoadMode)) {
        return {NameOf(*endforce_),
                {},
                "an end force, " + NameOf(*load_) +
                    " is a load; a member has one or the other, or loadmode chooses"};
    }
    if (!Set(kTieLoadMode) && (endforce_ || load_)) {
        s_.loadmode = endforce_ ? i16{0} : i16{1};
    }
    if (s_.loadmode == 1 && endforce_) {
        return {NameOf(*endforce_), {}, "an end force, the member has loads (loadmode 1)"};
    }
    const bool given = Set(kTieLoadMode) || endforce_.has_value();
    if (s_.loadmode == 0 && load && given) {
        return {NameOf(*load), {}, "a load, the member has given end forces (loadmode 0)"};
    }
    return {};
}

std::vector<Remark> AssignRun::Remarks() const
{
    std::vector<Remark> remarks;
    for (const Watched& watched : watched_) {
        const FieldRef& ref = watched.field;
        std::string what;
        if (manner_.how == Assignment::checked) {
            what = WhyIdle(library_, s_, ref, watched.idle);
        } else if (NumberOf(s_, *ref.field, ref.index) != watched.given) {
            what = OverruledBy(library_, s_, ref.field->name);
        }
        if (!what.empty()) {
            remarks.push_back({NameOf(ref), "without effect, " + what});
        } else if (what = UnitDoubt(s_, ref, watched.usual); !what.empty()) {
            remarks.push_back({NameOf(ref), what});
        }
    }
    return remarks;
}

// Takes up what waits until nothing more fits.
Refused AssignRun::TakeWaiting()
{
    for (std::size_t before = waiting_.size() + 1; waiting_.size() < before;) {
        before = waiting_.size();
        std::erase_if(waiting_, [this](Waiting& each) {
            each.what = AssignTo(library_, s_, each.target, each.text, manner_.how);
            if (each.what.empty()) {
                Note(each.target, each.text);
            }
            return each.what.empty();
        });
    }
    if (waiting_.empty()) {
        return {};
    }
    Waiting& first = waiting_.front();
    return {NameOf(first.target.ref), std::move(first.text), std::move(first.what)};
}

// When the run has changed the steel, the strength becomes that of the grade, so that the annex
// takes the shear area factor from the steel in force.
void AssignRun::FollowGrade()
{
    if (s_.fykindex != fykindex_ || s_.fyk != fyk_) {
        SetMaterial(library_, s_, s_, s_.fykindex);
    }
}

// One axis: the case brings its factor, an own factor its case. The case of the own factor brings
// "no buckling", but only where it is new.
void AssignRun::BringLength(Axis axis)
{
    const bool y = axis == Axis::y;
    const i16 chosen = y ? s_.bucklingcasey : s_.bucklingcasez;
    const i16 before = y ? bucklingcasey_ : bucklingcasez_;
    const bool case_set = Set(y ? kTieCaseY : kTieCaseZ), factor_set = Set(y ? kTieLy : kTieLz);
    if (case_set && !factor_set && (chosen != kOwnFactor || chosen != before)) {
        FollowBucklingCase(s_, axis);
    }
    if (factor_set && !case_set && !IsFactorOfCase(chosen, y ? s_.ly : s_.lz)) {
        (y ? s_.bucklingcasey : s_.bucklingcasez) = kOwnFactor;
    }
}

void AssignRun::BringLengths()
{
    if (Set(kTieSupport) && s_.supportcase != supportcase_) {
        const i16 casey = s_.bucklingcasey, casez = s_.bucklingcasez;
        const float ly = s_.ly, lz = s_.lz;
        FollowSupport(s_);
        if (Set(kTieCaseY) || Set(kTieLy)) {
            s_.bucklingcasey = Set(kTieCaseY) ? casey : s_.bucklingcasey;
            s_.ly = ly;
        }
        if (Set(kTieCaseZ) || Set(kTieLz)) {
            s_.bucklingcasez = Set(kTieCaseZ) ? casez : s_.bucklingcasez;
            s_.lz = lz;
        }
    }
    BringLength(Axis::y);
    BringLength(Axis::z);
}

void AssignRun::BringLateral()
{
    const float ltbk = s_.ltbk;
    const i16 restraints = s_.restraints;
    if (Set(kTieLtb) && (s_.ltb == 0 || ltb_ == 0 || ltbk <= kBucklingOff)) {
        FollowLateralTick(s_);
    } else if (Set(kTieLtbCase) && s_.ltb != 0) {
        FollowLateralCase(s_);
    }
    s_.ltbk = Set(kTieLtbK) ? ltbk : s_.ltbk;
    s_.restraints = Set(kTieRestraints) ? restraints : s_.restraints;
}

void AssignRun::BringStiffeners()
{
    if (!Set(kTieWebStiff) || (s_.webstiff != 0 && webstiff_ != 0)) {
        return;
    }
    const float webstiffa = s_.webstiffa;
    const i16 endstiff = s_.endstiff;
    FollowWebStiffeners(s_);
    s_.webstiffa = Set(kTieWebStiffA) ? webstiffa : s_.webstiffa;
    s_.endstiff = Set(kTieEndStiff) ? endstiff : s_.endstiff;
}

void AssignRun::BringAlong()
{
    BringLengths();
    BringLateral();
    BringStiffeners();
}

std::string Refused::Text() const
{
    return name + (text.empty() ? "" : "=" + text) + (name.empty() ? "" : ": ") + what;
}

Refused AssignRun::Finish()
{
    Refused refused = TakeSection();
    if (refused.empty()) {
        refused = TakeWaiting();
    }
    if (!refused.empty()) {
        return refused;
    }
    FollowGrade();
    if (manner_.how == Assignment::raw) {
        return {};
    }
    refused = FitSection();
    if (refused.empty()) {
        refused = FitMode();
    }
    if (refused.empty()) {
        BringAlong();
        refused.what = MisplacedLoad(s_);
    }
    return refused;
}

}  // namespace kestrum
