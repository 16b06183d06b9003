#include "app/member_commands.h"
#include "app/setup_commands.h"
#include "app/view_member.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "core/project_inputs.h"
#include "sections/load_library.h"
#include "ui/combination_widgets.h"
#include "ui/forms.h"
#include "ui/lists.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace kestrum {

namespace {

const Box& BoxNamed(std::string_view id)
{
    return *FindBox("setup", id);
}

QGroupBox* ParameterGroup(Binder& bind, const QString& name, const QString& title,
                          std::initializer_list<std::string_view> ids)
{
    QGroupBox* const group = Group(name, title);
    QGridLayout* const grid = GridOf(group);
    int row = 0;
    for (const std::string_view id : ids) {
        bind.BoxRow(grid, row++, BoxNamed(id));
    }
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(row, 1);
    bind.EnableWhen(group, AnnexParametersOpen);
    return group;
}

QGroupBox* AnnexGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frameannex"), QObject::tr("National annex"));
    QVBoxLayout* const column = ColumnOf(group);
    QComboBox* const list = bind.List(
        QStringLiteral("Cbo1993"), AnnexNames(),
        [](const ProjectState& s) { return InputsOf(s).annexindex; }, ChooseAnnex);
    list->setAccessibleName(QObject::tr("National annex"));
    column->addWidget(list);
    QLabel* const hint = FaintLabel(ToQt(kAnnexHint));
    hint->setObjectName(QStringLiteral("lblannex"));
    hint->setWordWrap(true);
    column->addWidget(hint);
    return group;
}

QGroupBox* LambdaGroup(Binder& bind)
{
    QGroupBox* const group =
        Group(QStringLiteral("framelamdabeta"), QObject::tr("Lateral torsional buckling curves"));
    QGridLayout* const grid = GridOf(group);
    grid->addWidget(FaintLabel(QObject::tr("Rolled")), 0, 0, 1, 3);
    bind.BoxRow(grid, 1, BoxNamed("ilamdaLT0"));
    bind.BoxRow(grid, 2, BoxNamed("ibeta"));
    grid->addWidget(FaintLabel(QObject::tr("Welded")), 0, 3, 1, 3);
    bind.BoxRow(grid, 1, BoxNamed("ilamdaLT0w"), 3);
    bind.BoxRow(grid, 2, BoxNamed("ibetaw"), 3);
    grid->setColumnStretch(6, 1);
    bind.EnableWhen(group, AnnexParametersOpen);
    return group;
}

QGroupBox* MaterialGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("framematerial"), QObject::tr("Material"));
    QGridLayout* const grid = GridOf(group);
    const Library& library = bind.session().library();
    QComboBox* const list = bind.List(
        QStringLiteral("cbofyk"), MaterialNames(library),
        [](const ProjectState& s) { return InputsOf(s).fykindex; }, ChooseMaterial);
    list->setAccessibleName(QObject::tr("Steel grade"));
    grid->addWidget(list, 0, 0, 1, 3);
    BoxEdit* const strength = bind.BoxRow(grid, 1, BoxNamed("ifyk"));
    bind.Follow([strength, &library](const ProjectState& s) {
        strength->setReadOnly(!StrengthOpen(library, s));
        strength->setEnabled(StrengthOpen(library, s));
    });
    bind.BoxRow(grid, 2, BoxNamed("ie"));
    grid->setColumnStretch(3, 1);
    return group;
}

QGroupBox* MethodGroup(Binder& bind)
{
    QGroupBox* const group =
        Group(QStringLiteral("framemethod"), QObject::tr("Interaction factors"));
    QVBoxLayout* const column = ColumnOf(group);
    column->addWidget(bind.Option(
        QStringLiteral("rbtnMethod1"), QObject::tr("Method 1 (Annex A)"),
        [](const ProjectState& s) { return InputsOf(s).method == Method::annex_a; },
        [](Session& session) { ChooseMethod(session, Method::annex_a); }));
    column->addWidget(bind.Option(
        QStringLiteral("rbtnMethod2"), QObject::tr("Method 2 (Annex B)"),
        [](const ProjectState& s) { return InputsOf(s).method == Method::annex_b; },
        [](Session& session) { ChooseMethod(session, Method::annex_b); }));
    column->addWidget(FaintLabel(QStringLiteral(" Valid for Double Symmetric Profiles ")));
    column->addStretch(1);
    return group;
}

