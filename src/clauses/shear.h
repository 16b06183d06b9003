#pragma once

// Shear, EN 1993-1-1, 6.2.6, 6.2.8, and shear buckling, EN 1993-1-5, 5. Units N, mm, MPa.

namespace kestrum::clauses {

// Eq (6.18).
double PlasticShear(double area, double fy, double gammam0);

// EN 1993-1-5, 5.1 (2): a web without intermediate stiffeners above this h/t may buckle.
double StockyWebLimit(double eps, double eta);

constexpr double kUnstiffenedFactor = 5.34;

// EN 1993-1-5, A.3 (1): buckling factor of a panel of length a and depth hw between transverse
// stiffeners, no longitudinal ones; 5.34 where there are none (a infinite or 0).
double ShearBucklingFactor(double hw, double a);

// Slenderness of a web, EN 1993-1-5, Eq (5.6) with k_tau of the panels; of webs without
// intermediate stiffeners Eq (5.5), whose rounded factor is 86.4.
double WebSlenderness(double hw, double t, double eps, double k_tau);

// Table 5.1.
double WebFactor(double lam, double eta, bool rigid_end_post);

struct FlangeOfWeb {
    double width, thickness;  // bf counts to 15 eps tf on each side of the web
};

// Eq (5.8), the part of the flanges.
//   a       distance of the transverse stiffeners or supports, mm
//   moment  size of MEd, Nmm; mf: Mf,Rd reduced by NEd
double FlangeShear(const FlangeOfWeb& weaker, double hw, double t, double a, double fy,
                   double gammam1, double moment, double mf);

// Eq (5.2): the part of the web.
double WebShear(double factor, double hw, double t, double fy, double gammam1);

// Upper limit of both parts together, Eq (5.1).
double ShearBucklingLimit(double eta, double hw, double t, double fy, double gammam1);

// 6.2.8 (3): what shear takes of the yield strength, 0 up to half the resistance, at most 1.
double ShearReduction(double ved, double vrd);

}  // namespace kestrum::clauses
