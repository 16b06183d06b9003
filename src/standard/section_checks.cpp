#include "standard/section_checks.h"

#include "clauses/bending.h"
#include "clauses/shear.h"
#include "standard/plates.h"
#include "standard/program_class.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

constexpr double kN = 1e3;    // of kN
constexpr double kNmm = 1e6;  // of kNm

struct Ratio {
    double ir = -1;  // below 0: no such check here
    std::string_view clause{};
};
using Ratios = std::array<Ratio, kSectionChecks>;

struct ForcesAt {
    double x;  // m
    double n, my, mz, vz, vy;
};

// Without a force nothing is used, even of a resistance that shear has taken away.
double Used(double force, double resistance)
{
    return force == 0 ? 0 : std::abs(force) / resistance;
}

class Place {
public:
    Place(const SectionMember& member, const Classes& classes, const ForcesAt& f,
          const Basis& basis, SectionTerms* told = nullptr)
        : member_(member), p_(member.section), q_(member.section.q), classes_(classes),
          cls_(classes.all), f_(f), basis_(basis), told_(told)
    {
    }
    Ratios All(double length);

private:
    Ratio& At(CheckId id) { return ratios_[static_cast<std::size_t>(id)]; }
    void Axial();
    void Shear();
    void Moments();
    void Combined();
    bool BendsAboutOneAxis() const;
    bool HasFormula() const;
    bool PlasticFormula(int cls) const;
    struct ClassesHere {
        int n, my, mz;
    };
    ClassesHere CombinedClasses() const;
    void HoldToSingleMoments(ReducedResistance& r, const ClassesHere& cls) const;
    bool Shifted() const;
    void Linear(const ReducedResistance& r, int cls);
    void Plastic(const ReducedResistance& r, double n);
    struct Both {
        double y = 0, z = 0;
    };
    void TellPlastic(SectionTerms::Rule rule, const ReducedResistance& r, double n,
                     const Both& webs, const Both& moments,
                     const clauses::BiaxialExponents& exponents);
    double WithEachMoment(double sum, double mny, double mnz) const;
    void PlasticI(const ReducedResistance& r, double n);
    void PlasticClosed(const ReducedResistance& r, double n);
    void WebAndMoment(double length);
    bool NearRigidEndPost(double length) const;
    double LinearSum(const ReducedResistance& r) const;
    void LoadedFlange();
    void AngleMoments();

    const SectionMember& member_;
    const PreparedSection& p_;
    const StandardSection& q_;
    Classes classes_;
    int cls_;
    ForcesAt f_;
    const Basis& basis_;
    SectionTerms* told_;  // takes what stands behind the ratios, where somebody asks
    ShearResistance z_{}, y_{};
    ShearShares rho_{};
    Ratios ratios_{};
};

void Place::Axial()
{
    if (f_.n > 0) {
        const double area = CompressedArea(p_, p_.class_n);
        At(CheckId::section_n) = {f_.n * q_.gammam0 / (area * q_.fy), "6.2.4"};
        if (told_ != nullptr) {
            told_->area = area;
        }
    } else if (f_.n < 0) {
        At(CheckId::section_n) = {-f_.n * q_.gammam0 / (q_.a * q_.fy), "6.2.3"};
    }
}

void Place::Shear()
{
    double vz = std::abs(f_.vz);
    double vy = std::abs(f_.vy);
    if (q_.kind == Kind::tube && vy > 0 && basis_.departs(Dev::d176)) {  // the resultant
        vz = std::hypot(vz, vy);
        vy = 0;
    }
    z_ = ShearAlongZ(p_, member_.shear, f_.n, f_.my, basis_);
    y_ = ShearAlongY(p_, member_.shear, basis_);
    const auto clause = [](const ShearResistance& r) {
        return r.slender ? std::string_view("EN 1993-1-5, 5.2") : std::string_view("6.2.6");
    };
    if (vz > 0) {
        At(CheckId::section_vz) = {vz / z_.total, clause(z_)};
    }
    if (vy > 0) {
        At(CheckId::section_vy) = {vy / y_.total, clause(y_)};
    }
    rho_.z = clauses::ShearReduction(vz, z_.web);
    // D40: webs that may buckle in shear, EN 1993-1-5, 7.1 in place of 6.2.8.
    if (z_.slender && rho_.z > 0 && basis_.departs(Dev::d40)) {
        rho_.z = 0;
    }
    rho_.y = clauses::ShearReduction(vy, y_.web);
    // D179: not in the program's angles and general profiles.
    const bool forgotten = q_.Angle() || q_.kind == Kind::general;
    if (forgotten && (rho_.z > 0 || rho_.y > 0) && !basis_.departs(Dev::d179)) {
        rho_ = {};
    }
}

