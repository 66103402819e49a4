// SPDX-License-Identifier: MIT
#include "Layout/ZelConstraintLayout.h"

#include "Core/Errors/ZelSourcePlace.h"
#include "Support/Random.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <array>
#include <memory>

using enum ZelLayoutConstraint::Attribute;
using enum ZelLayoutConstraint::Relation;

namespace {

ZelLayoutConstraint::Ptr tie(QWidget *item, ZelLayoutConstraint::Attribute attribute, QWidget *other,
                             ZelLayoutConstraint::Attribute otherAttribute, int constant = 0,
                             ZelLayoutConstraint::Relation relation = Equal)
{
    return ZelLayoutConstraint::constraintWithItem(item, attribute, relation, other, otherAttribute, 1, constant);
}

/// Counts how often it is asked for what it wants.
class Box : public QWidget
{
public:
    using QWidget::QWidget;
    QSize sizeHint() const override
    {
        ++asked;
        return layout() ? QWidget::sizeHint() : hint;
    }
    void setHint(const QSize &size)
    {
        hint = size;
        updateGeometry();
    }
    QSize hint{10, 10};
    std::function<void()> resized;
    mutable int asked = 0;

protected:
    void resizeEvent(QResizeEvent *) override
    {
        if (resized)
            resized();
    }
};

/// A view of three boxes that formats call a, b and c.
struct View : QWidget
{
    Box *const a = new Box(this), *const b = new Box(this), *const c = new Box(this);
    int requests = 0; // for a layout, that reached it

    ZelConstraintLayout *constraintLayout() { return ZelConstraintLayout::of(this); }
    QList<ZelLayoutConstraint::Ptr> add(const QString &format, QWidget *v = nullptr, QWidget *w = nullptr)
    {
        const QHash<QString, QWidget *> views{{"a", a}, {"b", b}, {"c", c}, {"v", v}, {"w", w}};
        const auto constraints = ZelLayoutConstraint::constraintsWithVisualFormat(format, views);
        constraintLayout()->addConstraints(constraints);
        return constraints;
    }
    void settle(int width, int height)
    {
        resize(width, height);
        layout()->activate();
    }
    bool showAndWait()
    {
        resize(300, 300);
        show();
        const bool isExposed = QTest::qWaitForWindowExposed(this);
        QCoreApplication::processEvents();
        return isExposed;
    }
    bool event(QEvent *event) override
    {
        requests += event->type() == QEvent::LayoutRequest;
        return QWidget::event(event);
    }
};

void addFormat(QWidget *parent, const QString &format, QWidget *v)
{
    ZelConstraintLayout::of(parent)->addConstraints(
        ZelLayoutConstraint::constraintsWithVisualFormat(format, {{"v", v}}));
}

/// A column of boxes, each at a distance below the former one and from both sides, and the numbers that say so.
struct Column
{
    struct Row
    {
        std::unique_ptr<Box> box;
        int gap = 0;
        int leading = 0;
        int trailing = 0;
        int height = -1; // -1: as it wants
        int below = 0;   // how far the container reaches at least below the box; in columns with an end
        ZelLayoutConstraint::Ptr gapConstraint, leadingConstraint, trailingConstraint, heightConstraint, endConstraint;
    };

    QWidget container;
    std::vector<Row> rows;
    bool hasEnd = false;

    Column()
    {
        container.resize(100, 300);
        container.show();
    }
    ZelConstraintLayout *layout() { return ZelConstraintLayout::of(&container); }

