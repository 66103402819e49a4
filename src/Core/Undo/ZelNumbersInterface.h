// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKey.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/ZelExport.h"

#include <QtPlugin>
#include <vector>

/// An object whose properties stand for the numbers of several others, as the x of an editor of points does for that of
/// all selected ones. A class adopts it with Q_INTERFACES(ZelNumbersInterface).
class ZEL_EXPORT ZelNumbersInterface
{
public:
    virtual ~ZelNumbersInterface() = default;
    /// The number of each object, in their order; NaN for an object that has none.
    virtual std::vector<double> numbersForKey(ZelKey key) const = 0;
    /// Changes the number of each object, and records that for undo.
    virtual void changeNumbersForKey(ZelKey key, const ZelNumberChange &change) = 0;
};
Q_DECLARE_INTERFACE(ZelNumbersInterface, "Zel.Numbers")
