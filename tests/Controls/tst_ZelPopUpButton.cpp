// SPDX-License-Identifier: MIT
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Core/Values/ZelValues.h"

#include "ControlPanel.h"

#include <QApplication>
#include <QMenu>
#include <QSignalSpy>

namespace {

using Panel = ControlPanel<ZelPopUpButton>;

/// Left, (separator), Hidden, Right & Co, Disabled, Bottom, for 0 to 4.
void fill(ZelPopUpButton *button)
{
    button->addItemWithTitle(QStringLiteral("Left"), 0);
    button->addItem(ZelMenuItem::separatorItem(button));
    button->addItemWithTitle(QStringLiteral("Hidden"), 1)->setHidden(true);
    button->addItemWithTitle(QStringLiteral("Right & Co"), 2);
    button->addItemWithTitle(QStringLiteral("Disabled"), 3)->setEnabled(false);
    button->addItemWithTitle(QStringLiteral("Bottom"), 4);
}

QMenu *openMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

void chooseInMenu(const QString &title)
{
    QMenu *menu = openMenu();
    for (QAction *action : menu->actions()) {
        if (ZelMenuItem::titleOf(action) == title) {
            QTest::mouseMove(menu, menu->actionGeometry(action).center());
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
            return;
        }
    }
    QFAIL(qPrintable(title));
}

} // namespace

class tst_ZelPopUpButton : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void selectsTheItemOfAValue();
    void itemsMayComeAfterTheValue();
    void choiceIsReported();
    void menuShowsTheItemsAndMarksTheSelected();
    void keysStepOverWhatCannotBeChosen();
    void typedLettersFindItems();
    void wheelNeedsTheFocus();
    void pullDownTriggersItems();
    void openMenuSurvivesChanges();
    void mayDieWhenItReports();
    void foreignItemsStayTheirOwners();
    void notEditableOpensNothing();
};

void tst_ZelPopUpButton::selectsTheItemOfAValue()
{
    ZelPopUpButton button;
    fill(&button);
    const QSignalSpy edited(&button, &ZelPopUpButton::valueEdited);
    const QSignalSpy selected(&button, &ZelPopUpButton::selectedItemChanged);
    QVERIFY(!button.selectedItem());
    button.setObjectValue(2.0);
    QCOMPARE(button.selectedIndex(), 3);
    QCOMPARE(button.shownText(), QStringLiteral("Right & Co"));
    button.setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
    QCOMPARE(button.selectedIndex(), -1);
    QCOMPARE(button.shownText(), QStringLiteral("Multiple Values"));
    button.setObjectValue(77);
    QCOMPARE(button.shownText(), QString());
    QCOMPARE(button.objectValue(), QVariant(77));
    button.setSelectedIndex(0);
    QCOMPARE(button.objectValue(), QVariant(0));
    button.setSelectedIndex(1);
    QVERIFY(!button.selectedItem());
    QVERIFY(!button.itemForRepresentedObject({}));
    QCOMPARE(selected.count(), 4);
    QCOMPARE(edited.count(), 0);
}

void tst_ZelPopUpButton::itemsMayComeAfterTheValue()
{
    ZelPopUpButton button;
    button.setObjectValue(4);
    fill(&button);
    QCOMPARE(button.selectedIndex(), 5);

    // Replaced by items of the same values, the value's item stays selected; the selected item itself anyway.
    QAction *bottom = button.selectedItem();
    button.setItems({new ZelMenuItem(QStringLiteral("Other"), {}, 9, &button), bottom});
    QCOMPARE(button.selectedItem(), bottom);
    button.setItems({new ZelMenuItem(QStringLiteral("Ground"), {}, 4, &button)});
    QCOMPARE(button.shownText(), QStringLiteral("Ground"));
    button.removeAllItems();
    QVERIFY(!button.selectedItem());
    QCOMPARE(button.objectValue(), QVariant(4));
}

void tst_ZelPopUpButton::choiceIsReported()
{
    Panel panel;
    fill(panel.control);
    panel.control->setObjectValue(0);
    QSignalSpy triggered(panel.control->items().at(3), &QAction::triggered);
    QTest::mouseClick(panel.control, Qt::LeftButton);
    QVERIFY(openMenu());
    chooseInMenu(QStringLiteral("Right & Co"));
    QCOMPARE(panel.takeLog(), Panel::edits(1));
    QCOMPARE(panel.level, 1);
    QCOMPARE(panel.control->objectValue(), QVariant(2));
    QCOMPARE(triggered.count(), 1);
    QVERIFY(!panel.control->isMenuOpen());

    // Choosing what is selected changes nothing and still is an action.
    QTest::keyClick(panel.control, Qt::Key_Space);
    chooseInMenu(QStringLiteral("Right & Co"));
    QCOMPARE(panel.takeLog(), QStringList(QStringLiteral("action")));
    QTest::keyClick(panel.control, Qt::Key_F4);
    QTest::keyClick(openMenu(), Qt::Key_Escape);
    QCOMPARE(panel.log, QStringList());
    QVERIFY(!openMenu());
}

