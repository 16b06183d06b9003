#pragma once

// Shear of webs: moment reduction factor (EN 1993-1-1, 6.2.8 (3)) and shear buckling (EN 1993-1-5,
// 5).

#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// rho of EN 1993-1-1, 6.2.8 (3): 0 up to half the resistance, never above 1. v, vrd in kN.
double ShearReduction(double v, double vrd);

// EN 1993-1-5, 5.1 (2): shear buckling need not be checked below hw/t = 72 eps/neta (strict).
bool StockyInShear(const Inputs& in, const SectionRecord& section, double hw, double t);

// lambda_w of an unstiffened web, EN 1993-1-5, 5.3 (3): hw/(86.4 eps t).
double WebSlenderness(const SectionRecord& section, double hw, double t);

// lambda_w with the transverse stiffeners of the state (webstiff, webstiffa), EN 1993-1-5, 5.3 (3),
// A.3.
double WebSlendernessStiffened(const Inputs& in, const SectionRecord& section, double hw, double t);

// chi_w of EN 1993-1-5, Table 5.1, non-rigid end post.
double ChiWeb(const Inputs& in, double lambda);

// chi_w with the end post of the state (endstiff).
double ChiWebEndPost(const Inputs& in, double lambda);

// Vbf, kN, of EN 1993-1-5, 5.4 (1): what the flanges add to a buckling web while the moment of the
// section in hand, myed, is below mfrd; else 0. `tw`: of all webs together; b, tf: the weaker
// flange, mm.
double FlangeShear(const Inputs& in, const Resistances& resistances, const SectionChecks& checks,
                   double hw, double tw, double b, double tf);

}  // namespace kestrum
