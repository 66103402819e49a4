// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelFileWatch.h"

#include "Core/Errors/ZelExceptionReporter.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {

constexpr int g_quiet = 80;          // milliseconds without a change, after which a burst counts as over
constexpr int g_longest = 1000;      // milliseconds after which changes are told although more of them arrive
constexpr int g_maximumFiles = 2000; // of one folder
constexpr qint64 g_largestRead = 4 << 20;

/// Empty for a file that does not exist. Large files are known by their sizes and dates.
QByteArray digestOf(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha1);
    QFile file(path);
    if (info.size() <= g_largestRead && file.open(QIODevice::ReadOnly))
        hash.addData(file.read(g_largestRead));
    else
        hash.addData(QStringLiteral("%1 %2").arg(info.size()).arg(info.lastModified().toMSecsSinceEpoch()).toUtf8());
    return hash.result();
}

/// The folder that contains the file, or the nearest one above it that exists.
QString existingFolder(const QString &path)
{
    QString folder = QFileInfo(path).absolutePath();
    while (!QFileInfo(folder).isDir() && folder != QFileInfo(folder).absolutePath())
        folder = QFileInfo(folder).absolutePath();
    return folder;
}

} // namespace

ZelFileWatch::ZelFileWatch(QObject *parent)
    : QObject(parent)
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(g_quiet);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &ZelFileWatch::somethingChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &ZelFileWatch::somethingChanged);
    connect(&m_quiet, &QTimer::timeout, this, [this] { ZelExceptionReporter::run(this, [this] { compare(); }); });
}

void ZelFileWatch::setPaths(const QStringList &files, const QStringList &folders)
{
    m_files.clear();
    for (const QString &file : files) {
        if (!file.startsWith(u':'))
            m_files.append(QDir::cleanPath(QFileInfo(file).absoluteFilePath()));
    }
    m_folders = folders;
    const QStringList all = allFiles();
    watch(all);
    QHash<QString, QByteArray> contents;
    for (const QString &file : all) {
        const auto known = m_contents.constFind(file);
        contents.insert(file, known != m_contents.constEnd() ? *known : digestOf(file));
    }
    m_contents = contents;
}

void ZelFileWatch::somethingChanged()
{
    if (!m_quiet.isActive())
        m_waiting.start();
    if (!m_quiet.isActive() || m_waiting.elapsed() < g_longest)
        m_quiet.start();
}

void ZelFileWatch::compare()
{
    const QStringList files = allFiles();
    watch(files); // before they are read, so that what is written meanwhile is told again
    QHash<QString, QByteArray> contents;
    for (const QString &file : files)
        contents.insert(file, digestOf(file));
    QStringList others;
    for (const QString &file : contents.keys() + m_contents.keys()) {
        if (contents.value(file) != m_contents.value(file))
            others.append(file);
    }
    others.removeDuplicates();
    m_contents = contents;
    others.sort();
    Q_EMIT changed(others);
}

QStringList ZelFileWatch::allFiles() const
{
    QStringList files = m_files;
    for (const QString &folder : m_folders) {
        const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo &entry : entries.first(std::min<qsizetype>(entries.size(), g_maximumFiles)))
            files.append(entry.absoluteFilePath());
    }
    files.removeDuplicates();
    return files;
}

/// Watches all of them anew, since another file may have their name now.
void ZelFileWatch::watch(const QStringList &files)
{
    QSet<QString> wanted;
    for (const QString &file : files) {
        if (QFileInfo(file).isFile())
            wanted.insert(file);
        wanted.insert(existingFolder(file));
        if (const QString target = QFileInfo(file).canonicalFilePath(); !target.isEmpty() && target != file)
            wanted.insert(existingFolder(target)); // the file that a link leads to may be replaced
    }
    for (const QString &folder : m_folders)
        wanted.insert(QFileInfo(folder).isDir() ? folder : existingFolder(folder));
    if (const QStringList former = m_watcher.files() + m_watcher.directories(); !former.isEmpty())
        m_watcher.removePaths(former);
    if (!wanted.isEmpty())
        m_watcher.addPaths({wanted.begin(), wanted.end()});
}
