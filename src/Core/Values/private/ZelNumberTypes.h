// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>

namespace ZelNumberTypes {

/// Whether a number of a built-in type is read as a double rather than as an integer of 64 bits.
inline bool isFloating(int type)
{
    return type == QMetaType::Double || type == QMetaType::Float;
}

/// Whether the type is a built-in one of integers.
inline bool isInteger(int type)
{
    switch (type) {
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

/// Whether a number of a built-in type may be above what a signed integer of 64 bits holds.
inline bool isUnsigned(int type)
{
    return type == QMetaType::ULongLong || type == QMetaType::ULong;
}

} // namespace ZelNumberTypes
