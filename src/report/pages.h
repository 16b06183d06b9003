#pragma once

// The three printed reports, one page each: section property and capacity, section and stability
// control, vortex shedding. They read the record after a pass that ended well and change nothing.
// `known`: the result of the standard for it with the costs of the departures, where somebody has
// it; else the pages calculate it.

#include "core/library.h"
#include "report/office.h"
#include "report/page_writer.h"

namespace kestrum {

struct ProjectState;
namespace standard {
struct StandardResult;
}

// What stands on each page whatever it shows: date and time of printing as they are to stand in the
// head, "2024-05-17", "14:05"; a warning below the head that concerns the whole page; in the foot
// what file the page is of; what the office writes, with its logo.
struct PrintStamp {
    std::string date, time, warning{};
    std::string origin{};  // OriginText
    Office office{};
    Logo logo{};
};

// Puts the office on the stamp: with its logo, which is read, and its date in place of that of
// printing. What is wrong, or nothing.
std::string TakeOffice(Office office, PrintStamp& stamp);

// "Project no. 4711  Rev. C  ".
std::string OfficeNumbers(const Office& office);

// "Kestrum EC3 1.3.1, hall.kst, SHA-256 1f0c..."; without what is not known.
std::string OriginText(const std::string& file, const std::string& digest);

PrintedReport PrintProperties(const Library& library, const ProjectState& s,
                              const PrintStamp& stamp,
                              const standard::StandardResult* known = nullptr);
PrintedReport PrintControl(const Library& library, const ProjectState& s, const PrintStamp& stamp,
                           const standard::StandardResult* known = nullptr);
// For the families of vortex shedding, after CalcVortexFrequency and CalcVortex.
PrintedReport PrintVortex(const Library& library, const ProjectState& s, const PrintStamp& stamp,
                          const standard::StandardResult* known = nullptr);

}  // namespace kestrum
