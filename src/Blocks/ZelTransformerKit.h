// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelValueTransformer.h"
#include "Core/ZelExport.h"

/// Registers transformers that are made of functions under a name, for use in descriptions and bindings.
///
///     ZelTransformerKit::registerValueTransformerWithName(
///         "WeeksFromDays", "double",
///         [](const QVariant &days) { return ZelIsNumber(days) ? QVariant(days.toDouble() / 7) : days; },
///         [](const QVariant &weeks) { return ZelIsNumber(weeks) ? QVariant(weeks.toDouble() * 7) : weeks; });
///
/// The blocks also get no value and the selection markers, which they are to let pass. The class is the name of the
/// type that the first block answers, such as "double" or "QString"; "QVariant" stands for any. It is for whoever asks
/// the transformer, and nothing is converted to it.
class ZEL_EXPORT ZelTransformerKit
{
public:
    /// Registers a transformer that is not reversible. True if it was registered; false, and nothing changed, where a
    /// transformer or a class of that name exists: one registered with ZelClassRegistry or as a meta type, or one with
    /// virtual functions that a loaded library exports. Asserts "name", "transformedValueClass" and
    /// "transformedValueBlock".
    static bool registerValueTransformerWithName(const QString &name, const QString &transformedValueClass,
                                                 const ZelValueTransformer::Block &transformedValueBlock);
    /// Does the same, and makes the transformer reversible if there is a reverse block.
    static bool registerValueTransformerWithName(const QString &name, const QString &transformedValueClass,
                                                 const ZelValueTransformer::Block &transformedValueBlock,
                                                 const ZelValueTransformer::Block &reverseTransformedValueBlock);
};
