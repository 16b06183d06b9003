#include "ui/members_model.h"

#include "app/locale_text.h"
#include "ui/text.h"

#include <limits>
#include <utility>

namespace kestrum {

void MembersModel::TellChange(int rows, int columns)
{
    if (rows != rowCount() || columns != columnCount()) {
        beginResetModel();  // nobody has looked in between
        endResetModel();
    } else if (rows > 0) {
        emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
    }
    edited();
}

MembersModel::MembersModel(bool decimalcomma, QObject* parent)
    : QAbstractTableModel(parent), decimalcomma_(decimalcomma)
{
}

QString MembersModel::ForLocale(const std::string& text) const
{
    return ToQt(kestrum::ForLocale(text, decimalcomma_));
}

std::vector<std::size_t> MembersModel::Unrated() const
{
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < sheet_.rows(); ++row) {
        if (!Rated(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

const LineRating* MembersModel::RatingOf(std::size_t row) const
{
    const auto at = ratings_.find(sheet_.At(row).id);
    return at != ratings_.end() ? &at->second : nullptr;
}

void MembersModel::Keep(std::uint64_t line, LineRating rating)
{
    ratings_.insert_or_assign(line, std::move(rating));
}

void MembersModel::ForgetRatings()
{
    ratings_.clear();
    ShowRatings();
}

void MembersModel::ShowRatings()
{
    if (rowCount() > 0) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, kFirst - 1));
    }
}

int MembersModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(sheet_.rows());
}

int MembersModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kFirst + static_cast<int>(sheet_.columns().size());
}

QVariant MembersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) {
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    }
    if (section >= kFirst) {
        const auto column = static_cast<std::size_t>(section - kFirst);
        return role == Qt::DisplayRole && column < sheet_.columns().size()
                   ? QVariant(ToQt(sheet_.columns()[column]))
                   : QVariant();
    }
    const QString titles[kFirst] = {tr("IR"), tr("EN 1993-1-1"), tr("Governs")};
    const QString meanings[kFirst] = {tr("Governing ratio by the rules of the program"),
                                      tr("Governing ratio by EN 1993-1-1 as written"),
                                      tr("Check that governs, or why there is no ratio")};
    return role == Qt::DisplayRole   ? QVariant(titles[section])
           : role == Qt::ToolTipRole ? QVariant(meanings[section])
                                     : QVariant();
}

QVariant MembersModel::RatingData(std::size_t row, int column, int role) const
{
    const LineRating* const rating = RatingOf(row);
    const bool standard = column == kStandard;
    switch (role) {
    case Qt::DisplayRole:
        return rating == nullptr   ? QVariant(column == kRatio ? QStringLiteral("…") : QString())
               : column < kGoverns ? QVariant(ForLocale(RatioText(*rating, standard)))
                                   : QVariant(ForLocale(GoverningText(*rating)));
    case Qt::ToolTipRole:
        return rating != nullptr
                   ? QVariant(ForLocale(GoverningText(*rating) +
                                        (rating->remarks.empty() ? "" : "\n" + rating->remarks)))
                   : QVariant();
    case kSortRole: {
        if (column == kGoverns) {
            return data(index(static_cast<int>(row), column), Qt::DisplayRole);
        }
        if (rating == nullptr) {
            return -1.0;
        }
        const WorstCase& worst = standard ? rating->answer.standard : rating->answer.program;
        return worst.any && !worst.failed && rating->refusal.empty()
                   ? worst.ir
                   : std::numeric_limits<double>::infinity();  // comes with the worst
    }
    case kAboveRole:
        return rating != nullptr && !rating->passes();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(
            Qt::AlignVCenter | (column == kGoverns ? Qt::AlignLeft : Qt::AlignRight)));
    default:
        return {};
    }
}

QVariant MembersModel::data(const QModelIndex& index, int role) const
{
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= sheet_.rows()) {
        return {};
    }
    if (index.column() < kFirst) {
        return RatingData(row, index.column(), role);
    }
    const std::string_view cell =
        sheet_.Cell(row, static_cast<std::size_t>(index.column() - kFirst));
    if (role == kSortRole) {
        bool is = false;  // point and comma are both read
        const double number = ToQt(cell).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&is);
        return is ? QVariant(number) : QVariant(ToQt(cell));
    }
    return role == Qt::DisplayRole || role == Qt::EditRole ? QVariant(ToQt(cell)) : QVariant();
}

bool MembersModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || index.column() < kFirst) {
        return false;
    }
    sheet_.Set(static_cast<std::size_t>(index.row()),
               static_cast<std::size_t>(index.column() - kFirst), FromQt(value.toString()));
    const int row = index.row();
    emit dataChanged(this->index(row, 0), this->index(row, columnCount() - 1));
    edited();
    return true;
}

Qt::ItemFlags MembersModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() >= kFirst ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace kestrum
