// SPDX-License-Identifier: MIT
#include "ExpandableViews/ZelExpandableHeader.h"

#include "Controls/private/ZelMarkedText.h"
#include "Controls/private/ZelTitleText.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "ExpandableViews/private/ZelExpandableHeaderAccessible.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int g_triangleLeft = 6;
constexpr int g_triangleLength = 8;
constexpr int g_textLeft = 20;
constexpr int g_textMargin = 4;

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(float(alpha));
    return color;
}

} // namespace

ZelExpandableHeader::ZelExpandableHeader(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelExpandableHeaderAccessible::install();
    QFont bold;
    bold.setBold(true); // only the weight is set, everything else follows the parent's font
    setFont(bold);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this](bool checked) {
        if (m_isForAll)
            Q_EMIT toggledForAll(checked);
    });
}

QString ZelExpandableHeader::title() const
{
    return ZelTitleText::toTitle(text());
}

void ZelExpandableHeader::setTitle(const QString &title)
{
    setText(ZelTitleText::fromTitle(title));
    m_markedParts.clear();
    updateGeometry();
}

void ZelExpandableHeader::setMarkedParts(const QList<ZelLabel::Part> &parts)
{
    m_markedParts = parts;
    update();
}

void ZelExpandableHeader::setStyle(quint32 style)
{
    m_style = style;
    update();
}

QSize ZelExpandableHeader::sizeHint() const
{
    return QSize(g_textLeft + fontMetrics().horizontalAdvance(title()) + g_textMargin,
                 fontMetrics().height() + 2 * g_textMargin);
}

QSize ZelExpandableHeader::minimumSizeHint() const
{
    return QSize(g_textLeft + g_textMargin, sizeHint().height());
}

QRect ZelExpandableHeader::fromLeft(const QRect &rect) const
{
    return QStyle::visualRect(layoutDirection(), this->rect(), rect);
}

void ZelExpandableHeader::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawBackground(painter);
    drawTriangle(painter);
    const QPalette::ColorGroup group = !isEnabled()       ? QPalette::Disabled
                                       : isActiveWindow() ? QPalette::Active
                                                          : QPalette::Inactive;
    painter.setPen(palette().color(group, QPalette::WindowText));
    const QRect place = fromLeft(rect().adjusted(g_textLeft, 0, -g_textMargin, 0));
    // visualAlignment adds AlignAbsolute. Without that flag the painter would mirror the alignment a second time in a
    // mirrored application.
    const Qt::Alignment alignment = QStyle::visualAlignment(layoutDirection(), Qt::AlignVCenter | Qt::AlignLeft);
    const QString text = fontMetrics().elidedText(title(), Qt::ElideRight, place.width());
    if (m_markedParts.isEmpty())
        painter.drawText(place, int(alignment), text);
    else
        ZelMarkedText::paint(&painter, this, place, text, alignment, m_markedParts);
}

void ZelExpandableHeader::drawBackground(QPainter &painter) const
{
    const QColor text = palette().color(QPalette::WindowText);
    if (m_style == 1) {
        painter.fillRect(rect(), withAlpha(text, isActiveWindow() ? 0.08 : 0.05));
        painter.fillRect(0, 0, width(), 1, withAlpha(text, 0.18));
        painter.fillRect(0, height() - 1, width(), 1, withAlpha(text, 0.12));
    }
    if (isDown())
        painter.fillRect(rect(), withAlpha(text, 0.1));
    if (!hasFocus())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 3, 3);
    painter.restore();
}

void ZelExpandableHeader::drawTriangle(QPainter &painter) const
{
    const QRect place =
        fromLeft(QRect(g_triangleLeft, (height() - g_triangleLength) / 2, g_triangleLength, g_triangleLength));
    QPolygonF triangle{QPointF(-2.5, -4), QPointF(3.5, 0), QPointF(-2.5, 4)}; // towards the text
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(place).center());
    if (layoutDirection() == Qt::RightToLeft)
        painter.scale(-1, 1);
    if (isChecked())
        painter.rotate(90);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(palette().color(QPalette::WindowText), isEnabled() ? 0.65 : 0.3));
    painter.drawPolygon(triangle);
    painter.restore();
}

void ZelExpandableHeader::keyPressEvent(QKeyEvent *event)
{
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const bool expands = (event->key() == Qt::Key_Right) == leftToRight;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        return;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (expands != isChecked())
            click();
        else if (m_isForAll)
            Q_EMIT toggledForAll(expands);
        return;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

bool ZelExpandableHeader::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update();
    const bool hasAlt = event->isInputEvent() && static_cast<QInputEvent *>(event)->modifiers() & Qt::AltModifier;
    const ZelMemberScope forAll(this, m_isForAll, hasAlt);
    return QAbstractButton::event(event);
}