void Place::Moments()
{
    const bool sagging = f_.my >= 0;
    const int cls_y = basis_.pick(Dev::d153, classes_.my.At(sagging), cls_);
    const int cls_z = basis_.pick(Dev::d153, classes_.mz, cls_);
    const ReducedResistance r = ResistanceBeside(p_, cls_y, rho_, f_.n > 0, sagging, basis_);
    const std::string_view clause = rho_.z > 0 || rho_.y > 0 ? "6.2.8" : "6.2.5";
    const double enough = 1e-9;  // of a moment that is a rounding of none, kNm
    const double mz = cls_z == cls_y || q_.kind == Kind::tube || !(std::abs(f_.mz) > enough)
                          ? r.mz
                          : ResistanceBeside(p_, cls_z, rho_, f_.n > 0, sagging, basis_).mz;
    if (told_ != nullptr) {
        told_->classes = {cls_, {cls_y, cls_y}, cls_z, classes_.n_my, classes_.n_mz};
        told_->moment_y = r.my;
        told_->moment_z = mz;
    }
    if (BendsAboutOneAxis() && std::hypot(f_.my, f_.mz) > enough) {
        At(CheckId::section_my) = {std::hypot(f_.my, f_.mz) / r.my, clause};
        return;
    }
    if (std::abs(f_.my) > enough) {
        At(CheckId::section_my) = {std::abs(f_.my) / r.my, clause};
    }
    if (std::abs(f_.mz) > enough) {
        At(CheckId::section_mz) = {std::abs(f_.mz) / mz, clause};
    }
}

// A tube bends about the axis of the resultant. D176: the program takes both moments apart, each
// beside its own shear force.
bool Place::BendsAboutOneAxis() const
{
    const bool alike = (f_.my == 0 || f_.mz == 0) && rho_.z == rho_.y;
    return q_.kind == Kind::tube && (alike || basis_.departs(Dev::d176));
}

// NEd eN of class 4 counts. D164: not to the program's channels, D198: not to its unequal I and T.
bool Place::Shifted() const
{
    if (cls_ != 4 || !(f_.n > 0) || q_.DoublySymmetric()) {
        return false;
    }
    if (q_.kind == Kind::channel) {
        return basis_.departs(Dev::d164);
    }
    const bool forgotten = q_.kind == Kind::i_single || q_.kind == Kind::tee;
    return !forgotten || basis_.departs(Dev::d198);
}

// 6.2.1 (7).
double Place::LinearSum(const ReducedResistance& r) const
{
    double my = std::abs(f_.my);
    double mz = std::abs(f_.mz);
    if (Shifted()) {
        my += f_.n * p_.effective.eny;
        mz += f_.n * p_.effective.enz;
    }
    if (told_ != nullptr) {
        told_->rule = SectionTerms::Rule::linear;
        told_->beside_shear = r;
        told_->shift_y = Shifted() ? p_.effective.eny : 0;
        told_->shift_z = Shifted() ? p_.effective.enz : 0;
    }
    const double moments =
        BendsAboutOneAxis() ? Used(std::hypot(my, mz), r.my) : Used(my, r.my) + Used(mz, r.mz);
    return Used(f_.n, r.n) + moments;
}

void Place::Linear(const ReducedResistance& r, int cls)
{
    const double ir = LinearSum(r);
    const bool elastic = cls >= 3 || q_.elastic;
    At(CheckId::section_nm) = {ir, q_.linear  ? "6.2.1 (7)"
                                   : cls == 4 ? "6.2.9.3"
                                   : elastic  ? "6.2.9.2"
                                              : "6.2.1 (7)"};
}

void Place::TellPlastic(SectionTerms::Rule rule, const ReducedResistance& r, double n,
                        const Both& webs, const Both& moments,
                        const clauses::BiaxialExponents& exponents)
{
    if (told_ == nullptr) {
        return;
    }
    const bool both = f_.my != 0 && f_.mz != 0;
    told_->rule = rule;
    told_->beside_shear = r;
    told_->share = n;
    told_->web_y = webs.y;
    told_->web_z = webs.z;
    told_->mny = moments.y;
    told_->mnz = moments.z;
    told_->alpha = both ? exponents.alpha : 0;
    told_->beta = both ? exponents.beta : 0;
}

