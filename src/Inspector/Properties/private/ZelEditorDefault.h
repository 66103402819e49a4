// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <optional>

class ZelInspectorConfiguration;

/// What a property editor is reset to, as its element says.
class ZelEditorDefault
{
public:
    QVariant value;
    QString keyPath;
    bool isChanged = false; // an object has another value
    bool hasWarned = false; // of a text that is no value of the model's type

    /// Reads the attributes. A text that is no value of the type, which is invalid if it is not known yet, is an
    /// assertion.
    void configure(const ZelInspectorConfiguration &configuration, QMetaType type);
    /// The value as one of the type.
    static std::optional<QVariant> converted(const QVariant &value, QMetaType type);
};
