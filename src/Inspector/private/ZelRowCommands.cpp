// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelRowCommands.h"

#include "Controls/private/ZelErrorNote.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/private/ZelTypedText.h"
#include "Inspector/Properties/private/ZelValueClipboard.h"
#include "Inspector/ZelInspectorSection.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTimer>
#include <algorithm>

namespace {

using EditorPointer = QPointer<ZelInspectorProperty>;

constexpr int g_noteDuration = 8000; // in milliseconds
constexpr qsizetype g_saidAtMost = 6;

QPointer<ZelErrorNote> g_note; // there is one at most

QString keyBelowSelection(const ZelInspectorProperty *editor)
{
    return ZelInspectorProperty::keyPathByStripingControllerSelectionPrefix(editor->keyPath());
}

bool isInEditor(const QWidget *source, ZelInspectorProperty *editor)
{
    return source && editor && editor->isViewLoaded() &&
           (editor->view() == source || editor->view()->isAncestorOf(source));
}

/// The rows that users see below the view, those of choosers and their choices included.
QList<ZelInspectorSliver *> visibleRows(const ZelView *view)
{
    QList<ZelInspectorSliver *> rows;
    const QList<ZelView *> views = view->findChildren<ZelView *>();
    for (const ZelView *below : views) {
        auto *row = qobject_cast<ZelInspectorSliver *>(below->viewController());
        if (row && below->isVisibleTo(view))
            rows.append(row);
    }
    return rows;
}

QString titleToSay(const ZelInspectorProperty *editor)
{
    const auto *row = qobject_cast<const ZelInspectorSliver *>(editor->parent());
    const QString title = editor->title().isEmpty() && row ? row->title() : editor->title();
    return title.isEmpty() ? keyBelowSelection(editor) : title;
}

/// The number fields of an editor, in their order.
QList<EditorPointer> numberEditorsOf(ZelInspectorProperty *editor)
{
    if (qobject_cast<ZelInspectorNumberProperty *>(editor))
        return {editor};
    const auto parts = editor->findChildren<ZelInspectorNumberProperty *>(QString(), Qt::FindDirectChildrenOnly);
    return {parts.begin(), parts.end()};
}

QString textToCopy(ZelInspectorProperty *editor, const QVariant &value)
{
    QStringList numbers;
    for (const EditorPointer &part : numberEditorsOf(editor)) {
        if (part != editor)
            numbers.append(part->textOfValue(part->modelValue()));
    }
    return numbers.isEmpty() ? editor->textOfValue(value) : ZelTypedText::joined(numbers);
}

const QMimeData *clipboardData()
{
    return QApplication::clipboard()->mimeData();
}

} // namespace

ZelRowCommands ZelRowCommands::ofRow(ZelInspectorSliver *row, const QWidget *source)
{
    ZelRowCommands commands;
    commands.m_view = row->view();
    commands.m_source = source;
    commands.m_title = row->title();
    commands.m_isRow = true;
    QList<ZelInspectorProperty *> editors = row->properties();
    const auto meant = std::find_if(editors.begin(), editors.end(),
                                    [&](ZelInspectorProperty *editor) { return isInEditor(source, editor); });
    if (row->title().isEmpty() && meant != editors.end())
        editors = {*meant};
    commands.setEditors(editors);
    if (commands.m_title.isEmpty() && commands.count() == 1)
        commands.m_title = commands.m_editors.first()->title();
    return commands;
}

ZelRowCommands ZelRowCommands::ofSection(ZelInspectorSection *section)
{
    ZelRowCommands commands;
    commands.m_view = section->view();
    commands.m_title = section->title();
    QList<ZelInspectorProperty *> editors;
    for (const ZelInspectorSliver *row : visibleRows(section->view()))
        editors += row->properties();
    commands.setEditors(editors);
    return commands;
}

void ZelRowCommands::setEditors(const QList<ZelInspectorProperty *> &editors)
{
    for (ZelInspectorProperty *editor : editors) {
        if (!editor->keyPath().isEmpty())
            m_editors.append(editor);
    }
}

/// One undo step for all. What an editor throws is reported, and the others go on.
void ZelRowCommands::perform(const QString &name, const std::function<void()> &work) const
{
    const QPointer<ZelUndoManager> manager(ZelUndoManager::forWidget(m_view));
    const ZelUndoGrouping grouping(manager);
    work();
    if (manager)
        manager->nameEdit(name);
}

