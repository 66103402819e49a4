// SPDX-License-Identifier: MIT
#pragma once

#include "SplitView/ZelPrioritySplitViewDelegate.h"
#include <QtTest>
#include <QtWidgets>
#include <memory>

/// An application's shown splitter with plain panes and a delegate.
struct Split
{
    struct Item
    {
        double minimum = 0;
        double maximum = 10000;
        quint64 priority = 0;
        bool collapsible = false;
    };

    explicit Split(const QList<Item> &items, const QList<int> &lengths, Qt::Orientation orientation = Qt::Horizontal,
                   std::unique_ptr<QSplitter> splitter = std::make_unique<QSplitter>())
        : splitter(std::move(splitter))
    {
        this->splitter->setOrientation(orientation);
        int length = -this->splitter->handleWidth();
        for (int pane : lengths) {
            this->splitter->addWidget(new QWidget);
            length += pane + this->splitter->handleWidth();
        }
        resize(length);
        this->splitter->setSizes(lengths);
        delegate = std::make_unique<ZelPrioritySplitViewDelegate>(this->splitter.get());
        QList<ZelPrioritySplitViewItem *> list;
        for (const Item &item : items)
            list.append(ZelPrioritySplitViewItem::prioritySplitViewItemWithMinLength(item.minimum, item.maximum,
                                                                                     item.priority, item.collapsible));
        list.prepend(nullptr); // is left out
        delegate->setItems(list);
        this->splitter->show();
    }
    void resize(int length)
    {
        splitter->resize(splitter->orientation() == Qt::Horizontal ? QSize(length, 80) : QSize(80, length));
    }
    int pick(QSize size) const { return splitter->orientation() == Qt::Horizontal ? size.width() : size.height(); }
    int length() const { return pick(splitter->size()); }
    bool isCollapsed(int index) const { return delegate->isSubviewCollapsed(splitter->widget(index)); }
    void setCollapsed(int index, bool collapsed) { delegate->setSubviewCollapsed(splitter->widget(index), collapsed); }
    /// 0 for a pane that is collapsed or hidden.
    QList<int> lengths() const
    {
        QList<int> lengths;
        for (int i = 0; i < splitter->count(); ++i)
            lengths.append(isCollapsed(i) ? 0 : pick(splitter->widget(i)->size()));
        return lengths;
    }
    /// Where the shown panes begin, in the direction of reading.
    QList<int> starts() const
    {
        QList<int> starts;
        for (int i = 0; i < splitter->count(); ++i) {
            if (isCollapsed(i))
                continue;
            const QRect pane = splitter->widget(i)->geometry();
            const bool isHorizontal = splitter->orientation() == Qt::Horizontal;
            starts.append(!isHorizontal               ? pane.y()
                          : splitter->isRightToLeft() ? splitter->width() - pane.right() - 1
                                                      : pane.x());
        }
        return starts;
    }

    std::unique_ptr<QSplitter> splitter;
    std::unique_ptr<ZelPrioritySplitViewDelegate> delegate;
};
