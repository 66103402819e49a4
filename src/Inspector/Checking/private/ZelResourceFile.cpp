// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelResourceFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace {

QString withoutSlashes(const QString &path)
{
    QString clean = QDir::cleanPath(path);
    while (clean.startsWith(u'/'))
        clean.remove(0, 1);
    while (clean.startsWith(u"../")) // as rcc does
        clean.remove(0, 3);
    return clean;
}

} // namespace

QString ZelResourceFile::read(const QString &file, Paths &paths)
{
    QFile opened(file);
    if (!opened.open(QIODevice::ReadOnly))
        return opened.errorString();
    QXmlStreamReader xml(&opened);
    const QDir folder = QFileInfo(file).absoluteDir();
    QString prefix;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"qresource")
            prefix = xml.attributes().value(QLatin1String("prefix")).toString();
        if (xml.name() != u"file")
            continue;
        const QString alias = xml.attributes().value(QLatin1String("alias")).toString();
        const QString name = xml.readElementText().trimmed();
        const QString inProgram = withoutSlashes(alias.isEmpty() ? name : alias);
        const QString path = QDir::cleanPath(folder.absoluteFilePath(name));
        for (const QString &known : {inProgram, withoutSlashes(prefix + u'/' + inProgram)}) {
            if (QFileInfo(path).isFile())
                paths.insert(known, path);
        }
    }
    return xml.hasError() ? xml.errorString() : QString();
}
