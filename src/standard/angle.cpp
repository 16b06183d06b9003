#include "standard/angle.h"

#include "clauses/plate_buckling.h"
#include "core/project_state.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kestrum::standard {

namespace {

// Legs that count, from the heel.
struct LegLengths {
    double h, b;
};

void SetCorners(const StandardSection& q, const LegLengths& legs, AngleSection& angle,
                const Basis& basis)
{
    angle.cosine = std::cos(angle.alfa);
    angle.sine = std::sin(angle.alfa);
    // D55: the program counts from the heel of the table, whose distance from the v axis is rounded
    // by itself.
    const double cosine = std::cos(q.angle.alfa);
    const double sine = std::sin(q.angle.alfa);
    const double to_u = q.angle.equal ? 0 : q.below * cosine - q.left * sine;
    const double left = basis.pick(Dev::d55, q.angle.to_v * cosine - to_u * sine, q.left);
    const double below = basis.pick(Dev::d55, q.angle.to_v * sine + to_u * cosine, q.below);
    const auto corner = [&](double y, double z, bool upright, bool lying) {
        const double u = y - left - angle.yc;
        const double v = z - below - angle.zc;
        return AngleCorner{u * angle.cosine + v * angle.sine, v * angle.cosine - u * angle.sine,
                           upright, lying};
    };
    const double t = q.tw;
    const double outer = basis.pick(Dev::d55, t / 2, 0.0);
    const double inner = basis.pick(Dev::d55, t / 2, t);
    angle.corners = {corner(0, 0, true, true), corner(outer, legs.h, true, false),
                     corner(inner, legs.h, true, false), corner(legs.b, outer, false, true),
                     corner(legs.b, inner, false, true)};
}

// Second moments about y and z.
struct Inertia {
    double y, z, yz;
};

Inertia InertiaOf(const StandardSection& q)
{
    const double cosine = std::cos(q.angle.alfa);
    const double sine = std::sin(q.angle.alfa);
    return {q.angle.iu * cosine * cosine + q.angle.iv * sine * sine,
            q.angle.iu * sine * sine + q.angle.iv * cosine * cosine,
            -(q.angle.iu - q.angle.iv) * sine * cosine};
}

constexpr double kUniform = 0.43;  // EN 1993-1-5, Table 4.2

// Length of a leg that counts.
double EffectiveLeg(const StandardSection& q, double leg)
{
    if (q.whole_flanges) {
        return leg;
    }
    const double lam = clauses::PlateSlenderness(leg, q.tw, q.eps, kUniform);
    return leg * clauses::RhoOutstand(lam);
}

// The tip that a leg loses; `upright`: the leg h.
LostPart LostTip(const StandardSection& q, double leg, double kept, bool upright)
{
    const double t = q.tw, tip = leg - kept;
    const double along = (leg + kept) / 2 - (upright ? q.below : q.left);
    const double across = t / 2 - (upright ? q.left : q.below);
    return {upright ? across : along,
            upright ? along : across,
            upright ? t : tip,
            upright ? tip : t,
            leg,
            t,
            1,
            kUniform,
            clauses::PlateSlenderness(leg, t, q.eps, kUniform),
            kept / leg};
}

}  // namespace

void SetAngle(const ProjectState& s, StandardSection& q)
{
    q.above = q.h - s.ey;
    q.below = s.ey;
    q.left = s.ez;
    q.right = q.b - s.ez;
    const double heel = q.tw / 2;  // where the middles of the legs meet
    q.centre_y = heel - q.left;
    q.centre_z = heel - q.below;
    q.angle = {s.iu,        s.iv, s.alfa * std::numbers::pi / 180, Traits(s).shape.equal,
               s.lopt == 2, s.v1};
    // 6.2.6 (4): the parabola over a leg.
    q.avz = (q.h - q.tw) * q.tw / 1.5;
    q.avy = (q.b - q.tw) * q.tw / 1.5;
}

AngleSection WholeAngle(const StandardSection& q, const Basis& basis)
{
    AngleSection angle{q.a, 0, 0, q.angle.iu, q.angle.iv, q.angle.alfa, 1, 0, {}};
    SetCorners(q, {q.h, q.b}, angle, basis);
    return angle;
}

