// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelXmlSchemaWriter.h"

#include "Inspector/Checking/private/ZelGrammarValues.h"

#include <algorithm>

using Writer = ZelXmlSchemaWriter;
using Kind = ZelDescriptionSchema::Kind;

namespace {

constexpr const char *g_namespace = "http://www.w3.org/2001/XMLSchema";

constexpr const char *g_comment =
    "\n    Descriptions of inspectors. Made by the command schema of zel.\n\n"
    "    XML Schema 1.0 cannot let the attributes of an element depend on its attribute type. A property therefore "
    "admits\n"
    "    the attributes of all types, and any others, since editors of the application's own may have their own; "
    "children\n"
    "    of these have to have a namespace here. The root of a file admits what any element has that could include "
    "the\n"
    "    file. The schema in RELAX NG tells all these apart, and the command check knows files and classes, too.\n";

QString typeOfKind(Kind kind)
{
    switch (kind) {
    case Kind::Boolean:
        return QStringLiteral("Boolean");
    case Kind::KeyPath:
        return QStringLiteral("KeyPath");
    case Kind::Bits:
        return QStringLiteral("Bits");
    case Kind::Color:
        return QStringLiteral("Color");
    case Kind::Number:
        return QStringLiteral("xs:double");
    case Kind::Increment:
        return QStringLiteral("Increment");
    default:
        return QStringLiteral("xs:string");
    }
}

} // namespace

Writer::ZelXmlSchemaWriter(QByteArray *text)
    : m_xml(text)
{
    m_xml.setAutoFormatting(true);
    m_xml.setAutoFormattingIndent(1);
}

void Writer::write()
{
    m_xml.writeStartDocument();
    m_xml.writeComment(QString::fromLatin1(g_comment));
    m_xml.writeNamespace(QLatin1String(g_namespace), QStringLiteral("xs"));
    begin("schema");
    writeRoots();
    QStringList written;
    for (const Schema::Element &element : Schema::elements()) {
        const QString role = element.role.toString();
        if (!written.contains(role))
            writeType(role, withName(element.role), false);
        written.append(role);
    }
    writeValues();
    m_xml.writeEndElement();
    m_xml.writeEndDocument();
}

/// The elements that have that name inside of a file.
Writer::Elements Writer::withName(QStringView name)
{
    Elements found;
    for (const Schema::Element &element : Schema::elements()) {
        if (element.role == name)
            found.append(&element);
    }
    return found;
}

/// The elements that the root of a file may stand for if it has that name.
Writer::Elements Writer::asRoot(QStringView name)
{
    Elements found;
    for (const Schema::Element &element : Schema::elements()) {
        // Properties of all types are read from a file as those of types that the library does not know.
        const QStringView root = element.role == u"property" ? QStringView(u"slice") : element.rootOfFile;
        if (element.role == name || root == name)
            found.append(&element);
    }
    return found;
}

void Writer::writeRoots()
{
    QStringList names{QStringLiteral("panes")};
    for (const Schema::Element &element : Schema::elements()) {
        if (!element.rootOfFile.isNull() && !names.contains(element.rootOfFile))
            names.append(element.rootOfFile.toString());
    }
    for (const QString &name : std::as_const(names)) {
        begin("element", name);
        m_xml.writeAttribute(QStringLiteral("type"), name + QStringLiteral(".root"));
        m_xml.writeEndElement();
        writeType(name + QStringLiteral(".root"), asRoot(name), true);
    }
}

void Writer::add(QList<Attribute> &attributes, const Schema::Attribute &attribute)
{
    const QString name = attribute.name.toString();
    const auto known = std::ranges::find(attributes, name, &Attribute::name);
    if (known == attributes.end())
        attributes.append({name, attribute.kind, {attribute.words}});
    else if (known->kind != attribute.kind)
        known->kind = Kind::Text;
    else if (!known->words.contains(attribute.words))
        known->words.append(attribute.words);
}

QList<Writer::Attribute> Writer::attributesOf(const Elements &elements, bool isRoot)
{
    QList<Attribute> attributes;
    for (const Schema::Element *element : elements) {
        for (std::span<const Schema::Attribute> group : element->attributes) {
            for (const Schema::Attribute &attribute : group)
                add(attributes, attribute);
        }
        if (element->role == u"property")
            add(attributes, {u"file", Kind::File});
    }
    for (const Schema::Attribute &attribute : Schema::attributesOfFile()) {
        if (isRoot)
            add(attributes, attribute);
    }
    return attributes;
}

