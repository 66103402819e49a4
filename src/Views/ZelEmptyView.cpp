// SPDX-License-Identifier: MIT
#include "Views/ZelEmptyView.h"

#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelInstalledContext.h"

#include <QFontMetricsF>
#include <cmath>

namespace {

constexpr double g_badgeMarginX = 20;
constexpr double g_badgeMarginY = 5;
constexpr double g_badgeRadius = 8;

/// A rectangle of the given size in the middle of another size, at whole points.
QRectF centered(const QSizeF &size, const QSizeF &in)
{
    return QRectF(
        QPointF(std::round((in.width() - size.width()) * 0.5), std::round((in.height() - size.height()) * 0.5)), size);
}

} // namespace

ZelEmptyView::ZelEmptyView(QWidget *parent)
    : ZelView(parent)
{
    setUp();
}

ZelEmptyView::ZelEmptyView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
{
    setUp();
}

void ZelEmptyView::setUp()
{
    m_title = ZelLocalizedString(QStringLiteral("No Selection"));
    m_titleColor = ZelColor(ZelColor::CalibratedRGB, {0.89, 0.89, 0.89, 1.0});
    m_titleBackgroundColor = ZelColor(ZelColor::CalibratedRGB, {0.588, 0.588, 0.588, 1.0});
    setAccessibleName(m_title);
}

void ZelEmptyView::setTitle(const QString &title)
{
    if (!ZelAssign(m_title, title))
        return;
    setAccessibleName(title);
    Q_EMIT titleChanged();
}

void ZelEmptyView::setTitleFont(const QFont &font)
{
    if (ZelAssign(m_titleFont, font))
        Q_EMIT titleFontChanged();
}

void ZelEmptyView::setTitleColor(const ZelColor &color)
{
    if (ZelAssign(m_titleColor, color))
        Q_EMIT titleColorChanged();
}

void ZelEmptyView::setTitleBackgroundColor(const ZelColor &color)
{
    if (ZelAssign(m_titleBackgroundColor, color))
        Q_EMIT titleBackgroundColorChanged();
}

void ZelEmptyView::setForceShow(bool forceShow)
{
    if (ZelAssign(m_forceShow, forceShow))
        Q_EMIT forceShowChanged();
}

void ZelEmptyView::viewDidInstall()
{
    ZelView::viewDidInstall();
    ZelObservations(this).addObservationWithObject(
        this, QStringList{"title", "titleFont", "titleColor", "backgroundColor", "forceShow"},
        ZelKeyValueObservingOptionEqualCheck, [this](ZelBlockObservation *, const ZelKeyValueChange &) { update(); },
        &ZelInstalledContext);
}

void ZelEmptyView::didAddSubview(QWidget *subview)
{
    ZelView::didAddSubview(subview);
    update();
}

void ZelEmptyView::willRemoveSubview(QWidget *subview)
{
    ZelView::willRemoveSubview(subview);
    update();
}

void ZelEmptyView::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    ZelView::drawRect(painter, dirtyRect);
    if (!m_forceShow && !subviews().isEmpty())
        return;
    const QFontMetricsF metrics(m_titleFont, this);
    const QSizeF titleSize = metrics.size(0, m_title);
    const QSizeF badgeSize(titleSize.width() + 2 * g_badgeMarginX, titleSize.height() + 2 * g_badgeMarginY);
    painter.save();
    painter.translate(bounds().topLeft());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_titleBackgroundColor.toQColor());
    painter.drawRoundedRect(centered(badgeSize, bounds().size()), g_badgeRadius, g_badgeRadius);
    painter.setPen(m_titleColor.toQColor());
    painter.setFont(m_titleFont);
    painter.drawText(centered(titleSize, bounds().size()), Qt::AlignCenter, m_title);
    painter.restore();
}
