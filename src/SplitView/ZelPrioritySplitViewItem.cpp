// SPDX-License-Identifier: MIT
#include "SplitView/ZelPrioritySplitViewItem.h"

#include "ViewController/ZelKeyedCoder.h"

#include <limits>

namespace {

const QString minLengthKey = QStringLiteral("minLength");
const QString maxLengthKey = QStringLiteral("maxLength");
const QString priorityIndexKey = QStringLiteral("priorityIndex");
const QString collapsibleKey = QStringLiteral("collapsible");

} // namespace

ZelPrioritySplitViewItem::ZelPrioritySplitViewItem(QObject *parent)
    : QObject(parent)
    , m_maxLength(std::numeric_limits<double>::max())
{
}

ZelPrioritySplitViewItem::ZelPrioritySplitViewItem(double minLength, double maxLength, quint64 priorityIndex,
                                                   bool collapsible, QObject *parent)
    : ZelPrioritySplitViewItem(parent)
{
    setMinLength(minLength);
    setMaxLength(maxLength);
    setPriorityIndex(priorityIndex);
    setCollapsible(collapsible);
}

ZelPrioritySplitViewItem::ZelPrioritySplitViewItem(const ZelKeyedCoder &coder, QObject *parent)
    : ZelPrioritySplitViewItem(parent)
{
    setMinLength(coder.decodeDouble(minLengthKey));
    // A limit of 0 would pin the divider for good.
    if (coder.contains(maxLengthKey))
        setMaxLength(coder.decodeDouble(maxLengthKey));
    setPriorityIndex(coder.decode(priorityIndexKey).toULongLong());
    setCollapsible(coder.decodeBool(collapsibleKey));
}

ZelPrioritySplitViewItem *ZelPrioritySplitViewItem::prioritySplitViewItemWithMinLength(double minLength,
                                                                                       double maxLength,
                                                                                       quint64 priorityIndex,
                                                                                       bool collapsible)
{
    return new ZelPrioritySplitViewItem(minLength, maxLength, priorityIndex, collapsible);
}

void ZelPrioritySplitViewItem::setMinLength(double length)
{
    if (m_minLength == length)
        return;
    m_minLength = length;
    Q_EMIT minLengthChanged();
}

void ZelPrioritySplitViewItem::setMaxLength(double length)
{
    if (m_maxLength == length)
        return;
    m_maxLength = length;
    Q_EMIT maxLengthChanged();
}

void ZelPrioritySplitViewItem::setPriorityIndex(quint64 index)
{
    if (m_priorityIndex == index)
        return;
    m_priorityIndex = index;
    Q_EMIT priorityIndexChanged();
}

void ZelPrioritySplitViewItem::setCollapsible(bool collapsible)
{
    if (m_collapsible == collapsible)
        return;
    m_collapsible = collapsible;
    Q_EMIT collapsibleChanged();
}

void ZelPrioritySplitViewItem::encodeWithCoder(ZelKeyedCoder &coder) const
{
    coder.encode(minLengthKey, m_minLength);
    coder.encode(maxLengthKey, m_maxLength);
    coder.encode(priorityIndexKey, m_priorityIndex);
    coder.encode(collapsibleKey, m_collapsible);
}
