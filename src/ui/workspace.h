#pragma once

// The main window below its families: inputs, docked forms, results. In a narrow window a docked
// form takes the place of the inputs, so that diagrams and results keep their room.

#include <QWidget>

class QScrollArea;

namespace kestrum {

class Workspace final : public QWidget {
    Q_OBJECT

public:
    // Takes the widgets; `dock` comes and goes by its visibility.
    Workspace(QWidget* input, QWidget* dock, QWidget* results);

    // Whether something of this width can stand beside the results.
    bool HasRoomFor(int width) const;

    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Arrange();

    QScrollArea* input_;
    QWidget *dock_, *results_;
};

}  // namespace kestrum
