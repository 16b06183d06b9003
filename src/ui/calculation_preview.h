#pragma once

// The calculation report of the project in hand on the screen, page by page, and from there on
// paper.

class QWidget;

namespace kestrum {

class Session;

void PreviewCalculation(QWidget* parent, Session& session);

}  // namespace kestrum
