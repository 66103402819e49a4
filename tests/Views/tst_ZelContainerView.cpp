// SPDX-License-Identifier: MIT
#include "Views/ZelContainerView.h"

#include "ViewController/HookLog.h"
#include "Views/ZelEmptyView.h"
#include "Views/ZelSwitchContainerView.h"

#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A controller whose view wants to be of that size.
class SizedController : public ZelViewController
{
public:
    explicit SizedController(const QSize &size, QObject *parent = nullptr)
        : ZelViewController(parent)
        , m_size(size)
    {
    }
    void loadView() override
    {
        auto *view = new ZelView;
        auto *content = new QWidget(view);
        content->setMinimumSize(m_size);
        view->addConstraintsWithVisualFormat("H:|[c]|", {{"c", content}});
        view->addConstraintsWithVisualFormat("V:|[c]|", {{"c", content}});
        setView(view);
    }

private:
    QSize m_size;
};

/// Looks between the title and the upper edge of the badge.
bool hasBadge(ZelEmptyView &view)
{
    const int aboveTitle = view.height() / 2 - QFontMetrics(view.titleFont()).height() / 2 - 3;
    return view.grab().toImage().pixel(view.width() / 2, aboveTitle) == view.titleBackgroundColor().toQColor().rgb();
}

} // namespace

