// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelInspectorDescription.h"
#include "Inspector/Description/private/ZelClassInfo.h"

#include <QXmlStreamWriter>

/// Writes the description of a class, see ZelInspectorDescription::forMetaObject. The values of enumerations may be
/// unknown: options are keys then, and flags are those that the editor finds.
class ZelClassDescriber
{
public:
    using Attributes = ZelClassInfo::Attributes;
    struct Options
    {
        ZelInspectorDescription::Options::Root root = ZelInspectorDescription::Options::Slice;
        QString keyPath;        ///< of the objects below the owner
        QString declaredBy;     ///< the class whose properties are described; null for all
        Attributes ofRoot = {}; ///< further attributes
        /// Whether the description is a file that somebody goes on writing, and checks. Editors that cannot write say
        /// so then, and there are no limits that are those of a type.
        bool isForAuthors = false;
        QString attributeOfSilent = {}; ///< names properties that no signal announces, as "Class.name"; null for none
    };

    /// Describes the last of the classes; the others are its bases.
    ZelClassDescriber(const QList<ZelDescribedClass> &classes, const Options &options);

    /// To be called once; then the lists below are filled.
    QByteArray describe();
    const QStringList &properties() const { return m_properties; }
    const QStringList &propertiesWithoutEditor() const { return m_propertiesWithoutEditor; }
    /// Those that could be written but for their key path; of a description for authors.
    const QStringList &propertiesOnlyShown() const { return m_propertiesOnlyShown; }

private:
    using Property = ZelDescribedClass::Property;
    using Properties = QList<const Property *>;
    void writeClass(const ZelDescribedClass &declaring);
    Properties rowsOf(const ZelDescribedClass &declaring);
    /// The last class that declares it.
    const ZelDescribedClass &lastDeclaring(const QString &name) const;
    void writeRow(const Property &property);
    void addWhatIsSaid(const QString &name, Attributes &row, Attributes &editor) const;
    void writeFlags(const ZelDescribedClass::Enumeration &flags, const Attributes &editor);
    void writeEnumeration(const ZelDescribedClass::Enumeration &keys, const Attributes &editor);
    void beginElement(const QString &name, const Attributes &attributes);
    void writeEditor(const Attributes &attributes);
    Attributes editorOf(const Property &property) const;
    QString keyPath(const QString &key) const;

    QList<ZelDescribedClass> m_classes; // bases first
    Options m_options;
    ZelClassInfo m_info;
    QByteArray m_xml;
    QXmlStreamWriter m_writer{&m_xml};
    QStringList m_properties;
    QStringList m_propertiesWithoutEditor;
    QStringList m_propertiesOnlyShown;
};
