// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

#include "Resources/ZelBundle.h"

namespace {

using Editor = ZelInspectorAttributedStringProperty;
using String = ZelAttributedString;
using Style = ZelParagraphStyle;

/// Two runs in three paragraphs, of which the second is centred: "one two\nthree\nfour".
String sample()
{
    String string("one ", {{String::ForegroundColor, QColor(Qt::red)}});
    string.append(String("two\nthree\nfour", {{String::ForegroundColor, QColor(Qt::blue)}}));
    Style style;
    style.alignment = Style::AlignCenter;
    style.headIndent = 4;
    string.setParagraphStyle(style, {8, 1});
    return string;
}

/// A shown window with the sample in its first two figures.
struct Desk : Sheet
{
    Desk()
        : Sheet(row("text", "string", "attributed='yes' placeholder='No text'") + row("font", "font"))
        , editor(Sheet::editor<Editor>("text"))
        , text(editor->textView())
        , below(Sheet::editor<ZelInspectorFontProperty>("font"))
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
        for (int i = 0; i < start + length; ++i)
            QTest::keyClick(text, Qt::Key_Right, i < start ? Qt::NoModifier : Qt::ShiftModifier);
        settle();
    }
    const String &string(int figure = 0) const { return figures[size_t(figure)]->text; }
    bool isAsAtFirst() const { return string() == sample() && string(1) == sample(); }

    Editor *editor;
    ZelInspectorTextView *text;
    ZelInspectorFontProperty *below;
};

