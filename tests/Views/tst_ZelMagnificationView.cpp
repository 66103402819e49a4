// SPDX-License-Identifier: MIT
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Magnified.h"

#include <QComboBox>
#include <QSignalSpy>

class tst_ZelMagnificationView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void contentIsCentredOrFillsTheFrame_data();
    void contentIsCentredOrFillsTheFrame();
    void scrollBarsGoWhenTheContentFits();
    void anotherContentIsMagnifiedToo();
    void theWheelKeepsThePointUnderThePointer_data();
    void theWheelKeepsThePointUnderThePointer();
    void theWheelAloneScrolls();
    void pinchesZoomAboutTheFingers();
    void fractionsSurviveScrolling();
    void theLastFractionOfAPointIsShown();
    void actionsZoomAboutTheCentreWithinLimits();
    void itemsSelectTheirPercentage();
    void everyPlaceHitsWhatIsShownThere_data();
    void everyPlaceHitsWhatIsShownThere();
    void staysSharp_data();
    void staysSharp();
    void survivesDeletionWhileZooming_data();
    void survivesDeletionWhileZooming();
};

void tst_ZelMagnificationView::contentIsCentredOrFillsTheFrame_data()
{
    QTest::addColumn<QSizeF>("contentSize");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QSizeF>("frameSize");
    QTest::addColumn<QRectF>("bounds");
    QTest::newRow("smaller") << QSizeF(100, 100) << 0.5 << QSizeF(300, 200) << QRectF(-250, -150, 600, 400);
    QTest::newRow("larger") << QSizeF(400, 300) << 2.0 << QSizeF(800, 600) << QRectF(0, 0, 400, 300);
    QTest::newRow("one way") << QSizeF(100, 300) << 1.5 << QSizeF(300, 450) << QRectF(-50, 0, 200, 300);
    QTest::newRow("fractions") << QSizeF(301, 203) << 1.25 << QSizeF(376.25, 253.75) << QRectF(0, 0, 301, 203);
    QTest::newRow("nothing") << QSizeF(0, 0) << 2.0 << QSizeF(300, 200) << QRectF(-75, -50, 150, 100);
}

void tst_ZelMagnificationView::contentIsCentredOrFillsTheFrame()
{
    QFETCH(const QSizeF, contentSize);
    QFETCH(const double, factor);
    ZelView clip(QRectF(0, 0, 300, 200));
    ZelMagnificationView view(&clip);
    auto *content = new ZelView;
    view.addSubview(content);
    view.setContentSize(contentSize);
    view.setMagnificationFactor(factor);
    QTEST(view.frame().size(), "frameSize");
    QTEST(view.bounds(), "bounds");
    QCOMPARE(content->frame(), QRectF(QPointF(), contentSize));
    clip.resize(100, 1000);
    view.setUpdatingDocumentFrame(true);
    view.updateContentFrame();
    QCOMPARE(view.frame().size(),
             QSizeF(qMax(100.0, contentSize.width() * factor), qMax(1000.0, contentSize.height() * factor)));
    QVERIFY(!view.isUpdatingDocumentFrame());
}

void tst_ZelMagnificationView::scrollBarsGoWhenTheContentFits()
{
    Scene scene(QSizeF(290, 190));
    QVERIFY(!scene.hasScrollBars());
    QCOMPARE(scene.content->geometry(), QRect(5, 5, 290, 190));
    for (const double factor : {1.04, 2.0}) { // one bar too many would keep both
        scene.view->magnifyVisibleRectWithFactor(factor);
        QTRY_VERIFY(scene.hasScrollBars());
        scene.view->magnifyVisibleRectWithFactor(1);
        QTRY_VERIFY(!scene.hasScrollBars());
        QCOMPARE(scene.view->geometry(), QRect(0, 0, 300, 200));
    }
    scene.area->resize(200, 400);
    QTRY_VERIFY(scene.area->horizontalScrollBar()->isVisible());
    QCOMPARE(scene.view->height(), scene.area->viewport()->height());
    scene.area->resize(300, 200);
    QTRY_COMPARE(scene.view->geometry(), QRect(0, 0, 300, 200));
    scene.view->setContentSize(QSizeF(100, 1000));
    QTRY_VERIFY(scene.area->verticalScrollBar()->isVisible());
    QCOMPARE(scene.view->size(), QSize(scene.area->viewport()->width(), 1000));
}

