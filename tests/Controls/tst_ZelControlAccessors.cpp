// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelLabel.h"
#include "Controls/ZelPushButton.h"
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/Values/ZelValues.h"

#include "Support/Recorder.h"
#include "Support/Reports.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

using Make = std::function<QWidget *()>;
Q_DECLARE_METATYPE(Make)

class tst_ZelControlAccessors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void keysReadWriteAndTell_data();
    void keysReadWriteAndTell();
    void hiddenFollowsTheWidgetNotItsWindow();
    void controlsTakeMarkers();
    void absentLimitsChangeNothing();
    void assistiveTechnologySeesAndEdits();
};

void tst_ZelControlAccessors::keysReadWriteAndTell_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("tells");
    const auto row = [](const char *name, const Make &make, const char *key, const QVariant &value, bool tells = true) {
        QTest::newRow(name) << make << QString::fromLatin1(key) << value << tells;
    };
    const Make stepper = [] { return new ZelStepper; };
    const Make slider = [] { return new ZelSlider; };
    const Make spinBox = [] { return new QSpinBox; };
    const Make comboBox = [] {
        auto *box = new QComboBox;
        box->addItems({QStringLiteral("a"), QStringLiteral("b")});
        return box;
    };
    row(
        "text field", [] { return new ZelTextField; }, "value", 5);
    row(
        "growing text field", [] { return new ZelGrowingTextField; }, "value", QStringLiteral("x"));
    row(
        "check box", [] { return new ZelCheckBox; }, "value", true);
    row(
        "check box title", [] { return new ZelCheckBox; }, "title", QStringLiteral("R&D budget"), false);
    row(
        "push button title", [] { return new ZelPushButton; }, "title", QStringLiteral("R&D budget"), false);
    row(
        "check box editable", [] { return new ZelCheckBox; }, "editable", false);
    row(
        "pop-up button", [] { return new ZelPopUpButton; }, "value", 3);
    row(
        "label", [] { return new ZelLabel; }, "value", QStringLiteral("x"));
    row(
        "label title", [] { return new ZelLabel; }, "title", QStringLiteral("x"));
    row("stepper", stepper, "value", 5.5);
    row("stepper limit", stepper, "minValue", 1);
    row("stepper increment", stepper, "increment", 2.5, false);
    row("slider", slider, "value", 0.5);
    row("slider limit", slider, "maxValue", 100.0);
    row(
        "any widget", [] { return new QWidget; }, "enabled", false);
    row(
        "Qt label", [] { return new QLabel; }, "value", QStringLiteral("x"), false);
    row(
        "Qt button", [] { return new QPushButton; }, "title", QStringLiteral("R&D budget"), false);
    row(
        "Qt line edit", [] { return new QLineEdit; }, "value", QStringLiteral("x"));
    row("Qt spin box", spinBox, "value", 7);
    row("Qt spin box limit", spinBox, "maxValue", 1000, false);
    row(
        "Qt double spin box", [] { return new QDoubleSpinBox; }, "value", 1.5);
    row(
        "Qt slider", [] { return new QSlider; }, "value", 42);
    row("Qt combo box", comboBox, "value", QStringLiteral("b"));
    row("Qt combo box index", comboBox, "selectedIndex", 1);
    row("Qt combo box items", comboBox, "contentValues", QVariantList{1, QStringLiteral("b")}, false);
}

void tst_ZelControlAccessors::keysReadWriteAndTell()
{
    QFETCH(Make, make);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(bool, tells);
    const std::unique_ptr<QWidget> widget(make());
    QVERIFY(!ZelEqual(ZelValueForKey(widget.get(), key), value));
    Recorder recorder;
    if (tells)
        ZelAddObserver(widget.get(), &recorder, key, {}, nullptr);
    const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(widget.get(), key);
    QVERIFY(accessor && accessor->write(widget.get(), value));
    const QVariant read = ZelValueForKey(widget.get(), key);
    QVERIFY(ZelEqual(read, value) || read.toStringList() == value.toStringList());
    if (const auto *button = qobject_cast<QAbstractButton *>(widget.get()))
        QVERIFY(button->shortcut().isEmpty()); // titles have no mnemonics
    if (tells) {
        QVERIFY(recorder.count() > 0);
        ZelRemoveObserver(widget.get(), &recorder, key, nullptr);
    }
}

