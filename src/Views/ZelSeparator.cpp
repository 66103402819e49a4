// SPDX-License-Identifier: MIT
#include "Views/ZelSeparator.h"

#include "Core/Values/private/ZelAssign.h"
#include "Extensions/ZelSeparatorColor.h"

#include <QEvent>
#include <cmath>

namespace {
constexpr quint32 g_faintestLevel = 2;
}

ZelSeparator::ZelSeparator(QWidget *parent)
    : ZelSeparator(Qt::Horizontal, parent)
{
}

ZelSeparator::ZelSeparator(Qt::Orientation orientation, QWidget *parent)
    : ZelView(parent)
    , m_orientation(orientation)
{
    updateSizePolicy();
}

ZelSeparator::ZelSeparator(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
    , m_orientation(Qt::Horizontal)
{
    updateSizePolicy();
}

void ZelSeparator::setLevel(quint32 level)
{
    if (!ZelAssign(m_level, level))
        return;
    update();
    Q_EMIT levelChanged();
}

void ZelSeparator::setEdgeInsets(const QMarginsF &insets)
{
    if (!ZelAssign(m_edgeInsets, insets))
        return;
    updateGeometry();
    update();
    Q_EMIT edgeInsetsChanged();
}

void ZelSeparator::setOrientation(Qt::Orientation orientation)
{
    if (!ZelAssign(m_orientation, orientation))
        return;
    updateSizePolicy();
    updateGeometry();
    update();
    Q_EMIT orientationChanged();
}

void ZelSeparator::updateSizePolicy()
{
    const bool isHorizontal = m_orientation == Qt::Horizontal;
    setSizePolicy(isHorizontal ? QSizePolicy::Preferred : QSizePolicy::Fixed,
                  isHorizontal ? QSizePolicy::Fixed : QSizePolicy::Preferred);
}

QSize ZelSeparator::sizeHint() const
{
    const QSize insets(int(std::ceil(m_edgeInsets.left() + m_edgeInsets.right())),
                       int(std::ceil(m_edgeInsets.top() + m_edgeInsets.bottom())));
    return insets + (m_orientation == Qt::Horizontal ? QSize(0, 1) : QSize(1, 0));
}

void ZelSeparator::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    ZelView::drawRect(painter, dirtyRect);
    QRectF line = bounds().marginsRemoved(m_edgeInsets);
    if (m_orientation == Qt::Horizontal)
        line.setHeight(1);
    else
        line.setWidth(1);
    painter.fillRect(line, ZelSeparatorColorForLevel(qMin(m_level, g_faintestLevel), isActiveWindow(), palette()));
}

bool ZelSeparator::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update();
    return ZelView::handleEvent(event);
}
