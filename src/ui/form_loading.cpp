#include "app/load_commands.h"
#include "app/setup_commands.h"
#include "core/project_inputs.h"
#include "report/diagrams.h"
#include "ui/combination_widgets.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace kestrum {

namespace {

// A kind of load, and the names of its controls: tick, category, direction.
struct RowNames {
    LoadRow kind;
    const char *what, *tick, *category, *direction;
    i16 (*ticked)(const ProjectState& s, std::size_t row);
    double (*chosen)(const ProjectState& s, std::size_t row);
};

constexpr RowNames kAxial{
    LoadRow::axial,
    QT_TRANSLATE_NOOP("QObject", "axial load"),
    "ch_nn",
    "inn_gq",
    nullptr,
    [](const ProjectState& s, std::size_t k) { return InputsOf(s).nchecked[k]; },
    [](const ProjectState& s, std::size_t k) -> double { return InputsOf(s).ntype[k]; }};
constexpr RowNames kUniform{
    LoadRow::uniform,
    QT_TRANSLATE_NOOP("QObject", "uniform load"),
    "ch_q",
    "iq_gq",
    "iq_yz",
    [](const ProjectState& s, std::size_t k) { return InputsOf(s).qchecked[k]; },
    [](const ProjectState& s, std::size_t k) -> double { return InputsOf(s).qtype[k]; }};
constexpr RowNames kTrapezoid{
    LoadRow::trapezoid,
    QT_TRANSLATE_NOOP("QObject", "trapezoidal load"),
    "ch_qt",
    "iqt_gq",
    "iqt_yz",
    [](const ProjectState& s, std::size_t k) { return InputsOf(s).qtchecked[k]; },
    [](const ProjectState& s, std::size_t k) -> double { return InputsOf(s).qttype[k]; }};
constexpr RowNames kPoint{
    LoadRow::point,
    QT_TRANSLATE_NOOP("QObject", "point load"),
    "ch_pm",
    "ipm_gq",
    "ipm_yz",
    [](const ProjectState& s, std::size_t k) { return InputsOf(s).pmchecked[k]; },
    [](const ProjectState& s, std::size_t k) -> double { return InputsOf(s).pmtype[k]; }};

QString RowName(const char* name, int row)
{
    return QLatin1String(name) + QLatin1Char('_') + QString::number(row);
}

QString LoadName(const RowNames& names, int row)
{
    return QObject::tr(names.what) + QLatin1Char(' ') + QString::number(row);
}

QStringList Categories()
{
    QStringList names;
    for (const double category : {0.0, 1.0, 2.0}) {
        names << ToQt(CategoryName(category));
    }
    return names;
}

QStringList Directions(const ProjectState& s, LoadRow kind, int row)
{
    const bool moment =
        kind == LoadRow::point && InputsOf(s).pmkind[static_cast<std::size_t>(row)] == 1;
    return moment ? QStringList{QStringLiteral("My"), QStringLiteral("Mz")}
                  : QStringList{QStringLiteral("Z"), QStringLiteral("Y")};
}

// Tick at the left, category and direction behind the boxes.
void AddTick(Binder& bind, QGridLayout* grid, int at, const RowNames& names, int row)
{
    QCheckBox* const tick = bind.Tick(
        RowName(names.tick, row), {},
        [names, row](const ProjectState& s) {
            return names.ticked(s, static_cast<std::size_t>(row)) != kFalse;
        },
        [kind = names.kind, row](Session& session, bool on) { TickRow(session, kind, row, on); });
    tick->setToolTip(QObject::tr("Part of the basic loads"));
    tick->setAccessibleName(QObject::tr("%1 is part of the basic loads").arg(LoadName(names, row)));
    bind.ShowWhen(tick, RowTicksShown);
    grid->addWidget(tick, at, 0);
}

void AddButtons(Binder& bind, QGridLayout* grid, int at, int column, const RowNames& names, int row)
{
    QPushButton* const category = bind.Rotor(
        RowName(names.category, row), QObject::tr("Category of %1").arg(LoadName(names, row)),
        [](const ProjectState&) { return Categories(); },
        [names, row](const ProjectState& s) {
            return std::string(CategoryName(names.chosen(s, static_cast<std::size_t>(row))));
        },
        [kind = names.kind, row](Session& session, int steps) {
            RotateCategory(session, kind, row, steps);
        });
    category->setToolTip(QObject::tr("G permanent, Q1 leading variable, Q2 other variable"));
    grid->addWidget(category, at, column);
    if (names.direction != nullptr) {
        QPushButton* const direction = bind.Rotor(
            RowName(names.direction, row), QObject::tr("Direction of %1").arg(LoadName(names, row)),
            [kind = names.kind, row](const ProjectState& s) { return Directions(s, kind, row); },
            [kind = names.kind, row](const ProjectState& s) {
                return std::string(DirectionText(s, kind, row));
            },
            [kind = names.kind, row](Session& session, int) {
                ToggleDirection(session, kind, row);
            });
        direction->setToolTip(QObject::tr("Direction of the load"));
        grid->addWidget(direction, at, column + 1);
    }
}

void Heads(QGridLayout* grid, int column, const QStringList& texts)
{
    for (const QString& text : texts) {
        QLabel* const head = FaintLabel(text);
        head->setAlignment(Qt::AlignCenter);
        grid->addWidget(head, 0, column++);
    }
}

QGroupBox* SimpleGroup(Binder& bind, const QString& name, const QString& title, const QString& head,
                       std::string_view box, const RowNames& names, int rows)
{
    QGroupBox* const group = Group(name, title);
    QGridLayout* const grid = GridOf(group);
    Heads(grid, 1, {head});
    for (int row = 1; row <= rows; ++row) {
        AddTick(bind, grid, row, names, row);
        grid->addWidget(bind.Box(box, row), row, 1);
        AddButtons(bind, grid, row, 2, names, row);
    }
    grid->setColumnStretch(4, 1);
    grid->setRowStretch(rows + 1, 1);
    return group;
}

// The two options of a coordinate mode, and the heading that follows it.
QWidget* PositionOptions(Binder& bind, const QString& stem, const QString& loads,
                         i16 ProjectInputs::*field, void (*choose)(Session&, bool))
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(FaintLabel(QObject::tr("Positions:")));
    const auto option = [&](const QString& name, const QString& text, bool relative) {
        QRadioButton* const button = bind.Option(
            name, text,
            [field, relative](const ProjectState& s) {
                return (InputsOf(s).*field != 0) == relative;
            },
            [choose, relative](Session& session) { choose(session, relative); });
        button->setAccessibleName(QObject::tr("Positions of %1 as %2").arg(loads, text));
        row->addWidget(button);
    };
    option(stem + QStringLiteral("absolute"), QStringLiteral("x (m)"), false);
    option(stem + QStringLiteral("relative"), QStringLiteral("x/L"), true);
    row->addStretch(1);
    return host;
}

