// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// Tells when files have other contents than before, however they were written.
///
/// The folders are watched, too: many text editors write a file of another name and then give it the name of the one
/// that they replace, and a file that is missing may come. Several changes in a row are told as one.
class ZelFileWatch : public QObject
{
    Q_OBJECT
public:
    explicit ZelFileWatch(QObject *parent);

    /// The files to watch, which may be missing, and folders all of whose files are watched. Files that were watched
    /// before are compared with what they were, so that no change is lost between two calls.
    void setPaths(const QStringList &files, const QStringList &folders);

Q_SIGNALS:
    /// Something has changed in the folders; the files are those that are others than before.
    void changed(const QStringList &files);

private:
    void somethingChanged();
    void compare();
    QStringList allFiles() const;
    void watch(const QStringList &files);

    QFileSystemWatcher m_watcher;
    QStringList m_files;
    QStringList m_folders;
    QHash<QString, QByteArray> m_contents; // digests
    QTimer m_quiet;
    QElapsedTimer m_waiting; // since the first change of several
};
