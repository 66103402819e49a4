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
        Text, ///< anything
        LocalizedText,
        RowTitle, ///< localized if the root of the file says so
        Word,     ///< one of the attribute's words
        Class,
        Transformer,
        Selector,
        Image,
        ColorList,
        KeyPath,
        Boolean,
        Bits, ///< an integer of 64 bits, decimal or hexadecimal
        Number,
        Increment, ///< a number above 0
        Color,
        File ///< a resource of the application
    };
    struct Words
    {
        std::span<const QStringView> words;
        QStringView refusal; ///< what the reader says of any other word, which follows
        bool isAnyCase = false;
    };
    struct Attribute
    {
        QStringView name;
        Kind kind = Kind::Text;
        const Words *words = nullptr;
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
        /// An attribute without which the element is of no use; null if there is none.
        QStringView required = {};
        /// What the reader says of an element without the first kind of children; null if it may have none.
        QStringView refusalWithoutChildren = {};
        /// The name of the root of a file that the element may include; null if it may include none.
        QStringView rootOfFile = {};

        const Attribute *attributeNamed(QStringView name) const;
    };

    /// The attribute that the root of a file may have whatever its role, since it holds for the whole file; null for
    /// any other name.
    static const Attribute *attributeOfFileNamed(QStringView name);
    /// All attributes that the root of a file may have whatever its role.
    static std::span<const Attribute> attributesOfFile();
    /// All elements in all roles; properties come once for each type.
    static std::span<const Element> elements();
    /// Null for an unknown role. The type matters for properties only.
    static const Element *element(QStringView role, QStringView type = {});
    /// The attribute with which a property of that type only shows its value, if it is "no".
    static QStringView attributeOfReadOnly(QStringView type);
    /// Whether properties of that type write a single key of each object, and no longer key path.
    static bool writesSingleKey(QStringView type);
};
