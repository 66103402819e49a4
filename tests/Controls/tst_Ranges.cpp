// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include <cmath>

namespace {
using SliderPanel = ControlPanel<ZelSlider>;

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

/// Where a press changes the value of each control: a stepper's upper arrow.
void pressOn(QWidget *control)
{
    QTest::mousePress(control, Qt::LeftButton, {}, QPoint(control->width() * 5 / 8, control->height() / 4));
}

void drag(QWidget *control, const QPoint &to, Qt::MouseButtons buttons = Qt::LeftButton)
{
    const QPointF position = to;
    QMouseEvent move(QEvent::MouseMove, position, control->mapToGlobal(position), Qt::NoButton, buttons, {});
    QCoreApplication::sendEvent(control, &move);
}

enum Kind { Slider, Dial, Stepper };

/// A control of a kind, whose state is its value. What else it tells is logged as well, and keys that it passes on.
class Bench : public ControlPanel<ZelRangeControl>
{
public:
    explicit Bench(Kind kind)
        : ControlPanel([kind](QWidget *parent) -> ZelRangeControl * {
            if (kind == Stepper)
                return new ZelStepper(parent);
            return new ZelSlider(kind == Dial ? ZelSlider::Circular : ZelSlider::Linear, parent);
        })
        , kind(kind)
    {
        connect(control, &ZelRangeControl::limitsChanged, this, [this] { log.append("limits"); });
        state = [this]() -> QString { return QString::number(control->doubleValue()); };
        actions.insert({
            {"mirror", [this](const QString &) { control->setLayoutDirection(Qt::RightToLeft); }},
            {"press", [this](const QString &) { pressOn(control); }},
            {"speak", [this](const QString &value) { spoken()->valueInterface()->setCurrentValue(value.toInt()); }},
        });
    }
    QAccessibleInterface *spoken() const { return QAccessible::queryAccessibleInterface(control); }

    const Kind kind;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() != Qt::Key_Control)
            log.append("passed");
    }
};

/// Checks a control of each kind.
void forAll(const std::function<void(Bench &, ZelRangeControl *)> &check)
{
    for (const Kind kind : {Slider, Dial, Stepper}) {
        const TableRow row(kind == Stepper ? "stepper" : kind == Dial ? "dial" : "slider");
        Bench bench(kind);
        check(bench, bench.control);
        if (QTest::currentTestFailed())
            return;
    }
}
} // namespace

