// SPDX-License-Identifier: MIT
#include "Layout/ZelConstraintLayout.h"

#include "Core/Errors/ZelSourcePlace.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using Constraint = ZelLayoutConstraint;

namespace {

/// A box of a fixed wish that counts how often it is asked.
class Box : public QWidget
{
public:
    Box(const QSize &hint, QWidget *parent)
        : QWidget(parent)
        , m_hint(hint)
    {
    }
    QSize sizeHint() const override
    {
        ++asked;
        return m_hint;
    }
    void setHint(const QSize &hint)
    {
        m_hint = hint;
        updateGeometry();
    }
    std::function<void()> resized;
    mutable int asked = 0;

protected:
    void resizeEvent(QResizeEvent *) override
    {
        if (resized)
            resized();
    }

private:
    QSize m_hint;
};

/// Counts the layout requests that reach a widget.
class RequestCounter : public QObject
{
public:
    explicit RequestCounter(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::LayoutRequest;
        return false;
    }
    int count = 0;
};

/// Three boxes in a column as a stack view constrains them.
struct Column
{
    explicit Column(QWidget *parent)
        : layout(ZelConstraintLayout::of(parent))
    {
        QWidget *previous = nullptr;
        for (int i = 0; i < 3; ++i) {
            auto *box = new Box({50 + 10 * i, 20 + i}, parent);
            layout->addConstraints({
                Constraint::constraintWithItem(box, Constraint::Left, Constraint::Equal, parent, Constraint::Left, 1,
                                               4),
                Constraint::constraintWithItem(box, Constraint::Right, Constraint::Equal, parent, Constraint::Right, 1,
                                               -4),
            });
            if (!previous)
                layout->addConstraint(Constraint::constraintWithItem(box, Constraint::Top, Constraint::Equal, parent,
                                                                     Constraint::Top, 1, 2));
            else
                addLink(previous, box);
            previous = box;
            boxes.append(box);
        }
        bounds.append(Constraint::constraintWithItem(previous, Constraint::Top, Constraint::GreaterThanOrEqual, parent,
                                                     Constraint::Bottom, 1, -10000, 251));
        layout->addConstraint(bounds.last());
        layout->addConstraint(Constraint::constraintWithItem(previous, Constraint::Bottom, Constraint::Equal, parent,
                                                             Constraint::Bottom, 1, -2, 250));
    }

    void addLink(QWidget *previous, QWidget *box)
    {
        bounds.append(Constraint::constraintWithItem(box, Constraint::Top, Constraint::LessThanOrEqual, previous,
                                                     Constraint::Top, 1, 10000, 751));
        layout->addConstraint(bounds.last());
        layout->addConstraint(Constraint::constraintWithItem(box, Constraint::Top, Constraint::Equal, previous,
                                                             Constraint::Bottom, 1, 8, 750));
    }

    ZelConstraintLayout *layout;
    QList<Box *> boxes;
    QList<Constraint::Ptr> bounds;
};

void addFormat(QWidget *parent, const QString &format, const QHash<QString, QWidget *> &views)
{
    ZelConstraintLayout::of(parent)->addConstraints(Constraint::constraintsWithVisualFormat(format, views));
}

QStringList logged;
void collect(QtMsgType, const QMessageLogContext &, const QString &text)
{
    logged.append(text);
}

} // namespace

class tst_ZelConstraintLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void columnIsAsLongAsItsBoxes();
    void hidingGivesUpThePlaceWithOneRequest();
    void unhiddenConstraintsKeepThePlaceOfHiddenChildren();
    void hintIsAskedOncePerChange();
    void changedHintMovesTheOthers();
    void heightFollowsWidth();
    void nestedContentsDecideWhoStretches();
    void settledTreeStaysQuiet();
    void minimumIgnoresYieldingChildren();
    void baselinesOfDescendantsAreAligned();
    void mirroredInRightToLeft();
    void neighboursShareEdges();
    void widgetsWithoutConstraintsAreLeftAlone();
    void conflictIsReportedOnceWithItsConstraints();
    void tooSmallContainerIsNoConflict();
    void childrenMayDieInAnyOrder();
    void layoutMayDieWhilePlacing();
    void constraintsOutliveTheirLayout();
    void childMayArriveAfterItsConstraints();
};

