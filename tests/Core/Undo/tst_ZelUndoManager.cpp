// SPDX-License-Identifier: MIT
#include "Core/Undo/ZelUndoManager.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/RunLoop/ZelPassiveEdits.h"
#include "Core/Selection/ZelArrayController.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Support/Person.h"
#include "Support/Recorder.h"
#include "Support/Reports.h"

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

    void anObjectThatHasDiedIsNoValueToGoBackTo()
    {
        Person ada, eve;
        auto ben = std::make_unique<Person>();
        ada.setFriendOf(ben.get());
        ZelUndoManager manager;
        {
            const ZelUndoGrouping grouping(&manager);
            ZelRecordedWrite(&manager).setValueForKeyPath(&ada, QVariant::fromValue<QObject *>(&eve), "friendOf");
        }
        QCOMPARE(ada.friendOf(), &eve);
        ben.reset();
        manager.undo();
        QCOMPARE(ada.friendOf(), nullptr);
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
        ZelRecordedWrite(&manager).mapValues({ada.get(), &ben}, "height", [](const QVariant &) { return 3; });
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

    void overlappingWritesAreRedoneInTheirOrder()
    {
        Person ada, ben, cem;
        ZelUndoManager manager;
        const auto set = [&](const QList<QObject *> &people, int height) {
            ZelRecordedWrite(&manager).mapValues(people, "height", [=](const QVariant &) { return height; });
        };
        {
            const ZelUndoGrouping grouping(&manager);
            set({&ada, &ben}, 5);
            set({&ben, &cem}, 6);
            set({&ada, &ben}, 7);
        }
        manager.undo();
        QCOMPARE(ada.height() + ben.height() + cem.height(), 0.0);
        manager.redo();
        QCOMPARE(ada.height(), 7.0);
        QCOMPARE(ben.height(), 7.0);
        QCOMPARE(cem.height(), 6.0);
    }

    void nothingIsRecordedWhereNothingCanBeStored()
    {
        Person ada, ben;
        ZelArrayController controller;
        controller.setSelectedObjects({&ada, &ben});
        ZelUndoManager manager;
        const ZelRecordedWrite write(&manager);
        write.setValueForKeyPath(&ada, "Eve", "friendOf.name"); // there is no friend
        write.setValueForKeyPath(&controller, "Eve", "selection.friendOf.name");
        QVERIFY_EXCEPTION_THROWN(write.setValueForKeyPath(&controller, 3, "selection.nameLength"),
                                 ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(write.setValueForKeyPath(&controller, 3, "selection.unknown"),
                                 ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(write.mapValues({&ada, &ben}, "unknown", [](const QVariant &) { return 3; }),
                                 ZelUndefinedKeyException);
        QCOMPARE(manager.stack()->count(), 0);
    }

    /// Nor where the setter does not take the value, or deletes its object.
    void nothingIsRecordedWhereNothingChanged()
    {
        auto ada = std::make_unique<Person>();
        Person ben;
        ben.setHeight(5);
        ZelArrayController controller;
        controller.setSelectedObjects({ada.get(), &ben});
        ZelUndoManager manager;
        connect(ada.get(), &Person::heightChanged, this, [&] { ada.reset(); });
        const ZelRecordedWrite write(&manager);
        write.setValueForKeyPath(&controller, 2.6, "selection.flags");
        manager.nameEdit(QStringLiteral("Flags"));
        write.setValueForKeyPath(&controller, 2.9, "selection.flags"); // rounded, too
        write.mapValues({ada.get(), &ben}, "flags", [](const QVariant &) { return 3.1; });
        write.setValueForKeyPath(&controller, 5, "selection.height");
        manager.nameEdit(QStringLiteral("Height"));
        QVERIFY(!ada);
        QCOMPARE(ben.flags(), 3);
        QCOMPARE(manager.stack()->count(), 1);
        QCOMPARE(manager.stack()->undoText(), QStringLiteral("Flags"));
    }

    void aWriteThatThrowsIsDoneAndRecordedAsAWhole_data()
    {
        QTest::addColumn<bool>("throughSelection");
        QTest::newRow("selection") << true;
        QTest::newRow("object by object") << false;
    }
    void aWriteThatThrowsIsDoneAndRecordedAsAWhole()
    {
        QFETCH(bool, throughSelection);
        Person ada, ben, cem;
        ben.setHeight(2);
        ZelArrayController controller;
        controller.setSelectedObjects({&ada, &ben, &cem});
        ZelUndoManager manager;
        const auto thrower = connect(&ben, &Person::heightChanged, this, [] { throw std::runtime_error("observer"); });
        const ZelRecordedWrite write(&manager);
        const auto change = [&] {
            if (throughSelection)
                write.setValueForKeyPath(&controller, 5, "selection.height");
            else
                write.mapValues({&ada, &ben, &cem}, "height", [](const QVariant &) { return 5; });
        };
        QVERIFY_EXCEPTION_THROWN(change(), std::runtime_error);
        QCOMPARE(ada.height() + ben.height() + cem.height(), 15.0);
        {
            const Reports reports;
            manager.undo(); // throws there, too
            QCOMPARE(reports.messages, QStringList{"observer"});
            QCOMPARE(ada.height() + ben.height() + cem.height(), 2.0);
        }
        disconnect(thrower);
        manager.redo();
        QCOMPARE(ada.height() + ben.height() + cem.height(), 15.0);
        manager.undo();
        QCOMPARE(ben.height(), 2.0);
    }

    void aSetterMayChangeTheNextObject()
    {
        Person ada, ben;
        ben.setFlags(1);
        connect(&ada, &Person::flagsChanged, &ben, [&] { ben.setFlags(ada.flags() == 4 ? 2 : 1); });
        ZelUndoManager manager;
        ZelRecordedWrite(&manager).mapValues({&ada, &ben}, "flags",
                                             [](const QVariant &old) { return old.toInt() | 4; });
        QCOMPARE(ben.flags(), 2 | 4);
        manager.undo();
        QCOMPARE(ada.flags(), 0);
        QCOMPARE(ben.flags(), 1);
        manager.redo();
        QCOMPARE(ben.flags(), 2 | 4);
    }

    void undoingGivesOneNoticeAsTheWriteDid()
    {
        Person ada, ben, cem;
        ZelArrayController controller;
        controller.setSelectedObjects({&ada, &ben, &cem});
        Recorder recorder;
        ZelAddObserver(controller.selection(), &recorder, "height", 0, this);
        ZelUndoManager manager;
        ZelRecordedWrite(&manager).setValueForKeyPath(&controller, 5, "selection.height");
        QCOMPARE(recorder.count(), 1);
        manager.undo();
        QCOMPARE(recorder.count(), 2);
        manager.redo();
        QCOMPARE(recorder.count(), 3);
        ZelRemoveObserver(controller.selection(), &recorder, "height", this);
    }

    void anEditIsNamedAfterItWasRecorded()
    {
        Person ada;
        ZelUndoManager manager;
        manager.setActionName(QStringLiteral("Given")); // by the application, for what it does next
        manager.registerUndo([] {}, [] {});
        QCOMPARE(manager.stack()->undoText(), QStringLiteral("Given"));
        ZelRecordedWrite(&manager).setValueForKeyPath(&ada, 3, "height");
        QString text;
        connect(manager.stack(), &QUndoStack::undoTextChanged, this, [&text](const QString &now) { text = now; });
        manager.nameEdit(QStringLiteral("Height"));
        QCOMPARE(manager.stack()->undoText(), QStringLiteral("Height"));
        QCOMPARE(text, QStringLiteral("Height"));
        manager.nameEdit(QStringLiteral("Nothing")); // there was no further edit
        QCOMPARE(manager.stack()->undoText(), QStringLiteral("Height"));
        manager.registerUndo([] {}, [] {});
        QCOMPARE(manager.stack()->undoText(), QString());
    }

    void whatAStepThrowsIsReportedAndTheRestIsDone()
    {
        Person ada;
        QUndoStack stack;
        ZelUndoManager manager(&stack, nullptr);
        int redone = 0;
        {
            const ZelUndoGrouping grouping(&manager);
            ZelRecordedWrite(&manager).setValueForKeyPath(&ada, 3, "height");
            manager.registerUndo([] { throw std::runtime_error("undo"); },
                                 [&] {
                                     if (++redone == 1)
                                         throw std::runtime_error("redo");
                                 });
        }
        const Reports reports;
        stack.undo();
        QCOMPARE(ada.height(), 0.0);
        stack.redo();
        QCOMPARE(ada.height(), 3.0);
        stack.undo();
        stack.redo();
        QCOMPARE(redone, 2);
        QCOMPARE(reports.messages, (QStringList{"undo", "redo", "undo"}));
    }

    void whatIsWrittenDuringAStepBelongsToIt_data()
    {
        QTest::addColumn<QString>("manager");
        QTest::newRow("of the manager") << "own";
        QTest::newRow("by another manager of the stack") << "other";
        QTest::newRow("while the manager ends") << "ends";
    }
    void whatIsWrittenDuringAStepBelongsToIt()
    {
        QFETCH(QString, manager);
        Person ada, ben;
        QUndoStack stack;
        auto own = std::make_unique<ZelUndoManager>(&stack, nullptr);
        ZelUndoManager other(&stack, nullptr);
        const auto react = [&] {
            if (manager == "ends")
                own.reset();
            ZelUndoManager *by = manager == "own" ? own.get() : &other;
            ZelRecordedWrite(by).setValueForKeyPath(&ben, ben.height() + 1, "height");
        };
        own->registerUndo(react, react);
        ZelRecordedWrite(own.get()).setValueForKeyPath(&ada, 1, "height");
        stack.undo();
        QCOMPARE(ben.height(), 0.0);
        stack.undo();
        QCOMPARE(ben.height(), 1.0);
        stack.redo(); // takes the reaction back, and reacts again
        QCOMPARE(ben.height(), 1.0);
        QCOMPARE(stack.count(), 2);
        stack.redo();
        QCOMPARE(ada.height(), 1.0);
        stack.setIndex(0);
        QCOMPARE(ada.height(), 0.0);
    }

    /// A stack does not survive a push while it redoes a command.
    void aPassiveEditDuringAnotherCommandIsPushedAfterwards()
    {
        class Foreign : public QUndoCommand
        {
        public:
            explicit Foreign(const std::function<void()> &work)
                : m_work(work)
            {
            }
            void undo() override {}
            void redo() override { m_work(); }

        private:
            std::function<void()> m_work;
        };
        Person ada;
        QUndoStack stack;
        ZelUndoManager manager(&stack, nullptr);
        bool edits = false;
        stack.push(new Foreign([&] {
            const ZelPassiveEdits passive; // as when it changes the selection while something is being typed
            if (edits)
                ZelRecordedWrite(&manager).setValueForKeyPath(&ada, 3, "height");
        }));
        stack.undo();
        edits = true;
        stack.redo();
        QCOMPARE(stack.count(), 2);
        QCOMPARE(stack.index(), 2);
        stack.undo();
        QCOMPARE(ada.height(), 0.0);
    }

    /// What is being typed when a stack does a step again becomes part of it: the steps behind go back to that.
    void laterStepsFollowWhatWasTypedBeforeARedo()
    {
        class Typing : public ZelNotificationObserver
        {
        public:
            std::function<void()> commit;
            void observeNotification(const ZelNotification &) override
            {
                if (const auto work = std::exchange(commit, nullptr))
                    work();
            }
        };
        Person ada;
        QUndoStack stack;
        ZelUndoManager manager(&stack, nullptr);
        const ZelRecordedWrite write(&manager);
        write.setValueForKeyPath(&ada, QStringLiteral("Ada"), "name");
        write.setValueForKeyPath(&ada, 3, "height");
        stack.setIndex(0);
        Typing typing;
        typing.commit = [&] { write.setValueForKeyPath(&ada, 7, "height"); };
        ZelNotificationCenter::defaultCenter()->addObserver(&typing, ZelUndoStepWillBeginNotification, &stack);
        stack.redo();
        ZelNotificationCenter::defaultCenter()->removeObserver(&typing);
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(ada.height(), 7.0);
            stack.redo();
            QCOMPARE(ada.height(), 3.0);
            stack.undo();
        }
        stack.undo();
        QCOMPARE(ada.height(), 0.0);
    }

    void whatAStepsObserversThrowDoesNotLeaveAGrouping()
    {
        Person ada;
        ZelUndoManager manager;
        const auto thrower =
            connect(manager.stack(), &QUndoStack::indexChanged, this, [] { throw std::runtime_error("index"); });
        const Reports reports;
        {
            const ZelUndoGrouping grouping(&manager);
            ZelRecordedWrite(&manager).setValueForKeyPath(&ada, 3, "height");
        }
        manager.undo();
        disconnect(thrower);
        QCOMPARE(reports.messages, QStringList({"index", "index"}));
        QCOMPARE(manager.stack()->count(), 1);
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
