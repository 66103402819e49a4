// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelUselessParts.h"

#include <algorithm>
#include <array>

using Configuration = ZelInspectorConfiguration;
using Mistakes = QList<ZelDescriptionMistake>;

namespace {

struct Useless
{
    QStringView type;
    std::array<QStringView, 2> attributes; ///< without any of these
    const char *message;
};
constexpr Useless g_useless[] = {
    {u"action",
     {u"actionSelector", u"menuItemsKeyPath"},
     "The button does nothing: it has neither actionSelector nor menuItemsKeyPath"},
    {u"custom", {u"class"}, "The editor shows nothing: it has no class"},
    {u"resource", {u"resourcesKeyPath"}, "The editor offers no names: it has no resourcesKeyPath"},
};

ZelDescriptionMistake warning(const Configuration &element, const QString &message, const QString &attribute = {})
{
    return {ZelDescriptionMistake::Warning, message, element.place(), attribute};
}

void addEditor(Mistakes &found, const Configuration &element, QStringView type)
{
    const auto isThere = [&](QStringView name) { return !name.isNull() && element.hasValueNamed(name); };
    for (const Useless &useless : g_useless) {
        if (type == useless.type && std::ranges::none_of(useless.attributes, isThere))
            found.append(warning(element, QString::fromUtf8(useless.message)));
    }
}

/// A transformer of a condition is of no use without the condition, and a condition counts alone.
void addConditions(Mistakes &found, const Configuration &element)
{
    for (const char *condition : {"visible", "enabled"}) {
        const QString name = QLatin1String(condition);
        const QString keyPath = name + QStringLiteral("KeyPath");
        const QString transformer = name + QStringLiteral("ValueTransformer");
        if (element.hasValueNamed(transformer) && !element.hasValueNamed(keyPath))
            found.append(
                warning(element, QStringLiteral("%1 has no effect without %2").arg(transformer, keyPath), transformer));
        if (element.hasValueNamed(name) && element.hasValueNamed(keyPath))
            found.append(warning(element, QStringLiteral("%1 has no effect beside %2").arg(name, keyPath), name));
    }
}

void addNumber(Mistakes &found, const Configuration &element)
{
    static const QString slider = QStringLiteral("slider");
    const QString kind = element.stringValueNamed(slider);
    const bool hasSlider =
        kind.compare(u"linear", Qt::CaseInsensitive) == 0 || kind.compare(u"circular", Qt::CaseInsensitive) == 0;
    if (hasSlider && !element.hasValueNamed(u"maximum") && !element.hasValueNamed(u"maximumKeyPath"))
        found.append(warning(element,
                             QStringLiteral("The slider goes up to 3.4e38: it has neither maximum nor maximumKeyPath"),
                             slider));
    static const QString checkbox = QStringLiteral("nonNilValueTitle");
    if (element.hasValueNamed(checkbox) && !element.hasValueNamed(u"nonNilValueKeyPath"))
        found.append(warning(
            element, QStringLiteral("The checkbox cannot be switched on: it has no nonNilValueKeyPath"), checkbox));
}

/// The root of a file may be shown without a tab, and another file may have what is missing.
void addTab(Mistakes &found, const Configuration &element)
{
    constexpr QStringView names[] = {u"image", u"title", u"file"};
    const auto isThere = [&](QStringView name) { return element.hasValueNamed(name); };
    if (!element.element().isRoot() && std::ranges::none_of(names, isThere))
        found.append(warning(element, QStringLiteral("The tab shows nothing: the pane has neither image nor title")));
}

void addSegments(Mistakes &found, const Configuration &element)
{
    for (const Configuration &group : element.configurationsNamed(u"option-group")) {
        for (const Configuration &option : group.configurationsNamed(u"option")) {
            if (!option.hasValueNamed(u"image"))
                found.append(warning(option, QStringLiteral("The segment shows nothing: the option has no image")));
        }
    }
}

} // namespace

Mistakes ZelUselessParts::of(const Configuration &element, const ZelDescriptionSchema::Element &schema)
{
    Mistakes found;
    addEditor(found, element, schema.type);
    addConditions(found, element);
    if (schema.type == u"number")
        addNumber(found, element);
    if (schema.role == u"pane")
        addTab(found, element);
    if (schema.type == u"enumeration" && element.stringValueNamed(u"style") == u"segmented")
        addSegments(found, element);
    return found;
}
