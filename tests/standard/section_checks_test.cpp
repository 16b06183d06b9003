// Where along the member the cross-sections are checked, EN 1993-1-1, 6.2: lines set by hand.

#include "standard/section_checks.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

namespace kestrum {
namespace {

using standard::Axis;
using standard::CheckId;
using standard::Checks;
using standard::Classes;
using standard::CombinedLines;
using standard::PreparedSection;

constexpr Classes kElastic{3, {3, 3}, 3, {3, 3}, 3};
constexpr double kLength = 5;

// A T of class 3, whose sum of ratios is N/1000 + My/100 + Mz/40, in kN and kNm.
PreparedSection Tee()
{
    PreparedSection p{};
    standard::StandardSection& q = p.q;
    q.kind = Kind::tee;
    q.fy = 250;
    q.eps = q.eta = q.gammam0 = q.gammam1 = q.webs = 1;
    q.tw = 10;
    q.a = p.stocky_area = p.effective.a = 4000;
    q.avz = q.avy = 1e6;
    q.left = q.right = 100;
    q.iz = 1.6e7;
    p.effective.wy3_sagging = p.effective.wy3_hogging = 4e5;
    p.class_n = 3;
    return p;
}

// A section with its lines, a piece to each side of the middle.
struct Beam {
    PreparedSection p = Tee();
    Basis basis = Basis::Standard();
    CombinedLines lines{};

    Beam()
    {
        LineGridMaker maker(kLength);
        maker.Add(kLength / 2);
        lines.grid = maker.Grid();
    }
    // M = m0 + m1 s + m2 s^2 from the beginning of the piece.
    void Set(Axis axis, std::size_t piece, double m0, double m1, double m2)
    {
        (axis == Axis::y ? lines.y : lines.z).m.m[piece] = {m0, m1, m2, 0};
    }
    standard::SectionMember Member() const
    {
        return {p, {0, 5000, false, false}, false, 0, {}, nullptr};
    }
    Checks Checked() const
    {
        Checks checks;
        CheckSections(Member(), lines, kElastic, {}, checks, basis);
        return checks;
    }
};

// My = 4 a t (1 - t), Mz = b (1 - t), t = x/L: the sum is largest at t = (1 - B/(4 A))/2 with A =
// a/100 and B = b/40: A (1 - (B/4A)^2) + B (1 + B/4A)/2 = A + B/2 + B^2/16A.
TEST(SectionChecks, TheSumOfTwoMomentsIsLargestBetweenTheirExtremes)
{
    for (int i = 1; i < 80; ++i) {
        const double a = 50, b = 0.9 * i;
        Beam beam;
        const double l = kLength, half = kLength / 2;
        beam.Set(Axis::y, 0, 0, 4 * a / l, -4 * a / (l * l));
        beam.Set(Axis::y, 1, a, 0, -4 * a / (l * l));
        beam.Set(Axis::z, 0, b, -b / l, 0);
        beam.Set(Axis::z, 1, b - b / l * half, -b / l, 0);
        const auto& check = beam.Checked()[CheckId::section_nm];
        const double ay = a / 100, bz = b / 40;
        EXPECT_NEAR(check.ir, ay + bz / 2 + bz * bz / (16 * ay), 1e-11);
        EXPECT_NEAR(check.place, (1 - bz / (4 * ay)) / 2, 2e-6);
    }
}

TEST(SectionChecks, OfEqualPlacesTheFirstIsNamed)
{
    Beam beam;
    for (const std::size_t piece : {0U, 1U}) {
        beam.Set(Axis::y, piece, 40, 0, 0);
        beam.Set(Axis::z, piece, 8, 0, 0);
    }
    const Checks checks = beam.Checked();
    for (const CheckId id : {CheckId::section_my, CheckId::section_mz, CheckId::section_nm}) {
        EXPECT_EQ(checks[id].place, 0);
    }
    EXPECT_NEAR(checks[CheckId::section_nm].ir, 0.6, 1e-12);
}

// A case of more pieces may have gone before in the same record.
TEST(SectionChecks, WhatLiesBeyondTheLastPieceIsNotRead)
{
    Beam beam;
    beam.Set(Axis::y, 0, 40, 0, 0);
    beam.Set(Axis::y, 1, 40, 0, 0);
    beam.Set(Axis::y, 2, 4000, 0, 0);
    EXPECT_NEAR(beam.Checked()[CheckId::section_my].ir, 0.4, 1e-12);
    std::array<double, 3> largest{};
    KeepLargestAlong(beam.Member(), beam.lines, kElastic, beam.basis, largest);
    EXPECT_NEAR(largest[2], 0.4, 1e-12);
    const auto end = SectionTermsAt(beam.Member(), beam.lines, kElastic, beam.basis, kLength,
                                    CheckId::section_my);
    EXPECT_EQ(end.my, 40e6);
}

// Under a force in the middle both sides have the same moment and opposite shear: the terms are
// those of the left one; of unequal sides those of the worse.
TEST(SectionChecks, TermsAtAJump)
{
    Beam beam;
    beam.Set(Axis::y, 0, 0, 16, 0);
    beam.Set(Axis::y, 1, 40, -16, 0);
    const auto terms = [&](CheckId id) {
        return SectionTermsAt(beam.Member(), beam.lines, kElastic, beam.basis, kLength / 2, id);
    };
    EXPECT_EQ(terms(CheckId::section_my).vz, 16e3);
    beam.Set(Axis::y, 1, 48, -24, 0);
    EXPECT_EQ(terms(CheckId::section_my).my, 48e6);
    EXPECT_EQ(terms(CheckId::section_vz).vz, -24e3);
    beam.Set(Axis::y, 1, 32, -8, 0);
    EXPECT_EQ(terms(CheckId::section_my).my, 40e6);
    EXPECT_EQ(terms(CheckId::section_vz).vz, 16e3);
}

// Ratios at even places: both ends, and of a jump the larger side.
TEST(SectionChecks, LargestRatiosAlongTheMember)
{
    for (const bool left_larger : {true, false}) {
        Beam beam;
        beam.Set(Axis::y, 0, left_larger ? 60 : 20, 0, 0);
        beam.Set(Axis::y, 1, left_larger ? 20 : 60, 0, 0);
        std::array<double, 5> largest{0, 0, 0, 0.7, 0};
        KeepLargestAlong(beam.Member(), beam.lines, kElastic, beam.basis, largest);
        const double start = left_larger ? 0.6 : 0.2, end = left_larger ? 0.2 : 0.6;
        EXPECT_NEAR(largest[0], start, 1e-12);
        EXPECT_NEAR(largest[1], start, 1e-12);
        EXPECT_NEAR(largest[2], 0.6, 1e-12);
        EXPECT_EQ(largest[3], 0.7) << "what was larger before stays";
        EXPECT_NEAR(largest[4], end, 1e-12);
    }
}

}  // namespace
}  // namespace kestrum
