// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelModelItem.h"

#include "Core/Selection/private/ZelModelKeys.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QAbstractItemModel>
#include <QPointer>

namespace {

/// Answers the meta-object of its class instead of the one that all items have in common.
class ClassedItem final : public ZelModelItem
{
public:
    ClassedItem(const QModelIndex &row, const ZelModelItemClass *itemClass, bool isLocked)
        : ZelModelItem(row, itemClass, isLocked)
    {
    }
    const QMetaObject *metaObject() const override { return &m_class->metaObject; }
};

/// A row that is partly checked shows as objects do that disagree.
QVariant checkValue(const QVariant &state)
{
    if (!state.isValid())
        return {};
    const int number = state.toInt();
    return number == Qt::PartiallyChecked ? QVariant::fromValue(ZelMultipleValuesMarker)
                                          : QVariant(number == Qt::Checked);
}

QVariant checkState(const QVariant &value)
{
    const bool isPartial = ZelIsMarker(value, ZelMultipleValuesMarker);
    return int(isPartial ? Qt::PartiallyChecked : value.toBool() ? Qt::Checked : Qt::Unchecked);
}

} // namespace

std::unique_ptr<ZelModelItem> ZelModelItem::make(const QModelIndex &row, const ZelModelItemClass *itemClass,
                                                 bool isLocked)
{
    return std::make_unique<ClassedItem>(row, itemClass, isLocked);
}

ZelModelItem::ZelModelItem(const QModelIndex &row, const ZelModelItemClass *itemClass, bool isLocked)
    : m_class(itemClass)
    , m_index(row)
    , m_isLocked(isLocked)
{
}

QModelIndex ZelModelItem::cell(const ZelModelKey &key) const
{
    return key.column == 0 ? QModelIndex(m_index) : m_index.sibling(m_index.row(), key.column);
}

QVariant ZelModelItem::value(const ZelModelKey &key) const
{
    QVariant value = cell(key).data(key.role);
    if (key.isChecked())
        return checkValue(value);
    if (key.type.isValid() && value.isValid() && value.metaType() != key.type)
        (void)ZelValueConversion::convert(value, key.type);
    return value;
}

bool ZelModelItem::setValue(const QVariant &value, const ZelModelKey &key, int place)
{
    const QModelIndex index = cell(key);
    if (!index.isValid())
        return true; // the row is gone, and this goes, too
    QVariant stored = value;
    if (key.isChecked()) {
        stored = checkState(value);
    } else if (ZelIsNull(value)) {
        stored.clear();
    } else {
        const QMetaType type = key.type.isValid() ? key.type : index.data(key.role).metaType();
        if (ZelIsControllerMarker(value) || ZelValueConversion::convert(stored, type) != ZelValueConversion::Fits)
            return false;
    }
    m_isWritten = true;
    const quint32 before = m_announcements;
    const QPointer<ZelModelItem> alive(this);
    auto *model = const_cast<QAbstractItemModel *>(index.model());
    if (model->setData(index, stored, key.role) && alive && m_announcements == before)
        announce(place); // the model did not say so itself
    return true;
}

void ZelModelItem::announce(int place)
{
    ++m_announcements;
    Q_EMIT changed(place);
}
