#include "ui/form_dock.h"

#include "ui/theme.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QSettings>
#include <QStyle>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace kestrum {

namespace {

constexpr char kAllKey[] = "Forms/Docked";

QString KeyOf(const Form& form)
{
    return QLatin1String(kAllKey) + QLatin1Char('/') + form.objectName();
}

}  // namespace

FormDock::FormDock(QSettings& settings, QWidget* parent)
    : QFrame(parent), settings_(settings), tabs_(new QTabBar), column_(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("formdock"));
    setFrameShape(QFrame::StyledPanel);
    tabs_->setObjectName(QStringLiteral("formtabs"));
    tabs_->setAccessibleName(tr("Open forms"));
    tabs_->setTabsClosable(true);
    tabs_->setExpanding(false);
    tabs_->setDrawBase(false);
    tabs_->setElideMode(Qt::ElideRight);
    auto* const free = new QToolButton;
    free->setObjectName(QStringLiteral("formfree"));
    free->setIcon(style()->standardIcon(QStyle::SP_TitleBarNormalButton));
    free->setAutoRaise(true);
    free->setToolTip(tr("As a window of its own"));
    free->setAccessibleName(free->toolTip());
    auto* const head = new QHBoxLayout;
    head->addWidget(tabs_, 1);
    head->addWidget(free);
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(0);
    column_->addLayout(head);
    connect(tabs_, &QTabBar::currentChanged, this, &FormDock::ShowTab);
    connect(tabs_, &QTabBar::tabCloseRequested, this, [this](int index) {
        Form* const form = forms_[static_cast<std::size_t>(index)];
        form->reject();
        if (form->isHidden()) {
            Drop(form);
        }
    });
    connect(free, &QToolButton::clicked, this, [this] {
        if (Form* const form = Current(); form != nullptr && !form->refused()) {
            Want(*form, false);
            Drop(form);
            freed(form);
        }
    });
    hide();
}

bool FormDock::WantsAll() const
{
    return settings_.value(QLatin1String(kAllKey), true).toBool();
}

bool FormDock::Wants(const Form& form) const
{
    return settings_.value(KeyOf(form), WantsAll()).toBool();
}

void FormDock::Want(const Form& form, bool docked)
{
    settings_.setValue(KeyOf(form), docked);
}

void FormDock::WantAll(bool docked)
{
    settings_.remove(QLatin1String(kAllKey));  // also what was said of single forms
    settings_.setValue(QLatin1String(kAllKey), docked);
}

int FormDock::WidthFor(Form& form) const
{
    return form.DockedWidth() + 2 * frameWidth();
}

bool FormDock::Holds(const Form* form) const
{
    return std::find(forms_.begin(), forms_.end(), form) != forms_.end();
}

void FormDock::DropForeign()
{
    const std::vector<Form*> all = forms_;
    for (Form* const form : all) {
        if (!form->belongs(form->session().state())) {
            Drop(form);
        }
    }
}

void FormDock::Clear()
{
    const std::vector<Form*> all = forms_;
    for (Form* const form : all) {
        Drop(form);
    }
}

Form* FormDock::Current() const
{
    return shown_ >= 0 ? forms_[static_cast<std::size_t>(shown_)] : nullptr;
}

void FormDock::Take(Form* form)
{
    if (forms_.empty()) {
        back_ = QApplication::focusWidget();
    }
    show();  // a tab bar that was never shown has no height for its first tab
    if (!Holds(form)) {
        form->SetDocked(true, this);
        form->hide();
        column_->addWidget(form, 1);
        form->installEventFilter(this);
        forms_.push_back(form);
        switching_ = true;  // the first tab is current as soon as it is there
        tabs_->setTabToolTip(tabs_->addTab(form->windowTitle().trimmed()),
                             form->windowTitle().trimmed());
        switching_ = false;
    }
    tabs_->updateGeometry();
    const auto at = std::find(forms_.begin(), forms_.end(), form) - forms_.begin();
    tabs_->setCurrentIndex(static_cast<int>(at));
    ShowTab(static_cast<int>(at));
}

void FormDock::ShowTab(int index)
{
    if (switching_ || index < 0) {
        return;
    }
    switching_ = true;
    if (Form* const now = Current(); now != nullptr && index != shown_ && now->refused()) {
        tabs_->setCurrentIndex(shown_);
    } else {
        shown_ = index;
        for (Form* const form : forms_) {
            form->setVisible(form == Current());
        }
        Current()->Refresh();
        Current()->FocusFirst();
    }
    switching_ = false;
}

// A form that has closed, by its button or because the project is another one, leaves its tab.
bool FormDock::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous() && !switching_ && isVisible()) {
        if (auto* const form = qobject_cast<Form*>(watched); form != nullptr && form->isHidden()) {
            Drop(form);
        }
    }
    return QFrame::eventFilter(watched, event);
}

void FormDock::Drop(Form* form)
{
    const auto at = std::find(forms_.begin(), forms_.end(), form);
    if (at == forms_.end()) {
        return;
    }
    form->removeEventFilter(this);
    column_->removeWidget(form);
    form->hide();
    switching_ = true;
    tabs_->removeTab(static_cast<int>(at - forms_.begin()));
    forms_.erase(at);
    switching_ = false;
    shown_ = -1;
    if (!forms_.empty()) {
        ShowTab(tabs_->currentIndex());
        return;
    }
    hide();
    if (back_ != nullptr && back_->isVisible()) {
        back_->setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace kestrum
