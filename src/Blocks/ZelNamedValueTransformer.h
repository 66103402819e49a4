// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"

/// The common base of the library's named transformers: what they do with absent values, selection markers and values
/// of the wrong type. A transformer is one row of functions.
///
/// An absent value and the null object give the row's nil result, a selection marker gives itself, an accepted value is
/// transformed, and every other value throws a ZelInternalInconsistencyException "Cannot transform value (CLASS).".
class ZEL_EXPORT ZelNamedValueTransformer : public ZelAbstractValueTransformer
{
public:
    struct Direction
    {
        bool (*accepts)(const QVariant &value) = nullptr;
        QVariant (*transform)(const QVariant &value) = nullptr;
    };
    /// Accepts texts.
    static bool isString(const QVariant &value) { return value.typeId() == QMetaType::QString; }
    struct Row
    {
        const char *valueClass;
        QVariant (*nilResult)() = nullptr; ///< without one, the nil result is absent
        Direction forward;
        Direction reverse = {}; ///< empty for a transformer that is not reversible
    };

    QVariant transformedValue(const QVariant &value) const override;
    /// The same as transformedValue if the transformer is not reversible.
    QVariant reverseTransformedValue(const QVariant &value) const override;
    bool allowsReverseTransformation() const override { return m_row.reverse.transform; }
    QString transformedValueClass() const override { return QString::fromLatin1(m_row.valueClass); }

protected:
    explicit ZelNamedValueTransformer(const Row &row)
        : m_row(row)
    {
    }

private:
    QVariant apply(const Direction &direction, const QVariant &value) const;

    const Row &m_row;
};
