// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelEventScope.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QAccessible>
#include <QPointer>
#include <QVariant>
#include <functional>

class QEvent;
class QKeyEvent;
class QStyleOption;
class QWheelEvent;
class QWidget;

/// Posted with the control as the sender when a binding could not store what the user entered.
inline const QString ZelEditDidFailNotification = QStringLiteral("ZelEditDidFailNotification");

/// Stands for the name of a selection marker where that does not fit.
inline const QString ZelShortMarkerText = QStringLiteral("\u2014");

/// What the controls of this folder have in common.
class ZelControlSupport
{
public:
    /// Called by the constructor of every control. The first call registers the controls' accessibility.
    static void prepare();

    /// The localized text shown for a selection marker; null for any other value.
    static QString markerText(const QVariant &value);

    /// Reports that the user has ended an edit: first to bindings, then to the target, in one undo grouping. The
    /// control may be gone afterwards. What they throw goes to the exception reporter. If a binding throws, the edit is
    /// not stored: the action is not sent, and a notification tells whoever fills the control to show the value of the
    /// model again.
    template<typename Control> static void reportEdit(Control *control)
    {
        reportEdit(
            control, [control] { Q_EMIT control->valueEdited(); }, [control] { Q_EMIT control->action(); });
    }
    /// The same with functions that emit the two signals.
    static void reportEdit(QWidget *control, const std::function<void()> &valueEdited,
                           const std::function<void()> &action);

    /// The same after the control's value was set: announces the new value first.
    template<typename Control> static void reportNewValue(Control *control)
    {
        const QPointer<Control> guard(control);
        announceValue(control);
        Q_EMIT control->objectValueChanged();
        if (guard)
            reportEdit(control);
    }

    /// Tells assistive technology, if any is running, that the control has another value.
    template<typename Control> static void announceValue(Control *control)
    {
        if (QAccessible::isActive())
            announceValue(control, control->objectValue());
    }
    static void announceValue(QWidget *control, const QVariant &value);

    /// Whether the key is Return or Enter.
    static bool isReturn(const QKeyEvent *event);
    /// Whether the event is a user's input. A widget that is not editable passes such events on to its parent.
    static bool isInput(const QEvent *event);
    /// Whether the event ends a press of the mouse: the widget was hidden or disabled, or its window was left.
    static bool endsMouseGrab(const QEvent *event, const QWidget *widget);
    /// The text as it is shown in that width: elided, but the name of a selection marker becomes a dash, since it would
    /// say nothing if it were cut.
    static QString fitted(const QString &text, const QFontMetrics &metrics, int width);
    /// Whether the text is one of those that markerText answers.
    static bool isMarkerText(const QString &text);

    /// Makes the style draw a control that cannot be edited as disabled, with legible texts.
    static void showDisabled(QStyleOption *option);
    /// Gives a field in which nothing can be typed the colour of what is around it.
    static void showTypable(QStyleOption *option, bool isEditable);
    /// Whether the key has a modifier that makes it a shortcut, which is not for the control: Control, Alt or Meta.
    static bool hasCommandModifier(const QKeyEvent *event);
    /// The number of whole wheel steps, positive upwards. The rest of the angle is kept for the next event.
    static int wheelSteps(const QWheelEvent *event, int *angle);
    /// Lets a button of Qt shrink to its minimum size hint. By its size policy it would not become narrower than its
    /// title.
    static void letShrink(QWidget *button);
    /// The height of a line edit in the widget's font and style, in points.
    static int fieldHeight(const QWidget *widget, bool framed = true);
};
