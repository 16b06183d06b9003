#include "standard/member_buckling.h"

#include "core/member_choices.h"
#include "core/project_state.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

// Sections that 6.3.3 (1) leaves out: linear sum with amplified moments.
void Outside(const MemberBuckling& m, Checks& checks)
{
    const double least = m.chi.Least(m.ColumnTwists());
    const double kyy = 1 / (1 - m.chi.chiy * m.n / m.ncr.y);
    const double kzz = 1 / (1 - m.chi.chiz * m.n / m.ncr.z);
    const bool sagging = m.lateral.moment >= 0;
    const double wy =
        std::min(ModulusY(m.p, m.ClassY(), sagging), ModulusYCompressed(m.p, m.ClassY(), sagging));
    const double wz = ModulusZ(m.p, m.ClassZ());
    const double mry = m.lateral.chi * wy * m.q.fy / m.q.gammam1;
    const double mrz = wz * m.q.fy / m.q.gammam1;
    const double ir = m.n * m.q.gammam1 / (least * m.chi.squash) + kyy * (m.my + m.ShiftY()) / mry +
                      kzz * (m.mz + m.ShiftZ()) / mrz;
    if (m.told != nullptr) {
        m.told->k = {kyy, 0, 0, kzz};
        m.told->wy = wy;
        m.told->wz = wz;
    }
    m.Keep(checks, CheckId::interaction_outside, ir, "interaction outside 6.3.3");
}

}  // namespace

// Eq (6.61) and (6.62).
void CheckInteraction(const MemberBuckling& m, Checks& checks)
{
    const bool moments = m.bends_y || m.bends_z || m.ShiftY() > 0 || m.ShiftZ() > 0;
    if (m.n < 0 || (m.n > 0 && !moments) || (m.n == 0 && !(m.bends_y && m.bends_z))) {
        return;
    }
    // D243: the program has no interaction of these without compression.
    if (m.n == 0 && (m.q.Angle() || m.q.kind == Kind::tube) && !m.basis.departs(Dev::d243)) {
        return;
    }
    // D231: the program does not combine the moments of a T with its axial force.
    if (m.q.kind == Kind::tee && (m.bends_y || m.bends_z) && !m.basis.departs(Dev::d231)) {
        return;
    }
    const double flexural = m.ncr.LeastFlexural();
    const double torsional = m.ncr.Torsional();
    const bool twists = torsional < flexural && m.ColumnTwists();
    // D248: the factors of Annex B go on beyond the critical force in the program.
    const bool beyond = m.n >= (twists ? torsional : flexural);
    if (beyond && (m.in.s.method == Method::annex_a || m.basis.departs(Dev::d248))) {
        const double resistance = m.chi.Least(m.ColumnTwists()) * m.chi.squash / m.q.gammam1;
        m.Keep(checks, CheckId::n_above_ncr, m.n / resistance, "6.3.3");
        return;
    }
    if (!m.q.DoublySymmetric() && m.basis.departs(Dev::d240)) {
        Outside(m, checks);
        return;
    }
    const bool annex_a = m.in.s.method == Method::annex_a;
    const clauses::InteractionFactors k = annex_a ? AnnexA(m) : AnnexB(m);
    const double ny = m.n * m.q.gammam1 / (m.chi.chiy * m.chi.squash);
    const double nz = m.n * m.q.gammam1 / (m.chi.chiz * m.chi.squash);
    const double wy = ModulusY(m.p, m.ClassY(), m.lateral.moment >= 0);
    const double wz = ModulusZ(m.p, m.ClassZ());
    const double my = m.my * m.q.gammam1 / (m.lateral.chi * wy * m.q.fy);
    const double mz = m.mz * m.q.gammam1 / (wz * m.q.fy);
    if (m.told != nullptr) {
        m.told->k = k;
        m.told->annex_a = annex_a;
        m.told->wy = wy;
        m.told->wz = wz;
    }
    // D236: an axis without buckling has no row in the program.
    const bool row_y = std::isfinite(m.ncr.y) || m.n == 0 || m.basis.departs(Dev::d236);
    const bool row_z = std::isfinite(m.ncr.z) || m.n == 0 || m.basis.departs(Dev::d236);
    if (row_y) {
        m.Keep(checks, CheckId::eq661, ny + k.kyy * my + k.kyz * mz,
               annex_a ? "Eq 6.61, Annex A" : "Eq 6.61, Annex B");
    }
    if (row_z) {
        m.Keep(checks, CheckId::eq662, nz + k.kzy * my + k.kzz * mz,
               annex_a ? "Eq 6.62, Annex A" : "Eq 6.62, Annex B");
    }
}

}  // namespace kestrum::standard
