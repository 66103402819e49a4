// SPDX-License-Identifier: MIT
#include "Support/TableRow.h"
#include "ViewController/HookLog.h"
#include "Views/ZelContainerView.h"
#include "Views/ZelHorizontalStackView.h"
#include "Views/ZelSwitchContainerView.h"
#include "Views/ZelVerticalStackView.h"

namespace {
/// A widget of one size.
QWidget *box(int width, int height)
{
    auto *widget = new QWidget;
    widget->setFixedSize(width, height);
    return widget;
}

/// A stack in a window, shown as large as it wants to be or larger.
template<typename Stack> struct StackInWindow
{
    explicit StackInWindow(const QList<QWidget *> &views, const QMarginsF &insets = {})
    {
        layout.setContentsMargins(0, 0, 0, 0);
        layout.addWidget(&stack);
        stack.setEdgeInsets(insets);
        stack.setSubviews(views);
    }
    void show(const QSize &size = {})
    {
        window.resize(size.isValid() ? size : window.sizeHint());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
    }

    QWidget window;
    QVBoxLayout layout{&window};
    Stack &stack = *new Stack;
};

/// Of those that are shown, after the pending layout.
QList<int> starts(const ZelStackView &stack)
{
    QCoreApplication::processEvents();
    QList<int> result;
    for (const QWidget *view : stack.subviews())
        if (!view->isHidden())
            result.append(stack.orientation() == Qt::Horizontal ? view->x() : view->y());
    return result;
}

/// A controller whose view is at least of that size.
class SizedController : public ZelViewController
{
public:
    explicit SizedController(const QSize &size)
        : m_size(size)
    {
    }
    void loadView() override
    {
        setView(new ZelView);
        view()->setMinimumSize(m_size);
    }

private:
    QSize m_size;
};
} // namespace

