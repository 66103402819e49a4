// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <functional>

class QWidget;
class ZelInspectorProperty;
class ZelInspectorSection;
class ZelInspectorSliver;

/// What users can do with the values of a row, or of the visible rows of a section, as a whole. Each command that
/// changes values is one undo step, and leaves out the editors whose values users may not change.
///
/// The commands are made when they are wanted; what they are about may die before they are used.
class ZelRowCommands
{
public:
    /// The commands of a row. If it has no title, they are for the one editor that contains the source, if any does.
    static ZelRowCommands ofRow(ZelInspectorSliver *row, const QWidget *source);
    static ZelRowCommands ofSection(ZelInspectorSection *section);

    /// The row's or section's title, or that of its editor; null if there is none.
    const QString &title() const { return m_title; }
    /// How many values there are.
    qsizetype count() const { return m_editors.size(); }

    bool canCopy() const;
    /// Puts the values that are the same for all objects on the clipboard.
    void copy() const;
    bool canPaste() const;
    /// Takes values from the clipboard by their key paths; into a row, a single value in any case, or else the text. A
    /// note says what was left out, and why.
    void paste() const;
    /// Writes the numbers in the text into the number fields from the one with the source on. Answers false, and does
    /// nothing, unless there are several numbers and several fields.
    bool pasteNumbers(const QString &text) const;
    /// Puts the key paths below the selection on the clipboard, one a line.
    void copyKeyPath() const;
    /// Whether there is a default that users may bring back; canReset answers false if all values are known to have it.
    bool isResettable() const;
    bool canReset() const;
    void reset() const;

private:
    using Editors = QList<QPointer<ZelInspectorProperty>>;
    /// An editor and why its value was left out.
    struct Refusal
    {
        QString title;
        QString reason;
    };

    void setEditors(const QList<ZelInspectorProperty *> &editors);
    void perform(const QString &name, const std::function<void()> &work) const;
    void pasteValues(const QMap<QString, QVariant> &values, QList<Refusal> &refusals) const;
    void pasteText(const QString &text, QList<Refusal> &refusals) const;
    static void pasteInto(const QPointer<ZelInspectorProperty> &editor, const QVariant &value,
                          QList<Refusal> &refusals);
    static void pasteTextInto(const QPointer<ZelInspectorProperty> &editor, const QString &text,
                              QList<Refusal> &refusals);
    QList<QPointer<ZelInspectorProperty>> numberEditors() const;
    void say(const QList<Refusal> &refusals) const;

    QPointer<QWidget> m_view;
    QPointer<const QWidget> m_source;
    Editors m_editors;
    QString m_title;
    bool m_isRow = false;
};
