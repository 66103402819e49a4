// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBarButton.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "FigureWindow.h"
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/Properties/ZelUnitNumberFormatter.h"
#include "Layout/ZelConstraintLayout.h"

namespace {

using Number = ZelInspectorNumberProperty;
using String = ZelInspectorStringProperty;
using TextEnumeration = ZelInspectorTextEnumerationProperty;
using ImageEnumeration = ZelInspectorImageEnumerationProperty;
using Array = ZelInspectorArrayProperty;

ZelOptionGroup *group(const QList<std::pair<QString, QVariant>> &options)
{
    auto *group = new ZelOptionGroup;
    QList<ZelOption *> list;
    for (const auto &[title, value] : options) {
        list.append(new ZelOption(group));
        list.last()->title = title;
        list.last()->value = value;
    }
    group->setOptions(list);
    return group;
}

template<typename Editor> void setUpMask(Editor *property)
{
    property->setBitMask(0x0C);
    property->setOptionGroups({group({{"none", 0}, {"four", 4}}), group({{"eight", 8}})});
}

void setUpLists(TextEnumeration *property)
{
    property->setEnumeratedValuesKeyPath("values");
    property->setEnumeratedDisplayValuesKeyPath("names");
}

/// The titles of the menu, of which hidden ones have a question mark.
QString titles(const TextEnumeration *property)
{
    QStringList titles;
    for (const ZelMenuItem *item : property->menuItems())
        titles << (item->isSeparator() ? "-" : QString(item->title() + (item->isHidden() ? "?" : "")));
    return titles.join(u'|');
}

void setUpNumber(Number *property)
{
    property->formatUnit = " pt";
    property->minimum = 0;
    property->maximum = 100;
}

void selectRows(const Array *editor, const QList<int> &rows)
{
    editor->tableView()->clearSelection();
    for (int row : rows)
        editor->tableView()->selectionModel()->select(editor->tableView()->model()->index(row, 0),
                                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

} // namespace

/// What a description and a user do not reach in the editors of texts, numbers, choices, lists and actions.
class tst_ValueProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void units()
    {
        ZelUnitNumberFormatter formatter;
        formatter.setUnit(" pt");
        const std::pair<const char *, QVariant> rows[] = {
            {"14pt", 14.0}, {"14 pt", 14.0}, {"  14 ", 14.0}, {"pt", {}}, {"14 mm", "refused"}};
        for (const auto &[text, value] : rows) {
            QVariant parsed;
            QString error;
            QCOMPARE(formatter.objectValueForString(text, &parsed, &error) ? parsed : "refused", value);
        }
        QCOMPARE(formatter.stringForObjectValue(12), "12 pt");
        QCOMPARE(formatter.editingStringForObjectValue(12), "12");
        QCOMPARE(formatter.unitRange("12 pt").start, 2);
        QVERIFY(formatter.stringForObjectValue(QVariant()).isEmpty());
    }

    void stepsStopAtTheLimits()
    {
        FigureWindow window;
        window.first.setHeight(99.5);
        auto *property = window.edit<Number>("height", setUpNumber);
        window.select({&window.first});
        ZelStepper *stepper = property->stepper();
        QTest::mouseClick(stepper, Qt::LeftButton, {}, {stepper->width() / 2, stepper->height() / 4});
        QCOMPARE(window.first.height(), 100.0);
        QCOMPARE(property->textField()->objectValue(), 100.0);
        QCOMPARE(window.steps(), 1);
        property->textField()->clearFocus();
        QCOMPARE(property->textField()->text(), "100 pt");
        window.first.byte = 254;
        property = window.edit<Number>("byte", [](Number *made) { made->increment = 10; });
        property->stepper()->stepBy(1);
        QCOMPARE(window.first.byte, uchar(255)); // and at what the property takes
        property->stepper()->stepBy(-26);
        QCOMPARE(window.first.byte, uchar(0));
        QCOMPARE(property->textField()->text(), "0");
    }

    void noNumberIsACheckbox()
    {
        for (const bool offWhenNil : {true, false}) {
            FigureWindow window;
            window.owner->extra = 17;
            auto *property = window.edit<Number>("note", [&](Number *made) {
                made->nonNilValueTitle = "Has note";
                made->nonNilValueKeyPath = "extra";
                made->nilValueControlIsOffWhenNil = offWhenNil;
            });
            window.select({&window.first});
            ZelCheckBox *box = property->nonNillCheckbox();
            QCOMPARE(box->isChecked(), !offWhenNil);
            QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
            QCOMPARE(window.first.note(), 17);
            QCOMPARE(property->textField()->objectValue(), 17);
            window.second.setNote(3);
            window.select({&window.first, &window.second});
            QCOMPARE(box->checkState(), Qt::PartiallyChecked);
            window.select({&window.first});
            QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
            QVERIFY(!window.first.note().isValid());
        }
    }

    void numbersWithASlider()
    {
        FigureWindow window;
        Failures failures;
        window.edit<Number>("height", [](Number *made) {
            made->sliderType = Number::CircularSlider;
            made->maximum.reset();
        });
        window.edit<Number>("height", [](Number *made) { made->sliderType = 9; });
        const QString place = "Inspector/Properties/ZelInspectorNumberProperty: ";
        QCOMPARE(failures.taken(), QStringList({place + "Missing minimum value for number property with slider",
                                                place + "Unexpected case"}));
        const auto plain = window.make<Number>("height"), other = window.make<Number>("height"),
                   linear = window.make<Number>("height"), nilable = window.make<Number>("height");
        linear->sliderType = Number::LinearSlider;
        nilable->nonNilValueTitle = "Has";
        QVERIFY(plain->canTileIntoColumnsWithProperty(other.get()));
        QVERIFY(plain->canTileIntoColumnsWithWidth(400) && !plain->canTileIntoColumnsWithWidth(40));
        QVERIFY(!linear->canTileIntoColumnsWithWidth(4000));
        QVERIFY(!nilable->canTileIntoColumnsWithProperty(other.get()));
    }

    void noTextIsEmptyOrNone()
    {
        const QVariant absent, unset = QString(), empty = "";
        for (const auto &[allowsNil, entered] :
             {std::pair(false, absent), {false, unset}, {false, empty}, {true, absent}, {true, empty}}) {
            FigureWindow window;
            auto *property =
                window.edit<String>("name", [allows = allowsNil](String *made) { made->allowsNilValues = allows; });
            window.first.setName("Ada");
            window.select({&window.first});
            property->textField()->setObjectValue(entered);
            property->userDidChangeValue(nullptr);
            QVERIFY(window.first.name().isEmpty());
            QCOMPARE(window.first.name().isNull(), allowsNil);
        }
    }

    void theFixedItemsFollowTheValue()
    {
        FigureWindow window;
        window.first.setFlags(4);
        auto *property = window.edit<TextEnumeration>("flags", setUpMask<TextEnumeration>);
        QCOMPARE(titles(property), "none|four|-|eight|-|No Selection|Multiple Values?");
        window.select({&window.first, &window.second});
        QCOMPARE(titles(property), "none|four|-|eight|-|No Selection?|Multiple Values");
        QVERIFY(property->popUpButton()->isEnabled());
        window.select({&window.first});
        QVERIFY(property->separatorMenuItem()->isHidden());
        window.first.setFlags(0x0C); // no option stands for it
        QTRY_COMPARE(property->popUpButton()->selectedItem(), property->noSelectionMenuItem());
        QVERIFY(property->popUpButton()->isEnabled());
    }

    void choicesFollowTheOwnersLists()
    {
        FigureWindow window;
        window.owner->values = {1, 2};
        window.owner->names = {"one", "two"};
        auto *property = window.edit<TextEnumeration>("flags", setUpLists);
        const QString fixed = "-|No Selection|Multiple Values?";
        QCOMPARE(titles(property), "one|two|" + fixed);
        window.owner->values = {1, 2, 3};
        Q_EMIT window.owner->valuesChanged();
        QCOMPARE(titles(property), fixed); // lists of different lengths give nothing
        window.owner->names = {"one", "two", 3};
        Q_EMIT window.owner->valuesChanged();
        QCOMPARE(titles(property), "one|two||" + fixed);
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::red);
        window.owner->names = {QIcon(pixmap), pixmap, pixmap.toImage()};
        property = window.edit<TextEnumeration>("flags", setUpLists);
        for (int value : {1, 2, 3})
            QVERIFY(!property->menuItemForValue(value)->icon().isNull());
    }

