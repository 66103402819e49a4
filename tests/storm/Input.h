// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <Qt>

class QString;
class QWidget;

/// Events as they come from the system: they go to windows, from where they reach whatever is in front there, has the
/// focus or has grabbed the mouse.
class Input
{
public:
    /// Scrolls the widget into sight first.
    static void press(QWidget *widget, const QPoint &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    static void move(QWidget *widget, const QPoint &at);
    static void release(QWidget *widget, const QPoint &at, Qt::KeyboardModifiers modifiers = {});
    static void click(QWidget *widget, const QPoint &at, Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = {});
    static void doubleClick(QWidget *widget, const QPoint &at);
    static void wheel(QWidget *widget, const QPoint &at, const QPoint &angle, Qt::KeyboardModifiers modifiers = {});
    static void tablet(QWidget *widget, const QPoint &at);
    static Qt::MouseButton pressedButton();

    /// To the pop-up in front, or else to the window that has the focus.
    static void key(int key, Qt::KeyboardModifiers modifiers = {});
    static void type(const QString &text);
};
