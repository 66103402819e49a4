// SPDX-License-Identifier: MIT
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "FigureSheet.h"
#include "Text/ZelFontManager.h"

namespace {
using Window = Sheet;

const QString g_family = "DejaVu Sans";
const QString g_otherFamily = "DejaVu Serif";

/// A window with an editor of fonts, of which the second one is another one.
struct FontWindow : Window
{
    explicit FontWindow(const QFont &first = {g_family, 9}, const QByteArray &key = "font")
        : Window(row(key, "font"))
        , editor(Window::editor<ZelInspectorFontProperty>(key))
        , details(editor->popoverView())
        , size(details->fontSizeTextField())
    {
        set(0, "font", first);
        set(1, "font", QFont(g_otherFamily, 30));
        select({0});
    }
    QFont font(int figure) const { return figures[size_t(figure)]->font; }
    QString text() const { return editor->textField()->objectValue().toString(); }
    QString family() const { return ZelMenuItem::titleOf(details->fontFamilyPopUpButton()->selectedItem()); }
    QString style() const { return ZelMenuItem::titleOf(details->fontStylePopUpButton()->selectedItem()); }
    void open() const { click(editor->button()); }
    bool isOpen() const { return editor->popover()->isShown(); }

    ZelInspectorFontProperty *editor;
    ZelFontPopoverView *details;
    ZelTextField *size;
};

struct ColorWindow : Window
{
    ColorWindow()
        : Window(row("fill", "color", "colorList='Crayons'") + row("stroke", "color", "colorList='Crayons'") +
                 row("rich", "color") + row("text", "string", "attributed='yes'"))
    {
        select({0});
    }
    ZelColorPopUpButton *button(const char *key) const { return editor<ZelInspectorColorProperty>(key)->popUpButton(); }
    QColor color(int index, const char *key) const { return value(index, key).value<QColor>(); }
};

QColor recentColor()
{
    return ZelUsedColorList::sharedUsedColorList()->colors().first().toQColor();
}
} // namespace

