// SPDX-License-Identifier: MIT
#include "Resources/ZelBundle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>

namespace {

QHash<const QMetaObject *, ZelBundle *> &bundlesOfClasses()
{
    static QHash<const QMetaObject *, ZelBundle *> bundles;
    return bundles;
}

/// The folders by the prefixes that they stand for, such as ":/inspector".
QHash<QString, QString> &sourceFolders()
{
    static QHash<QString, QString> folders;
    return folders;
}

bool isLibraryClass(const QMetaObject *metaObject)
{
    const QLatin1String name(metaObject->className());
    return name.startsWith(QLatin1String("Zel")) && name.size() > 3 && QChar(name[3]).isUpper();
}

/// Whether a name leads to nothing outside of the resources: names come from description files.
bool staysInside(const QString &cleanName)
{
    return !cleanName.isEmpty() && cleanName != u"." && cleanName != u".." && !cleanName.startsWith(u"../") &&
           QDir::isRelativePath(cleanName);
}

/// Whether the file is really below the directory, even if it or the directory is a link.
bool isBelow(const QString &path, const QString &directory)
{
    const QString root = QFileInfo(directory).canonicalFilePath();
    return QFileInfo(path).canonicalFilePath().startsWith(root.endsWith(u'/') ? root : QString(root + u'/'));
}

/// The file that stands for the resource of that path, in the folder of the longest prefix that has it; null if there
/// is none.
QString sourceOfPath(const QString &path)
{
    QString source;
    qsizetype longest = 0;
    for (auto [prefix, folder] : sourceFolders().asKeyValueRange()) {
        const QString start = prefix.endsWith(u'/') ? prefix : QString(prefix + u'/');
        if (start.size() <= longest || !path.startsWith(start))
            continue;
        const QString candidate = QDir::cleanPath(folder + u'/' + path.mid(start.size()));
        if (!QFileInfo(candidate).isFile() || !isBelow(candidate, folder))
            continue;
        source = candidate;
        longest = start.size();
    }
    return source;
}

QUrl urlOfPath(const QString &path)
{
    if (!path.startsWith(u':'))
        return QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    QUrl url;
    url.setScheme(QStringLiteral("qrc"));
    url.setPath(path.mid(1), QUrl::DecodedMode);
    return url;
}

/// The file name extensions of images, scalable formats first.
const QStringList &imageExtensions()
{
    static const QStringList extensions = [] {
        const QList<QByteArray> readable = QImageReader::supportedImageFormats();
        QStringList result;
        for (const char *format : {"svg", "png", "jpg", "jpeg", "gif", "bmp"}) {
            if (readable.contains(format))
                result.append(QString::fromLatin1(format));
        }
        return result;
    }();
    return extensions;
}

} // namespace

ZelBundle::ZelBundle(const QString &name, const QStringList &resourcePaths)
    : m_name(name)
    , m_defaultPaths(resourcePaths)
{
}

ZelBundle &ZelBundle::mainBundle()
{
    static ZelBundle bundle(QStringLiteral("Application"), {QStringLiteral(":/")});
    return bundle;
}

ZelBundle &ZelBundle::libraryBundle()
{
    static ZelBundle bundle(QStringLiteral("Zel"), {QStringLiteral(":/zel")});
    return bundle;
}

ZelBundle &ZelBundle::bundleForClass(const QMetaObject *metaObject)
{
    if (!metaObject)
        return mainBundle();
    if (ZelBundle *bundle = bundlesOfClasses().value(metaObject))
        return *bundle;
    return isLibraryClass(metaObject) ? libraryBundle() : mainBundle();
}

void ZelBundle::setBundleForClass(const QMetaObject *metaObject, ZelBundle *bundle)
{
    if (bundle)
        bundlesOfClasses().insert(metaObject, bundle);
    else
        bundlesOfClasses().remove(metaObject);
}

QStringList ZelBundle::resourcePaths() const
{
    if (!m_resourcePaths.isEmpty())
        return m_resourcePaths;
    QStringList paths = m_defaultPaths;
    // The directory is known only when there is an application object, which may be made after the bundle's first use.
    if (this == &mainBundle() && QCoreApplication::instance())
        paths.append(QCoreApplication::applicationDirPath() + u"/Resources");
    return paths;
}

QUrl ZelBundle::urlForResource(const QString &baseName, const QString &extension) const
{
    return urlForResource(extension.isEmpty() ? baseName : QString(baseName + u'.' + extension));
}

QUrl ZelBundle::urlForResource(const QString &fileName) const
{
    const QString name = fileName.isEmpty() ? QString() : QDir::cleanPath(fileName);
    if (!staysInside(name))
        return {};
    const QStringList paths = resourcePaths();
    for (const QString &path : paths) {
        const QString candidate = QDir::cleanPath(path + u'/' + name);
        if (const QString source = sourceOfPath(candidate); !source.isNull())
            return urlOfPath(source);
        if (QFileInfo(candidate).isFile() && isBelow(candidate, path))
            return urlOfPath(candidate);
    }
    return {};
}

void ZelBundle::setSourceFolder(const QString &prefix, const QString &folder)
{
    if (folder.isEmpty())
        sourceFolders().remove(prefix);
    else
        sourceFolders().insert(prefix, folder);
}

QUrl ZelBundle::sourceOf(const QUrl &url)
{
    const QString source = url.scheme() == u"qrc" ? sourceOfPath(u':' + url.path()) : QString();
    return source.isNull() ? url : urlOfPath(source);
}

QUrl ZelBundle::urlForImageResource(const QString &name) const
{
    const bool hasExtension = imageExtensions().contains(QFileInfo(name).suffix(), Qt::CaseInsensitive);
    QUrl url = hasExtension ? urlForResource(name) : QUrl();
    for (auto it = imageExtensions().cbegin(); url.isEmpty() && it != imageExtensions().cend(); ++it)
        url = urlForResource(name, *it);
    return url;
}

QString ZelBundle::localizedStringForKey(const QString &key) const
{
    if (key.isEmpty())
        return key;
    return QCoreApplication::translate(m_localizationContext.toUtf8().constData(), key.toUtf8().constData());
}
