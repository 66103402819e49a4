// SPDX-License-Identifier: MIT
#include "EndToEnd/FigureSheet.h"
#include "Resources/ZelNamedImages.h"

namespace {
/// Boxes that store their frames each in a way of its own.
class Box : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QRectF frame MEMBER stored WRITE setFrame NOTIFY changed)
public:
    QRectF stored;
    std::function<void()> react;

    void setFrame(const QRectF &frame)
    {
        if (frame.x() > 100)
            throw std::runtime_error("too far");
        stored = frame;
        Q_EMIT changed();
        if (react)
            react();
    }
Q_SIGNALS:
    void changed();
};

class IntegerBox : public QObject
{
    Q_OBJECT
public:
    MODEL_VALUE(QRect, frame, 5, 2, 30, 40)
    Q_SIGNAL void changed();
};

class SilentBox : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QRectF frame MEMBER stored)
    QRectF stored;
};

bool isSeveral(const QVariant &value)
{
    return ZelIsMarker(value, ZelMultipleValuesMarker);
}

void type(const ZelInspectorNumberProperty *editor, const QString &text)
{
    Sheet::enter(editor->textField(), text);
}
} // namespace

class tst_GeometryProperties : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theCheckboxWritesAValueOrNone()
    {
        Sheet window(
            Sheet::row("note", "size", "nonNilValueKeyPath='extra' widthTitleKeyPath='people.selection.name'"));
        auto *editor = window.editor<ZelInspectorSizeProperty>("note");
        window.select({0});
        QCOMPARE(editor->widthProperty()->label()->text(), "P0");
        QCOMPARE(editor->heightProperty()->label()->text(), "Height");
        ZelCheckBox *box = editor->nonNilProperty()->checkbox();
        QCOMPARE(editor->viewForBaselineAlignment(), box);
        const auto click = [box] {
            Sheet::click(box, {8, box->height() / 2});
            return box->checkState();
        };
        QCOMPARE(click(), Qt::Unchecked); // its value is none
        window.owner->extra = QSizeF(20, 30);
        QCOMPARE(click(), Qt::Checked);
        QCOMPARE(window.figures[0]->note(), QVariant(QSizeF(20, 30)));
        QCOMPARE(editor->height(), 30.0);
        QCOMPARE(editor->nonNil(), 1);
        QCOMPARE(window.stack.undoText(), "Change note");
        QCOMPARE(click(), Qt::Unchecked);
        QVERIFY(!window.figures[0]->note().isValid() && !editor->width().isValid());
        QCOMPARE(editor->nonNil(), 0);
        window.undo();
        QCOMPARE(window.figures[0]->note(), QVariant(QSizeF(20, 30)));
        QCOMPARE(box->checkState(), Qt::Checked);
    }

    void boundsAreMeasuredAtTheAnchor()
    {
        struct Row
        {
            int anchor;
            QVariant flipped;
            QPointF origin;
            QRectF moved, wider, lower; // x to 100, width to 40, height to 10
        };
        const Row rows[] = {
            {0, true, {10, 20}, {100, 20, 30, 40}, {10, 20, 40, 40}, {10, 20, 30, 10}},
            {4, true, {25, 40}, {85, 20, 30, 40}, {5, 20, 40, 40}, {10, 35, 30, 10}},
            {0, false, {10, 60}, {100, 20, 30, 40}, {10, 20, 40, 40}, {10, 50, 30, 10}},
            {8, {}, {40, 20}, {70, 20, 30, 40}, {0, 20, 40, 40}, {10, 20, 30, 10}},
        };
        for (const Row &row : rows) {
            const TableRow inRow(QString::number(row.anchor));
            Sheet window(Sheet::row("frame", "frame"));
            window.set(0, "frame", QRectF(10, 20, 30, 40));
            auto *editor = window.editor<ZelInspectorBoundsProperty>("frame");
            editor->setFlipped(row.flipped);
            editor->setAnchor(ZelRectAnchor(row.anchor));
            window.select({0});
            QCOMPARE(QPointF(editor->originX().toDouble(), editor->originY().toDouble()), row.origin);
            const std::tuple<const ZelInspectorNumberProperty *, QString, QRectF, QString> edits[] = {
                {editor->originXProperty(), "100", row.moved, "Change Origin X"},
                {editor->sizeWidthProperty(), "40", row.wider, "Change Width"},
                {editor->sizeHeightProperty(), "10", row.lower, "Change Height"}};
            for (const auto &[field, text, frame, name] : edits) {
                type(field, text);
                QCOMPARE(window.figures[0]->frame(), frame);
                QCOMPARE(window.stack.undoText(), name);
                window.undo();
            }
            QCOMPARE(window.owner->actions, 3);
        }
    }

    void framesOfEveryKindAreWrittenTogether()
    {
        Sheet window(Sheet::row("frame", "frame"));
        Box box, there;
        IntegerBox integers;
        SilentBox silent;
        QObject dynamic;
        there.stored = {7.5, 2, 30, 40};
        const QList<QObject *> others{&box, &silent, &dynamic};
        const auto frames = [&] {
            return QList<QRectF>{box.stored, silent.property("frame").toRectF(), dynamic.property("frame").toRectF(),
                                 integers.frame};
        };
        const QList<QRectF> old = QList<QRectF>(3, {1, 2, 30, 40}) << QRectF(5, 2, 30, 40);
        const QList<QRectF> moved = QList<QRectF>(3, {7.5, 2, 30, 40}) << QRectF(8, 2, 30, 40);
        for (QObject *other : others)
            other->setProperty("frame", old[0]);
        auto *editor = window.editor<ZelInspectorBoundsProperty>("frame");
        window.selectObjects({&box, &silent, &there, &dynamic});
        QVERIFY(isSeveral(editor->originX()) && !isSeveral(editor->originY()));
        type(editor->originXProperty(), "7.5");
        QCOMPARE(editor->originX(), 7.5);
        window.undo();
        window.selectObjects(others + QList<QObject *>{&there, &integers});
        type(editor->originXProperty(), "7.5");
        QCOMPARE(frames(), moved);
        QVERIFY(isSeveral(editor->originX())); // rounded there
        QCOMPARE(window.stack.count(), 1);
        there.stored = {60, 2, 30, 40}; // it was there already: the edit did not touch it
        window.undo();
        QCOMPARE(frames(), old);
        QCOMPARE(there.stored.x(), 60.0);
        window.stack.redo();
        QCOMPARE(frames(), moved);
    }

    void settersMayThrowSelectAndDelete()
    {
        Sheet window(Sheet::row("frame", "frame"));
        std::vector<std::unique_ptr<Box>> boxes;
        QList<QObject *> all;
        for (int i = 0; i < 4; ++i) {
            boxes.push_back(std::make_unique<Box>());
            boxes.back()->stored = QRectF(i, i, 10, 10);
            all.append(boxes.back().get());
        }
        auto *editor = window.editor<ZelInspectorBoundsProperty>("frame");
        window.selectObjects(all);
        QVERIFY_EXCEPTION_THROWN(editor->setOriginX(101.0), std::runtime_error);
        QCOMPARE(window.stack.count(), 0);
        Sheet::settle();
        QVERIFY(isSeveral(editor->originX()));
        boxes[0]->react = [&] {
            boxes[1].reset();
            window.owner->controller.setSelectedObjects({boxes[2].get()});
        };
        type(editor->originXProperty(), "50");
        for (size_t i : {0U, 2U, 3U})
            QCOMPARE(boxes[i]->stored.x(), 50.0);
        QCOMPARE(window.stack.count(), 1);
        boxes[0]->react = {};
        boxes[3].reset();
        window.undo();
        QVERIFY(boxes[0]->stored.x() == 0 && boxes[2]->stored.x() == 2);
    }

    /// What is known of all boxes after an edit is forgotten when one is changed by another one's setter.
    void settersMayChangeOtherBoxes()
    {
        Sheet window(Sheet::row("frame", "frame"));
        Box boxes[3];
        for (int i = 0; i < 3; ++i)
            boxes[i].stored = QRectF(i, 0, 10, 10);
        const auto places = [&] {
            return QList<double>{boxes[0].stored.x(), boxes[1].stored.x(), boxes[2].stored.x()};
        };
        window.selectObjects({&boxes[0], &boxes[1], &boxes[2]});
        auto *editor = window.editor<ZelInspectorBoundsProperty>("frame");
        type(editor->originXProperty(), "x+10");
        QCOMPARE(places(), (QList<double>{10, 11, 12}));
        boxes[0].react = [&] { boxes[1].setFrame({50, 0, 10, 10}); };
        type(editor->originXProperty(), "x+1");
        QCOMPARE(places(), (QList<double>{11, 51, 13}));
        boxes[0].react = {};
        boxes[2].react = [&] { boxes[0].setFrame({70, 0, 10, 10}); };
        type(editor->originXProperty(), "5");
        QCOMPARE(places(), (QList<double>{70, 5, 5}));
        QVERIFY(isSeveral(editor->originX()));
        boxes[2].react = {};
        type(editor->originXProperty(), "x+1");
        QCOMPARE(places(), (QList<double>{71, 6, 6}));
        type(editor->sizeWidthProperty(), "20");
        type(editor->sizeWidthProperty(), "x*2");
        QCOMPARE(editor->sizeWidth(), 40.0);
        QVERIFY(isSeveral(editor->originX()));
        while (window.stack.canUndo())
            window.undo();
        QCOMPARE(places(), (QList<double>{0, 1, 2}));
    }

    /// Many boxes are changed, all but those whose number cannot be.
    void manyBoxesChangeButForThoseThatCannot()
    {
        Sheet window(Sheet::row("frame", "frame"));
        std::vector<std::unique_ptr<Box>> boxes;
        QList<QObject *> all;
        for (int i = 0; i < 150; ++i) {
            boxes.push_back(std::make_unique<Box>());
            boxes.back()->stored = QRectF(i % 70 == 60 ? qQNaN() : i / 2, i, 10, 10);
            all.append(boxes.back().get());
        }
        window.selectObjects(all);
        auto *editor = window.editor<ZelInspectorBoundsProperty>("frame");
        const auto stored = [&](int add, int width) {
            for (int i = 0; i < 150; ++i) {
                const QRectF frame = boxes[size_t(i)]->stored;
                const double x = i / 2 + add * (i + 1); // NOLINT(bugprone-integer-division)
                if (!(i % 70 == 60 ? std::isnan(frame.x()) : frame.x() == x) || frame.y() != i ||
                    frame.width() != width)
                    return i;
            }
            return -1;
        };
        editor->changeNumbersForKey(
            "originX", ZelNumberChange([](double own, qsizetype i, qsizetype) { return own - double(i + 1); }, true));
        QCOMPARE(stored(-1, 10), -1);
        type(editor->sizeWidthProperty(), "20");
        QCOMPARE(stored(-1, 20), -1);
        while (window.stack.canUndo())
            window.undo();
        QCOMPARE(stored(0, 10), -1);
    }

    void theAnchorsAreBesideWholeTitlesAndPicked()
    {
        Sheet window(Sheet::row("frame", "frame", "showOriginSelector='yes' flippedKeyPath='extra'"));
        window.set(0, "frame", QRectF(0, 0, 10, 20));
        auto *editor = window.editor<ZelInspectorBoundsProperty>("frame");
        for (int width : {260, 480}) {
            window.resize(width, 200);
            QCoreApplication::processEvents();
            for (const auto *number : {editor->sizeWidthProperty(), editor->sizeHeightProperty()}) {
                const QWidget *label = number->label();
                QVERIFY(label->width() >= label->sizeHint().width());
                QVERIFY(label->parentWidget()->rect().contains(label->geometry()));
                QCOMPARE(label->width() == number->textField()->width(), width == 480);
                QCOMPARE(label->x() == number->textField()->x(), width == 480);
            }
        }
        const auto setFlipped = [&](const QVariant &flipped) {
            window.owner->extra = flipped;
            Q_EMIT window.owner->extraChanged();
        };
        setFlipped(true);
        window.select({0});
        ZelOriginSelectionView *view = editor->originSelectionView();
        Sheet::click(view, {60, 40});
        QCOMPARE(editor->anchor(), ZelOriginMiddleRight);
        QCOMPARE(editor->originY(), 10.0);
        QTest::keyClick(view, Qt::Key_Down);
        QCOMPARE(editor->originY(), 20.0);
        editor->setAnchor(ZelOriginTopCenter);
        QCOMPARE(view->anchor(), ZelOriginTopCenter);
        QCOMPARE(view->anchorAtPosition({80, 5}), ZelOriginTopLeft); // beside it
        setFlipped(QVariant::fromValue(ZelMultipleValuesMarker));
        QVERIFY(!editor->internalEnabled() && !view->isEnabled());
        QVERIFY(!editor->originXProperty()->textField()->isEnabled());
        QVERIFY_EXCEPTION_THROWN(editor->flippedAnchor(ZelRectAnchor(9)), ZelInternalInconsistencyException);
    }

    void eachAnchorHasItsPicture()
    {
        QSet<QByteArray> pictures;
        ZelOriginSelectionView view;
        const auto image = [&view] { return view.image().pixmap(QSize(71, 71)).toImage(); };
        for (quint64 i = 0; i <= ZelOriginBottomRight; ++i) {
            view.setAnchor(ZelRectAnchor(i));
            const QImage picture = image();
            pictures.insert({reinterpret_cast<const char *>(picture.constBits()), picture.sizeInBytes()});
        }
        QCOMPARE(pictures.size(), 9);
        QPixmap own(71, 71);
        own.fill(Qt::red);
        ZelNamedImages::setImageForName(own, "ZelOriginBottomLeft");
        view.setAnchor(ZelOriginBottomLeft);
        QCOMPARE(image().pixelColor(3, 3), QColor(Qt::red));
    }
};
QTEST_MAIN(tst_GeometryProperties)
#include "tst_GeometryProperties.moc"
