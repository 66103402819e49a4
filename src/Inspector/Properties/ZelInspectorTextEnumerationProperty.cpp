// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"

ZelInspectorTextEnumerationProperty::ZelInspectorTextEnumerationProperty(QObject *owner)
    : ZelInspectorEnumerationProperty(owner)
{
}

void ZelInspectorTextEnumerationProperty::loadView()
{
    ZelView *container = makeEditorView();
    if (isEditable()) {
        m_popUpButton = new ZelPopUpButton(container);
        ZelEditorLayout::setName(m_popUpButton, title());
        ZelEditorLayout::setStretches(m_popUpButton, 100);
        connect(m_popUpButton, &ZelPopUpButton::action, this, [this] {
            if (!choosesSeveral()) // a flag has been toggled by its item
                userDidChangeValue(m_popUpButton);
        });
        m_popUpButton->setItemMarks([editor = QPointer<ZelInspectorTextEnumerationProperty>(this)] {
            return editor ? editor->marksOfUsedOptions() : ZelPopUpButton::ItemMarks();
        });
    } else {
        m_textField = new ZelTextField(container);
        m_textField->setLabelStyle(true);
        ZelEditorLayout::setName(m_textField, title());
        ZelEditorLayout::setStretches(m_textField, 1);
    }
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    ZelEditorLayout::layOut(container, viewForBaselineAlignment(), m_label);
}

void ZelInspectorTextEnumerationProperty::viewDidInstall()
{
    ZelInspectorEnumerationProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_popUpButton);
    if (m_popUpButton)
        observeForUpdate(enabledKeyPath()); // the binding alone would enable the button without a selection
    observeForUpdate(keyPath());
    updateView();
}

ZelMenuItem *ZelInspectorTextEnumerationProperty::menuItemWithTitle(const QString &title, const QIcon &image,
                                                                    const QVariant &representedObject, bool hidden,
                                                                    bool enabled)
{
    auto *item = new ZelMenuItem(title.isNull() ? QStringLiteral("") : title, image, representedObject, this);
    item->setHidden(hidden);
    item->setEnabled(enabled);
    return item;
}

void ZelInspectorTextEnumerationProperty::addItem(const Choice &choice)
{
    m_options.append(menuItemWithTitle(choice.title, choice.image, choice.value, choice.hidden, choice.enabled));
    m_items.append(m_options.last());
    if (!choice.toolTip.isEmpty())
        m_options.last()->setToolTip(choice.toolTip);
    if (!choice.whatsThis.isEmpty())
        m_options.last()->setWhatsThis(choice.whatsThis);
    if (!choosesSeveral())
        return;
    connect(m_options.last(), &QAction::triggered, this,
            [this, item = m_options.last()] { ZelExceptionReporter::run(this, [this, item] { toggle(item); }); });
}

/// Adds the separator and the items for no and for multiple values. They are made once and survive rebuilds; which of
/// them are visible depends on the value.
void ZelInspectorTextEnumerationProperty::addFixedItems()
{
    const auto make = [this](ZelControllerMarker marker) {
        const QVariant value = QVariant::fromValue(marker);
        auto *item = new ZelMenuItem(ZelControlSupport::markerText(value), {}, value, this);
        item->setEnabled(false);
        return item;
    };
    if (!m_separatorItem) {
        m_separatorItem = ZelMenuItem::separatorItem(this);
        m_noSelectionItem = make(ZelNoSelectionMarker);
        m_multipleValuesItem = make(ZelMultipleValuesMarker);
    }
    m_items << m_separatorItem << m_noSelectionItem << m_multipleValuesItem;
}

void ZelInspectorTextEnumerationProperty::rebuildView()
{
    const QList<ZelMenuItem *> former = std::exchange(m_options, {});
    m_items.clear();
    if (choosesSeveral()) {
        if (!m_flagsItem)
            m_flagsItem = menuItemWithTitle({}, {}, {}, false, true);
        m_items.append(m_flagsItem);
    }
    const QList<Choice> own = ownChoices();
    for (const Choice &choice : own)
        addItem(choice);
    for (const ZelOptionGroup *group : optionGroups()) {
        if (!m_options.isEmpty()) {
            m_options.append(ZelMenuItem::separatorItem(this));
            m_items.append(m_options.last());
        }
        const QList<Choice> choices = choicesOfGroup(group);
        for (const Choice &choice : choices)
            addItem(choice);
    }
    addFixedItems();
    if (m_popUpButton) {
        m_popUpButton->setPullsDown(choosesSeveral());
        m_popUpButton->setItems(QList<QAction *>(m_items.begin(), m_items.end()));
    }
    qDeleteAll(former); // only now, since the button has shown them until here
    if (isViewInstalled())
        updateViewInvocation().schedule();
}

ZelMenuItem *ZelInspectorTextEnumerationProperty::menuItemForValue(const QVariant &value) const
{
    for (ZelMenuItem *item : m_options) {
        if (!item->isSeparator() && ZelEqual(item->representedObject(), value))
            return item;
    }
    return nullptr;
}

