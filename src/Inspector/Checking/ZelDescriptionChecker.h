// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Description/ZelDescriptionMistake.h"

#include <QHash>
#include <QStringList>
#include <memory>

/// Finds what is wrong or suspicious in descriptions without building anything from them: what the library would log
/// or refuse, in the same words, and key paths and methods that the application's classes do not have.
///
/// The classes are read from the files that Qt's moc writes (moc --output-json, collected by qt_extract_metatypes); no
/// code of the application runs. Known besides are the classes, transformers and colour lists that are registered in
/// this program.
class ZEL_EXPORT ZelDescriptionChecker
{
public:
    struct Options
    {
        /// Search paths of the application besides the folder of the description: folders, or files of Qt's resources
        /// (.qrc), whose names and aliases count. Included files and images are found as the application finds them:
        /// their names begin at a search path, also in a file that is included from a subfolder.
        QStringList resourceFolders;
        QStringList typeFiles; ///< without any, key paths are not compared with classes
        QString owner;         ///< the class at which key paths begin; descriptions may name their own
        /// The classes of the objects that the controller at a key path selects.
        QHash<QString, QStringList> selections;
        // Names of the application's that are to count as known
        QStringList classes;
        QStringList transformers;
        QStringList images;
        QStringList colorLists;
        QStringList propertyTypes;
        /// "Class.key": what a class has beyond the properties that it declares, or has on purpose without a NOTIFY
        /// signal
        QStringList keys;
        /// Whether the files are all descriptions that the application has, by their paths from the folder of the
        /// first, those of other folders by their bare names. No folder is searched then but the resource folders.
        bool isComplete = false;
    };

    explicit ZelDescriptionChecker(const Options &options);
    ~ZelDescriptionChecker();
    Q_DISABLE_COPY_MOVE(ZelDescriptionChecker)

    /// Checks descriptions, local files, together with all that they include, and answers the mistakes by file, line
    /// and column, each once. A file that others of the list include is checked only where it is included.
    QList<ZelDescriptionMistake> check(const QStringList &files) const;

    /// Reads "path=Class,Class path=Class" into the table. Answers the part that is none of it, null if all are.
    static QString readSelections(const QString &text, QHash<QString, QStringList> &selections);

private:
    class Run;
    Options m_options;
};
