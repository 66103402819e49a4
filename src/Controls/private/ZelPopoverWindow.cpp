// SPDX-License-Identifier: MIT
#include "Controls/private/ZelPopoverWindow.h"

#include "Controls/ZelPopover.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QChildEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace {

constexpr int g_frame = 1; // in points

} // namespace

ZelPopover *ZelPopoverWindow::popover() const
{
    return m_popover;
}

ZelPopoverWindow::ZelPopoverWindow(ZelPopover *popover)
    : ZelGuarded(nullptr, Qt::Popup | Qt::FramelessWindowHint)
    , m_popover(popover)
{
}

void ZelPopoverWindow::setContent(QWidget *content)
{
    QWidget *former = std::exchange(m_content, content);
    if (former && former->parentWidget() == this)
        former->setParent(nullptr);
    if (!content)
        return;
    content->setParent(this);
    content->show();
    fitContent();
}

QSize ZelPopoverWindow::sizeForContent(const QSize &contentSize) const
{
    if (!m_content)
        return {};
    m_content->ensurePolished();
    QSize size = m_content->sizeHint().expandedTo(m_content->minimumSizeHint());
    size = size.expandedTo(m_content->minimumSize()).boundedTo(m_content->maximumSize());
    if (contentSize.width() > 0)
        size.setWidth(contentSize.width());
    if (contentSize.height() > 0)
        size.setHeight(contentSize.height());
    else if (m_content->hasHeightForWidth())
        size.setHeight(m_content->heightForWidth(size.width()));
    return size + QSize(2 * g_frame, 2 * g_frame);
}

void ZelPopoverWindow::belongTo(QWidget *anchor)
{
    const QWidget *window = anchor->window();
    setScreen(anchor->screen());
    setPalette(window->palette());
    setFont(window->font());
    setLayoutDirection(anchor->layoutDirection());
    setLocale(anchor->locale());
    ZelUndoManager::setForWindow(this, ZelUndoManager::forWidget(anchor));
    ZelSourcePlace::setForObject(this, ZelSourcePlace::ofObject(anchor));
    // Makes the native window, without which there is no handle.
    winId();
    windowHandle()->setTransientParent(window->windowHandle());
}

void ZelPopoverWindow::dispose()
{
    m_popover = nullptr;
    hide();
    ZelEventScope::dispose(this);
}

bool ZelPopoverWindow::handleEvent(QEvent *event)
{
    const QPointer<ZelPopoverWindow> guard(this); // handling the event may delete the window
    const bool handled = QWidget::event(event);
    if (guard && event->type() == QEvent::LayoutRequest && m_popover)
        m_popover->contentChangedSize();
    return handled;
}

void ZelPopoverWindow::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (!event->removed() || event->child() != m_content)
        return;
    m_content = nullptr;
    if (m_popover)
        m_popover->contentWentAway();
}

void ZelPopoverWindow::closeEvent(QCloseEvent *event)
{
    if (m_popover)
        m_popover->performClose();
    event->accept();
}

void ZelPopoverWindow::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // The window may be hidden without close(), for instance by another pop-up. The popover is told later, because the
    // code that hides the window may not expect that widgets die.
    if (m_popover && !event->spontaneous())
        QMetaObject::invokeMethod(m_popover, &ZelPopover::windowWasHidden, Qt::QueuedConnection);
}

void ZelPopoverWindow::mousePressEvent(QMouseEvent *event)
{
    // A press on the anchor closes the popover. Qt must not replay it to the anchor, which would open the popover
    // again.
    if (m_popover && !rect().contains(event->position().toPoint()))
        setAttribute(Qt::WA_NoMouseReplay, m_popover->isOnAnchor(event->globalPosition().toPoint()));
    QWidget::mousePressEvent(event);
}

void ZelPopoverWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.35F);
    painter.fillRect(rect(), line);
    painter.fillRect(rect().adjusted(g_frame, g_frame, -g_frame, -g_frame), palette().window());
}

void ZelPopoverWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitContent();
}

void ZelPopoverWindow::fitContent()
{
    if (m_content)
        m_content->setGeometry(rect().adjusted(g_frame, g_frame, -g_frame, -g_frame));
}