void tst_ZelMagnificationView::anotherContentIsMagnifiedToo()
{
    Scene scene(QSizeF(100, 50));
    scene.view->magnifyVisibleRectWithFactor(2);
    delete scene.content;
    auto *plain = new QWidget;
    scene.view->addSubview(plain);
    QTRY_COMPARE(plain->geometry(), QRect(50, 50, 200, 100));
    scene.view->magnifyVisibleRectWithFactor(1);
    QCOMPARE(plain->geometry(), QRect(100, 75, 100, 50));
}

void tst_ZelMagnificationView::theWheelKeepsThePointUnderThePointer_data()
{
    QTest::addColumn<QPointF>("place");
    QTest::addColumn<bool>("rightToLeft");
    QTest::newRow("middle") << QPointF(150, 100) << false;
    QTest::newRow("near a corner") << QPointF(11.5, 160.25) << false;
    QTest::newRow("right to left") << QPointF(40, 120) << true;
}

void tst_ZelMagnificationView::theWheelKeepsThePointUnderThePointer()
{
    QFETCH(const QPointF, place);
    QFETCH(const bool, rightToLeft);
    Scene scene(QSizeF(1501, 1203));
    scene.area->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    scene.area->horizontalScrollBar()->setValue(601);
    scene.area->verticalScrollBar()->setValue(499);
    const QPointF point = scene.contentPoint(place);
    const QPoint position = scene.view->pos();
    for (const int delta : {120, 120, 30, 45, 120, 240, -60, -15, -120, -240, -240}) {
        const double former = scene.view->magnificationFactor();
        scene.wheel(place, delta);
        QCOMPARE(scene.view->magnificationFactor(), former * std::pow(1.25, delta / 120.0));
        QVERIFY2(distance(scene.place(point), place) < 1.5, qPrintable(QString::number(delta)));
    }
    QVERIFY(qAbs(scene.view->magnificationFactor() - 1) < 1e-9); // all those steps add up to none
    QVERIFY((scene.view->pos() - position).manhattanLength() <= 1);
}

void tst_ZelMagnificationView::theWheelAloneScrolls()
{
    Scene scene(QSizeF(1000, 1000));
    scene.wheel(QPointF(100, 100), -120, Qt::NoModifier);
    QVERIFY(scene.area->verticalScrollBar()->value() > 0);
    QCOMPARE(scene.view->magnificationFactor(), 1.0);
    scene.view->magnifyVisibleRectWithFactor(4);
    const int value = scene.area->verticalScrollBar()->value();
    scene.wheel(QPointF(100, 100), 120); // at the limit: nothing, and no scrolling
    QCOMPARE(scene.view->magnificationFactor(), 4.0);
    QCOMPARE(scene.area->verticalScrollBar()->value(), value);
}

void tst_ZelMagnificationView::pinchesZoomAboutTheFingers()
{
    Scene scene(QSizeF(1000, 1000));
    scene.area->horizontalScrollBar()->setValue(400);
    scene.area->verticalScrollBar()->setValue(400);
    const QPointF place(80, 60);
    const QPointF point = scene.contentPoint(place);
    scene.nativePinch(place, 0.5);
    QCOMPARE(scene.view->magnificationFactor(), 1.5);
    QCOMPARE(scene.view->pinchMagnificationFactor(), 0.0);
    scene.view->setPinchMagnificationFactor(1);
    scene.nativePinch(place, -0.2);
    QCOMPARE(scene.view->magnificationFactor(), 1.2);
    QCOMPARE(scene.view->pinchMagnificationFactor(), 0.8);
    QVERIFY(distance(scene.place(point), place) < 1.5);

    // Two fingers on a touch screen, moved apart.
    static QPointingDevice *screen = QTest::createTouchDevice();
    const QPoint middle(150, 80);
    const QPointF middlePoint = scene.contentPoint(middle);
    QWindow *window = scene.area->windowHandle();
    const auto fingers = [&](int distance) { return QPoint(distance, 0); };
    QTest::touchEvent(window, screen)
        .press(0, middle - fingers(20))
        .press(1, middle + fingers(20)); // at 24 it is a pinch
    for (int apart = 24; apart <= 40; apart += 4)
        QTest::touchEvent(window, screen).move(0, middle - fingers(apart)).move(1, middle + fingers(apart));
    QTest::touchEvent(window, screen).release(0, middle - fingers(40)).release(1, middle + fingers(40));
    QVERIFY2(qAbs(scene.view->magnificationFactor() - 2) < 0.01,
             qPrintable(QString::number(scene.view->magnificationFactor())));
    QVERIFY(distance(scene.place(middlePoint), middle) < 1.5);
}

