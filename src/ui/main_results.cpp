#include "ui/main_panels.h"

#include "app/locale_text.h"
#include "app/section_commands.h"
#include "app/view_diagram.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "report/design_notes.h"
#include "report/diagrams.h"
#include "report/section_figure.h"
#include "sections/family_table.h"
#include "ui/form.h"
#include "ui/lists.h"
#include "ui/picture_menu.h"
#include "ui/result_panel.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

constexpr double kLoadScale = 5.2;  // pixels per unit at most, for texts of ordinary size
constexpr double kDiagramStretch = 1.7;
constexpr int kNarrowestDiagram = 220;

// --- Diagrams ------------------------------------------------------------------------------------

// The place that the diagrams of both axes are read at, a line through all of them.
class Reading {
public:
    explicit Reading(const Session& session) : session_(session) {}

    void Add(Picture* picture) { pictures_.push_back(picture); }
    void Add(LoadAxis axis, QLabel* forces, QLabel* deflection)
    {
        labels_.push_back({axis, forces, deflection});
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
        }
    }

private:
    struct Labels {
        LoadAxis axis;
        QLabel *forces, *deflection;
    };
    const Session& session_;
    std::vector<Picture*> pictures_;
    std::vector<Labels> labels_;
    std::optional<double> x_;
};

QGroupBox* DiagramGroup(Binder& bind, Desk& desk, LoadAxis axis,
                        const std::shared_ptr<Reading>& reading)
{
    const bool z = axis == LoadAxis::z;
    QGroupBox* const group = Group(z ? QStringLiteral("fr2") : QStringLiteral("fr3"),
                                   z ? QObject::tr("Loading/Moment/Shear/Deflection - Z-axis  ")
                                     : QObject::tr("Loading/Moment/Shear/Deflection - Y-axis  "));
    group->setMinimumWidth(kNarrowestDiagram);  // less than its title with a large font
    QVBoxLayout* const column = ColumnOf(group);
    Picture* const load =
        bind.ResultFigure(z ? QStringLiteral("PicLoadZ") : QStringLiteral("PicLoadY"),
                          [axis](const ProjectState& s) { return DrawAll(s, axis).load; });
    Picture* const moment =
        bind.ResultFigure(z ? QStringLiteral("PicMy") : QStringLiteral("PicMz"),
                          [axis](const ProjectState& s) { return DrawAll(s, axis).moment; });
    auto* const forces = new QLabel;
    forces->setObjectName(z ? QStringLiteral("hoverz") : QStringLiteral("hovery"));
    forces->setMinimumHeight(forces->fontMetrics().height());
    auto* const deflection = new QLabel;
    deflection->setObjectName(z ? QStringLiteral("readingz") : QStringLiteral("readingy"));
    reading->Add(axis, forces, deflection);
    const auto open = [&desk] {
        desk.open(desk.session.state().loadmode == 1 ? "Loading" : "endforce");
    };
    for (Picture* const picture : {load, moment}) {
        reading->Add(picture);
        picture->clicked = open;
        picture->stepped = [reading](int steps) { reading->Step(steps); };
        picture->hovered = [reading](Point at) { reading->Read(at.x); };
        picture->left = [reading] { reading->Read(std::nullopt); };
        picture->menu = [&desk, picture, z](const Drawing& drawing, QPoint at) {
            PictureMenu(drawing, z ? "diagram-z" : "diagram-y", desk.session, picture, at);
        };
        picture->setCursor(Qt::PointingHandCursor);
        picture->setFocusPolicy(Qt::TabFocus);
        picture->setToolTip(QObject::tr("Click to edit the loads; the wheel and the arrow keys "
                                        "move the reading, the right button copies"));
    }
    load->setAccessibleName(z ? QObject::tr("Loads along z") : QObject::tr("Loads along y"));
    moment->setAccessibleName(z ? QObject::tr("Moment, shear and deflection along z")
                                : QObject::tr("Moment, shear and deflection along y"));
    load->SetLargestScale(kLoadScale);
    moment->SetStretch(kDiagramStretch);
    column->addWidget(load, 40);
    column->addWidget(moment, 55);
    auto* const row = new QHBoxLayout;
    row->addWidget(forces);
    row->addWidget(deflection);
    row->addStretch(1);
    column->addLayout(row);
    return group;
}

// --- Results -------------------------------------------------------------------------------------

QGroupBox* PanelGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("fr4"), QObject::tr("Results "));
    QVBoxLayout* const column = ColumnOf(group);
    auto* const panel = new ResultPanel;
    bind.Follow([panel, &desk](const ProjectState&) {
        panel->Show(desk.session.shown(), desk.session.decimalcomma());
        panel->SetFaded(desk.session.halfread());
    });
    column->addWidget(panel, 1);
    auto* const error = new QLabel(ToQt(kCalculationError));
    error->setObjectName(QStringLiteral("txtError"));
    error->setWordWrap(true);
    error->setStyleSheet(
        QStringLiteral("background: #c62828; color: white; border-radius: 3px; padding: 3px 6px;"));
    bind.ShowWhen(error, [&desk](const ProjectState&) { return desk.session.failed(); });
    column->addWidget(error);
    panel->SetCorner(bind.Button(QStringLiteral("CmdResult"), QObject::tr("More Resu&lts"),
                                 [&desk] { desk.open("detailedresult"); }));
    return group;
}

// What the user should know about the result; there only when there is something to know.
QGroupBox* NotesGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("frnotes"), QObject::tr("Design notes"));
    QVBoxLayout* const column = ColumnOf(group);
    auto* const list = new QListWidget;
    list->setObjectName(QStringLiteral("lstNotes"));
    list->setAccessibleName(QObject::tr("Design notes of the current result"));
    list->setWordWrap(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setMinimumSize(80, 40);
    bind.Follow([list, group, &desk](const ProjectState&) {
        const std::vector<DesignNote> notes =
            desk.session.failed() ? std::vector<DesignNote>{} : DesignNotes(desk.session.shown());
        list->clear();
        for (const DesignNote& note : notes) {
            auto* const item = new QListWidgetItem(
                ToQt(ForLocale(std::string(note.id) + ": " + std::string(note.text),
                               desk.session.decimalcomma())),
                list);
            item->setToolTip(item->text());
        }
        group->setTitle(QObject::tr("Design notes (%1)").arg(notes.size()));
        group->setVisible(!notes.empty());
    });
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
            [id](const ProjectState& s) { return s.family == id; },
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
        const FamilyTraits* const family = FindFamily(s.family);
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
    const auto reading = std::make_shared<Reading>(desk.session);
    row->addWidget(DiagramGroup(bind, desk, LoadAxis::z, reading));
    row->addWidget(DiagramGroup(bind, desk, LoadAxis::y, reading));
    bind.Follow([reading](const ProjectState&) { reading->Show(); });
    return host;
}

QWidget* ResultGroup(Binder& bind, Desk& desk)
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(PanelGroup(bind, desk), 10);
    row->addWidget(NotesGroup(bind, desk), 3);
    return host;
}

}  // namespace kestrum
