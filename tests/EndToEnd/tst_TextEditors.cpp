// SPDX-License-Identifier: MIT
#include "Sheet.h"

#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Resources/ZelBundle.h"

#include <QColorDialog>

namespace {

using Window = SheetWindow;
using Editor = ZelInspectorAttributedStringProperty;
using String = ZelAttributedString;
using Style = ZelParagraphStyle;

QByteArray rows()
{
    return Window::row("text", "string", "attributed='yes' placeholder='No text'") + Window::row("font", "font");
}

/// Two runs in three paragraphs, of which the second is centred: "one two\nthree\nfour".
String sample()
{
    String string(QStringLiteral("one "), {{String::ForegroundColor, QColor(Qt::red)}});
    string.append(String(QStringLiteral("two\nthree\nfour"), {{String::ForegroundColor, QColor(Qt::blue)}}));
    Style style;
    style.alignment = Style::AlignCenter;
    style.headIndent = 4;
    string.setParagraphStyle(style, {8, 1});
    return string;
}

/// A shown window with the sample in its first two figures.
struct Desk : Window
{
    Desk()
        : Window(rows())
        , editor(InspectorWindow::editor<Editor>("text"))
        , text(editor->textView())
    {
        for (int i : {0, 1})
            set(i, "text", sample().toVariant());
        select({0, 1});
        resize(340, 700);
        settle();
    }
    ~Desk() override { ZelColorPanel::sharedColorPanel()->close(); }

    void clickSegment(int segment) const
    {
        click(editor->segmentedControl(), editor->segmentedControl()->segmentRect(segment).center());
    }
    /// Places the insertion point, and selects from there with the keyboard.
    void selectText(int start, int length) const
    {
        click(text);
        press(Qt::Key_Home, Qt::ControlModifier);
        for (int i = 0; i < start; ++i)
            QTest::keyClick(text, Qt::Key_Right);
        for (int i = 0; i < length; ++i)
            QTest::keyClick(text, Qt::Key_Right, Qt::ShiftModifier);
        settle();
    }
    const String &string(int figure = 0) const { return figures[size_t(figure)]->text; }

    Editor *editor;
    QPointer<ZelInspectorTextView> text;
};

/// The number field of a key in the popover of paragraph values.
ZelTextField *paragraphField(const Editor *editor, const char *key)
{
    if (!editor->paragraphStyleInspector())
        return nullptr;
    for (const auto *number : editor->paragraphStyleInspector()->findChildren<ZelInspectorNumberProperty *>()) {
        if (number->keyPath() == QString::fromLatin1(key))
            return number->textField();
    }
    return nullptr;
}

} // namespace

