// SPDX-License-Identifier: MIT
#include "Text/ZelAttributedString.h"

#include "Resources/ZelColor.h"
#include "Text/private/ZelFontLines.h"

#include <QFont>
#include <QTextCharFormat>

#include <algorithm>

namespace {

using Attributes = ZelAttributedString::Attributes;

[[maybe_unused]] const bool convertersRegistered =
    QMetaType::registerConverter<ZelAttributedString, QString>(
        [](const ZelAttributedString &string) { return string.text(); }) &&
    QMetaType::registerConverter<QString, ZelAttributedString>(
        [](const QString &text) { return ZelAttributedString(text); });

/// Answers the text with newlines between its paragraphs, and without the characters that have a meaning to a document.
QString normalized(QString text)
{
    static constexpr QChar beginningOfFrame(0xfdd0);
    static constexpr QChar endOfFrame(0xfdd1);
    const auto isSpecial = [](QChar c) {
        return c == u'\r' || c == QChar::ParagraphSeparator || c == beginningOfFrame || c == endOfFrame;
    };
    if (std::none_of(text.cbegin(), text.cend(), isSpecial))
        return text;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n').replace(QChar::ParagraphSeparator, u'\n');
    return text.replace(beginningOfFrame, QChar::ReplacementCharacter).replace(endOfFrame, QChar::ReplacementCharacter);
}

bool isInsidePair(const QString &text, qsizetype position)
{
    return position > 0 && position < text.size() && text.at(position).isLowSurrogate() &&
           text.at(position - 1).isHighSurrogate();
}

/// Whether the value means the same as text without the attribute.
bool saysNone(const QString &name, const QVariant &value)
{
    using String = ZelAttributedString;
    const bool isLine = name == String::UnderlineStyle || name == String::Overline || name == String::StrikeOut ||
                        name == String::VerticalAlignment;
    return !value.isValid() || (isLine && value.toInt() == 0);
}

void storeFont(Attributes *attributes, QFont font)
{
    if (font.underline())
        attributes->insert(ZelAttributedString::UnderlineStyle, int(QTextCharFormat::SingleUnderline));
    if (font.overline())
        attributes->insert(ZelAttributedString::Overline, true);
    if (font.strikeOut())
        attributes->insert(ZelAttributedString::StrikeOut, true);
    // A font that leaves everything open is the application's font, which says everything.
    const uint mask = font.resolveMask() == 0 ? uint(QFont::AllPropertiesResolved) : font.resolveMask();
    font.setUnderline(false);
    font.setOverline(false);
    font.setStrikeOut(false);
    font.setResolveMask(mask & ~ZelFontLines);
    attributes->insert(ZelAttributedString::Font, font);
}

void store(Attributes *attributes, const QString &name, const QVariant &value)
{
    if (saysNone(name, value))
        attributes->remove(name);
    else if (name == ZelAttributedString::Font && value.typeId() == QMetaType::QFont)
        storeFont(attributes, value.value<QFont>());
    else if (value.metaType() == QMetaType::fromType<ZelColor>())
        attributes->insert(name, value.value<ZelColor>().toQColor());
    else
        attributes->insert(name, value);
}

/// Whether all attributes are equal. Fonts also differ if they leave different things open, which QFont does not
/// compare.
bool sameAttributes(const Attributes &a, const Attributes &b)
{
    if (a != b)
        return false;
    const QVariant fontA = a.value(ZelAttributedString::Font);
    const QVariant fontB = b.value(ZelAttributedString::Font);
    return fontA.value<QFont>().resolveMask() == fontB.value<QFont>().resolveMask();
}

} // namespace

const QString ZelAttributedString::Font = QStringLiteral("Font");
const QString ZelAttributedString::ForegroundColor = QStringLiteral("ForegroundColor");
const QString ZelAttributedString::BackgroundColor = QStringLiteral("BackgroundColor");
const QString ZelAttributedString::UnderlineStyle = QStringLiteral("UnderlineStyle");
const QString ZelAttributedString::UnderlineColor = QStringLiteral("UnderlineColor");
const QString ZelAttributedString::Overline = QStringLiteral("Overline");
const QString ZelAttributedString::StrikeOut = QStringLiteral("StrikeOut");
const QString ZelAttributedString::VerticalAlignment = QStringLiteral("VerticalAlignment");
const QString ZelAttributedString::Link = QStringLiteral("Link");
const QString ZelAttributedString::ToolTip = QStringLiteral("ToolTip");
const QString ZelAttributedString::ImageName = QStringLiteral("ImageName");
const QString ZelAttributedString::ImageWidth = QStringLiteral("ImageWidth");
const QString ZelAttributedString::ImageHeight = QStringLiteral("ImageHeight");
const QString ZelAttributedString::ParagraphStyle = QStringLiteral("ParagraphStyle");

