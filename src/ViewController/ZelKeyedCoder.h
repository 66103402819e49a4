// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QRectF>
#include <QString>
#include <QVariantMap>

/// Values under keys, from which an object can be made again.
///
/// The values are plain variants, so that an archive can be kept wherever a QVariantMap can. A missing key is read as
/// the type's default, so that archives of older versions stay readable.
class ZEL_EXPORT ZelKeyedCoder
{
public:
    ZelKeyedCoder() = default;
    explicit ZelKeyedCoder(const QVariantMap &values)
        : m_values(values)
    {
    }

    const QVariantMap &values() const { return m_values; }
    bool contains(const QString &key) const { return m_values.contains(key); }

    /// Stores the value, and replaces an earlier one.
    void encode(const QString &key, const QVariant &value) { m_values.insert(key, value); }

    QVariant decode(const QString &key) const { return m_values.value(key); }
    bool decodeBool(const QString &key) const { return decode(key).toBool(); }
    qint64 decodeInteger(const QString &key) const { return decode(key).toLongLong(); }
    double decodeDouble(const QString &key) const { return decode(key).toDouble(); }

private:
    QVariantMap m_values;
};
