#pragma once

// Dimensions, properties, class and effective section, as the family's routines find them.

#include "core/state/types.h"

namespace kestrum {

struct SectionRecord {
    bool operator==(const SectionRecord&) const = default;

    float h, b, tw, tf, r, r1, r2;
    float hw, d;    // clear web height; its straight part, the c of the class check
    float cflange;  // width of the flange part of the class check
    float bw, rin;  // clear width between webs; inner corner radius
    float bo;       // box: overhang of a flange
    float ecg, ys;  // centroid from the web back; shear centre as the tables give it
    float ey, ez;   // centroid distances of angles and plate sections
    float tmax;     // thickness that selects fyk
    float a, iy, iz, it, iw;
    float wely, welz, wply, wplz;
    float aeff, weffy, weffz;
    float weight;   // kg/m
    float surface;  // m2/m
    float aflange, aweb;
    float alfa;  // principal axes of angles, degrees
    float iu, iv;
    float u1, u2, v1, v2, v3, cu;  // points of angles from the principal axes; cu heel to u axis
    float cb, ch;                  // straight legs of unequal angles
    float wy1, wy2, wz1, wz2;      // moduli of angles at the points
    Rows<float, 3> wu, wv;
    // Sections of plates; top is the flange or plate compressed by a positive moment.
    float btop, ttop, bbot, tbot;
    float ctop, cbot;                        // outstands
    float ctopin, cbotin, ctopout, cbotout;  // box flanges: between and beyond the webs
    float zcog;  // centroid above the lower edge (26, 51 to 56: from the face of flange or plate)
    double zpl;  // plastic axis from the same edge
    float wyeltop, wyelbot;
    float weffytop1, weffytop2, weffybot1, weffybot2;  // 1 compressed fibre, 2 the other
    float wytop, wybot;                                // modulus in use by class, per sign
    float betaf, zshear, zjtop, zjbot, psiftop, psifbot;
    float flangefactor;       // reduction of My,Rd by flange loading
    float wplplus, wplminus;  // upgraded plastic moduli, M+ and M-
    // Material and class
    float eps;
    i16 classn, classmy, classmz;
    i16 classflange, classweb;
    i16 classmytop, classmybot;  // per sign; 23 marks the upgrade
    i16 openprofile;             // bool: torsional deformation matters
};

}  // namespace kestrum
