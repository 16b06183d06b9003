#include "analysis/beam_formulas.h"

namespace kestrum {

namespace {

Curve FromStart(const Terms& terms)
{
    return {terms, {}, true, false};
}

Curve FromEnd(const Terms& terms)
{
    return {{}, terms, false, true};
}

// The line left of a force starts with m0 and shear v, the line right of it ends with ml and shear
// vl.
Terms StraightFromStart(double m0, double v)
{
    Terms t;
    t.m0 = m0;
    t.m1 = v;
    t.v0 = v;
    return t;
}

Terms StraightFromEnd(double ml, double vl)
{
    Terms t;
    t.m0 = ml;
    t.m1 = -vl;  // M = ML - VL (L - x)
    t.v0 = vl;
    return t;
}

PointResponse ForceOnPinned(double l, double p, double a)
{
    const double b = l - a, alpha = a / l, beta = b / l;
    const double r0 = p * b / l;
    const double vl = r0 - p;
    Terms left = StraightFromStart(0, r0);
    left.d1 = p * b * l * (1 - beta * beta) / 6;
    left.d3 = -p * b / (6 * l);
    Terms right = StraightFromEnd(0, vl);
    right.d1 = p * a * l * (1 - alpha * alpha) / 6;
    right.d3 = -p * a / (6 * l);
    return {a, FromStart(left), FromEnd(right)};
}

PointResponse ForceOnPropped(double l, double p, double a)
{
    const double b = l - a, alpha = a / l, beta = b / l;
    const double r0 = p * beta * beta * (3 - beta) / 2;
    const double vl = -(p * a / (2 * l)) * (3 - alpha * alpha);
    const double ml = -(p * a / 2) * (1 - alpha * alpha);
    Terms left = StraightFromStart(0, r0);
    left.d1 = p * b * b * 3 * alpha / 12;
    left.d3 = -p * b * b * (2 + alpha) / (12 * l * l);
    Terms right = StraightFromEnd(ml, vl);
    right.d2 = p * a * 3 * (1 - alpha * alpha) / 12;
    right.d3 = -p * a * (3 - alpha * alpha) / (12 * l);
    return {a, FromStart(left), FromEnd(right)};
}

PointResponse ForceOnFixed(double l, double p, double a)
{
    const double b = l - a, alpha = a / l, beta = b / l;
    const double r0 = p * beta * beta * (1 + 2 * alpha);
    const double vl = r0 - p;
    Terms left = StraightFromStart(-p * a * b * b / (l * l), r0);
    left.d2 = p * a * (3 - 6 * alpha + 3 * alpha * alpha) / 6;
    left.d3 = -p * (1 - 3 * alpha * alpha + 2 * alpha * alpha * alpha) / 6;
    Terms right = StraightFromEnd(-p * a * a * b / (l * l), vl);
    right.d2 = p * b * (3 - 6 * beta + 3 * beta * beta) / 6;
    right.d3 = -p * (1 - 3 * beta * beta + 2 * beta * beta * beta) / 6;
    return {a, FromStart(left), FromEnd(right)};
}

PointResponse ForceOnCantilever(double l, double p, double a)
{
    const double b = l - a;
    Terms left;  // M = -P (a - x), E I d = P x2 (3 a - x)/6
    left.m0 = -p * a;
    left.m1 = p;
    left.v0 = -p;  // D105
    left.d2 = p * a / 2;
    left.d3 = -p / 6;
    Terms right;  // straight, without force
    right.d0 = p * (2 * l * l * l - 3 * l * l * b + b * b * b) / 6;
    right.d1 = -p * a * a / 2;
    return {a, FromStart(left), FromEnd(right)};
}

}  // namespace

Curve UniformLoad(Beam beam, double l, double q)
{
    Terms t;
    if (beam == Beam::cantilever) {
        t.m2 = -q / 2;
        t.v1 = -q;  // D105
        t.d0 = q * l * l * l * l / 8;
        t.d1 = -q * l * l * l / 6;
        t.d4 = q / 24;
        return FromEnd(t);
    }
    t.m2 = -q / 2;
    t.v1 = -q;
    switch (beam) {
    case Beam::propped:
        t.v0 = 3 * q * l / 8;
        t.m1 = t.v0;
        t.d1 = q * l * l * l / 48;
        t.d3 = -3 * q * l / 48;
        t.d4 = 2 * q / 48;
        break;
    case Beam::fixed:
        t.v0 = q * l / 2;
        t.m0 = -q * l * l / 12;
        t.m1 = t.v0;
        t.d2 = q * l * l / 24;
        t.d3 = -2 * q * l / 24;
        t.d4 = q / 24;
        break;
    default:
        t.v0 = q * l / 2;
        t.m1 = t.v0;
        t.d1 = q * l * l * l / 24;
        t.d3 = -2 * q * l / 24;
        t.d4 = q / 24;
        break;
    }
    return FromStart(t);
}

PointResponse PointForce(Beam beam, double l, double p, double a)
{
    switch (beam) {
    case Beam::propped:
        return ForceOnPropped(l, p, a);
    case Beam::fixed:
        return ForceOnFixed(l, p, a);
    case Beam::cantilever:
        return ForceOnCantilever(l, p, a);
    default:
        return ForceOnPinned(l, p, a);
    }
}

PointResponse PointMoment(Beam beam, double l, double m, double a)
{
    const double alpha = a / l, beta = (l - a) / l;
    Terms left;
    switch (beam) {
    case Beam::pinned:
        left = StraightFromStart(0, -m / l);
        left.d1 = m * (3 * a * a + 2 * l * l - 6 * a * l) / (6 * l);
        left.d3 = m / (6 * l);
        break;
    case Beam::propped:
        left = StraightFromStart(0, (3 * alpha * alpha - 3) * m / (2 * l));
        left.d1 = -m * (l - a) * (3 * a - l) / (4 * l);
        left.d3 = 3 * m * (l * l - a * a) / (12 * l * l * l);
        break;
    case Beam::fixed:
        left = StraightFromStart(-m * (2 * beta * beta + alpha * alpha - 1),
                                 (beta * beta + alpha * alpha - 1) * 3 * m / l);
        left.d2 = m * (l * l - 4 * a * l + 3 * a * a) / (2 * l * l);
        left.d3 = 6 * m * a * (l - a) / (6 * l * l * l);
        break;
    case Beam::cantilever:
        left.m0 = -m;
        left.d2 = m / 2;
        break;
    }

    // Behind the load the moment is higher by m, and the deflection lower by m (x - a)2/2.
    PointResponse response{a, FromStart(left), FromStart(left)};
    Terms& right = response.right.x;
    right.m0 += m;
    right.d0 -= m * a * a / 2;
    right.d1 += m * a;
    right.d2 -= m / 2;
    if (beam == Beam::pinned) {
        right.m0 = a == l ? -m : 0;  // at the far support the moment stands on the support itself
        right.m1 = 0;
        response.right.y.m1 = a == l ? 0 : m / l;  // M = m (L - x)/L, exactly 0 at the end
        response.right.usesy = true;
    }
    return response;
}

}  // namespace kestrum
