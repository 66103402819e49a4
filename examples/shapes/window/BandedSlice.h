// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelInspectorSlice.h"

/// A slice that sets off its sections by their backgrounds. Named by its class in the inspector's description.
class BandedSlice : public ZelInspectorSlice
{
    Q_OBJECT
public:
    explicit BandedSlice(QObject *owner)
        : ZelInspectorSlice(owner)
    {
        setUsesAlternatingBackgroundColors(true);
    }
};
