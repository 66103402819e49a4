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

QPixmap tinted(const QString &file, const QColor &color)
{
    QPixmap pixmap(file);
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    return pixmap;
}
} // namespace

QIcon Icons::named(const QString &name)
{
    QIcon &icon = cache()[name];
    if (!icon.isNull())
        return icon;
    const QPalette palette = QGuiApplication::palette();
    const QString file = QStringLiteral(":/images/%1.png").arg(name);
    icon.addPixmap(tinted(file, palette.color(QPalette::Active, QPalette::ButtonText)));
    icon.addPixmap(tinted(file, palette.color(QPalette::Disabled, QPalette::ButtonText)), QIcon::Disabled);
    icon.addPixmap(tinted(file, palette.color(QPalette::Active, QPalette::HighlightedText)), QIcon::Selected);
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
