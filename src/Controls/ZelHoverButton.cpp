// SPDX-License-Identifier: MIT
#include "Controls/ZelHoverButton.h"

#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelTitleText.h"
#include "Resources/ZelNamedImages.h"

#include <QEvent>
#include <QPainter>
#include <cmath>

namespace {

constexpr int g_imageMargin = 3; // on the left and on the right of the image
constexpr int g_titleMargin = 5;
constexpr double g_disabledOpacity = 0.4;

QColor withAlpha(QColor color, float alpha)
{
    color.setAlphaF(alpha);
    return color;
}

} // namespace

ZelHoverButton::ZelHoverButton(QWidget *parent)
    : ZelGuarded(parent)
{
    setAttribute(Qt::WA_Hover);
    setFont(ZelControlSize::smallFont());
    setIconSize(ZelControlSize::imageSize);
}

void ZelHoverButton::setHoverImage(const QIcon &image)
{
    m_hoverImage = image;
    update();
}

QIcon ZelHoverButton::shownImage() const
{
    return isHovered() && isEnabled() && !m_hoverImage.isNull() ? m_hoverImage : icon();
}

QString ZelHoverButton::shownTitle() const
{
    return ZelTitleText::toTitle(text());
}

/// The width is rounded up, because a title in less than its exact width is elided.
int ZelHoverButton::titleWidth() const
{
    return int(std::ceil(QFontMetricsF(font()).horizontalAdvance(shownTitle())));
}

QSize ZelHoverButton::sizeHint() const
{
    ensurePolished();
    const int height = qMax(iconSize().height() + 2, fontMetrics().height());
    if (icon().isNull() && !shownTitle().isEmpty())
        return {titleWidth() + 2 * g_titleMargin, height};
    return {iconSize().width() + 2 * g_imageMargin, height};
}

/// A disabled title is made faint here, because many palettes have no colour for it.
QColor ZelHoverButton::titleColor() const
{
    const QColor color = palette().color(QPalette::Active, QPalette::WindowText);
    return isEnabled() ? color : withAlpha(color, float(g_disabledOpacity));
}

bool ZelHoverButton::handleEvent(QEvent *event)
{
    const bool handled = QAbstractButton::event(event);
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        update();
        Q_EMIT hoveredChanged();
    }
    return handled;
}

void ZelHoverButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (isEnabled() && (isLit() || isHovered())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(withAlpha(palette().color(QPalette::WindowText), isLit() ? 0.22F : 0.1F));
        painter.drawRoundedRect(area, 3, 3);
    }
    drawContent(painter);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(withAlpha(palette().color(QPalette::Highlight), 0.8F), 1.5));
        painter.drawRoundedRect(area, 3, 3);
    }
}

void ZelHoverButton::drawContent(QPainter &painter)
{
    const QIcon image = shownImage();
    if (!image.isNull()) {
        QRect place(QPoint(), iconSize());
        place.moveCenter(rect().center());
        const QColor color =
            ZelNamedImages::templateColor(palette(), isOn(), isDown(), isActiveWindow() && isEnabled());
        painter.setOpacity(isEnabled() || !ZelNamedImages::isTemplateImage(image) ? 1 : g_disabledOpacity);
        ZelNamedImages::paint(&painter, image, place, color, isEnabled() ? QIcon::Normal : QIcon::Disabled,
                              isOn() ? QIcon::On : QIcon::Off);
        painter.setOpacity(1);
        return;
    }
    const QRect place = rect().adjusted(g_titleMargin, 0, -g_titleMargin, 0);
    painter.setPen(titleColor());
    painter.drawText(place, Qt::AlignCenter, fontMetrics().elidedText(shownTitle(), Qt::ElideRight, place.width()));
}