    void groupsAndOptionsMayGoWhileTheyAreShown()
    {
        FigureWindow window;
        ZelOptionGroup *first = group({{"one", 1}, {"two", 2}});
        auto second = std::unique_ptr<ZelOptionGroup>(group({{"three", 3}}));
        auto *property = window.edit<TextEnumeration>("flags", [&](TextEnumeration *made) {
            made->setOptionGroups({first, second.get()});
        });
        const QString fixed = "-|No Selection|Multiple Values?";
        delete first->options().first();
        property->rebuildView();
        QCOMPARE(titles(property), "two|-|three|" + fixed);
        second.reset();
        property->rebuildView();
        QCOMPARE(titles(property), "two|" + fixed);
        QCOMPARE(property->optionGroups(), QList<ZelOptionGroup *>({first}));
        delete first;
        // Even one that takes the place of a dead group in memory is another one.
        auto *follower = new ZelOptionGroup(property);
        follower->enumeratedValuesKeyPath = "values";
        property->setOptionGroups({follower});
        QVERIFY(ZelIsObserved(window.owner.get(), "values"));
        QCOMPARE(titles(property), fixed);
        property->setOptionGroups({});
        QVERIFY(!ZelIsObserved(window.owner.get(), "values"));
    }

    void segments()
    {
        FigureWindow window;
        window.first.setFlags(0x15);
        auto *property = window.edit<ImageEnumeration>("flags", setUpMask<ImageEnumeration>);
        ZelSegmentedControl *control = property->segmentedControl();
        QVERIFY(ZelIsMarker(property->selectedIndex(), ZelNoSelectionMarker));
        window.select({&window.first});
        QCOMPARE(control->selectedIndex(), 1);
        QVERIFY_EXCEPTION_THROWN(property->segmentForValue(77), ZelInternalInconsistencyException);
        QCOMPARE(property->representedObjects(), QVariantList({0, 4, 8}));
        QCOMPARE(property->titles().value(2), "eight");
        QVERIFY(ZelIsNull(property->images().value(0)));
        connect(&window.first, &Person::flagsChanged, this, [&] { window.first.setFlags(4); });
        QTest::mouseClick(control, Qt::LeftButton, {}, control->segmentRect(2).center());
        QTRY_COMPARE(control->selectedIndex(), 1); // as the model made of it
    }

