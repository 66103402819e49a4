// SPDX-License-Identifier: MIT
#include "Views/ZelMagnificationView.h"
#include "canvas/Canvas.h"
#include "canvas/CanvasArea.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"
#include "window/Panes.h"

#include <QAbstractButton>
#include <QDateTimeEdit>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace {

constexpr int ShapeSize = 40; // points
constexpr int ShapeStep = 100;

/// The drawing program with a page of squares in a grid, each in a colour of its own.
struct Program
{
    explicit Program(const Options &options = {})
        : window(options)
    {
        Document &document = window.document();
        for (const Document::Placement &taken : document.take(document.shapes()))
            delete taken.shape;
        document.setPageSize(QSizeF(1000, 1000));
        document.setGridVisible(false);
        QList<Shape *> shapes;
        for (int i = 0; i < 100; ++i) {
            auto *shape = new Shape(Shape::Rectangle,
                                    QRectF(30 + i % 10 * ShapeStep, 30 + i / 10 * ShapeStep, ShapeSize, ShapeSize));
            shape->setStrokeEnabled(false);
            shape->setFillColor(colorOf(i));
            shapes.append(shape);
        }
        document.append(shapes);
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window does not become active");
        settle();
    }
    static QColor colorOf(int shape) { return QColor(250 - shape * 2, 20 + shape, 100); }
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

    CanvasArea &area() { return window.canvasArea(); }
    Canvas *canvas() { return window.findChild<Canvas *>(); }
    QWidget *inspector() { return window.findChild<InspectorPanel *>(); }
    Shape *shape(int row) { return window.document().shapes()[row]; }
    /// Zooms, and scrolls to a point of the page.
    void show(double zoom, const QPointF &centre)
    {
        area().magnifier()->magnifyVisibleRectWithFactor(zoom);
        const QPointF offset = place(centre) - QRectF(viewport()).center();
        area().horizontalScrollBar()->setValue(area().horizontalScrollBar()->value() + qRound(offset.x()));
        area().verticalScrollBar()->setValue(area().verticalScrollBar()->value() + qRound(offset.y()));
        settle();
    }
    /// What is seen of the canvas, in the window.
    QRect viewport() { return {area().viewport()->mapTo(&window, QPoint()), area().viewport()->size()}; }
    QPointF place(const QPointF &point) { return canvas()->mapTo(&window, canvas()->boundsTransform().map(point)); }
    QPointF pointAt(const QPointF &place)
    {
        return canvas()->boundsTransform().inverted().map(canvas()->mapFrom(&window, place));
    }
    /// What the user sees of the window, from the screen.
    QImage picture()
    {
        settle();
        QTest::qWait(20); // the server has painted it
        return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
    }
    void wheel(const QPointF &place, int delta)
    {
        QWheelEvent event(place, window.mapToGlobal(place), QPoint(), QPoint(0, delta), {}, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(window.windowHandle(), &event);
        settle();
    }
    void pull(const QPoint &from, const QPoint &by)
    {
        QWindow *handle = window.windowHandle();
        QTest::mousePress(handle, Qt::LeftButton, {}, from);
        QTest::mouseMove(handle, from + by / 2);
        QTest::mouseMove(handle, from + by);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, from + by);
        settle();
    }
    /// Drags the divider before a pane.
    void pullDivider(Panes::Pane pane, int by) { pull(divider(pane), QPoint(by, 0)); }
    QPoint divider(Panes::Pane pane)
    {
        const QSplitterHandle *handle = window.panes().handle(pane);
        return handle->mapTo(&window, handle->rect().center());
    }

    MainWindow window;
};

int ratio()
{
    return qRound(qApp->devicePixelRatio());
}

/// Whether there is only one colour a few pixels around a place.
bool isPlain(const QImage &picture, const QPoint &place)
{
    const QRgb color = picture.pixel(place * ratio());
    for (int x = -4; x <= 4; ++x)
        for (int y = -4; y <= 4; ++y)
            if (picture.pixel((place + QPoint(x, y)) * ratio()) != color)
                return false;
    return true;
}

} // namespace

