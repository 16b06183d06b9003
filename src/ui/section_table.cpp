#include "ui/section_table.h"

#include "app/locale_text.h"
#include "app/section_commands.h"
#include "app/section_list.h"
#include "core/held_state.h"
#include "core/number_format.h"
#include "core/project_inputs.h"
#include "engine/calculate.h"
#include "sections/family_table.h"
#include "ui/latest_job.h"
#include "ui/lightest_row.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QAbstractTableModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <utility>

namespace kestrum {

namespace {

enum Column { kName, kMass, kHeight, kRatio, kStandard, kControl, kColumns };
constexpr SectionOrder kOrders[kColumns] = {SectionOrder::table,    SectionOrder::mass,
                                            SectionOrder::height,   SectionOrder::ratio,
                                            SectionOrder::standard, SectionOrder::control};
constexpr int kBarRole = Qt::UserRole, kAboveRole = Qt::UserRole + 1;

class SectionModel final : public QAbstractTableModel {
public:
    SectionModel(bool decimalcomma, QObject* parent)
        : QAbstractTableModel(parent), decimalcomma_(decimalcomma)
    {
    }

    void Show(std::vector<RatedSection> sections)
    {
        all_ = std::move(sections);
        Arrange();
    }

    // Ratings of the rows from `first` on.
    void SetStandard(std::size_t first, const std::vector<StandardRating>& ratings)
    {
        for (std::size_t i = 0; i < ratings.size() && first + i < all_.size(); ++i) {
            all_[first + i].standard = ratings[i];
        }
        for (RatedSection& section : shown_) {
            section.standard = all_[static_cast<std::size_t>(section.row)].standard;
        }
        if (column_ == kStandard) {
            Arrange();
        } else if (!shown_.empty()) {
            emit dataChanged(index(0, kStandard), index(rowCount({}) - 1, kStandard));
        }
    }

    // The ratings that are known, for a list of the same member.
    void KeepStandard(std::vector<RatedSection>& sections) const
    {
        for (std::size_t i = 0; i < std::min(sections.size(), all_.size()); ++i) {
            sections[i].standard = all_[i].standard;
        }
    }

    void Filter(std::string typed)
    {
        typed_ = std::move(typed);
        Arrange();
    }

    void sort(int column, Qt::SortOrder order) override
    {
        column_ = column;
        descending_ = order == Qt::DescendingOrder;
        Arrange();
    }

    const RatedSection& At(int line) const { return shown_.at(static_cast<std::size_t>(line)); }

    // Line of a row of the table; -1 when the filter hides it.
    int LineOf(int row) const
    {
        const auto at = std::find_if(shown_.begin(), shown_.end(),
                                     [row](const RatedSection& s) { return s.row == row; });
        return at == shown_.end() ? -1 : static_cast<int>(at - shown_.begin());
    }

    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(shown_.size());
    }

    int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : kColumns;
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || section < 0 || section >= kColumns) {
            return {};
        }
        if (role == Qt::DisplayRole) {
            const QString titles[kColumns] = {QObject::tr("Section"), QObject::tr("kg/m"),
                                              QObject::tr("h mm"),    QObject::tr("IR"),
                                              QObject::tr("EN 1993"), QObject::tr("Governs")};
            return titles[section];
        }
        if (role == Qt::ToolTipRole) {
            const QString meanings[kColumns] = {
                QObject::tr("Sections of the table; click to sort"),
                QObject::tr("Mass of the section"),
                QObject::tr("Height of the section"),
                QObject::tr("Governing ratio of the member with this section"),
                QObject::tr("Largest ratio by EN 1993-1-1 as written"),
                QObject::tr("Control that governs")};
            return meanings[section];
        }
        return {};
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const RatedSection& section = At(index.row());
        switch (role) {
        case Qt::DisplayRole:
            return ToQt(ForLocale(TextOf(section, index.column()), decimalcomma_));
        case Qt::ToolTipRole:
            return ToQt(ForLocale(section.name + ":  IR " + RatioText(section) + ",  " +
                                      section.control + WrittenText(section),
                                  decimalcomma_));
        case Qt::AccessibleTextRole:
            return index.column() == kName
                       ? ToQt(ForLocale(section.name + ", IR " + RatioText(section) +
                                            WrittenText(section),
                                        decimalcomma_))
                       : data(index, Qt::DisplayRole);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::Alignment(
                Qt::AlignVCenter |
                (index.column() == kName || index.column() == kControl ? Qt::AlignLeft
                                                                       : Qt::AlignRight)));
        case kBarRole:
            return index.column() == kStandard ? section.standard.ir : section.ir;
        case kAboveRole:
            return index.column() == kStandard ? !section.standard.passes() : !section.passes();
        default:
            return {};
        }
    }

