// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelClassInfo.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/private/ZelNearestName.h"

#include <QMutex>
#include <QSet>
#include <QStringList>
#include <algorithm>

namespace {

constexpr QStringView g_wordsOfClasses[] = {u"title", u"order", u"hidden"};

QString mistakeIn(const QStringList &properties, const QStringList &parts)
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
    if (properties.contains(parts.at(1)))
        return {};
    ZelNearestName nearest(parts.at(1));
    nearest.offerAll(properties);
    return QStringLiteral("there is no property \"%1\"%2").arg(parts.at(1), nearest.question());
}

} // namespace

ZelClassInfo::ZelClassInfo(const QList<ZelDescribedClass> &classes)
{
    QStringList properties;
    for (const ZelDescribedClass &described : classes) {
        for (const ZelDescribedClass::Property &property : described.properties)
            properties.append(property.name);
    }
    for (const ZelDescribedClass &described : classes) {
        for (const auto &[name, value] : described.information) {
            if (!name.startsWith(u"zel."))
                continue;
            const QStringList parts = name.split(u'.');
            if (const QString mistake = mistakeIn(properties, parts); !mistake.isNull())
                warn(classes.constLast().name, name, mistake);
            else if (parts.size() == 3)
                m_entries.append({parts.at(1), parts.at(2), value});
        }
    }
}

void ZelClassInfo::warn(const QString &className, const QString &name, const QString &mistake)
{
    static QMutex mutex;
    static QSet<QString> warned;
    const QString message = QStringLiteral("Q_CLASSINFO \"%1\" of %2: %3").arg(name, className, mistake);
    const QMutexLocker lock(&mutex);
    if (warned.contains(message))
        return;
    warned.insert(message);
    ZelLogWarning(message, {});
}

QStringList ZelClassInfo::orderOf(const ZelDescribedClass &declaring)
{
    QStringList names = ofClass(declaring, "order").value_or(QString()).split(u',', Qt::SkipEmptyParts);
    for (QString &name : names) {
        name = name.trimmed();
        ZelNearestName nearest(name);
        for (const ZelDescribedClass::Property &known : declaring.properties)
            nearest.offer(known.name);
        if (!declaring.propertyNamed(name))
            warn(declaring.name, QStringLiteral("zel.order"),
                 QStringLiteral("the class declares no property \"%1\"%2").arg(name, nearest.question()));
    }
    return names;
}

std::optional<QString> ZelClassInfo::ofClass(const ZelDescribedClass &declaring, const char *word)
{
    const QString text = declaring.informationNamed(u"zel." + QLatin1String(word));
    return text.isNull() ? std::nullopt : std::optional(text);
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
