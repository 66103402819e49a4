// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelException.h"
#include "Core/ZelExport.h"
#include "Resources/ZelColor.h"

/// Colours as inspector descriptions write them.
class ZEL_EXPORT ZelInspectorColor
{
public:
    /// Reads a colour space and its components, separated by one blank or line end each (two in a row enclose an empty
    /// component, which is 0): "NSCalibratedRGBColorSpace 1 0.5 0 1". The named space is followed by the colour list
    /// and the colour: "NSNamedColorSpace System textColor". Any other text is an assertion, and gives an invalid
    /// colour.
    static ZelColor colorFromString(const QString &text, const ZelSourcePlace &place = {});
    /// Says what is wrong with the components of a text that is read nevertheless: their number is wrong, or one of
    /// them is no number from 0 to 1. Null if nothing is wrong, for a named colour, and if colorFromString fails.
    static QString mistakeInComponents(QStringView text);
};
