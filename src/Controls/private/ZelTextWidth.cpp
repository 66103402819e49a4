// SPDX-License-Identifier: MIT
#include "Controls/private/ZelTextWidth.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QHash>
#include <QWidget>

#include <list>

namespace {

/// The widths of texts in one font on screens of one resolution.
struct Widths
{
    QFont font;
    int resolution = 0;
    QHash<QString, int> byText;
};

class Cache : public QObject
{
public:
    static Cache &instance()
    {
        static auto *instance = new Cache;
        return *instance;
    }

    QHash<QString, int> &widthsFor(const QFont &font, int resolution)
    {
        const auto known = std::find_if(m_fonts.begin(), m_fonts.end(), [&](const Widths &widths) {
            return widths.resolution == resolution && (widths.font.isCopyOf(font) || widths.font == font);
        });
        if (known != m_fonts.end())
            m_fonts.splice(m_fonts.begin(), m_fonts, known);
        else
            m_fonts.push_front({font, resolution, {}});
        constexpr size_t ManyFonts = 4;
        if (m_fonts.size() > ManyFonts)
            m_fonts.pop_back();
        return m_fonts.front().byText;
    }

private:
    Cache()
    {
        connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, this, [this] { m_fonts.clear(); });
    }

    std::list<Widths> m_fonts; // the most recently used one first
};

} // namespace

int ZelTextWidth(const QWidget *widget, const QString &text)
{
    constexpr qsizetype Long = 64;
    constexpr qsizetype ManyTexts = 1000;
    const QFontMetrics metrics = widget->fontMetrics();
    if (text.size() > Long)
        return metrics.horizontalAdvance(text);
    QHash<QString, int> &widths = Cache::instance().widthsFor(widget->font(), widget->logicalDpiX());
    const auto known = widths.constFind(text);
    if (known != widths.cend())
        return *known;
    if (widths.size() >= ManyTexts)
        widths.clear();
    return *widths.insert(text, metrics.horizontalAdvance(text));
}
