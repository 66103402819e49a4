// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBar.h"
#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/ZelColorPopUpButton.h"
#include "Controls/Cells/ZelSegmentedControl.h"
#include "Controls/Fields/ZelBorderedTextField.h"
#include "Controls/Fields/ZelComboBox.h"
#include "Controls/Fields/ZelDatePicker.h"
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Fields/ZelGrowingTokenField.h"
#include "Controls/Fields/ZelLinkTextField.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelHoverButton.h"
#include "Controls/ZelLabel.h"
#include "Controls/ZelSelfValidatingButton.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Inspector/Properties/ZelInspectorTextView.h"
#include "Inspector/Properties/ZelOriginSelectionView.h"
#include "SplitView/ZelSplitView.h"
#include "Support/TableRow.h"
#include "TabBar/ZelTabBar.h"
#include "Views/ZelMagnificationView.h"
#include "Views/ZelSeparator.h"

#include <QApplication>
#include <QPointingDevice>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTabletEvent>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

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

/// The widget in the middle of the control, which gets what comes from the system.
QWidget *inFront(QWidget *control)
{
    QWidget *child = control->childAt(control->rect().center());
    return child ? child : control;
}

void closePopups()
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    QCoreApplication::processEvents();
}

/// Also those that keep the event loop to themselves.
class PopupCloser : public QTimer
{
public:
    PopupCloser()
    {
        callOnTimeout(closePopups);
        start(5);
    }
};

void click(QWidget *control, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QWindow *window = control->window()->windowHandle();
    const QPoint place = control->mapTo(control->window(), control->rect().center());
    const PopupCloser closer;
    QTest::mousePress(window, button, modifiers, place);
    QTest::mouseMove(window, place + QPoint(2, 1));
    QTest::mouseRelease(window, button, modifiers, place);
    closePopups();
    QTest::mouseDClick(window, button, modifiers, place);
    closePopups();
}

void turnWheel(QWidget *control, const QPoint &angle)
{
    QWidget *target = inFront(control);
    const QPointF place = QRectF(target->rect()).center();
    QWheelEvent event(place, target->mapToGlobal(place), QPoint(), angle, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
}

void touchWithPen(QWidget *control)
{
    QWidget *target = inFront(control);
    const QPointF place = QRectF(target->rect()).center();
    for (const QEvent::Type type : {QEvent::TabletPress, QEvent::TabletMove, QEvent::TabletRelease}) {
        QTabletEvent event(type, QPointingDevice::primaryPointingDevice(), place, target->mapToGlobal(place), 0.5, 0, 0,
                           0, 0, 0, Qt::NoModifier, Qt::LeftButton, Qt::LeftButton);
        QApplication::sendEvent(target, &event);
    }
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
                area.show();
                QVERIFY(QTest::qWaitForWindowActive(&area));
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
