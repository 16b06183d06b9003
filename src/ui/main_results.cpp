#include "ui/main_panels.h"

#include "app/locale_text.h"
#include "app/section_commands.h"
#include "app/view_diagram.h"
#include "app/view_standard.h"
#include "core/project_inputs.h"
#include "engine/calculate.h"
#include "report/diagrams.h"
#include "report/pane_diagrams.h"
#include "report/section_figure.h"
#include "sections/family_table.h"
#include "ui/form.h"
#include "ui/lists.h"
#include "ui/picture_menu.h"
#include "ui/result_panel.h"
#include "ui/standard_desk.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

constexpr int kNarrowestDiagram = 220;

// --- Diagrams ------------------------------------------------------------------------------------

// The place that the diagrams of both axes are read at, a line through all of them.
class Reading {
public:
    explicit Reading(const Desk& desk) : desk_(desk), session_(desk.session) {}

    void Add(Picture* picture) { pictures_.push_back(picture); }
    void Add(LoadAxis axis, QLabel* forces, QLabel* deflection, Picture* moment)
    {
        labels_.push_back({axis, forces, deflection, moment});
    }

    void Read(std::optional<double> x)
    {
        const bool on = x && !HoverText(session_.shown(), LoadAxis::z, *x).empty();
        x_ = on ? x : std::nullopt;
        Show();
    }

    void Step(int steps)
    {
        x_ = StepReading(x_, steps);
        Show();
    }

    void Show() const
    {
        const ProjectState& s = session_.shown();
        const auto text = [&](std::string words) {
            return ToQt(ForLocale(std::move(words), session_.decimalcomma()));
        };
        for (Picture* const picture : pictures_) {
            picture->SetReading(x_);
        }
        for (const Labels& at : labels_) {
            at.forces->setText(x_ ? text(HoverText(s, at.axis, *x_)) : QString());
            at.deflection->setText(x_ ? text(DeflectionReading(s, at.axis, *x_)) : QString());
            at.forces->setVisible(!at.forces->text().isEmpty());
            at.deflection->setVisible(!at.deflection->text().isEmpty());
            const QString used =
                x_ ? text(UtilisationReading(desk_.standard->along(), *x_)) : QString();
            at.moment->SetReading(x_, used);
            at.moment->setAccessibleDescription(at.forces->text() + at.deflection->text() +
                                                QLatin1Char(' ') + used);
        }
    }

private:
    struct Labels {
        LoadAxis axis;
        QLabel *forces, *deflection;
        Picture* moment;
    };
    const Desk& desk_;
    const Session& session_;
    std::vector<Picture*> pictures_;
    std::vector<Labels> labels_;
    std::optional<double> x_;
};

// Of the last good pass, faded while that is not the file's.
Picture* Pane(Binder& bind, const QString& name, const std::function<Drawing(PaneRoom)>& draw)
{
    auto* const picture = new Picture(name);
    bind.Follow([picture, draw, &session = bind.session()](const ProjectState&) {
        picture->ShowPane([draw, &session](PaneRoom room) {
            return ForLocale(draw(room), session.decimalcomma());
        });
        picture->SetFaded(session.halfread());
    });
    return picture;
}

// Words that come and go on the upper edge of a picture, over whatever is drawn there.
void LayOver(QWidget& picture, std::initializer_list<QLabel*> labels)
{
    auto* const column = new QVBoxLayout(&picture);
    column->setContentsMargins(2, 2, 2, 2);
    column->setSpacing(0);
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * kDiagramText);
    for (QLabel* const label : labels) {
        label->setFont(font);
        label->setAlignment(Qt::AlignCenter);
        label->setAutoFillBackground(true);
        label->setBackgroundRole(QPalette::Base);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        column->addWidget(label);
    }
    column->addStretch(1);
}

