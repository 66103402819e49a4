// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelBorderedTextField.h"
#include "Controls/Fields/ZelGrowingTokenField.h"
#include "Controls/Fields/ZelLinkTextField.h"
#include "Controls/ZelSelfValidatingButton.h"
#include "FigureSheet.h"
#include "SplitView/ZelSplitView.h"
#include "Views/ZelMagnificationView.h"
#include "Views/ZelSeparator.h"

namespace {
template<typename Control> QWidget *made()
{
    auto *control = new Control;
    constexpr bool isOfColors = std::is_same_v<Control, ZelColorPopUpButton>;
    if constexpr (!isOfColors && requires { control->setObjectValue(QVariant()); })
        control->setObjectValue("1");
    if constexpr (std::is_same_v<Control, ZelPopUpButton>) {
        control->addItemWithTitle("One", 1);
        control->addItemWithTitle("Two", 2);
        control->setObjectValue(1);
    } else if constexpr (std::is_same_v<Control, ZelSegmentedControl>) {
        control->setSegmentCount(3);
        control->setSelectedIndex(1);
    } else if constexpr (std::is_same_v<Control, ZelTabBar>) {
        control->setItems({new ZelTabBarItem(control), new ZelTabBarItem(control)});
    } else if constexpr (std::is_same_v<Control, ZelSplitView>) {
        new ZelView(control);
        new ZelView(control);
    }
    return control;
}

template<typename... Controls> QList<QWidget *(*)()> makers()
{
    return {made<Controls>...};
}

const auto g_makers =
    makers<ZelTextField, ZelGrowingTextField, ZelGrowingTextView, ZelInspectorTextView, ZelBorderedTextField,
           ZelGrowingTokenField, ZelLinkTextField, ZelComboBox, ZelDatePicker, ZelStepper, ZelSlider, ZelCheckBox,
           ZelPopUpButton, ZelColorPopUpButton, ZelColorMatrix, ZelSegmentedControl, ZelOriginSelectionView,
           ZelHoverButton, ZelSelfValidatingButton, ZelLabel, ZelSeparator, ZelExpandableView, ZelTabBar, ZelActionBar,
           ZelSplitView, ZelMagnificationView>();

void closePopups()
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    QCoreApplication::processEvents();
}

void click(QWidget *control, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QWindow *window = control->window()->windowHandle();
    const QPoint place = control->mapTo(control->window(), control->rect().center());
    QTimer closer; // also of those that keep the event loop to themselves
    closer.callOnTimeout(closePopups);
    closer.start(5);
    QTest::mousePress(window, button, modifiers, place);
    QTest::mouseMove(window, place + QPoint(2, 1));
    QTest::mouseRelease(window, button, modifiers, place);
    closePopups();
    QTest::mouseDClick(window, button, modifiers, place);
    closePopups();
}

/// Sends an event of that kind to the widget in the middle of the control, as the system does.
template<typename Event> void send(QWidget *control, const std::function<Event(const QPointF &, const QPointF &)> &make)
{
    QWidget *child = control->childAt(control->rect().center());
    QWidget *target = child ? child : control;
    const QPointF place = QRectF(target->rect()).center();
    Event event = make(place, target->mapToGlobal(place));
    QApplication::sendEvent(target, &event);
}

void turnWheel(QWidget *control, const QPoint &angle)
{
    send<QWheelEvent>(control, [&](const QPointF &place, const QPointF &global) {
        return QWheelEvent(place, global, {}, angle, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    });
}

void touchWithPen(QWidget *control)
{
    for (const QEvent::Type type : {QEvent::TabletPress, QEvent::TabletMove, QEvent::TabletRelease})
        send<QTabletEvent>(control, [type](const QPointF &place, const QPointF &global) {
            return QTabletEvent(type, QPointingDevice::primaryPointingDevice(), place, global, 0.5, 0, 0, 0, 0, 0, {},
                                Qt::LeftButton, Qt::LeftButton);
        });
}
} // namespace

/// Events of all pointing devices come to an end at every control. Only the left button and the wheel of a control with
/// the focus edit.
class tst_PointerEvents : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void comeToAnEnd()
    {
        for (const auto make : g_makers) {
            for (const bool editable : {true, false}) {
                QScrollArea area;
                auto *page = new QWidget;
                auto *column = new QVBoxLayout(page);
                const QPointer<QWidget> control = make();
                const TableRow inRow(control->metaObject()->className() + QString(editable ? "" : ", read-only"));
                column->addWidget(control);
                area.setWidget(page);
                if (!editable && !control->setProperty("editable", false))
                    continue; // there is no such thing
                control->setMinimumHeight(20);
                area.resize(300, 200);
                page->resize(280, 80);
                User::open(&area);
                area.setFocus();
                const bool reports = control->metaObject()->indexOfSignal("valueEdited()") >= 0;
                const QSignalSpy edits(control, reports ? SIGNAL(valueEdited()) : SIGNAL(destroyed()));
                turnWheel(control, {0, 120});
                const auto modifiers = {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
                for (const Qt::MouseButton button :
                     {Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton}) {
                    for (const Qt::KeyboardModifier modifier : modifiers)
                        click(control, button, modifier);
                }
                touchWithPen(control);
                QCOMPARE(edits.count(), 0);
                for (const Qt::KeyboardModifier modifier : modifiers)
                    click(control, Qt::LeftButton, modifier);
                control->setFocus();
                if (QWidget *focus = QApplication::focusWidget())
                    QTest::keyClick(focus, Qt::Key_Down, Qt::ControlModifier);
                closePopups();
                click(control, Qt::RightButton, {});
                click(control, Qt::LeftButton, {});
                for (const QPoint &angle : {QPoint(0, -120), QPoint(0, 120), QPoint(120, 0), QPoint(0, 7)})
                    turnWheel(control, angle);
                QVERIFY(control);
                QVERIFY(editable || edits.isEmpty());
            }
        }
    }
};
QTEST_MAIN(tst_PointerEvents)
#include "tst_PointerEvents.moc"
