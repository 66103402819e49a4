// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Cells/ZelSegmentedControl.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelSelfValidatingButton.h"
#include "Controls/ZelTitleBarButton.h"
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Support/Recorder.h"
#include "Support/Reports.h"
#include <cmath>

namespace {
/// A window with something for the user to do elsewhere. It takes an action, and so does what has the focus in it; it
/// has a say in when that can be sent.
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
        layout->addWidget(button = new ZelSelfValidatingButton("Beep", this, "beep"));
        User::open(this);
    }
    Q_INVOKABLE void beep(QObject *sender)
    {
        beeps += sender->inherits("ZelSelfValidatingButton");
        if (whenBeeping)
            whenBeeping();
    }
    Q_INVOKABLE bool validateUserInterfaceItem(QObject *item)
    {
        asked += item->inherits("ZelSelfValidatingButton");
        return allows;
    }

    int beeps = 0;
    int asked = 0;
    bool allows = true;
    std::function<void()> whenBeeping;
    Window *elsewhere = nullptr;
    QPointer<ZelSelfValidatingButton> button;
};

using Make = QWidget *(*)();

template<typename Widget> QWidget *make()
{
    auto *widget = new Widget;
    if constexpr (std::is_same_v<Widget, QComboBox>)
        widget->addItems({"a", "b"});
    return widget;
}
} // namespace

