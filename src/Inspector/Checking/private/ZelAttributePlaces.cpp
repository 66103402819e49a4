// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelAttributePlaces.h"

#include <QFile>

namespace {

/// Goes through a text in UTF-8 and counts its lines and characters as the reader does.
class PlaceCursor
{
public:
    explicit PlaceCursor(const QByteArray &text)
        : m_text(text)
    {
    }

    qint64 line = 1;
    qint64 column = 1;

    bool isAtEnd() const { return m_position >= m_text.size(); }
    char character() const { return isAtEnd() ? '\0' : m_text[m_position]; }
    bool isAtBlank() const { return QByteArrayView(" \t\r\n").contains(character()) && !isAtEnd(); }
    void advance()
    {
        const char passed = m_text[m_position++];
        const bool isLineEnd = passed == '\n' || (passed == '\r' && character() != '\n');
        if (isLineEnd) {
            ++line;
            column = 1;
        } else if ((character() & 0xC0) != 0x80) { // otherwise a character goes on
            ++column;
        }
    }
    void skipBlanks()
    {
        while (isAtBlank())
            advance();
    }
    QByteArray name()
    {
        const qsizetype start = m_position;
        while (!isAtEnd() && !isAtBlank() && !QByteArrayView("=/>").contains(character()))
            advance();
        return m_text.sliced(start, m_position - start);
    }
    void skipPast(char end)
    {
        while (!isAtEnd() && character() != end)
            advance();
        if (!isAtEnd())
            advance();
    }

private:
    const QByteArray &m_text;
    qsizetype m_position = 0;
};

} // namespace

ZelSourcePlace ZelAttributePlaces::placeOf(const QString &attribute, const ZelSourcePlace &element)
{
    PlaceCursor cursor(textOf(element.file));
    while (!cursor.isAtEnd() && (cursor.line < element.line || cursor.column < element.column))
        cursor.advance();
    if (cursor.isAtEnd())
        return element;
    cursor.advance(); // over "<"
    cursor.name();
    for (cursor.skipBlanks(); !cursor.isAtEnd() && cursor.character() != '>'; cursor.skipBlanks()) {
        ZelSourcePlace place = element;
        place.line = cursor.line;
        place.column = cursor.column;
        const QByteArray name = cursor.name();
        if (name.isEmpty())
            break;
        if (QString::fromUtf8(name) == attribute)
            return place;
        cursor.skipPast('=');
        cursor.skipBlanks();
        const char quote = cursor.character();
        if (cursor.isAtEnd())
            break;
        cursor.advance();
        cursor.skipPast(quote);
    }
    return element;
}

const QByteArray &ZelAttributePlaces::textOf(const QString &file)
{
    const auto known = m_texts.constFind(file);
    if (known != m_texts.constEnd())
        return *known;
    QByteArray text;
    QFile opened(file);
    if (opened.open(QIODevice::ReadOnly))
        text = opened.readAll();
    if (text.startsWith("\xEF\xBB\xBF"))
        text.remove(0, 3);
    return *m_texts.insert(file, text);
}
