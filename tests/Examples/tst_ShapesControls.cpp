// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Examples/ControlTour.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/ZelTabbedInspector.h"
#include "canvas/Canvas.h"
#include "canvas/CanvasArea.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"
#include "window/Panes.h"
#include "window/ShapeListView.h"

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
        User::open(m_window.get());
        User::settle();
    }
    void select(const QList<int> &rows)
    {
        QList<Shape *> chosen;
        for (const int row : rows)
            chosen.append(shape(row));
        m_window->selection().set(chosen);
    }
    QWindow *handle() { return m_window->windowHandle(); }
    Shape *shape(int row) { return m_window->document().shapes()[row]; }
    void trigger(Actions::Id action)
    {
        m_window->actions()[action]->trigger();
        User::settle();
    }
    InspectorPanel *panel() { return m_window->findChild<InspectorPanel *>(); }
    ZelTabbedInspector *inspector() { return m_window->findChild<ZelTabbedInspector *>(); }
    /// Where in the window a point of the page is seen.
    QPoint place(const QPointF &point)
    {
        const auto *canvas = m_window->findChild<Canvas *>();
        return canvas->mapTo(m_window.get(), canvas->boundsTransform().map(point)).toPoint();
    }
    ZelTextField *numberField(const QString &keyPath, const QString &title = {})
    {
        for (auto *editor : inspector()->findChildren<ZelInspectorNumberProperty *>()) {
            if (editor->keyPath() == keyPath || (!title.isEmpty() && editor->title() == title))
                return editor->textField();
        }
        return nullptr;
    }
    /// The control of the inspector to which the widget belongs.
    static QWidget *controlOf(QWidget *widget)
    {
        QWidget *control = nullptr;
        for (; widget; widget = widget->parentWidget()) {
            const bool isOfEditor = ControlTour::isControl(widget) && !qobject_cast<ZelStepper *>(widget);
            if (isOfEditor || widget->inherits("ZelButtonMatrix") || qobject_cast<QLineEdit *>(widget))
                control = widget;
        }
        return control;
    }
    static bool isShownOnly(const QWidget *widget)
    {
        const bool isLabel = widget->inherits("ZelPaddedTextField") && widget->focusPolicy() == Qt::NoFocus;
        return isLabel || widget->property("editable") == false;
    }
    /// What can be used in the inspector, in no order.
    QList<QWidget *> usableControls()
    {
        QList<QWidget *> controls;
        for (QWidget *widget : panel()->findChildren<QWidget *>()) {
            if (widget->isVisible() && widget->isEnabled() && controlOf(widget) == widget && !isShownOnly(widget))
                controls.append(widget);
        }
        return controls;
    }
    static QRect placeOf(const QWidget *widget) { return {widget->mapTo(widget->window(), QPoint()), widget->size()}; }
    static QString nameOf(const QWidget *widget)
    {
        QString text;
        QDebug(&text) << widget->metaObject()->className() << widget->accessibleName() << placeOf(widget);
        return text;
    }
    /// Whether nobody who reads would come to the second one before the first.
    static bool isInOrder(const QWidget *first, const QWidget *second)
    {
        const QRect a = placeOf(first);
        const QRect b = placeOf(second);
        const bool isMirrored = first->layoutDirection() == Qt::RightToLeft;
        return b.top() >= a.bottom() ||
               (b.bottom() > a.top() && (isMirrored ? b.right() <= a.left() : b.left() >= a.right()));
    }
    /// The controls of the inspector that the key meets, from the canvas on; what is wrong is added to the faults.
    QList<QWidget *> walk(bool isForward, QStringList &faults)
    {
        m_window->findChild<Canvas *>()->setFocus();
        QList<QWidget *> met;
        QImage focused;
        for (int i = 0; i < 200; ++i) {
            User::press(isForward ? Qt::Key_Tab : Qt::Key_Backtab, isForward ? Qt::NoModifier : Qt::ShiftModifier);
            QWidget *focus = QApplication::focusWidget();
            QWidget *control = focus && panel()->isAncestorOf(focus) ? controlOf(focus) : nullptr;
            if (!met.isEmpty() && control != met.last() && met.last()->grab().toImage() == focused)
                faults += "shows no focus: " + nameOf(met.last());
            if (!control && !met.isEmpty() && !(focus && panel()->isAncestorOf(focus)))
                return met;
            if (focus && panel()->isAncestorOf(focus) && !control)
                faults += "is no control: " + nameOf(focus);
            if (!control)
                continue;
            focused = control->grab().toImage();
            if (!met.isEmpty() && met.last() == control) // another part of it
                continue;
            if (!met.isEmpty() && !(isForward ? isInOrder(met.last(), control) : isInOrder(control, met.last())))
                faults += "out of order: " + nameOf(control) + " after " + nameOf(met.last());
            met.append(control);
        }
        faults += "does not come to an end";
        return met;
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
        User::settle();
        select({});
        User::settle();
        select({2});
        User::settle();
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
            User::settle();
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

    void aSessionWithMouseAndKeys()
    {
        open();
        const QPointF before = shape(0)->position();
        const QPoint middle = place(shape(0)->frame().center());
        QTest::mouseClick(handle(), Qt::LeftButton, {}, middle);
        QCOMPARE(m_window->selection().shapes(), QList<Shape *>{shape(0)});
        QTest::mousePress(handle(), Qt::LeftButton, {}, middle);
        for (const QPoint &by : {QPoint(15, -10), QPoint(30, -20)})
            QTest::mouseMove(handle(), middle + by);
        QTest::mouseRelease(handle(), Qt::LeftButton, {}, middle + QPoint(30, -20));
        QCOMPARE(shape(0)->position(), before + QPointF(30, -20) / m_window->canvasArea().zoom());
        QTest::keyClick(handle(), Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(handle(), Qt::Key_Delete);
        QCOMPARE(m_window->document().shapeCount(), 9);
        trigger(Actions::Undo);
        QCOMPARE(shape(0)->position(), before);              // again in its row
        auto *list = m_window->findChild<ShapeListView *>(); // the topmost shape comes first
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(0, 0)).center());
        QCOMPARE(m_window->selection().shapes(), QList<Shape *>{shape(9)});
        select({0});
        ZelTextField *field = numberField({}, "X");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(QApplication::focusWidget(), "99");
        QTest::keyClick(handle(), Qt::Key_D, Qt::ControlModifier); // a command takes what is typed
        QCOMPARE(shape(0)->position().x(), 99.0);
        QCOMPARE(m_window->selection().shapes().first()->position().x(), 111.0);
        for (const bool isCollapsed : {true, false}) {
            QTest::keyClick(handle(), Qt::Key_F9);
            User::settle();
            QCOMPARE(m_window->panes().isCollapsed(Panes::Inspector), isCollapsed);
        }
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

    void tabMeetsEveryControlInReadingOrder_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<bool>("isMirrored");
        for (int tab = 0; tab < 5; ++tab) {
            QTest::addRow("tab %d", tab) << tab << false;
            QTest::addRow("tab %d, right to left", tab) << tab << true;
        }
    }
    void tabMeetsEveryControlInReadingOrder()
    {
        QFETCH(const int, tab);
        QFETCH(const bool, isMirrored);
        open({9});
        panel()->selectTab(tab);
        m_window->setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        User::settle();
        const QList<QWidget *> controls = usableControls();
        QVERIFY(controls.size() > 5);
        QStringList faults;
        for (const bool isForward : {true, false}) {
            const QList<QWidget *> met = walk(isForward, faults);
            for (const QWidget *control : controls) {
                if (!met.contains(control))
                    faults += "is not met: " + nameOf(control);
            }
        }
        QCOMPARE(faults.join('\n'), QString());
    }

    void keysGoFromPaneToPane()
    {
        open();
        QWidget *list = m_window->findChild<ShapeListView *>();
        QWidget *canvas = m_window->findChild<Canvas *>();
        canvas->setFocus();
        User::press(Qt::Key_F6);
        QWidget *first = QApplication::focusWidget();
        QVERIFY(panel()->isAncestorOf(first));
        User::press(Qt::Key_Tab);
        QWidget *second = QApplication::focusWidget();
        QVERIFY(second != first && panel()->isAncestorOf(second));
        User::press(Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), list);
        User::press(Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), canvas);
        User::press(Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), second);
        User::press(Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), canvas);
        User::press(Qt::Key_F8); // the list is collapsed
        User::press(Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), second);

        auto *field = panel()->findChild<ZelGrowingTextField *>(); // which makes what has the focus only for that time
        field->setFocus();
        QVERIFY(field->isAncestorOf(QApplication::focusWidget()));
        User::press(Qt::Key_F6);
        User::press(Qt::Key_F6);
        QVERIFY(field->isAncestorOf(QApplication::focusWidget()));
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
        QCOMPARE_GT(m_found.size(), 100);
    }
};
QTEST_MAIN(tst_ShapesControls)
#include "tst_ShapesControls.moc"
