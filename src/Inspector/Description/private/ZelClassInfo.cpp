// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelClassInfo.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/private/ZelNearestName.h"

#include <QMetaClassInfo>
#include <QMetaProperty>
#include <QMutex>
#include <QSet>
#include <QStringList>
#include <algorithm>

namespace {

constexpr QStringView g_wordsOfClasses[] = {u"title", u"order", u"hidden"};

QString mistakeIn(const QMetaObject *metaObject, const QStringList &parts)
{
    if (parts.size() == 2) {
        if (std::ranges::any_of(g_wordsOfClasses, [&](QStringView known) { return known == parts.at(1); }))
            return {};
        ZelNearestName nearest(parts.at(1));
        nearest.offerAll(g_wordsOfClasses);
        return QStringLiteral("there is no \"%1\" of a class%2").arg(parts.at(1), nearest.question());
    }
    const QString &word = parts.constLast();
    const bool isWord = !word.isEmpty() && std::ranges::all_of(word, [](QChar c) { return c.isLetter(); });
    if (parts.size() != 3 || !isWord)
        return QStringLiteral("a name is \"zel.word\" or \"zel.property.word\"");
    if (metaObject->indexOfProperty(parts.at(1).toUtf8().constData()) >= 0)
        return {};
    ZelNearestName nearest(parts.at(1));
    for (int i = 0; i < metaObject->propertyCount(); ++i)
        nearest.offer(QString::fromUtf8(metaObject->property(i).name()));
    return QStringLiteral("there is no property \"%1\"%2").arg(parts.at(1), nearest.question());
}

} // namespace

ZelClassInfo::ZelClassInfo(const QMetaObject *metaObject)
{
    for (int i = 0; i < metaObject->classInfoCount(); ++i) {
        const QMetaClassInfo info = metaObject->classInfo(i);
        const QString name = QString::fromUtf8(info.name());
        if (name.startsWith(u"zel."))
            add(metaObject, name, QString::fromUtf8(info.value()));
    }
}

void ZelClassInfo::add(const QMetaObject *metaObject, const QString &name, const QString &value)
{
    const QStringList parts = name.split(u'.');
    if (const QString mistake = mistakeIn(metaObject, parts); !mistake.isNull())
        warn(metaObject, name, mistake);
    else if (parts.size() == 3)
        m_entries.append({parts.at(1), parts.at(2), value});
}

void ZelClassInfo::warn(const QMetaObject *metaObject, const QString &name, const QString &mistake)
{
    static QMutex mutex;
    static QSet<QString> warned;
    const QString message =
        QStringLiteral("Q_CLASSINFO \"%1\" of %2: %3").arg(name, QString::fromUtf8(metaObject->className()), mistake);
    const QMutexLocker lock(&mutex);
    if (warned.contains(message))
        return;
    warned.insert(message);
    ZelLogWarning(message, {});
}

QStringList ZelClassInfo::orderOf(const QMetaObject *declaring)
{
    QStringList names = ofClass(declaring, "order").value_or(QString()).split(u',', Qt::SkipEmptyParts);
    for (QString &name : names) {
        name = name.trimmed();
        ZelNearestName nearest(name);
        bool isKnown = false;
        for (int i = declaring->propertyOffset(); i < declaring->propertyCount(); ++i) {
            const QString known = QString::fromUtf8(declaring->property(i).name());
            nearest.offer(known);
            isKnown = isKnown || known == name;
        }
        if (!isKnown)
            warn(declaring, QStringLiteral("zel.order"),
                 QStringLiteral("the class declares no property \"%1\"%2").arg(name, nearest.question()));
    }
    return names;
}

std::optional<QString> ZelClassInfo::ofClass(const QMetaObject *declaring, const char *word)
{
    const QByteArray name = QByteArray("zel.") + word;
    for (int i = declaring->classInfoOffset(); i < declaring->classInfoCount(); ++i) {
        if (declaring->classInfo(i).name() == name)
            return QString::fromUtf8(declaring->classInfo(i).value());
    }
    return std::nullopt;
}

std::optional<QString> ZelClassInfo::ofProperty(const QString &property, QStringView word) const
{
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(), [&](const Entry &entry) {
        return entry.property == property && entry.word == word;
    });
    return found == m_entries.rend() ? std::nullopt : std::optional(found->value);
}

ZelClassInfo::Attributes ZelClassInfo::attributesOf(const QString &property) const
{
    Attributes attributes;
    for (const Entry &entry : m_entries) {
        if (entry.property == property && entry.word != u"hidden")
            attributes.set(entry.word, entry.value);
    }
    return attributes;
}

void ZelClassInfo::Attributes::set(const QString &name, const QString &value)
{
    const auto found = std::find_if(begin(), end(), [&](const Attribute &known) { return known.name == name; });
    if (found == end())
        append({name, value});
    else
        found->value = value;
}

bool ZelClassInfo::isYes(QStringView text)
{
    static constexpr QStringView words[] = {u"yes", u"true", u"1"};
    return std::ranges::any_of(words, [&](QStringView word) { return text.compare(word, Qt::CaseInsensitive) == 0; });
}
