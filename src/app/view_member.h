#pragma once

// What the main window and the small forms about the member show, as text, and two input rules that
// belong to windows alone.

#include "app/input_boxes.h"

#include <string>
#include <string_view>

namespace kestrum {

// Box of the load distance `iza` in the form `vipping`.
const Box& LoadDistanceBox();

// Whether leaving the box unchanged controls it all the same: its limits hang on other boxes.
bool ControlledUntouched(const Box& box);

std::string LateralLengthText(const ProjectState& s);  // ik: "1.00"
std::string LoadLevelText(const ProjectState& s);      // zaa: where the load acts
std::string EndPostText(const ProjectState& s);        // ia: "Non-rigid", "Rigid"
std::string StiffenerText(const ProjectState& s);      // a_text: "Web stiffener: c/c1500mm"

// Results of `vipping`: Mb,Rd, C1, C3 as shown, the governing segment, Mcr.
std::string MbRdText(const ProjectState& s);
std::string C1Text(const ProjectState& s);
std::string C3Text(const ProjectState& s);
std::string SegmentText(const ProjectState& s);

// Shear capacities of `endstiff`, "00.0".
std::string PlasticShearText(const ProjectState& s);  // ovrzd
std::string ActualShearText(const ProjectState& s);   // ovbrzd

}  // namespace kestrum
