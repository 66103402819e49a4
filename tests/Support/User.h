// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>
#include <QtWidgets>

/// What users do with windows of any kind, where no window manager helps.
namespace User {

/// Waits for what the last event has caused.
inline void settle()
{
    for (int i = 0; i < 4; ++i)
        QCoreApplication::processEvents();
}

inline void activate(QWidget *window)
{
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window))
        qFatal("the window does not become active");
}

inline void open(QWidget *window)
{
    window->show();
    activate(window);
}

/// Where keys go: the pop-up in front, or else the window that is active.
inline QWindow *keyWindow()
{
    const QWidget *popup = QApplication::activePopupWidget();
    return popup ? popup->windowHandle() : QGuiApplication::focusWindow();
}

inline void press(int key, Qt::KeyboardModifiers modifiers = {})
{
    QTRY_VERIFY2(keyWindow(), "no window has the focus"); // a pop-up that closes gives it back later
    QTest::keyClick(keyWindow(), Qt::Key(key), modifiers);
    settle();
}

/// Turns the wheel over the middle of a widget, by eighths of a degree.
inline void turnWheel(QWidget *over, int angle)
{
    const QPointF place = over->mapTo(over->window(), over->rect().center());
    QWheelEvent event(place, over->window()->mapToGlobal(place), {}, {0, angle}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(over->window()->windowHandle(), &event);
    settle();
}

} // namespace User
