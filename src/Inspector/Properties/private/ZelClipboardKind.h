// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QString>
#include <QVariant>
#include <optional>
#include <span>

/// How values of one kind stand on the clipboard.
///
/// What is read may come from any program: whatever is malformed, or larger than sensible, reads as nothing.
struct ZelClipboardKind
{
    using Json = std::optional<QJsonValue>;
    using Value = std::optional<QVariant>;

    static constexpr qsizetype maximumElements = 100000; ///< of a list

    QStringView name;
    /// Nothing for a value of another kind. The depth is that of the lists around the value.
    Json (*write)(const QVariant &value, int depth);
    Value (*read)(const QJsonValue &json, int depth);

    /// The kinds of values that hold no others, in the order in which a value's kind is looked for: a boolean is a
    /// number, too.
    static std::span<const ZelClipboardKind> plainKinds();
};