/// The canvas and the panes of the drawing program, told of by the window's own events.
class tst_Canvas : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theWheelKeepsThePointUnderThePointer_data();
    void theWheelKeepsThePointUnderThePointer();
    void clicksSelectWhatIsSeenThere_data();
    void clicksSelectWhatIsSeenThere();
    void dragsMoveByWhatThePointerPassesOver_data();
    void dragsMoveByWhatThePointerPassesOver();
    void edgesAreSharp_data();
    void edgesAreSharp();
    void menusZoomAboutTheCentreAndFit();
    void thePageMayChangeItsSize();
    void theCanvasTakesWhatTheWindowGrowsBy();
    void dividersKeepToTheLimitsOfTheInspector();
    void theInspectorCollapsesAndOpens_data();
    void theInspectorCollapsesAndOpens();
    void panesAreRemembered();
    void theWindowComesToRest();
    void titlesFollowTheDocument();
    void theLastRowOfASectionComesBack();
    void datesAreWrittenAsTheLanguageDoes();
};

void tst_Canvas::theWheelKeepsThePointUnderThePointer_data()
{
    QTest::addColumn<QPoint>("offset"); // from the middle of what is seen
    QTest::newRow("middle") << QPoint(0, 0);
    QTest::newRow("near a corner") << QPoint(-310, 270);
    QTest::newRow("right edge") << QPoint(350, 10);
}

void tst_Canvas::theWheelKeepsThePointUnderThePointer()
{
    QFETCH(const QPoint, offset);
    Program program;
    program.show(2, QPointF(500, 500));
    const QPointF place = program.viewport().center() + offset;
    const QPointF point = program.pointAt(place);
    for (const int delta : {120, 120, 120, 30, 240, -120, -45, 120, -240, -120, -225}) {
        program.wheel(place, delta);
        const QPointF error = program.place(point) - place;
        QVERIFY2(qMax(qAbs(error.x()), qAbs(error.y())) * ratio() <= 1,
                 qPrintable(QStringLiteral("%1, %2").arg(error.x()).arg(error.y())));
    }
    QVERIFY(qAbs(program.area().zoom() - 2) < 1e-9);
}

void tst_Canvas::clicksSelectWhatIsSeenThere_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QPointF>("centre");
    for (const double zoom : {0.25, 0.37, 1.0, 1.75, 4.0}) {
        QTest::addRow("%g, at the top", zoom) << zoom << QPointF(0, 0);
        QTest::addRow("%g, scrolled", zoom) << zoom << QPointF(611, 743);
    }
}

void tst_Canvas::clicksSelectWhatIsSeenThere()
{
    QFETCH(const double, zoom);
    QFETCH(const QPointF, centre);
    Program program;
    program.show(zoom, centre);
    program.window.selection().clear();
    const QImage picture = program.picture();
    QHash<QRgb, int> shapes;
    for (int i = 0; i < 100; ++i)
        shapes.insert(Program::colorOf(i).rgb(), i);
    const QRect seen = program.viewport();
    QSet<Shape *> hits;
    int misses = 0;
    for (int x = seen.left() + 3; x < seen.right(); x += 19) {
        for (int y = seen.top() + 2; y < seen.bottom(); y += 41) {
            const QColor color = picture.pixelColor(x * ratio(), y * ratio());
            const bool isShape = shapes.contains(color.rgb());
            const bool isPage = color == Qt::white && isPlain(picture, QPoint(x, y));
            if (!isShape && !isPage)
                continue; // beside the page, or so near to a shape that it may be meant
            QTest::mouseClick(program.window.windowHandle(), Qt::LeftButton, {}, QPoint(x, y));
            const QList<Shape *> expected =
                isShape ? QList<Shape *>{program.shape(shapes.value(color.rgb()))} : QList<Shape *>();
            QCOMPARE(program.window.selection().shapes(), expected);
            isShape ? void(hits.insert(expected.first())) : void(++misses);
        }
    }
    QVERIFY2(hits.size() >= (zoom > 3 ? 2 : 10) && misses > 10, qPrintable(QString::number(hits.size())));
}

void tst_Canvas::dragsMoveByWhatThePointerPassesOver_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QPoint>("pixels");
    QTest::addColumn<QPointF>("points");
    QTest::newRow("25 %") << 0.25 << QPoint(30, -20) << QPointF(120, -80);
    QTest::newRow("100 %") << 1.0 << QPoint(30, -20) << QPointF(30, -20);
    QTest::newRow("400 %") << 4.0 << QPoint(200, -120) << QPointF(50, -30);
}

