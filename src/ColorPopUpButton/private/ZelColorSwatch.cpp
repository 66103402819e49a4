// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelColorSwatch.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace {

class SwatchEngine : public QIconEngine
{
public:
    explicit SwatchEngine(const ZelColor &color)
        : m_color(color)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * 0.4);
        ZelColorSwatch::paint(painter, rect, m_color, QGuiApplication::palette());
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }
    /// The size is in device pixels.
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        QPixmap pixmap(size);
        if (pixmap.isNull())
            return pixmap;
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), pixmap.deviceIndependentSize().toSize()), mode, state);
        return pixmap;
    }
    QString key() const override { return QStringLiteral("ZelColorSwatch"); }
    QIconEngine *clone() const override { return new SwatchEngine(m_color); }

private:
    ZelColor m_color;
};

/// Fills rectangles that are whole pixels of the device, whatever the scale: edges between two pixels would be blurred
/// or of different widths.
class PixelPainter
{
public:
    explicit PixelPainter(QPainter *painter)
        : m_painter(painter)
        , m_toDevice(painter->deviceTransform())
        , m_fromDevice(m_toDevice.inverted())
    {
    }

    QRect pixelsOf(const QRect &rect) const
    {
        const QRectF mapped = m_toDevice.mapRect(QRectF(rect));
        return {QPoint(qRound(mapped.left()), qRound(mapped.top())),
                QPoint(qRound(mapped.right()) - 1, qRound(mapped.bottom()) - 1)};
    }
    /// The length in pixels, at least one.
    int pixelsOf(double length) const { return qMax(1, qRound(length * m_toDevice.m11())); }
    void fill(const QRect &pixels, const QColor &color) const
    {
        m_painter->fillRect(m_fromDevice.mapRect(QRectF(pixels)), color);
    }

private:
    QPainter *m_painter;
    QTransform m_toDevice;
    QTransform m_fromDevice;
};

void paintChequerboard(const PixelPainter &painter, const QRect &pixels)
{
    const int side = painter.pixelsOf(4.0);
    painter.fill(pixels, Qt::white);
    for (int y = 0; y * side < pixels.height(); ++y) {
        for (int x = y % 2; x * side < pixels.width(); x += 2) {
            const QRect square(pixels.x() + x * side, pixels.y() + y * side, side, side);
            painter.fill(square & pixels, QColor(0xB4, 0xB4, 0xB4));
        }
    }
}

void paintOutline(const PixelPainter &painter, const QRect &pixels, const QColor &color)
{
    const int width = painter.pixelsOf(1.0);
    const QRect inner = pixels.adjusted(width, width, -width, -width);
    painter.fill({pixels.topLeft(), QPoint(pixels.right(), inner.top() - 1)}, color);
    painter.fill({QPoint(pixels.left(), inner.bottom() + 1), pixels.bottomRight()}, color);
    painter.fill({QPoint(pixels.left(), inner.top()), QPoint(inner.left() - 1, inner.bottom())}, color);
    painter.fill({QPoint(inner.right() + 1, inner.top()), QPoint(pixels.right(), inner.bottom())}, color);
}

QColor outlineColor(const QPalette &palette, float opacity)
{
    QColor outline = palette.color(QPalette::WindowText);
    outline.setAlphaF(opacity);
    return outline;
}

} // namespace

void ZelColorSwatch::paint(QPainter *painter, const QRect &rect, const ZelColor &color, const QPalette &palette)
{
    const PixelPainter pixelPainter(painter);
    const QRect pixels = pixelPainter.pixelsOf(rect);
    const QColor shown = color.toQColor();
    if (shown.isValid()) {
        if (shown.alpha() < 255)
            paintChequerboard(pixelPainter, pixels);
        pixelPainter.fill(pixels, shown);
    }
    paintOutline(pixelPainter, pixels, outlineColor(palette, 0.45F));
}

void ZelColorSwatch::paintEmpty(QPainter *painter, const QRect &rect, const QPalette &palette)
{
    const PixelPainter pixelPainter(painter);
    paintOutline(pixelPainter, pixelPainter.pixelsOf(rect), outlineColor(palette, 0.15F));
}

QIcon ZelColorSwatch::image(const ZelColor &color)
{
    return color.isValid() ? QIcon(new SwatchEngine(color)) : QIcon();
}
