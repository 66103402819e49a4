// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelRowHeights.h"

#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"

namespace {

constexpr int g_guessedHeight = 24; // in pixels

size_t kindOf(const ZelInspectorConditionalContainer *row)
{
    const auto *sliver = qobject_cast<const ZelInspectorSliver *>(row);
    size_t kind = qHash(row->metaObject());
    if (!sliver)
        return kind;
    kind = qHashMulti(kind, sliver->isFullWidth());
    for (const ZelInspectorProperty *property : sliver->properties())
        kind = qHashMulti(kind, property->metaObject(), property->title().isEmpty());
    return kind;
}

} // namespace

ZelRowHeights *ZelRowHeights::of(QObject *sight)
{
    for (QObject *child : sight->children()) {
        if (auto *heights = dynamic_cast<ZelRowHeights *>(child))
            return heights;
    }
    return new ZelRowHeights(sight);
}

int ZelRowHeights::heightOf(const ZelInspectorConditionalContainer *row) const
{
    const QSize known = m_sizes.isEmpty() ? QSize() : m_sizes.value(kindOf(row));
    return known.isValid() ? known.height() : g_guessedHeight;
}

bool ZelRowHeights::learn(const ZelInspectorConditionalContainer *row, QSize size)
{
    QSize &known = m_sizes[kindOf(row)];
    if (known.isValid() && known.width() == size.width())
        return false;
    const bool isOther = !known.isValid() || known.height() != size.height();
    known = size;
    return isOther;
}
