#pragma once

// Projects of the examples and their calculation reports.

#include "calculation/calculation_report.h"
#include "core/project_file.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kestrum {

inline ProjectState ProjectOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    ProjectState s = Member();
    EXPECT_FALSE(ReadProject(s, bytes)) << path;
    return s;
}

inline Document DocumentOf(const ProjectState& s)
{
    const ReportedMember member{.project = s};
    return CalculationReport(Delivered(), {&member, 1});
}

}  // namespace kestrum
