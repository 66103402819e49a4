// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

/// The colours of the palette under the names of a desktop's system colours.
class ZelSystemColors
{
public:
    /// All keys in alphabetical order.
    static QStringList keys();
    /// The English name that people see; null for an unknown key.
    static QString displayName(const QString &key);
    /// The name that people see of a colour of any list, in their language: that of a system colour, or the key.
    static QString localizedName(const QString &key);
    /// The colour in the application's palette of this moment; invalid for an unknown key.
    static QColor color(const QString &key);
};