void tst_ZelPopUpButton::menuShowsTheItemsAndMarksTheSelected()
{
    Panel panel;
    panel.move(100, 300);
    fill(panel.control);
    panel.control->setObjectValue(4);
    QTest::keyClick(panel.control, Qt::Key_Down, Qt::AltModifier);
    QMenu *menu = openMenu();
    QVERIFY(menu);
    QCOMPARE(menu->actions(), panel.control->items());
    QCOMPARE(menu->activeAction(), panel.control->selectedItem());
    QVERIFY(!panel.control->selectedItem()->isCheckable());
    // The selected item lies over the button.
    const QRect item = menu->actionGeometry(menu->activeAction()).translated(menu->pos());
    const QRect button(panel.control->mapToGlobal(QPoint()), panel.control->size());
    QVERIFY(item.intersects(button));
    QVERIFY(menu->width() >= panel.control->width());
    // A press on the button closes the menu for good.
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->mapFromGlobal(QPoint(button.right() - 2, menu->pos().y() - 3)));
    QVERIFY(!openMenu());
}

void tst_ZelPopUpButton::keysStepOverWhatCannotBeChosen()
{
    Panel panel;
    fill(panel.control);
    panel.control->setObjectValue(0);
    panel.control->setFocus();
    QTest::keyClick(panel.control, Qt::Key_Down);
    QCOMPARE(panel.control->objectValue(), QVariant(2));
    QTest::keyClick(panel.control, Qt::Key_Down);
    QCOMPARE(panel.control->objectValue(), QVariant(4));
    QTest::keyClick(panel.control, Qt::Key_Down);
    QCOMPARE(panel.control->objectValue(), QVariant(4));
    QTest::keyClick(panel.control, Qt::Key_Up);
    QTest::keyClick(panel.control, Qt::Key_Up);
    QTest::keyClick(panel.control, Qt::Key_Up);
    QCOMPARE(panel.control->objectValue(), QVariant(0));
    QTest::keyClick(panel.control, Qt::Key_End);
    QCOMPARE(panel.control->objectValue(), QVariant(4));
    QCOMPARE(panel.takeLog(), Panel::edits(5));
    // In the menu as well.
    panel.control->showMenu();
    QTest::keyClick(openMenu(), Qt::Key_Home);
    QCOMPARE(openMenu()->activeAction(), panel.control->itemForRepresentedObject(0));
    QTest::keyClick(openMenu(), Qt::Key_End);
    QCOMPARE(openMenu()->activeAction(), panel.control->itemForRepresentedObject(4));
    openMenu()->close();
    // From several values, the first step down is the first item.
    panel.control->setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
    QTest::keyClick(panel.control, Qt::Key_Down);
    QCOMPARE(panel.control->objectValue(), QVariant(0));
}

void tst_ZelPopUpButton::typedLettersFindItems()
{
    Panel panel;
    for (const char *title : {"Alpha", "Beta", "Bel canto", "Gamma"})
        panel.control->addItemWithTitle(QString::fromLatin1(title), QString::fromLatin1(title));
    panel.control->setSelectedIndex(0);
    panel.control->setFocus();
    QTest::keyClicks(panel.control, QStringLiteral("b"));
    QCOMPARE(panel.control->selectedIndex(), 1);
    QTest::keyClicks(panel.control, QStringLiteral("b"));
    QCOMPARE(panel.control->selectedIndex(), 2);
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClicks(panel.control, QStringLiteral("BEL C"));
    QCOMPARE(panel.control->selectedIndex(), 2);
    QVERIFY(!openMenu());
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClicks(panel.control, QStringLiteral("zg"));
    QCOMPARE(panel.control->selectedIndex(), 2);
    // A first letter goes on to the next match, here once around, before the others lead back.
    QCOMPARE(panel.takeLog(), Panel::edits(4));
}

void tst_ZelPopUpButton::wheelNeedsTheFocus()
{
    Panel panel;
    fill(panel.control);
    panel.control->setObjectValue(0);
    QVERIFY(!panel.wheel(-120));
    panel.control->setFocus();
    QVERIFY(panel.wheel(-120));
    QCOMPARE(panel.control->objectValue(), QVariant(2));
    QVERIFY(panel.wheel(120));
    QCOMPARE(panel.control->objectValue(), QVariant(0));
}

