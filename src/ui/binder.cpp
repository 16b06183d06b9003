#include "ui/binder.h"

#include "app/box_help.h"
#include "app/locale_text.h"
#include "ui/picture_menu.h"
#include "ui/text.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QWheelEvent>

namespace kestrum {

namespace {

// Room for the widest ordinary value, whatever the system font.
int BoxWidth(const QWidget& box)
{
    return box.fontMetrics().horizontalAdvance(QStringLiteral("-00000.000 "));
}

}  // namespace

QString Binder::ForLocale(const QString& text) const
{
    return ToQt(kestrum::ForLocale(FromQt(text), session_.decimalcomma()));
}

BoxEdit* Binder::Box(std::string_view id, int row)
{
    return BoxOf(*FindBox(form_, id), row);
}

BoxEdit* Binder::BoxOf(const kestrum::Box& box, int row)
{
    auto* const edit = new BoxEdit(session_, box, row);
    edit->setMinimumWidth(BoxWidth(*edit));
    edit->setMaximumWidth(BoxWidth(*edit) * 3 / 2);
    Follow([edit](const ProjectState&) { edit->Refresh(); });
    return edit;
}

BoxEdit* Binder::BoxRow(QGridLayout* grid, int row, const kestrum::Box& box, int column)
{
    const BoxHelp& help = HelpOf(box);
    BoxEdit* const edit = BoxOf(box);
    QLabel* const label = Caption(ToQt(help.label), edit);
    QLabel* const unit = FaintLabel(ToQt(help.unit));
    label->setToolTip(edit->toolTip());
    label->setObjectName(edit->objectName() + QStringLiteral("_label"));
    unit->setObjectName(edit->objectName() + QStringLiteral("_unit"));
    grid->addWidget(label, row, column);
    grid->addWidget(edit, row, column + 1);
    grid->addWidget(unit, row, column + 2);
    return edit;
}

QCheckBox* Binder::Tick(const QString& name, const QString& text, From<bool> is, To<bool> set)
{
    auto* const tick = new QCheckBox(text);
    tick->setObjectName(name);
    QObject::connect(tick, &QCheckBox::clicked, tick, [this, tick, is, set](bool on) {
        set(session_, on);
        tick->setChecked(is(session_.state()));  // a refused tick goes
    });
    Follow([tick, is](const ProjectState& s) { tick->setChecked(is(s)); });
    return tick;
}

QRadioButton* Binder::Option(const QString& name, const QString& text, From<bool> is,
                             std::function<void(Session&)> choose)
{
    auto* const option = new QRadioButton(ForLocale(text));
    option->setObjectName(name);
    QObject::connect(option, &QRadioButton::clicked, option,
                     [this, choose](bool) { choose(session_); });
    Follow([option, is](const ProjectState& s) {
        option->setAutoExclusive(is(s));  // none may be chosen by a file's odd value
        option->setChecked(is(s));
        option->setAutoExclusive(true);
    });
    return option;
}

PictureButton* Binder::PictureOption(const QString& name, const QString& text, Drawing drawing,
                                     From<bool> is, std::function<void(Session&)> choose)
{
    auto* const button = new PictureButton(name, ForLocale(text));
    button->setCheckable(true);
    button->Show(kestrum::ForLocale(std::move(drawing), session_.decimalcomma()));
    QObject::connect(button, &QToolButton::clicked, button, [this, button, is, choose](bool) {
        choose(session_);
        button->setChecked(is(session_.state()));
    });
    Follow([button, is](const ProjectState& s) { button->setChecked(is(s)); });
    return button;
}

QComboBox* Binder::List(const QString& name, const QStringList& entries, From<int> is,
                        To<int> choose)
{
    auto* const list = new ListBox;
    list->setObjectName(name);
    list->addItems(entries);
    list->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(list, &QComboBox::currentIndexChanged, list, [this, choose](int index) {
        if (index >= 0) {
            choose(session_, index);
        }
    });
    Follow([list, is](const ProjectState& s) {
        const QSignalBlocker quiet(list);
        list->setCurrentIndex(is(s) < list->count() ? is(s) : -1);
    });
    return list;
}

QPushButton* Binder::Button(const QString& name, const QString& text, std::function<void()> press)
{
    auto* const button = new PressButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, [press] { press(); });
    return button;
}

