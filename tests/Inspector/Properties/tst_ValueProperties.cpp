// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Undo/ZelUndoManager.h"
#include "EndToEnd/FigureSheet.h"
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Support/Failures.h"
#include "Support/Reports.h"

namespace {
using Custom = ZelInspectorCustomProperty;
using Number = ZelInspectorNumberProperty;
using TextEnumeration = ZelInspectorTextEnumerationProperty;
using ImageEnumeration = ZelInspectorImageEnumerationProperty;
using Array = ZelInspectorArrayProperty;

const QByteArray g_mask =
    "bitMask='12'><option-group><option title='none' value='0'/><option title='four' value='4'/></option-group>"
    "<option-group><option title='eight' value='8'/></option-group>";
const QString g_fixedItems = "-|No Selection|Multiple Values?";

/// The titles of the menu, of which hidden ones have a question mark.
QString titles(const TextEnumeration *property)
{
    QStringList titles;
    for (const ZelMenuItem *item : property->menuItems())
        titles << (item->isSeparator() ? "-" : QString(item->title() + (item->isHidden() ? "?" : "")));
    return titles.join(u'|');
}

QByteArray list(const QByteArray &key)
{
    return Sheet::row(key, "custom", "class='ZelInspectorArrayProperty' enabledKeyPath='unlocked'");
}

void selectRows(const Array *editor, const QList<int> &rows)
{
    editor->tableView()->clearSelection();
    for (int row : rows)
        editor->tableView()->selectionModel()->select(editor->tableView()->model()->index(row, 0),
                                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

class Halving : public ZelAbstractValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override
    {
        return ZelIsControllerMarker(value) ? value : QVariant(value.toDouble() / 2);
    }
    QVariant reverseTransformedValue(const QVariant &value) const override { return value.toDouble() * 2; }
    bool allowsReverseTransformation() const override { return true; }
};

const QVariant g_none = QVariant::fromValue(ZelNoSelectionMarker);
const QVariant g_many = QVariant::fromValue(ZelMultipleValuesMarker);
} // namespace

/// What a user does not reach in the base of all editors, and in those of numbers, choices, lists and actions.
class tst_ValueProperties : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theOwnerIsRequired()
    {
        try {
            const Custom property(nullptr);
            QFAIL("no exception");
        } catch (const ZelInternalInconsistencyException &e) {
            QCOMPARE(QString(e.location() + u": " + e.reason()),
                     "Inspector/Properties/ZelInspectorProperty: Invalid parameter not satisfying: owner");
        }
    }

    void keyPathsAreSplitAtTheLastSelection()
    {
        const QString path = "a.selection.b.selection.c";
        QCOMPARE(Custom::selectionControllerKeyPathFromKeyPath(path), "a.selection.b");
        QCOMPARE(Custom::keyPathByStripingControllerSelectionPrefix(path), "c");
        QVERIFY(!Custom::keyPathHasControllerSelectionPrefix("selection.c"));
        const Custom property(this);
        QVERIFY_EXCEPTION_THROWN(property.representedObjectsForControllerSelectionKeyPath("name"),
                                 ZelInternalInconsistencyException);
    }

    void combining()
    {
        const std::pair<QVariantList, QVariant> rows[] = {
            {{}, g_none},        {{QVariant(), QVariant()}, {}}, {{1, 1.0}, 1},      {{1, 1, 2}, g_many},
            {{1, 2, 1}, g_many}, {{QVariant(), 1}, g_many},      {{1, g_none, 1}, 1}};
        for (const auto &[values, result] : rows) {
            QVariant combined = g_none;
            for (const QVariant &value : values)
                combined = Custom::combinedValueWithValue(value, combined);
            QVERIFY2(ZelEqual(combined, result), qPrintable(QDebug::toString(values)));
            QCOMPARE(combined.isValid(), result.isValid());
        }
    }

    void bits()
    {
        QVERIFY(!Custom::valueForValueBits(ZelNull(), 2).isValid());
        QCOMPARE(Custom::valueForValueBits(g_many, 2), g_many);
        QCOMPARE(Custom::valueForValueBits(6, 2), 1);
        QCOMPARE(Custom::valueForValueBits(5, 2), 0);
        QCOMPARE(Custom::valueForValueBits(1.9F, 2), 0);
        QCOMPARE(Custom::valueForValueBitMask(0x1F, 0x0C), 0x0CULL);
        QCOMPARE(Custom::valueForValueBitMask(5.7, 0x0F), 5ULL); // a fraction is cut off
        QCOMPARE(Custom::valueForValueBitMask(-1.5, 0x0F), 0x0FULL);
    }

