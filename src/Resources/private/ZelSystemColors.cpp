// SPDX-License-Identifier: MIT
#include "Resources/private/ZelSystemColors.h"

#include "Resources/ZelLocalizedString.h"

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
    {"alternateSelectedControlColor", QT_TRANSLATE_NOOP("Application", "Alternate Selected Control Color"),
     QPalette::Highlight},
    {"alternateSelectedControlTextColor", QT_TRANSLATE_NOOP("Application", "Alternate Selected Control Text Color"),
     QPalette::HighlightedText},
    {"controlBackgroundColor", QT_TRANSLATE_NOOP("Application", "Control Background Color"), QPalette::Base},
    {"controlColor", QT_TRANSLATE_NOOP("Application", "Control Color"), QPalette::Button},
    {"controlDarkShadowColor", QT_TRANSLATE_NOOP("Application", "Control Dark Shadow Color"), QPalette::Shadow},
    {"controlHighlightColor", QT_TRANSLATE_NOOP("Application", "Control Highlight Color"), QPalette::Midlight},
    {"controlLightHighlightColor", QT_TRANSLATE_NOOP("Application", "Control Light Highlight Color"), QPalette::Light},
    {"controlShadowColor", QT_TRANSLATE_NOOP("Application", "Control Shadow Color"), QPalette::Dark},
    {"controlTextColor", QT_TRANSLATE_NOOP("Application", "Control Text Color"), QPalette::ButtonText},
    {"disabledControlTextColor", QT_TRANSLATE_NOOP("Application", "Disabled Control Text Color"), QPalette::ButtonText,
     QPalette::Disabled},
    {"gridColor", QT_TRANSLATE_NOOP("Application", "Grid Color"), QPalette::Mid},
    {"headerColor", QT_TRANSLATE_NOOP("Application", "Header Color"), QPalette::Button},
    {"headerTextColor", QT_TRANSLATE_NOOP("Application", "Header Text Color"), QPalette::ButtonText},
    {"highlightColor", QT_TRANSLATE_NOOP("Application", "Highlight Color"), QPalette::Light},
    {"keyboardFocusIndicatorColor", QT_TRANSLATE_NOOP("Application", "Keyboard Focus Indicator Color"),
     QPalette::Highlight},
    {"knobColor", QT_TRANSLATE_NOOP("Application", "Knob Color"), QPalette::Button},
    {"scrollBarColor", QT_TRANSLATE_NOOP("Application", "Scroll Bar Color"), QPalette::Midlight},
    {"secondarySelectedControlColor", QT_TRANSLATE_NOOP("Application", "Secondary Selected Control Color"),
     QPalette::Highlight, QPalette::Inactive},
    {"selectedControlColor", QT_TRANSLATE_NOOP("Application", "Selected Control Color"), QPalette::Highlight},
    {"selectedControlTextColor", QT_TRANSLATE_NOOP("Application", "Selected Control Text Color"),
     QPalette::HighlightedText},
    {"selectedKnobColor", QT_TRANSLATE_NOOP("Application", "Selected Knob Color"), QPalette::Dark},
    {"selectedMenuItemColor", QT_TRANSLATE_NOOP("Application", "Selected Menu Item Color"), QPalette::Highlight},
    {"selectedMenuItemTextColor", QT_TRANSLATE_NOOP("Application", "Selected Menu Item Text Color"),
     QPalette::HighlightedText},
    {"selectedTextBackgroundColor", QT_TRANSLATE_NOOP("Application", "Selected Text Background Color"),
     QPalette::Highlight},
    {"selectedTextColor", QT_TRANSLATE_NOOP("Application", "Selected Text Color"), QPalette::HighlightedText},
    {"shadowColor", QT_TRANSLATE_NOOP("Application", "Shadow Color"), QPalette::Shadow},
    {"textBackgroundColor", QT_TRANSLATE_NOOP("Application", "TextBackground Color"), QPalette::Base},
    {"textColor", QT_TRANSLATE_NOOP("Application", "Text Color"), QPalette::Text},
    {"windowBackgroundColor", QT_TRANSLATE_NOOP("Application", "Window Background Color"), QPalette::Window},
    {"windowFrameColor", QT_TRANSLATE_NOOP("Application", "Window Frame Color"), QPalette::Dark},
    {"windowFrameTextColor", QT_TRANSLATE_NOOP("Application", "Window Frame Text Color"), QPalette::WindowText},
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

QString ZelSystemColors::localizedName(const QString &key)
{
    const QString english = displayName(key);
    return ZelLocalizedString(english.isNull() ? key : english);
}

QColor ZelSystemColors::color(const QString &key)
{
    const Row *row = find(key);
    if (!row)
        return {};
    const QPalette palette = qGuiApp ? QGuiApplication::palette() : QPalette(Qt::lightGray);
    return palette.color(row->group, row->role);
}
