// SPDX-License-Identifier: MIT
#include "SplitView/ZelPrioritySplitViewItem.h"

#include "Core/Values/private/ZelAssign.h"
#include "ViewController/ZelKeyedCoder.h"

#include <limits>

namespace {

const QString g_minLengthKey = QStringLiteral("minLength");
const QString g_maxLengthKey = QStringLiteral("maxLength");
const QString g_priorityIndexKey = QStringLiteral("priorityIndex");
const QString g_collapsibleKey = QStringLiteral("collapsible");

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
    setMinLength(coder.decodeDouble(g_minLengthKey));
    // A missing value must not be read as 0, which would make the divider immovable.
    if (coder.contains(g_maxLengthKey))
        setMaxLength(coder.decodeDouble(g_maxLengthKey));
    setPriorityIndex(coder.decode(g_priorityIndexKey).toULongLong());
    setCollapsible(coder.decodeBool(g_collapsibleKey));
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
    if (ZelAssign(m_minLength, length))
        Q_EMIT minLengthChanged();
}

void ZelPrioritySplitViewItem::setMaxLength(double length)
{
    if (ZelAssign(m_maxLength, length))
        Q_EMIT maxLengthChanged();
}

void ZelPrioritySplitViewItem::setPriorityIndex(quint64 index)
{
    if (ZelAssign(m_priorityIndex, index))
        Q_EMIT priorityIndexChanged();
}

void ZelPrioritySplitViewItem::setCollapsible(bool collapsible)
{
    if (ZelAssign(m_collapsible, collapsible))
        Q_EMIT collapsibleChanged();
}

void ZelPrioritySplitViewItem::encodeWithCoder(ZelKeyedCoder &coder) const
{
    coder.encode(g_minLengthKey, m_minLength);
    coder.encode(g_maxLengthKey, m_maxLength);
    coder.encode(g_priorityIndexKey, m_priorityIndex);
    coder.encode(g_collapsibleKey, m_collapsible);
}
