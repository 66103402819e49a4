// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Titles are plain texts, but Qt's buttons and actions read an ampersand as the mark of a mnemonic: "R&D" would lose
/// its ampersand, and Alt+D would become a shortcut.
class ZelTitleText
{
public:
    /// The text with which a button or an action shows the title as it is.
    static QString fromTitle(const QString &title);
    /// What users see of the text of a button or an action: the text without the mark of a mnemonic.
    static QString toTitle(const QString &text);
};
