// SPDX-License-Identifier: MIT
#include "Controls/ZelFocusRingOverlay.h"

#include "Core/Errors/ZelAssertions.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QPainter>

ZelFocusRingOverlay::ZelFocusRingOverlay(QWidget *container)
    : ZelGuarded(container)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { follow(now); });
    follow(QApplication::focusWidget());
}

void ZelFocusRingOverlay::setColor(const QColor &color)
{
    m_color = color;
    update();
}

void ZelFocusRingOverlay::setRingWidth(int width)
{
    if (!ZelRequire(width > 0, "width > 0"))
        return;
    m_ringWidth = width;
    place();
}

void ZelFocusRingOverlay::setCornerRadius(double radius)
{
    m_cornerRadius = radius;
    update();
}

void ZelFocusRingOverlay::setRingedWidget(const RingedWidget &block)
{
    m_ringedWidget = block;
    follow(QApplication::focusWidget());
}

void ZelFocusRingOverlay::follow(QWidget *focusWidget)
{
    const auto isInside = [this](const QWidget *widget) {
        return widget && parentWidget() && parentWidget() != widget && parentWidget()->isAncestorOf(widget);
    };
    QWidget *ringed = isInside(focusWidget) && m_ringedWidget ? m_ringedWidget(focusWidget) : focusWidget;
    m_widget = isInside(ringed) ? ringed : nullptr;
    watch();
    place();
}

void ZelFocusRingOverlay::watch()
{
    for (const QPointer<QWidget> &widget : std::as_const(m_watched))
        if (widget)
            widget->removeEventFilter(this);
    m_watched.clear();
    disconnect(m_death);
    if (m_widget) // it may die without a change of the focus
        m_death = connect(m_widget, &QObject::destroyed, this, &ZelFocusRingOverlay::hide);
    for (QWidget *widget = m_widget; widget && widget != parentWidget(); widget = widget->parentWidget()) {
        widget->installEventFilter(this);
        m_watched.append(widget);
    }
}

bool ZelFocusRingOverlay::filterEvent(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        follow(QApplication::focusWidget()); // which need not be the widget with the ring
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        place();
        break;
    default:
        break;
    }
    return false;
}

/// The outer rectangle of the ring around the widget, in the container's coordinates.
QRect ZelFocusRingOverlay::ringRect() const
{
    const QRect widget(m_widget->mapTo(parentWidget(), QPoint()), m_widget->size());
    return widget.marginsAdded({m_ringWidth, m_ringWidth, m_ringWidth, m_ringWidth});
}

void ZelFocusRingOverlay::place()
{
    if (!m_widget || !parentWidget() || !m_widget->isVisibleTo(parentWidget())) {
        hide();
        return;
    }
    QRect visible = ringRect();
    for (const QWidget *widget = m_widget; widget != parentWidget(); widget = widget->parentWidget()) {
        const auto *area = qobject_cast<QAbstractScrollArea *>(widget->parentWidget());
        if (area && area->viewport() == widget)
            visible &= QRect(widget->mapTo(parentWidget(), QPoint()), widget->size());
    }
    setGeometry(visible);
    setVisible(!visible.isEmpty());
    raise();
    update();
}

void ZelFocusRingOverlay::paintEvent(QPaintEvent *)
{
    if (!m_widget || !parentWidget())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = m_color.isValid() ? m_color : palette().color(QPalette::Highlight);
    painter.setPen(QPen(color, m_ringWidth));
    const double inset = m_ringWidth / 2.0;
    const double radius = qMax(0.0, m_cornerRadius - inset);
    painter.drawRoundedRect(QRectF(ringRect().translated(-pos())).adjusted(inset, inset, -inset, -inset), radius,
                            radius);
}
