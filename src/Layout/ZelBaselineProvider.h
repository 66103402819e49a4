// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QtPlugin>

/// A widget that knows its baseline. A class adopts it with Q_INTERFACES(ZelBaselineProvider).
class ZEL_EXPORT ZelBaselineProvider
{
public:
    virtual ~ZelBaselineProvider() = default;
    /// Answers the distance of the first text baseline from the top when the widget has that height, in points.
    virtual double baselineOffsetForHeight(double height) const = 0;
};
Q_DECLARE_INTERFACE(ZelBaselineProvider, "Zel.BaselineProvider")
