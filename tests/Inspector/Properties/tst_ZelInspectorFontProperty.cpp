// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorFontProperty.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/ZelValues.h"
#include "FigureWindow.h"
#include "Text/ZelFontManager.h"

namespace {

const QString g_family = "DejaVu Sans";
const QString g_otherFamily = "DejaVu Serif";

struct Window : FigureWindow
{
    explicit Window(const QString &key = "font")
        : editor(edit<ZelInspectorFontProperty>(key))
        , details(editor->popoverView())
    {
    }
    QString text() const { return editor->textField()->objectValue().toString(); }
    QString family() const { return ZelMenuItem::titleOf(details->fontFamilyPopUpButton()->selectedItem()); }
    QString style() const { return ZelMenuItem::titleOf(details->fontStylePopUpButton()->selectedItem()); }
    /// As a user does: every item reports, also the one that is selected.
    static void choose(ZelPopUpButton *button, const QString &title)
    {
        for (QAction *item : button->items()) {
            if (ZelMenuItem::titleOf(item).trimmed() == title && item->isEnabled()) {
                button->selectItem(item);
                ZelControlSupport::reportEdit(button);
                settle();
                return;
            }
        }
        QFAIL(qPrintable(title));
    }

    ZelInspectorFontProperty *editor;
    ZelFontPopoverView *details;
};

} // namespace

