// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelFailedEdits.h"

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelPopover.h"
#include "Platform/Controls/ZelPopoverWindow.h"
#include "ViewController/ZelView.h"

namespace {

/// What the object is shown in: the controller of a view, the view around a controller's, the maker of a popover.
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
    // From the outside inwards: the editors within another show what that one read.
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
