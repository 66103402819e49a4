// SPDX-License-Identifier: MIT
#include "Examples/ControlTour.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelTabbedInspector.h"
#include "TabBar/ZelTabBar.h"
#include "Views/ZelMagnificationView.h"
#include "canvas/Canvas.h"
#include "canvas/CanvasArea.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"
#include "window/Panes.h"
#include "window/ShapeListView.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTimer>

/// Shapes of all kinds, each with a value for everything that can be switched off.
static void fill(Document &document)
{
    document.setGridVisible(true);
    const QList<Shape *> samples = document.shapes();
    ZelAttributedString remarks;
    for (const Shape *sample : samples) {
        if (!sample->remarks().isEmpty())
            remarks = sample->remarks();
    }
    QList<Shape *> shapes;
    for (int row = 0; row < 10; ++row) {
        const int kind = row / 2;
        const bool isFirst = row % 2 == 0;
        auto *shape = new Shape(Shape::Kind(kind), QRectF(30 + 90 * kind, isFirst ? 40 : 150, 70, isFirst ? 60 : 80));
        const std::pair<const char *, QVariant> values[] = {
            {"name", QStringLiteral("Shape %1").arg(row)},
            {"note", "old"},
            {"tags", QStringList{"one", "two"}},
            {"due", QDate(2025, 5, isFirst ? 6 : 7)},
            {"shadowOffset", isFirst ? 5.0 : 6.0},
            {"cornerRadius", 6.0},
            {"text", "text"},
            {"opacity", isFirst ? 0.5 : 0.7},
            {"rotation", 10.0},
            {"strokeWidth", isFirst ? 4.0 : 5.0},
            {"lineCap", int(isFirst ? Shape::RoundCap : Shape::FlatCap)},
            {"lineJoin", int(isFirst ? Shape::MiterJoin : Shape::BevelJoin)},
            {"alignment", isFirst ? int(Qt::AlignCenter) : int(Qt::AlignLeft | Qt::AlignTop)},
        };
        for (const auto &[name, value] : values) {
            if (!shape->setProperty(name, value))
                qFatal("shapes have no %s", name);
        }
        shape->setRemarks(remarks);
        shapes.append(shape);
    }
    for (const Document::Placement &taken : document.take(samples))
        delete taken.shape;
    document.append(shapes);
}

/// A walk through the drawing program, and every control of its inspector does what it is there for.
class tst_ShapesControls : public QObject
{
    Q_OBJECT

    std::optional<Reports> m_reports;
    std::unique_ptr<MainWindow> m_window;

    /// Opens the window with a page of three squares of 40 points in a row.
    void open()
    {
        m_window = std::make_unique<MainWindow>(Options());
        Document &document = m_window->document();
        for (const Document::Placement &taken : document.take(document.shapes()))
            delete taken.shape;
        document.setPageSize(QSizeF(1000, 1000));
        for (const double x : {430, 530, 630})
            document.append({new Shape(Shape::Rectangle, QRectF(x, 430, 40, 40))});
        m_window->show();
        activate();
    }
    void activate()
    {
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("the window does not become active");
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
    QWindow *handle() { return m_window->windowHandle(); }
    Shape *shape(int row) { return m_window->document().shapes()[row]; }
    QList<Shape *> selected() { return m_window->selection().shapes(); }
    void trigger(Actions::Id action)
    {
        m_window->actions()[action]->trigger();
        settle();
    }
    InspectorPanel *panel() { return m_window->findChild<InspectorPanel *>(); }
    ZelTabbedInspector *inspector() { return m_window->findChild<ZelTabbedInspector *>(); }
    /// Where in the window a point of the page is seen.
    QPoint place(const QPointF &point)
    {
        const auto *canvas = m_window->findChild<Canvas *>();
        return canvas->mapTo(m_window.get(), canvas->boundsTransform().map(point)).toPoint();
    }
    void pull(const QPoint &from, const QPoint &by)
    {
        QTest::mousePress(handle(), Qt::LeftButton, {}, from);
        QTest::mouseMove(handle(), from + by / 2);
        QTest::mouseMove(handle(), from + by);
        QTest::mouseRelease(handle(), Qt::LeftButton, {}, from + by);
        settle();
    }

    QSet<QString> m_found;
    QSet<QString> m_changed;

private Q_SLOTS:
    void init() { m_reports.emplace(); }
    void cleanup()
    {
        m_window.reset();
        m_reports.reset();
        QCOMPARE(Reports::messages, QStringList());
    }

    void aSessionWithMouseAndKeys()
    {
        open();
        m_window->canvasArea().magnifier()->magnifyVisibleRectWithFactor(2);
        settle();
        QTest::mouseClick(handle(), Qt::LeftButton, {}, place({450, 450}));
        QCOMPARE(selected(), QList<Shape *>{shape(0)});
        pull(place({450, 450}), QPoint(30, -20));
        QCOMPARE(shape(0)->position(), QPointF(445, 420));
        QTest::keyClick(handle(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shape(0)->position(), QPointF(430, 430));
        QTest::keyClick(handle(), Qt::Key_Delete);
        QCOMPARE(m_window->document().shapeCount(), 2);
        trigger(Actions::Undo);
        QCOMPARE(shape(0)->position(), QPointF(430, 430)); // again in its row
        pull(place({410, 410}), QPoint(280, 160));         // a rubber band
        QCOMPARE(selected(), QList<Shape *>({shape(0), shape(1)}));
        auto *list = m_window->findChild<ShapeListView *>(); // the topmost shape comes first
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(0, 0)).center());
        QCOMPARE(selected(), QList<Shape *>{shape(2)});
        // On most keyboards the plus sign is the equals sign's key with Shift.
        QTest::keyClick(handle(), Qt::Key_Equal, Qt::ControlModifier);
        QCOMPARE(m_window->canvasArea().zoom(), 2.5);
        for (const bool isCollapsed : {true, false}) {
            QTest::keyClick(handle(), Qt::Key_F9);
            settle();
            QCOMPARE(m_window->panes().isCollapsed(Panes::Inspector), isCollapsed);
        }
        QCOMPARE(panel()->width(), 300);
    }

