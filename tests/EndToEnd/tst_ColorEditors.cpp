// SPDX-License-Identifier: MIT
#include "Sheet.h"

#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/ZelUsedColorList.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"

#include <QColorDialog>

namespace {

using ColorEditor = ZelInspectorColorProperty;
using TextEditor = ZelInspectorAttributedStringProperty;

QByteArray rows()
{
    return SheetWindow::row("fill", "color", "colorList='Crayons'") +
           SheetWindow::row("stroke", "color", "colorList='Crayons'") +
           SheetWindow::row("text", "string", "attributed='yes'");
}

ZelColorPopUpButton *button(const SheetWindow &window, const char *key)
{
    return window.editor<ColorEditor>(key)->popUpButton();
}

/// The panel, once it is open.
QColorDialog *openPanel()
{
    ZelColorPanel *panel = ZelColorPanel::sharedColorPanel();
    if (!QTest::qWaitFor([panel] { return panel->isVisible(); }))
        return nullptr;
    auto *dialog = qobject_cast<QColorDialog *>(panel->window());
    return QTest::qWaitForWindowExposed(dialog) ? dialog : nullptr;
}

void clickSegment(const TextEditor *editor, int segment)
{
    ZelSegmentedControl *bar = editor->segmentedControl();
    SheetWindow::click(bar, bar->segmentRect(segment).center());
}

} // namespace

