// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelConstraintLayout.h"
#include "Platform/Layout/ZelLayoutBox.h"

#include <QPointer>

/// A child of a constraint layout, and what it wants.
///
/// The size hints of Qt's widgets are cached by the base, which Qt tells of changes. A child that has a constraint
/// layout itself is asked directly: that layout has its own caches, and resists as its contents do.
class ZelLayoutItem : public QWidgetItemV2
{
public:
    explicit ZelLayoutItem(QWidget *child)
        : QWidgetItemV2(child)
    {
    }

    /// Hidden children keep their place.
    bool isEmpty() const override { return false; }

    /// Reads anew what the child wants; true if it is different.
    bool refresh();
    const ZelLayoutBox &horizontal() const { return m_horizontal; }
    const ZelLayoutBox &vertical() const { return m_vertical; }
    bool isHeightForWidth() const { return m_isHeightForWidth; }
    /// What the child wants vertically when it has that width.
    ZelLayoutBox verticalForWidth(int width) const;
    /// The box in a container that is made as small as its contents allow.
    ZelLayoutBox smallest(Qt::Orientation orientation) const;

    static ZelLayoutPriorities priorities(const QWidget *child);
    static void setPriorities(QWidget *child, const ZelLayoutPriorities &priorities);

private:
    struct Wish
    {
        int hint;
        int minimum;
        int maximum;
        QSizePolicy::Policy policy;
        float hugging;
        float compression;
    };

    ZelConstraintLayout *ownLayout() const { return m_ownLayout; }
    QSize readHint(const ZelConstraintLayout *own) const;
    ZelLayoutPriorities readPriorities(const ZelConstraintLayout *own, QSizePolicy policy) const;
    static ZelLayoutBox boxFor(const Wish &wish);
    bool answersAsBefore() const;
    int askHeight(int width) const;

    QPointer<ZelConstraintLayout> m_ownLayout; // of the child, as of the last reading
    ZelLayoutBox m_horizontal;
    ZelLayoutBox m_vertical;
    bool m_isHeightForWidth = false;
    mutable std::vector<std::pair<int, int>> m_heights; // for the widths asked since the last change
};
