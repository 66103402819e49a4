// SPDX-License-Identifier: MIT
#include "PreviewTypes.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString lastName(const QString &name)
{
    return name.mid(name.lastIndexOf(u':') + 1);
}

} // namespace

QString PreviewTypes::read(const QString &file)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
        return input.errorString();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(input.readAll(), &error);
    if (document.isNull())
        return error.errorString();
    const QJsonArray units = document.isArray() ? document.array() : QJsonArray{document.object()};
    for (const QJsonValue &unit : units) {
        for (const QJsonValue &described : unit.toObject().value(u"classes").toArray()) {
            const QJsonObject object = described.toObject();
            Class &made = m_classes[object.value(u"className").toString()];
            made.name = object.value(u"className").toString();
            for (const QJsonValue &entry : object.value(u"properties").toArray()) {
                const QJsonObject property = entry.toObject();
                const bool isWritable = property.contains(u"write") || property.contains(u"member");
                made.properties.insert(property.value(u"name").toString(),
                                       {property.value(u"type").toString(), isWritable});
            }
            for (const QJsonValue &entry : object.value(u"enums").toArray())
                made.enumerations.append(entry.toObject().value(u"name").toString());
            for (const QJsonValue &entry : object.value(u"superClasses").toArray())
                m_bases[made.name].append(entry.toObject().value(u"name").toString());
        }
    }
    inherit();
    return {};
}

void PreviewTypes::inherit()
{
    constexpr int deepest = 8; // bases of bases
    for (int level = 0; level < deepest; ++level) {
        for (Class &made : m_classes) {
            for (const QString &base : m_bases.value(made.name)) {
                const Class of = m_classes.value(base);
                for (auto it = of.properties.begin(); it != of.properties.end(); ++it) {
                    if (!made.properties.contains(it.key()))
                        made.properties.insert(it.key(), it.value());
                }
                for (const QString &name : of.enumerations) {
                    if (!made.enumerations.contains(name))
                        made.enumerations.append(name);
                }
            }
        }
    }
}

const PreviewTypes::Class *PreviewTypes::classNamed(const QString &name) const
{
    const auto found = m_classes.constFind(lastName(name));
    return found == m_classes.constEnd() ? nullptr : &*found;
}

const PreviewTypes::Class *PreviewTypes::classWith(const QStringList &keys) const
{
    const Class *best = nullptr;
    qsizetype most = 0;
    for (const Class &made : m_classes) {
        const qsizetype count =
            std::count_if(keys.begin(), keys.end(), [&](const QString &key) { return made.properties.contains(key); });
        if (count > most || (best && count == most && count > 0 && made.name < best->name)) {
            best = &made;
            most = count;
        }
    }
    return best;
}

bool PreviewTypes::isEnumeration(const Class &of, const QString &type) const
{
    const Class *scope = type.contains(u"::") ? classNamed(type.left(type.lastIndexOf(u"::"))) : &of;
    return scope && scope->enumerations.contains(lastName(type));
}
