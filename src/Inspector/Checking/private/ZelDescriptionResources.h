// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/private/ZelResourceFile.h"
#include "Resources/ZelBundle.h"

#include <QStringList>
#include <utility>

/// The resources that the program will have, as far as descriptions tell. They are found as the program finds its own:
/// by names that begin at a search path, whichever file names them.
class ZelDescriptionResources
{
public:
    /// The names are search paths or files of Qt's resources (.qrc), whose names and aliases count.
    explicit ZelDescriptionResources(const QStringList &names);
    /// Answers the names of those files that cannot be read, and what is wrong with each.
    QList<std::pair<QString, QString>> readCollections();

    /// The folder of a description is the first search path while it is looked at.
    void setRoot(const QString &description);
    const QString &rootFolder() const { return m_rootFolder; }
    /// The descriptions are all that the program has, as zel_add_descriptions puts them into it: by their paths from
    /// the folder of the first, those of other folders by their bare names. Then no folder is searched for others.
    void setDescriptions(const QStringList &files);

    /// The path of the file that the program finds by the name; null if there is none.
    QString pathOf(const QString &name) const;
    /// The file that is there, in the folder of the naming file or in that of the first, and which the program will not
    /// have; null if there is none.
    QString forgottenFile(const QString &name, const QString &namingFile) const;
    /// Names of files, among which the one may be that was meant in that file.
    QStringList namesFor(const QString &namingFile) const;

private:
    QStringList m_folders;
    QStringList m_collections;
    ZelResourceFile::Paths m_paths;
    QString m_rootFolder;
    bool m_hasDescriptions = false;
    ZelBundle m_bundle{QStringLiteral("Checked")};
};