/// What is special about the larger editors.
class tst_ValueEditors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void cleanup()
    {
        ZelColorPanel::sharedColorPanel()->close();
        QVERIFY(!ZelColorPanel::sharedColorPanel()->delegate());
    }

    void aRowIsAddedAndNamedInOneStep()
    {
        Window window(Window::row("tags", "custom", "class='ZelInspectorArrayProperty'"));
        auto *editor = window.editor<ZelInspectorArrayProperty>("tags");
        window.select({0, 1});
        for (const char *text : {"first", "second"}) {
            Window::click(editor->actionBar()->itemViews().at(0));
            Window::type(text);
            Window::press(Qt::Key_Return);
            window.settle();
        }
        Window::press(Qt::Key_F2);
        Window::type("third");
        Window::press(Qt::Key_Return);
        QCOMPARE(window.shown("tags"), "a b first third");
        for (const char *former : {"a b first second", "a b first", "a b"}) {
            window.undo();
            QCOMPARE(window.shown("tags"), former);
        }
        QVERIFY(!window.stack.canUndo());
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
        window.owner->names.append("Garden");
        Q_EMIT window.owner->valuesChanged();
        QCOMPARE(box->count(), 4);
        Window::enter(field, "ga");
        QCOMPARE(patterns(), "Garden Garden");
        Window::click(box, {box->width() - 6, box->height() / 2});
        QTRY_VERIFY(box->view()->isVisible());
        Window::click(box->view()->viewport(), box->view()->visualRect(box->model()->index(1, 0)).center());
        QTRY_COMPARE(patterns(), "Lines Lines");
        QCOMPARE(window.owner->actions, 3);
        QCOMPARE(window.stack.count(), 3);
    }

    void theFontPopoverIsOpenedUsedAndClosed()
    {
        QFont underlined(g_family, 9);
        underlined.setUnderline(true);
        FontWindow window(underlined);
        window.editor->button()->setFocus();
        Window::press(Qt::Key_Space);
        Window::choose(window.details->fontStylePopUpButton(), "Bold");
        QVERIFY(window.isOpen()); // a menu of its own does not close it
        Window::choose(window.details->fontFamilyPopUpButton(), g_otherFamily);
        QCOMPARE(window.text(), "DejaVu Serif Bold 9");
        QVERIFY(window.font(0).bold() && window.font(0).underline());
        QCOMPARE(window.owner->actions, 2);
        window.select({0, 1});
        Window::choose(window.details->fontFamilyPopUpButton(), "Multiple Families");
        QVERIFY(window.font(0) != window.font(1)); // no family to write
        Window::choose(window.details->fontFamilyPopUpButton(), g_otherFamily);
        QCOMPARE(window.font(0), window.font(1));
        QCOMPARE(ZelFontManager::familyOf(window.font(1)), g_otherFamily);
        QCOMPARE(window.font(1).pointSizeF(), QApplication::font().pointSizeF());
        Window::enter(window.size, "23");
        QVERIFY(window.font(0).pointSizeF() == 23 && window.font(1).pointSizeF() == 23);
        QCOMPARE(window.stack.count(), 4);
        Window::press(Qt::Key_Escape);
        QVERIFY(!window.isOpen());
        QCOMPARE(QApplication::focusWidget(), window.editor->button());
        for (int i = 0; i < 4; ++i)
            window.undo();
        QCOMPARE(window.text(), "Multiple Fonts");
        QCOMPARE(window.font(1), QFont(g_otherFamily, 30));
        window.open();
        Window::click(window.details->doneButton());
        QVERIFY(!window.isOpen());
        window.open();
        window.inspector->view()->setParent(nullptr); // taken out of its window
        QVERIFY(!window.isOpen());
    }

    void describesTheFont()
    {
        QFont rounded(g_family, 9, QFont::Bold, true), half = rounded, pixels = rounded;
        rounded.setPointSizeF(11.6);
        half.setPointSizeF(12.5);
        pixels.setPixelSize(20);
        QFont light = pixels;
        light.setStyleName("ExtraLight");
        const std::pair<QFont, QString> rows[] = {{QFont("Nowhere Grotesk", 12), "Nowhere Grotesk 12"},
                                                  {QFont(g_family, 9, QFont::Bold), "DejaVu Sans Bold 9"},
                                                  {rounded, "DejaVu Sans Bold Oblique 12"},
                                                  {half, "DejaVu Sans Bold Oblique 12"}, // to even
                                                  {pixels, "DejaVu Sans Bold Oblique 20"},
                                                  {light, "DejaVu Sans ExtraLight 20"}};
        FontWindow window;
        for (const auto &[font, text] : rows) {
            window.figures[0]->font = font;
            window.select({});
            window.select({0});
            QCOMPARE(window.text(), text);
            QCOMPARE(window.editor->fontSize().toDouble(), ZelFontManager::sizeOf(font));
            const bool isKnown = font.family() == g_family;
            QCOMPARE(window.family(), isKnown ? g_family : "No Selection");
            QCOMPARE(window.style(), isKnown ? ZelFontManager::faceOf(font) : "No Selection");
            QCOMPARE(window.editor->fontFaces(), ZelFontManager::availableFacesOfFamily(font.family()));
        }
    }

    void showsNoneAndMany()
    {
        FontWindow window;
        window.set(1, "font", QFont(g_family, 10));
        window.select({});
        const auto isDimmed = [&window] {
            return window.editor->textField()->palette().color(QPalette::Text) ==
                   ZelThemeColor::dimmed(QApplication::palette());
        };
        QVERIFY(isDimmed() && !window.editor->button()->isEnabled() && !window.editor->stepper()->isEditable());
        QCOMPARE(window.size->placeholderText(), "No Size");
        window.select({0, 1});
        QVERIFY(isDimmed() && window.editor->button()->isEnabled());
        QCOMPARE(window.family(), "Multiple Families");
        QCOMPARE(window.style(), "Multiple Styles");
        for (ZelPopUpButton *button : {window.details->fontFamilyPopUpButton(), window.details->fontStylePopUpButton()})
            QVERIFY(ZelIsControllerMarker(button->selectedItem()->data())); // which is drawn dimmed
        QVERIFY(window.details->multipleFontFamiliesMenuItem()->isVisible());
        QCOMPARE(window.size->placeholderText(), "Multiple Sizes");
        QVERIFY(ZelIsMarker(window.editor->fontSize(), ZelMultipleValuesMarker));
        window.figures[1]->setProperty("font", window.figures[0]->font);
        QTRY_COMPARE(window.text(), "DejaVu Sans Book 9");
        QVERIFY(!isDimmed() && window.editor->stepper()->isEditable());
        QVERIFY(!window.details->multipleFontFamiliesMenuItem()->isVisible());
        QCOMPARE(window.size->objectValue().toDouble(), 9.0);
    }

    void whatIsNoFont()
    {
        FontWindow window({}, "note");
        window.set(0, "note", "not a font");
        QCOMPARE(window.text(), "No Font");
        QVERIFY(!window.editor->button()->isEnabled());
        QCOMPARE(window.family(), "No Selection");
        window.editor->setFontSize(20);
        QCOMPARE(window.figures[0]->note().value<QFont>(), ZelFontManager::systemFontOfSize(20));
        const FontWindow texts({}, "pattern");
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("^ERROR: Cannot store a value of class QFont in .*pattern"));
        texts.editor->stepper()->stepBy(14);
        Window::settle();
        QCOMPARE(texts.figures[0]->pattern, "Dots");
        QCOMPARE(texts.stack.count(), 0);
        QVERIFY(ZelIsNull(texts.editor->stepper()->objectValue()));
    }

    void theSizeIsStepped()
    {
        FontWindow window(QFont(g_family, 9, QFont::Bold));
        window.editor->stepper()->stepBy(1);
        QCOMPARE(window.stack.count(), 1);
        QCOMPARE(window.owner->actions, 0);
        QTRY_COMPARE(window.text(), "DejaVu Sans Bold 10");
        window.editor->stepper()->stepBy(-13);
        QCOMPARE(window.figures[0]->font.pointSizeF(), 1.0);
        Window::settle();
        window.open();
        window.details->fontSizeStepper()->stepBy(1);
        QCOMPARE(window.figures[0]->font.pointSizeF(), 2.0);
        window.editor->selectDone(nullptr);
        window.select({0, 1});
        window.editor->stepper()->stepBy(14); // each font
        QCOMPARE(window.figures[0]->font, QFont(g_family, 16, QFont::Bold));
        QCOMPARE(window.figures[1]->font, QFont(g_otherFamily, 44));
        window.editor->setFontSize(14);
        for (const QVariant &size :
             QVariantList{QVariant(), 0, -4, qQNaN(), QVariant::fromValue(ZelMultipleValuesMarker)})
            window.editor->setFontSize(size);
        QCOMPARE(window.figures[1]->font, ZelFontManager::systemFontOfSize(14));
    }

    void desktopFonts()
    {
        QFont bold = QApplication::font();
        bold.setBold(true);
        const std::pair<int, QFont> rows[] = {
            {2, QApplication::font()},
            {3, ZelFontManager::systemFontOfSize(QApplication::font().pointSizeF() * 11 / 13)},
            {6, bold},
            {19, ZelFontManager::platformFont(ZelFontManager::UserFixedPitchFont)}};
        for (const auto &[row, font] : rows) {
            FontWindow window(QFont(g_family, 70));
            window.open();
            ZelPopUpButton *fonts = window.details->fontPopUpButton();
            const auto choose = [&](int index) {
                fonts->setSelectedIndex(index);
                ZelControlSupport::reportEdit(fonts);
                return window.details->fontFamilyPopUpButton()->isEnabled();
            };
            QVERIFY(!choose(row) && !window.details->fontSizeStepper()->isEnabled());
            QCOMPARE(window.figures[0]->font, font);
            QCOMPARE(window.stack.undoText(), "Change font");
            QVERIFY(choose(0)); // "Custom" leaves the font and gives the details free
            QCOMPARE(window.figures[0]->font, font);
            QVERIFY(!choose(row));
            Window::settle();
            window.stack.setIndex(0);
            Window::settle();
            QVERIFY(window.details->fontFamilyPopUpButton()->isEnabled());
            QCOMPARE(fonts->selectedIndex(), 0);
            QCOMPARE(fonts->items().size(), 20);
            for (int heading : {1, 5, 9})
                QVERIFY(!fonts->items().at(heading)->isEnabled());
            QCOMPARE(static_cast<ZelMenuItem *>(fonts->items().last())->tag(), 16);
        }
    }

    /// By a property that keeps it, and by one that keeps only the colour.
    void aColourOfThePaletteKeepsItsName()
    {
        ColorWindow window;
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

    void theColorPanelGoesFromEditorToEditor()
    {
        ColorWindow window;
        const auto isActive = [&](const char *key) { return window.button(key)->cell()->isColorPanelActive(); };
        window.edit("fill", "Other...");
        QColorDialog *panel = Window::colorPanel();
        QVERIFY(panel);
        QCOMPARE(panel->currentColor(), QColor(Qt::red));
        panel->setCurrentColor(QColor(1, 2, 3));
        QCOMPARE(window.color(0, "fill"), QColor(1, 2, 3));
        QCOMPARE(window.stack.undoText(), "Change fill");
        User::activate(panel);
        panel->findChild<QSpinBox *>()->setFocus();                             // which would keep the key for itself
        QTest::keyClick(panel->windowHandle(), Qt::Key_Z, Qt::ControlModifier); // in the window that it edits
        QCOMPARE(window.color(0, "fill"), QColor(Qt::red));
        QTest::keyClick(panel->windowHandle(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(window.color(0, "fill"), QColor(1, 2, 3));
        window.edit("stroke", "Other...");
        QCOMPARE(panel->currentColor(), QColor(Qt::black));
        panel->setCurrentColor(QColor(4, 5, 6));
        QCOMPARE(window.color(0, "stroke"), QColor(4, 5, 6));
        QVERIFY(!isActive("fill") && isActive("stroke"));
        auto *text = window.editor<ZelInspectorAttributedStringProperty>("text");
        const int segment = ZelInspectorAttributedStringProperty::TextColorSegment;
        Window::click(text->textView());
        Window::press(Qt::Key_A, Qt::ControlModifier);
        Window::click(text->segmentedControl(), text->segmentedControl()->segmentRect(segment).center());
        QVERIFY(!isActive("stroke"));
        panel->setCurrentColor(QColor(7, 8, 9));
        QCOMPARE(window.figures[0]->text.attributeAt(ZelAttributedString::ForegroundColor, 5),
                 QVariant(QColor(7, 8, 9)));
        QCOMPARE(window.color(0, "stroke"), QColor(4, 5, 6));
        window.edit("fill", "Other...");
        QVERIFY(!text->isColorPanelActive() && !text->segmentedControl()->isSegmentSelected(segment));
        QCOMPARE(panel->currentColor(), QColor(1, 2, 3));
        window.set(0, "fill", QColor(1, 2, 3, 40));
        QTRY_COMPARE(panel->currentColor(), QColor(1, 2, 3, 40));
        panel->setCurrentColor(QColor(9, 2, 3, 40));
        QCOMPARE(window.color(0, "fill"), QColor(9, 2, 3, 40));
        window.set(0, "fill", QColor(1, 2, 3));
        window.set(1, "fill", QColor(20, 30, 40));
        window.select({1}); // the panel goes on with what is selected now
        QCOMPARE(panel->currentColor(), QColor(20, 30, 40));
        panel->close();
        window.settle();
        QVERIFY(!isActive("fill"));
        QCOMPARE(recentColor(), QColor(20, 30, 40));
    }
};
QTEST_MAIN(tst_ValueEditors)
#include "tst_ValueEditors.moc"
