#include "ui/main_panels.h"

#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/view_member.h"
#include "app/view_section.h"
#include "core/load_combination.h"
#include "engine/calculate.h"
#include "report/choice_pictures.h"
#include "report/design_notes.h"
#include "report/diagrams.h"
#include "report/member_drawing.h"
#include "report/section_figure.h"
#include "sections/family_table.h"
#include "ui/form.h"
#include "ui/lists.h"
#include "ui/result_panel.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

namespace kestrum {

namespace {

// --- Input ---------------------------------------------------------------------------------------

QLineEdit* TextBox(Binder& bind, const QString& name, const QString& meaning,
                   std::string ProjectState::*field, void (*set)(Session&, std::string_view))
{
    auto* const box = new QLineEdit;
    box->setObjectName(name);
    box->setAccessibleName(meaning);
    box->setToolTip(meaning);
    QObject::connect(box, &QLineEdit::textEdited, box,
                     [&bind, set](const QString& text) { set(bind.session(), FromQt(text)); });
    QObject::connect(box, &QLineEdit::returnPressed, box,
                     [box] { box->nextInFocusChain()->setFocus(Qt::TabFocusReason); });
    bind.Follow([box, field](const ProjectState& s) {
        const QString text = ToQt(s.*field);
        if (box->text() != text) {
            box->setText(text);
        }
    });
    return box;
}

QLayout* ProjectRows(Binder& bind)
{
    auto* const grid = new QGridLayout;
    grid->setSpacing(kGap - 2);
    QLineEdit* const project = TextBox(bind, QStringLiteral("iproj"), QObject::tr("Project name"),
                                       &ProjectState::projname, SetProjectName);
    QLineEdit* const ident =
        TextBox(bind, QStringLiteral("iident"), QObject::tr("Identification of the member"),
                &ProjectState::ident, SetIdent);
    grid->addWidget(Caption(QObject::tr("Project"), project), 0, 0);
    grid->addWidget(project, 0, 1);
    grid->addWidget(Caption(QObject::tr("Identification"), ident), 1, 0);
    grid->addWidget(ident, 1, 1);
    return grid;
}

QGroupBox* MemberGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("fr11"), QObject::tr("Member data (m)"));
    QGridLayout* const grid = GridOf(group);
    bind.BoxRow(grid, 0, *FindBox("kestrum", "il"));
    grid->setColumnStretch(3, 1);
    return group;
}

QGroupBox* SupportGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("fr14"), QObject::tr("Support"));
    QVBoxLayout* const column = ColumnOf(group);
    auto* const pictures = new QHBoxLayout;
    pictures->setSpacing(2);
    for (int i = 0; i < 6; ++i) {
        PictureButton* const button = bind.PictureOption(
            QStringLiteral("cbutt%1").arg(i), {}, SupportPicture(i),
            [i](const ProjectState& s) { return s.supportcase == i; },
            [i](Session& session) { ChooseSupport(session, i); });
        button->SetPictureSize({46, 32});
        button->setToolTip(SupportNames().at(i));
        button->setAccessibleName(SupportNames().at(i));
        pictures->addWidget(button);
    }
    pictures->addStretch(1);
    column->addLayout(pictures);
    auto* const row = new QWidget;
    auto* const grid = new QGridLayout(row);
    grid->setContentsMargins(0, 0, 0, 0);
    BoxEdit* const spring = bind.BoxRow(grid, 0, *FindBox("kestrum", "ispring"));
    grid->setColumnStretch(3, 1);
    bind.ShowWhen(row, SpringShown);
    bind.EnableWhen(spring, SpringShown);
    column->addWidget(row);
    return group;
}

void ColumnRow(Binder& bind, Desk& desk, QGridLayout* grid, int row, Axis axis)
{
    const bool y = axis == Axis::y;
    const QString letter = y ? QStringLiteral("y") : QStringLiteral("z");
    BoxEdit* const factor = bind.BoxRow(grid, row, *FindBox("kestrum", y ? "ibly" : "iblz"));
    bind.Follow([factor, axis](const ProjectState& s) {
        factor->setReadOnly(!BucklingLengthOpen(s, axis));
        factor->setEnabled(BucklingLengthOpen(s, axis));
    });
    QPushButton* const cases =
        bind.Button(QStringLiteral("cbuttbuckling") + letter, QStringLiteral("…"),
                    [&desk, y] { desk.open(y ? "bucklingy" : "bucklingz"); });
    cases->setFixedWidth(30);
    cases->setToolTip(QObject::tr("Buckling length factors - %1-axis").arg(letter.toUpper()));
    cases->setAccessibleName(cases->toolTip());
    QComboBox* const curve = bind.List(
        QStringLiteral("cbobc") + letter, BucklingCurveNames(),
        [y](const ProjectState& s) { return y ? s.bcy : s.bcz; },
        [axis](Session& session, int index) { ChooseBucklingCurve(session, axis, index); });
    curve->setToolTip(QObject::tr("Buckling curve about the %1 axis\n"
                                  "Auto: EN 1993-1-1, Table 6.2")
                          .arg(letter));
    curve->setAccessibleName(QObject::tr("Buckling curve about the %1 axis").arg(letter));
    QLabel* const used = bind.Text(QStringLiteral("obc") + letter, [y](const ProjectState& s) {
        return std::string((y ? s.curvey : s.curvez).text());
    });
    used->setToolTip(QObject::tr("Buckling curve in use"));
    used->setMinimumWidth(18);
    grid->addWidget(cases, row, 3);
    grid->addWidget(curve, row, 4);
    grid->addWidget(used, row, 5);
}

