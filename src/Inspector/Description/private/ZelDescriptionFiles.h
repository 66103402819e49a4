// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Description/ZelInspectorDescription.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

/// The files that one description is made of, while something is built from it.
///
/// Files include each other, and may come from anybody: none may include itself, directly or through others, and depth
/// and the amount of what is described are limited, since a few files that each include the next one twice describe
/// more than any memory holds. All elements count, even those from which nothing is made, and they count each time
/// their file is included; the limits of ZelInspectorConfiguration say how many there may be. A file that cannot be
/// read and a breach of a limit are a ZelGenericException, "Unable to read file from URL ...: ...". A file is read
/// once, however often it is included. The first of them may be a description in memory.
class ZelDescriptionFiles
{
    Q_DECLARE_TR_FUNCTIONS(ZelDescriptionFiles)

public:
    static constexpr int maximumDepth = 64; ///< elements within each other, across files

    /// A file on the way from the description to the element that is being built, as long as it is on that way.
    class Opened
    {
    public:
        ~Opened() { m_files->m_open.removeLast(); }
        Q_DISABLE_COPY_MOVE(Opened)
        const ZelInspectorConfiguration &root() const { return m_root; }

    private:
        friend class ZelDescriptionFiles;
        Opened(ZelDescriptionFiles *files, const QString &source, const QString &path,
               const ZelInspectorConfiguration &root);

        ZelDescriptionFiles *m_files;
        ZelInspectorConfiguration m_root;
    };
    /// Opens a file; the place is that of the element that includes it, empty for the first file.
    Opened open(const QUrl &url, const ZelSourcePlace &place = {});
    /// Opens a description in memory, which no file can include.
    Opened open(const ZelInspectorDescription &description);

    /// The paths of all that was read, noted or looked for.
    QStringList paths() const { return {m_paths.begin(), m_paths.end()}; }
    /// Notes a file that the description depends on; an empty address is none.
    void note(const QUrl &url);
    /// Notes where a file of that name would have been found; an empty name is none.
    void noteMissing(const QString &name);

    /// Logs a warning, once however often the file is included.
    void warnOnce(const QString &message, const ZelSourcePlace &place);

    /// An element on the way to the one that is being built. Without files nothing is limited.
    class Entered
    {
    public:
        Entered(ZelDescriptionFiles *files, const ZelInspectorConfiguration &element);
        ~Entered()
        {
            if (m_files)
                --m_files->m_depth;
        }
        Q_DISABLE_COPY_MOVE(Entered)

    private:
        ZelDescriptionFiles *m_files = nullptr;
    };

private:
    struct File
    {
        QString source; // as messages name it
        QString path;   // canonical; empty if it is in memory
    };
    ZelInspectorConfiguration read(const QUrl &url, const ZelSourcePlace &place);
    void checkCycle(const QUrl &url, const QString &path, const ZelSourcePlace &place) const;
    static QString sourceOf(const QUrl &url);
    void count(const QString &source, const ZelInspectorConfiguration &root, const ZelSourcePlace &place);
    [[noreturn]] static void fail(const QString &source, const QString &description, const ZelSourcePlace &place);

    QHash<QUrl, ZelInspectorConfiguration> m_read;
    QSet<QString> m_paths;
    QSet<QString> m_warnings;
    QList<File> m_open;
    int m_depth = 0;
    qint64 m_elements = 0;
};
