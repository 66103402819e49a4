// SPDX-License-Identifier: MIT
#include "Inspector/Checking/ZelDescriptionGrammar.h"

#include "Inspector/Checking/private/ZelGrammarValues.h"
#include "Inspector/Checking/private/ZelXmlSchemaWriter.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QSet>
#include <QXmlStreamWriter>
#include <algorithm>

namespace {

using Schema = ZelDescriptionSchema;
using Kind = Schema::Kind;

/// Writes the grammar. An element is defined once for each role that it may have, also as the root of a file: such a
/// root has the name of the file's kind and the content of what includes the file.
class GrammarWriter
{
public:
    explicit GrammarWriter(QByteArray *text)
        : m_xml(text)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(1);
    }
    void write();

private:
    void writeStart();
    void writeElement(const Schema::Element &element, QStringView tag, bool isRoot);
    void writeAttributes(const Schema::Element &element, bool isRoot);
    void writeAttribute(const Schema::Attribute &attribute, const Schema::Element &element);
    void writeOptional(const Schema::Attribute &attribute);
    void writeValue(const Schema::Attribute &attribute);
    void writeWords(std::span<const QStringView> words, bool isAnyCase);
    void writeType(const Schema::Element &element);
    void writePattern(const QString &pattern);
    void writeData(const QString &type, const QString &parameter = {}, const QString &value = {});
    void writeFurther(const Schema::Element &element);
    void writeForeign();
    void reference(const QString &name);
    void emptyNamespace();

    static QString nameOf(const Schema::Element &element, bool isRoot);
    static QSet<QStringView> namesOf(const Schema::Element &element, bool isRoot);

    QXmlStreamWriter m_xml;
};

QString GrammarWriter::nameOf(const Schema::Element &element, bool isRoot)
{
    QString name = element.role.toString();
    if (element.role == u"property")
        name += u'.' + (element.type.isNull() ? QStringLiteral("other") : element.type.toString());
    return isRoot ? QString(name + QStringLiteral(".root")) : name;
}

/// The names of the attributes that the element declares.
QSet<QStringView> GrammarWriter::namesOf(const Schema::Element &element, bool isRoot)
{
    QSet<QStringView> names;
    const auto add = [&](std::span<const Schema::Attribute> attributes) {
        for (const Schema::Attribute &attribute : attributes)
            names.insert(attribute.name);
    };
    for (std::span<const Schema::Attribute> group : element.attributes)
        add(group);
    if (isRoot)
        add(Schema::attributesOfFile());
    if (element.role == u"property" && element.type.isNull())
        names.insert(u"file");
    return names;
}

void GrammarWriter::write()
{
    m_xml.writeStartDocument();
    m_xml.writeStartElement(QStringLiteral("grammar"));
    m_xml.writeDefaultNamespace(QStringLiteral("http://relaxng.org/ns/structure/1.0"));
    m_xml.writeAttribute(QStringLiteral("datatypeLibrary"),
                         QStringLiteral("http://www.w3.org/2001/XMLSchema-datatypes"));
    writeStart();
    for (const Schema::Element &element : Schema::elements()) {
        writeElement(element, element.role, false);
        if (!element.rootOfFile.isNull() || element.role == u"panes" || element.role == u"property")
            writeElement(element,
                         element.rootOfFile.isNull() ? element.role == u"panes" ? u"panes" : u"slice"
                                                     : element.rootOfFile,
                         true);
    }
    writeForeign();
    m_xml.writeEndElement();
    m_xml.writeEndDocument();
}

void GrammarWriter::writeStart()
{
    m_xml.writeStartElement(QStringLiteral("start"));
    m_xml.writeStartElement(QStringLiteral("choice"));
    for (const Schema::Element &element : Schema::elements()) {
        if (!element.rootOfFile.isNull() || element.role == u"panes" || element.role == u"property")
            reference(nameOf(element, true));
    }
    m_xml.writeEndElement();
    m_xml.writeEndElement();
}