QGroupBox* DiagramGroup(Binder& bind, Desk& desk, LoadAxis axis,
                        const std::shared_ptr<Reading>& reading)
{
    const bool z = axis == LoadAxis::z;
    QGroupBox* const group =
        NarrowGroup(z ? QStringLiteral("fr2") : QStringLiteral("fr3"),
                    z ? QObject::tr("Loading/Moment/Shear/Deflection - Z-axis  ")
                      : QObject::tr("Loading/Moment/Shear/Deflection - Y-axis  "));
    group->setMinimumWidth(kNarrowestDiagram);
    QVBoxLayout* const column = ColumnOf(group);
    Picture* const load = Pane(
        bind, z ? QStringLiteral("PicLoadZ") : QStringLiteral("PicLoadY"),
        [&desk, axis](PaneRoom room) { return DrawPaneLoads(desk.session.shown(), axis, room); });
    Picture* const moment = Pane(
        bind, z ? QStringLiteral("PicMy") : QStringLiteral("PicMz"), [&desk, axis](PaneRoom room) {
            return DrawPaneCurves(desk.session.shown(), axis, desk.standard->along(), room);
        });
    auto* const forces = new QLabel;
    forces->setObjectName(z ? QStringLiteral("hoverz") : QStringLiteral("hovery"));
    auto* const deflection = new QLabel;
    deflection->setObjectName(z ? QStringLiteral("readingz") : QStringLiteral("readingy"));
    reading->Add(axis, forces, deflection, moment);
    reading->Add(load);
    const auto open = [&desk] {
        desk.open(InputsOf(desk.session.state()).loadmode == 1 ? "Loading" : "endforce");
    };
    for (Picture* const picture : {load, moment}) {
        picture->clicked = open;
        picture->stepped = [reading](int steps) { reading->Step(steps); };
        picture->hovered = [reading](Point at) { reading->Read(at.x); };
        picture->left = [reading] { reading->Read(std::nullopt); };
        picture->menu = [&desk, picture, axis, z](const Drawing& drawing, QPoint at) {
            std::string values = DiagramTable(desk.session.shown(), axis, desk.standard->along());
            PictureMenu(drawing, z ? "diagram-z" : "diagram-y", desk.session, picture, at,
                        ForLocale(std::move(values), desk.session.decimalcomma()));
        };
        picture->setCursor(Qt::PointingHandCursor);
        picture->setFocusPolicy(Qt::TabFocus);
        picture->setToolTip(QObject::tr("Click to edit the loads; the wheel and the arrow keys "
                                        "move the reading, the right button copies"));
    }
    load->setAccessibleName(z ? QObject::tr("Loads along z") : QObject::tr("Loads along y"));
    moment->setAccessibleName(z ? QObject::tr("Moment, shear, deflection and utilisation along z")
                                : QObject::tr("Moment, shear, deflection and utilisation along y"));
    column->addWidget(load);  // ShareHeight has their shares
    column->addWidget(moment);
    LayOver(*moment, {forces, deflection});
    return group;
}

// An axis without anything to see leaves its room to the other one. The loads have the height that
// they need beside the curves, the same in both axes.
void ShareRoom(const QWidget& host, const ProjectState& s)
{
    constexpr double kCurves = 75, kLeast = 30, kMost = 60;  // units of the pictures
    const bool y = IsAxisLoaded(s, LoadAxis::y), z = IsAxisLoaded(s, LoadAxis::z) || !y;
    double loads = kLeast;
    for (const auto& [axis, seen] : {std::pair(LoadAxis::z, z), std::pair(LoadAxis::y, y)}) {
        loads = seen ? std::max(loads, DrawPaneLoads(s, axis, {}).height) : loads;
    }
    for (const auto& [name, seen] :
         {std::pair(QStringLiteral("fr2"), z), std::pair(QStringLiteral("fr3"), y)}) {
        auto* const group = host.findChild<QWidget*>(name);
        auto* const column = static_cast<QVBoxLayout*>(group->layout());
        column->setStretch(0, qRound(std::min(loads, kMost)));
        column->setStretch(1, qRound(kCurves));
        group->setVisible(seen);
    }
}

