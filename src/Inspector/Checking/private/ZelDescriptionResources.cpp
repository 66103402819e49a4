// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelDescriptionResources.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>

namespace {

QString absolute(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

QString folderOf(const QString &file)
{
    return QFileInfo(absolute(file)).path();
}

/// The names of the files in the folder, as they are below the root; none if it is not below.
QStringList namesIn(const QString &folder, const QString &root)
{
    const QString below = QDir(root).relativeFilePath(folder);
    if (below.startsWith(u"..") || QDir::isAbsolutePath(below))
        return {};
    QStringList names;
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        names.append(QDir::cleanPath(below + u'/' + name));
    return names;
}

} // namespace

ZelDescriptionResources::ZelDescriptionResources(const QStringList &names)
{
    for (const QString &name : names)
        (name.endsWith(u".qrc") ? m_collections : m_folders).append(name);
    m_bundle.setResourcePaths(m_folders);
}

QList<std::pair<QString, QString>> ZelDescriptionResources::readCollections()
{
    QList<std::pair<QString, QString>> errors;
    for (const QString &collection : std::as_const(m_collections)) {
        if (const QString error = ZelResourceFile::read(collection, m_paths); !error.isNull())
            errors.append({collection, error});
    }
    return errors;
}

void ZelDescriptionResources::setRoot(const QString &description)
{
    if (m_hasDescriptions)
        return;
    m_rootFolder = folderOf(description);
    m_bundle.setResourcePaths(QStringList(m_rootFolder) + m_folders);
}

void ZelDescriptionResources::setDescriptions(const QStringList &files)
{
    m_rootFolder = folderOf(files.value(0));
    m_hasDescriptions = true;
    for (const QString &file : files) {
        const QString path = absolute(file);
        const bool isBelow = path.startsWith(m_rootFolder + u'/');
        m_paths.insert(isBelow ? path.mid(m_rootFolder.size() + 1) : QFileInfo(path).fileName(), path);
    }
}

QString ZelDescriptionResources::pathOf(const QString &name) const
{
    const QUrl url = m_bundle.urlForResource(name);
    return url.isEmpty() ? m_paths.value(QDir::cleanPath(name)) : url.toLocalFile();
}

QString ZelDescriptionResources::forgottenFile(const QString &name, const QString &namingFile) const
{
    if (!m_hasDescriptions || name.isEmpty() || !pathOf(name).isNull())
        return {};
    ZelBundle beside(QStringLiteral("Beside"), {QFileInfo(namingFile).path(), m_rootFolder});
    const QString path = beside.urlForResource(name).toLocalFile();
    const QString real = QFileInfo(path).canonicalFilePath();
    const bool isKnown = std::ranges::any_of(
        m_paths, [&](const QString &known) { return QFileInfo(known).canonicalFilePath() == real; });
    return path.isEmpty() || isKnown ? QString() : path;
}

QStringList ZelDescriptionResources::namesFor(const QString &namingFile) const
{
    QStringList names = m_paths.keys();
    for (const QString &folder : m_bundle.resourcePaths())
        names += namesIn(folder, folder);
    if (!m_hasDescriptions)
        names += namesIn(QFileInfo(namingFile).path(), QFileInfo(m_rootFolder).canonicalFilePath());
    return names;
}
