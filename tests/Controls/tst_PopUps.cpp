// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/ZelPopover.h"

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

/// A window with a button that opens a popover and a widget that has the focus; the popover holds a field and a pop-up.
/// The state is who has the focus, and the text of the field in the popover. The log has its edits, and what closes.
class PopoverPanel : public Panel
{
public:
    PopoverPanel()
    {
        layout()->addWidget(button);
        move(300, 300);
        auto *inner = new QVBoxLayout(content);
        inner->addWidget(field);
        inner->addWidget(control);
        control->addItemWithTitle("One", 1);
        popover->setContentWidget(content);
        connect(button, &QPushButton::clicked, this, &PopoverPanel::open);
        connect(field, &ZelTextField::valueEdited, this, [this] { log.append("edited"); });
        connect(popover, &ZelPopover::willClose, this, [this] { log.append("closes"); });
        connect(popover, &ZelPopover::didClose, this, [this] { ++closes; });
        state = [this]() -> QString {
            const char *focus = keys() == other ? "former" : keys() == field ? "field" : "pop-up";
            return focus + (field->text().isEmpty() ? QString() : " " + field->text());
        };
        actions["open"] = [this](const QString &) { open(); };
        actions["close"] = [this](const QString &) { close(); };
        actions["menu"] = [this](const QString &) { control->showMenu(); };
        QCoreApplication::processEvents();
    }
    ~PopoverPanel() override { delete popover; }
    void open() { popover->showRelativeToRect({}, button); }
    void close() { popover->performClose(); }

    QPointer<QPushButton> button = new QPushButton("Open");
    QPointer<QWidget> content = new QWidget;
    QPointer<ZelTextField> field = new ZelTextField;
    QPointer<ZelPopover> popover = new ZelPopover;
    int closes = 0;
};
} // namespace