void tst_Canvas::dragsMoveByWhatThePointerPassesOver()
{
    QFETCH(const double, zoom);
    QFETCH(const QPoint, pixels);
    QFETCH(const QPointF, points);
    Program program;
    program.show(zoom, QPointF(450, 450));
    Shape *shape = program.shape(44); // at 430, 430
    const QPoint start = program.place(QPointF(450, 450)).toPoint();
    program.pull(start, pixels);
    QCOMPARE(shape->position(), QPointF(430, 430) + points);
    QCOMPARE(QColor(program.picture().pixel((start + pixels) * ratio())), shape->fillColor());
    program.window.actions()[Actions::Undo]->trigger();
    QCOMPARE(shape->position(), QPointF(430, 430));
}

void tst_Canvas::edgesAreSharp_data()
{
    QTest::addColumn<int>("zoom");
    QTest::newRow("100 %") << 1;
    QTest::newRow("400 %") << 4;
    QTest::newRow("1600 %") << 16;
}

void tst_Canvas::edgesAreSharp()
{
    QFETCH(const int, zoom);
    Program program;
    program.show(zoom, QPointF(450, 450));
    Shape *shape = program.shape(44);
    const QRect square(program.place(QPointF(430, 430)).toPoint() * ratio(),
                       QSize(ShapeSize, ShapeSize) * zoom * ratio());
    const auto column = [&](const QImage &picture, int x) { return QColor(picture.pixel(x, square.center().y())); };
    const QImage plain = program.picture();
    for (int x = -3; x < 3; ++x) { // no colour in between
        QCOMPARE(column(plain, square.left() + x), x < 0 ? QColor(Qt::white) : shape->fillColor());
        QCOMPARE(column(plain, square.right() + 1 + x), x < 0 ? shape->fillColor() : QColor(Qt::white));
    }
    // The frame and the handles of the selected one are as large at every magnification.
    program.window.selection().set({shape});
    const QImage selected = program.picture();
    int frame = 0;
    for (int x = square.left() - 3; x < square.left() + 3; ++x)
        frame += column(selected, x) != column(plain, x);
    QCOMPARE(frame, 1);
    int handle = 0;
    for (int x = square.left() - 10 * ratio(); x < square.left() + 10 * ratio(); ++x)
        handle += selected.pixel(x, square.top() + 2 * ratio()) != plain.pixel(x, square.top() + 2 * ratio());
    QVERIFY2(handle >= 4 * ratio() && handle <= 8 * ratio(), qPrintable(QString::number(handle)));
}

void tst_Canvas::menusZoomAboutTheCentreAndFit()
{
    Program program;
    program.show(1, QPointF(500, 500));
    const auto centre = [&] { return program.pointAt(QRectF(program.viewport()).center()); };
    const QPointF before = centre();
    program.window.actions()[Actions::ZoomIn]->trigger();
    program.window.actions()[Actions::ZoomIn]->trigger();
    Program::settle();
    QCOMPARE(program.area().zoom(), 1.25 * 1.25);
    QVERIFY(QLineF(centre(), before).length() < 2);
    // On most keyboards the plus sign is the equals sign's key with Shift.
    QTest::keyClick(program.window.windowHandle(), Qt::Key_Equal, Qt::ControlModifier);
    QCOMPARE(program.area().zoom(), 1.25 * 1.25 * 1.25);
    program.window.actions()[Actions::ActualSize]->trigger();
    QCOMPARE(program.area().zoom(), 1.0);
    program.window.actions()[Actions::ZoomToFit]->trigger();
    Program::settle();
    QVERIFY(!program.area().horizontalScrollBar()->isVisible() && !program.area().verticalScrollBar()->isVisible());
    QVERIFY(QRectF(program.viewport()).contains(QRectF(program.place({0, 0}), program.place({1000, 1000}))));
    for (int i = 0; i < 40; ++i)
        program.window.actions()[Actions::ZoomIn]->trigger();
    QCOMPARE(program.area().zoom(), 16.0);
    for (int i = 0; i < 60; ++i)
        program.window.actions()[Actions::ZoomOut]->trigger();
    QCOMPARE(program.area().zoom(), 0.02);
}

