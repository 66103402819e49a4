// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QHash>
#include <QMetaObject>
#include <QStringList>
#include <functional>
#include <utility>

/// Classes with their properties, methods and enumerations, as moc describes them in its JSON files.
class ZEL_EXPORT ZelTypeTable
{
public:
    struct Property
    {
        QString type;
        bool isWritable = false;
        bool isAnnounced = false; ///< by a NOTIFY signal, or never because it is constant
        bool isReadable = true;
        bool isDesignable = true;
    };
    struct Method
    {
        enum Kind : quint8 { Signal, Callable };
        QString name;
        Kind kind = Callable;
        bool isPublic = true;
        QStringList argumentTypes;
    };
    struct Enumeration
    {
        QStringList keys;
        QList<int> values; ///< empty if they are not known: moc does not write them
        bool isFlags = false;

        /// Whether the text is one of the keys, or several of them with bars between.
        bool hasKeys(const QString &text) const;
    };
    struct Class
    {
        QString name;
        QStringList superClasses;
        QHash<QString, Property> properties;
        QStringList propertyNames; ///< in the order of the code
        QList<Method> methods;
        QHash<QString, Enumeration> enumerations;
        QList<std::pair<QString, QString>> information; ///< Q_CLASSINFO
    };
    /// A property and the class that declares it.
    struct Found
    {
        const Class *owner = nullptr;
        const Property *property = nullptr;
    };

    /// Adds the classes that this program knows and that descriptions may name or lead to.
    void addKnownClasses();
    /// Adds what the file describes. Answers why that is not possible; null if it was done.
    QString read(const QString &file);
    /// Adds the class and its base classes.
    void add(const QMetaObject *metaObject);
    /// Lets a class have a further key, of which nothing more is known. Of one that it has, no NOTIFY signal is asked
    /// for.
    void addKey(const QString &className, const QString &key);
    bool isEmpty() const { return m_classes.isEmpty(); }

    /// The class of that name, with its namespaces or without; null if it is not known.
    const Class *classNamed(const QString &name) const;
    QStringList classNames() const { return m_classes.keys(); }
    /// Nothing if neither the class nor one of its bases has it.
    Found property(const Class &type, const QString &key) const;
    QStringList keys(const Class &type) const;
    /// All methods, those of the most derived class first.
    QList<Method> methods(const Class &type) const;
    /// An enumeration that is named in the class or in another one; null if it is not known.
    const Enumeration *enumeration(const Class &type, const QString &name) const;
    bool inherits(const Class &type, const QString &base) const;
    /// A base class about which nothing is known, so that the class may have more than it seems; null if there is none.
    QString unknownBase(const Class &type) const;

private:
    using Visit = std::function<bool(const Class &)>;
    bool visitBases(const Class &type, const Visit &visit, int depth = 0) const;
    Class &insert(const QString &name);

    QHash<QString, Class> m_classes;
    QHash<QString, QString> m_shortNames;
};
