// SPDX-License-Identifier: MIT
#include "Examples/ControlTour.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/ZelTabbedInspector.h"
#include "canvas/Canvas.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"

/// Two shapes of each kind, with a value for everything that can be switched off.
static void fill(Document &document)
{
    document.setGridVisible(true);
    const QList<Shape *> samples = document.shapes();
    const auto sample = std::ranges::find_if(samples, [](Shape *shape) { return !shape->remarks().isEmpty(); });
    QList<Shape *> shapes;
    for (int row = 0; row < 10; ++row) {
        const int kind = row / 2;
        const bool isFirst = row % 2 == 0;
        shapes += new Shape(Shape::Kind(kind), QRectF(30 + 90 * kind, isFirst ? 40 : 150, 70, isFirst ? 60 : 80));
        const QVariantMap values{
            {"name", QString("Shape %1").arg(row)},
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
        for (const auto &[name, value] : values.asKeyValueRange())
            QVERIFY2(shapes.last()->setProperty(name.toLatin1(), value), qPrintable(name));
        shapes.last()->setRemarks((*sample)->remarks());
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

    /// Opens the window with shapes, of which these rows are selected.
    void open(const QList<int> &rows = {})
    {
        m_window = std::make_unique<MainWindow>(Options());
        fill(m_window->document());
        select(rows);
        m_window->resize(1400, 1100);
        m_window->show();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("the window does not become active");
        settle();
    }
    void select(const QList<int> &rows)
    {
        QList<Shape *> chosen;
        for (const int row : rows)
            chosen.append(shape(row));
        m_window->selection().set(chosen);
    }
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
    QWindow *handle() { return m_window->windowHandle(); }
    Shape *shape(int row) { return m_window->document().shapes()[row]; }
    InspectorPanel *panel() { return m_window->findChild<InspectorPanel *>(); }
    ZelTabbedInspector *inspector() { return m_window->findChild<ZelTabbedInspector *>(); }
    ZelTextField *numberField(const QString &keyPath, const QString &title = {})
    {
        for (auto *editor : inspector()->findChildren<ZelInspectorNumberProperty *>()) {
            if (editor->keyPath() == keyPath || (!title.isEmpty() && editor->title() == title))
                return editor->textField();
        }
        return nullptr;
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

    /// A tab that comes back shows all of what was selected meanwhile.
    void aTabFollowsTheSelectionBehindAnother()
    {
        open({6});
        panel()->selectTab(3);
        settle();
        select({});
        settle();
        select({2});
        settle();
        panel()->selectTab(0);
        const QWidget *document = inspector()->currentInspector()->scrollView()->documentView();
        QTRY_COMPARE(document->height(), document->minimumSizeHint().height());
    }

    void numbersAreNotBentByLimits()
    {
        open({0, 1});
        const auto enter = [this](ZelTextField *field, const QString &text) {
            field->setFocus();
            field->selectAll();
            QTest::keyClicks(field, text);
            QTest::keyClick(handle(), Qt::Key_Return);
            settle();
        };
        ZelTextField *rotation = numberField("selectionController.selection.rotation");
        enter(rotation, "i*45+400");
        QCOMPARE(shape(1)->rotation(), 40.0); // the upper one, which comes first in the list
        QCOMPARE(shape(0)->rotation(), 85.0);
        enter(rotation, "-90");
        QCOMPARE(shape(1)->rotation(), 270.0);
        QVERIFY(!rotation->accessibleDescription().contains("not accepted"));
        shape(0)->setRotation(-810.5);
        QCOMPARE(shape(0)->rotation(), 269.5);
        ZelTextField *x = numberField({}, "X");
        QCOMPARE(x->increment(), 20.0);
        m_window->document().setGridVisible(false);
        QCOMPARE(x->increment(), 1.0);
        shape(1)->setX(40);
        enter(x, "x*1e9");
        QCOMPARE(shape(0)->x(), 30.0);
        QCOMPARE(shape(1)->x(), 40.0);
        QTest::keyClick(handle(), Qt::Key_Escape);
    }

    void everyControlEditsTheSelection_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QList<int>>("rows"); // of the selected shapes
        // The last two shapes are texts.
        const QList<QList<int>> selections{{}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {8}, {8, 9}, {0}, {2}, {4}, {6}, {6, 7}};
        for (int tab = 0; tab < 5; ++tab) {
            for (const QList<int> &rows : selections.first(tab == 0 ? 9 : 4))
                QTest::addRow("tab %d, %d shapes from %d", tab, int(rows.size()), rows.value(0)) << tab << rows;
        }
    }
    void everyControlEditsTheSelection()
    {
        QFETCH(const int, tab);
        QFETCH(const QList<int>, rows);
        open(rows);
        MainWindow &window = *m_window;
        QWidget *matrix = inspector()->tabBar()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).first();
        const QPoint place = matrix->mapTo(&window, QPoint(matrix->width() * (2 * tab + 1) / 10, matrix->height() / 2));
        QTest::mouseClick(handle(), Qt::LeftButton, {}, place);
        QCOMPARE(int(inspector()->selectedPaneIndex()), tab);
        const auto models = [&] {
            QObjectList models{&window.document()};
            for (Shape *shape : window.document().shapes())
                models.append(shape);
            return models;
        };
        ControlTour tour({.undoStack = &window.undoStack(),
                          .models = models,
                          .situation = [&] { return QVariant::fromValue(window.selection().shapes()); },
                          .restore = [&] { select(rows); },
                          .undo = [&] { QTest::keySequence(handle(), QKeySequence::Undo); },
                          .redo = [&] { QTest::keySequence(handle(), QKeySequence::Redo); }});
        tour.visitAll(inspector()->containerView());
        m_found += tour.found;
        m_changed += tour.changed;
        QCOMPARE(tour.faults(), QString());
    }
    void noControlWasLeftOut()
    {
        QCOMPARE((m_found - m_changed).values().join('\n'), QString());
        QCOMPARE_GE(m_found.size(), 100);
    }
};
QTEST_MAIN(tst_ShapesControls)
#include "tst_ShapesControls.moc"
