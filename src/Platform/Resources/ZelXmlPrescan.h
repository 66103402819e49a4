// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/ZelXmlReader.h"

#include <QByteArrayView>
#include <QString>

/// Looks over a document's bytes before an XML parser sees them, for what would make the parser slow or unsafe:
/// another encoding than UTF-8, a document type declaration wherever it stands, too many attributes in one tag.
///
/// The parser builds the entities of a document type declaration before it reports the declaration (nested ones keep it
/// busy for minutes), and compares each attribute with all others of its tag. The scan knows just enough of XML to tell
/// markup from comments and quoted texts. Where a document is not well-formed it may see markup in other places than
/// the parser does, but only behind the place where the parser stops with an error.
class ZelXmlPrescan
{
public:
    ZelXmlPrescan(QByteArrayView data, const ZelXmlReader::Limits &limits) : m_data(data), m_limits(limits) {}

    /// Whether the document may be parsed; otherwise message, line and column tell why not.
    bool accept();

    const QString &message() const { return m_message; }
    qint64 line() const { return m_line; }
    qint64 column() const { return m_column; }

private:
    bool acceptEncoding();
    bool acceptXmlDeclaration();
    bool acceptMarkup();
    bool acceptTag();
    bool skipPast(QByteArrayView end);
    bool startsWith(QByteArrayView text) const { return m_data.sliced(m_position).startsWith(text); }
    bool refuse(const QString &message) { return refuse(message, m_position); }
    bool refuse(const QString &message, qsizetype position);

    QByteArrayView m_data;
    ZelXmlReader::Limits m_limits;
    qsizetype m_position = 0;
    QString m_message;
    qint64 m_line = 0;
    qint64 m_column = 0;
};
