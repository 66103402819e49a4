// SPDX-License-Identifier: MIT
#include "Controls/private/ZelControlAccessibility.h"

#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelRangeControl.h"
#include "Controls/ZelLabel.h"
#include "Controls/private/ZelCellGroupAccessible.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelPopUpMenuAccessible.h"
#include "Core/Values/ZelValues.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QAccessibleWidget>
#include <cmath>

namespace {

/// The number as people say it. A fraction is rounded to seven digits, which hides the noise of single precision.
QString textForNumber(double value, const QLocale &locale)
{
    const double rounded = value == std::trunc(value) ? value : QString::number(value, 'g', 7).toDouble();
    return locale.toString(rounded, 'g', QLocale::FloatingPointShortest);
}

/// The base of the interfaces, which knows the type of its control.
template<typename Control> class ControlInterface : public QAccessibleWidget
{
public:
    explicit ControlInterface(Control *control, QAccessible::Role role)
        : QAccessibleWidget(control, role)
    {
    }
    QString text(QAccessible::Text kind) const override
    {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Description ? ZelControlHelp::description(control(), text) : text;
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

/// A stepper or a slider. A value that assistive technology sets is reported like any edit.
class RangeInterface : public ControlInterface<ZelRangeControl>, public QAccessibleValueInterface
{
public:
    explicit RangeInterface(ZelRangeControl *control)
        : ControlInterface(control, control->accessibleRole())
    {
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return ControlInterface::interface_cast(type);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = ControlInterface::state();
        state.disabled = state.disabled || !control()->isEditable();
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? spokenValue() : ControlInterface::text(kind);
    }

    /// The value; absent if there is no single one.
    QVariant currentValue() const override
    {
        return control()->hasSingleValue() ? QVariant(control()->doubleValue()) : QVariant();
    }
    void setCurrentValue(const QVariant &value) override
    {
        if (control()->isEnabled() && control()->isEditable())
            ZelExceptionReporter::run(control(), [&] { control()->goToValue(value.toDouble()); });
    }
    QVariant maximumValue() const override { return control()->maxValue(); }
    QVariant minimumValue() const override { return control()->minValue(); }
    QVariant minimumStepSize() const override { return control()->increment(); }

private:
    QString spokenValue() const
    {
        const QVariant value = currentValue();
        return value.isValid() ? textForNumber(value.toDouble(), control()->locale())
                               : ZelControlSupport::markerText(control()->objectValue());
    }
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
        {QStringLiteral("ZelRangeControl"),
         [](QObject *o) -> QAccessibleInterface * { return new RangeInterface(static_cast<ZelRangeControl *>(o)); }},
        {QStringLiteral("ZelPopUpButton"),
         [](QObject *o) -> QAccessibleInterface * {
             return new PopUpButtonInterface(static_cast<ZelPopUpButton *>(o));
         }},
        {QStringLiteral("ZelGrowingTextField"),
         [](QObject *o) -> QAccessibleInterface * {
             return new GrowingTextFieldInterface(static_cast<ZelGrowingTextField *>(o));
         }},
        // What Qt makes of it as well, but only after it has compared many names; and it makes one of every widget that
        // is shown.
        {QStringLiteral("ZelView"),
         [](QObject *o) -> QAccessibleInterface * { return new QAccessibleWidget(static_cast<QWidget *>(o)); }},
    };
    if (QAccessibleInterface *cells = ZelCellGroupAccessible::make(object))
        return cells;
    if (QAccessibleInterface *menu = ZelPopUpMenuAccessible::make(object))
        return menu;
    const Make make = table.value(className);
    return make && object && object->isWidgetType() ? make(object) : nullptr;
}

} // namespace

void ZelRegisterControlAccessibility()
{
    QAccessible::installFactory(interfaceOf);
}
