// SPDX-License-Identifier: MIT
#include "Geometry/ZelSnapUtilities.h"
#include "Support/Failures.h"
#include "Support/Reports.h"
#include "Support/TableRow.h"
#include "ViewController/HookLog.h"
#include "ViewController/ZelBackingLayer.h"
#include "ViewController/ZelKeyedCoder.h"

namespace {
/// Counts how often it is painted, and remembers where events came.
struct CountingView : ZelView
{
    using ZelView::ZelView;
    int paints = 0;
    QPointF position;
    QPointF global;

    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        ZelView::paintEvent(event);
    }
    bool positionedEvent(QEvent *event) override
    {
        if (auto *pointer = dynamic_cast<QSinglePointEvent *>(event))
            std::tie(position, global) = std::pair(pointer->position(), pointer->globalPosition());
        else if (auto *menu = dynamic_cast<QContextMenuEvent *>(event))
            std::tie(position, global) = std::pair(menu->pos(), menu->globalPos());
        else if (auto *help = dynamic_cast<QHelpEvent *>(event))
            std::tie(position, global) = std::pair(help->pos(), help->globalPos());
        else if (auto *drop = dynamic_cast<QDropEvent *>(event)) {
            position = drop->position();
            drop->setDropAction(Qt::MoveAction);
        }
        event->setAccepted(!event->isAccepted());
        return true;
    }
    ZelView *newInstance() const override { return new CountingView; }
};
} // namespace

class tst_ZelView : public QObject
{
    Q_OBJECT
    QStringList m_log;

private Q_SLOTS:
    void init() { m_log.clear(); }

    void isInstalledWhereverItGetsAWindow()
    {
        using Way = std::function<void(ZelView * view, QWidget * window, ZelView * outer)>;
        const std::pair<Way, bool> ways[] = {
            {[](auto *view, auto *window, auto *) { (new QVBoxLayout(window))->addWidget(view); }, true},
            {[](auto *view, auto *, auto *) { view->show(); }, true},
            {[](auto *view, auto *window, auto *outer) {
                 view->setParent(new QWidget(outer)); // a plain widget within a bare view that comes in
                 outer->setParent(window);
             },
             true},
            {[](auto *view, auto *window, auto *outer) {
                 auto *plain = new QWidget(outer); // the bare view hides the window from the plain widgets
                 view->setParent(new QWidget(plain));
                 plain->setParent(window);
             },
             true}};
        for (const auto &[way, isInstalled] : ways) {
            const TableRow row(QStringLiteral("way %1").arg(&way - &ways[0].first));
            m_log.clear();
            QWidget window;
            ZelView outer;
            LoggingView view(&m_log, "v");
            way(&view, &window, &outer);
            for (int i = 0; i < 2; ++i) { // neither polishing nor anything else installs again
                QCOMPARE(view.isInstalled(), isInstalled);
                QCOMPARE(m_log, isInstalled ? QStringList{"v+"} : QStringList());
                QTest::qWait(0);
            }
            outer.setParent(nullptr);
            view.setParent(nullptr);
        }
        m_log.clear();
        QWidget window;
        auto *view = new LoggingView(&m_log, "v", &window);
        auto *below = new LoggingView(&m_log, "w", view);
        QVERIFY(!view->isInstalled()); // its constructor may not be done
        QCoreApplication::processEvents();
        QVERIFY(view->isInstalled() && below->isInstalled());
        QCOMPARE(m_log, (QStringList{"v+", "w+"}));
        // It moves between windows silently.
        QWidget second;
        auto *plain = new QWidget(&second);
        ZelView bare;
        bare.show();
        view->setParent(&second);
        bare.addSubview(view);
        view->setParent(plain);
        plain->setParent(&bare);
        plain->setParent(nullptr); // a plain widget is a window by itself
        QCOMPARE(m_log.size(), 2);
        ZelView neverShown;
        plain->setParent(&neverShown);
        QCOMPARE(m_log, (QStringList{"v+", "w+", "v-", "w-"}));
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
        bool hasWindow = false;
        inner->onUninstall = [&] { hasWindow = inner->window() == &window; };
        for (const bool isRemoved : {true, false}) {
            m_log.clear();
            outer->setParent(&window);
            QVERIFY(controller.isViewInstalled());
            isRemoved ? outer->removeFromSuperview() : outer->setParent(nullptr);
            QCOMPARE(hasWindow, isRemoved);
            QVERIFY(!controller.isViewInstalled() && !outer->parentWidget() && inner->parentWidget() == outer);
            m_log.removeAll("c updateConstraints");
            QCOMPARE(m_log, (QStringList{"outer+", "c+", "inner+", "outer-", "c-", "inner-"}));
        }
    }

