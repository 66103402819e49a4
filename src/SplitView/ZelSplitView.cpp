// SPDX-License-Identifier: MIT
#include "SplitView/ZelSplitView.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/private/ZelAssign.h"
#include "Extensions/ZelSeparatorColor.h"
#include "SplitView/private/ZelSplitViewHandle.h"

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
    if (!ZelCheck(level <= 2, QStringLiteral("Unexpected case occured")) || !ZelAssign(m_level, level))
        return;
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
    // The delegate has laid out the panes for this size. QSplitter's own layout would change nothing and take as long.
    if (std::exchange(m_laidOutSize, QSize()) != event->size())
        QSplitter::resizeEvent(event);
}

void ZelSplitView::updateDividers()
{
    for (int i = 0; i < count(); ++i)
        handle(i)->update();
}
