// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelSourcePlace.h"
#include "Layout/ZelConstraintLayout.h"
#include "Support/Random.h"
#include <QTest>
#include <QtWidgets>
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

QList<ZelLayoutConstraint::Ptr> add(QWidget *parent, const QString &format, const QHash<QString, QWidget *> &views)
{
    const auto constraints = ZelLayoutConstraint::constraintsWithVisualFormat(format, views);
    ZelConstraintLayout::of(parent)->addConstraints(constraints);
    return constraints;
}

QWidget *labelOf(const QString &text, Qt::Alignment alignment, bool wraps = false)
{
    auto *label = new QLabel(text);
    label->setAlignment(alignment);
    label->setWordWrap(wraps);
    label->setContentsMargins(0, 3, 0, 5);
    label->setMargin(2);
    return label;
}

template<typename Control> QWidget *controlOf(const QString &text)
{
    auto *control = new Control;
    control->setProperty("text", text);
    control->setProperty("plainText", text);
    control->setProperty("title", text);
    control->setProperty("specialValueText", text);
    if (auto *box = qobject_cast<QComboBox *>(control))
        box->addItem(text);
    return control;
}

/// A view of three boxes that formats call a, b and c.
struct View : QWidget
{
    Box *const a = new Box(this), *const b = new Box(this), *const c = new Box(this);
    int requests = 0; // for a layout, that reached it
    ZelConstraintLayout *constraintLayout() { return ZelConstraintLayout::of(this); }
    QList<ZelLayoutConstraint::Ptr> add(const QString &format, QWidget *v = nullptr)
    {
        return ::add(this, format, {{"a", a}, {"b", b}, {"c", c}, {"v", v}});
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
        return QTest::qWaitForWindowExposed(this);
    }
    bool event(QEvent *event) override
    {
        requests += event->type() == QEvent::LayoutRequest;
        return QWidget::event(event);
    }
};

