// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

class ZelMenuTracking
{
public:
    /// Closes the menu that contains the widget, and the menus from which it was opened. Any other pop-up around them
    /// stays open. Does nothing for a widget that is in no menu.
    static void cancel(const QWidget *widget);
};
