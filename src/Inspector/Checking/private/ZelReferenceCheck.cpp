// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelReferenceCheck.h"

#include "Core/Values/ZelTransformerFactory.h"
#include "Core/Values/private/ZelNearestName.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelNamedImages.h"

#include <QFileInfo>
#include <algorithm>

using Kind = ZelDescriptionSchema::Kind;

namespace {

QStringList namesOfColorLists()
{
    QStringList names;
    for (const ZelColorListPtr &list : ZelColorList::availableColorLists())
        names.append(list->name());
    return names;
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
    report(node, QStringLiteral("class"), u"Missing class " + name + reason, name, known);
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
        report(node, attribute, error, name, {});
    else
        report(node, attribute, u"Missing value transformer for name " + name, name, ours + m_options.transformers);
}

void ZelReferenceCheck::checkImage(const Node &node, const QString &name) const
{
    static const QStringList endings{QStringLiteral(""),     QStringLiteral(".svg"),  QStringLiteral(".png"),
                                     QStringLiteral(".jpg"), QStringLiteral(".jpeg"), QStringLiteral(".gif"),
                                     QStringLiteral(".bmp")};
    const bool isFile = std::ranges::any_of(
        endings, [&](const QString &ending) { return !m_walk.pathOf(name + ending, node.element).isNull(); });
    if (!isFile && !m_options.images.contains(name) && ZelNamedImages::imageNamed(name).isNull())
        report(node, QStringLiteral("image"), u"Missing image with name " + name, name,
               m_options.images + m_walk.namesBeside(node.element));
}

void ZelReferenceCheck::checkColorList(const Node &node, const QString &name) const
{
    const QStringList known = namesOfColorLists() + m_options.colorLists;
    if (!known.contains(name))
        report(node, QStringLiteral("colorList"), u"No color list found with name " + name, name, known);
}

/// A type that is not the library's comes from a file or from the application.
void ZelReferenceCheck::checkType(const Node &node) const
{
    const QString type = node.element.stringValueNamed(u"type");
    if (type.isEmpty() || m_options.propertyTypes.contains(type) || node.element.hasValueNamed(u"file"))
        return;
    report(node, QStringLiteral("type"), u"Type not suppored: " + type, type, editorTypes() + m_options.propertyTypes);
}

void ZelReferenceCheck::report(const Node &node, const QString &attribute, const QString &message, const QString &name,
                               const QStringList &known) const
{
    ZelNearestName nearest(name);
    nearest.offerAll(known);
    m_report(
        {ZelDescriptionMistake::Error, message + nearest.question(), node.element.place(), attribute, nearest.found()});
}
