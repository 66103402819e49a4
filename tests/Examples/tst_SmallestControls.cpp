// SPDX-License-Identifier: MIT
#include "Blocks/ZelWindow.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Examples/ControlTour.h"

/// Every control of the smallest example does what it is there for. The test runs inside of the program.
class tst_SmallestControls : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyControlEditsTheLamp()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(
            windows, [](QWidget *widget) { return qobject_cast<ZelWindow *>(widget) && widget->isVisible(); });
        QVERIFY(found != windows.end());
        auto *window = qobject_cast<ZelWindow *>(*found);
        QObject *lamp = nullptr;
        for (const ZelView *view : window->findChildren<ZelView *>()) {
            if (const auto *editor = qobject_cast<ZelInspectorProperty *>(view->viewController()))
                lamp = editor->owner();
        }
        QVERIFY(lamp);
        QUndoStack *stack = window->undoManager()->stack();
        ControlTour tour({.undoStack = stack,
                          .models = [lamp] { return QObjectList{lamp}; },
                          .situation = [] { return QVariant(); },
                          .restore = [] {},
                          .undo = [stack] { stack->undo(); },
                          .redo = [stack] { stack->redo(); }});
        tour.visitAll(window);
        QCOMPARE(tour.faults(), QString());
        QCOMPARE((tour.found - tour.changed).values().join('\n'), QString());
        QCOMPARE(tour.changed.size(), 5);
    }
};

ZEL_TEST_IN_EXAMPLE(tst_SmallestControls)
#include "tst_SmallestControls.moc"