QGroupBox* OptionGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frameoptions"), QObject::tr("Design options"));
    QVBoxLayout* const column = ColumnOf(group);
    struct Entry {
        const char* name;
        QString text, meaning;
        Option option;
        i16 ProjectInputs::*field;
    };
    const Entry entries[] = {
        {"CheckElastic", QStringLiteral("Cross Section Class 1-2:  Elastic design"),
         QObject::tr("Elastic moduli for class 1 and 2 as well\nEN 1993-1-1, 6.2.1 (4)"),
         Option::elastic, &ProjectInputs::checkelastic},
        {"CheckConserControl", QStringLiteral("Conservative control for N+My-Mz "),
         QObject::tr("Linear sum of the utilisations, double symmetric profiles\n"
                     "EN 1993-1-1, 6.2.1 (7)"),
         Option::conservative, &ProjectInputs::checkconsercontrol},
        {"CheckFlangebuck", QStringLiteral("Flange buckling not taken into account"),
         QObject::tr("Class 4: no effective width of the flange\nEN 1993-1-5, 4.4"),
         Option::flangebuckling, &ProjectInputs::checkflangebuck},
        {"CheckWebbuck", QStringLiteral("Web buckling not taken into account"),
         QObject::tr("Class 4: no effective width of the web, no shear buckling\n"
                     "EN 1993-1-5, 4.4 and 5"),
         Option::webbuckling, &ProjectInputs::checkwebbuck}};
    for (const Entry& entry : entries) {
        QCheckBox* const tick = bind.Tick(
            QLatin1String(entry.name), entry.text,
            [field = entry.field](const ProjectState& s) { return InputsOf(s).*field != kFalse; },
            [option = entry.option](Session& session, bool on) {
                TickOption(session, option, on);
            });
        tick->setToolTip(entry.meaning);
        column->addWidget(tick);
    }
    column->addStretch(1);
    return group;
}

QGroupBox* LimitGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("framelimits"), QObject::tr("Limits"));
    QGridLayout* const grid = GridOf(group);
    grid->addWidget(FaintLabel(QObject::tr("Deflection")), 0, 0, 1, 3);
    bind.BoxRow(grid, 1, BoxNamed("idef_limitz"));
    bind.BoxRow(grid, 2, BoxNamed("idef_limity"));
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(3, 1);
    return group;
}

// A sentence that the box ends.
QGroupBox* ExcludeGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frameuflimit"), {});
    QHBoxLayout* const row = RowOf(group);
    BoxEdit* const limit = bind.BoxOf(BoxNamed("iuflimit"));
    QLabel* const sentence =
        Caption(QStringLiteral("Exclude Axial Force (N) and Moment (M) in interaction formula if  "
                               "N/N and/or  M/M  is less than  "),
                limit);
    sentence->setToolTip(limit->toolTip());
    sentence->setWordWrap(true);
    row->addWidget(sentence, 1);
    row->addWidget(limit);
    return group;
}

// One frame for Norway's two classes, one for three classes.
QWidget* ClassFrames(Binder& bind)
{
    auto* const host = new QWidget;
    auto* const row = new QVBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    const auto frame = [&](const QString& name, ClassFrame shown) {
        QGroupBox* const group = Group(name, {});
        RowOf(group);
        bind.Follow([group, shown](const ProjectState& s) {
            group->setVisible(ShownClassFrame(s) == shown);
            group->setTitle(ToQt(ClassCaption(s)));
        });
        row->addWidget(group);
        return group;
    };
    const auto option = [&](QGroupBox* group, const QString& name, const QString& text, int value) {
        group->layout()->addWidget(bind.Option(
            name, text, [value](const ProjectState& s) { return InputsOf(s).safetyclass == value; },
            [value](Session& session) { ChooseClass(session, value); }));
    };
    QGroupBox* const norway = frame(QStringLiteral("frameSclassNorway"), ClassFrame::norway);
    norway->layout()->addWidget(bind.Option(
        QStringLiteral("rbtnSafetyNorwayClass1"), QStringLiteral("1"),
        [](const ProjectState& s) { return InputsOf(s).safetyclass == 1; },
        [](Session& session) { ChooseClass(session, 1); }));
    norway->layout()->addWidget(bind.Option(
        QStringLiteral("rbtnSafetyNorwayClass24"), QStringLiteral("2-4"),
        [](const ProjectState& s) { return InputsOf(s).safetyclass != 1; },
        [](Session& session) { ChooseClass(session, 2); }));
    QGroupBox* const three = frame(QStringLiteral("frameSclass"), ClassFrame::three);
    for (int i = 1; i <= 3; ++i) {
        option(three, QStringLiteral("rbtnSafetyClass%1").arg(i), QString::number(i), i);
    }
    for (QGroupBox* const group : {norway, three}) {
        static_cast<QHBoxLayout*>(group->layout())->addStretch(1);
    }
    return host;
}

