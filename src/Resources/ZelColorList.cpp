// SPDX-License-Identifier: MIT
#include "Resources/ZelColorList.h"

#include "Resources/private/ZelSystemColors.h"

#include <algorithm>

namespace {

ZelColorListPtr makeCrayons()
{
    constexpr std::pair<const char *, QRgb> crayons[] = {
        {QT_TRANSLATE_NOOP("Application", "Black"), 0x000000},
        {QT_TRANSLATE_NOOP("Application", "Graphite"), 0x404040},
        {QT_TRANSLATE_NOOP("Application", "Gray"), 0x808080},
        {QT_TRANSLATE_NOOP("Application", "Silver"), 0xC0C0C0},
        {QT_TRANSLATE_NOOP("Application", "White"), 0xFFFFFF},
        {QT_TRANSLATE_NOOP("Application", "Red"), 0xFF0000},
        {QT_TRANSLATE_NOOP("Application", "Brick"), 0x9C2F22},
        {QT_TRANSLATE_NOOP("Application", "Orange"), 0xFF8000},
        {QT_TRANSLATE_NOOP("Application", "Amber"), 0xFFBF00},
        {QT_TRANSLATE_NOOP("Application", "Yellow"), 0xFFFF00},
        {QT_TRANSLATE_NOOP("Application", "Lime"), 0x80FF00},
        {QT_TRANSLATE_NOOP("Application", "Green"), 0x00C000},
        {QT_TRANSLATE_NOOP("Application", "Forest"), 0x1E6B2D},
        {QT_TRANSLATE_NOOP("Application", "Teal"), 0x008080},
        {QT_TRANSLATE_NOOP("Application", "Cyan"), 0x00FFFF},
        {QT_TRANSLATE_NOOP("Application", "Sky"), 0x70B8F0},
        {QT_TRANSLATE_NOOP("Application", "Blue"), 0x0000FF},
        {QT_TRANSLATE_NOOP("Application", "Navy"), 0x102060},
        {QT_TRANSLATE_NOOP("Application", "Indigo"), 0x4B2A99},
        {QT_TRANSLATE_NOOP("Application", "Violet"), 0x8A3FD1},
        {QT_TRANSLATE_NOOP("Application", "Magenta"), 0xFF00FF},
        {QT_TRANSLATE_NOOP("Application", "Pink"), 0xFF9EC4},
        {QT_TRANSLATE_NOOP("Application", "Brown"), 0x7A4B28},
        {QT_TRANSLATE_NOOP("Application", "Sand"), 0xD9C49A},
    };
    QList<ZelColorList::Entry> entries;
    for (const auto &[key, rgb] : crayons)
        entries.append({QString::fromLatin1(key), ZelColor(QColor(rgb))});
    return ZelColorListPtr::create(QStringLiteral("Crayons"), entries);
}

QList<ZelColorListPtr> &lists()
{
    static QList<ZelColorListPtr> all = {
        makeCrayons(),
        ZelColorListPtr::create(QStringLiteral("System"), ZelSystemColors::keys(), &ZelSystemColors::color),
    };
    return all;
}

template<typename List> auto findNamed(List &list, const QString &name)
{
    return std::find_if(list.begin(), list.end(), [&](const ZelColorListPtr &item) { return item->name() == name; });
}

template<typename Entries> auto findKey(Entries &entries, const QString &key)
{
    return std::find_if(entries.begin(), entries.end(),
                        [&](const ZelColorList::Entry &entry) { return entry.first == key; });
}

} // namespace

ZelColorList::ZelColorList(const QString &name, const QList<Entry> &entries)
    : m_name(name)
    , m_entries(entries)
{
}

ZelColorList::ZelColorList(const QString &name, const QStringList &keys, const Source &source)
    : m_name(name)
    , m_source(source)
{
    for (const QString &key : keys)
        m_entries.append({key, ZelColor::named(name, key)});
}

QStringList ZelColorList::allKeys() const
{
    QStringList keys;
    for (const Entry &entry : m_entries)
        keys.append(entry.first);
    return keys;
}

ZelColor ZelColorList::colorWithKey(const QString &key) const
{
    const auto entry = findKey(m_entries, key);
    return entry == m_entries.end() ? ZelColor() : entry->second;
}

QColor ZelColorList::computedColorWithKey(const QString &key) const
{
    return m_source ? m_source(key) : QColor();
}

void ZelColorList::setColorForKey(const ZelColor &color, const QString &key)
{
    const auto entry = findKey(m_entries, key);
    if (entry == m_entries.end())
        m_entries.append({key, color});
    else
        entry->second = color;
}

void ZelColorList::removeColorWithKey(const QString &key)
{
    m_entries.removeIf([&](const Entry &entry) { return entry.first == key; });
}

QList<ZelColorListPtr> ZelColorList::availableColorLists()
{
    return lists();
}

ZelColorListPtr ZelColorList::colorListNamed(const QString &name)
{
    const QList<ZelColorListPtr> &all = lists();
    const auto list = findNamed(all, name);
    return list == all.end() ? ZelColorListPtr() : *list;
}

void ZelColorList::addColorList(const ZelColorListPtr &list)
{
    if (!list)
        return;
    const auto place = findNamed(lists(), list->name());
    if (place == lists().end())
        lists().append(list);
    else
        *place = list;
}

void ZelColorList::removeColorListNamed(const QString &name)
{
    lists().removeIf([&](const ZelColorListPtr &list) { return list->name() == name; });
}
