#pragma once

// The result panel as data: the blocks of section, buckling and deflection control as runs of text,
// for the window, the printed page and the terminal alike. It computes nothing.
//
// A line has a left part and a part that starts in the result column of its block: one unit beyond
// the widest left part, at the least kLeastColumn units wide.

#include "core/check.h"
#include "core/state/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

struct TextRun {
    std::string text;
    bool bold = false;
    bool underline = false;
    i16 colour = 0;  // 0 plain text, else kWithin (green) or kAbove (red)
    bool operator==(const TextRun&) const = default;
};

struct PanelLine {
    double y = 0;  // in lines, from the top of the panel
    std::vector<TextRun> left = {};
    std::vector<TextRun> result = {};   // in the result column
    std::optional<ResultRow> row = {};  // that the line shows; nothing for heads and remarks
};

// What stands behind a ratio in words, since a colour alone is lost on paper, in a pipe and to many
// eyes: "  ABOVE", or nothing within the limit.
std::string_view AboveWord(i16 status);

constexpr double kLeastColumn = 10;
constexpr double kPanelTop = 0.3;

using PanelBlock = std::vector<PanelLine>;

// Each block starts at line y and moves y to the next free line. `page` puts the governing load
// case on top, as printed pages have it.
PanelBlock DrawSectionBlock(const ProjectState& s, double& y, bool page);
PanelBlock DrawBuckleBlock(const ProjectState& s, double& y);
PanelBlock DrawDeflectionBlock(const ProjectState& s, double& y);

// Families that have a buckling block.
bool HasBuckleBlock(int family);

// The blocks that belong to the family and the settings, from kPanelTop on; empty ones are left
// out.
std::vector<PanelBlock> ShowResults(const ProjectState& s, bool page = false);

}  // namespace kestrum