void Writer::writeType(const QString &name, const Elements &elements, bool isRoot)
{
    begin("complexType", name);
    writeChildren(elements);
    for (const Attribute &attribute : attributesOf(elements, isRoot))
        writeAttribute(attribute, !isRoot && elements.first()->role == u"property" && attribute.name == u"type");
    const bool isOpen = std::ranges::any_of(elements, [](const Schema::Element *element) { return element->isOpen; });
    empty("anyAttribute", "namespace", isOpen ? QStringLiteral("##any") : QStringLiteral("##other"));
    m_xml.writeAttribute(QStringLiteral("processContents"), QStringLiteral("skip"));
    m_xml.writeEndElement();
}

void Writer::writeChildren(const Elements &elements)
{
    QStringList children;
    for (const Schema::Element *element : elements) {
        for (QStringView child : element->children) {
            if (!child.isNull() && !children.contains(child))
                children.append(child.toString());
        }
    }
    begin("choice");
    m_xml.writeAttribute(QStringLiteral("minOccurs"), QStringLiteral("0"));
    m_xml.writeAttribute(QStringLiteral("maxOccurs"), QStringLiteral("unbounded"));
    for (const QString &child : std::as_const(children)) {
        empty("element", "name", child);
        m_xml.writeAttribute(QStringLiteral("type"), child);
    }
    empty("any", "namespace", QStringLiteral("##other"));
    m_xml.writeAttribute(QStringLiteral("processContents"), QStringLiteral("skip"));
    m_xml.writeEndElement();
}

void Writer::writeAttribute(const Attribute &attribute, bool isRequired)
{
    begin("attribute", attribute.name);
    if (isRequired)
        m_xml.writeAttribute(QStringLiteral("use"), QStringLiteral("required"));
    if (attribute.kind == Kind::Word)
        writeWords(attribute);
    else
        m_xml.writeAttribute(QStringLiteral("type"),
                             attribute.name == u"type" ? QStringLiteral("Type") : typeOfKind(attribute.kind));
    m_xml.writeEndElement();
}

void Writer::writeWords(const Attribute &attribute)
{
    QList<QStringView> words;
    bool isAnyCase = false;
    for (const Schema::Words *ofType : attribute.words) {
        isAnyCase = isAnyCase || ofType->isAnyCase;
        for (QStringView word : ofType->words) {
            if (!words.contains(word))
                words.append(word);
        }
    }
    const std::span<const QStringView> all(words.constData(), size_t(words.size()));
    writeChoice({}, all, isAnyCase ? ZelGrammarValues::anyCase(all) : QString());
}

void Writer::writeValues()
{
    const auto booleans = ZelGrammarValues::booleans();
    writeChoice(QStringLiteral("Boolean"), booleans, ZelGrammarValues::anyCase(booleans));
    for (Kind kind : {Kind::KeyPath, Kind::Bits, Kind::Color})
        writePattern(typeOfKind(kind), ZelGrammarValues::pattern(kind));
    begin("simpleType", typeOfKind(Kind::Increment));
    begin("restriction");
    m_xml.writeAttribute(QStringLiteral("base"), QStringLiteral("xs:double"));
    empty("minExclusive", "value", QStringLiteral("0"));
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    QList<QStringView> types;
    for (const Schema::Element &element : Schema::elements()) {
        if (!element.type.isNull())
            types.append(element.type);
    }
    writeChoice(QStringLiteral("Type"), {types.constData(), size_t(types.size())}, QStringLiteral(".+"));
}

void Writer::writePattern(const QString &typeName, const QString &pattern)
{
    begin("simpleType", typeName);
    begin("restriction");
    m_xml.writeAttribute(QStringLiteral("base"), QStringLiteral("xs:string"));
    empty("pattern", "value", pattern);
    m_xml.writeEndElement();
    m_xml.writeEndElement();
}

/// The words stand in the schema as such, so that editors offer them; others that match the pattern are right, too.
void Writer::writeChoice(const QString &typeName, std::span<const QStringView> words, const QString &pattern)
{
    begin("simpleType", typeName);
    begin("union");
    begin("simpleType");
    begin("restriction");
    m_xml.writeAttribute(QStringLiteral("base"), QStringLiteral("xs:string"));
    for (QStringView word : words)
        empty("enumeration", "value", word.toString());
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    if (!pattern.isNull())
        writePattern({}, pattern);
    m_xml.writeEndElement();
    m_xml.writeEndElement();
}

void Writer::begin(const char *tag, const QString &name)
{
    m_xml.writeStartElement(QLatin1String(g_namespace), QLatin1String(tag));
    if (!name.isNull())
        m_xml.writeAttribute(QStringLiteral("name"), name);
}

void Writer::empty(const char *tag, const char *attribute, const QString &value)
{
    m_xml.writeEmptyElement(QLatin1String(g_namespace), QLatin1String(tag));
    m_xml.writeAttribute(QLatin1String(attribute), value);
}
