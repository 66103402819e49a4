// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QXmlStreamWriter>

/// Writes the grammar of descriptions as an XML Schema 1.0. That version cannot let attributes depend on the value of
/// another one, nor an element on what includes its file: elements of one name share a type, which has the attributes
/// and children of all their roles.
class ZelXmlSchemaWriter
{
public:
    explicit ZelXmlSchemaWriter(QByteArray *text);
    void write();

private:
    using Schema = ZelDescriptionSchema;
    using Elements = QList<const Schema::Element *>;
    struct Attribute
    {
        QString name;
        Schema::Kind kind = Schema::Kind::Text;
        QList<const Schema::Words *> words; // of each type that has the attribute
    };
    static Elements withName(QStringView name);
    static Elements asRoot(QStringView name);
    static QList<Attribute> attributesOf(const Elements &elements, bool isRoot);
    static void add(QList<Attribute> &attributes, const Schema::Attribute &attribute);

    void writeRoots();
    void writeType(const QString &name, const Elements &elements, bool isRoot);
    void writeChildren(const Elements &elements);
    void writeAttribute(const Attribute &attribute, bool isRequired);
    void writeWords(const Attribute &attribute);
    void writeValues();
    void writePattern(const QString &typeName, const QString &pattern);
    void writeChoice(const QString &typeName, std::span<const QStringView> words, const QString &pattern);
    void begin(const char *tag, const QString &name = {});
    void empty(const char *tag, const char *attribute, const QString &value);

    QXmlStreamWriter m_xml;
};
