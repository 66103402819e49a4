// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QContextMenuEvent;
class QKeyEvent;
class QLineEdit;
class QMenu;
class QMouseEvent;
class QWidget;
class ZelRowCommands;

/// Gives rows, sections and inspectors their context menus, and the keys of these commands.
///
/// One object serves all, and looks at the events of the application, so that a row costs nothing until a user asks for
/// its menu. A control's own menu comes first: the menu of the row is shown for an event that no control has taken, and
/// follows the standard menu of a text field.
class ZelRowMenu final : public QObject
{
public:
    /// Begins to listen, the first time. Needs an application object.
    static void listen();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using QObject::QObject;
    bool handle(QWidget *widget, QEvent *event);
    static bool showMenu(QWidget *widget, const QContextMenuEvent *event);
    static void addCommands(QMenu *menu, const ZelRowCommands &commands, bool isRow, bool isBesideText);
    static void addSubmenu(QMenu *menu, const ZelRowCommands &commands, const QString &title);
    static bool pressKey(QWidget *widget, const QKeyEvent *event);
    static bool pasteNumbers(const QLineEdit *field);
    static void focusLabel(QWidget *widget, const QMouseEvent *event);
};
