// SPDX-License-Identifier: MIT
// The steps in which the user does something.
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Storm.h"
#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

// What the system's plug-ins call.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, const QPointF &local, const QPointF &global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString &text = QString(), bool autorepeat = false, ushort count = 1);

namespace {
thread_local bool g_isStorm = false;
qint64 g_nanoseconds = 1'700'000'000'000'000'000;
Qt::MouseButton g_button = Qt::NoButton;

void reveal(QWidget *widget)
{
    for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(parent))
            area->ensureWidgetVisible(widget, 0, 0);
    }
}

void send(QWidget *widget, const QPoint &at, QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QWidget *window = widget->window();
    if (!window->windowHandle() || !window->isVisible())
        return;
    const QPoint local = widget->mapTo(window, at);
    qt_handleMouseEvent(window->windowHandle(), local, window->mapToGlobal(local), g_button, button, type, modifiers,
                        int(g_nanoseconds / 1'000'000 & 0x7fffffff));
}

void sendKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    const QWidget *popup = QApplication::activePopupWidget();
    if (QWindow *window = popup && popup->windowHandle() ? popup->windowHandle() : QGuiApplication::focusWindow())
        qt_handleKeyEvent(window, type, key, modifiers, text);
}

/// Scrolls the widget into sight first.
void press(QWidget *widget, const QPoint &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {})
{
    reveal(widget);
    g_button = button;
    send(widget, at, QEvent::MouseButtonPress, button, modifiers);
}

void move(QWidget *widget, const QPoint &at)
{
    send(widget, at, QEvent::MouseMove, Qt::NoButton, {});
}

void release(QWidget *widget, const QPoint &at, Qt::KeyboardModifiers modifiers = {})
{
    const Qt::MouseButton button = std::exchange(g_button, Qt::NoButton);
    if (button != Qt::NoButton)
        send(widget, at, QEvent::MouseButtonRelease, button, modifiers);
}

void click(QWidget *widget, const QPoint &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    const QPointer<QWidget> alive(widget);
    const QPointer<QWidget> window(widget->window());
    advanceTime(1000); // two clicks are no double click
    press(widget, at, button, modifiers);
    advanceTime(20);
    if (alive)
        release(widget, at, modifiers);
    else if (window)
        release(window, {1, 1}, modifiers);
    else
        g_button = Qt::NoButton;
}

void doubleClick(QWidget *widget, const QPoint &at)
{
    const QPointer<QWidget> alive(widget);
    click(widget, at, Qt::LeftButton, {});
    if (alive)
        press(widget, at, Qt::LeftButton);
    if (alive)
        release(widget, at);
}

void wheel(QWidget *widget, const QPoint &at, const QPoint &angle, Qt::KeyboardModifiers modifiers)
{
    reveal(widget);
    QWidget *window = widget->window();
    if (!window->windowHandle())
        return;
    const QPoint local = widget->mapTo(window, at);
    QWheelEvent event(local, window->mapToGlobal(local), {}, angle, g_button, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window->windowHandle(), &event);
}

void typeText(const QString &text)
{
    for (const QChar character : text) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            sendKey(type, character.toUpper().unicode(), {}, character);
    }
}

template<typename List> auto chosen(const List &list, quint32 number)
{
    return *(std::begin(list) + number % quint32(std::size(list)));
}

void typeAny(quint32 number)
{
    static const char *const texts[] = {"12",  "-5",   "3.5", "99999999999", "abc",          "0",
                                        "2*3", "Dots", "one", "Lin",         "\u00fc € R&D", "1e400"};
    typeText(QString::fromUtf8(chosen(texts, number)));
}

Qt::KeyboardModifiers modifiers(quint32 number)
{
    static const Qt::KeyboardModifiers list[] = {
        {}, {}, {}, {}, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return chosen(list, number);
}

Qt::MouseButton button(quint32 number)
{
    static const Qt::MouseButton list[] = {Qt::LeftButton,   Qt::LeftButton,  Qt::LeftButton,
                                           Qt::LeftButton,   Qt::RightButton, Qt::RightButton,
                                           Qt::MiddleButton, Qt::BackButton,  Qt::ForwardButton};
    return chosen(list, number);
}

QPoint pointIn(const QWidget *widget, quint32 number)
{
    const auto within = [](int size, quint32 part) { return std::min(int(part * quint32(size) / 8), size - 1); };
    return {within(widget->width(), number % 9), within(widget->height(), number / 9 % 9)};
}

void describe(const QByteArray &what, const QWidget *widget, const QPoint &at)
{
    QByteArray text = what + " at " + QByteArray::number(at.x()) + "," + QByteArray::number(at.y());
    for (; widget; widget = widget->parentWidget())
        text += QByteArray(" < ") + widget->metaObject()->className();
    Progress::setDetail(text);
}

/// Types into whatever takes texts, and ends it, or goes on elsewhere.
void enterText(quint32 number)
{
    pressKey(Qt::Key_A, Qt::ControlModifier);
    if (number % 8 == 7)
        pressKey(Qt::Key_Delete);
    else
        typeAny(number / 8);
    static const int ends[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Escape, 0};
    if (const int end = chosen(ends, number / 128))
        pressKey(end, number % 64 == 9 ? Qt::ControlModifier : Qt::NoModifier);
}

void choose(quint32 number)
{
    for (quint32 i = 0; i < number % 6; ++i)
        pressKey(number % 7 == 0 ? Qt::Key_Up : Qt::Key_Down);
    pressKey(number % 11 == 0 ? Qt::Key_Escape : Qt::Key_Return);
}

void stepByKeys(quint32 number)
{
    static const int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Home};
    pressKey(chosen(keys, number));
}

