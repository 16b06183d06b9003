// The form of a section family: how the section is chosen or entered, its figure, its properties
// and its resistance.

#include "app/locale_text.h"
#include "app/section_commands.h"
#include "app/view_section.h"
#include "core/held_state.h"
#include "core/project_inputs.h"
#include "report/section_figure.h"
#include "sections/family_table.h"
#include "sections/read_profiles.h"
#include "ui/forms.h"
#include "ui/lightest_row.h"
#include "ui/section_table.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace kestrum {

namespace {

constexpr int kFigureSize = 230;
constexpr int kListLines = 22;  // so that a dozen sections are in sight
constexpr int kBoxesPerColumn = 6;

// --- Choice of a row -----------------------------------------------------------------------------

QWidget* SeriesOptions(Binder& bind, const FamilyTraits& family)
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    int i = 0;
    for (const Table table : family.tables) {
        ++i;
        row->addWidget(bind.Option(
            QStringLiteral("prof%1").arg(i), ToQt(ShapeOf(table).prefix),
            [i, chosen = family.series](const ProjectState& s) { return InputsOf(s).*chosen == i; },
            [i](Session& session) { ChooseSeries(session, i); }));
    }
    row->addStretch(1);
    return host;
}

// --- Options -------------------------------------------------------------------------------------

struct OptionText {
    const char* name;
    QString text;
    int value;
};

void AddOptions(QVBoxLayout* column, Binder& bind, const QString& title, SectionOption option,
                i16 SectionForms::*field, std::initializer_list<OptionText> texts)
{
    QGroupBox* const group = Group({}, title);
    QHBoxLayout* const row = RowOf(group);
    for (const OptionText& text : texts) {
        row->addWidget(bind.Option(
            QLatin1String(text.name), text.text,
            [field, value = text.value](const ProjectState& s) {
                return InputsOf(s).*field == value;
            },
            [option, value = text.value](Session& session) {
                ChooseSectionOption(session, option, value);
            }));
    }
    row->addStretch(1);
    column->addWidget(group);
}

void AddFamilyOptions(QVBoxLayout* column, Binder& bind, int family)
{
    if (HasOption(family, SectionOption::rectaxis)) {
        QPushButton* const turn =
            bind.Button(QStringLiteral("cbuttbucklingy"), QObject::tr("&Exchange the axes"),
                        [&bind] { ToggleRectangularAxis(bind.session()); });
        turn->setToolTip(QObject::tr("Bending about the weak axis of the section"));
        column->addWidget(turn);
    }
    if (HasOption(family, SectionOption::bolts)) {
        AddOptions(column, bind, QObject::tr("Connection by one leg"), SectionOption::bolts,
                   &SectionForms::lopt,
                   {{"opt_l10_1", QStringLiteral("One bolt"), 1},
                    {"opt_l10_2", QStringLiteral("Two bolts"), 2}});
    }
    if (HasOption(family, SectionOption::weld)) {
        AddOptions(column, bind, QObject::tr("Welds"), SectionOption::weld, &SectionForms::weldopt,
                   {{"oweld0", QObject::tr("Normal"), 0},
                    {"oweld1", QObject::tr("Thick (a > 0.5 tf)"), 1}});
    }
    if (HasOption(family, SectionOption::tube)) {
        AddOptions(column, bind, QObject::tr("Manufacture"), SectionOption::tube,
                   &SectionForms::tubehot,
                   {{"opthot", QObject::tr("Hot finished"), 1},
                    {"optcold", QObject::tr("Cold formed"), 2}});
    }
    if (HasOption(family, SectionOption::hsqload)) {
        AddOptions(column, bind, QStringLiteral("Consider flange loading (valid for q-load)"),
                   SectionOption::hsqload, &SectionForms::hsqopt,
                   {{"opthsq0", QStringLiteral("Yes"), 0}, {"opthsq1", QStringLiteral("No"), 1}});
    }
    if (HasOption(family, SectionOption::upgrade)) {
        AddOptions(
            column, bind, QStringLiteral("Upgrade section class if Class 3 web (Ch 6.2.2.24)"),
            SectionOption::upgrade, &SectionForms::class23,
            {{"OptClass23Y", QStringLiteral("Y"), 0}, {"OptClass23N", QStringLiteral("N"), 1}});
    }
}

