#include "standard/section_place.h"

#include "standard/plates.h"
#include "standard/program_class.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

struct ClassesHere {
    int n, my, mz;
};

// NEd eN of class 4 counts. D164: not to the program's channels, D198: not to its unequal I and T.
bool Shifted(const SectionPlace& at)
{
    if (at.cls != 4 || !(at.f.n > 0) || at.q.DoublySymmetric()) {
        return false;
    }
    if (at.q.kind == Kind::channel) {
        return at.basis.departs(Dev::d164);
    }
    const bool forgotten = at.q.kind == Kind::i_single || at.q.kind == Kind::tee;
    return !forgotten || at.basis.departs(Dev::d198);
}

// 6.2.1 (7).
double LinearSum(const SectionPlace& at, const ReducedResistance& r)
{
    double my = std::abs(at.f.my);
    double mz = std::abs(at.f.mz);
    if (Shifted(at)) {
        my += at.f.n * at.p.effective.eny;
        mz += at.f.n * at.p.effective.enz;
    }
    if (at.told != nullptr) {
        at.told->rule = SectionTerms::Rule::linear;
        at.told->beside_shear = r;
        at.told->shift_y = Shifted(at) ? at.p.effective.eny : 0;
        at.told->shift_z = Shifted(at) ? at.p.effective.enz : 0;
    }
    const double moments =
        BendsAboutOneAxis(at) ? Used(std::hypot(my, mz), r.my) : Used(my, r.my) + Used(mz, r.mz);
    return Used(at.f.n, r.n) + moments;
}

void Linear(SectionPlace& at, const ReducedResistance& r, int cls)
{
    const double ir = LinearSum(at, r);
    const bool elastic = cls >= 3 || at.q.elastic;
    at.Of(CheckId::section_nm) = {ir, at.q.linear ? "6.2.1 (7)"
                                      : cls == 4  ? "6.2.9.3"
                                      : elastic   ? "6.2.9.2"
                                                  : "6.2.1 (7)"};
}

// Whether 6.2.9.1 covers the section. D163: the program takes channels as I sections, D190: the
// unequal I too.
bool HasFormula(const SectionPlace& at)
{
    if (at.q.kind == Kind::channel) {
        return !at.basis.departs(Dev::d163);
    }
    return at.q.kind == Kind::i_single ? !at.basis.departs(Dev::d190) : at.q.DoublySymmetric();
}

// D153: no moment resistance of the program exceeds that of the moment alone, where a tension
// betters the class.
void HoldToSingleMoments(const SectionPlace& at, ReducedResistance& r, const ClassesHere& cls)
{
    const int my = at.classes.my.At(at.f.my >= 0);
    const bool y = at.f.my != 0 && my > cls.my;
    const bool z = at.f.mz != 0 && at.classes.mz > cls.mz;
    if (!(y || z) || at.basis.departs(Dev::d153)) {
        return;
    }
    const auto alone = [&](int of) {
        return ResistanceBeside(at.p, of, {}, at.f.n > 0, at.f.my >= 0, at.basis);
    };
    r.my = y ? std::min(r.my, alone(my).my) : r.my;
    r.mz = z ? std::min(r.mz, alone(at.classes.mz).mz) : r.mz;
}

// D153: the program sums N of its own class and each moment with the class that it has, alone or
// with N; D42: that with N by the stresses here.
ClassesHere CombinedClasses(const SectionPlace& at)
{
    int all = at.cls;
    int y = at.classes.n_my.At(at.f.my >= 0);
    int z = at.classes.n_mz;
    const bool bent = at.f.my != 0 || at.f.mz != 0;
    if (at.f.n != 0 && bent && ClassedByStresses(at.q) && !at.basis.departs(Dev::d42)) {
        const ProgramClasses here = ProgramClassesUnder(*at.member.state, at.f.n, at.f.my, at.f.mz);
        y = here.my;
        z = here.mz;
        all = std::max(at.f.my != 0 ? y : 1, at.f.mz != 0 ? z : 1);
    }
    return {at.basis.pick(Dev::d153, at.p.class_n, all), at.basis.pick(Dev::d153, y, all),
            at.basis.pick(Dev::d153, z, all)};
}

// D43: the program combines the elastic resistances of an elastic design by the formulas of
// classes 1 and 2.
bool PlasticFormula(const SectionPlace& at, int cls)
{
    return cls <= 2 && !at.q.linear && (!at.q.elastic || !at.basis.departs(Dev::d43));
}

}  // namespace

void CheckBendingAndAxial(SectionPlace& at)
{
    const bool my = at.f.my != 0;
    const bool mz = at.f.mz != 0;
    if (!(my && mz) && !(at.f.n != 0 && (my || mz)) && !Shifted(at)) {
        return;
    }
    const ClassesHere cls = CombinedClasses(at);
    const auto beside = [&](int of) {
        return ResistanceBeside(at.p, of, at.rho, at.f.n > 0, at.f.my >= 0, at.basis);
    };
    const int worst = std::max(my || !mz ? cls.my : 1, mz ? cls.mz : 1);
    ReducedResistance r = beside(cls.my);
    r.mz = cls.mz != cls.my ? beside(cls.mz).mz : r.mz;
    HoldToSingleMoments(at, r, cls);
    const double n = Used(at.f.n, r.n);
    const bool plastic = PlasticFormula(at, worst) && HasFormula(at);
    if (plastic && n < 1) {
        PlasticBendingAndAxial(at, r, n);
        return;
    }
    if (plastic && !at.basis.departs(Dev::d44)) {  // the program's formulas leave no ratio there
        return;
    }
    r.n = cls.n != cls.my ? beside(cls.n).n : r.n;
    Linear(at, r, worst);
}

// 6.2.1 (5) for the lower flange of a hat beam that its load bends across.
void CheckLoadedFlange(SectionPlace& at)
{
    if (at.member.flange_load == 0) {
        return;
    }
    const ReducedResistance r =
        ResistanceBeside(at.p, at.cls, at.rho, at.f.n > 0, at.f.my >= 0, at.basis);
    const double across = FlangePlate(at.q, at.member.flange_load);
    if (at.told != nullptr) {
        at.told->across = across;
    }
    at.Of(CheckId::section_nm) = {FlangeUnderBoth(LinearSum(at, r), across, at.basis), "6.2.1 (5)"};
}

}  // namespace kestrum::standard
