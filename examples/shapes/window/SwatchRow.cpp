// SPDX-License-Identifier: MIT
#include "window/SwatchRow.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

SwatchRow::SwatchRow(QWidget *parent)
    : QWidget(parent)
    , m_colors({0xffffffffu, 0xffcfe3eeu, 0xff6d9ec8u, 0xff2f6690u, 0xff5b8c5au, 0xfff2b632u, 0xffb5483au, 0xff8a4b2du,
                0xff2b2f36u})
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SwatchRow::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    update();
}

QRectF SwatchRow::swatchRect(int index) const
{
    const double step = double(width()) / m_colors.size();
    const auto place = isRightToLeft() ? m_colors.size() - 1 - index : index;
    return QRectF(place * step, 0, step, height()).adjusted(2, 2, -2, -2);
}

int SwatchRow::indexAt(double x) const
{
    return int((isRightToLeft() ? width() - x : x) * m_colors.size() / width());
}

void SwatchRow::pick(int index)
{
    if (index < 0 || index >= m_colors.size())
        return;
    setColor(m_colors[index]);
    Q_EMIT colorPicked(m_color);
}

void SwatchRow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : 0.35);
    for (int i = 0; i < m_colors.size(); ++i) {
        const bool isMarked = m_colors[i] == m_color;
        const QColor frame = palette().color(isMarked ? QPalette::Highlight : QPalette::Mid);
        painter.setPen(QPen(frame, isMarked ? 2 : 1));
        painter.setBrush(m_colors[i]);
        painter.drawRoundedRect(swatchRect(i), 3, 3);
    }
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void SwatchRow::mousePressEvent(QMouseEvent *event)
{
    pick(indexAt(event->position().x()));
}

void SwatchRow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Right && event->key() != Qt::Key_Left)
        return QWidget::keyPressEvent(event);
    const int step = (event->key() == Qt::Key_Right) != isRightToLeft() ? 1 : -1;
    const int current = int(m_colors.indexOf(m_color));
    pick(current < 0 ? 0 : current + step);
}

void SwatchRow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        update();
    QWidget::changeEvent(event);
}
