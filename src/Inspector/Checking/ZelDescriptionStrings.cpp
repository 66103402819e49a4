// SPDX-License-Identifier: MIT
#include "Inspector/Checking/ZelDescriptionStrings.h"

#include "Inspector/Checking/private/ZelAttributePlaces.h"
#include "Inspector/Checking/private/ZelDescriptionWalk.h"
#include "Inspector/Checking/private/ZelKeyPathResolver.h"
#include "Inspector/Description/ZelInspectorDescription.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QSet>

using Strings = ZelDescriptionStrings;

namespace {

bool isLocalized(const ZelDescriptionWalk::Node &node, const QString &name, const QStringList &further)
{
    const auto *schema = ZelDescriptionSchema::element(node.role, node.element.element().attribute(u"type"));
    const auto *attribute = schema ? schema->attributeNamed(name) : nullptr;
    using Kind = ZelDescriptionSchema::Kind;
    const ZelInspectorConfiguration root(node.element.element().root());
    return (attribute && attribute->kind == Kind::LocalizedText) ||
           (attribute && attribute->kind == Kind::RowTitle && root.booleanValueNamed(u"localized")) ||
           further.contains(QString(node.role + u'@' + name)) || further.contains(QString(u"*@" + name));
}

ZelTypeScope scopeAt(const ZelDescriptionWalk::Node &node, const ZelTypeScope &around)
{
    return ZelTypeAttributes::scopeWithin(node.parent ? scopeAt(*node.parent, around) : around, node.element);
}

/// What the editor offers because the description says nothing of options.
QStringList offeredKeys(const ZelDescriptionWalk::Node &node, const ZelTypeTable &types, const ZelTypeScope &around)
{
    const QString type = node.element.stringValueNamed(u"type");
    const bool isOfKeys = node.role == u"property" && (type == u"enumeration" || type == u"flags");
    if (!isOfKeys || !node.element.configurationsNamed(u"option-group").isEmpty() ||
        node.element.hasValueNamed(u"enumeratedValuesKeyPath"))
        return {};
    const ZelTypeScope scope = scopeAt(node, around);
    const auto result = ZelKeyPathResolver(types, scope).resolve(node.element.stringValueNamed(u"keyPath"));
    return result.enumeration ? result.enumeration->keys : QStringList();
}

ZelTypeTable typesIn(const QStringList &files, QList<ZelDescriptionMistake> &mistakes)
{
    ZelTypeTable types;
    if (!files.isEmpty())
        types.addKnownClasses();
    for (const QString &file : files) {
        if (const QString error = types.read(file); !error.isNull())
            mistakes.append(
                {ZelDescriptionMistake::Error, QStringLiteral("The types cannot be read: ") + error, {file}});
    }
    return types;
}

} // namespace

QList<Strings::Text> Strings::collect(const QStringList &files, const Options &options,
                                      QList<ZelDescriptionMistake> &mistakes)
{
    QList<Text> texts;
    QSet<QString> known;
    ZelAttributePlaces places;
    const ZelTypeTable types = typesIn(options.typeFiles, mistakes);
    const ZelTypeScope scope{options.owner, options.selections, {}};
    const auto add = [&](const QString &text, const ZelSourcePlace &place) {
        const QString key = place.appendedTo(text);
        if (!known.contains(key))
            texts.append({text, place});
        known.insert(key);
    };
    const auto visit = [&](const ZelDescriptionWalk::Node &node) {
        const ZelXmlElement &element = node.element.element();
        for (qsizetype i = 0; i < element.attributeCount(); ++i) {
            const QString text = element.attributeValue(i).toString();
            if (text.isEmpty() || !isLocalized(node, element.attributeName(i), options.attributes))
                continue;
            add(text, places.placeOf(element.attributeName(i), element.place()));
        }
        for (const QString &key : types.isEmpty() ? QStringList() : offeredKeys(node, types, scope))
            add(ZelInspectorDescription::titleForName(key), places.placeOf(QStringLiteral("keyPath"), element.place()));
    };
    const auto report = [&](const ZelDescriptionMistake &mistake) { mistakes.append(mistake); };
    ZelDescriptionWalk(options.resourceFolders, visit, report).walk(files);
    return texts;
}
