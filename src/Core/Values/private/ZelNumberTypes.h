// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>

namespace ZelNumberTypes {

/// Whether a number of a built-in type is read as a double rather than as an integer of 64 bits.
inline bool isFloating(int type)
{
    return type == QMetaType::Double || type == QMetaType::Float;
}

/// Whether a number of a built-in type may be above what a signed integer of 64 bits holds.
inline bool isUnsigned(int type)
{
    return type == QMetaType::ULongLong || type == QMetaType::ULong;
}

} // namespace ZelNumberTypes