class tst_PopUps : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void selectsAndReports()
    {
        for (const char *script : {
                 "set value 2 > Right & Co/2 selected+changed; set value several > Multiple Values/several "
                 "selected+changed; set value 77 > /77 changed; set selectedIndex 0 > Left/0 selected+changed; "
                 "set selectedIndex 1 > / selected+changed",
                 // Choosing what is selected changes nothing and still is an action.
                 "focus; click; choose Right & Co > Right & Co/2 triggered+selected+reported; Space; "
                 "choose Right & Co > Right & Co/2 triggered+action; F4 > Right & Co/2 menu Right & Co; "
                 "Escape > Right & Co/2",
                 // Keys step over what cannot be chosen, in the menu as well.
                 "focus; Down > Left/0 triggered+selected+reported; Down > Right & Co/2 triggered+selected+reported; "
                 "Down > Bottom/4 triggered+selected+reported; Down > Bottom/4; "
                 "Up > Right & Co/2 triggered+selected+reported; Up > Left/0 triggered+selected+reported; Up > Left/0; "
                 "End > Bottom/4 triggered+selected+reported; Home > Left/0 triggered+selected+reported; "
                 "menu; End > Left/0 menu Bottom; Home > Left/0 menu Left; Escape",
                 // The wheel needs the focus.
                 "set value 0; wheel -120 > Left/0 selected+changed+passed; focus; wheel -120 > Right & Co/2 "
                 "triggered+selected+reported; wheel 120 > Left/0 triggered+selected+reported",
                 // A menu that is pulled down only triggers.
                 "set pullsDown true > Left/; focus; Down > Left/ menu; choose Right & Co > Left/ triggered+action; "
                 "'r' > Left/; wheel 120 > Left/ passed",
                 "set value 0 > Left/0 selected+changed; set editable false; focus; click; Space; Down; menu > Left/0 "
                 "editable",
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
        panel.play("set selectedIndex 0; focus > Alpha/Alpha selected+changed; "
                   "'b' > Beta/Beta triggered+selected+reported; "
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
        QVERIFY(item.intersects(button) && menu->width() >= button.width());
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
        for (const bool dies : {false, true}) {
            panel.control->show();
            panel.control->showMenu();
            menu = openMenu();
            dies ? delete panel.control : panel.control->hide();
            QVERIFY(menu && !openMenu());
            QTRY_VERIFY(!menu);
        }
    }

    void mayDieWhenItReports()
    {
        for (const char *script : {"menu; choose Bottom", "focus; Home"}) {
            for (int report = script[0] == 'm' ? 2 : 1; report <= 5; ++report) { // Qt's menu needs its items so long
                const TableRow row(QString("%1 %2").arg(script).arg(report));
                FilledPanel panel;
                panel.dyingAt = report;
                panel.play(script);
                QVERIFY(!panel.control && !openMenu());
            }
        }
        FilledPanel panel; // whose items die
        panel.whenEdited = [&panel] { panel.control->removeAllItems(); };
        panel.play("menu; choose Bottom");
        QVERIFY(panel.log.contains("action") && panel.control->items().isEmpty());
    }

    // Popovers

    void placeIsBesideTheRectangleAndOnTheScreen()
    {
        const QRect middle(400, 300, 20, 10);
        const QSize size(100, 50);
        const std::tuple<const char *, QRect, Qt::Edge, QSize, QRect> rows[] = {
            {"below", middle, Qt::BottomEdge, size, {360, 312, 100, 50}},
            {"above", middle, Qt::TopEdge, size, {360, 248, 100, 50}},
            {"left", middle, Qt::LeftEdge, size, {298, 280, 100, 50}},
            {"right", middle, Qt::RightEdge, size, {422, 280, 100, 50}},
            {"no room below", {400, 570, 20, 10}, Qt::BottomEdge, size, {360, 518, 100, 50}},
            {"no room on the left", {30, 300, 20, 10}, Qt::LeftEdge, size, {52, 280, 100, 50}},
            {"just room above", {400, 52, 20, 10}, Qt::TopEdge, size, {360, 0, 100, 50}},
            {"just room on the right", {678, 300, 20, 10}, Qt::RightEdge, size, {700, 280, 100, 50}},
            {"at the corner", {780, 0, 20, 10}, Qt::BottomEdge, size, {700, 12, 100, 50}},
            {"no room on either side", middle, Qt::BottomEdge, {100, 400}, {360, 200, 100, 400}},
            {"larger than the screen", middle, Qt::RightEdge, {2000, 2000}, {0, 0, 800, 600}},
        };
        for (const auto &[name, rect, edge, wanted, place] : rows) {
            const TableRow row(name);
            QCOMPARE(ZelPopover::placement(wanted, rect, edge, QRect(0, 0, 800, 600)), place);
        }
    }

    void popoversClose()
    {
        const std::pair<const char *, void (*)(PopoverPanel &)> ways[] = {
            {"Escape", [](PopoverPanel &panel) { QTest::keyClick(panel.field, Qt::Key_Escape); }},
            {"click outside",
             [](PopoverPanel &panel) {
                 QTest::mouseClick(panel.content->window(), Qt::LeftButton, {}, {-50, -50});
             }},
            {"performClose", [](PopoverPanel &panel) { panel.close(); }},
            {"close of its window", [](PopoverPanel &panel) { panel.content->window()->close(); }},
            {"its window is hidden", [](PopoverPanel &panel) { panel.content->window()->hide(); }},
            {"anchor is hidden", [](PopoverPanel &panel) { panel.button->hide(); }},
            {"anchor's window is hidden", [](PopoverPanel &panel) { panel.hide(); }},
            {"content is taken", [](PopoverPanel &panel) { delete panel.popover->takeContentWidget(); }},
            {"content goes elsewhere", [](PopoverPanel &panel) { panel.content->setParent(&panel); }},
            {"content dies", [](PopoverPanel &panel) { delete panel.content; }},
            {"focus widget dies", [](PopoverPanel &panel) { delete panel.field, panel.close(); }},
            {"anchor dies", [](PopoverPanel &panel) { delete panel.button; }},
            {"former focus widget dies", [](PopoverPanel &panel) { delete panel.other, panel.close(); }},
        };
        for (const auto &[name, end] : ways) {
            const TableRow row(name);
            PopoverPanel panel;
            panel.open();
            const QPointer<QWidget> window = panel.content->window();
            end(panel);
            QTRY_COMPARE(panel.closes, 1);
            QVERIFY(!panel.popover->isShown());
            QVERIFY(!window || !window->isVisible());
            QVERIFY(!QApplication::activePopupWidget());
            panel.popover->showRelativeToRect({}, panel.other, Qt::TopEdge);
            panel.close();
        }
    }

    void theFocusAndTheTypingGoInAndBack()
    {
        PopoverPanel panel;
        panel.open();
        QCOMPARE(ZelUndoManager::forWidget(panel.field), &panel.undo);
        panel.play("Tab > pop-up; Tab > field; Escape > former closes; open > field; 'text' > field text; "
                   "close > former text edited+closes; open; '!'; Escape > field text; "
                   "Escape > former text closes; open; Tab; menu; Escape > pop-up text");
        QTRY_VERIFY(!panel.control->isMenuOpen());
        QVERIFY(panel.popover->isShown());
    }

    void clickOnTheAnchorDoesNotOpenItAgain()
    {
        PopoverPanel panel;
        for (QWidget *anchor : {static_cast<QWidget *>(panel.button), static_cast<QWidget *>(panel.other)}) {
            panel.popover->showRelativeToRect({}, anchor, Qt::TopEdge);
            const QWidget *popup = panel.content->window();
            const QPoint place = panel.button->mapToGlobal(panel.button->rect().center());
            QTest::mousePress(popup->windowHandle(), Qt::LeftButton, {}, popup->windowHandle()->mapFromGlobal(place));
            QVERIFY(!panel.popover->isShown());
            QCOMPARE(popup->testAttribute(Qt::WA_NoMouseReplay), anchor == panel.button);
        }
    }

    void followsTheSizeOfItsContent()
    {
        PopoverPanel panel;
        panel.open();
        QCOMPARE(panel.content->size(), panel.content->sizeHint());
        panel.field->setMinimumSize(400, 90);
        QTRY_COMPARE(panel.content->size(), panel.content->sizeHint());
        panel.popover->setContentSize({245, 0});
        QCOMPARE(panel.content->size(), QSize(245, panel.content->sizeHint().height()));
        const QRect available = panel.screen()->availableGeometry();
        panel.popover->setContentSize({available.width() * 2, 60});
        QVERIFY(available.contains(panel.content->window()->geometry()));
    }

    void popoversMayDieWhenTheyReport()
    {
        for (const auto report :
             {&ZelPopover::willShow, &ZelPopover::didShow, &ZelPopover::willClose, &ZelPopover::didClose}) {
            PopoverPanel panel;
            connect(panel.popover, report, &panel, [&panel] { delete panel.popover; });
            const QPointer<QWidget> window = panel.content->window();
            panel.open();
            if (panel.popover)
                QTest::keyClick(panel.field, Qt::Key_Escape);
            QVERIFY(!panel.popover);
            QTRY_VERIFY(!panel.content); // Qt may still be at work with the field in it
            QCOMPARE(panel.closes, 1);
            QTRY_VERIFY(!window || !window->isVisible());
        }
        // A whole window going while its popover is open takes nothing else with it.
        auto panel = std::make_unique<PopoverPanel>();
        panel->open();
        const QPointer<ZelPopover> popover = panel->popover;
        const QPointer<QWidget> content = panel->content;
        panel.reset();
        QVERIFY(!popover && !content);
    }

    void foreignItemsStayTheirOwners()
    {
        QAction foreign("&Plain");
        ZelPopUpButton button;
        button.addItem(&foreign);
        button.selectItem(&foreign);
        QCOMPARE(button.shownText(), "Plain");
        const QPointer<QAction> own = button.addItemWithTitle("Own");
        button.setItems({});
        QTRY_VERIFY(!own);
        {
            QAction doomed("Doomed");
            ZelPopUpButton other; // which dies before its items
            other.addItem(&foreign);
            for (ZelPopUpButton *each : {&button, &other}) {
                each->addItem(&doomed);
                each->selectItem(&doomed);
            }
        }
        QVERIFY(!button.selectedItem() && button.shownText().isEmpty());
        QVERIFY(foreign.associatedObjects().isEmpty());
    }
};
QTEST_MAIN(tst_PopUps)
#include "tst_PopUps.moc"
