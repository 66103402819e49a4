// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaEnum>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

/// The keys of an enumeration, or of a type of flags, that Qt knows by Q_ENUM, Q_ENUM_NS, Q_FLAG or Q_FLAG_NS.
class ZelEnumerationKeys
{
public:
    static bool isEnumeration(QMetaType type) { return type.flags().testFlag(QMetaType::IsEnumeration); }
    /// Whether values are made of several keys.
    static bool isFlags(QMetaType type);
    /// Whether every value is one key, so that several together are none: an enumeration with keys that are no flags.
    static bool isOfSingleKeys(QMetaType type);
    /// Invalid for a type whose keys Qt does not know.
    static QMetaEnum of(QMetaType type);
    /// The names in the order of their declaration.
    static QStringList names(QMetaType type);

    struct Key
    {
        QString name;
        QVariant value; ///< of the type itself
    };
    /// In the order of their declaration; of several keys with one value, the first. Of flags, those that are no
    /// combination of others. None for an enumeration of 64 bits: Qt keeps only 32 bits of the values of its keys.
    static QList<Key> keys(QMetaType type);
    /// The value that one key, or for flags several with "|" between them, stands for.
    static std::optional<QVariant> valueOf(const QString &text, QMetaType type);
};
