#pragma once

// Looks: one style, a light and a dark palette, common distances.

#include <QPalette>

class QApplication;
class QSettings;

namespace kestrum {

constexpr double kFaded = 0.35;  // opacity of results that are not those of the project
constexpr int kGap = 6;          // between things that belong together
constexpr int kMargin = 9;       // around groups

// The typographic scale, in sizes of the system font: every text of a window has one of these.
constexpr double kPanelText = 0.85;    // results
constexpr double kDiagramText = 0.85;  // figures of the diagrams along the member
constexpr double kFigureText = 0.75;   // of other figures, which grow with their room: the least
constexpr double kTitleText = 1.7;     // the name of the program

QPalette LightPalette();
QPalette DarkPalette();
bool IsDark(const QPalette& palette);

double SystemFontSize();  // pixels

// What the user has chosen, else what the platform shows.
bool StartsDark(const QSettings& settings);
void RememberDark(QSettings& settings, bool dark);

// Puts style and palette in force.
void UseTheme(QApplication& application, bool dark);

}  // namespace kestrum
