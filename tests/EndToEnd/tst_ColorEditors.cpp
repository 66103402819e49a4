// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/ZelUsedColorList.h"

#include <QSpinBox>

namespace {

using TextEditor = ZelInspectorAttributedStringProperty;

class Window : public Sheet
{
public:
    Window()
        : Sheet(row("fill", "color", "colorList='Crayons'") + row("stroke", "color", "colorList='Crayons'") +
                row("rich", "color") + row("text", "string", "attributed='yes'"))
        , fill(button("fill"))
        , stroke(button("stroke"))
    {
    }
    ZelColorPopUpButton *button(const char *key) const { return editor<ZelInspectorColorProperty>(key)->popUpButton(); }
    QColor color(int index, const char *key) const { return value(index, key).value<QColor>(); }

    ZelColorPopUpButton *fill;
    ZelColorPopUpButton *stroke;
};

QColor recentColor()
{
    return ZelUsedColorList::sharedUsedColorList()->colors().first().toQColor();
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

    void theMenuByKeys()
    {
        Window window;
        window.select({0});
        window.fill->setFocus();
        Window::press(Qt::Key_Space);
        const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(ZelMenuItem::titleOf(menu->activeAction()), "Red");
        Window::press(Qt::Key_Down);
        const QString next = ZelMenuItem::titleOf(menu->activeAction());
        QVERIFY(next != "Red");
        Window::press(Qt::Key_Return);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.shown("fill"), next);
        QVERIFY(window.color(0, "fill") != Qt::red && window.color(1, "fill") == Qt::red);
        Window::press(Qt::Key_Space);
        Window::press(Qt::Key_Down);
        Window::press(Qt::Key_Escape);
        window.edit("fill", next); // the same again
        QCOMPARE(window.shown("fill"), next);
        QCOMPARE(window.stack.count(), 1);
    }

    /// By a property that keeps it, and by one that keeps only the colour.
    void aColourOfThePaletteKeepsItsName()
    {
        Window window;
        window.select({0});
        window.edit("rich", "Grid Color");
        QCOMPARE(window.figures[0]->rich.key(), "gridColor");
        QCOMPARE(window.shown("rich"), "Grid Color");
        Sheet plain(Sheet::row("fill", "color"));
        plain.select({0});
        for (int i = 0; i < 2; ++i)
            plain.edit("fill", "Grid Color");
        QCOMPARE(plain.figures[0]->fill, ZelColor::named("System", "gridColor").toQColor());
        QCOMPARE(plain.stack.count(), 1);
    }

    void theRecentColoursAreSharedByAllButtons()
    {
        Window window;
        window.select({0, 2});
        window.edit("fill", "Magenta");
        const QColor magenta = window.color(0, "fill");
        QCOMPARE(recentColor(), magenta);
        QMenu *menu = Window::openMenu(window.stroke);
        QVERIFY(menu);
        auto *matrix = menu->findChild<ZelColorMatrix *>();
        QVERIFY(matrix && matrix->isVisible());
        Window::click(matrix, matrix->rectOfCell(0).center());
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QVERIFY(window.color(0, "stroke") == magenta && window.color(2, "stroke") == magenta);
        QCOMPARE(window.shown("stroke"), "Magenta");
        QCOMPARE(window.stack.undoText(), "Change stroke");

        window.edit("fill", "Green");
        const QColor green = window.color(0, "fill");
        menu = Window::openMenu(window.stroke); // now by keyboard: up from the first colour of the list
        QVERIFY(menu && green != magenta);
        matrix = menu->findChild<ZelColorMatrix *>();
        for (int i = 0; i < 40 && !matrix->hasFocus(); ++i)
            Window::press(Qt::Key_Up);
        QVERIFY(matrix->hasFocus());
        QCOMPARE(matrix->colorAtIndex(0).toQColor(), green);
        while (matrix->highlightedCell() >= ZelColorMatrix::numberOfColumns)
            Window::press(Qt::Key_Up);
        while (matrix->highlightedCell() > 0)
            Window::press(Qt::Key_Left);
        Window::press(Qt::Key_Return);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.color(2, "stroke"), green);
    }

    void thePanelGoesFromEditorToEditor()
    {
        Window window;
        window.select({0});
        window.edit("fill", "Other...");
        QColorDialog *panel = Window::colorPanel();
        QVERIFY(panel);
        QCOMPARE(panel->currentColor(), QColor(Qt::red));
        panel->setCurrentColor(QColor(1, 2, 3));
        QCOMPARE(window.color(0, "fill"), QColor(1, 2, 3));
        QCOMPARE(window.stack.undoText(), "Change fill");
        panel->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(panel));
        panel->findChild<QSpinBox *>()->setFocus();                             // which would keep the key for itself
        QTest::keyClick(panel->windowHandle(), Qt::Key_Z, Qt::ControlModifier); // in the window that it edits
        QCOMPARE(window.color(0, "fill"), QColor(Qt::red));
        QTest::keyClick(panel->windowHandle(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(window.color(0, "fill"), QColor(1, 2, 3));

        window.edit("stroke", "Other...");
        QCOMPARE(panel->currentColor(), QColor(Qt::black));
        panel->setCurrentColor(QColor(4, 5, 6));
        QCOMPARE(window.color(0, "fill"), QColor(1, 2, 3));
        QCOMPARE(window.color(0, "stroke"), QColor(4, 5, 6));
        QVERIFY(!window.fill->cell()->isColorPanelActive());

        auto *text = window.editor<TextEditor>("text");
        Window::click(text->textView());
        Window::press(Qt::Key_A, Qt::ControlModifier);
        Window::click(text->segmentedControl(),
                      text->segmentedControl()->segmentRect(TextEditor::TextColorSegment).center());
        QVERIFY(!window.stroke->cell()->isColorPanelActive());
        panel->setCurrentColor(QColor(7, 8, 9));
        QCOMPARE(window.figures[0]->text.attributeAt(ZelAttributedString::ForegroundColor, 5),
                 QVariant(QColor(7, 8, 9)));
        QCOMPARE(window.color(0, "stroke"), QColor(4, 5, 6));

        window.edit("fill", "Other...");
        QVERIFY(!text->isColorPanelActive());
        QVERIFY(!text->segmentedControl()->isSegmentSelected(TextEditor::TextColorSegment));
        QCOMPARE(panel->currentColor(), QColor(1, 2, 3));
        window.set(1, "fill", QColor(20, 30, 40));
        window.select({1}); // the panel goes on with what is selected now
        QCOMPARE(panel->currentColor(), QColor(20, 30, 40));
        QCOMPARE(window.color(0, "fill"), QColor(1, 2, 3));

        panel->close();
        window.settle();
        QVERIFY(!window.fill->cell()->isColorPanelActive());
        panel->setCurrentColor(QColor(90, 90, 90)); // nobody's
        QCOMPARE(window.color(1, "fill"), QColor(20, 30, 40));
        QCOMPARE(recentColor(), QColor(20, 30, 40));
    }
};

QTEST_MAIN(tst_ColorEditors)
#include "tst_ColorEditors.moc"
