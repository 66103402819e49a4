// SPDX-License-Identifier: MIT
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Core/Values/ZelValues.h"

#include "ControlPanel.h"

#include <QAccessible>
#include <QApplication>
#include <QProxyStyle>
#include <QShortcut>
#include <QSignalSpy>
#include <cmath>

namespace {

using Panel = ControlPanel<ZelRangeControl>;
using SliderPanel = ControlPanel<ZelSlider>;
using Make = ZelRangeControl *(*)(QWidget *);

constexpr double g_largest = std::numeric_limits<double>::max();
constexpr double g_infinity = std::numeric_limits<double>::infinity();

/// Repeats without the patience that people need, and counts what it draws.
class TestStyle : public QProxyStyle
{
public:
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override
    {
        ++drawn;
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        if (hint == SH_SpinBox_ClickAutoRepeatThreshold)
            return 40;
        return hint == SH_SpinBox_ClickAutoRepeatRate ? 10 : QProxyStyle::styleHint(hint, option, widget, data);
    }
    static inline int drawn = 0;
};

/// An application's own step.
class Disabling : public QUndoCommand
{
public:
    explicit Disabling(QWidget *widget)
        : m_widget(widget)
    {
    }
    void undo() override { m_widget->setEnabled(true); }
    void redo() override { m_widget->setEnabled(false); }

private:
    QWidget *m_widget;
};

/// Where a press changes the value of each control: a stepper's upper arrow.
void press(QWidget *control)
{
    QTest::mousePress(control, Qt::LeftButton, {}, QPoint(control->width() * 5 / 8, control->height() / 4));
}

void drag(QWidget *control, const QPoint &to, Qt::MouseButtons buttons = Qt::LeftButton)
{
    const QPointF position = to;
    QMouseEvent move(QEvent::MouseMove, position, control->mapToGlobal(position), Qt::NoButton, buttons, {});
    QCoreApplication::sendEvent(control, &move);
}

QVariant several()
{
    return QVariant::fromValue(ZelMultipleValuesMarker);
}

} // namespace

/// What all controls of a range do alike, and then what only sliders and
/// steppers do.
class tst_Ranges : public QObject
{
    Q_OBJECT

