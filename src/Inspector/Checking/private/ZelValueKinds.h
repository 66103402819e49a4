// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>
#include <QStringList>

/// What the types of properties hold, as far as editors tell them apart.
namespace ZelValueKinds {

enum ValueKind : quint32 {
    Unknown = 0x1, ///< any value, or a type that nothing is known of
    Boolean = 0x2,
    Integer = 0x4,
    Real = 0x8,
    Enumeration = 0x10,
    Text = 0x20,
    RichText = 0x40,
    Color = 0x80,
    Date = 0x100,
    Font = 0x200,
    Size = 0x400,
    Point = 0x800,
    Rectangle = 0x1000,
    List = 0x2000,
    Object = 0x4000,
    Margins = 0x8000,
    Line = 0x10000,
    Vector = 0x20000,
    Written = 0x40000 ///< a type that people write as a text, such as a time
};
Q_DECLARE_FLAGS(Kinds, ValueKind)

/// That of an optional type is the kind of its values. Unknown for an enumeration, too: only its class knows it.
ValueKind kindOf(QStringView type);
/// What an editor of that type can show and write; all kinds for editors of the application's own.
Kinds kindsOfEditor(QStringView editorType, bool isRichText);
/// The keys of a value of that kind; empty if it has none, or if they are not known.
QStringList keysOf(ValueKind kind);
/// Whether values of that kind have no keys.
bool isPlain(ValueKind kind);

} // namespace ZelValueKinds

Q_DECLARE_OPERATORS_FOR_FLAGS(ZelValueKinds::Kinds)
