// SPDX-License-Identifier: MIT
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Support/TableRow.h"
#include "Views/ZelMagnificationView.h"
#include <QSignalSpy>
#include <QtWidgets>

namespace {
/// A magnified content in a shown scroll area of 300 x 200 points without a frame.
struct Scene
{
    explicit Scene(const QSizeF &contentSize, const QPoint &scrolled = {})
    {
        view->addSubview(content);
        view->setContentSize(contentSize);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidget(view);
        area->resize(300, 200);
        area->show();
        if (!QTest::qWaitForWindowExposed(area.get()))
            qFatal("no window");
        scroll(scrolled);
    }
    void scroll(const QPoint &position) const
    {
        horizontal->setValue(position.x());
        vertical->setValue(position.y());
    }
    /// The content's point at a place in the window.
    QPointF contentPoint(const QPointF &place) const
    {
        return content->boundsTransform().inverted().map(content->mapFrom(area.get(), place));
    }
    QPointF place(const QPointF &contentPoint) const
    {
        return content->mapTo(area.get(), content->boundsTransform().map(contentPoint));
    }
    void wheel(const QPointF &place, int delta, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const
    {
        QWheelEvent event(place, area->mapToGlobal(place), QPoint(), QPoint(0, delta), {}, modifiers, Qt::NoScrollPhase,
                          false);
        QSpontaneKeyEvent::setSpontaneous(&event); // only the platform's own are passed on to the parents
        qApp->notify(area->windowHandle(), &event);
        QCoreApplication::processEvents();
    }
    void nativePinch(const QPointF &place, double value) const
    {
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, place, place,
                                  area->mapToGlobal(place), value, {});
        QCoreApplication::sendEvent(area->windowHandle(), &event);
    }
    bool hasScrollBars() const { return horizontal->isVisible() || vertical->isVisible(); }

    std::unique_ptr<QScrollArea> area = std::make_unique<QScrollArea>();
    QPointer<QScrollBar> horizontal = area->horizontalScrollBar();
    QPointer<QScrollBar> vertical = area->verticalScrollBar();
    QPointer<ZelMagnificationView> view = new ZelMagnificationView;
    QPointer<ZelView> content = new ZelView;
};

double distance(const QPointF &a, const QPointF &b)
{
    return QLineF(a, b).length();
}
} // namespace

