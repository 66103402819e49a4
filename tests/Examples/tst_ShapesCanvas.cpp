// SPDX-License-Identifier: MIT
#include "canvas/Canvas.h"
#include "canvas/ShapePainter.h"
#include "commands/Operations.h"
#include "model/Document.h"
#include "model/SampleDocument.h"
#include "model/Selection.h"
#include "model/ShapeGeometry.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

namespace {
/// A canvas over three squares in a row; remembers what was painted last.
class PaintedCanvas : public Canvas
{
public:
    using Canvas::Canvas;
    QRegion painted;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        painted += event->region();
        Canvas::paintEvent(event);
    }
};
} // namespace

class tst_ShapesCanvas : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { canvas.reset(); }
    void pressesSelect();
    void rubberBandAddsToTheSelection();
    void dragMovesTheSelectionAsOneCommand();
    void escapeTakesADragBack();
    void mousePassesThroughLockedAndHiddenShapes();
    void unfilledShapesAreHitAtTheirOutline();
    void aDeletedShapeEndsItsDrag();
    void fewChangesRepaintLittle();
    void textKeepsItsSideInAnyLanguage();
    void indexFindsWhatIsThere();

private:
    QPoint at(const QPointF &point) const { return canvas->boundsTransform().map(point).toPoint(); }
    void pull(const QPointF &from, const QPointF &to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(canvas.get(), Qt::LeftButton, modifiers, at(from));
        QTest::mouseMove(canvas.get(), at((from + to) / 2));
        QTest::mouseMove(canvas.get(), at(to));
        QTest::mouseRelease(canvas.get(), Qt::LeftButton, modifiers, at(to));
    }
    void remove(const QList<Shape *> &shapes)
    {
        for (const Document::Placement &taken : document->take(shapes))
            delete taken.shape;
    }
    Shape *shape(int row) const { return document->shapes()[row]; }

    std::unique_ptr<Document> document;
    std::unique_ptr<Selection> selection;
    std::unique_ptr<QUndoStack> undoStack;
    std::unique_ptr<Operations> operations;
    std::unique_ptr<PaintedCanvas> canvas;
};

void tst_ShapesCanvas::init()
{
    selection.reset();
    document = std::make_unique<Document>();
    undoStack = std::make_unique<QUndoStack>();
    selection = std::make_unique<Selection>(document.get());
    operations = std::make_unique<Operations>(document.get(), selection.get(), undoStack.get());
    document->append({new Shape(Shape::Rectangle, QRectF(100, 100, 40, 40)),
                      new Shape(Shape::Ellipse, QRectF(200, 100, 40, 40)),
                      new Shape(Shape::Star, QRectF(300, 100, 40, 40))});
    canvas = std::make_unique<PaintedCanvas>(document.get(), selection.get(), operations.get());
    canvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(canvas.get()));
}

void tst_ShapesCanvas::pressesSelect()
{
    QTest::mouseClick(canvas.get(), Qt::LeftButton, {}, at({120, 120}));
    QCOMPARE(selection->shapes(), QList<Shape *>({shape(0)}));
    QTest::mouseClick(canvas.get(), Qt::LeftButton, Qt::ShiftModifier, at({220, 120}));
    QCOMPARE(selection->count(), 2);
    QTest::mouseClick(canvas.get(), Qt::LeftButton, Qt::ShiftModifier, at({120, 120}));
    QCOMPARE(selection->shapes(), QList<Shape *>({shape(1)}));
    QTest::mouseClick(canvas.get(), Qt::LeftButton, {}, at({202, 102})); // the corner beside the ellipse
    QVERIFY(selection->isEmpty());
}

void tst_ShapesCanvas::rubberBandAddsToTheSelection()
{
    selection->set({shape(2)});
    pull({90, 90}, {260, 160}, Qt::ShiftModifier);
    QCOMPARE(selection->count(), 3);
    pull({90, 90}, {150, 160});
    QCOMPARE(selection->shapes(), QList<Shape *>({shape(0)}));
    QVERIFY(!undoStack->canUndo());
}

void tst_ShapesCanvas::dragMovesTheSelectionAsOneCommand()
{
    selection->set({shape(0), shape(1)});
    pull({220, 120}, {240, 160});
    QCOMPARE(shape(0)->position(), QPointF(120, 140));
    QCOMPARE(shape(2)->position(), QPointF(300, 100));
    QCOMPARE(undoStack->count(), 1);
    undoStack->undo();
    QCOMPARE(shape(1)->position(), QPointF(200, 100));
    QCOMPARE(canvas->shapeAt({220, 120}), shape(1));
}

