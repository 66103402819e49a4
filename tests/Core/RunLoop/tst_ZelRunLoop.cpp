// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelEventMonitor.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/RunLoop/ZelRunLoop.h"
#include "Core/Watch.h"
#include "Support/Random.h"
#include "Support/Reports.h"
#include <algorithm>

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

/// Logs its name.
struct Listener : ZelNotificationObserver
{
    Listener(const QString &name, QString &log)
        : name(name)
        , log(log)
    {
    }
    void observeNotification(const ZelNotification &notification) override
    {
        log += name;
        last = notification;
        if (react)
            react();
    }
    QString name;
    QString &log;
    ZelNotification last;
    std::function<void()> react;
};

ZelRunLoop *loop()
{
    return ZelRunLoop::current();
}
} // namespace

class tst_ZelRunLoop : public QObject
{
    Q_OBJECT
    QString m_log;
    Listener m_first{"1", m_log}, m_second{"2", m_log};
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
        const QStringList common{ZelDefaultRunLoopMode, ZelEventTrackingRunLoopMode, ZelModalPanelRunLoopMode};
        const QStringList modes = QStringList{""} + common + QStringList{ZelRunLoopCommonModes, "Custom"};
        QStringList present{ZelDefaultRunLoopMode};
        Random random(5);
        std::vector<std::unique_ptr<ZelRunLoopModeScope>> scopes;
        std::vector<Request> pending;
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
                const bool isCommon = common.contains(present.last());
                const auto mayRun = [&](const Request &r) {
                    return r.mode == present.last() ||
                           (isCommon && (r.mode.isEmpty() || r.mode == ZelRunLoopCommonModes));
                };
                const auto waiting = std::stable_partition(pending.begin(), pending.end(), mayRun);
                std::stable_sort(pending.begin(), waiting, [](auto &a, auto &b) { return a.order < b.order; });
                std::for_each(pending.begin(), waiting, [&](auto &request) { expected.append(request.number); });
                pending.erase(pending.begin(), waiting);
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

