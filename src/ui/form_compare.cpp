// The design in hand beside the one that was pinned.

#include "app/comparison.h"
#include "app/locale_text.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace kestrum {

namespace {

void Fill(QTableWidget* table, const std::vector<ComparedRow>& rows, bool decimalcomma)
{
    table->setRowCount(static_cast<int>(rows.size()));
    for (int i = 0; i < table->rowCount(); ++i) {
        const ComparedRow& row = rows[static_cast<std::size_t>(i)];
        int column = 0;
        for (const std::string& text : {row.what, row.a, row.b}) {
            auto* const item = new QTableWidgetItem(ToQt(ForLocale(text, decimalcomma)));
            if (column > 0) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                item->setToolTip(item->text());
            }
            table->setItem(i, column++, item);
        }
    }
}

}  // namespace

Form* MakeCompare(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "compare", QObject::tr("Compare"), parent);
    Binder& bind = form->bind();
    auto* const table = new QTableWidget(0, 3);
    table->setObjectName(QStringLiteral("comparison"));
    table->setAccessibleName(QObject::tr("The pinned design and the current one"));
    table->setHorizontalHeaderLabels(
        {QString(), QObject::tr("A, pinned"), QObject::tr("B, current")});
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + kGap);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    const int letter = table->fontMetrics().horizontalAdvance(QLatin1Char('x'));
    table->setMinimumSize(85 * letter, 16 * (table->fontMetrics().height() + kGap));
    bind.Follow([table, &desk](const ProjectState&) {
        const Session& session = desk.session;
        if (session.pinned()) {
            Fill(table, Compare(session.library(), *session.pinned(), session.history().now()),
                 session.decimalcomma());
        }
    });
    form->body()->addWidget(table, 1);
    QHBoxLayout* const buttons = form->AddButtons();
    buttons->insertWidget(0, bind.Button(QStringLiteral("pin"), QObject::tr("&Pin as A"),
                                         [&desk] { desk.session.Pin(); }));
    return form;
}

}  // namespace kestrum
