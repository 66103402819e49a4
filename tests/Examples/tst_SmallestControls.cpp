// SPDX-License-Identifier: MIT
#include "Blocks/ZelWindow.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Examples/ControlTour.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

/// The main function of the example, which makes the application and the window.
int exampleMain(int argc, char *argv[]);

/// Every control of the smallest example does what it is there for. The test runs inside of the program.
class tst_SmallestControls : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyControlEditsTheLamp()
    {
        ZelWindow *window = nullptr;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *found = qobject_cast<ZelWindow *>(widget); found && found->isVisible())
                window = found;
        }
        QVERIFY(window);
        QObject *lamp = nullptr;
        for (const ZelView *view : window->findChildren<ZelView *>()) {
            if (const auto *editor = qobject_cast<ZelInspectorProperty *>(view->viewController()))
                lamp = editor->owner();
        }
        QVERIFY(lamp);
        ControlTour::Program program;
        program.undoStack = window->undoManager()->stack();
        program.models = [lamp] { return QObjectList{lamp}; };
        program.situation = [] { return QVariant(); };
        program.restore = [] {};
        program.undo = [&] { program.undoStack->undo(); };
        program.redo = [&] { program.undoStack->redo(); };
        ControlTour tour(program);
        tour.visitAll(window);
        QVERIFY2(tour.faults().isEmpty(), qPrintable(u'\n' + tour.faults().join(u'\n')));
        const QStringList left = (tour.found() - tour.changed()).values();
        QVERIFY2(left.isEmpty(), qPrintable(u'\n' + left.join(u'\n')));
        QCOMPARE(tour.changed().size(), 5);
    }
};

static void runTestInProgram()
{
    QTimer::singleShot(0, qApp, [] {
        tst_SmallestControls test;
        QCoreApplication::exit(QTest::qExec(&test, QCoreApplication::arguments()));
    });
}
Q_COREAPP_STARTUP_FUNCTION(runTestInProgram)

int main(int argc, char *argv[])
{
    return exampleMain(argc, argv);
}

#include "tst_SmallestControls.moc"