void tst_ShapesCanvas::escapeTakesADragBack()
{
    QTest::mousePress(canvas.get(), Qt::LeftButton, {}, at({120, 120}));
    QTest::mouseMove(canvas.get(), at({180, 150}));
    QVERIFY(shape(0)->x() > 100);
    QTest::keyClick(canvas.get(), Qt::Key_Escape);
    QCOMPARE(shape(0)->position(), QPointF(100, 100));
    QTest::mouseRelease(canvas.get(), Qt::LeftButton, {}, at({180, 150}));
    QCOMPARE(undoStack->count(), 0);
}

void tst_ShapesCanvas::mousePassesThroughLockedAndHiddenShapes()
{
    document->append({new Shape(Shape::Rectangle, QRectF(90, 90, 300, 80))});
    QCOMPARE(canvas->shapeAt({120, 120}), shape(3));
    shape(3)->setLocked(true);
    QCOMPARE(canvas->shapeAt({120, 120}), shape(0));
    shape(3)->setLocked(false);
    shape(3)->setLayer(2);
    document->setVisibleLayers(0x3);
    QCOMPARE(canvas->shapeAt({120, 120}), shape(0));
}

void tst_ShapesCanvas::unfilledShapesAreHitAtTheirOutline()
{
    document->append({new Shape(Shape::Rectangle, QRectF(90, 90, 300, 80))});
    shape(3)->setFillEnabled(false);
    QCOMPARE(canvas->shapeAt({120, 120}), shape(0));
    QCOMPARE(canvas->shapeAt({150, 91}), shape(3));
}

void tst_ShapesCanvas::aDeletedShapeEndsItsDrag()
{
    QTest::mousePress(canvas.get(), Qt::LeftButton, {}, at({120, 120}));
    QTest::mouseMove(canvas.get(), at({180, 150}));
    operations->remove();
    undoStack->clear();
    QTest::mouseMove(canvas.get(), at({190, 150}));
    QTest::mouseRelease(canvas.get(), Qt::LeftButton, {}, at({190, 150}));
    QCOMPARE(document->shapeCount(), 2);
}

void tst_ShapesCanvas::fewChangesRepaintLittle()
{
    QTRY_VERIFY(!canvas->painted.isEmpty());
    canvas->painted = {};
    shape(0)->setX(110);
    selection->set({shape(1)});
    QTRY_VERIFY(!canvas->painted.isEmpty());
    const QRect changed(at({85, 85}), at({255, 155}));
    QVERIFY2(changed.contains(canvas->painted.boundingRect()), "more than the two shapes was painted");
    QVERIFY(canvas->painted.contains(at({101, 120})));
    QVERIFY(canvas->painted.contains(at({149, 120})));
}

void tst_ShapesCanvas::textKeepsItsSideInAnyLanguage()
{
    Shape shape(Shape::Text, QRectF(0, 0, 200, 40));
    shape.setText("left");
    shape.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QImage pictures[2];
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QImage &picture = pictures[direction] = QImage(200, 40, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setLayoutDirection(direction);
        ShapePainter(&painter).paint(shape);
    }
    QCOMPARE(pictures[1], pictures[0]);
}

void tst_ShapesCanvas::indexFindsWhatIsThere()
{
    remove(document->shapes());
    SampleDocument::fillWithRows(*document, 3000);
    QRandomGenerator random(1);
    const auto number = [&](int limit) { return double(random.bounded(limit)); };
    for (int round = 0; round < 60; ++round) {
        const int changes = round % 10 == 9 ? 2500 : 20; // now and then most of them
        for (int i = 0; i < changes; ++i) {
            Shape *changed = shape(random.bounded(document->shapeCount()));
            changed->setPosition({number(2000) - 300, number(2000) - 300});
            changed->setWidth(i % 10 ? 20 : number(20000));
            changed->setRotation(number(360));
        }
        remove({shape(random.bounded(document->shapeCount()))});
        const QPointF point(number(1500), number(1500));
        Shape *expected = nullptr;
        for (Shape *candidate : document->shapes()) {
            if (ShapeGeometry::contains(*candidate, point, 3))
                expected = candidate;
        }
        QCOMPARE(canvas->shapeAt(point), expected);
    }
}

QTEST_MAIN(tst_ShapesCanvas)
#include "tst_ShapesCanvas.moc"