/// Stacks, and containers of controllers' views.
class tst_Containers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void stacksLineUpTheirSubviews()
    {
        QList<QWidget *> boxes{new QWidget, new QWidget, new QWidget};
        for (QWidget *view : boxes)
            view->setMinimumSize(20, 10);
        StackInWindow<ZelHorizontalStackView> shown(boxes, QMarginsF(4, 2, 5, 3));
        shown.stack.setSpacing(8);
        shown.stack.setEqualSizes(true);
        QCOMPARE(shown.stack.minimumSizeHint(), QSize(3 * 20 + 2 * 8 + 9, 15));
        shown.show(QSize(100, 30));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(boxes[i]->geometry(), QRect(4 + i * 28, 2, 20, 25));
        auto *row = new ZelHorizontalStackView; // is as high as the highest
        for (const int height : {22, 25}) {
            auto *picture = new QLabel; // wants that size, but has no required limits
            picture->setPixmap(QPixmap(40, height));
            picture->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            row->addSubview(picture);
        }
        auto *label = new QLabel("text");
        StackInWindow<ZelVerticalStackView> column({label, row, box(10, 10)}, QMarginsF(0, 5, 0, 0));
        column.stack.setSpacing(3);
        column.show();
        const int top = 5 + label->height() + 3;
        QCOMPARE(starts(column.stack), (QList<int>{5, top, top + 25 + 3}));
        const double baseline = column.stack.baselineOffsetForHeight(column.stack.height());
        QCOMPARE(baseline, 5 + ZelConstraintLayout::baselineOffset(label, label->height())); // that of the first
        QCOMPARE(column.stack.baselineOffsetFromBottom(), column.stack.height() - baseline);
        QCOMPARE(ZelVerticalStackView().baselineOffsetFromBottom(), 0.0);
        for (ZelStackView *stack :
             {static_cast<ZelStackView *>(&shown.stack), static_cast<ZelStackView *>(&column.stack)}) {
            stack->setSubviews({});
            stack->setEdgeInsets(QMarginsF(1, 2, 3, 4));
            const bool isRow = stack == &shown.stack;
            QCOMPARE(stack->sizeHint(), isRow ? QSize(4, 0) : QSize(0, 6));
            QCOMPARE(stack->stackConstraints().size(), 1);
            const ZelLayoutConstraint &length = *stack->stackConstraints().first();
            QCOMPARE(length.firstAttribute(), isRow ? ZelLayoutConstraint::Width : ZelLayoutConstraint::Height);
            QCOMPARE(length.constant(), isRow ? 4.0 : 6.0);
            QCOMPARE(length.priority(), 250.0f);
        }
    }

    void aHiddenSubviewLeavesTheStack()
    {
        const std::tuple<int, QList<int>, int> rows[] = {{0, {3, 23}, 60},
                                                         {1, {3, 18}, 55}, // the spacing before the last may stay
                                                         {2, {3, 18}, -1}};
        for (const auto &[hidden, expectedStarts, length] : rows) {
            for (const int moment : {0, 1, 2}) { // of hiding: at first, while the stack is detached, while it is shown
                for (const bool isVertical : {false, true}) {
                    const TableRow row(QStringLiteral("%1 %2 %3").arg(hidden).arg(moment).arg(isVertical));
                    QWidget window;
                    ZelStackView &stack = isVertical ? static_cast<ZelStackView &>(*new ZelVerticalStackView)
                                                     : *new ZelHorizontalStackView;
                    const auto wanted = [&] {
                        return isVertical ? stack.sizeHint().height() : stack.sizeHint().width();
                    };
                    stack.setSpacing(5);
                    stack.setEdgeInsets(QMarginsF(3, 3, 7, 7));
                    const QList<QWidget *> boxes{box(10, 10), box(15, 15), box(30, 30)};
                    boxes[hidden]->setHidden(moment == 0);
                    stack.setSubviews(boxes);
                    QVERIFY(wanted() == 75 || moment == 0); // the constraints are there
                    boxes[hidden]->setHidden(moment < 2);
                    stack.setParent(&window);
                    stack.resize(300, 300);
                    window.show();
                    const auto constraints = stack.stackConstraints();
                    for (const bool hides : {true, false, true}) {
                        boxes[hidden]->setHidden(hides);
                        QCOMPARE(starts(stack), hides ? expectedStarts : (QList<int>{3, 18, 38}));
                    }
                    QCOMPARE(stack.stackConstraints(), constraints); // nothing is rebuilt
                    if (length >= 0)
                        QCOMPARE(wanted(), length);
                }
            }
        }
    }

    void stacksObserveOnlyWhileTheyAreInstalled()
    {
        QWidget window;
        ZelHorizontalStackView stack;
        stack.setEdgeInsets(QMarginsF(1, 2, 3, 4));
        auto *first = box(10, 10);
        auto *last = box(20, 10);
        stack.setSubviews({first, last});
        stack.setParent(&window);
        const auto constant = [&](QWidget *view) { return stack.compressionConstraints().value(view)->constant(); };
        QCOMPARE(constant(first), 10000.0);
        QCOMPARE(constant(last), -10000.0);
        first->hide();
        QCOMPARE(constant(first), 0.0);
        last->hide(); // takes the bottom inset until the next rebuild
        QCOMPARE(constant(last), -4.0);
        stack.setNeedsUpdateConstraints();
        QCoreApplication::processEvents();
        QCOMPARE(constant(last), -3.0);
        last->show();
        QCOMPARE(constant(last), -10000.0);
        const auto constraints = stack.stackConstraints();
        stack.removeFromSuperview();
        stack.setParent(&window);
        QCoreApplication::processEvents();
        QCOMPARE(stack.stackConstraints(), constraints); // nothing has changed
        stack.removeFromSuperview();
        first->show();
        QCOMPARE(constant(first), 0.0);
        stack.setParent(&window); // looks again
        QCOMPARE(constant(first), 10000.0);
    }

    void stacksFollowSubviewsThatComeAndGo()
    {
        struct Stack : ZelVerticalStackView
        {
            void updateConstraints() override
            {
                ++updates;
                ZelVerticalStackView::updateConstraints();
            }
            int updates = 0;
        };
        StackInWindow<Stack> shown({box(10, 10), box(10, 20)});
        shown.show(QSize(50, 100));
        shown.stack.updates = 0;
        QWidget *added = box(10, 7);
        shown.stack.addSubview(added, 1);
        for (int i = 0; i < 3; ++i)
            shown.stack.addSubview(box(10, 10));
        QCOMPARE(shown.stack.updates, 0);
        QCOMPARE(starts(shown.stack), (QList<int>{0, 10, 17, 37, 47, 57}));
        QCOMPARE(shown.stack.updates, 1); // for all of them
        delete shown.stack.subviews().first();
        QCOMPARE(starts(shown.stack), (QList<int>{0, 7, 27, 37, 47}));
        QCOMPARE(shown.stack.compressionConstraints().size(), 5);
        added->setParent(nullptr);
        added->setVisible(false); // nobody listens any more
        QCOMPARE(starts(shown.stack), (QList<int>{0, 20, 30, 40}));
        delete added;
    }

    void aContainerShowsTheViewOfItsController()
    {
        QWidget window;
        ZelContainerView container(&window);
        auto *below = new QWidget(&container);
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
        for (const QByteArray moment : {"load", "install", "uninstall"}) {
            QWidget window;
            const QPointer<ZelContainerView> container = new ZelContainerView(&window);
            LoggingController child(&log, "child");
            child.makeView = [&] {
                auto *view = new LoggingView(&log, "view");
                (moment == "install" ? view->onInstall : view->onUninstall) = [&, view] {
                    view->setParent(nullptr);
                    delete container;
                };
                if (moment == "load")
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

    void containersSwitchBetweenControllers()
    {
        SizedController small(QSize(30, 20));
        SizedController large(QSize(60, 50));
        auto *container = new ZelSwitchContainerView;
        container->setChildViewControllers({&small, &large});
        container->updateSelectedChildView();
        QVERIFY(!small.view()->isVisible()); // it would be a window of its own
        container->setSelectedChildViewControllerIndex(1);
        container->updateSelectedChildView();
        QWidget window;
        QVBoxLayout layout(&window);
        layout.setContentsMargins(0, 0, 0, 0);
        layout.addWidget(container, 0, Qt::AlignTop);
        window.resize(200, 200);
        window.show();
        for (const auto &[index, isSmallShown, isLargeShown] :
             {std::tuple(1, false, true), {0, true, false}, {7, false, false}}) {
            container->setSelectedChildViewControllerIndex(index);
            QCOMPARE(small.view()->isVisible(), isSmallShown);
            QCOMPARE(large.view()->isVisible(), isLargeShown);
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
        const auto own = std::make_unique<ZelView>(&container);
        SizedController first(QSize(10, 10));
        auto second = std::make_unique<SizedController>(QSize(20, 20));
        container.setChildViewControllers({&first, second.get()});
        container.setParent(&window);
        QCOMPARE(container.subviews(), (QList<QWidget *>{first.view(), second->view()}));
        const QPointer<ZelView> left = second->view();
        second.reset();
        QCOMPARE(container.childViewControllers(), QList<ZelViewController *>{&first});
        container.updateChildViews();
        const QPointer<ZelView> alive(own.get());
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
QTEST_MAIN(tst_Containers)
#include "tst_Containers.moc"