    void eachObjectKeepsItsOwnValueOutsideTheEditedPart()
    {
        EditorOwner owner;
        Person people[3];
        for (int i = 0; i < 3; ++i)
            people[i].setHeight(QList<double>{10, 20, 6}[i]);
        const auto heights = [&] { return QList<double>{people[0].height(), people[1].height(), people[2].height()}; };
        owner.controller.setSelectedObjects({&people[0], &people[1], &people[2]});
        Custom property(&owner);
        property.setKeyPath("people.selection.height");
        property.setValueTransformer(QSharedPointer<Halving>::create());
        QVariantList seen;
        property.updateReflectedValues([&](const QVariant &old) {
            seen.append(old);
            return old.toDouble() < 4 ? old : QVariant(old.toDouble() + 1);
        });
        QCOMPARE(seen, QVariantList({5.0, 10.0, 3.0}));
        QCOMPARE(heights(), QList<double>({12, 22, 6}));
        property.setReflectedValue(8); // the forward conversion, for transformers that are their own inverse
        QCOMPARE(heights(), QList<double>({4, 4, 4}));
        property.setKeyPath("people.selection.frame.x");
        property.setValueTransformer(nullptr);
        QVERIFY_EXCEPTION_THROWN(property.updateReflectedValues([](const QVariant &) { return 1; }),
                                 ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(property.updateReflectedValues({}), ZelInternalInconsistencyException);
        property.setKeyPath("unlocked"); // the owner's own
        property.updateReflectedValues([](const QVariant &old) { return !old.toBool(); });
        QVERIFY(!owner.isUnlocked());
    }

    void stepsStopAtTheLimits()
    {
        Sheet window(Sheet::row("height", "number", "maximum='100' formatUnit=' pt'") +
                     Sheet::row("byte", "number", "minimum='-100' increment='10'"));
        window.set(0, "height", 99.5);
        window.set(0, "byte", 254);
        window.select({0});
        const auto *height = window.editor<Number>("height"), *byte = window.editor<Number>("byte");
        Sheet::click(height->stepper(), {height->stepper()->width() / 2, height->stepper()->height() / 4});
        QCOMPARE(window.value(0, "height"), 100.0);
        QCOMPARE(height->textField()->selectedText(), "100"); // which has the focus now, and shows what can be typed
        height->textField()->clearFocus();
        QCOMPARE(height->textField()->text(), "100 pt");
        byte->stepper()->stepBy(1);
        QCOMPARE(window.figures[0]->byte, uchar(255)); // and at what the property takes
        byte->stepper()->stepBy(-26);
        QCOMPARE(window.figures[0]->byte, uchar(0));
        QCOMPARE(byte->textField()->text(), "0");
        QCOMPARE(window.stack.count(), 3);
    }

    void noNumberIsACheckbox()
    {
        for (const bool offWhenNil : {true, false}) {
            Sheet window(Sheet::row("note", "number",
                                    QByteArray("nonNilValueTitle='Has' nonNilValueKeyPath='extra'") +
                                        (offWhenNil ? "" : " nilValueControlIsOffWhenNil='no'")));
            window.owner->extra = 17;
            window.set(1, "note", 3);
            window.select({0});
            ZelCheckBox *box = window.editor<Number>("note")->nonNillCheckbox();
            const auto toggle = [&] {
                Sheet::click(box, {8, box->height() / 2});
                return window.value(0, "note");
            };
            QCOMPARE(box->isChecked(), !offWhenNil);
            QCOMPARE(toggle(), 17);
            QCOMPARE(window.shown("note"), "17");
            window.select({0, 1});
            QCOMPARE(box->checkState(), Qt::PartiallyChecked);
            window.select({0});
            QVERIFY(!toggle().isValid());
        }
    }

    void numbersWithASlider()
    {
        Sheet window(Sheet::row("height", "number", "slider='circular'") + Sheet::row("flags", "number") +
                     Sheet::row("byte", "number") + Sheet::row("active", "number", "slider='linear'") +
                     Sheet::row("note", "number", "nonNilValueTitle='Has' nonNilValueKeyPath='extra'"));
        auto *plain = window.editor<Number>("flags"), *other = window.editor<Number>("byte");
        QVERIFY(plain->canTileIntoColumnsWithProperty(other));
        QVERIFY(plain->canTileIntoColumnsWithWidth(400) && !plain->canTileIntoColumnsWithWidth(40));
        QVERIFY(!window.editor<Number>("active")->canTileIntoColumnsWithWidth(4000));
        QVERIFY(!window.editor<Number>("note")->canTileIntoColumnsWithProperty(other));
        Failures failures;
        auto *circular = window.editor<Number>("height");
        circular->maximum.reset();
        circular->setKeyPath("people.selection.byte");
        Number unknown(window.owner.get());
        unknown.sliderType = 9;
        unknown.view();
        const QString place = "Inspector/Properties/ZelInspectorNumberProperty: ";
        QCOMPARE(failures.taken(), QStringList({place + "Missing minimum value for number property with slider",
                                                place + "Unexpected case"}));
    }

    void choicesFollowTheOwnersLists()
    {
        const Sheet window(Sheet::row("flags", "enumeration",
                                      "enumeratedValuesKeyPath='values' enumeratedDisplayValuesKeyPath='names'"));
        const auto *property = window.editor<TextEnumeration>("flags");
        const auto titlesOf = [&](const QVariantList &values, const QVariantList &names) {
            window.owner->values = values;
            window.owner->names = names;
            Q_EMIT window.owner->valuesChanged();
            return titles(property);
        };
        QCOMPARE(titlesOf({1, 2}, {"one", "two"}), "one|two|" + g_fixedItems);
        QCOMPARE(titlesOf({1, 2, 3}, {"one", "two"}), g_fixedItems); // of different lengths
        QCOMPARE(titlesOf({1, 2, 3}, {"one", "two", 3}), "one|two||" + g_fixedItems);
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::red);
        titlesOf({1, 2, 3}, {QIcon(pixmap), pixmap, pixmap.toImage()});
        for (int value : {1, 2, 3})
            QVERIFY(!property->menuItemForValue(value)->icon().isNull());
    }

