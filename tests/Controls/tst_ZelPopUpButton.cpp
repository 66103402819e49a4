// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"

#include <QSignalSpy>

namespace {

using Panel = ControlPanel<ZelPopUpButton>;

/// Left, (separator), Hidden, Right & Co, Disabled, Bottom, for 0 to 4.
void fill(ZelPopUpButton *button)
{
    button->addItemWithTitle("Left", 0);
    button->addItem(ZelMenuItem::separatorItem(button));
    button->addItemWithTitle("Hidden", 1)->setHidden(true);
    button->addItemWithTitle("Right & Co", 2);
    button->addItemWithTitle("Disabled", 3)->setEnabled(false);
    button->addItemWithTitle("Bottom", 4);
}

QMenu *openMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

void choose(const QString &title)
{
    QMenu *menu = openMenu();
    QVERIFY(menu);
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

/// One with items, which logs more of what it tells. The state is the shown text and the value, and of an open menu the
/// current item.
class FilledPanel : public Panel
{
public:
    explicit FilledPanel(const QStringList &titles = {})
    {
        if (titles.isEmpty())
            fill(control);
        for (const QString &title : titles)
            control->addItemWithTitle(title, title);
        for (QAction *item : control->items())
            connect(item, &QAction::triggered, this, [this] { tell("triggered"); });
        connect(control, &ZelPopUpButton::selectedItemChanged, this, [this] { tell("selected"); });
        state = [this]() -> QString {
            const QVariant value = control->objectValue();
            const QAction *active = openMenu() ? openMenu()->activeAction() : nullptr;
            return control->shownText() + "/" + (value == several() ? QString("several") : value.toString()) +
                   (openMenu() ? " menu " + ZelMenuItem::titleOf(active) : QString());
        };
        actions.insert({
            {"click", [this](const QString &) { QTest::mouseClick(control, Qt::LeftButton); }},
            {"menu", [this](const QString &) { control->showMenu(); }},
            {"choose", [](const QString &title) { choose(title); }},
            {"wait", [](const QString &) { QTest::qWait(QApplication::keyboardInputInterval() + 50); }},
        });
    }
};

} // namespace

class tst_ZelPopUpButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selectsAndReports()
    {
        for (const char *script : {
                 "set value 2 > Right & Co/2 selected; set value several > Multiple Values/several selected; "
                 "set value 77 > /77; set selectedIndex 0 > Left/0 selected; set selectedIndex 1 > / selected",
                 // Choosing what is selected changes nothing and still is an action.
                 "focus; click; choose Right & Co > Right & Co/2 triggered+selected+reported; Space; "
                 "choose Right & Co > Right & Co/2 triggered+action; F4 > Right & Co/2 menu Right & Co; "
                 "Escape > Right & Co/2",
                 // Keys step over what cannot be chosen, in the menu as well.
                 "focus; set value 0 > Left/0 selected; Down > Right & Co/2 triggered+selected+reported; "
                 "Down > Bottom/4 triggered+selected+reported; Down > Bottom/4; "
                 "Up > Right & Co/2 triggered+selected+reported; Up > Left/0 triggered+selected+reported; Up > Left/0; "
                 "End > Bottom/4 triggered+selected+reported; Home > Left/0 triggered+selected+reported; "
                 "menu; End > Left/0 menu Bottom; Home > Left/0 menu Left; Escape",
                 "focus; set value 0 > Left/0 selected; set value several > Multiple Values/several selected; Down > "
                 "Left/0 triggered+selected+reported",
                 // The wheel needs the focus.
                 "set value 0 > Left/0 selected; wheel -120 > Left/0 passed; focus; "
                 "wheel -120 > Right & Co/2 triggered+selected+reported; "
                 "wheel 120 > Left/0 triggered+selected+reported",
                 // A menu that is pulled down only triggers.
                 "set pullsDown true > Left/; focus; Down > Left/ menu; choose Right & Co > Left/ triggered+action; "
                 "'r' > Left/; wheel 120 > Left/ passed",
                 "set value 0; set editable false; focus; click; Space; Down; menu > Left/0 selected",
             }) {
            FilledPanel panel;
            panel.play(script);
            QVERIFY(panel.level == -1 || panel.level == 1);
        }
        Panel empty;
        empty.control->showMenu();
        QVERIFY(!openMenu());
    }

