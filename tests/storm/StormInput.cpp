// SPDX-License-Identifier: MIT
// The steps in which the user does something.
#include "Storm.h"

#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Input.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Progress.h"
#include "ViewController/ZelView.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <QTextEdit>
#include <QWindow>

namespace {

const QString &textNumber(quint32 number)
{
    static const QStringList texts{QStringLiteral("12"),
                                   QStringLiteral("-5"),
                                   QStringLiteral("3.5"),
                                   QStringLiteral("99999999999"),
                                   QStringLiteral("abc"),
                                   QStringLiteral("0"),
                                   QStringLiteral("2*3"),
                                   QStringLiteral("Dots"),
                                   QStringLiteral("one"),
                                   QStringLiteral("Lin"),
                                   QStringLiteral("\u00fc \u20ac R&D"),
                                   QStringLiteral("1e400")};
    return texts.at(int(number % quint32(texts.size())));
}

Qt::KeyboardModifiers modifiers(quint32 number)
{
    static const Qt::KeyboardModifiers list[] = {
        {}, {}, {}, {}, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return list[number % std::size(list)];
}

Qt::MouseButton button(quint32 number)
{
    static const Qt::MouseButton list[] = {Qt::LeftButton,   Qt::LeftButton,  Qt::LeftButton,
                                           Qt::LeftButton,   Qt::RightButton, Qt::RightButton,
                                           Qt::MiddleButton, Qt::BackButton,  Qt::ForwardButton};
    return list[number % std::size(list)];
}

QPoint pointIn(const QWidget *widget, quint32 number)
{
    const auto within = [](int size, quint32 part) { return std::min(int(part * quint32(size) / 8), size - 1); };
    return {within(widget->width(), number % 9), within(widget->height(), number / 9 % 9)};
}

void describe(const char *what, const QWidget *widget, const QPoint &at)
{
    QByteArray text = what + QByteArray(" at ") + QByteArray::number(at.x()) + "," + QByteArray::number(at.y());
    for (; widget; widget = widget->parentWidget())
        text += QByteArray(" < ") + widget->metaObject()->className();
    Progress::shared().setDetail(text);
}

/// Types into whatever takes texts, and ends it, or goes on elsewhere.
void enterText(QWidget *, quint32 number)
{
    Input::key(Qt::Key_A, Qt::ControlModifier);
    if (number % 8 == 7)
        Input::key(Qt::Key_Delete);
    else
        Input::type(textNumber(number / 8));
    static const int ends[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Escape, 0};
    if (const int end = ends[number / 128 % std::size(ends)])
        Input::key(end, number % 64 == 9 ? Qt::ControlModifier : Qt::NoModifier);
}

void choose(QWidget *, quint32 number)
{
    for (quint32 i = 0; i < number % 6; ++i)
        Input::key(number % 7 == 0 ? Qt::Key_Up : Qt::Key_Down);
    Input::key(number % 11 == 0 ? Qt::Key_Escape : Qt::Key_Return);
}

void stepByKeys(QWidget *, quint32 number)
{
    static const int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Home};
    Input::key(keys[number % std::size(keys)]);
}

void nothingMore(QWidget *, quint32) {}

/// What a person goes on with after a click on a control.
struct Habit
{
    const QMetaObject *type;
    void (*goOn)(QWidget *, quint32);
};
const Habit g_habits[] = {
    {&ZelPopUpButton::staticMetaObject, choose}, {&QAbstractButton::staticMetaObject, nothingMore},
    {&ZelStepper::staticMetaObject, stepByKeys}, {&ZelSlider::staticMetaObject, stepByKeys},
    {&QTableView::staticMetaObject, enterText},  {&QLineEdit::staticMetaObject, enterText},
    {&QTextEdit::staticMetaObject, enterText},   {&QAbstractSpinBox::staticMetaObject, enterText},
    {&QComboBox::staticMetaObject, enterText},   {&QWidget::staticMetaObject, enterText},
};

} // namespace

/// A visible widget: of the pop-up in front, of one of the editors, or any.
QWidget *Storm::anyWidget(quint32 number) const
{
    QWidget *root = m_window.get();
    if (number % 4 && QApplication::activePopupWidget())
        root = QApplication::activePopupWidget();
    else if (number % 16 == 5) {
        const QWindowList windows = QGuiApplication::topLevelWindows(); // in the order in which they were made
        QWindow *window = windows.isEmpty() ? nullptr : windows.at(int(number / 16 % quint32(windows.size())));
        QWidget *other = window && window->isVisible() ? QWidget::find(window->winId()) : nullptr;
        root = other ? other : root;
    } else if (const ZelInspectorProperty *editor = anyEditor(number)) {
        root = const_cast<ZelInspectorProperty *>(editor)->view();
    }
    if (!root || !root->isVisible())
        return nullptr;
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.removeIf([](const QWidget *widget) { return !widget->isVisible() || widget->isWindow(); });
    return widgets.isEmpty() ? root : widgets.at(int(number / 64 % quint32(widgets.size())));
}

ZelInspectorProperty *Storm::anyEditor(quint32 number) const
{
    if (!m_inspector)
        return nullptr;
    QList<ZelInspectorProperty *> editors = m_inspector->findChildren<ZelInspectorProperty *>();
    editors.removeIf([](const ZelInspectorProperty *editor) { return !editor->isViewInstalled(); });
    return editors.isEmpty() ? nullptr : editors.at(int(number / 64 % quint32(editors.size())));
}

void Storm::press(const Step &step)
{
    QWidget *widget = anyWidget(step.a);
    if (!widget || Input::pressedButton() != Qt::NoButton)
        return;
    describe("press", widget, pointIn(widget, step.b));
    Input::press(widget, pointIn(widget, step.b), button(step.c), modifiers(step.b / 128));
}

