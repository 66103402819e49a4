// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"

#include <QAccessible>
#include <QProxyStyle>
#include <QShortcut>
#include <QSignalSpy>
#include <cmath>

namespace {

using Panel = ControlPanel<ZelRangeControl>;
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
class Bench : public Panel
{
public:
    explicit Bench(Kind kind)
        : Panel([kind](QWidget *parent) -> ZelRangeControl * {
            if (kind == Stepper)
                return new ZelStepper(parent);
            return new ZelSlider(kind == Dial ? ZelSlider::Circular : ZelSlider::Linear, parent);
        })
        , kind(kind)
    {
        connect(control, &ZelRangeControl::objectValueChanged, this, [this] { log.append("changed"); });
        connect(control, &ZelRangeControl::limitsChanged, this, [this] { log.append("limits"); });
        connect(control, &ZelRangeControl::editableChanged, this, [this] { log.append("editable"); });
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
        const Case name(kind == Stepper ? "stepper" : kind == Dial ? "dial" : "slider");
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
                 "limits+limits+changed+changed+reported; "
                 "Ctrl+Up > 105 passed; Down > 100 changed+reported; Down > 95 changed+reported; "
                 "PgUp > 145 changed+reported; PgDown > 95 changed+reported; A > 95 passed; "
                 "set value 200 > 200 changed; Up > 200; PgUp > 200; set value 0 > 0 changed; Down > 0; PgDown > 0",
                 // The wheel needs the focus; fine ones send fractions of a step.
                 "set minValue 0; set maxValue 200; set increment 2; set value 100; wheel 120 > 100 "
                 "limits+limits+changed+passed; focus; "
                 "wheel 240 > 104 changed+reported; wheel -60 > 104; wheel -60 > 102 changed+reported",
                 "set value 0; focus; set editable false; press > 0 changed+editable; Up > 0 passed; wheel 120 > 0 "
                 "passed; speak 1 > 0",
             }) {
            forAll([script](Bench &bench, ZelRangeControl *control) {
                bench.control->setMinValue(-1);
                bench.takeLog();
                bench.play(script);
                QVERIFY(control->isEnabled());
                QCOMPARE(bool(bench.spoken()->state().disabled), !control->isEditable());
            });
        }
        const std::pair<Kind, const char *> own[] = {
            {Slider,
             "Left > 95 changed+reported; Right > 100 changed+reported; Home > 0 changed+reported; Home > 0; "
             "End > 200 changed+reported; End > 200; Ctrl+Home > 200 passed; mirror; set value 100 > 100 changed; "
             "Left > 105 changed+reported; Right > 100 changed+reported; Up > 105 changed+reported"},
            {Dial, "Left > 95 changed+reported; Right > 100 changed+reported; Home > 0 changed+reported; "
                   "End > 200 changed+reported; mirror; Left > 195 changed+reported"},
            {Stepper, "Left > 100 passed; Right > 100 passed; Home > 100 passed; End > 100 passed; mirror; "
                      "Right > 100 passed; Up > 105 changed+reported"},
        };
        for (const auto &[kind, script] : own) {
            Bench bench(kind);
            bench.play("focus; set minValue 0; set maxValue 200; set increment 5; set value 100");
            bench.takeLog();
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
        struct Disabling : QUndoCommand // an application's own step
        {
            QWidget *widget = nullptr;
            void undo() override { widget->setEnabled(true); }
            void redo() override { widget->setEnabled(false); }
        };
        const auto pushStep = [](Bench &bench) {
            auto *step = new Disabling;
            step->widget = &bench;
            bench.undo.stack()->push(step);
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
            {"a step pushed", pushStep},
        };
        for (const auto &way : ways) {
            const Case name(way.first);
            forAll([&way, &elsewhere](Bench &bench, ZelRangeControl *control) {
                const bool isTold = QByteArray(way.first).endsWith("tells");
                const bool isStep = QByteArray(way.first).startsWith("a step");
                if (isTold)
                    way.second(bench);
                pressOn(control);
                QCOMPARE(bench.undo.groupingLevel(), isTold ? 0 : 1);
                elsewhere.show();
                if (!isTold)
                    way.second(bench);
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
            {-g_largest, g_largest, true},
            {0, 3.4028234663852886e38, true},
            {-g_infinity, g_infinity, true},
            {3, 3, false},
            {5, -5, false},
            {std::nan(""), 1, false},
        };
        for (const auto &range : ranges) {
            forAll([&range](Bench &bench, ZelRangeControl *control) {
                const auto &[minimum, maximum, isRange] = range;
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
            bench.play("set maxValue 10; set value 3; speak 7 > 7 limits+changed+changed+reported");
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
        slider->setMaxValue(7);
        slider->setIncrement(5); // the end is no step and can be reached all the same
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(198, 5));
        QCOMPARE(slider->doubleValue(), 7.0);

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
    }

    void escapeGivesUpADrag()
    {
        SliderPanel panel;
        QShortcut closesTheWindow(QKeySequence(Qt::Key_Escape), &panel);
        const QSignalSpy closes(&closesTheWindow, &QShortcut::activated);
        const QList<double> before{0.2, 0.8};
        QList<double> model = before;
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
        QCOMPARE(model.at(0), model.at(1));
        QTest::keyClick(panel.control, Qt::Key_Escape);
        QCOMPARE(model, before);
        QCOMPARE(panel.control->objectValue(), several());
        drag(panel.control, QPoint(20, y));
        QTest::mouseRelease(panel.control, Qt::LeftButton, {}, QPoint(20, y));
        QCOMPARE(model, before);
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
            pressOn(panel.control);
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