    void typedLettersFindItems()
    {
        FilledPanel panel({"Alpha", "Beta", "Bel canto", "Gamma"});
        // A first letter goes on to the next match, here once around, before the others lead back.
        panel.play("set selectedIndex 0; focus > Alpha/Alpha selected; 'b' > Beta/Beta triggered+selected+reported; "
                   "'b' > Bel canto/Bel canto triggered+selected+reported; wait; "
                   "'BEL C' > Bel canto/Bel canto triggered+selected+reported+triggered+selected+reported; wait; "
                   "'zg' > Bel canto/Bel canto");
    }

    void itemsMayComeAfterTheValue()
    {
        ZelPopUpButton button;
        button.setObjectValue(4);
        const QSignalSpy selected(&button, &ZelPopUpButton::selectedItemChanged);
        fill(&button);
        QCOMPARE(button.selectedIndex(), 5);
        QCOMPARE(selected.count(), 1);
        QVERIFY(!button.itemForRepresentedObject({}));
        // Replaced by items of the same values, the value's item stays selected; the selected item itself anyway.
        QAction *bottom = button.selectedItem();
        button.setItems({new ZelMenuItem("Other", {}, 9, &button), bottom});
        QCOMPARE(button.selectedItem(), bottom);
        button.setItems({new ZelMenuItem("Ground", {}, 4, &button)});
        QCOMPARE(button.shownText(), "Ground");
        button.removeAllItems();
        QVERIFY(!button.selectedItem());
        QCOMPARE(button.objectValue(), QVariant(4));
    }

    void menuShowsTheItemsAndMarksTheSelected()
    {
        FilledPanel panel;
        panel.control->setObjectValue(4);
        panel.move(100, 300);
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
        const QPoint beside(button.right() - 2, menu->pos().y() - 3);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->mapFromGlobal(beside));
        QVERIFY(!openMenu());
    }

    void openMenuSurvivesChanges()
    {
        FilledPanel panel;
        panel.control->showMenu();
        QPointer<QMenu> menu = openMenu();
        panel.control->setItems({});
        fill(panel.control);
        panel.control->addItemWithTitle("New", 5);
        QTRY_COMPARE(menu->actions(), panel.control->items());
        choose("New");
        QCOMPARE(panel.control->objectValue(), QVariant(5));
        QTRY_VERIFY(!menu);
        panel.control->showMenu();
        panel.control->hide();
        QVERIFY(!openMenu());
        panel.control->show();
        panel.control->showMenu();
        menu = openMenu();
        delete panel.control;
        QVERIFY(!openMenu());
        QTRY_VERIFY(!menu);
    }

    void mayDieWhenItReports()
    {
        for (const char *script : {"menu; choose Bottom", "focus; Home"}) {
            for (int report = script[0] == 'm' ? 2 : 1; report <= 5; ++report) { // Qt's menu needs its items so long
                const Case name(QString("%1 %2").arg(script).arg(report));
                FilledPanel panel;
                panel.dyingAt = report;
                panel.play(script);
                QVERIFY(!panel.control);
                QVERIFY(!openMenu());
            }
        }
        FilledPanel panel; // whose items die
        panel.whenEdited = [&panel] { panel.control->removeAllItems(); };
        panel.play("menu; choose Bottom");
        QVERIFY(panel.log.contains("action"));
        QVERIFY(panel.control->items().isEmpty());
    }

    void foreignItemsStayTheirOwners()
    {
        QAction foreign("&Plain");
        ZelPopUpButton button;
        const auto select = [](ZelPopUpButton &button, QAction *item) {
            button.addItem(item);
            button.selectItem(item);
        };
        select(button, &foreign);
        const QPointer<QAction> own = button.addItemWithTitle("Own");
        QCOMPARE(button.shownText(), "Plain");
        button.setItems({});
        QTRY_VERIFY(!own);
        {
            QAction doomed("Doomed");
            select(button, &doomed);
            ZelPopUpButton other; // which dies before its items
            select(other, &foreign);
            select(other, &doomed);
        }
        QVERIFY(!button.selectedItem());
        QCOMPARE(button.shownText(), QString());
        QVERIFY(foreign.associatedObjects().isEmpty());
    }
};

QTEST_MAIN(tst_ZelPopUpButton)
#include "tst_ZelPopUpButton.moc"