void tst_ZelMagnificationView::fractionsSurviveScrolling()
{
    Scene scene(QSizeF(1001, 803));
    scene.view->magnifyVisibleRectWithFactor(1.25);
    const QRectF bounds = scene.view->bounds();
    const QTransform transform = scene.content->boundsTransform();
    QCOMPARE(transform.m11(), 1.25);
    QCOMPARE(transform.m22(), 1.25);
    scene.area->horizontalScrollBar()->setValue(33);
    QCOMPARE(scene.view->frame().size(), QSizeF(1251.25, 1003.75));
    QCOMPARE(scene.view->bounds(), bounds);
    QCOMPARE(scene.content->boundsTransform(), transform);
    QCOMPARE(scene.content->frame(), QRectF(0, 0, 1001, 803));
}

void tst_ZelMagnificationView::theLastFractionOfAPointIsShown()
{
    Scene scene(QSizeF(301, 403));
    auto *inner = new Content(QRectF(40.3, 50.2, 31.1, 17.7), scene.content);
    inner->show();
    for (const double factor : {1.1, 1.25, 1.333, 2.001, 3.9}) {
        scene.view->setMagnificationFactor(factor);
        scene.area->horizontalScrollBar()->setValue(10000);
        scene.area->verticalScrollBar()->setValue(10000);
        const QPointF corner = scene.place(QPointF(301, 403));
        QVERIFY(corner.x() <= scene.area->viewport()->width() && corner.y() <= scene.area->viewport()->height());
        for (const Content *view : {scene.content.data(), inner}) {
            const QRectF drawn = view->boundsTransform().mapRect(view->bounds());
            QVERIFY2(QRectF(view->rect()).adjusted(-1e-6, -1e-6, 1e-6, 1e-6).contains(drawn),
                     qPrintable(QString::number(factor)));
        }
    }
}

void tst_ZelMagnificationView::actionsZoomAboutTheCentreWithinLimits()
{
    Scene scene(QSizeF(2000, 2000));
    scene.area->horizontalScrollBar()->setValue(700);
    scene.area->verticalScrollBar()->setValue(900);
    const QPointF centre = scene.view->visibleDocumentRect().center();
    ZelMagnificationView &view = *scene.view;
    QSignalSpy spy(&view, &ZelMagnificationView::magnificationFactorChanged);
    const auto isAt = [&](double factor) {
        return qAbs(view.magnificationFactor() - factor) < 1e-12 &&
               distance(view.visibleDocumentRect().center(), centre) < 2;
    };
    view.zoomIn();
    QVERIFY(isAt(1.25));
    view.zoomOut();
    QVERIFY(isAt(1));
    for (int i = 0; i < 10; ++i)
        view.zoomIn();
    QVERIFY(isAt(4));
    QCOMPARE(spy.count(), 9);
    view.zoomFitInWindow();
    QVERIFY(isAt(1));
    view.setMinMagnification(0.5);
    view.magnifyVisibleRectWithFactor(0.1);
    QVERIFY(isAt(0.5));
    view.zoomToActualSize();
    QVERIFY(isAt(1));
    spy.clear();
    view.magnifyVisibleRectWithFactor(qQNaN());
    view.setMinMagnification(0);
    view.magnifyVisibleRectWithFactor(-1);
    view.setMagnificationFactor(0);
    QVERIFY(isAt(1));
    QVERIFY(spy.isEmpty());
}

