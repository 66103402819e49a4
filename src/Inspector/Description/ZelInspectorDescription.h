// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QByteArray>
#include <QStringList>

struct QMetaObject;

/// A description of an inspector in memory: XML as a file holds it, and a name that messages about it tell instead of a
/// file. Files that it includes are resources of the application.
///
///     generator.setDescription({"<slice><section>...</section></slice>", "Lamp"});
class ZEL_EXPORT ZelInspectorDescription
{
public:
    ZelInspectorDescription() = default;
    ZelInspectorDescription(const QByteArray &xml, const QString &name = QStringLiteral("description"))
        : m_xml(xml)
        , m_name(name)
    {
    }

    const QByteArray &xml() const { return m_xml; }
    const QString &name() const { return m_name; }
    bool isEmpty() const { return m_xml.isEmpty(); }

    /// How a class is described.
    struct Options
    {
        enum Root {
            Slice, ///< a slice with a section for each class
            Pane   ///< a pane with a box for each class
        };
        Root root = Slice;
        /// The key path of the objects below the inspector's owner. Empty if the owner itself is the object.
        QString keyPath = QStringLiteral("selectionController.selection");
        /// The class that declares the properties to describe: the class itself or one of its bases. Null for all.
        const QMetaObject *declaredBy = nullptr;
    };

    /// Describes the properties of a class: a section for each class from the base to this one, and in it a row for
    /// each property that the class declares, with an editor for its type. A property that is declared again stays with
    /// the base, with the editor for the last declaration. Left out are properties that are not designable, and those
    /// for whose type there is no editor. Class information changes all this:
    ///
    ///     Q_CLASSINFO("zel.title", "Outline")                  // of the class's section; hidden="yes" leaves it out
    ///     Q_CLASSINFO("zel.order", "lineWidth, cap")           // these first, the others behind them
    ///     Q_CLASSINFO("zel.lineWidth.title", "Thickness")
    ///     Q_CLASSINFO("zel.lineWidth.unit", "pt")
    ///     Q_CLASSINFO("zel.lineWidth.hidden", "yes")           // "no" shows one that is not designable
    ///     Q_CLASSINFO("zel.lineWidth.maximum", "20")           // any attribute of a row or its editor
    ///
    /// Key paths in class information begin at the object. Titles are keys into the application's strings. Class
    /// information that names no property is a warning; a wrong attribute is reported when the inspector is built. The
    /// text is indented, so that it may be saved as a file to go on with.
    static ZelInspectorDescription forMetaObject(const QMetaObject *metaObject, const Options &options);
    static ZelInspectorDescription forMetaObject(const QMetaObject *metaObject);

    // What forMetaObject has found, in the order of the rows; empty for any other description.
    const QStringList &properties() const { return m_properties; }
    /// The properties for whose type there is no editor, each as "name (type)".
    const QStringList &propertiesWithoutEditor() const { return m_propertiesWithoutEditor; }

    /// A name of the code as people read it: "lineWidth" is "Line Width", "zel::URLField" is "URL Field".
    static QString titleForName(const QString &name);

private:
    QByteArray m_xml;
    QString m_name;
    QStringList m_properties;
    QStringList m_propertiesWithoutEditor;
};
