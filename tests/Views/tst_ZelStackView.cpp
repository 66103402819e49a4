// SPDX-License-Identifier: MIT
#include "Views/ZelHorizontalStackView.h"
#include "Views/ZelVerticalStackView.h"

#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

namespace {

using Constraint = ZelLayoutConstraint;

/// A widget of one size.
QWidget *box(int width, int height)
{
    auto *widget = new QWidget;
    widget->setFixedSize(width, height);
    return widget;
}

/// A stack in a shown window, as large as it wants to be or larger.
template<typename Stack> struct ShownStack
{
    explicit ShownStack(const QList<QWidget *> &views)
    {
        layout.setContentsMargins(0, 0, 0, 0);
        layout.addWidget(&stack);
        stack.setSubviews(views);
    }
    void show(const QSize &size = {})
    {
        window.resize(size.isValid() ? size : window.sizeHint());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        settle();
    }
    /// Lets pending layout be done.
    void settle() { QCoreApplication::processEvents(); }

    QWidget window;
    QVBoxLayout layout{&window};
    Stack &stack = *new Stack;
};

QList<int> starts(const ZelStackView &stack)
{
    QList<int> result;
    for (const QWidget *view : stack.subviews())
        result.append(stack.orientation() == Qt::Horizontal ? view->x() : view->y());
    return result;
}

} // namespace

