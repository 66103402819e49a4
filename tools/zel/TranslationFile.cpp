// SPDX-License-Identifier: MIT
#include "TranslationFile.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>

using Text = ZelDescriptionStrings::Text;

namespace {

const QString g_type = QStringLiteral("type");
const QString g_unfinished = QStringLiteral("unfinished");
const QString g_vanished = QStringLiteral("vanished");

void setAttribute(QXmlStreamAttributes &attributes, const QString &name, const QString &value)
{
    const auto found = std::ranges::find_if(
        attributes, [&](const QXmlStreamAttribute &attribute) { return attribute.name() == name; });
    if (found != attributes.end())
        attributes.erase(found);
    if (!value.isNull())
        attributes.append(name, value);
}

} // namespace

TranslationFile::Node *TranslationFile::Node::child(QStringView childName)
{
    const auto found = std::ranges::find(children, childName, &Node::name);
    return found == children.end() ? nullptr : &*found;
}

QString TranslationFile::Node::textOf(QStringView childName) const
{
    const auto found = std::ranges::find(children, childName, &Node::name);
    return found == children.end() ? QString() : found->text;
}

QString TranslationFile::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    QXmlStreamReader xml(&file);
    if (xml.readNextStartElement())
        m_root = readNode(xml);
    if (!xml.hasError() && m_root.name != u"TS")
        return QStringLiteral("This is no file of translations.");
    return xml.hasError() ? xml.errorString() : QString();
}

TranslationFile::Node TranslationFile::readNode(QXmlStreamReader &xml)
{
    Node node{xml.name().toString(), xml.attributes()};
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement())
            node.children.append(readNode(xml));
        else if (xml.isCharacters())
            node.text += xml.text();
        else if (xml.isEndElement())
            break;
    }
    return node;
}

void TranslationFile::update(const QString &context, const QList<Text> &texts)
{
    QSet<QString> missing;
    for (const Text &text : texts)
        missing.insert(text.text);
    const QSet<QString> there = missing;
    Node &node = contextNamed(context);
    QList<Node> others;
    QList<Node> messages;
    for (const Node &child : std::as_const(node.children)) {
        const QString source = child.textOf(u"source");
        if (child.name != u"message") {
            others.append(child);
        } else if (const std::optional<Node> message = updated(child, there.contains(source))) {
            messages.append(*message);
            missing.remove(source);
        }
    }
    for (const QString &text : std::as_const(missing))
        messages.append(newMessage(text));
    std::ranges::stable_sort(messages, {}, [](const Node &message) { return message.textOf(u"source"); });
    node.children = others + messages;
}

/// The message as it is to stand in the file; nothing if it is to go.
std::optional<TranslationFile::Node> TranslationFile::updated(const Node &message, bool isThere)
{
    Node result = message;
    Node *translation = result.child(u"translation");
    if (!translation)
        return isThere ? std::optional(newMessage(message.textOf(u"source"))) : std::nullopt;
    const QString type = translation->attributes.value(g_type).toString();
    const bool isUnfinished = type == g_unfinished;
    if (isThere && (type == g_vanished || type == u"obsolete"))
        setAttribute(translation->attributes, g_type, {});
    else if (!isThere && isUnfinished)
        return std::nullopt;
    else if (!isThere)
        setAttribute(translation->attributes, g_type, g_vanished);
    result.children.removeIf([](const Node &child) { return child.name == u"location"; });
    return result;
}

TranslationFile::Node TranslationFile::newMessage(const QString &text)
{
    Node translation{QStringLiteral("translation")};
    translation.attributes.append(g_type, g_unfinished);
    return {QStringLiteral("message"), {}, {}, {{QStringLiteral("source"), {}, text, {}}, translation}};
}

void TranslationFile::setLocations(const QString &context, const QList<Text> &texts, const QString &folder)
{
    for (Node &message : contextNamed(context).children) {
        if (message.name != u"message")
            continue;
        const QString source = message.textOf(u"source");
        QList<Node> locations;
        for (const Text &text : texts) {
            if (text.text != source || folder.isNull())
                continue;
            Node location{QStringLiteral("location")};
            location.attributes.append(QStringLiteral("filename"), QDir(folder).relativeFilePath(text.place.file));
            location.attributes.append(QStringLiteral("line"), QString::number(text.place.line));
            locations.append(location);
        }
        message.children = locations + message.children;
    }
}

TranslationFile::Node &TranslationFile::contextNamed(const QString &name)
{
    for (Node &node : m_root.children) {
        if (node.name == u"context" && node.textOf(u"name") == name)
            return node;
    }
    m_root.children.append({QStringLiteral("context"), {}, {}, {{QStringLiteral("name"), {}, name, {}}}});
    return m_root.children.last();
}

QString TranslationFile::language() const
{
    return m_root.attributes.value(QStringLiteral("language")).toString();
}

void TranslationFile::setLanguage(const QString &language)
{
    setAttribute(m_root.attributes, QStringLiteral("version"), QStringLiteral("2.1"));
    setAttribute(m_root.attributes, QStringLiteral("language"), language);
}

QByteArray TranslationFile::text() const
{
    QByteArray text;
    QXmlStreamWriter xml(&text);
    writeNode(xml, m_root, 0);
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n" + text + '\n';
}

/// Indented as Qt's own tools do it: what lies in a context is, the contexts are not.
void TranslationFile::writeNode(QXmlStreamWriter &xml, const Node &node, int depth)
{
    const auto indent = [&](int steps) {
        xml.writeCharacters(u'\n' + QString(qsizetype(4) * std::max(0, steps), u' '));
    };
    if (node.children.isEmpty() && node.text.isEmpty() && node.name == u"location")
        xml.writeEmptyElement(node.name);
    else
        xml.writeStartElement(node.name);
    xml.writeAttributes(node.attributes);
    if (node.name == u"location")
        return;
    for (const Node &child : node.children) {
        indent(depth);
        writeNode(xml, child, depth + 1);
    }
    if (node.children.isEmpty())
        xml.writeCharacters(node.text);
    else
        indent(depth - 1);
    xml.writeEndElement();
}
