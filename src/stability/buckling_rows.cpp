#include "stability/buckling_rows.h"

#include "stability/interaction_angle.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace kestrum {
namespace {

constexpr float kNoBuckling = 0.002f;

// The check of an axis, by the terms that its sum has.
struct AxisForms {
    CheckForm my, mz, my_mz;
};

struct AxisChecks {
    CheckId flexural, interaction;
    CheckForm axial, bending, flat_bar;
    AxisForms general, angle;
};

constexpr AxisChecks kChecksY{
    CheckId::flexural_y,
    CheckId::eq661,
    CheckForm::flexural_y,
    CheckForm::eq661_bending,
    CheckForm::eq661_flat_bar,
    {CheckForm::eq661_my, CheckForm::eq661_mz, CheckForm::eq661_my_mz},
    {CheckForm::eq661_my_angle, CheckForm::eq661_mz_angle, CheckForm::eq661_my_mz_angle}};
constexpr AxisChecks kChecksZ{
    CheckId::flexural_z,
    CheckId::eq662,
    CheckForm::flexural_z,
    CheckForm::eq662_bending,
    CheckForm::eq662_flat_bar,
    {CheckForm::eq662_my, CheckForm::eq662_mz, CheckForm::eq662_my_mz},
    {CheckForm::eq662_my_angle, CheckForm::eq662_mz_angle, CheckForm::eq662_my_mz_angle}};

struct Axis {
    const AxisChecks& ids;
    double& sum;
    double nbrd;
    double kmy, kmz;  // interaction factors of the moments
    bool buckles;
};

Axis AxisY(const Inputs& in, SectionChecks& checks, const Stability& stability)
{
    return {kChecksY,      checks.irrow4, stability.nbyrd,
            stability.kyy, stability.kyz, BucklesAboutY(in)};
}

Axis AxisZ(const Inputs& in, SectionChecks& checks, const Stability& stability, const Carry& carry)
{
    return {kChecksZ, checks.irrow5, stability.nbzrd, stability.kzy, carry.kzz, BucklesAboutZ(in)};
}

// The check in its row, with the terms in their order.
Check& Take(const Inputs& in, SectionChecks& checks, CheckId id, CheckForm form, double ratio,
            std::initializer_list<double> terms)
{
    Check& check = checks.checklist.Govern(id);
    check = {};
    check.form = form;
    check.Judge(ratio, in.irlimit);
    std::copy(terms.begin(), terms.end(), check.terms.begin());
    return check;
}

// The governing segment where there are restraints.
CheckPlace SegmentOf(const Inputs& in, const Carry& carry)
{
    if (in.restraints == 0) {
        return {};
    }
    return {.kind = CheckPlace::Kind::segment,
            .number = carry.beampart,
            .parts = static_cast<i16>(in.restraints + 1)};
}

// A sum of 6.3.3 takes the place of the axial term alone.
void AddMomentTerms(const Inputs& in, const Forces& forces, SectionChecks& checks,
                    const Stability& stability, const Axis& axis, const AxisForms& forms,
                    const MomentResistances& resistance)
{
    if (!axis.buckles) {
        return;
    }
    checks.checklist[axis.ids.flexural] = {};
    const double my = std::abs(forces.mydesign);
    const double mz = forces.mzdesign;
    if (my != 0) {
        axis.sum += axis.kmy * my / (stability.xlt * resistance.my);
    }
    if (mz != 0) {
        axis.sum += axis.kmz * mz / resistance.mz;
    }
    const CheckId id = axis.ids.interaction;
    if (mz == 0) {
        Take(in, checks, id, forms.my, axis.sum,
             {forces.ned, axis.nbrd, axis.kmy, my, stability.xlt, resistance.my});
    } else if (my == 0) {
        Take(in, checks, id, forms.mz, axis.sum,
             {forces.ned, axis.nbrd, axis.kmz, mz, resistance.mz});
    } else {
        Take(in, checks, id, forms.my_mz, axis.sum,
             {forces.ned, axis.nbrd, axis.kmy, my, stability.xlt, resistance.my, axis.kmz, mz,
              resistance.mz});
    }
}

}  // namespace

bool BucklesAboutY(const Inputs& in)
{
    return in.ly > kNoBuckling;
}

bool BucklesAboutZ(const Inputs& in)
{
    return in.lz > kNoBuckling;
}