    void groupsAndOptionsMayGoWhileTheyAreShown()
    {
        const Sheet window(Sheet::row("flags", "enumeration", g_mask));
        auto *property = window.editor<TextEnumeration>("flags");
        const QList<ZelOptionGroup *> groups = property->optionGroups();
        delete groups[0]->options().first();
        property->rebuildView();
        QCOMPARE(titles(property), "four|-|eight|" + g_fixedItems);
        delete groups[1];
        property->rebuildView();
        QCOMPARE(titles(property), "four|" + g_fixedItems);
        QCOMPARE(property->optionGroups(), groups.first(1));
        delete groups[0];
        // Even one that takes the place of a dead group in memory is another one.
        auto *follower = new ZelOptionGroup(property);
        follower->enumeratedValuesKeyPath = "values";
        property->setOptionGroups({follower});
        QVERIFY(ZelIsObserved(window.owner.get(), "values"));
        QCOMPARE(titles(property), g_fixedItems);
        property->setOptionGroups({});
        QVERIFY(!ZelIsObserved(window.owner.get(), "values"));
    }

    void segments()
    {
        Sheet window(Sheet::row("flags", "enumeration", "style='segmented' " + g_mask));
        Figure &figure = *window.figures[0];
        figure.setFlags(0x15);
        auto *property = window.editor<ImageEnumeration>("flags");
        ZelSegmentedControl *control = property->segmentedControl();
        QVERIFY(ZelIsMarker(property->selectedIndex(), ZelNoSelectionMarker));
        window.select({0});
        QCOMPARE(control->selectedIndex(), 1);
        QVERIFY_EXCEPTION_THROWN(property->segmentForValue(77), ZelInternalInconsistencyException);
        {
            const Reports reports; // a panel is not lost by what a model holds
            figure.setFlags(12);
            property->updateView();
            property->rebuildView();
            QCoreApplication::processEvents();
            QCOMPARE(reports.messages.size(), 1);
        }
        QVERIFY(ZelIsNull(property->selectedIndex()));
        figure.setFlags(0x15);
        QCOMPARE(property->representedObjects(), QVariantList({0, 4, 8}));
        QCOMPARE(property->titles().value(2), "eight");
        QVERIFY(ZelIsNull(property->images().value(0)));
        connect(&figure, &Person::flagsChanged, this, [&figure] { figure.setFlags(4); });
        Sheet::click(control, control->segmentRect(2).center());
        QCOMPARE(control->selectedIndex(), 1); // as the model made of it
    }