void tst_ZelControlAccessors::hiddenFollowsTheWidgetNotItsWindow()
{
    QWidget window;
    QWidget child(&window);
    Recorder recorder;
    ZelAddObserver(&child, &recorder, QStringLiteral("hidden"), {}, nullptr);
    ZelSetValueForKey(&child, true, "hidden");
    QCOMPARE(ZelValueForKey(&child, "hidden"), QVariant(true));
    window.show();
    QVERIFY(child.isHidden());
    const int count = recorder.count();
    QVERIFY(count > 0);
    child.show();
    QVERIFY(recorder.count() > count);
    QCOMPARE(ZelValueForKey(&child, "hidden"), QVariant(false));

    // Qt hides widgets in its own events as well, which nothing may be thrown through.
    const Reports reports;
    recorder.react = [] { throw ZelGenericException(QStringLiteral("an observer's")); };
    child.hide();
    QCOMPARE(reports.messages, QStringList(QStringLiteral("an observer's")));
    recorder.react = nullptr;
    ZelRemoveObserver(&child, &recorder, QStringLiteral("hidden"), nullptr);
    child.setParent(nullptr);
}

void tst_ZelControlAccessors::controlsTakeMarkers()
{
    const QVariant several = QVariant::fromValue(ZelMultipleValuesMarker);
    const QList<QWidget *> controls = {new ZelTextField,   new ZelGrowingTextField, new ZelCheckBox,
                                       new ZelPopUpButton, new ZelStepper,          new ZelSlider};
    for (QWidget *control : controls) {
        const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(control, "value");
        QVERIFY(accessor->takesMarkers());
        QVERIFY(accessor->editSignalIndex() >= 0);
        QVERIFY(accessor->write(control, several));
        QVERIFY(ZelIsMarker(accessor->read(control), ZelMultipleValuesMarker));
        control->resize(control->sizeHint());
        control->grab();
    }
    qDeleteAll(controls);
    ZelLabel label;
    ZelPropertyAccessor::find(&label, "value")->write(&label, several);
    QCOMPARE(label.text(), QStringLiteral("Multiple Values"));
    QPushButton button;
    QVERIFY(!ZelPropertyAccessor::find(&button, "value")->takesMarkers());
}

void tst_ZelControlAccessors::absentLimitsChangeNothing()
{
    ZelSlider slider;
    slider.setMaxValue(50);
    const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(&slider, "maxValue");
    QVERIFY(!accessor->write(&slider, {}));
    QVERIFY(!accessor->write(&slider, QVariant::fromValue(ZelMultipleValuesMarker)));
    QVERIFY(!accessor->write(&slider, QStringLiteral("wide")));
    QCOMPARE(slider.maxValue(), 50.0);
}

void tst_ZelControlAccessors::assistiveTechnologySeesAndEdits()
{
    ZelLabel label(QStringLiteral("Width"));
    QAccessibleInterface *labelInterface = QAccessible::queryAccessibleInterface(&label);
    QCOMPARE(labelInterface->role(), QAccessible::StaticText);
    QCOMPARE(labelInterface->text(QAccessible::Name), QStringLiteral("Width"));

    ZelPopUpButton button;
    button.addItem(new QAction(QStringLiteral("&Choice"), &button));
    button.setSelectedIndex(0);
    button.setAccessibleName(QStringLiteral("Kind"));
    QAccessibleInterface *popUp = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(popUp->role(), QAccessible::ComboBox);
    QCOMPARE(popUp->text(QAccessible::Name), QStringLiteral("Kind"));
    QCOMPARE(popUp->text(QAccessible::Value), QStringLiteral("Choice"));
}

QTEST_MAIN(tst_ZelControlAccessors)
#include "tst_ZelControlAccessors.moc"
