// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

#include <QAbstractItemView>
#include <QLineEdit>

namespace {

using Window = Sheet;
using ArrayEditor = ZelInspectorArrayProperty;
using FontEditor = ZelInspectorFontProperty;

QString tagsOf(const Window &window, int figure)
{
    return window.figures[size_t(figure)]->tags.join(u' ');
}

/// A window with an editor of fonts, of which the second one is another one.
struct FontWindow : Window
{
    FontWindow()
        : Window(row("font", "font"))
        , editor(Window::editor<FontEditor>("font"))
        , details(editor->popoverView())
        , size(details->fontSizeTextField())
    {
        set(1, "font", QFont("DejaVu Serif", 30));
    }
    QFont font(int figure) const { return figures[size_t(figure)]->font; }
    void open() const { click(editor->button()); }
    bool isOpen() const { return editor->popover()->isShown(); }

    FontEditor *editor;
    ZelFontPopoverView *details;
    ZelTextField *size;
};

} // namespace

/// What is special about the larger editors.
class tst_ValueEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void theArrayTableIsEditedInPlace()
    {
        Window window(Window::row("tags", "custom", "class='ZelInspectorArrayProperty'"));
        auto *editor = window.editor<ArrayEditor>("tags");
        window.select({0, 1});
        window.edit("tags", "+");
        QCOMPARE(editor->tableView()->currentIndex().row(), 2);
        window.edit("tags", "+");
        QCOMPARE(window.shown("tags"), "a b Item Item");
        window.begin("tags", "beta");
        const QPointer<QLineEdit> field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(field && editor->tableView()->isAncestorOf(field));
        for (int figure : {0, 1})
            window.figures[size_t(figure)]->setProperty("tags", QStringList{"x", "b", "z"});
        window.settle();
        QVERIFY(field);
        QCOMPARE(field->text(), "beta");
        Window::press(Qt::Key_Return);
        QCOMPARE(tagsOf(window, 0), "x beta z");
        QCOMPARE(window.shown("tags"), "x beta z");

        Window::clickRow(editor, 0);
        Window::press(Qt::Key_F2);
        Window::type("dropped");
        Window::press(Qt::Key_Escape);
        QCOMPARE(window.shown("tags"), "x beta z");
        window.edit("tags", "beta"); // the same
        QCOMPARE(window.stack.count(), 3);

        Window::clickRow(editor, 0);
        Window::clickRow(editor, 2, Qt::ControlModifier);
        Window::click(editor->actionBar()->itemViews().at(1));
        QCOMPARE(tagsOf(window, 1), "beta");
        QCOMPARE(window.stack.undoText(), "Change tags");
        QCOMPARE(window.owner->actions, 3);
        for (const char *former : {"x beta z", "x b z", "a b Item", "a b"}) {
            window.undo();
            QCOMPARE(tagsOf(window, 0), former);
            QCOMPARE(tagsOf(window, 1), former);
            QCOMPARE(window.shown("tags"), former);
        }
        QVERIFY(!window.stack.canUndo());

        window.begin("tags", "alpha");
        window.select({2}); // whose list is the same: a cell belongs to the one that it was opened in
        QCOMPARE(window.shown("tags"), "a b");
        QCOMPARE(tagsOf(window, 0) + u'|' + tagsOf(window, 1), "a alpha|a alpha");
        QCOMPARE(QApplication::focusWidget(), editor->tableView());
        Window::press(Qt::Key_Return);
        QCOMPARE(tagsOf(window, 2), "a b");
        QCOMPARE(window.stack.count(), 1);
    }

    void aPointIsTypedNumberByNumber()
    {
        Window window(Window::row("place", "custom", "class='ZelInspectorPointProperty'"));
        window.set(1, "place", QPointF(3, 9));
        const auto *editor = window.editor<ZelInspectorPointProperty>("place");
        ZelTextField *x = editor->xProperty()->textField();
        ZelTextField *y = editor->yProperty()->textField();
        const auto shown = [&] { return QString(x->text() + u' ' + y->text() + u'|' + y->placeholderText()); };
        window.select({0});
        Window::replaceText(x, "3");
        Window::press(Qt::Key_Tab);
        while (QApplication::focusWidget() != y) // past the stepper
            Window::press(Qt::Key_Tab);
        Window::type("-7.5");
        Window::press(Qt::Key_Return);
        QCOMPARE(window.figures[0]->place, QPointF(3, -7.5));

        window.select({0, 1});
        QCOMPARE(shown(), "3 |Multiple Values");
        Window::enter(y, "4");
        editor->xProperty()->stepper()->setFocus();
        Window::press(Qt::Key_Up);
        for (int figure : {0, 1})
            QCOMPARE(window.figures[size_t(figure)]->place, QPointF(4, 4));
        Window::replaceText(y, "8");
        window.select({2}); // it was typed for the others
        QCOMPARE(shown(), "1 2|");
        QCOMPARE(window.figures[0]->place, QPointF(4, 8));
        QCOMPARE(window.stack.count(), 5);
        while (window.stack.canUndo())
            window.undo();
        QCOMPARE(window.figures[0]->place, QPointF(1, 2));
        QCOMPARE(window.figures[1]->place, QPointF(3, 9));
        QCOMPARE(window.figures[2]->place, QPointF(1, 2));
    }

    void theAnchorIsWhereAFrameIsMeasuredAndKept()
    {
        Window window(Window::row("frame", "frame", "showOriginSelector='yes'"));
        window.set(1, "frame", QRectF(0, 0, 60, 50));
        window.select({0, 1});
        auto *editor = window.editor<ZelInspectorBoundsProperty>("frame");
        ZelOriginSelectionView *picker = editor->originSelectionView();
        Window::click(picker, {picker->width() - 6, picker->height() / 2});
        QCOMPARE(editor->anchor(), ZelOriginMiddleRight);
        window.select({0});
        QCOMPARE(editor->originXProperty()->textField()->text(), "110");
        QCOMPARE(editor->originYProperty()->textField()->text(), "45");
        QCOMPARE(window.stack.count(), 0);

        window.select({0, 1});
        Window::enter(editor->sizeWidthProperty()->textField(), "40");
        QCOMPARE(window.figures[0]->frame(), QRectF(70, 20, 40, 50));
        QCOMPARE(window.figures[1]->frame(), QRectF(20, 0, 40, 50));
        QCOMPARE(window.stack.undoText(), "Change Width");

        picker->setFocus();
        for (int key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Down})
            Window::press(key);
        QCOMPARE(editor->anchor(), ZelOriginBottomCenter);
        Window::enter(editor->sizeHeightProperty()->textField(), "10");
        QCOMPARE(window.stack.undoText(), "Change Height");
        QCOMPARE(window.figures[0]->frame(), QRectF(70, 60, 40, 10));
        window.undo();
        window.undo();
        QCOMPARE(window.figures[0]->frame(), QRectF(10, 20, 100, 50));
        QCOMPARE(window.figures[1]->frame(), QRectF(0, 0, 60, 50));
    }

    void aResourceIsCompletedFromTheList()
    {
        Window window(Window::row("pattern", "resource", "resourcesKeyPath='names'"));
        window.select({0, 1});
        auto *box = window.editor<ZelInspectorResourceProperty>("pattern")->comboBox();
        ZelTextField *field = box->textField();
        const auto patterns = [&] { return QString(window.figures[0]->pattern + u' ' + window.figures[1]->pattern); };
        Window::replaceText(field, "wa");
        QCOMPARE(field->text().toLower(), "waves");
        Window::press(Qt::Key_Tab);
        QCOMPARE(patterns(), "Waves Waves");
        QVERIFY(QApplication::focusWidget() != field);
        QCOMPARE(window.stack.count(), 1);
        Window::enter(field, "Zigzag");
        QCOMPARE(patterns(), "Zigzag Zigzag");
        Window::enter(field, "do");
        QCOMPARE(patterns(), "Dots Dots");
        Window::press(Qt::Key_Down);
        QCOMPARE(patterns(), "Lines Lines");
        QCOMPARE(window.stack.count(), 4);
        window.owner->names.append("Garden");
        Q_EMIT window.owner->valuesChanged();
        QCOMPARE(box->count(), 4);
        Window::enter(field, "ga");
        QCOMPARE(patterns(), "Garden Garden");
        Window::click(box, {box->width() - 6, box->height() / 2});
        QTRY_VERIFY(box->view()->isVisible());
        Window::click(box->view()->viewport(), box->view()->visualRect(box->model()->index(1, 0)).center());
        QTRY_COMPARE(patterns(), "Lines Lines");
        QCOMPARE(window.owner->actions, 6);
    }

    void aDateIsTyped()
    {
        Window window(Window::row("day", "date"));
        const QDate leapDay(2020, 2, 29);
        window.set(1, "day", leapDay);
        ZelDatePicker *picker = window.editor<ZelInspectorDateProperty>("day")->datePicker();
        const auto days = [&] { return QList<QDate>{window.figures[0]->day, window.figures[1]->day}; };
        window.select({1});
        Window::click(picker, {8, picker->height() / 2});
        picker->setSelectedSection(QDateTimeEdit::YearSection);
        Window::type("2021"); // which has no such day
        Window::press(Qt::Key_Tab);
        const QList<QDate> typed{{2024, 5, 6}, {2021, 2, 28}};
        QCOMPARE(days(), typed);
        QVERIFY(QApplication::focusWidget() != picker);
        window.select({0, 1});
        picker->setFocus();
        Window::type("9");
        Window::press(Qt::Key_Escape);
        QCOMPARE(picker->text(), "Multiple Values");
        QCOMPARE(window.stack.count(), 1);
        Window::press(Qt::Key_Up); // begins with the present day
        QCOMPARE(days(), QList<QDate>(2, QDate::currentDate()));
        window.undo();
        QCOMPARE(days(), typed);
        Window::press(Qt::Key_A, Qt::ControlModifier);
        Window::press(Qt::Key_Delete);
        Window::press(Qt::Key_Tab);
        QCOMPARE(days(), QList<QDate>(2, QDate()));
        window.undo();
        QCOMPARE(days(), typed);
    }

    void theFontPopoverIsOpenedUsedAndClosed()
    {
        FontWindow window;
        window.select({0, 1});
        window.editor->button()->setFocus();
        Window::press(Qt::Key_Space);
        QVERIFY(window.isOpen());
        Window::choose(window.details->fontFamilyPopUpButton(), "DejaVu Serif");
        QVERIFY(window.isOpen()); // a menu of its own does not close it
        Window::enter(window.size, "23");
        Window::choose(window.details->fontStylePopUpButton(), "Bold");
        QVERIFY(window.font(0).pointSizeF() == 23 && window.font(1).pointSizeF() == 23);
        QCOMPARE(window.shown("font"), "DejaVu Serif Bold 23");
        QCOMPARE(window.stack.count(), 3);
        Window::press(Qt::Key_Escape);
        QVERIFY(!window.isOpen());
        QCOMPARE(QApplication::focusWidget(), window.editor->button());
        for (int i = 0; i < 3; ++i)
            window.undo();
        QCOMPARE(window.font(0), QFont("DejaVu Sans", 9));
        QCOMPARE(window.font(1), QFont("DejaVu Serif", 30));
        QCOMPARE(window.shown("font"), "Multiple Fonts");
    }

    void aClickOutsideTakesWhatWasTypedInThePopover()
    {
        FontWindow window;
        window.select({0});
        window.open();
        Window::replaceText(window.size, "14");
        QTest::mouseClick(QApplication::activePopupWidget()->windowHandle(), Qt::LeftButton, {}, {-40, -40});
        window.settle();
        QVERIFY(!window.isOpen() && !QApplication::activePopupWidget());
        QCOMPARE(window.font(0).pointSizeF(), 14.0);
        QCOMPARE(window.stack.count(), 1);
        window.open();
        QVERIFY(window.isOpen());
        const QWidget *button = window.editor->button();
        const QWidget *popup = QApplication::activePopupWidget();
        QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {},
                          button->mapToGlobal(button->rect().center()) - popup->pos());
        window.settle();
        QVERIFY(!window.isOpen()); // and not opened again
        window.open();
        Window::replaceText(window.size, "33");
        Window::click(window.details->doneButton());
        QVERIFY(!window.isOpen());
        QCOMPARE(window.font(0).pointSizeF(), 33.0);
    }

    void theSelectionAndTheModelChangeUnderThePopover()
    {
        FontWindow window;
        window.select({0});
        window.open();
        Window::replaceText(window.size, "12");
        window.set(0, "font", QFont("DejaVu Sans Mono", 20));
        QCOMPARE(window.size->text(), "12");
        Window::press(Qt::Key_Escape);
        QVERIFY(window.isOpen()); // it was the typing that was discarded
        QCOMPARE(window.size->text(), "20");
        QCOMPARE(window.details->fontFamilyPopUpButton()->shownText(), "DejaVu Sans Mono");
        window.select({1});
        QCOMPARE(window.size->text(), "30");
        QCOMPARE(window.stack.count(), 0);
        Window::replaceText(window.size, "14");
        window.select({0}); // what was typed was meant for the other
        QCOMPARE(window.font(1).pointSizeF(), 14.0);
        QCOMPARE(window.font(0).pointSizeF(), 20.0);
        QCOMPARE(window.size->text(), "20");
        Window::press(Qt::Key_Escape);
        QVERIFY(!window.isOpen());
        QCOMPARE(window.stack.count(), 1);
    }
};

QTEST_MAIN(tst_ValueEditors)
#include "tst_ValueEditors.moc"
