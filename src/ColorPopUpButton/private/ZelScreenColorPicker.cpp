// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelScreenColorPicker.h"

#include "Controls/private/ZelControlSupport.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>

namespace {

/// What is seen in a rectangle of the desktop, as far as it lies on the screen of its centre; null if the platform does
/// not tell.
QImage picture(const QRect &rect)
{
    QScreen *screen = QGuiApplication::screenAt(rect.center());
    if (!screen)
        return {};
    const QRect seen = (rect & screen->geometry()).translated(-screen->geometry().topLeft());
    return screen->grabWindow(0, seen.x(), seen.y(), seen.width(), seen.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

/// How an arrow key moves the pointer.
QPoint wayOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

/// Some platforms give an empty picture, others a black one. No button is black all over.
bool ZelScreenColorPicker::isPossible(const QWidget *widget)
{
    const QImage image = picture(QRect(widget->mapToGlobal(QPoint()), widget->size()));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(0, 0, 0))
                return true;
        }
    }
    return false;
}

ZelScreenColorPicker::ZelScreenColorPicker(QWidget *widget)
    : ZelGuarded(widget)
    , m_widget(widget)
{
    widget->installEventFilter(this);
    widget->grabMouse(Qt::CrossCursor);
    widget->grabKeyboard();
}

ZelScreenColorPicker::~ZelScreenColorPicker()
{
    end();
}

void ZelScreenColorPicker::end()
{
    if (!m_widget)
        return;
    QWidget *widget = m_widget;
    m_widget = nullptr;
    widget->removeEventFilter(this);
    widget->releaseMouse();
    widget->releaseKeyboard();
    deleteLater();
}

void ZelScreenColorPicker::pick(const QPoint &place)
{
    const QImage image = picture(QRect(place, QSize(1, 1)));
    end();
    if (!image.isNull())
        Q_EMIT picked(image.pixelColor(0, 0));
}

bool ZelScreenColorPicker::filterEvent(QObject *watched, QEvent *event)
{
    if (watched != m_widget)
        return ZelGuarded::filterEvent(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonRelease: {
        const auto *mouse = static_cast<const QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton)
            pick(mouse->globalPosition().toPoint());
        else
            end();
        return true;
    }
    case QEvent::KeyPress:
        return handleKey(static_cast<const QKeyEvent *>(event));
    case QEvent::ShortcutOverride: // no shortcut of the window takes the key
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyRelease:
    case QEvent::ContextMenu:
        return true;
    default:
        if (event->type() == QEvent::UngrabMouse || ZelControlSupport::endsMouseGrab(event, m_widget))
            end();
        return false;
    }
}

bool ZelScreenColorPicker::handleKey(const QKeyEvent *event)
{
    const QPoint way = wayOf(event->key());
    if (event->key() == Qt::Key_Escape)
        end();
    else if (ZelControlSupport::isReturn(event))
        pick(QCursor::pos());
    else if (!way.isNull())
        QCursor::setPos(QCursor::pos() + way * (event->modifiers() & Qt::ShiftModifier ? 10 : 1));
    return true;
}
