#pragma once

// The order and choice of lines in which the table of members is shown.

#include "ui/members_model.h"

#include <QSortFilterProxyModel>

namespace kestrum {

// Numbers by their value, in front of texts.
class MembersProxy final : public QSortFilterProxyModel {
public:
    explicit MembersProxy(QObject* parent) : QSortFilterProxyModel(parent)
    {
        setDynamicSortFilter(false);  // no line runs away while it is edited
        setFilterKeyColumn(-1);
        setFilterCaseSensitivity(Qt::CaseInsensitive);
    }

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override
    {
        const QVariant a = left.data(MembersModel::kSortRole),
                       b = right.data(MembersModel::kSortRole);
        const bool number = a.typeId() == QMetaType::Double,
                   other = b.typeId() == QMetaType::Double;
        return number && other   ? a.toDouble() < b.toDouble()
               : number != other ? number
                                 : QString::localeAwareCompare(a.toString(), b.toString()) < 0;
    }
};

}  // namespace kestrum
