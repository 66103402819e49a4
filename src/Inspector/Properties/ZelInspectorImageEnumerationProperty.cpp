// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"

#include "Controls/ZelControlSize.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

ZelInspectorImageEnumerationProperty::ZelInspectorImageEnumerationProperty(QObject *owner)
    : ZelInspectorEnumerationProperty(owner)
{
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
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_segmentedControl);
    if (m_segmentedControl) {
        ZelObservations(this).addBindingWithObject(m_segmentedControl, ZelSelectedIndexBinding, this, "selectedIndex",
                                                   {}, &ZelInstalledContext);
    }
    observeForUpdate(keyPath());
    updateView();
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

qsizetype ZelInspectorImageEnumerationProperty::findSegment(const QVariant &value) const
{
    const auto choice = std::find_if(m_choices.begin(), m_choices.end(),
                                     [&](const Choice &known) { return ZelEqual(known.value, value); });
    return choice == m_choices.end() ? -1 : choice - m_choices.begin();
}

QString ZelInspectorImageEnumerationProperty::textForValue(const QVariant &value) const
{
    const QString title = m_choices.value(findSegment(value)).title;
    return title.isEmpty() ? ZelInspectorEnumerationProperty::textForValue(value) : oneLine(title);
}

qsizetype ZelInspectorImageEnumerationProperty::segmentForValue(const QVariant &value) const
{
    const qsizetype segment = findSegment(value);
    if (segment < 0)
        ZelFail(QStringLiteral("Unsupported value found: %1").arg(ZelDescription(value)));
    return segment;
}

QVariantList ZelInspectorImageEnumerationProperty::listOf(QVariant (*part)(const Choice &)) const
{
    QVariantList list;
    for (const Choice &choice : m_choices)
        list.append(part(choice));
    return list;
}

QVariantList ZelInspectorImageEnumerationProperty::titles() const
{
    return listOf([](const Choice &choice) { return choice.title.isNull() ? ZelNull() : QVariant(choice.title); });
}

QVariantList ZelInspectorImageEnumerationProperty::images() const
{
    return listOf([](const Choice &choice) { return choice.image.isNull() ? ZelNull() : QVariant(choice.image); });
}

QVariantList ZelInspectorImageEnumerationProperty::enabledFlags() const
{
    return listOf([](const Choice &choice) { return QVariant(choice.enabled); });
}

QVariantList ZelInspectorImageEnumerationProperty::representedObjects() const
{
    return listOf([](const Choice &choice) { return choice.value.isValid() ? choice.value : ZelNull(); });
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
    adaptOptionsTo(value);
    const bool isMarker = ZelIsControllerMarker(value);
    const bool isUnknown = !isMarker && !ZelIsNull(value) && findSegment(value) < 0;
    if (m_segmentedControl)
        m_segmentedControl->setEditable((!isMarker || ZelIsMarker(value, ZelMultipleValuesMarker)) && isWritable());
    const QPointer<ZelInspectorImageEnumerationProperty> alive(this);
    setSelectedIndex(isMarker ? value : ZelIsNull(value) || isUnknown ? QVariant() : QVariant(findSegment(value)));
    if (!alive)
        return;
    showImage();
    reportUnknown(isUnknown ? value : QVariant());
}

/// No segment is shown as chosen now. A panel is not given up because of what a model holds. The editor is shown anew
/// for many reasons; the value is reported once.
void ZelInspectorImageEnumerationProperty::reportUnknown(const QVariant &value)
{
    const QString text = value.isValid() ? ZelDescription(value) : QString();
    if (std::exchange(m_reportedValue, text) != text && !text.isNull())
        ZelExceptionReporter::run(this, [&] { segmentForValue(value); });
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
    if (!m_segmentedControl)
        return;
    const QVariant chosen = m_segmentedControl->selectedIndex();
    const QPointer<ZelInspectorImageEnumerationProperty> alive(this);
    setSelectedIndex(chosen); // the control shows it already, so what the model makes of it must differ from it
    if (alive)
        writeChoice(valueForSegment(chosen.toLongLong()), sender);
}

QWidget *ZelInspectorImageEnumerationProperty::viewForBaselineAlignment()
{
    view();
    return m_segmentedControl ? static_cast<QWidget *>(m_segmentedControl) : m_imageView;
}
