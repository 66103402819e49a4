// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelXmlReader.h"

#include <QByteArrayView>
#include <QStringDecoder>
#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct XML_ParserStruct;

/// Builds the tree of one document. A document that breaks a rule of ZelXmlReader ends the parser at that place.
///
/// Entities cannot grow without end, since the parser is stopped at the first characters of a document type
/// declaration: without one, it knows only the five predefined entities.
class ZelXmlTreeBuilder
{
public:
    /// The document must not be empty. `file` is the name that places carry.
    ZelXmlTreeBuilder(QByteArrayView data, const ZelXmlReader::Limits &limits, const QString &file);
    ~ZelXmlTreeBuilder();
    Q_DISABLE_COPY_MOVE(ZelXmlTreeBuilder)

    /// Null if the document is refused.
    std::shared_ptr<const ZelXmlTree> build(ZelReadError &error);

private:
    void setHandlers();
    void startElement(const char *name, const char **attributes);
    void endElement();
    void xmlDeclaration(QByteArrayView version, QByteArrayView encoding);
    void otherText(QByteArrayView text);
    void addAttribute(const char *name, QByteArrayView value);
    quint32 nameIndex(std::string_view name);

    /// Stops the parser. The error's place is the beginning of what is being parsed.
    void refuse(const QString &message);
    ZelSourcePlace place() const;
    QString parserMessage() const;
    QString openElement() const;
    QString hintAt(qsizetype position) const;
    QString nameAt(qsizetype position) const;
    QString unknownEntityFrom(qsizetype position) const;

    QByteArrayView m_data;
    ZelXmlReader::Limits m_limits;
    XML_ParserStruct *m_parser;
    std::shared_ptr<ZelXmlTree> m_tree = std::make_shared<ZelXmlTree>();
    QStringDecoder m_decoder;
    QChar *m_valuesEnd;
    std::vector<quint32> m_open; // the elements whose end tags are still to come
    std::map<std::string, quint32, std::less<>> m_nameIndexes;
    std::array<std::pair<std::string_view, quint32>, 64> m_recentNames; // tried before the map
    ZelReadError m_refused;
};