QGroupBox* ColumnGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("columnframe"), QObject::tr("Column data"));
    QGridLayout* const grid = GridOf(group);
    grid->addWidget(FaintLabel(QObject::tr("Length factor")), 0, 1, 1, 3);
    grid->addWidget(FaintLabel(QObject::tr("Buckling curve")), 0, 4, 1, 2);
    ColumnRow(bind, desk, grid, 1, Axis::y);
    ColumnRow(bind, desk, grid, 2, Axis::z);
    grid->setColumnStretch(6, 1);
    return group;
}

QGroupBox* MaterialGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("Frame4"), QObject::tr("Material"));
    QGridLayout* const grid = GridOf(group);
    QComboBox* const list = bind.List(
        QStringLiteral("cbofyk"), MaterialNames(bind.session().library()),
        [](const ProjectState& s) { return s.fykindex; }, ChooseMaterial);
    list->setAccessibleName(QObject::tr("Steel grade"));
    list->setToolTip(QObject::tr("Steel grade\nEN 1993-1-1, Table 3.1"));
    grid->addWidget(list, 0, 0);
    BoxEdit* const strength = bind.BoxRow(grid, 0, *FindBox("kestrum", "ifyk"), 1);
    const Library& library = bind.session().library();
    bind.Follow([strength, &library](const ProjectState& s) {
        strength->setReadOnly(!StrengthOpen(library, s));
        strength->setEnabled(StrengthOpen(library, s));
    });
    grid->setColumnStretch(0, 1);
    return group;
}

QGroupBox* LateralGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group =
        Group(QStringLiteral("Frame1"), QObject::tr("Lateral Torsional Buckling"));
    QGridLayout* const grid = GridOf(group);
    QCheckBox* const tick = bind.Tick(
        QStringLiteral("ch_vipp"), QObject::tr("Control"),
        [](const ProjectState& s) { return s.ltb == 1; }, TickLateralBuckling);
    tick->setToolTip(QObject::tr("Control lateral torsional buckling\nEN 1993-1-1, 6.3.2"));
    bind.EnableWhen(tick, [](const ProjectState& s) { return s.ltbavail != kFalse; });
    QLabel* const k = bind.Value(QStringLiteral("ik"), LateralLengthText);
    k->setToolTip(QObject::tr("Lateral torsional buckling length factor"));
    QLabel* const level = bind.Text(QStringLiteral("zaa"), LoadLevelText);
    level->setToolTip(QObject::tr("Where the load acts"));
    QPushButton* const open = bind.Button(QStringLiteral("cbuttlateral"), QStringLiteral("…"),
                                          [&desk] { desk.open("vipping"); });
    open->setFixedWidth(30);
    open->setToolTip(QObject::tr("Lateral torsional buckling parameters"));
    open->setAccessibleName(open->toolTip());
    bind.EnableWhen(open, [](const ProjectState& s) { return s.ltb == 1; });
    grid->addWidget(tick, 0, 0);
    QLabel* const kname = FaintLabel(QStringLiteral("k ="));
    bind.ShowWhen(kname, [](const ProjectState& s) { return s.ltb == 1; });
    grid->addWidget(kname, 0, 1);
    grid->addWidget(k, 0, 2);
    grid->addWidget(level, 0, 3);
    grid->addWidget(open, 0, 5);
    grid->setColumnStretch(4, 1);
    return group;
}

