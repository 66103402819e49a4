// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelValueSummaryText.h"

#include "Core/Selection/ZelValueSummary.h"
#include "Resources/ZelLocalizedString.h"

#include <QLocale>

namespace {

constexpr qsizetype g_toldValues = 5;

} // namespace

QString ZelValueSummaryText::of(const ZelValueSummary &summary, const TextForValue &textForValue, bool tellsRange)
{
    if (summary.differentCount() < 2)
        return {};
    const QLocale locale;
    QStringList told;
    const QList<ZelValueSummary::Entry> entries = summary.first(g_toldValues);
    for (const ZelValueSummary::Entry &entry : entries) {
        const QString text = textForValue(entry.value);
        told.append(entry.count == 1 ? text : text + u" (" + locale.toString(entry.count) + u')');
    }
    if (summary.differentCount() > told.size() || summary.isCut())
        told.append(QChar(0x2026));
    // Both at once, since a value may hold a percent sign.
    const QString format = ZelLocalizedString(summary.isCut() ? "More than %1 values: %2" : "%1 values: %2");
    const QString values = format.arg(locale.toString(summary.differentCount()), told.join(QStringLiteral(", ")));
    const auto range = tellsRange ? summary.range() : std::nullopt;
    if (!range || !(range->least < range->greatest))
        return values;
    return values + u'\n' +
           ZelLocalizedString("From %1 to %2").arg(textForValue(range->least), textForValue(range->greatest));
}
