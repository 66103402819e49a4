// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
#include "Platform/Controls/ZelControlSize.h"
#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelValues.h"
#include "ViewController/ZelView.h"

namespace {
const char g_context = 0;
}

ZelInspectorImageEnumerationProperty::ZelInspectorImageEnumerationProperty(QObject *owner)
    : ZelInspectorEnumerationProperty(owner)
{
}

ZelInspectorImageEnumerationProperty::~ZelInspectorImageEnumerationProperty()
{
    uninstall();
}

void ZelInspectorImageEnumerationProperty::loadView()
{
    ZelView *container = makeEditorView();
    if (isEditable()) {
        m_segmentedControl = new ZelSegmentedControl;
        m_resizableSegmentedControlView = new ZelResizableSegmentedControlView(m_segmentedControl, container);
        ZelEditorLayout::setName(m_segmentedControl, title());
        connect(m_segmentedControl, &ZelSegmentedControl::action, this,
                [this] { userDidChangeValue(m_segmentedControl); });
    } else {
        m_imageView = new QLabel(container);
        m_imageView->setFixedHeight(ZelControlSize::imageSide);
        ZelEditorLayout::setName(m_imageView, title());
    }
    QWidget *control = isEditable() ? static_cast<QWidget *>(m_resizableSegmentedControlView) : m_imageView;
    ZelEditorLayout::setStretches(control, 1);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    // The control has room below its segments: the title overlaps it.
    ZelEditorLayout::layOut(container, control, m_label,
                            m_label ? ZelEditorLayout::Gaps{0, 0, -2, 2} : ZelEditorLayout::Gaps{0, 0, 0, 0});
}

void ZelInspectorImageEnumerationProperty::viewDidInstall()
{
    ZelInspectorEnumerationProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding, &g_context);
    bindEnabledKeyPathToControl(m_segmentedControl);
    if (m_segmentedControl) {
        ZelObservations(this).addBindingWithObject(m_segmentedControl, ZelSelectedIndexBinding, this, "selectedIndex",
                                                   {{ZelConditionallySetsEditableBindingOption, true}}, &g_context);
    }
    observeForUpdate(keyPath(), &g_context);
    updateView();
}

void ZelInspectorImageEnumerationProperty::viewWillUninstall()
{
    ZelInspectorEnumerationProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
}

void ZelInspectorImageEnumerationProperty::rebuildView()
{
    m_choices = ownChoices();
    for (const ZelOptionGroup *group : optionGroups())
        m_choices += choicesOfGroup(group);
    if (m_segmentedControl) {
        m_segmentedControl->setSegmentCount(m_choices.size());
        for (qsizetype i = 0; i < m_choices.size(); ++i) {
            const Choice &choice = m_choices.at(i);
            m_segmentedControl->setImage(i, choice.image);
            m_segmentedControl->setSegmentEnabled(i, choice.enabled);
            m_segmentedControl->setSegmentToolTip(i, choice.title);
        }
    }
    if (isViewInstalled())
        updateViewInvocation().schedule();
}

QVariant ZelInspectorImageEnumerationProperty::valueForSegment(qsizetype index) const
{
    return index >= 0 && index < m_choices.size() ? m_choices.at(index).value : QVariant();
}

qsizetype ZelInspectorImageEnumerationProperty::segmentForValue(const QVariant &value) const
{
    for (qsizetype i = 0; i < m_choices.size(); ++i) {
        if (ZelEqual(m_choices.at(i).value, value))
            return i;
    }
    ZelFail(QStringLiteral("Unsupported value found: %1").arg(ZelDescription(value)));
    return -1;
}

void ZelInspectorImageEnumerationProperty::setSelectedIndex(const QVariant &index)
{
    if (ZelEqual(index, m_selectedIndex))
        return;
    m_selectedIndex = index;
    Q_EMIT selectedIndexChanged();
}

void ZelInspectorImageEnumerationProperty::updateView()
{
    if (isUpdatingValues())
        return;
    const QVariant value = reducedValue();
    if (ZelIsNull(value)) {
        setSelectedIndex(QVariant());
    } else if (ZelIsControllerMarker(value)) {
        setSelectedIndex(value);
    } else {
        const qsizetype segment = segmentForValue(value);
        setSelectedIndex(segment < 0 ? QVariant() : QVariant(segment));
    }
    showImage();
}

void ZelInspectorImageEnumerationProperty::showImage()
{
    if (!m_imageView)
        return;
    const bool isIndex = ZelIsNumber(m_selectedIndex) && m_selectedIndex.toLongLong() < m_choices.size();
    const Choice choice = isIndex ? m_choices.at(m_selectedIndex.toLongLong()) : Choice();
    m_imageView->setPixmap(choice.image.pixmap(ZelControlSize::imageSize, m_imageView->devicePixelRatioF()));
    m_imageView->setToolTip(choice.title);
}

void ZelInspectorImageEnumerationProperty::userDidChangeValue(QObject *sender)
{
    if (m_segmentedControl)
        writeChoice(valueForSegment(m_segmentedControl->selectedIndex().toLongLong()), sender);
}

QWidget *ZelInspectorImageEnumerationProperty::viewForBaselineAlignment()
{
    view();
    return m_segmentedControl ? static_cast<QWidget *>(m_segmentedControl) : m_imageView;
}
