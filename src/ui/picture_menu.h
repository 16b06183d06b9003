#pragma once

// The menu of a picture: copied as a picture, as SVG, or as the text that says the same; saved as a
// file.

#include "app/session.h"
#include "report/drawing.h"

#include <QPoint>

#include <memory>
#include <string>

class QMimeData;
class QWidget;

namespace kestrum {

// Opens the menu; `name` is proposed for the file. A failure is told. Without `text` there is none.
void PictureMenu(const Drawing& drawing, const std::string& name, Session& session, QWidget* parent,
                 QPoint at, const std::string& text = {});

// What goes to the clipboard: the picture on white paper, and the SVG document as such and as text.
std::unique_ptr<QMimeData> CopyAsPicture(const Drawing& drawing);
std::unique_ptr<QMimeData> CopyAsSvg(const Drawing& drawing);

}  // namespace kestrum