// --- General profile -----------------------------------------------------------------------------

QWidget* GeneralIdent(Binder& bind)
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const box = new QLineEdit;
    box->setObjectName(QStringLiteral("iident"));
    box->setAccessibleName(QObject::tr("Identification of the profile"));
    QObject::connect(box, &QLineEdit::editingFinished, box, [box, &bind] {
        if (box->isModified()) {
            box->setModified(false);
            SetGeneralIdent(bind.session(), FromQt(box->text()));
        }
    });
    bind.Follow([box](const ProjectState& s) {
        if (!box->isModified() && box->text() != ToQt(InputsOf(s).p41ident)) {
            box->setText(ToQt(InputsOf(s).p41ident));
        }
    });
    row->addWidget(Caption(QObject::tr("Identification"), box));
    row->addWidget(box, 1);
    return host;
}

QGroupBox* GeneralClasses(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frclass"), QObject::tr("Cross section class"));
    QGridLayout* const grid = GridOf(group);
    struct Row {
        const char* name;
        Effect effect;
        i16 FormP41::*field;
    };
    const Row rows[] = {{"N", Effect::n, &FormP41::opn},
                        {"My", Effect::my, &FormP41::opmy},
                        {"Mz", Effect::mz, &FormP41::opmz}};
    int at = 0;
    for (const Row& row : rows) {
        auto* const host = new QWidget;
        auto* const options = new QHBoxLayout(host);
        options->setContentsMargins(0, 0, 0, 0);
        for (const int number : {1, 3}) {
            QRadioButton* const option = bind.Option(
                QStringLiteral("op%1%2").arg(QLatin1String(row.name)).arg(number),
                number == 1 ? QStringLiteral("1-2") : QStringLiteral("3"),
                [field = row.field, number](const ProjectState& s) {
                    return InputsOf(s).p41.*field == number;
                },
                [effect = row.effect, number](Session& session) {
                    ChooseGeneralClass(session, effect, number);
                });
            option->setAccessibleName(
                QObject::tr("Class of %1: %2").arg(QLatin1String(row.name), option->text()));
            options->addWidget(option);
        }
        options->addStretch(1);
        grid->addWidget(new QLabel(QLatin1String(row.name)), at, 0);
        grid->addWidget(host, at++, 1);
    }
    QLabel* const note =
        FaintLabel(QStringLiteral("Only Cross Section Classes 1-3 is available for this profile"));
    note->setWordWrap(true);
    grid->addWidget(note, at, 0, 1, 2);
    return group;
}

// --- Values --------------------------------------------------------------------------------------

// A grid of label, value and unit that follows the family in hand. The rows are made once: which
// values there are hangs on the family alone.
QGroupBox* ValueGroup(Binder& bind, const QString& name, const QString& title,
                      std::vector<ShownValue> (*values)(const ProjectState&), int family)
{
    QGroupBox* const group = Group(name, title);
    QGridLayout* const grid = GridOf(group);
    HeldState probe;
    InputsOf(probe).family = static_cast<i16>(family);
    int row = 0;
    for (const ShownValue& value : values(probe)) {
        auto* const label = new QLabel(ToQt(value.label) + QStringLiteral(" ="));
        QLabel* const shown = bind.Value(ToQt(value.id), [values, row](const ProjectState& s) {
            const std::vector<ShownValue> all = values(s);
            return static_cast<std::size_t>(row) < all.size()
                       ? all[static_cast<std::size_t>(row)].value
                       : std::string{};
        });
        shown->setMinimumWidth(
            shown->fontMetrics().horizontalAdvance(QStringLiteral("0.000E+00 ")));
        shown->setAccessibleName(ToQt(value.label) + QLatin1Char(' ') + ToQt(value.unit));
        grid->addWidget(label, row, 0);
        grid->addWidget(shown, row, 1);
        grid->addWidget(FaintLabel(QLatin1Char(' ') + ToQt(value.unit)), row, 2);
        ++row;
    }
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(row, 1);
    return group;
}

