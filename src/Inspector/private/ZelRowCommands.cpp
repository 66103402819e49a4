// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelRowCommands.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/private/ZelTypedText.h"
#include "Inspector/Properties/private/ZelValueClipboard.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/private/ZelNumberPaste.h"
#include "Inspector/private/ZelPasteRefusals.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QSet>
#include <algorithm>

namespace {

using EditorPointer = QPointer<ZelInspectorProperty>;

QString keyBelowSelection(const ZelInspectorProperty *editor)
{
    return ZelInspectorProperty::keyPathByStripingControllerSelectionPrefix(editor->keyPath());
}

bool isInEditor(const QWidget *source, ZelInspectorProperty *editor)
{
    return source && editor && editor->isViewLoaded() &&
           (editor->view() == source || editor->view()->isAncestorOf(source));
}

/// The number fields of an editor, in their order.
ZelNumberPaste::Editors numberEditorsOf(ZelInspectorProperty *editor)
{
    if (auto *number = qobject_cast<ZelInspectorNumberProperty *>(editor))
        return {number};
    const auto parts = editor->findChildren<ZelInspectorNumberProperty *>(QString(), Qt::FindDirectChildrenOnly);
    return {parts.begin(), parts.end()};
}

QString titlesOfParts(ZelInspectorProperty *editor)
{
    QStringList titles;
    for (const auto &part : numberEditorsOf(editor)) {
        if (part != editor && !part->title().isEmpty())
            titles.append(part->title());
    }
    return titles.join(QStringLiteral(", "));
}

/// What people call the editor's value; its key if there is no title at all.
QString titleToSay(ZelInspectorProperty *editor)
{
    const auto *row = qobject_cast<const ZelInspectorSliver *>(editor->parent());
    QString title = editor->title();
    if (title.isEmpty() && row)
        title = row->title();
    if (title.isEmpty())
        title = titlesOfParts(editor);
    return title.isEmpty() ? keyBelowSelection(editor) : title;
}

QString titleOfRow(const ZelInspectorSliver *row, const QList<ZelInspectorProperty *> &editors)
{
    QStringList titles;
    for (ZelInspectorProperty *editor : editors) {
        const QString title = editor->title().isEmpty() ? titlesOfParts(editor) : editor->title();
        if (!editor->keyPath().isEmpty() && !title.isEmpty())
            titles.append(title);
    }
    return row->title().isEmpty() ? titles.join(QStringLiteral(", ")) : row->title();
}

QString titleOfSection(const ZelInspectorSection *section)
{
    const QObject *around = section;
    while (around && !qobject_cast<const ZelInspector *>(around))
        around = around->parent();
    const bool hasTitle = !section->title().isEmpty() || !around;
    return hasTitle ? section->title() : static_cast<const ZelInspector *>(around)->title();
}

/// Whether the value is shown, but is not there to be changed.
bool isOnlyShown(const ZelInspectorProperty *editor)
{
    const QVariant editable = editor->property("editable"); // of the classes that may only show a value
    return !editor->isWritable() || (editable.isValid() && !editable.toBool());
}

/// The choice that the model's value stands for. The one that the chooser shows may still be another.
ZelInspectorChooserChoice *choiceOf(const ZelInspectorChooser *chooser)
{
    const bool hasValue = chooser->owner() && !chooser->keyPath().isEmpty();
    return hasValue ? chooser->choiceForValue(ZelValueForKeyPath(chooser->owner(), chooser->keyPath())) : nullptr;
}

QString textToCopy(ZelInspectorProperty *editor, const QVariant &value)
{
    QStringList numbers;
    for (const auto &part : numberEditorsOf(editor)) {
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
    commands.m_isRow = true;
    QList<ZelInspectorProperty *> editors = row->properties();
    const auto meant = std::find_if(editors.begin(), editors.end(),
                                    [&](ZelInspectorProperty *editor) { return isInEditor(source, editor); });
    if (row->title().isEmpty() && meant != editors.end())
        editors = {*meant};
    commands.m_title = titleOfRow(row, editors);
    commands.addEditors(editors, true);
    return commands;
}

ZelRowCommands ZelRowCommands::ofSection(ZelInspectorSection *section)
{
    ZelRowCommands commands;
    commands.m_view = section->view();
    commands.m_title = titleOfSection(section);
    commands.m_sections = {section};
    commands.addSections();
    return commands;
}

ZelRowCommands ZelRowCommands::ofInspector(ZelInspector *inspector)
{
    ZelRowCommands commands;
    commands.m_view = inspector->view();
    commands.m_title = inspector->title();
    for (const ZelInspectorSlice *slice : inspector->slices()) {
        for (ZelInspectorSection *section : slice->sections())
            commands.m_sections.append(section);
    }
    commands.addSections();
    return commands;
}

void ZelRowCommands::addSections()
{
    m_editors.clear();
    m_hiddenEditors.clear();
    for (const QPointer<ZelInspectorSection> &section : std::as_const(m_sections)) {
        if (!section)
            continue;
        const auto *slice = qobject_cast<const ZelInspectorSlice *>(section->parent());
        addRows(section->sliversAndChoosers(), section->isVisible() && (!slice || slice->isVisible()));
    }
}

void ZelRowCommands::addRows(const QList<ZelInspectorConditionalContainer *> &rows, bool isShown)
{
    for (ZelInspectorConditionalContainer *row : rows) {
        const bool isRowShown = isShown && row->isVisible();
        if (const auto *sliver = qobject_cast<const ZelInspectorSliver *>(row))
            addEditors(sliver->properties(), isRowShown);
        const auto *chooser = qobject_cast<const ZelInspectorChooser *>(row);
        if (chooser && chooser->sliver())
            addEditors(chooser->sliver()->properties(), isRowShown);
        if (const ZelInspectorChooserChoice *choice = chooser ? choiceOf(chooser) : nullptr)
            addRows(choice->sliversAndChoosers(), isRowShown);
    }
}

void ZelRowCommands::addEditors(const QList<ZelInspectorProperty *> &editors, bool isShown)
{
    for (ZelInspectorProperty *editor : editors) {
        if (!editor->keyPath().isEmpty())
            (isShown ? m_editors : m_hiddenEditors).append(editor);
    }
}

/// One undo step for all; none, and nothing is changed, if the work answers false. What an editor throws is reported,
/// and the others go on.
void ZelRowCommands::perform(const QString &name, const std::function<bool()> &work) const
{
    const QPointer<ZelUndoManager> manager(ZelUndoManager::forWidget(m_view));
    const ZelUndoGrouping grouping(manager);
    if (!work())
        grouping.rollBack();
    else if (manager)
        manager->nameEdit(name);
}

/// The name of a step, with the title if there is one.
QString ZelRowCommands::nameOf(const QString &command, const QString &commandWithTitle) const
{
    return m_title.isEmpty() ? command : commandWithTitle.arg(m_title);
}

// Copying

bool ZelRowCommands::canCopy() const
{
    return std::any_of(m_editors.begin(), m_editors.end(), [this](const EditorPointer &editor) {
        return editor && (m_isRow || !isOnlyShown(editor)) && ZelValueClipboard::canHold(editor->modelValue());
    });
}

void ZelRowCommands::copy() const
{
    ZelValueClipboard::Values values;
    QStringList texts;
    for (const EditorPointer &editor : m_editors) {
        if (!editor || (!m_isRow && isOnlyShown(editor)))
            continue;
        const QVariant value = editor->modelValue();
        if (!ZelValueClipboard::canHold(value))
            continue;
        QVariant &stored = values[keyBelowSelection(editor)];
        if (!m_isRow && stored.isValid() && ZelEqual(stored, value))
            continue; // another editor of the same value
        // Editors of different bits of one value.
        stored = stored.isValid() && ZelIsNumber(value) && ZelIsNumber(stored) && ZelNotEqual(stored, value)
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
    const Editors editors = allEditors();
    return hasValues && std::any_of(editors.begin(), editors.end(),
                                    [](const EditorPointer &editor) { return editor && editor->isWritable(); });
}

void ZelRowCommands::paste() const
{
    const auto values = ZelValueClipboard::values(clipboardData());
    const QString text =
        !values && m_isRow && clipboardData() && !clipboardData()->hasFormat(ZelValueClipboard::mimeType())
            ? clipboardData()->text()
            : QString();
    ZelPasteRefusals refusals;
    perform(nameOf(ZelLocalizedString("Paste"), ZelLocalizedString("Paste %1")), [&] {
        if (values)
            pasteValues(*values, refusals);
        else if (text.trimmed().isEmpty() || text.size() > ZelValueClipboard::maximumTextLength)
            refusals.add(QString(), ZelLocalizedString("There is nothing on the clipboard that fits."));
        else
            return pasteText(text, refusals);
        return true;
    });
    refusals.say(m_view, allEditors());
}

void ZelRowCommands::pasteValues(const ZelValueClipboard::Values &values, ZelPasteRefusals &refusals) const
{
    ZelValueClipboard::Values left = values;
    const Editors editors = allEditors();
    std::vector<std::pair<EditorPointer, ZelPasteRefusals>> refused;
    for (const EditorPointer &editor : editors) {
        const QString key = editor ? keyBelowSelection(editor) : QString();
        if (!values.contains(key))
            continue;
        left.remove(key);
        ZelPasteRefusals reasons;
        pasteInto(editor, values.value(key), reasons);
        refused.emplace_back(editor, reasons);
    }
    for (const auto &[editor, reasons] : refused) {
        // Another editor of the same value may have taken it, or it was there before.
        if (!editor || reasons.isEmpty() || ZelNotEqual(editor->modelValue(), values.value(keyBelowSelection(editor))))
            refusals.add(reasons);
    }
    if (!m_isRow) {
        for (auto it = left.begin(); it != left.end(); ++it)
            refusals.add(titleOfKey(it.key()), ZelLocalizedString("There is no such value here."));
    } else if (left.size() == values.size() && values.size() == 1 && count() == 1) {
        pasteInto(m_editors.first(), values.first(), refusals); // the value of another key
    } else if (left.size() == values.size()) {
        refusals.add(QString(), ZelLocalizedString("There is nothing on the clipboard that fits."));
    }
}

/// What people call the value of a key that is edited elsewhere in the inspector.
QString ZelRowCommands::titleOfKey(const QString &key) const
{
    const ZelInspectorSection *section = m_sections.isEmpty() ? nullptr : m_sections.first().data();
    const QObject *root = section;
    while (root && qobject_cast<const ZelViewController *>(root->parent()))
        root = root->parent();
    const auto editors = root ? root->findChildren<ZelInspectorProperty *>() : QList<ZelInspectorProperty *>();
    const auto known = std::find_if(editors.begin(), editors.end(), [&](const ZelInspectorProperty *editor) {
        return keyBelowSelection(editor) == key && qobject_cast<const ZelInspectorSliver *>(editor->parent());
    });
    return known == editors.end() ? key : titleToSay(*known);
}

void ZelRowCommands::pasteInto(const EditorPointer &editor, const QVariant &value, ZelPasteRefusals &refusals)
{
    if (!editor)
        return;
    const QString title = titleToSay(editor);
    QString reason;
    const bool isDone = ZelExceptionReporter::run(editor, [&] { reason = editor->pasteValue(value); });
    if (!isDone)
        reason = ZelLocalizedString("This cannot be changed.");
    if (!reason.isEmpty())
        refusals.add(title, reason);
}

QList<QPointer<ZelInspectorNumberProperty>> ZelRowCommands::numberEditors() const
{
    ZelNumberPaste::Editors numbers;
    for (const EditorPointer &editor : m_editors) {
        if (editor)
            numbers += numberEditorsOf(editor);
    }
    // The numbers begin where the user is.
    const auto first = std::find_if(numbers.begin(), numbers.end(),
                                    [this](const auto &editor) { return isInEditor(m_source, editor); });
    if (first != numbers.end())
        numbers.erase(numbers.begin(), first);
    return numbers;
}

/// Answers false if nothing must be changed.
bool ZelRowCommands::pasteText(const QString &text, ZelPasteRefusals &refusals) const
{
    if (const ZelNumberPaste::Editors numbers = numberEditors(); !numbers.isEmpty()) {
        ZelNumberPaste paste(numbers, text);
        return enterNumbers(paste, refusals);
    }
    const auto meant = std::find_if(m_editors.begin(), m_editors.end(),
                                    [this](const EditorPointer &editor) { return isInEditor(m_source, editor); });
    if (!m_editors.isEmpty())
        pasteTextInto(meant == m_editors.end() ? m_editors.first() : *meant, text, refusals);
    return true;
}

bool ZelRowCommands::enterNumbers(ZelNumberPaste &paste, ZelPasteRefusals &refusals) const
{
    const ZelNumberPaste::Editors numbers = numberEditors();
    const auto collect = [&](QString (ZelNumberPaste::*reasonOf)(qsizetype) const) {
        for (qsizetype i = 0; i < paste.count(); ++i) {
            const QString reason = (paste.*reasonOf)(i);
            if (!reason.isNull() && numbers.at(i))
                refusals.add(titleToSay(numbers.at(i)), reason);
        }
        return refusals.isEmpty();
    };
    if (!collect(&ZelNumberPaste::refusalOf))
        return false;
    paste.enter();
    if (!collect(&ZelNumberPaste::changeOf))
        return false;
    if (paste.parts().size() > numbers.size())
        refusals.add(paste.parts().mid(numbers.size(), ZelPasteRefusals::saidAtMost).join(QStringLiteral("; ")),
                     ZelLocalizedString("There is no field for this."));
    return true;
}

void ZelRowCommands::pasteTextInto(const EditorPointer &editor, const QString &text, ZelPasteRefusals &refusals)
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
        refusals.add(title, reason.isEmpty() ? ZelLocalizedString("This is not a value.") : reason);
}

bool ZelRowCommands::pasteNumbers(const QString &text) const
{
    const ZelNumberPaste::Editors numbers = numberEditors();
    if (text.size() > ZelValueClipboard::maximumTextLength || numbers.size() < 2)
        return false;
    ZelNumberPaste paste(numbers, text);
    if (!paste.isForSeveralFields())
        return false;
    ZelPasteRefusals refusals;
    perform(nameOf(ZelLocalizedString("Paste"), ZelLocalizedString("Paste %1")),
            [&] { return enterNumbers(paste, refusals); });
    refusals.say(m_view, allEditors());
    return true;
}

// Resetting

bool ZelRowCommands::isResettable() const
{
    const Editors editors = allEditors();
    return std::any_of(editors.begin(), editors.end(),
                       [](const EditorPointer &editor) { return editor && editor->canReset(); });
}

bool ZelRowCommands::canReset() const
{
    const Editors editors = allEditors();
    return std::any_of(editors.begin(), editors.end(), [](const EditorPointer &editor) {
        const bool mayDiffer =
            editor && (!editor->hasDefaultValue() || !editor->isViewInstalled() || editor->isChangedFromDefault());
        return mayDiffer && editor->canReset();
    });
}

void ZelRowCommands::reset() const
{
    perform(nameOf(ZelLocalizedString("Reset"), ZelLocalizedString("Reset %1")), [this] {
        ZelRowCommands present = *this;
        QSet<const ZelInspectorProperty *> reset;
        for (bool goesOn = true; std::exchange(goesOn, false);) {
            for (const EditorPointer &editor : present.allEditors()) {
                if (!editor || reset.contains(editor))
                    continue;
                goesOn = true;
                reset.insert(editor);
                ZelExceptionReporter::run(editor, [&] { editor->resetValue(); });
            }
            if (!m_isRow)
                present.addSections(); // another choice may be made now
        }
        return true;
    });
}
