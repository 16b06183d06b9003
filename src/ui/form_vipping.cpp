#include "app/member_commands.h"
#include "app/view_member.h"
#include "core/member_choices.h"
#include "core/project_inputs.h"
#include "report/choice_pictures.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace kestrum {

namespace {

constexpr int kMostRestraints = 5;

QGroupBox* LengthGroup(Binder& bind)
{
    QGroupBox* const group =
        Group(QStringLiteral("frlength"), QStringLiteral("Lateral torsional buckling length"));
    QHBoxLayout* const row = RowOf(group);
    const QStringList captions{QStringLiteral("k = 2.0"), QStringLiteral("k = 1.0"),
                               QStringLiteral("k = 0.7"), QStringLiteral("k = 0.5")};
    for (int choice = 1; choice <= captions.size(); ++choice) {
        PictureButton* const button = bind.PictureOption(
            QStringLiteral("latbuckl%1").arg(choice), {}, LateralBucklingPicture(choice),
            [choice](const ProjectState& s) { return InputsOf(s).ltbcase == choice; },
            [choice](Session& session) { ChooseLateralCase(session, choice); });
        button->SetPictureSize({124, 70});
        button->setToolTip(bind.ForLocale(captions.at(choice - 1)));
        button->setAccessibleName(captions.at(choice - 1));
        bind.ShowWhen(button,
                      [choice](const ProjectState& s) { return LateralCaseOffered(s, choice); });
        row->addWidget(button);
    }
    row->addStretch(1);
    return group;
}

QGroupBox* CurveGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frcurve"), QObject::tr("Buckling curves"));
    QVBoxLayout* const column = ColumnOf(group);
    QRadioButton* const general = bind.Option(
        QStringLiteral("Curve2"), QStringLiteral("General Case (conservative, ch 6.3.2.2)"),
        [](const ProjectState& s) { return InputsOf(s).ltbcurve == LtbCurve::general; },
        [](Session& session) { ChooseLateralCurve(session, LtbCurve::general); });
    QRadioButton* const rolled = bind.Option(
        QStringLiteral("Curve3"), QStringLiteral("Rolled or welded I-sections (ch 6.3.2.3)"),
        [](const ProjectState& s) { return InputsOf(s).ltbcurve == LtbCurve::rolled; },
        [](Session& session) { ChooseLateralCurve(session, LtbCurve::rolled); });
    bind.EnableWhen(rolled, [](const ProjectState& s) { return !LateralCurveForced(s); });
    column->addWidget(general);
    column->addWidget(rolled);
    column->addStretch(1);
    return group;
}

QGroupBox* LevelGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frlevel"), QObject::tr("Load acts at"));
    QVBoxLayout* const column = ColumnOf(group);
    const QStringList captions{QObject::tr("Top flange"), QObject::tr("Centre of gravity"),
                               QObject::tr("Bottom flange"),
                               QStringLiteral("Za = distance from CoG")};
    for (int level = 1; level <= captions.size(); ++level) {
        column->addWidget(bind.Option(
            QStringLiteral("loadl%1").arg(level), captions.at(level - 1),
            [level](const ProjectState& s) { return InputsOf(s).loadlevel == level; },
            [level](Session& session) { ChooseLoadLevel(session, level); }));
    }
    auto* const row = new QWidget;
    auto* const grid = new QGridLayout(row);
    grid->setContentsMargins(20, 0, 0, 0);
    bind.BoxRow(grid, 0, LoadDistanceBox());
    grid->setColumnStretch(3, 1);
    bind.EnableWhen(row, [](const ProjectState& s) { return InputsOf(s).loadlevel == 4; });
    column->addWidget(row);
    return group;
}

