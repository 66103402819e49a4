// SPDX-License-Identifier: MIT
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelPopover.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Text/ZelFontManager.h"

#include <QApplication>

namespace {

const QString g_family = QStringLiteral("DejaVu Sans");
const QString g_otherFamily = QStringLiteral("DejaVu Serif");

/// What an application's own text looks like.
class Caption : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QFont font MEMBER font NOTIFY fontChanged)
    Q_PROPERTY(QString words MEMBER words NOTIFY fontChanged)
    Q_PROPERTY(QVariant optionalFont MEMBER optionalFont NOTIFY fontChanged)
public:
    explicit Caption(const QFont &font)
        : font(font)
    {
    }
    QFont font;
    QString words = QStringLiteral("words");
    QVariant optionalFont;

Q_SIGNALS:
    void fontChanged();
};

class Window : public EditorWindow
{
public:
    explicit Window(const QString &key = QStringLiteral("font"))
        : EditorWindow(0)
    {
        auto property = std::make_unique<ZelInspectorFontProperty>(owner.get());
        property->setKeyPath(QStringLiteral("people.selection.") + key);
        property->setActionName(QStringLiteral("Font"));
        property->setActionSelector("noteAction");
        property->setEnabledKeyPath(QStringLiteral("unlocked"));
        editor = install(std::move(property));
        details = editor->popoverView();
    }
    ~Window() override { EditorWindow::editor.reset(); } // before what it shows

    void select(const QList<Caption *> &captions)
    {
        owner->controller.setSelectedObjects(QList<QObject *>(captions.begin(), captions.end()));
        QCoreApplication::processEvents();
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
                QCoreApplication::processEvents();
                return;
            }
        }
        QFAIL(qPrintable(title));
    }

    ZelInspectorFontProperty *editor = nullptr;
    ZelFontPopoverView *details = nullptr;
};

} // namespace

class tst_ZelInspectorFontProperty : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(ZelFontManager::availableFontFamilies().contains(g_family)); }
    void describesTheFont_data();
    void describesTheFont();
    void showsNoneOneManyEqualAndDifferent();
    void noValueIsNoFont();
    void theStepperChangesTheSize();
    void aTextIsNoFont();
    void theDetailsChangeTheFont();
    void desktopFonts_data();
    void desktopFonts();
    void thePopoverOpensAndCloses();
    void undoChangesNoOtherSelection();
    void survivesTheDeathOfOwnerAndView();
};

void tst_ZelInspectorFontProperty::describesTheFont_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QString>("text");
    const QFont unknown(QStringLiteral("Nowhere Grotesk"), 12);
    QFont unknownBold = unknown;
    unknownBold.setBold(true);
    QTest::newRow("regular") << unknown << QStringLiteral("Nowhere Grotesk 12");
    QTest::newRow("bold") << unknownBold << QStringLiteral("Nowhere Grotesk Bold 12");
    QFont face(g_family, 9);
    face.setBold(true);
    QTest::newRow("face by weight") << face << QStringLiteral("DejaVu Sans Bold 9");
    face.setItalic(true);
    face.setPointSizeF(11.6);
    QTest::newRow("size is rounded") << face << QStringLiteral("DejaVu Sans Bold Oblique 12");
    face.setPointSizeF(12.5);
    QTest::newRow("a half is rounded to even") << face << QStringLiteral("DejaVu Sans Bold Oblique 12");
    face.setPixelSize(20);
    QTest::newRow("size in pixels") << face << QStringLiteral("DejaVu Sans Bold Oblique 20");
    face.setStyleName(QStringLiteral("ExtraLight"));
    QTest::newRow("named face") << face << QStringLiteral("DejaVu Sans ExtraLight 20");
}

void tst_ZelInspectorFontProperty::describesTheFont()
{
    QFETCH(QFont, font);
    Window window;
    Caption caption(font);
    window.select({&caption});
    QTEST(window.text(), "text");
    QVERIFY(window.editor->button()->isEnabled());
    QCOMPARE(window.editor->fontSize().toDouble(), ZelFontManager::sizeOf(font));
    const bool isKnown = font.family() == g_family;
    QCOMPARE(window.family(), isKnown ? g_family : QStringLiteral("No Selection"));
    QCOMPARE(window.style(), isKnown ? ZelFontManager::faceOf(font) : QStringLiteral("No Selection"));
    QCOMPARE(window.editor->fontFaces(), ZelFontManager::availableFacesOfFamily(font.family()));
}

