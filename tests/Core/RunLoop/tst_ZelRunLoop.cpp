// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelRunLoop.h"

#include "Support/Random.h"
#include "Support/Reports.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

struct Task : ZelRunLoopTask
{
    explicit Task(const std::function<void()> &work)
        : work(work)
    {
    }
    void perform() override { work(); }
    std::function<void()> work;
};

ZelRunLoop *loop()
{
    return ZelRunLoop::current();
}

void turn()
{
    QCoreApplication::processEvents();
}

} // namespace

class tst_ZelRunLoop : public QObject
{
    Q_OBJECT
    QString m_log;
    std::function<void()> note(const QString &text)
    {
        return [this, text] { m_log += text; };
    }

private Q_SLOTS:
    void init() { m_log.clear(); }

    /// Against a list of what was asked for: what may run does, by order and then by the time of its request. What is
    /// asked for meanwhile runs in the next turn.
    void workRunsByOrderAndMode()
    {
        struct Request
        {
            quint32 order;
            QString mode;
            int number;
        };
        const QStringList modes{"",
                                ZelDefaultRunLoopMode,
                                ZelEventTrackingRunLoopMode,
                                ZelModalPanelRunLoopMode,
                                ZelRunLoopCommonModes,
                                "Custom"};
        Random random(5);
        std::vector<std::unique_ptr<ZelRunLoopModeScope>> scopes;
        std::vector<Request> pending;
        QStringList present{ZelDefaultRunLoopMode};
        QList<int> done, expected;
        int last = 0;
        const std::function<void(bool)> ask = [&](bool asksAgain) {
            const Request request{random.below(3), modes.at(random.below(quint32(modes.size()))), ++last};
            pending.push_back(request);
            const auto work = [&ask, &done, asksAgain, number = request.number] {
                done.append(number);
                if (asksAgain)
                    ask(false);
            };
            loop()->perform(work, request.order,
                            request.mode.isEmpty() ? QStringList() : QStringList("None") << request.mode);
        };
        for (int step = 0; step < 3000; ++step) {
            const quint32 kind = random.below(8);
            if (kind < 4) {
                ask(random.below(4) == 0);
            } else if (kind == 4 && scopes.size() < 3) {
                present.append(modes.at(1 + random.below(5)));
                scopes.push_back(std::make_unique<ZelRunLoopModeScope>(present.last()));
            } else if (kind == 5 && !scopes.empty()) {
                scopes.pop_back();
                present.removeLast();
            } else if (kind > 5) {
                const bool isCommon = present.last() != "Custom" && present.last() != ZelRunLoopCommonModes;
                const auto mustWait = [&](const Request &r) {
                    return r.mode != present.last() &&
                           !(isCommon && (r.mode.isEmpty() || r.mode == ZelRunLoopCommonModes));
                };
                std::vector<Request> ready = pending;
                std::erase_if(ready, mustWait);
                std::stable_sort(ready.begin(), ready.end(),
                                 [](const Request &a, const Request &b) { return a.order < b.order; });
                std::erase_if(pending, std::not_fn(mustWait));
                for (const Request &request : ready)
                    expected.append(request.number);
                QCoreApplication::sendPostedEvents(loop());
            }
            QCOMPARE(loop()->currentMode(), present.last());
            QCOMPARE(done, expected);
        }
        for (const QString &mode : modes.mid(1) + modes.mid(1)) { // twice, for what is asked for again
            const ZelRunLoopModeScope scope(mode);
            QCoreApplication::sendPostedEvents(loop());
        }
        QCOMPARE(done.size(), last);
    }

    void eventsPostedAlreadyComeBeforeTheWork()
    {
        loop()->perform(note("work"), 0);
        QMetaObject::invokeMethod(this, note("event "), Qt::QueuedConnection);
        QCOMPARE(m_log, QString());
        turn();
        QCOMPARE(m_log, "event work");
    }

    void workThatOpensAnEventLoopOrThrowsDoesNotHoldUpTheRest()
    {
        const Reports reports;
        loop()->perform(
            [this] {
                QEventLoop nested;
                QTimer::singleShot(20, &nested, &QEventLoop::quit);
                loop()->perform(note("b"), 1);
                nested.exec();
                m_log += 'd';
                throw std::runtime_error("work");
            },
            1);
        loop()->perform(note("c"), 2);
        turn();
        QCOMPARE(m_log, "bcd");
        QCOMPARE(reports.messages, QStringList{"work"});
    }

    void timersFireOnceAndInTheirMode()
    {
        const ZelRunLoopTaskPtr task(new Task(note("x")));
        int overdue = 0;
        {
            const ZelRunLoopModeScope tracking(ZelEventTrackingRunLoopMode);
            loop()->addTimer(task, 0.01, {ZelDefaultRunLoopMode});
            overdue = loop()->addTimer(task, 0, {ZelDefaultRunLoopMode});
            QTest::qWait(40);
            QCOMPARE(m_log, QString());
        }
        loop()->invalidateTimer(overdue);
        turn();
        QCOMPARE(m_log, "x");
        QElapsedTimer elapsed;
        elapsed.start();
        const int invalid = loop()->addTimer(task, 0.01), other = loop()->addTimer(task, 0.05);
        QVERIFY(invalid != other && invalid != 0);
        loop()->invalidateTimer(invalid);
        QTRY_COMPARE(m_log, "xx");
        QVERIFY(elapsed.elapsed() >= 45);
        QTest::qWait(80);
        loop()->invalidateTimer(other); // has fired
        QCOMPARE(m_log, "xx");
        QCOMPARE(task->ref.loadRelaxed(), 1);
    }

    void threadsHaveLoopsOfTheirOwn()
    {
        QThread *performedOn = nullptr;
        ZelRunLoop *other = nullptr;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            QEventLoop events;
            other = loop();
            loop()->perform(
                [&] {
                    performedOn = QThread::currentThread();
                    events.quit();
                },
                0);
            events.exec();
        }));
        thread->start();
        QVERIFY(thread->wait(5000));
        QCOMPARE(performedOn, thread.get());
        QVERIFY(other != loop());
    }
};

QTEST_MAIN(tst_ZelRunLoop)
#include "tst_ZelRunLoop.moc"