void tst_ZelMagnificationView::itemsSelectTheirPercentage()
{
    ZelMagnificationView view;
    ZelPopUpButton popUp;
    QComboBox comboBox;
    const auto selectTag = [&](int tag) {
        ZelMenuItem *item = popUp.addItemWithTitle(QString::number(tag));
        item->setTag(tag);
        popUp.selectItem(item);
        view.selectMagnificationFactor(&popUp);
        return view.magnificationFactor();
    };
    QCOMPARE(selectTag(150), 1.5);
    QCOMPARE(selectTag(0), 1.5);
    QCOMPARE(selectTag(401), 1.5);
    QCOMPARE(selectTag(400), 4.0);
    QCOMPARE(selectTag(1), 0.25);
    comboBox.addItem("80 %", 80);
    view.selectMagnificationFactor(&comboBox);
    QCOMPARE(view.magnificationFactor(), 0.8);
    view.selectMagnificationFactor(popUp.items().first());
    QCOMPARE(view.magnificationFactor(), 1.5);
    view.selectMagnificationFactor(nullptr);
    QCOMPARE(view.magnificationFactor(), 1.5);
}

void tst_ZelMagnificationView::everyPlaceHitsWhatIsShownThere_data()
{
    QTest::addColumn<double>("factor");
    for (const double factor : {0.25, 0.37, 1.0, 1.25, 1.953125, 4.0})
        QTest::addRow("%g", factor) << factor;
}

void tst_ZelMagnificationView::everyPlaceHitsWhatIsShownThere()
{
    QFETCH(const double, factor);
    Scene scene(QSizeF(701, 503));
    auto *inner = new Content(QRectF(101, 77, 300, 200), scene.content);
    inner->show();
    scene.view->magnifyVisibleRectWithFactor(factor, QPointF(250, 150));
    // Where the inner view stands in the content, its events stand, too.
    const QPointF origin = inner->mapTo(scene.content.data(), inner->boundsTransform().map(QPointF(0, 0)));
    QVERIFY(distance(scene.content->boundsTransform().inverted().map(origin), QPointF(101, 77)) * factor <= 0.75);
    const QRectF innerRect(101, 77, 300, 200);
    const QRectF contentRect(0, 0, 701, 503);
    const double pixel = 1 / factor; // what edges may be rounded by
    const auto isClearlyIn = [&](const QRectF &rect, const QPointF &point) {
        return rect.adjusted(pixel, pixel, -pixel, -pixel).contains(point);
    };
    const auto isClearlyOut = [&](const QRectF &rect, const QPointF &point) {
        return !rect.adjusted(-pixel, -pixel, pixel, pixel).contains(point);
    };
    int hits = 0;
    for (int x = 1; x < 280; x += 31) {
        for (int y = 1; y < 180; y += 23) {
            const QPointF point = scene.contentPoint(QPoint(x, y));
            scene.content->positions.clear();
            inner->positions.clear();
            QTest::mouseClick(scene.area->windowHandle(), Qt::LeftButton, {}, QPoint(x, y));
            const auto inInner = inner->positions.constFind(QEvent::MouseButtonPress);
            const auto inContent = scene.content->positions.constFind(QEvent::MouseButtonPress);
            if (isClearlyIn(innerRect, point)) {
                ++hits;
                QVERIFY(inInner != inner->positions.cend());
                QVERIFY(distance(*inInner, point - innerRect.topLeft()) <= 0.75 * pixel);
            } else if (isClearlyOut(innerRect, point) && isClearlyIn(contentRect, point)) {
                QVERIFY(inInner == inner->positions.cend() && inContent != scene.content->positions.cend());
                QVERIFY(distance(*inContent, point) < 0.01);
            } else if (isClearlyOut(contentRect, point)) {
                QVERIFY(inInner == inner->positions.cend() && inContent == scene.content->positions.cend());
            }
        }
    }
    QVERIFY(hits > 0);
}

