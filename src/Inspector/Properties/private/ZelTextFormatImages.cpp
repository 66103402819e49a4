// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelTextFormatImages.h"

#include "ColorPopUpButton/private/ZelColorSwatch.h"
#include "Controls/ZelControlSize.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorTextView.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelNamedImages.h"
#include "Resources/private/ZelDrawnIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

#include <array>

namespace {

/// Where a short line lies in the picture, and whether there is any.
enum class Short { Left, Center, Right, None };

struct AlignmentImage
{
    QStringView name;
    Short lines;
    bool hasArrow = false; // in the direction in which text is written
};

constexpr AlignmentImage g_alignmentImages[] = {
    {u"ZelTextAlignLeftTemplate", Short::Left},          {u"ZelTextAlignCenterTemplate", Short::Center},
    {u"ZelTextAlignRightTemplate", Short::Right},        {u"ZelTextAlignJustifiedTemplate", Short::None},
    {u"ZelTextAlignNaturalTemplate", Short::Left, true},
};

/// The picture is laid out on a grid of this many units, with lines on every third.
constexpr int g_grid = 14;

void drawAlignment(QPainter *painter, const QRect &rect, const AlignmentImage &image)
{
    const int side = std::min(rect.width(), rect.height());
    const QPoint origin = rect.topLeft() + QPoint(rect.width() - side, rect.height() - side) / 2;
    const auto units = [side](int count) { return count * side / g_grid; };
    const int thickness = std::max(1, qRound(side * 0.1));
    const int left = image.hasArrow ? 6 : 1;
    constexpr int right = 13;
    for (int line = 0; line < 4; ++line) {
        int from = left;
        int to = right;
        const int missing = line % 2 == 0 || image.lines == Short::None ? 0 : (right - left) / 3;
        if (image.lines != Short::Left)
            from += image.lines == Short::Center ? missing / 2 : missing;
        if (image.lines != Short::Right)
            to -= image.lines == Short::Center ? missing / 2 : missing;
        painter->fillRect(
            QRect(origin.x() + units(from), origin.y() + units(2 + 3 * line), units(to) - units(from), thickness),
            Qt::black);
    }
    if (!image.hasArrow)
        return;
    const double middle = origin.y() + (units(2) + units(11) + thickness) / 2.0;
    const double x = origin.x() + units(1);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(Qt::black);
    painter->drawPolygon(QPolygonF{{x, middle - units(3)}, {x + units(3), middle}, {x, middle + units(3)}});
}

/// The place of a swatch of 13 x 12 points in a square of a control's image.
QRect swatchRect(const QRect &rect)
{
    const double scale = std::min(rect.width(), rect.height()) / double(ZelControlSize::imageSide);
    QRect swatch(0, 0, qRound(13 * scale), qRound(12 * scale));
    swatch.moveCenter(rect.center());
    return swatch;
}

QPalette currentPalette()
{
    return QGuiApplication::palette();
}

/// Legible on the colour as it is seen.
QColor inkOn(const QColor &color)
{
    if (!color.isValid() || color.alphaF() < 0.5F)
        return color.isValid() ? QColor(Qt::black) : currentPalette().color(QPalette::WindowText);
    return qGray(color.rgb()) > 127 ? Qt::black : Qt::white;
}

void drawStripes(QPainter *painter, const QRect &swatch)
{
    const double distance = swatch.height() / 3.0;
    QColor color = currentPalette().color(QPalette::WindowText);
    color.setAlphaF(0.45F);
    painter->save();
    painter->setClipRect(swatch.adjusted(1, 1, -1, -1));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, distance / 3));
    for (double x = distance; x < swatch.width() + swatch.height(); x += distance)
        painter->drawLine(QPointF(swatch.x() + x, swatch.y()),
                          QPointF(swatch.x() + x - swatch.height(), swatch.y() + swatch.height()));
    painter->restore();
}

QRect drawSwatch(QPainter *painter, const QRect &rect, const QVariant &color)
{
    const QRect swatch = swatchRect(rect);
    ZelColorSwatch::paint(painter, swatch, ZelColor::fromVariant(color), currentPalette());
    if (ZelIsMarker(color, ZelMultipleValuesMarker))
        drawStripes(painter, swatch);
    return swatch;
}

void drawLetter(QPainter *painter, const QRect &swatch, const QVariant &color)
{
    const QString letter = QStringLiteral("a");
    QFont font = ZelControlSize::smallFont();
    font.setPixelSize(std::max(1, qRound(swatch.height() * 0.9)));
    const QSizeF size(QFontMetricsF(font).horizontalAdvance(letter), QFontMetricsF(font).height());
    const double x = swatch.x() + std::floor((swatch.width() - size.width()) * 0.5);
    const double y = swatch.y() + std::floor((swatch.height() - size.height()) * 0.5);
    painter->setFont(font);
    painter->setPen(inkOn(ZelColor::fromVariant(color).toQColor()));
    painter->drawText(QPointF(x, y + QFontMetricsF(font).ascent()), letter);
}

QIcon drawn(const ZelDrawnIconEngine::Draw &draw)
{
    return QIcon(new ZelDrawnIconEngine(draw));
}

} // namespace

QIcon ZelTextFormatImages::alignmentImage(const QString &name)
{
    const auto *found = std::find_if(std::begin(g_alignmentImages), std::end(g_alignmentImages),
                                     [&](const AlignmentImage &image) { return image.name == name; });
    if (found == std::end(g_alignmentImages))
        return {};
    const QIcon named = ZelNamedImages::imageNamed(name);
    if (!named.isNull())
        return named;
    const QMetaObject *const metaObject = &ZelInspectorTextView::staticMetaObject;
    if (!ZelBundle::bundleForClass(metaObject).urlForImageResource(name).isEmpty())
        return ZelNamedImages::imageNamedInBundleForClass(name, metaObject);
    const QIcon image = ZelNamedImages::templateImage(
        drawn([shape = *found](QPainter *painter, const QRect &rect) { drawAlignment(painter, rect, shape); }));
    ZelNamedImages::setImageForName(image, name);
    return image;
}

QIcon ZelTextFormatImages::textColorImage(const QVariant &color)
{
    return drawn([color](QPainter *painter, const QRect &rect) { drawSwatch(painter, rect, color); });
}

QIcon ZelTextFormatImages::backgroundColorImage(const QVariant &color)
{
    return drawn([color](QPainter *painter, const QRect &rect) {
        drawLetter(painter, drawSwatch(painter, rect, color), color);
    });
}
