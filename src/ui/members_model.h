#pragma once

// The lines of a table of members with what they give: ratios by the program's rules and by the
// standard, what governs, then the columns of the file.

#include "app/members_rating.h"
#include "app/members_sheet.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace kestrum {

class MembersModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column : std::uint8_t { kRatio, kStandard, kGoverns, kFirst };
    static constexpr int kSortRole = Qt::UserRole, kAboveRole = Qt::UserRole + 1;

    explicit MembersModel(bool decimalcomma, QObject* parent = nullptr);

    const MembersSheet& sheet() const { return sheet_; }

    // An edit of the sheet; views and `edited` are told. Lines keep their places in a sorted view
    // unless some come or go.
    template <class Edit> void Change(Edit edit)
    {
        const int rows = rowCount(), columns = columnCount();
        edit(sheet_);
        TellChange(rows, columns);
    }
    std::function<void()> edited = [] {};

    // Lines without a rating.
    std::vector<std::size_t> Unrated() const;
    bool Rated(std::size_t row) const { return ratings_.contains(sheet_.At(row).id); }
    const LineRating* RatingOf(std::size_t row) const;
    void Keep(std::uint64_t line, LineRating rating);
    void ForgetRatings();
    // Shows what was kept since.
    void ShowRatings();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void TellChange(int rows, int columns);
    QVariant RatingData(std::size_t row, int column, int role) const;
    QString ForLocale(const std::string& text) const;

    MembersSheet sheet_;
    bool decimalcomma_;
    std::unordered_map<std::uint64_t, LineRating> ratings_;
};

}  // namespace kestrum
