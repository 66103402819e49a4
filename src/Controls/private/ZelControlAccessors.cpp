// SPDX-License-Identifier: MIT
#include "Controls/private/ZelControlAccessors.h"

#include "Controls/Fields/ZelComboBox.h"
#include "Controls/Fields/ZelDatePicker.h"
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Fields/ZelGrowingTextView.h"
#include "Controls/Fields/ZelGrowingTokenField.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelRangeControl.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelLabel.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelTitleText.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/Values/ZelValues.h"

#include <QAction>
#include <QComboBox>
#include <QIcon>
#include <QLabel>
#include <QPixmap>
#include <QSpinBox>

namespace {

bool truth(const QVariant &value)
{
    return !ZelIsNull(value) && !ZelIsControllerMarker(value) && value.toBool();
}

QString text(const QVariant &value)
{
    return ZelIsNull(value) || ZelIsControllerMarker(value) ? QString() : value.toString();
}

QIcon icon(const QVariant &value)
{
    if (value.canConvert<QIcon>())
        return value.value<QIcon>();
    return value.canConvert<QPixmap>() ? QIcon(value.value<QPixmap>()) : QIcon();
}

QString titleOfButton(const QAbstractButton *button)
{
    return ZelTitleText::toTitle(button->text());
}

void setTitleOfButton(QAbstractButton *button, const QString &title)
{
    button->setText(ZelTitleText::fromTitle(title));
}

void setTitleOfAction(QAction *action, const QString &title)
{
    if (auto *item = qobject_cast<ZelMenuItem *>(action))
        item->setTitle(title);
    else
        action->setText(ZelTitleText::fromTitle(title));
}

template<typename Class>
ZelFunctionAccessor<Class> &add(const char *key, typename ZelFunctionAccessor<Class>::Read read,
                                typename ZelFunctionAccessor<Class>::Write write)
{
    auto accessor = std::make_unique<ZelFunctionAccessor<Class>>(std::move(read), std::move(write));
    ZelFunctionAccessor<Class> &added = *accessor;
    ZelPropertyAccessor::registerAccessor(&Class::staticMetaObject, key, std::move(accessor));
    return added;
}

/// Adds a property with a read and a write function. What is set is converted first.
template<typename Class, typename Get, typename Convert, typename Set>
ZelFunctionAccessor<Class> &add(const char *key, Get get, Convert convert, Set set)
{
    return add<Class>(
        key, [get](const Class *object) { return QVariant::fromValue(std::invoke(get, object)); },
        [convert, set](Class *object, const QVariant &value) {
            std::invoke(set, object, convert(value));
            return true;
        });
}

/// Adds a property that is a number. What is no number does not change it.
template<typename Number, typename Class, typename Get, typename Set>
ZelFunctionAccessor<Class> &addNumber(const char *key, Get get, Set set)
{
    return add<Class>(
        key, [get](const Class *object) { return QVariant(std::invoke(get, object)); },
        [set](Class *object, const QVariant &value) {
            bool ok = !ZelIsControllerMarker(value);
            const Number number = ok ? qvariant_cast<Number>(QVariant(value.toDouble(&ok))) : Number();
            if (ok)
                std::invoke(set, object, number);
            return ok;
        });
}

/// Adds the value of a control that shows selection markers.
template<typename Control> void addObjectValue()
{
    add<Control>(
        "value", [](const Control *control) { return control->objectValue(); },
        [](Control *control, const QVariant &value) {
            control->setObjectValue(value);
            return true;
        })
        .setNotify(&Control::objectValueChanged)
        .setEdit(&Control::valueEdited)
        .setTakesMarkers();
}

void addRange()
{
    using Control = ZelRangeControl;
    addObjectValue<Control>();
    addNumber<double, Control>("minValue", &Control::minValue, &Control::setMinValue)
        .setNotify(&Control::limitsChanged);
    addNumber<double, Control>("maxValue", &Control::maxValue, &Control::setMaxValue)
        .setNotify(&Control::limitsChanged);
    addNumber<double, Control>("increment", &Control::increment, &Control::setIncrement);
}

void addControls()
{
    addObjectValue<ZelTextField>();
    addObjectValue<ZelGrowingTextField>();
    addObjectValue<ZelGrowingTextView>();
    addObjectValue<ZelGrowingTokenField>();
    addObjectValue<ZelCheckBox>();
    addObjectValue<ZelPopUpButton>();
    addObjectValue<ZelDatePicker>();
    addObjectValue<ZelComboBox>();
    addRange();
    const auto labelText = [](const QVariant &value) {
        return ZelIsControllerMarker(value) ? ZelControlSupport::markerText(value) : text(value);
    };
    for (const char *key : {"value", "title"})
        add<ZelLabel>(key, &ZelLabel::text, labelText, &ZelLabel::setText)
            .setNotify(&ZelLabel::textChanged)
            .setTakesMarkers();
}

void addWidgets()
{
    add<QWidget>("hidden", &QWidget::isHidden, truth, &QWidget::setHidden)
        .setEvents({QEvent::ShowToParent, QEvent::HideToParent});
    add<QWidget>("enabled", &QWidget::isEnabled, truth, &QWidget::setEnabled).setEvents({QEvent::EnabledChange});
    for (const char *key : {"value", "title"})
        add<QLabel>(key, &QLabel::text, text, &QLabel::setText);
    add<QLabel>(
        "image", [](const QLabel *label) { return label->pixmap(); },
        [](const QVariant &value) {
            return value.canConvert<QPixmap>() ? value.value<QPixmap>() : icon(value).pixmap(256);
        },
        &QLabel::setPixmap);

    add<QAbstractButton>("title", titleOfButton, text, setTitleOfButton);
    add<QAbstractButton>("image", &QAbstractButton::icon, icon, &QAbstractButton::setIcon);
    add<QAbstractButton>("value", &QAbstractButton::isChecked, truth, &QAbstractButton::setChecked)
        .setNotify(&QAbstractButton::toggled)
        .setEdit(&QAbstractButton::clicked);

    add<QLineEdit>("value", &QLineEdit::text, text, &QLineEdit::setText)
        .setNotify(&QLineEdit::textChanged)
        .setEdit(&QLineEdit::editingFinished);
}

void addActions()
{
    add<QAction>(
        "hidden", [](const QAction *action) { return !action->isVisible(); }, truth,
        [](QAction *action, bool hidden) { action->setVisible(!hidden); })
        .setNotify(&QAction::visibleChanged);
    add<QAction>("title", &ZelMenuItem::titleOf, text, setTitleOfAction).setNotify(&QAction::changed);
    add<QAction>("image", &QAction::icon, icon, &QAction::setIcon).setNotify(&QAction::changed);
}

/// Adds limits, step and value of one of Qt's controls for numbers.
template<typename Number, typename Control> void addQtRange()
{
    addNumber<Number, Control>("minValue", &Control::minimum, &Control::setMinimum);
    addNumber<Number, Control>("maxValue", &Control::maximum, &Control::setMaximum);
    addNumber<Number, Control>("increment", &Control::singleStep, &Control::setSingleStep);
    addNumber<Number, Control>("value", &Control::value, &Control::setValue)
        .setNotify(&Control::valueChanged)
        .setEdit(&Control::valueChanged);
}

QVariantList contentValues(const QComboBox *box)
{
    QVariantList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->itemText(i));
    return texts;
}