void tst_Canvas::thePageMayChangeItsSize()
{
    Program program;
    program.show(2, QPointF(900, 900));
    program.window.document().setPageSize(QSizeF(300, 200));
    Program::settle();
    QCOMPARE(program.area().zoom(), 2.0);
    QCOMPARE(program.place({300, 200}) - program.place({0, 0}), QPointF(600, 400));
    const QPointF middle = program.place({150, 100}) - QRectF(program.viewport()).center();
    QVERIFY2(middle.manhattanLength() <= 2, "the small page is not in the middle");
    const QImage picture = program.picture();
    QCOMPARE(picture.pixelColor((program.place({299, 199})).toPoint() * ratio()), QColor(Qt::white));
    QVERIFY(picture.pixelColor((program.place({302, 199})).toPoint() * ratio()) != QColor(Qt::white));
}

void tst_Canvas::theCanvasTakesWhatTheWindowGrowsBy()
{
    Program program;
    const QList<int> before = program.window.panes().sizes();
    program.window.resize(program.window.size() + QSize(150, 90));
    QTRY_COMPARE(program.window.panes().sizes(), QList<int>({before[0], before[1] + 150, before[2]}));
    program.window.resize(program.window.size() - QSize(400, 0));
    QTRY_COMPARE(program.window.panes().sizes(), QList<int>({before[0], before[1] - 250, before[2]}));
    program.window.resize(600, 500); // the canvas alone cannot give all of it
    QTRY_COMPARE(program.window.panes().sizes(), QList<int>({120, 200, 278}));
    QCOMPARE(program.inspector()->mapTo(&program.window, QPoint(program.inspector()->width(), 0)).x(), 600);
    program.window.resize(600, 560);
    Program::settle();
    program.window.resize(program.window.size() + QSize(500, 0));
    QTRY_COMPARE(program.window.panes().sizes()[2], before[2]);
    QCOMPARE(program.window.panes().sizes()[0], before[0]);
}

void tst_Canvas::dividersKeepToTheLimitsOfTheInspector()
{
    Program program;
    const QWidget *inspector = program.inspector();
    const int canvas = program.area().width();
    QCOMPARE(inspector->width(), 300);
    program.pullDivider(Panes::Inspector, -60);
    QCOMPARE(inspector->width(), 360);
    QCOMPARE(program.area().width(), canvas - 60);
    program.pullDivider(Panes::Inspector, 200); // to 160, more than half of what it needs
    QCOMPARE(inspector->width(), 240);
    QCOMPARE(program.area().width(), canvas + 60);
    program.pullDivider(Panes::Inspector, -500);
    QVERIFY(inspector->width() <= 560 && inspector->width() > 550);
    QVERIFY(!program.window.panes().isCollapsed(Panes::Inspector));
}

void tst_Canvas::theInspectorCollapsesAndOpens_data()
{
    using Way = std::function<void(Program &)>;
    QTest::addColumn<Way>("toggle");
    QTest::newRow("action") << Way(
        [](Program &program) { program.window.actions()[Actions::ShowInspector]->trigger(); });
    QTest::newRow("key") << Way([](Program &program) { QTest::keyClick(program.window.windowHandle(), Qt::Key_F9); });
    QTest::newRow("double click") << Way([](Program &program) {
        QTest::mouseDClick(program.window.windowHandle(), Qt::LeftButton, {}, program.divider(Panes::Inspector));
    });
    QTest::newRow("drag") << Way([](Program &program) {
        program.pullDivider(Panes::Inspector, program.window.panes().isCollapsed(Panes::Inspector) ? -320 : 320);
    });
}

void tst_Canvas::theInspectorCollapsesAndOpens()
{
    QFETCH(const std::function<void(Program &)>, toggle);
    Program program;
    program.pullDivider(Panes::Inspector, -20);
    const int canvas = program.area().width();
    const QAction *action = program.window.actions()[Actions::ShowInspector];
    program.inspector()->setFocus();
    QVERIFY(action->isChecked());
    toggle(program);
    Program::settle();
    QVERIFY(program.window.panes().isCollapsed(Panes::Inspector));
    QVERIFY(!action->isChecked());
    QCOMPARE(program.area().mapTo(&program.window, QPoint(program.area().width(), 0)).x(), program.window.width());
    for (int i = 0; i < 12; ++i) { // nothing out of sight gets the focus
        QTest::keyClick(program.window.windowHandle(), Qt::Key_Tab);
        QVERIFY(!program.inspector()->isAncestorOf(QApplication::focusWidget()));
    }
    toggle(program);
    Program::settle();
    QVERIFY(!program.window.panes().isCollapsed(Panes::Inspector));
    QVERIFY(action->isChecked());
    QVERIFY(program.inspector()->isEnabled());
    QCOMPARE(program.inspector()->width(), 320);
    QCOMPARE(program.area().width(), canvas);
}