    void add(int gap, int leading)
    {
        Row row{std::make_unique<Box>(&container), gap, leading};
        Box *box = row.box.get();
        row.gapConstraint =
            rows.empty() ? tie(box, Top, &container, Top, gap) : tie(box, Top, rows.back().box.get(), Bottom, gap);
        row.leadingConstraint = tie(box, Leading, &container, Leading, leading);
        row.trailingConstraint = tie(box, Trailing, &container, Trailing);
        if (hasEnd)
            row.endConstraint = tie(&container, Bottom, box, Bottom, 0, GreaterThanOrEqual);
        layout()->addConstraints({row.gapConstraint, row.leadingConstraint, row.trailingConstraint, row.endConstraint});
        box->show();
        rows.push_back(std::move(row));
    }
    void setHeight(Row &row, int height)
    {
        row.height = height;
        layout()->removeConstraint(row.heightConstraint);
        row.heightConstraint.reset();
        if (height >= 0)
            row.heightConstraint = tie(row.box.get(), Height, nullptr, NotAnAttribute, height);
        layout()->addConstraint(row.heightConstraint);
    }
    /// Takes few numbers, so that columns are alike, become different and alike again.
    void change(Random &random)
    {
        const int number = int(random.below(3)), kind = int(random.below(9));
        if (rows.empty() || (rows.size() < 4 && random.below(6) == 0))
            return add(number, int(random.below(3)));
        Row &row = rows[random.below(quint32(rows.size()))];
        if (kind == 0)
            row.gapConstraint->setConstant(row.gap = number);
        else if (kind == 1)
            row.leadingConstraint->setConstant(row.leading = number);
        else if (kind == 2)
            row.trailingConstraint->setConstant(row.trailing = -number);
        else if (kind == 3)
            setHeight(row, number * 10 - 10);
        else if (kind == 4)
            row.box->setHint({10 + number % 2, 10 + int(random.below(2)) * 7});
        else if (kind == 5)
            container.resize(100 + number % 2, 300);
        else if (kind == 6)
            container.setLayoutDirection(number % 2 ? Qt::RightToLeft : Qt::LeftToRight);
        else if (kind == 7 && hasEnd)
            row.endConstraint->setConstant(row.below = number);
        else if (kind == 7)
            row.box->setMinimumWidth(5 * number);
        else if (number == 0)
            rows.pop_back(); // the box dies with its constraints
    }
    /// Where everything is by the numbers alone, and how large the container wants to be.
    void check()
    {
        int bottom = 0;
        QSize wanted(0, 0), least(0, 0);
        layout()->activate();
        const bool isMirrored = container.layoutDirection() == Qt::RightToLeft;
        for (const Row &row : rows) {
            const int top = bottom + row.gap, margins = row.leading - row.trailing;
            bottom = top + (row.height < 0 ? row.box->hint.height() : row.height);
            const QRect place(isMirrored ? -row.trailing : row.leading, top, container.width() - margins, bottom - top);
            QCOMPARE(row.box->geometry(), place);
            QCOMPARE(ZelConstraintLayout::geometryWithin(row.box.get(), container.size()), place);
            const QRect wider(place.topLeft(), place.size() + QSize(50, 0));
            QCOMPARE(ZelConstraintLayout::geometryWithin(row.box.get(), container.size() + QSize(50, 40)), wider);
            wanted = wanted.expandedTo({margins + row.box->hint.width(), hasEnd ? bottom + row.below : 0});
            least = least.expandedTo({margins + row.box->minimumWidth(), 0});
        }
        QCOMPARE(layout()->sizeHint(), wanted);
        QCOMPARE(layout()->minimumSize().width(), least.width());
        QCOMPARE(layout()->count(), int(rows.size()));
    }
};

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
    void boxesAreWhereTheNumbersSay()
    {
        for (unsigned seed = 1; seed <= 10; ++seed) {
            Random random(seed);
            std::array<Column, 3> columns;
            columns[2].hasEnd = true;
            for (int step = 0; step < 500; ++step) {
                Column &column = columns[random.below(3)];
                column.change(random);
                if (random.below(3) > 0) // several changes at a time as well
                    column.check();
                if (QTest::currentTestFailed()) {
                    qWarning() << "seed" << seed << "step" << step;
                    return;
                }
            }
        }
    }

    void changesAreGatheredAndUnchangedBoxesNotAskedAgain()
    {
        View view;
        const auto constraints = view.add("V:|-2-[a]-8-[b]-8-[c]");
        QVERIFY(view.showAndWait());
        const int asked = view.a->asked;
        view.requests = 0;
        constraints[1]->setConstant(8); // no change
        QCoreApplication::processEvents();
        QVERIFY(view.requests == 0 && asked <= 2);
        view.b->hide(); // which keeps its place
        constraints[1]->setConstant(1);
        view.c->setHint({10, 40});
        QCoreApplication::processEvents();
        QCOMPARE(view.c->geometry(), QRect(0, 2 + 10 + 1 + 10 + 8, view.c->width(), 40));
        QCOMPARE(view.requests, 1);
        view.b->show();
        view.b->setFixedHeight(60);
        view.resize(400, 250);
        QCoreApplication::processEvents();
        QCOMPARE(view.c->y(), 2 + 10 + 1 + 60 + 8);
        QCOMPARE(view.a->asked, asked);
    }

