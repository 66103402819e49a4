// SPDX-License-Identifier: MIT
#include "canvas/ShapePainter.h"

#include "model/Document.h"
#include "model/ShapeGeometry.h"

#include <QPainter>

namespace {
constexpr Qt::PenCapStyle CapTable[] = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
constexpr Qt::PenJoinStyle JoinTable[] = {Qt::MiterJoin, Qt::RoundJoin, Qt::BevelJoin};
constexpr Qt::PenStyle DashTable[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};

QPen penOf(const Shape &shape)
{
    if (!shape.isStrokeEnabled())
        return Qt::NoPen;
    return QPen(shape.strokeColor(), shape.strokeWidth(), DashTable[shape.dash()], CapTable[shape.lineCap()],
                JoinTable[shape.lineJoin()]);
}

QFont fontOf(const Shape &shape)
{
    QFont font = shape.font();
    font.setPixelSize(qMax(1, qRound(shape.fontSize()))); // a point of the page, whatever the screen
    return font;
}

QBrush brushOf(const Shape &shape)
{
    return shape.isFillEnabled() ? QBrush(shape.fillColor(), Document::patternNamed(shape.pattern())) : QBrush();
}
} // namespace

ShapePainter::ShapePainter(QPainter *painter)
    : m_painter(painter)
    , m_scale(painter->transform().m11())
{
}

bool ShapePainter::isSpot(const Shape &shape, double scale)
{
    // Nobody can tell what it is, and a spot costs a hundredth of an outline.
    return qMax(shape.width(), shape.height()) * scale < 3;
}

void ShapePainter::paint(const Shape &shape)
{
    m_painter->setOpacity(shape.opacity());
    if (isSpot(shape, m_scale)) {
        m_painter->fillRect(shape.frame(), shape.isFillEnabled() ? shape.fillColor() : shape.strokeColor());
        return;
    }
    if (shape.rotation() == 0) {
        paintOutline(shape);
        return;
    }
    const QTransform transform = m_painter->transform();
    m_painter->setTransform(ShapeGeometry::rotation(shape), true);
    paintOutline(shape);
    m_painter->setTransform(transform);
}

void ShapePainter::paintOutline(const Shape &shape)
{
    if (shape.kind() == Shape::Text) {
        paintText(shape);
        return;
    }
    const QPainterPath outline = ShapeGeometry::outline(shape);
    if (const double offset = shape.shadowOffset().toDouble(); offset > 0 && shape.isFillEnabled())
        m_painter->fillPath(outline.translated(offset, offset), QColor(0, 0, 0, 60));
    m_painter->setPen(penOf(shape));
    m_painter->setBrush(brushOf(shape));
    m_painter->drawPath(outline);
}

void ShapePainter::paintText(const Shape &shape)
{
    m_painter->setFont(fontOf(shape));
    // A drawing looks the same whatever direction the program's language is written in.
    const int flags = shape.alignment() | Qt::AlignAbsolute | Qt::TextWordWrap | Qt::TextDontClip;
    if (const double offset = shape.shadowOffset().toDouble(); offset > 0) {
        m_painter->setPen(QColor(0, 0, 0, 60));
        m_painter->drawText(shape.frame().translated(offset, offset), flags, shape.text());
    }
    m_painter->setPen(shape.isFillEnabled() ? shape.fillColor() : shape.strokeColor());
    m_painter->drawText(shape.frame(), flags, shape.text());
}
