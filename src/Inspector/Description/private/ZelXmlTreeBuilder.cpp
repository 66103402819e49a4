// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelXmlTreeBuilder.h"

#include <algorithm>
#include <cstring>
#include <expat.h>
#include <type_traits>

static_assert(std::is_same_v<XML_Char, char>, "expat must hand out UTF-8");

namespace {

/// Whether this begins like UTF-16 or UTF-32, which the parser would accept.
bool isOtherEncoding(QByteArrayView data)
{
    return data.startsWith("\xFF\xFE") || data.startsWith("\xFE\xFF") ||
           data.first(std::min<qsizetype>(2, data.size())).contains('\0');
}

QString encodingMessage()
{
    return ZelXmlReader::tr("The text is not encoded in UTF-8.");
}

QString typeDeclarationMessage()
{
    return ZelXmlReader::tr("A document type declaration is not allowed.");
}

QByteArrayView withoutMark(QByteArrayView data)
{
    return data.startsWith("\xEF\xBB\xBF") ? data.sliced(3) : data;
}

/// Whether this begins with a character in UTF-8. XML knows no zero character, but other encodings hold zero bytes.
bool beginsWithCharacter(QByteArrayView data)
{
    for (qsizetype length = 1; length <= std::min<qsizetype>(4, data.size()); ++length) {
        if (data.first(length).isValidUtf8())
            return data.front() != '\0';
    }
    return false;
}

bool isPredefinedEntity(QStringView name)
{
    return name == u"lt" || name == u"gt" || name == u"amp" || name == u"quot" || name == u"apos";
}

} // namespace

ZelXmlTreeBuilder::ZelXmlTreeBuilder(QByteArrayView data, const ZelXmlReader::Limits &limits, const QString &file)
    : m_data(withoutMark(data))
    , m_limits(limits)
    , m_parser(XML_ParserCreate("UTF-8"))
    , m_decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom)
{
    Q_CHECK_PTR(m_parser);
    m_tree->file = file;
    // A text has no more units in UTF-16 than bytes in UTF-8, so that the buffer never has to grow. Values point into
    // it, which keeps an empty one from being null.
    m_tree->values = QString(data.size(), Qt::Uninitialized);
    m_valuesEnd = m_tree->values.data();
    setHandlers();
}

ZelXmlTreeBuilder::~ZelXmlTreeBuilder()
{
    XML_ParserFree(m_parser);
}

void ZelXmlTreeBuilder::setHandlers()
{
    using Self = ZelXmlTreeBuilder *;
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(
        m_parser,
        [](void *self, const char *name, const char **attributes) { Self(self)->startElement(name, attributes); },
        [](void *self, const char *) { Self(self)->endElement(); });
    XML_SetXmlDeclHandler(m_parser, [](void *self, const char *version, const char *encoding, int) {
        Self(self)->xmlDeclaration(version, encoding);
    });
    // This handler gets the "<!DOCTYPE" itself; the one for document types would be called only behind their name and
    // identifiers.
    XML_SetDefaultHandler(m_parser, [](void *self, const char *text, int length) {
        Self(self)->otherText(QByteArrayView(text, length));
    });
}

std::shared_ptr<const ZelXmlTree> ZelXmlTreeBuilder::build(ZelReadError &error)
{
    if (isOtherEncoding(m_data))
        m_refused = {encodingMessage(), {m_tree->file, 1, 1}};
    else if (XML_Parse(m_parser, m_data.data(), int(m_data.size()), XML_TRUE) != XML_STATUS_OK && !m_refused.isSet())
        m_refused = {parserMessage(), place()};
    error = m_refused;
    if (m_refused.isSet())
        return nullptr;
    m_tree->values.truncate(m_valuesEnd - m_tree->values.constData());
    return m_tree;
}

void ZelXmlTreeBuilder::startElement(const char *name, const char **attributes)
{
    if (m_tree->elements.size() >= size_t(std::max(m_limits.elements, 0)))
        return refuse(ZelXmlReader::tr("More than %1 elements are described.").arg(m_limits.elements));
    if (m_open.size() >= size_t(std::max(m_limits.depth, 0)))
        return refuse(ZelXmlReader::tr("More than %1 elements are nested.").arg(m_limits.depth));
    const quint32 index = quint32(m_tree->elements.size());
    const quint32 firstAttribute = quint32(m_tree->attributes.size());
    for (; *attributes; attributes += 2)
        addAttribute(attributes[0], attributes[1]);
    const quint32 count = quint32(m_tree->attributes.size()) - firstAttribute;
    if (count > quint32(std::max(m_limits.attributes, 0)))
        return refuse(ZelXmlReader::tr("The element has more than %1 attributes.").arg(m_limits.attributes));
    m_tree->elements.push_back({nameIndex(name), firstAttribute, count, 0, quint32(XML_GetCurrentLineNumber(m_parser)),
                                quint32(XML_GetCurrentColumnNumber(m_parser)) + 1});
    m_open.push_back(index);
}

void ZelXmlTreeBuilder::endElement()
{
    if (m_refused.isSet()) // the parser still reports the end of an empty element that was refused
        return;
    m_tree->elements[m_open.back()].end = quint32(m_tree->elements.size());
    m_open.pop_back();
}

void ZelXmlTreeBuilder::addAttribute(const char *name, QByteArrayView value)
{
    const QChar *values = m_tree->values.constData();
    QChar *start = m_valuesEnd;
    m_valuesEnd = m_decoder.appendToBuffer(start, value);
    m_tree->attributes.push_back({nameIndex(name), quint32(start - values), quint32(m_valuesEnd - start)});
}

