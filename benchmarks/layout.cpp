// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "Layout/ZelConstraintLayout.h"

#include <QCoreApplication>
#include <QLabel>
#include <memory>

using Constraint = ZelLayoutConstraint;

namespace {

constexpr double Inset = 2;
constexpr double Spacing = 4;

/// A column of labels that are placed by constraints, as a vertical stack view makes them.
class ConstrainedColumn
{
public:
    explicit ConstrainedColumn(int count)
    {
        QList<Constraint::Ptr> constraints;
        constraints.reserve(5 * count);
        const auto add = [&](QWidget *item, Constraint::Attribute attribute, Constraint::Relation relation,
                             QWidget *other, Constraint::Attribute otherAttribute, double constant, float priority) {
            constraints.append(Constraint::constraintWithItem(item, attribute, relation, other, otherAttribute, 1,
                                                              constant, priority));
        };
        QLabel *previous = nullptr;
        for (int i = 0; i < count; ++i) {
            auto *row = new QLabel(QStringLiteral("Row"), &view);
            add(row, Constraint::Left, Constraint::Equal, &view, Constraint::Left, Inset, 1000);
            add(row, Constraint::Right, Constraint::Equal, &view, Constraint::Right, -Inset, 1000);
            if (previous) {
                add(row, Constraint::Top, Constraint::Equal, previous, Constraint::Bottom, Spacing, 750);
                add(row, Constraint::Top, Constraint::LessThanOrEqual, previous, Constraint::Top, 10000, 751);
                bounds.append(constraints.last());
            } else {
                add(row, Constraint::Top, Constraint::Equal, &view, Constraint::Top, Inset, 1000);
            }
            rows.append(row);
            previous = row;
        }
        add(previous, Constraint::Bottom, Constraint::Equal, &view, Constraint::Bottom, -Inset, 250);
        add(previous, Constraint::Top, Constraint::GreaterThanOrEqual, &view, Constraint::Bottom, -10000, 251);
        ZelConstraintLayout::of(&view)->addConstraints(constraints);
    }

    QWidget view;
    QList<QLabel *> rows;
    QList<Constraint::Ptr> bounds;
};

/// The same column, placed by hand.
class PlainColumn
{
public:
    explicit PlainColumn(int count)
    {
        for (int i = 0; i < count; ++i)
            rows.append(new QLabel(QStringLiteral("Row"), &view));
    }
    void place(int width, int rowHeight)
    {
        view.resize(width, view.height());
        int y = int(Inset);
        for (QLabel *row : rows) {
            row->setGeometry(int(Inset), y, width - 2 * int(Inset), rowHeight);
            y += rowHeight + int(Spacing);
        }
    }

    QWidget view;
    QList<QLabel *> rows;
};

int nextWidth()
{
    static int step = 0;
    return 200 + (++step % 40);
}

void resizeColumn()
{
    constexpr int Count = 500;
    ConstrainedColumn ours(Count);
    PlainColumn plain(Count);
    const int height = ours.view.sizeHint().height();
    const int rowHeight = ours.rows.first()->sizeHint().height();
    for (QWidget *view : {&ours.view, &plain.view}) {
        view->resize(150, height);
        view->show();
    }
    QCoreApplication::processEvents();
    const auto resize = [&] { ours.view.resize(nextWidth(), height); };
    const auto place = [&] { plain.place(nextWidth(), rowHeight); };
    resize();
    plain.place(ours.view.width(), rowHeight);
    Bench::expect(ours.rows.last()->geometry() == plain.rows.last()->geometry(), "both columns look the same");
    Bench::compare("resize a shown stack of 500 rows", 1.6, resize, place, Bench::small);
}

void hideRow()
{
    constexpr int Count = 500;
    ConstrainedColumn ours(Count);
    PlainColumn plain(Count);
    const int height = ours.view.sizeHint().height();
    const int rowHeight = ours.rows.first()->sizeHint().height();
    for (QWidget *view : {&ours.view, &plain.view}) {
        view->resize(200, height);
        view->show();
    }
    QCoreApplication::processEvents();
    plain.place(200, rowHeight);
    bool isHidden = false;
    const auto hide = [&] {
        isHidden = !isHidden;
        ours.bounds.first()->setConstant(isHidden ? 0 : 10000);
        QCoreApplication::processEvents();
    };
    int y = 0;
    const auto move = [&] {
        y = y ? 0 : rowHeight + int(Spacing);
        for (int i = 1; i < Count; ++i)
            plain.rows[i]->move(int(Inset), int(Inset) + i * (rowHeight + int(Spacing)) - y);
        QCoreApplication::processEvents();
    };
    hide();
    move();
    Bench::expect(ours.rows[1]->y() == ours.rows[0]->y(), "the first row gave up its place");
    Bench::expect(ours.rows.last()->geometry() == plain.rows.last()->geometry(), "both columns look the same");
    Bench::compare("hide the first of 500 stacked rows", 1.6, hide, move, Bench::small);
}

void buildColumns()
{
    Bench::scaling("build and lay out a stack, per row", 1.5, {100, 1000, 10000}, [](int count) {
        return Bench::Work([=] {
            ConstrainedColumn column(count);
            QCoreApplication::sendPostedEvents(); // Qt's own cost of removing posted events grows with their number
            column.view.resize(column.view.sizeHint());
            column.view.layout()->activate();
            Bench::expect(column.rows.last()->y() > count, "the rows are in a column");
            QCoreApplication::sendPostedEvents();
        });
    });
}

} // namespace

ZEL_BENCHMARK(resizeColumn)
ZEL_BENCHMARK(hideRow)
ZEL_BENCHMARK(buildColumns)
