// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>
#include <QUrl>

/// A folder that goes, with its files, when its owner goes.
class Folder : public QTemporaryDir
{
public:
    QUrl write(const QString &name, const QByteArray &text) const
    {
        QFile file(filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(name));
        return QUrl::fromLocalFile(file.fileName());
    }
};
