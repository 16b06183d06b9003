#include "core/file_io.h"
#include "report/detailed_table.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStandardPaths>
#include <QTableWidget>
#include <QVBoxLayout>

#ifdef KESTRUM_SPREADSHEET
#include "spreadsheet/detailed_xlsx.h"
#endif

namespace kestrum {

namespace {

void Fill(QTableWidget* table, const std::vector<DetailedRow>& rows)
{
    table->clearSpans();
    table->setRowCount(static_cast<int>(rows.size()));
    QFont bold = table->font();
    bold.setBold(true);
    for (int i = 0; i < table->rowCount(); ++i) {
        const DetailedRow& row = rows[static_cast<std::size_t>(i)];
        const std::string* const texts[] = {&row.parameter, &row.value, &row.unit, &row.reference};
        for (int column = 0; column < 4; ++column) {
            auto* const item = new QTableWidgetItem(ToQt(*texts[column]));
            if (column == 1) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            if (row.heading) {
                item->setFont(bold);
                item->setBackground(table->palette().midlight());
            }
            table->setItem(i, column, item);
        }
        if (row.heading) {
            table->setSpan(i, 0, 1, 4);
        }
    }
}

// Without the library of spreadsheets the table goes out as CSV, which such programs read too.
#ifdef KESTRUM_SPREADSHEET
const auto kTableFile = QStringLiteral("Kestrum EC3 results.xlsx");

std::string WriteTable(const std::vector<DetailedRow>& rows, const std::string& path)
{
    return WriteDetailedXlsx(rows, path);
}
#else
const auto kTableFile = QStringLiteral("Kestrum EC3 results.csv");

std::string WriteTable(const std::vector<DetailedRow>& rows, const std::string& path)
{
    return WriteWholeFile(path, DetailedCsv(rows));
}
#endif

// A file in the user's temporary folder, shown by the program that the platform has for it.
void CopyToSpreadsheet(Session& session)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::TempLocation));
    const std::string path = FromQt(folder.filePath(kTableFile));
    const std::string fault = WriteTable(FillDetailedResult(session.shown()), path);
    if (!fault.empty() || !session.surroundings().OpenDocument(path)) {
        session.surroundings().Warn(kSpreadsheetFailure);
    }
}

}  // namespace

Form* MakeDetailedResult(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "detailedresult", QObject::tr("Detailed results"), parent);
    Binder& bind = form->bind();
    auto* const table = new QTableWidget(0, static_cast<int>(kDetailedColumns.size()));
    table->setObjectName(QStringLiteral("MSFlexGrid1"));
    table->setAccessibleName(QObject::tr("Intermediate values"));
    QStringList heads;
    for (const std::string_view head : kDetailedColumns) {
        heads << ToQt(head);
    }
    table->setHorizontalHeaderLabels(heads);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::ContiguousSelection);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->setShowGrid(true);
    table->setMinimumSize(460, 480);
    bind.Follow([table, &desk](const ProjectState&) {
        Fill(table, FillDetailedResult(desk.session.shown()));
    });
    form->body()->addWidget(table, 1);
    QHBoxLayout* const buttons = form->AddButtons();
    buttons->insertWidget(0, bind.Button(QStringLiteral("cmdDetailedResult"),
                                         QObject::tr("Copy to &spreadsheet"),
                                         [&desk] { CopyToSpreadsheet(desk.session); }));
    return form;
}

}  // namespace kestrum