ZelAttributedString::ZelAttributedString(const QString &text, const Attributes &attributes)
    : m_text(normalized(text))
{
    if (isEmpty())
        return;
    m_stretches.append(Stretch{length(), {}});
    addAttributes(attributes, {0, length()});
}

ZelAttributedString::Range ZelAttributedString::clipped(const Range &range) const
{
    qsizetype start = std::clamp<qsizetype>(range.start, 0, length());
    const qsizetype wanted = std::max<qsizetype>(range.length, 0) + std::min<qsizetype>(range.start, 0);
    qsizetype end = start + std::clamp<qsizetype>(wanted, 0, length() - start); // range.end() might overflow
    if (start < end && isInsidePair(m_text, start))
        --start;
    if (isInsidePair(m_text, end))
        start < end ? ++end : end = --start;
    return {start, end - start};
}

ZelAttributedString::Attributes ZelAttributedString::attributesAt(qsizetype position) const
{
    if (position < 0 || position > length())
        return {};
    for (const Stretch &stretch : m_stretches) {
        position -= stretch.length;
        if (position < 0)
            return stretch.attributes;
    }
    return isEmpty() ? Attributes() : m_stretches.last().attributes;
}

QList<ZelAttributedString::Run> ZelAttributedString::runs() const
{
    return runsIn({0, length()});
}

QList<ZelAttributedString::Run> ZelAttributedString::runsIn(const Range &range) const
{
    const Range wanted = clipped(range);
    QList<Run> runs;
    qsizetype start = 0;
    for (const Stretch &stretch : m_stretches) {
        const qsizetype from = std::max(start, wanted.start);
        start += stretch.length;
        const qsizetype to = std::min(start, wanted.end());
        if (from < to)
            runs.append({{from, to - from}, stretch.attributes});
        if (start >= wanted.end())
            break;
    }
    return runs;
}

/// Makes a stretch begin at the position; answers its index.
qsizetype ZelAttributedString::splitAt(qsizetype position)
{
    qsizetype start = 0;
    for (qsizetype i = 0; i < m_stretches.size(); ++i) {
        if (start == position)
            return i;
        const qsizetype end = start + m_stretches.at(i).length;
        if (position < end) {
            Stretch tail{end - position, m_stretches.at(i).attributes};
            m_stretches[i].length = position - start;
            m_stretches.insert(i + 1, tail);
            return i + 1;
        }
        start = end;
    }
    return m_stretches.size();
}

void ZelAttributedString::mergeStretches()
{
    QList<Stretch> merged;
    merged.reserve(m_stretches.size());
    for (const Stretch &stretch : std::as_const(m_stretches)) {
        if (!merged.isEmpty() && sameAttributes(merged.last().attributes, stretch.attributes))
            merged.last().length += stretch.length;
        else if (stretch.length > 0)
            merged.append(stretch);
    }
    m_stretches = merged;
}

void ZelAttributedString::setAttribute(const QString &name, const QVariant &value, const Range &range)
{
    addAttributes({{name, value}}, range);
}

void ZelAttributedString::addAttributes(const Attributes &attributes, const Range &range)
{
    const Range where = clipped(range);
    if (where.length == 0 || attributes.isEmpty())
        return;
    const qsizetype first = splitAt(where.start);
    const qsizetype last = splitAt(where.end());
    // A font comes first, because it also sets the lines that it has; attributes of the lines themselves then win.
    const auto font = attributes.constFind(Font);
    for (qsizetype i = first; i < last; ++i) {
        Attributes *stored = &m_stretches[i].attributes;
        if (font != attributes.constEnd())
            store(stored, font.key(), font.value());
        for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it) {
            if (it != font)
                store(stored, it.key(), it.value());
        }
    }
    mergeStretches();
}

ZelAttributedString::Range ZelAttributedString::paragraphRange(const Range &range) const
{
    const Range touched = clipped(range);
    const qsizetype start = touched.start == 0 ? 0 : m_text.lastIndexOf(u'\n', touched.start - 1) + 1;
    const qsizetype newline = m_text.indexOf(u'\n', std::max(touched.start, touched.end() - 1));
    const qsizetype end = newline < 0 ? length() : newline + 1;
    return {start, end - start};
}

ZelParagraphStyle ZelAttributedString::paragraphStyleAt(qsizetype position) const
{
    return attributeAt(ParagraphStyle, paragraphRange({position, 0}).start).value<ZelParagraphStyle>();
}

void ZelAttributedString::setParagraphStyle(const ZelParagraphStyle &style, const Range &range)
{
    setAttribute(ParagraphStyle, QVariant::fromValue(style), paragraphRange(range));
}