void tst_ZelMagnificationView::staysSharp_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("width");
    QTest::newRow("actual size, centred at half a point") << 1.0 << 1.0 << 101;
    QTest::newRow("large") << 4.0 << 1.0 << 50;
    QTest::newRow("large, fine screen") << 4.0 << 2.0 << 50;
    QTest::newRow("large, rather fine screen") << 4.0 << 1.5 << 50;
}

void tst_ZelMagnificationView::staysSharp()
{
    QFETCH(const double, factor);
    QFETCH(const double, ratio);
    QFETCH(const int, width);
    Scene scene(QSizeF(width, 40));
    scene.view->magnifyVisibleRectWithFactor(factor);
    QImage image(scene.content->size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::red);
    scene.content->render(&image);
    const int line = qRound(factor * ratio);
    for (int x = 0; x < width * line; ++x)
        QCOMPARE(image.pixelColor(x, 20), QColor(x / line % 2 ? Qt::white : Qt::black));
}

void tst_ZelMagnificationView::survivesDeletionWhileZooming_data()
{
    using Deletion = std::function<void(Scene &)>;
    QTest::addColumn<Deletion>("remove");
    QTest::newRow("view") << Deletion([](Scene &scene) { delete scene.view; });
    QTest::newRow("content") << Deletion([](Scene &scene) { delete scene.content; });
    QTest::newRow("replaced") << Deletion([](Scene &scene) { scene.area->setWidget(new ZelMagnificationView); });
    QTest::newRow("taken out") << Deletion([](Scene &scene) {
        if (QWidget *widget = scene.area->takeWidget())
            widget->deleteLater();
    });
}

void tst_ZelMagnificationView::survivesDeletionWhileZooming()
{
    QFETCH(const std::function<void(Scene &)>, remove);
    const std::function<void(Scene &)> zooms[] = {
        [](Scene &scene) { scene.wheel(QPointF(50, 50), 120); },
        [](Scene &scene) { scene.nativePinch(QPointF(50, 50), 0.5); },
        [](Scene &scene) { scene.view->zoomIn(); },
        [](Scene &scene) { scene.view->setContentSize(QSizeF(50, 60)); },
        [](Scene &scene) { scene.view->setMagnificationFactor(3); },
    };
    for (const auto &zoom : zooms) {
        Scene announced(QSizeF(1000, 1000));
        int removals = 0;
        connect(announced.view, &ZelMagnificationView::magnificationFactorChanged, announced.area.get(), [&] {
            remove(announced);
            ++removals;
        });
        connect(announced.view, &ZelMagnificationView::contentSizeChanged, announced.area.get(), [&] {
            remove(announced);
            ++removals;
        });
        zoom(announced);
        QCOMPARE(removals, 1);
        QCoreApplication::sendPostedEvents();
    }
    // While it scrolls and while the scroll bars get another range, too.
    using Listen = std::function<void(Scene &, const std::function<void()> &)>;
    const Listen listens[] = {
        [](Scene &scene, const auto &call) {
            connect(scene.area->horizontalScrollBar(), &QScrollBar::valueChanged, scene.area.get(), call);
        },
        [](Scene &scene, const auto &call) {
            connect(scene.area->horizontalScrollBar(), &QScrollBar::rangeChanged, scene.area.get(), call);
        },
        [](Scene &scene, const auto &call) {
            connect(scene.area->verticalScrollBar(), &QScrollBar::rangeChanged, scene.area.get(), call);
        },
    };
    const std::function<void(Scene &)> changes[] = {
        zooms[0],
        zooms[1],
        zooms[2],
        [](Scene &scene) { scene.view->magnifyVisibleRectWithFactor(1.3331); },
        [](Scene &scene) { scene.area->resize(211, 307); },
    };
    for (const Listen &listen : listens) {
        for (const auto &change : changes) {
            Scene scene(QSizeF(1000, 1000));
            scene.area->horizontalScrollBar()->setValue(500);
            int removals = 0;
            listen(scene, [&] {
                if (removals++ == 0)
                    remove(scene);
            });
            change(scene);
            QVERIFY(removals > 0 || &change == &changes[4]); // a larger view need not scroll
            QCoreApplication::sendPostedEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
}

QTEST_MAIN(tst_ZelMagnificationView)
#include "tst_ZelMagnificationView.moc"
