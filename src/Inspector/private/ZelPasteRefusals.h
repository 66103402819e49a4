// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>
#include <QString>

class QWidget;
class ZelInspectorProperty;

/// What was left out when values were pasted, and the note that says so.
class ZelPasteRefusals
{
public:
    using Editors = QList<QPointer<ZelInspectorProperty>>;

    /// How many parts of what was pasted are named at most.
    static constexpr qsizetype saidAtMost = 6;

    bool isEmpty() const { return m_refusals.isEmpty(); }
    /// The title is that of an editor; it is empty where the reason concerns all that was pasted.
    void add(const QString &title, const QString &reason) { m_refusals.append({title, reason}); }
    void add(const ZelPasteRefusals &others) { m_refusals += others.m_refusals; }
    /// Shows them beside the row or section for a while, until other objects than those of the editors are selected,
    /// and tells assistive technology. The note of an earlier paste goes in any case.
    void say(QWidget *view, const Editors &editors) const;

private:
    struct Refusal
    {
        QString title;
        QString reason;
    };

    QStringList lines() const;

    QList<Refusal> m_refusals;
};