/// The runs of the paragraphs that a range touches, cut where a paragraph ends.
QList<ZelAttributedString::Run> ZelAttributedString::paragraphPieces(const Range &range) const
{
    QList<Run> pieces;
    const QList<Run> runs = runsIn(paragraphRange(range));
    for (const Run &run : runs) {
        for (qsizetype start = run.range.start; start < run.range.end(); start = pieces.last().range.end()) {
            const qsizetype newline = m_text.indexOf(u'\n', start);
            const qsizetype end = newline < 0 ? run.range.end() : std::min(run.range.end(), newline + 1);
            pieces.append({{start, end - start}, run.attributes});
        }
    }
    return pieces;
}

QList<ZelParagraphStyle> ZelAttributedString::paragraphStyles(const Range &range) const
{
    QList<ZelParagraphStyle> styles;
    const QList<Run> pieces = paragraphPieces(range);
    for (const Run &piece : pieces) {
        if (piece.range.start == pieces.first().range.start || m_text.at(piece.range.start - 1) == u'\n')
            styles.append(piece.attributes.value(ParagraphStyle).value<ZelParagraphStyle>());
    }
    return styles;
}

void ZelAttributedString::changeParagraphStyles(const std::function<void(ZelParagraphStyle &)> &change,
                                                const Range &range)
{
    const QList<Run> pieces = paragraphPieces(range);
    if (pieces.isEmpty())
        return;
    const qsizetype from = pieces.first().range.start;
    ZelAttributedString changed;
    QVariant style; // of the present paragraph; invalid if it stays as it is
    for (const Run &piece : pieces) {
        if (piece.range.start == from || m_text.at(piece.range.start - 1) == u'\n') {
            const auto former = piece.attributes.value(ParagraphStyle).value<ZelParagraphStyle>();
            ZelParagraphStyle value = former;
            change(value);
            style = value == former ? QVariant() : QVariant::fromValue(value);
        }
        changed.m_stretches.append({piece.range.length, piece.attributes});
        if (style.isValid())
            changed.m_stretches.last().attributes.insert(ParagraphStyle, style);
    }
    const Range where{from, pieces.last().range.end() - from};
    changed.m_text = m_text.mid(where.start, where.length);
    replace(where, changed);
}

ZelAttributedString ZelAttributedString::mid(const Range &range) const
{
    const Range wanted = clipped(range);
    ZelAttributedString result;
    result.m_text = m_text.mid(wanted.start, wanted.length);
    const QList<Run> kept = runsIn(wanted);
    for (const Run &run : kept)
        result.m_stretches.append({run.range.length, run.attributes});
    return result;
}

void ZelAttributedString::replace(const Range &range, const ZelAttributedString &string)
{
    const Range where = clipped(range);
    const qsizetype first = splitAt(where.start);
    const qsizetype last = splitAt(where.end());
    QList<Stretch> stretches = m_stretches.first(first);
    stretches += string.m_stretches;
    stretches += m_stretches.sliced(last);
    m_stretches = stretches;
    if (isNull())
        m_text = string.m_text; // which may be empty
    else
        m_text.replace(where.start, where.length, string.m_text);
    mergeStretches();
}

void ZelAttributedString::append(const ZelAttributedString &string)
{
    if (isEmpty()) {
        replace({}, string);
        return;
    }
    // Only the stretches at the seam are compared, since long texts are put together by appending.
    m_text += string.m_text;
    const QList<Stretch> added = string.m_stretches;
    for (const Stretch &stretch : added) {
        if (sameAttributes(m_stretches.last().attributes, stretch.attributes))
            m_stretches.last().length += stretch.length;
        else
            m_stretches.append(stretch);
    }
}

ZelAttributedString ZelAttributedString::fromVariant(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<ZelAttributedString>())
        return *static_cast<const ZelAttributedString *>(value.constData());
    if (value.typeId() == QMetaType::QString)
        return ZelAttributedString(value.toString());
    return {};
}

bool operator==(const ZelAttributedString &a, const ZelAttributedString &b)
{
    if (a.m_text != b.m_text || a.isNull() != b.isNull())
        return false;
    return std::equal(a.m_stretches.begin(), a.m_stretches.end(), b.m_stretches.begin(), b.m_stretches.end(),
                      [](const auto &x, const auto &y) {
                          return x.length == y.length && sameAttributes(x.attributes, y.attributes);
                      });
}

QDebug operator<<(QDebug debug, const ZelAttributedString &string)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "ZelAttributedString(" << string.m_text;
    for (const ZelAttributedString::Run &run : string.runs()) {
        if (!run.attributes.isEmpty())
            debug << ", " << run.range.start << '+' << run.range.length << ' ' << run.attributes;
    }
    return debug << ')';
}
