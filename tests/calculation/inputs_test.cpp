// What a result rests on stands in the report: an input of the member that changes a ratio changes
// the chapters of inputs, section or actions.

#include "calculation/chapters.h"
#include "core/check_text.h"
#include "core/field_table.h"
#include "document/markdown_writer.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "standard/standard.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {
namespace {

// Ratios of both sets of rules, and what keeps them from having one.
struct Ratios {
    std::vector<double> all;
    std::string why;
};

Ratios RatiosOf(const CalculatedMember& m)
{
    Ratios ratios{{}, m.outcome.message};
    for (std::size_t i = 1; i < kChecks; ++i) {
        const Check& check = m.s.checklist[static_cast<CheckId>(i)];
        ratios.all.push_back(m.outcome.designed() && IsJudged(check) ? check.ratio : -1);
    }
    for (const standard::Check& check : m.standard.checks.best) {
        ratios.all.push_back(check.present ? check.ir : -1);
    }
    for (const std::string& outside : m.standard.outside) {
        ratios.why += outside;
    }
    return ratios;
}

bool Differ(const Ratios& a, const Ratios& b)
{
    constexpr double kSeen = 1e-4;
    return a.why != b.why ||
           !std::equal(a.all.begin(), a.all.end(), b.all.begin(), [](double x, double y) {
               return x == y || std::abs(x - y) <= kSeen * std::abs(x);
           });
}

CalculatedMember Pass(const ProjectState& input)
{
    CalculatedMember m{.library = Delivered(),
                       .input = input,
                       .s = input,
                       .outcome = {},
                       .standard = {},
                       .stages = {},
                       .vortex = false};
    m.outcome = OutcomeOf(m.s, Calculate(Delivered(), m.s));
    m.stages = StagesOf(m.s);
    return m;
}

// The chapters that say what was given.
std::string GivenIn(const CalculatedMember& m)
{
    Document d;
    AddInputs(m, d);
    AddSection(m, d);
    AddLoading(m, d);
    for (Block& block : d.blocks) {
        if (const auto* const row = std::get_if<FigureRow>(&block)) {
            block = Paragraph{row->figures.front().caption};
        }
    }
    return WriteMarkdown(d);
}

// Values beside that of the base: two of a list, a little more of a number.
std::vector<double> OtherValues(const Field& field, double value)
{
    if (field.values == kTruthValues) {
        return {value == 0 ? -1.0 : 0.0};
    }
    if (field.values.empty() || !std::isdigit(static_cast<unsigned char>(field.values.front()))) {
        return {field.kind == FieldKind::integer ? value + 1 : value * 1.003};
    }
    const std::string list(field.values);
    if (list.find("..") != std::string::npos) {
        return {value + 1};
    }
    std::vector<double> others;
    for (std::size_t at = 0; at != std::string::npos && others.size() < 2;) {
        const double other = std::stod(list.substr(at));
        if (other != value) {
            others.push_back(other);
        }
        const std::size_t bar = list.find('|', at);
        at = bar == std::string::npos ? bar : bar + 1;
    }
    return others;
}

// Of the member as it is: not the box of another family, not what no ratio of a check rests on.
bool Asked(const Field& field, const ProjectState& s)
{
    static const std::set<std::string_view> kOther = {
        "family", "loadmode", "beampart", "uflimit",       "spare1",        "spare2", "terrain",
        "vb",     "zh",       "modal",    "bucklingcasey", "bucklingcasez", "ltbcase"};
    const std::size_t point = field.name.find('.');
    const bool form = point != std::string_view::npos;
    const std::string_view front = field.name.substr(0, point);
    const bool own = !form || front == Traits(s).form ||
                     (front == "row" && HasTable(s.family) &&
                      FindField(field.name)->locate(const_cast<ProjectState&>(s), 0) ==
                          &s.row[static_cast<std::size_t>(TableOf(s))]);
    return field.role != FieldRole::derived && own && !kOther.contains(field.name) &&
           field.kind != FieldKind::text && field.kind != FieldKind::literal;
}

void CompareFields(const ProjectState& base, std::set<std::string>& missing)
{
    CalculatedMember whole = Pass(base);
    whole.standard = standard::CalculateStandard(Delivered(), base);
    const Ratios ratios = RatiosOf(whole);
    const std::string given = GivenIn(whole);
    for (const Field& field : AllFields()) {
        if (!Asked(field, base)) {
            continue;
        }
        const int index = field.first == field.last ? 0 : 1;
        const double present = NumberOf(base, field, index);
        for (const double value : OtherValues(field, present)) {
            ProjectState other = base;
            if (!PutNumber(other, field, index, value)) {
                continue;
            }
            SetPsi(other);
            CalculatedMember m = Pass(other);
            m.standard = whole.standard;
            if (GivenIn(m) != given) {
                continue;
            }
            m.standard = standard::CalculateStandard(Delivered(), other);
            if (Differ(RatiosOf(m), ratios) && GivenIn(m) == given) {
                missing.insert(IndexedName(field, index) + " = " + std::to_string(value));
            }
        }
    }
}

TEST(Inputs, WhatChangesARatioStandsInTheReport)
{
    const std::string steel = "annexcode=UD fykindex=2 e=210000 gammam0=1 gammam1=1 neta=1.2 "
                              "checksls=-1 l=6 ly=1 lz=1 psi1index=6 psi2index=2 ";
    const std::string loads =
        "loadmode=1 loadcomb=0 nload[1]=40 nload[2]=20 ntype[2]=1 qload[1]=6 qtype[1]=1 "
        "qload[2]=1 qdir[2]=0 qt1[1]=3 qt2[1]=5 qtx1[1]=1 qtx2[1]=4 "
        "qttype[1]=2 pm[1]=7 pmx[1]=2 pmtype[1]=2 ";
    const std::string variants[] = {
        "ltb=1 p24.isttw=4.5 p25.isttw=4.5 flangeload=60 ",
        "ltb=1 loadlevel=4 za=30 cmanual=-1 c1=1.1 c2=0.4 c3=0.5 loadcomb=4 method=2 ",
        "ltb=1 restraints=1 loadcomb=5 supportcase=3 spring=40 webstiff=1 webstiffa=800 cpmode=1 "
        "cpcount=2 cp[1]=2 cp[2]=3 ",
        "loadmode=0 ne=30 my1=20 my2=-8 vz1=9 vz2=9 mz1=2 mz2=1 vy1=1 vy2=1 "};
    std::map<std::string, std::string> all;
    std::set<Kind> known;
    for (const FamilyTraits& family : Families()) {
        std::set<std::string> missing;
        const bool first = known.insert(family.kind).second || family.kind == Kind::hat;
        for (const std::string& variant : variants) {
            if (!first && &variant != &variants[0]) {
                continue;  // choices of loading and supports are those of its kind
            }
            const ProjectState base =
                Member(steel + loads + "family=" + std::to_string(family.id) + " " + variant);
            CompareFields(base, missing);
        }
        for (const std::string& name : missing) {
            all[name] += " " + std::to_string(family.id);
        }
    }
    for (const auto& [name, families] : all) {
        ADD_FAILURE() << name << " changes results of family" << families;
    }
}

}  // namespace
}  // namespace kestrum
