// SPDX-License-Identifier: MIT
#include "Controls/ZelHoverButton.h"
#include "Controls/ZelSelfValidatingButton.h"
#include "Controls/ZelTitleBarButton.h"
#include "Observation/ZelDelayedInvocation.h"

#include <QAccessible>
#include <QDockWidget>
#include <QEnterEvent>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

QIcon square(const QColor &color)
{
    QPixmap pixmap(14, 14);
    pixmap.fill(color);
    return QIcon(pixmap);
}

void moveIn(QWidget *widget)
{
    QEnterEvent event({3, 3}, {3, 3}, {3, 3});
    QCoreApplication::sendEvent(widget, &event);
}

void moveOut(QWidget *widget)
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(widget, &event);
}

/// One that knows an action and has a say in when it can be sent.
class Receiver : public QObject
{
    Q_OBJECT
public:
    Q_INVOKABLE void add(QObject *sender)
    {
        lastSender = sender;
        if (react)
            react();
    }
    Q_INVOKABLE bool validateUserInterfaceItem(QObject *item)
    {
        ++asked;
        lastItem = item;
        return allows;
    }

    bool allows = true;
    int asked = 0;
    QObject *lastItem = nullptr;
    QPointer<QObject> lastSender;
    std::function<void()> react;
};

/// One that takes an action while it has the focus.
class Canvas : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    Q_INVOKABLE void cut() { ++cuts; }

    int cuts = 0;
};

/// Something for the user to do elsewhere in the window.
class Window : public QWidget
{
    Q_OBJECT
public:
    Window()
    {
        auto *layout = new QVBoxLayout(this);
        elsewhere = new QWidget;
        elsewhere->setMinimumSize(40, 40);
        layout->addWidget(elsewhere);
        button = new ZelSelfValidatingButton(QStringLiteral("Add"), &receiver, "add");
        layout->addWidget(button);
        show();
        activateWindow();
        ready = QTest::qWaitForWindowActive(this);
    }
    Q_INVOKABLE void beep() { ++beeps; }

    Receiver receiver;
    int beeps = 0;
    QWidget *elsewhere;
    ZelSelfValidatingButton *button;
    bool ready = false;
};

} // namespace

class tst_SmallButtons : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void hoverButtonsShowAnotherImageUnderThePointer();
    void hoverButtonsAreButtonsToEverybody();
    void validationFollowsWhatTheUserDoes();
    void validationLeavesAlone_data();
    void validationLeavesAlone();
    void clicksSendTheAction();
    void theReceiverMayDeleteEverything();
    void titleBarButtonsWorkOnTheirWindow();
    void titleBarButtonsWorkOnTheirDock();
};

void tst_SmallButtons::hoverButtonsShowAnotherImageUnderThePointer()
{
    ZelHoverButton button;
    button.setIcon(square(Qt::red));
    button.setHoverImage(square(Qt::blue));
    button.resize(button.sizeHint());
    button.show();
    QSignalSpy changes(&button, &ZelHoverButton::hoveredChanged);
    const auto shown = [&button] { return button.grab().toImage().pixelColor(button.rect().center()); };
    QCOMPARE(shown(), QColor(Qt::red));
    moveIn(&button);
    QVERIFY(button.isHovered());
    QCOMPARE(shown(), QColor(Qt::blue));
    button.setEnabled(false);
    QVERIFY(shown() != QColor(Qt::blue));
    button.setEnabled(true);
    moveOut(&button);
    QCOMPARE(shown(), QColor(Qt::red));
    QCOMPARE(changes.size(), 2);
}

void tst_SmallButtons::hoverButtonsAreButtonsToEverybody()
{
    ZelHoverButton button;
    button.setText(QStringLiteral("Cut && &Paste"));
    button.show();
    button.setFocus();
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::keyClick(&button, Qt::Key_Space);
    QCOMPARE(clicks.size(), 1);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(accessible->role(), QAccessible::Button);
    QVERIFY(accessible->text(QAccessible::Name).contains(QStringLiteral("Paste")));
    // The title is measured without its marks.
    ZelHoverButton plain;
    plain.setText(QStringLiteral("Cut  Paste"));
    QVERIFY(button.sizeHint().width() > plain.sizeHint().width());
    plain.setText(QStringLiteral("Cut && Paste"));
    QCOMPARE(button.sizeHint(), plain.sizeHint());
}

