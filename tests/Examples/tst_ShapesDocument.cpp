// SPDX-License-Identifier: MIT
#include "commands/Operations.h"
#include "model/Document.h"
#include "model/Selection.h"
#include "model/ShapeGeometry.h"

#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>
#include <limits>

class tst_ShapesDocument : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void deletedShapesComeBackToTheirRows();
    void orderOperations_data();
    void orderOperations();
    void nudgesBecomeOneCommandAndDragsDoNot();
    void lockedShapesStay();
    void undoneAdditionsAreDeletedWithTheirCommand();
    void manyShapesAreSelectedWithOneSignal();
    void selectionFollowsTheDocument();
    void valuesOutOfRangeAreBroughtIntoIt();
    void areaIsThatOfTheOutline();
    void clonesHaveTheSameProperties();
    void paintedBoundsHoldEverythingPainted();

private:
    QString names() const
    {
        QString text;
        for (const Shape *shape : document->shapes())
            text += shape->name();
        return text;
    }
    void select(const QString &letters)
    {
        QList<Shape *> shapes;
        for (Shape *shape : document->shapes()) {
            if (letters.contains(shape->name()))
                shapes.append(shape);
        }
        selection->set(shapes);
    }

    std::unique_ptr<Document> document;
    std::unique_ptr<Selection> selection;
    std::unique_ptr<QUndoStack> undoStack;
    std::unique_ptr<Operations> operations;
};

void tst_ShapesDocument::init()
{
    operations.reset();
    selection.reset();
    document = std::make_unique<Document>();
    undoStack = std::make_unique<QUndoStack>();
    selection = std::make_unique<Selection>(document.get());
    operations = std::make_unique<Operations>(document.get(), selection.get(), undoStack.get());
    QList<Shape *> shapes;
    for (QChar letter : QStringLiteral("ABCDEF")) {
        shapes.append(new Shape(Shape::Rectangle, QRectF(10 * shapes.size(), 0, 8, 8)));
        shapes.last()->setName(letter);
    }
    document->append(shapes);
}

void tst_ShapesDocument::deletedShapesComeBackToTheirRows()
{
    select("ACDF");
    operations->remove();
    QCOMPARE(names(), "BE");
    QVERIFY(selection->isEmpty());
    undoStack->undo();
    QCOMPARE(names(), "ABCDEF");
    undoStack->redo();
    QCOMPARE(names(), "BE");
    undoStack->undo();
    for (int row = 0; row < 6; ++row)
        QCOMPARE(Document::row(document->shapes()[row]), row);
}

void tst_ShapesDocument::orderOperations_data()
{
    using Operation = void (Operations::*)();
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("result");
    QTest::newRow("neighbours are raised together") << &Operations::raise << "BC"
                                                    << "ADBCEF";
    QTest::newRow("the top stays on top") << &Operations::raise << "BEF"
                                          << "ACBDEF";
    QTest::newRow("lower") << &Operations::lower << "AD"
                           << "ABDCEF";
    QTest::newRow("to the top, in their order") << &Operations::raiseToTop << "BD"
                                                << "ACEFBD";
    QTest::newRow("to the bottom") << &Operations::lowerToBottom << "BD"
                                   << "BDACEF";
}

void tst_ShapesDocument::orderOperations()
{
    using Operation = void (Operations::*)();
    QFETCH(Operation, operation);
    QFETCH(QString, selected);
    select(selected);
    (operations.get()->*operation)();
    QTEST(names(), "result");
    undoStack->undo();
    QCOMPARE(names(), "ABCDEF");
}

void tst_ShapesDocument::nudgesBecomeOneCommandAndDragsDoNot()
{
    select("BC");
    const QPointF start = document->shapes()[1]->position();
    for (int i = 0; i < 3; ++i)
        operations->moveBy({1, 2});
    QCOMPARE(undoStack->count(), 1);
    document->shapes()[1]->setPosition(start + QPointF(13, 6));
    document->shapes()[2]->setPosition(document->shapes()[2]->position() + QPointF(10, 0));
    operations->recordMove(selection->shapes(), {10, 0});
    QCOMPARE(undoStack->count(), 2);
    QCOMPARE(document->shapes()[1]->position(), start + QPointF(13, 6));
    undoStack->undo();
    QCOMPARE(document->shapes()[1]->position(), start + QPointF(3, 6));
    undoStack->undo();
    QCOMPARE(document->shapes()[1]->position(), start);
}

