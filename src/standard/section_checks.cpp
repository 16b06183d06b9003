#include "standard/section_checks.h"

#include "standard/section_place.h"
#include "standard/units.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

SectionPlace PlaceOf(const SectionMember& member, const Classes& classes, const ForcesAt& f,
                     const Basis& basis, SectionTerms* told = nullptr)
{
    return {member, member.section, member.section.q, classes, classes.all, f, basis, told};
}

// All checks of the place; the length of the member in m.
Ratios RatiosOf(SectionPlace at, double length)
{
    CheckAxial(at);
    CheckShear(at);
    if (at.told != nullptr) {
        at.told->classes = at.classes;
        at.told->along_z = at.along_z;
        at.told->along_y = at.along_y;
        at.told->shear = ShearTermsAlongZ(at.p, at.member.shear, at.f.n, at.f.my, at.basis);
        at.told->flange_areas = FlangeAreasUnder(at.p, at.f.n, at.f.my);
        at.told->rigid_end_post = at.member.shear.rigid_end_post;
        at.told->flange_load = std::abs(at.member.flange_load);
        at.told->rho = at.rho;
    }
    if (at.q.Angle()) {
        CheckAngleStresses(at);
        return at.ratios;
    }
    CheckMoments(at);
    CheckBendingAndAxial(at);
    CheckLoadedFlange(at);
    CheckWebBending(at, length);
    return at.ratios;
}

// The largest ratio of each check, with the piece and the place.
struct Peak {
    double ir = -1;
    std::string_view clause{};
    std::size_t piece = 0;
    double x = 0;
};

class Walk {
public:
    Walk(const SectionMember& member, const CombinedLines& lines, const Classes& classes,
         const Basis& basis)
        : member_(member), lines_(lines), classes_(classes), basis_(basis)
    {
    }
    void AtProgramPlaces();
    void Everywhere();
    void Refine(const Checks& checks);
    double LargestAt(std::size_t piece, double x) const;
    const std::array<Peak, kSectionChecks>& Peaks() const { return peaks_; }

private:
    Ratios RatiosAt(std::size_t piece, double x) const;
    void Take(std::size_t piece, double x);
    void TakeExtremes(const LineExtremes& extremes);
    void Narrow(std::size_t id, std::size_t piece, double lo, double hi);

    const SectionMember& member_;
    const CombinedLines& lines_;
    Classes classes_;
    const Basis& basis_;
    std::array<Peak, kSectionChecks> peaks_{};
};

constexpr int kEvenSections = 50;

ForcesAt ForcesOf(const CombinedLines& lines, std::size_t piece, double x)
{
    return {x,
            lines.Axial(piece, x) * kN,
            lines.Moment(Axis::y, piece, x) * kNmm,
            lines.Moment(Axis::z, piece, x) * kNmm,
            lines.Shear(Axis::y, piece, x) * kN,
            lines.Shear(Axis::z, piece, x) * kN};
}

Ratios Walk::RatiosAt(std::size_t piece, double x) const
{
    return RatiosOf(PlaceOf(member_, classes_, ForcesOf(lines_, piece, x), basis_),
                    lines_.grid.Length());
}

double Walk::LargestAt(std::size_t piece, double x) const
{
    double largest = 0;
    for (const Ratio& ratio : RatiosAt(piece, x)) {
        largest = std::max(largest, OrInfinite(ratio.ir));
    }
    return largest;
}

void Walk::Take(std::size_t piece, double x)
{
    const Ratios ratios = RatiosAt(piece, x);
    for (std::size_t i = 0; i < kSectionChecks; ++i) {
        const double ir = OrInfinite(ratios[i].ir);
        if (ir > peaks_[i].ir) {
            peaks_[i] = {ir, ratios[i].clause, piece, x};
        }
    }
}

void Walk::TakeExtremes(const LineExtremes& extremes)
{
    Take(extremes.most.piece, extremes.most.x);
    Take(extremes.least.piece, extremes.least.x);
}

// D109: the program's check sections.
void Walk::AtProgramPlaces()
{
    const double length = lines_.grid.Length();
    for (const float place : member_.places) {
        const double x = std::min(place * length, length);
        Take(PieceAt(lines_.grid, x), x);
    }
}

void Walk::Everywhere()
{
    const double length = lines_.grid.Length();
    for (std::size_t i = 0; i < lines_.grid.pieces; ++i) {
        Take(i, lines_.grid.x[i]);
        Take(i, lines_.grid.x[i + 1]);
    }
    for (int k = 1; k < kEvenSections; ++k) {
        const double x = length * k / kEvenSections;
        Take(PieceAt(lines_.grid, x), x);
    }
    for (const Axis axis : {Axis::y, Axis::z}) {
        TakeExtremes(ExtremesOfMoment(lines_.grid, lines_.Of(axis).m));
        TakeExtremes(ExtremesOfShear(lines_.grid, lines_.Of(axis).m));
    }
}

