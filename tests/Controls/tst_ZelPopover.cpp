// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/ZelPopover.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

namespace {

/// A window with a button that opens a popover and a field that has the focus; the popover holds a field and a pop-up.
class Panel : public QWidget
{
public:
    Panel()
    {
        auto *layout = new QVBoxLayout(this);
        former = new QLineEdit;
        button = new QPushButton(QStringLiteral("Open"));
        layout->addWidget(former);
        layout->addWidget(button);
        content = new QWidget;
        auto *inner = new QVBoxLayout(content);
        field = new ZelTextField;
        popUp = new ZelPopUpButton;
        popUp->addItemWithTitle(QStringLiteral("One"), 1);
        popUp->addItemWithTitle(QStringLiteral("Two"), 2);
        inner->addWidget(field);
        inner->addWidget(popUp);
        popover = new ZelPopover;
        popover->setContentWidget(content);
        connect(button, &QPushButton::clicked, this, [this] { popover->showRelativeToRect({}, button); });
        connect(popover, &ZelPopover::didClose, this, [this] { ++closes; });
        ZelUndoManager::setForWindow(this, &undo);
        move(300, 300);
        show();
        activateWindow();
        ready = QTest::qWaitForWindowActive(this);
        former->setFocus();
    }
    ~Panel() override { delete popover; }

    void open()
    {
        popover->showRelativeToRect({}, button);
        QVERIFY(content->isVisible());
    }

    QPointer<QLineEdit> former;
    QPointer<QPushButton> button;
    QPointer<QWidget> content;
    QPointer<ZelTextField> field;
    QPointer<ZelPopUpButton> popUp;
    QPointer<ZelPopover> popover;
    ZelUndoManager undo;
    int closes = 0;
    bool ready = false;
};

} // namespace

class tst_ZelPopover : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void placeIsBesideTheRectangleAndOnTheScreen_data();
    void placeIsBesideTheRectangleAndOnTheScreen();
    void closes_data();
    void closes();
    void focusGoesInAndBack();
    void typingIsCommittedUnlessItCannotBeTaken();
    void menusStayInside();
    void clickOnTheAnchorDoesNotOpenItAgain();
    void followsTheSizeOfItsContent();
    void survivesTheDeathOf_data();
    void survivesTheDeathOf();
    void mayDieWhenItReports_data();
    void mayDieWhenItReports();
    void usesTheUndoManagerOfItsAnchor();
};

void tst_ZelPopover::placeIsBesideTheRectangleAndOnTheScreen_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("place");
    const QRect middle(400, 300, 20, 10);
    QTest::newRow("below") << middle << Qt::BottomEdge << QSize(100, 50) << QRect(360, 312, 100, 50);
    QTest::newRow("above") << middle << Qt::TopEdge << QSize(100, 50) << QRect(360, 248, 100, 50);
    QTest::newRow("left") << middle << Qt::LeftEdge << QSize(100, 50) << QRect(298, 280, 100, 50);
    QTest::newRow("right") << middle << Qt::RightEdge << QSize(100, 50) << QRect(422, 280, 100, 50);
    QTest::newRow("no room below") << QRect(400, 570, 20, 10) << Qt::BottomEdge << QSize(100, 50)
                                   << QRect(360, 518, 100, 50);
    QTest::newRow("no room on the left") << QRect(30, 300, 20, 10) << Qt::LeftEdge << QSize(100, 50)
                                         << QRect(52, 280, 100, 50);
    QTest::newRow("at the corner") << QRect(780, 0, 20, 10) << Qt::BottomEdge << QSize(100, 50)
                                   << QRect(700, 12, 100, 50);
    QTest::newRow("no room on either side") << middle << Qt::BottomEdge << QSize(100, 400) << QRect(360, 200, 100, 400);
    QTest::newRow("larger than the screen") << middle << Qt::RightEdge << QSize(2000, 2000) << QRect(0, 0, 800, 600);
}

