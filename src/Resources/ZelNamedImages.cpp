// SPDX-License-Identifier: MIT
#include "Resources/ZelNamedImages.h"

#include "Core/Errors/ZelAssertions.h"
#include "Resources/ZelBundle.h"
#include "Resources/private/ZelTemplateIconEngine.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <QPalette>

namespace {

/// The table is emptied when the application ends, because icons must not outlive it. The table itself is never
/// deleted.
QHash<QString, QIcon> &images()
{
    static auto *table = new QHash<QString, QIcon>;
    static bool isCleaned = false;
    if (!isCleaned && QCoreApplication::instance()) {
        isCleaned = true;
        qAddPostRoutine([] {
            table->clear();
            isCleaned = false;
        });
    }
    return *table;
}

QString pathOf(const QUrl &url)
{
    return url.isLocalFile() ? url.toLocalFile() : u':' + url.path(QUrl::FullyDecoded);
}

} // namespace

void ZelNamedImages::setImageForName(const QIcon &image, const QString &name)
{
    if (image.isNull())
        images().remove(name);
    else
        images().insert(name, name.endsWith(u"Template") && !isTemplateImage(image) ? templateImage(image) : image);
}

QIcon ZelNamedImages::imageNamed(const QString &name)
{
    return images().value(name);
}

QIcon ZelNamedImages::imageNamedInBundleForClass(const QString &name, const QMetaObject *metaObject)
{
    const ZelBundle &bundle = ZelBundle::bundleForClass(metaObject);
    const QUrl url = bundle.urlForImageResource(name);
    if (url.isEmpty()) {
        qCDebug(zelLog).noquote() << ZelPlaceScope::current().appendedTo(
            QStringLiteral("No URL for image resource %1 found in bundle %2").arg(name, bundle.name()));
        return {};
    }
    const QString path = pathOf(url);
    QIcon image(path);
    if (QFileInfo(path).completeBaseName().endsWith(u"Template"))
        image = templateImage(image);
    setImageForName(image, name);
    return image;
}

QIcon ZelNamedImages::templateImage(const QIcon &image)
{
    if (image.isNull())
        return image;
    QIcon result(new ZelTemplateIconEngine(image));
    result.setIsMask(true);
    return result;
}

QColor ZelNamedImages::templateColor(const QPalette &palette, bool isSelected, bool isPressed, bool isActive)
{
    if (isSelected && isActive)
        return palette.color(QPalette::Highlight);
    QColor color = palette.color(QPalette::WindowText);
    color.setAlphaF(isSelected || isPressed ? 1.0F : 0.75F);
    return color;
}

void ZelNamedImages::paint(QPainter *painter, const QIcon &image, const QRect &place, const QColor &color,
                           QIcon::Mode mode, QIcon::State state)
{
    if (!isTemplateImage(image)) {
        image.paint(painter, place, Qt::AlignCenter, mode, state);
        return;
    }
    // The icon is always asked for its normal mode: another would change the shape's opacity, too.
    QPixmap shape = image.pixmap(place.size(), painter->device()->devicePixelRatio(), QIcon::Normal, state);
    if (shape.isNull())
        return;
    QPainter tint(&shape);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(QRect(QPoint(), place.size()), color);
    tint.end();
    QRectF drawn(QPointF(), shape.deviceIndependentSize());
    drawn.moveCenter(QRectF(place).center());
    painter->drawPixmap(drawn.topLeft(), shape);
}
