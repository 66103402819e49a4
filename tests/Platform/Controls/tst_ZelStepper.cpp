// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelStepper.h"
#include "Platform/Runtime/ZelValues.h"

#include "ControlPanel.h"

#include <QApplication>
#include <QProxyStyle>
#include <QSignalSpy>
#include <cmath>

namespace {

using Panel = ControlPanel<ZelStepper>;

/// Repeats without the patience that people need.
class HastyStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        if (hint == SH_SpinBox_ClickAutoRepeatThreshold)
            return 40;
        return hint == SH_SpinBox_ClickAutoRepeatRate ? 10 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QPoint upper(const QWidget *stepper)
{
    return {stepper->width() / 2, stepper->height() / 4};
}

QPoint lower(const QWidget *stepper)
{
    return {stepper->width() / 2, stepper->height() * 3 / 4};
}

} // namespace

class tst_ZelStepper : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new HastyStyle); }
    void steps_data();
    void steps();
    void clicksStepInBothDirectionsOfReading();
    void holdingRepeatsInOneUndoGrouping();
    void pressEndsWithTheControl_data();
    void pressEndsWithTheControl();
    void keysAndWheel();
    void refusesInputUnlessEditable();
};

void tst_ZelStepper::steps_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("increment");
    QTest::addColumn<bool>("wraps");
    QTest::addColumn<int>("steps");
    QTest::addColumn<QVariant>("result");
    constexpr double largest = std::numeric_limits<double>::max();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const QVariant several = QVariant::fromValue(ZelMultipleValuesMarker);

    QTest::newRow("up") << QVariant(1) << -largest << largest << 1.0 << false << 1 << QVariant(2.0);
    QTest::newRow("no binary noise") << QVariant(0.2) << 0.0 << 1.0 << 0.1 << false << 1 << QVariant(0.3);
    QTest::newRow("cut at the limit") << QVariant(9.5) << 0.0 << 10.0 << 1.0 << false << 1 << QVariant(10.0);
    QTest::newRow("silent at the limit") << QVariant(10) << 0.0 << 10.0 << 1.0 << false << 1 << QVariant();
    QTest::newRow("wraps") << QVariant(10) << 0.0 << 10.0 << 1.0 << true << 1 << QVariant(0.0);
    QTest::newRow("wraps downwards") << QVariant(0) << 0.0 << 10.0 << 1.0 << true << -1 << QVariant(10.0);
    QTest::newRow("from outside of the limits") << QVariant(50) << 0.0 << 10.0 << 1.0 << false << 1 << QVariant(10.0);
    QTest::newRow("from several values") << several << 5.0 << 10.0 << 1.0 << false << 1 << QVariant(5.0);
    QTest::newRow("from no value") << QVariant() << -10.0 << 10.0 << 2.0 << false << -1 << QVariant(-2.0);
    QTest::newRow("to the largest") << QVariant(largest) << -largest << largest << largest << false << 1 << QVariant();
    QTest::newRow("infinite limits") << QVariant(1) << -infinity << infinity << 1.0 << false << 1 << QVariant(2.0);
    QTest::newRow("no increment") << QVariant(1) << 0.0 << 10.0 << 0.0 << false << 1 << QVariant();
    QTest::newRow("increment not a number") << QVariant(1) << 0.0 << 10.0 << std::nan("") << false << 1 << QVariant();
    QTest::newRow("limits crossed") << QVariant(1) << 10.0 << 0.0 << 1.0 << false << 1 << QVariant();
}

void tst_ZelStepper::steps()
{
    QFETCH(QVariant, value);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, increment);
    QFETCH(bool, wraps);
    QFETCH(int, steps);
    QFETCH(QVariant, result);
    ZelStepper stepper;
    stepper.setObjectValue(value);
    stepper.setMinValue(minimum);
    stepper.setMaxValue(maximum);
    stepper.setIncrement(increment);
    stepper.setValueWraps(wraps);
    const QSignalSpy edited(&stepper, &ZelStepper::valueEdited);
    stepper.stepBy(steps);
    QCOMPARE(edited.count(), result.isValid() ? 1 : 0);
    QCOMPARE(stepper.objectValue(), result.isValid() ? result : value);
}

