// SPDX-License-Identifier: MIT
#pragma once

#include <QtPlugin>

/// A widget that knows its baseline. Adopted with Q_INTERFACES(ZelBaselineProvider).
class ZelBaselineProvider
{
public:
    virtual ~ZelBaselineProvider() = default;
    /// The distance of the first text baseline from the top, for a widget of that height, in points.
    virtual double baselineOffsetForHeight(double height) const = 0;
};
Q_DECLARE_INTERFACE(ZelBaselineProvider, "Zel.BaselineProvider")