    void workRunsAfterPostedEventsAndIsNotHeldUp()
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
        QMetaObject::invokeMethod(this, note("a"), Qt::QueuedConnection);
        QCOMPARE(m_log, QString());
        QCoreApplication::processEvents();
        QCOMPARE(m_log, "abcd");
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
        QCoreApplication::processEvents();
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
            other = loop();
            loop()->perform([&] { performedOn = QThread::currentThread(); }, 0);
            QCoreApplication::sendPostedEvents(other);
        }));
        thread->start();
        QVERIFY(thread->wait(5000));
        QCOMPARE(performedOn, thread.get());
        QVERIFY(other != loop());
    }

    /// Against a list of all registrations in their order. One that is made again is heard twice.
    void everybodyHearsWhatTheyAskedFor()
    {
        struct Registration
        {
            Listener *listener;
            QString name;
            QObject *sender;
            bool operator==(const Registration &) const = default;
        };
        Random random(3);
        ZelNotificationCenter center;
        QObject senders[2];
        const QString names[]{"N", "M", ""};
        std::vector<Registration> list;
        for (int step = 0; step < 3000; ++step) {
            const quint32 place = random.below(3), kind = random.below(20);
            const Registration one{random.below(2) ? &m_first : &m_second, names[random.below(3)],
                                   place < 2 ? &senders[place] : nullptr};
            if (kind < 5) {
                center.addObserver(one.listener, one.name, one.sender);
                list.push_back(one);
            } else if (kind < 9) {
                center.removeObserver(one.listener, one.name, one.sender);
                if (const auto found = std::find(list.begin(), list.end(), one); found != list.end())
                    list.erase(found);
            } else if (kind == 9) {
                center.removeObserver(one.listener);
                std::erase_if(list, [&](const Registration &r) { return r.listener == one.listener; });
            } else if (!one.name.isEmpty()) {
                QString expected;
                for (const Registration &r : list)
                    if ((r.name.isEmpty() || r.name == one.name) && (!r.sender || r.sender == one.sender))
                        expected += r.listener->name;
                m_log.clear();
                center.post(one.name, one.sender, {{"key", step}});
                QCOMPARE(m_log, expected);
                for (const Listener *listener : {&m_first, &m_second}) {
                    const ZelNotification &last = listener->last;
                    QVERIFY(!m_log.contains(listener->name) ||
                            (last.name == one.name && last.object == one.sender && last.userInfo.value("key") == step));
                }
            }
        }
    }

    void observersComeGoAndThrowDuringDelivery()
    {
        ZelNotificationCenter center;
        auto removed = std::make_unique<Listener>("3", m_log);
        Listener first("1", m_log);
        first.react = [&] {
            if (removed) {
                center.addObserver(&m_second, "N");
                center.removeObserver(removed.get(), "N", nullptr);
                removed.reset();
            }
            throw std::runtime_error("refused");
        };
        center.addObserver(&first, "N");
        center.addObserver(removed.get(), "N");
        QVERIFY_EXCEPTION_THROWN(center.post("N"), std::runtime_error);
        QCOMPARE(m_log, "1");
        QVERIFY_EXCEPTION_THROWN(center.post("N"), std::runtime_error);
        QCOMPARE(m_log, "112");
    }

    void aSenderThatDiesIsNotMistakenForItsSuccessor()
    {
        ZelNotificationCenter center;
        Listener any("2", m_log);
        Place<QObject> sender;
        center.addObserver(&any, "N");
        center.addObserver(&m_first, "N", sender.make());
        any.react = [&] { sender.end(); };
        center.post("N", sender.object);
        QCOMPARE(m_log, "2");
        QVERIFY(!any.last.object);
        any.react = nullptr;
        center.post("N", sender.make());
        QCOMPARE(m_log, "22");
        center.removeObserver(&m_first, "N", sender.object);
    }

    void eventsHaveTheirBits()
    {
        const auto mouse = [](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons = {}) {
            const QMouseEvent event(type, QPointF(), QPointF(), button, buttons, Qt::NoModifier);
            return ZelEventMaskOf(&event);
        };
        const auto key = [](QEvent::Type type, int key) {
            const QKeyEvent event(type, key, Qt::NoModifier);
            return ZelEventMaskOf(&event);
        };
        const struct
        {
            Qt::MouseButton button;
            quint32 down, up, dragged;
        } rows[]{{Qt::LeftButton, 1u << 1, 1u << 2, 0},
                 {Qt::RightButton, 1u << 3, 1u << 4, 0},
                 {Qt::BackButton, 1u << 25, 1u << 26, 1u << 27}};
        for (const auto &[button, down, up, dragged] : rows) {
            QCOMPARE(mouse(QEvent::MouseButtonPress, button), down);
            QCOMPARE(mouse(QEvent::MouseButtonDblClick, button), down);
            QCOMPARE(mouse(QEvent::MouseButtonRelease, button), up);
            QCOMPARE(mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | button), dragged);
        }
        for (const int k : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Meta, Qt::Key_CapsLock})
            QVERIFY(key(QEvent::KeyPress, k) == 1u << 12 && key(QEvent::KeyRelease, k) == 1u << 12);
        QCOMPARE(key(QEvent::KeyPress, Qt::Key_A), 1u << 10);
        QCOMPARE(key(QEvent::KeyRelease, Qt::Key_A), 1u << 11);
        QCOMPARE(key(QEvent::ShortcutOverride, Qt::Key_A), 0u);
        for (const auto type : {Qt::EndNativeGesture, Qt::BeginNativeGesture}) {
            const QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 0, {}, {}, {}, 0, {});
            QCOMPARE(ZelEventMaskOf(&event), type == Qt::EndNativeGesture ? quint32(ZelEventMaskEndGesture) : 0u);
        }
    }

    /// Whether it comes through the window system or straight to the widget.
    void eachInputIsReportedOnceAndGoesItsWay()
    {
        QWidget window, outer(&window), inner(&outer); // none of them accepts the mouse, so that it is passed upwards
        QLineEdit edit(&window);
        for (QWidget *widget : {&outer, &inner})
            widget->setGeometry(0, 0, 100, 50);
        edit.setGeometry(0, 60, 100, 30);
        window.resize(100, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (const bool throughWindow : {true, false}) {
            edit.setFocus();
            edit.clear();
            QString seen;
            int downs = 0;
            const ZelEventMonitor monitor(~0u, [&seen](const QEvent *event) {
                seen += QHash<int, char>{
                    {QEvent::MouseButtonPress, 'p'},
                    {QEvent::MouseButtonRelease, 'r'},
                    {QEvent::KeyPress, 'P'},
                    {QEvent::KeyRelease,
                     'R'}}.value(event->type(), '2');
            });
            const ZelEventMonitor some(ZelEventMaskLeftMouseDown, [&downs](QEvent *) { ++downs; });
            for (int i = 0; i < 2; ++i) { // a double click is two presses
                if (throughWindow)
                    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {10, 10});
                else
                    QTest::mouseClick(&inner, Qt::LeftButton, {}, {10, 10});
            }
            QVERIFY2(seen.startsWith("pr") && downs == 2, qPrintable(seen));
            seen.clear();
            for (int i = 0; i < 2; ++i) {
                if (throughWindow)
                    QTest::keyClick(window.windowHandle(), 'a');
                else
                    QTest::keyClick(&edit, 'a');
            }
            QCOMPARE(edit.text(), "aa");
            // The same key again, unhandled, passes to the ancestors.
            QTest::keyClick(&inner, Qt::Key_F5);
            QTest::keyClick(&inner, Qt::Key_F5);
            QCOMPARE(seen, "PRPRPRPR");
        }
    }

    void monitorsComeAndGoWhileTheyReport()
    {
        QWidget widget;
        std::unique_ptr<ZelEventMonitor> first, second, third;
        const auto monitor = [this](
                                 const QString &name, const std::function<void()> &react = [] {}) {
            return std::make_unique<ZelEventMonitor>(~0u, [=, this](QEvent *) {
                m_log += name;
                react();
            });
        };
        first = monitor("1", [&] {
            third = monitor("3");
            second.reset();
            first.reset();
        });
        second = monitor("2");
        QTest::mousePress(&widget, Qt::LeftButton);
        QCOMPARE(m_log, "1");
        QTest::mouseRelease(&widget, Qt::LeftButton);
        QCOMPARE(m_log, "13");
    }
};
QTEST_MAIN(tst_ZelRunLoop)
#include "tst_ZelRunLoop.moc"
