// SPDX-License-Identifier: MIT
#include "Blocks/ZelNamedValueTransformer.h"

#include "Core/Errors/ZelException.h"
#include "Core/Values/ZelValues.h"

QVariant ZelNamedValueTransformer::transformedValue(const QVariant &value) const
{
    return apply(m_row.forward, value);
}

QVariant ZelNamedValueTransformer::reverseTransformedValue(const QVariant &value) const
{
    return apply(allowsReverseTransformation() ? m_row.reverse : m_row.forward, value);
}

QVariant ZelNamedValueTransformer::apply(const Direction &direction, const QVariant &value) const
{
    if (ZelIsNull(value))
        return m_row.nilResult ? m_row.nilResult() : QVariant();
    if (ZelIsControllerMarker(value))
        return value;
    if (!direction.accepts(value))
        throw ZelInternalInconsistencyException(u"Cannot transform value (" + ZelClassName(value) + u").");
    return direction.transform(value);
}
