// SPDX-License-Identifier: MIT
#include "Controls/ZelPushButton.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelTitleText.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QStyleOptionButton>
#include <QStylePainter>

ZelPushButton::ZelPushButton(QWidget *parent)
    : ZelPushButton(QString(), parent)
{
}

ZelPushButton::ZelPushButton(const QString &title, QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    ZelControlSupport::letShrink(this);
    setAutoDefault(false);
    setTitle(title);
}

QString ZelPushButton::title() const
{
    return ZelTitleText::toTitle(text());
}

void ZelPushButton::setTitle(const QString &title)
{
    setText(ZelTitleText::fromTitle(title));
}

QSize ZelPushButton::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    const int titleWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    const int ellipsis = fontMetrics().horizontalAdvance(QChar(0x2026));
    return {std::max(0, hint.width() - titleWidth + std::min(titleWidth, ellipsis)), hint.height()};
}

int ZelPushButton::titleWidth() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const int frame = style()->pixelMetric(QStyle::PM_ButtonMargin, &option, this);
    const int image = icon().isNull() ? 0 : iconSize().width() + 4;
    return width() - frame - image;
}

/// The title is elided here and not in initStyleOption, because the size hint uses that, too.
void ZelPushButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = fontMetrics().elidedText(text(), Qt::ElideRight, titleWidth(), Qt::TextShowMnemonic);
    painter.drawControl(QStyle::CE_PushButton, option);
}

bool ZelPushButton::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && fontMetrics().size(Qt::TextShowMnemonic, text()).width() > titleWidth() &&
        ZelControlHelp::showToolTip(event, this, title()))
        return true;
    return QPushButton::event(event);
}