void tst_ZelStepper::clicksStepInBothDirectionsOfReading()
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        Panel panel;
        panel.control->setLayoutDirection(direction);
        panel.control->setObjectValue(5);
        QTest::mouseClick(panel.control, Qt::LeftButton, {}, upper(panel.control));
        QCOMPARE(panel.control->doubleValue(), 6.0);
        QTest::mouseClick(panel.control, Qt::LeftButton, {}, lower(panel.control));
        QTest::mouseClick(panel.control, Qt::LeftButton, {}, lower(panel.control));
        QCOMPARE(panel.control->doubleValue(), 4.0);
        QCOMPARE(panel.takeLog(), Panel::edits(3));
        QCOMPARE(panel.undo.stack()->count(), 3);
    }
}

void tst_ZelStepper::holdingRepeatsInOneUndoGrouping()
{
    Panel panel;
    panel.control->setObjectValue(0);
    QTest::mousePress(panel.control, Qt::LeftButton, {}, upper(panel.control));
    QTRY_VERIFY_WITH_TIMEOUT(panel.control->doubleValue() >= 3, 5000);
    QCOMPARE(panel.undo.stack()->count(), 0);
    QTest::mouseRelease(panel.control, Qt::LeftButton, {}, upper(panel.control));
    QCOMPARE(panel.undo.stack()->count(), 1);
    QCOMPARE(panel.undo.groupingLevel(), 0);
    QCOMPARE(panel.log.size(), qsizetype(panel.control->doubleValue()) * 2);
    const double reached = panel.control->doubleValue();
    QTest::qWait(60);
    QCOMPARE(panel.control->doubleValue(), reached);
}

void tst_ZelStepper::pressEndsWithTheControl_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("hidden") << 0;
    QTest::newRow("disabled") << 1;
    QTest::newRow("not editable") << 2;
    QTest::newRow("button released elsewhere") << 3;
    QTest::newRow("deleted") << 4;
    QTest::newRow("deleted by whom it told") << 5;
}

void tst_ZelStepper::pressEndsWithTheControl()
{
    QFETCH(int, way);
    Panel panel;
    if (way == 5)
        panel.whenEdited = [&panel] { delete panel.control; };
    QTest::mousePress(panel.control, Qt::LeftButton, {}, upper(panel.control));
    QCOMPARE(panel.undo.groupingLevel(), way == 5 ? 0 : 1);
    switch (way) {
    case 0:
        panel.control->hide();
        break;
    case 1:
        panel.setEnabled(false);
        break;
    case 2:
        panel.control->setEditable(false);
        break;
    case 3: {
        const QPointF position = lower(panel.control);
        QMouseEvent move(QEvent::MouseMove, position, panel.control->mapToGlobal(position), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(panel.control, &move);
        break;
    }
    case 4:
        delete panel.control;
        break;
    default:
        break;
    }
    QTRY_COMPARE(panel.undo.groupingLevel(), 0);
    QCOMPARE(panel.undo.stack()->count(), 1);
    const qsizetype reported = panel.log.size();
    QTest::qWait(120);
    QCOMPARE(panel.log.size(), reported);
}

void tst_ZelStepper::keysAndWheel()
{
    Panel panel;
    panel.control->setObjectValue(0);
    QVERIFY(!panel.wheel(120));
    QCOMPARE(panel.log, QStringList());
    panel.control->setFocus();
    QVERIFY(panel.wheel(120));
    QCOMPARE(panel.control->doubleValue(), 1.0);
    // Fine wheels send fractions of a step.
    QVERIFY(panel.wheel(-60));
    QCOMPARE(panel.control->doubleValue(), 1.0);
    QVERIFY(panel.wheel(-60));
    QCOMPARE(panel.control->doubleValue(), 0.0);
    QTest::keyClick(panel.control, Qt::Key_Up);
    QTest::keyClick(panel.control, Qt::Key_Up);
    QTest::keyClick(panel.control, Qt::Key_Down);
    QTest::keyClick(panel.control, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(panel.control->doubleValue(), 1.0);
    QCOMPARE(panel.takeLog(), Panel::edits(5));
}

void tst_ZelStepper::refusesInputUnlessEditable()
{
    Panel panel;
    panel.control->setObjectValue(0);
    panel.control->setEditable(false);
    panel.control->setFocus();
    QTest::mouseClick(panel.control, Qt::LeftButton, {}, upper(panel.control));
    QTest::keyClick(panel.control, Qt::Key_Up);
    QVERIFY(!panel.wheel(120));
    QVERIFY(panel.control->isEnabled());
    QCOMPARE(panel.log, QStringList());
}

QTEST_MAIN(tst_ZelStepper)
#include "tst_ZelStepper.moc"