    void actions()
    {
        FigureWindow window;
        QAction first("First");
        auto second = std::make_unique<QAction>("Second");
        window.owner->values = {QVariant::fromValue<QObject *>(&first), QVariant::fromValue<QObject *>(second.get())};
        const auto *menu = window.edit<ZelInspectorMenuActionProperty>("", [](auto *made) {
            made->setTitle("Arrange");
            made->menuItemsKeyPath = "values";
        });
        QCOMPARE(menu->popUpButton()->actions().size(), 3);
        QCOMPARE(ZelMenuItem::titleOf(menu->popUpButton()->actions().first()), "Arrange");
        window.owner->values.removeLast();
        Q_EMIT window.owner->valuesChanged();
        QTRY_COMPARE(menu->popUpButton()->actions().size(), 2);
        second.reset();
        const auto *action =
            window.edit<ZelInspectorActionProperty>("", [](auto *made) { made->setEnabledKeyPath("unlocked"); });
        QTest::mouseClick(action->button(), Qt::LeftButton);
        QCOMPARE(window.owner->actions, 1);
        window.owner->setUnlocked(false);
        QTest::mouseClick(action->button(), Qt::LeftButton);
        QCOMPARE(window.owner->actions, 1);
    }

    void listsAreEditedByTheirMethods()
    {
        FigureWindow window;
        window.first.tags = QStringList{"a", "b", "c", "d", "e"};
        auto *editor = window.edit<Array>("tags");
        QVERIFY(ZelIsMarker(editor->reflectedValues(), ZelNoSelectionMarker));
        window.select({&window.first, &window.second});
        QCOMPARE(editor->tableView()->accessibleDescription(), "Multiple Values");
        editor->addObject(nullptr);
        editor->removeObject(nullptr);
        editor->setObjectValueForRow("x", 0);
        QCOMPARE(window.second.tags, QStringList({"a", "b"}));
        QCOMPARE(window.owner->actions + window.steps(), 0);
        window.select({&window.first});
        selectRows(editor, {3, 0, 4});
        editor->removeObject(nullptr);
        QCOMPARE(window.first.tags, QStringList({"b", "c"}));
        FigureWindow::settle();
        QCOMPARE(editor->objectValueForRow(1), "c");
        QVERIFY(!editor->objectValueForRow(2).isValid());
        editor->defaultValue = "more";
        editor->addObject(nullptr);
        editor->addObject(nullptr); // before the model's change was shown
        QCOMPARE(window.first.tags, QStringList({"b", "c", "more", "more"}));
        FigureWindow::settle();
        editor->tableView()->clearSelection();
        const ZelUndoGrouping grouping(&window.undoManager);
        editor->removeObject(nullptr); // nothing, which is still an action
        QCOMPARE(window.first.tags.size(), 4);
        QCOMPARE(window.undoManager.actionName(), "Change");
        QCOMPARE(window.owner->actions, 4);
    }