/// A column of boxes, each at a distance below the former one and from both sides, and the numbers that say so.
struct Column
{
    struct Number
    {
        int value = 0;
        ZelLayoutConstraint::Ptr constraint;
        void set(int number) { constraint->setConstant(value = number); }
    };
    struct Row
    {
        std::unique_ptr<Box> box;
        Number gap, leading, trailing;
        Number height{-1, {}}; // -1: as it wants
        Number below;          // how far the container reaches at least below the box; in columns with an end
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
        auto made = std::make_unique<Box>(&container);
        Box *box = made.get(), *above = rows.empty() ? nullptr : rows.back().box.get();
        const auto top = above ? tie(box, Top, above, Bottom, gap) : tie(box, Top, &container, Top, gap);
        Row row{std::move(made), {gap, top}, {leading, tie(box, Leading, &container, Leading, leading)}};
        row.trailing.constraint = tie(box, Trailing, &container, Trailing);
        if (hasEnd)
            row.below.constraint = tie(&container, Bottom, box, Bottom, 0, GreaterThanOrEqual);
        for (const Number &number : {row.gap, row.leading, row.trailing, row.below})
            layout()->addConstraint(number.constraint);
        box->show();
        rows.push_back(std::move(row));
    }
    void setHeight(Row &row, int height)
    {
        layout()->removeConstraint(row.height.constraint);
        row.height = {height, height < 0 ? nullptr : tie(row.box.get(), Height, nullptr, NotAnAttribute, height)};
        layout()->addConstraint(row.height.constraint);
    }
    /// Takes few numbers, so that columns are alike, become different and alike again.
    void change(Random &random)
    {
        const int number = int(random.below(3)), kind = int(random.below(9));
        if (rows.empty() || (rows.size() < 4 && random.below(6) == 0))
            return add(number, int(random.below(3)));
        Row &row = rows[random.below(quint32(rows.size()))];
        if (kind == 0)
            row.gap.set(number);
        else if (kind == 1)
            row.leading.set(number);
        else if (kind == 2)
            row.trailing.set(-number);
        else if (kind == 3)
            setHeight(row, number * 10 - 10);
        else if (kind == 4)
            row.box->setHint({10 + number % 2, 10 + int(random.below(2)) * 7});
        else if (kind == 5)
            container.resize(100 + number % 2, 300);
        else if (kind == 6)
            container.setLayoutDirection(number % 2 ? Qt::RightToLeft : Qt::LeftToRight);
        else if (kind == 7 && hasEnd)
            row.below.set(number);
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
            const int top = bottom + row.gap.value, margins = row.leading.value - row.trailing.value;
            bottom = top + (row.height.value < 0 ? row.box->hint.height() : row.height.value);
            const QRect place(isMirrored ? -row.trailing.value : row.leading.value, top, container.width() - margins,
                              bottom - top);
            QCOMPARE(row.box->geometry(), place);
            QCOMPARE(ZelConstraintLayout::geometryWithin(row.box.get(), container.size()), place);
            const QRect wider(place.topLeft(), place.size() + QSize(50, 0));
            QCOMPARE(ZelConstraintLayout::geometryWithin(row.box.get(), container.size() + QSize(50, 40)), wider);
            wanted = wanted.expandedTo({margins + row.box->hint.width(), hasEnd ? bottom + row.below.value : 0});
            least = least.expandedTo({margins + row.box->minimumWidth(), 0});
        }
        QCOMPARE(layout()->sizeHint(), wanted);
        QCOMPARE(layout()->minimumSize().width(), least.width());
        QCOMPARE(layout()->count(), int(rows.size()));
    }
};
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
        QCoreApplication::processEvents();
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
        QVERIFY(view.hasHeightForWidth() && view.heightForWidth(110) > view.heightForWidth(210));
        view.settle(210, view.heightForWidth(210));
        QCOMPARE(view.a->geometry(), QRect(0, label.heightForWidth(200), view.a->width(), 10));
        label.setText("short");
        QCOMPARE(view.heightForWidth(210), label.heightForWidth(200) + 10);
    }

    void nestedContentsDecideWhoStretches()
    {
        View view;
        ZelLayoutPriorities soft;
        soft.horizontalHugging = 1;
        Box inA(view.a), inB(view.b);
        add(view.a, "H:|-1-[v(>=20)]-1-|", {{"v", &inA}});
        add(view.b, "H:|-1-[v]-1-|", {{"v", &inB}});
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
        add(editor, "V:|-9-[v]-2-|", {{"v", &field}});
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

    /// A letter without a descender is drawn down to the baseline.
    void baselinesAreWhereTextIsDrawn()
    {
        using Make = QWidget *(*)(const QString &);
        const std::pair<const char *, Make> rows[] = {
            {"top", [](const QString &text) { return labelOf(text, Qt::AlignTop); }},
            {"middle", [](const QString &text) { return labelOf(text, Qt::AlignVCenter); }},
            {"bottom", [](const QString &text) { return labelOf(text, Qt::AlignBottom); }},
            {"wrapped", [](const QString &text) { return labelOf(text, Qt::AlignVCenter, true); }},
            {"line edit", controlOf<QLineEdit>},
            {"button", controlOf<QPushButton>},
            {"check box", controlOf<QCheckBox>},
            {"combo box", controlOf<QComboBox>},
            {"spin box", controlOf<QSpinBox>},
            {"text edit", controlOf<QTextEdit>},
            {"plain text edit", controlOf<QPlainTextEdit>},
            {"group box", controlOf<QGroupBox>},
        };
        for (const auto &[name, make] : rows) {
            for (const int height : {40, 61}) {
                const auto picture = [&, make = make](const QString &text) {
                    const std::unique_ptr<QWidget> control(make(text));
                    control->resize(120, height);
                    return std::pair(control->grab().toImage(),
                                     ZelConstraintLayout::baselineOffset(control.get(), height));
                };
                const auto [with, baseline] = picture("HH");
                const QImage without = picture(" ").first;
                int bottom = height - 1;
                const auto isLike = [&, a = with](int y) {
                    return std::equal(a.constScanLine(y), a.constScanLine(y) + a.bytesPerLine(),
                                      without.constScanLine(y));
                };
                while (bottom > 0 && isLike(bottom))
                    --bottom;
                QVERIFY2(std::abs(bottom + 1 - baseline) < 1.5,
                         qPrintable(QStringLiteral("%1 of %2: drawn to %3, baseline %4")
                                        .arg(QLatin1String(name))
                                        .arg(height)
                                        .arg(bottom + 1)
                                        .arg(baseline)));
            }
        }
    }

    void descendantsAreMirroredInRightToLeft()
    {
        View view;
        view.setLayoutDirection(Qt::RightToLeft);
        Box deep(view.b);
        view.add("H:|-3-[a]-5-[b(40)]");
        add(view.b, "H:|-6-[v]", {{"v", &deep}});
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
        QTest::failOnWarning(QRegularExpression("."));
        QTest::ignoreMessage(QtWarningMsg, "WARNING: Conflicting layout constraints, the last one is left out: "
                                           "box.width = 30; box.width = 40 (a.xml:3:5, <sliver>)");
        for (int width : {50, 60})
            view.constraintLayout()->setGeometry(QRect(0, 0, width, 20));
        view.sizeHint();
        QVERIFY(view.a->x() == 2 && view.a->width() == 30 && view.b->y() == 40 && view.b->height() == 30);
    }

    void childrenMayComeAndDieInAnyOrder()
    {
        View view;
        const auto constraints = view.add("V:|[a]-2-[b]-2-[c]|");
        auto *field = new QLineEdit(new QWidget(&view));
        view.constraintLayout()->addConstraint(tie(view.a, Leading, field, Leading));
        QVERIFY(view.showAndWait());
        QCoreApplication::processEvents();
        delete field; // the deeper item of a constraint that was solved
        view.sizeHint();
        delete view.b;
        view.a->setParent(nullptr);
        QCoreApplication::processEvents();
        QCOMPARE(view.layout()->count(), 1);
        view.constraintLayout()->addConstraints({tie(view.a, Left, &view, Left), tie(view.a, Right, &view, Right)});
        for (const bool isChild : {false, true, false}) { // after its constraints
            view.a->setParent(isChild ? &view : nullptr);
            view.layout()->invalidate();
            QCOMPARE(view.sizeHint().width(), isChild ? 10 : 0);
        }
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
};
QTEST_MAIN(tst_ZelConstraintLayout)
#include "tst_ZelConstraintLayout.moc"
