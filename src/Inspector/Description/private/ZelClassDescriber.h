// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelInspectorDescription.h"
#include "Inspector/Description/private/ZelClassInfo.h"

#include <QMetaProperty>
#include <QXmlStreamWriter>

/// Writes the description of a class, see ZelInspectorDescription::forMetaObject.
class ZelClassDescriber
{
public:
    ZelClassDescriber(const QMetaObject *metaObject, const ZelInspectorDescription::Options &options);

    /// To be called once; then the lists below are filled.
    QByteArray describe();
    const QStringList &properties() const { return m_properties; }
    const QStringList &propertiesWithoutEditor() const { return m_propertiesWithoutEditor; }

private:
    using Attributes = ZelClassInfo::Attributes;
    void writeClass(const QMetaObject *declaring);
    QList<QMetaProperty> rowsOf(const QMetaObject *declaring);
    void writeRow(const QMetaProperty &property);
    void addWhatIsSaid(const QString &name, Attributes &row, Attributes &editor) const;
    void writeFlags(const QMetaEnum &flags, const Attributes &editor);
    void writeEnumeration(const QMetaEnum &keys, const Attributes &editor);
    void beginElement(const QString &name, const Attributes &attributes);
    void writeEditor(const Attributes &attributes);
    Attributes editorOf(const QMetaProperty &property) const;
    QString keyPath(const QString &key) const;

    const QMetaObject *m_class;
    ZelInspectorDescription::Options m_options;
    ZelClassInfo m_info;
    QByteArray m_xml;
    QXmlStreamWriter m_writer{&m_xml};
    QStringList m_properties;
    QStringList m_propertiesWithoutEditor;
};