private:
    // For the ears and the tip, behind the program's ratio.
    static std::string WrittenText(const RatedSection& section)
    {
        const std::string ratio = StandardRatioText(section);
        return ratio.empty() ? "" : ",  EN 1993-1-1: " + ratio;
    }

    static std::string TextOf(const RatedSection& section, int column)
    {
        switch (column) {
        case kName:
            return section.name;
        case kMass:
            return FormatNum(section.mass, "#0.0");
        case kHeight:
            return FormatNum(section.height, "#0");
        case kRatio:
            return RatioText(section);
        case kStandard:
            return StandardRatioText(section);
        default:
            return section.control;
        }
    }

    void Arrange()
    {
        std::vector<RatedSection> shown;
        for (const RatedSection& section : all_) {
            if (Finds(typed_, section.name)) {
                shown.push_back(section);
            }
        }
        SortSections(shown, kOrders[column_], descending_);
        if (shown.size() != shown_.size()) {
            beginResetModel();
            shown_ = std::move(shown);
            endResetModel();
        } else if (!shown.empty()) {
            shown_ = std::move(shown);
            emit dataChanged(index(0, 0), index(rowCount({}) - 1, kColumns - 1));
        }
    }

    bool decimalcomma_;
    std::vector<RatedSection> all_, shown_;
    std::string typed_;
    int column_ = kName;
    bool descending_ = false;
};

// The ratio over a bar as long as it is. A section that does not pass says so in words, too.
class RatioBar final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const bool above = index.data(kAboveRole).toBool();
        const double ratio = std::clamp(index.data(kBarRole).toDouble(), 0.0, 1.0);
        QStyledItemDelegate::paint(painter, option, index);
        constexpr int kHeight = 3;
        const QRect room = option.rect.adjusted(3, 0, -3, -1);
        painter->fillRect(
            QRectF(room.left(), room.bottom() - kHeight, room.width() * ratio, kHeight),
            ColoursOf(option.palette)(above ? Ink::bad : Ink::good));
    }
};

// Enter in the search goes to the first of what it has found.
class SearchBox final : public QLineEdit {
public:
    std::function<void()> enter;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const int key = event->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down) {
            enter();
        } else if (key == Qt::Key_Escape && !text().isEmpty()) {
            clear();
        } else {
            QLineEdit::keyPressEvent(event);
        }
    }
};

// Wants all of its columns to be seen, and can do with less: what governs is cut first.
class SectionView final : public QTableView {
public:
    using QTableView::QTableView;

    int wanted = 0;  // width

    QSize sizeHint() const override { return {wanted, QTableView::sizeHint().height()}; }
};

void PrepareView(SectionView& view, const QString& name)
{
    view.setObjectName(name);
    view.setAccessibleName(QObject::tr("Sections of the table"));
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setTabKeyNavigation(false);
    view.setShowGrid(false);
    view.setWordWrap(false);
    view.setSortingEnabled(true);
    view.sortByColumn(kName, Qt::AscendingOrder);
    view.verticalHeader()->hide();
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + 9);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setStretchLastSection(true);
    const int letter = view.fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int widths[kColumns] = {15, 6, 6, 11, 11, 2};  // digits
    int sum = 0;
    for (int i = 0; i < kColumns; ++i) {
        view.setColumnWidth(i, widths[i] * letter);
        sum += widths[i] * letter;
    }
    constexpr int kFrame = 24, kGoverns = 9;  // pixels around, digits of the last column
    view.setMinimumWidth(sum + kFrame);
    view.wanted = sum + kFrame + kGoverns * letter;
    view.setItemDelegateForColumn(kRatio, new RatioBar(&view));
    view.setItemDelegateForColumn(kStandard, new RatioBar(&view));
}

// The standard's ratings of a list, which follow on a thread of their own, some rows at a time.
class StandardColumn {
public:
    StandardColumn(const Session& session, SectionModel* model)
        : session_(session), model_(model), job_(new LatestJob(model))
    {
    }