    void languageAndPaletteChangeWhileItRuns()
    {
        open();
        panel()->selectTab(3);
        const auto firstTitle = [this] { return inspector()->panes()[0]->inspectors()[0]->title(); };
        QCOMPARE(firstTitle(), "Shape");
        trigger(Actions::German);
        if (!QFile::exists(":/translations/shapes_de.qm"))
            QSKIP("built without Qt's linguist tools");
        QCOMPARE(firstTitle(), "Form");
        QCOMPARE(inspector()->selectedPaneIndex(), 3u);
        trigger(Actions::DarkPalette);
        trigger(Actions::English);
        trigger(Actions::DarkPalette);
        QCOMPARE(firstTitle(), "Shape");
    }

    void aFaultyDescriptionIsShownWithItsPlace()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("Inspector.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<panes>\n  <pane title='A'>\n    <inspector>\n</panes>");
        file.close();
        Options options;
        options.description = folder.path();
        QTimer closer; // of the message box, where there is a screen
        connect(&closer, &QTimer::timeout, this, [] {
            if (QWidget *box = QApplication::activeModalWidget())
                box->close();
        });
        closer.start(20);
        m_window = std::make_unique<MainWindow>(options);
        m_window->show();
        settle();
        QVERIFY(!inspector());
        const QString text = panel()->findChild<QLabel *>()->text();
        QVERIFY2(text.contains("Inspector.xml:4:"), qPrintable(text));
        trigger(Actions::SelectAll);
    }

    void everyControlEditsTheSelection_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QList<int>>("rows"); // of the selected shapes
        for (int tab = 0; tab < 5; ++tab) {
            QList<QList<int>> selections{{}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {8}, {8, 9}}; // of the last kind: texts
            if (tab == 0)
                selections += {{0}, {2}, {4}, {6}, {6, 7}};
            for (const QList<int> &rows : selections)
                QTest::addRow("tab %d, %d shapes from %d", tab, int(rows.size()), rows.value(0)) << tab << rows;
        }
    }
    void everyControlEditsTheSelection()
    {
        QFETCH(const int, tab);
        QFETCH(const QList<int>, rows);
        m_window = std::make_unique<MainWindow>(Options());
        MainWindow &window = *m_window;
        fill(window.document());
        QList<Shape *> chosen;
        for (const int row : rows)
            chosen.append(window.document().shapes()[row]);
        window.selection().set(chosen);
        window.resize(1400, 1100);
        window.show();
        activate();
        QWidget *matrix = inspector()->tabBar()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).first();
        const QPoint place = matrix->mapTo(&window, QPoint(matrix->width() * (2 * tab + 1) / 10, matrix->height() / 2));
        QTest::mouseClick(handle(), Qt::LeftButton, {}, place);
        QCOMPARE(int(inspector()->selectedPaneIndex()), tab);

        ControlTour tour({
            .undoStack = &window.undoStack(),
            .models =
                [&] {
                    QObjectList models{&window.document()};
                    for (Shape *shape : window.document().shapes())
                        models.append(shape);
                    return models;
                },
            .situation = [&] { return QVariant::fromValue(window.selection().shapes()); },
            .restore = [&] { window.selection().set(chosen); },
            .undo = [&] { QTest::keySequence(handle(), QKeySequence::Undo); },
            .redo = [&] { QTest::keySequence(handle(), QKeySequence::Redo); },
        });
        tour.visitAll(inspector()->containerView());
        m_found += tour.found;
        m_changed += tour.changed;
        QCOMPARE(tour.faults(), QString());
    }
    void noControlWasLeftOut()
    {
        QCOMPARE((m_found - m_changed).values().join('\n'), QString());
        QCOMPARE_GT(m_found.size(), 100);
    }
};

QTEST_MAIN(tst_ShapesControls)
#include "tst_ShapesControls.moc"
