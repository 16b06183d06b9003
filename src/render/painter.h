#pragma once

// The one painter from the neutral drawing to QPainter: screen, printer, PDF and PNG look alike.

#include "report/drawing.h"

#include <QColor>
#include <QPointF>

#include <functional>
#include <string>
#include <vector>

class QPainter;

namespace kestrum {

// Colour of an ink; PaperColours() is black on white.
using InkColours = std::function<QColor(Ink)>;
InkColours PaperColours();

// Light inks for a dark window.
InkColours DarkColours();

// Why a picture of the pages, as a logo, cannot be shown; empty where all can.
std::string UnreadablePicture(const std::vector<Drawing>& pages);

// Draws with `scale` device pixels per unit of the drawing, its origin at `origin` (device pixels).
// The painter must be unscaled: coordinates are mapped here and fonts get a size in device pixels,
// since text under a scaled painter is spaced wrongly.
void Paint(QPainter& painter, const Drawing& drawing, double scale, QPointF origin,
           const InkColours& colours);

}  // namespace kestrum
