#pragma once

// Makers of all forms, by name.

#include "ui/form.h"

#include <string_view>
#include <vector>

namespace kestrum {

struct FormMaker {
    std::string_view name;
    Form* (*make)(Desk& desk, QWidget* parent);
    // What opening the form does to the project; false when it stays closed.
    bool (*open)(Session& session);
    bool recalculates = false;  // when it is closed
    bool docks = false;         // beside the results
};

// Null for a name that is none.
const FormMaker* FindForm(std::string_view name);
const std::vector<FormMaker>& AllForms();

Form* MakeSetup(Desk& desk, QWidget* parent);
Form* MakeLoading(Desk& desk, QWidget* parent);
Form* MakeEndForce(Desk& desk, QWidget* parent);
Form* MakeEndStiff(Desk& desk, QWidget* parent);
Form* MakeBucklingY(Desk& desk, QWidget* parent);
Form* MakeBucklingZ(Desk& desk, QWidget* parent);
Form* MakeCheckPoints(Desk& desk, QWidget* parent);
Form* MakeVipping(Desk& desk, QWidget* parent);
Form* MakeVortex(Desk& desk, QWidget* parent);
Form* MakeModal(Desk& desk, QWidget* parent);
Form* MakeDetailedResult(Desk& desk, QWidget* parent);
Form* MakeAbout(Desk& desk, QWidget* parent);
Form* MakeInfoPsi(Desk& desk, QWidget* parent);
Form* MakeInfoUls(Desk& desk, QWidget* parent);
Form* MakeInfoVipping(Desk& desk, QWidget* parent);
Form* MakeInfoKestrum(Desk& desk, QWidget* parent);
Form* MakeInfoEndSupport(Desk& desk, QWidget* parent);
Form* MakeCompare(Desk& desk, QWidget* parent);
Form* MakeDeviation(Desk& desk, QWidget* parent);
Form* MakeCombinations(Desk& desk, QWidget* parent);
Form* MakeEquations(Desk& desk, QWidget* parent);
Form* MakeSectionPicture(Desk& desk, QWidget* parent);

// The form of a section family.
Form* MakeSection(Desk& desk, QWidget* parent, int family);

}  // namespace kestrum
