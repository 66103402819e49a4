// SPDX-License-Identifier: MIT
#include "Core/Undo/ZelUndoManager.h"
#include "FigureSheet.h"

namespace {
using Numbers = QList<double>;

/// Figures whose numbers are all different, and all selected.
struct NumberWindow : Sheet
{
    NumberWindow()
        : Sheet(
              row("height", "number", "formatUnit=' pt' increment='2' minimum='-50' maximum='100'") +
              row("note", "number", "valueTransformer='ZelPercentValueTransformerName' increment='0.05' maximum='1'") +
              row("byte", "number", "maximum='255'") + row("size", "size") + row("frame", "frame") +
              row("font", "font"))
        , field(editor<ZelInspectorNumberProperty>("height")->textField())
        , stepper(editor<ZelInspectorNumberProperty>("height")->stepper())
    {
        for (int i = 0; i < 3; ++i) {
            set(i, "height", 10 * (i + 1));
            set(i, "note", 0.5 + i * 0.24);
            set(i, "byte", 7 + 100 * i);
            set(i, "size", QSizeF(10 + i, 40));
            set(i, "frame", QRectF(i, 20, 100, 50));
            set(i, "font", QFont("DejaVu Sans", 9 + i));
        }
        select({0, 1, 2});
    }
    Numbers heights() const { return {height(0), height(1), height(2)}; }
    double height(int index) const { return value(index, "height").toDouble(); }
    ZelTextField *part(const char *key, int index) const
    {
        return editor<ZelInspectorProperty>(key)->findChildren<ZelInspectorNumberProperty *>().at(index)->textField();
    }
    /// The title below the field of a part.
    QWidget *title(const char *key, int index) const
    {
        return editor<ZelInspectorProperty>(key)->findChildren<ZelInspectorNumberProperty *>().at(index)->label();
    }
    QWidget *rowLabel(const QString &key) const
    {
        for (auto *label : inspector->view()->findChildren<ZelLabel *>()) {
            if (label->text() == key)
                return label;
        }
        return nullptr;
    }
    void pressTitle(const QWidget *title)
    {
        m_origin = m_last = title->mapTo(this, title->rect().center());
        QTest::mousePress(windowHandle(), Qt::LeftButton, {}, m_origin);
    }
    void moveTo(const QPoint &position)
    {
        m_last = position;
        QTest::mouseMove(windowHandle(), position);
        QTest::qWait(20); // longer than a frame
    }
    /// Moves to a distance from where the button was pressed.
    void drag(int distance)
    {
        for (int i = 1; i <= 4; ++i)
            moveTo(m_origin + QPoint(distance * i / 4, 0));
    }
    void release()
    {
        QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, m_last);
        settle();
    }

    ZelTextField *field;
    ZelStepper *stepper;

private:
    QPoint m_origin;
    QPoint m_last;
};
} // namespace

