// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

/// Qt's files of resources (.qrc): under which names they put which files into a program.
namespace ZelResourceFile {

/// Paths of files by their names in the program: aliases where they have one, without and with the prefix.
using Paths = QHash<QString, QString>;

/// Adds what the file says. Answers why that is not possible; null if it was done.
QString read(const QString &file, Paths &paths);

} // namespace ZelResourceFile
