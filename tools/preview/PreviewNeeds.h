// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QSet>
#include <QStringList>
#include <QUrl>
#include <QVariantList>
#include <optional>

class ZelInspectorConfiguration;

/// What a description needs of an application: the key paths with the kinds of values that are expected there, and the
/// names of methods, classes, transformers and images.
class PreviewNeeds
{
public:
    enum class Kind : quint8 {
        Any,
        Condition, ///< a boolean at which something is shown or enabled, unless something else is known of the key
        Boolean,
        Bits,
        Number,
        Text,
        RichText,
        Choice,
        Color,
        Date,
        Font,
        Size,
        Frame,
        Margins,
        Line,
        Vector,
        Texts,   ///< a list
        Choices, ///< the values of a list of choices
        Actions
    };
    struct Value
    {
        Kind kind = Kind::Any;
        QVariantList choices;
        int components = 3;         ///< of a vector
        QList<QVariantList> masked; ///< of bits: the choices of every editor that edits some of them
        std::optional<double> minimum;
        std::optional<double> maximum;
        bool mayBeAbsent = false;
    };

    /// Reads the description with all that it includes. What cannot be read is left out: the library tells why.
    static PreviewNeeds of(const QUrl &description);

    QMap<QString, Value> keyPaths;
    /// By the key path of a selection or an object, the classes that conditions (ZelIsKind) tell apart there.
    QMap<QString, QStringList> classes;
    QSet<QString> methods;
    QSet<QString> editorClasses;
    QSet<QString> sliceClasses;
    QSet<QString> propertyTypes; ///< those that the library does not know, and that no file describes
    QSet<QString> transformers;
    QSet<QString> images;

private:
    void readFile(const QUrl &file);
    void visit(const ZelInspectorConfiguration &element);
    void noteNames(const ZelInspectorConfiguration &element);
    void noteKeyPaths(const ZelInspectorConfiguration &element);
    void noteClasses(const ZelInspectorConfiguration &element);
    void note(const QString &keyPath, const Value &value);

    QSet<QUrl> m_files;
};
