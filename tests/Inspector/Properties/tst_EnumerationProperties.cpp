// SPDX-License-Identifier: MIT
#include "Controls/Cells/ZelSegmentedControl.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"

class tst_EnumerationProperties : public QObject
{
    Q_OBJECT

    static ZelOptionGroup *group(const QList<std::pair<QString, QVariant>> &options)
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
    template<typename Editor> static std::unique_ptr<Editor> flagsEditor(EditorWindow &window)
    {
        auto property = std::make_unique<Editor>(window.owner.get());
        property->setKeyPath(QStringLiteral("people.selection.flags"));
        property->setActionName(QStringLiteral("Choose"));
        property->setBitMask(0x0C);
        property->setOptionGroups(
            {group({{QStringLiteral("none"), 0}, {QStringLiteral("four"), 4}}), group({{QStringLiteral("eight"), 8}})});
        return property;
    }
    static QStringList titles(const ZelInspectorTextEnumerationProperty *property)
    {
        QStringList titles;
        for (const ZelMenuItem *item : property->menuItems())
            titles << (item->isSeparator() ? QStringLiteral("-")
                                           : item->title() + (item->isHidden() ? QStringLiteral("?") : QString()));
        return titles;
    }
    static void choose(ZelPopUpButton *button, QAction *item)
    {
        button->showMenu();
        QTRY_VERIFY(QApplication::activePopupWidget());
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
        QCoreApplication::processEvents();
    }

private Q_SLOTS:
    void aMaskEditsOnlyItsBits()
    {
        EditorWindow window;
        window.people[0]->setFlags(0x05);
        window.people[1]->setFlags(0x15);
        auto *property = window.install(flagsEditor<ZelInspectorTextEnumerationProperty>(window));
        window.select({0, 1});
        QCOMPARE(ZelMenuItem::titleOf(property->popUpButton()->selectedItem()), QStringLiteral("four"));
        choose(property->popUpButton(), property->menuItemForValue(8));
        QCOMPARE(window.people[0]->flags(), 0x09);
        QCOMPARE(window.people[1]->flags(), 0x19);
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Choose"));
        window.undo.undo();
        QCOMPARE(window.people[1]->flags(), 0x15);
    }

    void theFixedItemsFollowTheValue()
    {
        EditorWindow window;
        window.people[0]->setFlags(4);
        auto *property = window.install(flagsEditor<ZelInspectorTextEnumerationProperty>(window));
        const QString tail = QStringLiteral("none|four|-|eight|-|");
        QCOMPARE(titles(property).join(u'|'), tail + QStringLiteral("No Selection|Multiple Values?"));
        QVERIFY(!property->popUpButton()->isEnabled());
        window.select({0, 1});
        QCOMPARE(titles(property).join(u'|'), tail + QStringLiteral("No Selection?|Multiple Values"));
        QVERIFY(property->popUpButton()->isEnabled());
        window.select({0});
        QVERIFY(property->separatorMenuItem()->isHidden());
        window.people[0]->setFlags(0x0C); // no option stands for it
        QTRY_COMPARE(property->popUpButton()->selectedItem(), property->noSelectionMenuItem());
        QVERIFY(property->popUpButton()->isEnabled());
    }

    void withoutASelectionThePopUpStaysDisabled()
    {
        EditorWindow window;
        window.owner->setUnlocked(false);
        auto made = flagsEditor<ZelInspectorTextEnumerationProperty>(window);
        made->setEnabledKeyPath(QStringLiteral("unlocked"));
        auto *property = window.install(std::move(made));
        window.owner->setUnlocked(true);
        QCoreApplication::processEvents();
        QVERIFY(!property->popUpButton()->isEnabled());
        window.select({0});
        QVERIFY(property->popUpButton()->isEnabled());
        window.owner->setUnlocked(false);
        QVERIFY(!property->popUpButton()->isEnabled());
    }

    void choicesFollowTheOwnersLists()
    {
        EditorWindow window;
        window.owner->values = {1, 2};
        window.owner->names = {QStringLiteral("one"), QStringLiteral("two")};
        auto made = std::make_unique<ZelInspectorTextEnumerationProperty>(window.owner.get());
        made->setKeyPath(QStringLiteral("people.selection.flags"));
        made->setEnumeratedValuesKeyPath(QStringLiteral("values"));
        made->setEnumeratedDisplayValuesKeyPath(QStringLiteral("names"));
        auto *property = window.install(std::move(made));
        QCOMPARE(titles(property).mid(0, 2), QStringList({QStringLiteral("one"), QStringLiteral("two")}));
        window.owner->values = {1, 2, 3};
        Q_EMIT window.owner->valuesChanged();
        QCOMPARE(titles(property).size(), 3); // lists of different lengths give nothing
        window.owner->names = {QStringLiteral("one"), QStringLiteral("two"), 3};
        Q_EMIT window.owner->valuesChanged();
        QCOMPARE(titles(property).mid(0, 3), QStringList({QStringLiteral("one"), QStringLiteral("two"), QString()}));
    }

