// SPDX-License-Identifier: MIT
#include "Controls/ZelSeparator.h"

#include <cmath>

ZelSeparator::ZelSeparator(QWidget *parent)
    : ZelView(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ZelSeparator::setLevel(quint32 level)
{
    if (m_level == level)
        return;
    m_level = level;
    update();
    Q_EMIT levelChanged();
}

void ZelSeparator::setEdgeInsets(const QMarginsF &insets)
{
    if (m_edgeInsets == insets)
        return;
    m_edgeInsets = insets;
    updateGeometry();
    update();
    Q_EMIT edgeInsetsChanged();
}

QSize ZelSeparator::sizeHint() const
{
    return QSize(int(std::ceil(m_edgeInsets.left() + m_edgeInsets.right())),
                 int(std::ceil(m_edgeInsets.top() + m_edgeInsets.bottom())) + 1);
}

void ZelSeparator::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    ZelView::drawRect(painter, dirtyRect);
    static constexpr double strengths[] = {0.35, 0.35, 0.2, 0.1};
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(float(strengths[qMin<size_t>(m_level, std::size(strengths) - 1)]));
    const QRectF line = bounds().marginsRemoved(m_edgeInsets);
    painter.fillRect(QRectF(line.left(), line.top(), line.width(), 1), color);
}