void LateralTorsionalRow(const Inputs& in, SectionChecks& checks, const Stability& stability,
                         const Carry& carry)
{
    checks.irrow6 = std::abs(stability.mydesignf / (stability.xlt * stability.mltrd));
    Take(in, checks, CheckId::ltb, CheckForm::ltb, checks.irrow6,
         {stability.mydesignf, stability.xlt, stability.mltrd})
        .place = SegmentOf(in, carry);
}

void AxialRows(const Inputs& in, const Forces& forces, SectionChecks& checks,
               const Stability& stability, const Carry& carry)
{
    for (const Axis& axis : {AxisY(in, checks, stability), AxisZ(in, checks, stability, carry)}) {
        if (axis.buckles) {
            axis.sum = std::abs(forces.ned / axis.nbrd);
            Take(in, checks, axis.ids.flexural, axis.ids.axial, axis.sum, {forces.ned, axis.nbrd});
        }
    }
}

void AddMomentTerms(const Inputs& in, const Forces& forces, SectionChecks& checks,
                    const Stability& stability, const Carry& carry,
                    const MomentResistances& resistance, bool angle)
{
    for (const Axis& axis : {AxisY(in, checks, stability), AxisZ(in, checks, stability, carry)}) {
        AddMomentTerms(in, forces, checks, stability, axis,
                       angle ? axis.ids.angle : axis.ids.general, resistance);
    }
}

void BendingRows(const Inputs& in, const Forces& forces, SectionChecks& checks,
                 const Stability& stability, const Carry& carry,
                 const MomentResistances& resistance)
{
    const double my = std::abs(forces.mydesign);
    for (const Axis& axis : {AxisY(in, checks, stability), AxisZ(in, checks, stability, carry)}) {
        axis.sum = axis.kmy * my / (stability.xlt * resistance.my) +
                   axis.kmz * forces.mzdesign / resistance.mz;
        Take(
            in, checks, axis.ids.interaction, axis.ids.bending, axis.sum,
            {axis.kmy, my, stability.xlt, resistance.my, axis.kmz, forces.mzdesign, resistance.mz});
    }
}

void FlatBarRows(const Inputs& in, const Resistances& resistances, const Forces& forces,
                 SectionChecks& checks, const Stability& stability, const Carry& carry)
{
    const double my = std::abs(forces.mydesign);
    for (const Axis& axis : {AxisY(in, checks, stability), AxisZ(in, checks, stability, carry)}) {
        if (axis.buckles) {
            axis.sum = std::abs(forces.ned / axis.nbrd) +
                       axis.kmy * my / (stability.xlt * resistances.myrdm1);
            Take(in, checks, axis.ids.interaction, axis.ids.flat_bar, axis.sum,
                 {forces.ned, axis.nbrd, axis.kmy, my, stability.xlt, resistances.myrdm1});
        }
    }
}

void AngleRow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, SectionChecks& checks, const Stability& stability, bool moments)
{
    checks.irrow6 = std::abs(forces.ned / stability.nbvrd);
    if (!moments) {
        Take(in, checks, CheckId::flexural_v, CheckForm::flexural_v, checks.irrow6,
             {forces.ned, stability.nbvrd});
        return;
    }
    const PrincipalMoments m = AnglePrincipalMoments(in, section, resistances, forces);
    checks.irrow6 += stability.kvv * m.mv / m.mvrd + stability.kvu * m.mu / m.murd;
    Take(in, checks, CheckId::interaction_v, CheckForm::interaction_v, checks.irrow6,
         {forces.ned, stability.nbvrd, stability.kvv, m.mv, m.mvrd, stability.kvu, m.mu, m.murd});
}

void NoBuckling(SectionChecks& checks)
{
    checks.checklist.Govern(CheckId::no_buckling).form = CheckForm::no_buckling;
}

void IgnoreBuckling(SectionChecks& checks)
{
    CheckList& list = checks.checklist;
    const std::int8_t status = list.row(ResultRow::buckling_y).status;
    list.Clear<ResultRow::buckling_y, ResultRow::buckling_z>();
    Check& remark = list.Govern(CheckId::no_buckling);
    remark.form = CheckForm::buckling_ignored;
    remark.status = status;
    checks.irrow4 = 0.0;
    checks.irrow5 = 0.0;
}

void IgnoreBucklingAboutV(SectionChecks& checks)
{
    checks.checklist.Clear<ResultRow::lateral>();
    checks.irrow6 = 0.0;
}

}  // namespace kestrum
