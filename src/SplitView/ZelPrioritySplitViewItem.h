// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>

class ZelKeyedCoder;

/// How one pane of a split view may be resized. Lengths are in points along the axis of the split view.
class ZEL_EXPORT ZelPrioritySplitViewItem : public QObject
{
    Q_OBJECT
    /// 0 by default.
    Q_PROPERTY(double minLength READ minLength WRITE setMinLength NOTIFY minLengthChanged)
    /// Limits the pane only while the user moves a divider. Unlimited by default.
    Q_PROPERTY(double maxLength READ maxLength WRITE setMaxLength NOTIFY maxLengthChanged)
    /// The pane with the largest index grows first, the pane with the smallest shrinks first. 0 by default.
    Q_PROPERTY(quint64 priorityIndex READ priorityIndex WRITE setPriorityIndex NOTIFY priorityIndexChanged)
    /// Whether the user may collapse the pane. False by default.
    Q_PROPERTY(bool collapsible READ isCollapsible WRITE setCollapsible NOTIFY collapsibleChanged)
public:
    explicit ZelPrioritySplitViewItem(QObject *parent = nullptr);
    ZelPrioritySplitViewItem(double minLength, double maxLength, quint64 priorityIndex, bool collapsible,
                             QObject *parent = nullptr);
    /// Reads what encodeWithCoder wrote. Values that are missing in an older archive have their defaults.
    explicit ZelPrioritySplitViewItem(const ZelKeyedCoder &coder, QObject *parent = nullptr);
    /// Makes an item without a parent. The delegate that gets it becomes its parent.
    static ZelPrioritySplitViewItem *prioritySplitViewItemWithMinLength(double minLength, double maxLength,
                                                                        quint64 priorityIndex, bool collapsible);

    double minLength() const { return m_minLength; }
    void setMinLength(double length);
    double maxLength() const { return m_maxLength; }
    void setMaxLength(double length);
    quint64 priorityIndex() const { return m_priorityIndex; }
    void setPriorityIndex(quint64 index);
    bool isCollapsible() const { return m_collapsible; }
    void setCollapsible(bool collapsible);

    void encodeWithCoder(ZelKeyedCoder &coder) const;

Q_SIGNALS:
    void minLengthChanged();
    void maxLengthChanged();
    void priorityIndexChanged();
    void collapsibleChanged();

private:
    double m_minLength = 0;
    double m_maxLength;
    quint64 m_priorityIndex = 0;
    bool m_collapsible = false;
};
