// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelNamedTransformers.h"
#include "Core/ZelExport.h"

/// A colour (QColor or ZelColor) to its localised name in the first colour list that holds it; an empty text where none
/// does. The names are gathered once, at the first use: lists that are added later are not seen.
///
/// The way back knows no name: every text gives black.
class ZEL_EXPORT ZelColorNameTransformer : public ZelNamedValueTransformer
{
public:
    ZelColorNameTransformer();
    static QString transformerName() { return ZelColorNameTransformerName; }
};
