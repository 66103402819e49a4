// SPDX-License-Identifier: MIT
#include "Observation/ZelDelayedInvocation.h"

#include "Core/Errors/ZelException.h"
#include "Core/RunLoop/ZelNotificationCenter.h"

#include <QTest>

class tst_ZelDelayedInvocation : public QObject
{
    Q_OBJECT

    QString m_log;
    std::function<void()> note(const QString &text)
    {
        return [this, text] { m_log += text; };
    }
    static void checkpoint()
    {
        ZelNotificationCenter::defaultCenter()->post(ZelDelayedInvocationCheckpointNotification);
    }
    // What ran in a turn of the event loop, or in a checkpoint.
    QString inTurn()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_log, {});
    }
    QString inCheckpoint()
    {
        checkpoint();
        return std::exchange(m_log, {});
    }

public:
    Q_INVOKABLE void run() { m_log += 'r'; }

private Q_SLOTS:
    void manySchedulesAreOneRunAndMayBeCancelled()
    {
        ZelDelayedInvocation invocation(note("a"));
        QVERIFY(!invocation.isPending());
        for (int i = 0; i < 3; ++i)
            invocation.schedule();
        QVERIFY(invocation.isPending());
        QCOMPARE(inTurn(), "a");
        QVERIFY(invocation.isFinished() && !invocation.isScheduled());
        invocation.schedule();
        invocation.cancel();
        QVERIFY(invocation.isCancelled() && !invocation.isPending());
        QCOMPARE(inTurn(), "");
        invocation.schedule();
        invocation.cancel();
        invocation.schedule();
        QVERIFY(!invocation.isCancelled());
        QCOMPARE(inTurn(), "a");
        invocation.invoke(); // is not pending
        QCOMPARE(m_log, "");
    }

    void aCheckpointRunsByPriorityAndLeavesNothingForTheTurn()
    {
        ZelDelayedInvocation late(note("c")), early(note("a")), usual(note("b")), idle(note("-")), delayed(note("-"));
        late.setPriority(800000);
        early.setPriority(1);
        delayed.setDelay(30.0);
        for (auto *invocation : {&late, &early, &usual, &delayed})
            invocation->schedule();
        QCOMPARE(inCheckpoint(), "abc");
        QVERIFY(delayed.isPending());
        QCOMPARE(inTurn(), "");
    }

    void aCheckpointAlsoRunsWhatItsWorkSchedulesButEachOnce()
    {
        ZelDelayedInvocation second(note("b"));
        ZelDelayedInvocation first([&] {
            m_log += 'a';
            second.schedule();
        });
        second.setPriority(1);
        ZelDelayedInvocation third([&, back = &first] {
            m_log += 'c';
            back->schedule();
        });
        first.schedule();
        third.schedule();
        QCOMPARE(inCheckpoint(), "acb");
        QVERIFY(first.isPending()); // for the turn
        QCoreApplication::processEvents();
        QCOMPARE(inTurn(), "ab");
        // Work that schedules new work forever does not hold the checkpoint.
        int runs = 0;
        std::function<void()> again = [&] {
            if (++runs < 1000)
                ZelDelayedInvocation::scheduleDelayedInvocationWithBlock(again);
        };
        again();
        checkpoint();
        QCOMPARE(runs, 2);
        for (int i = 0; runs < 1000 && i < 2000; ++i)
            inTurn();
        QCOMPARE(runs, 1000);
        // A checkpoint during the work does not run it again.
        ZelDelayedInvocation nested([&] {
            if (++runs < 1005)
                checkpoint();
        });
        nested.schedule();
        checkpoint();
        inTurn();
        QCOMPARE(runs, 1001);
    }

    void aDelayRunsFromATimer()
    {
        ZelDelayedInvocation invocation(note("a"));
        invocation.setDelay(0.02);
        QVERIFY_EXCEPTION_THROWN(invocation.setDelay(qQNaN()), ZelInternalInconsistencyException); // never would be
        invocation.schedule();
        QCOMPARE(inTurn(), "");
        QTRY_COMPARE(m_log, "a");
        invocation.schedule();
        invocation.cancel();
        QTest::qWait(50);
        QCOMPARE(inTurn(), "a");
    }

    void modesLimitTheRun()
    {
        ZelDelayedInvocation anyCommon(note("a")), onlyDefault(note("b")), none(note("-"));
        onlyDefault.setRunLoopModes(QStringList{ZelDefaultRunLoopMode});
        none.setRunLoopModes(QStringList());
        QVERIFY_EXCEPTION_THROWN(none.schedule(), ZelInternalInconsistencyException);
        QVERIFY(!none.isPending());
        {
            const ZelRunLoopModeScope tracking(ZelEventTrackingRunLoopMode);
            anyCommon.schedule();
            onlyDefault.schedule();
            QCOMPARE(inTurn(), "a");
        }
        QCOMPARE(inTurn(), "b");
    }

    void endsWithItsTargetItsWorkOrItself()
    {
        std::unique_ptr<ZelDelayedInvocation> invocation;
        const QString text(100, 'x');
        invocation = std::make_unique<ZelDelayedInvocation>([this, text, &invocation] {
            invocation.reset();
            m_log += text; // the closure must still be there
        });
        invocation->schedule();
        QCOMPARE(inTurn(), text);
        invocation = std::make_unique<ZelDelayedInvocation>(note("-"));
        invocation->schedule();
        invocation.reset();
        auto *target = new tst_ZelDelayedInvocation;
        ZelDelayedInvocation toTarget(target, "run:");
        toTarget.schedule();
        QCOMPARE(inTurn(), "");
        QCOMPARE(target->m_log, "r");
        toTarget.schedule();
        delete target;
        QCOMPARE(inTurn(), "");
        int runs = 0; // work that throws is finished
        ZelDelayedInvocation throwing([&] {
            if (++runs == 1)
                throw ZelGenericException("work");
        });
        throwing.schedule();
        QVERIFY_EXCEPTION_THROWN(throwing.invoke(), ZelGenericException);
        throwing.schedule();
        inTurn();
        QCOMPARE(runs, 2);
    }
};

QTEST_MAIN(tst_ZelDelayedInvocation)
#include "tst_ZelDelayedInvocation.moc"
