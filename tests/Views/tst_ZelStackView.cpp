// SPDX-License-Identifier: MIT
#include "Support/TableRow.h"
#include "Views/ZelHorizontalStackView.h"
#include "Views/ZelVerticalStackView.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace std::string_view_literals;

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
        settle();
    }
    /// Lets pending layout be done.
    void settle() { QCoreApplication::processEvents(); }

    QWidget window;
    QVBoxLayout layout{&window};
    Stack &stack = *new Stack;
};

/// Of those that are shown.
QList<int> starts(const ZelStackView &stack)
{
    QList<int> result;
    for (const QWidget *view : stack.subviews())
        if (!view->isHidden())
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

        const auto fixed = [](int height) {
            auto *widget = new QFrame; // a size hint of its own, and no fixed size that would be a required limit
            widget->setLayout(new QVBoxLayout);
            widget->layout()->addItem(new QSpacerItem(40, height));
            widget->layout()->setContentsMargins(0, 0, 0, 0);
            widget->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            return widget;
        };
        auto *row = new ZelHorizontalStackView; // is as high as the highest
        row->setSubviews({fixed(22), fixed(25)});
        StackInWindow<ZelVerticalStackView> column({row, box(10, 10)});
        column.show();
        QCOMPARE(starts(column.stack), (QList<int>{0, 25 + int(column.stack.spacing())}));
    }

    void aHiddenSubviewLeavesTheLine()
    {
        const std::tuple<int, QList<int>, int> rows[] = {{-1, {3, 18, 38}, 75},
                                                         {0, {3, 23}, 60},
                                                         {1, {3, 18}, 55}, // the spacing before the last may stay
                                                         {2, {3, 18}, -1}};
        for (const auto &[hidden, expectedStarts, length] : rows) {
            for (const char *moment : {"before", "detached", "shown", "shown again"}) { // with the same result
                for (const bool isVertical : {false, true}) {
                    const TableRow row(QStringLiteral("%1 %2 %3").arg(hidden).arg(moment).arg(isVertical));
                    QWidget window;
                    QBoxLayout layout(isVertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, &window);
                    layout.setContentsMargins(0, 0, 0, 0);
                    ZelStackView &stack = isVertical ? static_cast<ZelStackView &>(*new ZelVerticalStackView)
                                                     : *new ZelHorizontalStackView;
                    stack.setSpacing(5);
                    stack.setEdgeInsets(QMarginsF(3, 3, 7, 7));
                    const QList<QWidget *> boxes{box(10, 10), box(15, 15), box(30, 30)};
                    const auto hide = [&, index = hidden](bool hides = true) {
                        if (index >= 0)
                            boxes[index]->setHidden(hides);
                    };
                    hide(moment == "before"sv);
                    stack.setSubviews(boxes);
                    stack.sizeHint(); // the constraints are there
                    hide(moment == "before"sv || moment == "detached"sv);
                    layout.addWidget(&stack);
                    layout.addStretch();
                    window.resize(300, 300);
                    window.show();
                    QVERIFY(QTest::qWaitForWindowExposed(&window));
                    const auto constraints = stack.stackConstraints();
                    for (const bool hides : {true, moment != "shown again"sv, true}) {
                        hide(hides);
                        QCoreApplication::processEvents();
                        QCOMPARE(starts(stack), hides ? expectedStarts : (QList<int>{3, 18, 38}));
                    }
                    QCOMPARE(stack.stackConstraints(), constraints); // nothing is rebuilt
                    if (length >= 0)
                        QCOMPARE(isVertical ? stack.sizeHint().height() : stack.sizeHint().width(), length);
                }
            }
        }
    }

    void hidingTheLastTakesTheBottomInsetUntilTheNextRebuild()
    {
        StackInWindow<ZelHorizontalStackView> shown({box(10, 10), box(20, 10)}, QMarginsF(1, 2, 3, 4));
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
        const auto check = [](ZelStackView &&stack, ZelLayoutConstraint::Attribute attribute, double constant) {
            stack.setEdgeInsets(QMarginsF(1, 2, 3, 4));
            stack.updateConstraintsIfNeeded();
            QCOMPARE(stack.stackConstraints().size(), 1);
            const ZelLayoutConstraint &length = *stack.stackConstraints().first();
            QCOMPARE(length.firstAttribute(), attribute);
            QCOMPARE(length.constant(), constant);
            QCOMPARE(length.priority(), 250.0f);
            QCOMPARE(stack.sizeHint(), attribute == ZelLayoutConstraint::Height ? QSize(0, 6) : QSize(4, 0));
        };
        check(ZelVerticalStackView(), ZelLayoutConstraint::Height, 6);
        check(ZelHorizontalStackView(), ZelLayoutConstraint::Width, 4);
    }

    void followsSubviewsThatComeAndGo()
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
        shown.settle();
        QCOMPARE(shown.stack.updates, 1); // for all of them
        QCOMPARE(starts(shown.stack), (QList<int>{0, 10, 17, 37, 47, 57}));
        delete shown.stack.subviews().first();
        shown.settle();
        QCOMPARE(starts(shown.stack), (QList<int>{0, 7, 27, 37, 47}));
        QCOMPARE(shown.stack.compressionConstraints().size(), 5);
        added->setParent(nullptr);
        added->setVisible(false); // nobody listens any more
        shown.settle();
        QCOMPARE(starts(shown.stack), (QList<int>{0, 20, 30, 40}));
        delete added;
        shown.stack.setSubviews({});
        shown.settle();
        QCOMPARE(shown.stack.sizeHint().height(), 0);
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
        stack.updateConstraintsIfNeeded();
        const auto constraints = stack.stackConstraints();
        stack.removeFromSuperview();
        stack.setParent(&window);
        QCoreApplication::processEvents();
        QCOMPARE(stack.stackConstraints(), constraints); // nothing has changed
        stack.removeFromSuperview();
        view->show();
        QCOMPARE(constant(), 0.0);
        stack.setParent(&window); // looks again
        QCOMPARE(constant(), 10000.0);
    }

    void hasTheBaselineOfItsFirstSubview()
    {
        auto *label = new QLabel("text");
        StackInWindow<ZelVerticalStackView> shown({label, box(10, 30)}, QMarginsF(0, 5, 0, 0));
        shown.show();
        const double fromTop = shown.stack.baselineOffsetForHeight(shown.stack.height());
        QCOMPARE(fromTop, 5 + ZelConstraintLayout::baselineOffset(label, label->height()));
        QCOMPARE(shown.stack.baselineOffsetFromBottom(), shown.stack.height() - fromTop);
        QCOMPARE(ZelVerticalStackView().baselineOffsetFromBottom(), 0.0);
    }
};

QTEST_MAIN(tst_ZelStackView)
#include "tst_ZelStackView.moc"
