// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelRowBlocks.h"

#include "Inspector/ZelInspector.h"
#include "Inspector/ZelInspectorPane.h"
#include "Inspector/ZelInspectorSection.h"
#include "Inspector/ZelInspectorSlice.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

constexpr int g_rowsOfBlock = 12;
constexpr int g_lowestRow = 20; // in pixels
constexpr int g_screens = 3;

int g_mostRowsAtOnce = 0; // if it is not the usual number

int mostRowsAtOnce()
{
    if (g_mostRowsAtOnce > 0)
        return g_mostRowsAtOnce;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return g_screens * (screen ? screen->availableSize().height() : 1000) / g_lowestRow;
}

/// The rows below a container, but not many more than the limit.
qsizetype rowCount(const QObject *container, qsizetype limit)
{
    if (const auto *section = qobject_cast<const ZelInspectorSection *>(container))
        return section->sliversAndChoosers().size();
    qsizetype count = 0;
    const auto add = [&](const auto &children) {
        for (const auto *child : children) {
            if (count <= limit)
                count += rowCount(child, limit - count);
        }
    };
    if (const auto *slice = qobject_cast<const ZelInspectorSlice *>(container))
        add(slice->sections());
    else if (const auto *inspector = qobject_cast<const ZelInspector *>(container))
        add(inspector->slices());
    else if (const auto *pane = qobject_cast<const ZelInspectorPane *>(container))
        add(pane->inspectors());
    return count;
}

} // namespace

bool ZelRowBlocks::isWorthwhile(const ZelInspectorSection *section)
{
    const QObject *panel = section;
    while (panel->parent() && qobject_cast<ZelInspectorContainer *>(panel->parent()) &&
           !qobject_cast<const ZelInspectorPane *>(panel))
        panel = panel->parent();
    const int limit = mostRowsAtOnce();
    return rowCount(panel, limit) > limit;
}

void ZelRowBlocks::setMostRowsAtOnce(int rows)
{
    g_mostRowsAtOnce = rows;
}

QList<QWidget *> ZelRowBlocks::arrange(const ZelRowBlock::Rows &rows)
{
    std::vector<QPointer<ZelRowBlock>> former = std::exchange(m_blocks, {});
    const auto isAt = [&rows](const ZelRowBlock *block, qsizetype place) {
        return block && !block->rows().isEmpty() && place >= 0 &&
               rows.mid(place, block->rows().size()) == block->rows();
    };
    qsizetype first = 0;
    size_t keptAtStart = 0;
    for (; keptAtStart < former.size() && isAt(former[keptAtStart], first); ++keptAtStart)
        first += former[keptAtStart]->rows().size();
    qsizetype end = rows.size();
    size_t keptEnd = former.size();
    while (keptEnd > keptAtStart && former[keptEnd - 1] && end - former[keptEnd - 1]->rows().size() >= first &&
           isAt(former[keptEnd - 1], end - former[keptEnd - 1]->rows().size())) {
        --keptEnd;
        end -= former[keptEnd]->rows().size();
    }
    m_blocks.assign(former.begin(), former.begin() + qsizetype(keptAtStart));
    for (size_t i = keptAtStart; i < keptEnd; ++i) {
        if (former[i]) {
            former[i]->release();
            former[i]->deleteLater();
        }
    }
    for (; first < end; first += g_rowsOfBlock)
        m_blocks.emplace_back(new ZelRowBlock(rows.mid(first, qMin<qsizetype>(g_rowsOfBlock, end - first))));
    m_blocks.insert(m_blocks.end(), former.begin() + qsizetype(keptEnd), former.end());
    QList<QWidget *> views;
    for (const QPointer<ZelRowBlock> &block : m_blocks) {
        if (block)
            views.append(block);
    }
    return views;
}

void ZelRowBlocks::release()
{
    for (const QPointer<ZelRowBlock> &block : std::exchange(m_blocks, {})) {
        if (!block)
            continue;
        block->release();
        delete block;
    }
}
