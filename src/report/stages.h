#pragma once

// Which steps of the stability stage have run in the pass behind the record. A value whose step did
// not run belongs to an earlier member and is not shown.

namespace kestrum {

struct ProjectState;

struct StagesRun {
    bool stage;        // the stage of the family
    bool axial;        // buckling curves, critical forces, reduction factors
    bool lateral;      // lateral torsional buckling
    bool interaction;  // interaction factors, Annex A or B
    bool uniform;      // critical moment of the uniform moment, Annex A
};

StagesRun StagesOf(const ProjectState& s);

// The section can buckle sideways under the moment about y and the control of it is switched off.
bool LateralBucklingLeftOut(const ProjectState& s);

}  // namespace kestrum
