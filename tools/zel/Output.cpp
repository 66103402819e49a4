// SPDX-License-Identifier: MIT
#include "Output.h"

#include "Command.h"

#include <QSaveFile>
#include <cstdio>

int Output::write(const QByteArray &text, const QString &file)
{
    if (file.isEmpty()) {
        std::fputs(text.constData(), stdout);
        return Clean;
    }
    QSaveFile output(file);
    if (output.open(QIODevice::WriteOnly) && output.write(text) == text.size() && output.commit())
        return Clean;
    return fail(file, output.errorString());
}

int Output::fail(const QString &file, const QString &reason)
{
    std::fprintf(stderr, "zel: %s: %s\n", qPrintable(file), qPrintable(reason));
    return Failed;
}