    void imagesOfTheOwnersListsMayBeOfAnyKind()
    {
        EditorWindow window;
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::red);
        window.owner->values = {1, 2, 3};
        window.owner->names = {QIcon(pixmap), pixmap, pixmap.toImage()};
        auto made = std::make_unique<ZelInspectorTextEnumerationProperty>(window.owner.get());
        made->setEnumeratedValuesKeyPath(QStringLiteral("values"));
        made->setEnumeratedDisplayValuesKeyPath(QStringLiteral("names"));
        auto *property = window.install(std::move(made));
        for (int value : {1, 2, 3})
            QVERIFY(!property->menuItemForValue(value)->icon().isNull());
    }

    void aRemovedGroupIsNoLongerObserved()
    {
        EditorWindow window;
        auto *property = window.install(flagsEditor<ZelInspectorTextEnumerationProperty>(window));
        auto *follower = new ZelOptionGroup(property);
        follower->enumeratedValuesKeyPath = QStringLiteral("values");
        follower->enumeratedDisplayValuesKeyPath = QStringLiteral("names");
        property->setOptionGroups({follower});
        QVERIFY(ZelIsObserved(window.owner.get(), "values"));
        property->setOptionGroups({});
        QVERIFY(!ZelIsObserved(window.owner.get(), "values"));
        QCOMPARE(titles(property).size(), 3);
    }

    void groupsAndOptionsMayDieWhileTheyAreShown()
    {
        EditorWindow window;
        auto made = std::make_unique<ZelInspectorTextEnumerationProperty>(window.owner.get());
        ZelOptionGroup *first = group({{QStringLiteral("one"), 1}, {QStringLiteral("two"), 2}});
        auto second = std::unique_ptr<ZelOptionGroup>(group({{QStringLiteral("three"), 3}}));
        made->setOptionGroups({first, second.get()});
        auto *property = window.install(std::move(made));
        delete first->options().first();
        property->rebuildView();
        QCOMPARE(titles(property).mid(0, 3).join(u'|'), QStringLiteral("two|-|three"));
        second.reset();
        property->rebuildView();
        QCOMPARE(titles(property).size(), 4);
        QCOMPARE(property->optionGroups(), QList<ZelOptionGroup *>({first}));
        delete first;
        // Even one that takes the place of a dead group in memory is another one.
        auto *follower = new ZelOptionGroup(property);
        follower->enumeratedValuesKeyPath = QStringLiteral("values");
        property->setOptionGroups({follower});
        QVERIFY(ZelIsObserved(window.owner.get(), "values"));
        QCOMPARE(titles(property).size(), 3);
    }

    void segments()
    {
        EditorWindow window;
        window.people[0]->setFlags(0x15);
        window.people[1]->setFlags(0x08);
        auto *property = window.install(flagsEditor<ZelInspectorImageEnumerationProperty>(window));
        ZelSegmentedControl *control = property->segmentedControl();
        QVERIFY(ZelIsMarker(property->selectedIndex(), ZelNoSelectionMarker));
        window.select({0});
        QCOMPARE(control->selectedIndex(), QVariant(1));
        QTest::mouseClick(control, Qt::LeftButton, {}, control->segmentRect(2).center());
        QCOMPARE(window.people[0]->flags(), 0x19);
        window.select({0, 1});
        QCOMPARE(control->selectedIndex(), QVariant(2));
        QVERIFY_EXCEPTION_THROWN(property->segmentForValue(77), ZelInternalInconsistencyException);
        QCOMPARE(property->representedObjects(), QVariantList({0, 4, 8}));
        QCOMPARE(property->titles().value(2), QVariant(QStringLiteral("eight")));
        QVERIFY(ZelIsNull(property->images().value(0)));
    }

    void segmentsShowWhatTheModelMakesOfAChoice()
    {
        class Stubborn : public Person
        {
        public:
            Stubborn()
            {
                connect(this, &Person::flagsChanged, this, [this] { setFlags(4); });
            }
        };
        EditorWindow window;
        Stubborn stubborn;
        stubborn.setFlags(4);
        auto *property = window.install(flagsEditor<ZelInspectorImageEnumerationProperty>(window));
        ZelSegmentedControl *control = property->segmentedControl();
        window.owner->controller.setSelectedObjects({&stubborn});
        QCoreApplication::processEvents();
        QCOMPARE(control->selectedIndex(), QVariant(1));
        QTest::mouseClick(control, Qt::LeftButton, {}, control->segmentRect(2).center());
        QTRY_COMPARE(control->selectedIndex(), QVariant(1));
    }
};

QTEST_MAIN(tst_EnumerationProperties)
#include "tst_EnumerationProperties.moc"
