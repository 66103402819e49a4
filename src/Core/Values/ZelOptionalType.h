// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QMetaType>
#include <QVariant>
#include <optional>

/// Lets properties of the type std::optional<T> be read and written as a T, or as no value where they are empty.
///
/// The library knows the optional types of numbers, texts, dates, colours, fonts, addresses, points, sizes and
/// rectangles. An application registers its own, such as that of an enumeration, before it shows an inspector:
///
///     ZelOptionalType::registerType<PenStyle>();
struct ZEL_EXPORT ZelOptionalType
{
    QMetaType optional;
    QMetaType value;
    /// The value; invalid where there is none.
    QVariant (*read)(const void *optional);
    /// Stores a value of the type `value`; null for none.
    void (*store)(void *optional, const void *value);

    /// Null for any other type.
    static const ZelOptionalType *find(QMetaType type);
    /// Whether the type is a std::optional, known or not.
    static bool isOptional(QMetaType type);

    template<typename Type> static void registerType() { add(of<Type>()); }

    template<typename Type> static ZelOptionalType of()
    {
        using Optional = std::optional<Type>;
        return {QMetaType::fromType<Optional>(), QMetaType::fromType<Type>(),
                [](const void *optional) {
                    const auto &held = *static_cast<const Optional *>(optional);
                    return held ? QVariant::fromValue(*held) : QVariant();
                },
                [](void *optional, const void *value) {
                    auto &held = *static_cast<Optional *>(optional);
                    held = value ? Optional(*static_cast<const Type *>(value)) : std::nullopt;
                }};
    }

private:
    static void add(const ZelOptionalType &type);
};
