#pragma once

// The lines of a result panel at one font size: the bars in a column of their own, then the text,
// then the results in the column of their block.

#include "app/view_standard.h"

#include <QFont>
#include <QPalette>
#include <QPointF>
#include <QRectF>

#include <vector>

class QPainter;

namespace kestrum {

constexpr double kPanelLineStep = 1.4;  // font sizes from line to line

class PanelLayout {
public:
    // The letters have one size in every width, whatever there is to tell.
    PanelLayout(double width, int dpi);

    double room() const { return room_; }
    double WidthOfBlock(const PanelBlock& block) const;
    void PaintBlock(QPainter& painter, const QPalette& palette, const PanelGroup& group,
                    double down) const;
    // Whether a line of the block would stand where the corner is, if that were in its height.
    bool Reaches(const PanelGroup& group, const PanelLine& line, double corner) const;
    // Where a line of the block lies.
    QRectF LineRect(const PanelLine& line, double down) const;

private:
    struct Columns {
        double result;   // where the results would begin, beyond the longest calculation
        double results;  // their width
    };

    Columns ColumnsOf(const PanelBlock& block) const;
    double ResultColumn(const Columns& columns) const;
    double StandardColumn(const PanelGroup& group) const;
    static std::vector<TextRun> StandardRuns(const StandardGroup& standard);
    void PaintStandard(QPainter& painter, const QPalette& palette, QPointF at,
                       const StandardGroup& standard) const;
    double Baseline(const PanelLine& line, double down) const;
    static bool IsAbove(const PanelLine& line);
    void PaintRuns(QPainter& painter, const QPalette& palette, QPointF at, double room,
                   const std::vector<TextRun>& runs) const;
    void PaintBar(QPainter& painter, const QPalette& palette, QPointF at, double utilisation,
                  bool above) const;

    double size_;  // pixels
    QFont font_;
    double start_;  // of the text, beyond the bars
    double room_;   // width in all
};

}  // namespace kestrum
