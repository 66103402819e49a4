// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelLabel.h"

#include <QStringList>

/// Texts as a find field compares them: without regard to case and to diacritics.
class ZelFoldedText
{
public:
    static QString fold(const QString &text);
    /// The folded words of what was typed.
    static QStringList words(const QString &typed) { return fold(typed).split(u' ', Qt::SkipEmptyParts); }
    /// Whether a folded text contains every word.
    static bool containsAll(const QString &folded, const QStringList &words);
    /// Where the words stand in a text that is not folded: in its order, without overlaps.
    static QList<ZelLabel::Part> partsOf(const QString &text, const QStringList &words);
};
