// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorMatrix.h"

#include "Blocks/ZelNamedTransformers.h"
#include "ColorPopUpButton/private/ZelColorDrag.h"
#include "ColorPopUpButton/private/ZelColorSwatch.h"
#include "Controls/private/ZelControlSupport.h"
#include "Core/Values/private/ZelAssign.h"

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
    , ZelCellGroup(this, Menu)
{
    setColors({});
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    resize(sizeHint());
}

ZelColorMatrix::~ZelColorMatrix() = default;

void ZelColorMatrix::setColors(const QList<ZelColor> &colors)
{
    m_colors.resize(numberOfCells);
    if (ZelAssign(m_used, int(colors.size())))
        update();
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

void ZelColorMatrix::setHighlightedCell(int index)
{
    if (index == m_highlighted)
        return;
    for (const int cell : {m_highlighted, index}) {
        if (cell >= 0)
            update(rectOfCell(cell));
    }
    m_highlighted = index;
    announceCurrentCell();
}

QString ZelColorMatrix::cellToolTip(int cell) const
{
    return nameOf(colorAtIndex(cell));
}

QString ZelColorMatrix::cellName(int cell) const
{
    const QString name = cellToolTip(cell);
    return name.isEmpty() ? colorAtIndex(cell).toQColor().name() : name;
}

QSize ZelColorMatrix::sizeHint() const
{
    return {numberOfColumns * g_pitch.width() - g_spacing.width(),
            numberOfRows * g_pitch.height() - g_spacing.height()};
}

bool ZelColorMatrix::handleEvent(QEvent *event)
{
    return followDrag(event) || handleCellEvent(event) || ZelGuarded::handleEvent(event);
}

/// Answers whether the event has begun a drag. Every other event is for the cells, too.
bool ZelColorMatrix::followDrag(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<const QMouseEvent *>(event);
        const int cell = takesInput() ? cellAt(mouse->position()) : -1;
        m_drag = cell < 0 ? nullptr : ZelColorDrag::press(this, mouse, colorAtIndex(cell));
        return false;
    }
    case QEvent::MouseMove: {
        const auto *mouse = static_cast<const QMouseEvent *>(event);
        // Among the swatches the pointer goes on choosing.
        if (!m_drag || rect().contains(mouse->position().toPoint()) || !m_drag->begins(mouse))
            return false;
        m_drag.reset();
        endPress();
        Q_EMIT dragDidBegin();
        return true;
    }
    default:
        if (event->type() == QEvent::MouseButtonRelease || ZelControlSupport::endsMouseGrab(event, this))
            m_drag.reset();
        return false;
    }
}

void ZelColorMatrix::drawCell(QPainter *painter, int cell) const
{
    const QRect rect = rectOfCell(cell);
    const QRect swatch = rect.adjusted(2, 2, -2, -2);
    if (cell < m_used)
        ZelColorSwatch::paint(painter, swatch, colorAtIndex(cell), palette());
    else
        ZelColorSwatch::paintEmpty(painter, swatch, palette());
    if (cell != m_highlighted)
        return;
    painter->setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter->drawRect(QRectF(rect).adjusted(1, 1, -1, -1));
}
