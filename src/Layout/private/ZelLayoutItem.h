// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/ZelConstraintLayout.h"
#include "Layout/private/ZelLayoutBox.h"

#include <QPointer>

/// A child of a constraint layout, and what it wants.
///
/// The base class caches the size hints of Qt's widgets, and Qt tells it of changes. A child that has a constraint
/// layout is asked directly, because that layout has its own caches; the child resists as its contents do.
class ZelLayoutItem : public QWidgetItemV2
{
public:
    explicit ZelLayoutItem(QWidget *child)
        : QWidgetItemV2(child)
    {
    }

    /// Hidden children keep their place.
    bool isEmpty() const override { return false; }

    /// Reads what the child wants. Answers whether it is different from before.
    bool refresh();
    const ZelLayoutBox &horizontal() const { return m_horizontal; }
    const ZelLayoutBox &vertical() const { return m_vertical; }
    bool isHeightForWidth() const { return m_isHeightForWidth; }
    /// What the child wants vertically when it has that width.
    ZelLayoutBox verticalForWidth(int width) const;
    /// What the child wants in a container that is made as small as its contents allow.
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
    mutable std::vector<std::pair<int, int>> m_heights; // by width, as asked since the last change
};
