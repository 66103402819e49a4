// SPDX-License-Identifier: MIT
#include "Input.h"

#include "Clock.h"

#include <QApplication>
#include <QPointer>
#include <QPointingDevice>
#include <QScrollArea>
#include <QTabletEvent>
#include <QWheelEvent>
#include <QWindow>

// What the system's plug-ins call.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, const QPointF &local, const QPointF &global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString &text = QString(), bool autorepeat = false, ushort count = 1);

namespace {

Qt::MouseButton g_button = Qt::NoButton;

void reveal(QWidget *widget)
{
    for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(parent))
            area->ensureWidgetVisible(widget, 0, 0);
    }
}

void send(QWidget *widget, const QPoint &at, QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QWidget *window = widget->window();
    if (!window->windowHandle() || !window->isVisible())
        return;
    const QPoint local = widget->mapTo(window, at);
    qt_handleMouseEvent(window->windowHandle(), local, window->mapToGlobal(local), g_button, button, type, modifiers,
                        int(Clock::milliseconds() & 0x7fffffff));
}

QWindow *keyWindow()
{
    const QWidget *popup = QApplication::activePopupWidget();
    return popup && popup->windowHandle() ? popup->windowHandle() : QGuiApplication::focusWindow();
}

} // namespace

Qt::MouseButton Input::pressedButton()
{
    return g_button;
}

void Input::press(QWidget *widget, const QPoint &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    reveal(widget);
    g_button = button;
    send(widget, at, QEvent::MouseButtonPress, button, modifiers);
}

void Input::move(QWidget *widget, const QPoint &at)
{
    send(widget, at, QEvent::MouseMove, Qt::NoButton, {});
}

void Input::release(QWidget *widget, const QPoint &at, Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButton button = std::exchange(g_button, Qt::NoButton);
    if (button != Qt::NoButton)
        send(widget, at, QEvent::MouseButtonRelease, button, modifiers);
}

void Input::click(QWidget *widget, const QPoint &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    const QPointer<QWidget> alive(widget);
    const QPointer<QWidget> window(widget->window());
    Clock::advance(1000); // two clicks are no double click
    press(widget, at, button, modifiers);
    Clock::advance(20);
    if (alive)
        release(widget, at, modifiers);
    else if (window)
        release(window, {1, 1}, modifiers);
    else
        g_button = Qt::NoButton;
}

void Input::doubleClick(QWidget *widget, const QPoint &at)
{
    const QPointer<QWidget> alive(widget);
    click(widget, at);
    for (int i = 0; alive && i < 2; ++i) {
        if (i == 0)
            press(widget, at, Qt::LeftButton);
        else
            release(widget, at);
    }
}

void Input::wheel(QWidget *widget, const QPoint &at, const QPoint &angle, Qt::KeyboardModifiers modifiers)
{
    reveal(widget);
    QWidget *window = widget->window();
    if (!window->windowHandle())
        return;
    const QPoint local = widget->mapTo(window, at);
    QWheelEvent event(local, window->mapToGlobal(local), {}, angle, g_button, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window->windowHandle(), &event);
}

void Input::tablet(QWidget *widget, const QPoint &at)
{
    reveal(widget);
    const QPointer<QWidget> window(widget->window());
    static const QPointingDevice pen(QStringLiteral("pen"), 7, QInputDevice::DeviceType::Stylus,
                                     QPointingDevice::PointerType::Pen, QInputDevice::Capability::Pressure, 1, 1);
    const QPoint local = widget->mapTo(window, at);
    for (const QEvent::Type type : {QEvent::TabletPress, QEvent::TabletMove, QEvent::TabletRelease}) {
        if (!window || !window->windowHandle())
            return;
        QTabletEvent event(type, &pen, local, window->mapToGlobal(local), 0.5, 0, 0, 0, 0, 0, {}, Qt::LeftButton,
                           type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton);
        QCoreApplication::sendEvent(window->windowHandle(), &event);
    }
}

void Input::key(int key, Qt::KeyboardModifiers modifiers)
{
    const bool isText = !(modifiers & (Qt::ControlModifier | Qt::AltModifier)) && key >= Qt::Key_Space && key < 0x1000;
    QString text = isText ? QString(QChar(key)).toLower() : QString();
    if (key == Qt::Key_Return)
        text = QStringLiteral("\r");
    QPointer<QWindow> window = keyWindow();
    if (window)
        qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
    if ((window = keyWindow())) // where a pop-up opened or closed, the release goes elsewhere
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
}

void Input::type(const QString &text)
{
    for (QChar character : text) {
        const int code = character.toUpper().unicode();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (QWindow *window = keyWindow())
                qt_handleKeyEvent(window, type, code, {}, character);
        }
    }
}