/// Buttons, check boxes and labels; and the keys and the accessibility of controls of all kinds.
class tst_Buttons : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void hoverButtonsShowAnotherImageUnderThePointer()
    {
        ZelHoverButton button;
        button.setText("Cut && &Paste"); // is measured without its marks
        const double title = QFontMetricsF(button.font()).horizontalAdvance("Cut & Paste");
        QCOMPARE(button.sizeHint().width(), int(std::ceil(title)) + 10);
        const auto square = [](const QColor &color) {
            QPixmap pixmap(14, 14);
            pixmap.fill(color);
            return QIcon(pixmap);
        };
        button.setIcon(square(Qt::red));
        button.setHoverImage(square(Qt::blue));
        button.resize(button.sizeHint());
        button.show();
        const QSignalSpy changes(&button, &ZelHoverButton::hoveredChanged);
        const auto shown = [&button] { return button.grab().toImage().pixelColor(button.rect().center()); };
        QCOMPARE(shown(), QColor(Qt::red));
        QEnterEvent enter({3, 3}, {3, 3}, {3, 3});
        QCoreApplication::sendEvent(&button, &enter);
        QCOMPARE(shown(), QColor(Qt::blue));
        button.setEnabled(false);
        QVERIFY(shown() != QColor(Qt::blue));
        button.setEnabled(true);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&button, &leave);
        QCOMPARE(shown(), QColor(Qt::red));
        QCOMPARE(changes.size(), 2);
    }

    void validationFollowsWhatTheUserDoes()
    {
        Window window;
        window.open();
        QVERIFY(window.button->isEnabled());
        QTRY_VERIFY(!window.button->validateInvocation().isPending());
        window.allows = false;
        window.asked = 0;
        for (int i = 0; i < 5; ++i)
            QTest::mouseClick(window.elsewhere, Qt::LeftButton);
        QVERIFY(window.button->isEnabled()); // not before its time
        QTRY_VERIFY(!window.button->isEnabled());
        QCOMPARE(window.asked, 1); // for ten events
        window.allows = true;
        QTest::keyClick(window.elsewhere, Qt::Key_A);
        QTRY_VERIFY(window.button->isEnabled());
        window.button->hide();
        QTest::mouseClick(window.elsewhere, Qt::LeftButton);
        QVERIFY(!window.button->validateInvocation().isPending());
        window.allows = false;
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
        Window window;
        window.open();
        window.elsewhere->setFocus();
        QTest::mouseClick(window.button, Qt::LeftButton);
        QCOMPARE(window.beeps, 1);
        // Without a target, the first on the way from the focus outwards. A click leaves the focus where it is.
        window.allows = false;
        window.button->setTarget(nullptr);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, window.button->geometry().center());
        QCOMPARE(window.elsewhere->beeps, 1);
        QVERIFY(window.elsewhere->hasFocus() && window.button->isEnabled());
        window.allows = true;
        window.button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(window.button, Qt::Key_Space);
        QCOMPARE(window.beeps, 2);
        window.allows = false;
        window.button->setTarget(&window);
        QVERIFY(!window.button->isEnabled());
        window.button->setEnabled(true);
        window.whenBeeping = [&window] { delete window.button; };
        QTest::mouseClick(window.button, Qt::LeftButton);
        QVERIFY(!window.button && window.beeps == 3);
    }

    void titleBarButtonsWorkOnTheirWindowOrDock()
    {
        QMainWindow window;
        auto *dock = new QDockWidget;
        auto *bar = new QWidget;
        dock->setTitleBarWidget(bar);
        window.addDockWidget(Qt::LeftDockWidgetArea, dock);
        window.show();
        const auto click = [](ZelTitleBarButton::Role role, QWidget *parent) {
            ZelTitleBarButton button(role, parent);
            QVERIFY(!(button.focusPolicy() & Qt::ClickFocus));
            QCOMPARE(button.accessibleName() == "Close", role == ZelTitleBarButton::Close);
            QCOMPARE(button.sizeHint().width() - button.iconSize().width(), role == ZelTitleBarButton::Custom ? 6 : 4);
            button.click();
        };
        for (const bool isLarge : {true, false}) {
            click(ZelTitleBarButton::Zoom, &window);
            QCOMPARE(window.isMaximized(), isLarge);
            click(ZelTitleBarButton::Zoom, bar);
            QCOMPARE(dock->isFloating(), isLarge);
            click(ZelTitleBarButton::Minimize, bar);
            QVERIFY(!dock->isMinimized());
        }
        click(ZelTitleBarButton::Custom, &window);
        click(ZelTitleBarButton::Close, bar);
        QVERIFY(!dock->isVisible() && window.isVisible());
        click(ZelTitleBarButton::Close, &window);
        QVERIFY(!window.isVisible());
    }

    void clicksOnCheckBoxesNeverLeadToMixed()
    {
        ControlPanel<ZelCheckBox> panel("Title");
        ZelCheckBox *box = panel.control;
        const QPoint place(8, box->height() / 2);
        panel.state = [box]() -> QString {
            return box->objectValue() == several() ? QString("mixed") : box->objectValue().toString();
        };
        panel.actions["click"] = [&](const QString &) {
            QTest::mousePress(box, Qt::LeftButton, {}, place);
            QMouseEvent release(QEvent::MouseButtonRelease, place, box->mapToGlobal(place), Qt::LeftButton, {}, {});
            QCoreApplication::sendEvent(box, &release); // which does not look at the box any more
        };
        panel.actions["call"] = [box](const QString &) { box->click(); };
        panel.play(
            "set value 4 > 4 changed; set value 5 > 5 changed; set value 5 > 5; set value several > mixed changed; "
            "click > true reported; click > false reported; focus; Space > true reported; "
            "call > false reported; set editable false > false editable; click > false; Space > false; "
            "call > false; set editable true > false editable; Space > true reported");
        QCOMPARE(panel.undo.stack()->count(), 5);
        panel.dyingAt = panel.told + 2;
        panel.play("click");
        QVERIFY(!panel.control);
    }

    /// An elided title paints like a title that ends in an ellipsis.
    void titlesGiveWay()
    {
        const auto check = [](auto &&widget, auto &&other, int used) {
            widget.setText("WWWWWWWWWWWW");
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
        const QCheckBox box("W");
        check(ZelCheckBox(), ZelCheckBox(), box.sizeHint().width() - box.fontMetrics().horizontalAdvance('W'));
        check(ZelLabel(), ZelLabel(), 1);
    }

    // All controls

    void keysReadWriteAndTell()
    {
        const QString title("R&D budget");
        using Rows = QList<std::tuple<Make, const char *, QVariant>>;
        const Rows telling{{make<ZelTextField>, "value", 5},
                           {make<ZelGrowingTextField>, "value", "x"},
                           {make<ZelCheckBox>, "value", true},
                           {make<ZelCheckBox>, "editable", false},
                           {make<ZelPopUpButton>, "value", 3},
                           {make<ZelLabel>, "value", "x"},
                           {make<ZelLabel>, "title", "x"},
                           {make<ZelStepper>, "value", 5.5},
                           {make<ZelStepper>, "minValue", 1},
                           {make<ZelSlider>, "value", 0.5},
                           {make<ZelSlider>, "maxValue", 100.0},
                           {make<QWidget>, "enabled", false},
                           {make<QLineEdit>, "value", "x"},
                           {make<QSpinBox>, "value", 7},
                           {make<QDoubleSpinBox>, "value", 1.5},
                           {make<QSlider>, "value", 42},
                           {make<QComboBox>, "value", "b"},
                           {make<QComboBox>, "selectedIndex", 1},
                           {make<ZelSegmentedControl>, "selectedIndex", 1}};
        const Rows silent{{make<ZelCheckBox>, "title", title},
                          {make<ZelPushButton>, "title", title},
                          {make<ZelStepper>, "increment", 2.5},
                          {make<QLabel>, "value", "x"},
                          {make<QPushButton>, "title", title},
                          {make<QSpinBox>, "maxValue", 1000},
                          {make<QComboBox>, "contentValues", QVariantList{1, "b"}}};
        const Rows all = telling + silent;
        for (qsizetype i = 0; i < all.size(); ++i) {
            const auto &[makeWidget, key, value] = all[i];
            const bool tells = i < telling.size();
            const std::unique_ptr<QWidget> widget(makeWidget());
            const TableRow inRow(QString("%1 of %2").arg(key, widget->metaObject()->className()));
            QVERIFY(!ZelEqual(ZelValueForKey(widget.get(), key), value));
            if (QByteArray(widget->metaObject()->className()).startsWith("Zel"))
                QCOMPARE(widget->focusPolicy() == Qt::StrongFocus, !widget->inherits("ZelLabel"));
            Recorder recorder;
            if (tells)
                ZelAddObserver(widget.get(), &recorder, key, {}, nullptr);
            const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(widget.get(), key);
            QVERIFY(accessor && accessor->write(widget.get(), value));
            const QVariant read = ZelValueForKey(widget.get(), key);
            QVERIFY(ZelEqual(read, value) || read.toStringList() == value.toStringList());
            if (const auto *button = qobject_cast<QAbstractButton *>(widget.get()))
                QVERIFY(button->shortcut().isEmpty()); // titles have no mnemonics
            QCOMPARE(recorder.count() > 0, tells);
            if (tells)
                ZelRemoveObserver(widget.get(), &recorder, key, nullptr);
        }
    }

    void hiddenFollowsTheWidgetNotItsWindow()
    {
        QWidget window;
        QWidget child(&window);
        Recorder recorder;
        ZelAddObserver(&child, &recorder, "hidden", {}, nullptr);
        ZelSetValueForKey(&child, true, "hidden");
        QCOMPARE(ZelValueForKey(&child, "hidden"), QVariant(true));
        window.show();
        QVERIFY(child.isHidden());
        QCOMPARE(recorder.count(), 1);
        child.show();
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(ZelValueForKey(&child, "hidden"), QVariant(false));
        // Qt hides widgets in its own events as well, which nothing may be thrown through.
        const Reports reports;
        recorder.react = [] { throw ZelGenericException("an observer's"); };
        child.hide();
        QCOMPARE(reports.messages, QStringList("an observer's"));
        recorder.react = nullptr;
        ZelRemoveObserver(&child, &recorder, "hidden", nullptr);
        child.setParent(nullptr);
    }

    void onlyControlsForThemTakeMarkers()
    {
        for (const Make make : {make<ZelTextField>, make<ZelGrowingTextField>, make<ZelCheckBox>, make<ZelPopUpButton>,
                                make<ZelStepper>, make<ZelSlider>, make<ZelLabel>}) {
            const std::unique_ptr<QWidget> control(make());
            const bool isLabel = qobject_cast<ZelLabel *>(control.get());
            const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(control.get(), "value");
            QVERIFY(accessor->takesMarkers() && (accessor->editSignalIndex() < 0) == isLabel);
            QVERIFY(accessor->write(control.get(), several()));
            QCOMPARE(accessor->read(control.get()), isLabel ? QVariant("Multiple Values") : several());
            control->grab();
        }
        QPushButton button;
        QVERIFY(!ZelPropertyAccessor::find(&button, "value")->takesMarkers());
        ZelSlider slider;
        slider.setMaxValue(50);
        for (const QVariant &noNumber : {QVariant(), several(), QVariant("wide")})
            QVERIFY(!ZelPropertyAccessor::find(&slider, "maxValue")->write(&slider, noNumber));
        QCOMPARE(slider.maxValue(), 50.0);
    }

    void assistiveTechnologySees()
    {
        ZelLabel label("Width");
        QAccessibleInterface *labelInterface = QAccessible::queryAccessibleInterface(&label);
        QCOMPARE(labelInterface->role(), QAccessible::StaticText);
        QCOMPARE(labelInterface->text(QAccessible::Name), "Width");
        ZelPopUpButton button;
        button.addItem(new QAction("&Choice", &button));
        button.setSelectedIndex(0);
        button.setAccessibleName("Kind");
        QAccessibleInterface *popUp = QAccessible::queryAccessibleInterface(&button);
        QCOMPARE(popUp->role(), QAccessible::ComboBox);
        QCOMPARE(popUp->text(QAccessible::Name), "Kind");
        QCOMPARE(popUp->text(QAccessible::Value), "Choice");
    }
};
QTEST_MAIN(tst_Buttons)
#include "tst_Buttons.moc"
