// SPDX-License-Identifier: MIT
#include "SplitView/ZelSplitView.h"

#include "Extensions/ZelSeparatorColor.h"
#include "Platform/Runtime/ZelAssertions.h"
#include "SplitView/ZelSplitViewHandle.h"

#include <QResizeEvent>
#include <utility>

ZelSplitView::ZelSplitView(QWidget *parent)
    : ZelSplitView(Qt::Horizontal, parent)
{
}

ZelSplitView::ZelSplitView(Qt::Orientation orientation, QWidget *parent)
    : ZelGuarded(orientation, parent)
{
    setHandleWidth(1);
}

void ZelSplitView::setLevel(quint64 level)
{
    if (m_level == level || !ZelCheck(level <= 2, QStringLiteral("Unexpected case occured")))
        return;
    m_level = level;
    updateDividers();
    Q_EMIT levelChanged();
}

QColor ZelSplitView::dividerColor() const
{
    return ZelSeparatorColorForLevel(m_level, isActiveWindow(), palette());
}

QSplitterHandle *ZelSplitView::createHandle()
{
    return new ZelSplitViewHandle(orientation(), this);
}

bool ZelSplitView::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        updateDividers();
    return QSplitter::event(event);
}

void ZelSplitView::resizeEvent(QResizeEvent *event)
{
    // A second pass over the panes would find everything in place, and take as long as the first.
    if (std::exchange(m_laidOutSize, QSize()) != event->size())
        QSplitter::resizeEvent(event);
}

void ZelSplitView::updateDividers()
{
    for (int i = 0; i < count(); ++i)
        handle(i)->update();
}
