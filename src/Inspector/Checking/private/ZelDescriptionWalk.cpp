// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelDescriptionWalk.h"

#include "Core/Values/private/ZelNearestName.h"
#include "Inspector/Description/private/ZelDescriptionFiles.h"
#include "Inspector/Description/private/ZelDescriptionHints.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

using Schema = ZelDescriptionSchema;

namespace {

QString canonical(const QString &path)
{
    return QFileInfo(path).canonicalFilePath();
}

/// Names lead to nothing outside of the folders, as with the resources of a running application.
bool leadsOutside(const QString &cleanName)
{
    return cleanName.isEmpty() || cleanName == u"." || cleanName == u".." || cleanName.startsWith(u"../") ||
           QDir::isAbsolutePath(cleanName);
}

/// The root of a file that others include has to be of one kind.
ZelDescriptionMistake unexpectedRoot(const ZelInspectorConfiguration &root, const QStringList &expected)
{
    ZelNearestName nearest(root.name());
    nearest.offerAll(expected);
    const QString meant =
        nearest.found().isNull() ? ZelDescriptionHints::synonym(root.name(), expected) : nearest.found();
    const QString all = QStringLiteral("; the root is <%1> here").arg(expected.join(QStringLiteral(">, <")));
    return {ZelDescriptionMistake::Error,
            u"Expected inspector element: " + root.name() + (meant.isNull() ? all : ZelNearestName::question(meant)),
            root.place(),
            {},
            meant};
}

ZelDescriptionMistake unreadable(const ZelGenericException &exception, const ZelSourcePlace &including)
{
    const bool isAtElement =
        exception.place().file == including.file && exception.place().line == including.line && including.line > 0;
    return {ZelDescriptionMistake::Error, exception.reason(), exception.place(),
            isAtElement ? QStringLiteral("file") : QString()};
}

} // namespace

ZelDescriptionWalk::ZelDescriptionWalk(const QStringList &folders, Visit visit, Report report)
    : m_visit(std::move(visit))
    , m_report(std::move(report))
{
    for (const QString &name : folders)
        (name.endsWith(u".qrc") ? m_collections : m_folders).append(name);
}

void ZelDescriptionWalk::walk(const QStringList &files)
{
    for (const QString &collection : std::as_const(m_collections)) {
        if (const QString error = ZelResourceFile::read(collection, m_aliases); !error.isNull())
            m_report(
                {ZelDescriptionMistake::Error, QStringLiteral("The resources cannot be read: ") + error, {collection}});
    }
    const QSet<QString> included = includedFiles(files);
    for (const QString &file : files) {
        if (!included.contains(canonical(file)))
            walkFile(file);
    }
    for (const QString &file : files) { // files that include each other in a circle
        if (!m_visited.contains(canonical(file)))
            walkFile(file);
    }
}

QSet<QString> ZelDescriptionWalk::includedFiles(const QStringList &files)
{
    QSet<QString> included;
    const std::function<void(const Configuration &)> collect = [&](const Configuration &element) {
        if (const QUrl url = fileOf(element); !url.isEmpty())
            included.insert(canonical(url.toLocalFile()));
        for (const Configuration &child : element.configurations())
            collect(child);
    };
    for (const QString &file : files) {
        m_firstFolder = QFileInfo(file).path();
        if (const auto root = Configuration::initWIthURL(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath())))
            collect(*root);
    }
    return included;
}

QUrl ZelDescriptionWalk::fileOf(const Configuration &element) const
{
    const QString path = pathOf(element.stringValueNamed(u"file"), element);
    return path.isNull() ? QUrl() : QUrl::fromLocalFile(path);
}

QString ZelDescriptionWalk::pathOf(const QString &name, const Configuration &element) const
{
    const QString cleanName = name.isEmpty() ? QString() : QDir::cleanPath(name);
    if (leadsOutside(cleanName))
        return {};
    for (const QString &folder : foldersFor(element)) {
        const QFileInfo candidate(folder + u'/' + cleanName);
        if (candidate.isFile())
            return candidate.absoluteFilePath();
    }
    return m_aliases.value(cleanName);
}

bool ZelDescriptionWalk::isResource(const QString &file) const
{
    const auto isBelow = [&](const QString &folder) {
        const QString path = canonical(folder);
        return !path.isEmpty() && file.startsWith(path + u'/');
    };
    const auto isAlias = [&](const QString &path) { return canonical(path) == file; };
    return std::ranges::any_of(m_folders, isBelow) || std::ranges::any_of(m_aliases, isAlias);
}

QStringList ZelDescriptionWalk::namesBeside(const Configuration &element) const
{
    QStringList names;
    for (const QString &folder : foldersFor(element)) {
        for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
            names.append(file.fileName());
    }
    return names + m_aliases.keys();
}

QStringList ZelDescriptionWalk::foldersFor(const Configuration &element) const
{
    QStringList folders{QFileInfo(element.place().file).path(), m_firstFolder};
    folders += m_folders;
    folders.removeDuplicates();
    return folders;
}

void ZelDescriptionWalk::walkFile(const QString &path)
{
    static const QStringList roots{QStringLiteral("panes"), QStringLiteral("pane"), QStringLiteral("inspector"),
                                   QStringLiteral("slice")};
    const QFileInfo info(path);
    m_firstFolder = info.path();
    try {
        ZelDescriptionFiles files;
        const ZelDescriptionFiles::Opened file = files.open(QUrl::fromLocalFile(info.absoluteFilePath()));
        m_visited.insert(info.canonicalFilePath());
        if (!roots.contains(file.root().name()))
            m_report(unexpectedRoot(file.root(), roots));
        else
            visitTree({file.root(), file.root().name()}, files);
    } catch (const ZelGenericException &exception) {
        m_report(unreadable(exception, {}));
    }
}

void ZelDescriptionWalk::visitTree(const Node &node, ZelDescriptionFiles &files)
{
    const Schema::Element *schema = Schema::element(node.role, node.element.element().attribute(u"type"));
    if (!schema)
        return;
    const ZelDescriptionFiles::Entered entered(&files, node.element);
    m_visit(node);
    if (!schema->rootOfFile.isNull())
        visitIncluded(node, schema->rootOfFile, files);
    for (const Configuration &child : node.element.configurations()) {
        if (std::ranges::find(schema->children, child.name()) != schema->children.end())
            visitTree({child, child.name(), &node}, files);
    }
}

void ZelDescriptionWalk::visitIncluded(const Node &node, QStringView expectedRoot, ZelDescriptionFiles &files)
{
    const QUrl url = fileOf(node.element);
    if (url.isEmpty())
        return;
    try {
        const ZelDescriptionFiles::Opened file = files.open(url, node.element.place());
        m_visited.insert(canonical(url.toLocalFile()));
        if (file.root().name() == expectedRoot)
            visitTree({file.root(), node.role, &node}, files);
        else
            m_report(unexpectedRoot(file.root(), {expectedRoot.toString()}));
    } catch (const ZelGenericException &exception) {
        m_report(unreadable(exception, node.element.place()));
    }
}
