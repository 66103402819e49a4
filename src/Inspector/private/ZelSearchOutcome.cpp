// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelSearchOutcome.h"

#include "Resources/ZelLocalizedString.h"

#include <QLocale>
#include <algorithm>
#include <numeric>

namespace {

constexpr qsizetype g_notedRows = 20; // of a pane; more are not named

} // namespace

ZelSearchOutcome::ZelSearchOutcome(const ZelSearchIndex &index, const std::vector<ZelSearchIndex::Finding> &findings,
                                   size_t paneCount)
    : m_panes(paneCount)
{
    for (size_t i = 0; i < findings.size(); ++i) {
        const ZelSearchIndex::Node &node = index.nodes()[i];
        const ZelSearchIndex::Finding &finding = findings[i];
        if (!finding.matches || size_t(node.pane) >= paneCount)
            continue;
        auto &[found, notes] = m_panes[size_t(node.pane)];
        if (finding.hiddenBy < 0)
            ++found;
        else if (++m_hiddenCount; notes.size() < g_notedRows)
            notes.append(index.reasonFor(node, index.nodes()[size_t(finding.hiddenBy)]));
        else if (notes.size() == g_notedRows)
            notes.append(QStringLiteral("…"));
    }
}

int ZelSearchOutcome::foundCount() const
{
    return std::accumulate(m_panes.begin(), m_panes.end(), 0,
                           [](int count, const Pane &pane) { return count + pane.found; });
}

QString ZelSearchOutcome::text() const
{
    const QString found = QLocale().toString(foundCount());
    const QString hidden = QLocale().toString(m_hiddenCount);
    if (m_hiddenCount == 0)
        return foundCount() == 0 ? ZelLocalizedString("Nothing found") : ZelLocalizedString("%1 found").arg(found);
    if (foundCount() == 0)
        return ZelLocalizedString("%1 hidden").arg(hidden);
    return ZelLocalizedString("%1 found, %2 hidden").arg(found, hidden);
}

QStringList ZelSearchOutcome::notes() const
{
    QStringList notes;
    for (const Pane &pane : m_panes)
        notes.append(pane.notes.join(u'\n'));
    return notes;
}

std::vector<int> ZelSearchOutcome::tabCounts() const
{
    std::vector<int> counts;
    for (const Pane &pane : m_panes) // a tab with notes is not dimmed: there is something to be read
        counts.push_back(pane.found == 0 && !pane.notes.isEmpty() ? -1 : pane.found);
    return counts;
}

qsizetype ZelSearchOutcome::paneToShow(qsizetype present) const
{
    const auto paneWith = [&](const auto &has) {
        if (present < qsizetype(m_panes.size()) && has(m_panes[size_t(present)]))
            return present;
        const auto first = std::find_if(m_panes.begin(), m_panes.end(), has);
        return first == m_panes.end() ? qsizetype(-1) : qsizetype(first - m_panes.begin());
    };
    const qsizetype pane = paneWith([](const Pane &pane) { return pane.found > 0; });
    if (pane >= 0)
        return pane;
    const qsizetype paneWithNotes = paneWith([](const Pane &pane) { return !pane.notes.isEmpty(); });
    return paneWithNotes >= 0 ? paneWithNotes : present;
}
