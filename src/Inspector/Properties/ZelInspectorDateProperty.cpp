// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorDateProperty.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Layout/ZelBaselineProvider.h"
#include "ViewController/ZelView.h"

#include <QStyle>
#include <QStyleOptionSpinBox>

namespace {

constexpr double g_baselineOffset = 6;

/// Takes part in alignment with a line g_baselineOffset above the baseline of its text, about the middle of its digits;
/// rows add that offset.
class AlignedDatePicker : public ZelDatePicker, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
public:
    using ZelDatePicker::ZelDatePicker;

    double baselineOffsetForHeight(double height) const override
    {
        QStyleOptionSpinBox option;
        initStyleOption(&option);
        option.rect = QRect(0, 0, width(), qRound(height));
        const QRect field = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, this);
        const QFontMetricsF metrics(font());
        return field.top() + (field.height() - metrics.height()) / 2 + metrics.ascent() - g_baselineOffset;
    }
};

} // namespace

ZelInspectorDateProperty::ZelInspectorDateProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

void ZelInspectorDateProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    placeholder = configuration.localizedStringValueNamed(u"placeholder");
}

void ZelInspectorDateProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_datePicker = new AlignedDatePicker(container);
    m_datePicker->setValueCheck([editor = QPointer<ZelInspectorDateProperty>(this)](const QVariant &value) {
        return editor ? editor->refusalOf(value) : QString();
    });
    ZelEditorLayout::setName(m_datePicker, title());
    ZelEditorLayout::setStretches(m_datePicker, 100);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    ZelEditorLayout::layOut(container, m_datePicker, m_label, {2, m_label ? 2.0 : 5.0, 0, 2});
    connect(m_datePicker, &ZelDatePicker::action, this, [this] { userDidChangeValue(m_datePicker); });
}

QString ZelInspectorDateProperty::textForValue(const QVariant &value) const
{
    const QString text = m_datePicker ? m_datePicker->textForDate(value) : QString();
    return text.isEmpty() ? ZelInspectorProperty::textForValue(value) : text;
}

void ZelInspectorDateProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_datePicker);
    observeForUpdate(keyPath());
    updateView();
}

void ZelInspectorDateProperty::updateView()
{
    if (!m_datePicker)
        return;
    const QVariant value = reflectedValue();
    const bool isMarker = ZelIsControllerMarker(value);
    m_datePicker->setEditable((!isMarker || ZelIsMarker(value, ZelMultipleValuesMarker)) && isWritable());
    m_datePicker->setButtonSymbols(isWritable() ? QDateTimeEdit::UpDownArrows : QDateTimeEdit::NoButtons);
    m_datePicker->setNullPlaceholder(isMarker ? ZelControlSupport::markerText(value) : placeholder);
    m_datePicker->setObjectValue(isMarker ? QVariant() : value);
}

void ZelInspectorDateProperty::userDidChangeValue(QObject *sender)
{
    if (!m_datePicker)
        return;
    const QVariant value = m_datePicker->objectValue();
    const QPointer<ZelInspectorDateProperty> alive(this);
    if (ZelEqual(value, reflectedValue()))
        return;
    setReflectedValue(value);
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}

QWidget *ZelInspectorDateProperty::viewForBaselineAlignment()
{
    view();
    return m_datePicker;
}

double ZelInspectorDateProperty::baselineOffsetFromView() const
{
    return g_baselineOffset;
}

#include "ZelInspectorDateProperty.moc"
