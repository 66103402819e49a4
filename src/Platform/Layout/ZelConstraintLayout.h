// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelBaselineProvider.h"
#include "Platform/Layout/ZelLayoutConstraint.h"

#include <QLayout>

#include <memory>

/// How a child resists being made larger (hugging) or smaller (compression) than its size hint.
///
/// Where nothing was set, a child with a constraint layout resists as its contents do, and one whose size policy is to
/// expand has a hugging of 1. A size policy that forbids to grow counts 998 and one that forbids to shrink 999,
/// whatever was set.
struct ZelLayoutPriorities
{
    ZelLayoutPriority horizontalHugging = 250;
    ZelLayoutPriority verticalHugging = 250;
    ZelLayoutPriority horizontalCompression = 750;
    ZelLayoutPriority verticalCompression = 750;
};

/// A layout of constraints between a widget and its direct children.
///
/// A view lays out its own children: constraints name the layout's parent widget and its direct children. A deeper
/// descendant may be named for its baseline or size and then counts as a constant offset in its ancestor. A child is a
/// box with a size hint, a minimum size, a height for its width and a baseline. Hidden children keep their constraints
/// and size hints. Required constraints hold; of the rest, a higher priority always wins over any number of lower ones.
/// A conflict among required constraints is reported once (log line with the constraints in it), and the last is left
/// out. The horizontal axis is solved first, then the vertical one with the heights for the widths found.
class ZelConstraintLayout : public QLayout
{
    Q_OBJECT
public:
    explicit ZelConstraintLayout(QWidget *parent);
    ~ZelConstraintLayout() override;

    /// The constraint layout of the widget, made on first use; null when the widget has a layout of another kind.
    static ZelConstraintLayout *of(QWidget *widget);

    void addConstraint(const ZelLayoutConstraint::Ptr &constraint);
    void addConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    void removeConstraint(const ZelLayoutConstraint::Ptr &constraint);
    void removeConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    const QList<ZelLayoutConstraint::Ptr> &constraints() const;

    /// The priorities of a child, stored with the child whatever its parent.
    static ZelLayoutPriorities priorities(const QWidget *child);
    static void setPriorities(QWidget *child, const ZelLayoutPriorities &priorities);

    /// The distance of the first text baseline of a widget from its top, in points, at its size hint or the given
    /// height: a ZelBaselineProvider is asked, then the style's metrics of Qt's own controls; the bottom otherwise.
    static double baselineOffset(const QWidget *widget, double height);

    /// How the parent widget resists through its contents.
    ZelLayoutPriorities resistance() const;
    /// Where a child goes in its parent when that has the size, which need not be laid out yet.
    static QRect geometryWithin(const QWidget *child, const QSize &parentSize);

    // QLayout
    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    void setGeometry(const QRect &rect) override;
    void invalidate() override;
    Qt::Orientations expandingDirections() const override;

private:
    friend class ZelLayoutConstraint;
    friend class ZelLateLayouts;
    void constantDidChange(const ZelLayoutConstraint &constraint);
    void priorityDidChange();
    void tellAncestors() const;
    void checkChildren();
    bool isPlaced() const;
    bool placeChildren();

    struct Private; // the solver is heavy
    std::unique_ptr<Private> d;
};
