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
    /// What ran since it was last asked, and in a turn of the event loop.
    QString inTurn()
    {
        QCoreApplication::processEvents();
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
        invocation.invoke(); // is not pending
        QCOMPARE(inTurn(), "");
        invocation.schedule();
        QVERIFY(!invocation.isCancelled());
        QCOMPARE(inTurn(), "a");
    }

    void aCheckpointRunsByPriorityWithWhatTheWorkSchedules()
    {
        ZelDelayedInvocation early(note("c")), usual(note("b")), delayed(note("-"));
        ZelDelayedInvocation second([&, back = &early] {
            m_log += '2';
            back->schedule(); // has run
        });
        ZelDelayedInvocation first([&] {
            m_log += '1';
            second.schedule();
        });
        early.setPriority(2);
        first.setPriority(1);
        second.setPriority(800000);
        delayed.setDelay(30.0);
        for (auto *invocation : {&usual, &early, &first, &delayed})
            invocation->schedule();
        checkpoint();
        QCOMPARE(m_log, "1cb2");
        QVERIFY(delayed.isPending() && early.isPending() && !usual.isPending());
        QCOMPARE(inTurn(), "1cb2c");
        // Work that schedules new work forever does not hold the checkpoint.
        int runs = 0;
        std::function<void()> again = [&] {
            if (++runs < 20)
                ZelDelayedInvocation::scheduleDelayedInvocationWithBlock(again);
        };
        again();
        checkpoint();
        QCOMPARE(runs, 2);
        for (int i = 0; runs < 20 && i < 50; ++i)
            inTurn();
        QCOMPARE(runs, 20);
        // A checkpoint during the work does not run it again.
        ZelDelayedInvocation nested([&] {
            if (++runs < 25)
                checkpoint();
        });
        nested.schedule();
        checkpoint();
        inTurn();
        QCOMPARE(runs, 21);
    }

    void delaysAndModesLimitTheRun()
    {
        ZelDelayedInvocation invocation(note("a")), onlyDefault(note("b")), none(note("-"));
        onlyDefault.setRunLoopModes(QStringList{ZelDefaultRunLoopMode});
        none.setRunLoopModes(QStringList());
        QVERIFY_EXCEPTION_THROWN(none.schedule(), ZelInternalInconsistencyException);
        QVERIFY(!none.isPending());
        {
            const ZelRunLoopModeScope tracking(ZelEventTrackingRunLoopMode);
            invocation.schedule();
            onlyDefault.schedule();
            QCOMPARE(inTurn(), "a");
        }
        QCOMPARE(inTurn(), "b");
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
        ZelDelayedInvocation throwing([&] {
            m_log += 'f';
            if (m_log.size() == 1)
                throw ZelGenericException("work");
        });
        throwing.schedule();
        QVERIFY_EXCEPTION_THROWN(throwing.invoke(), ZelGenericException);
        throwing.schedule(); // it was finished
        QCOMPARE(inTurn(), "ff");
    }
};

QTEST_MAIN(tst_ZelDelayedInvocation)
#include "tst_ZelDelayedInvocation.moc"