QGroupBox* TrapezoidGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frqt"), QObject::tr("Trapezoidal loads"));
    QGridLayout* const grid = GridOf(group);
    Heads(grid, 1, {QStringLiteral("q1 (kN/m)"), QStringLiteral("q2 (kN/m)")});
    for (int i = 0; i < 2; ++i) {
        QLabel* const head =
            bind.Text(QStringLiteral("qtx%1head").arg(i + 1), [i](const ProjectState& s) {
                std::string text(PositionHeading(InputsOf(s).qtrelative != 0));
                return text.insert(1, i == 0 ? "1" : "2");
            });
        head->setForegroundRole(QPalette::PlaceholderText);
        head->setAlignment(Qt::AlignCenter);
        grid->addWidget(head, 0, 3 + i);
    }
    for (int row = 1; row <= 3; ++row) {
        AddTick(bind, grid, row, kTrapezoid, row);
        int column = 1;
        for (const std::string_view box : {"iqt1", "iqt2", "iqtx1", "iqtx2"}) {
            grid->addWidget(bind.Box(box, row), row, column++);
        }
        AddButtons(bind, grid, row, column, kTrapezoid, row);
    }
    grid->addWidget(PositionOptions(bind, QStringLiteral("qtx"), QObject::tr("trapezoidal loads"),
                                    &ProjectInputs::qtrelative, ChooseTrapezoidRelative),
                    4, 1, 1, 6);
    grid->setColumnStretch(7, 1);
    return group;
}

