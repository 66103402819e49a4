// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QVariant>

/// A colour as it was described: a colour space with its components, or a name in a colour list.
///
/// Two are equal when space and components, or list and key, are the same. A named colour of a computed list (see
/// ZelColorList) shows whatever the list answers at that moment. As a QVariant it converts to QColor and back.
class ZEL_EXPORT ZelColor
{
public:
    enum Space { Invalid, CalibratedWhite, CalibratedRGB, DeviceWhite, DeviceRGB, DeviceCMYK, Named };

    ZelColor() = default;
    /// Components in 0 to 1, alpha last. Their count need not fit the space: a missing one shows as 0, a missing alpha
    /// as 1, and further ones are kept but not shown. One that is not a number is 0.
    ZelColor(Space space, const QList<double> &components);
    /// CMYK for a QColor of that kind, else device RGB; invalid for an invalid one.
    ZelColor(const QColor &color);
    static ZelColor named(const QString &listName, const QString &key);

    bool isValid() const { return m_space != Invalid; }
    Space space() const { return m_space; }
    const QList<double> &components() const { return m_components; }
    /// Null unless the colour is a named one.
    const QString &listName() const { return m_listName; }
    const QString &key() const { return m_key; }

    /// The colour as it is shown, always of the kind QColor::Rgb; invalid for an invalid colour and an unknown name.
    QColor toQColor() const;
    operator QColor() const { return toQColor(); }
    /// The colour as a value; an invalid QVariant for an invalid colour.
    QVariant toVariant() const { return isValid() ? QVariant::fromValue(*this) : QVariant(); }

    /// Whether the value is a valid QColor or ZelColor.
    static bool isColor(const QVariant &value) { return fromVariant(value).isValid(); }
    /// Invalid for anything that is not a colour.
    static ZelColor fromVariant(const QVariant &value);
    /// Whether both are colours and look the same. Two named colours do only if their names are the same.
    static bool matches(const QVariant &a, const QVariant &b);

    friend bool operator==(const ZelColor &, const ZelColor &) = default;
    friend size_t qHash(const ZelColor &color, size_t seed = 0)
    {
        return qHashMulti(seed, int(color.m_space), color.m_components, color.m_listName, color.m_key);
    }

private:
    Space m_space = Invalid;
    QList<double> m_components;
    QString m_listName;
    QString m_key;
};
Q_DECLARE_METATYPE(ZelColor)
