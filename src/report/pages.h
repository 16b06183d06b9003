#pragma once

// The three printed reports, one page each: section property and capacity, section and stability
// control, vortex shedding. They read the record after a pass that ended well and change nothing.

#include "core/library.h"
#include "report/page_writer.h"

namespace kestrum {

struct ProjectState;

// Date and time of printing as they are to stand in the head: "2024-05-17", "14:05"; a warning that
// concerns the whole page stands below the head.
struct PrintStamp {
    std::string date, time, warning{};
};

PrintedReport PrintProperties(const Library& library, const ProjectState& s,
                              const PrintStamp& stamp);
PrintedReport PrintControl(const Library& library, const ProjectState& s, const PrintStamp& stamp);
// For the families of vortex shedding, after CalcVortexFrequency and CalcVortex.
PrintedReport PrintVortex(const Library& library, const ProjectState& s, const PrintStamp& stamp);

}  // namespace kestrum