class tst_ZelStackView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void linesUpItsSubviews()
    {
        const QList<QWidget *> boxes{new QWidget, new QWidget, new QWidget};
        for (QWidget *view : boxes)
            view->setMinimumSize(20, 10);
        ShownStack<ZelHorizontalStackView> shown(boxes);
        shown.stack.setSpacing(8);
        shown.stack.setEdgeInsets(QMarginsF(4, 2, 4, 2));
        shown.stack.setEqualSizes(true);
        shown.show(QSize(100, 30));
        QCOMPARE(boxes[0]->x(), 4);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(boxes[i]->y(), 2);
            QCOMPARE(boxes[i]->height(), 26);
            QCOMPARE(boxes[i]->width(), boxes[0]->width());
            if (i > 0)
                QCOMPARE(boxes[i]->x(), boxes[i - 1]->geometry().right() + 1 + 8);
        }
        QCOMPARE(shown.stack.minimumSizeHint(), QSize(3 * 20 + 2 * 8 + 8, 14));
    }

    void aHiddenSubviewLeavesTheLine_data()
    {
        QTest::addColumn<bool>("vertical");
        QTest::addColumn<int>("hidden");
        QTest::addColumn<QList<int>>("starts"); // of those that are shown
        QTest::addColumn<int>("length");
        for (const bool vertical : {false, true}) {
            const auto row = [&](const char *name, int hidden) -> QTestData & {
                return QTest::addRow("%s, %s", vertical ? "column" : "row", name) << vertical << hidden;
            };
            row("none", -1) << QList<int>{3, 18, 38} << 75;
            row("first", 0) << QList<int>{3, 23} << 60;
            row("middle", 1) << QList<int>{3, 18} << 55;
            row("last", 2) << QList<int>{3, 18} << -1; // the spacing before the last may stay
        }
    }
    void aHiddenSubviewLeavesTheLine()
    {
        QFETCH(bool, vertical);
        QFETCH(int, hidden);
        QFETCH(QList<int>, starts);
        QFETCH(int, length);
        // Hidden at different moments, with the same result.
        for (const auto moment : {QLatin1String("before"), QLatin1String("detached"), QLatin1String("shown"),
                                  QLatin1String("shown again")}) {
            QWidget window;
            QBoxLayout layout(vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, &window);
            layout.setContentsMargins(0, 0, 0, 0);
            std::unique_ptr<ZelStackView> made;
            if (vertical)
                made = std::make_unique<ZelVerticalStackView>();
            else
                made = std::make_unique<ZelHorizontalStackView>();
            ZelStackView &stack = *made;
            stack.setSpacing(5);
            stack.setEdgeInsets(QMarginsF(3, 3, 7, 7));
            QList<QWidget *> boxes;
            for (int size : {10, 15, 30})
                boxes.append(box(size, size));
            const auto hide = [&] {
                if (hidden >= 0)
                    boxes[hidden]->hide();
            };
            if (moment == QLatin1String("before"))
                hide();
            stack.setSubviews(boxes);
            if (moment == QLatin1String("detached")) {
                stack.sizeHint(); // the constraints are there
                hide();
            }
            layout.addWidget(&stack);
            layout.addStretch();
            window.resize(300, 300);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            if (moment.startsWith(QLatin1String("shown"))) {
                const auto constraints = stack.stackConstraints();
                hide();
                QCoreApplication::processEvents();
                QCOMPARE(stack.stackConstraints(), constraints); // nothing is rebuilt
            }
            if (moment == QLatin1String("shown again") && hidden >= 0) {
                boxes[hidden]->show();
                QCoreApplication::processEvents();
                QCOMPARE(::starts(stack), (QList<int>{3, 18, 38}));
                hide();
            }
            QCoreApplication::processEvents();
            QList<int> shownStarts = ::starts(stack);
            if (hidden >= 0)
                shownStarts.removeAt(hidden);
            QVERIFY2(shownStarts == starts, moment.data());
            if (length >= 0)
                QCOMPARE(vertical ? stack.sizeHint().height() : stack.sizeHint().width(), length);
            layout.removeWidget(&stack);
        }
    }

    void aRowOfFixedChildrenIsAsHighAsTheHighest()
    {
        const auto fixed = [](int height) {
            auto *widget = new QFrame; // a size hint of its own, and no fixed size that would be a required limit
            widget->setLayout(new QVBoxLayout);
            widget->layout()->addItem(new QSpacerItem(40, height));
            widget->layout()->setContentsMargins(0, 0, 0, 0);
            widget->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            return widget;
        };
        auto *row = new ZelHorizontalStackView;
        row->setSubviews({fixed(22), fixed(25)});
        ShownStack<ZelVerticalStackView> shown({row, box(10, 10)});
        shown.show();
        QCOMPARE(row->height(), 25);
        QCOMPARE(shown.stack.subviews().last()->y() - row->y(), row->height() + int(shown.stack.spacing()));
    }

    void hidingTheLastTakesTheBottomInsetUntilTheNextRebuild()
    {
        ShownStack<ZelHorizontalStackView> shown({box(10, 10), box(20, 10)});
        shown.stack.setEdgeInsets(QMarginsF(1, 2, 3, 4));
        shown.show();
        QWidget *last = shown.stack.subviews().last();
        const auto constant = [&] { return shown.stack.compressionConstraints().value(last)->constant(); };
        QCOMPARE(constant(), -10000.0);
        last->hide();
        QCOMPARE(constant(), -4.0);
        shown.stack.setNeedsUpdateConstraints();
        shown.settle();
        QCOMPARE(constant(), -3.0);
        last->show();
        QCOMPARE(constant(), -10000.0);
    }

    void buildsTheConstraintsOfAnEmptyLine()
    {
        ZelVerticalStackView stack;
        stack.setEdgeInsets(QMarginsF(1, 2, 3, 4));
        stack.updateConstraintsIfNeeded();
        QCOMPARE(stack.stackConstraints().size(), 1);
        const Constraint &length = *stack.stackConstraints().first();
        QCOMPARE(length.firstAttribute(), Constraint::Height);
        QCOMPARE(length.constant(), 6.0);
        QCOMPARE(length.priority(), 250.0f);
        QCOMPARE(stack.sizeHint().height(), 6);
    }

    void followsSubviewsThatComeAndGo()
    {
        ShownStack<ZelVerticalStackView> shown({box(10, 10), box(10, 20)});
        shown.show(QSize(50, 100));
        QWidget *added = box(10, 7);
        shown.stack.addSubview(added, 1);
        shown.settle();
        QCOMPARE(starts(shown.stack), (QList<int>{0, 10, 17}));
        delete shown.stack.subviews().first();
        shown.settle();
        QCOMPARE(starts(shown.stack), (QList<int>{0, 7}));
        QCOMPARE(shown.stack.compressionConstraints().size(), 2);
        added->setParent(nullptr);
        added->setVisible(false); // nobody listens any more
        shown.settle();
        QCOMPARE(starts(shown.stack), QList<int>{0});
        delete added;
        shown.stack.setSubviews({});
        shown.settle();
        QCOMPARE(shown.stack.sizeHint().height(), 0);
    }

    void rowsThatComeOneByOneAreLinedUpOnce()
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
        ShownStack<Stack> shown({box(10, 10)});
        shown.show(QSize(50, 100));
        shown.stack.updates = 0;
        for (int i = 0; i < 3; ++i)
            shown.stack.addSubview(box(10, 10));
        QCOMPARE(shown.stack.updates, 0);
        shown.settle();
        QCOMPARE(shown.stack.updates, 1);
        QCOMPARE(starts(shown.stack), (QList<int>{0, 10, 20, 30}));
    }

    void observesOnlyWhileInstalled()
    {
        QWidget window;
        auto *view = box(10, 10);
        ZelVerticalStackView stack;
        stack.setSubviews({view, box(10, 10)});
        stack.setParent(&window);
        const auto constant = [&] { return stack.compressionConstraints().value(view)->constant(); };
        QCOMPARE(constant(), 10000.0);
        view->hide();
        QCOMPARE(constant(), 0.0);
        stack.removeFromSuperview();
        view->show();
        QCOMPARE(constant(), 0.0);
        stack.setParent(&window); // looks again
        QCOMPARE(constant(), 10000.0);
    }

    void hasTheBaselineOfItsFirstSubview()
    {
        QLabel *label = new QLabel("text");
        ShownStack<ZelVerticalStackView> shown({label, box(10, 30)});
        shown.stack.setEdgeInsets(QMarginsF(0, 5, 0, 0));
        shown.show();
        const double fromTop = shown.stack.baselineOffsetForHeight(shown.stack.height());
        QCOMPARE(fromTop, 5 + ZelConstraintLayout::baselineOffset(label, label->height()));
        QCOMPARE(shown.stack.baselineOffsetFromBottom(), shown.stack.height() - fromTop);
        QCOMPARE(ZelVerticalStackView().baselineOffsetFromBottom(), 0.0);
    }
};

QTEST_MAIN(tst_ZelStackView)
#include "tst_ZelStackView.moc"
