// SPDX-License-Identifier: MIT
#include "ViewController/private/ZelActionTarget.h"

#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Undo/ZelUndoManager.h"
#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

#include <QApplication>
#include <QMetaMethod>

namespace {

/// Chains are short. The limit ends a chain that runs in a circle.
constexpr int g_longestChain = 10000;

QObject *nextResponder(QObject *responder)
{
    if (const auto *view = qobject_cast<ZelView *>(responder))
        return view->nextResponder();
    if (const auto *controller = qobject_cast<ZelViewController *>(responder))
        return controller->nextResponder();
    return responder->parent();
}

/// Answers false and leaves `answer` alone if the object has no such method.
bool askToValidate(QObject *object, QObject *item, bool *answer)
{
    const int index = object->metaObject()->indexOfMethod("validateUserInterfaceItem(QObject*)");
    return index >= 0 && object->metaObject()->method(index).invoke(
                             object, Qt::DirectConnection, Q_RETURN_ARG(bool, *answer), Q_ARG(QObject *, item));
}

} // namespace

QObject *ZelActionTarget::firstResponder(const ZelSelector &action, QObject *from)
{
    int length = 0;
    for (QObject *object = from; object && length < g_longestChain; object = nextResponder(object), ++length) {
        if (action.canPerform(object))
            return object;
    }
    return nullptr;
}

QObject *ZelActionTarget::targetForAction(const ZelSelector &action, QObject *target, QWidget *sender)
{
    if (target || action.isNull())
        return target;
    QWidget *senderFocus = sender ? sender->window()->focusWidget() : nullptr;
    for (QObject *start : {static_cast<QObject *>(QApplication::focusWidget()), static_cast<QObject *>(senderFocus),
                           static_cast<QObject *>(sender), static_cast<QObject *>(qApp)}) {
        if (QObject *found = firstResponder(action, start))
            return found;
    }
    return nullptr;
}

bool ZelActionTarget::isValid(const ZelSelector &action, QObject *target, QWidget *sender, QObject *item)
{
    QObject *receiver = targetForAction(action, target, sender);
    if (!receiver || !action.canPerform(receiver))
        return false;
    bool answer = true;
    askToValidate(receiver, item, &answer);
    return answer;
}

void ZelActionTarget::perform(const ZelSelector &action, QObject *target, QWidget *start, QObject *control)
{
    QObject *receiver = targetForAction(action, target, start);
    if (!receiver)
        return;
    const ZelSelector kept = action; // a copy: the action may change or delete what the reference is to
    const ZelUndoGrouping grouping(start);
    kept.perform(receiver, control);
    ZelRereadSilentProperties(); // the action may have changed properties that have no signal
}