QString ZelInspectorTextEnumerationProperty::textForValue(const QVariant &value) const
{
    if (choosesSeveral() && ZelIsNumber(value))
        return oneLine(textOfFlags(value));
    const ZelMenuItem *item = menuItemForValue(value);
    return item && !item->title().isEmpty() ? oneLine(item->title())
                                            : ZelInspectorEnumerationProperty::textForValue(value);
}

/// Dashes for the options that some of the objects have, and check marks for flags that all have.
ZelPopUpButton::ItemMarks ZelInspectorTextEnumerationProperty::marksOfUsedOptions() const
{
    const ZelPlaceScope scope(this);
    ZelPopUpButton::ItemMarks marks;
    if (choosesSeveral()) {
        const Bits bits = bitsOfObjects();
        for (const ZelMenuItem *item : m_options)
            marks.insert(item, bits.stateOf({{}, {}, item->representedObject(), {}, {}, {}, {}}));
        return marks;
    }
    const ZelValueSummary summary = valueSummary();
    for (const ZelMenuItem *item : m_options) {
        if (!item->isSeparator() && summary.countOf(item->representedObject()) > 0)
            marks.insert(item, Qt::PartiallyChecked);
    }
    return marks;
}

void ZelInspectorTextEnumerationProperty::showItem(ZelMenuItem *item)
{
    const bool isNone = item == m_noSelectionItem;
    const bool isMultiple = item == m_multipleValuesItem;
    m_separatorItem->setHidden(!isNone && !isMultiple);
    m_noSelectionItem->setHidden(!isNone);
    m_multipleValuesItem->setHidden(!isMultiple);
    if (m_popUpButton)
        m_popUpButton->selectItem(item);
    if (m_textField)
        m_textField->setObjectValue(item->title());
}

void ZelInspectorTextEnumerationProperty::updateView()
{
    if (isUpdatingValues() || !m_noSelectionItem)
        return;
    const QVariant value = reducedValue();
    adaptOptionsTo(value);
    if (choosesSeveral()) {
        updateFlags(value);
        return;
    }
    const bool isMultiple = ZelIsMarker(value, ZelMultipleValuesMarker);
    const bool isNone = ZelIsNull(value) || (ZelIsControllerMarker(value) && !isMultiple);
    ZelMenuItem *item = isMultiple ? m_multipleValuesItem : isNone ? nullptr : menuItemForValue(value);
    showItem(item ? item : m_noSelectionItem);
    if (m_popUpButton)
        m_popUpButton->setEnabled(!isNone && isWritable() && isEffectivelyEnabled());
}

void ZelInspectorTextEnumerationProperty::updateFlags(const QVariant &value)
{
    const bool isMultiple = ZelIsMarker(value, ZelMultipleValuesMarker);
    const bool isNone = ZelIsNull(value) || (ZelIsControllerMarker(value) && !isMultiple);
    const QVariant none = QVariant::fromValue(ZelNoSelectionMarker);
    const QString text = ZelIsControllerMarker(value) ? ZelControlSupport::markerText(value)
                         : isNone                     ? ZelControlSupport::markerText(none)
                                                      : textOfFlags(value);
    for (ZelMenuItem *item : {m_separatorItem, m_noSelectionItem, m_multipleValuesItem})
        item->setHidden(true);
    m_flagsItem->setTitle(text);
    if (m_textField)
        m_textField->setObjectValue(text);
    if (m_popUpButton) {
        m_popUpButton->setEnabled(!isNone && isWritable() && isEffectivelyEnabled());
        ZelControlSupport::announceValue(m_popUpButton.data());
        // A marker is dimmed. It comes last, since whoever hears of it may do anything.
        m_popUpButton->setObjectValue(ZelIsNull(value) ? none : value);
    }
}

/// A flag that only some of the objects have is set in all.
void ZelInspectorTextEnumerationProperty::toggle(const ZelMenuItem *item)
{
    const QVariant flag = item->representedObject();
    const bool isOn = bitsOfObjects().stateOf({{}, {}, flag, {}, {}, {}, {}}) != Qt::Checked;
    const ZelUndoGrouping grouping(undoManager());
    writeFlag(flag, isOn, m_popUpButton);
}

void ZelInspectorTextEnumerationProperty::userDidChangeValue(QObject *sender)
{
    const auto *item = qobject_cast<ZelMenuItem *>(m_popUpButton ? m_popUpButton->selectedItem() : nullptr);
    if (!item || !m_options.contains(const_cast<ZelMenuItem *>(item)))
        return;
    writeChoice(item->representedObject(), sender);
}

QWidget *ZelInspectorTextEnumerationProperty::viewForBaselineAlignment()
{
    view();
    return m_popUpButton ? static_cast<QWidget *>(m_popUpButton) : m_textField;
}
