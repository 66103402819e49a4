// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <array>
#include <span>

/// What a description may contain: the attributes and children of every element, and what is written in an attribute.
///
/// An element is known by its role, which is its name except for the root of an included file: it stands for the
/// element that includes the file, and has that one's role.
class ZelDescriptionSchema
{
public:
    enum class Kind : quint8 {
        Text, ///< anything, or a name or word that is checked when the attribute is read
        KeyPath,
        Boolean,
        Bits, ///< an integer of 64 bits, decimal or hexadecimal
        Number,
        Increment, ///< a number above 0
        Color,
        File ///< a resource of the application
    };
    struct Attribute
    {
        QStringView name;
        Kind kind = Kind::Text;
    };
    struct Element
    {
        QStringView role;
        QStringView type; ///< of a property; null for the properties of types that the library does not know
        std::array<std::span<const Attribute>, 4> attributes;
        std::array<QStringView, 2> children; ///< null ones are none
        /// Whether applications may read attributes and children of their own.
        bool isOpen = false;
        /// Whether any other child fails when the element is read.
        bool failsOnOtherChildren = false;

        const Attribute *attributeNamed(QStringView name) const;
    };

    /// The attribute that the root of a file may have whatever its role, since it holds for the whole file; null for
    /// any other name.
    static const Attribute *attributeOfFileNamed(QStringView name);
    /// Null for an unknown role. The type matters for properties only.
    static const Element *element(QStringView role, QStringView type = {});
};