    void Show(std::vector<RatedSection> sections)
    {
        HeldState given = AsGiven(session_.state());
        ProjectInputs& in = InputsOf(given);
        in.row[static_cast<std::size_t>(TableOf(in))] = 0;  // the choice rates nothing anew
        const bool same = given_ != nullptr && static_cast<const Inputs&>(InputsOf(**given_)) == in;
        if (same) {
            model_->KeepStandard(sections);
        }
        const std::size_t rows = sections.size();
        model_->Show(std::move(sections));
        if (!same) {
            given_ = std::make_shared<const HeldState>(std::move(given));
            Ask(rows);
        }
    }

private:
    void Ask(std::size_t rows)
    {
        job_->Run([model = model_, given = given_, rows, &library = session_.library()](
                      const LatestJob::Outdated& outdated, const LatestJob::Hand& hand) {
            constexpr std::size_t kAtATime = 16;
            for (std::size_t first = 0; first < rows && !outdated(); first += kAtATime) {
                std::vector<StandardRating> ratings;
                for (std::size_t i = first; i < std::min(rows, first + kAtATime); ++i) {
                    ratings.push_back(RateByStandard(library, *given, static_cast<i16>(i)));
                }
                hand([model, first, ratings = std::move(ratings)] {
                    model->SetStandard(first, ratings);
                });
            }
        });
    }

    const Session& session_;
    SectionModel* model_;
    LatestJob* job_;
    std::shared_ptr<const HeldState> given_;
};

}  // namespace

QWidget* SectionTable(Binder& bind, const QString& name)
{
    auto* const host = new QWidget;
    auto* const column = new QVBoxLayout(host);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap - 2);
    auto* const search = new SearchBox;
    search->setObjectName(QStringLiteral("sectionsearch"));
    search->setAccessibleName(QObject::tr("Search in the sections"));
    search->setPlaceholderText(QObject::tr("Search: 45 finds 450"));
    search->setClearButtonEnabled(true);
    auto* const view = new SectionView;
    auto* const model = new SectionModel(bind.session().decimalcomma(), view);
    view->setModel(model);
    PrepareView(*view, name);

    // The line of the row in hand, without choosing it anew.
    const auto mark = [view, model](const ProjectState& member) {
        const ProjectInputs& s = InputsOf(member);
        const QSignalBlocker quiet(view->selectionModel());
        const int row = s.row[static_cast<std::size_t>(TableOf(s))];
        const int line = model->LineOf(row);
        if (line < 0) {
            view->selectionModel()->clear();
        } else if (view->currentIndex().row() != line ||
                   !view->selectionModel()->isRowSelected(line, {})) {
            view->setCurrentIndex(model->index(line, 0));
            view->scrollTo(model->index(line, 0), QAbstractItemView::PositionAtCenter);
        }
        view->viewport()->update();
    };
    const auto standard = std::make_shared<StandardColumn>(bind.session(), model);
    bind.Follow([&bind, standard, mark](const ProjectState& s) {
        if (HasTable(InputsOf(s).family)) {
            standard->Show(RateSections(bind.session().library(), s));
            mark(s);
        }
    });
    QObject::connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, view,
                     [&bind, model](const QModelIndex& now) {
                         const ProjectInputs& s = InputsOf(bind.session().state());
                         if (now.isValid()) {
                             ChooseRow(bind.session(), TableOf(s), model->At(now.row()).row);
                         }
                     });
    QObject::connect(search, &QLineEdit::textChanged, view,
                     [&bind, model, view, mark](const QString& text) {
                         const QSignalBlocker quiet(view->selectionModel());
                         model->Filter(FromQt(text));
                         mark(bind.session().state());
                     });
    QObject::connect(view->horizontalHeader(), &QHeaderView::sortIndicatorChanged, view,
                     [&bind, mark] { mark(bind.session().state()); });
    search->enter = [view, model] {
        if (model->rowCount({}) > 0) {
            view->setFocus(Qt::TabFocusReason);
            if (!view->currentIndex().isValid()) {
                view->setCurrentIndex(model->index(0, 0));
            }
        }
    };
    column->addWidget(search);
    column->addWidget(view, 1);
    column->addWidget(LightestRow(bind));
    return host;
}

}  // namespace kestrum