    void heightFollowsWidth()
    {
        View view;
        QLabel label(QString("word ").repeated(60), &view);
        label.setWordWrap(true);
        view.add("H:|-5-[v]-5-|", &label);
        view.add("V:|[v][a]|", &label);
        QVERIFY(view.hasHeightForWidth());
        QCOMPARE(view.heightForWidth(210), label.heightForWidth(200) + 10);
        QVERIFY(view.heightForWidth(110) > view.heightForWidth(210));
        view.settle(210, view.heightForWidth(210));
        QCOMPARE(view.a->y(), label.heightForWidth(200));
        QCOMPARE(view.a->height(), 10);
        label.setText("short");
        QCOMPARE(view.heightForWidth(210), label.heightForWidth(200) + 10);
    }

    void nestedContentsDecideWhoStretches()
    {
        View view;
        ZelLayoutPriorities soft;
        soft.horizontalHugging = 1;
        Box inA(view.a), inB(view.b);
        addFormat(view.a, "H:|-1-[v(>=20)]-1-|", &inA);
        addFormat(view.b, "H:|-1-[v]-1-|", &inB);
        view.add("H:|[a]-4-[b]|");
        QCOMPARE(view.sizeHint().width(), 22 + 4 + 12);
        for (const bool isFirst : {false, true}) {
            ZelConstraintLayout::setPriorities(&inA, isFirst ? soft : ZelLayoutPriorities());
            ZelConstraintLayout::setPriorities(&inB, isFirst ? ZelLayoutPriorities() : soft);
            view.settle(138, 20);
            QCOMPARE(view.a->width(), isFirst ? 122 : 22);
            QCOMPARE(view.b->width(), isFirst ? 12 : 112);
        }
    }

    void settledTreeStaysQuiet()
    {
        QWidget window;
        View view;
        QWidget *inner = view.a;
        auto *plain = new QWidget(inner);
        (new QVBoxLayout(plain))->addWidget(new QLineEdit);
        for (const QString direction : {"H:", "V:"}) {
            addFormat(inner, direction + "|[v]|", plain);
            view.add(direction + "|[a]|");
        }
        (new QVBoxLayout(&window))->addWidget(&view);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        QCOMPARE(view.minimumSizeHint(), plain->minimumSizeHint());
        view.requests = 0;
        window.resize(window.width() + 50, window.height() + 50);
        QCoreApplication::processEvents();
        QCOMPARE(view.requests, 0);
        QCOMPARE(plain->size(), view.size());
    }

    void minimumIgnoresYieldingChildren()
    {
        View view;
        view.a->setMinimumWidth(12);
        view.a->setHint({30, 10});
        QLineEdit soft(&view);
        ZelLayoutPriorities priorities;
        priorities.horizontalCompression = 1;
        ZelConstraintLayout::setPriorities(&soft, priorities);
        view.add("H:|[a][v]|", &soft);
        QCOMPARE(view.minimumSizeHint().width(), 12);
        QCOMPARE(view.sizeHint().width(), 30 + soft.sizeHint().width());
    }

    void baselinesOfDescendantsAreAligned()
    {
        View view;
        QWidget *editor = view.a;
        QLineEdit field(editor);
        QLabel label("Name", &view);
        addFormat(editor, "V:|-9-[v]-2-|", &field);
        view.add("V:|[a]|");
        const auto baseline = tie(&label, Baseline, &field, Baseline);
        baseline->setPriority(750);
        view.constraintLayout()->addConstraint(baseline);
        view.settle(200, view.sizeHint().height());
        editor->layout()->activate();
        const double labels = label.y() + ZelConstraintLayout::baselineOffset(&label, label.height());
        const double fields = editor->y() + field.y() + ZelConstraintLayout::baselineOffset(&field, field.height());
        QVERIFY(std::abs(labels - fields) <= 0.5);
        QVERIFY(label.y() > 9);
        QCOMPARE(label.height(), label.sizeHint().height());
    }

    void descendantsAreMirroredInRightToLeft()
    {
        View view;
        view.setLayoutDirection(Qt::RightToLeft);
        Box deep(view.b);
        view.add("H:|-3-[a]-5-[b(40)]");
        addFormat(view.b, "H:|-6-[v]", &deep);
        view.constraintLayout()->addConstraint(tie(view.c, Leading, &deep, Leading, 4));
        view.settle(200, 20);
        QCOMPARE(view.a->geometry().right() + 1, 200 - 3);
        QCOMPARE(view.b->geometry().right() + 1, 200 - 3 - 10 - 5);
        QCOMPARE(view.c->geometry().right() + 1, 200 - 3 - 10 - 5 - 6 - 4);
    }

