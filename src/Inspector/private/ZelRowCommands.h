// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <functional>

class QWidget;
class ZelInspector;
class ZelInspectorConditionalContainer;
class ZelInspectorNumberProperty;
class ZelInspectorProperty;
class ZelInspectorSection;
class ZelInspectorSliver;
class ZelNumberPaste;
class ZelPasteRefusals;

/// What users can do with the values of a row, or of the rows of a section or of an inspector, as a whole. Each command
/// that changes values is one undo step, and leaves out the editors whose values users may not change.
///
/// What is copied of a section are the values that are there to be changed, in the rows that their conditions show.
/// Pasted and reset are hidden rows, too, since they may be shown by the very change.
///
/// The commands are made when they are wanted; what they are about may die before they are used.
class ZelRowCommands
{
public:
    /// The commands of a row. If it has no title, they are for the one editor that contains the source, if any does.
    static ZelRowCommands ofRow(ZelInspectorSliver *row, const QWidget *source);
    static ZelRowCommands ofSection(ZelInspectorSection *section);
    /// The commands of all its sections, whether it is folded or not.
    static ZelRowCommands ofInspector(ZelInspector *inspector);

    /// The title of what the commands are for: of a row without one, the titles of its editors, or of their parts; of a
    /// section without one, the inspector's.
    const QString &title() const { return m_title; }
    /// How many values there are, hidden ones included.
    qsizetype count() const { return m_editors.size() + m_hiddenEditors.size(); }

    bool canCopy() const;
    /// Puts the values that are the same for all objects on the clipboard.
    void copy() const;
    bool canPaste() const;
    /// Takes values from the clipboard by their key paths; into a row, a single value in any case, or else the text. A
    /// note says what was left out, and why. Texts for number fields are read as if they were typed there, and taken as
    /// a whole or not at all.
    void paste() const;
    /// Does so with the text and the number fields from the one with the source on. Answers false, and does nothing,
    /// unless there are several numbers and several fields.
    bool pasteNumbers(const QString &text) const;
    /// Puts the key paths below the selection on the clipboard, one a line.
    void copyKeyPath() const;
    /// Whether there is a default that users may bring back; canReset answers false if all values are known to have it.
    bool isResettable() const;
    bool canReset() const;
    void reset() const;

private:
    using Editors = QList<QPointer<ZelInspectorProperty>>;

    /// The rows' editors that have a value: those shown by the conditions, and the others.
    void addEditors(const QList<ZelInspectorProperty *> &editors, bool isShown);
    void addRows(const QList<ZelInspectorConditionalContainer *> &rows, bool isShown);
    void addSections();
    Editors allEditors() const { return m_editors + m_hiddenEditors; }
    QString nameOf(const QString &command, const QString &commandWithTitle) const;
    void perform(const QString &name, const std::function<bool()> &work) const;
    void pasteValues(const QMap<QString, QVariant> &values, ZelPasteRefusals &refusals) const;
    bool pasteText(const QString &text, ZelPasteRefusals &refusals) const;
    static void pasteInto(const QPointer<ZelInspectorProperty> &editor, const QVariant &value,
                          ZelPasteRefusals &refusals);
    static void pasteTextInto(const QPointer<ZelInspectorProperty> &editor, const QString &text,
                              ZelPasteRefusals &refusals);
    QList<QPointer<ZelInspectorNumberProperty>> numberEditors() const;
    bool enterNumbers(ZelNumberPaste &paste, ZelPasteRefusals &refusals) const;
    QString titleOfKey(const QString &key) const;

    QPointer<QWidget> m_view;
    QPointer<const QWidget> m_source;
    QList<QPointer<ZelInspectorSection>> m_sections; // of a section or an inspector
    Editors m_editors;
    Editors m_hiddenEditors;
    QString m_title;
    bool m_isRow = false;
};