// Copying

bool ZelRowCommands::canCopy() const
{
    return std::any_of(m_editors.begin(), m_editors.end(), [](const EditorPointer &editor) {
        return editor && ZelValueClipboard::canHold(editor->modelValue());
    });
}

void ZelRowCommands::copy() const
{
    ZelValueClipboard::Values values;
    QStringList texts;
    for (const EditorPointer &editor : m_editors) {
        const QVariant value = editor ? editor->modelValue() : QVariant::fromValue(ZelNoSelectionMarker);
        if (!ZelValueClipboard::canHold(value))
            continue;
        QVariant &stored = values[keyBelowSelection(editor)];
        // Editors of different bits of one value.
        stored = stored.isValid() && ZelIsNumber(value) && ZelIsNumber(stored)
                     ? QVariant(stored.toULongLong() | value.toULongLong())
                     : value;
        const QString text = textToCopy(editor, value);
        texts.append(m_isRow ? text : titleToSay(editor) + u'\t' + text);
    }
    if (values.isEmpty())
        return;
    const QString text = m_isRow ? ZelTypedText::joined(texts) : texts.join(u'\n');
    QApplication::clipboard()->setMimeData(ZelValueClipboard::mimeData(values, text));
}

void ZelRowCommands::copyKeyPath() const
{
    QStringList keys;
    for (const EditorPointer &editor : m_editors) {
        if (isInEditor(m_source, editor))
            keys = {keyBelowSelection(editor)};
        if (isInEditor(m_source, editor))
            break;
        if (editor)
            keys.append(keyBelowSelection(editor));
    }
    keys.removeDuplicates();
    QApplication::clipboard()->setText(keys.join(u'\n'));
}

// Pasting

bool ZelRowCommands::canPaste() const
{
    const QMimeData *data = clipboardData();
    const bool hasValues = data && (data->hasFormat(ZelValueClipboard::mimeType()) || (m_isRow && data->hasText()));
    return hasValues && std::any_of(m_editors.begin(), m_editors.end(),
                                    [](const EditorPointer &editor) { return editor && editor->isWritable(); });
}

void ZelRowCommands::paste() const
{
    const auto values = ZelValueClipboard::values(clipboardData());
    const QString text =
        !values && m_isRow && clipboardData() && !clipboardData()->hasFormat(ZelValueClipboard::mimeType())
            ? clipboardData()->text()
            : QString();
    QList<Refusal> refusals;
    perform(ZelLocalizedString("Paste %1").arg(m_title).trimmed(), [&] {
        if (values)
            pasteValues(*values, refusals);
        else if (text.isEmpty() || text.size() > ZelValueClipboard::maximumTextLength)
            refusals.append({QString(), ZelLocalizedString("There is nothing on the clipboard that fits.")});
        else
            pasteText(text, refusals);
    });
    say(refusals);
}

void ZelRowCommands::pasteValues(const ZelValueClipboard::Values &values, QList<Refusal> &refusals) const
{
    ZelValueClipboard::Values left = values;
    for (const EditorPointer &editor : m_editors) {
        const QString key = editor ? keyBelowSelection(editor) : QString();
        if (!values.contains(key))
            continue;
        left.remove(key);
        pasteInto(editor, values.value(key), refusals);
    }
    if (!m_isRow) {
        for (auto it = left.begin(); it != left.end(); ++it)
            refusals.append({it.key(), ZelLocalizedString("There is no such value here.")});
    } else if (left.size() == values.size() && values.size() == 1 && count() == 1) {
        pasteInto(m_editors.first(), values.first(), refusals); // the value of another key
    } else if (left.size() == values.size()) {
        refusals.append({QString(), ZelLocalizedString("There is nothing on the clipboard that fits.")});
    }
}

void ZelRowCommands::pasteInto(const EditorPointer &editor, const QVariant &value, QList<Refusal> &refusals)
{
    if (!editor)
        return;
    const QString title = titleToSay(editor);
    QString reason;
    const bool isDone = ZelExceptionReporter::run(editor, [&] { reason = editor->pasteValue(value); });
    if (!isDone)
        reason = ZelLocalizedString("This cannot be changed.");
    if (!reason.isEmpty())
        refusals.append({title, reason});
}