void tst_ZelPopover::placeIsBesideTheRectangleAndOnTheScreen()
{
    QFETCH(QRect, rect);
    QFETCH(Qt::Edge, edge);
    QFETCH(QSize, size);
    QTEST(ZelPopover::placement(size, rect, edge, QRect(0, 0, 800, 600)), "place");
}

using Deed = void (*)(Panel &);
Q_DECLARE_METATYPE(Deed)

void tst_ZelPopover::closes_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::newRow("Escape") << Deed([](Panel &panel) { QTest::keyClick(panel.field, Qt::Key_Escape); });
    QTest::newRow("click outside") << Deed([](Panel &panel) {
        QTest::mouseClick(panel.content->window(), Qt::LeftButton, {}, {-50, -50});
    });
    QTest::newRow("performClose") << Deed([](Panel &panel) { panel.popover->performClose(); });
    QTest::newRow("close of its window") << Deed([](Panel &panel) { panel.content->window()->close(); });
    QTest::newRow("its window is hidden") << Deed([](Panel &panel) { panel.content->window()->hide(); });
    QTest::newRow("anchor is hidden") << Deed([](Panel &panel) { panel.button->hide(); });
    QTest::newRow("anchor's window is hidden") << Deed([](Panel &panel) { panel.hide(); });
    QTest::newRow("content is taken") << Deed([](Panel &panel) { delete panel.popover->takeContentWidget(); });
    QTest::newRow("content goes elsewhere") << Deed([](Panel &panel) { panel.content->setParent(&panel); });
}

void tst_ZelPopover::closes()
{
    QFETCH(Deed, deed);
    Panel panel;
    QVERIFY(panel.ready);
    panel.open();
    const QPointer<QWidget> window = panel.content->window();
    deed(panel);
    QTRY_COMPARE(panel.closes, 1);
    QVERIFY(!panel.popover->isShown());
    QVERIFY(!window || !window->isVisible());
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_ZelPopover::focusGoesInAndBack()
{
    Panel panel;
    QCOMPARE(QApplication::focusWidget(), panel.former.data());
    panel.open();
    QCOMPARE(QApplication::focusWidget(), panel.field.data());
    QTest::keyClick(panel.field, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), panel.popUp.data());
    QTest::keyClick(panel.popUp, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), panel.field.data()); // stays inside
    QTest::keyClick(panel.field, Qt::Key_Escape);
    QCOMPARE(QApplication::focusWidget(), panel.former.data());
    panel.open();
    QCOMPARE(QApplication::focusWidget(), panel.field.data());
}

void tst_ZelPopover::typingIsCommittedUnlessItCannotBeTaken()
{
    Panel panel;
    panel.open();
    const QSignalSpy edits(panel.field, &ZelTextField::valueEdited);
    int editsAtClose = -1;
    connect(panel.popover, &ZelPopover::willClose, &panel, [&] { editsAtClose = int(edits.count()); });
    QTest::keyClicks(panel.field, QStringLiteral("text"));
    panel.popover->performClose();
    QCOMPARE(editsAtClose, 1);
    QCOMPARE(panel.field->objectValue(), QVariant(QStringLiteral("text")));

    panel.open();
    QTest::keyClicks(panel.field, QStringLiteral("!"));
    QTest::keyClick(panel.field, Qt::Key_Escape); // drops the typing only
    QVERIFY(panel.popover->isShown());
    QTest::keyClick(panel.field, Qt::Key_Escape);
    QVERIFY(!panel.popover->isShown());
    QCOMPARE(edits.count(), 1);
}

void tst_ZelPopover::menusStayInside()
{
    Panel panel;
    panel.open();
    panel.popUp->showMenu();
    QTRY_VERIFY(panel.popUp->isMenuOpen());
    QWidget *menu = QApplication::activePopupWidget();
    QVERIFY(menu != panel.content->window());
    QTest::keyClick(menu, Qt::Key_Escape);
    QTRY_VERIFY(!panel.popUp->isMenuOpen());
    QVERIFY(panel.popover->isShown());
    QCOMPARE(panel.closes, 0);
}

