#pragma once

// Entries of the lists of several windows.

#include "core/library.h"

#include <QStringList>

namespace kestrum {

QStringList CombinationNames();
QStringList AnnexNames();
QStringList PsiNames(bool decimalcomma);  // "0.1" to "1.0"
QStringList MaterialNames(const Library& library);
QStringList BucklingCurveNames();  // "Auto", "a0" .. "d"
QStringList SupportNames();        // of cbutt0 .. cbutt5

}  // namespace kestrum
