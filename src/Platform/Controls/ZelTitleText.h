// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Titles are plain texts. Qt's buttons and actions read an ampersand in their texts as the mark of a mnemonic, which
/// would take it out of a title such as "R&D" and make a key of the letter behind it.
class ZelTitleText
{
public:
    /// The text of a button or an action that shows the title as it is.
    static QString fromTitle(const QString &title);
    /// What is seen of the text of a button or an action: the text without its mark.
    static QString toTitle(const QString &text);
};