void tst_ZelPopUpButton::pullDownTriggersItems()
{
    Panel panel;
    panel.control->setPullsDown(true);
    fill(panel.control);
    QSignalSpy triggered(panel.control->items().at(3), &QAction::triggered);
    QCOMPARE(panel.control->shownText(), QStringLiteral("Left"));
    panel.control->setFocus();
    QTest::keyClick(panel.control, Qt::Key_Down);
    QVERIFY(openMenu());
    QCOMPARE(openMenu()->actions(), panel.control->items().mid(1));
    chooseInMenu(QStringLiteral("Right & Co"));
    QCOMPARE(triggered.count(), 1);
    QCOMPARE(panel.takeLog(), QStringList(QStringLiteral("action")));
    QCOMPARE(panel.control->shownText(), QStringLiteral("Left"));
    QTest::keyClicks(panel.control, QStringLiteral("r"));
    QVERIFY(!panel.wheel(120));
    QCOMPARE(triggered.count(), 1);
}

void tst_ZelPopUpButton::openMenuSurvivesChanges()
{
    Panel panel;
    fill(panel.control);
    panel.control->showMenu();
    QPointer<QMenu> menu = openMenu();
    panel.control->setItems({});
    fill(panel.control);
    panel.control->addItemWithTitle(QStringLiteral("New"), 5);
    QTRY_COMPARE(menu->actions(), panel.control->items());
    chooseInMenu(QStringLiteral("New"));
    QCOMPARE(panel.control->objectValue(), QVariant(5));
    QTRY_VERIFY(!menu);

    panel.control->showMenu();
    menu = openMenu();
    panel.control->hide();
    QVERIFY(!openMenu());
    panel.control->show();
    panel.control->showMenu();
    menu = openMenu();
    delete panel.control;
    QVERIFY(!openMenu());
    QTRY_VERIFY(!menu);
}

void tst_ZelPopUpButton::mayDieWhenItReports()
{
    {
        Panel panel;
        fill(panel.control);
        panel.whenEdited = [&panel] { delete panel.control; };
        panel.control->showMenu();
        QPointer<QMenu> menu = openMenu();
        chooseInMenu(QStringLiteral("Bottom"));
        QVERIFY(!panel.control);
        QTRY_VERIFY(!menu);
    }
    // By its own item, by keys; and the items, while one of them is told.
    {
        Panel panel;
        fill(panel.control);
        connect(panel.control->items().at(0), &QAction::triggered, &panel, [&panel] { delete panel.control; });
        QTest::keyPress(panel.control, Qt::Key_Home);
        QVERIFY(!panel.control);
    }
    Panel panel;
    fill(panel.control);
    panel.whenEdited = [&panel] { panel.control->removeAllItems(); };
    panel.control->showMenu();
    chooseInMenu(QStringLiteral("Bottom"));
    QCOMPARE(panel.takeLog(), Panel::edits(1));
    QVERIFY(panel.control->items().isEmpty());
}

void tst_ZelPopUpButton::foreignItemsStayTheirOwners()
{
    QAction foreign(QStringLiteral("&Plain"));
    QPointer<QAction> own;
    {
        ZelPopUpButton button;
        button.addItem(&foreign);
        own = button.addItemWithTitle(QStringLiteral("Own"));
        button.selectItem(&foreign);
        QCOMPARE(button.shownText(), QStringLiteral("Plain"));
        button.setItems({});
        QTRY_VERIFY(!own);
        button.addItem(&foreign);
        button.selectItem(&foreign);
        QAction doomed(QStringLiteral("Doomed"));
        button.addItem(&doomed);
        button.selectItem(&doomed);
    }
    ZelPopUpButton button;
    {
        QAction doomed(QStringLiteral("Doomed"));
        button.addItem(&doomed);
        button.selectItem(&doomed);
    }
    QVERIFY(!button.selectedItem());
    QCOMPARE(button.shownText(), QString());
    QVERIFY(foreign.associatedObjects().isEmpty());
}

void tst_ZelPopUpButton::notEditableOpensNothing()
{
    Panel panel;
    panel.control->showMenu();
    QVERIFY(!openMenu());
    fill(panel.control);
    panel.control->setEditable(false);
    panel.control->setFocus();
    QTest::mouseClick(panel.control, Qt::LeftButton);
    QTest::keyClick(panel.control, Qt::Key_Space);
    QTest::keyClick(panel.control, Qt::Key_Down);
    panel.control->showMenu();
    QVERIFY(!openMenu());
    QCOMPARE(panel.log, QStringList());
}

QTEST_MAIN(tst_ZelPopUpButton)
#include "tst_ZelPopUpButton.moc"
