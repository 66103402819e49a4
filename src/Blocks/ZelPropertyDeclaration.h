// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QMetaObject>
#include <QString>
#include <optional>

/// The declaration of a property: its name, and its attributes as a text such as `T{CGPoint=dd},D` (see
/// ZelBlockProperties).
class ZEL_EXPORT ZelPropertyDeclaration
{
public:
    ZelPropertyDeclaration() = default;
    ZelPropertyDeclaration(const QString &name, const QString &attributes);
    /// Makes the declaration of a Q_PROPERTY.
    explicit ZelPropertyDeclaration(const QMetaProperty &property);

    const QString &name() const { return m_name; }
    const QString &attributes() const { return m_attributes; }
    /// The value of the attribute with that letter; nothing where there is none.
    std::optional<QString> attribute(QChar letter) const;
    bool isDynamic() const { return attribute(u'D').has_value(); }
    bool isReadOnly() const { return attribute(u'R').has_value(); }

private:
    QString m_name;
    QString m_attributes;
};
