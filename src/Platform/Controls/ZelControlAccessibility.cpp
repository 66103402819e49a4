// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelControlAccessibility.h"

#include "Platform/Controls/ZelCellGroupAccessible.h"
#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelGrowingTextField.h"
#include "Platform/Controls/ZelLabel.h"
#include "Platform/Controls/ZelMenuItem.h"
#include "Platform/Controls/ZelPopUpButton.h"
#include "Platform/Controls/ZelSlider.h"
#include "Platform/Controls/ZelStepper.h"
#include "Platform/Runtime/ZelValues.h"

#include <QAccessibleWidget>
#include <cmath>

namespace {

/// A number as people say it, without the noise that single precision leaves behind its seventh digit.
QString textForNumber(double value, const QLocale &locale)
{
    const double rounded = value == std::trunc(value) ? value : QString::number(value, 'g', 7).toDouble();
    return locale.toString(rounded, 'g', QLocale::FloatingPointShortest);
}

/// The interface of one of our controls, whose static type is known.
template<typename Control> class ControlInterface : public QAccessibleWidget
{
public:
    explicit ControlInterface(Control *control, QAccessible::Role role)
        : QAccessibleWidget(control, role)
    {
    }

protected:
    Control *control() const { return static_cast<Control *>(widget()); }
};

class LabelInterface : public ControlInterface<ZelLabel>
{
public:
    explicit LabelInterface(ZelLabel *label)
        : ControlInterface(label, QAccessible::StaticText)
    {
    }
    QString text(QAccessible::Text kind) const override
    {
        const QString text = ControlInterface::text(kind);
        return text.isEmpty() && kind == QAccessible::Name ? control()->text() : text;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = ControlInterface::state();
        state.readOnly = true;
        return state;
    }
};

/// A stepper or a slider; what assistive technology sets is reported like any edit.
template<typename Control> class RangeInterface : public ControlInterface<Control>, public QAccessibleValueInterface
{
public:
    RangeInterface(Control *control, QAccessible::Role role, void (*edit)(Control *, double))
        : ControlInterface<Control>(control, role)
        , m_edit(edit)
    {
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return ControlInterface<Control>::interface_cast(type);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = ControlInterface<Control>::state();
        state.disabled = state.disabled || !this->control()->isEditable();
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? spokenValue() : ControlInterface<Control>::text(kind);
    }

    /// Absent where there is no single value.
    QVariant currentValue() const override
    {
        const Control *control = this->control();
        const QVariant value = control->objectValue();
        return ZelIsNull(value) || ZelIsControllerMarker(value) ? QVariant() : QVariant(control->doubleValue());
    }
    void setCurrentValue(const QVariant &value) override
    {
        if (this->control()->isEnabled() && this->control()->isEditable())
            ZelExceptionReporter::run(this->control(), [&] { m_edit(this->control(), value.toDouble()); });
    }
    QVariant maximumValue() const override { return this->control()->maxValue(); }
    QVariant minimumValue() const override { return this->control()->minValue(); }
    QVariant minimumStepSize() const override { return this->control()->increment(); }

private:
    QString spokenValue() const
    {
        const QVariant value = currentValue();
        return value.isValid() ? textForNumber(value.toDouble(), this->control()->locale())
                               : ZelControlSupport::markerText(this->control()->objectValue());
    }

    void (*m_edit)(Control *, double);
};

class PopUpButtonInterface : public ControlInterface<ZelPopUpButton>
{
public:
    explicit PopUpButtonInterface(ZelPopUpButton *button)
        : ControlInterface(button, button->pullsDown() ? QAccessible::ButtonMenu : QAccessible::ComboBox)
    {
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return control()->spokenText();
        const QString text = ControlInterface::text(kind);
        return text.isEmpty() && kind == QAccessible::Name && control()->pullsDown() ? control()->shownText() : text;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = ControlInterface::state();
        state.hasPopup = true;
        state.expanded = control()->isMenuOpen();
        state.collapsed = !state.expanded;
        state.disabled = state.disabled || !control()->isEditable();
        return state;
    }
    QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + ControlInterface::actionNames();
    }
    void doAction(const QString &name) override
    {
        if (name == showMenuAction() || name == pressAction())
            ZelExceptionReporter::run(control(), [this] { control()->showMenu(); });
        else
            ControlInterface::doAction(name);
    }
};

class GrowingTextFieldInterface : public ControlInterface<ZelGrowingTextField>
{
public:
    explicit GrowingTextFieldInterface(ZelGrowingTextField *field)
        : ControlInterface(field, QAccessible::EditableText)
    {
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? control()->text() : ControlInterface::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = ControlInterface::state();
        state.multiLine = true;
        state.selectableText = true;
        state.editable = control()->isEditable();
        state.readOnly = !control()->isEditable();
        return state;
    }
};

QAccessibleInterface *interfaceOf(const QString &className, QObject *object)
{
    using Make = QAccessibleInterface *(*)(QObject *);
    static const QHash<QString, Make> table = {
        {QStringLiteral("ZelLabel"),
         [](QObject *o) -> QAccessibleInterface * { return new LabelInterface(static_cast<ZelLabel *>(o)); }},
        {QStringLiteral("ZelStepper"),
         [](QObject *o) -> QAccessibleInterface * {
             return new RangeInterface<ZelStepper>(
                 static_cast<ZelStepper *>(o), QAccessible::SpinBox, [](ZelStepper *stepper, double value) {
                     const double step = stepper->increment();
                     stepper->stepBy(step == 0 ? 0 : int((value - stepper->doubleValue()) / step));
                 });
         }},
        {QStringLiteral("ZelSlider"),
         [](QObject *o) -> QAccessibleInterface * {
             auto *slider = static_cast<ZelSlider *>(o);
             const bool dial = slider->sliderType() == ZelSlider::Circular;
             return new RangeInterface<ZelSlider>(slider, dial ? QAccessible::Dial : QAccessible::Slider,
                                                  [](ZelSlider *s, double value) { s->slideTo(value); });
         }},
        {QStringLiteral("ZelPopUpButton"),
         [](QObject *o) -> QAccessibleInterface * {
             return new PopUpButtonInterface(static_cast<ZelPopUpButton *>(o));
         }},
        {QStringLiteral("ZelGrowingTextField"),
         [](QObject *o) -> QAccessibleInterface * {
             return new GrowingTextFieldInterface(static_cast<ZelGrowingTextField *>(o));
         }},
    };
    if (QAccessibleInterface *cells = ZelCellGroupAccessible::make(object))
        return cells;
    const Make make = table.value(className);
    return make && object && object->isWidgetType() ? make(object) : nullptr;
}

} // namespace

void ZelRegisterControlAccessibility()
{
    QAccessible::installFactory(interfaceOf);
}
