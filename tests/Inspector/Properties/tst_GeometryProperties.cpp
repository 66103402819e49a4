// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorPointProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Resources/ZelNamedImages.h"

#include <QPainter>

#include <functional>
#include <stdexcept>

namespace {

class Shape : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QPointF place MEMBER place NOTIFY changed)
    Q_PROPERTY(QSizeF extent MEMBER extent NOTIFY changed)
    Q_PROPERTY(QRectF frame MEMBER frame NOTIFY changed)
    Q_PROPERTY(QVariant any MEMBER any NOTIFY changed)
    Q_PROPERTY(QPointF clamped READ clamped WRITE setClamped NOTIFY changed)
public:
    QPointF place;
    QSizeF extent;
    QRectF frame;
    QVariant any;
    bool isMute = false;
    QPointF clamped() const { return place; }
    void setClamped(const QPointF &point)
    {
        place = QPointF(std::min(point.x(), 10.0), std::min(point.y(), 10.0));
        if (!isMute)
            Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();
};

/// Boxes that store their frames each in a way of its own.
class Box : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY changed)
public:
    QRectF stored;
    std::function<void()> react;
    QRectF frame() const { return stored; }
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
    Q_PROPERTY(QRect frame MEMBER stored NOTIFY changed)
public:
    QRect stored;

Q_SIGNALS:
    void changed();
};

class SilentBox : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QRectF frame MEMBER stored)
    QRectF stored;
};

class AnyBox : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant frame MEMBER stored NOTIFY changed)
public:
    QVariant stored;

Q_SIGNALS:
    void changed();
};

std::unique_ptr<QObject> makeBox(const QString &kind)
{
    static const QHash<QString, std::unique_ptr<QObject> (*)()> makers{
        {"doubles", [] { return std::unique_ptr<QObject>(new Box); }},
        {"integers", [] { return std::unique_ptr<QObject>(new IntegerBox); }},
        {"silent", [] { return std::unique_ptr<QObject>(new SilentBox); }},
        {"any", [] { return std::unique_ptr<QObject>(new AnyBox); }},
        {"dynamic", &std::make_unique<QObject>}};
    return makers.value(kind)();
}

class Window : public EditorWindow
{
public:
    Window()
        : EditorWindow(0)
    {
    }
    ~Window() override { editor.reset(); }
    void select(const QList<QObject *> &objects)
    {
        owner->controller.setSelectedObjects(objects);
        QCoreApplication::processEvents();
    }
    template<typename Editor> Editor *edit(const char *key, const std::function<void(Editor *)> &prepare = {})
    {
        auto made = std::make_unique<Editor>(owner.get());
        made->setKeyPath(QStringLiteral("people.selection.") + QString::fromLatin1(key));
        made->setActionName(QStringLiteral("Move"));
        made->setActionSelector("noteAction");
        if (prepare)
            prepare(made.get());
        return install(std::move(made));
    }

    Shape first;
    Shape second;
};

const auto isSeveral = [](const QVariant &value) { return ZelIsMarker(value, ZelMultipleValuesMarker); };

void type(const ZelInspectorNumberProperty *editor, const QString &text)
{
    editor->textField()->setFocus();
    editor->textField()->selectAll();
    QTest::keyClick(editor->textField(), Qt::Key_Delete);
    QTest::keyClicks(editor->textField(), text);
    QTest::keyClick(editor->textField(), Qt::Key_Return);
    QCoreApplication::processEvents();
}

} // namespace

