// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelFoldedText.h"

#include <algorithm>

namespace {

/// Appends a character's base letters; several for ligatures, none for a combining mark.
void appendFolded(QString &folded, char32_t character)
{
    if (character < 0x80) {
        folded += QChar(char16_t(character)).isSpace() ? QChar(u' ') : QChar(char16_t(character)).toLower();
        return;
    }
    const QString letters = QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_KD);
    const QString parts = letters.toUpper().toLower(); // upper case first: it knows that a sharp s is two letters
    for (QChar part : parts) {
        if (part.category() != QChar::Mark_NonSpacing && part.category() != QChar::Mark_Enclosing)
            folded += part.isSpace() ? QChar(u' ') : part;
    }
}

/// Folds a text, and notes where in it each folded character comes from, and its length at the end.
QString foldedWithOrigins(const QString &text, QList<qsizetype> *origins)
{
    QString folded;
    folded.reserve(text.size());
    if (origins)
        origins->reserve(text.size() + 1);
    for (qsizetype i = 0; i < text.size();) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        appendFolded(folded, isPair ? QChar::surrogateToUcs4(text.at(i), text.at(i + 1)) : text.at(i).unicode());
        if (origins)
            origins->resize(folded.size(), i);
        i += isPair ? 2 : 1;
    }
    if (origins)
        origins->append(text.size());
    return folded;
}

/// Joins parts that overlap or touch.
QList<ZelLabel::Part> merged(QList<ZelLabel::Part> parts)
{
    std::sort(parts.begin(), parts.end(), [](const auto &a, const auto &b) { return a.start < b.start; });
    QList<ZelLabel::Part> result;
    for (const ZelLabel::Part &part : std::as_const(parts)) {
        if (result.isEmpty() || result.last().start + result.last().length < part.start)
            result.append(part);
        else
            result.last().length = std::max(result.last().length, part.start + part.length - result.last().start);
    }
    return result;
}

} // namespace

QString ZelFoldedText::fold(const QString &text)
{
    return foldedWithOrigins(text, nullptr);
}

bool ZelFoldedText::containsAll(const QString &folded, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(), [&](const QString &word) { return folded.contains(word); });
}

QList<ZelLabel::Part> ZelFoldedText::partsOf(const QString &text, const QStringList &words)
{
    QList<qsizetype> origins;
    const QString folded = foldedWithOrigins(text, &origins);
    QList<ZelLabel::Part> parts;
    for (const QString &word : words) {
        for (qsizetype at = folded.indexOf(word); at >= 0; at = folded.indexOf(word, at + 1)) {
            const qsizetype start = origins.at(at);
            // A match may end within the letters of a ligature: it is marked whole, with the marks on it.
            qsizetype end = at + word.size();
            while (end < folded.size() && origins.at(end) == origins.at(end - 1))
                ++end;
            parts.append({start, origins.at(end) - start});
        }
    }
    return merged(parts);
}
