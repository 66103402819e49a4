// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// Lays widgets out at once, where Qt would take a turn of the event loop for each widget around the one that changed,
/// and paint what is in between.
class ZelLayoutSettling
{
public:
    /// Lays the widgets around a widget out, from the inner ones to the window, after the widget has announced another
    /// size hint with updateGeometry(). For what grows under a user's hands: many changes at a time are better left to
    /// the event loop, which takes them together.
    static void settle(const QWidget *widget);
};