void tst_ZelInspectorFontProperty::showsNoneOneManyEqualAndDifferent()
{
    Window window;
    Caption a(QFont(g_family, 9)), b(QFont(g_family, 9)), c(QFont(g_family, 10));
    const ZelTextField *size = window.details->fontSizeTextField();
    const QColor dimmed = ZelThemeColor::dimmed(QApplication::palette());
    const auto color = [&window] { return window.editor->textField()->palette().color(QPalette::Text); };
    QCOMPARE(window.text(), QStringLiteral("No Font"));
    QCOMPARE(color(), dimmed);
    QVERIFY(!window.editor->button()->isEnabled());
    QVERIFY(!window.editor->stepper()->isEditable());
    QCOMPARE(size->placeholderText(), QStringLiteral("No Size"));
    window.select({&a, &b});
    QCOMPARE(window.text(), QStringLiteral("DejaVu Sans Book 9"));
    QVERIFY(color() != dimmed);
    QCOMPARE(size->objectValue().toDouble(), 9.0);
    QVERIFY(window.editor->stepper()->isEditable());
    window.select({&a, &b, &c});
    QCOMPARE(window.text(), QStringLiteral("Multiple Fonts"));
    QCOMPARE(color(), dimmed);
    QVERIFY(window.editor->button()->isEnabled());
    QCOMPARE(window.family(), QStringLiteral("Multiple Families"));
    QCOMPARE(window.style(), QStringLiteral("Multiple Styles"));
    QVERIFY(window.details->multipleFontFamiliesMenuItem()->isVisible());
    for (ZelPopUpButton *button : {window.details->fontFamilyPopUpButton(), window.details->fontStylePopUpButton()})
        QVERIFY(ZelIsControllerMarker(button->selectedItem()->data())); // which is drawn dimmed
    QCOMPARE(size->placeholderText(), QStringLiteral("Multiple Sizes"));
    QVERIFY(ZelIsMarker(window.editor->fontSize(), ZelMultipleValuesMarker));
    c.setProperty("font", a.font);
    QTRY_COMPARE(window.text(), QStringLiteral("DejaVu Sans Book 9"));
    QVERIFY(!window.details->multipleFontFamiliesMenuItem()->isVisible());
    window.owner->setUnlocked(false);
    QTRY_VERIFY(!window.editor->button()->isEnabled());
}

void tst_ZelInspectorFontProperty::noValueIsNoFont()
{
    Window window(QStringLiteral("optionalFont"));
    Caption caption{QFont()};
    window.select({&caption});
    QCOMPARE(window.text(), QStringLiteral("No Font"));
    QVERIFY(!window.editor->button()->isEnabled());
    QCOMPARE(window.family(), QStringLiteral("No Selection"));
    caption.setProperty("optionalFont", QStringLiteral("not a font"));
    QCoreApplication::processEvents();
    QCOMPARE(window.text(), QStringLiteral("No Font"));
    window.editor->setFontSize(20);
    QCOMPARE(caption.optionalFont.value<QFont>(), ZelFontManager::systemFontOfSize(20));
}

