// SPDX-License-Identifier: MIT
#include "model/Document.h"
#include "model/SampleDocument.h"
#include "model/Selection.h"
#include "window/ShapeListModel.h"
#include "window/ShapeListView.h"

#include <QSignalSpy>
#include <QTest>

class tst_ShapesList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { view.reset(); }
    void clicksSelectLikeInAnyList();
    void keysExtendAndShrinkTheSelection();
    void changesOfOneTurnAreAnnouncedOnce();
    void everySecondOfManyShapesIsSelectedQuickly();
    void theTopmostShapeIsTheFirst();

private:
    QPoint rowCentre(int row) const { return view->visualRect(view->model()->index(row, 0)).center(); }
    void click(int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, rowCentre(row));
    }
    /// The selected rows of the list.
    QList<int> rows() const
    {
        QList<int> rows;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            if (view->model()->index(row, 0).data(ShapeListModel::SelectedRole).toBool())
                rows.append(row);
        }
        return rows;
    }

    std::unique_ptr<Document> document;
    std::unique_ptr<Selection> selection;
    std::unique_ptr<ShapeListView> view;
};

void tst_ShapesList::init()
{
    selection.reset();
    document = std::make_unique<Document>();
    selection = std::make_unique<Selection>(document.get());
    SampleDocument::fillWithRows(*document, 12);
    view = std::make_unique<ShapeListView>(document.get(), selection.get());
    view->resize(200, 600);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
}

void tst_ShapesList::clicksSelectLikeInAnyList()
{
    click(2);
    click(5, Qt::ShiftModifier);
    QCOMPARE(rows(), QList<int>({2, 3, 4, 5}));
    click(3, Qt::ShiftModifier);
    QCOMPARE(rows(), QList<int>({2, 3}));
    click(8, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    QCOMPARE(rows(), QList<int>({3, 8}));
    click(6);
    QCOMPARE(rows(), QList<int>({6}));
}

void tst_ShapesList::keysExtendAndShrinkTheSelection()
{
    view->setFocus();
    click(4);
    QTest::keyClick(view.get(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view.get(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view.get(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(rows(), QList<int>({4, 5}));
    QTest::keyClick(view.get(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(selection->count(), 12);
    QTest::keyClick(view.get(), Qt::Key_Home);
    QCOMPARE(rows(), QList<int>({0}));
}

void tst_ShapesList::changesOfOneTurnAreAnnouncedOnce()
{
    QSignalSpy changes(view->model(), &QAbstractItemModel::dataChanged);
    document->shapes()[3]->setName("three");
    document->shapes()[7]->setName("seven");
    QCOMPARE(changes.count(), 0);
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toModelIndex().row(), 4);
    QCOMPARE(changes[0][1].toModelIndex().row(), 8);
    // The rows that were noted may be gone when the turn ends.
    document->shapes()[0]->setName("zero");
    for (const Document::Placement &taken : document->take(document->shapes().mid(0, 11)))
        delete taken.shape;
    QTest::qWait(0);
    QCOMPARE(changes.count(), 1);
}

void tst_ShapesList::everySecondOfManyShapesIsSelectedQuickly()
{
    SampleDocument::fillWithRows(*document, 100000);
    QList<Shape *> shapes;
    for (int row = 0; row < document->shapeCount(); row += 2)
        shapes.append(document->shapes()[row]);
    QElapsedTimer timer;
    timer.start();
    selection->set(shapes);
    click(3, Qt::ControlModifier);
    view->repaint();
    QVERIFY2(timer.elapsed() < 2000, "the time grows with the square of the ranges");
    QVERIFY(qAbs(selection->count() - shapes.size()) == 1);
}

void tst_ShapesList::theTopmostShapeIsTheFirst()
{
    QCOMPARE(view->model()->index(0, 0).data().toString(), document->shapes().last()->name());
    document->shapes().last()->setLocked(true);
    QVERIFY(view->model()->index(0, 0).data(Qt::ForegroundRole).isValid());
}

QTEST_MAIN(tst_ShapesList)
#include "tst_ShapesList.moc"