/// Writing and formatting rich text in an inspector.
class tst_TextEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)}); }

    void typingIsCommittedOrDiscarded()
    {
        Desk desk;
        desk.selectText(4, 3);
        Window::type(QStringLiteral("2"));
        Window::press(Qt::Key_Return); // begins a paragraph
        Window::type(QStringLiteral("b"));
        QCOMPARE(desk.string(), sample());
        Window::press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(desk.string().text(), QStringLiteral("one 2\nb\nthree\nfour"));
        QCOMPARE(desk.string().attributeAt(String::ForegroundColor, 6), QVariant(QColor(Qt::blue)));
        QCOMPARE(desk.string().paragraphStyleAt(8).alignment, uint(Style::AlignCenter));
        QCOMPARE(desk.string(1), desk.string());
        QCOMPARE(desk.stack.count(), 1);
        QCOMPARE(desk.stack.undoText(), QStringLiteral("Change text"));
        QCOMPARE(desk.owner->actions, 1);

        const String committed = desk.string();
        Window::type(QStringLiteral("dropped"));
        Window::press(Qt::Key_Escape);
        QCOMPARE(desk.text->attributedString(), committed);
        QCOMPARE(desk.stack.count(), 1);
        Window::type(QStringLiteral("x"));
        Window::press(Qt::Key_Z, Qt::ControlModifier); // the typing's own
        QCOMPARE(desk.text->attributedString(), committed);
        QCOMPARE(desk.stack.index(), 1);
        desk.undo();
        QCOMPARE(desk.string(), sample());
        QCOMPARE(desk.string(1), sample());
        QCOMPARE(desk.text->attributedString(), sample());
    }

    void leavingTheTextCommitsAndEmptyingShowsThePlaceholder()
    {
        Desk desk;
        Window::click(desk.text);
        Window::press(Qt::Key_A, Qt::ControlModifier);
        Window::press(Qt::Key_Delete);
        QCOMPARE(desk.string(), sample());
        desk.InspectorWindow::editor<ZelInspectorFontProperty>("font")->button()->setFocus();
        desk.settle();
        QVERIFY(desk.string(1).isEmpty());
        QCOMPARE(desk.text->placeholderText(), QStringLiteral("No text"));
        QCOMPARE(desk.stack.count(), 1);
        desk.undo();
        QCOMPARE(desk.string(1), sample());
    }

    /// Without a picture in between in which the text lies over its neighbours.
    void theRowsBelowMoveAsTheTextGrows()
    {
        Desk desk;
        const QWidget *next = desk.InspectorWindow::editor<ZelInspectorFontProperty>("font")->view();
        const auto place = [&] { return next->mapTo(&desk, QPoint()).y(); };
        desk.selectText(3, 0);
        const int height = desk.text->height();
        const int before = place();
        QTest::keyClick(desk.text, Qt::Key_Return);
        QVERIFY(desk.text->height() > height);
        QCOMPARE(place() - before, desk.text->height() - height);
        const int after = place();
        desk.settle();
        QCOMPARE(place(), after);
        QTest::keyClick(desk.text, Qt::Key_Backspace);
        QCOMPARE(desk.text->height(), height);
        QCOMPARE(place(), before);
    }

    void alignmentGoesToTheParagraphsOfTheSelection()
    {
        Desk desk;
        desk.selectText(2, 7); // into the second paragraph
        const String::Range range = desk.text->selectedRange();
        QCOMPARE(range, (String::Range{2, 7}));
        desk.clickSegment(Editor::RightSegment);
        QCOMPARE(desk.string().paragraphStyleAt(0).alignment, uint(Style::AlignRight));
        QCOMPARE(desk.string().paragraphStyleAt(8).alignment, uint(Style::AlignRight));
        QCOMPARE(desk.string().paragraphStyleAt(8).headIndent, 4.0);
        QCOMPARE(desk.string().paragraphStyleAt(14).alignment, Style().alignment);
        QCOMPARE(desk.string(1), desk.string());
        QVERIFY(desk.text->hasFocus());
        QCOMPARE(desk.text->selectedRange(), range);
        QCOMPARE(desk.stack.count(), 1);
        desk.undo();
        QCOMPARE(desk.string(), sample());
        QVERIFY(!desk.editor->segmentedControl()->isSegmentSelected(Editor::RightSegment));
    }

    void coloursAndFontsGoToTheRunsOfTheSelection()
    {
        Desk desk;
        desk.selectText(2, 4); // of both runs
        desk.clickSegment(Editor::TextColorSegment);
        auto *panel = qobject_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window());
        QVERIFY(panel && panel->isVisible());
        panel->setCurrentColor(QColor(1, 2, 3));
        desk.settle();
        const auto colorAt = [&](int position) {
            return desk.string(1).attributeAt(String::ForegroundColor, position);
        };
        QCOMPARE(colorAt(1), QVariant(QColor(Qt::red)));
        QCOMPARE(colorAt(2), QVariant(QColor(1, 2, 3)));
        QCOMPARE(colorAt(5), QVariant(QColor(1, 2, 3)));
        QCOMPARE(colorAt(6), QVariant(QColor(Qt::blue)));
        desk.clickSegment(Editor::BackgroundColorSegment);
        panel->setCurrentColor(QColor(250, 250, 0));
        QCOMPARE(desk.string(1).attributeAt(String::BackgroundColor, 3), QVariant(QColor(250, 250, 0)));
        QCOMPARE(colorAt(3), QVariant(QColor(1, 2, 3)));

        ZelInspectorFontProperty *font = desk.editor->fontProperty();
        Window::click(font->button());
        QVERIFY(font->popover()->isShown());
        Window::choose(font->popoverView()->fontFamilyPopUpButton(), QStringLiteral("DejaVu Serif"));
        Window::press(Qt::Key_Escape);
        QVERIFY(!font->popover()->isShown());
        QCOMPARE(desk.string().attributeAt(String::Font, 4).value<QFont>().family(), QStringLiteral("DejaVu Serif"));
        QVERIFY(!desk.string().attributeAt(String::Font, 6).isValid());
        QCOMPARE(font->textField()->text().left(12), QStringLiteral("DejaVu Serif"));
        QCOMPARE(desk.stack.count(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(desk.stack.undoText(), QStringLiteral("Change text"));
            desk.undo();
        }
        QCOMPARE(desk.string(), sample());
        QCOMPARE(desk.string(1), sample());
    }

    void paragraphValuesAreEditedInAPopover()
    {
        Desk desk;
        String styled = sample();
        styled.setParagraphStyle({}, {0, 1}); // one without a style would say nothing
        desk.set(0, "text", styled.toVariant());
        desk.set(1, "text", styled.toVariant());
        desk.selectText(2, 7);
        desk.clickSegment(Editor::MoreSegment);
        QVERIFY(desk.editor->popover() && desk.editor->popover()->isShown());
        ZelTextField *indent = paragraphField(desk.editor, "headIndent");
        ZelTextField *spacing = paragraphField(desk.editor, "lineSpacing");
        QVERIFY(indent && spacing);
        QCOMPARE(indent->placeholderText(), QStringLiteral("Multiple Values"));
        QCOMPARE(spacing->objectValue(), QVariant(0.0));
        Window::replaceText(spacing, QStringLiteral("7"));
        Window::press(Qt::Key_Return);
        QVERIFY(desk.editor->popover()->isShown());
        QCOMPARE(desk.string(1).paragraphStyleAt(0).lineSpacing, 7.0);
        QCOMPARE(desk.string(1).paragraphStyleAt(8).lineSpacing, 7.0);
        QCOMPARE(desk.string(1).paragraphStyleAt(14).lineSpacing, 0.0);
        QCOMPARE(desk.string(1).paragraphStyleAt(0).headIndent, 0.0);
        QCOMPARE(desk.string(1).paragraphStyleAt(8).headIndent, 4.0); // each keeps what was not edited
        Window::replaceText(indent, QStringLiteral("9"));
        Window::press(Qt::Key_Escape); // gives the typing up, and then the popover
        QVERIFY(desk.editor->popover()->isShown());
        Window::press(Qt::Key_Escape);
        QVERIFY(!desk.editor->popover()->isShown());
        QVERIFY(desk.text->hasFocus());
        QCOMPARE(desk.string().paragraphStyleAt(0).headIndent, 0.0);
        QCOMPARE(desk.stack.count(), 1);
        desk.undo();
        QCOMPARE(desk.string(), styled);
    }

    void theSelectionChangesWhileItIsEdited()
    {
        Desk desk;
        desk.set(2, "text", String(QStringLiteral("other")).toVariant());
        desk.selectText(0, 3);
        Window::type(QStringLiteral("ONE"));
        desk.select({2});
        QCOMPARE(desk.string(0).text(), QStringLiteral("ONE two\nthree\nfour")); // of those that it was typed for
        QCOMPARE(desk.string(1), desk.string(0));
        QCOMPARE(desk.text->toPlainText(), QStringLiteral("other"));
        QCOMPARE(desk.stack.undoText(), QStringLiteral("Change text"));
        Window::type(QStringLiteral("x"));
        Window::press(Qt::Key_Escape);
        QCOMPARE(desk.string(2).text(), QStringLiteral("other"));
        desk.select({0, 2});
        QVERIFY(!desk.text->isEditable() && !desk.editor->isFormattable());
        Window::click(desk.text);
        QTest::keyClicks(desk.text, QStringLiteral("nothing"));
        desk.clickSegment(Editor::RightSegment);
        QCOMPARE(desk.string(2).text(), QStringLiteral("other"));
        QCOMPARE(desk.stack.count(), 1);
        desk.undo();
        QCOMPARE(desk.string(1), sample());
    }

    void whatEndsWhileTheTextIsEdited_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<int>("segment");
        for (const char *what : {"window", "inspector", "view", "figures", "owner", "hidden"}) {
            const QString end = QString::fromLatin1(what);
            QTest::addRow("%s, typing", what) << end << -1;
            QTest::addRow("%s, colours", what) << end << int(Editor::TextColorSegment);
            QTest::addRow("%s, popover", what) << end << int(Editor::MoreSegment);
        }
    }
    void whatEndsWhileTheTextIsEdited()
    {
        QFETCH(QString, what);
        QFETCH(int, segment);
        auto desk = std::make_unique<Desk>();
        desk->selectText(2, 7);
        Window::type(QStringLiteral("typed"));
        if (segment >= 0)
            desk->clickSegment(segment);
        if (segment == Editor::MoreSegment) {
            ZelTextField *indent = paragraphField(desk->editor, "headIndent");
            QVERIFY(indent);
            Window::replaceText(indent, QStringLiteral("9"));
        }
        std::unique_ptr<Window> window = std::move(desk);
        Window::end(window, what);
        if (auto *panel = qobject_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window()))
            panel->setCurrentColor(QColor(9, 9, 9));
        while (const QWidget *popup = QApplication::activePopupWidget())
            QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
        ZelColorPanel::sharedColorPanel()->close();
        Window::settle();
        QVERIFY(!ZelColorPanel::sharedColorPanel()->delegate());
    }
};

QTEST_MAIN(tst_TextEditors)
#include "moc_Sheet.cpp"
#include "tst_TextEditors.moc"
