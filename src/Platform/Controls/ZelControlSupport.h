// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelEventScope.h"
#include "Platform/Runtime/ZelExceptionReporter.h"
#include "Platform/Selection/ZelUndoManager.h"

#include <QAccessible>
#include <QPointer>
#include <QVariant>

class QEvent;
class QKeyEvent;
class QStyleOption;
class QWheelEvent;
class QWidget;

/// Posted by a control, as sender, after what the user entered could not be stored.
inline const QString ZelEditDidFailNotification = QStringLiteral("ZelEditDidFailNotification");

/// What the controls of this folder do alike.
class ZelControlSupport
{
public:
    /// Called by the constructor of every control; the first call registers the controls' properties and accessibility.
    static void prepare();

    /// The localized text shown for a selection marker; null for any other value.
    static QString markerText(const QVariant &value);

    /// Tells the world that the user ended an edit: bindings first, then the target, in one undo grouping. The control
    /// may be gone afterwards. Nobody is there to catch what they throw: it goes to the exception reporter, an edit
    /// that a binding could not store has no action, and whoever shows a value in the control shows the model's again.
    template<typename Control> static void reportEdit(Control *control)
    {
        const QPointer<Control> guard(control);
        const ZelEventScope delivery; // a list of Qt's own that was clicked goes on with the control, too
        const ZelUndoGrouping grouping(control);
        const bool isDone = ZelExceptionReporter::run(control, [&] {
            Q_EMIT control->valueEdited();
            if (guard)
                Q_EMIT control->action();
        });
        if (!isDone && guard)
            noteFailedEdit(control);
    }

    /// The same after the control's value was set: announces the new value first.
    template<typename Control> static void reportNewValue(Control *control)
    {
        const QPointer<Control> guard(control);
        announceValue(control);
        Q_EMIT control->objectValueChanged();
        if (guard)
            reportEdit(control);
    }

    /// Tells assistive technology, if there is any, that the control's value is another.
    template<typename Control> static void announceValue(Control *control)
    {
        if (QAccessible::isActive())
            sendValueChange(control, control->objectValue());
    }

    /// Whether the event is a user's input to the widget, which one that is not editable passes on to its parent.
    static bool isInput(const QEvent *event);
    /// Whether the event ends whatever the mouse was doing: the widget was hidden or disabled, or lost its window.
    static bool endsMouseGrab(const QEvent *event, const QWidget *widget);
    /// Shows the text as tool tip of the widget unless it has one of its own. Answers whether it was shown.
    static bool showToolTip(QEvent *event, QWidget *widget, const QString &text);

    /// Lets the style draw what cannot be edited as disabled, with texts that can be read.
    static void showDisabled(QStyleOption *option);
    /// Whether the key comes with a modifier that makes it somebody else's: Control, Alt or Meta.
    static bool hasCommandModifier(const QKeyEvent *event);
    /// Whole wheel steps, upwards positive; what is left of the angle is kept for the next event.
    static int wheelSteps(const QWheelEvent *event, int *angle);
    /// Lets a button of Qt's, whose policy is not to be narrower than its title, shrink to its minimum size hint.
    static void letShrink(QWidget *button);
    /// The height of a line edit in the widget's font and style.
    static int fieldHeight(const QWidget *widget, bool framed = true);

private:
    static void noteFailedEdit(QWidget *control);
    static void sendValueChange(QWidget *control, const QVariant &value);
};
