// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelEventMonitor.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

class tst_ZelEventMonitor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void mapsEventsToTheirBits()
    {
        const auto mouse = [](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons) {
            const QMouseEvent event(type, QPointF(), QPointF(), button, buttons, Qt::NoModifier);
            return ZelEventMaskOf(&event);
        };
        const auto key = [](QEvent::Type type, int key) {
            const QKeyEvent event(type, key, Qt::NoModifier);
            return ZelEventMaskOf(&event);
        };
        QCOMPARE(mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton), 1u << 1);
        QCOMPARE(mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton), 1u << 1);
        QCOMPARE(mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton), 1u << 4);
        QCOMPARE(mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton), 1u << 25);
        QCOMPARE(mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton), 0u);
        QCOMPARE(mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::BackButton), 1u << 27);
        QCOMPARE(key(QEvent::KeyPress, Qt::Key_A), 1u << 10);
        QCOMPARE(key(QEvent::KeyRelease, Qt::Key_Shift), 1u << 12);
        QCOMPARE(key(QEvent::ShortcutOverride, Qt::Key_A), 0u);
    }

    void eachInputIsReportedOnceAndGoesItsWay_data()
    {
        QTest::addColumn<bool>("throughWindow");
        QTest::newRow("through the window system") << true;
        QTest::newRow("straight to the widget") << false;
    }

    void eachInputIsReportedOnceAndGoesItsWay()
    {
        QFETCH(bool, throughWindow);
        QWidget window, outer(&window), inner(&outer); // none of them accepts the mouse, so that it is passed upwards
        QLineEdit edit(&window);
        outer.setGeometry(0, 0, 100, 50);
        inner.setGeometry(0, 0, 100, 50);
        edit.setGeometry(0, 60, 100, 30);
        window.resize(100, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        edit.setFocus();

        QList<QEvent::Type> seen;
        const ZelEventMonitor monitor(~0u, [&seen](QEvent *event) { seen.append(event->type()); });
        if (throughWindow)
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {10, 10});
        else
            QTest::mouseClick(&inner, Qt::LeftButton, {}, {10, 10});
        QCOMPARE(seen, (QList<QEvent::Type>{QEvent::MouseButtonPress, QEvent::MouseButtonRelease}));
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

    void aDoubleClickIsTwoPresses()
    {
        QWidget window;
        window.resize(100, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        int downs = 0;
        const ZelEventMonitor monitor(ZelEventMaskLeftMouseDown, [&downs](QEvent *) { ++downs; });
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {10, 10});
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {10, 10});
        QCOMPARE(downs, 2);
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

QTEST_MAIN(tst_ZelEventMonitor)
#include "tst_ZelEventMonitor.moc"