void Place::PlasticI(const ReducedResistance& r, double n)
{
    const double flanges = q_.top.b * q_.top.t + q_.bottom.b * q_.bottom.t;
    const double mean = (q_.top.b + q_.bottom.b) * (q_.top.t + q_.bottom.t) / 2;
    const double a = (q_.a - (q_.kind == Kind::i_single ? mean : flanges)) / q_.a;
    const double left = 1 - rho_.z;  // strength of the web
    const bool small_y =
        clauses::AxialForceNegligibleY(f_.n, r.n, q_.hw, q_.tw * left, q_.fy, q_.gammam0);
    const bool small_z =
        clauses::AxialForceNegligibleZ(f_.n, q_.hw, q_.tw * left, q_.fy, q_.gammam0);
    double mny = small_y ? r.my : clauses::ReducedMomentY(r.my, n, a);
    const double mnz = small_z ? r.mz : clauses::ReducedMomentZ(r.mz, n, a);
    if (q_.kind == Kind::general && !small_y) {  // D180: the share of the web is not held at 0.5
        mny = basis_.pick(Dev::d180, std::min(r.my, r.my * (1 - n) / (1 - 0.5 * a)), mny);
    }
    const bool both = f_.my != 0 && f_.mz != 0;
    TellPlastic(SectionTerms::Rule::i_section, r, n, {a, a}, {mny, mnz}, clauses::ExponentsOfI(n));
    const double sum =
        both ? clauses::BiaxialSum(f_.my, mny, f_.mz, mnz, clauses::ExponentsOfI(n)) : 0;
    At(CheckId::section_nm) = {WithEachMoment(sum, mny, mnz), both ? "Eq 6.41" : "6.2.9.1"};
}

// Eq (6.41) of both moments, the ratio of a single one. D48: the program keeps the ratios of the
// single moments beside the sum, which is lower as long as it is below 1.
double Place::WithEachMoment(double sum, double mny, double mnz) const
{
    const double each = std::max(Used(f_.my, mny), Used(f_.mz, mnz));
    const bool both = f_.my != 0 && f_.mz != 0;
    if (!both) {
        return each;
    }
    return f_.n == 0 ? sum : basis_.pick(Dev::d48, std::max(sum, each), sum);
}

// 6.2.9.1 (6). D171: the program's exponent turns negative near the squash load.
clauses::BiaxialExponents ExponentsOfClosed(double n, const Basis& basis)
{
    const clauses::BiaxialExponents standard = clauses::ExponentsOfHollow(n);
    const double rest = 1 - 1.13 * n * n;
    if (rest >= 0) {
        return standard;
    }
    const double exponent = basis.pick(Dev::d171, 1.66 / rest, standard.alpha);
    return {exponent, exponent};
}

void Place::PlasticClosed(const ReducedResistance& r, double n)
{
    const double thick_z = q_.kind == Kind::box ? q_.hw : q_.h;
    double flange = q_.top.t;
    if (q_.kind == Kind::box) {
        flange = basis_.pick(Dev::d170, q_.tw, flange);
    }
    const double aw = (q_.a - 2 * q_.b * flange) / q_.a;
    const double af = (q_.a - 2 * thick_z * q_.tw) / q_.a;
    const double mny = clauses::ReducedMomentHollow(r.my, n, aw);
    const double mnz = clauses::ReducedMomentHollow(r.mz, n, af);
    const bool both = f_.my != 0 && f_.mz != 0;
    const clauses::BiaxialExponents exponents = ExponentsOfClosed(n, basis_);
    TellPlastic(SectionTerms::Rule::closed, r, n, {aw, af}, {mny, mnz}, exponents);
    const double sum = both ? clauses::BiaxialSum(f_.my, mny, f_.mz, mnz, exponents) : 0;
    At(CheckId::section_nm) = {WithEachMoment(sum, mny, mnz), both ? "Eq 6.41" : "6.2.9.1"};
}

