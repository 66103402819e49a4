// SPDX-License-Identifier: MIT
#include "window/Icons.h"

#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QPalette>

namespace {
QHash<QString, QIcon> &cache()
{
    static QHash<QString, QIcon> icons;
    return icons;
}

void addTinted(QIcon &icon, const QString &name, QPalette::ColorGroup group, QPalette::ColorRole role, QIcon::Mode mode)
{
    for (const int ratio : {1, 2}) { // the second for fine screens
        const QString suffix = ratio == 1 ? QString() : QStringLiteral("@2x");
        QPixmap pixmap(QStringLiteral(":/images/%1%2.png").arg(name, suffix));
        pixmap.setDevicePixelRatio(1);
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), QGuiApplication::palette().color(group, role));
        painter.end();
        pixmap.setDevicePixelRatio(ratio);
        icon.addPixmap(pixmap, mode);
    }
}
} // namespace

QIcon Icons::named(const QString &name)
{
    QIcon &icon = cache()[name];
    if (!icon.isNull())
        return icon;
    addTinted(icon, name, QPalette::Active, QPalette::ButtonText, QIcon::Normal);
    addTinted(icon, name, QPalette::Disabled, QPalette::ButtonText, QIcon::Disabled);
    addTinted(icon, name, QPalette::Active, QPalette::HighlightedText, QIcon::Selected);
    return icon;
}

QIcon Icons::ofKind(Shape::Kind kind)
{
    static const QString names[] = {QStringLiteral("RectangleTemplate"), QStringLiteral("EllipseTemplate"),
                                    QStringLiteral("StarTemplate"), QStringLiteral("PolygonTemplate"),
                                    QStringLiteral("TextTemplate")};
    return named(names[kind]);
}

void Icons::forget()
{
    cache().clear();
}
