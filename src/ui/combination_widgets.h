#pragma once

// Load combination, psi values and combination texts, as `setup` and `Loading` show them.

#include "ui/binder.h"
#include "ui/desk.h"

namespace kestrum {

QComboBox* CombinationList(Binder& bind);
// frPsi, with the button that tells what the values mean.
QWidget* PsiFrame(Binder& bind, Desk& desk, const QString& infobutton);
QLabel* CombinationTexts(Binder& bind);  // lstCombination

}  // namespace kestrum
