// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/ZelDescriptionStrings.h"

#include <QList>
#include <QString>
#include <QXmlStreamAttributes>
#include <optional>

class QXmlStreamReader;
class QXmlStreamWriter;

/// A file of Qt Linguist's. What this class does not know in it is kept as it stands.
class TranslationFile
{
public:
    /// Reads the file. Answers why that is not possible; null if it was done.
    QString read(const QString &path);
    /// Brings the messages of one context up to date with the texts: new ones are unfinished, those of texts that are
    /// gone are marked as vanished if they were translated and removed otherwise. Messages are put in the order of
    /// their texts, so that one more changes as little as possible.
    void update(const QString &context, const QList<ZelDescriptionStrings::Text> &texts);
    /// Where the texts stand, relative to the folder; none for a null one.
    void setLocations(const QString &context, const QList<ZelDescriptionStrings::Text> &texts, const QString &folder);
    void setLanguage(const QString &language);
    QString language() const;
    QByteArray text() const;

private:
    struct Node
    {
        QString name;
        QXmlStreamAttributes attributes;
        QString text;
        QList<Node> children;

        Node *child(QStringView childName);
        QString textOf(QStringView childName) const;
    };
    static Node readNode(QXmlStreamReader &xml);
    static void writeNode(QXmlStreamWriter &xml, const Node &node, int depth);
    static std::optional<Node> updated(const Node &message, bool isThere);
    static Node newMessage(const QString &text);
    Node &contextNamed(const QString &name);

    Node m_root{QStringLiteral("TS")};
};
