// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/ZelPopover.h"

#include "ControlPanel.h"

#include <QPushButton>
#include <QScreen>
#include <QWindow>

namespace {

/// A window with a button that opens a popover and a field that has the focus; the popover holds a field and a pop-up.
/// The state is who has the focus, and the text of the field in the popover. The log has its edits, and what closes.
class Panel : public ControlPanelBase
{
public:
    Panel()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(former);
        layout->addWidget(button);
        auto *inner = new QVBoxLayout(content);
        popUp->addItemWithTitle("One", 1);
        popUp->addItemWithTitle("Two", 2);
        inner->addWidget(field);
        inner->addWidget(popUp);
        popover->setContentWidget(content);
        widget = popUp;
        connect(button, &QPushButton::clicked, this, [this] { popover->showRelativeToRect({}, button); });
        connect(field, &ZelTextField::valueEdited, this, [this] { log.append("edited"); });
        connect(popover, &ZelPopover::willClose, this, [this] { log.append("closes"); });
        connect(popover, &ZelPopover::didClose, this, [this] { ++closes; });
        state = [this]() -> QString {
            const char *focus = keys() == former ? "former" : keys() == field ? "field" : "pop-up";
            return focus + (field->text().isEmpty() ? QString() : " " + field->text());
        };
        actions["open"] = [this](const QString &) { open(); };
        actions["close"] = [this](const QString &) { close(); };
        actions["menu"] = [this](const QString &) { popUp->showMenu(); };
        ZelUndoManager::setForWindow(this, &undo);
        move(300, 300);
        show();
        activateWindow();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("There is no active window");
        former->setFocus();
    }
    ~Panel() override { delete popover; }

    void open()
    {
        popover->showRelativeToRect({}, button);
        QVERIFY(content->isVisible());
    }
    void close() { popover->performClose(); }

    QPointer<QLineEdit> former = new QLineEdit;
    QPointer<QPushButton> button = new QPushButton("Open");
    QPointer<QWidget> content = new QWidget;
    QPointer<ZelTextField> field = new ZelTextField;
    QPointer<ZelPopUpButton> popUp = new ZelPopUpButton;
    QPointer<ZelPopover> popover = new ZelPopover;
    int closes = 0;
};

} // namespace

class tst_ZelPopover : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
            const Case is(name);
            QCOMPARE(ZelPopover::placement(wanted, rect, edge, QRect(0, 0, 800, 600)), place);
        }
    }

    void closes()
    {
        const std::pair<const char *, void (*)(Panel &)> ways[] = {
            {"Escape", [](Panel &panel) { QTest::keyClick(panel.field, Qt::Key_Escape); }},
            {"click outside",
             [](Panel &panel) {
                 QTest::mouseClick(panel.content->window(), Qt::LeftButton, {}, {-50, -50});
             }},
            {"performClose", [](Panel &panel) { panel.close(); }},
            {"close of its window", [](Panel &panel) { panel.content->window()->close(); }},
            {"its window is hidden", [](Panel &panel) { panel.content->window()->hide(); }},
            {"anchor is hidden", [](Panel &panel) { panel.button->hide(); }},
            {"anchor's window is hidden", [](Panel &panel) { panel.hide(); }},
            {"content is taken", [](Panel &panel) { delete panel.popover->takeContentWidget(); }},
            {"content goes elsewhere", [](Panel &panel) { panel.content->setParent(&panel); }},
            {"content dies", [](Panel &panel) { delete panel.content; }},
            {"focus widget dies", [](Panel &panel) { delete panel.field, panel.close(); }},
            {"anchor dies", [](Panel &panel) { delete panel.button; }},
            {"former focus widget dies", [](Panel &panel) { delete panel.former, panel.close(); }},
        };
        for (const auto &[name, end] : ways) {
            const Case is(name);
            Panel panel;
            panel.open();
            const QPointer<QWidget> window = panel.content->window();
            end(panel);
            QTRY_COMPARE(panel.closes, 1);
            QVERIFY(!panel.popover->isShown());
            QVERIFY(!window || !window->isVisible());
            QVERIFY(!QApplication::activePopupWidget());
            panel.popover->showRelativeToRect({}, panel.former, Qt::TopEdge);
            panel.close();
        }
    }

    void theFocusAndTheTypingGoInAndBack()
    {
        Panel panel;
        panel.open();
        QCOMPARE(ZelUndoManager::forWidget(panel.field), &panel.undo);
        panel.play("Tab > pop-up; Tab > field; Escape > former closes; open > field; 'text' > field text; "
                   "close > former text edited+closes; open; '!'; Escape > field text; "
                   "Escape > former text closes; open; Tab; menu; Escape > pop-up text");
        QTRY_VERIFY(!panel.popUp->isMenuOpen());
        QVERIFY(panel.popover->isShown());
    }

    void clickOnTheAnchorDoesNotOpenItAgain()
    {
        Panel panel;
        for (QWidget *anchor : {static_cast<QWidget *>(panel.button), static_cast<QWidget *>(panel.former)}) {
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
        Panel panel;
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

    void mayDieWhenItReports()
    {
        const std::tuple<void (ZelPopover::*)(), bool> reports[] = {{&ZelPopover::willShow, true},
                                                                    {&ZelPopover::didShow, true},
                                                                    {&ZelPopover::willClose, false},
                                                                    {&ZelPopover::didClose, false}};
        for (const auto &[report, shows] : reports) {
            Panel panel;
            if (!shows)
                panel.open();
            connect(panel.popover, report, &panel, [&panel] { delete panel.popover; });
            const QPointer<QWidget> window = panel.content->window();
            if (shows)
                panel.popover->showRelativeToRect({}, panel.button);
            else
                QTest::keyClick(panel.field, Qt::Key_Escape);
            QVERIFY(!panel.popover);
            QTRY_VERIFY(!panel.content); // Qt may still be at work with the field in it
            QCOMPARE(panel.closes, 1);
            QTRY_VERIFY(!window || !window->isVisible());
        }
        // A whole window going while its popover is open takes nothing else with it.
        auto panel = std::make_unique<Panel>();
        panel->open();
        const QPointer<ZelPopover> popover = panel->popover;
        const QPointer<QWidget> content = panel->content;
        panel.reset();
        QVERIFY(!popover && !content);
    }
};

QTEST_MAIN(tst_ZelPopover)
#include "tst_ZelPopover.moc"
