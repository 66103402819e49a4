// SPDX-License-Identifier: MIT
#include "FigureSheet.h"
#include "Inspector/Properties/private/ZelParagraphStyleProxy.h"
#include "Inspector/Properties/private/ZelTextFormatImages.h"
#include "Resources/ZelNamedImages.h"
#include "Support/Failures.h"
#include "Support/Recorder.h"

namespace {
using Editor = ZelInspectorAttributedStringProperty;
using String = ZelAttributedString;
using Style = ZelParagraphStyle;

String styled(const QString &text, uint alignment, double lineSpacing)
{
    Style style;
    style.alignment = alignment;
    style.lineSpacing = lineSpacing;
    String string(text);
    string.setParagraphStyle(style, {0, string.length()});
    return string;
}

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

/// A shown window with the text in its first two figures.
struct Desk : Sheet
{
    explicit Desk(const String &string = sample())
        : Sheet(row("text", "string", "attributed='yes' placeholder='No text'") + row("font", "font"))
        , editor(Sheet::editor<Editor>("text"))
        , text(editor->textView())
        , bar(editor->segmentedControl())
        , below(Sheet::editor<ZelInspectorFontProperty>("font"))
    {
        for (int i : {0, 1})
            set(i, "text", string.toVariant());
        select({0, 1});
    }
    ~Desk() override { ZelColorPanel::sharedColorPanel()->close(); }

