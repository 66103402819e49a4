// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelToken.h"

#include "Controls/private/ZelControlSupport.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>

namespace {

constexpr int g_textMargin = 6; // left and right

/// Mixes the colours. A translucent colour would be no reliable background for text.
QColor mixed(const QColor &color, const QColor &ground, double share)
{
    const auto mix = [share](int a, int b) { return int(a * share + b * (1 - share) + 0.5); };
    return QColor(mix(color.red(), ground.red()), mix(color.green(), ground.green()), mix(color.blue(), ground.blue()));
}

} // namespace

ZelToken::ZelToken(const QString &text, QWidget *field)
    : ZelGuarded(field)
{
    setText(text);
    setAccessibleName(text); // the plain text: an ampersand is no mnemonic here
    setShortcut({});
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::ArrowCursor);
}

QSize ZelToken::sizeHint() const
{
    ensurePolished();
    // The width is rounded up, because a text in less than its exact width is elided.
    const int textWidth = int(std::ceil(QFontMetricsF(font()).horizontalAdvance(text())));
    return {textWidth + 2 * g_textMargin, fontMetrics().height()};
}

QString ZelToken::shownText(int width) const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, width - 2 * g_textMargin);
}

bool ZelToken::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && shownText(width()) != text() &&
        ZelControlHelp::showToolTip(event, this, text()))
        return true;
    return QAbstractButton::event(event);
}

/// All keys go to the field.
void ZelToken::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void ZelToken::mouseDoubleClickEvent(QMouseEvent *event)
{
    QAbstractButton::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked();
}

void ZelToken::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor base = palette().color(QPalette::Base);
    const QColor accent =
        isEnabled() ? palette().color(QPalette::Active, QPalette::Highlight) : palette().color(QPalette::Text);
    const bool isSelected = hasFocus();
    const double strength = isSelected ? 1 : !isEnabled() ? 0.12 : underMouse() ? 0.4 : 0.25;
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(accent, base, strength));
    const double radius = height() / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0, -0.5, 0), radius, radius);
    painter.setPen(palette().color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(rect().adjusted(g_textMargin, 0, -g_textMargin, 0), int(Qt::AlignVCenter | Qt::AlignLeading),
                     shownText(width()));
}
