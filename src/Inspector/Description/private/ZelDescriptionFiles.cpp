// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelDescriptionFiles.h"

#include "Core/Errors/ZelAssertions.h"
#include "Resources/ZelBundle.h"

#include <QFileInfo>

ZelDescriptionFiles::Opened::Opened(ZelDescriptionFiles *files, const QString &source, const QString &path,
                                    const ZelInspectorConfiguration &root)
    : m_files(files)
    , m_root(root)
{
    files->m_open.append({source, path});
}

ZelDescriptionFiles::Opened ZelDescriptionFiles::open(const QUrl &url, const ZelSourcePlace &place)
{
    if (m_open.size() >= maximumDepth)
        fail(sourceOf(url), tr("More than %1 files are nested.").arg(maximumDepth), place);
    const ZelInspectorConfiguration root = read(url, place);
    checkCycle(url, root.place().file, place);
    count(sourceOf(url), root, place);
    return Opened(this, sourceOf(url), root.place().file, root);
}

ZelDescriptionFiles::Opened ZelDescriptionFiles::open(const ZelInspectorDescription &description)
{
    const QString source = u"description " + description.name();
    ZelReadError error;
    const ZelXmlReader reader(ZelInspectorConfiguration::limits());
    const ZelInspectorConfiguration root(reader.readData(description.xml(), description.name(), &error));
    if (error.isSet())
        fail(source, error.localizedDescription(), error.place);
    count(source, root, {});
    return Opened(this, source, {}, root);
}

void ZelDescriptionFiles::count(const QString &source, const ZelInspectorConfiguration &root,
                                const ZelSourcePlace &place)
{
    const int limit = ZelInspectorConfiguration::limits().elements;
    m_elements += root.element().elementCount();
    if (m_elements > limit)
        fail(source, tr("More than %1 elements are described.").arg(limit), place);
}

ZelInspectorConfiguration ZelDescriptionFiles::read(const QUrl &url, const ZelSourcePlace &place)
{
    if (const auto known = m_read.constFind(url); known != m_read.constEnd())
        return *known;
    note(url);
    ZelReadError error;
    const std::optional<ZelInspectorConfiguration> root = ZelInspectorConfiguration::initWIthURL(url, &error);
    // A fault within the file is shown there, any other at the element that names the file.
    if (!root)
        fail(sourceOf(url), error.localizedDescription(),
             error.place.line > 0 || place.file.isEmpty() ? error.place : place);
    m_read.insert(url, *root);
    return *root;
}

void ZelDescriptionFiles::checkCycle(const QUrl &url, const QString &path, const ZelSourcePlace &place) const
{
    const auto first = std::find_if(m_open.begin(), m_open.end(), [&](const File &file) { return file.path == path; });
    if (first == m_open.end())
        return;
    QStringList names;
    for (auto file = first; file != m_open.end(); ++file)
        names.append(QFileInfo(file->path).fileName());
    names.append(names.first());
    fail(sourceOf(url), tr("The file includes itself: %1").arg(names.join(QStringLiteral(" > "))), place);
}

void ZelDescriptionFiles::note(const QUrl &url)
{
    if (const QString path = ZelXmlReader::pathOf(url); !path.isEmpty())
        m_paths.insert(path);
}

void ZelDescriptionFiles::noteMissing(const QString &name)
{
    if (name.isEmpty())
        return;
    for (const QString &path : ZelBundle::mainBundle().resourcePaths())
        m_paths.insert(path + u'/' + name);
}

void ZelDescriptionFiles::warnOnce(const QString &message, const ZelSourcePlace &place)
{
    const QString text = place.appendedTo(message);
    if (m_warnings.contains(text))
        return;
    m_warnings.insert(text);
    ZelLogWarning(message, place);
}

QString ZelDescriptionFiles::sourceOf(const QUrl &url)
{
    return u"file from URL " + url.toString();
}

void ZelDescriptionFiles::fail(const QString &source, const QString &description, const ZelSourcePlace &place)
{
    throw ZelGenericException(QStringLiteral("Unable to read %1: %2").arg(source, description), place);
}

ZelDescriptionFiles::Entered::Entered(ZelDescriptionFiles *files, const ZelInspectorConfiguration &element)
{
    if (!files || files->m_open.isEmpty())
        return;
    if (files->m_depth >= maximumDepth)
        fail(files->m_open.last().source, tr("More than %1 elements are nested.").arg(maximumDepth), element.place());
    m_files = files;
    ++files->m_depth;
}
