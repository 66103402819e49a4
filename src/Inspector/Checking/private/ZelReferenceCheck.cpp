// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelReferenceCheck.h"

#include "Core/Values/ZelTransformerFactory.h"
#include "Core/Values/private/ZelNearestName.h"
#include "Inspector/Description/private/ZelDescriptionHints.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelNamedImages.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

using Kind = ZelDescriptionSchema::Kind;

namespace {

/// What the names of a transformer have in common if people write it with other endings than it has.
QString stemOf(QString name)
{
    for (const char *part : {"Zel", "ValueTransformer", "Transformer", "Value", "Name"})
        name.remove(QLatin1String(part));
    return name;
}

QString imageName(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

const QStringList &imageEndings()
{
    static const QStringList endings{QStringLiteral(""),     QStringLiteral(".svg"),  QStringLiteral(".png"),
                                     QStringLiteral(".jpg"), QStringLiteral(".jpeg"), QStringLiteral(".gif"),
                                     QStringLiteral(".bmp")};
    return endings;
}

QStringList namesOfColorLists()
{
    QStringList names;
    for (const ZelColorListPtr &list : ZelColorList::availableColorLists())
        names.append(list->name());
    return names;
}

/// How the application says what else there is. Of an image, also as a file.
QString wayToName(QStringView attribute)
{
    struct Way
    {
        QStringView attribute;
        const char *option;
        const char *word;
    };
    static constexpr Way ways[] = {{u"class", "class", "CLASSES"},
                                   {u"ValueTransformer", "transformer", "TRANSFORMERS"},
                                   {u"image", "image", "IMAGE_FILES or IMAGES"},
                                   {u"colorList", "color-list", "COLOR_LISTS"},
                                   {u"type", "property-type", "PROPERTY_TYPES"}};
    const auto way = std::ranges::find_if(
        ways, [&](const Way &known) { return attribute.endsWith(known.attribute, Qt::CaseInsensitive); });
    return way == std::end(ways) ? QString()
                                 : QStringLiteral("; one of the application's is named by --%1, in CMake by %2")
                                       .arg(QLatin1String(way->option), QLatin1String(way->word));
}

QStringList editorTypes()
{
    QStringList types;
    for (const ZelDescriptionSchema::Element &element : ZelDescriptionSchema::elements()) {
        if (!element.type.isNull())
            types.append(element.type.toString());
    }
    return types;
}

} // namespace

void ZelReferenceCheck::check(const Node &node) const
{
    const Schema::Element *schema = Schema::element(node.role, node.element.element().attribute(u"type"));
    for (std::span<const Schema::Attribute> group : schema->attributes) {
        for (const Schema::Attribute &attribute : group) {
            const QString text = node.element.stringValueNamed(attribute.name);
            if (!node.element.hasValueNamed(attribute.name))
                continue;
            if (attribute.kind == Kind::Class)
                checkClass(node, text);
            else if (attribute.kind == Kind::Transformer)
                checkTransformer(node, attribute.name.toString(), text);
            else if (attribute.kind == Kind::Image && !text.isEmpty())
                checkImage(node, text);
            else if (attribute.kind == Kind::ColorList)
                checkColorList(node, text);
        }
    }
    if (node.role == u"property" && schema->type.isNull())
        checkType(node);
}

void ZelReferenceCheck::checkClass(const Node &node, const QString &name) const
{
    if (m_options.classes.contains(name))
        return;
    const QString base =
        node.role == u"slice" ? QStringLiteral("ZelInspectorSlice") : QStringLiteral("ZelInspectorProperty");
    const ZelTypeTable::Class *type = m_types.classNamed(name);
    if (type && (m_types.inherits(*type, base) || !m_types.unknownBase(*type).isNull()))
        return;
    QStringList known = m_options.classes;
    for (const QString &candidate : m_types.classNames()) {
        if (m_types.inherits(*m_types.classNamed(candidate), base))
            known.append(candidate);
    }
    const QString reason = type ? QStringLiteral(", it is no %1").arg(base) : QString();
    ZelNearestName nearest(name);
    nearest.offerAll(known);
    reportMeant(node, QStringLiteral("class"), u"Missing class " + name + reason, nearest.found(), !type);
}

/// A transformer may have an argument. That of an application's own is not looked at.
void ZelReferenceCheck::checkTransformer(const Node &node, const QString &attribute, const QString &name) const
{
    const QStringList ours = ZelAbstractValueTransformer::valueTransformerNames() + ZelTransformerFactory::names();
    const QString withoutArgument = name.section(u'(', 0, 0).trimmed();
    QString error;
    if (m_options.transformers.contains(withoutArgument) || ZelTransformerFactory::transformer(name, &error))
        return;
    if (ours.contains(withoutArgument))
        reportMeant(node, attribute, error, {}, false);
    else
        reportMeant(node, attribute, u"Missing value transformer for name " + name,
                    transformerMeantBy(name, ours + m_options.transformers));
}

QString ZelReferenceCheck::transformerMeantBy(const QString &name, const QStringList &known)
{
    ZelNearestName nearest(name);
    nearest.offerAll(known);
    if (!nearest.found().isNull())
        return nearest.found();
    static const QRegularExpression argument(QStringLiteral("^(\\w+)\\W+(\\w.*)$")); // as in "ZelEquals=3"
    if (const auto match = argument.match(name); match.hasMatch() && known.contains(match.captured(1)))
        return QStringLiteral("%1(%2)").arg(match.captured(1), match.captured(2));
    const auto same = std::ranges::find_if(known, [&](const QString &other) { return stemOf(other) == stemOf(name); });
    return same == known.end() ? QString() : *same;
}

void ZelReferenceCheck::checkImage(const Node &node, const QString &name) const
{
    const bool isFile = std::ranges::any_of(
        imageEndings(), [&](const QString &ending) { return !m_walk.resources().pathOf(name + ending).isNull(); });
    if (!isFile && !m_options.images.contains(name) && ZelNamedImages::imageNamed(name).isNull())
        reportMeant(node, QStringLiteral("image"), u"Missing image with name " + name, imageMeantBy(name, node));
}

/// An image that is known, be it named with a path, with an ending or with wrong letters.
QString ZelReferenceCheck::imageMeantBy(const QString &name, const Node &node) const
{
    const QString wanted = imageName(name);
    ZelNearestName nearest(wanted);
    QHash<QString, QString> names;
    for (const QString &known : m_options.images) {
        nearest.offer(known);
        names.insert(known, known);
    }
    for (const QString &known : m_walk.resources().namesFor(node.element.place().file)) {
        const QString ending = u'.' + QFileInfo(known).suffix();
        if (ending != u"." && !imageEndings().contains(ending))
            continue;
        const QString withoutEnding = ending == u"." ? known : known.chopped(ending.size());
        nearest.offer(imageName(withoutEnding));
        QString &shortest = names[imageName(withoutEnding)];
        shortest = shortest.isEmpty() || withoutEnding.size() < shortest.size() ? withoutEnding : shortest;
    }
    return names.value(nearest.found());
}

void ZelReferenceCheck::checkColorList(const Node &node, const QString &name) const
{
    const QStringList known = namesOfColorLists() + m_options.colorLists;
    ZelNearestName nearest(name);
    nearest.offerAll(known);
    if (!known.contains(name))
        reportMeant(node, QStringLiteral("colorList"), u"No color list found with name " + name, nearest.found());
}

/// A type that is not the library's comes from a file or from the application.
void ZelReferenceCheck::checkType(const Node &node) const
{
    const QString type = node.element.stringValueNamed(u"type");
    if (type.isEmpty() || m_options.propertyTypes.contains(type) || node.element.hasValueNamed(u"file"))
        return;
    const QStringList known = editorTypes() + m_options.propertyTypes;
    ZelNearestName nearest(type);
    nearest.offerAll(known);
    const QString meant = nearest.found().isNull() ? ZelDescriptionHints::synonym(type, known) : nearest.found();
    const ZelTypeTable::Class *editor = m_types.classNamed(type);
    QString all;
    if (editor && m_types.inherits(*editor, QStringLiteral("ZelInspectorProperty")))
        all = QStringLiteral("; a class is named by type=\"custom\" class=\"%1\"").arg(type);
    else if (meant.isNull())
        all = ZelNearestName::choices(known);
    reportMeant(node, QStringLiteral("type"), u"Type not suppored: " + type + all, meant, !all.contains(u"class="));
}

void ZelReferenceCheck::reportMeant(const Node &node, const QString &attribute, const QString &message,
                                    const QString &meant, bool mayBeOfApplication) const
{
    const QString end = !meant.isNull()      ? ZelNearestName::question(meant)
                        : mayBeOfApplication ? wayToName(attribute)
                                             : QString();
    m_report({ZelDescriptionMistake::Error, message + end, node.element.place(), attribute, meant});
}
