// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class Shape;

/// Paints a shape, in the coordinates of the page.
class ShapePainter
{
public:
    /// The painter is left as it was, except for its pen, brush, font and opacity.
    explicit ShapePainter(QPainter *painter);

    void paint(const Shape &shape);
    /// Whether the shape is so small at this scale, in pixels for each point, that it is painted as a spot.
    static bool isSpot(const Shape &shape, double scale);

private:
    void paintOutline(const Shape &shape);
    void paintText(const Shape &shape);

    QPainter *m_painter;
    double m_scale; // pixels for each point
};