AngleSection EffectiveAngle(const StandardSection& q, const Basis& basis,
                            std::vector<LostPart>* lost)
{
    AngleSection angle = WholeAngle(q, basis);
    const LegLengths legs = {EffectiveLeg(q, q.h), EffectiveLeg(q, q.b)};
    if (legs.h == q.h && legs.b == q.b) {
        return angle;
    }
    const double t = q.tw;
    if (!basis.departs(Dev::d181)) {
        const double straight_h = q.h - t - q.r;
        const double straight_b = q.b - t - q.r;
        angle.a -= (straight_h - EffectiveLeg(q, straight_h)) * t +
                   (straight_b - EffectiveLeg(q, straight_b)) * t;
        return angle;
    }
    Inertia i = InertiaOf(q);
    double sy = 0, sz = 0;
    for (const LostPart& part : {LostTip(q, q.h, legs.h, true), LostTip(q, q.b, legs.b, false)}) {
        const double area = part.Area();
        if (lost != nullptr && area > 0) {
            lost->push_back(part);
        }
        angle.a -= area;
        sy -= area * part.y;
        sz -= area * part.z;
        i.y -= area * (part.z * part.z + part.high * part.high / 12);
        i.z -= area * (part.y * part.y + part.wide * part.wide / 12);
        i.yz -= area * part.y * part.z;
    }
    angle.yc = sy / angle.a;
    angle.zc = sz / angle.a;
    i.y -= angle.a * angle.zc * angle.zc;
    i.z -= angle.a * angle.yc * angle.yc;
    i.yz -= angle.a * angle.yc * angle.zc;
    const double mean = (i.y + i.z) / 2;
    const double radius = std::hypot((i.y - i.z) / 2, i.yz);
    angle.iu = mean + radius;
    angle.iv = mean - radius;
    angle.alfa = std::atan2(-2 * i.yz, i.y - i.z) / 2;
    SetCorners(q, legs, angle, basis);
    return angle;
}

PrincipalMoments TurnMoments(const AngleSection& angle, double my, double mz)
{
    return {my * angle.cosine + mz * angle.sine, mz * angle.cosine - my * angle.sine};
}

Coupling CouplingOf(const AngleSection& angle, double inertia, bool about_y)
{
    const double c = about_y ? angle.cosine : angle.sine;
    const double s = about_y ? angle.sine : angle.cosine;
    return {inertia * (c * c / angle.iu + s * s / angle.iv),
            inertia * angle.cosine * angle.sine * (1 / angle.iu - 1 / angle.iv)};
}

double AngleUse(const StandardSection& q, const AngleSection& angle, const AngleForces& f,
                CornerTerms* worst)
{
    const double beside = std::max(0.0, f.n);
    double largest = 0;
    for (const double sense : {1.0, -1.0}) {
        const PrincipalMoments m =
            TurnMoments(angle, f.my - sense * beside * angle.zc, f.mz + sense * beside * angle.yc);
        for (const AngleCorner& at : angle.corners) {
            const double stress = f.n / angle.a + m.u * at.w / angle.iu - m.v * at.s / angle.iv;
            const double rho = std::max(at.upright ? f.rho_z : 0.0, at.lying ? f.rho_y : 0.0);
            const double use = stress == 0 ? 0 : std::abs(stress) * q.gammam0 / (q.fy * (1 - rho));
            if (worst != nullptr && use > largest) {
                *worst = {f.n,  f.my,    f.mz,     sense * angle.yc, -sense * angle.zc, m.u,
                          m.v,  angle.a, angle.iu, angle.iv,         angle.alfa,        at.w,
                          at.s, rho};
            }
            largest = std::max(largest, use);
        }
        if (!angle.Shifted()) {
            break;
        }
    }
    return largest;
}

double AngleSumByAxes(const StandardSection& q, double n, double my, double mz)
{
    const double strength = q.fy / q.gammam0;
    const double up = my * q.above / (q.iy * strength);
    const double down = my * q.below / (q.iy * strength);
    const double heel = mz * q.left / (q.iz * strength);
    const double tip = mz * q.right / (q.iz * strength);
    return std::max(
        {std::abs(-n + up - heel), std::abs(-n - down - heel), std::abs(-n - down + tip)});
}

double CompressedModulusU(const AngleSection& angle, bool positive)
{
    double furthest = 0;
    for (const AngleCorner& at : angle.corners) {
        furthest = std::max(furthest, positive ? at.w : -at.w);
    }
    return angle.iu / furthest;
}

double LeastModulusV(const AngleSection& angle)
{
    double furthest = 0;
    for (const AngleCorner& at : angle.corners) {
        furthest = std::max(furthest, std::abs(at.s));
    }
    return angle.iv / furthest;
}

// Two Gauss points of each leg: exact, the integrand being of the third degree.
double AsymmetryOfAngle(const StandardSection& q)
{
    const double cosine = std::cos(q.angle.alfa);
    const double sine = std::sin(q.angle.alfa);
    const double heel_y = q.centre_y;
    const double heel_z = q.centre_z;
    double integral = 0;
    const auto add = [&](double y, double z, double da) {
        const double w = z * cosine - y * sine;
        integral += (y * y + z * z) * w * da;
    };
    const double up = q.h - q.tw / 2;
    const double across = q.b - q.tw / 2;
    for (const double at : {0.5 - std::sqrt(3.0) / 6, 0.5 + std::sqrt(3.0) / 6}) {
        add(heel_y, heel_z + at * up, up * q.tw / 2);
        add(heel_y + at * across, heel_z, across * q.tw / 2);
    }
    return heel_z * cosine - heel_y * sine - integral / (2 * q.angle.iu);
}

}  // namespace kestrum::standard
