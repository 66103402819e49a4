// SPDX-License-Identifier: MIT
#include "Sheet.h"

#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorPointProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"

#include <QAbstractItemView>
#include <QLineEdit>

namespace {

using Window = SheetWindow;
using ArrayEditor = ZelInspectorArrayProperty;
using FontEditor = ZelInspectorFontProperty;
using FrameEditor = ZelInspectorBoundsProperty;

QString rowsOf(const ArrayEditor *editor)
{
    QStringList texts;
    for (int row = 0; row < editor->numberOfRows(); ++row)
        texts.append(editor->tableView()->model()->index(row, 0).data().toString());
    return texts.join(u' ');
}

QPoint placeOfRow(const ArrayEditor *editor, int row)
{
    const QTableView *table = editor->tableView();
    return table->viewport()->mapTo(table, table->visualRect(table->model()->index(row, 0)).center());
}

void clickRow(const ArrayEditor *editor, int row, Qt::KeyboardModifiers modifiers = {})
{
    Window::click(editor->tableView(), placeOfRow(editor, row), modifiers);
}

void clickAdd(const ArrayEditor *editor)
{
    Window::click(editor->actionBar()->itemViews().at(0));
}

void clickRemove(const ArrayEditor *editor)
{
    Window::click(editor->actionBar()->itemViews().at(1));
}

/// An editor of a font, with its popover open.
FontEditor *openFontPopover(const Window &window)
{
    auto *editor = window.editor<FontEditor>("font");
    Window::click(editor->button());
    return editor;
}

} // namespace

