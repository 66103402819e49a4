// SPDX-License-Identifier: MIT
#include "Magnified.h"

#include <QMimeData>

/// A content at 400 %, told of by the window's own events. What is at (80, 40) in the window is at (20, 10) in it.
class tst_ZelMagnificationViewEvents : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void hoveringAndEnteringComeInTheContentsCoordinates();
    void toolTipsComeInTheContentsCoordinates();
    void menusComeInTheContentsCoordinates();
    void pensComeInTheContentsCoordinates();
    void dropsComeInTheContentsCoordinates();
    void ignoredWheelsScroll();

private:
    QPointF position(QEvent::Type type) const { return scene->content->positions.value(type, QPointF(-999, -999)); }
    QWindow *window() const { return scene->area->windowHandle(); }

    std::unique_ptr<Scene> scene;
    const QPoint place{80, 40};
    const QPointF point{20, 10};
};

void tst_ZelMagnificationViewEvents::init()
{
    scene.reset();
    scene = std::make_unique<Scene>(QSizeF(1000, 1000));
    scene->view->magnifyVisibleRectWithFactor(4, QPointF());
    scene->content->setAttribute(Qt::WA_Hover);
    scene->content->setMouseTracking(true);
    scene->content->setAcceptDrops(true);
    QTest::mouseMove(window(), QPoint(-10, -10));
    QCoreApplication::processEvents();
    scene->content->positions.clear();
}

void tst_ZelMagnificationViewEvents::hoveringAndEnteringComeInTheContentsCoordinates()
{
    QTest::mouseMove(window(), place);
    QTRY_COMPARE(position(QEvent::HoverEnter), point);
    QCOMPARE(position(QEvent::Enter), point);
    QTest::mouseMove(window(), place + QPoint(8, 16));
    QTRY_COMPARE(position(QEvent::HoverMove), point + QPointF(2, 4));
    QCOMPARE(position(QEvent::MouseMove), point + QPointF(2, 4));
    scene->area->horizontalScrollBar()->setValue(200);
    QTest::mouseMove(window(), place);
    QTRY_COMPARE(position(QEvent::HoverMove), point + QPointF(50, 0));

    QWidget cover(scene->area.get()); // the pointer leaves the content for it
    cover.setGeometry(0, 100, 300, 100);
    cover.show();
    QTest::mouseMove(window(), QPoint(80, 150));
    QTRY_VERIFY(scene->content->positions.contains(QEvent::HoverLeave));
    QVERIFY(!scene->content->bounds().contains(position(QEvent::HoverLeave)));
}

void tst_ZelMagnificationViewEvents::toolTipsComeInTheContentsCoordinates()
{
    QTest::mouseMove(window(), place - QPoint(4, 4));
    QTest::mouseMove(window(), place);
    QTRY_COMPARE(position(QEvent::ToolTip), point);
}

void tst_ZelMagnificationViewEvents::menusComeInTheContentsCoordinates()
{
    QTest::mouseClick(window(), Qt::RightButton, {}, place + QPoint(4, 8));
    QTRY_COMPARE(position(QEvent::ContextMenu), point + QPointF(1, 2));
    QCOMPARE(position(QEvent::MouseButtonPress), point + QPointF(1, 2));
}

void tst_ZelMagnificationViewEvents::pensComeInTheContentsCoordinates()
{
    static const QPointingDevice pen(QStringLiteral("pen"), 77, QInputDevice::DeviceType::Stylus,
                                     QPointingDevice::PointerType::Pen,
                                     QInputDevice::Capability::Position | QInputDevice::Capability::Pressure, 1, 3);
    const auto send = [&](QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
        QTabletEvent event(type, &pen, at, scene->area->mapToGlobal(at), 0.5, 0, 0, 0, 0, 0, {}, Qt::LeftButton,
                           buttons);
        QCoreApplication::sendEvent(window(), &event);
        return event.isAccepted();
    };
    QVERIFY(send(QEvent::TabletPress, place, Qt::LeftButton));
    QCOMPARE(position(QEvent::TabletPress), point);
    QVERIFY(send(QEvent::TabletMove, place + QPointF(2, 1), Qt::LeftButton));
    QCOMPARE(position(QEvent::TabletMove), point + QPointF(0.5, 0.25)); // pens are finer than points
    QVERIFY(send(QEvent::TabletRelease, place + QPointF(4, 4), Qt::NoButton));
    QCOMPARE(position(QEvent::TabletRelease), point + QPointF(1, 1));
}

void tst_ZelMagnificationViewEvents::dropsComeInTheContentsCoordinates()
{
    QMimeData data;
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(scene->content, &enter);
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(scene->content, &drop);
    QCOMPARE(position(QEvent::DragEnter), point);
    QCOMPARE(position(QEvent::Drop), point);
    QVERIFY(enter.isAccepted() && drop.isAccepted());
    QCOMPARE(drop.dropAction(), Qt::MoveAction);
}

void tst_ZelMagnificationViewEvents::ignoredWheelsScroll()
{
    scene->wheel(place, -120, Qt::NoModifier); // seen, ignored, and passed on
    QCOMPARE(position(QEvent::Wheel), point);
    QVERIFY(scene->area->verticalScrollBar()->value() > 0);
}

QTEST_MAIN(tst_ZelMagnificationViewEvents)
#include "tst_ZelMagnificationViewEvents.moc"