void Storm::release(const Step &step)
{
    QWidget *widget = anyWidget(step.a);
    if (!widget)
        widget = m_window.get();
    Input::release(widget, pointIn(widget, step.b));
}

void Storm::click(const Step &step)
{
    QWidget *widget = anyWidget(step.a);
    if (!widget)
        return;
    describe("click", widget, pointIn(widget, step.b));
    Input::click(widget, pointIn(widget, step.b), button(step.c), modifiers(step.b / 128));
}

void Storm::doubleClick(const Step &step)
{
    if (QWidget *widget = anyWidget(step.a)) {
        describe("double click", widget, pointIn(widget, step.b));
        Input::doubleClick(widget, pointIn(widget, step.b));
    }
}

void Storm::drag(const Step &step)
{
    const QPointer<QWidget> widget = anyWidget(step.a);
    if (!widget || Input::pressedButton() != Qt::NoButton)
        return;
    describe("drag", widget, pointIn(widget, step.b));
    Input::press(widget, pointIn(widget, step.b), button(step.c), modifiers(step.b / 128));
    for (quint32 i = 0; widget && i < 3; ++i)
        Input::move(widget, pointIn(widget, step.b / 81 + 37 * i) + QPoint(0, int(step.c / 16 % 3) * 20));
    if (step.c % 16 == 15)
        Input::key(Qt::Key_Escape);
    Input::release(widget ? widget.data() : m_window.get(), {2, 2});
}

void Storm::hover(const Step &step)
{
    if (QWidget *widget = anyWidget(step.a))
        Input::move(widget, pointIn(widget, step.b));
}

void Storm::wheel(const Step &step)
{
    static const QPoint angles[] = {{0, 120}, {0, -120}, {0, 30}, {0, -360}, {120, 0}, {0, 0}};
    if (QWidget *widget = anyWidget(step.a)) {
        describe("wheel", widget, pointIn(widget, step.b));
        Input::wheel(widget, pointIn(widget, step.b), angles[step.c % std::size(angles)], modifiers(step.c / 8));
    }
}

void Storm::tablet(const Step &step)
{
    if (QWidget *widget = anyWidget(step.a)) {
        describe("tablet", widget, pointIn(widget, step.b));
        Input::tablet(widget, pointIn(widget, step.b));
    }
}

void Storm::key(const Step &step)
{
    static const int keys[] = {Qt::Key_Tab,      Qt::Key_Tab,   Qt::Key_Backtab,   Qt::Key_Return, Qt::Key_Escape,
                               Qt::Key_Up,       Qt::Key_Down,  Qt::Key_Left,      Qt::Key_Right,  Qt::Key_Home,
                               Qt::Key_End,      Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_PageUp,
                               Qt::Key_PageDown, Qt::Key_A,     Qt::Key_C,         Qt::Key_V,      Qt::Key_X,
                               Qt::Key_Z,        Qt::Key_Y,     Qt::Key_5,         Qt::Key_F4,     Qt::Key_Menu,
                               Qt::Key_F2,       Qt::Key_Minus, Qt::Key_Plus};
    Input::key(keys[step.a % std::size(keys)], modifiers(step.b));
}

void Storm::type(const Step &step)
{
    Input::type(textNumber(step.a));
}

/// Uses a control of an editor as a person does.
void Storm::edit(const Step &step)
{
    ZelInspectorProperty *editor = nullptr;
    QList<QWidget *> controls;
    for (quint32 i = 0; i < 20 && controls.isEmpty(); ++i) { // with most selections, some editors are disabled
        editor = anyEditor(step.a + i * 640);
        if (!editor)
            return;
        controls = editor->view()->findChildren<QWidget *>();
        controls.removeIf([](const QWidget *control) {
            return !control->isVisible() || !control->isEnabled() || control->focusPolicy() == Qt::NoFocus;
        });
    }
    if (controls.isEmpty())
        return;
    const QPointer<QWidget> control = controls.at(int(step.b % quint32(controls.size())));
    describe(qPrintable(QStringLiteral("edit ") + editor->keyPath()), control, control->rect().center());
    const auto *habit = std::find_if(std::begin(g_habits), std::end(g_habits), [&](const Habit &candidate) {
        return control->metaObject()->inherits(candidate.type);
    });
    if (habit->type == &QTableView::staticMetaObject)
        Input::doubleClick(control, pointIn(control, step.b / 16));
    else
        Input::click(control, step.c % 2 ? control->rect().center() : pointIn(control, step.b / 16));
    if (control)
        habit->goOn(control, step.c / 2);
}

void Storm::closePopups(const Step &step)
{
    for (quint32 i = 0; i < 1 + step.a % 4 && QApplication::activePopupWidget(); ++i) {
        if (step.b % 2)
            Input::key(Qt::Key_Escape);
        else
            QApplication::activePopupWidget()->close();
    }
}

void Storm::focus(const Step &step)
{
    QWidget *widget = anyWidget(step.a * 4);
    if (step.b % 4 == 0 && QApplication::focusWidget())
        QApplication::focusWidget()->clearFocus();
    else if (step.b % 4 == 1 && m_otherField)
        m_otherField->setFocus();
    else if (widget && widget->focusPolicy() != Qt::NoFocus)
        widget->setFocus(step.b % 8 == 2 ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

void Storm::activate(const Step &step)
{
    QWidget *window = step.a % 2 ? m_window.get() : m_otherWindow.get();
    if (window)
        window->activateWindow();
}

void Storm::commitTyping()
{
    if (QWidget *focus = QApplication::focusWidget())
        focus->clearFocus();
}
