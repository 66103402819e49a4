// SPDX-License-Identifier: MIT
#include "Platform/Resources/ZelXmlPrescan.h"

#include <QCoreApplication>
#include <cstring>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ZelXmlReader", text);
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// The characters that version, encoding and standalone may hold.
bool isPlainValue(QByteArrayView value)
{
    return !value.isEmpty() && std::all_of(value.begin(), value.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || std::strchr("._-", c);
    });
}

/// Leaves out what makes the end invalid if that is no more than an incomplete character.
QByteArrayView withoutIncompleteEnd(QByteArrayView text)
{
    for (int chopped = 0; chopped < 4 && chopped <= text.size(); ++chopped) {
        if (text.chopped(chopped).isValidUtf8())
            return text.chopped(chopped);
    }
    return text;
}

/// The length of the longest beginning that is UTF-8.
qsizetype validUtf8Length(QByteArrayView data)
{
    qsizetype low = 0;
    qsizetype high = data.size();
    while (low < high) {
        const qsizetype middle = low + (high - low + 1) / 2;
        if (withoutIncompleteEnd(data.first(middle)).isValidUtf8())
            low = middle;
        else
            high = middle - 1;
    }
    return withoutIncompleteEnd(data.first(low)).size();
}

/// Moves a place over text.
void advance(ZelXmlPrescan::Place &place, QByteArrayView text)
{
    for (const char c : text) {
        if (c == '\n') {
            ++place.line;
            place.column = 1;
        } else if ((c & 0xC0) != 0x80) { // the first byte of a character
            place.column += uchar(c) >= 0xF0 ? 2 : 1;
        }
    }
}

} // namespace

bool ZelXmlPrescan::accept()
{
    if (!acceptEncoding() || !acceptXmlDeclaration())
        return false;
    while (m_position < m_data.size()) {
        const void *tag = std::memchr(m_data.data() + m_position, '<', size_t(m_data.size() - m_position));
        if (!tag)
            return true;
        m_position = static_cast<const char *>(tag) - m_data.data();
        if (!acceptMarkup())
            return false;
    }
    return true;
}

bool ZelXmlPrescan::acceptEncoding()
{
    const QString message = tr("The text is not encoded in UTF-8.");
    if (startsWith("\xFF\xFE") || startsWith("\xFE\xFF") || m_data.startsWith('\0'))
        return refuse(message);
    // Without a mark, too, text in UTF-16 or UTF-32 holds zero bytes, and XML knows no zero character.
    if (const void *zero = m_data.isEmpty() ? nullptr : std::memchr(m_data.data(), 0, size_t(m_data.size())))
        return refuse(message, static_cast<const char *>(zero) - m_data.data());
    if (!m_data.isValidUtf8())
        return refuse(message, validUtf8Length(m_data));
    if (startsWith("\xEF\xBB\xBF"))
        m_position = m_notedPosition = 3;
    return true;
}

bool ZelXmlPrescan::acceptXmlDeclaration()
{
    if (!startsWith("<?xml") || m_position + 5 >= m_data.size() || !isBlank(m_data[m_position + 5]))
        return true;
    const qsizetype start = m_position;
    const qsizetype end = m_data.indexOf("?>", start);
    if (end < 0)
        return true; // the parser says what is missing
    QByteArrayView rest = m_data.sliced(start + 5, end - start - 5).trimmed();
    while (!rest.isEmpty()) {
        const qsizetype equals = rest.indexOf('=');
        const QByteArrayView value = rest.sliced(equals + 1).trimmed();
        const char quote = equals > 0 && !value.isEmpty() ? value.front() : '\0';
        const qsizetype length = quote == '"' || quote == '\'' ? value.indexOf(quote, 1) - 1 : -1;
        if (length < 0 || !isPlainValue(value.sliced(1, length)))
            return refuse(tr("The XML declaration is not well-formed."), start);
        const QByteArray encoding = value.sliced(1, length).toByteArray();
        if (rest.first(equals).trimmed() == "encoding" && encoding.compare("utf-8", Qt::CaseInsensitive) != 0)
            return refuse(
                tr("The encoding \"%1\" is not supported; write the file in UTF-8.").arg(QString::fromUtf8(encoding)),
                start);
        rest = value.sliced(length + 2).trimmed();
    }
    m_position = end + 2;
    return true;
}

bool ZelXmlPrescan::acceptMarkup()
{
    if (startsWith("<!--")) {
        m_position += 4;
        return skipPast("-->");
    }
    if (startsWith("<![CDATA["))
        return skipPast("]]>");
    if (startsWith("<!"))
        return refuse(tr("A document type declaration is not allowed."));
    if (startsWith("<?xml") && m_position + 5 < m_data.size() && isBlank(m_data[m_position + 5]))
        return refuse(tr("The XML declaration is not at the beginning."));
    if (startsWith("<?"))
        return skipPast("?>");
    if (!startsWith("</")) {
        if (m_startTags.size() >= size_t(std::max(m_limits.elements, 0)))
            return refuse(tr("More than %1 elements are described.").arg(m_limits.elements));
        noteStartTag();
    }
    return acceptTag();
}

bool ZelXmlPrescan::acceptTag()
{
    int attributes = 0;
    char quote = 0;
    for (qsizetype i = m_position + 1; i < m_data.size(); ++i) {
        const char c = m_data[i];
        if (quote) {
            const void *end = std::memchr(m_data.data() + i, quote, size_t(m_data.size() - i));
            if (!end)
                break;
            i = static_cast<const char *>(end) - m_data.data();
            quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '=' && ++attributes > m_limits.attributes) {
            return refuse(tr("The element has more than %1 attributes.").arg(m_limits.attributes));
        } else if (c == '>') {
            m_position = i + 1;
            return true;
        }
    }
    m_position = m_data.size();
    return true;
}

bool ZelXmlPrescan::skipPast(QByteArrayView end)
{
    const qsizetype found = m_data.indexOf(end, m_position);
    m_position = found < 0 ? m_data.size() : found + end.size();
    return true;
}

void ZelXmlPrescan::noteStartTag()
{
    advance(m_notedPlace, m_data.sliced(m_notedPosition, m_position - m_notedPosition));
    m_notedPosition = m_position;
    m_startTags.push_back(m_notedPlace);
}

bool ZelXmlPrescan::refuse(const QString &message, qsizetype position)
{
    m_refused = {};
    advance(m_refused, m_data.first(position));
    m_message = message;
    return false;
}