QGroupBox* BoxGroup(Binder& bind, int family)
{
    QGroupBox* const group = Group(QStringLiteral("frdim"), TraitsOf(family).kind == Kind::general
                                                                ? QObject::tr("Properties")
                                                                : QObject::tr("Dimensions"));
    QGridLayout* const grid = GridOf(group);
    const std::vector<const Box*> boxes = SectionBoxes(family);
    int i = 0;
    for (const Box* const box : boxes) {
        bind.BoxRow(grid, i % kBoxesPerColumn, *box, i / kBoxesPerColumn * 4);
        ++i;
    }
    grid->setColumnStretch(i / kBoxesPerColumn * 4 + 3, 1);
    grid->setRowStretch(kBoxesPerColumn, 1);
    return group;
}

QWidget* ClassRow(Binder& bind)
{
    auto* const host = new QWidget;
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(kMargin, 0, kMargin, 0);
    row->addWidget(new QLabel(QObject::tr("Cross section class N/My/Mz")));
    row->addStretch(1);
    row->addWidget(bind.Text(QStringLiteral("osectionclass"), SectionClassText));
    return host;
}

}  // namespace

Form* MakeSection(Desk& desk, QWidget* parent, int family)
{
    const FamilyTraits& info = *FindFamily(family);
    auto* const form = new Form(desk, info.form, ToQt(SectionTitle(family)).trimmed(), parent);
    form->belongs = [family](const ProjectState& s) { return InputsOf(s).family == family; };
    Binder& bind = form->bind();
    auto* const columns = new QGridLayout;
    columns->setSpacing(kGap);

    if (HasTable(family)) {
        QGroupBox* const choice =
            Group(QStringLiteral("frlist"), info.input == SectionInput::stiffener
                                                ? QObject::tr("Stiffener")
                                                : QObject::tr("Section"));
        QVBoxLayout* const column = ColumnOf(choice);
        if (info.input == SectionInput::series) {
            column->addWidget(SeriesOptions(bind, info));
        }
        column->addWidget(SectionTable(bind, info.input == SectionInput::stiffener
                                                 ? QStringLiteral("cbo")
                                                 : QStringLiteral("lst") + ToQt(info.form)),
                          1);
        choice->setMinimumHeight(kListLines * choice->fontMetrics().height());
        columns->addWidget(choice, 0, 0);
    }

    auto* const middle = new QVBoxLayout;
    middle->setSpacing(kGap);
    if (info.kind == Kind::general) {
        middle->addWidget(GeneralIdent(bind));
    }
    auto* const figures = new QHBoxLayout;
    auto* const letters = new Picture(QStringLiteral("picletters"));
    letters->Show(DrawSectionLetters(family));
    letters->setAccessibleName(QObject::tr("Figure of the section with its dimensions"));
    letters->setMinimumSize(kFigureSize, kFigureSize);
    figures->addWidget(letters);
    middle->addLayout(figures, 1);
    if (!SectionBoxes(family).empty()) {
        middle->addWidget(BoxGroup(bind, family));
    } else {
        middle->addWidget(ValueGroup(bind, QStringLiteral("frdim"), QObject::tr("Dimensions"),
                                     SectionDimensions, family));
    }
    if (info.kind == Kind::general) {
        middle->addWidget(GeneralClasses(bind));
    }
    for (const std::string_view note : CornerNotes(family)) {
        middle->addWidget(FaintLabel(bind.ForLocale(ToQt(note))));
    }
    AddFamilyOptions(middle, bind, family);
    if (QGroupBox* const search = PlateSearch(bind, family)) {
        middle->addWidget(search);
    }
    columns->addLayout(middle, 0, 1);
    columns->setColumnStretch(1, 1);

    auto* const right = new QVBoxLayout;
    right->setSpacing(kGap);
    right->addWidget(ValueGroup(bind, QStringLiteral("frprop"), QObject::tr("Section properties"),
                                SectionProperties, family));
    right->addWidget(ValueGroup(bind, QStringLiteral("frcap"), QObject::tr("Resistance"),
                                SectionCapacities, family));
    right->addWidget(ClassRow(bind));
    if (info.kind == Kind::tube) {
        QLabel* const warning = bind.Text(QStringLiteral("LblWarning"), [](const ProjectState& s) {
            return std::string(SectionWarning(s));
        });
        warning->setWordWrap(true);
        warning->setForegroundRole(QPalette::Link);
        right->addWidget(warning);
    }
    right->addStretch(1);
    columns->addLayout(right, 0, 2);
    form->body()->addLayout(columns, 1);
    form->Fold(columns);
    form->AddButtons();
    return form;
}

}  // namespace kestrum
