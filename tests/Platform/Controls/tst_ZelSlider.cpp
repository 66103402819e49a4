// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelSlider.h"
#include "Platform/Runtime/ZelValues.h"

#include "ControlPanel.h"

#include <QShortcut>
#include <QSignalSpy>
#include <cmath>

namespace {

using Panel = ControlPanel<ZelSlider>;

void drag(ZelSlider *slider, const QPoint &to, Qt::MouseButtons buttons = Qt::LeftButton)
{
    const QPointF position = to;
    QMouseEvent move(QEvent::MouseMove, position, slider->mapToGlobal(position), Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(slider, &move);
}

} // namespace

class tst_ZelSlider : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void draggingIsOneUndoGrouping();
    void handleFollowsThePointerFromWhereItWasTaken();
    void rightToLeftIsMirrored();
    void dialTurnsClockwiseFromTheTop();
    void draggingStopsAtSteps();
    void escapeGivesUpADrag();
    void dragEndsWithTheControl_data();
    void dragEndsWithTheControl();
    void dragThatAnApplicationsStepEndsFollowsIt();
    void strangeRangesAreSafe_data();
    void strangeRangesAreSafe();
    void keysAndWheel();
    void severalValuesAreReplacedByTheChosenOne();
};

void tst_ZelSlider::draggingIsOneUndoGrouping()
{
    Panel panel;
    panel.control->setMaxValue(10);
    panel.control->setObjectValue(0);
    panel.control->setFixedWidth(200);
    const int y = panel.control->height() / 2;
    QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(100, y));
    QVERIFY(std::abs(panel.control->doubleValue() - 5) < 0.2);
    drag(panel.control, QPoint(150, y));
    drag(panel.control, QPoint(150, y + 1));
    drag(panel.control, QPoint(500, y));
    QCOMPARE(panel.control->doubleValue(), 10.0);
    QCOMPARE(panel.undo.stack()->count(), 0);
    QTest::mouseRelease(panel.control, Qt::LeftButton, {}, QPoint(500, y));
    QCOMPARE(panel.takeLog(), Panel::edits(3));
    QCOMPARE(panel.undo.stack()->count(), 1);
    drag(panel.control, QPoint(10, y));
    QCOMPARE(panel.control->doubleValue(), 10.0);
}

void tst_ZelSlider::handleFollowsThePointerFromWhereItWasTaken()
{
    Panel panel;
    panel.control->setFixedWidth(200);
    panel.control->setObjectValue(0.5);
    const int y = panel.control->height() / 2;
    QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(102, y));
    drag(panel.control, QPoint(102, y + 3));
    QVERIFY(std::abs(panel.control->doubleValue() - 0.5) < 0.005);
    QTest::mouseRelease(panel.control, Qt::LeftButton, {}, QPoint(102, y));
}

void tst_ZelSlider::rightToLeftIsMirrored()
{
    Panel panel;
    panel.control->setFixedWidth(200);
    panel.control->setLayoutDirection(Qt::RightToLeft);
    panel.control->setObjectValue(0.5);
    QTest::mouseClick(panel.control, Qt::LeftButton, {}, QPoint(190, panel.control->height() / 2));
    QVERIFY(panel.control->doubleValue() < 0.1);
    const double before = panel.control->doubleValue();
    panel.control->setFocus();
    QTest::keyClick(panel.control, Qt::Key_Left);
    QVERIFY(panel.control->doubleValue() > before);
}

void tst_ZelSlider::dialTurnsClockwiseFromTheTop()
{
    Panel panel(ZelSlider::Circular);
    panel.control->setFixedSize(101, 101);
    panel.control->setMaxValue(360);
    panel.control->setObjectValue(1);
    const QPoint centre = panel.control->rect().center();
    const QPoint right = centre + QPoint(40, 0);
    QTest::mousePress(panel.control, Qt::LeftButton, {}, right);
    QCOMPARE(panel.control->doubleValue(), 90.0);
    drag(panel.control, centre + QPoint(0, 40));
    QCOMPARE(panel.control->doubleValue(), 180.0);
    drag(panel.control, centre + QPoint(-40, 0));
    QCOMPARE(panel.control->doubleValue(), 270.0);
    drag(panel.control, centre + QPoint(0, -40));
    QCOMPARE(panel.control->doubleValue(), 360.0);
    drag(panel.control, centre + QPoint(40, -40));
    drag(panel.control, centre + QPoint(0, -40));
    QCOMPARE(panel.control->doubleValue(), 0.0);
    QTest::mouseRelease(panel.control, Qt::LeftButton, {}, right);
    QCOMPARE(panel.undo.stack()->count(), 1);
}

