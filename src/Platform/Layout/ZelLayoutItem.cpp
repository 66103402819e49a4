// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelLayoutItem.h"

#include <algorithm>

namespace {

constexpr float ExpandingHugging = 1; // of children whose size policy is to take all room
// Of children whose size policy forbids to grow or to shrink. Growing must be the lesser evil: with equal priorities
// the wishes of a lower and a higher child of one row would cancel out, and the row would have no height.
constexpr float FixedHugging = 998;
constexpr float FixedCompression = 999;
constexpr float Yielding = 50; // children that resist less may vanish in the smallest container

struct StoredPriorities
{
    QPointer<const QWidget> child;
    ZelLayoutPriorities priorities;
};

/// Priorities that were set, by child. Those of dead children are swept out when the table has doubled.
class PriorityTable
{
public:
    const ZelLayoutPriorities *find(const QWidget *child) const
    {
        const auto entry = m_entries.constFind(child);
        return entry != m_entries.cend() && entry->child ? &entry->priorities : nullptr;
    }

    void set(const QWidget *child, const ZelLayoutPriorities &priorities)
    {
        if (m_entries.size() >= m_sweepSize) {
            m_entries.removeIf([](const auto &entry) { return !entry.value().child; });
            m_sweepSize = std::max<qsizetype>(64, m_entries.size() * 2);
        }
        m_entries.insert(child, {child, priorities});
    }

private:
    QHash<const QWidget *, StoredPriorities> m_entries;
    qsizetype m_sweepSize = 64;
};

PriorityTable &priorityTable()
{
    static PriorityTable table;
    return table;
}

} // namespace

ZelLayoutPriorities ZelLayoutItem::priorities(const QWidget *child)
{
    const ZelLayoutPriorities *stored = priorityTable().find(child);
    return stored ? *stored : ZelLayoutPriorities();
}

void ZelLayoutItem::setPriorities(QWidget *child, const ZelLayoutPriorities &priorities)
{
    priorityTable().set(child, priorities);
}

bool ZelLayoutItem::refresh()
{
    const QWidget *child = widget();
    auto *own = qobject_cast<ZelConstraintLayout *>(child->layout());
    m_ownLayout = own;
    const QSize hint = readHint(own);
    const QSize minimum = child->minimumSize();
    const QSize maximum = child->maximumSize();
    const QSizePolicy policy = child->sizePolicy();
    const ZelLayoutPriorities resistance = readPriorities(own, policy);
    const ZelLayoutBox horizontal = boxFor({hint.width(), minimum.width(), maximum.width(), policy.horizontalPolicy(),
                                            resistance.horizontalHugging, resistance.horizontalCompression});
    const ZelLayoutBox vertical = boxFor({hint.height(), minimum.height(), maximum.height(), policy.verticalPolicy(),
                                          resistance.verticalHugging, resistance.verticalCompression});
    const bool isHeightForWidth = child->hasHeightForWidth();
    const bool isSame = horizontal == m_horizontal && vertical == m_vertical &&
                        isHeightForWidth == m_isHeightForWidth && (!isHeightForWidth || answersAsBefore());
    m_horizontal = horizontal;
    m_vertical = vertical;
    m_isHeightForWidth = isHeightForWidth;
    if (!isSame)
        m_heights.clear();
    return !isSame;
}

bool ZelLayoutItem::answersAsBefore() const
{
    constexpr size_t Many = 8; // rather than ask for so many widths again, it counts as changed
    return m_heights.size() < Many && std::all_of(m_heights.begin(), m_heights.end(), [this](const auto &answer) {
               return askHeight(answer.first) == answer.second;
           });
}

int ZelLayoutItem::askHeight(int width) const
{
    return ownLayout() ? widget()->heightForWidth(width) : QWidgetItemV2::heightForWidth(width);
}

/// A negative part means that there is no hint.
QSize ZelLayoutItem::readHint(const ZelConstraintLayout *own) const
{
    if (own)
        return widget()->sizeHint();
    QSize hint = QWidgetItemV2::sizeHint();
    if (hint.width() <= 0 || hint.height() <= 0) {
        // The base makes zero of a missing hint.
        const QSize bare = widget()->sizeHint();
        if (bare.width() < 0 && hint.width() == 0)
            hint.setWidth(-1);
        if (bare.height() < 0 && hint.height() == 0)
            hint.setHeight(-1);
    }
    return hint;
}

ZelLayoutPriorities ZelLayoutItem::readPriorities(const ZelConstraintLayout *own, QSizePolicy policy) const
{
    if (const ZelLayoutPriorities *stored = priorityTable().find(widget()))
        return *stored;
    if (own)
        return own->resistance();
    ZelLayoutPriorities result;
    if (policy.horizontalPolicy() & QSizePolicy::ExpandFlag)
        result.horizontalHugging = ExpandingHugging;
    if (policy.verticalPolicy() & QSizePolicy::ExpandFlag)
        result.verticalHugging = ExpandingHugging;
    return result;
}

ZelLayoutBox ZelLayoutItem::boxFor(const Wish &wish)
{
    ZelLayoutBox box;
    box.minimum = wish.minimum;
    if (wish.maximum < QWIDGETSIZE_MAX)
        box.maximum = std::max(wish.maximum, wish.minimum);
    if (wish.hint < 0 || wish.policy == QSizePolicy::Ignored)
        return box;
    box.hint = std::clamp<double>(wish.hint, box.minimum, box.maximum);
    box.hugging = wish.policy & QSizePolicy::GrowFlag ? wish.hugging : FixedHugging;
    box.compression = wish.policy == QSizePolicy::Fixed ? FixedCompression : wish.compression;
    box.hugging = std::clamp(box.hugging, ZelLayoutBox::NoWish, FixedHugging);
    box.compression = std::clamp(box.compression, ZelLayoutBox::NoWish, FixedCompression);
    return box;
}

ZelLayoutBox ZelLayoutItem::verticalForWidth(int width) const
{
    ZelLayoutBox box = m_vertical;
    if (!m_isHeightForWidth)
        return box;
    const auto known = std::find_if(m_heights.begin(), m_heights.end(), [=](auto &a) { return a.first == width; });
    const int height = known != m_heights.end() ? known->second : askHeight(width);
    if (known == m_heights.end())
        m_heights.emplace_back(width, height);
    if (height >= 0)
        box.hint = std::clamp<double>(height, box.minimum, box.maximum);
    return box;
}

ZelLayoutBox ZelLayoutItem::smallest(Qt::Orientation orientation) const
{
    const bool isHorizontal = orientation == Qt::Horizontal;
    ZelLayoutBox box = isHorizontal ? m_horizontal : m_vertical;
    const QSize size = ownLayout() ? widget()->minimumSizeHint() : QWidgetItemV2::minimumSize();
    const double smallest = isHorizontal ? size.width() : size.height();
    const bool mayVanish = isHorizontal && !ownLayout() && box.compression < Yielding;
    box.hint = std::clamp(mayVanish ? 0 : std::max(0.0, smallest), box.minimum, std::max(box.minimum, box.hint));
    return box;
}
