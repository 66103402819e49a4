// SPDX-License-Identifier: MIT
#include "Examples/ControlTour.h"
#include "Inspector/ZelTabbedInspector.h"
#include "TabBar/ZelTabBar.h"
#include "window/MainWindow.h"
#include "window/Options.h"

#include <QTest>

namespace {
/// Shapes of all kinds, each with a value for everything that can be switched off.
void fill(Document &document)
{
    document.setGridVisible(true);
    const QList<Shape *> samples = document.shapes();
    ZelAttributedString remarks;
    for (const Shape *sample : samples) {
        if (!sample->remarks().isEmpty())
            remarks = sample->remarks();
    }
    QList<Shape *> shapes;
    for (int kind = Shape::Rectangle; kind <= Shape::Text; ++kind) {
        for (int i = 0; i < 2; ++i) {
            auto *shape = new Shape(Shape::Kind(kind), QRectF(30 + 90 * kind, 40 + 110 * i, 70, 60 + 20 * i));
            shape->setName(QStringLiteral("Shape %1 %2").arg(kind).arg(i));
            shape->setNote("old");
            shape->setTags({"one", "two"});
            shape->setDue(QDate(2025, 5, 6 + i));
            shape->setRemarks(remarks);
            shape->setShadowOffset(5 + i);
            shape->setCornerRadius(6);
            shape->setText("text");
            shape->setOpacity(0.5 + 0.2 * i);
            shape->setRotation(10);
            shape->setStrokeWidth(4 + i);
            shape->setLineCap(i == 0 ? Shape::RoundCap : Shape::FlatCap);
            shape->setLineJoin(i == 0 ? Shape::MiterJoin : Shape::BevelJoin);
            shape->setAlignment(i == 0 ? int(Qt::AlignCenter) : Qt::AlignLeft | Qt::AlignTop);
            shapes.append(shape);
        }
    }
    for (const Document::Placement &taken : document.take(samples))
        delete taken.shape;
    document.append(shapes);
}
} // namespace

/// Every control of the drawing program's inspector does what it is there for.
class tst_ShapesControls : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyControlEditsTheSelection_data();
    void everyControlEditsTheSelection();
    void noControlWasLeftOut();

private:
    static void press(MainWindow &window, const QKeySequence &keys)
    {
        const QKeyCombination combination = keys[0];
        QTest::keyClick(window.windowHandle(), combination.key(), combination.keyboardModifiers());
    }

    QSet<QString> m_found;
    QSet<QString> m_changed;
};

void tst_ShapesControls::everyControlEditsTheSelection_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QList<int>>("rows"); // of the selected shapes
    const QList<int> all{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const char *tabs[] = {"geometry", "style", "arrange", "notes", "document"};
    for (int tab = 0; tab < 5; ++tab) {
        QTest::addRow("%s, none", tabs[tab]) << tab << QList<int>();
        QTest::addRow("%s, all", tabs[tab]) << tab << all;
        for (int kind = Shape::Rectangle; kind <= Shape::Text; ++kind) {
            if (tab == 0 || kind == Shape::Text)
                QTest::addRow("%s, one of kind %d", tabs[tab], kind) << tab << QList<int>{2 * kind};
        }
        if (tab == 0)
            QTest::addRow("%s, two polygons", tabs[tab]) << tab << QList<int>{6, 7};
        QTest::addRow("%s, two texts", tabs[tab]) << tab << QList<int>{8, 9};
    }
}

void tst_ShapesControls::everyControlEditsTheSelection()
{
    QFETCH(const int, tab);
    QFETCH(const QList<int>, rows);
    MainWindow window{Options()};
    fill(window.document());
    QList<Shape *> selected;
    for (const int row : rows)
        selected.append(window.document().shapes()[row]);
    window.selection().set(selected);
    window.resize(1400, 1100);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *inspector = window.findChild<ZelTabbedInspector *>();
    QWidget *matrix = inspector->tabBar()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).first();
    const QPoint place = matrix->mapTo(&window, QPoint(matrix->width() * (2 * tab + 1) / 10, matrix->height() / 2));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
    QCOMPARE(int(inspector->selectedPaneIndex()), tab);

    ControlTour::Program program;
    program.undoStack = &window.undoStack();
    program.models = [&] {
        QObjectList models{&window.document()};
        for (Shape *shape : window.document().shapes())
            models.append(shape);
        return models;
    };
    program.situation = [&] { return QVariant::fromValue(window.selection().shapes()); };
    program.restore = [&] { window.selection().set(selected); };
    program.undo = [&] { press(window, QKeySequence::Undo); };
    program.redo = [&] { press(window, QKeySequence::Redo); };
    ControlTour tour(program);
    tour.visitAll(inspector->containerView());
    m_found += tour.found();
    m_changed += tour.changed();
    QVERIFY2(tour.faults().isEmpty(), qPrintable(u'\n' + tour.faults().join(u'\n')));
}

void tst_ShapesControls::noControlWasLeftOut()
{
    const QStringList left = (m_found - m_changed).values();
    QVERIFY2(left.isEmpty(), qPrintable(u'\n' + left.join(u'\n')));
    QVERIFY2(m_found.size() > 100, qPrintable(QString::number(m_found.size())));
}

QTEST_MAIN(tst_ShapesControls)
#include "tst_ShapesControls.moc"
