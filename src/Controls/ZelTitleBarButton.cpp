// SPDX-License-Identifier: MIT
#include "Controls/ZelTitleBarButton.h"

#include "Resources/ZelLocalizedString.h"

#include <QDockWidget>
#include <QEvent>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double g_symbolSide = 8;
constexpr double g_inactiveOpacity = 0.5;

/// The lines of the role's symbol, around the origin.
QPainterPath symbol(ZelTitleBarButton::Role role)
{
    constexpr double end = g_symbolSide / 2;
    QPainterPath path;
    switch (role) {
    case ZelTitleBarButton::Custom:
        break;
    case ZelTitleBarButton::Close:
        path.moveTo(-end, -end);
        path.lineTo(end, end);
        path.moveTo(end, -end);
        path.lineTo(-end, end);
        break;
    case ZelTitleBarButton::Minimize:
        path.moveTo(-end, end - 0.5);
        path.lineTo(end, end - 0.5);
        break;
    case ZelTitleBarButton::Zoom:
        path.addRect(-end + 0.5, -end + 0.5, 2 * end - 1, 2 * end - 1);
        break;
    }
    return path;
}

} // namespace

ZelTitleBarButton::ZelTitleBarButton(Role role, QWidget *parent)
    : ZelHoverButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this, &ZelTitleBarButton::perform);
    setRole(role);
}

void ZelTitleBarButton::setRole(Role role)
{
    m_role = role;
    if (role != Custom) {
        static const QHash<Role, QString> names = {
            {Close, QStringLiteral(QT_TRANSLATE_NOOP("Application", "Close"))},
            {Minimize, QStringLiteral(QT_TRANSLATE_NOOP("Application", "Minimize"))},
            {Zoom, QStringLiteral(QT_TRANSLATE_NOOP("Application", "Zoom"))}};
        const QString name = ZelLocalizedString(names.value(role));
        setToolTip(name);
        setAccessibleName(name);
    }
    updateGeometry();
    update();
}

QSize ZelTitleBarButton::sizeHint() const
{
    if (m_role == Custom)
        return ZelHoverButton::sizeHint();
    const int side = iconSize().height() + 4;
    return {side, side};
}

void ZelTitleBarButton::drawContent(QPainter &painter)
{
    const QWidget *titled = titledWidget();
    if (!titled->isActiveWindow() && !isHovered())
        painter.setOpacity(g_inactiveOpacity);
    if (m_role == Custom) {
        ZelHoverButton::drawContent(painter);
    } else {
        // The centre is rounded to whole pixels, so that straight lines are sharp.
        painter.translate(QRectF(rect()).center().toPoint());
        painter.strokePath(symbol(m_role), QPen(titleColor(), m_role == Close ? 1.4 : 1));
        painter.resetTransform();
    }
    painter.setOpacity(1);
}

bool ZelTitleBarButton::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update();
    return ZelHoverButton::handleEvent(event);
}

QWidget *ZelTitleBarButton::titledWidget() const
{
    QWidget *widget = parentWidget();
    while (widget && !widget->isWindow() && !qobject_cast<QDockWidget *>(widget) &&
           !qobject_cast<QMdiSubWindow *>(widget))
        widget = widget->parentWidget();
    return widget ? widget : const_cast<ZelTitleBarButton *>(this);
}

void ZelTitleBarButton::perform()
{
    QWidget *widget = titledWidget();
    switch (m_role) {
    case Custom:
        break;
    case Close:
        widget->close();
        break;
    case Minimize:
        if (!qobject_cast<QDockWidget *>(widget))
            widget->showMinimized();
        break;
    case Zoom:
        zoom(widget);
        break;
    }
}

void ZelTitleBarButton::zoom(QWidget *widget)
{
    if (auto *dock = qobject_cast<QDockWidget *>(widget))
        dock->setFloating(!dock->isFloating());
    else if (widget->isMaximized())
        widget->showNormal();
    else
        widget->showMaximized();
}