QGroupBox* EndSupportGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("Frame2"), QObject::tr("End supports"));
    QGridLayout* const grid = GridOf(group);
    QLabel* const post = bind.Text(QStringLiteral("ia"), EndPostText);
    post->setToolTip(QObject::tr("End post at the supports\nEN 1993-1-5, 9.3"));
    QPushButton* const open = bind.Button(QStringLiteral("cbuttsupport"), QStringLiteral("…"),
                                          [&desk] { desk.open("endstiff"); });
    open->setFixedWidth(30);
    open->setToolTip(QObject::tr("End supports and web stiffeners"));
    open->setAccessibleName(open->toolTip());
    grid->addWidget(post, 0, 0);
    QLabel* const stiffeners = bind.Text(QStringLiteral("a_text"), StiffenerText);
    bind.ShowWhen(stiffeners, [](const ProjectState& s) { return s.webstiff == 1; });
    grid->addWidget(open, 0, 2);
    grid->addWidget(stiffeners, 1, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    return group;
}

QGroupBox* CombinationGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frLc"), QObject::tr("Load Combinations (LC)"));
    QHBoxLayout* const row = RowOf(group);
    QComboBox* const list = bind.List(
        QStringLiteral("CboLoadComb"), CombinationNames(),
        [](const ProjectState& s) { return s.loadcomb; }, ChooseLoadCombination);
    list->setAccessibleName(QObject::tr("Load combination"));
    list->setToolTip(QObject::tr("Load combination\nEN 1990, 6.4.3.2"));
    row->addWidget(list, 1);
    QCheckBox* const sls = bind.Tick(
        QStringLiteral("CheckSLS"), QObject::tr("&Deflections"),
        [](const ProjectState& s) { return s.checksls != kFalse; }, TickDeflections);
    sls->setToolTip(QObject::tr("Control deflections (serviceability limit state)"));
    row->addWidget(sls);
    bind.ShowWhen(group, [](const ProjectState& s) { return s.loadmode == 1; });
    return group;
}

QGroupBox* CalculationGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("fr5"), QObject::tr("Calculation data"));
    QGridLayout* const grid = GridOf(group);
    QPushButton* const points = bind.Button(QStringLiteral("cp"), QObject::tr("&Check points"),
                                            [&desk] { desk.open("chpoints"); });
    QPushButton* const vortex =
        bind.Button(QStringLiteral("btnVortex"), QObject::tr("&Vortex shedding"),
                    [&desk] { desk.open("frmVortex"); });
    auto* const frame = new QWidget;
    frame->setObjectName(QStringLiteral("Frame5"));
    auto* const modal = new QHBoxLayout(frame);
    modal->setContentsMargins(0, 0, 0, 0);
    QCheckBox* const tick = bind.Tick(
        QStringLiteral("ch_modal"), QObject::tr("&Modal Analysis "),
        [](const ProjectState& s) { return s.modal == 1; }, TickModal);
    tick->setToolTip(
        QObject::tr("If checked then modal analysis results are included in printout "));
    QPushButton* const shapes =
        bind.Button(QStringLiteral("cmd_modresult"), QObject::tr("Modeshape &1-3"),
                    [&desk] { desk.open("Modal_ns"); });
    bind.EnableWhen(shapes, ModalResultShown);
    modal->addWidget(tick);
    modal->addStretch(1);
    modal->addWidget(shapes);
    grid->addWidget(points, 0, 0);
    grid->addWidget(vortex, 0, 1);
    grid->addWidget(frame, 1, 0, 1, 2);
    return group;
}

QGroupBox* SectionGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("frsection"), QObject::tr("Section"));
    QHBoxLayout* const row = RowOf(group);
    const Library& library = bind.session().library();
    QLabel* const name =
        bind.Text(QStringLiteral("sectionname"),
                  [&library](const ProjectState& s) { return SectionName(library, s); });
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    name->setWordWrap(true);
    Picture* const picture = bind.Figure(QStringLiteral("picsection"), DrawSection);
    picture->setAccessibleName(QObject::tr("The section to scale"));
    picture->setToolTip(QObject::tr("Click to change the section"));
    picture->setCursor(Qt::PointingHandCursor);
    picture->clicked = [&desk] {
        if (const FamilyInfo* const family = FindFamily(desk.session.state().family)) {
            desk.open(family->form);
        }
    };
    QPushButton* const enlarge = bind.Button(QStringLiteral("cmdpic"), QObject::tr("&Enlarge"),
                                             [&desk] { desk.open("sectionpicture"); });
    QLabel* const classes = bind.Text(QStringLiteral("sectionclass"), [](const ProjectState& s) {
        return "Class " + SectionClassText(s);
    });
    classes->setToolTip(QObject::tr("Cross section class N/My/Mz\nEN 1993-1-1, 5.5.2"));
    picture->setMinimumSize(90, 62);
    row->addWidget(picture, 3);
    auto* const side = new QVBoxLayout;
    side->setSpacing(2);
    side->addWidget(name);
    side->addWidget(classes);
    side->addStretch(1);
    side->addWidget(enlarge);
    row->addLayout(side, 2);
    return group;
}