    void hooksMayChangeTheTreeAndThrow()
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
        last->onUninstall = [&] { delete deleting; };
        adding->onUninstall = [&] { window.setParent(nullptr); };
        outer.setParent(nullptr);
        QVERIFY(!last->isInstalled() && !adding->isInstalled());
        // An exception comes when the rest is done.
        last->onUninstall = [] {};
        outer.addSubview(leaving);
        leaving->onInstall = leaving->onUninstall = [] { throw std::runtime_error("no"); };
        QVERIFY_EXCEPTION_THROWN(outer.setParent(static_cast<QWidget *>(&window)), std::runtime_error);
        QVERIFY(leaving->isInstalled() && controller.isViewInstalled() && last->isInstalled());
        QCOMPARE(outer.parentWidget(), &window);
        QVERIFY_EXCEPTION_THROWN(outer.removeFromSuperview(), std::runtime_error);
        QVERIFY(!leaving->isInstalled() && !controller.isViewInstalled() && !last->isInstalled());
        // From a destructor it is reported.
        for (const bool isAncestorFirst : {false, true}) {
            const Reports reports;
            auto *plain = new QWidget(&window);
            auto *view = new LoggingView(&m_log, "v");
            auto *inner = new LoggingView(&m_log, "w");
            view->addSubview(inner);
            view->setParent(plain);
            inner->onUninstall = [] { throw std::runtime_error("reported"); };
            m_log.clear();
            delete (isAncestorFirst ? plain : view);
            QCOMPARE(m_log, (QStringList{"v-", "w-"}));
            QCOMPARE(reports.messages, QStringList{"reported"});
        }
        leaving->onUninstall = [] {};
    }

    /// Many leave their window in groups.
    void manySubviewsAreTakenOutAndComeBack()
    {
        QWidget window;
        QWidget other;
        QPointer<ZelView> outer = new ZelView(&window);
        QList<LoggingView *> views;
        for (int i = 0; i < 300; ++i) {
            views.append(new LoggingView(&m_log, QString::number(i)));
            views.last()->setFocusPolicy(Qt::TabFocus);
        }
        outer->setSubviews({views.begin(), views.end()});
        window.show();
        views[3]->hide();
        const QPointer<ZelView> fresh = new ZelView;
        views[4]->onUninstall = [&] { delete fresh; };
        views[5]->onUninstall = [&] { delete views[7]; };
        views[8]->onUninstall = [&] { views[9]->setParent(&other); };
        m_log.clear();
        outer->setSubviews({views[150], fresh});
        QVERIFY(!fresh);
        QCOMPARE(outer->subviews(), QList<QWidget *>{views[150]});
        QCOMPARE(m_log.size(), 298); // all but the one that stays and the one that moved, each once
        QCOMPARE(m_log.removeDuplicates(), 0);
        QVERIFY(views[9]->isInstalled() && views[9]->parentWidget() == &other);
        QCOMPARE(outer->nextInFocusChain(), views[150]);
        QCOMPARE(views[150]->nextInFocusChain(), &window);
        views.removeAt(9);
        views.removeAt(7);
        for (const LoggingView *view : std::as_const(views)) {
            const bool isIn = view->objectName() == u"150";
            QVERIFY(view->isInstalled() == isIn && view->isVisible() == isIn &&
                    (view->parentWidget() == outer) == isIn);
        }
        views[4]->onUninstall = views[5]->onUninstall = views[7]->onUninstall = [] {};
        outer->setSubviews({views.begin(), views.end()});
        for (const LoggingView *view : std::as_const(views))
            QVERIFY(view->isInstalled() && view->isVisible() == (view->objectName() != u"3"));
        views[0]->onUninstall = [&] {
            views[0]->setParent(nullptr);
            delete outer;
        };
        ZelView another;
        outer->setSubviews({&another});
        QVERIFY(!outer);
        delete views[0];
    }

    void updatesConstraintsOnceBeforeTheLayout()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        auto *view = new LoggingView(&m_log, "v");
        auto *child = new QWidget(view);
        child->setFixedSize(40, 30);
        view->addConstraintsWithVisualFormat("H:|-3-[c]-4-|", {{"c", child}});
        view->addConstraintsWithVisualFormat("V:|[c]|", {{"c", child}});
        QCOMPARE(view->sizeHint(), QSize(47, 30)); // also while it is detached
        QCOMPARE(view->constraintUpdates, 1);
        view->setNeedsUpdateConstraints();
        layout.addWidget(view);
        QCOMPARE(view->constraintUpdates, 2); // at the installation
        for (int i = 0; i < 2; ++i)
            view->setNeedsUpdateConstraints();
        view->sizeHint();
        QCOMPARE(view->constraintUpdates, 3); // before the size is known
        window.show();
        QCoreApplication::processEvents();
        QCOMPARE(view->constraintUpdates, 3);
        view->setNeedsUpdateConstraints();
        QTRY_COMPARE(view->constraintUpdates, 4); // in the next turn
        view->removeConstraints(view->constraints());
        QVERIFY(view->constraints().isEmpty());
        view->setNeedsUpdateConstraints();
        QEvent request(QEvent::LayoutRequest);
        QCoreApplication::sendEvent(view, &request);
        QCOMPARE(view->constraintUpdates, 5);
        view->setNeedsUpdateConstraints();
        delete view; // while it is scheduled
        QCoreApplication::processEvents();
    }

    void ordersSubviews()
    {
        QWidget window;
        ZelView view(&window);
        window.show();
        auto *a = new QWidget;
        auto *b = new ZelView;
        auto *c = new QWidget;
        auto *hidden = new QWidget;
        hidden->hide();
        for (const auto &[added, index] :
             {std::pair<QWidget *, int>(a, -1), {nullptr, 0}, {c, -1}, {b, 1}, {hidden, 0}})
            view.addSubview(added, index);
        QCOMPARE(view.subviews(), (QList<QWidget *>{hidden, a, b, c}));
        QVERIFY(a->isVisible() && b->isVisible() && b->isInstalled());
        QVERIFY(!hidden->isVisible()); // whoever hides a view first means it
        view.setSubviews({c, nullptr, b});
        QCOMPARE(view.subviews(), (QList<QWidget *>{c, b}));
        QVERIFY(!a->parentWidget() && !a->isVisible());
        view.setSubviews({b, a, c});
        QCOMPARE(view.subviews(), (QList<QWidget *>{b, a, c}));
        QVERIFY(a->isVisible() && b->isInstalled());
        delete hidden;
    }

    void drawsItsColors()
    {
        const ZelColor half(QColor(255, 0, 0, 128));
        const std::tuple<ZelColor, bool, QColor> rows[] = {// as seen above white, if it is opaque or not
                                                           {ZelColor(Qt::red), false, QColor(Qt::red)},
                                                           {half, false, QColor(255, 127, 127)},
                                                           {half, true, QColor(255, 0, 0, 128)},
                                                           {ZelColor(), true, QColor(Qt::white)}};
        for (const auto &[color, isOpaque, seen] : rows) {
            for (const bool hasLayer : {false, true}) {
                ZelView view(QRectF(0, 0, 20, 20));
                view.setWantsLayer(hasLayer);
                view.setBackgroundColor(color);
                view.setBorderColor(Qt::blue);
                view.setOpaque(isOpaque);
                QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
                image.fill(Qt::white);
                view.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
                if (!hasLayer || !isOpaque) // a layer is composed with what is below it
                    QCOMPARE(image.pixelColor(10, 10), seen);
                for (const QPoint edge : {QPoint(0, 10), QPoint(10, 0), QPoint(19, 10), QPoint(19, 19)})
                    QCOMPARE(image.pixelColor(edge), QColor(Qt::blue));
                for (const QPoint inside : {QPoint(1, 1), QPoint(18, 18)})
                    QCOMPARE(image.pixelColor(inside), image.pixelColor(10, 10));
            }
        }
        CountingView view;
        view.setGeometry(0, 0, 50, 50);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QSignalSpy changes(&view, &ZelView::backgroundColorChanged);
        const std::pair<std::function<void()>, int> steps[] = {
            {[&] { view.setBackgroundColor(Qt::red); }, 1},
            {[&] { view.setBackgroundColor(QColor(255, 0, 0)); }, 0}, // an equal one
            {[&] { view.setBorderColor(QColor()); }, 0},
            {[&] { view.setOpaque(true); }, 1},
            {[&] { view.setWantsLayer(true); }, 1},
            {[&] { view.setWantsLayer(true); }, 0}};
        for (const auto &[change, paints] : steps) {
            QCoreApplication::processEvents();
            view.paints = 0;
            change();
            QTest::qWait(20);
            QCOMPARE(view.paints, paints);
        }
        QCOMPARE(changes.size(), 1);
        QCOMPARE(view.layer()->backgroundColor(), ZelColor(Qt::red));
        view.setBackgroundColor(Qt::green);
        QCOMPARE(view.layer()->backgroundColor(), ZelColor(Qt::green));
        for (const auto &[color, width] : {std::pair(ZelColor(Qt::blue), 1.0), {ZelColor(), 0.0}}) {
            view.setBorderColor(color);
            QCOMPARE(view.layer()->borderColor(), color);
            view.grab();
            QCOMPARE(view.layer()->borderWidth(), width);
        }
    }

    void boundsScaleDrawingAndSubviews()
    {
        ZelView view;
        view.setFrame(QRectF(0.5, 1.25, 10.5, 10));
        QCOMPARE(view.frame(), QRectF(0.5, 1.25, 10.5, 10)); // with the fractions
        QCOMPARE(view.geometry().size(), QSize(10, 10));
        view.resize(200, 100);
        QCOMPARE(view.frame().size(), QSizeF(200, 100));
        auto *child = new ZelView(QRectF(10, 10, 20, 20), &view);
        child->setBackgroundColor(Qt::red);
        view.setBounds(QRectF(-50, 0, 100, 50)); // twice as large, and moved
        QCOMPARE(view.bounds(), QRectF(-50, 0, 100, 50));
        QCOMPARE(child->frame(), QRectF(10, 10, 20, 20));
        QCOMPARE(child->geometry(), QRect(120, 20, 40, 40));
        QCOMPARE(child->bounds(), QRectF(0, 0, 20, 20));
        QCOMPARE(view.grab().toImage().pixelColor(155, 55), QColor(Qt::red));
        view.setFrame(QRectF(0, 0, 400, 100));
        QCOMPARE(view.bounds(), QRectF(-50, 0, 200, 50)); // the scale stays
        view.setBounds(QRectF(0, 0, 100, 25));            // four times as large: snaps to pixels in its own coordinates
        for (const ZelView *snapping : {static_cast<const ZelView *>(&view), static_cast<const ZelView *>(child)})
            QCOMPARE(ZelSnapUtilities(snapping).snapPointInBacking({1.3, 2.6}, ZelSnapModeFloor, false),
                     QPointF(1.25, 2.5));
    }

    void eventsComeInTheBoundsCoordinates()
    {
        using std::make_shared;
        const QPoint at(80, 40);
        const QPoint global(300, 305);
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        const Qt::MouseButton left = Qt::LeftButton;
        const auto *device = QPointingDevice::primaryPointingDevice();
        QMimeData data;
        const std::shared_ptr<QEvent> events[] = {
            make_shared<QMouseEvent>(QEvent::MouseButtonPress, at, at, global, left, left, Qt::NoModifier),
            make_shared<QHoverEvent>(QEvent::HoverMove, at, global, QPointF()),
            make_shared<QTabletEvent>(QEvent::TabletMove, device, at, global, 0.5, 0, 0, 0, 0, 0, Qt::NoModifier, left,
                                      left),
            make_shared<QEnterEvent>(at, at, global),
            make_shared<QWheelEvent>(at, global, QPoint(), QPoint(0, 120), left, Qt::NoModifier, Qt::NoScrollPhase,
                                     false),
            make_shared<QContextMenuEvent>(QContextMenuEvent::Mouse, at, global, Qt::NoModifier),
            make_shared<QHelpEvent>(QEvent::ToolTip, at, global),
            make_shared<QDragEnterEvent>(at, actions, &data, left, Qt::NoModifier),
            make_shared<QDragMoveEvent>(at, actions, &data, left, Qt::NoModifier),
            make_shared<QDropEvent>(at, actions, &data, left, Qt::NoModifier),
        };
        for (const auto &event : events) {
            const TableRow row(QString::number(event->type()));
            CountingView view(QRectF(0, 0, 400, 200));
            view.setBounds(QRectF(-50, 0, 100, 50));
            auto *child = new CountingView(QRectF(10, 10, 20, 20), &view);
            for (auto &[receiver, position] : {std::pair(&view, QPointF(-30, 10)), {child, QPointF(20, 10)}}) {
                const bool wasAccepted = event->isAccepted();
                static_cast<QObject *>(receiver)->event(event.get());
                QCOMPARE(receiver->position, position);
                QCOMPARE(event->isAccepted(), !wasAccepted);
                if (auto *drop = dynamic_cast<QDropEvent *>(event.get()))
                    QCOMPARE(drop->dropAction(), Qt::MoveAction);
                else
                    QCOMPARE(receiver->global, QPointF(global));
            }
        }
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
        view.setBorderColor(Qt::blue);
        view.encodeWithCoder(coder);
        const ZelView read(coder);
        const std::unique_ptr<ZelView> copied(view.copy());
        QVERIFY(dynamic_cast<CountingView *>(copied.get()));
        for (const ZelView *same : {&read, static_cast<const ZelView *>(copied.get())}) {
            QCOMPARE(same->frame(), QRectF(1, 2, 30, 40));
            QVERIFY(same->isFlipped() && !same->isOpaque());
            QCOMPARE(std::pair(same->backgroundColor(), same->borderColor()),
                     std::pair(ZelColor(Qt::red), ZelColor(Qt::blue)));
        }
        const ZelView older{ZelKeyedCoder(QVariantMap{{"ZelOpaqueKey", true}})};
        QVERIFY(older.isOpaque() && !older.isFlipped() && !older.backgroundColor().isValid());
        const LoggingView cannotBeMade(&m_log, "view");
        Failures failures;
        QVERIFY(!cannotBeMade.copy());
        QVERIFY(failures.taken().value(0).endsWith("ZelView cannot be copied: it does not override newInstance()"));
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
};
QTEST_MAIN(tst_ZelView)
#include "tst_ZelView.moc"
