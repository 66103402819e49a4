// SPDX-License-Identifier: MIT
#include "Controls/Cells/ZelResizableSegmentedControlView.h"
#include "Controls/Fields/ZelBorderedTextField.h"
#include "Controls/Fields/ZelNumberFormatter.h"
#include "Controls/ZelFocusRingOverlay.h"
#include "Controls/ZelTitleBarButton.h"
#include "Layout/ZelConstraintLayout.h"
#include "Views/ZelSeparator.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace {

const QColor g_green(0, 200, 0);

/// Two fields in a frame, in an active window.
class Form : public QWidget
{
public:
    Form()
    {
        resize(300, 200);
        frame = new QWidget(this);
        frame->setGeometry(20, 20, 200, 100);
        first = new QLineEdit(frame);
        first->setGeometry(10, 10, 80, 20);
        second = new QLineEdit(this);
        second->setGeometry(20, 150, 80, 20);
        ring = new ZelFocusRingOverlay(this);
        show();
        activateWindow();
        ready = QTest::qWaitForWindowActive(this);
        first->setFocus();
    }
    QWidget *frame;
    QLineEdit *first;
    QLineEdit *second;
    ZelFocusRingOverlay *ring;
    bool ready = false;
};

} // namespace

class tst_SmallViews : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theRingFollowsTheFocus();
    void theRingGoesRoundWhatItIsToldTo();
    void theRingIsCutOffWithItsWidget();
    void theRingSurvivesItsWidget();
    void linesLieAlongTheirEdges_data();
    void linesLieAlongTheirEdges();
    void separatorsLieAcross_data();
    void separatorsLieAcross();
    void whatIsFaintFollowsTheWindow_data();
    void whatIsFaintFollowsTheWindow();
    void segmentsShareTheWidth();
    void segmentsMayReplaceThemselves();
};

void tst_SmallViews::theRingFollowsTheFocus()
{
    Form form;
    QVERIFY(form.ready);
    QCOMPARE(form.ring->widget(), form.first);
    QCOMPARE(form.ring->geometry(), QRect(28, 28, 84, 24));
    QVERIFY(form.ring->isVisible());
    form.frame->move(40, 20); // and the field with it
    QCOMPARE(form.ring->geometry(), QRect(48, 28, 84, 24));
    form.second->setFocus();
    QCOMPARE(form.ring->geometry(), QRect(18, 148, 84, 24));
    form.ring->setRingWidth(3);
    QCOMPARE(form.ring->geometry(), QRect(17, 147, 86, 26));
    form.ring->setColor(g_green);
    QCOMPARE(form.grab().toImage().pixelColor(60, 148), g_green); // in the middle of its upper side
    QVERIFY(form.childAt(60, 160) == form.second);                // clicks go through
    form.second->clearFocus();
    QVERIFY(!form.ring->isVisible());
}

void tst_SmallViews::theRingGoesRoundWhatItIsToldTo()
{
    Form form;
    form.ring->setRingedWidget([&form](QWidget *widget) { return widget == form.first ? form.frame : nullptr; });
    QCOMPARE(form.ring->widget(), form.frame);
    form.second->setFocus();
    QVERIFY(!form.ring->widget());
    QVERIFY(!form.ring->isVisible());

    auto *mark = new QWidget(&form); // that is no part of the field
    form.ring->setRingedWidget([&form, mark](QWidget *widget) { return widget == form.second ? mark : nullptr; });
    QCOMPARE(form.ring->widget(), mark);
    mark->setParent(form.frame);
    QCOMPARE(form.ring->widget(), mark);
}

