// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/private/ZelDescriptionResources.h"
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

    ZelDescriptionWalk(const QStringList &resources, Visit visit, Report report);

    /// Walks through the files that no other of them includes. Reports files that cannot be read, that include
    /// themselves or that include too much, and roots of another kind than was expected.
    void walk(const QStringList &files);
    /// The same for files that are all of the program's descriptions (ZelDescriptionResources::setDescriptions).
    void walkAll(const QStringList &files);
    /// The file that the attribute "file" of the element names; empty if it does not exist or none is named.
    QUrl fileOf(const Configuration &element) const;
    const ZelDescriptionResources &resources() const { return m_resources; }

private:
    QSet<QString> includedFiles(const QStringList &files);
    void collectIncluded(const QString &file, QSet<QString> &read, QSet<QString> &included) const;
    void walkFile(const QString &path);
    void visitTree(const Node &node, ZelDescriptionFiles &files);
    void visitIncluded(const Node &node, QStringView expectedRoot, ZelDescriptionFiles &files);

    ZelDescriptionResources m_resources;
    Visit m_visit;
    Report m_report;
    QSet<QString> m_visited;
};
