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

void paintChequerboard(QPainter *painter, const QRect &rect)
{
    constexpr int side = 4;
    painter->save();
    painter->setClipRect(rect, Qt::IntersectClip);
    painter->fillRect(rect, Qt::white);
    for (int y = 0; y * side < rect.height(); ++y) {
        for (int x = y % 2; x * side < rect.width(); x += 2)
            painter->fillRect(rect.x() + x * side, rect.y() + y * side, side, side, QColor(0xC4, 0xC4, 0xC4));
    }
    painter->restore();
}

} // namespace

void ZelColorSwatch::paint(QPainter *painter, const QRect &rect, const ZelColor &color, const QPalette &palette)
{
    const QColor shown = color.toQColor();
    if (shown.isValid()) {
        if (shown.alpha() < 255)
            paintChequerboard(painter, rect);
        painter->fillRect(rect, shown);
    }
    QColor outline = palette.color(QPalette::WindowText);
    outline.setAlphaF(0.45F);
    painter->setPen(QPen(outline, 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
}

QIcon ZelColorSwatch::image(const ZelColor &color)
{
    return color.isValid() ? QIcon(new SwatchEngine(color)) : QIcon();
}
