#include "ui/workspace.h"

#include "ui/form.h"
#include "ui/theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace kestrum {

namespace {

constexpr int kInputWidth = 380;
constexpr int kComfortable = 600;  // of the results; below it the inputs give way to a form

// The input column: as wide as it needs to be, scrolled where the window is too low for it.
class InputScroll final : public QScrollArea {
public:
    explicit InputScroll(QWidget* input)
    {
        setObjectName(QStringLiteral("inputscroll"));
        setWidget(input);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { FitWidth(); });
        FollowFocus(this);
    }

protected:
    // The input may want more room later, with another font or choice.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            FitWidth();
        }
        return QScrollArea::eventFilter(watched, event);
    }

private:
    void FitWidth()
    {
        const int bar =
            verticalScrollBar()->maximum() > 0 ? verticalScrollBar()->sizeHint().width() : 0;
        setFixedWidth(std::max(kInputWidth, widget()->minimumSizeHint().width()) + bar);
    }
};

int LeastWidth(const QWidget& widget)
{
    return std::max(widget.minimumSizeHint().width(), widget.minimumWidth());
}

}  // namespace

Workspace::Workspace(QWidget* input, QWidget* dock, QWidget* results)
    : input_(new InputScroll(input)), dock_(dock), results_(results)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    row->addWidget(input_);
    row->addWidget(dock_);
    row->addWidget(results_, 1);
    dock_->installEventFilter(this);
}

bool Workspace::HasRoomFor(int width) const
{
    return this->width() >= width + kGap + LeastWidth(*results_);
}

QSize Workspace::minimumSizeHint() const
{
    const QSize least = QWidget::minimumSizeHint();
    const QWidget& beside = dock_->isHidden() ? *input_ : *dock_;
    return {LeastWidth(beside) + kGap + LeastWidth(*results_), least.height()};
}

// Before the dock gives the focus back, the inputs are there again.
bool Workspace::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    if (watched == dock_ && (type == QEvent::ShowToParent || type == QEvent::HideToParent ||
                             type == QEvent::LayoutRequest)) {
        Arrange();
    }
    return QWidget::eventFilter(watched, event);
}

void Workspace::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Arrange();
}

void Workspace::Arrange()
{
    const int all = LeastWidth(*input_) + LeastWidth(*dock_) + 2 * kGap +
                    std::max(kComfortable, LeastWidth(*results_));
    input_->setVisible(dock_->isHidden() || width() >= all);
}

}  // namespace kestrum
