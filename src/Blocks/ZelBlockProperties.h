// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelPropertyDeclaration.h"
#include "Core/ZelExport.h"

#include <QMap>
#include <QObject>
#include <QVariant>
#include <functional>

/// Properties of a class that are made of functions at run time. They are read and written by key, and inherited:
///
///     ZelBlockProperties properties(&Shape::staticMetaObject);
///     properties.declareProperty("center", "T{CGPoint=dd},D");
///     properties.addPropertyNameGetter("center", [](const QObject *shape) { ... });
///     properties.addPropertyNameSetter("center", [](QObject *shape, const QVariant &center) { ... });
///     ZelSetValueForKey(shape, QPointF(1, 2), "center");
///
/// The functions give and take any value; the property's type decides what they are given and what becomes of their
/// answers (see ZelPropertyEncoding). A write by key is announced to observers; a class whose property changes
/// otherwise announces it with ZelWillChangeValueForKey and ZelDidChangeValueForKey. An object's own interface,
/// registered accessors and every Q_PROPERTY of the class or a base come before block properties.
///
/// Attributes are letters with values, separated by commas: T and the type, D for a dynamic property (one that is to
/// get a setter), R for a read-only one. Properties are never taken away again. For the main thread.
class ZEL_EXPORT ZelBlockProperties
{
public:
    using Getter = std::function<QVariant(const QObject *)>;
    using Setter = std::function<void(QObject *, const QVariant &)>;

    explicit ZelBlockProperties(const QMetaObject *metaObject)
        : m_class(metaObject)
    {
    }

    /// Declares a property of the class; false, and nothing changed, if the class itself declares one of that name.
    bool declareProperty(const QString &name, const QString &attributes);
    /// The property of that name of the class or its bases, without QObject's, declared here or as a Q_PROPERTY.
    /// Nothing for an unknown name.
    std::optional<ZelPropertyDeclaration> propertyWithName(const QString &name) const;

    /// Adds the getter of a declared property; subclasses may have getters of their own. False if there is one already,
    /// which stays. Asserts "Expecting property with name NAME in class CLASS" and what addPropertyClassGetter asserts.
    bool addPropertyNameGetter(const QString &name, const Getter &getter) const;
    bool addPropertyNameSetter(const QString &name, const Setter &setter) const;

    /// Asserts "Expected a type for the property" and "No getter block". An unknown type is two assertions, "Unknown
    /// simple type: 'TYPE'" or "Unknown struct type: 'TYPE'", and then "No getter implementation block".
    static bool addPropertyClassGetter(const ZelPropertyDeclaration &property, const QMetaObject *metaObject,
                                       const Getter &getter);
    /// Asserts the same with "setter" for "getter", and also "Expected a dynamic property" and "Unexpected read-only
    /// property".
    static bool addPropertyClassSetter(const ZelPropertyDeclaration &property, const QMetaObject *metaObject,
                                       const Setter &setter);

    /// The properties of the class itself with their types: the class name that the attributes give for an object, or
    /// else the type as it is written in the attributes.
    QMap<QString, QString> propertyNamesAndTypes() const;
    /// The class name in the attributes of an object property: what follows the first "@" and quotation marks, up to
    /// the next quotation mark.
    static QString getPropertyType(const QString &attributes);

private:
    std::optional<ZelPropertyDeclaration> requiredProperty(const QString &name) const;

    const QMetaObject *m_class;
};