QStringList textsOf(const QVariant &values)
{
    QStringList texts;
    const QVariantList list = ZelList(values);
    for (const QVariant &value : list)
        texts.append(text(value));
    return texts;
}

void setContentValues(QComboBox *box, const QVariant &values)
{
    const QSignalBlocker blocker(box);
    const QString current = box->currentText();
    box->clear();
    box->addItems(textsOf(values));
    box->setCurrentIndex(box->findText(current));
    if (box->isEditable())
        box->setEditText(current);
}

void setComboBoxText(QComboBox *box, const QString &string)
{
    const int index = box->findText(string);
    box->setCurrentIndex(index);
    if (box->isEditable())
        box->setEditText(string);
}

void addComboBox()
{
    add<ZelComboBox>("contentValues", &ZelComboBox::contentValues, textsOf, &ZelComboBox::setContentValues);
    addNumber<int, QComboBox>("selectedIndex", &QComboBox::currentIndex, &QComboBox::setCurrentIndex)
        .setNotify(&QComboBox::currentIndexChanged)
        .setEdit(&QComboBox::activated);
    add<QComboBox>("value", &QComboBox::currentText, text, setComboBoxText)
        .setNotify(&QComboBox::currentTextChanged)
        .setEdit(&QComboBox::textActivated);
    add<QComboBox>(
        "contentValues", contentValues, [](const QVariant &value) { return value; }, setContentValues);
}

} // namespace

void ZelRegisterControlAccessors()
{
    addControls();
    addWidgets();
    addActions();
    addQtRange<int, QAbstractSlider>();
    addQtRange<int, QSpinBox>();
    addQtRange<double, QDoubleSpinBox>();
    addComboBox();
}
