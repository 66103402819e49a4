// SPDX-License-Identifier: MIT
#include "Core/Binding/ZelBinding.h"

#include "Controls/Fields/ZelTextField.h"
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/Values/ZelValues.h"
#include "Support/EditorOwner.h"
#include "Support/Person.h"
#include "Support/Reports.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSlider>
#include <QTest>
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
        QSlider slider(Qt::Horizontal);
        slider.setRange(0, 100);
        ZelBind(&slider, ZelValueBinding, &person, "height");
        person.setHeight(40);
        QCOMPARE(slider.value(), 40);
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
    }

    void aButtonThatCannotBeCheckedHasNothingToWrite()
    {
        Person person;
        person.setActive(true);
        QPushButton button;
        ZelBind(&button, ZelValueBinding, &person, "active");
        button.click();
        QVERIFY(person.isActive());
        button.setCheckable(true);
        button.setChecked(true);
        button.click();
        QVERIFY(!person.isActive());
    }

    void editableIsWhatCanBeWrittenBack_data()
    {
        QTest::addColumn<QString>("keyPath");
        QTest::addColumn<QString>("transformer");
        QTest::addColumn<bool>("isEditable");
        const QString oneWay = QStringLiteral("tst_ZelBinding one way");
        QTest::newRow("written") << "people.selection.height" << QString() << true;
        QTest::newRow("no setter") << "people.selection.nameLength" << QString() << false;
        QTest::newRow("part of a value") << "people.selection.frame.x" << QString() << true;
        QTest::newRow("reversible") << "people.selection.active" << ZelNegateBooleanTransformerName << true;
        QTest::newRow("not reversible") << "people.selection.height" << oneWay << false;
    }
    void editableIsWhatCanBeWrittenBack()
    {
        ZelAbstractValueTransformer::setValueTransformer(QSharedPointer<OneWay>::create(),
                                                         QStringLiteral("tst_ZelBinding one way"));
        QFETCH(QString, keyPath);
        QFETCH(QString, transformer);
        QFETCH(bool, isEditable);
        Person person;
        EditorOwner owner;
        ZelTextField field;
        ZelTextField hidden;
        const ZelBindingOptions options{{ZelValueTransformerNameBindingOption, transformer}};
        const auto with = [&](const QString &option) {
            ZelBindingOptions result = options;
            result.insert(option, true);
            return result;
        };
        ZelBind(&field, ZelValueBinding, &owner, keyPath, with(ZelConditionallySetsEditableBindingOption));
        ZelBind(&hidden, ZelValueBinding, &owner, keyPath, with(ZelHidesIfReadOnlyBindingOption));
        QVERIFY(!field.isEditable() && !hidden.isHidden()); // no selection
        owner.controller.setSelectedObjects({&person});
        QCOMPARE(field.isEditable(), isEditable);
        QCOMPARE(hidden.isHidden(), !isEditable);
    }

    void aValueThatCannotBeReversedIsWrittenWithAWarning()
    {
        Person person;
        ZelTextField field;
        const ZelValueTransformerPtr transformer = QSharedPointer<OneWay>::create();
        ZelBind(&field, ZelValueBinding, &person, "name",
                {{ZelValueTransformerBindingOption, QVariant::fromValue(transformer)}});
        field.setText(QStringLiteral("Ada"));
        QTest::ignoreMessage(QtWarningMsg,
                             "WARNING: binding \"value\" has value transformer, but it doesn't allow reverse "
                             "transformations in -[NSObject(ZelKeyValueBinding) setValue:forBinding:]");
        field.commitEditing();
        QCOMPARE(person.name(), QStringLiteral("Ada"));
    }

    void anEditThatTheModelRefusesIsReportedAndTakenBack()
    {
        Person person;
        QSlider slider(Qt::Horizontal);
        slider.setRange(0, 100);
        ZelBind(&slider, ZelValueBinding, &person, "nameLength"); // can only be read
        const Reports reports;
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(reports.messages.size(), 1);
        QCOMPARE(slider.value(), 0);
    }

    void transformersByInstanceAndByName()
    {
        Person person;
        QWidget widget;
        ZelBind(&widget, ZelHiddenBinding, &person, "active",
                {{ZelValueTransformerNameBindingOption, ZelNegateBooleanTransformerName}});
        QVERIFY(widget.isHidden());
        person.setActive(true);
        QVERIFY(!widget.isHidden());
        QWidget plain;
        ZelBind(&plain, ZelEnabledBinding, &person, "active",
                {{ZelValueTransformerNameBindingOption, QStringLiteral("nobody registered this")}});
        QVERIFY(plain.isEnabled());
        ZelUnbind(&widget, ZelHiddenBinding);
    }

    void markersGoOnlyWhereTheyCanBeShown()
    {
        EditorOwner owner;
        QWidget widget;
        ZelTextField field;
        ZelBind(&widget, ZelEnabledBinding, &owner, "people.selection.active");
        ZelBind(&field, ZelValueBinding, &owner, "people.selection.height",
                {{ZelConditionallySetsEditableBindingOption, true}});
        QVERIFY(!widget.isEnabled());
        QVERIFY(ZelIsMarker(field.objectValue(), ZelNoSelectionMarker));
        QVERIFY(!field.isEditable());
        Person person;
        person.setActive(true);
        owner.controller.setSelectedObjects({&person});
        QVERIFY(widget.isEnabled());
        QVERIFY(field.isEditable());
    }

    void aBindingOfTheSameNameIsReplaced()
    {
        Person first(QStringLiteral("first"));
        Person second(QStringLiteral("second"));
        ZelTextField field;
        ZelBind(&field, ZelValueBinding, &first, "name");
        ZelBind(&field, ZelValueBinding, &second, "name");
        QCOMPARE(field.text(), QStringLiteral("second"));
        QVERIFY(!ZelIsObserved(&first, "name"));
        QCOMPARE(ZelInfoForBinding(&field, ZelValueBinding)->observedObject.data(), &second);
    }

    void aFailedBindingLeavesNothing()
    {
        Person person;
        QWidget widget;
        QVERIFY_EXCEPTION_THROWN(ZelBind(&widget, QStringLiteral("flavour"), &person, "name"),
                                 ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(ZelBind(&widget, ZelEnabledBinding, &person, "flavour"), ZelUndefinedKeyException);
        QVERIFY(!ZelInfoForBinding(&widget, ZelEnabledBinding));
        QVERIFY(!ZelIsObserved(&person, "name"));
    }

    void eitherSideMayDieAlsoInTheMiddle()
    {
        auto person = std::make_unique<Person>();
        auto field = std::make_unique<ZelTextField>();
        ZelBind(field.get(), ZelValueBinding, person.get(), "name");
        person.reset();
        field->show();
        field->setFocus();
        QTest::keyClicks(field.get(), QStringLiteral("x"));
        field->commitEditing();
        field.reset();

        Person survivor;
        auto doomed = std::make_unique<ZelTextField>();
        ZelBind(doomed.get(), ZelValueBinding, &survivor, "name");
        connect(&survivor, &Person::nameChanged, &survivor, [&] { doomed.reset(); });
        survivor.setName(QStringLiteral("y"));
        QVERIFY(!doomed);
        QVERIFY(!ZelIsObserved(&survivor, "name"));
    }
};

QTEST_MAIN(tst_ZelBinding)
#include "tst_ZelBinding.moc"
