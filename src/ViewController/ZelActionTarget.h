// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelSelector.h"

class QWidget;

/// Who receives an action, and whether it may be sent now.
///
/// An action with a target goes there. One without goes to the first object that has such a method: from the focus
/// widget of the active window outwards, through controllers and windows, then from the focus widget of the sender's
/// window and from the sender itself, and last the application object.
class ZelActionTarget
{
public:
    /// The target, or whom the action finds. Null if there is none.
    static QObject *targetForAction(const ZelSelector &action, QObject *target, QWidget *sender);

    /// Whether the action can be sent for an item: it has a receiver that has such a method and does not object. A
    /// receiver may have a slot or invokable method "bool validateUserInterfaceItem(QObject *item)", which answers
    /// that.
    static bool isValid(const ZelSelector &action, QObject *target, QWidget *sender, QObject *item);

    /// Sends the action to its target, or to whom it finds, in one undo grouping of the window of the chain's start.
    /// The sender handed to the method is the control. Does nothing where nobody takes the action. Everything may be
    /// gone afterwards.
    static void perform(const ZelSelector &action, QObject *target, QWidget *start, QObject *control);

private:
    static QObject *firstResponder(const ZelSelector &action, QObject *from);
};
