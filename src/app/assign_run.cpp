#include "app/assign_run.h"

#include "app/box_help.h"
#include "core/material.h"

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

AssignRun::AssignRun(const Library& library, ProjectState& s, Assignment how)
    : library_(library), s_(s), how_(how), fyk_(s.fyk), fykindex_(s.fykindex),
      supportcase_(s.supportcase), bucklingcasey_(s.bucklingcasey), bucklingcasez_(s.bucklingcasez),
      ltb_(s.ltb), webstiff_(s.webstiff)
{
}

std::string AssignRun::Assign(const AssignTarget& target, std::string_view text)
{
    set_ |= target.tie;
    std::string refusal = AssignTo(library_, s_, target, text, how_);
    if (refusal == kMismatch) {
        return refusal + Expected(target);
    }
    if (!refusal.empty() && how_ == Assignment::checked && MayFitLater(target)) {
        waiting_.push_back({target, std::string(text), std::exchange(refusal, {})});
    }
    return refusal;
}

// Takes up what waits until nothing more fits.
Refused AssignRun::TakeWaiting()
{
    for (std::size_t before = waiting_.size() + 1; waiting_.size() < before;) {
        before = waiting_.size();
        std::erase_if(waiting_, [this](const Waiting& each) {
            return AssignTo(library_, s_, each.target, each.text, how_).empty();
        });
    }
    if (waiting_.empty()) {
        return {};
    }
    Waiting& first = waiting_.front();
    return {IndexedName(*first.target.ref.field, first.target.ref.index), std::move(first.text),
            std::move(first.what)};
}

// When the run has changed the steel, the strength becomes that of the grade, so that the annex
// takes the shear area factor from the steel in force.
void AssignRun::FollowGrade()
{
    if (s_.fykindex != fykindex_ || s_.fyk != fyk_) {
        SetMaterial(library_, s_, s_.fykindex);
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

Refused AssignRun::Finish()
{
    Refused refused = TakeWaiting();
    if (!refused.empty()) {
        return refused;
    }
    FollowGrade();
    if (how_ == Assignment::checked) {
        BringAlong();
        refused.what = MisplacedLoad(s_);
    }
    return refused;
}

}  // namespace kestrum