/// The number field of a key in the popover of paragraph values.
ZelTextField *paragraphField(const Editor *editor, const char *key)
{
    for (const auto *number : editor->paragraphStyleInspector()->findChildren<ZelInspectorNumberProperty *>()) {
        if (number->keyPath() == key)
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
        Desk::type("2");
        Desk::press(Qt::Key_Return); // begins a paragraph
        Desk::type("b");
        QVERIFY(desk.isAsAtFirst());
        Desk::press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(desk.string().text(), "one 2\nb\nthree\nfour");
        QCOMPARE(desk.string().attributeAt(String::ForegroundColor, 6), QVariant(QColor(Qt::blue)));
        QCOMPARE(desk.string().paragraphStyleAt(8).alignment, uint(Style::AlignCenter));
        QCOMPARE(desk.string(1), desk.string());
        QCOMPARE(desk.stack.count(), 1);

        const String committed = desk.string();
        Desk::type("dropped");
        Desk::press(Qt::Key_Escape);
        QCOMPARE(desk.text->attributedString(), committed);
        Desk::type("x");
        Desk::press(Qt::Key_Z, Qt::ControlModifier); // the typing's own
        QCOMPARE(desk.text->attributedString(), committed);
        QCOMPARE(desk.stack.index(), 1);
        desk.undo();
        QVERIFY(desk.isAsAtFirst());
        QCOMPARE(desk.text->attributedString(), sample());

        Desk::replaceText(desk.text, {});
        QVERIFY(desk.isAsAtFirst());
        desk.below->button()->setFocus(); // to leave the text commits, too
        desk.settle();
        QVERIFY(desk.string(1).isEmpty());
        QCOMPARE(desk.text->placeholderText(), "No text");
    }

    /// Without a picture in between in which the text lies over its neighbours.
    void theRowsBelowMoveAsTheTextGrows()
    {
        const Desk desk;
        const auto place = [&] { return desk.below->view()->mapTo(&desk, QPoint()).y(); };
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
        const uint alignments[] = {0, 2, 1, 3, 4}; // by segment
        for (int segment = 0; segment < 5; ++segment) {
            const TableRow inRow(QString::number(segment));
            Desk desk;
            desk.selectText(2, 7); // into the second paragraph
            const String::Range range = desk.text->selectedRange();
            QCOMPARE(range, (String::Range{2, 7}));
            desk.clickSegment(segment);
            const String string = desk.string();
            QCOMPARE(string.paragraphStyleAt(0).alignment, alignments[segment]);
            QCOMPARE(string.paragraphStyleAt(8).alignment, alignments[segment]);
            QCOMPARE(string.paragraphStyleAt(8).headIndent, 4.0);
            QCOMPARE(string.paragraphStyleAt(14).alignment, Style().alignment);
            QCOMPARE(desk.string(1), string);
            QVERIFY(desk.text->hasFocus());
            QCOMPARE(desk.text->selectedRange(), range);
            for (int other = 0; other < 5; ++other)
                QCOMPARE(desk.editor->segmentedControl()->isSegmentSelected(other), other == segment);
            QCOMPARE(desk.stack.count(), 1);
            desk.undo();
            QVERIFY(desk.isAsAtFirst());
            QCOMPARE(desk.text->attributedString(), sample());
        }
    }

    void aFormatTakesTypingWithIt()
    {
        Desk desk;
        desk.selectText(0, 0);
        Desk::type("x");
        desk.clickSegment(Editor::CenterSegment);
        QCOMPARE(desk.string(1).text(), "xone two\nthree\nfour");
        QCOMPARE(desk.string(1).paragraphStyleAt(0).alignment, uint(Style::AlignCenter));
        QCOMPARE(desk.stack.count(), 1);
    }

    void coloursAndFontsGoToTheRunsOfTheSelection()
    {
        Desk desk;
        desk.selectText(2, 4); // of both runs
        desk.clickSegment(Editor::TextColorSegment);
        QColorDialog *panel = Desk::colorPanel();
        QVERIFY(panel && ZelColorPanel::sharedColorPanel()->showsAlpha());
        QCOMPARE(panel->currentColor(), QColor(Qt::black)); // there are two
        QVERIFY(desk.editor->segmentedControl()->isSegmentSelected(Editor::TextColorSegment));
        QCOMPARE(desk.stack.count(), 0);
        panel->setCurrentColor(QColor(1, 2, 3));
        desk.settle();
        const auto colorAt = [&](int position) {
            return desk.string(1).attributeAt(String::ForegroundColor, position).value<QColor>();
        };
        const std::pair<int, QColor> colors[] = {{1, Qt::red}, {2, {1, 2, 3}}, {5, {1, 2, 3}}, {6, Qt::blue}};
        for (const auto &[position, color] : colors)
            QCOMPARE(colorAt(position), color);
        desk.clickSegment(Editor::BackgroundColorSegment);
        QVERIFY(!desk.editor->segmentedControl()->isSegmentSelected(Editor::TextColorSegment));
        panel->setCurrentColor(QColor(250, 250, 0));
        QCOMPARE(desk.string(1).attributeAt(String::BackgroundColor, 3), QVariant(QColor(250, 250, 0)));
        QCOMPARE(colorAt(3), QColor(1, 2, 3));

        ZelInspectorFontProperty *font = desk.editor->fontProperty();
        Desk::click(font->button());
        QVERIFY(font->popover()->isShown());
        Desk::choose(font->popoverView()->fontFamilyPopUpButton(), "DejaVu Serif");
        Desk::press(Qt::Key_Escape);
        QVERIFY(!font->popover()->isShown());
        QCOMPARE(desk.string().attributeAt(String::Font, 4).value<QFont>().family(), "DejaVu Serif");
        QVERIFY(!desk.string().attributeAt(String::Font, 6).isValid());
        QCOMPARE(font->textField()->text().left(12), "DejaVu Serif");
        QCOMPARE(desk.stack.count(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(desk.stack.undoText(), "Change text");
            desk.undo();
        }
        QVERIFY(desk.isAsAtFirst());
    }

    void paragraphValuesAreEditedInAPopover()
    {
        Desk desk;
        String styled = sample();
        styled.setParagraphStyle({}, {0, 1}); // one without a style would say nothing
        for (int i : {0, 1})
            desk.set(i, "text", styled.toVariant());
        desk.selectText(2, 7);
        desk.clickSegment(Editor::MoreSegment);
        QVERIFY(desk.editor->popover() && desk.editor->popover()->isShown());
        QVERIFY(!desk.editor->segmentedControl()->isSegmentSelected(Editor::MoreSegment));
        ZelTextField *indent = paragraphField(desk.editor, "headIndent");
        ZelTextField *spacing = paragraphField(desk.editor, "lineSpacing");
        QCOMPARE(indent->placeholderText(), "Multiple Values");
        QCOMPARE(spacing->objectValue(), QVariant(0.0));
        Desk::enter(spacing, "7");
        QVERIFY(desk.editor->popover()->isShown());
        const auto values = [&](int start) {
            const Style style = desk.string(1).paragraphStyleAt(start);
            return QList<double>{style.lineSpacing, style.headIndent};
        };
        QCOMPARE(values(0), QList<double>({7, 0}));
        QCOMPARE(values(8), QList<double>({7, 4})); // each keeps what was not edited
        QCOMPARE(values(14), QList<double>({0, 0}));
        QCOMPARE(desk.string(1).paragraphStyleAt(8).alignment, uint(Style::AlignCenter));
        Desk::replaceText(indent, "9");
        Desk::press(Qt::Key_Escape); // gives the typing up, and then the popover
        QVERIFY(desk.editor->popover()->isShown());
        Desk::press(Qt::Key_Escape);
        QVERIFY(!desk.editor->popover()->isShown() && desk.text->hasFocus());
        QCOMPARE(values(0), QList<double>({7, 0}));
        QCOMPARE(desk.stack.count(), 1);
        QCOMPARE(desk.stack.undoText(), "Change text");
        desk.undo();
        QCOMPARE(desk.string(), styled);
        QCOMPARE(spacing->objectValue(), QVariant(0.0));
    }

    void differentTextsAreNotEdited()
    {
        Desk desk;
        desk.set(2, "text", String("other").toVariant());
        desk.select({0, 2});
        QVERIFY(!desk.text->isEditable() && !desk.editor->isFormattable());
        Desk::click(desk.text);
        QTest::keyClicks(desk.text, "nothing");
        desk.clickSegment(Editor::RightSegment);
        QCOMPARE(desk.string(2).text(), "other");
        QVERIFY(desk.isAsAtFirst());
        QCOMPARE(desk.stack.count(), 0);
    }
};

QTEST_MAIN(tst_TextEditors)
#include "tst_TextEditors.moc"
