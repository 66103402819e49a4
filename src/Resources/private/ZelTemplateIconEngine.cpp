// SPDX-License-Identifier: MIT
#include "Resources/private/ZelTemplateIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

namespace {

QColor colorForMode(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::Text);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
        return palette.color(QPalette::Active, QPalette::Text);
    }
}

} // namespace

void ZelTemplateIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal scale = painter->device() ? painter->device()->devicePixelRatio() : 1.0;
    QPixmap image = scaledPixmap(rect.size() * scale, mode, state, scale);
    image.setDevicePixelRatio(scale);
    QRect target(QPoint(), image.deviceIndependentSize().toSize());
    target.moveCenter(rect.center());
    painter->drawPixmap(target.topLeft(), image);
}

QPixmap ZelTemplateIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1.0);
}

QPixmap ZelTemplateIconEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal)
{
    const QColor color = colorForMode(mode);
    const QString key = QStringLiteral("ZelTemplate/%1/%2x%3/%4/%5")
                            .arg(m_shape.cacheKey())
                            .arg(size.width())
                            .arg(size.height())
                            .arg(int(state))
                            .arg(color.rgba(), 0, 16);
    QPixmap result;
    if (QPixmapCache::find(key, &result))
        return result;
    result = m_shape.pixmap(size, 1.0, QIcon::Normal, state); // the other modes change the shape's opacity, too
    if (result.isNull())
        return result;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(result.rect(), color);
    painter.end();
    QPixmapCache::insert(key, result);
    return result;
}

QSize ZelTemplateIconEngine::actualSize(const QSize &size, QIcon::Mode, QIcon::State state)
{
    return m_shape.actualSize(size, QIcon::Normal, state);
}

QList<QSize> ZelTemplateIconEngine::availableSizes(QIcon::Mode, QIcon::State state)
{
    return m_shape.availableSizes(QIcon::Normal, state);
}
