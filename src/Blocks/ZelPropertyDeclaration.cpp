// SPDX-License-Identifier: MIT
#include "Blocks/ZelPropertyDeclaration.h"

#include "Blocks/private/ZelPropertyEncoding.h"

#include <QMetaProperty>

ZelPropertyDeclaration::ZelPropertyDeclaration(const QString &name, const QString &attributes)
    : m_name(name)
    , m_attributes(attributes)
{
}

ZelPropertyDeclaration::ZelPropertyDeclaration(const QMetaProperty &property)
    : m_name(QString::fromUtf8(property.name()))
{
    if (const ZelPropertyEncoding *encoding = ZelPropertyEncoding::find(property.metaType()))
        m_attributes = QString(u'T' + encoding->text());
    else
        m_attributes = QString(u"T@\"" + QString::fromUtf8(property.typeName()).remove(u'*') + u'"');
    if (!property.isWritable())
        m_attributes += QStringLiteral(",R");
}

std::optional<QString> ZelPropertyDeclaration::attribute(QChar letter) const
{
    const QStringList parts = m_attributes.split(u',', Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        if (part.front() == letter)
            return part.mid(1);
    }
    return {};
}
