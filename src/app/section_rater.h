#pragma once

// A member asked about one section after the other: under its own loads, or under cases of internal
// forces.

#include "app/member_cases.h"
#include "core/held_state.h"
#include "core/library.h"

#include <cstddef>
#include <optional>
#include <span>

namespace kestrum {

struct SectionFigures {
    double mass = 0;                   // kg/m
    double h = 0, b = 0;               // mm, over all
    double surface = 0;                // m2/m
    double area = 0;                   // mm2
    std::optional<double> price = {};  // for a metre
};

// The figures of the section that the record has; nothing where it has no properties.
std::optional<SectionFigures> FiguresOf(const Library& library, const ProjectState& s);

// Whether each basis asked says "within limits" with no ratio above max_ir.
bool Passes(const MemberAnswer& answer, Bases bases, double max_ir);

// The larger ratio of the bases asked; infinite where one has none.
double RatioIn(const MemberAnswer& answer, Bases bases);

// A member asked about sections. Not for two threads at once.
class SectionRater {
public:
    // `notes`: which deviations act in what passes is measured, which takes longer than the search
    // among a few sections.
    explicit SectionRater(const ProjectState& member, bool notes = true)
        : member_(member), notes_(notes)
    {
    }
    virtual ~SectionRater() = default;

    // As read or set, with the section that it has now.
    const ProjectState& member() const { return member_; }

    // False where no section with these figures, whatever its shape, has a ratio of `limit` or
    // less; true says nothing. `strength` is fy/gammaM0, MPa.
    virtual bool MayPass(const SectionFigures& /*figures*/, double /*strength*/,
                         double /*limit*/) const
    {
        return true;
    }

    // `s` is the member with a section; what it holds afterwards is nobody's. `thorough`: all that
    // can be said; else the answer may end with the first case or basis in which the section fails
    // or exceeds max_ir.
    virtual MemberAnswer Rate(ProjectState& s, Bases bases, double max_ir, bool thorough) = 0;

protected:
    SectionRater(const SectionRater&) = default;
    SectionRater& operator=(const SectionRater&) = default;
    bool notes() const { return notes_; }

private:
    HeldState member_;
    bool notes_;
};

// Under its own loads or end forces.
class LoadRater : public SectionRater {
public:
    LoadRater(const Library& library, const ProjectState& member, bool notes = true)
        : SectionRater(member, notes), library_(library)
    {
    }
    MemberAnswer Rate(ProjectState& s, Bases bases, double max_ir, bool thorough) override;

private:
    const Library& library_;
};

// Under cases of internal forces; its own loads are put aside.
class CaseRater : public SectionRater {
public:
    // The cases must last; their stations are put in order.
    CaseRater(const Library& library, const ProjectState& member, std::span<CaseRows> cases,
              bool notes = true);
    bool MayPass(const SectionFigures& figures, double strength, double limit) const override;
    MemberAnswer Rate(ProjectState& s, Bases bases, double max_ir, bool thorough) override;

private:
    bool Run(MemberCases& member, const ProjectState& s, Bases bases, double max_ir, bool thorough,
             MemberAnswer& answer);

    std::span<CaseRows> cases_;
    MemberCases program_, standard_;
    double n_ = 0, my_ = 0, mz_ = 0;  // largest sizes of all stations, N and Nmm
    std::size_t first_ = 0;           // the case in which the last section failed
};

}  // namespace kestrum
