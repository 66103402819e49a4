// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Description/ZelDescriptionMistake.h"

#include <QHash>
#include <QStringList>

/// Collects the texts of descriptions that are keys into the application's translations.
class ZEL_EXPORT ZelDescriptionStrings
{
public:
    struct Text
    {
        QString text;
        ZelSourcePlace place; ///< of the attribute
    };
    struct Options
    {
        QStringList resourceFolders; ///< see ZelDescriptionChecker
        /// Further attributes that the application translates, such as "sliver@title"; "*@hint" is one of all elements.
        QStringList attributes;
        // The classes, see ZelDescriptionChecker. With them, editors without options are known to offer the keys of
        // enumerations, and these are collected as the titles that people see.
        QStringList typeFiles = {};
        QString owner = {};
        QHash<QString, QStringList> selections = {};
    };

    /// The texts of the files and of all that they include, in the order of the files; a text comes once for each
    /// place, a key of an enumeration at that of the editor's key path. Files that cannot be read are appended to the
    /// mistakes.
    static QList<Text> collect(const QStringList &files, const Options &options,
                               QList<ZelDescriptionMistake> &mistakes);
};