/// Choosing colours from menus and in the colour panel, which several editors share.
class tst_ColorEditors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup()
    {
        ZelColorPanel::sharedColorPanel()->close();
        QVERIFY(!ZelColorPanel::sharedColorPanel()->delegate());
    }

    void theMenuByMouseAndByKeyboard()
    {
        SheetWindow window(rows());
        window.set(1, "fill", QColor(Qt::green));
        window.select({0, 1});
        ZelColorPopUpButton *fill = button(window, "fill");
        QCOMPARE(fill->shownText(), QStringLiteral("Multiple Values"));
        SheetWindow::choose(fill, QStringLiteral("Blue"));
        QCOMPARE(window.value(0, "fill"), QVariant(QColor(Qt::blue)));
        QCOMPARE(window.value(1, "fill"), QVariant(QColor(Qt::blue)));
        QCOMPARE(window.stack.count(), 1);
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change fill"));
        QCOMPARE(window.owner->actions, 1);
        window.undo();
        QCOMPARE(window.value(0, "fill"), QVariant(QColor(Qt::red)));
        QCOMPARE(window.value(1, "fill"), QVariant(QColor(Qt::green)));

        window.select({0});
        fill->setFocus();
        SheetWindow::press(Qt::Key_Space);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(ZelMenuItem::titleOf(menu->activeAction()), QStringLiteral("Red"));
        SheetWindow::press(Qt::Key_Down);
        const QString next = ZelMenuItem::titleOf(menu->activeAction());
        QVERIFY(next != QStringLiteral("Red"));
        SheetWindow::press(Qt::Key_Return);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(fill->shownText(), next);
        QVERIFY(window.value(0, "fill") != QVariant(QColor(Qt::red)));
        QCOMPARE(window.value(1, "fill"), QVariant(QColor(Qt::green)));
        SheetWindow::press(Qt::Key_Space);
        SheetWindow::press(Qt::Key_Down);
        SheetWindow::press(Qt::Key_Escape);
        QCOMPARE(fill->shownText(), next);
        QCOMPARE(window.stack.count(), 1);
    }

    void theRecentColoursAreSharedByAllButtons()
    {
        SheetWindow window(rows());
        window.select({0, 2});
        SheetWindow::choose(button(window, "fill"), QStringLiteral("Magenta"));
        const QColor magenta = window.value(0, "fill").value<QColor>();
        QCOMPARE(ZelUsedColorList::sharedUsedColorList()->colors().first().toQColor(), magenta);
        QMenu *menu = SheetWindow::openMenu(button(window, "stroke"));
        QVERIFY(menu);
        auto *matrix = menu->findChild<ZelColorMatrix *>();
        QVERIFY(matrix && matrix->isVisible());
        SheetWindow::click(matrix, matrix->rectOfCell(0).center());
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.value(0, "stroke"), QVariant(magenta));
        QCOMPARE(window.value(2, "stroke"), QVariant(magenta));
        QCOMPARE(button(window, "stroke")->shownText(), QStringLiteral("Magenta"));
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change stroke"));

        SheetWindow::choose(button(window, "fill"), QStringLiteral("Green"));
        menu = SheetWindow::openMenu(button(window, "stroke")); // now by keyboard: up from the first colour of the list
        QVERIFY(menu);
        matrix = menu->findChild<ZelColorMatrix *>();
        for (int i = 0; i < 40 && !matrix->hasFocus(); ++i)
            SheetWindow::press(Qt::Key_Up);
        QVERIFY(matrix->hasFocus());
        const QVariant green = window.value(0, "fill");
        QVERIFY(green != QVariant(magenta));
        QCOMPARE(QVariant(matrix->colorAtIndex(0).toQColor()), green);
        while (matrix->highlightedCell() >= ZelColorMatrix::numberOfColumns)
            SheetWindow::press(Qt::Key_Up);
        while (matrix->highlightedCell() > 0)
            SheetWindow::press(Qt::Key_Left);
        SheetWindow::press(Qt::Key_Return);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.value(2, "stroke"), green);
    }

    void thePanelGoesFromEditorToEditor()
    {
        SheetWindow window(rows());
        window.select({0});
        SheetWindow::choose(button(window, "fill"), QStringLiteral("Other..."));
        QColorDialog *panel = openPanel();
        QVERIFY(panel);
        QCOMPARE(panel->currentColor(), QColor(Qt::red));
        panel->setCurrentColor(QColor(1, 2, 3));
        QCOMPARE(window.value(0, "fill"), QVariant(QColor(1, 2, 3)));
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change fill"));

        SheetWindow::choose(button(window, "stroke"), QStringLiteral("Other..."));
        QCOMPARE(panel->currentColor(), QColor(Qt::black));
        panel->setCurrentColor(QColor(4, 5, 6));
        QCOMPARE(window.value(0, "fill"), QVariant(QColor(1, 2, 3)));
        QCOMPARE(window.value(0, "stroke"), QVariant(QColor(4, 5, 6)));
        QVERIFY(!button(window, "fill")->cell()->isColorPanelActive());

        auto *text = window.editor<TextEditor>("text");
        SheetWindow::click(text->textView());
        SheetWindow::press(Qt::Key_A, Qt::ControlModifier);
        clickSegment(text, TextEditor::TextColorSegment);
        QVERIFY(!button(window, "stroke")->cell()->isColorPanelActive());
        panel->setCurrentColor(QColor(7, 8, 9));
        QCOMPARE(window.figures[0]->text.attributeAt(ZelAttributedString::ForegroundColor, 5),
                 QVariant(QColor(7, 8, 9)));
        QCOMPARE(window.value(0, "stroke"), QVariant(QColor(4, 5, 6)));

        SheetWindow::choose(button(window, "fill"), QStringLiteral("Other..."));
        QVERIFY(!text->isColorPanelActive());
        QVERIFY(!text->segmentedControl()->isSegmentSelected(TextEditor::TextColorSegment));
        QCOMPARE(panel->currentColor(), QColor(1, 2, 3));
        window.set(1, "fill", QColor(20, 30, 40));
        window.select({1}); // the panel goes on with what is selected now
        QCOMPARE(panel->currentColor(), QColor(20, 30, 40));
        QCOMPARE(window.value(0, "fill"), QVariant(QColor(1, 2, 3)));

        panel->close();
        window.settle();
        QVERIFY(!button(window, "fill")->cell()->isColorPanelActive());
        panel->setCurrentColor(QColor(90, 90, 90)); // nobody's
        QCOMPARE(window.value(1, "fill"), QVariant(QColor(20, 30, 40)));
        QCOMPARE(ZelUsedColorList::sharedUsedColorList()->colors().first().toQColor(), QColor(20, 30, 40));
    }

    void whatEndsWhileItIsOpen_data()
    {
        QTest::addColumn<bool>("isText");
        QTest::addColumn<bool>("isMenu");
        QTest::addColumn<QString>("what");
        for (const char *what : {"window", "inspector", "view", "figures", "owner"}) {
            const QString end = QString::fromLatin1(what);
            QTest::addRow("%s, menu", what) << false << true << end;
            QTest::addRow("%s, panel of a button", what) << false << false << end;
            QTest::addRow("%s, panel of a text", what) << true << false << end;
        }
    }
    void whatEndsWhileItIsOpen()
    {
        QFETCH(bool, isText);
        QFETCH(bool, isMenu);
        QFETCH(QString, what);
        auto window = std::make_unique<SheetWindow>(rows());
        window->select({0, 1});
        if (isText)
            clickSegment(window->editor<TextEditor>("text"), TextEditor::TextColorSegment);
        else if (isMenu)
            QVERIFY(SheetWindow::openMenu(button(*window, "stroke")));
        else
            SheetWindow::choose(button(*window, "stroke"), QStringLiteral("Other..."));
        QColorDialog *panel = isMenu ? nullptr : openPanel();
        QVERIFY(isMenu || panel);
        SheetWindow::end(window, what);
        if (panel) {
            panel->setCurrentColor(QColor(9, 9, 9));
            panel->close();
        }
        if (QWidget *popup = QApplication::activePopupWidget())
            QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
        SheetWindow::settle();
        QVERIFY(!QApplication::activePopupWidget());
        if (window && window->figures.size() == 3) {
            QCOMPARE(window->value(0, "stroke"), QVariant(QColor(Qt::black)));
            QCOMPARE(window->figures[0]->text, ZelAttributedString(QStringLiteral("one\ntwo")));
        }
    }

    void anActionThatEndsTheWindow()
    {
        auto window = std::make_unique<SheetWindow>(rows());
        window->select({0});
        ZelColorPopUpButton *fill = button(*window, "fill");
        connect(window->figures[0].get(), &Figure::fillChanged, this, [&] { window.release()->deleteLater(); });
        SheetWindow::choose(fill, QStringLiteral("Blue"));
        QTRY_VERIFY(!window);
        SheetWindow::settle();
    }
};

QTEST_MAIN(tst_ColorEditors)
#include "moc_Sheet.cpp"
#include "tst_ColorEditors.moc"