void tst_ZelConstraintLayout::columnIsAsLongAsItsBoxes()
{
    QWidget view;
    Column column(&view);
    QCOMPARE(column.layout->sizeHint(), QSize(4 + 70 + 4, 2 + 20 + 8 + 21 + 8 + 22 + 2));
    view.resize(100, 200);
    column.layout->activate();
    QCOMPARE(column.boxes[0]->geometry(), QRect(4, 2, 92, 20));
    QCOMPARE(column.boxes[1]->geometry(), QRect(4, 30, 92, 21));
    QCOMPARE(column.boxes[2]->geometry(), QRect(4, 59, 92, 22));
}

void tst_ZelConstraintLayout::hidingGivesUpThePlaceWithOneRequest()
{
    QWidget view;
    Column column(&view);
    view.resize(100, 83);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();

    RequestCounter requests(&view);
    column.boxes[1]->hide();
    column.bounds[0]->setConstant(10000); // no change
    column.bounds[1]->setConstant(0);
    QCoreApplication::processEvents();
    QCOMPARE(requests.count, 1);
    QCOMPARE(column.boxes[2]->y(), column.boxes[1]->y());
    QCOMPARE(column.layout->sizeHint().height(), 2 + 20 + 8 + 22 + 2);

    column.boxes[2]->hide();
    column.bounds[2]->setConstant(-2);
    QCOMPARE(column.layout->sizeHint().height(), 2 + 20 + 8 + 2);
    column.boxes[1]->show();
    column.bounds[1]->setConstant(10000);
    QCOMPARE(column.layout->sizeHint().height(), 2 + 20 + 8 + 21 + 8 + 2);
}

void tst_ZelConstraintLayout::unhiddenConstraintsKeepThePlaceOfHiddenChildren()
{
    QWidget view;
    Box first({30, 10}, &view);
    Box second({30, 10}, &view);
    addFormat(&view, "V:|[a]-4-[b]|", {{"a", &first}, {"b", &second}});
    first.hide();
    QCOMPARE(view.sizeHint().height(), 24);
    view.resize(50, 24);
    view.layout()->activate();
    QCOMPARE(second.y(), 14);
}

