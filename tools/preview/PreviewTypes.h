// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QStringList>

/// The classes of an application as Qt's moc describes them in JSON (moc --output-json, qt_extract_metatypes).
class PreviewTypes
{
public:
    struct Property
    {
        QString type; ///< as it is written, such as "Document*"
        bool isWritable = false;
    };
    struct Class
    {
        QString name;
        QHash<QString, Property> properties; ///< with those of its bases
        QStringList enumerations;
    };

    /// Adds the classes of a file; answers why it cannot be read, or null.
    QString read(const QString &file);
    bool isEmpty() const { return m_classes.isEmpty(); }

    /// Null for an unknown class.
    const Class *classNamed(const QString &name) const;
    /// The class that has most of the keys; null if none has any.
    const Class *classWith(const QStringList &keys) const;
    /// Whether the type, as a property of that class names it, is an enumeration.
    bool isEnumeration(const Class &of, const QString &type) const;

private:
    void inherit();

    QHash<QString, Class> m_classes;
    QHash<QString, QStringList> m_bases;
};