/// What a person goes on with after a click on a control.
const struct
{
    const QMetaObject &type;
    void (*goOn)(quint32);
} g_habits[] = {{ZelPopUpButton::staticMetaObject, choose},
                {QAbstractButton::staticMetaObject, [](quint32) {}},
                {ZelStepper::staticMetaObject, stepByKeys},
                {ZelSlider::staticMetaObject, stepByKeys},
                {QWidget::staticMetaObject, enterText}};
} // namespace

/// Takes the place of the system's function, which Qt's timers ask.
extern "C" int clock_gettime(clockid_t clock, struct timespec *time) noexcept
{
    if (!g_isStorm)
        return int(syscall(SYS_clock_gettime, clock, time));
    g_nanoseconds += 1000; // whoever waits for the time to pass sees it pass
    time->tv_sec = time_t(g_nanoseconds / 1'000'000'000);
    time->tv_nsec = long(g_nanoseconds % 1'000'000'000);
    return 0;
}

void advanceTime(int milliseconds)
{
    g_isStorm = true;
    g_nanoseconds += qint64(milliseconds) * 1'000'000;
}

void pressKey(int key, Qt::KeyboardModifiers modifiers)
{
    const bool isText = !(modifiers & (Qt::ControlModifier | Qt::AltModifier)) && key >= Qt::Key_Space && key < 0x1000;
    const QString text = key == Qt::Key_Return ? QStringLiteral("\r")
                         : isText              ? QString(QChar(key)).toLower()
                                               : QString();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) // which may go elsewhere, to a pop-up
        sendKey(type, key, modifiers, text);
}

/// A visible widget: of the pop-up in front, of one of the editors, or any.
QWidget *Storm::anyWidget(quint32 number) const
{
    QWidget *root = m_window.get();
    if (number % 4 && QApplication::activePopupWidget())
        root = QApplication::activePopupWidget();
    else if (number % 16 == 5) {
        const QWindowList windows = QGuiApplication::topLevelWindows(); // in the order in which they were made
        const QWindow *window = windows.isEmpty() ? nullptr : chosen(windows, number / 16);
        QWidget *other = window && window->isVisible() ? QWidget::find(window->winId()) : nullptr;
        root = other ? other : root;
    } else if (ZelInspectorProperty *editor = anyEditor(number)) {
        root = editor->view();
    }
    if (!root || !root->isVisible())
        return nullptr;
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.removeIf([](const QWidget *widget) { return !widget->isVisible() || widget->isWindow(); });
    return widgets.isEmpty() ? root : chosen(widgets, number / 64);
}

ZelInspectorProperty *Storm::anyEditor(quint32 number) const
{
    if (!m_inspector)
        return nullptr;
    QList<ZelInspectorProperty *> editors = m_inspector->findChildren<ZelInspectorProperty *>();
    editors.removeIf([](const ZelInspectorProperty *editor) { return !editor->isViewInstalled(); });
    return editors.isEmpty() ? nullptr : chosen(editors, number / 64);
}

void Storm::commitTyping()
{
    if (QWidget *focus = QApplication::focusWidget())
        focus->clearFocus();
}

void Storm::addGesture(const QByteArray &name, int weight, void (*perform)(QWidget *, const QPoint &, const Step &))
{
    add(name, weight, Edit, [this, name, perform](const Step &step) {
        QWidget *widget = anyWidget(step.a);
        if (!widget)
            return;
        describe(name, widget, pointIn(widget, step.b));
        perform(widget, pointIn(widget, step.b), step);
    });
}

void Storm::addUserSteps()
{
    addGesture("press", 4, [](QWidget *widget, const QPoint &at, const Step &step) {
        if (g_button == Qt::NoButton)
            press(widget, at, button(step.c), modifiers(step.b / 128));
    });
    add("release", 4, Edit, [this](const Step &step) {
        QWidget *widget = anyWidget(step.a);
        if (!widget)
            widget = m_window.get();
        release(widget, pointIn(widget, step.b));
    });
    addGesture("click", 30, [](QWidget *widget, const QPoint &at, const Step &step) {
        click(widget, at, button(step.c), modifiers(step.b / 128));
    });
    addGesture("doubleClick", 6, [](QWidget *widget, const QPoint &at, const Step &) { doubleClick(widget, at); });
    add("drag", 8, Edit, [this](const Step &step) {
        const QPointer<QWidget> widget = anyWidget(step.a);
        if (!widget || g_button != Qt::NoButton)
            return;
        describe("drag", widget, pointIn(widget, step.b));
        press(widget, pointIn(widget, step.b), button(step.c), modifiers(step.b / 128));
        for (quint32 i = 0; widget && i < 3; ++i)
            move(widget, pointIn(widget, step.b / 81 + 37 * i) + QPoint(0, int(step.c / 16 % 3) * 20));
        if (step.c % 16 == 15)
            pressKey(Qt::Key_Escape);
        release(widget ? widget.data() : m_window.get(), {2, 2});
    });
    addGesture("hover", 4, [](QWidget *widget, const QPoint &at, const Step &) { move(widget, at); });
    addGesture("wheel", 10, [](QWidget *widget, const QPoint &at, const Step &step) {
        static const QPoint angles[] = {{0, 120}, {0, -120}, {0, 30}, {0, -360}, {120, 0}, {0, 0}};
        wheel(widget, at, chosen(angles, step.c), modifiers(step.c / 8));
    });
    add("key", 50, Edit, [](const Step &step) {
        static const int keys[] = {Qt::Key_Tab,      Qt::Key_Tab,   Qt::Key_Backtab,   Qt::Key_Return, Qt::Key_Escape,
                                   Qt::Key_Up,       Qt::Key_Down,  Qt::Key_Left,      Qt::Key_Right,  Qt::Key_Home,
                                   Qt::Key_End,      Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_PageUp,
                                   Qt::Key_PageDown, Qt::Key_A,     Qt::Key_C,         Qt::Key_V,      Qt::Key_X,
                                   Qt::Key_Z,        Qt::Key_Y,     Qt::Key_5,         Qt::Key_F4,     Qt::Key_Menu,
                                   Qt::Key_F2,       Qt::Key_Minus, Qt::Key_Plus};
        pressKey(chosen(keys, step.a), modifiers(step.b));
    });
    add("type", 15, Edit, [](const Step &step) { typeAny(step.a); });
    // Uses a control of an editor as a person does.
    add("edit", 50, Edit, [this](const Step &step) {
        ZelInspectorProperty *editor = anyEditor(step.a);
        QList<QWidget *> controls;
        for (quint32 i = 1; editor && i <= 20 && controls.isEmpty(); ++i) { // with most selections, some are disabled
            controls = editor->view()->findChildren<QWidget *>();
            controls.removeIf([](const QWidget *control) {
                return !control->isVisible() || !control->isEnabled() || control->focusPolicy() == Qt::NoFocus;
            });
            if (controls.isEmpty())
                editor = anyEditor(step.a + i * 640);
        }
        if (controls.isEmpty())
            return;
        const QPointer<QWidget> control = chosen(controls, step.b);
        describe("edit " + editor->keyPath().toLatin1(), control, control->rect().center());
        const auto *habit = std::find_if(std::begin(g_habits), std::end(g_habits), [&](const auto &candidate) {
            return control->metaObject()->inherits(&candidate.type);
        });
        if (qobject_cast<QTableView *>(control))
            doubleClick(control, pointIn(control, step.b / 16));
        else
            click(control, step.c % 2 ? control->rect().center() : pointIn(control, step.b / 16), Qt::LeftButton, {});
        if (control)
            habit->goOn(step.c / 2);
    });
    add("closePopups", 12, Edit, [](const Step &step) {
        for (quint32 i = 0; i < 1 + step.a % 4 && QApplication::activePopupWidget(); ++i) {
            if (step.b % 2)
                pressKey(Qt::Key_Escape);
            else
                QApplication::activePopupWidget()->close();
        }
    });
    add("focus", 15, Edit, [this](const Step &step) {
        QWidget *widget = anyWidget(step.a * 4);
        if (step.b % 4 == 0 && QApplication::focusWidget())
            commitTyping();
        else if (step.b % 4 == 1 && m_otherField)
            m_otherField->setFocus();
        else if (widget && widget->focusPolicy() != Qt::NoFocus)
            widget->setFocus(step.b % 8 == 2 ? Qt::TabFocusReason : Qt::OtherFocusReason);
    });
    add("activate", 3, Edit, [this](const Step &step) { (step.a % 2 ? m_window : m_otherWindow)->activateWindow(); });
}
