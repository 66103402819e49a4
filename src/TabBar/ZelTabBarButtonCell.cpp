// SPDX-License-Identifier: MIT
#include "TabBar/ZelTabBarButtonCell.h"

#include "Resources/ZelNamedImages.h"

#include <QPainter>
#include <QPalette>

namespace {

constexpr int g_imageLength = 16;
constexpr double g_bezelRadius = 4;
constexpr double g_dimmedOpacity = 0.35;
constexpr int g_countHeight = 11;
constexpr int g_countMargin = 3; // on either side of the digits
constexpr int g_titleHeight = 10;
constexpr int g_titleMargin = 4;
constexpr int g_largestCount = 99;

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(float(alpha));
    return color;
}

} // namespace

QString ZelTabBarButtonCell::name() const
{
    if (count < 0)
        return toolTip;
    return QStringLiteral("%1 (%2)").arg(title(), QString::number(count)).trimmed() + toolTip.mid(title().size());
}

QString ZelTabBarButtonCell::title() const
{
    return toolTip.section(u'\n', 0, 0);
}

void ZelTabBarButtonCell::draw(QPainter &painter, const QRectF &rect, State state, const QPalette &palette) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawBezel(painter, rect, state, palette);
    drawImage(painter, rect, state, palette);
    if (count > 0)
        drawCount(painter, rect, palette);
    if (state & Focused) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette.color(QPalette::Highlight), 2));
        painter.drawRoundedRect(rect.adjusted(3, 2, -3, -2), g_bezelRadius, g_bezelRadius);
    }
    painter.restore();
}

void ZelTabBarButtonCell::drawBezel(QPainter &painter, const QRectF &rect, State state, const QPalette &palette) const
{
    const QRectF bezel = rect.adjusted(3, 2, -3, -2);
    const bool accented = state.testFlag(WindowActive) && state.testFlag(Enabled);
    const QColor text = palette.color(QPalette::WindowText);
    const QColor accent = accented ? palette.color(QPalette::Highlight) : text;
    painter.setPen(Qt::NoPen);
    if (state & Pressed) {
        painter.setBrush(withAlpha(text, 0.28));
        painter.drawRoundedRect(bezel, g_bezelRadius, g_bezelRadius);
    } else if (state & Selected && bordered) {
        painter.setPen(withAlpha(accent, accented ? 0.55 : 0.25));
        painter.setBrush(withAlpha(accent, accented ? 0.24 : 0.12));
        painter.drawRoundedRect(bezel.adjusted(0.5, 0.5, -0.5, -0.5), g_bezelRadius, g_bezelRadius);
    } else if (state & Selected) {
        painter.fillRect(QRectF(rect.left() + 4, rect.bottom() - 2, rect.width() - 8, 2), withAlpha(accent, 0.9));
    }
}

void ZelTabBarButtonCell::drawImage(QPainter &painter, const QRectF &rect, State state, const QPalette &palette) const
{
    const QIcon &shown = state & Pressed && !alternateImage.isNull() ? alternateImage : image;
    QRectF place(0, 0, g_imageLength, g_imageLength);
    place.moveCenter(rect.center());
    const QRect target(place.topLeft().toPoint(), QSize(g_imageLength, g_imageLength));
    if (!(state & Enabled) || count == 0)
        painter.setOpacity(g_dimmedOpacity);
    const QColor color = ZelNamedImages::templateColor(palette, state.testFlag(Selected), state.testFlag(Pressed),
                                                       state.testFlag(WindowActive) && state.testFlag(Enabled));
    if (shown.isNull())
        drawTitle(painter, rect, color);
    else
        ZelNamedImages::paint(&painter, shown, target, color);
    painter.setOpacity(1);
}

/// All buttons are of one width, so that there is room for a few letters only.
void ZelTabBarButtonCell::drawTitle(QPainter &painter, const QRectF &rect, const QColor &color) const
{
    const QRectF place = rect.adjusted(g_titleMargin, 0, -g_titleMargin, 0);
    QFont font = painter.font();
    font.setPixelSize(g_titleHeight);
    painter.setFont(font);
    painter.setPen(color);
    painter.setLayoutDirection(title().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(place, Qt::AlignCenter,
                     painter.fontMetrics().elidedText(title(), Qt::ElideRight, int(place.width())));
}

/// The number stands in a pill at the lower right corner of the image.
void ZelTabBarButtonCell::drawCount(QPainter &painter, const QRectF &rect, const QPalette &palette) const
{
    QFont font = painter.font();
    font.setPixelSize(g_countHeight - 2);
    painter.setFont(font);
    const QString text = count > g_largestCount ? QStringLiteral("%1+").arg(g_largestCount) : QString::number(count);
    const double width = painter.fontMetrics().horizontalAdvance(text) + 2 * g_countMargin;
    const QRectF pill(rect.right() - width - 1, rect.bottom() - g_countHeight - 1, width, g_countHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Highlight));
    painter.drawRoundedRect(pill, g_countHeight / 2.0, g_countHeight / 2.0);
    painter.setPen(palette.color(QPalette::HighlightedText));
    painter.drawText(pill, Qt::AlignCenter, text);
}