void tst_SmallViews::theRingIsCutOffWithItsWidget()
{
    Form form;
    auto *area = new QScrollArea(&form);
    area->setFrameShape(QFrame::NoFrame);
    area->setGeometry(20, 20, 200, 60);
    auto *content = new QWidget;
    content->resize(150, 400);
    area->setWidget(content);
    auto *field = new QLineEdit(content);
    field->setGeometry(10, 10, 80, 20);
    area->show();
    field->setFocus();
    QCOMPARE(form.ring->geometry(), QRect(28, 28, 84, 24));
    area->verticalScrollBar()->setValue(20);
    QCOMPARE(form.ring->geometry(), QRect(28, 20, 84, 12));
    area->verticalScrollBar()->setValue(200);
    QVERIFY(!form.ring->isVisible());
}

void tst_SmallViews::theRingSurvivesItsWidget()
{
    Form form;
    form.ring->setRingedWidget([&form](QWidget *) { return form.frame; });
    delete form.frame;
    QVERIFY(!form.ring->isVisible());
    form.ring->setRingedWidget(nullptr);
    form.second->setFocus();
    QVERIFY(form.ring->isVisible());
    auto *gone = new QWidget(&form);
    gone->show();
    form.ring->setRingedWidget([gone](QWidget *) { return gone; });
    delete gone; // which does not change the focus
    QVERIFY(!form.ring->isVisible());
    form.ring->setRingedWidget(nullptr);
    auto *other = new Form; // moved into another window, it is out of the ring's reach
    form.second->setParent(other);
    QVERIFY(!form.ring->isVisible());
    delete other;
}

void tst_SmallViews::linesLieAlongTheirEdges_data()
{
    QTest::addColumn<Qt::Edges>("edges");
    QTest::addColumn<int>("width");
    QTest::newRow("all") << Qt::Edges(Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge) << 1;
    QTest::newRow("below") << Qt::Edges(Qt::BottomEdge) << 3;
    QTest::newRow("none") << Qt::Edges() << 2;
    QTest::newRow("beside") << Qt::Edges(Qt::LeftEdge | Qt::RightEdge) << 2;
}

void tst_SmallViews::linesLieAlongTheirEdges()
{
    QFETCH(Qt::Edges, edges);
    QFETCH(int, width);
    ZelBorderedTextField field;
    field.setBorderColor(g_green);
    field.setBorderWidth(width);
    field.setBorderEdges(edges);
    field.resize(80, field.sizeHint().height());
    field.setObjectValue(QStringLiteral("Text"));
    const QImage image = field.grab().toImage();
    const auto lineFrom = [&image](QPoint place, QPoint step) {
        int width = 0;
        for (; image.pixelColor(place) == g_green; place += step)
            ++width;
        return width;
    };
    const QPoint middle = image.rect().center();
    QCOMPARE(lineFrom({middle.x(), 0}, {0, 1}), edges & Qt::TopEdge ? width : 0);
    QCOMPARE(lineFrom({middle.x(), image.height() - 1}, {0, -1}), edges & Qt::BottomEdge ? width : 0);
    QCOMPARE(lineFrom({0, middle.y()}, {1, 0}), edges & Qt::LeftEdge ? width : 0);
    QCOMPARE(lineFrom({image.width() - 1, middle.y()}, {-1, 0}), edges & Qt::RightEdge ? width : 0);
}

void tst_SmallViews::whatIsFaintFollowsTheWindow_data()
{
    QTest::addColumn<std::function<QWidget *()>>("make");
    using Make = std::function<QWidget *()>;
    QTest::newRow("line around a field") << Make([] { return new ZelBorderedTextField; });
    QTest::newRow("separator") << Make([] { return new ZelSeparator; });
    QTest::newRow("button of a title bar") << Make([] { return new ZelTitleBarButton; });
}

void tst_SmallViews::whatIsFaintFollowsTheWindow()
{
    class Counter : public QObject
    {
    public:
        int paints = 0;

    protected:
        bool eventFilter(QObject *, QEvent *event) override
        {
            paints += event->type() == QEvent::Paint;
            return false;
        }
    };
    QFETCH(std::function<QWidget *()>, make);
    Form form;
    QVERIFY(form.ready);
    QWidget *widget = make();
    widget->setParent(&form);
    widget->setPalette(QPalette(Qt::lightGray)); // the same in windows that are not active
    widget->resize(20, 20);
    Counter counter;
    widget->installEventFilter(&counter);
    widget->show();
    QTRY_VERIFY(counter.paints > 0);
    counter.paints = 0;
    QApplication::setActiveWindow(nullptr);
    QVERIFY(!form.isActiveWindow());
    QTRY_VERIFY_WITH_TIMEOUT(counter.paints > 0, 1000);
}