class tst_ZelMagnificationView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void contentIsCentredOrFillsTheFrame()
    {
        const std::tuple<QSizeF, double, QSizeF, QRectF> rows[] = {
            {{100, 100}, 0.5, {300, 200}, {-250, -150, 600, 400}},
            {{400, 300}, 2, {800, 600}, {0, 0, 400, 300}},
            {{100, 300}, 1.5, {300, 450}, {-50, 0, 200, 300}},
            {{301, 203}, 1.25, {376.25, 253.75}, {0, 0, 301, 203}},
            {{0, 0}, 2, {300, 200}, {-75, -50, 150, 100}}};
        for (const auto &[contentSize, factor, frameSize, bounds] : rows) {
            ZelView clip(QRectF(0, 0, 300, 200));
            ZelMagnificationView view(&clip);
            auto *content = new ZelView;
            view.addSubview(content);
            view.setContentSize(contentSize);
            view.setMagnificationFactor(factor);
            QCOMPARE(view.frame().size(), frameSize);
            QCOMPARE(view.bounds(), bounds);
            QCOMPARE(content->frame(), QRectF(QPointF(), contentSize));
            clip.resize(100, 1000);
            view.setUpdatingDocumentFrame(true);
            view.updateContentFrame();
            QCOMPARE(view.frame().size(), (contentSize * factor).expandedTo({100, 1000}));
            QVERIFY(!view.isUpdatingDocumentFrame());
        }
    }

    void scrollBarsGoWhenTheContentFits()
    {
        const Scene scene(QSizeF(290, 190));
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
        QTRY_VERIFY(scene.horizontal->isVisible());
        QCOMPARE(scene.view->height(), scene.area->viewport()->height());
        // Another content is magnified, too.
        scene.view->magnifyVisibleRectWithFactor(2);
        delete scene.content;
        auto *plain = new QWidget;
        scene.view->addSubview(plain);
        scene.view->setContentSize(QSizeF(40, 50));
        QTRY_COMPARE(plain->geometry(), QRect(60, 150, 80, 100));
        scene.view->magnifyVisibleRectWithFactor(1);
        QCOMPARE(plain->geometry(), QRect(80, 175, 40, 50));
    }

    void theWheelKeepsThePointUnderThePointer()
    {
        const std::pair<QPointF, Qt::LayoutDirection> rows[] = {{{11.5, 160.25}, Qt::LeftToRight},
                                                                {{40, 120}, Qt::RightToLeft}};
        for (const auto &[place, direction] : rows) {
            const Scene scene(QSizeF(1501, 1203));
            scene.area->setLayoutDirection(direction);
            scene.scroll({601, 499});
            const QPointF point = scene.contentPoint(place);
            const QPoint position = scene.view->pos();
            for (const int delta : {120, 120, 30, 45, 120, 240, -60, -15, -120, -240, -240}) {
                const double former = scene.view->magnificationFactor();
                scene.wheel(place, delta);
                QCOMPARE(scene.view->magnificationFactor(), former * std::pow(1.25, delta / 120.0));
                QVERIFY2(distance(scene.place(point), place) < 1.5, qPrintable(QString::number(delta)));
            }
            QVERIFY((scene.view->pos() - position).manhattanLength() <= 1); // all those steps add up to none
        }
        const Scene scene(QSizeF(1000, 1000));
        scene.wheel(QPointF(100, 100), -120, Qt::NoModifier);
        const int value = scene.vertical->value();
        QVERIFY(value > 0);
        scene.view->setMaxMagnification(1);
        scene.wheel(QPointF(100, 100), 120); // at the limit: nothing, and no scrolling
        QCOMPARE(scene.view->magnificationFactor(), 1.0);
        QCOMPARE(scene.vertical->value(), value);
    }

    void pinchesZoomAboutTheFingers()
    {
        const Scene scene(QSizeF(1000, 1000), {400, 400});
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
        // Two fingers on a touch screen, moved apart. At 24 it is a pinch.
        static QPointingDevice *screen = QTest::createTouchDevice();
        const QPoint middle(150, 80);
        const QPointF middlePoint = scene.contentPoint(middle);
        const auto touch = [&] { return QTest::touchEvent(scene.area->windowHandle(), screen); };
        touch().press(0, middle - QPoint(20, 0)).press(1, middle + QPoint(20, 0));
        for (int apart = 24; apart <= 40; apart += 4)
            touch().move(0, middle - QPoint(apart, 0)).move(1, middle + QPoint(apart, 0));
        touch().release(0, middle - QPoint(40, 0)).release(1, middle + QPoint(40, 0));
        const double factor = scene.view->magnificationFactor();
        QVERIFY2(qAbs(factor - 2) < 0.01, qPrintable(QString::number(factor)));
        QVERIFY(distance(scene.place(middlePoint), middle) < 1.5);
    }

    void fractionsOfAPointAreKept()
    {
        const Scene scene(QSizeF(301, 403));
        auto *inner = new ZelView(QRectF(40.3, 50.2, 31.1, 17.7), scene.content);
        inner->show();
        for (const double factor : {1.1, 1.25, 1.333, 2.001, 3.9}) {
            scene.view->setMagnificationFactor(factor);
            const QRectF bounds = scene.view->bounds();
            scene.scroll({10000, 10000});
            QCOMPARE(scene.view->frame().size(), QSizeF(301, 403) * factor);
            QCOMPARE(scene.view->bounds(), bounds);
            QVERIFY(qFuzzyCompare(scene.content->boundsTransform(), QTransform::fromScale(factor, factor)));
            QCOMPARE(scene.content->frame(), QRectF(0, 0, 301, 403));
            // The last of them is shown.
            QVERIFY(QRectF(scene.area->viewport()->rect()).contains(scene.place(QPointF(301, 403))));
            for (const ZelView *view : {scene.content.data(), inner}) {
                const QRectF drawn = view->boundsTransform().mapRect(view->bounds());
                QVERIFY(QRectF(view->rect()).adjusted(-1e-6, -1e-6, 1e-6, 1e-6).contains(drawn));
            }
        }
    }

    void actionsZoomAboutTheCentreWithinLimits()
    {
        const Scene scene(QSizeF(2000, 2000), {700, 900});
        ZelMagnificationView &view = *scene.view;
        const QPointF centre = view.visibleDocumentRect().center();
        QSignalSpy spy(&view, &ZelMagnificationView::magnificationFactorChanged);
        const std::tuple<std::function<void()>, double, int> steps[] = {
            {[&] { view.zoomIn(); }, 1.25, 1},
            {[&] { view.zoomOut(); }, 1, 1},
            {[&] { view.magnifyVisibleRectWithFactor(3.9); }, 3.9, 1},
            {[&] { view.zoomIn(); }, 4, 1},
            {[&] { view.zoomIn(); }, 4, 0},
            {[&] { view.zoomFitInWindow(); }, 1, 1},
            {[&] { view.setMinMagnification(0.5); }, 1, 0},
            {[&] { view.magnifyVisibleRectWithFactor(0.1); }, 0.5, 1},
            {[&] { view.zoomToActualSize(); }, 1, 1},
            {[&] { view.magnifyVisibleRectWithFactor(qQNaN()); }, 1, 0},
            {[&] { view.setMagnificationFactor(0); }, 1, 0}};
        for (const auto &[act, factor, changes] : steps) {
            spy.clear();
            act();
            QVERIFY2(qAbs(view.magnificationFactor() - factor) < 1e-12, qPrintable(QString::number(factor)));
            QVERIFY(distance(view.visibleDocumentRect().center(), centre) < 2);
            QCOMPARE(spy.count(), changes);
        }
    }

    void itemsSelectTheirPercentage()
    {
        ZelMagnificationView view;
        ZelPopUpButton popUp;
        const std::pair<int, double> rows[] = {{150, 1.5}, {0, 1.5}, {401, 1.5}, {400, 4}, {1, 0.25}};
        for (const auto &[tag, factor] : rows) {
            ZelMenuItem *item = popUp.addItemWithTitle(QString::number(tag));
            item->setTag(tag);
            popUp.selectItem(item);
            view.selectMagnificationFactor(&popUp);
            QCOMPARE(view.magnificationFactor(), factor);
        }
        QComboBox comboBox;
        comboBox.addItem("80 %", 80);
        const std::pair<QObject *, double> others[] = {{&comboBox, 0.8}, {popUp.items().first(), 1.5}, {nullptr, 1.5}};
        for (const auto &[sender, factor] : others) {
            view.selectMagnificationFactor(sender);
            QCOMPARE(view.magnificationFactor(), factor);
        }
    }

    void survivesDeletionWhileZooming()
    {
        using Act = std::function<void(Scene &)>;
        const Act removes[] = {[](Scene &scene) { delete scene.view; }, [](Scene &scene) { delete scene.content; },
                               [](Scene &scene) { scene.area->setWidget(new ZelMagnificationView); },
                               [](Scene &scene) { scene.area->takeWidget()->deleteLater(); }};
        const std::pair<QByteArray, Act> changes[] = {
            // Who must tell of it: the factor, the size, the scroll bars' value and their ranges.
            {"F VHv", [](Scene &scene) { scene.wheel(QPointF(50, 50), 120); }},
            {"F VHv", [](Scene &scene) { scene.nativePinch(QPointF(50, 50), 0.5); }},
            {"F VHv", [](Scene &scene) { scene.view->magnifyVisibleRectWithFactor(1.3331); }},
            {"F  Hv", [](Scene &scene) { scene.view->setMagnificationFactor(3); }},
            {" SVHv", [](Scene &scene) { scene.view->setContentSize(QSizeF(50, 60)); }},
            {"   Hv", [](Scene &scene) { scene.area->resize(211, 307); }}};
        for (const Act &remove : removes) {
            for (const auto &[tellers, change] : changes) {
                for (const char teller : {'F', 'S', 'V', 'H', 'v'}) {
                    const TableRow row(QStringLiteral("%1 of %2").arg(teller).arg(QLatin1String(tellers)));
                    Scene scene(QSizeF(1000, 1000), {500, 0});
                    bool isTold = false;
                    const auto hear = [&] {
                        if (!std::exchange(isTold, true))
                            remove(scene);
                    };
                    QScrollArea *area = scene.area.get();
                    if (teller == 'F')
                        connect(scene.view, &ZelMagnificationView::magnificationFactorChanged, area, hear);
                    else if (teller == 'S')
                        connect(scene.view, &ZelMagnificationView::contentSizeChanged, area, hear);
                    else if (teller == 'V')
                        connect(scene.horizontal, &QScrollBar::valueChanged, area, hear);
                    else
                        connect(teller == 'H' ? scene.horizontal : scene.vertical, &QScrollBar::rangeChanged, area,
                                hear);
                    change(scene);
                    QCOMPARE(isTold, tellers.contains(teller));
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                }
            }
        }
    }
};
QTEST_MAIN(tst_ZelMagnificationView)
#include "tst_ZelMagnificationView.moc"