    void listsForgetTheirDead()
    {
        FigureWindow window;
        auto mortal = std::make_unique<QObject>();
        window.first.setNote(QVariantList{QVariant::fromValue(mortal.get())});
        auto *editor = window.edit<Array>("note");
        window.select({&window.first});
        const QModelIndex cell = editor->tableView()->model()->index(0, 0);
        const QString living = cell.data().toString();
        QVERIFY(living.startsWith("<QObject"));
        mortal.reset(); // which nobody tells
        QVERIFY(cell.data().toString() != living);
        QVERIFY(!ZelObject(editor->objectValueForRow(0)));
    }

    void anObjectWithoutAListGetsOne()
    {
        FigureWindow window;
        auto *editor = window.edit<Array>("note");
        window.select({&window.first, &window.second});
        QVERIFY(ZelIsNull(editor->reflectedValues()));
        editor->removeObject(nullptr);
        QCOMPARE(window.first.note(), QVariant());
        QVERIFY(editor->addActionItem()->isEnabled());
        for (int count : {0, 1}) {
            editor->addObject(nullptr);
            FigureWindow::settle();
            QCOMPARE(window.first.note(), QVariantList(count + 1, "Item"));
            QCOMPARE(window.second.note(), window.first.note());
            QCOMPARE(window.owner->actions, count); // nobody is told of the first one
        }
        window.first.setNote({});
        window.select({&window.first});
        editor->setObjectValueForRow("first", 7);
        QCOMPARE(window.first.note(), QVariantList{"first"});
    }

    void theListsButtonsFollowTableAndSelection()
    {
        FigureWindow window;
        auto *editor = window.edit<Array>("tags", [](Array *made) { made->setEnabledKeyPath("unlocked"); });
        window.select({&window.first});
        const auto enabled = [editor] {
            return std::pair(editor->addActionItem()->isEnabled(), editor->removeActionItem()->isEnabled());
        };
        QCOMPARE(enabled(), std::pair(true, false));
        selectRows(editor, {1});
        QCOMPARE(enabled(), std::pair(true, true));
        QVERIFY(editor->actionBar()->itemViews().at(1)->isEnabled());
        window.first.setProperty("tags", QStringList{"a"});
        QTRY_COMPARE(enabled(), std::pair(true, false)); // with the row
        selectRows(editor, {0});
        window.owner->setUnlocked(false);
        QTRY_COMPARE(enabled(), std::pair(false, false));
        window.owner->setUnlocked(true);
        QTRY_VERIFY(editor->addActionItem()->isEnabled());
        QTest::keyClick(editor->tableView(), Qt::Key_A); // the user does something: the bar leaves the items alone
        QTest::qWait(150);
        QCOMPARE(enabled(), std::pair(true, true));

        QWidget *view = editor->viewForBaselineAlignment(); // its label stands beside the first row
        const double baseline =
            ZelConstraintLayout::baselineOffset(view, view->height()) + editor->baselineOffsetFromView();
        const QTableView *table = editor->tableView();
        const QRect row = table->visualRect(table->model()->index(0, 0));
        const double middle = table->viewport()->mapTo(view, row.center()).y();
        QVERIFY2(baseline > middle && baseline < middle + row.height() / 2.0, qPrintable(QString::number(baseline)));
        QCOMPARE(table->height(), 64);
        QCOMPARE(editor->actionBar()->height(), 16);
    }
};

QTEST_MAIN(tst_ValueProperties)
#include "tst_ValueProperties.moc"
