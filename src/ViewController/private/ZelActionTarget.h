// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelSelector.h"

class QWidget;

/// Finds the receiver of an action, and tells whether the action may be sent now.
///
/// An action with a target goes to the target. An action without one goes to the first object that has a method for it.
/// The search begins at the focus widget of the active window and goes outwards through parents, controllers and
/// windows; then it begins at the focus widget of the sender's window, then at the sender. The application object is
/// asked last.
class ZelActionTarget
{
public:
    /// The target, or the receiver that the search finds. Null if there is none.
    static QObject *targetForAction(const ZelSelector &action, QObject *target, QWidget *sender);

    /// Whether the action can be sent for an item: there is a receiver that has a method for it and does not refuse. A
    /// receiver may have a slot or invokable method "bool validateUserInterfaceItem(QObject *item)", which answers
    /// false to refuse.
    static bool isValid(const ZelSelector &action, QObject *target, QWidget *sender, QObject *item);

    /// Sends the action to its target, or to the receiver that the search from `start` finds, in one undo grouping of
    /// the window of `start`. The method gets the control as its sender. Does nothing if there is no receiver. All
    /// objects may be gone afterwards.
    static void perform(const ZelSelector &action, QObject *target, QWidget *start, QObject *control);

private:
    static QObject *firstResponder(const ZelSelector &action, QObject *from);
};
