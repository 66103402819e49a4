// SPDX-License-Identifier: MIT
#include "MistakePrinter.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString severityOf(const ZelDescriptionMistake &mistake)
{
    return mistake.severity == ZelDescriptionMistake::Error ? QStringLiteral("error") : QStringLiteral("warning");
}

QString fileOf(const ZelDescriptionMistake &mistake)
{
    if (mistake.place.file.isEmpty())
        return {};
    const QString below = QDir(QDir::current().canonicalPath()).relativeFilePath(mistake.place.file);
    return below.startsWith(u"..") ? mistake.place.file : below;
}

QString lineOfText(const ZelDescriptionMistake &mistake)
{
    QString place = fileOf(mistake);
    if (mistake.place.line > 0)
        place += QStringLiteral(":%1:%2").arg(mistake.place.line).arg(mistake.place.column);
    if (!place.isEmpty())
        place += QStringLiteral(": ");
    return QStringLiteral("%1%2: %3\n").arg(place, severityOf(mistake), mistake.message);
}

/// Signs that end a value there are written as their codes.
QString forGithub(QString text, bool isProperty)
{
    text.replace(u'%', QStringLiteral("%25"))
        .replace(u'\n', QStringLiteral("%0A"))
        .replace(u'\r', QStringLiteral("%0D"));
    if (isProperty)
        text.replace(u':', QStringLiteral("%3A")).replace(u',', QStringLiteral("%2C"));
    return text;
}

QString lineForGithub(const ZelDescriptionMistake &mistake)
{
    QString place = mistake.place.file.isEmpty() ? QString() : u" file=" + forGithub(fileOf(mistake), true);
    if (mistake.place.line > 0)
        place += QStringLiteral(",line=%1,col=%2").arg(mistake.place.line).arg(mistake.place.column);
    return QStringLiteral("::%1%2::%3\n").arg(severityOf(mistake), place, forGithub(mistake.message, false));
}

QJsonObject objectOf(const ZelDescriptionMistake &mistake)
{
    QJsonObject object{{QStringLiteral("file"), fileOf(mistake)},
                       {QStringLiteral("line"), mistake.place.line},
                       {QStringLiteral("column"), mistake.place.column},
                       {QStringLiteral("severity"), severityOf(mistake)},
                       {QStringLiteral("message"), mistake.message}};
    const std::pair<const char *, QString> others[] = {
        {"element", mistake.place.element}, {"attribute", mistake.attribute}, {"suggestion", mistake.suggestion}};
    for (const auto &[name, value] : others) {
        if (!value.isEmpty())
            object.insert(QLatin1String(name), value);
    }
    return object;
}

} // namespace

QString MistakePrinter::print(const QList<ZelDescriptionMistake> &mistakes, const QString &format)
{
    QString text;
    QJsonArray objects;
    for (const ZelDescriptionMistake &mistake : mistakes) {
        if (format == u"json")
            objects.append(objectOf(mistake));
        else
            text += format == u"github" ? lineForGithub(mistake) : lineOfText(mistake);
    }
    return format == u"json" ? QString::fromUtf8(QJsonDocument(objects).toJson()) : text;
}
