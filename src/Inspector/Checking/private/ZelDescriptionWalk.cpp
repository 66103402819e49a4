// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelDescriptionWalk.h"

#include "Core/Values/private/ZelNearestName.h"
#include "Inspector/Description/private/ZelDescriptionFiles.h"
#include "Inspector/Description/private/ZelDescriptionHints.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QFileInfo>
#include <algorithm>

using Schema = ZelDescriptionSchema;

namespace {

QString canonical(const QString &path)
{
    return QFileInfo(path).canonicalFilePath();
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

ZelDescriptionWalk::ZelDescriptionWalk(const QStringList &resources, Visit visit, Report report)
    : m_resources(resources)
    , m_visit(std::move(visit))
    , m_report(std::move(report))
{
}

void ZelDescriptionWalk::walkAll(const QStringList &files)
{
    m_resources.setDescriptions(files);
    walk(files);
}

void ZelDescriptionWalk::walk(const QStringList &files)
{
    for (const auto &[collection, error] : m_resources.readCollections())
        m_report(
            {ZelDescriptionMistake::Error, QStringLiteral("The resources cannot be read: ") + error, {collection}});
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

/// All that the files include, each as seen from the folder of that file, also by way of others.
QSet<QString> ZelDescriptionWalk::includedFiles(const QStringList &files)
{
    QSet<QString> included;
    QHash<QString, QSet<QString>> read; // by the folder
    for (const QString &file : files) {
        m_resources.setRoot(file);
        collectIncluded(QFileInfo(file).absoluteFilePath(), read[m_resources.rootFolder()], included);
    }
    return included;
}

void ZelDescriptionWalk::collectIncluded(const QString &file, QSet<QString> &read, QSet<QString> &included) const
{
    const std::function<void(const Configuration &)> collect = [&](const Configuration &element) {
        if (const QUrl url = fileOf(element); !url.isEmpty()) {
            included.insert(canonical(url.toLocalFile()));
            collectIncluded(url.toLocalFile(), read, included);
        }
        for (const Configuration &child : element.configurations())
            collect(child);
    };
    if (read.contains(canonical(file)))
        return;
    read.insert(canonical(file));
    if (const auto root = Configuration::initWIthURL(QUrl::fromLocalFile(file)))
        collect(*root);
}

QUrl ZelDescriptionWalk::fileOf(const Configuration &element) const
{
    const QString path = m_resources.pathOf(element.stringValueNamed(u"file"));
    return path.isNull() ? QUrl() : QUrl::fromLocalFile(path);
}

void ZelDescriptionWalk::walkFile(const QString &path)
{
    static const QStringList roots{QStringLiteral("panes"), QStringLiteral("pane"), QStringLiteral("inspector"),
                                   QStringLiteral("slice")};
    const QFileInfo info(path);
    m_resources.setRoot(path);
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
