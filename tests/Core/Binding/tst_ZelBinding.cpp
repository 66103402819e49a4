// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelTextField.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Support/EditorOwner.h"
#include "Support/Person.h"
#include "Support/Reports.h"
#include <QTest>
#include <QtWidgets>
#include <memory>

namespace {
struct OneWay : ZelAbstractValueTransformer
{
    QVariant transformedValue(const QVariant &value) const override { return value; }
};
} // namespace

class tst_ZelBinding : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aControlFollowsTheModelAndWritesBack()
    {
        Person person;
        QWidget window;
        ZelUndoManager manager;
        ZelUndoManager::setForWindow(&window, &manager);
        QCheckBox box(&window);
        ZelBind(&box, ZelValueBinding, &person, "active");
        window.show();
        QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
        QVERIFY(person.isActive());
        manager.undo();
        QVERIFY(!box.isChecked());
        ZelUnbind(&box, ZelValueBinding);
        person.setActive(true);
        QVERIFY(!box.isChecked()); // it keeps its last value
        QVERIFY(!ZelInfoForBinding(&box, ZelValueBinding));
        QPushButton button;
        ZelBind(&button, ZelValueBinding, &person, "active");
        button.click(); // which has nothing to write
        QVERIFY(person.isActive());
        button.setCheckable(true);
        button.setChecked(true);
        button.click();
        QVERIFY(!person.isActive());
        QSlider slider(Qt::Horizontal);
        person.setName("three");
        ZelBind(&slider, ZelValueBinding, &person, "nameLength"); // can only be read
        const Reports reports;
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(reports.messages.size(), 1);
        QCOMPARE(slider.value(), 5);
    }

    void editableIsWhatCanBeWrittenBack()
    {
        ZelAbstractValueTransformer::setValueTransformer(QSharedPointer<OneWay>::create(), "one way");
        const std::tuple<QString, QString, bool> rows[]{{"height", "", true},
                                                        {"nameLength", "", false},
                                                        {"frame.x", "", true},
                                                        {"active", ZelNegateBooleanTransformerName, true},
                                                        {"height", "one way", false}};
        for (const auto &[key, transformer, isEditable] : rows) {
            Person person;
            person.setActive(true);
            EditorOwner owner;
            ZelTextField field, hidden;
            QWidget enabled;
            const auto bind = [&, path = QString("people.selection." + key), name = transformer](auto &to,
                                                                                                 const auto &option) {
                ZelBind(&to, ZelValueBinding, &owner, path,
                        {{ZelValueTransformerNameBindingOption, name}, {option, true}});
            };
            bind(field, ZelConditionallySetsEditableBindingOption);
            bind(hidden, ZelHidesIfReadOnlyBindingOption);
            ZelBind(&enabled, ZelEnabledBinding, &owner, "people.selection.active");
            QVERIFY(!field.isEditable() && !hidden.isHidden()); // no selection
            QVERIFY(!enabled.isEnabled());                      // which cannot show markers
            QVERIFY(!transformer.isEmpty() || ZelIsMarker(field.objectValue(), ZelNoSelectionMarker));
            owner.controller.setSelectedObjects({&person});
            QCOMPARE(field.isEditable(), isEditable);
            QCOMPARE(hidden.isHidden(), !isEditable);
            QVERIFY(enabled.isEnabled());
        }
    }

    void aReplacedOrFailedBindingLeavesNothing()
    {
        Person first("first"), second("second");
        ZelTextField field;
        ZelBind(&field, ZelValueBinding, &first, "name");
        ZelBind(&field, ZelValueBinding, &second, "name");
        QCOMPARE(field.text(), "second");
        QCOMPARE(ZelInfoForBinding(&field, ZelValueBinding)->observedObject.data(), &second);
        QVERIFY_EXCEPTION_THROWN(ZelBind(&field, "flavour", &first, "name"), ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(ZelBind(&field, ZelEnabledBinding, &first, "flavour"), ZelUndefinedKeyException);
        QVERIFY(!ZelInfoForBinding(&field, ZelEnabledBinding));
        QVERIFY(!ZelIsObserved(&first, "name"));
    }

    void eitherSideMayDieAlsoInTheMiddle()
    {
        auto person = std::make_unique<Person>();
        auto field = std::make_unique<ZelTextField>();
        ZelBind(field.get(), ZelValueBinding, person.get(), "name");
        person.reset();
        field->show();
        field->setFocus();
        QTest::keyClicks(field.get(), "x");
        field->commitEditing();
        Person survivor;
        ZelBind(field.get(), ZelValueBinding, &survivor, "name");
        connect(&survivor, &Person::nameChanged, &survivor, [&] { field.reset(); });
        survivor.setName("y");
        QVERIFY(!field);
        QVERIFY(!ZelIsObserved(&survivor, "name"));
    }
};
QTEST_MAIN(tst_ZelBinding)
#include "tst_ZelBinding.moc"
