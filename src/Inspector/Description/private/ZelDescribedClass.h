// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMetaType>
#include <QStringList>
#include <optional>
#include <utility>

struct QMetaObject;

/// What has to be known of a class to describe it, be it from its meta-object or from a file that moc has written.
struct ZelDescribedClass
{
    struct Enumeration
    {
        QStringList keys;
        QList<int> values; ///< empty where they are not known
        bool isFlags = false;
    };
    struct Property
    {
        QString name;
        QString type;       ///< as the code names it
        QMetaType metaType; ///< that of its values if it is optional; invalid if this program does not know it
        bool isReadable = true;
        bool isWritable = true;
        bool isDesignable = true;
        bool isAnnounced = true; ///< by a signal, or never because it is constant
        bool isEnumeration = false;
        Enumeration enumeration = {};
    };

    QString name;
    QList<Property> properties; ///< those that it declares itself
    QList<std::pair<QString, QString>> information;

    const Property *propertyNamed(const QString &propertyName) const;
    QString informationNamed(const QString &informationName) const; ///< null if there is none

    /// The class with its bases, which come first.
    static QList<ZelDescribedClass> hierarchyOf(const QMetaObject *metaObject);
};
