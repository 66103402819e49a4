// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelRowHeights.h"

#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"

namespace {

constexpr int g_guessedHeight = 24; // in pixels

quint32 kindOf(const ZelInspectorConditionalContainer *row)
{
    const auto *sliver = qobject_cast<const ZelInspectorSliver *>(row);
    size_t kind = qHash(row->metaObject());
    if (!sliver)
        return quint32(kind) | 1;
    kind = qHashMulti(kind, sliver->isFullWidth());
    for (const ZelInspectorProperty *property : sliver->properties())
        kind = qHashMulti(kind, property->metaObject(), property->title().isEmpty());
    return quint32(kind) | 1; // never 0
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
    const QSize known = m_sizes.isEmpty() ? QSize() : m_sizes.value(row->m_kind ? row->m_kind : kindOf(row));
    return known.isValid() ? known.height() : g_guessedHeight;
}

void ZelRowHeights::noteKind(ZelInspectorConditionalContainer *row)
{
    row->m_kind = kindOf(row);
}

bool ZelRowHeights::learn(ZelInspectorConditionalContainer *row, QSize size)
{
    noteKind(row);
    QSize &known = m_sizes[row->m_kind];
    if (known.isValid() && known.width() == size.width())
        return false;
    const bool isOther = !known.isValid() || known.height() != size.height();
    known = size;
    return isOther;
}
