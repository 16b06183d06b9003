#pragma once

// Sections of plates other than the I and the box of equal flanges: T, hat beams, boxes of unequal
// flanges and plates with a stiffener. EN 1993-1-1, 6.2; N, mm, MPa.

#include "core/basis.h"
#include "standard/resistance.h"

namespace kestrum::standard {

// Strips, walls, edges and properties. After the values that every section takes from the record.
// Deviations D38, D39.
void SetPlates(const ProjectState& s, StandardSection& q, const Basis& basis);

// Area and moduli with a strength of webs and flanges lowered by the shares (6.2.8 (3)): plastic
// about the axis that halves what is left, elastic about the centroid of the gross section.
struct StripValues {
    double a, wy, wz;
};
StripValues PlasticBeside(const StandardSection& q, double rho_web, double rho_flange);
// What the elastic moduli of the furthest edges lose.
StripValues ElasticLoss(const StandardSection& q, double rho_web, double rho_flange);

// 6.2.2.4 (1): plastic modulus with 20 eps tw left of each web at the compressed flange and as much
// at the plastic axis of what is left. Deviation D33: the program takes the modulus of the whole
// section less what is lost, about an axis held in the web.
double UpgradedModulus(const StandardSection& q, bool sagging, const Basis& basis);

// EN 1993-1-5, 5.2: the flanges between two webs along y, each for itself.
ShearResistance ShearOfFlanges(const StandardSection& q, const ShearInputs& in);

// Stress in a flange that a load beside the web bends across, 6.2.1 (5), as share of its strength.
//   along   utilisation of the section along the member
//   across  utilisation of the plate across it
// Deviation D191: the program gives the plate 1.75 times its elastic moment and lowers My,Rd by
// half of what the load takes.
double FlangeUnderBoth(double along, double across, const Basis& basis);

// The plate of the lower flange, utilisation of its plastic moment.
//   load  on the flange, N/mm
double FlangePlate(const StandardSection& q, double load);

}  // namespace kestrum::standard
