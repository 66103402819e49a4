// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelMenuTracking.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>

void ZelMenuTracking::cancel(const QWidget *widget)
{
    if (!qobject_cast<QMenu *>(widget->window()))
        return;
    const auto openMenu = [] { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); };
    for (QPointer<QMenu> menu = openMenu(); menu;) {
        menu->close();
        QMenu *next = openMenu();
        // A menu that does not close ends the loop.
        menu = next == menu ? nullptr : next;
    }
}
