// SPDX-License-Identifier: MIT
#include "Blocks/ZelColorNameTransformer.h"

#include "Resources/ZelColorList.h"
#include "Resources/private/ZelSystemColors.h"

#include <QHash>

namespace {

constexpr qsizetype g_initialCapacity = 200;

/// Calls the function with every colour of every list, in their order, and its localised name.
template<typename Function> void forEachNamedColor(Function function)
{
    const QList<ZelColorListPtr> lists = ZelColorList::availableColorLists();
    for (const ZelColorListPtr &list : lists) {
        const QStringList keys = list->allKeys();
        for (const QString &key : keys)
            function(list->colorWithKey(key), ZelSystemColors::localizedName(key));
    }
}

const QHash<ZelColor, QString> &namesOfColors()
{
    static const QHash<ZelColor, QString> names = [] {
        QHash<ZelColor, QString> map;
        map.reserve(g_initialCapacity);
        const auto store = [&](const ZelColor &color, const QString &name) {
            if (!map.contains(color))
                map.insert(color, name);
        };
        forEachNamedColor(store);
        // Models hold plain colours, which a computed list's named ones equal only as they look.
        forEachNamedColor([&](const ZelColor &color, const QString &name) { store(ZelColor(color.toQColor()), name); });
        return map;
    }();
    return names;
}

const QHash<QString, ZelColor> &colorsOfNames()
{
    static const QHash<QString, ZelColor> colors = [] {
        QHash<QString, ZelColor> map;
        map.reserve(g_initialCapacity);
        // A name is only ever replaced. As nothing is there at first, the map stays empty and every name means black:
        // names are for showing, and a translated one must not turn into a colour.
        forEachNamedColor([&](const ZelColor &color, const QString &name) {
            if (map.contains(name))
                map.insert(name, color);
        });
        return map;
    }();
    return colors;
}

QVariant nameOfColor(const QVariant &value)
{
    const ZelColor color = ZelColor::fromVariant(value);
    const QString name = namesOfColors().value(color);
    return name.isNull() ? namesOfColors().value(ZelColor(color.toQColor()), QStringLiteral("")) : name;
}

QVariant colorOfName(const QVariant &value)
{
    return colorsOfNames().value(value.toString(), ZelColor(QColor(Qt::black))).toQColor();
}

constexpr ZelNamedValueTransformer::Row g_row = {
    "QString", nullptr, {&ZelColor::isColor, &nameOfColor}, {&ZelNamedValueTransformer::isString, &colorOfName}};

} // namespace

ZelColorNameTransformer::ZelColorNameTransformer()
    : ZelNamedValueTransformer(g_row)
{
}
