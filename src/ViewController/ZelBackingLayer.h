// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Resources/ZelColor.h"

#include <QRectF>

class QPainter;
class QWidget;

/// What a layer-backed view shows below its own drawing: a background and a border within the view's edges.
///
/// A change of the layer shows at once; the view does not have to draw anything for it.
class ZEL_EXPORT ZelBackingLayer
{
public:
    explicit ZelBackingLayer(QWidget *view)
        : m_view(view)
    {
    }
    Q_DISABLE_COPY_MOVE(ZelBackingLayer)

    const ZelColor &backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const ZelColor &color);
    const ZelColor &borderColor() const { return m_borderColor; }
    void setBorderColor(const ZelColor &color);
    /// The width in the view's coordinates; 0 draws no border.
    double borderWidth() const { return m_borderWidth; }
    void setBorderWidth(double width);

    void draw(QPainter &painter, const QRectF &bounds) const;

    /// Paints a border of the given width along the inner edge of the rectangle.
    static void drawFrame(QPainter &painter, const QRectF &rect, double width, const QColor &color);

private:
    QWidget *m_view; // owns the layer
    ZelColor m_backgroundColor;
    ZelColor m_borderColor;
    double m_borderWidth = 0;
};