void Place::Plastic(const ReducedResistance& r, double n)
{
    if (q_.kind == Kind::tube) {
        const double mn = clauses::ReducedMomentTube(r.my, n);
        const double mnz = clauses::ReducedMomentTube(r.mz, n);
        TellPlastic(SectionTerms::Rule::tube, r, n, {}, {mn, mn}, {});
        const auto apart = [&] {
            const double squares = clauses::BiaxialSum(f_.my, mn, f_.mz, mnz, {2, 2});
            const double each = std::max(Used(f_.my, mn), Used(f_.mz, mnz));
            return f_.n != 0 ? std::max(squares, each) : squares;
        };
        const double ir = BendsAboutOneAxis() ? Used(std::hypot(f_.my, f_.mz), mn) : apart();
        At(CheckId::section_nm) = {ir, "6.2.9.1 (2)"};
    } else if (q_.kind == Kind::flat) {
        // D177: beside a tension the program leaves the moment resistance whole.
        const double least = clauses::ReducedMomentFlat(r.my, n);
        const double mny = f_.n < 0 ? basis_.pick(Dev::d177, r.my, least) : least;
        const double mnz = clauses::ReducedMomentFlat(r.mz, n);
        TellPlastic(SectionTerms::Rule::flat, r, n, {}, {mny, mnz}, {});
        const double sum = Used(f_.my, mny) + Used(f_.mz, mnz);
        At(CheckId::section_nm) = {sum, "6.2.9.1 (3)"};
    } else if (!q_.Closed()) {
        PlasticI(r, n);
    } else {
        PlasticClosed(r, n);
    }
}

// Whether 6.2.9.1 covers the section. D163: the program takes channels as I sections, D190: the
// unequal I too.
bool Place::HasFormula() const
{
    if (q_.kind == Kind::channel) {
        return !basis_.departs(Dev::d163);
    }
    return q_.kind == Kind::i_single ? !basis_.departs(Dev::d190) : q_.DoublySymmetric();
}

void Place::Combined()
{
    const bool my = f_.my != 0;
    const bool mz = f_.mz != 0;
    if (!(my && mz) && !(f_.n != 0 && (my || mz)) && !Shifted()) {
        return;
    }
    const ClassesHere cls = CombinedClasses();
    const auto beside = [&](int of) {
        return ResistanceBeside(p_, of, rho_, f_.n > 0, f_.my >= 0, basis_);
    };
    const int worst = std::max(my || !mz ? cls.my : 1, mz ? cls.mz : 1);
    ReducedResistance r = beside(cls.my);
    r.mz = cls.mz != cls.my ? beside(cls.mz).mz : r.mz;
    HoldToSingleMoments(r, cls);
    const double n = Used(f_.n, r.n);
    const bool plastic = PlasticFormula(worst) && HasFormula();
    if (plastic && n < 1) {
        Plastic(r, n);
        return;
    }
    if (plastic && !basis_.departs(Dev::d44)) {  // the program's formulas leave no ratio there
        return;
    }
    r.n = cls.n != cls.my ? beside(cls.n).n : r.n;
    Linear(r, worst);
}

// D153: no moment resistance of the program exceeds that of the moment alone, where a tension
// betters the class.
void Place::HoldToSingleMoments(ReducedResistance& r, const ClassesHere& cls) const
{
    const int my = classes_.my.At(f_.my >= 0);
    const bool y = f_.my != 0 && my > cls.my;
    const bool z = f_.mz != 0 && classes_.mz > cls.mz;
    if (!(y || z) || basis_.departs(Dev::d153)) {
        return;
    }
    const auto alone = [&](int of) {
        return ResistanceBeside(p_, of, {}, f_.n > 0, f_.my >= 0, basis_);
    };
    r.my = y ? std::min(r.my, alone(my).my) : r.my;
    r.mz = z ? std::min(r.mz, alone(classes_.mz).mz) : r.mz;
}

// D153: the program sums N of its own class and each moment with the class that it has, alone or
// with N; D42: that with N by the stresses here.
Place::ClassesHere Place::CombinedClasses() const
{
    int all = cls_;
    int y = classes_.n_my.At(f_.my >= 0);
    int z = classes_.n_mz;
    const bool bent = f_.my != 0 || f_.mz != 0;
    if (f_.n != 0 && bent && ClassedByStresses(q_) && !basis_.departs(Dev::d42)) {
        const ProgramClasses here = ProgramClassesUnder(*member_.state, f_.n, f_.my, f_.mz);
        y = here.my;
        z = here.mz;
        all = std::max(f_.my != 0 ? y : 1, f_.mz != 0 ? z : 1);
    }
    return {basis_.pick(Dev::d153, p_.class_n, all), basis_.pick(Dev::d153, y, all),
            basis_.pick(Dev::d153, z, all)};
}

// D43: the program combines the elastic resistances of an elastic design by the formulas of
// classes 1 and 2.
bool Place::PlasticFormula(int cls) const
{
    return cls <= 2 && !q_.linear && (!q_.elastic || !basis_.departs(Dev::d43));
}

