// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelHoverButton.h"
#include "Controls/ZelLabel.h"
#include "Controls/ZelSelfValidatingButton.h"
#include "Controls/ZelTitleBarButton.h"
#include "Observation/ZelDelayedInvocation.h"

#include <QAccessible>
#include <QDockWidget>
#include <QEnterEvent>
#include <QMainWindow>
#include <QSignalSpy>

namespace {

QIcon square(const QColor &color)
{
    QPixmap pixmap(14, 14);
    pixmap.fill(color);
    return QIcon(pixmap);
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

/// A window with something for the user to do elsewhere; it takes an action, and so does what has the focus in it.
class Window : public QWidget
{
    Q_OBJECT
public:
    void open()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(elsewhere = new Window);
        elsewhere->setFocusPolicy(Qt::StrongFocus);
        elsewhere->setMinimumSize(40, 40);
        layout->addWidget(button = new ZelSelfValidatingButton("Add", &receiver, "add"));
        show();
        activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }
    Q_INVOKABLE void beep() { ++beeps; }

    Receiver receiver;
    int beeps = 0;
    Window *elsewhere = nullptr;
    QPointer<ZelSelfValidatingButton> button;
};

} // namespace

/// Buttons, check boxes and labels.
class tst_Buttons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hoverButtonsShowAnotherImageUnderThePointer()
    {
        ZelHoverButton button;
        button.setIcon(square(Qt::red));
        button.setHoverImage(square(Qt::blue));
        button.resize(button.sizeHint());
        button.show();
        const QSignalSpy changes(&button, &ZelHoverButton::hoveredChanged);
        const auto shown = [&button] { return button.grab().toImage().pixelColor(button.rect().center()); };
        QCOMPARE(shown(), QColor(Qt::red));
        QEnterEvent enter({3, 3}, {3, 3}, {3, 3});
        QCoreApplication::sendEvent(&button, &enter);
        QVERIFY(button.isHovered());
        QCOMPARE(shown(), QColor(Qt::blue));
        button.setEnabled(false);
        QVERIFY(shown() != QColor(Qt::blue));
        button.setEnabled(true);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&button, &leave);
        QCOMPARE(shown(), QColor(Qt::red));
        QCOMPARE(changes.size(), 2);
    }

    void hoverButtonsAreButtonsToEverybody()
    {
        ZelHoverButton button;
        button.setText("Cut && &Paste");
        button.show();
        button.setFocus();
        const QSignalSpy clicks(&button, &QAbstractButton::clicked);
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(clicks.size(), 1);
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
        QCOMPARE(accessible->role(), QAccessible::Button);
        QVERIFY(accessible->text(QAccessible::Name).contains("Paste"));
        // The title is measured without its marks.
        ZelHoverButton plain;
        plain.setText("Cut  Paste");
        QVERIFY(button.sizeHint().width() > plain.sizeHint().width());
        plain.setText("Cut && Paste");
        QCOMPARE(button.sizeHint(), plain.sizeHint());
    }

    void validationFollowsWhatTheUserDoes()
    {
        Window window;
        window.open();
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
        QTest::mouseClick(window.elsewhere, Qt::LeftButton);
        QVERIFY(!window.button->validateInvocation().isPending());
        window.receiver.allows = false;
        window.button->show();
        QVERIFY(!window.button->isEnabled()); // seen in the right state from the start
        const std::tuple<bool, const char *, bool> rows[] = {
            {false, "missing", true}, {true, "", true}, {true, "missing", false}};
        for (const auto &[autovalidates, action, isEnabled] : rows) {
            window.button->setAutovalidates(autovalidates);
            window.button->setEnabled(true);
            window.button->setAction(action);
            window.button->validate();
            QCOMPARE(window.button->isEnabled(), isEnabled);
        }
    }

    void clicksSendTheAction()
    {
        auto window = std::make_unique<Window>();
        window->open();
        QTest::mouseClick(window->button, Qt::LeftButton);
        QCOMPARE(window->receiver.lastSender, window->button);
        // Without a target, the first on the way from the focus outwards.
        window->button->setTarget(nullptr);
        QVERIFY(!window->button->isEnabled());
        window->button->setAction("beep");
        QVERIFY(window->button->isEnabled());
        window->button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(window->button, Qt::Key_Space);
        QCOMPARE(window->beeps, 1);
        // A click leaves the focus where it is.
        window->elsewhere->setFocus();
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, window->button->geometry().center());
        QCOMPARE(window->elsewhere->beeps, 1);
        QVERIFY(window->elsewhere->hasFocus() && window->button->isEnabled());
        // The receiver may delete the button.
        window->button->setTarget(&window->receiver);
        window->button->setAction("add");
        window->receiver.react = [&window] { delete window->button; };
        QTest::mouseClick(window->button, Qt::LeftButton);
        QVERIFY(!window->button);
    }

    void titleBarButtonsWorkOnTheirWindow()
    {
        QWidget window;
        window.resize(200, 100);
        ZelTitleBarButton close(ZelTitleBarButton::Close, &window);
        ZelTitleBarButton zoom(ZelTitleBarButton::Zoom, &window);
        ZelTitleBarButton custom(ZelTitleBarButton::Custom, &window);
        QCOMPARE(close.accessibleName(), "Close");
        QVERIFY(!(close.focusPolicy() & Qt::ClickFocus));
        window.show();
        custom.click();
        for (const bool isMaximized : {true, false}) {
            zoom.click();
            QCOMPARE(window.isMaximized(), isMaximized);
        }
        QVERIFY(window.isVisible());
        close.click();
        QVERIFY(!window.isVisible());
    }

    void titleBarButtonsWorkOnTheirDock()
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
        QVERIFY(!dock->isVisible() && window.isVisible());
    }

    void checkBoxesShowValues()
    {
        const std::pair<QVariant, Qt::CheckState> rows[] = {
            {{}, Qt::Unchecked},
            {ZelNull(), Qt::Unchecked},
            {QVariant::fromValue(ZelNoSelectionMarker), Qt::Unchecked},
            {QVariant::fromValue(ZelNotApplicableMarker), Qt::Unchecked},
            {several(), Qt::PartiallyChecked},
            {4, Qt::Checked},
            {false, Qt::Unchecked},
        };
        for (const auto &[value, state] : rows) {
            ZelCheckBox box;
            const QSignalSpy edited(&box, &ZelCheckBox::valueEdited);
            for (const bool before : {true, false}) {
                box.setObjectValue(before);
                box.setObjectValue(value);
                QCOMPARE(box.checkState(), state);
                QCOMPARE(box.objectValue(), value);
            }
            box.setCheckState(state == Qt::Checked ? Qt::Unchecked : Qt::Checked);
            QCOMPARE(box.objectValue(), QVariant(state != Qt::Checked));
            QCOMPARE(edited.count(), 0);
        }
    }

    void clicksOnCheckBoxesNeverLeadToMixed()
    {
        ControlPanel<ZelCheckBox> panel("Title");
        ZelCheckBox *box = panel.control;
        const QPoint place(8, box->height() / 2);
        connect(box, &ZelCheckBox::objectValueChanged, &panel, [&panel] { panel.log.append("changed"); });
        panel.state = [box]() -> QString {
            return box->objectValue() == several() ? QString("mixed") : box->objectValue().toString();
        };
        panel.actions["click"] = [&](const QString &) {
            QTest::mousePress(box, Qt::LeftButton, {}, place);
            QMouseEvent release(QEvent::MouseButtonRelease, place, box->mapToGlobal(place), Qt::LeftButton,
                                Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(box, &release); // which does not look at the box any more
        };
        panel.actions["call"] = [box](const QString &) { box->click(); };
        panel.play("set value 4 > 4 changed; set value 5 > 5 changed; set value 5 > 5; set value several > mixed "
                   "changed; click > true changed+reported; click > false changed+reported; "
                   "focus; Space > true changed+reported; call > false changed+reported; set editable false; "
                   "click > false; Space > false; call > false; set editable true; Space > true changed+reported");
        QCOMPARE(panel.undo.stack()->count(), 5);
        panel.dyingAt = panel.told + 2;
        panel.play("click");
        QVERIFY(!panel.control);
    }

    /// An elided title paints like a title that ends in an ellipsis.
    void titlesGiveWay()
    {
        const auto check = [](auto &widget, auto &&other, int used) {
            const QSize whole = widget.sizeHint();
            QVERIFY(widget.minimumSizeHint().width() < whole.width() / 2);
            const int letter = widget.fontMetrics().horizontalAdvance('W');
            const std::pair<int, QString> rows[] = {{0, "WWWWWWWWWWWW"}, {2 * letter, "WWWWWWWWW\u2026"}};
            for (const auto &[less, shown] : rows) {
                widget.resize(whole - QSize(less, 0));
                other.setText(shown);
                other.resize(widget.size());
                QCOMPARE(widget.grab().toImage(), other.grab().toImage());
            }
            widget.setText("W");
            QCOMPARE(widget.sizeHint().width(), used + letter);
            widget.setFont(QFont("DejaVu Sans", 40));
            QVERIFY(widget.sizeHint().width() > used + letter);
        };
        ZelCheckBox box("WWWWWWWWWWWW");
        check(box, ZelCheckBox(), QCheckBox("W").sizeHint().width() - box.fontMetrics().horizontalAdvance('W'));
        ZelLabel label("WWWWWWWWWWWW");
        check(label, ZelLabel(), 1);
    }
};

QTEST_MAIN(tst_Buttons)
#include "tst_Buttons.moc"
