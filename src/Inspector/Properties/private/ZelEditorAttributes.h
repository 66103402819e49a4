// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <optional>

class ZelInspectorConfiguration;

/// Reads attributes that several editors have. Mistakes are reported with the generator's source file, since reading is
/// the generator's part.
class ZelEditorAttributes
{
public:
    static void fail(const QString &message, const ZelInspectorConfiguration &configuration);
    /// The bits of a mask; nothing where the attribute is missing.
    static std::optional<quint64> bits(const ZelInspectorConfiguration &configuration, QStringView name);
    /// Stores the index of the attribute's text, in any case, among the words; the first one is the default. Any other
    /// text is an assertion, which begins with the message, and stores nothing.
    static void storeWord(uint &index, const ZelInspectorConfiguration &configuration, QStringView name,
                          const QStringList &words, const QString &message);
    /// The format of numbers: integers or decimals.
    static void storeFormatStyle(uint &style, const ZelInspectorConfiguration &configuration);
    /// Stores the title of a part of an editor, which keeps its usual one unless there is an attribute of that name,
    /// and the key path of a title that may change.
    static void storeTitle(QString &title, QString &titleKeyPath, const ZelInspectorConfiguration &configuration,
                           const QString &name);
};
