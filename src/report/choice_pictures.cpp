#include "report/choice_pictures.h"

#include "report/figure_tools.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

namespace kestrum {

namespace {

using std::numbers::pi;

constexpr double kWidth = 40, kHeight = 18;  // of a lying picture
constexpr double kStart = 6, kEnd = 34, kBeam = 7;
constexpr double kSize = 4;  // of a support
constexpr double kBold = 0.8;
constexpr int kSteps = 40;

Drawing Picture(double width, double height, const char* title)
{
    Drawing d;
    d.width = width;
    d.height = height;
    d.title = title;
    return d;
}

void AddBeam(Drawing& d, EndSupports ends)
{
    AddLine(d, {kStart, kBeam}, {kEnd, kBeam}, Ink::member, kBold);
    AddSupport(d, {kStart, kBeam}, ends.left, -1, kSize);
    AddSupport(d, {kEnd, kBeam}, ends.right, 1, kSize);
}

const char* FactorText(int choice)
{
    constexpr const char* kText[] = {"2.0", "1.0", "0.7", "0.5", "0"};
    return choice >= 1 && choice <= 5 ? kText[choice - 1] : "";
}

void AddWall(Drawing& d, Point at, double side)
{
    const double half = 3;
    AddLine(d, {at.x - half, at.y}, {at.x + half, at.y}, Ink::member, 0.5);
    for (int i = 0; i <= 4; ++i) {
        const double x = at.x - half + 1.5 * i;
        AddLine(d, {x, at.y}, {x - 1, at.y + side * 1.4}, Ink::member);
    }
}

void AddPin(Drawing& d, Point at)
{
    d.marks.push_back(CircleMark{at, 0.8, Ink::member, 0.4, false});
}

}  // namespace

Drawing EndForcePicture(const std::string& moment, const std::string& shear)
{
    constexpr double kFrom = 30, kTo = 70, kAxis = 15, kArrow = 9, kHead = 1.6, kRadius = 4,
                     kText = 3.2, kStroke = 0.45;
    Drawing d = Picture(100, 30, "Positive end forces");
    AddLine(d, {kFrom, kAxis}, {kTo, kAxis}, Ink::member, kBold);
    for (const double side : {-1.0, 1.0}) {
        const std::string end = side < 0 ? "1" : "2";
        const double x = side < 0 ? kFrom : kTo;
        AddTurn(d, {x + side * 8, kAxis}, kRadius, side > 0, Ink::load, kStroke);
        AddText(d, {{x + side * 8, kAxis - 7}, moment + end, kText, Align::centre});
        // Up on the left end, down on the right one.
        const double half = kArrow / 2;
        AddArrow(d, {x - side * 2, kAxis - side * half}, {x - side * 2, kAxis + side * half},
                 Ink::load, kStroke, kHead);
        AddText(d, {{x - side * 4, kAxis - 3.4},
                    shear + end,
                    kText,
                    side < 0 ? Align::left : Align::right});
        AddArrow(d, {x + side * (14 + kArrow), kAxis}, {x + side * 14, kAxis}, Ink::load, kStroke,
                 kHead);
        AddText(d, {{x + side * (14 + half), kAxis - 2.4}, "N", kText, Align::centre});
    }
    std::vector<Point> sag;
    for (int i = 0; i <= kSteps; ++i) {
        const double t = static_cast<double>(i) / kSteps;
        sag.push_back({kFrom + t * (kTo - kFrom), kAxis + 6 * std::sin(pi * t)});
    }
    AddCurve(d, std::move(sag), Ink::moment);
    return d;
}

double BuckledShape(int choice, double x)
{
    switch (choice) {
    case 1:
        return 1 - std::cos(pi / 2 * x);
    case 2:
        return std::sin(pi * x);
    case 3: {                               // fixed foot, pinned head
        constexpr double kRoot = 4.493409;  // tan k = k
        constexpr double kMost = 6.283184;  // of the expression below, at x = 0.602
        const double k = kRoot * x;
        return (std::sin(k) - k + kRoot * (1 - std::cos(k))) / kMost;
    }
    case 4:
        return (1 - std::cos(2 * pi * x)) / 2;
    default:
        return 0;
    }
}

Drawing SupportPicture(int supportcase)
{
    Drawing d = Picture(kWidth, kHeight, "Supports");
    AddBeam(d, SupportsOf(supportcase));
    return d;
}

Drawing BucklingPicture(int choice)
{
    constexpr double kFoot = 32, kLength = 24, kAxis = 8, kSwing = 5;
    Drawing d = Picture(20, 40, "Buckling length");
    AddLine(d, {kAxis, kFoot}, {kAxis, kFoot - kLength}, Ink::faint, kThin, true);
    std::vector<Point> curve;
    for (int i = 0; i <= kSteps; ++i) {
        const double x = 1.0 * i / kSteps;
        curve.push_back({kAxis + kSwing * BuckledShape(choice, x), kFoot - x * kLength});
    }
    const Point head = curve.back();
    AddCurve(d, std::move(curve), Ink::moment, kBold);
    AddArrow(d, {head.x, head.y - 6}, {head.x, head.y - 1}, Ink::load, 0.4, 2);
    if (choice == 2) {
        AddPin(d, {kAxis, kFoot});
    } else {
        AddWall(d, {kAxis, kFoot}, 1);
    }
    if (choice == 2 || choice == 3) {
        AddPin(d, head);
    } else if (choice == 4) {
        AddLine(d, {kAxis - 3, head.y}, {kAxis + 3, head.y}, Ink::member, 0.5);
    } else if (choice == 5) {  // held all along
        for (int i = 1; i <= 5; ++i) {
            const double y = kFoot - i * kLength / 6;
            AddLine(d, {kAxis, y}, {kAxis + 4, y}, Ink::member);
            AddLine(d, {kAxis + 4, y - 1.2}, {kAxis + 4, y + 1.2}, Ink::member, 0.4);
        }
    }
    TextMark text{{10, 38.5}, FactorText(choice), 4};
    text.align = Align::centre;
    AddText(d, std::move(text));
    return d;
}

Drawing LateralBucklingPicture(int choice)
{
    Drawing d = Picture(kWidth, kHeight, "Lateral torsional buckling length");
    const double length = kEnd - kStart;
    AddLine(d, {kStart, kBeam}, {kEnd, kBeam}, Ink::faint, kThin, true);
    std::vector<Point> curve;
    for (int i = 0; i <= kSteps; ++i) {
        const double x = 1.0 * i / kSteps;
        curve.push_back({kStart + x * length, kBeam - 3.5 * BuckledShape(choice, x)});
    }
    AddCurve(d, std::move(curve), Ink::moment, kBold);
    if (choice == 2) {
        AddPin(d, {kStart, kBeam});
    } else {
        AddSupport(d, {kStart, kBeam}, Support::fixed, -1, 3);
    }
    if (choice == 4) {
        AddSupport(d, {kEnd, kBeam}, Support::fixed, 1, 3);
    } else if (choice != 1) {
        AddPin(d, {kEnd, kBeam});
    }
    TextMark text{{kWidth / 2, kHeight - 1.5}, std::string("k = ") + FactorText(choice), 4};
    text.align = Align::centre;
    AddText(d, std::move(text));
    return d;
}

Drawing LateralRestraintPicture(int restraints)
{
    constexpr double kDepth = 4;
    Drawing d = Picture(kWidth, kHeight, "Lateral restraints");
    for (const double y : {kBeam - kDepth / 2, kBeam + kDepth / 2}) {
        AddLine(d, {kStart, y}, {kEnd, y}, Ink::member, 0.5);
    }
    for (const double x : {kStart, kEnd}) {
        AddLine(d, {x, kBeam - kDepth / 2}, {x, kBeam + kDepth / 2}, Ink::member);
        AddSupport(d, {x, kBeam + kDepth / 2}, Support::pinned, 1, 3.2);
    }
    for (int i = 1; i <= restraints; ++i) {  // a cross on the upper flange
        const Point at{kStart + (kEnd - kStart) * i / (restraints + 1), kBeam - kDepth / 2};
        AddLine(d, {at.x - 1, at.y - 1}, {at.x + 1, at.y + 1}, Ink::load, 0.5);
        AddLine(d, {at.x - 1, at.y + 1}, {at.x + 1, at.y - 1}, Ink::load, 0.5);
    }
    return d;
}

Drawing VortexSupportPicture(int vortexcase)
{
    Drawing d = Picture(kWidth, kHeight, "Support");
    switch (vortexcase) {
    case 0:
        AddBeam(d, {Support::pinned, Support::roller});
        break;
    case 1:
        AddBeam(d, {Support::fixed, Support::roller});
        break;
    case 2:
        AddBeam(d, {Support::fixed, Support::fixed});
        break;
    case 3:
        AddBeam(d, {Support::fixed, Support::none});
        break;
    case 4: {  // one bar of a tubular truss between its chords
        AddLine(d, {2, 3}, {kWidth - 2, 3}, Ink::member, 1.6);
        AddLine(d, {2, kHeight - 3}, {kWidth - 2, kHeight - 3}, Ink::member, 1.6);
        const Point bar[] = {{4, 15}, {14, 3}, {26, 15}, {36, 3}};
        AddLine(d, bar[0], bar[1], Ink::faint, 0.6);
        AddLine(d, bar[1], bar[2], Ink::moment, 1.2);
        AddLine(d, bar[2], bar[3], Ink::faint, 0.6);
        break;
    }
    default:
        break;
    }
    return d;
}

}  // namespace kestrum
