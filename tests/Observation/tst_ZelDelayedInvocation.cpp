// SPDX-License-Identifier: MIT
#include "Observation/ZelDelayedInvocation.h"

#include "Core/Errors/ZelException.h"
#include "Core/RunLoop/ZelNotificationCenter.h"

#include <QTest>

class tst_ZelDelayedInvocation : public QObject
{
    Q_OBJECT

    QString m_log;
    static void turn() { QCoreApplication::processEvents(); }
    static void checkpoint()
    {
        ZelNotificationCenter::defaultCenter()->post(ZelDelayedInvocationCheckpointNotification);
    }
    std::function<void()> note(const QString &text)
    {
        return [this, text] { m_log += text; };
    }

public:
    Q_INVOKABLE void run() { m_log += 'r'; }

private Q_SLOTS:
    void init() { m_log.clear(); }

    void manySchedulesAreOneRun()
    {
        ZelDelayedInvocation invocation(note("a"));
        QVERIFY(!invocation.isPending());
        for (int i = 0; i < 3; ++i)
            invocation.schedule();
        QVERIFY(invocation.isPending());
        turn();
        QCOMPARE(m_log, "a");
        QVERIFY(invocation.isFinished() && !invocation.isScheduled());
        invocation.schedule();
        turn();
        QCOMPARE(m_log, "aa");
    }

    void aCheckpointRunsByPriorityAndLeavesNothingForTheTurn()
    {
        ZelDelayedInvocation late(note("c")), early(note("a")), usual(note("b")), idle(note("-")), delayed(note("-"));
        late.setPriority(800000);
        early.setPriority(1);
        delayed.setDelay(30.0);
        for (auto *invocation : {&late, &early, &usual, &delayed})
            invocation->schedule();
        checkpoint();
        QCOMPARE(m_log, "abc");
        QVERIFY(delayed.isPending());
        turn();
        QCOMPARE(m_log, "abc");
    }

    void aCheckpointAlsoRunsWhatItsWorkSchedulesButEachOnce()
    {
        ZelDelayedInvocation second(note("b"));
        ZelDelayedInvocation first([&] {
            m_log += 'a';
            second.schedule();
        });
        second.setPriority(1);
        ZelDelayedInvocation *back = &first;
        ZelDelayedInvocation third([&] {
            m_log += 'c';
            back->schedule();
        });
        first.schedule();
        third.schedule();
        checkpoint();
        QCOMPARE(m_log, "acb");
        QVERIFY(first.isPending()); // for the turn
        turn();
        turn();
        QCOMPARE(m_log, "acbab");
    }

    void workThatSchedulesNewWorkForeverDoesNotHoldTheCheckpoint()
    {
        int runs = 0;
        std::function<void()> again = [&] {
            if (++runs < 1000)
                ZelDelayedInvocation::scheduleDelayedInvocationWithBlock(again);
        };
        again();
        checkpoint();
        QCOMPARE(runs, 2);
        for (int i = 0; runs < 1000 && i < 2000; ++i)
            turn();
        QCOMPARE(runs, 1000);
    }

    void aCheckpointDuringTheWorkDoesNotRunItAgain()
    {
        int runs = 0;
        ZelDelayedInvocation invocation([&] {
            if (++runs < 5)
                checkpoint();
        });
        invocation.schedule();
        checkpoint();
        turn();
        QCOMPARE(runs, 1);
    }

    void aDelayRunsFromATimer()
    {
        ZelDelayedInvocation invocation(note("a"));
        invocation.setDelay(0.02);
        QVERIFY_EXCEPTION_THROWN(invocation.setDelay(qQNaN()), ZelInternalInconsistencyException); // never would be
        invocation.schedule();
        turn();
        QCOMPARE(m_log, "");
        QTRY_COMPARE(m_log, "a");
        invocation.schedule();
        invocation.cancel();
        QTest::qWait(50);
        QCOMPARE(m_log, "a");
    }

    void aCancelledOneMayBeScheduledAgain()
    {
        ZelDelayedInvocation invocation(note("a"));
        invocation.schedule();
        invocation.cancel();
        QVERIFY(invocation.isCancelled() && !invocation.isPending());
        turn();
        QCOMPARE(m_log, "");
        invocation.schedule();
        invocation.cancel();
        invocation.schedule();
        QVERIFY(!invocation.isCancelled());
        turn();
        QCOMPARE(m_log, "a");
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
            turn();
            QCOMPARE(m_log, "a");
        }
        turn();
        QCOMPARE(m_log, "ab");
    }

    void theWorkMayDestroyItsInvocation()
    {
        std::unique_ptr<ZelDelayedInvocation> invocation;
        const QString text(100, 'x');
        invocation = std::make_unique<ZelDelayedInvocation>([this, text, &invocation] {
            invocation.reset();
            m_log += text; // the closure must still be there
        });
        invocation->schedule();
        turn();
        QCOMPARE(m_log, text);
    }

    void destroyedOnesDoNotRun()
    {
        auto invocation = std::make_unique<ZelDelayedInvocation>(note("-"));
        invocation->schedule();
        invocation.reset();
        auto *target = new tst_ZelDelayedInvocation;
        ZelDelayedInvocation toTarget(target, "run:");
        toTarget.schedule();
        turn();
        QCOMPARE(target->m_log, "r");
        toTarget.schedule();
        delete target;
        turn();
        QCOMPARE(m_log, "");
    }

    void workThatThrowsIsFinished()
    {
        int runs = 0;
        ZelDelayedInvocation invocation([&] {
            if (++runs == 1)
                throw ZelGenericException("work");
        });
        invocation.schedule();
        QVERIFY_EXCEPTION_THROWN(invocation.invoke(), ZelGenericException);
        invocation.schedule();
        turn();
        QCOMPARE(runs, 2);
    }
};

QTEST_MAIN(tst_ZelDelayedInvocation)
#include "tst_ZelDelayedInvocation.moc"