void tst_ZelInspectorFontProperty::theStepperChangesTheSize()
{
    Window window;
    QFont first(g_family, 9);
    first.setBold(true);
    Caption a(first), b(QFont(g_otherFamily, 30));
    window.select({&a});
    window.editor->stepper()->stepBy(1);
    QCOMPARE(a.font.pointSizeF(), 10.0);
    QVERIFY(a.font.bold());
    QCOMPARE(window.undo.stack()->count(), 1);
    QCOMPARE(window.owner->actions, 0);
    QTRY_COMPARE(window.text(), QStringLiteral("DejaVu Sans Bold 10"));
    a.setProperty("font", QFont(g_family, 1));
    QTRY_COMPARE(window.editor->stepper()->doubleValue(), 1.0);
    window.editor->stepper()->stepBy(-3);
    QCOMPARE(a.font.pointSizeF(), 1.0);
    window.select({&a, &b});
    window.editor->stepper()->stepBy(14); // from nothing
    QCOMPARE(a.font, ZelFontManager::systemFontOfSize(14));
    QCOMPARE(b.font, a.font);
    const auto nonsense = {QVariant(), QVariant(0), QVariant(-4), QVariant(qQNaN()),
                           QVariant::fromValue(ZelMultipleValuesMarker)};
    for (const QVariant &size : nonsense)
        window.editor->setFontSize(size);
    QCOMPARE(b.font, ZelFontManager::systemFontOfSize(14));
}

void tst_ZelInspectorFontProperty::aTextIsNoFont()
{
    Window window(QStringLiteral("words"));
    Caption caption{QFont(g_family)};
    window.select({&caption});
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^ERROR: Cannot store a value of class QFont in .*words")));
    window.editor->stepper()->stepBy(14);
    QCoreApplication::processEvents();
    QCOMPARE(caption.words, QStringLiteral("words"));
    QCOMPARE(window.undo.stack()->count(), 0);
    QVERIFY(ZelIsNull(window.editor->stepper()->objectValue()));
}

void tst_ZelInspectorFontProperty::theDetailsChangeTheFont()
{
    Window window;
    QFont first(g_family, 9);
    first.setUnderline(true);
    Caption a(first), b(QFont(g_otherFamily, 30));
    window.select({&a});
    window.editor->selectPopover(window.editor->button());
    Window::choose(window.details->fontStylePopUpButton(), QStringLiteral("Bold"));
    QVERIFY(a.font.bold() && a.font.underline());
    QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Font"));
    QCOMPARE(window.owner->actions, 1);
    Window::choose(window.details->fontFamilyPopUpButton(), g_otherFamily);
    QCOMPARE(window.text(), QStringLiteral("DejaVu Serif Bold 9"));
    QVERIFY(a.font.underline());
    QCOMPARE(window.style(), QStringLiteral("Bold"));
    window.details->fontSizeTextField()->setText(QStringLiteral("17"));
    QVERIFY(window.details->fontSizeTextField()->commitEditing());
    QCOMPARE(a.font.pointSizeF(), 17.0);

    window.select({&a, &b});
    Window::choose(window.details->fontFamilyPopUpButton(), QStringLiteral("Multiple Families"));
    QVERIFY(a.font != b.font); // no family to write
    Window::choose(window.details->fontFamilyPopUpButton(), g_otherFamily);
    QCOMPARE(a.font, b.font);
    QCOMPARE(ZelFontManager::familyOf(b.font), g_otherFamily);
    QCOMPARE(b.font.pointSizeF(), QApplication::font().pointSizeF());
    window.undo.undo();
    QVERIFY(a.font != b.font);
}

void tst_ZelInspectorFontProperty::desktopFonts_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QFont>("font");
    QFont bold = QApplication::font();
    bold.setBold(true);
    QTest::newRow("Regular") << 2 << QApplication::font();
    QTest::newRow("Small") << 3 << ZelFontManager::systemFontOfSize(QApplication::font().pointSizeF() * 11 / 13);
    QTest::newRow("Bold") << 6 << bold;
    QTest::newRow("User Fixed Pitch") << 19 << ZelFontManager::platformFont(ZelFontManager::UserFixedPitchFont);
}

