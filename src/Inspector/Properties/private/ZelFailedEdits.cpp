// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelFailedEdits.h"

#include "Controls/ZelPopover.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelPopoverWindow.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "ViewController/ZelView.h"

namespace {

/// What the object is shown in: for a view its controller, for a controller the parent of its view, for a popover's
/// window the popover's parent, and for anything else its parent.
QObject *enclosing(QObject *object)
{
    if (const auto *view = qobject_cast<ZelView *>(object); view && view->viewController())
        return view->viewController();
    if (auto *controller = qobject_cast<ZelViewController *>(object); controller && controller->isViewLoaded())
        return controller->view()->parentWidget();
    if (const auto *window = dynamic_cast<ZelPopoverWindow *>(object); window && window->popover())
        return window->popover()->parent();
    return object->parent();
}

} // namespace

void ZelFailedEdits::listen()
{
    static ZelFailedEdits failedEdits;
}

ZelFailedEdits::ZelFailedEdits()
{
    ZelNotificationCenter::defaultCenter()->addObserver(this, ZelEditDidFailNotification);
}

void ZelFailedEdits::observeNotification(const ZelNotification &notification)
{
    // The editors are updated from the outside inwards, since an editor within another one shows what that one has
    // read.
    QList<QPointer<ZelInspectorProperty>> editors;
    for (QObject *object = notification.object; object; object = enclosing(object)) {
        if (auto *editor = qobject_cast<ZelInspectorProperty *>(object))
            editors.prepend(editor);
    }
    for (const QPointer<ZelInspectorProperty> &editor : std::as_const(editors)) {
        if (editor)
            ZelExceptionReporter::run(editor, [&] { editor->updateView(); });
    }
}
