// SPDX-License-Identifier: MIT
#include "Views/ZelContainerView.h"

#include "ViewController/HookLog.h"
#include "Views/ZelSwitchContainerView.h"

#include <QTest>
#include <QVBoxLayout>

namespace {

/// A controller whose view wants to be of that size.
class SizedController : public ZelViewController
{
public:
    explicit SizedController(const QSize &size)
        : m_size(size)
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
    bool isShown() { return view()->isVisible(); }

private:
    QSize m_size;
};

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
        auto mortal = std::make_unique<SizedController>(QSize(10, 10));
        container.resize(100, 80);
        container.setChildViewController(&first);
        QVERIFY(!first.isViewLoaded()); // not before it is in a window
        QCoreApplication::processEvents();
        QVERIFY(first.isViewInstalled());
        QCOMPARE(container.subviews(), (QList<QWidget *>{first.view(), below}));
        QCOMPARE(first.view()->geometry(), container.rect());
        QCOMPARE(container.sizeHint(), QSize(30, 20));
        container.setChildViewController(mortal.get());
        const QPointer<ZelView> left = mortal->view();
        mortal.reset();
        QVERIFY(!container.childViewController());
        container.setChildViewController(&second);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!left);
        QVERIFY(!first.isViewInstalled() && !first.view()->parentWidget() && second.isViewInstalled());
        QCOMPARE(container.sizeHint(), QSize(40, 50));
        container.removeFromSuperview();
        QVERIFY(!second.isViewInstalled() && !second.view()->parentWidget());
        container.setParent(&window);
        QCOMPARE(container.subviews(), (QList<QWidget *>{second.view(), below}));
        container.setChildViewController(nullptr);
        QCOMPARE(container.subviews(), QList<QWidget *>{below});
    }

    void hooksOfAChildMayEndTheContainer()
    {
        QStringList log;
        LoggingController next(&log, "next");
        for (const char *moment : {"load", "install", "uninstall"}) {
            QWidget window;
            const QPointer<ZelContainerView> container = new ZelContainerView(&window);
            LoggingController child(&log, "child");
            child.makeView = [&] {
                auto *view = new LoggingView(&log, "view");
                (qstrcmp(moment, "install") == 0 ? view->onInstall : view->onUninstall) = [&, view] {
                    view->setParent(nullptr);
                    delete container;
                };
                if (qstrcmp(moment, "load") == 0)
                    delete container;
                return view;
            };
            container->setChildViewController(&child);
            QCoreApplication::processEvents();
            if (container)
                container->setChildViewController(&next);
            QVERIFY2(!container, moment);
        }
    }

    void switchesBetweenControllers()
    {
        SizedController small(QSize(30, 20));
        SizedController large(QSize(60, 50));
        auto *container = new ZelSwitchContainerView;
        container->setChildViewControllers({&small, &large});
        container->updateSelectedChildView();
        QVERIFY(!small.isShown() && !large.isShown()); // they would be windows of their own
        container->setSelectedChildViewControllerIndex(1);
        container->updateSelectedChildView();
        QWidget window;
        QVBoxLayout layout(&window);
        layout.setContentsMargins(0, 0, 0, 0);
        layout.addWidget(container, 0, Qt::AlignTop);
        window.resize(200, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const std::tuple<int, bool, bool> rows[] = {{1, false, true}, {0, true, false}, {7, false, false}};
        for (const auto &[index, isSmallShown, isLargeShown] : rows) {
            container->setSelectedChildViewControllerIndex(index);
            QCOMPARE(small.isShown(), isSmallShown);
            QCOMPARE(large.isShown(), isLargeShown);
            QCOMPARE(container->sizeHint(), QSize(60, 50)); // room for all
            QCOMPARE(container->containerConstraints().size(), 8);
        }
        container->setConstraintSelectdView(true);
        for (const auto &[index, height] : {std::pair(0, 20), {1, 50}}) { // follows the shown one
            container->setSelectedChildViewControllerIndex(index);
            QTRY_COMPARE(container->height(), height);
            QCOMPARE(container->containerConstraints().size(), 4);
        }
        QCOMPARE(large.view()->geometry(), container->rect());
        container->setSelectedChildViewControllerIndex(2);
        QCoreApplication::processEvents();
        QVERIFY(container->containerConstraints().isEmpty());
    }

    void switchedControllersMayChangeAndDie()
    {
        QWidget window;
        ZelSwitchContainerView container;
        const std::unique_ptr<ZelView> own = std::make_unique<ZelView>(&container);
        const QPointer<ZelView> alive(own.get());
        SizedController first(QSize(10, 10));
        auto second = std::make_unique<SizedController>(QSize(20, 20));
        container.setChildViewControllers({&first, second.get()});
        container.setParent(&window);
        QCOMPARE(container.subviews(), (QList<QWidget *>{first.view(), second->view()}));
        const QPointer<ZelView> left = second->view();
        second.reset();
        QCOMPARE(container.childViewControllers(), QList<ZelViewController *>{&first});
        container.updateChildViews();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!left);
        QVERIFY(alive && !alive->parentWidget()); // a view of the application is only taken out
        container.removeFromSuperview();
        container.setChildViewControllers({});
        QCOMPARE(container.subviews(), QList<QWidget *>{first.view()}); // nobody observes
        container.setParent(&window);
        QVERIFY(container.subviews().isEmpty());
        QVERIFY(!first.view()->parentWidget());
    }
};

QTEST_MAIN(tst_ZelContainerView)
#include "tst_ZelContainerView.moc"
