// SPDX-License-Identifier: MIT
#include "Controls/Cells/ZelSegmentedControl.h"
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

#include "ControlPanel.h"
#include "Support/Recorder.h"
#include "Support/Reports.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace {

using Make = QWidget *(*)();

template<typename Widget> QWidget *make()
{
    auto *widget = new Widget;
    if constexpr (std::is_same_v<Widget, QComboBox>)
        widget->addItems({"a", "b"});
    return widget;
}

} // namespace

class tst_ZelControlAccessors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysReadWriteAndTell()
    {
        const QString title("R&D budget");
        struct Row
        {
            Make make;
            const char *key;
            QVariant value;
            bool tells = true;
        };
        const Row rows[] = {{make<ZelTextField>, "value", 5},
                            {make<ZelGrowingTextField>, "value", "x"},
                            {make<ZelCheckBox>, "value", true},
                            {make<ZelCheckBox>, "title", title, false},
                            {make<ZelPushButton>, "title", title, false},
                            {make<ZelCheckBox>, "editable", false},
                            {make<ZelPopUpButton>, "value", 3},
                            {make<ZelLabel>, "value", "x"},
                            {make<ZelLabel>, "title", "x"},
                            {make<ZelStepper>, "value", 5.5},
                            {make<ZelStepper>, "minValue", 1},
                            {make<ZelStepper>, "increment", 2.5, false},
                            {make<ZelSlider>, "value", 0.5},
                            {make<ZelSlider>, "maxValue", 100.0},
                            {make<ZelSegmentedControl>, "selectedIndex", 1},
                            {make<QWidget>, "enabled", false},
                            {make<QLabel>, "value", "x", false},
                            {make<QPushButton>, "title", title, false},
                            {make<QLineEdit>, "value", "x"},
                            {make<QSpinBox>, "value", 7},
                            {make<QSpinBox>, "maxValue", 1000, false},
                            {make<QDoubleSpinBox>, "value", 1.5},
                            {make<QSlider>, "value", 42},
                            {make<QComboBox>, "value", "b"},
                            {make<QComboBox>, "selectedIndex", 1},
                            {make<QComboBox>, "contentValues", QVariantList{1, "b"}, false}};
        for (const Row &row : rows) {
            const std::unique_ptr<QWidget> widget(row.make());
            const TableRow inRow(QString("%1 of %2").arg(row.key, widget->metaObject()->className()));
            QVERIFY(!ZelEqual(ZelValueForKey(widget.get(), row.key), row.value));
            if (QByteArray(widget->metaObject()->className()).startsWith("Zel"))
                QCOMPARE(widget->focusPolicy() == Qt::StrongFocus, !widget->inherits("ZelLabel"));
            Recorder recorder;
            if (row.tells)
                ZelAddObserver(widget.get(), &recorder, row.key, {}, nullptr);
            const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(widget.get(), row.key);
            QVERIFY(accessor && accessor->write(widget.get(), row.value));
            const QVariant read = ZelValueForKey(widget.get(), row.key);
            QVERIFY(ZelEqual(read, row.value) || read.toStringList() == row.value.toStringList());
            if (const auto *button = qobject_cast<QAbstractButton *>(widget.get()))
                QVERIFY(button->shortcut().isEmpty()); // titles have no mnemonics
            QCOMPARE(recorder.count() > 0, row.tells);
            if (row.tells)
                ZelRemoveObserver(widget.get(), &recorder, row.key, nullptr);
        }
    }

    void hiddenFollowsTheWidgetNotItsWindow()
    {
        QWidget window;
        QWidget child(&window);
        Recorder recorder;
        ZelAddObserver(&child, &recorder, "hidden", {}, nullptr);
        ZelSetValueForKey(&child, true, "hidden");
        QCOMPARE(ZelValueForKey(&child, "hidden"), QVariant(true));
        window.show();
        QVERIFY(child.isHidden());
        QCOMPARE(recorder.count(), 1);
        child.show();
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(ZelValueForKey(&child, "hidden"), QVariant(false));

        // Qt hides widgets in its own events as well, which nothing may be thrown through.
        const Reports reports;
        recorder.react = [] { throw ZelGenericException("an observer's"); };
        child.hide();
        QCOMPARE(reports.messages, QStringList("an observer's"));
        recorder.react = nullptr;
        ZelRemoveObserver(&child, &recorder, "hidden", nullptr);
        child.setParent(nullptr);
    }

    void onlyControlsForThemTakeMarkers()
    {
        for (const Make make : {make<ZelTextField>, make<ZelGrowingTextField>, make<ZelCheckBox>, make<ZelPopUpButton>,
                                make<ZelStepper>, make<ZelSlider>, make<ZelLabel>}) {
            const std::unique_ptr<QWidget> control(make());
            const bool isLabel = qobject_cast<ZelLabel *>(control.get());
            const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(control.get(), "value");
            QVERIFY(accessor->takesMarkers() && (accessor->editSignalIndex() < 0) == isLabel);
            QVERIFY(accessor->write(control.get(), several()));
            QCOMPARE(accessor->read(control.get()), isLabel ? QVariant("Multiple Values") : several());
            control->grab();
        }
        QPushButton button;
        QVERIFY(!ZelPropertyAccessor::find(&button, "value")->takesMarkers());
        ZelSlider slider;
        slider.setMaxValue(50);
        for (const QVariant &noNumber : {QVariant(), several(), QVariant("wide")})
            QVERIFY(!ZelPropertyAccessor::find(&slider, "maxValue")->write(&slider, noNumber));
        QCOMPARE(slider.maxValue(), 50.0);
    }

    void assistiveTechnologySees()
    {
        ZelLabel label("Width");
        QAccessibleInterface *labelInterface = QAccessible::queryAccessibleInterface(&label);
        QCOMPARE(labelInterface->role(), QAccessible::StaticText);
        QCOMPARE(labelInterface->text(QAccessible::Name), "Width");
        ZelPopUpButton button;
        button.addItem(new QAction("&Choice", &button));
        button.setSelectedIndex(0);
        button.setAccessibleName("Kind");
        QAccessibleInterface *popUp = QAccessible::queryAccessibleInterface(&button);
        QCOMPARE(popUp->role(), QAccessible::ComboBox);
        QCOMPARE(popUp->text(QAccessible::Name), "Kind");
        QCOMPARE(popUp->text(QAccessible::Value), "Choice");
    }
};

QTEST_MAIN(tst_ZelControlAccessors)
#include "tst_ZelControlAccessors.moc"