constexpr double kLoadScale = 5.2;  // pixels per unit at most, for texts of ordinary size
constexpr double kDiagramStretch = 1.7;
constexpr int kNarrowestDiagram = 220;

// --- Diagrams ------------------------------------------------------------------------------------

QGroupBox* DiagramGroup(Binder& bind, Desk& desk, LoadAxis axis)
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
    auto* const readout = new QLabel;
    readout->setObjectName(z ? QStringLiteral("hoverz") : QStringLiteral("hovery"));
    readout->setMinimumHeight(readout->fontMetrics().height());
    const auto open = [&desk] {
        desk.open(desk.session.state().loadmode == 1 ? "Loading" : "endforce");
    };
    for (Picture* const picture : {load, moment}) {
        picture->clicked = open;
        picture->setCursor(Qt::PointingHandCursor);
        picture->setFocusPolicy(Qt::TabFocus);
        picture->setToolTip(QObject::tr("Click to edit the loads"));
    }
    load->setAccessibleName(z ? QObject::tr("Loads along z") : QObject::tr("Loads along y"));
    moment->setAccessibleName(z ? QObject::tr("Moment, shear and deflection along z")
                                : QObject::tr("Moment, shear and deflection along y"));
    moment->hovered = [readout, axis, &desk](Point at) {
        readout->setText(ToQt(
            ForLocale(HoverText(desk.session.shown(), axis, at.x), desk.session.decimalcomma())));
    };
    moment->left = [readout] { readout->clear(); };
    load->SetLargestScale(kLoadScale);
    moment->SetStretch(kDiagramStretch);
    column->addWidget(load, 40);
    column->addWidget(moment, 55);
    column->addWidget(readout);
    return group;
}

// --- Results -------------------------------------------------------------------------------------

QGroupBox* PanelGroup(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("fr4"), QObject::tr("Results "));
    QVBoxLayout* const column = ColumnOf(group);
    auto* const panel = new ResultPanel;
    bind.Follow([panel, &desk](const ProjectState&) { panel->Show(desk.session.shown()); });
    column->addWidget(panel, 1);
    auto* const error = new QLabel(ToQt(kCalculationError).trimmed());
    error->setObjectName(QStringLiteral("txtError"));
    error->setWordWrap(true);
    error->setStyleSheet(
        QStringLiteral("background: #c62828; color: white; border-radius: 3px; padding: 3px 6px;"));
    bind.ShowWhen(error, [&desk](const ProjectState&) { return desk.session.failed(); });
    column->addWidget(error);
    panel->SetCorner(bind.Button(QStringLiteral("CmdResult"), QObject::tr("More &Results"),
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
            auto* const item =
                new QListWidgetItem(ToQt(note.id) + QStringLiteral(": ") + ToQt(note.text), list);
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
    for (const FamilyInfo& family : Families()) {
        if (family.group != group) {
            continue;
        }
        const int id = family.id;
        PictureButton* const button = bind.PictureOption(
            ToQt(family.form) + QLatin1Char('i'), FamilyButtonText(id), SectionIcon(id),
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
    tabs->setDocumentMode(true);
    const std::pair<MenuGroup, QString> groups[] = {
        {MenuGroup::profiles, QObject::tr("Profiles")},
        {MenuGroup::welded, QObject::tr("Welded")},
        {MenuGroup::plates, QObject::tr("Stiffened plates")},
        {MenuGroup::other, QObject::tr("Other")},
        {MenuGroup::british, QObject::tr("British profiles")}};
    for (const auto& [group, title] : groups) {
        tabs->addTab(FamilyTab(bind, desk, group), title);
    }
    tabs->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return tabs;
}

QWidget* InputPanel(Binder& bind, Desk& desk)
{
    QGroupBox* const panel = Group(QStringLiteral("fr1"), QObject::tr("Input"));
    QVBoxLayout* const column = ColumnOf(panel);
    column->setSpacing(2);
    column->addLayout(ProjectRows(bind));
    auto* const pair = new QHBoxLayout;
    pair->addWidget(MemberGroup(bind));
    pair->addWidget(EndSupportGroup(bind, desk), 1);
    column->addLayout(pair);
    column->addWidget(SupportGroup(bind));
    column->addWidget(ColumnGroup(bind, desk));
    column->addWidget(MaterialGroup(bind));
    column->addWidget(LateralGroup(bind, desk));
    column->addWidget(CombinationGroup(bind));
    column->addWidget(CalculationGroup(bind, desk));
    column->addWidget(SectionGroup(bind, desk), 1);
    return panel;
}

QWidget* DiagramPanel(Binder& bind, Desk& desk)
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(DiagramGroup(bind, desk, LoadAxis::z));
    row->addWidget(DiagramGroup(bind, desk, LoadAxis::y));
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