void tst_ZelInspectorFontProperty::desktopFonts()
{
    QFETCH(int, row);
    Window window;
    Caption caption(QFont(g_family, 70));
    window.select({&caption});
    window.editor->selectPopover(window.editor->button());
    ZelPopUpButton *fonts = window.details->fontPopUpButton();
    QCOMPARE(fonts->selectedIndex(), 0);
    fonts->setSelectedIndex(row);
    ZelControlSupport::reportEdit(fonts);
    QTEST(caption.font, "font");
    QVERIFY(!window.details->fontFamilyPopUpButton()->isEnabled());
    QVERIFY(!window.details->fontSizeStepper()->isEnabled());
    QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Font"));
    fonts->setSelectedIndex(0);
    ZelControlSupport::reportEdit(fonts); // "Custom" leaves the font and gives the details free
    QTEST(caption.font, "font");
    QVERIFY(window.details->fontFamilyPopUpButton()->isEnabled());
    fonts->setSelectedIndex(row);
    ZelControlSupport::reportEdit(fonts);
    QCoreApplication::processEvents();
    QVERIFY(!window.details->fontFamilyPopUpButton()->isEnabled());
    window.undo.stack()->setIndex(0);
    QCoreApplication::processEvents();
    QVERIFY(window.details->fontFamilyPopUpButton()->isEnabled());
    QCOMPARE(fonts->selectedIndex(), 0);
    QCOMPARE(fonts->items().size(), 20);
    for (int heading : {1, 5, 9})
        QVERIFY(!fonts->items().at(heading)->isEnabled());
    QCOMPARE(static_cast<ZelMenuItem *>(fonts->items().last())->tag(), 16);
}

void tst_ZelInspectorFontProperty::thePopoverOpensAndCloses()
{
    Window window;
    Caption caption(QFont(g_family, 9));
    window.select({&caption});
    window.editor->button()->setFocus();
    QTest::mouseDClick(window.editor->textField(), Qt::LeftButton); // nothing to be selected there
    QCOMPARE(QApplication::focusWidget(), window.editor->button());
    QVERIFY(!window.editor->textField()->hasSelectedText());
    QTest::mouseClick(window.editor->button(), Qt::LeftButton);
    QVERIFY(window.editor->popover()->isShown());
    QVERIFY(window.details->isVisible());
    QCOMPARE(window.details->width(), 245);
    ZelTextField *size = window.details->fontSizeTextField();
    size->setFocus();
    size->selectAll();
    QTest::keyClicks(size, QStringLiteral("33"));
    QTest::mouseClick(window.details->doneButton(), Qt::LeftButton);
    QVERIFY(!window.editor->popover()->isShown());
    QCOMPARE(caption.font.pointSizeF(), 33.0);
    QCOMPARE(QApplication::focusWidget(), window.editor->button());
    QTest::mouseClick(window.editor->button(), Qt::LeftButton);
    window.editor->view()->setParent(nullptr); // taken out of its window
    QVERIFY(!window.editor->popover()->isShown());
}

void tst_ZelInspectorFontProperty::undoChangesNoOtherSelection()
{
    Window window;
    Caption a(QFont(g_family, 9)), b(QFont(g_family, 20));
    window.select({&a});
    window.editor->selectPopover(window.editor->button());
    window.details->fontSizeStepper()->stepBy(1);
    QCOMPARE(a.font.pointSizeF(), 10.0);
    QCOMPARE(window.undo.stack()->count(), 1);
    window.editor->selectDone(nullptr);
    window.select({&b});
    window.undo.undo();
    QCOMPARE(a.font.pointSizeF(), 9.0);
    QCOMPARE(b.font.pointSizeF(), 20.0);
}

void tst_ZelInspectorFontProperty::survivesTheDeathOfOwnerAndView()
{
    Window window;
    auto caption = std::make_unique<Caption>(QFont(g_family, 9));
    window.select({caption.get()});
    window.editor->selectPopover(window.editor->button());
    window.details->fontSizeTextField()->setText(QStringLiteral("5"));
    caption.reset();
    QCoreApplication::processEvents();
    window.owner.reset();
    QCoreApplication::processEvents();
    window.editor->setFontSize(12);
    QTest::mouseClick(window.details->doneButton(), Qt::LeftButton);
    window.editor->updateView();
    QCOMPARE(window.text(), QStringLiteral("No Font"));

    Window other;
    Caption another(QFont(g_family, 9));
    other.select({&another});
    other.editor->selectPopover(other.editor->button());
    delete other.editor->view(); // with the popover open
    QVERIFY(!other.editor->popover()->isShown());
    other.editor->updateView();
}

QTEST_MAIN(tst_ZelInspectorFontProperty)
#include "tst_ZelInspectorFontProperty.moc"