QGroupBox* RestraintGroup(Binder& bind)
{
    QGroupBox* const group =
        Group(QStringLiteral("frrestraint"),
              QStringLiteral("Lateral restraint points along compression flange"));
    QVBoxLayout* const column = ColumnOf(group);
    QStringList numbers;
    for (int i = 0; i <= kMostRestraints; ++i) {
        numbers << QString::number(i);
    }
    auto* const row = new QHBoxLayout;
    QComboBox* const list = bind.List(
        QStringLiteral("cbo"), numbers,
        [](const ProjectState& s) { return InputsOf(s).restraints; }, ChooseRestraints);
    list->setAccessibleName(QObject::tr("Number of lateral restraints"));
    row->addWidget(Caption(QObject::tr("Number"), list));
    row->addWidget(list);
    row->addStretch(1);
    column->addLayout(row);
    Picture* const picture =
        bind.Figure(QStringLiteral("piclateralrestraint"), [](const ProjectState& s) {
            return LateralRestraintPicture(InputsOf(s).restraints);
        });
    picture->setFixedHeight(64);
    column->addWidget(picture);
    return group;
}

QGroupBox* FactorGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frfactors"), QObject::tr("C-factors"));
    QVBoxLayout* const column = ColumnOf(group);
    QCheckBox* const manual = bind.Tick(
        QStringLiteral("Cfactor"), QStringLiteral("Manual input of C-factors"),
        [](const ProjectState& s) { return InputsOf(s).cmanual != kFalse; }, TickManualFactors);
    bind.EnableWhen(manual, ManualFactorsOffered);
    column->addWidget(manual);
    column->addWidget(FaintLabel(QStringLiteral("Only valid for loaded member and no restraints")));
    auto* const row = new QWidget;
    auto* const grid = new QGridLayout(row);
    grid->setContentsMargins(20, 0, 0, 0);
    int at = 0;
    for (const std::string_view id : {"ic1", "ic2", "ic3"}) {
        bind.BoxRow(grid, at++, *FindBox("vipping", id));
    }
    grid->setColumnStretch(3, 1);
    bind.EnableWhen(row, [](const ProjectState& s) {
        return ManualFactorsOffered(s) && InputsOf(s).cmanual != kFalse;
    });
    column->addWidget(row);
    column->addWidget(bind.Tick(
        QStringLiteral("C1factor"), QStringLiteral("Alternative calculation of C1"),
        [](const ProjectState& s) { return InputsOf(s).c1alt != kFalse; }, TickAlternativeC1));
    column->addStretch(1);
    return group;
}

QGroupBox* ResultsGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frresult"), QObject::tr("Result"));
    QGridLayout* const grid = GridOf(group);
    const auto value = [&](int row, const QString& head, const QString& name,
                           std::string (*text)(const ProjectState&)) {
        grid->addWidget(new QLabel(head), row, 0);
        grid->addWidget(bind.Value(name, text), row, 1);
    };
    value(0, QStringLiteral("Mb,Rd ="), QStringLiteral("ombrd"), MbRdText);
    value(1, QStringLiteral("C1 ="), QStringLiteral("oc1"), C1Text);
    value(2, QStringLiteral("C3 ="), QStringLiteral("oc3"), C3Text);
    grid->addWidget(bind.Text(QStringLiteral("segtext"), SegmentText), 1, 2);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(3, 1);
    return group;
}

}  // namespace

Form* MakeVipping(Desk& desk, QWidget* parent)
{
    auto* const form =
        new Form(desk, "vipping", QStringLiteral("Lateral Torsional Buckling parameters"), parent);
    Binder& bind = form->bind();
    form->body()->addWidget(LengthGroup(bind));
    auto* const grid = new QGridLayout;
    grid->setSpacing(kGap);
    grid->addWidget(CurveGroup(bind), 0, 0);
    grid->addWidget(LevelGroup(bind), 0, 1, 2, 1);
    grid->addWidget(RestraintGroup(bind), 1, 0);
    grid->addWidget(FactorGroup(bind), 2, 0);
    grid->addWidget(ResultsGroup(bind), 2, 1);
    form->body()->addLayout(grid);
    form->Fold(grid);
    QHBoxLayout* const buttons = form->AddButtons();
    buttons->insertWidget(0, bind.Button(QStringLiteral("cmdinfo"), QObject::tr("&Info"),
                                         [&desk] { desk.open("InfoVipping"); }));
    return form;
}

}  // namespace kestrum