/// What all controls of a range do alike, and then what only sliders and steppers do.
class tst_Ranges : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new TestStyle); }

    void edits()
    {
        for (const char *script : {
                 // A value may lie beyond the limits.
                 "set value 50 > 50 changed; set value 50 > 50; set minValue 2 > 50 limits; set minValue 2 > 50; set "
                 "maxValue 7 > 50 limits; set maxValue 7 > 50; "
                 "set editable false > 50 editable; set editable false > 50",
                 "focus; set minValue 0; set maxValue 200; set increment 5; set value 100; Up > 105 "
                 "limits+limits+changed+reported; "
                 "Ctrl+Up > 105 passed; Down > 100 reported; Down > 95 reported; "
                 "PgUp > 145 reported; PgDown > 95 reported; A > 95 passed; "
                 "set value 200 > 200 changed; Up > 200; PgUp > 200; set value 0 > 0 changed; Down > 0; PgDown > 0",
                 // The wheel needs the focus; fine ones send fractions of a step.
                 "set minValue 0; set maxValue 200; set increment 2; set value 100; wheel 120 > 100 "
                 "limits+limits+changed+passed; focus; "
                 "wheel 240 > 104 reported; wheel -60 > 104; wheel -60 > 102 reported",
                 "set value 0; focus; set editable false; press > 0 changed+editable; Up > 0 passed; wheel 120 > 0 "
                 "passed; speak 1 > 0",
             }) {
            forAll([script](Bench &bench, ZelRangeControl *control) {
                bench.control->setMinValue(-1);
                bench.play(script);
                QVERIFY(control->isEnabled());
                QCOMPARE(bool(bench.spoken()->state().disabled), !control->isEditable());
            });
        }
        const std::pair<Kind, const char *> own[] = {
            {Slider, "Left > 95 reported; Right > 100 reported; Home > 0 reported; Home > 0; "
                     "End > 200 reported; End > 200; Ctrl+Home > 200 passed; mirror; set value 100 > 100 changed; "
                     "Left > 105 reported; Right > 100 reported; Up > 105 reported"},
            {Dial, "Left > 95 reported; Right > 100 reported; Home > 0 reported; "
                   "End > 200 reported; mirror; Left > 195 reported"},
            {Stepper, "Left > 100 passed; Right > 100 passed; Home > 100 passed; End > 100 passed; mirror; "
                      "Right > 100 passed; Up > 105 reported"},
        };
        for (const auto &[kind, script] : own) {
            Bench bench(kind);
            bench.play("focus; set minValue 0; set maxValue 200; set increment 5; set value 100");
            bench.play(script);
        }
    }

    void aPressIsOneUndoGrouping()
    {
        forAll([](Bench &bench, ZelRangeControl *control) {
            pressOn(control);
            drag(control, QPoint(control->width() * 5 / 8, control->height() / 4 + 1));
            if (bench.kind != Stepper) // which repeats by itself
                drag(control, control->rect().center() + QPoint(4, 4));
            QTRY_VERIFY(bench.log.count("action") >= 2);
            QCOMPARE(bench.undo.stack()->count(), 0);
            QTest::mouseRelease(control, Qt::RightButton);
            QVERIFY(control->isPressed());
            QTest::mouseRelease(control, Qt::LeftButton);
            QCOMPARE(bench.undo.stack()->count(), 1);
            QCOMPARE(bench.undo.groupingLevel(), 0);
            bench.takeLog();
            drag(control, QPoint(1, 1));
            QTest::mouseClick(control, Qt::RightButton, {}, QPoint(1, 1));
            QTest::qWait(60);
            QCOMPARE(bench.log, QStringList());
        });
    }

    void aPressEndsWithTheControl()
    {
        struct Step : QUndoCommand // an application's own
        {
            explicit Step(QWidget *widget)
                : widget(widget)
            {
            }
            void undo() override { widget->setEnabled(true); }
            void redo() override { widget->setEnabled(false); }
            QWidget *const widget;
        };
        QWidget elsewhere;
        const std::pair<const char *, std::function<void(Bench &)>> ways[] = {
            {"hidden", [](Bench &bench) { bench.control->hide(); }},
            {"ancestor disabled", [](Bench &bench) { bench.setEnabled(false); }},
            {"not editable", [](Bench &bench) { bench.control->setEditable(false); }},
            {"reparented", [&](Bench &bench) { bench.control->setParent(&elsewhere); }},
            {"released elsewhere", [](Bench &bench) { drag(bench.control, QPoint(1, 1), Qt::NoButton); }},
            {"deleted", [](Bench &bench) { delete bench.control; }},
            {"deleted by whom it tells", [](Bench &bench) { bench.whenEdited = [&bench] { delete bench.control; }; }},
            {"pop-up opened", [](Bench &bench) { QWidget(&bench, Qt::Popup).show(); }},
            {"another widget pressed", [&](Bench &) { QTest::mousePress(&elsewhere, Qt::LeftButton); }},
            {"undo begun", [](Bench &bench) { bench.undo.undo(); }},
            {"step pushed", [](Bench &bench) { bench.undo.stack()->push(new Step(&bench)); }},
        };
        for (const auto &[name, end] : ways) {
            const TableRow row(name);
            const bool isTold = QByteArray(name).endsWith("tells");
            const bool isStep = QByteArray(name).startsWith("step");
            forAll([&, &end = end](Bench &bench, ZelRangeControl *control) {
                if (isTold)
                    end(bench);
                pressOn(control);
                QCOMPARE(bench.undo.groupingLevel(), isTold ? 0 : 1);
                elsewhere.show();
                if (!isTold)
                    end(bench);
                QCOMPARE(bench.undo.groupingLevel(), 0);
                QCOMPARE(bench.undo.stack()->count(), isStep ? 2 : 1);
                if (isStep) // which was being done: nothing can be pushed into a stack meanwhile
                    bench.undo.stack()->setIndex(0);
                bench.takeLog();
                if (bench.control) {
                    QVERIFY(!control->isPressed());
                    drag(control, QPoint(1, 1));
                }
                QTest::qWait(60);
                QCOMPARE(bench.log, QStringList());
            });
        }
    }

    void strangeRangesAreSafe()
    {
        const std::tuple<double, double, bool> ranges[] = {
            {-g_largest, g_largest, true}, {-g_infinity, g_infinity, true}, {3, 3, false}, {std::nan(""), 1, false}};
        for (const auto &[minimum, maximum, isRange] : ranges) {
            forAll(
                [&, minimum = minimum, maximum = maximum, isRange = isRange](Bench &bench, ZelRangeControl *control) {
                    control->setMinValue(minimum);
                    control->setMaxValue(maximum);
                    control->setObjectValue(0);
                    control->grab();
                    bench.play("focus; press");
                    QTest::mouseRelease(control, Qt::LeftButton);
                    bench.play("End; Up; wheel 120");
                    QVERIFY(std::isfinite(control->doubleValue()));
                    QCOMPARE(control->doubleValue() != 0, isRange);
                    QCOMPARE(bench.log.contains("valueEdited"), isRange);
                });
        }
    }

    void assistiveTechnologySeesAndEdits()
    {
        forAll([](Bench &bench, ZelRangeControl *control) {
            control->setLocale(QLocale::c());
            bench.play("set maxValue 10; set value 3; speak 7 > 7 limits+changed+reported");
            QAccessibleInterface *spoken = bench.spoken();
            QAccessibleValueInterface *range = spoken->valueInterface();
            const QAccessible::Role roles[] = {QAccessible::Slider, QAccessible::Dial, QAccessible::SpinBox};
            QCOMPARE(spoken->role(), roles[bench.kind]);
            QCOMPARE(range->maximumValue(), QVariant(10.0));
            QCOMPARE(range->currentValue(), QVariant(7.0));
            // A stepper goes there in steps, which binary fractions do not make exactly.
            control->setIncrement(0.1);
            control->setObjectValue(0.1);
            range->setCurrentValue(0.3);
            QVERIFY(qFuzzyCompare(range->currentValue().toDouble(), 0.3));
            range->setCurrentValue(qQNaN());
            range->setCurrentValue(1e300);
            // Numbers are said as people see them, and several values as such.
            control->setObjectValue(0.1F);
            QCOMPARE(spoken->text(QAccessible::Value), "0.1");
            control->setObjectValue(several());
            QCOMPARE(spoken->text(QAccessible::Value), "Multiple Values");
            QVERIFY(!range->currentValue().isValid());
        });
    }

    // Sliders

    void handlesFollowThePointer()
    {
        SliderPanel panel;
        ZelSlider *slider = panel.control;
        slider->setFixedWidth(200);
        slider->setObjectValue(0.5);
        const int y = slider->height() / 2;
        QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(102, y)); // from where it was taken
        drag(slider, QPoint(102, y + 3));
        QVERIFY(std::abs(slider->doubleValue() - 0.5) < 0.005);
        drag(slider, QPoint(500, y));
        QCOMPARE(slider->doubleValue(), 1.0);
        QTest::mouseRelease(slider, Qt::LeftButton);
        slider->setLayoutDirection(Qt::RightToLeft);
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(150, y)); // beside the handle, which comes
        QVERIFY(std::abs(slider->doubleValue() - 0.25) < 0.05);
        slider->setLayoutDirection(Qt::LeftToRight);
        slider->setMinValue(1);
        slider->setMaxValue(8);
        slider->setIncrement(5); // the end is no step and can be reached all the same
        for (const auto &[x, value] : {std::pair(198, 8.0), std::pair(130, 6.0), std::pair(40, 1.0)}) {
            QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(x, 5));
            QCOMPARE(slider->doubleValue(), value);
        }
        slider->setMinValue(0);
        slider->setIncrement(0);
        for (const auto &[resolution, isRounded] : {std::pair(0.01, true), std::pair(0.5, false)}) {
            slider->setResolution(resolution);
            QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(73, 5));
            QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(131, 5));
            const double steps = slider->doubleValue() / resolution;
            QCOMPARE(std::abs(steps - std::round(steps)) < 1e-9, isRounded);
        }
        SliderPanel dial(ZelSlider::Circular); // which turns clockwise from the top
        dial.control->setFixedSize(101, 101);
        dial.control->setMaxValue(360);
        dial.control->setObjectValue(1);
        const QPoint centre = dial.control->rect().center();
        QTest::mousePress(dial.control, Qt::LeftButton, {}, centre + QPoint(40, 0));
        QCOMPARE(dial.control->doubleValue(), 90.0);
        const std::pair<QPoint, double> turns[] = {
            {{0, 40}, 180}, {{-40, 0}, 270}, {{0, -40}, 360}, {{40, -40}, 45}, {{0, -40}, 0}};
        for (const auto &[offset, value] : turns) {
            drag(dial.control, centre + offset);
            QCOMPARE(dial.control->doubleValue(), value);
        }
    }

    void escapeGivesUpADrag()
    {
        SliderPanel panel;
        QShortcut closesTheWindow(QKeySequence(Qt::Key_Escape), &panel);
        const QSignalSpy closes(&closesTheWindow, &QShortcut::activated);
        const int y = panel.control->height() / 2;
        for (const QVariant &before : {several(), QVariant(0.8)}) {
            for (const bool isRecorded : {true, false}) { // else the slider writes a single former value again
                ZelUndoManager::setForWindow(&panel, isRecorded ? &panel.undo : nullptr);
                panel.control->setObjectValue(before);
                panel.whenEdited = [&panel, before] {
                    panel.undo.registerUndo([&panel, before] { panel.control->setObjectValue(before); }, [] {});
                };
                const int steps = panel.undo.stack()->count();
                panel.takeLog();
                QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(20, y));
                drag(panel.control, QPoint(40, y));
                QCOMPARE(panel.takeLog(), panel.oneEdit + panel.oneEdit);
                QTest::keyClick(panel.control, Qt::Key_Escape);
                QCOMPARE(panel.control->objectValue(), before);
                QCOMPARE(panel.takeLog().contains("valueEdited"), !isRecorded && before != several());
                drag(panel.control, QPoint(20, y));
                QTest::mouseRelease(panel.control, Qt::LeftButton, {}, QPoint(20, y));
                QCOMPARE(panel.control->objectValue(), before);
                QVERIFY(!isRecorded || panel.undo.stack()->count() == steps);
            }
        }
        QCOMPARE(closes.count(), 0);
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
        panel.takeLog();
        for (const double value : {0, -7}) {
            panel.control->slideTo(value);
            QCOMPARE(panel.control->objectValue(), QVariant(0.0));
        }
        QCOMPARE(panel.takeLog(), panel.oneEdit);
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
        // Without binary noise; to the limit and not beyond, from wherever the value is.
        const double max = g_largest;
        const double inf = g_infinity;
        const double nan = std::nan("");
        const Row rows[] = {
            {0.2, 0, 1, 0.1, 1, 0.3, 0.3},      {9.5, 0, 10, 1, 1, 10.0, 10.0}, {10, 0, 10, 1, 1, {}, 0.0},
            {0, 0, 10, 1, -1, {}, 10.0},        {50, 0, 10, 1, 1, 10.0, 10.0},  {{}, -10, 10, 2, -1, -2.0, -2.0},
            {max, -max, max, max, 1, {}, -max}, {1, -inf, inf, 1, 1, 2.0, 2.0}, {1, 0, 10, 0, 1, {}, {}},
            {1, 0, 10, nan, 1, {}, {}},         {1, 10, 0, 1, 1, {}, {}}};
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
            panel.control->setMaxValue(6);
            panel.control->setObjectValue(4);
            pressOn(panel.control);
            QTest::mouseRelease(panel.control, Qt::LeftButton);
            QCOMPARE(panel.control->doubleValue(), 5.0);
            QTest::mouseClick(panel.control, Qt::LeftButton, {}, panel.control->rect().center() + QPoint(0, 5));
            QCOMPARE(panel.control->doubleValue(), 4.0);
            QTest::qWait(20);
            const int drawn = TestStyle::drawn;
            panel.control->setObjectValue(5); // looks the same
            QTest::qWait(20);
            QCOMPARE(TestStyle::drawn, drawn);
            panel.control->setObjectValue(6); // its upper arrow is disabled
            QTRY_COMPARE(TestStyle::drawn, drawn + 1);
        }
    }
};
QTEST_MAIN(tst_Ranges)
#include "tst_Ranges.moc"