    static void addControls()
    {
        QTest::addColumn<Make>("make");
        QTest::newRow("slider") << Make([](QWidget *parent) -> ZelRangeControl * { return new ZelSlider(parent); });
        QTest::newRow("dial") << Make(
            [](QWidget *parent) -> ZelRangeControl * { return new ZelSlider(ZelSlider::Circular, parent); });
        QTest::newRow("stepper") << Make([](QWidget *parent) -> ZelRangeControl * { return new ZelStepper(parent); });
    }
    /// Its place in the tables below, by the order of the rows.
    static int column(const ZelRangeControl *control)
    {
        const auto *slider = qobject_cast<const ZelSlider *>(control);
        return !slider ? 2 : slider->sliderType() == ZelSlider::Circular ? 1 : 0;
    }

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new TestStyle); }

    void aPressIsOneUndoGrouping_data() { addControls(); }
    void aPressIsOneUndoGrouping()
    {
        QFETCH(Make, make);
        Panel panel(make);
        press(panel.control);
        drag(panel.control, QPoint(panel.control->width() * 5 / 8, panel.control->height() / 4 + 1));
        if (column(panel.control) < 2) // a stepper repeats by itself
            drag(panel.control, panel.control->rect().center() + QPoint(4, 4));
        QTRY_VERIFY(panel.log.size() >= 4);
        QCOMPARE(panel.log, Panel::edits(int(panel.log.size() / 2)));
        QCOMPARE(panel.undo.stack()->count(), 0);
        QTest::mouseRelease(panel.control, Qt::RightButton);
        QVERIFY(panel.control->isPressed());
        QTest::mouseRelease(panel.control, Qt::LeftButton);
        QCOMPARE(panel.undo.stack()->count(), 1);
        QCOMPARE(panel.undo.groupingLevel(), 0);
        panel.takeLog();
        drag(panel.control, QPoint(1, 1));
        QTest::mouseClick(panel.control, Qt::RightButton, {}, QPoint(1, 1));
        QTest::qWait(60);
        QCOMPARE(panel.log, QStringList());
    }

    void aPressEndsWithTheControl_data() { addControls(); }
    void aPressEndsWithTheControl()
    {
        QFETCH(Make, make);
        QWidget elsewhere;
        QUndoCommand *step = nullptr;
        const std::pair<const char *, std::function<void(Panel &)>> ways[] = {
            {"hidden", [](Panel &panel) { panel.control->hide(); }},
            {"ancestor disabled", [](Panel &panel) { panel.setEnabled(false); }},
            {"not editable", [](Panel &panel) { panel.control->setEditable(false); }},
            {"reparented", [&](Panel &panel) { panel.control->setParent(&elsewhere); }},
            {"released elsewhere", [](Panel &panel) { drag(panel.control, QPoint(1, 1), Qt::NoButton); }},
            {"deleted", [](Panel &panel) { delete panel.control; }},
            {"deleted by whom it tells", [](Panel &panel) { panel.whenEdited = [&panel] { delete panel.control; }; }},
            {"pop-up opened", [](Panel &panel) { QWidget(&panel, Qt::Popup).show(); }},
            {"another widget pressed", [&](Panel &) { QTest::mousePress(&elsewhere, Qt::LeftButton); }},
            {"undo begun", [](Panel &panel) { panel.undo.undo(); }},
            {"an application's step", [&](Panel &panel) { panel.undo.stack()->push(step = new Disabling(&panel)); }},
        };
        for (const auto &[name, end] : ways) {
            Panel panel(make);
            const bool isTold = QByteArray(name).endsWith("tells");
            if (isTold)
                end(panel);
            press(panel.control);
            QCOMPARE(panel.undo.groupingLevel(), isTold ? 0 : 1);
            elsewhere.show();
            if (!isTold)
                end(panel);
            QVERIFY2(panel.undo.groupingLevel() == 0, name);
            QCOMPARE(panel.undo.stack()->count(), step ? 2 : 1);
            if (std::exchange(step, nullptr)) // it was doing: nothing can be pushed
                                              // into a stack meanwhile
                panel.undo.stack()->setIndex(0);
            panel.takeLog();
            if (panel.control) {
                QVERIFY2(!panel.control->isPressed(), name);
                drag(panel.control, QPoint(1, 1));
            }
            QTest::qWait(60);
            QVERIFY2(panel.log.isEmpty(), name);
        }
    }

    void keys_data() { addControls(); }
    void keys()
    {
        QFETCH(Make, make);
        Panel panel(make);
        panel.control->setMinValue(0);
        panel.control->setMaxValue(200);
        panel.control->setIncrement(5);
        struct Row
        {
            Qt::Key key;
            double values[3]; // 100 where the key is somebody else's
            double mirrored = 0;
        };
        const Row rows[] = {
            {Qt::Key_Up, {105, 105, 105}},      {Qt::Key_Down, {95, 95, 95}},         {Qt::Key_PageUp, {150, 150, 150}},
            {Qt::Key_PageDown, {50, 50, 50}},   {Qt::Key_Home, {0, 0, 100}},          {Qt::Key_End, {200, 200, 100}},
            {Qt::Key_Left, {95, 95, 100}, 105}, {Qt::Key_Right, {105, 105, 100}, 95}, {Qt::Key_A, {100, 100, 100}},
        };
        for (const Row &row : rows) {
            for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                const bool isMirrored = row.mirrored != 0 && column(panel.control) == 0 && direction == Qt::RightToLeft;
                const double expected = isMirrored ? row.mirrored : row.values[column(panel.control)];
                panel.control->setLayoutDirection(direction);
                panel.control->setObjectValue(100);
                QTest::keyClick(panel.control, row.key, Qt::ControlModifier);
                QCOMPARE(panel.control->doubleValue(), 100.0);
                QKeyEvent event(QEvent::KeyPress, row.key, Qt::NoModifier);
                QCoreApplication::sendEvent(panel.control, &event);
                QCOMPARE(event.isAccepted(), expected != 100);
                QCOMPARE(panel.control->doubleValue(), expected);
                QCOMPARE(panel.takeLog(), Panel::edits(expected != 100));
                panel.control->setObjectValue(expected < 100 ? 0 : 200);
                if (expected != 100) // it leads nowhere, which is not reported
                    QTest::keyClick(panel.control, row.key);
                QCOMPARE(panel.takeLog(), QStringList());
            }
        }
    }

    void theWheelNeedsTheFocus_data() { addControls(); }
    void theWheelNeedsTheFocus()
    {
        QFETCH(Make, make);
        Panel panel(make);
        panel.control->setMaxValue(200);
        panel.control->setIncrement(2);
        panel.control->setObjectValue(100);
        QVERIFY(!panel.wheel(120));
        QCOMPARE(panel.control->doubleValue(), 100.0);
        panel.control->setFocus();
        QVERIFY(panel.wheel(240));
        QCOMPARE(panel.control->doubleValue(), 104.0);
        for (const double value : {104.0, 102.0}) { // fine wheels send fractions of a step
            QVERIFY(panel.wheel(-60));
            QCOMPARE(panel.control->doubleValue(), value);
        }
        QCOMPARE(panel.takeLog(), Panel::edits(2));
    }

    void inputIsRefusedUnlessEditable_data() { addControls(); }
    void inputIsRefusedUnlessEditable()
    {
        QFETCH(Make, make);
        Panel panel(make);
        panel.control->setEditable(false);
        panel.control->setFocus();
        press(panel.control);
        QTest::keyClick(panel.control, Qt::Key_Up);
        QVERIFY(!panel.wheel(120));
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(panel.control);
        spoken->valueInterface()->setCurrentValue(0.75);
        QVERIFY(panel.control->isEnabled() && spoken->state().disabled);
        QCOMPARE(panel.log, QStringList());
    }

    void strangeRangesAreSafe_data() { addControls(); }
    void strangeRangesAreSafe()
    {
        QFETCH(Make, make);
        const std::tuple<double, double, bool> ranges[] = {
            {-g_largest, g_largest, true},
            {0, 3.4028234663852886e38, true},
            {-g_infinity, g_infinity, true},
            {3, 3, false},
            {5, -5, false},
            {std::nan(""), 1, false},
        };
        for (const auto &[minimum, maximum, isRange] : ranges) {
            Panel panel(make);
            panel.control->setMinValue(minimum);
            panel.control->setMaxValue(maximum);
            panel.control->setObjectValue(0);
            panel.control->grab();
            panel.control->setFocus();
            press(panel.control);
            QTest::mouseRelease(panel.control, Qt::LeftButton);
            QTest::keyClick(panel.control, Qt::Key_End);
            QTest::keyClick(panel.control, Qt::Key_Up);
            panel.wheel(120);
            QVERIFY(std::isfinite(panel.control->doubleValue()));
            QCOMPARE(panel.control->doubleValue() != 0, isRange);
            QCOMPARE(panel.log.isEmpty(), !isRange);
        }
    }

    void settersTellOfChangesOnly_data() { addControls(); }
    void settersTellOfChangesOnly()
    {
        QFETCH(Make, make);
        Panel panel(make);
        const QSignalSpy values(panel.control, &ZelRangeControl::objectValueChanged);
        const QSignalSpy limits(panel.control, &ZelRangeControl::limitsChanged);
        const QSignalSpy editable(panel.control, &ZelRangeControl::editableChanged);
        for (int round = 0; round < 2; ++round) {
            panel.control->setObjectValue(50);
            panel.control->setMinValue(2);
            panel.control->setMaxValue(7);
            panel.control->setEditable(false);
        }
        QCOMPARE(panel.control->objectValue(),
                 QVariant(50)); // it may lie beyond the limits
        QCOMPARE(values.count(), 1);
        QCOMPARE(limits.count(), 2);
        QCOMPARE(editable.count(), 1);
        QCOMPARE(panel.log, QStringList());
    }

    void assistiveTechnologySeesAndEdits_data() { addControls(); }
    void assistiveTechnologySeesAndEdits()
    {
        QFETCH(Make, make);
        Panel panel(make);
        panel.control->setLocale(QLocale::c());
        panel.control->setMaxValue(10);
        panel.control->setObjectValue(3);
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(panel.control);
        QAccessibleValueInterface *range = spoken->valueInterface();
        const QAccessible::Role roles[] = {QAccessible::Slider, QAccessible::Dial, QAccessible::SpinBox};
        QCOMPARE(spoken->role(), roles[column(panel.control)]);
        QCOMPARE(range->maximumValue(), QVariant(10.0));
        range->setCurrentValue(7);
        QCOMPARE(range->currentValue(), QVariant(7.0));
        QCOMPARE(panel.takeLog(), Panel::edits(1));
        // A stepper goes there in steps, which binary fractions do not make exactly.
        panel.control->setIncrement(0.1);
        panel.control->setObjectValue(0.1);
        range->setCurrentValue(0.3);
        QVERIFY(qFuzzyCompare(range->currentValue().toDouble(), 0.3));
        range->setCurrentValue(qQNaN());
        range->setCurrentValue(1e300);
        // Numbers are said as people see them, and several values as such.
        panel.control->setObjectValue(0.1F);
        QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("0.1"));
        panel.control->setObjectValue(several());
        QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("Multiple Values"));
        QVERIFY(!range->currentValue().isValid());
    }

    // Sliders

    void handlesFollowThePointerFromWhereTheyWereTaken()
    {
        SliderPanel panel;
        panel.control->setFixedWidth(200);
        panel.control->setObjectValue(0.5);
        const int y = panel.control->height() / 2;
        QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(102, y));
        drag(panel.control, QPoint(102, y + 3));
        QVERIFY(std::abs(panel.control->doubleValue() - 0.5) < 0.005);
        drag(panel.control, QPoint(500, y));
        QCOMPARE(panel.control->doubleValue(), 1.0);
        QTest::mouseRelease(panel.control, Qt::LeftButton);
        panel.control->setLayoutDirection(Qt::RightToLeft);
        QTest::mouseClick(panel.control, Qt::LeftButton, {}, QPoint(150, y)); // beside the handle, which comes
        QVERIFY(std::abs(panel.control->doubleValue() - 0.25) < 0.05);
    }

    void dialsTurnClockwiseFromTheTop()
    {
        SliderPanel panel(ZelSlider::Circular);
        panel.control->setFixedSize(101, 101);
        panel.control->setMaxValue(360);
        panel.control->setObjectValue(1);
        const QPoint centre = panel.control->rect().center();
        QTest::mousePress(panel.control, Qt::LeftButton, {}, centre + QPoint(40, 0));
        QCOMPARE(panel.control->doubleValue(), 90.0);
        const std::pair<QPoint, double> turns[] = {
            {{0, 40}, 180}, {{-40, 0}, 270}, {{0, -40}, 360}, {{40, -40}, 45}, {{0, -40}, 0}};
        for (const auto &[offset, value] : turns) {
            drag(panel.control, centre + offset);
            QCOMPARE(panel.control->doubleValue(), value);
        }
    }

    void draggingStopsAtSteps()
    {
        for (const ZelSlider::Type type : {ZelSlider::Linear, ZelSlider::Circular}) {
            SliderPanel panel(type);
            panel.control->setMinValue(1);
            panel.control->setMaxValue(99);
            panel.control->setIncrement(5);
            panel.control->setFixedSize(101, 101);
            for (const QPoint &place : {QPoint(33, 90), QPoint(70, 70), QPoint(20, 30)}) {
                QTest::mouseClick(panel.control, Qt::LeftButton, {}, place);
                QCOMPARE(std::fmod(panel.control->doubleValue() - 1, 5), 0.0);
            }
        }
        SliderPanel panel;
        panel.control->setMaxValue(7);
        panel.control->setIncrement(5); // the end is no step and can be reached all the same
        QTest::mouseClick(panel.control, Qt::LeftButton, {}, QPoint(panel.control->width() - 2, 5));
        QCOMPARE(panel.control->doubleValue(), 7.0);
    }

    void escapeGivesUpADrag()
    {
        SliderPanel panel;
        QShortcut closesTheWindow(QKeySequence(Qt::Key_Escape), &panel);
        const QSignalSpy closes(&closesTheWindow, &QShortcut::activated);
        QList<double> model{0.2, 0.8};
        panel.control->setObjectValue(several());
        panel.whenEdited = [&] {
            const QList<double> former = std::exchange(model, QList<double>(2, panel.control->doubleValue()));
            const auto undo = [&model, &panel, former] {
                model = former;
                panel.control->setObjectValue(former.at(0) == former.at(1) ? QVariant(former.at(0)) : several());
            };
            panel.undo.registerUndo(undo, [] {});
        };
        const int y = panel.control->height() / 2;
        QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(50, y));
        drag(panel.control, QPoint(90, y));
        QVERIFY(model.at(0) == model.at(1));
        QTest::keyClick(panel.control, Qt::Key_Escape);
        QCOMPARE(model, (QList<double>{0.2, 0.8}));
        QVERIFY(ZelIsMarker(panel.control->objectValue(), ZelMultipleValuesMarker));
        drag(panel.control, QPoint(20, y));
        QTest::mouseRelease(panel.control, Qt::LeftButton, {}, QPoint(20, y));
        QCOMPARE(model, (QList<double>{0.2, 0.8}));
        QCOMPARE(panel.undo.stack()->count(), 0);
        QCOMPARE(closes.count(), 0);

        // Where nothing is recorded, the slider writes a single former value again.
        ZelSlider slider;
        slider.setObjectValue(0.25);
        const QSignalSpy edits(&slider, &ZelSlider::valueEdited);
        QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(2, slider.height() / 2));
        QVERIFY(slider.doubleValue() < 0.25);
        QTest::keyClick(&slider, Qt::Key_Escape);
        QCOMPARE(slider.doubleValue(), 0.25);
        QCOMPARE(edits.count(), 2);
    }

    void onlyASingleValueHasAHandle()
    {
        SliderPanel panel;
        for (const ZelSlider::Type type : {ZelSlider::Linear, ZelSlider::Circular}) {
            panel.control->setSliderType(type);
            panel.control->setObjectValue(several());
            const QImage without = panel.control->grab().toImage();
            panel.control->setObjectValue(0);
            QVERIFY(panel.control->grab().toImage() != without);
        }
        panel.control->setObjectValue(several());
        panel.control->slideTo(0);
        QCOMPARE(panel.control->objectValue(), QVariant(0.0));
        panel.control->slideTo(-7);
        QCOMPARE(panel.takeLog(), panel.edits(1));
        panel.control->setMaxValue(200);
        panel.control->stepBy(1); // by a hundredth
        QCOMPARE(panel.control->doubleValue(), 2.0);
    }

    // Steppers

    void steps()
    {
        struct Row
        {
            QVariant value;
            double minimum, maximum, increment;
            int steps;
            QVariant result, wrapped; // absent where nothing happens
        };
        const Row rows[] = {
            {1, -g_largest, g_largest, 1, 1, 2.0, 2.0},
            {0.2, 0, 1, 0.1, 1, 0.3, 0.3},  // without binary noise
            {9.5, 0, 10, 1, 1, 10.0, 10.0}, // cut at the limit
            {10, 0, 10, 1, 1, {}, 0.0},
            {0, 0, 10, 1, -1, {}, 10.0},
            {50, 0, 10, 1, 1, 10.0, 10.0}, // from outside of the limits
            {several(), 5, 10, 1, 1, 5.0, 5.0},
            {{}, -10, 10, 2, -1, -2.0, -2.0},
            {g_largest, -g_largest, g_largest, g_largest, 1, {}, -g_largest},
            {1, -g_infinity, g_infinity, 1, 1, 2.0, 2.0},
            {1, 0, 10, 0, 1, {}, {}},
            {1, 0, 10, std::nan(""), 1, {}, {}},
            {1, 10, 0, 1, 1, {}, {}},
        };
        for (const Row &row : rows) {
            for (const bool wraps : {false, true}) {
                const QVariant expected = wraps ? row.wrapped : row.result;
                ZelStepper stepper;
                stepper.setObjectValue(row.value);
                stepper.setMinValue(row.minimum);
                stepper.setMaxValue(row.maximum);
                stepper.setIncrement(row.increment);
                stepper.setValueWraps(wraps);
                const QSignalSpy edited(&stepper, &ZelStepper::valueEdited);
                stepper.stepBy(row.steps);
                QCOMPARE(edited.count(), expected.isValid() ? 1 : 0);
                QCOMPARE(stepper.objectValue(), expected.isValid() ? expected : row.value);
            }
        }
    }

    void arrowsStepInBothDirectionsOfReading()
    {
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            ControlPanel<ZelStepper> panel;
            panel.control->setLayoutDirection(direction);
            panel.control->setObjectValue(5);
            press(panel.control);
            QTest::mouseRelease(panel.control, Qt::LeftButton);
            QCOMPARE(panel.control->doubleValue(), 6.0);
            QTest::mouseClick(panel.control, Qt::LeftButton, {}, panel.control->rect().center() + QPoint(0, 5));
            QCOMPARE(panel.control->doubleValue(), 5.0);
        }
    }

    void valuesAreDrawnWhereTheyAreSeen()
    {
        ControlPanel<ZelStepper> panel;
        panel.control->setMaxValue(10);
        panel.control->setObjectValue(5);
        QTest::qWait(20);
        const int before = TestStyle::drawn;
        panel.control->setObjectValue(6);
        QTest::qWait(20);
        QCOMPARE(TestStyle::drawn, before);
        panel.control->setObjectValue(10); // its upper arrow is disabled
        QTRY_COMPARE(TestStyle::drawn, before + 1);
    }
};

QTEST_MAIN(tst_Ranges)
#include "tst_Ranges.moc"