    void neighboursShareEdges()
    {
        View view;
        view.add("H:|[a][b(a)][c(a)]|");
        for (int width = 30; width < 40; ++width) {
            view.resize(width, 20);
            view.constraintLayout()->setGeometry(view.rect());
            QCOMPARE(view.a->x(), 0);
            QCOMPARE(view.b->x(), view.a->width());
            QCOMPARE(view.c->x(), view.b->x() + view.b->width());
            QCOMPARE(view.c->x() + view.c->width(), width);
        }
    }

    void widgetsWithoutConstraintsAreLeftAlone()
    {
        View view;
        view.b->setGeometry(7, 8, 9, 10);
        const auto constraints = view.add("H:|[a]|");
        view.settle(50, 50);
        QCOMPARE(view.b->geometry(), QRect(7, 8, 9, 10));
        view.constraintLayout()->removeConstraints(constraints);
        view.settle(80, 80);
        QCOMPARE(view.a->width(), 50);
    }

    /// A container that is too small is none.
    void aConflictIsReportedOnceWithItsConstraints()
    {
        View view;
        view.a->setObjectName("box");
        view.add("V:|-40-[b(30)]-40-|");
        view.add("H:|-2-[a(30)]");
        view.add("H:[a(40)]-2-|");
        ZelSourcePlace::setForObject(&view, {"a.xml", 3, 5, "sliver"});
        logged.clear();
        const auto before = qInstallMessageHandler(collect);
        for (int width : {50, 60})
            view.constraintLayout()->setGeometry(QRect(0, 0, width, 20));
        view.sizeHint();
        qInstallMessageHandler(before);
        QCOMPARE(logged, QStringList{"WARNING: Conflicting layout constraints, the last one is left out: "
                                     "box.width = 30; box.width = 40 (a.xml:3:5, <sliver>)"});
        QVERIFY(view.a->x() == 2 && view.a->width() == 30 && view.b->y() == 40 && view.b->height() == 30);
    }

    void childrenMayDieInAnyOrder()
    {
        View view;
        const auto constraints = view.add("V:|[a]-2-[b]-2-[c]|");
        auto *field = new QLineEdit(new QWidget(&view));
        view.constraintLayout()->addConstraint(tie(view.a, Leading, field, Leading));
        QVERIFY(view.showAndWait());
        delete field; // the deeper item of a constraint that was solved
        view.sizeHint();
        delete view.b;
        view.a->setParent(nullptr);
        QCoreApplication::processEvents();
        QCOMPARE(view.layout()->count(), 1);
        delete view.a;
        delete view.c;
        constraints[1]->setConstant(0);
        QCoreApplication::processEvents();
        view.sizeHint();
        QCOMPARE(view.constraintLayout()->constraints().size(), 0);
    }

    void layoutOrChildMayDieWhilePlacing()
    {
        View view;
        const auto constraints = view.add("H:|[a]|") + view.add("H:|[b]|") + view.add("H:|[c]|");
        QVERIFY(view.showAndWait());
        view.b->resized = [&] { delete view.layout(); };
        view.resize(190, 100);
        QCOMPARE(view.layout(), nullptr);
        view.b->resized = nullptr;
        constraints[0]->setConstant(1); // constraints outlive their layout
        constraints[0]->setPriority(20);
        view.constraintLayout()->addConstraints(constraints);
        QCOMPARE(view.constraintLayout()->constraints(), constraints);
        const QPointer<Box> second = view.b;
        view.a->resized = [&] { delete second; };
        view.constraintLayout()->setGeometry(QRect(0, 0, 70, 80));
        QVERIFY(!second);
        view.constraintLayout()->setGeometry(QRect(0, 0, 80, 80));
        QCOMPARE(view.layout()->count(), 2);
        QCOMPARE(view.c->width(), 80);
    }

    void childMayArriveAfterItsConstraints()
    {
        View view;
        view.add("H:|[a]|");
        for (QWidget *const parent : {(QWidget *)nullptr, (QWidget *)&view, (QWidget *)nullptr}) {
            view.a->setParent(parent);
            view.layout()->invalidate();
            QCOMPARE(view.sizeHint().width(), parent ? 10 : 0);
        }
        delete view.a;
    }
};

QTEST_MAIN(tst_ZelConstraintLayout)
#include "tst_ZelConstraintLayout.moc"
