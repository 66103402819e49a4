// SPDX-License-Identifier: MIT
#include "Resources/ZelSystemColors.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <iterator>

namespace {

struct Row
{
    const char *key;
    const char *displayName;
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};

constexpr Row g_rows[] = {
    {"alternateSelectedControlColor", "Alternate Selected Control Color", QPalette::Highlight},
    {"alternateSelectedControlTextColor", "Alternate Selected Control Text Color", QPalette::HighlightedText},
    {"controlBackgroundColor", "Control Background Color", QPalette::Base},
    {"controlColor", "Control Color", QPalette::Button},
    {"controlDarkShadowColor", "Control Dark Shadow Color", QPalette::Shadow},
    {"controlHighlightColor", "Control Highlight Color", QPalette::Midlight},
    {"controlLightHighlightColor", "Control Light Highlight Color", QPalette::Light},
    {"controlShadowColor", "Control Shadow Color", QPalette::Dark},
    {"controlTextColor", "Control Text Color", QPalette::ButtonText},
    {"disabledControlTextColor", "Disabled Control Text Color", QPalette::ButtonText, QPalette::Disabled},
    {"gridColor", "Grid Color", QPalette::Mid},
    {"headerColor", "Header Color", QPalette::Button},
    {"headerTextColor", "Header Text Color", QPalette::ButtonText},
    {"highlightColor", "Highlight Color", QPalette::Light},
    {"keyboardFocusIndicatorColor", "Keyboard Focus Indicator Color", QPalette::Highlight},
    {"knobColor", "Knob Color", QPalette::Button},
    {"scrollBarColor", "Scroll Bar Color", QPalette::Midlight},
    {"secondarySelectedControlColor", "Secondary Selected Control Color", QPalette::Highlight, QPalette::Inactive},
    {"selectedControlColor", "Selected Control Color", QPalette::Highlight},
    {"selectedControlTextColor", "Selected Control Text Color", QPalette::HighlightedText},
    {"selectedKnobColor", "Selected Knob Color", QPalette::Dark},
    {"selectedMenuItemColor", "Selected Menu Item Color", QPalette::Highlight},
    {"selectedMenuItemTextColor", "Selected Menu Item Text Color", QPalette::HighlightedText},
    {"selectedTextBackgroundColor", "Selected Text Background Color", QPalette::Highlight},
    {"selectedTextColor", "Selected Text Color", QPalette::HighlightedText},
    {"shadowColor", "Shadow Color", QPalette::Shadow},
    {"textBackgroundColor", "TextBackground Color", QPalette::Base},
    {"textColor", "Text Color", QPalette::Text},
    {"windowBackgroundColor", "Window Background Color", QPalette::Window},
    {"windowFrameColor", "Window Frame Color", QPalette::Dark},
    {"windowFrameTextColor", "Window Frame Text Color", QPalette::WindowText},
};

const Row *find(const QString &key)
{
    const auto row = std::find_if(std::begin(g_rows), std::end(g_rows),
                                  [&](const Row &candidate) { return key == QLatin1String(candidate.key); });
    return row == std::end(g_rows) ? nullptr : row;
}

} // namespace

QStringList ZelSystemColors::keys()
{
    QStringList keys;
    for (const Row &row : g_rows)
        keys.append(QString::fromLatin1(row.key));
    return keys;
}

QString ZelSystemColors::displayName(const QString &key)
{
    const Row *row = find(key);
    return row ? QString::fromLatin1(row->displayName) : QString();
}

QColor ZelSystemColors::color(const QString &key)
{
    const Row *row = find(key);
    if (!row)
        return {};
    const QPalette palette = qGuiApp ? QGuiApplication::palette() : QPalette(Qt::lightGray);
    return palette.color(row->group, row->role);
}