class tst_GeometryProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aComponentIsWrittenIntoEveryPoint()
    {
        Window window;
        window.first.place = {1, 2};
        window.second.place = {1, 5};
        auto *editor = window.edit<ZelInspectorPointProperty>("place");
        QVERIFY(ZelIsMarker(editor->x(), ZelNoSelectionMarker));
        QVERIFY(ZelIsMarker(editor->nonNil(), ZelNoSelectionMarker));
        QVERIFY(!editor->xProperty()->textField()->isEditable());
        window.select({&window.first, &window.second});
        QCOMPARE(editor->x(), QVariant(1.0));
        QVERIFY(isSeveral(editor->y()));
        QCOMPARE(editor->yProperty()->textField()->placeholderText(), QStringLiteral("Multiple Values"));
        type(editor->xProperty(), QStringLiteral("3"));
        QCOMPARE(window.first.place, QPointF(3, 2));
        QCOMPARE(window.second.place, QPointF(3, 5));
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Move"));
        QCOMPARE(window.owner->actions, 1);
        type(editor->yProperty(), QStringLiteral("0.1"));
        QVERIFY(window.first.place.y() == double(0.1F));
    }

    void undoTouchesOnlyTheObjectsOfThen()
    {
        Window window;
        window.first.place = {1, 2};
        window.second.place = {7, 8};
        auto *editor = window.edit<ZelInspectorPointProperty>("place");
        window.select({&window.first});
        type(editor->xProperty(), QStringLiteral("3"));
        QCOMPARE(window.undo.stack()->count(), 1);
        window.select({&window.second});
        window.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(window.first.place, QPointF(1, 2));
        QCOMPARE(window.second.place, QPointF(7, 8));
        QCOMPARE(editor->x(), QVariant(7.0));
        window.undo.redo();
        QCoreApplication::processEvents();
        QCOMPARE(window.first.place, QPointF(3, 2));
        QCOMPARE(window.second.place, QPointF(7, 8));
        QCOMPARE(editor->xProperty()->textField()->text(), QStringLiteral("7"));
    }

    void whatTheModelMakesOfItIsShown()
    {
        Window window;
        auto *editor = window.edit<ZelInspectorPointProperty>("clamped");
        window.select({&window.first});
        type(editor->xProperty(), QStringLiteral("50"));
        QCOMPARE(editor->x(), QVariant(10.0));
        QCOMPARE(editor->xProperty()->textField()->text(), QStringLiteral("10"));
        type(editor->xProperty(), QString());
        QCOMPARE(editor->x(), QVariant(0.0));
        window.first.setClamped({4, 4});
        QTRY_COMPARE(editor->x(), QVariant(4.0));
        window.first.isMute = true; // although it declares a signal
        type(editor->xProperty(), QStringLiteral("50"));
        QCOMPARE(editor->x(), QVariant(10.0));
    }

    void otherValuesInAVariant_data()
    {
        QTest::addColumn<QVariant>("old");
        QTest::addColumn<QVariant>("x");
        QTest::addColumn<QVariant>("edited");
        QTest::newRow("integers") << QVariant(QPoint(1, 2)) << QVariant(1.0) << QVariant(QPoint(3, 2));
        QTest::newRow("a size") << QVariant(QSizeF(1, 2)) << QVariant(1.0) << QVariant(QSizeF(3, 2));
        QTest::newRow("a size of integers") << QVariant(QSize(1, 2)) << QVariant(1.0) << QVariant(QSize(3, 2));
        QTest::newRow("none") << QVariant() << QVariant() << QVariant(QPointF(3, 0));
        QTest::newRow("text") << QVariant(QStringLiteral("1,2")) << QVariant() << QVariant(QPointF(3, 0));
    }
    void otherValuesInAVariant()
    {
        QFETCH(QVariant, old);
        Window window;
        window.first.any = old;
        auto *editor = window.edit<ZelInspectorPointProperty>("any");
        window.select({&window.first});
        QTEST(editor->x(), "x");
        QCOMPARE(editor->nonNil(), QVariant(editor->x().isValid() ? 1 : 0));
        type(editor->xProperty(), QStringLiteral("3"));
        QTEST(window.first.any, "edited");
    }

    void aComponentIsComparedWithTheModelAsItIs()
    {
        Window window;
        window.first.place = {1, 2};
        auto *editor = window.edit<ZelInspectorPointProperty>("place");
        window.select({&window.first});
        window.first.setProperty("place", QPointF(7, 2));
        editor->setX(1); // what it was before, in the same turn
        QCOMPARE(window.first.place, QPointF(1, 2));
    }

    void aValueThatIsNoneLeavesTheCheckboxOff()
    {
        Window window;
        window.owner->extra = QVariant();
        auto *editor = window.edit<ZelInspectorPointProperty>("any", [](ZelInspectorPointProperty *made) {
            made->setKeyPath(QStringLiteral("extra"));
            made->nonNilValueKeyPath = QStringLiteral("people.selection.note");
        });
        ZelCheckBox *box = editor->nonNilProperty()->checkbox();
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QCoreApplication::processEvents();
        QCOMPARE(box->checkState(), Qt::Unchecked);
    }

    void theCheckboxWritesAValueOrNone()
    {
        Window window;
        window.owner->extra = QSizeF(20, 30);
        auto *editor = window.edit<ZelInspectorSizeProperty>("any", [](ZelInspectorSizeProperty *property) {
            property->setTitle(QStringLiteral("Own size"));
            property->nonNilValueKeyPath = QStringLiteral("extra");
        });
        window.select({&window.first});
        ZelCheckBox *box = editor->nonNilProperty()->checkbox();
        QCOMPARE(editor->viewForBaselineAlignment(), box);
        QTRY_VERIFY(box->isEnabled());
        QCOMPARE(box->checkState(), Qt::Unchecked);
        box->click();
        QCoreApplication::processEvents();
        QCOMPARE(window.first.any, QVariant(QSizeF(20, 30)));
        QCOMPARE(editor->height(), QVariant(30.0));
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Move"));
        QCOMPARE(window.owner->actions, 1);
        box->click();
        QCoreApplication::processEvents();
        QVERIFY(!window.first.any.isValid());
        QVERIFY(!editor->width().isValid());
        window.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(window.first.any, QVariant(QSizeF(20, 30)));
        QCOMPARE(box->checkState(), Qt::Checked);
    }

    void keyPathsAreTheOwners()
    {
        Window window;
        window.owner->extra = QStringLiteral("Across");
        auto *editor = window.edit<ZelInspectorSizeProperty>("extent", [](ZelInspectorSizeProperty *property) {
            property->widthTitleKeyPath = QStringLiteral("extra");
            property->setEnabledKeyPath(QStringLiteral("unlocked"));
        });
        window.select({&window.first});
        QCOMPARE(editor->widthProperty()->label()->text(), QStringLiteral("Across"));
        QCOMPARE(editor->heightProperty()->label()->text(), QStringLiteral("Height"));
        QVERIFY(editor->widthProperty()->textField()->isEnabled());
        window.owner->setUnlocked(false);
        QVERIFY(!editor->widthProperty()->textField()->isEnabled());
        QVERIFY(!editor->heightProperty()->stepper()->isEnabled());
    }

    void typingIsCommittedWithTheEditor()
    {
        Window window;
        auto *editor = window.edit<ZelInspectorPointProperty>("place");
        window.select({&window.first});
        editor->yProperty()->textField()->setFocus();
        QTest::keyClicks(editor->yProperty()->textField(), QStringLiteral("6"));
        window.first.place = {9, 9};
        Q_EMIT window.first.changed();
        QCoreApplication::processEvents();
        QVERIFY(editor->yProperty()->textField()->isEditing());
        QVERIFY(editor->commitEditing());
        QVERIFY(window.first.place.y() != 9);
    }

    void boundsAreMeasuredAtTheAnchor_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<QVariant>("flipped");
        QTest::addColumn<QPointF>("origin");
        QTest::addColumn<QRectF>("moved"); // x to 100
        QTest::addColumn<QRectF>("wider"); // width to 40
        const QRectF moved(100, 20, 30, 40);
        QTest::newRow("top left") << 0 << QVariant(true) << QPointF(10, 20) << moved << QRectF(10, 20, 40, 40);
        QTest::newRow("centre") << 4 << QVariant(true) << QPointF(25, 40) << QRectF(85, 20, 30, 40)
                                << QRectF(5, 20, 40, 40);
        QTest::newRow("top left, upwards")
            << 0 << QVariant(false) << QPointF(10, 60) << moved << QRectF(10, 20, 40, 40);
        QTest::newRow("bottom right, unknown")
            << 8 << QVariant() << QPointF(40, 20) << QRectF(70, 20, 30, 40) << QRectF(0, 20, 40, 40);
    }
    void boundsAreMeasuredAtTheAnchor()
    {
        QFETCH(int, anchor);
        QFETCH(QVariant, flipped);
        QFETCH(QPointF, origin);
        const QRectF start(10, 20, 30, 40);
        Window window;
        window.first.frame = start;
        auto *editor = window.edit<ZelInspectorBoundsProperty>("frame");
        editor->setFlipped(flipped);
        editor->setAnchor(ZelRectAnchor(anchor));
        window.select({&window.first});
        QCOMPARE(QPointF(editor->originX().toDouble(), editor->originY().toDouble()), origin);
        type(editor->originXProperty(), QStringLiteral("100"));
        QTEST(window.first.frame, "moved");
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Change Origin X"));
        window.undo.undo();
        QCoreApplication::processEvents();
        type(editor->sizeWidthProperty(), QStringLiteral("40"));
        QTEST(window.first.frame, "wider");
        QCOMPARE(window.owner->actions, 2);
    }

    void framesOfEveryKindAreWrittenTogether_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QVariant>("old");
        QTest::addColumn<QVariant>("moved");
        const QRectF old(5, 2, 30, 40);
        const QRectF moved(7.5, 2, 30, 40);
        QTest::newRow("doubles") << "doubles" << QVariant(old) << QVariant(moved);
        QTest::newRow("integers") << "integers" << QVariant(old.toRect()) << QVariant(QRect(8, 2, 30, 40));
        QTest::newRow("silent") << "silent" << QVariant(old) << QVariant(moved);
        QTest::newRow("dynamic") << "dynamic" << QVariant(old) << QVariant(moved);
        QTest::newRow("any") << "any" << QVariant(old) << QVariant(moved);
        QTest::newRow("none") << "any" << QVariant() << QVariant(QRectF(7.5, 0, 0, 0));
    }
    void framesOfEveryKindAreWrittenTogether()
    {
        QFETCH(QString, kind);
        QFETCH(QVariant, old);
        Window window;
        Box box;
        box.stored = {1, 2, 30, 40};
        Box there;
        there.stored = {7.5, 2, 30, 40};
        const std::unique_ptr<QObject> others[] = {makeBox(kind), makeBox(kind)};
        for (const auto &other : others)
            other->setProperty("frame", old);
        auto *editor = window.edit<ZelInspectorBoundsProperty>(
            "frame", [](ZelInspectorBoundsProperty *property) { property->setFlipped(true); });
        window.select({&box, others[0].get(), &there, others[1].get()});
        QVERIFY(isSeveral(editor->originX()));
        QCOMPARE(isSeveral(editor->originY()), old.isNull());
        type(editor->originXProperty(), QStringLiteral("7.5"));
        QCOMPARE(box.stored, QRectF(7.5, 2, 30, 40));
        for (const auto &other : others)
            QTEST(other->property("frame"), "moved");
        QCOMPARE(editor->originX(),
                 kind == QStringLiteral("integers") ? QVariant::fromValue(ZelMultipleValuesMarker) : QVariant(7.5));
        QCOMPARE(window.undo.stack()->count(), 1);
        there.stored = {60, 2, 30, 40}; // it was there already: the edit did not touch it
        window.undo.undo();
        QCOMPARE(box.stored, QRectF(1, 2, 30, 40));
        QCOMPARE(there.stored.x(), 60.0);
        for (const auto &other : others)
            QTEST(other->property("frame"), "old");
        window.undo.redo();
        QCOMPARE(box.stored, QRectF(7.5, 2, 30, 40));
        QTEST(others[1]->property("frame"), "moved");
    }

    void settersMayThrowSelectAndDelete()
    {
        Window window;
        std::vector<std::unique_ptr<Box>> boxes;
        QList<QObject *> all;
        for (int i = 0; i < 4; ++i) {
            boxes.push_back(std::make_unique<Box>());
            boxes.back()->stored = QRectF(i, i, 10, 10);
            all.append(boxes.back().get());
        }
        auto *editor = window.edit<ZelInspectorBoundsProperty>("frame");
        window.select(all);
        QVERIFY_EXCEPTION_THROWN(editor->setOriginX(101.0), std::runtime_error);
        QCOMPARE(window.undo.stack()->count(), 0);
        QCoreApplication::processEvents();
        QVERIFY(isSeveral(editor->originX()));
        boxes[0]->react = [&] {
            boxes[1].reset();
            window.owner->controller.setSelectedObjects({boxes[2].get()});
        };
        type(editor->originXProperty(), QStringLiteral("50"));
        for (int i : {0, 2, 3})
            QCOMPARE(boxes[size_t(i)]->stored.x(), 50.0);
        QCOMPARE(window.undo.stack()->count(), 1);
        boxes[0]->react = {};
        boxes[3].reset();
        window.undo.undo();
        QCOMPARE(boxes[0]->stored.x(), 0.0);
        QCOMPARE(boxes[2]->stored.x(), 2.0);
    }

    void titlesBesideTheAnchorsAreWhole()
    {
        Window window;
        auto *editor = window.edit<ZelInspectorBoundsProperty>(
            "frame", [](ZelInspectorBoundsProperty *property) { property->showOriginSelector = true; });
        for (int width : {200, 400}) {
            window.resize(width, 200);
            QCoreApplication::processEvents();
            for (const auto *number : {editor->sizeWidthProperty(), editor->sizeHeightProperty()}) {
                const QWidget *label = number->label();
                QVERIFY(label->width() >= label->sizeHint().width());
                QVERIFY(label->parentWidget()->rect().contains(label->geometry()));
                QCOMPARE(label->width() == number->textField()->width(), width == 400);
                QCOMPARE(label->x() == number->textField()->x(), width == 400);
            }
        }
    }

    void theAnchorIsPickedByAClickOrAKey()
    {
        Window window;
        window.first.frame = QRectF(0, 0, 10, 20);
        auto *editor = window.edit<ZelInspectorBoundsProperty>("frame", [](ZelInspectorBoundsProperty *property) {
            property->showOriginSelector = true;
            property->setFlipped(true);
            property->flippedKeyPath = QStringLiteral("extra");
        });
        window.owner->extra = true;
        Q_EMIT window.owner->extraChanged();
        window.select({&window.first});
        ZelOriginSelectionView *view = editor->originSelectionView();
        QTest::mouseClick(view, Qt::LeftButton, {}, {60, 40});
        QCOMPARE(editor->anchor(), ZelOriginMiddleRight);
        QCOMPARE(view->anchor(), ZelOriginMiddleRight);
        QCOMPARE(editor->originY(), QVariant(10.0));
        QTest::keyClick(view, Qt::Key_Down);
        QTest::keyClick(view, Qt::Key_Down);
        QCOMPARE(editor->originY(), QVariant(20.0));
        editor->setAnchor(ZelOriginTopCenter);
        QCOMPARE(view->anchor(), ZelOriginTopCenter);
        QCOMPARE(view->anchorAtPosition({80, 5}), ZelOriginTopLeft); // beside it

        window.owner->extra = QVariant::fromValue(ZelMultipleValuesMarker);
        Q_EMIT window.owner->extraChanged();
        QVERIFY(!editor->internalEnabled());
        QVERIFY(!view->isEnabled() && !editor->originXProperty()->textField()->isEnabled());
        QTest::mouseClick(view, Qt::LeftButton, {}, {5, 5});
        QCOMPARE(editor->anchor(), ZelOriginTopCenter);
        QVERIFY_EXCEPTION_THROWN(editor->flippedAnchor(ZelRectAnchor(9)), ZelInternalInconsistencyException);
    }

    void eachAnchorHasItsPicture()
    {
        QSet<QByteArray> pictures;
        ZelOriginSelectionView view;
        for (quint64 i = 0; i <= ZelOriginBottomRight; ++i) {
            view.setAnchor(ZelRectAnchor(i));
            const QImage image = view.image().pixmap(QSize(71, 71)).toImage();
            pictures.insert(QByteArray(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes())));
        }
        QCOMPARE(pictures.size(), 9);
        QPixmap own(71, 71);
        own.fill(Qt::red);
        ZelNamedImages::setImageForName(own, QStringLiteral("ZelOriginBottomLeft"));
        view.setAnchor(ZelOriginBottomLeft);
        QCOMPARE(view.image().pixmap(71, 71).toImage().pixelColor(3, 3), QColor(Qt::red));
    }

    void editorsMayDieOfWhatTheyChange()
    {
        Window window;
        window.first.place = {1, 1};
        auto *editor = window.edit<ZelInspectorPointProperty>("place");
        window.select({&window.first});
        connect(&window.first, &Shape::changed, &window, [&window] { window.editor.reset(); });
        ZelStepper *stepper = editor->xProperty()->stepper();
        stepper->stepBy(1);
        QVERIFY(!window.editor);
        QCOMPARE(window.first.place, QPointF(2, 1));
    }
};

QTEST_MAIN(tst_GeometryProperties)
#include "tst_GeometryProperties.moc"