QPushButton* Binder::Rotor(const QString& name, const QString& meaning, From<QStringList> choices,
                           From<std::string> text, std::function<void(Session&, int steps)> press)
{
    auto* const button = new ChoiceButton(name);
    QObject::connect(button, &QPushButton::clicked, button,
                     [this, button, press] { press(session_, button->steps()); });
    Follow([button, meaning, choices, text](const ProjectState& s) {
        button->Show(choices(s), ToQt(text(s)));
        button->setAccessibleName(meaning + QStringLiteral(": ") + button->text());
    });
    return button;
}

QLabel* Binder::Text(const QString& name, From<std::string> text)
{
    auto* const label = new QLabel;
    label->setObjectName(name);
    Follow(
        [this, label, text](const ProjectState& s) { label->setText(ForLocale(ToQt(text(s)))); });
    return label;
}

QLabel* Binder::Value(const QString& name, From<std::string> text)
{
    QLabel* const label = Text(name, std::move(text));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

Picture* Binder::Figure(const QString& name, From<Drawing> drawing)
{
    auto* const picture = new Picture(name);
    picture->menu = [this, picture, stem = FromQt(name)](const Drawing& shown, QPoint at) {
        PictureMenu(shown, stem, session_, picture, at);
    };
    Follow([this, picture, drawing](const ProjectState& s) {
        picture->Show(kestrum::ForLocale(drawing(s), session_.decimalcomma()));
    });
    return picture;
}

Picture* Binder::ResultFigure(const QString& name, From<Drawing> drawing)
{
    Picture* const picture =
        Figure(name, [this, drawing](const ProjectState&) { return drawing(session_.shown()); });
    Follow([this, picture](const ProjectState&) { picture->SetFaded(session_.halfread()); });
    return picture;
}

void Binder::ShowWhen(QWidget* widget, From<bool> shown)
{
    Follow([widget, shown](const ProjectState& s) { widget->setVisible(shown(s)); });
}

void Binder::EnableWhen(QWidget* widget, From<bool> enabled)
{
    Follow([widget, enabled](const ProjectState& s) { widget->setEnabled(enabled(s)); });
}

void Binder::Follow(std::function<void(const ProjectState&)> refresh)
{
    refreshers_.push_back(std::move(refresh));
}

void Binder::Refresh()
{
    for (const auto& refresh : refreshers_) {
        refresh(session_.state());
    }
}

void PressButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

ChoiceButton::ChoiceButton(const QString& name)
{
    setObjectName(name);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ChoiceButton::Show(const QStringList& choices, const QString& chosen)
{
    choices_ = choices;
    setText(chosen);
    updateGeometry();
    update();
}

QSize ChoiceButton::sizeHint() const
{
    constexpr int kFrame = 6;
    const int right = choices_.isEmpty() ? 0 : RoomOf(choices_.size() - 1).right();
    return {right + kFrame, PressButton::sizeHint().height()};
}

// All as wide as the widest, so that the choices of rows stand below each other.
QRect ChoiceButton::RoomOf(qsizetype choice) const
{
    constexpr int kAround = 8, kEdge = 3;
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("Q2")) + kAround;
    return {kEdge + static_cast<int>(choice) * width, kEdge, width, height() - 2 * kEdge};
}

void ChoiceButton::mouseReleaseEvent(QMouseEvent* event)
{
    for (qsizetype i = 0; i < choices_.size(); ++i) {
        if (RoomOf(i).contains(event->position().toPoint())) {
            const qsizetype all = choices_.size(), on = i - choices_.indexOf(text());
            steps_ = on == 0 ? 1 : static_cast<int>((on + all) % all);
        }
    }
    PressButton::mouseReleaseEvent(event);
    steps_ = 1;
}

void ChoiceButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette& colours = palette();
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    for (qsizetype i = 0; i < choices_.size(); ++i) {
        const bool chosen = choices_.at(i) == text();
        if (chosen) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colours.color(group, QPalette::Highlight));
            painter.drawRoundedRect(QRectF(RoomOf(i)).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
        }
        painter.setPen(
            colours.color(group, chosen ? QPalette::HighlightedText : QPalette::PlaceholderText));
        painter.drawText(RoomOf(i), Qt::AlignCenter, choices_.at(i));
    }
}

void ListBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

QLabel* FaintLabel(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QLabel* Caption(const QString& text, QWidget* buddy)
{
    auto* const label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

}  // namespace kestrum
