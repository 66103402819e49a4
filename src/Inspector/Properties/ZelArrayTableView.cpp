// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelArrayTableView.h"

#include <QPainter>

void ZelArrayTableView::setPlaceholder(const QString &text)
{
    if (text == m_placeholder)
        return;
    m_placeholder = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void ZelArrayTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (m_placeholder.isEmpty() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect area = viewport()->rect();
    painter.drawText(area, Qt::AlignCenter, fontMetrics().elidedText(m_placeholder, Qt::ElideRight, area.width()));
}
