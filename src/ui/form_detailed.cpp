#include "app/detailed_book.h"
#include "app/locale_text.h"
#include "core/file_io.h"
#include "report/detailed_table.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTemporaryFile>
#include <QVBoxLayout>

#ifdef KESTRUM_SPREADSHEET
#include "spreadsheet/book_xlsx.h"
#endif

namespace kestrum {

namespace {

void Fill(QTableWidget* table, const std::vector<DetailedRow>& rows, const Session& session)
{
    table->clearSpans();
    table->setRowCount(static_cast<int>(rows.size()));
    QFont bold = table->font();
    bold.setBold(true);
    for (int i = 0; i < table->rowCount(); ++i) {
        const DetailedRow& row = rows[static_cast<std::size_t>(i)];
        const std::string texts[] = {row.parameter, ForLocale(row.value, session.decimalcomma()),
                                     row.unit, row.reference};
        for (int column = 0; column < 4; ++column) {
            auto* const item = new QTableWidgetItem(ToQt(texts[column]));
            if (session.halfread()) {  // values of another project
                item->setForeground(table->palette().placeholderText());
            }
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
const auto kTableFile = QStringLiteral("Kestrum EC3 results XXXXXX.xlsx");

std::string WriteTable(Session& session, const std::string& path)
{
    const ProjectState& s = session.shown();
    return WriteBookXlsx(DetailedBook(session.library(), s, OriginOf(session.state()),
                                      session.surroundings().Date()),
                         path);
}
#else
const auto kTableFile = QStringLiteral("Kestrum EC3 results XXXXXX.csv");

std::string WriteTable(Session& session, const std::string& path)
{
    return WriteWholeFile(path, DetailedCsv(FillDetailedResult(session.shown())));
}
#endif

// An empty file of the user's temporary folder that nobody else has; an empty name without room.
QString NewTableFile()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::TempLocation));
    QTemporaryFile file(folder.filePath(kTableFile));
    file.setAutoRemove(false);  // the spreadsheet program reads it later
    return file.open() ? file.fileName() : QString();
}

// Shown by the program that the platform has for it.
void CopyToSpreadsheet(Session& session)
{
    const QString path = NewTableFile();
    if (path.isEmpty() || !WriteTable(session, FromQt(path)).empty() ||
        !session.surroundings().OpenDocument(FromQt(path))) {
        QFile::remove(path);
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
        Fill(table, FillDetailedResult(desk.session.shown()), desk.session);
    });
    form->body()->addWidget(table, 1);
    QHBoxLayout* const buttons = form->AddButtons();
    buttons->insertWidget(0, bind.Button(QStringLiteral("cmdDetailedResult"),
                                         QObject::tr("Copy to &spreadsheet"),
                                         [&desk] { CopyToSpreadsheet(desk.session); }));
    return form;
}

}  // namespace kestrum
