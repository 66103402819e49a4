// SPDX-License-Identifier: MIT
#include "Inspector/Checking/ZelDescriptionStrings.h"

#include "Inspector/Checking/private/ZelAttributePlaces.h"
#include "Inspector/Checking/private/ZelDescriptionWalk.h"
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

} // namespace

QList<Strings::Text> Strings::collect(const QStringList &files, const Options &options,
                                      QList<ZelDescriptionMistake> &mistakes)
{
    QList<Text> texts;
    QSet<QString> known;
    ZelAttributePlaces places;
    const auto visit = [&](const ZelDescriptionWalk::Node &node) {
        const ZelXmlElement &element = node.element.element();
        for (qsizetype i = 0; i < element.attributeCount(); ++i) {
            const QString text = element.attributeValue(i).toString();
            if (text.isEmpty() || !isLocalized(node, element.attributeName(i), options.attributes))
                continue;
            const ZelSourcePlace place = places.placeOf(element.attributeName(i), element.place());
            const QString key = place.appendedTo(text);
            if (!known.contains(key))
                texts.append({text, place});
            known.insert(key);
        }
    };
    const auto report = [&](const ZelDescriptionMistake &mistake) { mistakes.append(mistake); };
    ZelDescriptionWalk(options.resourceFolders, visit, report).walk(files);
    return texts;
}
