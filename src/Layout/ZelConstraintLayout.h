// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"
#include "Layout/ZelLayoutConstraint.h"

#include <QLayout>

#include <memory>

/// How a child resists being made larger (hugging) or smaller (compression) than its size hint.
///
/// Where nothing was set, a child with a constraint layout resists as its contents do, and another child whose size
/// policy has the expand flag has a hugging of 1. Whatever was set, a size policy without the grow flag makes the
/// hugging 998, QSizePolicy::Fixed makes the compression 999 as well, and no other value goes above these.
struct ZEL_EXPORT ZelLayoutPriorities
{
    ZelLayoutPriority horizontalHugging = 250;
    ZelLayoutPriority verticalHugging = 250;
    ZelLayoutPriority horizontalCompression = 750;
    ZelLayoutPriority verticalCompression = 750;
};

/// A layout of constraints between a widget and its direct children.
///
/// A view lays out its own children: constraints name the layout's parent widget and its direct children. They may also
/// name a deeper descendant; its place then counts as a constant offset inside the child around it, and its size as a
/// constant. A child is a box with a size hint, a minimum size, a height for its width and a baseline. Hidden children
/// keep their constraints and size hints. A constraint that names a widget from elsewhere waits until it comes here.
///
/// Required constraints hold; among the others, one of higher priority wins over any number of lower ones. When
/// required constraints contradict each other, the last of them is left out, and a warning that lists them is logged
/// once. The horizontal axis is solved first, then the vertical one with the heights for the widths found.
class ZEL_EXPORT ZelConstraintLayout : public QLayout
{
    Q_OBJECT
public:
    explicit ZelConstraintLayout(QWidget *parent);
    ~ZelConstraintLayout() override;

    /// Answers the constraint layout of the widget and makes it on first use; null when the widget has a layout of
    /// another kind.
    static ZelConstraintLayout *of(QWidget *widget);

    /// Installs a constraint. One that is installed in another layout moves here; null is ignored. Removing a
    /// constraint that is not installed here does nothing.
    void addConstraint(const ZelLayoutConstraint::Ptr &constraint);
    void addConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    void removeConstraint(const ZelLayoutConstraint::Ptr &constraint);
    void removeConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    const QList<ZelLayoutConstraint::Ptr> &constraints() const;

    /// The priorities that were set for a child, or the defaults. The child keeps them when its parent changes.
    static ZelLayoutPriorities priorities(const QWidget *child);
    static void setPriorities(QWidget *child, const ZelLayoutPriorities &priorities);

    /// Answers the distance of the first text baseline of a widget from its top, in points, when it has that height. A
    /// ZelBaselineProvider is asked; for Qt's own controls the style's metrics count, for another widget its first
    /// child that is not hidden. Without any of these the baseline is the bottom.
    static double baselineOffset(const QWidget *widget, double height);

    /// How the parent widget resists other sizes, as its contents do.
    ZelLayoutPriorities resistance() const;
    /// Answers where a child goes when its parent, which need not be laid out yet, has that size. Without a constraint
    /// layout in the parent it is where the child is.
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
    void constantDidChange(const ZelLayoutConstraint &constraint);
    void priorityDidChange();
    void tellAncestors() const;
    void checkChildren();
    bool isPlaced() const;
    bool placeChildren();

    struct Private; // the solver is heavy
    std::unique_ptr<Private> d;
};