void GrammarWriter::writeElement(const Schema::Element &element, QStringView tag, bool isRoot)
{
    m_xml.writeStartElement(QStringLiteral("define"));
    m_xml.writeAttribute(QStringLiteral("name"), nameOf(element, isRoot));
    m_xml.writeStartElement(QStringLiteral("element"));
    m_xml.writeAttribute(QStringLiteral("name"), tag.toString());
    writeAttributes(element, isRoot);
    reference(QStringLiteral("foreign.attributes"));
    m_xml.writeStartElement(QStringLiteral("zeroOrMore"));
    m_xml.writeStartElement(QStringLiteral("choice"));
    for (const Schema::Element &child : Schema::elements()) {
        if (std::ranges::find(element.children, child.role) != element.children.end())
            reference(nameOf(child, false));
    }
    reference(element.isOpen ? QStringLiteral("any.element") : QStringLiteral("foreign.element"));
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    m_xml.writeEndElement();
}

void GrammarWriter::writeAttributes(const Schema::Element &element, bool isRoot)
{
    for (std::span<const Schema::Attribute> group : element.attributes) {
        for (const Schema::Attribute &attribute : group)
            writeAttribute(attribute, element);
    }
    for (const Schema::Attribute &attribute : Schema::attributesOfFile()) {
        if (isRoot && !element.attributeNamed(attribute.name))
            writeOptional(attribute);
    }
    if (element.role == u"property" && element.type.isNull())
        writeOptional({u"file", Kind::File});
    if (element.isOpen)
        writeFurther(element);
}

void GrammarWriter::writeAttribute(const Schema::Attribute &attribute, const Schema::Element &element)
{
    if (element.role != u"property" || attribute.name != u"type")
        return writeOptional(attribute);
    m_xml.writeStartElement(QStringLiteral("attribute"));
    m_xml.writeAttribute(QStringLiteral("name"), QStringLiteral("type"));
    writeType(element);
    m_xml.writeEndElement();
}

void GrammarWriter::writeOptional(const Schema::Attribute &attribute)
{
    m_xml.writeStartElement(QStringLiteral("optional"));
    m_xml.writeStartElement(QStringLiteral("attribute"));
    m_xml.writeAttribute(QStringLiteral("name"), attribute.name.toString());
    writeValue(attribute);
    m_xml.writeEndElement();
    m_xml.writeEndElement();
}

void GrammarWriter::writeValue(const Schema::Attribute &attribute)
{
    switch (attribute.kind) {
    case Kind::Boolean:
        return writeWords(ZelGrammarValues::booleans(), true);
    case Kind::Word:
        return writeWords(attribute.words->words, attribute.words->isAnyCase);
    case Kind::Number:
        return writeData(QStringLiteral("double"));
    case Kind::Increment:
        return writeData(QStringLiteral("double"), QStringLiteral("minExclusive"), QStringLiteral("0"));
    default:
        break;
    }
    if (const QString pattern = ZelGrammarValues::pattern(attribute.kind); !pattern.isNull())
        writePattern(pattern);
    else
        m_xml.writeEmptyElement(QStringLiteral("text"));
}

/// The words stand in the grammar as such, so that editors offer them.
void GrammarWriter::writeWords(std::span<const QStringView> words, bool isAnyCase)
{
    m_xml.writeStartElement(QStringLiteral("choice"));
    for (QStringView word : words)
        m_xml.writeTextElement(QStringLiteral("value"), word.toString());
    if (isAnyCase)
        writePattern(ZelGrammarValues::anyCase(words));
    m_xml.writeEndElement();
}

void GrammarWriter::writeType(const Schema::Element &element)
{
    if (!element.type.isNull())
        return m_xml.writeTextElement(QStringLiteral("value"), element.type.toString());
    m_xml.writeStartElement(QStringLiteral("data"));
    m_xml.writeAttribute(QStringLiteral("type"), QStringLiteral("string"));
    m_xml.writeStartElement(QStringLiteral("except"));
    m_xml.writeStartElement(QStringLiteral("choice"));
    for (const Schema::Element &known : Schema::elements()) {
        if (!known.type.isNull())
            m_xml.writeTextElement(QStringLiteral("value"), known.type.toString());
    }
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    m_xml.writeEndElement();
}