    void actions()
    {
        const Sheet window("<sliver title='Do'><property type='action' title='Arrange' menuItemsKeyPath='values'/>"
                           "<property type='action' title='Go' actionSelector='noteAction' enabledKeyPath='unlocked'/>"
                           "</sliver>");
        const auto *menu = window.inspector->findChild<ZelInspectorMenuActionProperty *>()->popUpButton();
        QAction first("First");
        auto second = std::make_unique<QAction>("Second");
        for (qsizetype count : {2, 1}) {
            window.owner->values = {QVariant::fromValue<QObject *>(&first),
                                    QVariant::fromValue<QObject *>(second.get())};
            window.owner->values.resize(count);
            Q_EMIT window.owner->valuesChanged();
            QTRY_COMPARE(menu->actions().size(), count + 1);
        }
        QCOMPARE(ZelMenuItem::titleOf(menu->actions().first()), "Arrange");
        second.reset();
        auto *button = window.inspector->findChild<ZelInspectorActionProperty *>()->button();
        for (const bool isUnlocked : {true, false}) {
            window.owner->setUnlocked(isUnlocked);
            Sheet::click(button);
            QCOMPARE(window.owner->actions, 1);
        }
    }

    void listsAreEditedByTheirMethods()
    {
        Sheet window(list("tags"));
        window.set(0, "tags", QStringList{"a", "b", "c", "d", "e"});
        auto *editor = window.editor<Array>("tags");
        const auto tags = [&] { return window.figures[0]->tags.join(u' '); };
        QVERIFY(ZelIsMarker(editor->reflectedValues(), ZelNoSelectionMarker));
        window.select({0, 1});
        QCOMPARE(editor->tableView()->accessibleDescription(), "Multiple Values");
        editor->addObject(nullptr);
        editor->removeObject(nullptr);
        editor->setObjectValueForRow("x", 0);
        QCOMPARE(window.figures[1]->tags, QStringList({"a", "b"}));
        QCOMPARE(window.owner->actions + window.stack.count(), 0);
        window.select({0});
        selectRows(editor, {3, 0, 4});
        editor->removeObject(nullptr);
        QCOMPARE(tags(), "b c");
        Sheet::settle();
        QCOMPARE(editor->objectValueForRow(1), "c");
        QVERIFY(!editor->objectValueForRow(2).isValid());
        editor->defaultValue = "more";
        editor->addObject(nullptr);
        editor->addObject(nullptr); // before the model's change was shown
        QCOMPARE(tags(), "b c more more");
        Sheet::settle();
        editor->tableView()->clearSelection();
        ZelUndoManager *manager = ZelUndoManager::forWidget(&window);
        const ZelUndoGrouping grouping(manager);
        editor->removeObject(nullptr); // nothing, which is still an action
        QCOMPARE(tags(), "b c more more");
        QCOMPARE(manager->actionName(), "Change tags");
        QCOMPARE(window.owner->actions, 4);
    }

    void anObjectWithoutAListGetsOne()
    {
        Sheet window(list("note"));
        auto *editor = window.editor<Array>("note");
        window.select({0, 1});
        QVERIFY(ZelIsNull(editor->reflectedValues()));
        editor->removeObject(nullptr);
        QCOMPARE(window.value(0, "note"), QVariant());
        QVERIFY(editor->addActionItem()->isEnabled());
        for (int count : {0, 1}) {
            editor->addObject(nullptr);
            Sheet::settle();
            for (int figure : {0, 1})
                QCOMPARE(window.value(figure, "note"), QVariantList(count + 1, "Item"));
            QCOMPARE(window.owner->actions, count); // nobody is told of the first one
        }
        window.set(0, "note", {});
        window.select({0});
        editor->setObjectValueForRow("first", 7);
        QCOMPARE(window.value(0, "note"), QVariantList{"first"});
        auto mortal = std::make_unique<QObject>();
        window.set(0, "note", QVariantList{QVariant::fromValue(mortal.get())});
        const QModelIndex cell = editor->tableView()->model()->index(0, 0);
        const QString living = cell.data().toString();
        QVERIFY(living.startsWith("<QObject"));
        mortal.reset(); // which nobody tells
        QVERIFY(cell.data().toString() != living && !ZelObject(editor->objectValueForRow(0)));
    }

    void theListsButtonsFollowTableAndSelection()
    {
        Sheet window(list("tags"));
        auto *editor = window.editor<Array>("tags");
        window.select({0});
        const auto enabled = [editor] {
            return std::pair(editor->addActionItem()->isEnabled(), editor->removeActionItem()->isEnabled());
        };
        QCOMPARE(enabled(), std::pair(true, false));
        selectRows(editor, {1});
        QCOMPARE(enabled(), std::pair(true, true));
        QVERIFY(editor->actionBar()->itemViews().at(1)->isEnabled());
        window.set(0, "tags", QStringList{"a"});
        QCOMPARE(enabled(), std::pair(true, false)); // with the row
        selectRows(editor, {0});
        for (const bool isUnlocked : {false, true}) {
            window.owner->setUnlocked(isUnlocked);
            QTRY_COMPARE(enabled(), std::pair(isUnlocked, isUnlocked));
        }
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
