// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/private/ZelLayoutItems.h"
#include "Layout/private/ZelLayoutSide.h"

/// The children and constraints of one container, brought down to its two axes, and their solutions.
///
/// Everything is read lazily: a change only marks what must be read again, and a solution stays valid until something
/// that it depends on has really become different. Widths are found first; the heights depend on them.
class ZelLayoutSystem
{
public:
    explicit ZelLayoutSystem(QWidget *container)
        : m_container(container)
    {
    }

    const QList<ZelLayoutConstraint::Ptr> &constraints() const { return m_constraints; }
    void add(const ZelLayoutConstraint::Ptr &constraint);
    /// Removes the constraints that do not belong to the layout any more.
    void sweep(const ZelConstraintLayout *layout);
    const ZelLayoutItems &items() const { return m_items; }
    std::unique_ptr<ZelLayoutItem> takeItem(size_t index);
    /// A number that grows whenever the items change.
    int generation() const { return m_generation; }
    /// A number that grows whenever sizes and places must be worked out anew.
    int revision() const { return m_revision; }

    void constraintsDidChange() { m_isCompiled = false; }
    void constantDidChange(const ZelLayoutConstraint &constraint);
    /// Notes that what the children want must be read again. Answers false if that was noted already.
    bool childrenDidChange() { return !std::exchange(m_haveChildrenChanged, true); }

    /// Whether the container is visible and its children are still being shown.
    bool isBeingShown() const;

    /// Reads what must be read again. Answers whether something is different from before.
    bool update();
    QSize sizeHint();
    QSize minimumSize();
    bool isHeightForWidth();
    int heightForWidth(int width);
    ZelLayoutPriorities resistance();
    /// The places of the items in a container of that size.
    std::vector<QRect> geometries(const QSize &size);
    QRect geometryOf(const QWidget *child, const QSize &size);

private:
    using Offset = ZelLayoutSide::Offset;

    void dropDeadItems();
    bool refreshItems();
    void forgetSolutions();
    void compile();
    void dropDead();
    void compileConstraint(ZelLayoutConstraint &constraint);
    bool compileOperand(QWidget *widget, ZelLayoutConstraint::Attribute attribute, Offset &offset,
                        ZelAxisConstraint::Operand &operand);
    QWidget *directChild(QWidget *descendant) const;
    int itemFor(QWidget *child);
    bool isMirrored(const ZelLayoutConstraint &constraint) const;
    ZelLayoutSide &sideOf(const ZelLayoutConstraint &constraint);

    const ZelLayoutSpans &horizontal(int width);
    const ZelLayoutSpans &vertical(const QSize &size);
    const ZelLayoutBoxes &verticalBoxes(int width);
    QSize fittingSize(const ZelLayoutBoxes &widths, const ZelLayoutBoxes *heights);
    double fittingHeight(const ZelLayoutBoxes &boxes, int width);

    QWidget *m_container;
    QList<ZelLayoutConstraint::Ptr> m_constraints;
    ZelLayoutItems m_items;
    ZelLayoutItems m_formerItems; // while compiling: those that may be used again
    ZelLayoutSide m_horizontal;
    ZelLayoutSide m_vertical;
    ZelLayoutSpans m_widths;
    ZelLayoutSpans m_heights;
    ZelLayoutBoxes m_boxesForWidth; // the vertical boxes where they depend on the width
    int m_boxesWidth = -1;
    Qt::LayoutDirection m_direction = Qt::LeftToRight;
    int m_generation = 0;
    int m_revision = 0;
    bool m_isCompiled = false;
    bool m_isComplete = true; // false if a constraint names a widget from elsewhere
    bool m_haveChildrenChanged = true;
    bool m_hasHeightForWidth = false;
    int m_spansWidth = -1;    // the container's width that m_widths are for
    int m_spansHeight = -1;   // the container's height that m_heights are for
    int m_verticalWidth = -1; // the container's width that m_heights are for

    std::optional<QSize> m_sizeHint;
    std::optional<QSize> m_minimumSize;
    std::optional<ZelLayoutPriorities> m_resistance;
    std::vector<std::pair<int, int>> m_heightsForWidths;
};