QWidget* FactorFrame(Binder& bind, Desk& desk)
{
    QGroupBox* const group = Group(QStringLiteral("frULS"), QObject::tr("Load factors"));
    QGridLayout* const grid = GridOf(group);
    const auto row = [&](int at, const QString& title,
                         std::initializer_list<std::string_view> ids) {
        grid->addWidget(FaintLabel(title), at, 0);
        int column = 1;
        for (const std::string_view id : ids) {
            bind.BoxRow(grid, at, BoxNamed(id), column);
            column += 3;
        }
    };
    row(0, QStringLiteral("ULS"), {"iLfULS_G", "iLfULS_Q1", "iLfULS_Q2"});
    row(1, QStringLiteral("SLS"), {"iLfSLS_G", "iLfSLS_Q1", "iLfSLS_Q2"});
    grid->addWidget(bind.Button(QStringLiteral("Command1"), QObject::tr("&Info"),
                                [&desk] { desk.open("InfoULS"); }),
                    0, 10);
    grid->setColumnStretch(11, 1);
    bind.ShowWhen(group, UserFactorsShown);
    return group;
}

}  // namespace

Form* MakeSetup(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "setup", QObject::tr("Setup"), parent);
    Binder& bind = form->bind();
    auto* const grid = new QGridLayout;
    grid->setSpacing(kGap);
    grid->addWidget(AnnexGroup(bind), 0, 0);
    grid->addWidget(ParameterGroup(bind, QStringLiteral("framegamma"),
                                   QObject::tr("Partial factors"), {"igammam0", "igammam1"}),
                    0, 1);
    grid->addWidget(
        ParameterGroup(bind, QStringLiteral("frameneta"), QObject::tr("Shear area"), {"ineta"}), 0,
        2);
    grid->addWidget(LambdaGroup(bind), 1, 0);
    grid->addWidget(MaterialGroup(bind), 1, 1, 1, 2);
    grid->addWidget(OptionGroup(bind), 2, 0);
    grid->addWidget(MethodGroup(bind), 2, 1, 1, 2);

    QGroupBox* const combination =
        Group(QStringLiteral("framecomb"), QObject::tr("Load combination"));
    QVBoxLayout* const column = ColumnOf(combination);
    column->addWidget(CombinationList(bind));
    column->addWidget(PsiFrame(bind, desk, QStringLiteral("Command3")));
    column->addWidget(FactorFrame(bind, desk));
    column->addWidget(ClassFrames(bind));
    column->addWidget(CombinationTexts(bind));
    column->addStretch(1);
    grid->addWidget(combination, 3, 0, 1, 2);
    grid->addWidget(LimitGroup(bind), 3, 2);
    grid->addWidget(ExcludeGroup(bind), 4, 0, 1, 3);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(2, 2);
    form->body()->addLayout(grid);
    form->Fold(grid);

    QHBoxLayout* const buttons = form->AddButtons(QStringLiteral("CmdOK"));
    QPushButton* const save =
        bind.Button(QStringLiteral("Command2"), QObject::tr("&Save as default"),
                    [&desk] { SaveAsDefault(desk.session, UserDataFolder()); });
    save->setToolTip(QObject::tr("The next start begins with these settings"));
    buttons->insertWidget(0, save);
    return form;
}

}  // namespace kestrum