QGroupBox* PointGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frPM"), QObject::tr("Point loads and moments"));
    QGridLayout* const grid = GridOf(group);
    Heads(grid, 2, {QStringLiteral("kN, kNm")});
    QLabel* const head = bind.Text(QStringLiteral("pmxhead"), [](const ProjectState& s) {
        return std::string(PositionHeading(InputsOf(s).pmrelative != 0));
    });
    head->setForegroundRole(QPalette::PlaceholderText);
    head->setAlignment(Qt::AlignCenter);
    grid->addWidget(head, 0, 3);
    for (int row = 1; row <= 8; ++row) {
        AddTick(bind, grid, row, kPoint, row);
        QPushButton* const kind = bind.Rotor(
            RowName("ipm_pm", row), QObject::tr("Force or moment of %1").arg(LoadName(kPoint, row)),
            [](const ProjectState&) {
                return QStringList{QStringLiteral("P"), QStringLiteral("M")};
            },
            [row](const ProjectState& s) { return std::string(PointKindText(s, row)); },
            [row](Session& session, int) { TogglePointKind(session, row); });
        kind->setToolTip(QObject::tr("Force P or moment M"));
        grid->addWidget(kind, row, 1);
        grid->addWidget(bind.Box("ipm", row), row, 2);
        grid->addWidget(bind.Box("ipmx", row), row, 3);
        AddButtons(bind, grid, row, 4, kPoint, row);
    }
    grid->addWidget(PositionOptions(bind, QStringLiteral("pmx"), QObject::tr("point loads"),
                                    &ProjectInputs::pmrelative, ChoosePointRelative),
                    9, 1, 1, 5);
    grid->setColumnStretch(6, 1);
    grid->setRowStretch(10, 1);
    return group;
}

}  // namespace

Form* MakeLoading(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "Loading", QObject::tr("Loading"), parent);
    Binder& bind = form->bind();
    auto* const columns = new QGridLayout;
    columns->setSpacing(kGap);
    auto* const left = new QVBoxLayout;
    auto* const pair = new QHBoxLayout;
    pair->setSpacing(kGap);
    pair->addWidget(SimpleGroup(bind, QStringLiteral("frN"), QObject::tr("Axial loads"),
                                QStringLiteral("N (kN)"), "inn", kAxial, 3));
    pair->addWidget(SimpleGroup(bind, QStringLiteral("frq"), QObject::tr("Uniform loads"),
                                QStringLiteral("q (kN/m)"), "iq", kUniform, 4));
    left->addLayout(pair);
    left->addWidget(TrapezoidGroup(bind));
    QCheckBox* const weight = bind.Tick(
        QStringLiteral("check_selfweight"), QStringLiteral("Include Selfweight - z-dir"),
        [](const ProjectState& s) { return InputsOf(s).selfweight == 1; }, TickSelfweight);
    left->addWidget(weight);
    QGroupBox* const combination =
        Group(QStringLiteral("framecomb"), QObject::tr("Load combination"));
    QVBoxLayout* const inner = ColumnOf(combination);
    inner->addWidget(CombinationList(bind));
    inner->addWidget(PsiFrame(bind, desk, QStringLiteral("cmdpsi")));
    inner->addWidget(CombinationTexts(bind));
    left->addWidget(combination);
    left->addStretch(1);
    columns->addLayout(left, 0, 0);

    auto* const right = new QVBoxLayout;
    right->addWidget(PointGroup(bind));
    right->addStretch(1);
    columns->addLayout(right, 0, 1);
    form->body()->addLayout(columns);
    form->Fold(columns);

    QHBoxLayout* const buttons = form->AddButtons();
    QPushButton* const remove =
        bind.Button(QStringLiteral("CmdRemove"), QObject::tr("&Remove all checked loads"),
                    [&desk] { RemoveChecked(desk.session); });
    bind.ShowWhen(remove, RowTicksShown);
    buttons->insertWidget(0, remove);

    form->mayclose = [form, &desk] {
        const CloseOutcome outcome = CloseLoading(desk.session);
        const QString name = ToQt(outcome.box) + QLatin1Char('_') + QString::number(outcome.row);
        if (auto* const box = form->findChild<BoxEdit*>(name); box != nullptr && !outcome.close) {
            box->TakeFocus();
        }
        return outcome.close;
    };
    return form;
}

}  // namespace kestrum
