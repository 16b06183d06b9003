#include "app/view_member.h"

#include "core/number_format.h"
#include "core/project_state.h"
#include "sections/families.h"

namespace kestrum {

const Box& LoadDistanceBox()
{
    static constexpr Box kBox{"vipping", "iza", "za", "#0.0", ""};
    return kBox;
}

bool ControlledUntouched(const Box& box)
{
    return box.rule != BoxRule::plain && box.rule != BoxRule::position &&
           box.rule != BoxRule::boxtop;
}

std::string LateralLengthText(const ProjectState& s)
{
    return s.ltb == 1 ? FormatNum(s.ltbk, "#0.00") : std::string{};
}

std::string LoadLevelText(const ProjectState& s)
{
    if (s.ltb != 1) {
        return {};
    }
    switch (s.loadlevel) {
    case 1:
        return "top flange";
    case 2:
        return "centre of gravity";
    case 3:
        return "bottom flange";
    default:
        return "Za = " + FormatNum(s.za, "#0.0") + " mm";
    }
}

std::string EndPostText(const ProjectState& s)
{
    return s.endstiff == 1 ? "Rigid" : "Non-rigid";
}

std::string StiffenerText(const ProjectState& s)
{
    return s.webstiff == 1 ? "Web stiffener: c/c" + FormatNum(s.webstiffa, "##0") + "mm"
                           : std::string{};
}

std::string MbRdText(const ProjectState& s)
{
    return s.ltb == 1 && !s.checklist.row(ResultRow::lateral).empty()
               ? FormatNum(s.xlt * s.mltrd, " 0.0") + " kNm"
               : std::string{};
}

std::string C1Text(const ProjectState& s)
{
    return FormatNum(s.ltc1, "0.000");
}

std::string C3Text(const ProjectState& s)
{
    return Is(s, Kind::i_single) ? FormatNum(s.ltc3, "0.000") : "N/A";
}

// Segments are counted from 1. The texts of the first, a middle and the last of three: " (0 -
// L/3)", " (1L/3 - 2L/3)", " (2L/3 -  L)".
std::string SegmentText(const ProjectState& s)
{
    const int segments = s.restraints + 1;
    if (segments < 2 || s.beampart < 1 || s.beampart > segments) {
        return {};
    }
    const std::string part = "L/" + std::to_string(segments);
    const auto at = [&](int i) { return std::to_string(i) + part; };
    const std::string from = s.beampart == 1 ? "0" : at(s.beampart - 1);
    const std::string to = s.beampart == 1 ? part : s.beampart == segments ? " L" : at(s.beampart);
    return " (" + from + " - " + to + ")";
}

std::string PlasticShearText(const ProjectState& s)
{
    return FormatNum(s.vplzrd, "#00.0");
}

std::string ActualShearText(const ProjectState& s)
{
    return FormatNum(s.vbrd, "#00.0");
}

}  // namespace kestrum
