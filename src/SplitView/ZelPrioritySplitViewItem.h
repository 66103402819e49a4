// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class ZelKeyedCoder;

/// How one pane of a split view may be resized. Lengths are points along the axis on which the panes follow each other.
class ZelPrioritySplitViewItem : public QObject
{
    Q_OBJECT
    /// 0 by default.
    Q_PROPERTY(double minLength READ minLength WRITE setMinLength NOTIFY minLengthChanged)
    /// Holds while the user drags a divider, and only then. Unlimited by default.
    Q_PROPERTY(double maxLength READ maxLength WRITE setMaxLength NOTIFY maxLengthChanged)
    /// The pane of the largest index grows, the one of the smallest shrinks first. 0 by default.
    Q_PROPERTY(quint64 priorityIndex READ priorityIndex WRITE setPriorityIndex NOTIFY priorityIndexChanged)
    /// Whether the user may collapse the pane. False by default.
    Q_PROPERTY(bool collapsible READ isCollapsible WRITE setCollapsible NOTIFY collapsibleChanged)
public:
    explicit ZelPrioritySplitViewItem(QObject *parent = nullptr);
    ZelPrioritySplitViewItem(double minLength, double maxLength, quint64 priorityIndex, bool collapsible,
                             QObject *parent = nullptr);
    /// Reads what encodeWithCoder wrote; what an older archive lacks has its default.
    explicit ZelPrioritySplitViewItem(const ZelKeyedCoder &coder, QObject *parent = nullptr);
    /// A new item without a parent; a delegate that it is given to takes it over.
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