// --- Results -------------------------------------------------------------------------------------

// A message of several lines is never squeezed, however narrow the window is.
class Message final : public QLabel {
public:
    explicit Message(const QString& text) : QLabel(text) { setWordWrap(true); }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QLabel::resizeEvent(event);
        setMinimumHeight(heightForWidth(width()));
    }
};

QGroupBox* ResultsGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("fr4"), QObject::tr("Results "));
    QVBoxLayout* const column = ColumnOf(group);
    auto* const panel = new ResultPanel;
    bind.Follow([panel, &desk](const ProjectState&) {
        panel->Show(desk.session.shown(), desk.standard->shown(), desk.session.decimalcomma());
        panel->SetFaded(desk.session.halfread());
    });
    panel->opened = [&desk] { desk.open("combinations"); };
    panel->picked = [&desk](ResultRow row) {
        desk.row = row;
        desk.rowchanged();
    };
    panel->explained = [&desk](ResultRow row) {
        desk.row = row;
        desk.open("equations");
    };
    column->addWidget(panel, 1);
    auto* const error = new Message(ToQt(kCalculationError));
    error->setObjectName(QStringLiteral("txtError"));
    error->setStyleSheet(
        QStringLiteral("background: #c62828; color: white; border-radius: 3px; padding: 3px 6px;"));
    bind.ShowWhen(error, [&desk](const ProjectState&) { return desk.session.failed(); });
    column->addWidget(error);
    panel->SetCorner(bind.Button(QStringLiteral("CmdResult"), QObject::tr("More Resu&lts"),
                                 [&desk] { desk.open("detailedresult"); }));
    return group;
}

// The deviations that act, with what each costs, and the notes on the result. There only when there
// is something to know.
class DeviationList {
public:
    DeviationList(Desk& desk, QGroupBox* group, QListWidget* list)
        : desk_(desk), group_(group), list_(list)
    {
    }

    void Show()
    {
        const StandardDesk& standard = *desk_.standard;
        rows_ = DeviationRows(standard.result(), standard.costed(), standard.program());
        const int row = list_->currentRow();
        list_->clear();
        for (const DeviationRow& at : rows_) {
            const std::string cost = !at.cost.empty()               ? " " + at.cost
                                     : at.acts && at.change.empty() ? ", other checks"
                                                                    : "";
            const std::string change = at.change.empty() ? "" : " (" + at.change + ")";
            auto* const item =
                new QListWidgetItem(ToQt(ForLocale(at.id + cost + change + ": " + at.text,
                                                   desk_.session.decimalcomma())),
                                    list_);
            item->setToolTip(at.acts ? item->text() + QLatin1Char('\n') +
                                           QObject::tr("Enter or a double click explains it")
                                     : item->text());
        }
        list_->setCurrentRow(std::min(row, list_->count() - 1));
        group_->setTitle(QObject::tr("Deviations (%1)").arg(rows_.size()));
        group_->setVisible(!rows_.empty());
    }

    void Explain(int row)
    {
        if (row >= 0 && row < static_cast<int>(rows_.size()) &&
            rows_[static_cast<std::size_t>(row)].acts) {
            desk_.standard->chosen = rows_[static_cast<std::size_t>(row)].acts;
            desk_.open("deviation");
        }
    }

private:
    Desk& desk_;
    QGroupBox* group_;
    QListWidget* list_;
    std::vector<DeviationRow> rows_;
};

