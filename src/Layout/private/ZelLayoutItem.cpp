// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutItem.h"

#include <algorithm>

namespace {

constexpr float g_expandingHugging = 1; // of children whose size policy is to take all room
// These are for children whose size policy fixes the size. Growing must be the lesser evil: with equal priorities the
// wishes of a low and a high child of one row would cancel out, and the row would have no height.
constexpr float g_fixedHugging = 998;
constexpr float g_fixedCompression = 999;
constexpr float g_yielding = 50; // children that resist less may vanish in the smallest container

struct StoredPriorities
{
    QPointer<const QWidget> child;
    ZelLayoutPriorities priorities;
};

/// The priorities that were set, by child. An entry whose pointer is null belonged to a dead child, not to a new one at
/// the same address. Such entries are swept out when the table has doubled.
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
    constexpr size_t Many = 8; // a child that was asked for so many widths counts as changed, without asking again
    return m_heights.size() < Many && std::all_of(m_heights.begin(), m_heights.end(), [this](const auto &answer) {
               return askHeight(answer.first) == answer.second;
           });
}

int ZelLayoutItem::askHeight(int width) const
{
    return ownLayout() ? widget()->heightForWidth(width) : QWidgetItemV2::heightForWidth(width);
}

/// Reads the size hint; a negative part means that there is none.
QSize ZelLayoutItem::readHint(const ZelConstraintLayout *own) const
{
    if (own)
        return widget()->sizeHint();
    QSize hint = QWidgetItemV2::sizeHint();
    if (hint.width() <= 0 || hint.height() <= 0) {
        // The base makes a zero of a missing hint, but a hint of zero is a wish.
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
        result.horizontalHugging = g_expandingHugging;
    if (policy.verticalPolicy() & QSizePolicy::ExpandFlag)
        result.verticalHugging = g_expandingHugging;
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
    box.hugging = wish.policy & QSizePolicy::GrowFlag ? wish.hugging : g_fixedHugging;
    box.compression = wish.policy == QSizePolicy::Fixed ? g_fixedCompression : wish.compression;
    box.hugging = std::clamp(box.hugging, ZelLayoutBox::NoWish, g_fixedHugging);
    box.compression = std::clamp(box.compression, ZelLayoutBox::NoWish, g_fixedCompression);
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
    const bool mayVanish = isHorizontal && !ownLayout() && box.compression < g_yielding;
    box.hint = std::clamp(mayVanish ? 0 : std::max(0.0, smallest), box.minimum, std::max(box.minimum, box.hint));
    return box;
}