/// What is special about the larger editors.
class tst_ValueEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void theArrayTableIsEditedInPlace()
    {
        Window window(Window::allRows());
        auto *editor = window.editor<ArrayEditor>("tags");
        window.select({0, 1});
        clickAdd(editor);
        clickAdd(editor);
        QCOMPARE(rowsOf(editor), QStringLiteral("a b Item Item"));
        clickRow(editor, 1);
        Window::doubleClick(editor->tableView(), placeOfRow(editor, 1));
        const QPointer<QLineEdit> field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(field && editor->tableView()->isAncestorOf(field));
        Window::type(QStringLiteral("beta"));
        for (int figure : {0, 1})
            window.figures[size_t(figure)]->setProperty("tags", QStringLiteral("x b z").split(u' '));
        window.settle();
        QVERIFY(field);
        QCOMPARE(field->text(), QStringLiteral("beta"));
        Window::press(Qt::Key_Return);
        QCOMPARE(window.figures[0]->tags.join(u' '), QStringLiteral("x beta z"));
        QCOMPARE(window.figures[1]->tags, window.figures[0]->tags);
        QCOMPARE(rowsOf(editor), QStringLiteral("x beta z"));

        clickRow(editor, 0);
        Window::press(Qt::Key_F2);
        Window::type(QStringLiteral("dropped"));
        Window::press(Qt::Key_Escape);
        QCOMPARE(rowsOf(editor), QStringLiteral("x beta z"));
        QCOMPARE(window.stack.count(), 3);

        clickRow(editor, 0);
        clickRow(editor, 2, Qt::ControlModifier);
        clickRemove(editor);
        QCOMPARE(window.figures[1]->tags.join(u' '), QStringLiteral("beta"));
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change tags"));
        for (const char *former : {"x beta z", "x b z", "a b Item", "a b"}) {
            window.undo();
            QCOMPARE(window.figures[0]->tags.join(u' '), QString::fromUtf8(former));
            QCOMPARE(window.figures[1]->tags, window.figures[0]->tags);
            QCOMPARE(rowsOf(editor), QString::fromUtf8(former));
        }
        QVERIFY(!window.stack.canUndo());
    }

    void aCellBelongsToTheListThatItWasOpenedIn()
    {
        Window window(Window::allRows());
        auto *editor = window.editor<ArrayEditor>("tags");
        window.select({0, 1});
        clickRow(editor, 0);
        Window::press(Qt::Key_F2);
        Window::type(QStringLiteral("alpha"));
        window.select({2}); // whose list is the same
        QCOMPARE(rowsOf(editor), QStringLiteral("a b"));
        QCOMPARE(window.figures[0]->tags.join(u' '), QStringLiteral("alpha b"));
        QCOMPARE(window.figures[1]->tags, window.figures[0]->tags);
        QCOMPARE(QApplication::focusWidget(), editor->tableView());
        Window::press(Qt::Key_Return);
        QCOMPARE(window.figures[2]->tags.join(u' '), QStringLiteral("a b"));
        QCOMPARE(window.stack.count(), 1);
    }

    void aPointIsTypedNumberByNumber()
    {
        Window window(Window::row("place", "custom", "class='ZelInspectorPointProperty'"));
        window.set(1, "place", QPointF(3, 9));
        const auto *editor = window.editor<ZelInspectorPointProperty>("place");
        const ZelTextField *x = editor->xProperty()->textField();
        ZelTextField *y = editor->yProperty()->textField();
        QCOMPARE(x->placeholderText(), QStringLiteral("No Selection"));
        Window::click(editor->xProperty()->textField());
        Window::type(QStringLiteral("5"));
        QCOMPARE(x->text(), QString());

        window.select({0});
        QCOMPARE(x->text() + u' ' + y->text(), QStringLiteral("1 2"));
        Window::replaceText(editor->xProperty()->textField(), QStringLiteral("3"));
        Window::press(Qt::Key_Tab);
        while (QApplication::focusWidget() != y) // past the stepper
            Window::press(Qt::Key_Tab);
        Window::type(QStringLiteral("-7.5"));
        Window::press(Qt::Key_Return);
        QCOMPARE(window.figures[0]->place, QPointF(3, -7.5));
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change place"));

        window.select({0, 1});
        QCOMPARE(x->text() + u' ' + y->text() + y->placeholderText(), QStringLiteral("3 Multiple Values"));
        Window::replaceText(y, QStringLiteral("4"));
        Window::press(Qt::Key_Return);
        QCOMPARE(window.figures[0]->place, QPointF(3, 4));
        QCOMPARE(window.figures[1]->place, QPointF(3, 4));
        QCOMPARE(y->text(), QStringLiteral("4"));
        editor->xProperty()->stepper()->setFocus();
        Window::press(Qt::Key_Up);
        QCOMPARE(window.figures[1]->place, QPointF(4, 4));
        Window::replaceText(y, QStringLiteral("8"));
        window.select({2}); // it was typed for the others
        QCOMPARE(x->text() + u' ' + y->text(), QStringLiteral("1 2"));
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
        Window window(Window::allRows());
        window.set(1, "frame", QRectF(0, 0, 60, 50));
        window.select({0, 1});
        auto *editor = window.editor<FrameEditor>("frame");
        ZelOriginSelectionView *picker = editor->originSelectionView();
        Window::click(picker, {picker->width() - 6, picker->height() / 2});
        QCOMPARE(editor->anchor(), ZelOriginMiddleRight);
        window.select({0});
        QCOMPARE(editor->originXProperty()->textField()->text(), QStringLiteral("110"));
        QCOMPARE(editor->originYProperty()->textField()->text(), QStringLiteral("45"));
        QCOMPARE(window.stack.count(), 0);

        window.select({0, 1});
        Window::replaceText(editor->sizeWidthProperty()->textField(), QStringLiteral("40"));
        Window::press(Qt::Key_Return);
        QCOMPARE(window.figures[0]->frame, QRectF(70, 20, 40, 50));
        QCOMPARE(window.figures[1]->frame, QRectF(20, 0, 40, 50));
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change Width"));

        picker->setFocus();
        Window::press(Qt::Key_Left);
        Window::press(Qt::Key_Down);
        Window::press(Qt::Key_Down);
        QCOMPARE(editor->anchor(), ZelOriginBottomCenter);
        Window::replaceText(editor->sizeHeightProperty()->textField(), QStringLiteral("10"));
        Window::press(Qt::Key_Return);
        QCOMPARE(window.stack.count(), 2);
        const bool isFlipped = editor->flipped().toBool();
        QCOMPARE(window.figures[0]->frame, QRectF(70, isFlipped ? 60 : 20, 40, 10));
        window.undo();
        window.undo();
        QCOMPARE(window.figures[0]->frame, QRectF(10, 20, 100, 50));
        QCOMPARE(window.figures[1]->frame, QRectF(0, 0, 60, 50));
    }

    void aResourceIsCompletedFromTheList()
    {
        Window window(Window::allRows());
        window.select({0, 1});
        auto *box = window.editor<ZelInspectorResourceProperty>("pattern")->comboBox();
        ZelTextField *field = box->textField();
        Window::replaceText(field, QStringLiteral("wa"));
        QCOMPARE(field->text().toLower(), QStringLiteral("waves"));
        Window::press(Qt::Key_Tab);
        QCOMPARE(window.value(1, "pattern").toString(), QStringLiteral("Waves"));
        QVERIFY(QApplication::focusWidget() != field);
        QCOMPARE(window.stack.count(), 1);
        Window::replaceText(field, QStringLiteral("Zigzag"));
        Window::press(Qt::Key_Return);
        QCOMPARE(window.value(0, "pattern").toString(), QStringLiteral("Zigzag"));
        Window::replaceText(field, QStringLiteral("do"));
        Window::press(Qt::Key_Return);
        QCOMPARE(window.value(1, "pattern").toString(), QStringLiteral("Dots"));
        QCOMPARE(window.stack.count(), 3);
        Window::click(box, {box->width() - 6, box->height() / 2});
        QTRY_VERIFY(box->view()->isVisible());
        Window::click(box->view()->viewport(), box->view()->visualRect(box->model()->index(1, 0)).center());
        QTRY_COMPARE(window.value(0, "pattern").toString(), QStringLiteral("Lines"));
        QCOMPARE(window.value(1, "pattern").toString(), QStringLiteral("Lines"));
    }

    void aDateIsTyped()
    {
        Window window(Window::allRows());
        window.set(1, "day", QDate(2020, 2, 29));
        ZelDatePicker *picker = window.editor<ZelInspectorDateProperty>("day")->datePicker();
        window.select({1});
        Window::click(picker, {8, picker->height() / 2});
        picker->setSelectedSection(QDateTimeEdit::YearSection);
        Window::type(QStringLiteral("2021")); // which has no such day
        Window::press(Qt::Key_Tab);
        QCOMPARE(window.figures[1]->day, QDate(2021, 2, 28));
        QVERIFY(QApplication::focusWidget() != picker);
        window.select({0, 1});
        picker->setFocus();
        Window::type(QStringLiteral("9"));
        Window::press(Qt::Key_Escape);
        QCOMPARE(picker->text(), QStringLiteral("Multiple Values"));
        QCOMPARE(window.stack.count(), 1);
        Window::press(Qt::Key_Up); // begins with the present day
        QCOMPARE(window.figures[0]->day, QDate::currentDate());
        QCOMPARE(window.figures[1]->day, QDate::currentDate());
        window.undo();
        QCOMPARE(window.figures[1]->day, QDate(2021, 2, 28));
        QCOMPARE(window.figures[0]->day, QDate(2024, 5, 6));
        Window::press(Qt::Key_A, Qt::ControlModifier);
        Window::press(Qt::Key_Delete);
        Window::press(Qt::Key_Tab);
        QVERIFY(window.figures[0]->day.isNull() && window.figures[1]->day.isNull());
        window.undo();
        QCOMPARE(window.figures[0]->day, QDate(2024, 5, 6));
    }

    void theFontPopoverIsOpenedUsedAndClosed()
    {
        Window window(Window::allRows());
        window.set(1, "font", QFont(QStringLiteral("DejaVu Serif"), 30));
        window.select({0, 1});
        auto *editor = window.editor<FontEditor>("font");
        editor->button()->setFocus();
        Window::press(Qt::Key_Space);
        QVERIFY(editor->popover()->isShown());
        const ZelFontPopoverView *details = editor->popoverView();
        Window::choose(details->fontFamilyPopUpButton(), QStringLiteral("DejaVu Serif"));
        QVERIFY(editor->popover()->isShown()); // a menu of its own does not close it
        Window::replaceText(details->fontSizeTextField(), QStringLiteral("23"));
        Window::press(Qt::Key_Return);
        Window::choose(details->fontStylePopUpButton(), QStringLiteral("Bold"));
        for (int figure : {0, 1})
            QCOMPARE(window.figures[size_t(figure)]->font.pointSizeF(), 23.0);
        QCOMPARE(editor->textField()->text(), QStringLiteral("DejaVu Serif Bold 23"));
        QCOMPARE(window.stack.count(), 3);
        Window::press(Qt::Key_Escape);
        QVERIFY(!editor->popover()->isShown());
        QCOMPARE(QApplication::focusWidget(), editor->button());
        for (int i = 0; i < 3; ++i)
            window.undo();
        QCOMPARE(window.figures[0]->font, QFont(QStringLiteral("DejaVu Sans"), 9));
        QCOMPARE(window.figures[1]->font, QFont(QStringLiteral("DejaVu Serif"), 30));
        QCOMPARE(editor->textField()->text(), QStringLiteral("Multiple Fonts"));
    }

    void aClickOutsideTakesWhatWasTypedInThePopover()
    {
        Window window(Window::allRows());
        window.select({0});
        FontEditor *editor = openFontPopover(window);
        Window::replaceText(editor->popoverView()->fontSizeTextField(), QStringLiteral("14"));
        const QPointer<QWidget> popup = QApplication::activePopupWidget();
        QVERIFY(popup);
        QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {}, {-40, -40});
        window.settle();
        QVERIFY(!editor->popover()->isShown() && !QApplication::activePopupWidget());
        QCOMPARE(window.figures[0]->font.pointSizeF(), 14.0);
        QCOMPARE(window.stack.count(), 1);
        openFontPopover(window);
        QVERIFY(editor->popover()->isShown());
        QTest::mouseClick(QApplication::activePopupWidget()->windowHandle(), Qt::LeftButton, {},
                          editor->button()->mapToGlobal(editor->button()->rect().center()) -
                              QApplication::activePopupWidget()->pos());
        window.settle();
        QVERIFY(!editor->popover()->isShown()); // and not opened again
    }

    void theSelectionAndTheModelChangeUnderThePopover()
    {
        Window window(Window::allRows());
        window.set(1, "font", QFont(QStringLiteral("DejaVu Serif"), 30));
        window.select({0});
        FontEditor *editor = openFontPopover(window);
        ZelTextField *size = editor->popoverView()->fontSizeTextField();
        Window::replaceText(size, QStringLiteral("12"));
        window.set(0, "font", QFont(QStringLiteral("DejaVu Sans Mono"), 20));
        QCOMPARE(size->text(), QStringLiteral("12"));
        Window::press(Qt::Key_Escape);
        QVERIFY(editor->popover()->isShown()); // it was the typing that was discarded
        QCOMPARE(size->text(), QStringLiteral("20"));
        QCOMPARE(editor->popoverView()->fontFamilyPopUpButton()->shownText(), QStringLiteral("DejaVu Sans Mono"));
        window.select({1});
        QCOMPARE(size->text(), QStringLiteral("30"));
        QCOMPARE(window.stack.count(), 0);
        Window::replaceText(size, QStringLiteral("14"));
        window.select({0}); // what was typed was meant for the other
        QCOMPARE(window.figures[1]->font.pointSizeF(), 14.0);
        QCOMPARE(window.figures[0]->font.pointSizeF(), 20.0);
        QCOMPARE(size->text(), QStringLiteral("20"));
        Window::press(Qt::Key_Escape);
        QVERIFY(!editor->popover()->isShown());
        QCOMPARE(window.stack.count(), 1);
    }

    void thePopoverEndsWithWhatItIsFor_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<bool>("inAMenu");
        for (const char *what : {"window", "inspector", "view", "figures", "owner", "hidden"}) {
            QTest::addRow("%s", what) << QString::fromLatin1(what) << false;
            QTest::addRow("%s, with a menu", what) << QString::fromLatin1(what) << true;
        }
    }
    void thePopoverEndsWithWhatItIsFor()
    {
        QFETCH(QString, what);
        QFETCH(bool, inAMenu);
        auto window = std::make_unique<Window>(Window::allRows());
        window->select({0, 1});
        FontEditor *editor = openFontPopover(*window);
        Window::replaceText(editor->popoverView()->fontSizeTextField(), QStringLiteral("44"));
        if (inAMenu)
            QVERIFY(Window::openMenu(editor->popoverView()->fontFamilyPopUpButton()));
        Window::end(window, what);
        while (QWidget *popup = QApplication::activePopupWidget()) // what needs no owner may stay
            QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
        Window::settle();
        if (window && window->inspector && what == QStringLiteral("hidden"))
            QVERIFY(!editor->popover()->isShown());
    }
};

QTEST_MAIN(tst_ValueEditors)
#include "moc_Sheet.cpp"
#include "tst_ValueEditors.moc"
