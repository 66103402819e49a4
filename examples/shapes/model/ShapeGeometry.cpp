// SPDX-License-Identifier: MIT
#include "model/ShapeGeometry.h"

#include "model/Shape.h"

#include <QtMath>

namespace {

/// Corners on the ellipse in the rectangle, from the top; every second one at `inner` of the radius.
QPolygonF corners(const QRectF &rect, int count, double inner)
{
    QPolygonF polygon;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * M_PI * i / count - M_PI_2;
        const double part = i % 2 ? inner : 1;
        polygon << rect.center() +
                       QPointF(rect.width() / 2 * part * qCos(angle), rect.height() / 2 * part * qSin(angle));
    }
    polygon << polygon.first();
    return polygon;
}
} // namespace

QPainterPath ShapeGeometry::outline(const Shape &shape)
{
    QPainterPath path;
    const QRectF rect = shape.frame();
    switch (shape.kind()) {
    case Shape::Rectangle: {
        const double radius = qMin(shape.cornerRadius().toDouble(), qMin(rect.width(), rect.height()) / 2);
        path.addRoundedRect(rect, radius, radius);
        break;
    }
    case Shape::Ellipse:
        path.addEllipse(rect);
        break;
    case Shape::Star:
        path.addPolygon(corners(rect, 2 * shape.points(), shape.innerRadius()));
        break;
    case Shape::Polygon:
        path.addPolygon(corners(rect, shape.sides(), 1));
        break;
    case Shape::Text:
        path.addRect(rect);
        break;
    }
    return path;
}

QTransform ShapeGeometry::rotation(const Shape &shape)
{
    const QPointF centre = shape.frame().center();
    return QTransform().translate(centre.x(), centre.y()).rotate(shape.rotation()).translate(-centre.x(), -centre.y());
}

QPolygonF ShapeGeometry::frame(const Shape &shape)
{
    const QRectF rect = shape.frame();
    const QPolygonF corners({rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()});
    return shape.rotation() == 0 ? corners : rotation(shape).map(corners);
}

QRectF ShapeGeometry::paintedBounds(const Shape &shape)
{
    // The tip of a mitred star reaches further than half of its stroke.
    const double tip = shape.lineJoin() == Shape::MiterJoin ? 2 : 1;
    const double stroke = shape.isStrokeEnabled() ? shape.strokeWidth() * tip : 0;
    const double shadow = shape.shadowOffset().toDouble();
    const QRectF bounds = shape.rotation() == 0 ? shape.frame() : frame(shape).boundingRect();
    return bounds.adjusted(-stroke, -stroke, stroke + shadow, stroke + shadow);
}

bool ShapeGeometry::contains(const Shape &shape, const QPointF &point, double slack)
{
    const QPointF local = shape.rotation() == 0 ? point : rotation(shape).inverted().map(point);
    if (!shape.frame().adjusted(-slack, -slack, slack, slack).contains(local))
        return false;
    const QPainterPath path = outline(shape);
    const bool solid = shape.isFillEnabled() || shape.kind() == Shape::Text;
    if (solid && path.contains(local))
        return true;
    QPainterPathStroker stroker;
    stroker.setWidth(qMax(2 * slack, shape.strokeWidth()));
    return stroker.createStroke(path).contains(local);
}

double ShapeGeometry::area(const Shape &shape)
{
    const QRectF rect = shape.frame();
    const double radii = rect.width() / 2 * rect.height() / 2;
    switch (shape.kind()) {
    case Shape::Ellipse:
        return M_PI * radii;
    case Shape::Star: // made of triangles between the centre, a tip and the notch beside it
        return shape.points() * shape.innerRadius() * qSin(M_PI / shape.points()) * radii;
    case Shape::Polygon:
        return shape.sides() / 2.0 * qSin(2 * M_PI / shape.sides()) * radii;
    case Shape::Rectangle: {
        const double radius = qMin(shape.cornerRadius().toDouble(), qMin(rect.width(), rect.height()) / 2);
        return rect.width() * rect.height() - (4 - M_PI) * radius * radius;
    }
    case Shape::Text:
        break;
    }
    return rect.width() * rect.height();
}