class tst_ZelInspectorFontProperty : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(ZelFontManager::availableFontFamilies().contains(g_family)); }

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
        Window window;
        for (const auto &[font, text] : rows) {
            window.first.font = font;
            window.select({});
            window.select({&window.first});
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
        Window window;
        window.second.font = QFont(g_family, 10);
        const ZelTextField *size = window.details->fontSizeTextField();
        const auto isDimmed = [&window] {
            return window.editor->textField()->palette().color(QPalette::Text) ==
                   ZelThemeColor::dimmed(QApplication::palette());
        };
        QVERIFY(isDimmed() && !window.editor->button()->isEnabled() && !window.editor->stepper()->isEditable());
        QCOMPARE(size->placeholderText(), "No Size");
        window.select({&window.first, &window.second});
        QVERIFY(isDimmed() && window.editor->button()->isEnabled());
        QCOMPARE(window.family(), "Multiple Families");
        QCOMPARE(window.style(), "Multiple Styles");
        for (ZelPopUpButton *button : {window.details->fontFamilyPopUpButton(), window.details->fontStylePopUpButton()})
            QVERIFY(ZelIsControllerMarker(button->selectedItem()->data())); // which is drawn dimmed
        QVERIFY(window.details->multipleFontFamiliesMenuItem()->isVisible());
        QCOMPARE(size->placeholderText(), "Multiple Sizes");
        QVERIFY(ZelIsMarker(window.editor->fontSize(), ZelMultipleValuesMarker));
        window.second.setProperty("font", window.first.font);
        QTRY_COMPARE(window.text(), "DejaVu Sans Book 9");
        QVERIFY(!isDimmed() && window.editor->stepper()->isEditable());
        QVERIFY(!window.details->multipleFontFamiliesMenuItem()->isVisible());
        QCOMPARE(size->objectValue().toDouble(), 9.0);
    }

    void whatIsNoFont()
    {
        Window window("note");
        window.first.setNote("not a font");
        window.select({&window.first});
        QCOMPARE(window.text(), "No Font");
        QVERIFY(!window.editor->button()->isEnabled());
        QCOMPARE(window.family(), "No Selection");
        window.editor->setFontSize(20);
        QCOMPARE(window.first.note().value<QFont>(), ZelFontManager::systemFontOfSize(20));
        Window texts("pattern");
        texts.select({&texts.first});
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("^ERROR: Cannot store a value of class QFont in .*pattern"));
        texts.editor->stepper()->stepBy(14);
        FigureWindow::settle();
        QCOMPARE(texts.first.pattern, "Dots");
        QCOMPARE(texts.steps(), 0);
        QVERIFY(ZelIsNull(texts.editor->stepper()->objectValue()));
    }

    void theSizeIsStepped()
    {
        Window window;
        window.first.font.setBold(true);
        window.select({&window.first});
        window.editor->stepper()->stepBy(1);
        QCOMPARE(window.steps(), 1);
        QCOMPARE(window.owner->actions, 0);
        QTRY_COMPARE(window.text(), "DejaVu Sans Bold 10");
        window.editor->stepper()->stepBy(-13);
        QCOMPARE(window.first.font.pointSizeF(), 1.0);
        FigureWindow::settle();
        window.editor->selectPopover(window.editor->button());
        window.details->fontSizeStepper()->stepBy(1);
        QCOMPARE(window.first.font.pointSizeF(), 2.0);
        window.editor->selectDone(nullptr);
        window.select({&window.first, &window.second});
        window.editor->stepper()->stepBy(14); // from nothing
        QCOMPARE(window.first.font, ZelFontManager::systemFontOfSize(14));
        for (const QVariant &size :
             QVariantList{QVariant(), 0, -4, qQNaN(), QVariant::fromValue(ZelMultipleValuesMarker)})
            window.editor->setFontSize(size);
        QCOMPARE(window.second.font, ZelFontManager::systemFontOfSize(14));
    }

    void theDetailsKeepWhatTheyDoNotChange()
    {
        Window window;
        window.first.font.setUnderline(true);
        window.second.font = QFont(g_otherFamily, 30);
        window.select({&window.first});
        Window::choose(window.details->fontStylePopUpButton(), "Bold");
        QCOMPARE(window.owner->actions, 1);
        Window::choose(window.details->fontFamilyPopUpButton(), g_otherFamily);
        QCOMPARE(window.text(), "DejaVu Serif Bold 9");
        QVERIFY(window.first.font.bold() && window.first.font.underline());
        window.select({&window.first, &window.second});
        Window::choose(window.details->fontFamilyPopUpButton(), "Multiple Families");
        QVERIFY(window.first.font != window.second.font); // no family to write
        Window::choose(window.details->fontFamilyPopUpButton(), g_otherFamily);
        QCOMPARE(window.first.font, window.second.font);
        QCOMPARE(ZelFontManager::familyOf(window.second.font), g_otherFamily);
        QCOMPARE(window.second.font.pointSizeF(), QApplication::font().pointSizeF());
        window.editor->selectPopover(window.editor->button());
        window.editor->view()->setParent(nullptr); // taken out of its window
        QVERIFY(!window.editor->popover()->isShown());
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
            Window window;
            window.first.font = QFont(g_family, 70);
            window.select({&window.first});
            window.editor->selectPopover(window.editor->button());
            ZelPopUpButton *fonts = window.details->fontPopUpButton();
            const auto choose = [&](int index) {
                fonts->setSelectedIndex(index);
                ZelControlSupport::reportEdit(fonts);
                return window.details->fontFamilyPopUpButton()->isEnabled();
            };
            QVERIFY(!choose(row) && !window.details->fontSizeStepper()->isEnabled());
            QCOMPARE(window.first.font, font);
            QCOMPARE(window.undoManager.stack()->undoText(), "Change");
            QVERIFY(choose(0)); // "Custom" leaves the font and gives the details free
            QCOMPARE(window.first.font, font);
            QVERIFY(!choose(row));
            FigureWindow::settle();
            window.undoManager.stack()->setIndex(0);
            FigureWindow::settle();
            QVERIFY(window.details->fontFamilyPopUpButton()->isEnabled());
            QCOMPARE(fonts->selectedIndex(), 0);
            QCOMPARE(fonts->items().size(), 20);
            for (int heading : {1, 5, 9})
                QVERIFY(!fonts->items().at(heading)->isEnabled());
            QCOMPARE(static_cast<ZelMenuItem *>(fonts->items().last())->tag(), 16);
        }
    }
};

QTEST_MAIN(tst_ZelInspectorFontProperty)
#include "tst_ZelInspectorFontProperty.moc"