class tst_ZelContainerView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsTheViewOfItsController()
    {
        QWidget window;
        ZelContainerView container(&window);
        auto *below = new QWidget(&container);
        below->resize(5, 5);
        SizedController first(QSize(30, 20));
        SizedController second(QSize(40, 50));
        container.resize(100, 80);
        container.setChildViewController(&first);
        QVERIFY(!first.isViewLoaded()); // not before it is in a window
        QCoreApplication::processEvents();
        QVERIFY(first.isViewInstalled());
        QCOMPARE(container.subviews(), (QList<QWidget *>{first.view(), below}));
        QCOMPARE(first.view()->geometry(), container.rect());
        QCOMPARE(container.sizeHint(), QSize(30, 20));
        container.setChildViewController(&second);
        QVERIFY(!first.isViewInstalled() && !first.view()->parentWidget() && second.isViewInstalled());
        QCOMPARE(container.sizeHint(), QSize(40, 50));
        container.removeFromSuperview();
        QVERIFY(!second.isViewInstalled() && !second.view()->parentWidget());
        container.setParent(&window);
        QCOMPARE(second.view()->parentWidget(), &container);
        container.setChildViewController(nullptr);
        QCOMPARE(container.subviews(), QList<QWidget *>{below});
    }

    void aControllerMayDieBeforeItIsReplaced()
    {
        QWidget window;
        auto *container = new ZelContainerView;
        container->setParent(&window);
        auto *first = new SizedController(QSize(10, 10));
        SizedController second(QSize(10, 10));
        container->setChildViewController(first);
        const QPointer<ZelView> left = first->view();
        delete first;
        QVERIFY(!container->childViewController());
        container->setChildViewController(&second);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!left);
        QCOMPARE(container->subviews(), QList<QWidget *>{second.view()});
    }

    void switchesBetweenControllers()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        layout.setContentsMargins(0, 0, 0, 0);
        auto *container = new ZelSwitchContainerView;
        SizedController small(QSize(30, 20));
        SizedController large(QSize(60, 50));
        container->setChildViewControllers({&small, &large});
        layout.addWidget(container, 0, Qt::AlignTop);
        window.resize(200, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(small.view()->isVisible() && !large.view()->isVisible());
        QCOMPARE(container->sizeHint(), QSize(60, 50)); // room for all
        QCOMPARE(container->containerConstraints().size(), 8);
        container->setSelectedChildViewControllerIndex(1);
        QVERIFY(!small.view()->isVisible() && large.view()->isVisible());
        container->setSelectedChildViewControllerIndex(7);
        QVERIFY(!small.view()->isVisible() && !large.view()->isVisible());
        container->setSelectedChildViewControllerIndex(0);
        container->setConstraintSelectdView(true);
        QCoreApplication::processEvents();
        QCOMPARE(container->containerConstraints().size(), 4);
        QTRY_COMPARE(container->height(), 20); // follows the shown one
        container->setSelectedChildViewControllerIndex(1);
        QTRY_COMPARE(container->height(), 50);
        QCOMPARE(large.view()->geometry(), container->rect());
        container->setSelectedChildViewControllerIndex(2);
        QCoreApplication::processEvents();
        QVERIFY(container->containerConstraints().isEmpty());
    }

    void switchesAlsoBeforeItHasAWindow()
    {
        SizedController first(QSize(10, 10));
        SizedController second(QSize(20, 20));
        auto *container = new ZelSwitchContainerView;
        container->setChildViewControllers({&first, &second});
        container->updateSelectedChildView();
        QVERIFY(!first.view()->isVisible() && !second.view()->isVisible()); // they would be windows of their own
        container->setSelectedChildViewControllerIndex(1);
        container->updateSelectedChildView();
        QWidget window;
        container->setParent(&window);
        window.show();
        QVERIFY(!first.view()->isVisible() && second.view()->isVisible());
    }

    void viewsOfTheApplicationAreOnlyTakenOut()
    {
        QWidget window;
        ZelSwitchContainerView container(&window);
        const std::unique_ptr<ZelView> own = std::make_unique<ZelView>(&container);
        const QPointer<ZelView> alive(own.get());
        container.updateChildViews();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(alive && !alive->parentWidget());
    }

    void switchedControllersMayChangeAndDie()
    {
        QWidget window;
        ZelSwitchContainerView container;
        SizedController first(QSize(10, 10));
        auto *second = new SizedController(QSize(20, 20));
        container.setChildViewControllers({&first, second});
        container.setParent(&window);
        const QPointer<ZelView> left = second->view();
        delete second;
        QCOMPARE(container.childViewControllers(), QList<ZelViewController *>{&first});
        container.updateChildViews();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!left);
        container.removeFromSuperview();
        container.setChildViewControllers({});
        QCOMPARE(container.subviews(), QList<QWidget *>{first.view()}); // nobody observes
        container.setParent(&window);
        QVERIFY(container.subviews().isEmpty());
        QVERIFY(!first.view()->parentWidget());
    }

    void anEmptyViewDrawsItsBadge()
    {
        ZelEmptyView view;
        view.resize(300, 100);
        QVERIFY(hasBadge(view));
        auto *child = new QWidget(&view);
        child->resize(1, 1);
        QVERIFY(hasBadge(view));
        view.setForceShow(false);
        QVERIFY(!hasBadge(view));
        delete child;
        QVERIFY(hasBadge(view));
    }

    void anEmptyViewRedrawsItself_data()
    {
        using Change = std::function<void(ZelEmptyView &)>;
        QTest::addColumn<Change>("change");
        QTest::addColumn<bool>("redraws");
        QTest::newRow("title") << Change([](ZelEmptyView &view) { view.setTitle("other"); }) << true;
        QTest::newRow("font") << Change([](ZelEmptyView &view) { view.setTitleFont(QFont("Sans", 30)); }) << true;
        QTest::newRow("subview") << Change([](ZelEmptyView &view) { new QWidget(&view); }) << true;
        QTest::newRow("title colour") << Change([](ZelEmptyView &view) { view.setTitleColor(QColor(Qt::red)); })
                                      << true;
        QTest::newRow("badge colour") << Change([](ZelEmptyView &view) {
            view.setTitleBackgroundColor(QColor(Qt::red));
        }) << false;
    }
    void anEmptyViewRedrawsItself()
    {
        struct CountingView : ZelEmptyView
        {
            int draws = 0;
            void drawRect(QPainter &painter, const QRect &rect) override
            {
                ++draws;
                ZelEmptyView::drawRect(painter, rect);
            }
        };
        using Change = std::function<void(ZelEmptyView &)>;
        QFETCH(Change, change);
        QFETCH(bool, redraws);
        CountingView view;
        view.resize(200, 100);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QCoreApplication::processEvents();
        view.draws = 0;
        change(view);
        QTest::qWait(20);
        QCOMPARE(view.draws > 0, redraws);
    }
};

QTEST_MAIN(tst_ZelContainerView)
#include "tst_ZelContainerView.moc"
