// SPDX-License-Identifier: MIT
#include "Layout/ZelConstraintLayout.h"
#include "Support/Random.h"

#include <QTest>
#include <array>
#include <memory>
#include <vector>

using Constraint = ZelLayoutConstraint;

namespace {

class Box : public QWidget
{
public:
    using QWidget::QWidget;
    QSize hint{10, 10};
    QSize sizeHint() const override { return hint; }
};

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
        Constraint::Ptr gapConstraint, leadingConstraint, trailingConstraint, heightConstraint, endConstraint;
    };

    QWidget container;
    std::vector<Row> rows;
    bool hasEnd = false;

    Column() { container.resize(100, 300); }
    ZelConstraintLayout *layout() { return ZelConstraintLayout::of(&container); }

    void add(int gap, int leading)
    {
        Row row;
        row.box = std::make_unique<Box>(&container);
        row.gap = gap;
        row.leading = leading;
        QWidget *above = rows.empty() ? &container : static_cast<QWidget *>(rows.back().box.get());
        const auto edgeAbove = rows.empty() ? Constraint::Top : Constraint::Bottom;
        row.gapConstraint = made(row.box.get(), Constraint::Top, above, edgeAbove, gap);
        row.leadingConstraint = made(row.box.get(), Constraint::Leading, &container, Constraint::Leading, row.leading);
        row.trailingConstraint = made(row.box.get(), Constraint::Trailing, &container, Constraint::Trailing, 0);
        layout()->addConstraints({row.gapConstraint, row.leadingConstraint, row.trailingConstraint});
        if (hasEnd) {
            row.endConstraint = made(&container, Constraint::Bottom, row.box.get(), Constraint::Bottom, 0,
                                     Constraint::GreaterThanOrEqual);
            layout()->addConstraint(row.endConstraint);
        }
        row.box->show();
        rows.push_back(std::move(row));
    }
    void setHeight(Row &row, int height)
    {
        row.height = height;
        if (row.heightConstraint && height >= 0) {
            row.heightConstraint->setConstant(height);
            return;
        }
        layout()->removeConstraint(row.heightConstraint);
        row.heightConstraint.reset();
        if (height < 0)
            return;
        row.heightConstraint = made(row.box.get(), Constraint::Height, nullptr, Constraint::NotAnAttribute, height);
        layout()->addConstraint(row.heightConstraint);
    }

    static Constraint::Ptr made(QWidget *item, Constraint::Attribute attribute, QWidget *other,
                                Constraint::Attribute otherAttribute, int constant,
                                Constraint::Relation relation = Constraint::Equal)
    {
        return Constraint::constraintWithItem(item, attribute, relation, other, otherAttribute, 1, constant);
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

/// Few numbers, so that columns are alike, become different and alike again.
void change(Column &column, Random &random)
{
    if (column.rows.empty() || (column.rows.size() < 4 && random.below(6) == 0)) {
        column.add(int(random.below(3)), int(random.below(3)));
        return;
    }
    Column::Row &row = column.rows[random.below(quint32(column.rows.size()))];
    const int number = int(random.below(3));
    switch (random.below(9)) {
    case 0:
        row.gapConstraint->setConstant(row.gap = number);
        break;
    case 1:
        row.leadingConstraint->setConstant(row.leading = number);
        break;
    case 2:
        row.trailingConstraint->setConstant(row.trailing = -number);
        break;
    case 3:
        column.setHeight(row, number * 10 - 10);
        break;
    case 4:
        row.box->hint = QSize(10 + number % 2, 10 + int(random.below(2)) * 7);
        row.box->updateGeometry();
        break;
    case 5:
        column.container.resize(100 + int(random.below(2)), 300);
        break;
    case 6:
        column.container.setLayoutDirection(random.below(2) ? Qt::RightToLeft : Qt::LeftToRight);
        break;
    case 7:
        if (row.endConstraint)
            row.endConstraint->setConstant(row.below = number);
        else
            row.box->setMinimumWidth(5 * number);
        break;
    default:
        if (random.below(2) == 0)
            column.rows.pop_back(); // the box dies with its constraints
    }
}

} // namespace

class tst_RandomLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void boxesAreWhereTheNumbersSay()
    {
        for (unsigned seed = 1; seed <= 10; ++seed) {
            Random random(seed);
            std::array<Column, 3> columns;
            columns[2].hasEnd = true;
            for (Column &column : columns)
                column.container.show();
            for (int step = 0; step < 500; ++step) {
                Column &column = columns[random.below(3)];
                change(column, random);
                if (random.below(3) > 0) // several changes at a time as well
                    column.check();
                if (QTest::currentTestFailed()) {
                    qWarning() << "seed" << seed << "step" << step;
                    return;
                }
            }
        }
    }
};

QTEST_MAIN(tst_RandomLayout)
#include "tst_RandomLayout.moc"
