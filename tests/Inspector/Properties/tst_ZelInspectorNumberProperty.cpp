// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorNumberProperty.h"

#include "Controls/Fields/ZelTextField.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelCheckBox.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelUnitNumberFormatter.h"

class tst_ZelInspectorNumberProperty : public QObject
{
    Q_OBJECT

    static std::unique_ptr<ZelInspectorNumberProperty> heightEditor(EditorWindow &window)
    {
        auto property = std::make_unique<ZelInspectorNumberProperty>(window.owner.get());
        property->setKeyPath(QStringLiteral("people.selection.height"));
        property->setActionName(QStringLiteral("Change Height"));
        property->setActionSelector("noteAction");
        property->formatUnit = QStringLiteral(" pt");
        property->minimum = 0;
        property->maximum = 100;
        return property;
    }

private Q_SLOTS:
    void units_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("with unit") << "14pt" << QVariant(14.0);
        QTest::newRow("spaced") << "14 pt" << QVariant(14.0);
        QTest::newRow("blanks") << "  14 " << QVariant(14.0);
        QTest::newRow("unit alone") << "pt" << QVariant();
        QTest::newRow("other unit") << "14 mm" << QVariant(QStringLiteral("refused"));
    }
    void units()
    {
        QFETCH(QString, text);
        QFETCH(QVariant, value);
        ZelUnitNumberFormatter formatter;
        formatter.setUnit(QStringLiteral(" pt"));
        QVariant parsed;
        QString error;
        if (!formatter.objectValueForString(text, &parsed, &error))
            parsed = QStringLiteral("refused");
        QCOMPARE(parsed, value);
        QCOMPARE(formatter.stringForObjectValue(12), QStringLiteral("12 pt"));
        QCOMPARE(formatter.editingStringForObjectValue(12), QStringLiteral("12"));
        QCOMPARE(formatter.unitRange(QStringLiteral("12 pt")).start, 2);
        QVERIFY(formatter.stringForObjectValue(QVariant()).isEmpty());
    }

    void decimalsByStyle()
    {
        EditorWindow window;
        window.people[0]->setHeight(2.1256);
        auto *integer = window.install(heightEditor(window));
        window.select({0});
        QCOMPARE(integer->textField()->text(), QStringLiteral("2.126")); // it has the focus
        integer->textField()->clearFocus();
        QCOMPARE(integer->textField()->text(), QStringLiteral("2.126 pt"));
        auto decimal = heightEditor(window);
        decimal->formatStyle = ZelInspectorNumberProperty::DecimalStyle;
        auto *shown = window.install(std::move(decimal));
        shown->textField()->clearFocus();
        QCOMPARE(shown->textField()->text(), QStringLiteral("2.13 pt"));
    }

    void typingReachesEveryObjectInOneStep()
    {
        EditorWindow window;
        window.people[0]->setHeight(1);
        window.people[1]->setHeight(2);
        auto *property = window.install(heightEditor(window));
        QVERIFY(!property->textField()->isEditable());
        window.select({0, 1});
        QVERIFY(property->textField()->isEditable());
        QVERIFY(ZelIsMarker(property->textField()->objectValue(), ZelMultipleValuesMarker));
        property->textField()->setFocus();
        QTest::keyClicks(property->textField(), QStringLiteral("7 pt"));
        QCOMPARE(window.people[0]->height(), 1.0);
        QTest::keyClick(property->textField(), Qt::Key_Return);
        QCOMPARE(window.people[0]->height(), 7.0);
        QCOMPARE(window.people[1]->height(), 7.0);
        QCOMPARE(window.owner->actions, 1);
        QCOMPARE(window.undo.stack()->count(), 1);
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Change Height"));
        window.undo.undo();
        QCOMPARE(window.people[1]->height(), 2.0);
        QVERIFY(ZelIsMarker(property->textField()->objectValue(), ZelMultipleValuesMarker));
    }

    void textThatIsNoNumberNeverReachesTheModel()
    {
        EditorWindow window;
        window.people[0]->setHeight(3);
        auto *property = window.install(heightEditor(window));
        window.select({0});
        ZelTextField *field = property->textField();
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, QStringLiteral("tall"));
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(window.people[0]->height(), 3.0);
        QVERIFY(!field->errorText().isEmpty());
        QVERIFY(!property->commitEditing());
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(property->commitEditing());
        QCOMPARE(field->objectValue(), QVariant(3.0));
    }

    void aStepperClickAndItsLimit()
    {
        EditorWindow window;
        window.people[0]->setHeight(99.5);
        auto *property = window.install(heightEditor(window));
        window.select({0});
        ZelStepper *stepper = property->stepper();
        QTest::mouseClick(stepper, Qt::LeftButton, {}, {stepper->width() / 2, stepper->height() / 4});
        QCOMPARE(window.people[0]->height(), 100.0);
        QCOMPARE(property->textField()->objectValue(), QVariant(100.0));
        QCOMPARE(window.undo.stack()->count(), 1);
    }

    void aSliderDragIsOneUndoStep()
    {
        EditorWindow window;
        window.people[0]->setHeight(0);
        window.people[1]->setHeight(10);
        auto made = heightEditor(window);
        made->sliderType = ZelInspectorNumberProperty::LinearSlider;
        made->slidesInSteps = true;
        auto *property = window.install(std::move(made));
        window.select({0, 1});
        QCOMPARE(property->slider()->increment(), 1.0);
        ZelSlider *slider = property->slider();
        const int y = slider->height() / 2;
        QTest::mousePress(slider, Qt::LeftButton, {}, {6, y});
        for (int x = 6; x < slider->width() - 6; x += 5)
            QTest::mouseMove(slider, {x, y});
        QVERIFY(window.people[0]->height() > 10);
        QCOMPARE(window.undo.stack()->count(), 0);
        QTest::mouseRelease(slider, Qt::LeftButton, {}, {slider->width() - 6, y});
        QCOMPARE(window.undo.stack()->count(), 1);
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Change Height"));
        window.undo.undo();
        QCOMPARE(window.people[0]->height(), 0.0);
        QCOMPARE(window.people[1]->height(), 10.0);
        // Given up half way, it leaves no trace.
        QTest::mousePress(slider, Qt::LeftButton, {}, {slider->width() - 6, y});
        QVERIFY(window.people[0]->height() > 10);
        QTest::keyClick(slider, Qt::Key_Escape);
        QTest::mouseRelease(slider, Qt::LeftButton, {}, {slider->width() - 6, y});
        QCOMPARE(window.people[0]->height(), 0.0);
        QCOMPARE(window.people[1]->height(), 10.0);
        QVERIFY(window.undo.stack()->canRedo());
    }

    void noValueIsACheckbox_data()
    {
        QTest::addColumn<bool>("offWhenNil");
        QTest::newRow("off means none") << true;
        QTest::newRow("on means none") << false;
    }
    void noValueIsACheckbox()
    {
        QFETCH(bool, offWhenNil);
        EditorWindow window;
        window.owner->extra = 17;
        auto made = heightEditor(window);
        made->setKeyPath(QStringLiteral("people.selection.note"));
        made->nonNilValueTitle = QStringLiteral("Has note");
        made->nonNilValueKeyPath = QStringLiteral("extra");
        made->nilValueControlIsOffWhenNil = offWhenNil;
        auto *property = window.install(std::move(made));
        window.select({0});
        ZelCheckBox *box = property->nonNillCheckbox();
        QCOMPARE(box->isChecked(), !offWhenNil);
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QCOMPARE(window.people[0]->note(), QVariant(17));
        QCOMPARE(property->textField()->objectValue(), QVariant(17));
        window.people[1]->setNote(3);
        window.select({0, 1});
        QCOMPARE(box->checkState(), Qt::PartiallyChecked);
        window.select({0});
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QVERIFY(!window.people[0]->note().isValid());
    }

    void limitsAreRequiredWithASlider()
    {
        EditorWindow window;
        struct Handler : ZelAssertionHandler
        {
            QStringList messages;
            void handleFailure(const QString &, const QString &message, const ZelSourcePlace &) override
            {
                messages << message;
            }
        } handler;
        ZelAssertionHandler *former = ZelAssertionHandler::setCurrent(&handler);
        auto made = heightEditor(window);
        made->sliderType = ZelInspectorNumberProperty::CircularSlider;
        made->maximum.reset();
        window.install(std::move(made));
        auto unknown = heightEditor(window);
        unknown->sliderType = 9;
        window.install(std::move(unknown));
        ZelAssertionHandler::setCurrent(former);
        QCOMPARE(handler.messages, QStringList({QStringLiteral("Missing minimum value for number property with slider"),
                                                QStringLiteral("Unexpected case")}));
    }

    void tiling()
    {
        EditorWindow window;
        const auto plain = heightEditor(window);
        const auto other = heightEditor(window);
        auto linear = heightEditor(window);
        linear->sliderType = ZelInspectorNumberProperty::LinearSlider;
        auto nilable = heightEditor(window);
        nilable->nonNilValueTitle = QStringLiteral("Has");
        QVERIFY(plain->canTileIntoColumnsWithProperty(other.get()));
        QVERIFY(plain->canTileIntoColumnsWithWidth(400));
        QVERIFY(!plain->canTileIntoColumnsWithWidth(40));
        QVERIFY(!linear->canTileIntoColumnsWithWidth(4000));
        QVERIFY(!nilable->canTileIntoColumnsWithProperty(other.get()));
    }
};

QTEST_MAIN(tst_ZelInspectorNumberProperty)
#include "tst_ZelInspectorNumberProperty.moc"
