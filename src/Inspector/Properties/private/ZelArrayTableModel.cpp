// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelArrayTableModel.h"

#include "Core/Values/ZelValues.h"

void ZelArrayTableModel::setValues(const QVariantList &values)
{
    const QList<ZelKeptValue> former = m_values;
    QList<ZelKeptValue> kept;
    kept.reserve(values.size());
    for (const QVariant &value : values)
        kept.emplaceBack(value);
    const qsizetype common = qMin(former.size(), values.size());
    const int count = int(former.size());
    const int newCount = int(values.size());
    if (newCount < count) {
        beginRemoveRows({}, newCount, count - 1);
        m_values = kept;
        endRemoveRows();
    } else if (newCount > count) {
        beginInsertRows({}, count, newCount - 1);
        m_values = kept;
        endInsertRows();
    } else {
        m_values = kept;
    }
    for (qsizetype row = 0; row < common; ++row) {
        const QModelIndex cell = index(int(row), 0);
        if (cell.isValid() && ZelNotEqual(former.at(row).value(), values.at(row)))
            Q_EMIT dataChanged(cell, cell);
    }
}

QVariant ZelArrayTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_values.size() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    const QVariant &value = m_values.at(index.row()).value();
    return value.canConvert<QString>() ? value.toString() : ZelDescription(value);
}

bool ZelArrayTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || value == data(index, role))
        return false;
    Q_EMIT cellEdited(index.row(), value);
    return true;
}

Qt::ItemFlags ZelArrayTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const Qt::ItemFlags more = Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
    return !index.isValid() ? Qt::NoItemFlags : m_editable ? flags | more : flags;
}