void GrammarWriter::writePattern(const QString &pattern)
{
    writeData(QStringLiteral("string"), QStringLiteral("pattern"), pattern);
}

void GrammarWriter::writeData(const QString &type, const QString &parameter, const QString &value)
{
    m_xml.writeStartElement(QStringLiteral("data"));
    m_xml.writeAttribute(QStringLiteral("type"), type);
    if (!parameter.isNull()) {
        m_xml.writeStartElement(QStringLiteral("param"));
        m_xml.writeAttribute(QStringLiteral("name"), parameter);
        m_xml.writeCharacters(value);
        m_xml.writeEndElement();
    }
    m_xml.writeEndElement();
}

/// Attributes of the application's own: all without a namespace that are not the library's.
void GrammarWriter::writeFurther(const Schema::Element &element)
{
    m_xml.writeStartElement(QStringLiteral("zeroOrMore"));
    m_xml.writeStartElement(QStringLiteral("attribute"));
    m_xml.writeStartElement(QStringLiteral("nsName"));
    emptyNamespace();
    m_xml.writeStartElement(QStringLiteral("except"));
    m_xml.writeStartElement(QStringLiteral("choice"));
    const QSet<QStringView> known = namesOf(element, true);
    QList<QStringView> names(known.begin(), known.end());
    std::ranges::sort(names);
    for (QStringView name : names)
        m_xml.writeTextElement(QStringLiteral("name"), name.toString());
    for (int i = 0; i < 5; ++i)
        m_xml.writeEndElement();
}

void GrammarWriter::writeForeign()
{
    const auto begin = [&](const char *definition) {
        m_xml.writeStartElement(QStringLiteral("define"));
        m_xml.writeAttribute(QStringLiteral("name"), QLatin1String(definition));
    };
    const auto otherNames = [&] {
        m_xml.writeStartElement(QStringLiteral("anyName"));
        m_xml.writeStartElement(QStringLiteral("except"));
        m_xml.writeStartElement(QStringLiteral("nsName"));
        emptyNamespace();
        for (int i = 0; i < 3; ++i)
            m_xml.writeEndElement();
    };
    const auto anyContent = [&] {
        m_xml.writeStartElement(QStringLiteral("zeroOrMore"));
        m_xml.writeStartElement(QStringLiteral("choice"));
        m_xml.writeStartElement(QStringLiteral("attribute"));
        m_xml.writeEmptyElement(QStringLiteral("anyName"));
        m_xml.writeEndElement();
        m_xml.writeEmptyElement(QStringLiteral("text"));
        reference(QStringLiteral("any.element"));
        m_xml.writeEndElement();
        m_xml.writeEndElement();
    };
    begin("foreign.attributes");
    m_xml.writeStartElement(QStringLiteral("zeroOrMore"));
    m_xml.writeStartElement(QStringLiteral("attribute"));
    otherNames();
    for (int i = 0; i < 3; ++i)
        m_xml.writeEndElement();
    begin("foreign.element");
    m_xml.writeStartElement(QStringLiteral("element"));
    otherNames();
    anyContent();
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    begin("any.element");
    m_xml.writeStartElement(QStringLiteral("element"));
    m_xml.writeEmptyElement(QStringLiteral("anyName"));
    anyContent();
    m_xml.writeEndElement();
    m_xml.writeEndElement();
}

void GrammarWriter::reference(const QString &name)
{
    m_xml.writeEmptyElement(QStringLiteral("ref"));
    m_xml.writeAttribute(QStringLiteral("name"), name);
}

void GrammarWriter::emptyNamespace()
{
    m_xml.writeAttribute(QStringLiteral("ns"), QString());
}

} // namespace

QByteArray ZelDescriptionGrammar::relaxNG()
{
    QByteArray text;
    GrammarWriter(&text).write();
    return text;
}

QByteArray ZelDescriptionGrammar::xmlSchema()
{
    QByteArray text;
    ZelXmlSchemaWriter(&text).write();
    return text;
}