void tst_ShapesDocument::lockedShapesStay()
{
    select("AB");
    document->shapes()[0]->setLocked(true);
    operations->moveBy({5, 0});
    QCOMPARE(document->shapes()[0]->x(), 0.0);
    QCOMPARE(document->shapes()[1]->x(), 15.0);
}

void tst_ShapesDocument::undoneAdditionsAreDeletedWithTheirCommand()
{
    operations->addShape(Shape::Star, QRectF(0, 0, 100, 100));
    QPointer<Shape> added = document->shapes().last();
    undoStack->undo();
    QVERIFY(added);
    undoStack->clear();
    QVERIFY(!added);
}

void tst_ShapesDocument::manyShapesAreSelectedWithOneSignal()
{
    QSignalSpy changes(selection.get(), &Selection::changed);
    selection->selectAll();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(selection->shapes(), document->shapes());
    selection->selectAll();
    QCOMPARE(changes.count(), 1);
    select("CA");
    selection->toggle({document->shapes()[0], document->shapes()[5]});
    QCOMPARE(selection->shapes(), QList<Shape *>({document->shapes()[2], document->shapes()[5]}));
}

void tst_ShapesDocument::selectionFollowsTheDocument()
{
    select("AC");
    Shape *const a = document->shapes()[0];
    Shape *const c = document->shapes()[2];
    const auto taken = document->take({a});
    QCOMPARE(selection->shapes(), QList<Shape *>({c}));
    selection->add({a});
    QCOMPARE(selection->shapes(), QList<Shape *>({c})); // no longer in the document
    document->insert(taken);
    selection->add({a});
    QCOMPARE(selection->shapes(), QList<Shape *>({a, c}));
}

void tst_ShapesDocument::valuesOutOfRangeAreBroughtIntoIt()
{
    Shape shape;
    shape.setWidth(-5);
    QCOMPARE(shape.width(), 1.0);
    shape.setX(std::numeric_limits<double>::quiet_NaN());
    QVERIFY(!qIsNaN(shape.x()));
    QVERIFY(shape.setProperty("kind", 2));
    QCOMPARE(shape.kind(), Shape::Star);
    QVERIFY(shape.setProperty("kind", 99));
    QCOMPARE(shape.kind(), Shape::Text);
    shape.setCornerRadius(-3);
    QCOMPARE(shape.cornerRadius(), QVariant(0.0));
    shape.setCornerRadius(QVariant::fromValue(nullptr));
    QVERIFY(!shape.cornerRadius().isValid());
}

void tst_ShapesDocument::areaIsThatOfTheOutline()
{
    for (int kind = Shape::Rectangle; kind <= Shape::Text; ++kind) {
        Shape shape(Shape::Kind(kind), QRectF(0, 0, 200, 80));
        shape.setCornerRadius(10);
        const QPainterPath outline = ShapeGeometry::outline(shape);
        int inside = 0;
        for (int x = 0; x < 400; ++x) {
            for (int y = 0; y < 160; ++y)
                inside += outline.contains(QPointF(x / 2.0 + 0.25, y / 2.0 + 0.25));
        }
        QVERIFY2(qAbs(shape.area() - inside / 4.0) < 60, qPrintable(QString::number(kind)));
    }
}

void tst_ShapesDocument::clonesHaveTheSameProperties()
{
    Shape shape(Shape::Text, QRectF(1, 2, 30, 40));
    shape.setText("text");
    shape.setTextStyle(Shape::Bold | Shape::StrikeOut);
    shape.setShadowOffset(3);
    shape.setLocked(true);
    const std::unique_ptr<Shape> copy(shape.clone());
    for (int i = QObject::staticMetaObject.propertyCount(); i < Shape::staticMetaObject.propertyCount(); ++i) {
        const QMetaProperty property = Shape::staticMetaObject.property(i);
        if (property.isWritable())
            QCOMPARE(property.read(copy.get()), property.read(&shape));
    }
    QVERIFY(copy->id() != shape.id());
}

void tst_ShapesDocument::paintedBoundsHoldEverythingPainted()
{
    Shape star(Shape::Star, QRectF(0, 0, 100, 20));
    star.setRotation(90);
    star.setShadowOffset(7);
    const QRectF bounds = ShapeGeometry::paintedBounds(star);
    QVERIFY(bounds.contains(QRectF(40, -40, 20, 100)));
    QVERIFY(bounds.contains(QPointF(60 + 7, 60 + 7)));
}

QTEST_MAIN(tst_ShapesDocument)
#include "tst_ShapesDocument.moc"
