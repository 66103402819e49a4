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
        Constraint::Ptr gapConstraint, leadingConstraint, trailingConstraint, heightConstraint;
    };

    QWidget container;
    std::vector<Row> rows;

    Column() { container.resize(100, 300); }

    void add(int gap, int leading)
    {
        Row row;
        row.box = std::make_unique<Box>(&container);
        row.gap = gap;
        row.leading = leading;
        QWidget *above = rows.empty() ? &container : static_cast<QWidget *>(rows.back().box.get());
        row.gapConstraint =
            equal(row.box.get(), Constraint::Top, above, rows.empty() ? Constraint::Top : Constraint::Bottom, gap);
        row.leadingConstraint = equal(row.box.get(), Constraint::Leading, &container, Constraint::Leading, row.leading);
        row.trailingConstraint = equal(row.box.get(), Constraint::Trailing, &container, Constraint::Trailing, 0);
        ZelConstraintLayout::of(&container)
            ->addConstraints({row.gapConstraint, row.leadingConstraint, row.trailingConstraint});
        row.box->show();
        rows.push_back(std::move(row));
    }
    void setHeight(Row &row, int height)
    {
        ZelConstraintLayout *layout = ZelConstraintLayout::of(&container);
        row.height = height;
        if (row.heightConstraint && height >= 0) {
            row.heightConstraint->setConstant(height);
            return;
        }
        layout->removeConstraint(row.heightConstraint);
        row.heightConstraint.reset();
        if (height < 0)
            return;
        row.heightConstraint = equal(row.box.get(), Constraint::Height, nullptr, Constraint::NotAnAttribute, height);
        layout->addConstraint(row.heightConstraint);
    }

    static Constraint::Ptr equal(QWidget *item, Constraint::Attribute attribute, QWidget *other,
                                 Constraint::Attribute otherAttribute, int constant)
    {
        return Constraint::constraintWithItem(item, attribute, Constraint::Equal, other, otherAttribute, 1, constant);
    }

    /// Where everything is by the numbers alone.
    void check()
    {
        auto *layout = ZelConstraintLayout::of(&container);
        int bottom = 0;
        layout->activate();
        for (const Row &row : rows) {
            const int top = bottom + row.gap;
            bottom = top + (row.height < 0 ? row.box->hint.height() : row.height);
            const int width = container.width() - row.leading + row.trailing;
            const bool isMirrored = container.layoutDirection() == Qt::RightToLeft;
            const QRect place(isMirrored ? -row.trailing : row.leading, top, width, bottom - top);
            QCOMPARE(row.box->geometry(), place);
            QCOMPARE(ZelConstraintLayout::geometryWithin(row.box.get(), container.size()), place);
        }
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
    switch (random.below(8)) {
    case 0:
        row.gap = int(random.below(3));
        row.gapConstraint->setConstant(row.gap);
        break;
    case 1:
        row.leading = int(random.below(3));
        row.leadingConstraint->setConstant(row.leading);
        break;
    case 2:
        row.trailing = -int(random.below(3));
        row.trailingConstraint->setConstant(row.trailing);
        break;
    case 3:
        column.setHeight(row, int(random.below(3)) * 10 - 10);
        break;
    case 4:
        row.box->hint = QSize(10, 10 + int(random.below(2)) * 7);
        row.box->updateGeometry();
        break;
    case 5:
        column.container.resize(100 + int(random.below(2)), 300);
        break;
    case 6:
        column.container.setLayoutDirection(random.below(2) ? Qt::RightToLeft : Qt::LeftToRight);
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