void tst_ZelSlider::draggingStopsAtSteps()
{
    for (const ZelSlider::Type type : {ZelSlider::Linear, ZelSlider::Circular}) {
        Panel panel(type);
        panel.control->setMinValue(1);
        panel.control->setMaxValue(99);
        panel.control->setIncrement(5);
        panel.control->setFixedSize(101, 101);
        for (const QPoint &place : {QPoint(33, 90), QPoint(70, 70), QPoint(20, 30)}) {
            QTest::mouseClick(panel.control, Qt::LeftButton, {}, place);
            QCOMPARE(std::fmod(panel.control->doubleValue() - 1, 5), 0.0);
        }
    }
    Panel panel;
    panel.control->setMaxValue(7);
    panel.control->setIncrement(5); // the end is no step and can be reached all the same
    QTest::mouseClick(panel.control, Qt::LeftButton, {}, QPoint(panel.control->width() - 2, 5));
    QCOMPARE(panel.control->doubleValue(), 7.0);
}

void tst_ZelSlider::escapeGivesUpADrag()
{
    Panel panel;
    QShortcut closesTheWindow(QKeySequence(Qt::Key_Escape), &panel);
    const QSignalSpy closes(&closesTheWindow, &QShortcut::activated);
    const QVariant several = QVariant::fromValue(ZelMultipleValuesMarker);
    QList<double> model{0.2, 0.8};
    panel.control->setObjectValue(several);
    panel.whenEdited = [&] {
        const QList<double> former = std::exchange(model, QList<double>(2, panel.control->doubleValue()));
        const auto undo = [&model, &panel, several, former] {
            model = former;
            panel.control->setObjectValue(former.at(0) == former.at(1) ? QVariant(former.at(0)) : several);
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
    QSignalSpy edits(&slider, &ZelSlider::valueEdited);
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(2, slider.height() / 2));
    QVERIFY(slider.doubleValue() < 0.25);
    QTest::keyClick(&slider, Qt::Key_Escape);
    QCOMPARE(slider.doubleValue(), 0.25);
    QCOMPARE(edits.count(), 2);
}

void tst_ZelSlider::dragEndsWithTheControl_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("hidden") << 0;
    QTest::newRow("ancestor disabled") << 1;
    QTest::newRow("not editable") << 2;
    QTest::newRow("reparented") << 3;
    QTest::newRow("button released elsewhere") << 4;
    QTest::newRow("deleted by whom it told") << 5;
    QTest::newRow("deleted") << 6;
    QTest::newRow("pop-up opened") << 7;
    QTest::newRow("another widget pressed") << 8;
    QTest::newRow("undo begun") << 9;
}

void tst_ZelSlider::dragEndsWithTheControl()
{
    QFETCH(int, way);
    Panel panel;
    QWidget elsewhere;
    if (way == 5)
        panel.whenEdited = [&panel] { delete panel.control; };
    QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(50, panel.control->height() / 2));
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
    case 3:
        panel.control->setParent(&elsewhere);
        break;
    case 4:
        drag(panel.control, QPoint(80, 5), Qt::NoButton);
        break;
    case 7: {
        QWidget popup(&panel, Qt::Popup);
        popup.show();
        break;
    }
    case 8:
        elsewhere.show();
        QTest::mousePress(&elsewhere, Qt::LeftButton);
        break;
    case 9:
        panel.undo.undo();
        QCOMPARE(panel.undo.stack()->index(), 0);
        break;
    default:
        delete panel.control;
        break;
    }
    QCOMPARE(panel.undo.groupingLevel(), 0);
    QCOMPARE(panel.undo.stack()->count(), 1);
    panel.takeLog();
    if (panel.control) {
        QVERIFY(!panel.control->isDragging());
        drag(panel.control, QPoint(90, 5));
    }
    QCOMPARE(panel.log, QStringList());
}