/// Numbers that are calculated, stepped and dragged, for one object and for several that differ.
class tst_Numbers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void eachObjectIsChangedFromItsOwnValue()
    {
        NumberWindow window;
        const std::pair<const char *, Numbers> rows[] = {{"+=10", {20, 30, 40}},   {"-= 10 pt", {0, 10, 20}},
                                                         {"*=2", {20, 40, 60}},    {"/=2", {5, 10, 15}},
                                                         {"+=10%", {11, 22, 33}},  {"i*20", {0, 20, 40}},
                                                         {"x+n", {13, 23, 33}},    {"100 + i*(x-100)", {100, 20, -40}},
                                                         {"1in + 2mm", {0, 0, 0}}, {"(3+4)*10", {70, 70, 70}}};
        for (auto [text, results] : rows) {
            if (results == Numbers{0, 0, 0})
                results.fill(72 + 144 / 25.4);
            Sheet::enter(window.field, text);
            QCOMPARE(window.heights(), results);
            QCOMPARE(window.stack.count(), 1);
            QCOMPARE(window.stack.undoText(), "Change height");
            window.undo();
            QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
            QCOMPARE(window.shown("height"), "Multiple Values");
        }
        window.set(1, "height", 10);
        window.set(2, "height", 10);
        Sheet::enter(window.field, "x*2+i"); // depends on the place although all have one value
        QCOMPARE(window.heights(), (Numbers{20, 21, 22}));
        window.select({1});
        Sheet::enter(window.field, "-x/2");
        QCOMPARE(window.height(1), -10.5);
        QCOMPARE(window.shown("height"), "-10.5");
    }

    void partsOfValuesAreChangedToo()
    {
        NumberWindow window;
        Sheet::enter(window.part("size", 0), "*=2");
        Sheet::enter(window.part("frame", 0), "x + i");
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(window.value(i, "size").toSizeF(), QSizeF(20 + 2 * i, 40));
            QCOMPARE(window.value(i, "frame").toRectF(), QRectF(2 * i, 20, 100, 50));
        }
        QCOMPARE(window.stack.count(), 2);
        auto *font = window.editor<ZelInspectorFontProperty>("font");
        Sheet::click(font->stepper(), {4, 4});
        Sheet::click(font->button());
        Sheet::click(font->fontSizeStepper(), {5, 4});
        QVERIFY(font->fontSizeTextField()->hasFocus());
        Sheet::enter(font->fontSizeTextField(), "x-12");
        QCOMPARE(font->fontSizeTextField()->errorText(), "The least value is 1. This concerns 2 of 3 objects.");
        Sheet::press(Qt::Key_Escape);
        Sheet::enter(font->fontSizeTextField(), "(x-1)*2");
        Sheet::press(Qt::Key_Escape);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(window.value(i, "font").value<QFont>().pointSizeF(), 2 * (10 + i));
        while (window.stack.canUndo())
            window.undo();
        QCOMPARE(window.value(2, "size").toSizeF(), QSizeF(12, 40));
        QCOMPARE(window.value(2, "frame").toRectF(), QRectF(2, 20, 100, 50));
        QCOMPARE(window.value(2, "font").value<QFont>().pointSizeF(), 11);
    }

    void aDragThatEndsWhereItBeganIsNoStep()
    {
        NumberWindow window;
        window.pressTitle(window.rowLabel("note"));
        window.drag(-40);
        QVERIFY(window.value(2, "note") != 0.98);
        window.drag(0);
        window.release();
        QVERIFY(!window.stack.canUndo());
        QCOMPARE(window.value(2, "note"), 0.98);
    }

    /// What is calculated and checked before anything is written is made anew for an object that has changed meanwhile.
    void aSetterMayChangeTheNextObject()
    {
        NumberWindow window;
        const auto change = [&window] {
            window.figures.at(1)->setHeight(100);
            window.figures.at(1)->setFrame(QRectF(50, 5, 6, 7));
        };
        connect(window.figures.at(0).get(), &Figure::heightChanged, this, change);
        connect(window.figures.at(0).get(), &Figure::frameChanged, this, change);
        Sheet::enter(window.field, "x*2+i");
        QCOMPARE(window.heights(), (Numbers{20, 201, 62}));
        Sheet::enter(window.part("frame", 0), "x+10");
        QCOMPARE(window.value(1, "frame").toRectF(), QRectF(60, 5, 6, 7));
        QCOMPARE(window.value(2, "frame").toRectF(), QRectF(12, 20, 100, 50));
        window.undo();
        window.undo();
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
    }

    /// What the objects are known to have after one entry is where the next one starts, unless something has happened.
    void entriesFollowEachOther()
    {
        NumberWindow window;
        const auto frame = [&window](int i) { return window.value(i, "frame").toRectF(); };
        const auto addOne = [&] {
            const Numbers heights = window.heights();
            const QList<QRectF> frames{frame(0), frame(1), frame(2)};
            Sheet::enter(window.field, "x+1");
            Sheet::enter(window.part("frame", 0), "x+1");
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(window.height(i), heights.at(i) + 1);
                QCOMPARE(frame(i), frames.at(i).translated(1, 0));
            }
        };
        addOne();
        addOne();
        window.set(1, "height", 50);
        window.set(1, "frame", QRectF(7, 8, 9, 10));
        addOne();
        QTest::qWait(300); // longer than anything is remembered
        {
            const QSignalBlocker silence(window.figures.at(2).get());
            window.set(2, "height", 60);
            window.set(2, "frame", QRectF(2, 1, 9, 10));
        }
        addOne();
        const auto changeBack = [&window] { // an object that was written already
            window.set(0, "height", 5);
            window.set(0, "frame", QRectF(5, 6, 7, 8));
        };
        connect(window.figures.at(2).get(), &Figure::heightChanged, this, changeBack);
        connect(window.figures.at(2).get(), &Figure::frameChanged, this, changeBack);
        Sheet::enter(window.field, "7");
        QCOMPARE(window.heights(), (Numbers{5, 7, 7}));
        QVERIFY(ZelIsMarker(window.field->objectValue(), ZelMultipleValuesMarker));
        Sheet::enter(window.field, "x+1");
        QCOMPARE(window.heights(), (Numbers{5, 8, 8}));
        Sheet::enter(window.part("frame", 0), "x*0");
        QCOMPARE(frame(0), QRectF(5, 6, 7, 8));
        QVERIFY(ZelIsMarker(window.part("frame", 0)->objectValue(), ZelMultipleValuesMarker));
        disconnect(window.figures.at(2).get(), nullptr, this, nullptr);
        addOne();
        Sheet::enter(window.part("frame", 1), "6");
        QCOMPARE(window.part("frame", 1)->text(), "6");
        Sheet::enter(window.part("frame", 1), "x+1");
        QCOMPARE(window.part("frame", 1)->text(), "7");
    }

    void oneRefusingObjectRefusesTheEntry()
    {
        NumberWindow window;
        ZelTextField *byte = window.editor<ZelInspectorNumberProperty>("byte")->textField();
        const std::tuple<ZelTextField *, const char *, const char *> rows[] = {
            {byte, "x*2", "The number must be between 0 and 255. This concerns 1 of 3 objects."},
            {byte, "x/2", "The number must be a whole number. This concerns 3 of 3 objects."},
            {byte, "1/0", "The result is not a number."},
            {window.field, "1/(x-20)", "The result is not a number. This concerns 1 of 3 objects."},
            {window.part("size", 0), "sqrt(10-x)", "The result is not a number. This concerns 2 of 3 objects."},
            {window.field, "2*(3", "A parenthesis is not closed (character 3)."},
            {window.field, "+=", "The calculation is not complete (character 3)."},
            {window.field, "x*3.5", "The greatest value is 100 pt. This concerns 1 of 3 objects."},
            {window.field, "-=75", "The least value is -50 pt. This concerns 2 of 3 objects."},
            {window.editor<ZelInspectorNumberProperty>("note")->textField(), "x+10",
             "The greatest value is 100. This concerns 1 of 3 objects."},
            {window.field, "two", "This is not a number."},
        };
        for (const auto &[field, text, reason] : rows) {
            Sheet::enter(field, text);
            QCOMPARE(field->errorText(), reason);
            QCOMPARE(field->text(), text);
            Sheet::press(Qt::Key_Escape);
        }
        QCOMPARE(window.stack.count(), 0);
        Sheet::enter(window.field, "120"); // steps and calculations are limited, numbers are not
        QCOMPARE(window.heights(), (Numbers{120, 120, 120}));
        Sheet::enter(window.field, "+=1");
        QCOMPARE(window.field->errorText(), "The greatest value is 100 pt. This concerns 3 of 3 objects.");
        Sheet::press(Qt::Key_Escape);
        Sheet::enter(byte, "x-10"); // the usual minimum is not one that somebody wanted
        QCOMPARE(byte->errorText(), "The number must be between 0 and 255. This concerns 1 of 3 objects.");
        Sheet::press(Qt::Key_Escape);
        Sheet plain(Sheet::row("height", "number", "expressions='no'"));
        plain.select({0});
        auto *field = plain.editor<ZelInspectorNumberProperty>("height")->textField();
        Sheet::enter(field, "1+1");
        QCOMPARE(field->errorText(), "This is not a number.");
    }

    void keysAndWheelStepEachObject()
    {
        NumberWindow window;
        Sheet::click(window.field);
        Sheet::press(Qt::Key_Up);
        Sheet::press(Qt::Key_Up, Qt::ShiftModifier);
        Sheet::press(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(window.heights(), (Numbers{31.8, 41.8, 51.8}));
        Sheet::press(Qt::Key_PageUp);
        QCOMPARE(window.heights(), (Numbers{51.8, 61.8, 71.8}));
        User::turnWheel(window.field, 240);
        QCOMPARE(window.heights(), (Numbers{55.8, 65.8, 75.8}));
        QCOMPARE(window.stack.count(), 1);
        Sheet::press(Qt::Key_PageUp, Qt::ShiftModifier); // the limits hold for each
        QCOMPARE(window.heights(), (Numbers{100, 100, 100}));
        window.undo();
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
        QTest::qWait(int(ZelUndoBurst::pause) + 50);
        Sheet::press(Qt::Key_Down);
        QTest::qWait(int(ZelUndoBurst::pause) + 50);
        Sheet::press(Qt::Key_Down);
        QCOMPARE(window.stack.count(), 2);
        window.select({0});
        Sheet::replaceText(window.field, "40");
        Sheet::press(Qt::Key_Up); // from what is being typed
        QCOMPARE(window.height(0), 42.0);
        QVERIFY(window.field->hasSelectedText());
    }

    void whereTheFieldShowsAnotherUnitTheModelsCounts()
    {
        NumberWindow window;
        ZelTextField *percent = window.editor<ZelInspectorNumberProperty>("note")->textField();
        const auto note = [&](int i) { return std::round(window.value(i, "note").toDouble() * 1e9) / 1e9; };
        const auto notes = [&] { return Numbers{note(0), note(2)}; };
        Sheet::click(percent);
        Sheet::press(Qt::Key_Up);
        QCOMPARE(notes(), (Numbers{0.55, 1}));
        Sheet::enter(percent, "x-10+i");
        QCOMPARE(notes(), (Numbers{0.45, 0.92}));
        window.pressTitle(window.rowLabel("note"));
        window.drag(-40);
        window.release();
        QCOMPARE(notes(), (Numbers{0, 0.42}));
        window.select({0});
        Sheet::click(percent);
        Sheet::press(Qt::Key_Up);
        QCOMPARE(window.shown("note"), "5");
    }

    void arrowsStepEachObjectInOneStep()
    {
        NumberWindow window;
        QVERIFY(!(window.stepper->focusPolicy() & Qt::TabFocus));
        Sheet::click(window.stepper, {5, 4});
        QCOMPARE(window.heights(), (Numbers{12, 22, 32}));
        User::turnWheel(window.stepper, -360);
        User::turnWheel(window.stepper, -120);
        QCOMPARE(window.heights(), (Numbers{4, 14, 24}));
        QCOMPARE(window.stack.count(), 2);
        window.undo();
        window.undo();
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
        ZelTextField *size = window.part("size", 0);
        Sheet::click(size);
        Sheet::click(window.stepper, {5, 4});
        QVERIFY(window.field->hasFocus());
        Sheet::type("+=5");
        Sheet::click(window.stepper, {5, 4}); // takes what was typed, as a step of its own
        QCOMPARE(window.heights(), (Numbers{19, 29, 39}));
        QCOMPARE(window.stack.count(), 3);
        Sheet::type("77 s");
        Sheet::click(window.stepper, {5, 4});
        QCOMPARE(window.heights(), (Numbers{19, 29, 39}));
        QCOMPARE(window.field->text(), "77 s");
    }

    void whatGoesRoundWraps()
    {
        Sheet sheet(Sheet::row("height", "number", "wraps='yes' minimum='0' maximum='360' increment='50'"));
        const auto heights = [&] {
            return Numbers{sheet.value(0, "height").toDouble(), sheet.value(1, "height").toDouble()};
        };
        sheet.set(0, "height", 20);
        sheet.set(1, "height", 350);
        sheet.select({0, 1});
        auto *editor = sheet.editor<ZelInspectorNumberProperty>("height");
        Sheet::enter(editor->textField(), "+=400");
        QCOMPARE(heights(), (Numbers{60, 30}));
        Sheet::press(Qt::Key_Down);
        QCOMPARE(heights(), (Numbers{10, 340}));
        Sheet::enter(editor->textField(), "-90");
        QCOMPARE(heights(), (Numbers{270, 270}));
        QCOMPARE(sheet.shown("height"), "270");
        Sheet::enter(editor->textField(), "720.5");
        Sheet::click(editor->stepper(), {5, editor->stepper()->height() - 4}); // to the limit, then beyond it
        Sheet::click(editor->stepper(), {5, editor->stepper()->height() - 4});
        QCOMPARE(heights(), (Numbers{360, 360}));
    }

    void titlesAreDragged()
    {
        NumberWindow window;
        QWidget *label = window.rowLabel("height");
        window.pressTitle(label);
        window.drag(40);
        QCOMPARE(window.heights(), (Numbers{30, 40, 50})); // live
        QCOMPARE(QToolTip::text(), "+20 pt");
        window.drag(200);
        window.drag(0);
        QCOMPARE(window.heights(), (Numbers{10, 20, 30})); // from the values at the press, whatever the limits did
        window.drag(-20);
        window.release();
        QCOMPARE(window.heights(), (Numbers{0, 10, 20}));
        QCOMPARE(window.stack.count(), 1);
        QCOMPARE(window.stack.undoText(), "Change height");
        window.undo();
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
        window.pressTitle(label);
        window.drag(40);
        Sheet::press(Qt::Key_Escape);
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
        window.drag(80);
        window.release();
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
        QVERIFY(!window.stack.canUndo());
        ZelUndoManager::forWidget(&window)->setRecordsEdits(false); // there is nothing to take back then
        window.pressTitle(label);
        window.drag(40);
        Sheet::press(Qt::Key_Escape);
        window.drag(80);
        window.release();
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
        window.selectObjects({});
        window.pressTitle(label); // nothing is selected
        window.drag(40);
        window.release();
        QCOMPARE(window.heights(), (Numbers{10, 20, 30}));
    }

    void aDraggedNumberIsAlwaysShown()
    {
        NumberWindow window;
        window.select({1});
        QStringList texts;
        connect(window.field, &QLineEdit::textChanged, &window, [&](const QString &text) { texts.append(text); });
        window.pressTitle(window.rowLabel("height"));
        window.drag(40);
        window.release();
        QCOMPARE(window.height(1), 40);
        QCOMPARE(texts.last(), "40 pt");
        QVERIFY(!texts.contains(QString()));
    }

    void neighboursAreDraggedTogether()
    {
        NumberWindow window;
        QWidget *width = window.title("size", 0);
        QWidget *height = window.title("size", 1);
        window.pressTitle(width);
        const QPoint next = height->mapTo(&window, height->rect().center());
        window.moveTo(next - QPoint(8, 0)); // on the way over it
        QTest::qWait(100);
        window.moveTo(next);
        QVERIFY(!height->font().underline());
        QTRY_VERIFY(height->font().underline());
        window.moveTo(next + QPoint(20, 0));
        window.release();
        QCOMPARE(window.value(0, "size").toSizeF(), QSizeF(15, 45));
        QCOMPARE(window.value(2, "size").toSizeF(), QSizeF(17, 45));
        QVERIFY(!height->font().underline());
        QCOMPARE(window.stack.count(), 1);
        window.undo();
        QCOMPARE(window.value(2, "size").toSizeF(), QSizeF(12, 40));
        window.pressTitle(width);
        window.moveTo(width->mapTo(&window, width->rect().center()) + QPoint(16, 0));
        QTest::qWait(520);
        window.moveTo(next); // to look at the numbers
        QTest::qWait(300);
        QVERIFY(!height->font().underline());
        window.release();
        QCOMPARE(window.value(0, "size").toSizeF().height(), 40.0);
    }

    void theTitleMayDieInTheMiddle()
    {
        NumberWindow window;
        QWidget *label = window.rowLabel("height");
        QObject::connect(window.figures[1].get(), &Person::heightChanged, label,
                         [&window] { window.inspector.reset(); });
        window.pressTitle(label);
        window.drag(40);
        QVERIFY(!window.inspector);
        QCOMPARE(window.heights(), (Numbers{10 + 2 * 2, 20 + 2 * 2, 30 + 2 * 2}));
        window.release();
    }
};
QTEST_MAIN(tst_Numbers)
#include "tst_Numbers.moc"
