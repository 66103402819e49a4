// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/ZelColor.h"
#include "Platform/Runtime/ZelException.h"

/// Colours as inspector descriptions write them.
class ZelInspectorColor
{
public:
    /// Reads a colour space and its components, separated by one blank or line end each (two in a row enclose an empty
    /// component, which is 0): "NSCalibratedRGBColorSpace 1 0.5 0 1". The named space is followed by the colour list
    /// and the colour: "NSNamedColorSpace System textColor". Invalid, and an assertion, for any other text.
    static ZelColor colorFromString(const QString &text, const ZelSourcePlace &place = {});
    /// What is wrong with the components of a text that is read nevertheless: their number, or one that is no number
    /// from 0 to 1. Null if nothing is, or if colorFromString fails.
    static QString mistakeInComponents(QStringView text);
};
