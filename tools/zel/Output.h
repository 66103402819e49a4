// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// What commands write. Both functions answer the exit status.
namespace Output {

/// Writes the text into the file, or to the standard output if no name is given. A file is there as a whole or not at
/// all.
int write(const QByteArray &text, const QString &file);
/// Prints why the file cannot be read or written.
int fail(const QString &file, const QString &reason);

} // namespace Output
