// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/private/ZelResourceFile.h"
#include "Inspector/Description/ZelDescriptionMistake.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"

#include <QSet>
#include <functional>

class ZelDescriptionFiles;

/// Visits every element of descriptions in the role that it has there, also in the files that they include.
class ZelDescriptionWalk
{
public:
    using Configuration = ZelInspectorConfiguration;
    struct Node
    {
        Configuration element;
        QString role; ///< see ZelDescriptionSchema
        /// The element around it or, for the root of an included file, the one that includes it; null for the first.
        const Node *parent = nullptr;
    };
    using Visit = std::function<void(const Node &)>;
    using Report = std::function<void(const ZelDescriptionMistake &)>;

    /// Files are looked for in the folder of the file that names them, in that of the first one, and in these. Among
    /// the folders may be files of Qt's resources (.qrc), whose names and aliases count.
    ZelDescriptionWalk(const QStringList &folders, Visit visit, Report report);

    /// Walks through the files that no other of them includes. Reports files that cannot be read, that include
    /// themselves or that include too much, and roots of another kind than was expected.
    void walk(const QStringList &files);
    /// The file that the attribute "file" of the element names; empty if it does not exist or none is named.
    QUrl fileOf(const Configuration &element) const;
    /// A file below one of the folders, which are searched as for fileOf; null if there is none.
    QString pathOf(const QString &name, const Configuration &element) const;
    /// The names of all files in these folders.
    QStringList namesBeside(const Configuration &element) const;
    /// Whether the file, a canonical path, lies below one of the folders or is named in a file of Qt's resources.
    bool isResource(const QString &file) const;

private:
    QStringList foldersFor(const Configuration &element) const;
    QSet<QString> includedFiles(const QStringList &files);
    void walkFile(const QString &path);
    void visitTree(const Node &node, ZelDescriptionFiles &files);
    void visitIncluded(const Node &node, QStringView expectedRoot, ZelDescriptionFiles &files);

    QStringList m_folders;
    QStringList m_collections; // files .qrc
    ZelResourceFile::Paths m_aliases;
    QString m_firstFolder;
    Visit m_visit;
    Report m_report;
    QSet<QString> m_visited;
};