/// Nothing can be pushed into a stack that is doing an application's own step.
void tst_ZelSlider::dragThatAnApplicationsStepEndsFollowsIt()
{
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
    Panel panel;
    QUndoStack *stack = panel.undo.stack();
    stack->push(new Disabling(&panel));
    stack->undo();
    QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(50, panel.control->height() / 2));
    stack->redo();
    QCOMPARE(panel.undo.groupingLevel(), 0);
    QCOMPARE(stack->count(), 2);
    stack->setIndex(0);
    stack->setIndex(2);
}

void tst_ZelSlider::strangeRangesAreSafe_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<bool>("slides");
    constexpr double largest = std::numeric_limits<double>::max();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("all doubles") << -largest << largest << true;
    QTest::newRow("largest single precision") << 0.0 << 3.4028234663852886e38 << true;
    QTest::newRow("infinite") << -infinity << infinity << true;
    QTest::newRow("empty") << 3.0 << 3.0 << false;
    QTest::newRow("crossed") << 5.0 << -5.0 << false;
    QTest::newRow("not a number") << std::nan("") << 1.0 << false;
}

void tst_ZelSlider::strangeRangesAreSafe()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(bool, slides);
    for (const ZelSlider::Type type : {ZelSlider::Linear, ZelSlider::Circular}) {
        Panel panel(type);
        panel.control->setMinValue(minimum);
        panel.control->setMaxValue(maximum);
        panel.control->setObjectValue(0);
        panel.control->grab();
        panel.control->setFocus();
        QTest::mouseClick(panel.control, Qt::LeftButton, {}, panel.control->rect().center() + QPoint(7, 3));
        QTest::keyClick(panel.control, Qt::Key_End);
        QTest::keyClick(panel.control, Qt::Key_Up);
        panel.wheel(120);
        QVERIFY(std::isfinite(panel.control->doubleValue()));
        QCOMPARE(panel.control->doubleValue() != 0, slides);
        QCOMPARE(panel.log.isEmpty(), !slides);
    }
}

void tst_ZelSlider::keysAndWheel()
{
    Panel panel;
    panel.control->setMaxValue(200);
    panel.control->setObjectValue(100);
    QVERIFY(!panel.wheel(120));
    panel.control->setFocus();
    QVERIFY(panel.wheel(120));
    QCOMPARE(panel.control->doubleValue(), 102.0);
    panel.control->setIncrement(5);
    QTest::keyClick(panel.control, Qt::Key_Left);
    QCOMPARE(panel.control->doubleValue(), 97.0);
    QTest::keyClick(panel.control, Qt::Key_PageUp);
    QCOMPARE(panel.control->doubleValue(), 147.0);
    QTest::keyClick(panel.control, Qt::Key_Home);
    QTest::keyClick(panel.control, Qt::Key_Left);
    QCOMPARE(panel.control->doubleValue(), 0.0);
    QCOMPARE(panel.takeLog(), Panel::edits(4));
}

void tst_ZelSlider::severalValuesAreReplacedByTheChosenOne()
{
    Panel panel;
    for (const ZelSlider::Type type : {ZelSlider::Linear, ZelSlider::Circular}) {
        panel.control->setSliderType(type);
        panel.control->setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
        const QImage without = panel.control->grab().toImage();
        panel.control->setObjectValue(0);
        QVERIFY(panel.control->grab().toImage() != without); // it has a handle
    }
    panel.control->setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
    panel.control->slideTo(0);
    QCOMPARE(panel.control->objectValue(), QVariant(0.0));
    panel.control->slideTo(-7);
    QCOMPARE(panel.takeLog(), Panel::edits(1));
}

QTEST_MAIN(tst_ZelSlider)
#include "tst_ZelSlider.moc"
