// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>
#include <QStringList>
#include <functional>

/// The classes that can be named in a description and made for an owner. The library and the application fill it.
class ZEL_EXPORT ZelClassRegistry
{
public:
    using Factory = std::function<QObject *(QObject *owner)>;

    /// Registers or replaces a class.
    static void registerClass(const QString &name, const QMetaObject *metaObject, const Factory &factory);
    template<typename Class> static void registerClass()
    {
        registerClass(QString::fromLatin1(Class::staticMetaObject.className()), &Class::staticMetaObject,
                      [](QObject *owner) -> QObject * { return new Class(owner); });
    }
    /// Whether the class is known and, with a base, derives from it.
    static bool hasClass(const QString &name, const QMetaObject *base = nullptr);
    static QStringList classNames();
    /// The class that was registered under the name; null for an unknown one.
    static const QMetaObject *metaObject(const QString &name);
    /// Makes an object of that class, which belongs to the caller; null for an unknown name.
    static QObject *create(const QString &name, QObject *owner);
};
