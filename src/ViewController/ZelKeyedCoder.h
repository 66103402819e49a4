// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>
#include <QVariantMap>

/// Values filed under keys, from which an object is made again.
///
/// The values are plain variants, so that an archive may be kept wherever a QVariantMap fits. A key that an archive
/// lacks reads as the type's default: archives of older versions stay readable.
class ZelKeyedCoder
{
public:
    ZelKeyedCoder() = default;
    explicit ZelKeyedCoder(const QVariantMap &values)
        : m_values(values)
    {
    }

    const QVariantMap &values() const { return m_values; }
    bool contains(const QString &key) const { return m_values.contains(key); }

    /// Files the value, in the place of an earlier one.
    void encode(const QString &key, const QVariant &value) { m_values.insert(key, value); }

    QVariant decode(const QString &key) const { return m_values.value(key); }
    bool decodeBool(const QString &key) const { return decode(key).toBool(); }
    qint64 decodeInteger(const QString &key) const { return decode(key).toLongLong(); }
    double decodeDouble(const QString &key) const { return decode(key).toDouble(); }

private:
    QVariantMap m_values;
};
