// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelRunLoop.h"

#include "Support/Reports.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <stdexcept>

namespace {

class Task : public ZelRunLoopTask
{
public:
    explicit Task(QString &log)
        : m_log(log)
    {
    }
    void perform() override { m_log += u'x'; }

private:
    QString &m_log;
};

} // namespace

class tst_ZelRunLoop : public QObject
{
    Q_OBJECT

    QString m_log;
    std::function<void()> note(const QString &text)
    {
        return [this, text] { m_log += text; };
    }
    static ZelRunLoop *loop() { return ZelRunLoop::current(); }
    static void turn() { QCoreApplication::processEvents(); }

private Q_SLOTS:
    void init() { m_log.clear(); }

    void lowerOrdersComeFirstAndEqualOnesInTheirTurn()
    {
        loop()->perform(note("d"), 20);
        loop()->perform(note("a"), 10);
        loop()->perform(note("b"), 10);
        loop()->perform(note("e"), 20);
        loop()->perform(note("c"), 10);
        QCOMPARE(m_log, QString());
        turn();
        QCOMPARE(m_log, "abcde");
    }

    void eventsPostedAlreadyComeBeforeTheWork()
    {
        loop()->perform(note("work"), 0);
        QMetaObject::invokeMethod(this, note("event "), Qt::QueuedConnection);
        turn();
        QCOMPARE(m_log, "event work");
    }

    void whatWorkRequestsRunsInTheNextTurn()
    {
        loop()->perform(
            [this] {
                loop()->perform(note("c"), 0);
                m_log += 'a';
            },
            1);
        loop()->perform(note("b"), 2);
        QCoreApplication::sendPostedEvents(loop());
        QCOMPARE(m_log, "ab");
        turn();
        QCOMPARE(m_log, "abc");
    }

    void workThatOpensAnEventLoopDoesNotHoldUpTheRest()
    {
        loop()->perform(
            [this] {
                QEventLoop nested;
                QTimer::singleShot(20, &nested, &QEventLoop::quit);
                loop()->perform(note("b"), 1);
                nested.exec();
                m_log += 'd';
            },
            1);
        loop()->perform(note("c"), 2);
        turn();
        QCOMPARE(m_log, "bcd");
    }

    void workThatThrowsLeavesTheOthersRunning()
    {
        const Reports reports;
        loop()->perform([] { throw std::runtime_error("work"); }, 1);
        loop()->perform(note("a"), 2);
        QCoreApplication::sendPostedEvents(loop());
        QCOMPARE(m_log, "a");
        QCOMPARE(reports.messages, QStringList{"work"});
    }

    void workWaitsForItsMode()
    {
        loop()->perform(note("d"), 1, {ZelDefaultRunLoopMode});
        loop()->perform(note("a"), 2, {ZelRunLoopCommonModes});
        loop()->perform(note("b"), 3, {ZelEventTrackingRunLoopMode});
        loop()->perform(note("e"), 4, {"Custom"});
        {
            const ZelRunLoopModeScope tracking(ZelEventTrackingRunLoopMode);
            turn();
            QCOMPARE(m_log, "ab");
            const ZelRunLoopModeScope modal(ZelModalPanelRunLoopMode);
            loop()->perform(note("c"), 3);
            turn();
            QCOMPARE(m_log, "abc");
        }
        QCOMPARE(loop()->currentMode(), ZelDefaultRunLoopMode);
        turn();
        QCOMPARE(m_log, "abcd");
        const ZelRunLoopModeScope custom("Custom");
        turn();
        QCOMPARE(m_log, "abcde");
    }

    void timersFireOnceAndInTheirMode()
    {
        const ZelRunLoopTaskPtr task(new Task(m_log));
        {
            const ZelRunLoopModeScope tracking(ZelEventTrackingRunLoopMode);
            loop()->addTimer(task, 0.01, {ZelDefaultRunLoopMode});
            QTest::qWait(40);
            QCOMPARE(m_log, QString());
        }
        turn();
        QCOMPARE(m_log, "x");
        QElapsedTimer elapsed;
        elapsed.start();
        loop()->addTimer(task, 0.05);
        QTRY_COMPARE(m_log, "xx");
        QVERIFY(elapsed.elapsed() >= 45);
        QTest::qWait(80);
        QCOMPARE(m_log, "xx");
    }

    void invalidatedTimersStaySilent()
    {
        const ZelRunLoopTaskPtr task(new Task(m_log));
        const int first = loop()->addTimer(task, 0.01, {ZelDefaultRunLoopMode});
        loop()->invalidateTimer(first);
        int second = 0;
        {
            const ZelRunLoopModeScope tracking(ZelEventTrackingRunLoopMode);
            second = loop()->addTimer(task, 0.0, {ZelDefaultRunLoopMode});
            QTest::qWait(20);
        }
        loop()->invalidateTimer(second); // overdue
        QTest::qWait(20);
        QCOMPARE(m_log, QString());
        QCOMPARE(task->ref.loadRelaxed(), 1);
    }

    void threadsHaveLoopsOfTheirOwn()
    {
        QThread *performedOn = nullptr;
        ZelRunLoop *other = nullptr;
        QThread *thread = QThread::create([&] {
            QEventLoop events;
            other = ZelRunLoop::current();
            ZelRunLoop::current()->perform(
                [&] {
                    performedOn = QThread::currentThread();
                    events.quit();
                },
                0);
            events.exec();
        });
        thread->start();
        QVERIFY(thread->wait(5000));
        QCOMPARE(performedOn, thread);
        QVERIFY(other != loop());
        delete thread;
    }
};

QTEST_MAIN(tst_ZelRunLoop)
#include "tst_ZelRunLoop.moc"
