// SPDX-License-Identifier: MIT
#pragma once

#include "Text/ZelParagraphStyle.h"

#include <QList>
#include <QVariant>

#include <optional>

/// The values of several paragraphs' styles, by the names of the properties of ZelParagraphStyle: each is one value if
/// the paragraphs agree, or a selection marker.
class ZelParagraphStyleValues
{
public:
    static const QList<QByteArray> &names();

    /// Before the first style, every value is the no-selection marker.
    ZelParagraphStyleValues();
    void fold(const ZelParagraphStyle &style);
    /// Absent for an unknown name.
    QVariant value(const QByteArray &name) const;

    /// Sets one of a style's values, converted to its type. Leaves it for a selection marker, for no value, and for one
    /// that cannot be converted.
    static void store(ZelParagraphStyle *style, const QByteArray &name, const QVariant &value);

private:
    QVariantList m_values;                   // as in names()
    std::optional<ZelParagraphStyle> m_last; // most paragraphs have the style of the one before them
};