void tst_Canvas::panesAreRemembered()
{
    QTemporaryDir folder;
    Options options;
    options.settings = folder.filePath("kept/shapes.ini");
    {
        Program program(options);
        program.pullDivider(Panes::Inspector, -45);
        program.pullDivider(Panes::Canvas, 33);
        program.window.panes().setCollapsed(Panes::Inspector, true);
        Program::settle();
        program.window.close();
    }
    {
        Program program(options);
        QVERIFY(program.window.panes().isCollapsed(Panes::Inspector));
        QVERIFY(!program.window.actions()[Actions::ShowInspector]->isChecked());
        QCOMPARE(program.window.panes().sizes(), QList<int>({223, program.area().width(), 0}));
        program.window.actions()[Actions::ShowInspector]->trigger();
        Program::settle();
        QCOMPARE(program.inspector()->width(), 345);
        program.window.close();
    }
    QCOMPARE(Program(options).inspector()->width(), 345);
    options.inspectorWidth = 410; // asked for, it goes before what was kept
    QCOMPARE(Program(options).inspector()->width(), 410);
}

/// Counts how often the panes are asked to be laid out.
struct LayoutCounter : QObject
{
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::LayoutRequest;
        return false;
    }
    int count = 0;
};

void tst_Canvas::theWindowComesToRest()
{
    Program program;
    QTest::qWait(600); // longer than a main window's animations
    LayoutCounter counter;
    program.window.panes().installEventFilter(&counter);
    QTest::qWait(200);
    QCOMPARE(counter.count, 0);
}

void tst_Canvas::titlesFollowTheDocument()
{
    Program program;
    const auto *status = program.window.statusBar()->findChild<QLabel *>();
    Shape *shape = program.shape(3);
    program.window.selection().set({shape});
    shape->setName(QStringLiteral("Moon"));
    shape->setWidth(55);
    QVERIFY2(status->text().startsWith(u"Moon: 55"), qPrintable(status->text()));
    program.window.document().setProperty("title", QStringLiteral("Night"));
    QCOMPARE(program.window.windowTitle(), QStringLiteral("Night"));
    program.window.selection().clear();
    QVERIFY(!status->text().contains(u"Moon"));
}

void tst_Canvas::theLastRowOfASectionComesBack()
{
    Options options;
    options.tab = 1;
    Program program(options);
    program.window.resize(1280, 1000);
    program.shape(0)->setShadowOffset(5.0);
    program.window.selection().set({program.shape(0)});
    Program::settle();
    const QAbstractButton *button = nullptr;
    for (const QAbstractButton *candidate : program.inspector()->findChildren<QAbstractButton *>()) {
        if (candidate->text() == u"Use for New Shadows")
            button = candidate;
    }
    QVERIFY(button && button->visibleRegion().boundingRect() == button->rect());
    for (int round = 0; round < 3; ++round) {
        program.window.selection().set({program.shape(1)});
        Program::settle();
        QVERIFY(!button->isVisible());
        program.window.selection().set({program.shape(0)});
        Program::settle();
        QTRY_COMPARE(button->visibleRegion().boundingRect(), button->rect());
    }
}

void tst_Canvas::datesAreWrittenAsTheLanguageDoes()
{
    Options options;
    options.language = QStringLiteral("de");
    options.tab = 4;
    Program program(options);
    program.window.document().setProperty("created", QDate(2025, 3, 9));
    const auto created = [&program] {
        Program::settle();
        const auto *picker = program.inspector()->findChild<QDateTimeEdit *>(); // the inspector is built anew
        return picker ? picker->text() : QString();
    };
    QCOMPARE(created(), QStringLiteral("09.03.2025"));
    program.window.actions()[Actions::English]->trigger();
    QTRY_COMPARE(created(), QStringLiteral("3/9/2025"));
}

QTEST_MAIN(tst_Canvas)
#include "tst_Canvas.moc"
