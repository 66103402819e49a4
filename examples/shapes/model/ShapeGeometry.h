// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPolygonF>
#include <QTransform>

class Shape;

/// Where shapes are, in the coordinates of the page.
namespace ShapeGeometry {
/// The outline before the shape is rotated; the text frame of a text.
QPainterPath outline(const Shape &shape);
/// Rotates about the centre of the shape.
QTransform rotation(const Shape &shape);
/// The four corners of the rotated frame, from the top left.
QPolygonF frame(const Shape &shape);
/// All that painting the shape touches: with its stroke and its shadow.
QRectF paintedBounds(const Shape &shape);
/// Whether a press at the point hits the shape, or misses it by no more than the slack in points; one that is not
/// filled is hit at its outline.
bool contains(const Shape &shape, const QPointF &point, double slack);
/// Of the outline, in square points.
double area(const Shape &shape);
} // namespace ShapeGeometry
