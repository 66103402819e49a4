// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorFlagsProperty.h"

#include "Controls/ZelLabel.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelCheckBoxFlow.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Observation/ZelDelayedInvocation.h"
#include "ViewController/ZelView.h"

ZelInspectorFlagsProperty::ZelInspectorFlagsProperty(QObject *owner)
    : ZelInspectorEnumerationProperty(owner)
{
    setChoosesSeveral(true);
}

QList<ZelCheckBox *> ZelInspectorFlagsProperty::checkboxes() const
{
    return m_flow ? m_flow->boxes() : QList<ZelCheckBox *>();
}

QString ZelInspectorFlagsProperty::textForValue(const QVariant &value) const
{
    return ZelIsNumber(value) ? oneLine(textOfFlags(value)) : ZelInspectorEnumerationProperty::textForValue(value);
}

void ZelInspectorFlagsProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_flow = new ZelCheckBoxFlow(container);
    ZelEditorLayout::setStretches(m_flow, 1);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    ZelEditorLayout::layOut(container, m_flow, m_label, {2, 3, 0, 3});
    connect(m_flow, &ZelCheckBoxFlow::boxAdded, this,
            [this](ZelCheckBox *box) { connect(box, &ZelCheckBox::action, this, [this, box] { toggle(box); }); });
}

void ZelInspectorFlagsProperty::viewDidInstall()
{
    ZelInspectorEnumerationProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    observeForUpdate(enabledKeyPath());
    observeForUpdate(keyPath());
    updateView();
}

void ZelInspectorFlagsProperty::rebuildView()
{
    m_flags = allChoices();
    m_flags.removeIf([](const Choice &flag) { return flag.hidden || unsignedValue(flag.value) == 0; });
    QStringList titles;
    for (const Choice &flag : std::as_const(m_flags))
        titles.append(flag.title);
    if (m_flow)
        m_flow->setTitles(titles);
    const QList<ZelCheckBox *> boxes = checkboxes();
    for (qsizetype i = 0; i < boxes.size(); ++i) {
        boxes.at(i)->setToolTip(m_flags.at(i).toolTip);
        boxes.at(i)->setWhatsThis(m_flags.at(i).whatsThis);
    }
    if (isViewInstalled())
        updateViewInvocation().schedule();
}

void ZelInspectorFlagsProperty::updateView()
{
    if (isUpdatingValues() || !m_flow)
        return;
    const QVariant value = reducedValue();
    adaptOptionsTo(value);
    const Bits bits = bitsOfObjects();
    const bool hasValue =
        bits.isKnown && (!ZelIsControllerMarker(value) || ZelIsMarker(value, ZelMultipleValuesMarker));
    const bool isEnabled = hasValue && isEditable() && isWritable() && isEffectivelyEnabled();
    const QList<ZelCheckBox *> boxes = checkboxes();
    for (qsizetype i = 0; i < boxes.size(); ++i) {
        const Qt::CheckState state = hasValue ? bits.stateOf(m_flags.at(i)) : Qt::Unchecked;
        boxes.at(i)->setObjectValue(state == Qt::PartiallyChecked ? QVariant::fromValue(ZelMultipleValuesMarker)
                                                                  : QVariant(state == Qt::Checked));
        boxes.at(i)->setEnabled(isEnabled && m_flags.at(i).enabled);
    }
}

void ZelInspectorFlagsProperty::toggle(ZelCheckBox *box)
{
    const qsizetype index = checkboxes().indexOf(box);
    if (index < 0)
        return;
    if (box->checkState() == Qt::PartiallyChecked)
        box->setCheckState(Qt::Checked);
    writeFlag(m_flags.at(index).value, box->checkState() == Qt::Checked, box);
}

QWidget *ZelInspectorFlagsProperty::viewForBaselineAlignment()
{
    view();
    return m_flow;
}

/// The boxes have names of their own; assistive technology finds the row's name at what holds them.
QList<QWidget *> ZelInspectorFlagsProperty::controlsNamedByRow()
{
    view();
    return {m_flow};
}