void tst_ZelConstraintLayout::hintIsAskedOncePerChange()
{
    QWidget view;
    Column column(&view);
    view.resize(300, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
    const int asked = column.boxes[0]->asked;
    view.resize(400, 250);
    column.bounds[1]->setConstant(0);
    column.boxes[2]->setHint({70, 40});
    QCoreApplication::processEvents();
    QCOMPARE(column.boxes[0]->asked, asked);
    QVERIFY(asked <= 2);
}

void tst_ZelConstraintLayout::changedHintMovesTheOthers()
{
    QWidget view;
    Column column(&view);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    column.boxes[0]->setHint({50, 35});
    QCoreApplication::processEvents();
    QCOMPARE(column.boxes[1]->y(), 2 + 35 + 8);
    column.boxes[1]->setFixedHeight(60);
    QCoreApplication::processEvents();
    QCOMPARE(column.boxes[2]->y(), 2 + 35 + 8 + 60 + 8);
}

void tst_ZelConstraintLayout::heightFollowsWidth()
{
    QWidget view;
    auto *label = new QLabel(QString("word ").repeated(60), &view);
    label->setWordWrap(true);
    auto *box = new Box({20, 10}, &view);
    addFormat(&view, "H:|-5-[label]-5-|", {{"label", label}});
    addFormat(&view, "V:|[label][box]|", {{"label", label}, {"box", box}});
    QVERIFY(view.hasHeightForWidth());
    QCOMPARE(view.heightForWidth(210), label->heightForWidth(200) + 10);
    QVERIFY(view.heightForWidth(110) > view.heightForWidth(210));
    view.resize(210, view.heightForWidth(210));
    view.layout()->activate();
    QCOMPARE(box->y(), label->heightForWidth(200));
    QCOMPARE(box->height(), 10);
    label->setText("short");
    QCOMPARE(view.heightForWidth(210), label->heightForWidth(200) + 10);
}

void tst_ZelConstraintLayout::nestedContentsDecideWhoStretches()
{
    QWidget view;
    auto *left = new QWidget(&view);
    auto *right = new QWidget(&view);
    auto *stiff = new Box({30, 10}, left);
    auto *soft = new Box({30, 10}, right);
    addFormat(left, "H:|-1-[v]-1-|", {{"v", stiff}});
    addFormat(right, "H:|-1-[v]-1-|", {{"v", soft}});
    addFormat(&view, "H:|[left]-4-[right]|", {{"left", left}, {"right", right}});
    ZelLayoutPriorities priorities;
    priorities.horizontalHugging = 1;
    ZelConstraintLayout::setPriorities(soft, priorities);
    QCOMPARE(view.sizeHint().width(), 68);
    view.resize(168, 20);
    view.layout()->activate();
    QCOMPARE(left->width(), 32);
    QCOMPARE(right->width(), 132);

    ZelConstraintLayout::setPriorities(soft, {});
    ZelConstraintLayout::setPriorities(stiff, priorities);
    view.layout()->activate();
    QCOMPARE(left->width(), 132);
}

void tst_ZelConstraintLayout::settledTreeStaysQuiet()
{
    QWidget window;
    auto *outer = new QVBoxLayout(&window);
    auto *view = new QWidget;
    outer->addWidget(view);
    auto *inner = new QWidget(view);
    auto *plain = new QWidget(inner);
    (new QVBoxLayout(plain))->addWidget(new QLineEdit);
    addFormat(inner, "H:|[v]|", {{"v", plain}});
    addFormat(inner, "V:|[v]|", {{"v", plain}});
    addFormat(view, "H:|[v]|", {{"v", inner}});
    addFormat(view, "V:|[v]|", {{"v", inner}});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    QCOMPARE(view->minimumSizeHint(), plain->minimumSizeHint());

    RequestCounter requests(view);
    window.resize(window.width() + 50, window.height() + 50);
    QCoreApplication::processEvents();
    QCOMPARE(requests.count, 0);
    QCOMPARE(plain->size(), view->size());
}

void tst_ZelConstraintLayout::minimumIgnoresYieldingChildren()
{
    QWidget view;
    Box stiff({30, 10}, &view);
    stiff.setMinimumWidth(12);
    QLineEdit soft(&view);
    ZelLayoutPriorities priorities;
    priorities.horizontalCompression = 1;
    ZelConstraintLayout::setPriorities(&soft, priorities);
    addFormat(&view, "H:|[a][b]|", {{"a", &stiff}, {"b", &soft}});
    QCOMPARE(view.minimumSizeHint().width(), 12);
    QCOMPARE(view.sizeHint().width(), 30 + soft.sizeHint().width());
}

void tst_ZelConstraintLayout::baselinesOfDescendantsAreAligned()
{
    QWidget view;
    auto *editor = new QWidget(&view);
    auto *field = new QLineEdit(editor);
    auto *label = new QLabel("Name", &view);
    addFormat(editor, "V:|-9-[field]-2-|", {{"field", field}});
    addFormat(&view, "V:|[editor]|", {{"editor", editor}});
    ZelConstraintLayout::of(&view)->addConstraint(Constraint::constraintWithItem(
        label, Constraint::Baseline, Constraint::Equal, field, Constraint::Baseline, 1, 0, 750));
    view.resize(200, view.sizeHint().height());
    view.layout()->activate();
    editor->layout()->activate();
    const double labelBaseline = label->y() + ZelConstraintLayout::baselineOffset(label, label->height());
    const double fieldBaseline = editor->y() + field->y() + ZelConstraintLayout::baselineOffset(field, field->height());
    QVERIFY(std::abs(labelBaseline - fieldBaseline) <= 0.5);
    QVERIFY(label->y() > 9);
    QCOMPARE(label->height(), label->sizeHint().height());
}

void tst_ZelConstraintLayout::mirroredInRightToLeft()
{
    QWidget view;
    Box first({30, 10}, &view);
    Box second({40, 10}, &view);
    addFormat(&view, "H:|-3-[a]-5-[b]", {{"a", &first}, {"b", &second}});
    view.resize(200, 20);
    view.layout()->activate();
    QCOMPARE(second.x(), 38);
    view.setLayoutDirection(Qt::RightToLeft);
    view.layout()->activate();
    QCOMPARE(first.geometry().right() + 1, 197);
    QCOMPARE(second.geometry().right() + 1, 162);
    QCOMPARE(second.width(), 40);

    auto *deep = new Box({10, 5}, &second);
    Box label({20, 10}, &view);
    addFormat(&second, "H:|-6-[v]", {{"v", deep}});
    ZelConstraintLayout::of(&view)->addConstraint(Constraint::constraintWithItem(
        &label, Constraint::Leading, Constraint::Equal, deep, Constraint::Leading, 1, 4));
    view.layout()->activate();
    QCOMPARE(label.geometry().right() + 1, 162 - 6 - 4);
}

void tst_ZelConstraintLayout::neighboursShareEdges()
{
    QWidget view;
    QList<QWidget *> boxes;
    QHash<QString, QWidget *> views;
    for (const char *name : {"a", "b", "c"}) {
        boxes.append(new Box({10, 10}, &view));
        views.insert(name, boxes.last());
    }
    addFormat(&view, "H:|[a][b(a)][c(a)]|", views);
    for (int width = 30; width < 40; ++width) {
        view.resize(width, 20);
        view.layout()->activate();
        ZelConstraintLayout::of(&view)->setGeometry(view.rect());
        QCOMPARE(boxes[0]->x(), 0);
        QCOMPARE(boxes[1]->x(), boxes[0]->x() + boxes[0]->width());
        QCOMPARE(boxes[2]->x(), boxes[1]->x() + boxes[1]->width());
        QCOMPARE(boxes[2]->x() + boxes[2]->width(), width);
    }
}

void tst_ZelConstraintLayout::widgetsWithoutConstraintsAreLeftAlone()
{
    QWidget view;
    Box named({10, 10}, &view);
    Box other({10, 10}, &view);
    other.setGeometry(7, 8, 9, 10);
    addFormat(&view, "H:|[v]|", {{"v", &named}});
    view.resize(50, 50);
    view.layout()->activate();
    QCOMPARE(other.geometry(), QRect(7, 8, 9, 10));
    ZelConstraintLayout::of(&view)->removeConstraints(ZelConstraintLayout::of(&view)->constraints());
    view.resize(80, 80);
    view.layout()->activate();
    QCOMPARE(named.width(), 50);
}

void tst_ZelConstraintLayout::conflictIsReportedOnceWithItsConstraints()
{
    QWidget view;
    Box box({10, 10}, &view);
    box.setObjectName("box");
    addFormat(&view, "H:|-2-[v(30)]", {{"v", &box}});
    addFormat(&view, "H:[v(40)]-2-|", {{"v", &box}});
    ZelSourcePlace::setForObject(&view, {"a.xml", 3, 5, "sliver"});
    logged.clear();
    const auto before = qInstallMessageHandler(collect);
    for (int width : {50, 60}) {
        view.resize(width, 20);
        ZelConstraintLayout::of(&view)->setGeometry(view.rect());
    }
    view.sizeHint();
    qInstallMessageHandler(before);
    QCOMPARE(logged, QStringList{"WARNING: Conflicting layout constraints, the last one is left out: box.width = 30; "
                                 "box.width = 40 (a.xml:3:5, <sliver>)"});
    QCOMPARE(box.geometry().left(), 2);
    QCOMPARE(box.width(), 30);
}

void tst_ZelConstraintLayout::tooSmallContainerIsNoConflict()
{
    QWidget view;
    Box box({10, 10}, &view);
    addFormat(&view, "H:|-40-[v(30)]-40-|", {{"v", &box}});
    logged.clear();
    const auto before = qInstallMessageHandler(collect);
    ZelConstraintLayout::of(&view)->setGeometry(QRect(0, 0, 20, 20));
    qInstallMessageHandler(before);
    QCOMPARE(logged, QStringList());
    QCOMPARE(box.geometry().left(), 40);
    QCOMPARE(box.width(), 30);
}

void tst_ZelConstraintLayout::childrenMayDieInAnyOrder()
{
    QWidget view;
    Column column(&view);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    auto *editor = new QWidget(&view);
    auto *field = new QLineEdit(editor);
    column.layout->addConstraint(Constraint::constraintWithItem(
        column.boxes[0], Constraint::Baseline, Constraint::Equal, field, Constraint::Baseline, 1, 0, 500));
    QCoreApplication::processEvents();
    delete field; // the deeper item of a constraint that was solved
    column.layout->sizeHint();
    delete column.boxes[1];
    column.boxes[0]->setParent(nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(column.layout->count(), 1);
    delete column.boxes[0];
    delete column.boxes[2];
    column.bounds[0]->setConstant(0);
    QCoreApplication::processEvents();
    column.layout->sizeHint();
    QCOMPARE(column.layout->constraints().size(), 0);
}

void tst_ZelConstraintLayout::layoutMayDieWhilePlacing()
{
    QWidget view;
    auto *column = new Column(&view);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    column->boxes[1]->resized = [&] { delete view.layout(); };
    view.resize(90, 100);
    QCOMPARE(view.layout(), nullptr);
    delete column;

    Column other(&view);
    for (QWidget *box : other.boxes)
        box->show();
    other.boxes[0]->resized = [&] { delete std::exchange(other.boxes[1], nullptr); };
    other.layout->setGeometry(QRect(0, 0, 70, 80));
    QCOMPARE(other.boxes[1], nullptr);
    other.layout->setGeometry(view.rect());
    QCOMPARE(other.layout->count(), 2);
}

void tst_ZelConstraintLayout::constraintsOutliveTheirLayout()
{
    QWidget view;
    Column column(&view);
    delete view.layout();
    column.bounds[0]->setConstant(0);
    column.bounds[0]->setPriority(20);
    QWidget other;
    ZelConstraintLayout::of(&other)->addConstraints(column.bounds);
    QCOMPARE(ZelConstraintLayout::of(&other)->constraints().size(), column.bounds.size());
}

void tst_ZelConstraintLayout::childMayArriveAfterItsConstraints()
{
    QWidget view;
    Box box({10, 10}, nullptr);
    auto *layout = ZelConstraintLayout::of(&view);
    for (const auto attribute : {Constraint::Left, Constraint::Right})
        layout->addConstraint(Constraint::constraintWithItem(&box, attribute, Constraint::Equal, &view, attribute));
    QCOMPARE(layout->sizeHint().width(), 0);
    box.setParent(&view);
    layout->invalidate();
    QCOMPARE(layout->sizeHint().width(), 10);
    box.setParent(nullptr);
    QCOMPARE(layout->sizeHint().width(), 0);
}

QTEST_MAIN(tst_ZelConstraintLayout)
#include "tst_ZelConstraintLayout.moc"