    void clickSegment(int segment) const { click(bar, bar->segmentRect(segment).center()); }
    QList<int> selectedSegments() const
    {
        QList<int> list;
        for (int i = 0; i < bar->segmentCount(); ++i) {
            if (bar->isSegmentSelected(i))
                list.append(i);
        }
        return list;
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
    /// A value of what is selected in the text.
    QVariant value(const char *name, qsizetype start, qsizetype length) const
    {
        text->setSelectedRange({start, length});
        return editor->property(name);
    }
    const String &string(int figure = 1) const { return figures[size_t(figure)]->text; }
    QVariant attributeAt(const QString &name, int position) const { return string().attributeAt(name, position); }
    uint alignmentAt(int position) const { return string().paragraphStyleAt(position).alignment; }
    bool isAsAtFirst() const { return string(0) == sample() && string(1) == sample(); }

    Editor *editor;
    ZelInspectorTextView *text;
    ZelSegmentedControl *bar;
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

bool isNone(const QVariant &value)
{
    return ZelIsMarker(value, ZelNoSelectionMarker);
}

bool isMultiple(const QVariant &value)
{
    return ZelIsMarker(value, ZelMultipleValuesMarker);
}
} // namespace

/// Writing and formatting rich text in an inspector.
class tst_TextEditors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)}); }

    void alignmentGoesToTheParagraphsOfTheSelection()
    {
        const uint alignments[] = {0, 2, 1, 3, 4}; // by segment
        for (int segment = 0; segment < 5; ++segment) {
            const TableRow inRow(QString::number(segment));
            Desk desk;
            desk.selectText(2, 7); // into the second paragraph
            QCOMPARE(desk.text->selectedRange(), (String::Range{2, 7}));
            desk.clickSegment(segment);
            QCOMPARE(desk.alignmentAt(0), alignments[segment]);
            QCOMPARE(desk.alignmentAt(8), alignments[segment]);
            QCOMPARE(desk.alignmentAt(14), Style().alignment);
            QCOMPARE(desk.string().paragraphStyleAt(8).headIndent, 4.0);
            QCOMPARE(desk.string(0), desk.string());
            QVERIFY(desk.text->hasFocus());
            QCOMPARE(desk.text->selectedRange(), (String::Range{2, 7}));
            QCOMPARE(desk.selectedSegments(), QList<int>{segment});
            desk.undo();
            QVERIFY(desk.isAsAtFirst() && !desk.stack.canUndo());
            QCOMPARE(desk.text->attributedString(), sample());
            desk.selectText(0, 0);
            Desk::type("x");
            desk.clickSegment(segment); // takes the typing with it
            QCOMPARE(desk.string().text(), "xone two\nthree\nfour");
            QCOMPARE(desk.alignmentAt(0), alignments[segment]);
            QCOMPARE(desk.stack.count(), 1);
        }
    }

    void coloursAndFontsGoToTheRunsOfTheSelection()
    {
        Desk desk;
        desk.selectText(2, 4); // of both runs
        desk.clickSegment(Editor::TextColorSegment);
        QColorDialog *panel = Desk::colorPanel();
        QVERIFY(panel && ZelColorPanel::sharedColorPanel()->showsAlpha());
        QCOMPARE(panel->currentColor(), QColor(Qt::black)); // there are two
        QCOMPARE(desk.selectedSegments(), QList<int>{Editor::TextColorSegment});
        QCOMPARE(desk.stack.count(), 0);
        panel->setCurrentColor(QColor(1, 2, 3));
        desk.settle();
        const std::pair<int, QColor> colors[] = {{1, Qt::red}, {2, {1, 2, 3}}, {5, {1, 2, 3}}, {6, Qt::blue}};
        for (const auto &[position, color] : colors)
            QCOMPARE(desk.attributeAt(String::ForegroundColor, position), QVariant(color));
        desk.clickSegment(Editor::BackgroundColorSegment);
        QCOMPARE(desk.selectedSegments(), QList<int>{Editor::BackgroundColorSegment});
        panel->setCurrentColor(QColor(250, 250, 0));
        QCOMPARE(desk.attributeAt(String::BackgroundColor, 3), QVariant(QColor(250, 250, 0)));
        QCOMPARE(desk.attributeAt(String::ForegroundColor, 3), QVariant(QColor(1, 2, 3)));
        ZelInspectorFontProperty *font = desk.editor->fontProperty();
        Desk::click(font->button());
        Desk::choose(font->popoverView()->fontFamilyPopUpButton(), "DejaVu Serif");
        Desk::press(Qt::Key_Escape);
        QCOMPARE(desk.attributeAt(String::Font, 4).value<QFont>().family(), "DejaVu Serif");
        QVERIFY(!desk.attributeAt(String::Font, 6).isValid());
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
        String string = sample();
        string.setParagraphStyle({}, {0, 1}); // one without a style would say nothing
        Desk desk(string);
        desk.selectText(2, 7);
        desk.clickSegment(Editor::MoreSegment);
        QVERIFY(desk.editor->popover() && desk.editor->popover()->isShown());
        QVERIFY(!desk.bar->isSegmentSelected(Editor::MoreSegment));
        ZelTextField *indent = paragraphField(desk.editor, "headIndent");
        ZelTextField *spacing = paragraphField(desk.editor, "lineSpacing");
        QCOMPARE(indent->placeholderText(), "Multiple Values");
        QCOMPARE(spacing->objectValue(), QVariant(0.0));
        Desk::enter(spacing, "7");
        const auto values = [&](int start) {
            const Style style = desk.string().paragraphStyleAt(start);
            return QList<double>{style.lineSpacing, style.headIndent};
        };
        QCOMPARE(values(0), QList<double>({7, 0}));
        QCOMPARE(values(8), QList<double>({7, 4})); // each keeps what was not edited
        QCOMPARE(values(14), QList<double>({0, 0}));
        QCOMPARE(desk.alignmentAt(8), uint(Style::AlignCenter));
        Desk::replaceText(indent, "9");
        Desk::press(Qt::Key_Escape); // gives the typing up, and then the popover
        QVERIFY(desk.editor->popover()->isShown());
        Desk::press(Qt::Key_Escape);
        QVERIFY(!desk.editor->popover()->isShown() && desk.text->hasFocus());
        QCOMPARE(values(0), QList<double>({7, 0}));
        QCOMPARE(desk.stack.count(), 1);
        QCOMPARE(desk.stack.undoText(), "Change text");
        desk.undo();
        QCOMPARE(desk.string(), string);
        QCOMPARE(spacing->objectValue(), QVariant(0.0));
    }

    /// In a field of plain text, of rich text and of a list. The attribute stands at the root of the file.
    void severalTextsAreOverwritten()
    {
        using Row = std::pair<QByteArray, QByteArray>;
        for (const auto &[key, more] :
             {Row("pattern", ""), Row("text", "attributed='yes'"), Row("pattern", "resourcesKeyPath='names'")}) {
            const TableRow inRow(QString::fromLatin1(key + more));
            const QByteArray type = more.contains("names") ? "resource" : "string";
            Sheet sheet("<panes editsMultipleValues='yes'><pane><inspector title='Figure'><slice><section>" +
                        Sheet::row(key, type, more) + Sheet::row("address", "string", "editsMultipleValues='no'") +
                        "</section></slice></inspector></pane></panes>");
            const auto text = [&, key = key](int i) {
                const QVariant value = sheet.value(i, key);
                return key == "text" ? value.value<String>().text() : value.toString();
            };
            for (int i : {0, 1, 2}) {
                const QString own = QString(u'a' + QString::number(i));
                sheet.set(i, key, key == "text" ? String(own).toVariant() : QVariant(own));
                sheet.set(i, "address", QUrl(own));
            }
            sheet.select({0, 1, 2});
            QVERIFY(!sheet.editor<ZelInspectorStringProperty>("address")->textField()->isEditable());
            QCOMPARE(sheet.shown(key), "Multiple Values");
            QWidget *field = sheet.editor<ZelInspectorProperty>(key)->controlsNamedByRow().last();
            const QKeyCombination end(key == "text" ? Qt::ControlModifier : Qt::NoModifier, Qt::Key_Return);
            const auto *rich = sheet.editor<Editor>("text");
            QVERIFY(!rich || !rich->isFormattable());
            Sheet::click(field);
            Sheet::press(end.key(), end.keyboardModifiers()); // in an untouched field
            Sheet::type("x");
            QVERIFY(!rich || rich->isFormattable());
            Sheet::press(Qt::Key_Escape);
            QVERIFY(!rich || !rich->isFormattable());
            QCOMPARE(sheet.stack.count(), 0);
            QCOMPARE(sheet.owner->actions, 0);
            QCOMPARE(sheet.shown(key), "Multiple Values");
            Sheet::click(field);
            Sheet::type("x");
            Sheet::press(Qt::Key_Backspace);
            QVERIFY(QApplication::focusWidget()->property("placeholderText") != "Multiple Values");
            Sheet::press(end.key(), end.keyboardModifiers());
            QCOMPARE(QStringList({text(0), text(1), text(2)}), QStringList({"", "", ""}));
            QCOMPARE(sheet.stack.count(), 1);
            QCOMPARE(sheet.owner->actions, 1);
            sheet.undo();
            QCOMPARE(sheet.shown(key), "Multiple Values");
            Sheet::click(field);
            Sheet::type("new");
            Sheet::press(end.key(), end.keyboardModifiers());
            QCOMPARE(QStringList({text(0), text(1), text(2)}), QStringList({"new", "new", "new"}));
            QCOMPARE(sheet.stack.count(), 1);
            QCOMPARE(sheet.stack.undoText(), "Change " + key);
            QCOMPARE(sheet.owner->actions, 2);
            sheet.undo();
            QCOMPARE(QStringList({text(0), text(1), text(2)}), QStringList({"a0", "a1", "a2"}));
            QCOMPARE(sheet.shown(key), "Multiple Values");
        }
    }

    void valuesAreThoseOfTheRunsInTheSelection()
    {
        String string("red", {{String::ForegroundColor, QColor(Qt::red)}, {String::Font, QFont("Serif", 20)}});
        string.append(String("blue", {{String::ForegroundColor, QColor(Qt::blue)}}));
        string.append(String("\nplain"));
        Desk desk(string);
        QCOMPARE(desk.value("textColor", 0, 3), QVariant(QColor(Qt::red)));
        QVERIFY(isMultiple(desk.value("textColor", 1, 4)));
        QCOMPARE(desk.value("textColor", 3, 0), QVariant(QColor(Qt::blue))); // of the character behind it
        QVERIFY(isMultiple(desk.value("textColor", 3, 5)));                  // the newline has none
        QVERIFY(!desk.value("textColor", string.length(), 0).isValid());
        QCOMPARE(desk.editor->property("font"), QVariant(desk.text->font()));
        QCOMPARE(desk.value("font", 0, 3).value<QFont>().pointSize(), 20);
        QVERIFY(isMultiple(desk.value("font", 0, 4)));
        desk.editor->fontDidChange(); // which of them?
        QCOMPARE(desk.stack.count(), 0);
        QList<String::Range> ranges;
        desk.text->setSelectedRange({1, 7});
        desk.editor->enumerateAttributesForSelection(
            [&](const String::Range &range, const String::Attributes &) { ranges.append(range); });
        QCOMPARE(ranges, (QList<String::Range>{{1, 2}, {3, 4}, {7, 1}}));
        Failures failures;
        desk.editor->enumerateAttributesForSelection({});
        QVERIFY(failures.taken().join(u'|').endsWith(": Invalid parameter not satisfying: block"));
        desk.select({});
        for (const char *name : {"textColor", "backgroundColor", "font", "alignment", "baseWritingDirection"})
            QVERIFY(isNone(desk.editor->property(name)));
    }

    void aRunDoesNotPartASurrogatePair()
    {
        const Desk desk(String(QString::fromUtf8("a\U0001F600\U0001F601b")));
        const std::pair<String::Range, String::Range> rows[] = {{{2, 2}, {1, 4}}, {{2, 0}, {1, 0}}, {{3, 3}, {3, 3}}};
        for (const auto &[range, selected] : rows) {
            desk.text->setSelectedRange(range);
            QCOMPARE(desk.text->selectedRange(), selected);
        }
    }

    void anInsertionPointTakesFormatsForWhatIsTypedNext()
    {
        String string("small big");
        string.setAttribute(String::Font, QFont("Serif", 20), {6, 3});
        Desk desk(string);
        ZelInspectorFontProperty *font = desk.editor->fontProperty();
        desk.text->setSelectedRange({6, 3});
        QTRY_COMPARE(font->stepper()->objectValue(), 20.0);
        QTest::keyClick(font->stepper(), Qt::Key_Up);
        QCOMPARE(desk.attributeAt(String::Font, 6).value<QFont>().pointSizeF(), 21.0);
        QVERIFY(!desk.attributeAt(String::Font, 0).isValid());
        desk.undo();
        QCOMPARE(font->fontSize(), 20.0);
        desk.text->setSelectedRange({7, 0});
        QTest::keyClick(font->stepper(), Qt::Key_Up);
        desk.clickSegment(Editor::BackgroundColorSegment);
        const QSignalSpy notices(desk.editor, &Editor::selectionValuesChanged);
        Desk::colorPanel()->setCurrentColor(Qt::cyan);
        QCOMPARE(desk.editor->property("backgroundColor"), QVariant(QColor(Qt::cyan)));
        QCOMPARE(notices.count(), 1);
        QCOMPARE(desk.string(), string);
        QCOMPARE(desk.stack.index(), 0);
        ZelColorPanel::sharedColorPanel()->close();
        QVERIFY(!desk.editor->isColorPanelActive() && !desk.bar->isSegmentSelected(Editor::BackgroundColorSegment));
    }

    void whatIsOpenIsLetGoWithTheView()
    {
        Desk desk;
        ZelBundle::mainBundle().setResourcePaths({});
        Failures failures;
        desk.clickSegment(Editor::MoreSegment);
        ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)});
        QVERIFY(failures.taken().join(u'|').endsWith(": Missing URL"));
        QVERIFY(!desk.editor->popover());
        desk.clickSegment(Editor::MoreSegment); // the description is there now
        QVERIFY(desk.editor->popover() && desk.editor->popover()->isShown());
        Desk::closePopups();
        desk.selectText(0, 3);
        desk.clickSegment(Editor::TextColorSegment);
        QVERIFY(desk.editor->isColorPanelActive());
        desk.inspector->view()->setParent(nullptr); // uninstalled
        QVERIFY(!desk.editor->isColorPanelActive() && !desk.bar->isSegmentSelected(Editor::TextColorSegment));
        QVERIFY(!ZelColorPanel::sharedColorPanel()->delegate());
    }

    void imagesAreDrawnInTheColorOfThePalette()
    {
        const QString name = "ZelTextAlignRightTemplate";
        const auto inkAt = [&](int side, int x) {
            const QImage image = ZelTextFormatImages::alignmentImage(name).pixmap(QSize(side, side), 1.0).toImage();
            int ink = 0;
            for (int y = 0; y < side; ++y)
                ink += image.pixelColor(x, y).alpha() > 128 ? 1 : 0;
            return ink;
        };
        QVERIFY(ZelTextFormatImages::alignmentImage(name).isMask());
        QCOMPARE(inkAt(14, 2), 2); // two lines begin at the left
        QCOMPARE(inkAt(14, 11), 4);
        QVERIFY(inkAt(56, 44) > inkAt(14, 11));
        QVERIFY(ZelTextFormatImages::alignmentImage("other").isNull());
        QPixmap own(4, 4);
        ZelNamedImages::setImageForName(own, name);
        QCOMPARE(ZelTextFormatImages::alignmentImage(name).cacheKey(), ZelNamedImages::imageNamed(name).cacheKey());
        ZelNamedImages::setImageForName({}, name);
        const auto center = [](const QVariant &color) {
            return ZelTextFormatImages::textColorImage(color).pixmap(QSize(14, 14), 1.0).toImage().pixelColor(7, 5);
        };
        QCOMPARE(center(QColor(Qt::blue)), QColor(Qt::blue));
        QCOMPARE(center(QVariant::fromValue(ZelNoSelectionMarker)).alpha(), 0);
    }

    void theProxyShowsOneStyleAsValues()
    {
        String string = styled("one\n", 2, 5);
        string.append(styled("two\n", 2, 7));
        Figure card;
        card.text = string;
        ZelParagraphStyleProxy proxy(&card, "text");
        const auto spacing = [&proxy] { return ZelValueForKey(&proxy, "lineSpacing"); };
        QCOMPARE(ZelValueForKey(&proxy, "alignment"), 2U);
        QVERIFY(isMultiple(spacing()));
        QVERIFY_EXCEPTION_THROWN(ZelValueForKey(&proxy, "color"), ZelUndefinedKeyException);
        proxy.setRange(String::Range{5, 0});
        QCOMPARE(spacing(), 7.0);
        Recorder recorder;
        ZelAddObserver(&proxy, &recorder, ZelKeyPath("lineSpacing"), 0, nullptr);
        ZelSetValueForKey(&proxy, 9, "lineSpacing");
        QCOMPARE(card.text.paragraphStyleAt(0).lineSpacing, 5.0);
        QCOMPARE(card.text.paragraphStyleAt(4).lineSpacing, 9.0);
        QCOMPARE(recorder.count(), 1);
        card.setProperty("text", QVariant::fromValue(string));
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(spacing(), 7.0);
        ZelSetValueForKey(&proxy, 1, "headerLevel");
        QCOMPARE(recorder.count(), 2);
        ZelSetValueForKey(&proxy, QVariant::fromValue(ZelMultipleValuesMarker), "lineSpacing");
        QCOMPARE(card.text.paragraphStyleAt(4).lineSpacing, 7.0);
        proxy.setRange({});
        QCOMPARE(recorder.count(), 3);
        card.setProperty("text", QVariant::fromValue(String()));
        QVERIFY(isNone(spacing()));
        ZelRemoveObserver(&proxy, &recorder, ZelKeyPath("lineSpacing"), nullptr);
    }
};
QTEST_MAIN(tst_TextEditors)
#include "tst_TextEditors.moc"