void tst_SmallViews::separatorsLieAcross_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("line");
    QTest::newRow("horizontal") << Qt::Horizontal << QSize(12, 5) << QRect(4, 3, 28, 1);
    QTest::newRow("vertical") << Qt::Vertical << QSize(13, 4) << QRect(4, 3, 1, 36);
}

void tst_SmallViews::separatorsLieAcross()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(QRect, line);
    ZelSeparator separator(orientation);
    separator.setEdgeInsets({4, 3, 8, 1});
    QTEST(separator.sizeHint(), "size");
    separator.resize(40, 40);
    QImage image(separator.size(), QImage::Format_RGB32);
    QColor lineColor;
    for (quint32 level = 0; level < 4; ++level) {
        separator.setLevel(level);
        image.fill(Qt::white);
        separator.render(&image, {}, {}, QWidget::DrawChildren);
        QRegion drawn;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) != Qt::white)
                    drawn += QRect(x, y, 1, 1);
        QCOMPARE(drawn.boundingRect(), line);
        const QColor color = image.pixelColor(line.topLeft());
        if (level > 0) // fainter, as far as there are levels
            QVERIFY(level < 3 ? color.lightness() > lineColor.lightness() : color == lineColor);
        lineColor = color;
    }
}

void tst_SmallViews::segmentsShareTheWidth()
{
    auto *control = new ZelSegmentedControl;
    control->setSegmentCount(3);
    ZelResizableSegmentedControlView view(control);
    QCOMPARE(view.sizeHint(), control->sizeHint());
    QCOMPARE(view.minimumSizeHint(), control->minimumSizeHint());
    QCOMPARE(view.baselineOffsetForHeight(20), control->baselineOffsetForHeight(20));
    view.resize(300, 22);
    view.show();
    QCOMPARE(control->geometry(), view.rect());
    // Within two points of the edges, in each direction.
    for (const Qt::LayoutDirection direction : {Qt::RightToLeft, Qt::LeftToRight}) {
        control->setLayoutDirection(direction);
        const QRect all = control->segmentRect(0) | control->segmentRect(1) | control->segmentRect(2);
        QCOMPARE(all, control->rect().adjusted(2, 2, -2, -2));
    }
    QCOMPARE(control->segmentRect(1).width(), 99);
    control->setSegmentCount(30);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(view.sizeHint(), control->sizeHint());

    QPointer<QWidget> former = control;
    view.setSegmentedControl(new ZelSegmentedControl);
    QVERIFY(!view.isAncestorOf(former));
    QTRY_VERIFY(!former);
    QCOMPARE(view.sizeHint(), view.segmentedControl()->sizeHint());
    delete view.segmentedControl();
    QCOMPARE(view.baselineOffsetForHeight(20), 20.0);
}

void tst_SmallViews::segmentsMayReplaceThemselves()
{
    auto *control = new ZelSegmentedControl;
    control->setSegmentCount(2);
    ZelResizableSegmentedControlView view(control);
    view.resize(200, 22);
    view.show();
    QPointer<ZelSegmentedControl> former = control;
    connect(control, &ZelSegmentedControl::action, &view,
            [&view] { view.setSegmentedControl(new ZelSegmentedControl); });
    QTest::mouseClick(control, Qt::LeftButton, {}, control->segmentRect(1).center());
    QVERIFY(view.segmentedControl() != former);
    QTRY_VERIFY(!former);
}

QTEST_MAIN(tst_SmallViews)
#include "tst_SmallViews.moc"