void tst_SmallButtons::validationFollowsWhatTheUserDoes()
{
    Window window;
    QVERIFY(window.ready);
    QVERIFY(window.button->isEnabled());
    QCOMPARE(window.receiver.lastItem, window.button);
    QTRY_VERIFY(!window.button->validateInvocation().isPending());
    window.receiver.allows = false;
    window.receiver.asked = 0;
    for (int i = 0; i < 5; ++i)
        QTest::mouseClick(window.elsewhere, Qt::LeftButton);
    QVERIFY(window.button->isEnabled()); // not before its time
    QTRY_VERIFY(!window.button->isEnabled());
    QCOMPARE(window.receiver.asked, 1); // for ten events
    window.receiver.allows = true;
    QTest::keyClick(window.elsewhere, Qt::Key_A);
    QTRY_VERIFY(window.button->isEnabled());

    window.button->hide();
    window.receiver.asked = 0;
    QTest::mouseClick(window.elsewhere, Qt::LeftButton);
    QVERIFY(!window.button->validateInvocation().isPending());
    window.receiver.allows = false;
    window.button->show();
    QVERIFY(!window.button->isEnabled()); // seen in the right state from the start
}

void tst_SmallButtons::validationLeavesAlone_data()
{
    QTest::addColumn<bool>("autovalidates");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("one that does not validate") << false << "missing" << true;
    QTest::newRow("one without an action") << true << "" << true;
    QTest::newRow("not one whose action nobody has") << true << "missing" << false;
}

void tst_SmallButtons::validationLeavesAlone()
{
    QFETCH(bool, autovalidates);
    QFETCH(QString, action);
    Window window;
    window.button->setAutovalidates(autovalidates);
    window.button->setEnabled(true);
    window.button->setAction(action);
    window.button->validate();
    QTEST(window.button->isEnabled(), "enabled");
}

void tst_SmallButtons::clicksSendTheAction()
{
    Window window;
    QTest::mouseClick(window.button, Qt::LeftButton);
    QCOMPARE(window.receiver.lastSender, window.button);
    // Without a target, the first on the way from the focus outwards.
    window.button->setTarget(nullptr);
    QVERIFY(!window.button->isEnabled());
    window.button->setAction("beep");
    QVERIFY(window.button->isEnabled());
    QTest::keyClick(window.button, Qt::Key_Space);
    QCOMPARE(window.beeps, 1);
    // A click leaves the focus where it is.
    Canvas canvas(&window);
    canvas.setFocusPolicy(Qt::StrongFocus);
    canvas.show();
    canvas.setFocus();
    window.button->setAction("cut");
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, window.button->geometry().center());
    QCOMPARE(canvas.cuts, 1);
    QVERIFY(canvas.hasFocus() && window.button->isEnabled());
}

void tst_SmallButtons::theReceiverMayDeleteEverything()
{
    auto *window = new Window;
    QPointer<QObject> button = window->button;
    window->receiver.react = [window] { delete window->button; };
    QTest::mouseClick(window->button, Qt::LeftButton);
    QVERIFY(!button);
    delete window;
}

void tst_SmallButtons::titleBarButtonsWorkOnTheirWindow()
{
    QWidget window;
    window.resize(200, 100);
    ZelTitleBarButton close(ZelTitleBarButton::Close, &window);
    ZelTitleBarButton zoom(ZelTitleBarButton::Zoom, &window);
    ZelTitleBarButton custom(ZelTitleBarButton::Custom, &window);
    QCOMPARE(close.accessibleName(), QStringLiteral("Close"));
    QVERIFY(!(close.focusPolicy() & Qt::ClickFocus));
    window.show();
    custom.click();
    zoom.click();
    QVERIFY(window.isMaximized());
    zoom.click();
    QVERIFY(!window.isMaximized());
    QVERIFY(window.isVisible());
    close.click();
    QVERIFY(!window.isVisible());
}

void tst_SmallButtons::titleBarButtonsWorkOnTheirDock()
{
    QMainWindow window;
    auto *dock = new QDockWidget;
    auto *bar = new QWidget;
    dock->setTitleBarWidget(bar);
    window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    ZelTitleBarButton close(ZelTitleBarButton::Close, bar);
    ZelTitleBarButton zoom(ZelTitleBarButton::Zoom, bar);
    ZelTitleBarButton minimize(ZelTitleBarButton::Minimize, bar);
    window.show();
    zoom.click();
    QVERIFY(dock->isFloating());
    minimize.click();
    QVERIFY(!dock->isMinimized());
    zoom.click();
    QVERIFY(!dock->isFloating());
    close.click();
    QVERIFY(!dock->isVisible());
    QVERIFY(window.isVisible());
}

QTEST_MAIN(tst_SmallButtons)
#include "tst_SmallButtons.moc"
