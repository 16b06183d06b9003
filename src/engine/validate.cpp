#include "engine/validate.h"

#include "core/field_table.h"
#include "core/load_combination.h"
#include "core/material.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "engine/family_routines.h"
#include "sections/families.h"
#include "sections/family_table.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace kestrum {

namespace {

constexpr int kNoRow = -1;
// Fields of the table rows, in the order of the tables.
#define TABLE(name, ...) "row." #name,
constexpr std::array<std::string_view, kTables> kRowNames = {
#include "core/profile_tables.inc"
};
#undef TABLE
constexpr float kLeastLength = 0.05F;  // m

// Collects the faults of one record.
class Findings {
public:
    void Require(bool good, std::string_view name, double value, std::string_view allowed,
                 std::string_view unit = {}, int row = kNoRow)
    {
        if (!good && static_cast<std::size_t>(faults_.count) < faults_.fault.size()) {
            faults_.fault[static_cast<std::size_t>(faults_.count++)] = {.stage = Stage::input,
                                                                        .cause =
                                                                            Cause::out_of_range,
                                                                        .quantity = name,
                                                                        .row = row,
                                                                        .value = value,
                                                                        .unit = unit,
                                                                        .allowed = allowed};
        }
    }
    void Finite(std::string_view name, double value, std::string_view unit, int row = kNoRow)
    {
        Require(std::isfinite(value), name, value, "a finite number", unit, row);
    }
    void Positive(std::string_view name, double value, std::string_view unit)
    {
        Require(std::isfinite(value) && value > 0, name, value, "greater than 0", unit);
    }
    // Limits are given in decimals and a value is kept as a float: both count as floats.
    void Within(double low, double high, std::string_view name, double value,
                std::string_view allowed, std::string_view unit = {})
    {
        const auto x = static_cast<float>(value);
        Require(x >= static_cast<float>(low) && x <= static_cast<float>(high), name, value, allowed,
                unit);
    }
    const InputFaults& faults() const { return faults_; }

private:
    InputFaults faults_{};
};

void CheckSettings(const ProjectState& s, const Library* library, Findings& in)
{
    in.Within(0.5, 1.5, "gammam0", s.gammam0, "0.5 to 1.5");
    in.Within(0.5, 1.5, "gammam1", s.gammam1, "0.5 to 1.5");
    in.Within(1.0, 1.2, "neta", s.neta, "1.0 to 1.2");
    in.Within(1, 2, "method", s.method, "1 or 2");
    if (library != nullptr && !IsListedGrade(*library, s.fykindex)) {
        in.Within(50, 2000, "fyk", s.fyk, "50 to 2000", "MPa");
    }
    in.Require(std::isfinite(s.e) && s.e >= 1000, "e", s.e, "1000 and more", "MPa");
    in.Within(kEq610, kBasicLoads, "loadcomb", s.loadcomb, "0 to 5");
}

void CheckCombination(const ProjectState& s, Findings& in)
{
    if (s.loadcomb == kUserFactors) {
        const auto factor = [&in](std::string_view name, float value) {
            in.Require(value > 0 && value < 4, name, value, "greater than 0, less than 4");
        };
        factor("lfulsg", s.lfulsg);
        factor("lfulsq1", s.lfulsq1);
        factor("lfulsq2", s.lfulsq2);
        factor("lfslsg", s.lfslsg);
        factor("lfslsq1", s.lfslsq1);
        factor("lfslsq2", s.lfslsq2);
    } else if (s.loadcomb != kBasicLoads) {
        in.Within(-1, 9, "psi1index", s.psi1index, "0 to 9");  // -1: no entry chosen, psi is 0
        in.Within(-1, 9, "psi2index", s.psi2index, "0 to 9");
    }
    in.Require(s.deflimity > 0, "deflimity", s.deflimity, "greater than 0");
    in.Require(s.deflimitz > 0, "deflimitz", s.deflimitz, "greater than 0");
}

bool LengthIsGood(const ProjectState& s)
{
    return std::isfinite(s.l) && s.l >= kLeastLength;
}

void CheckMember(const ProjectState& s, Findings& in)
{
    in.Require(LengthIsGood(s), "l", s.l, "0.05 and more", "m");
    in.Within(0, 5, "supportcase", s.supportcase, "0 to 5");
    if (s.supportcase == SupportCase::springs || s.supportcase == SupportCase::pinned_spring) {
        in.Within(0, 100, "spring", s.spring, "0 to 100", "%");
    }
    in.Within(0, 1, "webstiff", s.webstiff, "0 or 1");
    in.Within(0, 1, "endstiff", s.endstiff, "0 or 1");
    in.Positive("webstiffa", s.webstiffa, "mm");
    in.Within(0, 5, "bcy", s.bcy, "0 to 5");
    in.Within(0, 5, "bcz", s.bcz, "0 to 5");
    in.Require(std::isfinite(s.ly) && s.ly >= 0, "ly", s.ly, "0 and more");
    in.Require(std::isfinite(s.lz) && s.lz >= 0, "lz", s.lz, "0 and more");
}

void CheckLateralBuckling(const ProjectState& s, LateralBuckling lateral, Findings& in)
{
    if (lateral == LateralBuckling::off) {
        return;
    }
    in.Within(0, 1, "ltb", s.ltb, "0 or 1");
    if (s.ltb != 1) {
        return;
    }
    in.Positive("ltbk", s.ltbk, {});
    in.Within(0, 5, "restraints", s.restraints, "0 to 5");
    in.Within(1, 4, "loadlevel", s.loadlevel, "1 to 4");
    if (s.loadlevel == 4) {
        in.Finite("za", s.za, "mm");
    }
    if (lateral == LateralBuckling::on) {
        in.Within(2, 3, "ltbcurve", s.ltbcurve, "2 or 3");
    }
    if (s.cmanual != kFalse) {
        in.Positive("c1", s.c1, {});
        in.Finite("c2", s.c2, {});
        in.Finite("c3", s.c3, {});
    }
}

bool Listed(double value, int count)
{
    return value == 0 || value == 1 || (count > 2 && value == 2);
}

void Category(std::string_view name, double value, int row, Findings& in)
{
    in.Require(Listed(value, 3), name, value, "0 (G), 1 (Q1) or 2 (Q2)", {}, row);
}

void Direction(std::string_view name, double value, int row, Findings& in)
{
    in.Require(Listed(value, 2), name, value, "0 (y) or 1 (z)", {}, row);
}

// Rows that are not ticked are left out of the basic loads.
bool Counts(const ProjectState& s, i16 ticked)
{
    return ticked != 0 || s.loadcomb != kBasicLoads;
}

void Position(const ProjectState& s, std::size_t k, Findings& in)
{
    in.Require(!LengthIsGood(s) || (s.pmx[k] >= 0 && s.pmx[k] <= s.l), "pmx", s.pmx[k], "0 to l",
               "m", static_cast<int>(k));
}

void CheckLineLoads(const ProjectState& s, Findings& in)
{
    for (std::size_t k = 1; k <= 4; ++k) {
        const int row = static_cast<int>(k);
        in.Finite("qload", s.qload[k], "kN/m", row);
        if (s.qload[k] != 0 && Counts(s, s.qchecked[k])) {
            Category("qtype", s.qtype[k], row, in);
            Direction("qdir", s.qdir[k], row, in);
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        const int row = static_cast<int>(k);
        in.Finite("qt1", s.qt1[k], "kN/m", row);
        in.Finite("qt2", s.qt2[k], "kN/m", row);
        if ((s.qt1[k] != 0 || s.qt2[k] != 0) && Counts(s, s.qtchecked[k])) {
            Category("qttype", s.qttype[k], row, in);
            Direction("qtdir", s.qtdir[k], row, in);
            if (!LengthIsGood(s)) {
                continue;
            }
            in.Require(s.qtx1[k] >= 0 && s.qtx1[k] <= s.l, "qtx1", s.qtx1[k], "0 to l", "m", row);
            in.Require(s.qtx2[k] >= 0 && s.qtx2[k] <= s.l, "qtx2", s.qtx2[k], "0 to l", "m", row);
        }
    }
}

void CheckPointLoads(const ProjectState& s, Findings& in)
{
    for (std::size_t k = 1; k <= 8; ++k) {
        const int row = static_cast<int>(k);
        in.Finite("pm", s.pm[k], s.pmkind[k] == 1 ? "kNm" : "kN", row);
        if (s.pm[k] != 0 && Counts(s, s.pmchecked[k])) {
            Position(s, k, in);
            in.Require(Listed(s.pmkind[k], 2), "pmkind", s.pmkind[k], "0 (force) or 1 (moment)", {},
                       row);
            Category("pmtype", s.pmtype[k], row, in);
            Direction("pmdir", s.pmdir[k], row, in);
        }
    }
}

void CheckLoads(const ProjectState& s, Findings& in)
{
    in.Within(0, 1, "loadmode", s.loadmode, "0 (end forces) or 1 (loads)");
    if (s.loadmode == 0) {
        const std::initializer_list<std::pair<std::string_view, float>> forces = {
            {"ne", s.ne},   {"my1", s.my1}, {"my2", s.my2}, {"vy1", s.vy1}, {"vy2", s.vy2},
            {"mz1", s.mz1}, {"mz2", s.mz2}, {"vz1", s.vz1}, {"vz2", s.vz2}};
        for (const auto& [name, force] : forces) {
            in.Finite(name, force, name.starts_with('m') ? "kNm" : "kN");
        }
        return;
    }
    in.Within(0, 1, "selfweight", s.selfweight, "0 or 1");
    for (std::size_t k = 1; k <= 3; ++k) {
        in.Finite("nload", s.nload[k], "kN", static_cast<int>(k));
        if (s.nload[k] != 0 && Counts(s, s.nchecked[k])) {
            Category("ntype", s.ntype[k], static_cast<int>(k), in);
        }
    }
    CheckLineLoads(s, in);
    CheckPointLoads(s, in);
}

void CheckPoints(const ProjectState& s, Findings& in)
{
    if (!LengthIsGood(s)) {
        return;
    }
    if (s.cpmode != 1) {  // two at each position, with or without a load
        for (std::size_t k = 1; k <= 8; ++k) {
            if (s.pm[k] == 0 || s.loadmode != 1 || !Counts(s, s.pmchecked[k])) {
                Position(s, k, in);
            }
        }
        return;
    }
    in.Within(1, 3, "cpcount", s.cpcount, "1 to 3");
    const int used = s.cpcount == 1 ? 1 : s.cpcount == 2 ? 2 : 3;
    for (int k = 1; k <= used; ++k) {
        const float at = s.cp[static_cast<std::size_t>(k)];
        in.Require(at >= 0 && at <= s.l, "cp", at, "0 to l", "m", k);
    }
}

void CheckRow(const ProjectState& s, const Library* library, Findings& in)
{
    if (library == nullptr || !HasTable(s.family)) {
        return;
    }
    const auto table = static_cast<std::size_t>(TableOf(s));
    const i16 row = s.row[table];
    in.Require(row >= 0 && row < library->tables[table].rows, kRowNames[table], row,
               "a row of the table");
}

// What the section form holds. Whether the parts fit together is seen in the section itself.
void CheckBoxesOfForm(const ProjectState& s, std::string_view form, Findings& in)
{
    for (const Field& field : FieldsOfForm(form)) {
        const std::string_view box = field.name.substr(form.size() + 1);
        const double value = NumberOf(s, field, 0);
        if (box.starts_with("op")) {
            in.Within(1, 3, field.name, value, "1 to 3");  // classes of a general profile
        } else if (box == "ista" || box == "istc" || box == "hsqc") {
            in.Require(std::isfinite(value) && value >= 0, field.name, value, "0 and more", "mm");
        } else {
            in.Positive(field.name, value, field.unit);
        }
    }
}

void CheckOptions(const ProjectState& s, const FamilyTraits& traits, Findings& in)
{
    if (traits.kind == Kind::angle) {
        in.Within(1, 2, "lopt", s.lopt, "1 or 2");
    }
    if (traits.kind == Kind::hat) {
        in.Within(0, 1, "hsqopt", s.hsqopt, "0 or 1");
        if (s.hsqopt == 0 && traits.form == "p24") {  // the one with a load on either flange
            in.Within(50, 90, "flangeload", s.flangeload, "50 to 90", "%");
        }
    }
}

}  // namespace

InputFaults Unfinished(const ProjectState& s)
{
    Findings in;
    for (std::size_t k = 1; k <= 3 && s.loadmode == 1; ++k) {
        const bool loaded = (s.qt1[k] != 0 || s.qt2[k] != 0) && Counts(s, s.qtchecked[k]);
        in.Require(!loaded || s.qtx1[k] < s.qtx2[k], "qtx1", s.qtx1[k], "less than qtx2", "m",
                   static_cast<int>(k));
    }
    return in.faults();
}

InputFaults Validate(const ProjectState& s, const Library* library)
{
    if (FindRoutines(s.family) == nullptr) {
        return {};
    }
    const FamilyTraits& traits = Traits(s);
    Findings in;
    CheckSettings(s, library, in);
    CheckCombination(s, in);
    CheckMember(s, in);
    CheckLateralBuckling(s, traits.design.lateral, in);
    CheckLoads(s, in);
    CheckPoints(s, in);
    CheckRow(s, library, in);
    CheckOptions(s, traits, in);
    CheckBoxesOfForm(s, traits.form, in);
    return in.faults();
}

}  // namespace kestrum
