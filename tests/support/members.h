#pragma once

// The member of a test, put together call by call:
//
//     Member().Section("IPE 300").Length(6).Steel(355).Load(10).Calculated()
//     Member::Bare().Section(FormP28{.isth = 150, .isttw = 12}).Steel(235)
//
// A Member is a record: what no call names is set by its field, `m.ltb = 1`, or by text,
// `Member("ltb=1 qload[2]=5")`.

#include "app/assign.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "sections/section_names.h"
#include "support/delivered.h"
#include "support/steps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrum {

// `lines`: name=value, parted by blanks; the values are stored as the file reader stores them.
inline void SetFields(ProjectState& s, const std::string& lines)
{
    std::istringstream stream(lines);
    std::string word;
    while (stream >> word) {
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const std::string refusal =
            AssignField(Delivered(), s, name, word.substr(equals + 1), Assignment::raw);
        if (!refusal.empty()) {
            throw std::invalid_argument(word + ": " + refusal);
        }
    }
}

// No load, and every factor on loads 1.
inline constexpr const char* kUnloaded =
    "loadcomb=5 nload[1]=0 qload[1]=0 ne=0 my1=0 vz1=0 vortexcase=0 ";

class Member : public ProjectState {
public:
    // As the program starts: HEA, 5 m, N 100 kN, q 10 kN/m, the annex of the setup.
    Member() : ProjectState(Started()) {}
    explicit Member(const std::string& fields) : Member() { SetFields(*this, fields); }

    // For routines without the program around them: 5 m, the recommended values of EN 1993-1-1
    // (gammaM 1.0, curves for LTB from 0.4 with beta 0.75) but eta 1.0, all loads entered in z with
    // factors 1; all else is zero.
    static Member Bare(int family = 1, int series = 1)
    {
        Member m{ProjectState{}};
        m.gammam0 = m.gammam1 = m.neta = m.irlimit = 1;
        m.lamdalt0 = m.lamdalt0w = 0.4F;
        m.beta = m.betaw = 0.75;
        m.e = 210000;
        m.density = 7850;
        m.webstiffa = 5000;
        m.rectaxis = 1;
        m.l = 5;
        m.ly = m.lz = m.ltbk = 1;
        m.loadmode = 1;
        m.qdir.fill(1);
        m.qtdir.fill(1);
        m.pmdir.fill(1);
        return m.Unfactored().Family(family, series);
    }

    // --- Section --------------------------------------------------------------------------------

    // `series` of a family of several tables, from 1; 0 where there is one.
    Member& Family(int number, int series = 1)
    {
        family = static_cast<i16>(number);
        series101 = series103 = static_cast<i16>(std::max(series, 1));
        return *this;
    }
    Member& Row(int index)
    {
        row[static_cast<std::size_t>(TableOf(*this))] = static_cast<i16>(index);
        return *this;
    }
    // By the size key of the family's table: Family(1).Row("200") is HEA 200.
    Member& Row(std::string_view key) { return Row(RowOf(TableOf(*this), key)); }

    // By name: "HEA 200", "UB 203x133x25".
    Member& Section(std::string_view name)
    {
        const auto found = SectionOfName(Delivered(), name, family);
        EXPECT_TRUE(found) << name;
        return found ? Family(found->family, found->series).Row(found->row) : *this;
    }

    // By dimensions; mm.
    Member& Section(const FormP21& form) { return Family(21).Take(p21, form); }
    Member& Section(const FormP22& form) { return Family(22).Take(p22, form); }
    Member& Section(const FormP23& form) { return Family(23).Take(p23, form); }
    Member& Section(const FormP24& form) { return Family(24).Take(p24, form); }
    Member& Section(const FormP25& form) { return Family(25).Take(p25, form); }
    Member& Section(const FormP26& form) { return Family(26).Take(p26, form); }
    Member& Section(const FormP27& form) { return Family(27).Take(p27, form); }
    Member& Section(const FormP28& form) { return Family(28).Take(p28, form); }
    Member& Section(const FormP31& form) { return Family(31).Take(p31, form); }
    Member& Section(const FormP41& form) { return Family(41).Take(p41, form); }
    Member& Section(const FormP51& form) { return Family(51).Take(p51, form); }
    Member& Section(const FormP53& form) { return Family(53).Take(p53, form); }
    Member& Section(const FormP56& form) { return Family(56).Take(p56, form); }

    // A strength typed for the member, MPa, whatever the thickness.
    Member& Steel(float fy)
    {
        fykindex = static_cast<i16>(Delivered().materials.size() - 1);
        fyd = fyk = fy;
        eps = static_cast<float>(std::sqrt(235.0 / static_cast<double>(fy)));
        return *this;
    }

    // --- Span and loads -------------------------------------------------------------------------

    Member& Length(float metres)
    {
        l = metres;
        return *this;
    }
    Member& Supports(int number)
    {
        supportcase = static_cast<i16>(number);
        return *this;
    }

    // Every factor on loads 1.
    Member& Unfactored()
    {
        loadcomb = kUserFactors;
        lfulsg = lfulsq1 = lfulsq2 = 1;
        lfslsg = lfslsq1 = lfslsq2 = 1;
        return *this;
    }
    // The loads as entered, without a combination.
    Member& BasicLoads()
    {
        loadcomb = kBasicLoads;
        return *this;
    }
    // The combination of an annex in a class of consequences; psi1 and psi2 by their place in the
    // list.
    Member& Annex(int index, int combination, int consequences, int first = 6, int second = 2)
    {
        annexindex = static_cast<i16>(index);
        loadcomb = static_cast<i16>(combination);
        safetyclass = static_cast<i16>(consequences);
        psi1index = static_cast<i16>(first);
        psi2index = static_cast<i16>(second);
        SetPsi(*this);
        ApplyAnnexLoads(*this, *this, index);
        return *this;
    }
    // No load at all, and the factors 1.
    Member& Unloaded()
    {
        nload = {};
        qload = {};
        return Unfactored();
    }
    // The loads of the first rows: a force along the member, kN, and one all over it, kN/m.
    Member& Axial(float n)
    {
        nload[1] = n;
        return *this;
    }
    Member& Load(float q)
    {
        qload[1] = q;
        return *this;
    }
    // Forces entered instead of loads, the same at both ends and without shear; kN, kNm.
    Member& EndForces(float n, float my, float mz)
    {
        loadmode = 0;
        ne = n;
        my1 = my2 = my;
        mz1 = mz2 = mz;
        vz1 = vz2 = vy1 = vy2 = 0;
        return *this;
    }

    // --- Steps ----------------------------------------------------------------------------------

    Member& Measured()
    {
        Measure(*this);
        return *this;
    }
    Member& Designed()
    {
        Design(*this);
        return *this;
    }

    // A pass that must end well.
    Member& Calculated()
    {
        EXPECT_TRUE(Calculate(Delivered(), *this)) << "family " << family;
        return *this;
    }

private:
    explicit Member(const ProjectState& s) : ProjectState(s) {}

    static const ProjectState& Started()
    {
        static const ProjectState kStarted = StartState(Delivered());
        return kStarted;
    }

    template <class Form> Member& Take(Form& box, const Form& form)
    {
        box = form;
        return *this;
    }
};

}  // namespace kestrum
