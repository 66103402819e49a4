// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/private/ZelDescribedClass.h"

#include <QList>
#include <QStringList>
#include <optional>

/// What the class information of a class and its bases says of its inspector, in names of the kinds "zel.word" (of the
/// class) and "zel.property.word". What a class says of a property counts more than what its base says.
class ZelClassInfo
{
public:
    /// Of the last class, the others being its bases. Logs a warning, once, for each name that concerns nothing.
    explicit ZelClassInfo(const QList<ZelDescribedClass> &classes);

    /// What the class itself, not a base of it, says of its section.
    static std::optional<QString> ofClass(const ZelDescribedClass &declaring, const char *word);
    /// The properties that the class itself wants first. Logs a warning, once, for each that it does not declare.
    static QStringList orderOf(const ZelDescribedClass &declaring);
    std::optional<QString> ofProperty(const QString &property, QStringView word) const;

    struct Attribute
    {
        QString name;
        QString value;
    };
    /// Attributes of an element; setting one again replaces it.
    class Attributes : public QList<Attribute>
    {
    public:
        using QList::QList;
        void set(const QString &name, const QString &value);
    };
    /// All that is said of the property, but for `hidden`, in the order of the code.
    Attributes attributesOf(const QString &property) const;

    static bool isYes(QStringView text);

private:
    struct Entry
    {
        QString property;
        QString word;
        QString value;
    };
    static void warn(const QString &className, const QString &name, const QString &mistake);
    QList<Entry> m_entries; // bases first
};