// Golden section between the neighbours of the place found.
void Walk::Narrow(std::size_t id, std::size_t piece, double lo, double hi)
{
    constexpr double kGolden = 0.6180339887498949;
    constexpr int kSteps = 22;
    double a = hi - kGolden * (hi - lo);
    double b = lo + kGolden * (hi - lo);
    double at_a = RatiosAt(piece, a)[id].ir;
    double at_b = RatiosAt(piece, b)[id].ir;
    for (int step = 0; step < kSteps; ++step) {
        if (at_a > at_b) {
            hi = b;
            b = a;
            at_b = at_a;
            a = hi - kGolden * (hi - lo);
            at_a = RatiosAt(piece, a)[id].ir;
        } else {
            lo = a;
            a = b;
            at_a = at_b;
            b = lo + kGolden * (hi - lo);
            at_b = RatiosAt(piece, b)[id].ir;
        }
    }
    Take(piece, 0.5 * (lo + hi));
}

// Checks of several forces may peak between: those of one line have their exact extremes. Between
// two places a ratio rises by a few percent at most, so that one far below the worst of the other
// combinations stays there.
void Walk::Refine(const Checks& checks)
{
    constexpr double kFarBelow = 0.8;
    const double step = lines_.grid.Length() / kEvenSections;
    for (const CheckId id : {CheckId::section_my, CheckId::section_mz, CheckId::section_vz,
                             CheckId::section_nm, CheckId::section_mv}) {
        const auto i = static_cast<std::size_t>(id);
        if (peaks_[i].ir <= 0 || peaks_[i].ir < kFarBelow * checks[id].ir) {
            continue;
        }
        const std::size_t piece = peaks_[i].piece;
        const double lo = std::max(lines_.grid.x[piece], peaks_[i].x - step);
        const double hi = std::min(lines_.grid.x[piece + 1], peaks_[i].x + step);
        Narrow(i, piece, lo, hi);
    }
}

}  // namespace

void CheckSections(const SectionMember& member, const CombinedLines& lines, const Classes& classes,
                   const LoadCase& load_case, Checks& checks, const Basis& basis)
{
    Walk walk(member, lines, classes, basis);
    if (basis.departs(Dev::d109)) {
        walk.Everywhere();
        walk.Refine(checks);
    } else {
        walk.AtProgramPlaces();
    }
    for (std::size_t i = 0; i < kSectionChecks; ++i) {
        const Peak& peak = walk.Peaks()[i];
        if (peak.ir >= 0) {
            checks.Keep(static_cast<CheckId>(i), peak.ir, peak.clause, peak.x / lines.grid.Length(),
                        load_case);
        }
    }
}

SectionTerms SectionTermsAt(const SectionMember& member, const CombinedLines& lines,
                            const Classes& classes, const Basis& basis, double x, CheckId id)
{
    constexpr double kSame = 1e-9;  // of the length
    const double length = lines.grid.Length();
    SectionTerms worst{};
    double largest = -1;
    for (std::size_t piece = 0; piece < lines.grid.pieces; ++piece) {
        if (lines.grid.x[piece] > x + kSame * length ||
            lines.grid.x[piece + 1] < x - kSame * length) {
            continue;
        }
        const ForcesAt f = ForcesOf(lines, piece, x);
        SectionTerms terms{};
        terms.n = f.n;
        terms.my = f.my;
        terms.mz = f.mz;
        terms.vz = f.vz;
        terms.vy = f.vy;
        const Ratios ratios = RatiosOf(PlaceOf(member, classes, f, basis, &terms), length);
        const double ir = ratios[static_cast<std::size_t>(id)].ir;
        if (ir > largest) {
            largest = ir;
            worst = terms;
        }
    }
    return worst;
}

void KeepLargestAlong(const SectionMember& member, const CombinedLines& lines,
                      const Classes& classes, const Basis& basis, std::span<double> largest)
{
    const Walk walk(member, lines, classes, basis);
    const LineGrid& grid = lines.grid;
    const auto last = static_cast<double>(largest.size() - 1);
    for (std::size_t j = 0; j < largest.size(); ++j) {
        const double x = grid.Length() * static_cast<double>(j) / last;
        for (std::size_t piece = 0; piece < grid.pieces; ++piece) {
            if (grid.x[piece] <= x && x <= grid.x[piece + 1]) {
                largest[j] = std::max(largest[j], walk.LargestAt(piece, x));
            }
        }
    }
}

}  // namespace kestrum::standard
