// SPDX-License-Identifier: MIT
#include "Command.h"
#include "Inspector/Checking/ZelDescriptionGrammar.h"

#include <QSaveFile>
#include <cstdio>

int runSchema(const QCommandLineParser &arguments)
{
    const QByteArray text = ZelDescriptionGrammar::relaxNG();
    const QString name = arguments.value(QStringLiteral("output"));
    if (name.isEmpty()) {
        std::fputs(text.constData(), stdout);
        return Clean;
    }
    QSaveFile file(name);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return Clean;
    std::fprintf(stderr, "zel: %s: %s\n", qPrintable(name), qPrintable(file.errorString()));
    return Failed;
}
