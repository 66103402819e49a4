// SPDX-License-Identifier: MIT
#include "ViewController/ZelView.h"

#include "Geometry/ZelSnapUtilities.h"
#include "Layout/ZelConstraintLayout.h"
#include "Support/Reports.h"
#include "ViewController/HookLog.h"
#include "ViewController/ZelBackingLayer.h"
#include "ViewController/ZelKeyedCoder.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// Counts how often it is painted, and remembers where the mouse was.
class CountingView : public ZelView
{
public:
    using ZelView::ZelView;
    int paints = 0;
    QPointF pressed;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        ZelView::paintEvent(event);
    }
    void mousePressEvent(QMouseEvent *event) override { pressed = event->position(); }
    ZelView *newInstance() const override { return new CountingView; }
};

int paintsAfter(CountingView &view, const std::function<void()> &change)
{
    QCoreApplication::processEvents();
    view.paints = 0;
    change();
    QTest::qWait(20);
    return view.paints;
}

} // namespace

class tst_ZelView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_log.clear(); }

    void isInstalledWhereverItGetsAWindow_data()
    {
        using Way = std::function<void(ZelView * view, QWidget * window, QObject * keep)>;
        QTest::addColumn<Way>("way");
        QTest::addColumn<bool>("installed");
        QTest::newRow("alone") << Way([](ZelView *, QWidget *, QObject *) {}) << false;
        QTest::newRow("reparented") << Way([](ZelView *v, QWidget *w, QObject *) { v->setParent(w); }) << true;
        QTest::newRow("in a layout") << Way([](ZelView *v, QWidget *w, QObject *) {
            (new QVBoxLayout(w))->addWidget(v);
        }) << true;
        QTest::newRow("shown by itself") << Way([](ZelView *v, QWidget *, QObject *) { v->show(); }) << true;
        QTest::newRow("in a bare view") << Way([](ZelView *v, QWidget *, QObject *keep) {
            auto *outer = new ZelView;
            connect(keep, &QObject::destroyed, outer, [outer] { delete outer; });
            outer->addSubview(v);
        }) << false;
        QTest::newRow("in a bare view that comes in") << Way([](ZelView *v, QWidget *w, QObject *) {
            auto *outer = new ZelView;
            outer->addSubview(v);
            outer->setParent(w);
        }) << true;
        QTest::newRow("in a plain widget within a bare view that comes in")
            << Way([](ZelView *v, QWidget *w, QObject *) {
                   auto *outer = new ZelView;
                   v->setParent(new QWidget(outer));
                   outer->setParent(w);
               })
            << true;
        QTest::newRow("in plain widgets that come in") << Way([](ZelView *v, QWidget *w, QObject *) {
            auto *outer = new ZelView; // hides the window from the plain widgets
            auto *plain = new QWidget(outer);
            v->setParent(new QWidget(plain));
            plain->setParent(w);
            delete outer;
        }) << true;
    }
    void isInstalledWhereverItGetsAWindow()
    {
        using Way = std::function<void(ZelView *, QWidget *, QObject *)>;
        QFETCH(Way, way);
        QFETCH(bool, installed);
        QObject keep;
        QWidget window;
        auto *view = new LoggingView(&m_log, "v");
        const QPointer<ZelView> guard(view);
        way(view, &window, &keep);
        QCOMPARE(view->isInstalled(), installed);
        QCOMPARE(m_log, installed ? QStringList{"v+"} : QStringList());
        if (!view->parentWidget())
            delete view;
        else
            QTest::qWait(0);
        if (guard)
            QCOMPARE(m_log.size(), installed ? 1 : 0); // neither polishing nor anything else installs again
    }

    void isInstalledWhenPolishedIfItWasMadeInAWindow()
    {
        QWidget window;
        auto *view = new LoggingView(&m_log, "v", &window);
        auto *below = new LoggingView(&m_log, "w", view);
        QVERIFY(!view->isInstalled()); // its constructor may not be done
        QCoreApplication::processEvents();
        QVERIFY(view->isInstalled() && below->isInstalled());
        QCOMPARE(m_log, (QStringList{"v+", "w+"}));
    }

    void tellsViewThenControllerThenSubviews()
    {
        QWidget window;
        auto *outer = new LoggingView(&m_log, "outer");
        LoggingController controller(&m_log, "c");
        controller.makeView = [&] { return outer; };
        controller.view();
        auto *inner = new LoggingView(&m_log, "inner");
        outer->addSubview(inner);
        m_log.clear();
        outer->setParent(&window);
        m_log.removeAll("c updateConstraints");
        QCOMPARE(m_log, (QStringList{"outer+", "c+", "inner+"}));
        QVERIFY(controller.isViewInstalled());
        m_log.clear();
        bool hadWindow = false;
        inner->onUninstall = [&] { hadWindow = inner->window() == &window; };
        outer->removeFromSuperview();
        QCOMPARE(m_log, (QStringList{"outer-", "c-", "inner-"}));
        QVERIFY(hadWindow);
        QVERIFY(!outer->parentWidget() && inner->parentWidget() == outer);
        m_log.clear();
        outer->setParent(&window);
        outer->setParent(nullptr);
        m_log.removeAll("c updateConstraints");
        QCOMPARE(m_log, (QStringList{"outer+", "c+", "inner+", "outer-", "c-", "inner-"}));
    }

    void movesBetweenWindowsSilently()
    {
        QWidget first;
        QWidget second;
        ZelView bare;
        bare.show();
        QWidget *plain = new QWidget(&first);
        auto *view = new LoggingView(&m_log, "v");
        view->setParent(plain);
        QCOMPARE(m_log.size(), 1);
        view->setParent(&second);
        bare.addSubview(view);
        view->setParent(plain);
        plain->setParent(&bare);
        plain->setParent(nullptr); // a plain widget is a window by itself
        QCOMPARE(m_log, QStringList{"v+"});
        ZelView neverShown;
        plain->setParent(&neverShown);
        QCOMPARE(m_log, (QStringList{"v+", "v-"}));
    }

    void hooksMayChangeTheTree()
    {
        QWidget window;
        ZelView outer;
        auto *leaving = new LoggingView(&m_log, "leaving");
        auto *deleting = new LoggingView(&m_log, "deleting");
        auto *victim = new LoggingView(&m_log, "victim");
        auto *adding = new LoggingView(&m_log, "adding");
        auto *last = new LoggingView(&m_log, "last");
        LoggingController controller(&m_log, "c");
        controller.makeView = [&] { return leaving; };
        controller.view();
        m_log.clear();
        outer.setSubviews({leaving, deleting, victim, adding, last});
        leaving->onInstall = [&] { leaving->removeFromSuperview(); };
        deleting->onInstall = [&] { delete victim; };
        adding->onInstall = [&] { outer.addSubview(new LoggingView(&m_log, "added"), 0); };
        outer.setParent(&window);
        m_log.sort();
        QCOMPARE(m_log, (QStringList{"added+", "adding+", "deleting+", "last+", "leaving+", "leaving-"}));
        QVERIFY(!leaving->isInstalled() && !controller.isViewInstalled());
        m_log.clear();
        last->onUninstall = [&] { delete deleting; };
        adding->onUninstall = [&] { window.setParent(nullptr); };
        outer.setParent(nullptr);
        QVERIFY(!last->isInstalled() && !adding->isInstalled());
    }

    /// They leave their window in groups.
    void manySubviewsAreTakenOutAndComeBack()
    {
        QWidget window;
        QWidget other;
        auto *outer = new ZelView(&window);
        QList<LoggingView *> views;
        for (int i = 0; i < 300; ++i) {
            views.append(new LoggingView(&m_log, QString::number(i)));
            views.last()->setFocusPolicy(Qt::TabFocus);
        }
        outer->setSubviews({views.begin(), views.end()});
        window.show();
        views[3]->hide();
        views[5]->onUninstall = [&] { delete views[7]; };
        views[8]->onUninstall = [&] { views[9]->setParent(&other); };
        views[290]->setFocus();
        m_log.clear();
        outer->setSubviews({views[150]});
        QCOMPARE(outer->subviews(), QList<QWidget *>{views[150]});
        QCOMPARE(m_log.size(), 298); // all but the one that stays and the one that moved, each once
        QCOMPARE(m_log.removeDuplicates(), 0);
        QVERIFY(views[9]->isInstalled() && views[9]->parentWidget() == &other);
        int stops = 0;
        for (const QWidget *stop = window.nextInFocusChain(); stop != &window; stop = stop->nextInFocusChain())
            ++stops;
        QCOMPARE(stops, 2);
        views[5]->onUninstall = views[8]->onUninstall = {};
        views.removeAt(9);
        views.removeAt(7);
        for (const LoggingView *view : std::as_const(views)) {
            const bool isIn = view->objectName() == u"150";
            QVERIFY(view->isInstalled() == isIn && (view->parentWidget() == outer) == isIn &&
                    view->isVisible() == isIn);
        }
        outer->setSubviews({views.begin(), views.end()});
        for (const LoggingView *view : std::as_const(views))
            QVERIFY(view->isInstalled() && view->isVisible() == (view->objectName() != u"3"));
    }

    void anExceptionLeavesTheRestInstalled()
    {
        QWidget window;
        ZelView outer;
        auto *failing = new LoggingView(&m_log, "failing");
        auto *other = new LoggingView(&m_log, "other");
        LoggingController controller(&m_log, "c");
        controller.makeView = [&] { return failing; };
        controller.view();
        outer.setSubviews({failing, other});
        failing->onInstall = failing->onUninstall = [] { throw std::runtime_error("no"); };
        QWidget *content = &window;
        QVERIFY_EXCEPTION_THROWN(outer.setParent(content), std::runtime_error);
        QVERIFY(failing->isInstalled() && controller.isViewInstalled() && other->isInstalled());
        QCOMPARE(outer.parentWidget(), &window);
        QVERIFY_EXCEPTION_THROWN(outer.removeFromSuperview(), std::runtime_error);
        QVERIFY(!failing->isInstalled() && !controller.isViewInstalled() && !other->isInstalled());
    }

    void theDestructorUninstallsOnce_data()
    {
        using Way = std::function<void(QWidget * window, QWidget * plain, ZelView * view)>;
        QTest::addColumn<Way>("way");
        QTest::newRow("window") << Way([](QWidget *window, QWidget *, ZelView *) { delete window; });
        QTest::newRow("ancestor") << Way([](QWidget *window, QWidget *plain, ZelView *) {
            delete plain;
            delete window;
        });
        QTest::newRow("view") << Way([](QWidget *window, QWidget *, ZelView *view) {
            delete view;
            delete window;
        });
    }
    void theDestructorUninstallsOnce()
    {
        using Way = std::function<void(QWidget *, QWidget *, ZelView *)>;
        QFETCH(Way, way);
        const Reports reports;
        auto *window = new QWidget;
        auto *plain = new QWidget(window);
        auto *view = new LoggingView(&m_log, "v");
        auto *inner = new LoggingView(&m_log, "w");
        view->addSubview(inner);
        view->setParent(plain);
        inner->onUninstall = [] { throw std::runtime_error("reported"); };
        m_log.clear();
        way(window, plain, view);
        QCOMPARE(m_log, (QStringList{"v-", "w-"}));
        QCOMPARE(reports.messages, QStringList{"reported"});
    }

    void updatesConstraintsOnceBeforeTheLayout()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        auto *view = new LoggingView(&m_log, "v");
        auto *child = new QWidget(view);
        child->setFixedSize(40, 30);
        layout.addWidget(view);
        QCOMPARE(view->constraintUpdates, 1); // at the installation
        view->setNeedsUpdateConstraints();
        view->setNeedsUpdateConstraints();
        QVERIFY(view->needsUpdateConstraints());
        view->sizeHint();
        QCOMPARE(view->constraintUpdates, 2); // before the size is known
        window.show();
        QCoreApplication::processEvents();
        QCOMPARE(view->constraintUpdates, 2);
        view->setNeedsUpdateConstraints();
        QTRY_COMPARE(view->constraintUpdates, 3); // in the next turn
        view->setNeedsUpdateConstraints();
        delete view; // while it is scheduled
        QCoreApplication::processEvents();
    }

    void aDetachedViewKnowsItsSize()
    {
        LoggingView view(&m_log, "v");
        auto *child = new QWidget(&view);
        child->setFixedSize(40, 30);
        view.addConstraintsWithVisualFormat("H:|-3-[c]-4-|", {{"c", child}});
        view.addConstraintsWithVisualFormat("V:|[c]|", {{"c", child}});
        QCOMPARE(view.sizeHint(), QSize(47, 30));
        QCOMPARE(view.constraintUpdates, 1);
        view.removeConstraints(view.constraints());
        QVERIFY(view.constraints().isEmpty());
    }

    void ordersSubviews()
    {
        QWidget window;
        ZelView view(&window);
        window.resize(100, 100);
        window.show();
        auto *a = new QWidget;
        auto *b = new ZelView;
        auto *c = new QWidget;
        auto *hidden = new QWidget;
        hidden->hide();
        view.addSubview(a);
        view.addSubview(c);
        view.addSubview(b, 1);
        view.addSubview(hidden, 0);
        QCOMPARE(view.subviews(), (QList<QWidget *>{hidden, a, b, c}));
        QVERIFY(a->isVisible() && b->isVisible() && b->isInstalled());
        QVERIFY(!hidden->isVisible()); // whoever hides a view first means it
        view.setSubviews({c, b});
        QCOMPARE(view.subviews(), (QList<QWidget *>{c, b}));
        QVERIFY(!a->parentWidget() && !a->isVisible());
        view.setSubviews({b, a, c});
        QCOMPARE(view.subviews(), (QList<QWidget *>{b, a, c}));
        QVERIFY(a->isVisible() && b->isInstalled());
        delete hidden;
    }

    void nullIsNoSubview()
    {
        ZelView view;
        view.addSubview(nullptr);
        auto *child = new QWidget;
        view.setSubviews({nullptr, child, nullptr});
        QCOMPARE(view.subviews(), QList<QWidget *>{child});
    }

    void anEqualColorChangesNothing()
    {
        CountingView view;
        view.setGeometry(0, 0, 50, 50);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QSignalSpy changes(&view, &ZelView::backgroundColorChanged);
        QCOMPARE(paintsAfter(view, [&] { view.setBackgroundColor(Qt::red); }), 1);
        QCOMPARE(paintsAfter(view, [&] { view.setBackgroundColor(QColor(255, 0, 0)); }), 0);
        QCOMPARE(paintsAfter(view, [&] { view.setBorderColor(QColor()); }), 0);
        QCOMPARE(changes.size(), 1);
        view.setWantsLayer(true);
        QCOMPARE(view.layer()->backgroundColor(), ZelColor(Qt::red));
        view.setBorderColor(Qt::blue);
        view.setBackgroundColor(Qt::green);
        QCOMPARE(view.layer()->borderColor(), ZelColor(Qt::blue));
        QCOMPARE(view.layer()->backgroundColor(), ZelColor(Qt::green));
        view.grab();
        QCOMPARE(view.layer()->borderWidth(), 1.0);
        view.setBorderColor(QColor());
        view.grab();
        QCOMPARE(view.layer()->borderWidth(), 0.0);
    }

    void drawsItsColors_data()
    {
        QTest::addColumn<ZelColor>("color");
        QTest::addColumn<bool>("opaque");
        QTest::addColumn<QColor>("seen"); // above white
        const ZelColor half(QColor(255, 0, 0, 128));
        QTest::newRow("solid") << ZelColor(Qt::red) << false << QColor(255, 0, 0);
        QTest::newRow("translucent") << half << false << QColor(255, 127, 127);
        QTest::newRow("translucent, opaque view") << half << true << QColor(255, 0, 0, 128);
        QTest::newRow("none") << ZelColor() << true << QColor(255, 255, 255);
    }
    void drawsItsColors()
    {
        QFETCH(ZelColor, color);
        QFETCH(bool, opaque);
        QFETCH(QColor, seen);
        for (const bool layered : {false, true}) {
            ZelView view(QRectF(0, 0, 20, 20));
            view.setWantsLayer(layered);
            view.setBackgroundColor(color);
            view.setBorderColor(Qt::blue);
            view.setOpaque(opaque);
            QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::white);
            view.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
            if (!layered) // a layer is composed with what is below it
                QCOMPARE(image.pixelColor(10, 10), seen);
            QCOMPARE(image.pixelColor(0, 10), QColor(Qt::blue));
            QCOMPARE(image.pixelColor(19, 19), QColor(Qt::blue));
            QVERIFY(image.pixelColor(1, 1) != QColor(Qt::blue));
        }
    }

    void keepsFractionsOfItsFrame()
    {
        ZelView view;
        view.setFrame(QRectF(0.5, 1.25, 10.5, 10));
        QCOMPARE(view.frame(), QRectF(0.5, 1.25, 10.5, 10));
        QCOMPARE(view.geometry().size(), QSize(10, 10));
        view.resize(30, 30);
        QCOMPARE(view.frame().size(), QSizeF(30, 30));
    }

    void boundsScaleDrawingEventsAndSubviews()
    {
        CountingView view(QRectF(0, 0, 200, 100));
        auto *child = new CountingView(QRectF(10, 10, 20, 20), &view);
        child->setBackgroundColor(Qt::red);
        view.setBounds(QRectF(-50, 0, 100, 50)); // twice as large, and moved
        QCOMPARE(view.bounds(), QRectF(-50, 0, 100, 50));
        QCOMPARE(child->frame(), QRectF(10, 10, 20, 20));
        QCOMPARE(child->geometry(), QRect(120, 20, 40, 40));
        QCOMPARE(child->bounds(), QRectF(0, 0, 20, 20));
        QCOMPARE(view.grab().toImage().pixelColor(155, 55), QColor(Qt::red));
        QTest::mousePress(child, Qt::LeftButton, {}, QPoint(20, 30));
        QCOMPARE(child->pressed, QPointF(10, 15));
        QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(100, 50));
        QCOMPARE(view.pressed, QPointF(0, 25));
        view.setFrame(QRectF(0, 0, 400, 100));
        QCOMPARE(view.bounds(), QRectF(-50, 0, 200, 50)); // the scale stays
    }

    void archivesAndCopies()
    {
        CountingView view(QRectF(1, 2, 30, 40));
        view.setFlipped(true);
        view.setBackgroundColor(Qt::red);
        ZelKeyedCoder coder;
        view.encodeWithCoder(coder);
        QCOMPARE(coder.values().keys(),
                 (QStringList{"ZelBackgroundColorKey", "ZelFrameKey", "ZelIsFlippedKey", "ZelOpaqueKey"}));
        const ZelView read(coder);
        QCOMPARE(read.frame(), QRectF(1, 2, 30, 40));
        QVERIFY(read.isFlipped() && !read.isOpaque());
        QCOMPARE(read.backgroundColor(), ZelColor(Qt::red));
        const ZelView older{ZelKeyedCoder(QVariantMap{{"ZelOpaqueKey", true}})};
        QVERIFY(older.isOpaque() && !older.isFlipped() && !older.backgroundColor().isValid());
        const std::unique_ptr<ZelView> copy(view.copy());
        QVERIFY(dynamic_cast<CountingView *>(copy.get()));
        QCOMPARE(copy->frame(), view.frame());
        QVERIFY(copy->isFlipped());
        QCOMPARE(copy->backgroundColor(), ZelColor(Qt::red));

        const LoggingView cannotBeMade(&m_log, "view");
        FailureLog failures;
        QVERIFY(!cannotBeMade.copy());
        QCOMPARE(failures.messages, QStringList{"ZelView cannot be copied: it does not override newInstance()"});
    }

    void snapsToPixelsInItsOwnCoordinates()
    {
        ZelView magnified(QRectF(0, 0, 200, 200));
        auto *content = new ZelView(QRectF(10, 0, 50, 50), &magnified);
        magnified.setBounds(QRectF(0, 0, 50, 50)); // four times as large
        for (const ZelView *view : {static_cast<const ZelView *>(&magnified), static_cast<const ZelView *>(content)}) {
            const QPointF snapped = ZelSnapUtilities(view).snapPointInBacking({1.3, 2.6}, ZelSnapModeFloor, false);
            QCOMPARE(snapped, QPointF(1.25, 2.5));
        }
    }

    void aControllerStandsBetweenTheViewAndItsResponder()
    {
        ZelView parent;
        auto *view = new ZelView(&parent);
        QObject other;
        QCOMPARE(view->nextResponder(), &parent);
        view->setNextResponder(&other);
        ZelViewController controller;
        view->setViewController(&controller);
        QCOMPARE(view->nextResponder(), &controller);
        QCOMPARE(controller.nextResponder(), &other);
        view->setNextResponder(this);
        QCOMPARE(controller.nextResponder(), this);
        view->setViewController(nullptr);
        QCOMPARE(view->nextResponder(), this);
        QCOMPARE(controller.nextResponder(), nullptr);
        ZelView newParent;
        newParent.addSubview(view); // from here on its parent again
        QCOMPARE(view->nextResponder(), &newParent);

        // The chain leads on to the parent also behind a controller that has another view, or had another responder.
        auto passing = std::make_unique<ZelViewController>();
        passing->setNextResponder(&other);
        view->setViewController(passing.get());
        QCOMPARE(passing->nextResponder(), &newParent);
        view->setViewController(&controller);
        QCOMPARE(passing->nextResponder(), nullptr);
        QCOMPARE(controller.nextResponder(), &newParent);
        view->setNextResponder(this);
        view->setViewController(passing.get());
        QCOMPARE(passing->nextResponder(), this);
        passing.reset();
        QCOMPARE(view->nextResponder(), this);
    }

private:
    QStringList m_log;
};

QTEST_MAIN(tst_ZelView)
#include "tst_ZelView.moc"