quint32 ZelXmlTreeBuilder::nameIndex(std::string_view name)
{
    auto &[recent, index] = m_recentNames[(name.size() + 8 * size_t(name.front())) % m_recentNames.size()];
    if (recent == name)
        return index;
    const auto [known, isNew] = m_nameIndexes.emplace(name, quint32(m_tree->names.size()));
    if (isNew)
        m_tree->names.push_back(QString::fromUtf8(name.data(), qsizetype(name.size())));
    recent = known->first;
    index = known->second;
    return index;
}

void ZelXmlTreeBuilder::xmlDeclaration(QByteArrayView version, QByteArrayView encoding)
{
    if (version != "1.0")
        refuse(ZelXmlReader::tr("Unsupported XML version."));
    else if (!encoding.isNull() && encoding.compare("utf-8", Qt::CaseInsensitive) != 0)
        refuse(ZelXmlReader::tr("The encoding \"%1\" is not supported; write the file in UTF-8.")
                   .arg(QString::fromUtf8(encoding)));
}

void ZelXmlTreeBuilder::otherText(QByteArrayView text)
{
    if (m_open.empty() && text.startsWith("<!DOCTYPE")) // within an element, it is text of a CDATA section
        refuse(typeDeclarationMessage());
}

void ZelXmlTreeBuilder::refuse(const QString &message)
{
    m_refused = {message, place()};
    XML_StopParser(m_parser, XML_FALSE);
}

ZelSourcePlace ZelXmlTreeBuilder::place() const
{
    const QString element = m_open.empty() ? QString() : m_tree->names[m_tree->elements[m_open.back()].name];
    return {m_tree->file, qint64(XML_GetCurrentLineNumber(m_parser)), qint64(XML_GetCurrentColumnNumber(m_parser)) + 1,
            element};
}

QString ZelXmlTreeBuilder::parserMessage() const
{
    const qsizetype position = std::clamp<qsizetype>(XML_GetCurrentByteIndex(m_parser), 0, m_data.size());
    const QByteArrayView rest = m_data.sliced(position);
    if (m_data.sliced(std::max<qsizetype>(position - 2, 0)).startsWith("<!DOCTYPE") || rest.startsWith("<!DOCTYPE"))
        return typeDeclarationMessage(); // here it stands where none may stand
    switch (XML_GetErrorCode(m_parser)) {
    case XML_ERROR_NO_ELEMENTS:
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
        return ZelXmlReader::tr("Premature end of document.") + openElement();
    case XML_ERROR_TAG_MISMATCH:
        return ZelXmlReader::tr("Opening and ending tag mismatch: </%1> stands there.").arg(nameAt(position)) +
               openElement();
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
        return ZelXmlReader::tr("Extra content at end of document.");
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
        return ZelXmlReader::tr("Attribute '%1' redefined.").arg(nameAt(position));
    case XML_ERROR_UNDEFINED_ENTITY:
        return ZelXmlReader::tr("The entity \"%1\" is not known.").arg(unknownEntityFrom(position));
    case XML_ERROR_BAD_CHAR_REF:
        return ZelXmlReader::tr("Invalid character reference.");
    case XML_ERROR_XML_DECL:
        return ZelXmlReader::tr("The XML declaration is not well-formed.");
    case XML_ERROR_MISPLACED_XML_PI:
        return ZelXmlReader::tr("The XML declaration is not at the beginning.");
    case XML_ERROR_PARTIAL_CHAR:
        return encodingMessage();
    default:
        return rest.isEmpty() || beginsWithCharacter(rest)
                   ? QString(ZelXmlReader::tr("The document is not well-formed.") + hintAt(position))
                   : encodingMessage();
    }
}

/// Which element still has to be closed, after another sentence; empty if none has.
QString ZelXmlTreeBuilder::openElement() const
{
    if (m_open.empty())
        return {};
    const ZelXmlTree::Element &element = m_tree->elements[m_open.back()];
    return u' ' + ZelXmlReader::tr("<%1> of line %2 is open.").arg(m_tree->names[element.name]).arg(element.line);
}

/// What is often forgotten before such a character.
QString ZelXmlTreeBuilder::hintAt(qsizetype position) const
{
    const char before = position > 0 ? m_data.at(position - 1) : '\0';
    if (before == '&')
        return u' ' + ZelXmlReader::tr("A plain ampersand is written as &amp;.");
    if (before == '=')
        return u' ' + ZelXmlReader::tr("The value of an attribute stands in quotation marks.");
    return {};
}

/// The name that begins at the position.
QString ZelXmlTreeBuilder::nameAt(qsizetype position) const
{
    const QByteArrayView rest = m_data.sliced(position);
    const auto end = std::find_if(rest.begin(), rest.end(), [](char c) { return std::strchr(" \t\r\n=;/>", c); });
    return QString::fromUtf8(rest.first(end - rest.begin()));
}

/// The parser tells only the tag whose attributes contain the entity, so that it is looked for from there on.
QString ZelXmlTreeBuilder::unknownEntityFrom(qsizetype position) const
{
    while ((position = m_data.indexOf('&', position)) >= 0) {
        QString name = nameAt(++position);
        if (!name.startsWith(u'#') && !isPredefinedEntity(name))
            return name;
    }
    return {};
}