QGroupBox* NotesGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("frnotes"), QObject::tr("Deviations"));
    QVBoxLayout* const column = ColumnOf(group);
    auto* const list = new QListWidget;
    list->setObjectName(QStringLiteral("lstNotes"));
    list->setAccessibleName(QObject::tr("Deviations from EN 1993-1-1 that act, with what each adds "
                                        "to its ratio, and notes on the result"));
    list->setWordWrap(true);
    list->setAlternatingRowColors(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setMinimumSize(80, 40);
    QFont letters = list->font();
    letters.setPointSizeF(letters.pointSizeF() * kPanelText);
    list->setFont(letters);
    const auto shown = std::make_shared<DeviationList>(desk, group, list);
    bind.Follow([shown](const ProjectState&) { shown->Show(); });
    desk.standard->costs.emplace_back([shown] { shown->Show(); });
    QObject::connect(list, &QListWidget::itemActivated, list,
                     [shown, list](QListWidgetItem* item) { shown->Explain(list->row(item)); });
    column->addWidget(list);
    return group;
}

// --- Families ------------------------------------------------------------------------------------

QWidget* FamilyTab(Binder& bind, Desk& desk, MenuGroup group)
{
    auto* const page = new QWidget;
    auto* const row = new QHBoxLayout(page);
    row->setContentsMargins(kGap, 2, kGap, 2);
    row->setSpacing(2);
    for (const FamilyTraits& family : Families()) {
        if (family.group != group) {
            continue;
        }
        const int id = family.id;
        PictureButton* const button = bind.PictureOption(
            ToQt(family.form) + QLatin1Char('i'), ToQt(family.button), SectionIcon(id),
            [id](const ProjectState& s) { return InputsOf(s).family == id; },
            [id, &desk, form = family.form](Session& session) {
                ChooseFamily(session, id);
                desk.open(form);
            });
        const QString caption = ToQt(family.caption).remove(QLatin1Char('&')).trimmed();
        button->setToolTip(caption);
        button->setAccessibleName(caption);
        button->SetPictureSize({52, 34});
        row->addWidget(button);
    }
    row->addStretch(1);
    return page;
}

}  // namespace

QWidget* FamilyTabs(Binder& bind, Desk& desk)
{
    auto* const tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("ProfTab"));
    tabs->setAccessibleName(QObject::tr("Section families"));
    tabs->setDocumentMode(true);
    const std::pair<MenuGroup, QString> groups[] = {
        {MenuGroup::profiles, QObject::tr("Profiles")},
        {MenuGroup::welded, QObject::tr("Welded")},
        {MenuGroup::plates, QObject::tr("Stiffened plates")},
        {MenuGroup::other, QObject::tr("Other")},
        {MenuGroup::british, QObject::tr("British profiles")}};
    std::vector<MenuGroup> pages;
    for (const auto& [group, title] : groups) {
        tabs->addTab(FamilyTab(bind, desk, group), title);
        pages.push_back(group);
    }
    tabs->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // With the family, not with every pass: the user may look through the tabs.
    bind.Follow([tabs, pages, shown = 0](const ProjectState& s) mutable {
        const FamilyTraits* const family = FindFamily(InputsOf(s).family);
        if (family == nullptr || family->id == shown) {
            return;
        }
        shown = family->id;
        const auto at = std::find(pages.begin(), pages.end(), family->group);
        if (at != pages.end()) {
            tabs->setCurrentIndex(static_cast<int>(at - pages.begin()));
        }
    });
    return tabs;
}

QWidget* DiagramPanel(Binder& bind, Desk& desk)
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    const auto reading = std::make_shared<Reading>(desk);
    row->addWidget(DiagramGroup(bind, desk, LoadAxis::z, reading), 1);
    row->addWidget(DiagramGroup(bind, desk, LoadAxis::y, reading), 1);
    bind.Follow([reading](const ProjectState&) { reading->Show(); });
    bind.Follow([host, &session = desk.session](const ProjectState&) {
        ShareRoom(*host, session.shown());
    });
    return host;
}

QWidget* ResultGroup(Binder& bind, Desk& desk)
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(ResultsGroup(bind, desk), 11);
    row->addWidget(NotesGroup(bind, desk), 4);
    return host;
}

}  // namespace kestrum
