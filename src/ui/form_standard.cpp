// What a deviation does to the member, and the combinations of the standard with their ratios.

#include "app/locale_text.h"
#include "app/view_standard.h"
#include "report/standard_text.h"
#include "ui/forms.h"
#include "ui/standard_desk.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace kestrum {

namespace {

QTableWidget* MakeTable(const QString& name, const QString& meaning, const QStringList& heads)
{
    auto* const table = new QTableWidget(0, static_cast<int>(heads.size()));
    table->setObjectName(name);
    table->setAccessibleName(meaning);
    table->setHorizontalHeaderLabels(heads);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + kGap);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setHighlightSections(false);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    return table;
}

// Wide enough for its columns, with room for some rows.
void FitTable(QTableWidget* table, int rows)
{
    table->resizeColumnsToContents();
    int width = 2 * table->frameWidth() + table->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    for (int i = 0; i < table->columnCount(); ++i) {
        width += table->columnWidth(i);
    }
    const int row = table->verticalHeader()->defaultSectionSize();
    table->setMinimumSize(std::min(width, 150 * table->fontMetrics().averageCharWidth()),
                          (rows + 2) * row);
}

void SetRow(QTableWidget* table, int row, const std::vector<std::string>& texts, bool comma,
            bool bold)
{
    for (int column = 0; column < static_cast<int>(texts.size()); ++column) {
        auto* const item =
            new QTableWidgetItem(ToQt(ForLocale(texts[static_cast<std::size_t>(column)], comma)));
        item->setToolTip(item->text());
        QFont font = item->font();
        font.setBold(bold);
        item->setFont(font);
        table->setItem(row, column, item);
    }
}

QLabel* TextLabel(const QString& name)
{
    auto* const label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

}  // namespace

Form* MakeDeviation(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "deviation", QObject::tr("Deviation"), parent);
    QLabel* const sentence = TextLabel(QStringLiteral("deviationtext"));
    QTableWidget* const table = MakeTable(
        QStringLiteral("deviationchecks"), QObject::tr("Checks whose ratio the deviation changes"),
        {QObject::tr("Check"), QObject::tr("Clause"), QObject::tr("EN 1993-1-1"),
         QObject::tr("With the program's rule")});
    form->body()->addWidget(sentence);
    form->body()->addWidget(table, 1);
    form->bind().Follow([&desk, form, sentence, table](const ProjectState&) {
        const StandardDesk& standard = *desk.standard;
        if (!standard.chosen) {
            return;
        }
        const bool comma = desk.session.decimalcomma();
        const Explanation explanation =
            Explain(desk.session.library(), standard.given(), standard.program(), standard.result(),
                    *standard.chosen);
        form->setWindowTitle(QObject::tr("Deviation %1").arg(ToQt(explanation.head)));
        sentence->setText(ToQt(ForLocale(explanation.sentence, comma)));
        table->setRowCount(static_cast<int>(explanation.checks.size()));
        for (int i = 0; i < table->rowCount(); ++i) {
            const ExplainedCheck& at = explanation.checks[static_cast<std::size_t>(i)];
            SetRow(table, i, {at.what, at.clause, at.written, at.program}, comma, i == 0);
        }
        FitTable(table, 4);
    });
    form->AddButtons();
    return form;
}

Form* MakeCombinations(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "combinations",
                                QObject::tr("Combinations by EN 1993-1-1 as written"), parent);
    QLabel* const program = TextLabel(QStringLiteral("combinationsprogram"));
    QTableWidget* const table = MakeTable(
        QStringLiteral("combinationtable"), QObject::tr("Combinations with their largest ratio"),
        {QObject::tr("Combination"), QObject::tr("G"), QObject::tr("Q1"), QObject::tr("Q2"),
         QObject::tr("IR"), QObject::tr("Governs"), QObject::tr("Clause"), QObject::tr("x/L")});
    form->body()->addWidget(program);
    form->body()->addWidget(table, 1);
    form->bind().Follow([&desk, program, table](const ProjectState&) {
        const StandardDesk& standard = *desk.standard;
        const bool comma = desk.session.decimalcomma();
        program->setText(
            ToQt(ForLocale(CombinationsHead(desk.session.outcome(), standard.result()), comma)));
        const std::vector<CombinationRow> rows =
            CombinationRows(desk.session.library(), standard.given());
        table->setRowCount(static_cast<int>(rows.size()));
        for (int i = 0; i < table->rowCount(); ++i) {
            const CombinationRow& at = rows[static_cast<std::size_t>(i)];
            SetRow(table, i, {at.name, at.g, at.q1, at.q2, at.ratio, at.check, at.clause, at.place},
                   comma, at.governs);
            if (at.governs) {
                table->selectRow(i);
            }
        }
        FitTable(table, 6);
    });
    form->AddButtons();
    return form;
}

}  // namespace kestrum