void tst_ZelPopover::clickOnTheAnchorDoesNotOpenItAgain()
{
    Panel panel;
    const auto pressOn = [](const QWidget *below, const QWidget *popup) {
        QWindow *window = popup->window()->windowHandle();
        QTest::mousePress(window, Qt::LeftButton, {},
                          window->mapFromGlobal(below->mapToGlobal(below->rect().center())));
    };
    panel.open();
    const QWidget *window = panel.content->window();
    pressOn(panel.button, panel.content);
    QVERIFY(!panel.popover->isShown());
    QVERIFY(window->testAttribute(Qt::WA_NoMouseReplay));
    panel.popover->showRelativeToRect({}, panel.former, Qt::TopEdge);
    pressOn(panel.button, panel.content); // elsewhere than on the anchor
    QVERIFY(!panel.popover->isShown());
    QVERIFY(!window->testAttribute(Qt::WA_NoMouseReplay));
}

void tst_ZelPopover::followsTheSizeOfItsContent()
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

void tst_ZelPopover::survivesTheDeathOf_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::newRow("content") << Deed([](Panel &panel) { delete panel.content; });
    QTest::newRow("focus widget in the content") << Deed([](Panel &panel) {
        delete panel.field;
        panel.popover->performClose();
    });
    QTest::newRow("anchor") << Deed([](Panel &panel) { delete panel.button; });
    QTest::newRow("former focus widget") << Deed([](Panel &panel) {
        delete panel.former;
        panel.popover->performClose();
    });
}

void tst_ZelPopover::survivesTheDeathOf()
{
    QFETCH(Deed, deed);
    Panel panel;
    panel.open();
    deed(panel);
    QTRY_COMPARE(panel.closes, 1);
    QVERIFY(!panel.popover->isShown());
    panel.popover->showRelativeToRect({}, panel.former, Qt::TopEdge);
    panel.popover->performClose();
}

void tst_ZelPopover::mayDieWhenItReports_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<bool>("shows");
    QTest::newRow("willShow") << QByteArray("willShow") << true;
    QTest::newRow("didShow") << QByteArray("didShow") << true;
    QTest::newRow("willClose") << QByteArray("willClose") << false;
    QTest::newRow("didClose") << QByteArray("didClose") << false;
}

void tst_ZelPopover::mayDieWhenItReports()
{
    QFETCH(QByteArray, signal);
    QFETCH(bool, shows);
    Panel panel;
    if (!shows)
        panel.open();
    const std::pair<QByteArray, void (ZelPopover::*)()> reports[] = {{"willShow", &ZelPopover::willShow},
                                                                     {"didShow", &ZelPopover::didShow},
                                                                     {"willClose", &ZelPopover::willClose},
                                                                     {"didClose", &ZelPopover::didClose}};
    for (const auto &[name, report] : reports) {
        if (name == signal)
            connect(panel.popover, report, &panel, [&panel] { delete panel.popover; });
    }
    const QPointer<QWidget> window = panel.content->window();
    if (shows)
        panel.popover->showRelativeToRect({}, panel.button);
    else
        QTest::keyClick(panel.field, Qt::Key_Escape);
    QVERIFY(!panel.popover);
    QTRY_VERIFY(!panel.content); // Qt may still be at work with the field in it
    QCOMPARE(panel.closes, 1);
    QTRY_VERIFY(!window || !window->isVisible());

    // A whole window going while its popover is open takes nothing else with it.
    auto *other = new Panel;
    other->open();
    const QPointer<ZelPopover> popover = other->popover;
    const QPointer<QWidget> content = other->content;
    delete other;
    QVERIFY(!popover && !content);
}

void tst_ZelPopover::usesTheUndoManagerOfItsAnchor()
{
    Panel panel;
    panel.open();
    QCOMPARE(ZelUndoManager::forWidget(panel.field), &panel.undo);
}

QTEST_MAIN(tst_ZelPopover)
#include "tst_ZelPopover.moc"
