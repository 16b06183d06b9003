#pragma once

// Texts broken into lines of a width.

#include "document/document.h"

namespace kestrum {

// The text in lines no wider than `width`, broken at blanks; a word that is too wide has a line of
// its own, broken between letters.
std::vector<Line> WrapLine(const Line& line, double size, double width, char decimal);

// Of the widest word, which no line need break.
double WidestWord(const Line& line, double size, char decimal);

// The text cut to the width, with three points where something is missing.
std::string FitText(const std::string& text, double size, bool bold, double width);

}  // namespace kestrum
