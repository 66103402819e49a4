// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelNearestName.h"

#include <QVarLengthArray>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// How many letters must be put in, left out, replaced, or exchanged with their neighbour (the optimal string alignment
/// distance). A distance above 2 may come out as any number above 2.
qsizetype editDistance(QStringView a, QStringView b)
{
    if (std::abs(a.size() - b.size()) > 2)
        return 3;
    using Row = QVarLengthArray<qsizetype, 64>;
    Row beforeLast(b.size() + 1);
    Row last(b.size() + 1);
    Row row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        beforeLast = std::exchange(last, row);
        row[0] = i;
        for (qsizetype j = 1; j <= b.size(); ++j) {
            const qsizetype replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row[b.size()];
}

} // namespace

void ZelNearestName::offer(QStringView known)
{
    const bool isOtherCase = m_name.compare(known, Qt::CaseInsensitive) == 0;
    const qsizetype distance = isOtherCase ? 0 : editDistance(m_name, known);
    if (distance >= m_distance || 3 * distance > known.size())
        return;
    m_distance = distance;
    m_found = known.toString();
}

QString ZelNearestName::choices(const QStringList &names)
{
    constexpr qsizetype most = 24; // of more, none is a help
    return names.isEmpty() || names.size() > most ? QString() : u"; there are " + names.join(QStringLiteral(", "));
}

QString ZelNearestName::question(const QString &name)
{
    return name.isNull() ? QString() : QStringLiteral(", did you mean \"%1\"?").arg(name);
}
