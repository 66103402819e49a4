// SPDX-License-Identifier: MIT
#include "Platform/Selection/ZelUndoManager.h"

#include "Platform/Selection/ZelArrayController.h"
#include "Platform/Selection/ZelRecordedWrite.h"
#include "Support/Person.h"

#include <QTest>
#include <QWidget>
#include <memory>

class tst_ZelUndoManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyObjectGetsItsOwnValueBack()
    {
        Person ada, ben;
        ada.setHeight(1);
        ben.setHeight(2);
        ZelArrayController controller;
        controller.setSelectedObjects({&ada, &ben});
        ZelUndoManager manager;
        {
            const ZelUndoGrouping grouping(&manager);
            ZelRecordedWrite(&manager).setValueForKeyPath(&controller, 5, "selection.height");
            manager.setActionName(QStringLiteral("Change Height"));
        }
        QCOMPARE(manager.stack()->count(), 1);
        QCOMPARE(manager.stack()->undoText(), QStringLiteral("Change Height"));
        manager.undo();
        QCOMPARE(ada.height(), 1.0);
        QCOMPARE(ben.height(), 2.0);
        manager.redo();
        QCOMPARE(ada.height(), 5.0);
        QCOMPARE(manager.stack()->count(), 1);
    }

    void aGroupingIsOneStepAndKeepsTheFirstOldValue()
    {
        Person ada;
        ada.setHeight(1);
        QUndoStack stack;
        ZelUndoManager manager(&stack, nullptr);
        manager.beginUndoGrouping();
        for (int i = 2; i < 10; ++i) {
            const ZelUndoGrouping inner(&manager);
            ZelRecordedWrite(&manager).setValueForKeyPath(&ada, i, "height");
        }
        manager.endUndoGrouping();
        QCOMPARE(stack.count(), 1);
        stack.undo();
        QCOMPARE(ada.height(), 1.0);
        stack.redo();
        QCOMPARE(ada.height(), 9.0);
    }

    void anEmptyGroupingLeavesNothingAndClearsTheName()
    {
        Person ada;
        ZelUndoManager manager;
        {
            const ZelUndoGrouping grouping(&manager);
            manager.setActionName(QStringLiteral("Nothing"));
        }
        QCOMPARE(manager.stack()->count(), 0);
        ZelRecordedWrite(&manager).setValueForKeyPath(&ada, 3, "height");
        QCOMPARE(manager.stack()->undoText(), QString());
    }

    void theDeadAreSkipped()
    {
        auto ada = std::make_unique<Person>();
        Person ben;
        ZelUndoManager manager;
        ZelRecordedWrite(&manager).setValuesForKey({ada.get(), &ben}, {3, 4}, "height");
        ada.reset();
        manager.undo();
        QCOMPARE(ben.height(), 0.0);
    }

    void pathsIntoValuesAndUnrecordedEdits()
    {
        Person ada;
        ada.setFrame({1, 2, 3, 4});
        ZelUndoManager manager;
        ZelRecordedWrite(&manager).setValueForKeyPath(&ada, 7, "frame.x");
        QCOMPARE(ada.frame(), QRectF(7, 2, 3, 4));
        manager.undo();
        QCOMPARE(ada.frame(), QRectF(1, 2, 3, 4));
        manager.setRecordsEdits(false);
        ZelRecordedWrite(&manager).setValueForKeyPath(&ada, 7, "frame.x");
        QVERIFY(!manager.stack()->canUndo());
    }

    void theManagerIsFoundFromAnyWidgetOfItsWindow()
    {
        QWidget window;
        auto *manager = new ZelUndoManager(&window);
        ZelUndoManager::setForWindow(&window, manager);
        auto *child = new QWidget(&window);
        QCOMPARE(ZelUndoManager::forWidget(child), manager);
        QWidget popup(child, Qt::Popup);
        QCOMPARE(ZelUndoManager::forWidget(&popup), manager);
        delete manager;
        QVERIFY(!ZelUndoManager::forWidget(child));
        const ZelUndoGrouping none(child);
    }
};

QTEST_MAIN(tst_ZelUndoManager)
#include "tst_ZelUndoManager.moc"