// Stresses of the corners about the principal axes, 6.2.1 (5).
void Place::AngleMoments()
{
    const AngleSection& angle = p_.AngleOf(cls_);
    const auto use = [&](double n, double my, double mz, CornerTerms SectionTerms::*terms) {
        const AngleSection& acting = n < 0 ? p_.whole_angle : angle;
        return AngleUse(q_, acting, {n, my, mz, rho_.z, rho_.y},
                        told_ == nullptr ? nullptr : &(told_->*terms));
    };
    const std::string_view clause = rho_.z > 0 || rho_.y > 0 ? "6.2.8" : "6.2.5";
    const double enough = 1e-9;  // of a moment that is a rounding of none, kNm
    if (std::abs(f_.my) > enough) {
        At(CheckId::section_my) = {use(0, f_.my, 0, &SectionTerms::my_corner), clause};
    }
    if (std::abs(f_.mz) > enough) {
        At(CheckId::section_mz) = {use(0, 0, f_.mz, &SectionTerms::mz_corner), clause};
    }
    const int acting = (f_.n != 0) + (f_.my != 0) + (f_.mz != 0);
    if (acting > 1 || (cls_ == 4 && f_.n > 0)) {
        double ir = use(f_.n, f_.my, f_.mz, &SectionTerms::corner);
        // D182: the program has the sum about y and z beside it, which leaves out their coupling.
        const double n = Used(f_.n, (f_.n > 0 ? CompressedArea(p_, cls_) : q_.a) * q_.fy);
        ir = basis_.pick(
            Dev::d182,
            [&] { return std::max(ir, AngleSumByAxes(q_, f_.n > 0 ? n : -n, f_.my, f_.mz)); },
            [&] { return ir; });
        At(CheckId::section_nm) = {ir, cls_ == 4 ? "6.2.9.3" : "6.2.9.2"};
    }
}

// 6.2.1 (5) for the lower flange of a hat beam that its load bends across.
void Place::LoadedFlange()
{
    if (member_.flange_load == 0) {
        return;
    }
    const ReducedResistance r = ResistanceBeside(p_, cls_, rho_, f_.n > 0, f_.my >= 0, basis_);
    const double across = FlangePlate(q_, member_.flange_load);
    if (told_ != nullptr) {
        told_->across = across;
    }
    At(CheckId::section_nm) = {FlangeUnderBoth(LinearSum(r), across, basis_), "6.2.1 (5)"};
}

bool Place::NearRigidEndPost(double length) const
{
    const double reach = q_.hw / 2000;
    return member_.shear.rigid_end_post &&
           (f_.x < reach || (!member_.cantilever && f_.x > length - reach));
}

// EN 1993-1-5, 7.1 (1), (2), (4), (5).
void Place::WebAndMoment(double length)
{
    if (!z_.slender || rho_.z > 0 || NearRigidEndPost(length)) {
        return;
    }
    const double eta3 = std::abs(f_.vz) / z_.web;
    const double my = std::abs(f_.my);
    const double edge = std::max(q_.above - q_.top.t, q_.below - q_.bottom.t);
    const bool web_compressed = f_.n > 0 && f_.n / q_.a >= my * edge / q_.iy;
    const double mf = web_compressed ? 0 : FlangeMoment(p_, f_.n, f_.my, basis_);
    const double mpl = FlangeAndWebMoment(p_, f_.n, f_.my);
    if (eta3 <= 0.5 || my < mf || !(mpl > 0)) {
        return;
    }
    if (told_ != nullptr) {
        told_->eta3 = eta3;
        told_->flanges = mf;
        told_->whole = mpl;
    }
    const double over = 2 * eta3 - 1;
    const double ir = my / mpl + std::max(0.0, 1 - mf / mpl) * over * over;
    At(CheckId::section_mv) = {ir, "EN 1993-1-5, 7.1"};
}

Ratios Place::All(double length)
{
    Axial();
    Shear();
    if (told_ != nullptr) {
        told_->classes = classes_;
        told_->along_z = z_;
        told_->along_y = y_;
        told_->shear = ShearTermsAlongZ(p_, member_.shear, f_.n, f_.my, basis_);
        told_->flange_areas = FlangeAreasUnder(p_, f_.n, f_.my);
        told_->rigid_end_post = member_.shear.rigid_end_post;
        told_->flange_load = std::abs(member_.flange_load);
        told_->rho = rho_;
    }
    if (q_.Angle()) {
        AngleMoments();
        return ratios_;
    }
    Moments();
    Combined();
    LoadedFlange();
    WebAndMoment(length);
    return ratios_;
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
    return Place(member_, classes_, ForcesOf(lines_, piece, x), basis_).All(lines_.grid.Length());
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
        const Ratios ratios = Place(member, classes, f, basis, &terms).All(length);
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
