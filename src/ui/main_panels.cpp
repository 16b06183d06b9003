#include "ui/main_panels.h"

#include "app/member_commands.h"
#include "app/view_member.h"
#include "app/view_section.h"
#include "core/project_state.h"
#include "report/choice_pictures.h"
#include "report/member_drawing.h"
#include "report/section_figure.h"
#include "sections/family_table.h"
#include "ui/form.h"
#include "ui/lists.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace kestrum {

namespace {

constexpr QSize kSmallPicture(72, 26);
constexpr int kMemberHeight = 32;  // its length can be read

// What Tab would reach; frames and labels stand between.
QWidget* NextInput(QWidget& from)
{
    QWidget* at = from.nextInFocusChain();
    while (at != &from &&
           !(at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) != 0)) {
        at = at->nextInFocusChain();
    }
    return at;
}

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
                     [box] { NextInput(*box)->setFocus(Qt::TabFocusReason); });
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
    // The diagrams are those of the last good pass; this is the member in hand.
    Picture* const member = bind.Figure(QStringLiteral("picmember"), DrawMember);
    member->setAccessibleName(QObject::tr("The member with its supports"));
    member->setFixedHeight(kMemberHeight);
    grid->addWidget(member, 1, 0, 1, 4);
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
        button->SetPictureSize({46, 28});
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
    const auto automatic = QStringLiteral("Automatic choosen according to BSK Table 6:233");
    curve->setItemData(0, automatic, Qt::ToolTipRole);
    curve->setToolTip(QObject::tr("Buckling curve about the %1 axis\nAuto: %2\n"
                                  "EN 1993-1-1, Table 6.2")
                          .arg(letter, automatic));
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
    grid->addWidget(FaintLabel(QStringLiteral("Buckling length factor:")), 0, 1, 1, 3);
    grid->addWidget(FaintLabel(QStringLiteral("Buckling curve:")), 0, 4, 1, 2);
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
        QStringLiteral("ch_vipp"), QObject::tr("C&ontrol"),
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
    grid->addWidget(tick, 0, 0);
    QLabel* const kname = FaintLabel(QStringLiteral("k ="));
    bind.ShowWhen(kname, [](const ProjectState& s) { return s.ltb == 1; });
    grid->addWidget(kname, 0, 1);
    grid->addWidget(k, 0, 2);
    grid->addWidget(level, 0, 3);
    Picture* const restraints =
        bind.Figure(QStringLiteral("picvipping"),
                    [](const ProjectState& s) { return LateralRestraintPicture(s.restraints); });
    restraints->setAccessibleName(QObject::tr("Lateral restraints of the compression flange"));
    restraints->setToolTip(restraints->accessibleName());
    restraints->setFixedSize(kSmallPicture);
    bind.ShowWhen(restraints, [](const ProjectState& s) { return s.ltb == 1; });
    grid->addWidget(restraints, 0, 4, Qt::AlignRight);
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
        QStringLiteral("CheckSLS"), QStringLiteral("Incl &Deflection control (SLS)"),
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
        bind.Button(QStringLiteral("btnVortex"), QObject::tr("Vorte&x shedding"),
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
    name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // however long it is
    bind.Follow([name](const ProjectState&) { name->setToolTip(name->text()); });
    Picture* const picture = bind.Figure(QStringLiteral("picsection"), DrawSection);
    picture->setAccessibleName(QObject::tr("The section to scale"));
    picture->setToolTip(QObject::tr("Click to change the section"));
    picture->setCursor(Qt::PointingHandCursor);
    picture->clicked = [&desk] {
        if (const FamilyTraits* const family = FindFamily(desk.session.state().family)) {
            desk.open(family->form);
        }
    };
    QPushButton* const enlarge = bind.Button(QStringLiteral("cmdpic"), QObject::tr("Enlar&ge"),
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

}  // namespace

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
    constexpr int kTight = 4;  // above and below, so that all of it fits into an ordinary window
    for (const QGroupBox* const group : panel->findChildren<QGroupBox*>()) {
        group->layout()->setContentsMargins(kMargin, kTight, kMargin, kTight);
    }
    return panel;
}

}  // namespace kestrum
