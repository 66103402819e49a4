// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/ZelXmlReader.h"

#include <QByteArrayView>
#include <QString>
#include <vector>

/// Looks over a document's bytes before an XML parser sees them, for what would make the parser slow or unsafe:
/// another encoding than UTF-8, a document type declaration wherever it stands, too many attributes in one tag, too
/// many elements. On the way it notes where the start tags are, which the parser does not tell.
///
/// The parser resolves what a document type declaration declares before it reports the declaration: an attribute's
/// default of nested empty entities keeps it busy for minutes, as its own limit counts characters and not steps. It
/// also compares each attribute with all others of its tag. The scan stands in front of both, and knows just enough of
/// XML to tell markup from comments and quoted texts. Where a document is not well-formed it may see markup in other
/// places than the parser does, but only behind the place where the parser stops with an error.
class ZelXmlPrescan
{
public:
    /// A line and a column (of UTF-16 code units), both from 1.
    struct Place
    {
        quint32 line = 1;
        quint32 column = 1;
    };

    ZelXmlPrescan(QByteArrayView data, const ZelXmlReader::Limits &limits)
        : m_data(data)
        , m_limits(limits)
    {
    }

    /// Whether the document may be parsed; otherwise message and place tell why not.
    bool accept();
    const QString &message() const { return m_message; }
    Place place() const { return m_refused; }

    /// The beginnings of the start tags of an accepted document, in their order.
    const std::vector<Place> &startTags() const { return m_startTags; }

private:
    bool acceptEncoding();
    bool acceptXmlDeclaration();
    bool acceptMarkup();
    bool acceptTag();
    bool skipPast(QByteArrayView end);
    void noteStartTag();
    bool startsWith(QByteArrayView text) const { return m_data.sliced(m_position).startsWith(text); }
    bool refuse(const QString &message) { return refuse(message, m_position); }
    bool refuse(const QString &message, qsizetype position);

    QByteArrayView m_data;
    ZelXmlReader::Limits m_limits;
    qsizetype m_position = 0;
    QString m_message;
    Place m_refused;
    std::vector<Place> m_startTags;
    Place m_notedPlace; // of the last start tag
    qsizetype m_notedPosition = 0;
};