QList<EditorPointer> ZelRowCommands::numberEditors() const
{
    QList<EditorPointer> numbers;
    for (const EditorPointer &editor : m_editors) {
        if (editor)
            numbers += numberEditorsOf(editor);
    }
    // The numbers begin where the user is.
    const auto first = std::find_if(numbers.begin(), numbers.end(),
                                    [this](const EditorPointer &editor) { return isInEditor(m_source, editor); });
    if (first != numbers.end())
        numbers.erase(numbers.begin(), first);
    return numbers;
}

void ZelRowCommands::pasteText(const QString &text, QList<Refusal> &refusals) const
{
    const QList<EditorPointer> numbers = numberEditors();
    if (numbers.isEmpty()) {
        const auto meant = std::find_if(m_editors.begin(), m_editors.end(),
                                        [this](const EditorPointer &editor) { return isInEditor(m_source, editor); });
        if (!m_editors.isEmpty())
            pasteTextInto(meant == m_editors.end() ? m_editors.first() : *meant, text, refusals);
        return;
    }
    // A single field may understand more than numbers, such as a calculation.
    const QStringList parts = numbers.size() == 1 ? QStringList{text} : ZelTypedText::numbersIn(text);
    for (qsizetype i = 0; i < std::min(parts.size(), numbers.size()); ++i)
        pasteTextInto(numbers.at(i), parts.at(i), refusals);
    if (parts.size() > numbers.size())
        refusals.append({parts.mid(numbers.size(), g_saidAtMost).join(QStringLiteral("; ")),
                         ZelLocalizedString("There is no field for this.")});
}

void ZelRowCommands::pasteTextInto(const EditorPointer &editor, const QString &text, QList<Refusal> &refusals)
{
    if (!editor)
        return;
    const QString title = titleToSay(editor);
    QVariant value;
    QString reason;
    bool isRead = false;
    const bool isDone = ZelExceptionReporter::run(editor, [&] { isRead = editor->readText(text, &value, &reason); });
    if (isDone && isRead)
        pasteInto(editor, value, refusals);
    else
        refusals.append({title, reason.isEmpty() ? ZelLocalizedString("This is not a value.") : reason});
}

bool ZelRowCommands::pasteNumbers(const QString &text) const
{
    if (text.size() > ZelValueClipboard::maximumTextLength || numberEditors().size() < 2)
        return false;
    if (ZelTypedText::numbersIn(text).size() < 2)
        return false;
    QList<Refusal> refusals;
    perform(ZelLocalizedString("Paste %1").arg(m_title).trimmed(), [&] { pasteText(text, refusals); });
    say(refusals);
    return true;
}

/// Shows what was left out beside the row or section for a while, and tells assistive technology.
void ZelRowCommands::say(const QList<Refusal> &refusals) const
{
    QStringList lines;
    for (const Refusal &refusal : refusals) {
        if (lines.size() < g_saidAtMost)
            lines.append(refusal.title.isEmpty() ? refusal.reason
                                                 : ZelLocalizedString("%1: %2").arg(refusal.title, refusal.reason));
    }
    if (refusals.size() > lines.size())
        lines.append(ZelLocalizedString("And %1 more.").arg(refusals.size() - lines.size()));
    delete g_note;
    if (!m_view || lines.isEmpty())
        return;
    lines.prepend(ZelLocalizedString("Not pasted:"));
    ZelErrorNote::show(&g_note, m_view, lines.join(u'\n'));
    if (!g_note)
        return;
    g_note->setAccessibleName(g_note->text());
    QAccessibleEvent event(g_note.data(), QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
    QTimer::singleShot(g_noteDuration, g_note.data(), &QObject::deleteLater);
}

// Resetting

bool ZelRowCommands::isResettable() const
{
    return std::any_of(m_editors.begin(), m_editors.end(),
                       [](const EditorPointer &editor) { return editor && editor->canReset(); });
}

bool ZelRowCommands::canReset() const
{
    return std::any_of(m_editors.begin(), m_editors.end(), [](const EditorPointer &editor) {
        return editor && (!editor->hasDefaultValue() || editor->isChangedFromDefault()) && editor->canReset();
    });
}

void ZelRowCommands::reset() const
{
    perform(ZelLocalizedString("Reset %1").arg(m_title).trimmed(), [this] {
        for (const EditorPointer &editor : m_editors) {
            if (editor)
                ZelExceptionReporter::run(editor, [&] { editor->resetValue(); });
        }
    });
}
