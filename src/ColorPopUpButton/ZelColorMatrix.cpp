// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorMatrix.h"

#include "Blocks/ZelNamedTransformers.h"
#include "ColorPopUpButton/ZelColorSwatch.h"
#include "Platform/Controls/ZelCellGroupAccessible.h"
#include "Platform/Controls/ZelControlSupport.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr QSize g_cellSize(18, 18);
constexpr QSize g_spacing(1, 4);
constexpr QSize g_pitch = g_cellSize + g_spacing;

QString nameOf(const ZelColor &color)
{
    const auto transformer = ZelAbstractValueTransformer::valueTransformerForName(ZelColorNameTransformerName);
    return transformer ? transformer->transformedValue(color.toVariant()).toString() : QString();
}

} // namespace

ZelColorMatrix::ZelColorMatrix(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setColors({});
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    resize(sizeHint());
}

void ZelColorMatrix::setColors(const QList<ZelColor> &colors)
{
    m_colors.resize(numberOfCells);
    const ZelColor white = QColor(Qt::white);
    for (int i = 0; i < numberOfCells; ++i) {
        const ZelColor &color = i < colors.size() ? colors.at(i) : white;
        if (m_colors.at(i) == color)
            continue;
        m_colors[i] = color;
        update(rectOfCell(i));
    }
}

ZelColor ZelColorMatrix::colorAtIndex(int index) const
{
    return m_colors.value(index);
}

QRect ZelColorMatrix::rectOfCell(int index) const
{
    const int column = index % numberOfColumns;
    const QRect rect(QPoint(column * g_pitch.width(), index / numberOfColumns * g_pitch.height()), g_cellSize);
    return QStyle::visualRect(layoutDirection(), QRect(QPoint(), sizeHint()), rect);
}

int ZelColorMatrix::cellAtPosition(const QPoint &position) const
{
    for (int i = 0; i < numberOfCells; ++i) {
        if (rectOfCell(i).contains(position))
            return i;
    }
    return -1;
}

void ZelColorMatrix::setHighlightedCell(int index)
{
    if (index == m_highlighted)
        return;
    for (const int cell : {m_highlighted, index}) {
        if (cell >= 0)
            update(rectOfCell(cell));
    }
    m_highlighted = index;
    ZelCellGroupAccessible::selectionDidChange(this);
}

QString ZelColorMatrix::cellName(int cell) const
{
    const QString name = nameOf(colorAtIndex(cell));
    return name.isEmpty() ? colorAtIndex(cell).toQColor().name() : name;
}

QSize ZelColorMatrix::sizeHint() const
{
    return {numberOfColumns * g_pitch.width() - g_spacing.width(),
            numberOfRows * g_pitch.height() - g_spacing.height()};
}

bool ZelColorMatrix::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave && !hasFocus())
        setHighlightedCell(-1);
    if (event->type() == QEvent::ToolTip) {
        const int cell = cellAtPosition(static_cast<QHelpEvent *>(event)->pos());
        if (cell >= 0 && ZelControlSupport::showToolTip(event, this, nameOf(colorAtIndex(cell))))
            return true;
    }
    return QWidget::event(event);
}

void ZelColorMatrix::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    for (int i = 0; i < numberOfCells; ++i) {
        const QRect rect = rectOfCell(i);
        if (!event->region().intersects(rect))
            continue;
        ZelColorSwatch::paint(&painter, rect.adjusted(2, 2, -2, -2), colorAtIndex(i), palette());
        if (i != m_highlighted)
            continue;
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(QRectF(rect).adjusted(1, 1, -1, -1));
    }
}

void ZelColorMatrix::mousePressEvent(QMouseEvent *event)
{
    m_wasPointedAt = event->button() == Qt::LeftButton;
    setHighlightedCell(cellAtPosition(event->position().toPoint()));
}

void ZelColorMatrix::mouseMoveEvent(QMouseEvent *event)
{
    m_wasPointedAt = true;
    setHighlightedCell(cellAtPosition(event->position().toPoint()));
}

void ZelColorMatrix::mouseReleaseEvent(QMouseEvent *event)
{
    const int cell = cellAtPosition(event->position().toPoint());
    if (event->button() == Qt::LeftButton && m_wasPointedAt && cell >= 0)
        Q_EMIT cellChosen(cell);
}

bool ZelColorMatrix::moveHighlight(int key)
{
    const int forward = isRightToLeft() ? -1 : 1;
    const int column = m_highlighted % numberOfColumns;
    int target = m_highlighted;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int step = key == Qt::Key_Right ? forward : -forward;
        target = column + step < 0 || column + step >= numberOfColumns ? m_highlighted : m_highlighted + step;
        break;
    }
    case Qt::Key_Up:
        target = m_highlighted - numberOfColumns;
        break;
    case Qt::Key_Down:
        target = m_highlighted + numberOfColumns;
        break;
    default:
        return false;
    }
    if (target < 0 || target >= numberOfCells)
        return false; // out of the matrix, to the menu's neighbour
    setHighlightedCell(target);
    return true;
}

void ZelColorMatrix::keyPressEvent(QKeyEvent *event)
{
    const bool chooses =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (m_highlighted < 0 || (!chooses && !moveHighlight(event->key())))
        event->ignore();
    else if (chooses)
        Q_EMIT cellChosen(m_highlighted);
}

void ZelColorMatrix::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (m_highlighted < 0 && event->reason() != Qt::MouseFocusReason)
        setHighlightedCell(0);
}

void ZelColorMatrix::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    setHighlightedCell(-1);
}
