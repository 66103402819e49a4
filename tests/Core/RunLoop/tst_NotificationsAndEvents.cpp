// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelEventMonitor.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Watch.h"
#include "Support/Random.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QTest>
#include <algorithm>
#include <functional>

namespace {

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

} // namespace

class tst_NotificationsAndEvents : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Against a list of all registrations in their order. One that is made again is heard twice.
    void everybodyHearsWhatTheyAskedFor()
    {
        struct Registration
        {
            int listener;
            QString name;
            const QObject *sender;
            bool operator==(const Registration &) const = default;
        };
        Random random(3);
        ZelNotificationCenter center;
        QObject senders[2];
        QString log;
        Listener listeners[]{{"0", log}, {"1", log}, {"2", log}};
        std::vector<Registration> list;
        const QString names[]{"N", "M", ""};
        for (int step = 0; step < 3000; ++step) {
            const quint32 place = random.below(3);
            const Registration one{int(random.below(3)), names[random.below(3)], place < 2 ? &senders[place] : nullptr};
            Listener &listener = listeners[one.listener];
            const quint32 kind = random.below(20);
            if (kind < 5) {
                center.addObserver(&listener, one.name, one.sender);
                list.push_back(one);
            } else if (kind < 9) {
                center.removeObserver(&listener, one.name, one.sender);
                if (const auto found = std::find(list.begin(), list.end(), one); found != list.end())
                    list.erase(found);
            } else if (kind == 9) {
                center.removeObserver(&listener);
                std::erase_if(list, [&](const Registration &r) { return r.listener == one.listener; });
            } else if (!one.name.isEmpty()) {
                QString expected;
                for (const Registration &r : list)
                    if ((r.name.isEmpty() || r.name == one.name) && (!r.sender || r.sender == one.sender))
                        expected += listeners[r.listener].name;
                log.clear();
                center.post(one.name, const_cast<QObject *>(one.sender), {{"key", step}});
                QCOMPARE(log, expected);
                for (const QChar heard : std::as_const(log)) {
                    const ZelNotification &last = listeners[heard.digitValue()].last;
                    QVERIFY(last.name == one.name && last.object == one.sender && last.userInfo.value("key") == step);
                }
            }
        }
    }

    void observersComeGoAndThrowDuringDelivery()
    {
        ZelNotificationCenter center;
        QString log;
        Listener first("1", log), added("2", log);
        auto removed = std::make_unique<Listener>("3", log);
        first.react = [&] {
            if (removed) {
                center.addObserver(&added, "N");
                center.removeObserver(removed.get(), "N", nullptr);
                removed.reset();
            }
            throw std::runtime_error("refused");
        };
        center.addObserver(&first, "N");
        center.addObserver(removed.get(), "N");
        QVERIFY_EXCEPTION_THROWN(center.post("N"), std::runtime_error);
        QCOMPARE(log, "1");
        QVERIFY_EXCEPTION_THROWN(center.post("N"), std::runtime_error);
        QCOMPARE(log, "112");
    }

    void aSenderThatDiesIsNotMistakenForItsSuccessor()
    {
        ZelNotificationCenter center;
        QString log;
        Listener one("1", log), any("2", log);
        Place<QObject> sender;
        center.addObserver(&any, "N");
        center.addObserver(&one, "N", sender.make());
        any.react = [&] { sender.end(); };
        center.post("N", sender.object);
        QCOMPARE(log, "2");
        QVERIFY(!any.last.object);
        any.react = nullptr;
        center.post("N", sender.make());
        QCOMPARE(log, "22");
        center.removeObserver(&one, "N", sender.object);
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
        const auto gesture = [](Qt::NativeGestureType type) {
            const QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 0, {}, {}, {}, 0, {});
            return ZelEventMaskOf(&event);
        };
        const Qt::MouseButton buttons[]{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton};
        const quint32 downs[]{1u << 1, 1u << 3, 1u << 25, 1u << 25}, ups[]{1u << 2, 1u << 4, 1u << 26, 1u << 26},
            drags[]{0, 0, 1u << 27, 1u << 27};
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(mouse(QEvent::MouseButtonPress, buttons[i]), downs[i]);
            QCOMPARE(mouse(QEvent::MouseButtonDblClick, buttons[i]), downs[i]);
            QCOMPARE(mouse(QEvent::MouseButtonRelease, buttons[i]), ups[i]);
            QCOMPARE(mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | buttons[i]), drags[i]);
        }
        for (const int modifier :
             {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Meta, Qt::Key_CapsLock})
            QVERIFY(key(QEvent::KeyPress, modifier) == 1u << 12 && key(QEvent::KeyRelease, modifier) == 1u << 12);
        QCOMPARE(key(QEvent::KeyPress, Qt::Key_A), 1u << 10);
        QCOMPARE(key(QEvent::KeyRelease, Qt::Key_A), 1u << 11);
        QCOMPARE(key(QEvent::ShortcutOverride, Qt::Key_A), 0u);
        QCOMPARE(gesture(Qt::EndNativeGesture), quint32(ZelEventMaskEndGesture));
        QCOMPARE(gesture(Qt::BeginNativeGesture), 0u);
    }

    /// Whether it comes through the window system or straight to the widget.
    void eachInputIsReportedOnceAndGoesItsWay()
    {
        for (const bool throughWindow : {true, false}) {
            QWidget window, outer(&window),
                inner(&outer); // none of them accepts the mouse, so that it is passed upwards
            QLineEdit edit(&window);
            outer.setGeometry(0, 0, 100, 50);
            inner.setGeometry(0, 0, 100, 50);
            edit.setGeometry(0, 60, 100, 30);
            window.resize(100, 100);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            edit.setFocus();
            QList<QEvent::Type> seen;
            int downs = 0;
            const ZelEventMonitor monitor(~0u, [&seen](QEvent *event) { seen.append(event->type()); });
            const ZelEventMonitor some(ZelEventMaskLeftMouseDown, [&downs](QEvent *) { ++downs; });
            const auto click = [&] {
                if (throughWindow)
                    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {10, 10});
                else
                    QTest::mouseClick(&inner, Qt::LeftButton, {}, {10, 10});
            };
            click();
            QCOMPARE(seen, (QList<QEvent::Type>{QEvent::MouseButtonPress, QEvent::MouseButtonRelease}));
            click(); // a double click is two presses
            QCOMPARE(downs, 2);
            seen.clear();
            for (int i = 0; i < 2; ++i) {
                if (throughWindow)
                    QTest::keyClick(window.windowHandle(), 'a');
                else
                    QTest::keyClick(&edit, 'a');
            }
            QCOMPARE(seen.count(QEvent::KeyPress), 2);
            QCOMPARE(seen.count(QEvent::KeyRelease), 2);
            QCOMPARE(edit.text(), "aa");
            seen.clear();
            // The same key again, unhandled, passes to the ancestors.
            QTest::keyClick(&inner, Qt::Key_F5);
            QTest::keyClick(&inner, Qt::Key_F5);
            QCOMPARE(seen.count(QEvent::KeyPress), 2);
        }
    }

    void monitorsComeAndGoWhileTheyReport()
    {
        QWidget widget;
        QString log;
        std::unique_ptr<ZelEventMonitor> first, second, third;
        const auto monitor = [](auto handler) { return std::make_unique<ZelEventMonitor>(~0u, handler); };
        first = monitor([&](QEvent *) {
            log += '1';
            third = monitor([&log](QEvent *) { log += '3'; });
            second.reset();
            first.reset();
        });
        second = monitor([&log](QEvent *) { log += '2'; });
        QTest::mousePress(&widget, Qt::LeftButton);
        QCOMPARE(log, "1");
        QTest::mouseRelease(&widget, Qt::LeftButton);
        QCOMPARE(log, "13");
    }
};

QTEST_MAIN(tst_NotificationsAndEvents)
#include "tst_NotificationsAndEvents.moc"
