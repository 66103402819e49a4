// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"

#include "../Descriptions.h"
#include "Controls/ZelColorPanel.h"
#include "Core/Errors/ZelException.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/private/ZelParagraphStyleProxy.h"
#include "Inspector/Properties/private/ZelTextFormatImages.h"
#include "Inspector/ZelInspectorSlice.h"
#include "Inspector/ZelParagraphStyleInspector.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelNamedImages.h"

#include <QSignalSpy>

using String = ZelAttributedString;
using Editor = ZelInspectorAttributedStringProperty;

/// A model as an application has it.
class Card : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ZelAttributedString note MEMBER note NOTIFY noteChanged)
public:
    explicit Card(const String &string = {})
        : note(string)
    {
    }
    void setNote(const String &string)
    {
        note = string;
        Q_EMIT noteChanged();
    }
    ZelAttributedString note;
Q_SIGNALS:
    void noteChanged();
};

namespace {

String colored(const QString &text, const QColor &color)
{
    return String(text, {{String::ForegroundColor, color}});
}

String aligned(const QString &text, uint alignment, double lineSpacing = 0)
{
    ZelParagraphStyle style;
    style.alignment = alignment;
    style.lineSpacing = lineSpacing;
    String string(text);
    string.setParagraphStyle(style, {0, string.length()});
    return string;
}

bool isNoSelection(const QVariant &value)
{
    return ZelIsMarker(value, ZelNoSelectionMarker);
}

bool isMultiple(const QVariant &value)
{
    return ZelIsMarker(value, ZelMultipleValuesMarker);
}

/// A shown editor of some cards' notes.
struct Desk : EditorWindow
{
    explicit Desk(const QList<String> &notes, bool allowsNil = false)
    {
        for (const String &note : notes)
            cards.push_back(std::make_unique<Card>(note));
        auto made = std::make_unique<Editor>(owner.get());
        made->setTitle(QStringLiteral("Note"));
        made->setKeyPath(QStringLiteral("people.selection.note"));
        made->setActionName(QStringLiteral("Edit Note"));
        made->setActionSelector("noteAction");
        made->placeholder = QStringLiteral("No note");
        made->allowsNilValues = allowsNil;
        property = install(std::move(made));
        text = property->textView();
        bar = property->segmentedControl();
        resize(320, 300);
        choose(notes.size());
    }
    ~Desk() override
    {
        editor.reset(); // which selects nothing in dead cards
        ZelColorPanel::sharedColorPanel()->close();
    }

    /// Selects the first cards.
    void choose(qsizetype count)
    {
        QList<QObject *> selected;
        for (qsizetype i = 0; i < count; ++i)
            selected.append(cards.at(size_t(i)).get());
        owner->controller.setSelectedObjects(selected);
        QCoreApplication::processEvents();
    }
    void click(int segment) { QTest::mouseClick(bar, Qt::LeftButton, {}, bar->segmentRect(segment).center()); }
    QList<int> selectedSegments() const
    {
        QList<int> list;
        for (int i = 0; i < bar->segmentCount(); ++i) {
            if (bar->isSegmentSelected(i))
                list.append(i);
        }
        return list;
    }
    /// Has the user choose a colour in the panel.
    static void pick(const QColor &color)
    {
        auto *dialog = qobject_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window());
        QVERIFY(dialog);
        dialog->setCurrentColor(color);
    }
    const String &note(size_t card = 0) const { return cards.at(card)->note; }

    std::vector<std::unique_ptr<Card>> cards;
    Editor *property = nullptr;
    QPointer<ZelInspectorTextView> text;
    QPointer<ZelSegmentedControl> bar;
};

} // namespace

class tst_ZelInspectorAttributedStringProperty : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        ZelParagraphStyleInspector::useForEditors();
        ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)});
    }

    void showsTheStatesOfTheSelection()
    {
        Desk desk({colored("same", Qt::red), colored("same", Qt::red), colored("same", Qt::blue), String()});
        QVERIFY(!desk.text->isEditable() && desk.text->attributedString().isEmpty());
        QCOMPARE(desk.text->placeholderText(), QStringLiteral("Multiple Values"));
        QVERIFY(!desk.property->isFormattable());
        desk.choose(2);
        QVERIFY(desk.text->isEditable() && desk.property->isFormattable());
        QCOMPARE(desk.text->attributedString(), desk.note());
        desk.choose(0);
        QCOMPARE(desk.text->placeholderText(), QStringLiteral("No Selection"));
        QVERIFY(isNoSelection(desk.property->property("textColor")));
        desk.owner->controller.setSelectedObjects({desk.cards[3].get()});
        QTRY_COMPARE(desk.text->placeholderText(), QStringLiteral("No note"));
        for (const char *name : {"textColor", "backgroundColor", "font", "alignment", "baseWritingDirection"})
            QVERIFY(isNoSelection(desk.property->property(name)));
    }

    void typingIsWrittenWhenItIsCommitted()
    {
        Desk desk({colored("one", Qt::red), colored("one", Qt::red)});
        desk.text->setFocus();
        desk.text->setSelectedRange({0, 3});
        QTest::keyClicks(desk.text, QStringLiteral("two"));
        QCOMPARE(desk.note().text(), QStringLiteral("one"));
        desk.text->commitEditing();
        QCOMPARE(desk.note(), colored("two", Qt::red)); // typed like what was replaced
        QCOMPARE(desk.note(1), desk.note());
        QCOMPARE(desk.undo.stack()->count(), 1);
        QCOMPARE(desk.undo.stack()->undoText(), QStringLiteral("Edit Note"));
        QCOMPARE(desk.owner->actions, 1);
        desk.text->commitEditing();
        QCOMPARE(desk.owner->actions, 1);
        desk.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(desk.text->attributedString(), colored("one", Qt::red));
        QCOMPARE(desk.note(1), colored("one", Qt::red));
    }

    void aModelThatChangesWhileTypingWaits()
    {
        Desk desk({String(QStringLiteral("old"))});
        desk.text->setFocus();
        QTest::keyClicks(desk.text, QStringLiteral("typed "));
        desk.cards[0]->setNote(colored("new", Qt::green));
        QTest::qWait(1);
        QCOMPARE(desk.text->attributedString().text(), QStringLiteral("typed old"));
        desk.text->discardEditing();
        QCOMPARE(desk.text->attributedString(), colored("new", Qt::green));
        desk.text->setSelectedRange({1, 2});
        QTest::keyClicks(desk.text, QStringLiteral("x"));
        desk.cards[0]->setNote(String(QStringLiteral("newer")));
        QTest::qWait(1);
        desk.text->commitEditing();
        QCOMPARE(desk.note(), colored("nx", Qt::green));
    }

    void anEmptiedTextIsEmptyOrNothing_data()
    {
        QTest::addColumn<bool>("allowsNil");
        QTest::newRow("empty") << false;
        QTest::newRow("nothing") << true;
    }
    void anEmptiedTextIsEmptyOrNothing()
    {
        QFETCH(bool, allowsNil);
        Desk desk({String(QStringLiteral("a"))}, allowsNil);
        desk.text->setFocus();
        QTest::keyClick(desk.text, Qt::Key_Delete);
        desk.text->commitEditing();
        QVERIFY(desk.note().isEmpty());
        QCOMPARE(desk.note().isNull(), allowsNil);
        desk.undo.undo();
        QCOMPARE(desk.note().text(), QStringLiteral("a"));
    }

    void valuesAreThoseOfTheRunsInTheSelection()
    {
        String string = colored("red", Qt::red);
        string.append(colored("blue", Qt::blue));
        string.append(String(QStringLiteral("\nplain")));
        QFont font(QStringLiteral("Serif"), 20);
        string.setAttribute(String::Font, font, {0, 3});
        Desk desk({string});
        const auto textColorAt = [&](qsizetype start, qsizetype length) {
            desk.text->setSelectedRange({start, length});
            return desk.property->property("textColor");
        };
        QCOMPARE(textColorAt(0, 3), QVariant(QColor(Qt::red)));
        QVERIFY(isMultiple(textColorAt(1, 4)));
        QCOMPARE(textColorAt(3, 0), QVariant(QColor(Qt::blue))); // of the character behind it
        QVERIFY(isMultiple(textColorAt(3, 5)));                  // the newline has none
        QVERIFY(!textColorAt(string.length(), 0).isValid());
        QCOMPARE(desk.property->property("font"), QVariant(desk.text->font()));
        desk.text->setSelectedRange({0, 3});
        QCOMPARE(desk.property->property("font").value<QFont>().pointSize(), 20);
        desk.text->setSelectedRange({0, 4});
        QVERIFY(isMultiple(desk.property->property("font")));

        QList<String::Range> ranges;
        desk.text->setSelectedRange({1, 7});
        desk.property->enumerateAttributesForSelection(
            [&](const String::Range &range, const String::Attributes &) { ranges.append(range); });
        QCOMPARE(ranges, (QList<String::Range>{{1, 2}, {3, 4}, {7, 1}}));
        const QuietHandler handler;
        desk.property->enumerateAttributesForSelection({});
        QCOMPARE(handler.messages, QStringList("Invalid parameter not satisfying: block"));
    }

    void aRunDoesNotPartASurrogatePair()
    {
        Desk desk({String(QString::fromUtf8("a\U0001F600\U0001F601b"))});
        const auto selected = [&](qsizetype start, qsizetype length) {
            desk.text->setSelectedRange({start, length});
            return desk.text->selectedRange();
        };
        QCOMPARE(selected(2, 2), (String::Range{1, 4}));
        QCOMPARE(selected(2, 0), (String::Range{1, 0}));
        QCOMPARE(selected(3, 3), (String::Range{3, 3}));
        desk.property->setAttribute(String::Overline, true);
        desk.text->commitEditing();
        QCOMPARE(desk.note().runs().first().range, (String::Range{0, 3}));
    }

    void paragraphsWithoutAStyleSayNothing()
    {
        String string(QStringLiteral("plain\n"));
        string.append(aligned("center\n", ZelParagraphStyle::AlignCenter, 3));
        string.append(aligned("right", ZelParagraphStyle::AlignRight, 3));
        Desk desk({string});
        QVERIFY(isNoSelection(desk.property->property("alignment")));
        QVERIFY(desk.selectedSegments().isEmpty());
        desk.text->setSelectedRange({0, 8});
        QCOMPARE(desk.property->property("alignment"), QVariant(uint(ZelParagraphStyle::AlignCenter)));
        QCOMPARE(desk.selectedSegments(), QList<int>{Editor::CenterSegment});
        desk.text->setSelectedRange({0, string.length()});
        QVERIFY(isMultiple(desk.property->property("alignment")));
        QVERIFY(desk.selectedSegments().isEmpty());
        QCOMPARE(desk.property->property("lineSpacing"), QVariant(3.0));
        QCOMPARE(desk.property->property("hyphenationFactor").typeId(), int(QMetaType::Float));
        QCOMPARE(desk.property->property("headerLevel").typeId(), int(QMetaType::Int));
    }

    void segmentsAlignTheParagraphsOfTheSelection_data()
    {
        QTest::addColumn<int>("segment");
        QTest::addColumn<uint>("alignment");
        QTest::newRow("left") << 0 << 0U;
        QTest::newRow("center") << 1 << 2U;
        QTest::newRow("right") << 2 << 1U;
        QTest::newRow("justified") << 3 << 3U;
        QTest::newRow("natural") << 4 << 4U;
    }
    void segmentsAlignTheParagraphsOfTheSelection()
    {
        QFETCH(int, segment);
        QFETCH(uint, alignment);
        String string = aligned("one\ntwo\n", 9, 5);
        string.append(String(QStringLiteral("three")));
        Desk desk({string, string});
        desk.text->setFocus();
        desk.text->setSelectedRange({5, 5});
        desk.click(segment);
        QCOMPARE(desk.selectedSegments(), QList<int>{segment});
        QCOMPARE(desk.text->selectedRange(), (String::Range{5, 5}));
        QVERIFY(desk.text->hasFocus());
        for (size_t card : {0U, 1U}) {
            QCOMPARE(desk.note(card).paragraphStyleAt(0).alignment, 9U);
            QCOMPARE(desk.note(card).paragraphStyleAt(4).alignment, alignment);
            QCOMPARE(desk.note(card).paragraphStyleAt(4).lineSpacing, 5.0);
            QCOMPARE(desk.note(card).paragraphStyleAt(8).alignment, alignment);
            QCOMPARE(desk.note(card).paragraphStyleAt(8).lineSpacing, 0.0);
        }
        QCOMPARE(desk.undo.stack()->count(), 1);
        desk.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(desk.note(), string);
        QCOMPARE(desk.text->attributedString(), string);
    }

    void aFormatTakesTypingWithIt()
    {
        Desk desk({String(QStringLiteral("ab"))});
        desk.text->setFocus();
        QTest::keyClicks(desk.text, QStringLiteral("x"));
        desk.click(Editor::CenterSegment);
        QCOMPARE(desk.note(), aligned("xab", ZelParagraphStyle::AlignCenter));
        QCOMPARE(desk.undo.stack()->count(), 1);
    }

    void aFontIsAppliedAsAWhole()
    {
        Desk desk({String(QStringLiteral("abc"))});
        desk.text->setSelectedRange({0, 2});
        QFont font(QStringLiteral("Serif"), 18, QFont::Bold);
        desk.property->setProperty("font", font);
        desk.property->fontDidChange();
        QCOMPARE(desk.note().runs().size(), 2);
        QCOMPARE(desk.note().attributeAt(String::Font, 0).value<QFont>().pointSize(), 18);
        QVERIFY(!desk.note().attributeAt(String::Font, 2).isValid());
        desk.text->setSelectedRange({0, 3});
        desk.property->fontDidChange(); // several fonts
        QCOMPARE(desk.undo.stack()->count(), 1);
        font.setPixelSize(33);
        desk.property->setProperty("font", font);
        desk.property->fontDidChange();
        QCOMPARE(desk.text->attributedString().attributeAt(String::Font, 0).value<QFont>().pixelSize(), 33);
    }

    void theFontEditorEditsTheSelection()
    {
        String string(QStringLiteral("small big"));
        string.setAttribute(String::Font, QFont(QStringLiteral("Serif"), 20), {6, 3});
        Desk desk({string});
        ZelInspectorFontProperty *font = desk.property->fontProperty();
        desk.text->setSelectedRange({6, 3});
        QTRY_COMPARE(font->stepper()->objectValue(), QVariant(20.0));
        QTest::keyClick(font->stepper(), Qt::Key_Up);
        QCOMPARE(desk.note().attributeAt(String::Font, 6).value<QFont>().pointSizeF(), 21.0);
        QVERIFY(!desk.note().attributeAt(String::Font, 0).isValid());
        QCOMPARE(desk.undo.stack()->count(), 1);
        QCOMPARE(desk.undo.stack()->undoText(), QStringLiteral("Edit Note"));
        desk.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(desk.note(), string);
        QCOMPARE(font->fontSize(), QVariant(20.0));
        desk.text->setSelectedRange({7, 0});
        QTest::keyClick(font->stepper(), Qt::Key_Up); // for what is typed next, the text is as it was
        QCOMPARE(desk.note(), string);
        QCOMPARE(desk.undo.stack()->index(), 0);
        QCOMPARE(desk.undo.stack()->count(), 1);
        desk.text->setSelectedRange({0, 9});
        QTRY_COMPARE(font->textField()->text(), QStringLiteral("Multiple Fonts"));
        desk.choose(0);
        QTRY_VERIFY(!font->button()->isEnabled());
    }

    void theColorPanelColorsTheSelection()
    {
        Desk desk({colored("red", Qt::red)});
        ZelColorPanel *panel = ZelColorPanel::sharedColorPanel();
        desk.text->setSelectedRange({0, 2});
        desk.click(Editor::TextColorSegment);
        QCOMPARE(desk.selectedSegments(), QList<int>{Editor::TextColorSegment});
        QVERIFY(panel->isVisible() && panel->showsAlpha());
        QCOMPARE(panel->color(), QColor(Qt::red));
        QCOMPARE(desk.undo.stack()->count(), 0);
        Desk::pick(Qt::green);
        QCOMPARE(desk.note().attributeAt(String::ForegroundColor, 1), QVariant(QColor(Qt::green)));
        QCOMPARE(desk.note().attributeAt(String::ForegroundColor, 2), QVariant(QColor(Qt::red)));
        desk.text->setSelectedRange({0, 3});
        QCOMPARE(panel->color(), QColor(Qt::black)); // two colours
        desk.click(Editor::BackgroundColorSegment);
        QCOMPARE(desk.selectedSegments(), QList<int>{Editor::BackgroundColorSegment});
        Desk::pick(Qt::yellow);
        QCOMPARE(desk.note().attributeAt(String::BackgroundColor, 2), QVariant(QColor(Qt::yellow)));
        QCOMPARE(desk.undo.stack()->count(), 2);
        desk.text->setSelectedRange({3, 0});
        const QSignalSpy notices(desk.property, &Editor::selectionValuesChanged);
        Desk::pick(Qt::cyan); // of what is typed next
        QCOMPARE(desk.property->property("backgroundColor"), QVariant(QColor(Qt::cyan)));
        QCOMPARE(notices.count(), 1);
        QCOMPARE(desk.undo.stack()->count(), 2);
        panel->close();
        QVERIFY(!desk.property->isColorPanelActive() && desk.selectedSegments().isEmpty());
        QVERIFY(!panel->delegate());
    }

    void theColorPanelIsLetGoWithTheView()
    {
        Desk desk({colored("first", Qt::red)});
        desk.text->setSelectedRange({0, 5});
        desk.click(Editor::TextColorSegment);
        desk.layout()->removeWidget(desk.property->view());
        desk.property->view()->setParent(nullptr); // uninstalled
        QVERIFY(!desk.property->isColorPanelActive() && desk.selectedSegments().isEmpty());
        QVERIFY(!ZelColorPanel::sharedColorPanel()->delegate());
        delete desk.editor.release()->view();
    }

    void thePopoverEditsTheParagraphs()
    {
        String string = aligned("one\n", ZelParagraphStyle::AlignRight, 5);
        string.append(aligned("two\n", ZelParagraphStyle::AlignCenter, 7));
        string.append(String(QStringLiteral("three")));
        Desk desk({string});
        desk.text->setSelectedRange({0, string.length()});
        desk.click(Editor::MoreSegment);
        QVERIFY(desk.selectedSegments().isEmpty());
        QVERIFY(desk.property->popover()->isShown());
        QVERIFY(isMultiple(desk.property->property("lineSpacing")));
        const auto editors = desk.property->paragraphStyleInspector()->findChildren<ZelInspectorNumberProperty *>();
        const auto headIndent = std::find_if(editors.begin(), editors.end(),
                                             [](const auto *one) { return one->keyPath() == u"headIndent"; });
        QVERIFY(headIndent != editors.end());
        ZelTextField *field = (*headIndent)->textField();
        QVERIFY(field->isEditable());
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral("12"));
        QTest::keyClick(field, Qt::Key_Return);
        for (qsizetype start : {0, 4, 8})
            QCOMPARE(desk.note().paragraphStyleAt(start).headIndent, 12.0);
        QCOMPARE(desk.note().paragraphStyleAt(0).lineSpacing, 5.0);
        QCOMPARE(desk.note().paragraphStyleAt(4).lineSpacing, 7.0);
        QCOMPARE(desk.note().paragraphStyleAt(4).alignment, uint(ZelParagraphStyle::AlignCenter));
        QCOMPARE(desk.undo.stack()->count(), 1);
        QCOMPARE(desk.undo.stack()->undoText(), QStringLiteral("Edit Note"));
        desk.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(desk.note(), string);
        QCOMPARE(field->objectValue(), QVariant(0.0));
        desk.property->popover()->performClose();
        desk.text->setSelectedRange({9, 0});
        QVERIFY(isNoSelection(desk.property->property("headIndent")));
        desk.click(Editor::MoreSegment); // a paragraph without a style still says nothing
        QVERIFY(isNoSelection(desk.property->property("headIndent")));
    }

    void aMissingParagraphDescriptionFails()
    {
        ZelBundle::mainBundle().setResourcePaths({});
        Desk desk({String(QStringLiteral("a"))});
        const QuietHandler handler;
        desk.click(Editor::MoreSegment);
        ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)});
        QCOMPARE(handler.messages, QStringList("Missing URL"));
        QVERIFY(!desk.property->popover());
        desk.click(Editor::MoreSegment);
        QVERIFY(desk.property->popover() && desk.property->popover()->isShown());
    }

    void anythingMayDieWhileSomethingIsOpen_data()
    {
        QTest::addColumn<int>("segment");
        QTest::addColumn<QString>("order");
        for (int segment : {int(Editor::TextColorSegment), int(Editor::MoreSegment)}) {
            for (const char *order : {"e", "v", "ve", "o", "oe", "m", "me", "te", "pe"})
                QTest::addRow("%d %s", segment, order) << segment << order;
        }
    }
    void anythingMayDieWhileSomethingIsOpen()
    {
        QFETCH(int, segment);
        QFETCH(QString, order);
        const QuietHandler handler;
        Desk desk({colored("one", Qt::red), colored("one", Qt::red)});
        desk.text->setFocus();
        desk.text->setSelectedRange({0, 3});
        desk.click(segment);
        if (segment == Editor::MoreSegment) {
            // Something is being typed in the popover, too.
            QWidget *focused = desk.property->popover()->contentWidget()->window()->focusWidget();
            QVERIFY(focused);
            QTest::keyClicks(focused, QStringLiteral("3"));
        }
        for (QChar what : order) {
            if (what == u'e')
                desk.editor.reset();
            else if (what == u'v')
                delete desk.editor->view();
            else if (what == u'o')
                desk.owner.reset();
            else if (what == u'm')
                desk.cards.clear();
            else if (what == u't')
                delete desk.text;
            else if (what == u'p' && desk.property->popover())
                delete desk.property->popover()->contentWidget();
            if (ZelColorPanel::sharedColorPanel()->isVisible())
                Desk::pick(Qt::green);
            QCoreApplication::processEvents();
        }
        // An editor that dies first leaves a view behind that is still used; nothing else is wrong.
        const bool leavesView = order.contains(u'e') && !order.contains(u'v');
        QCOMPARE(handler.messages.filter(QStringLiteral("view is still used")).size(), leavesView ? 1 : 0);
        QCOMPARE(handler.messages.size(), leavesView ? 1 : 0);
    }

    void followsEnabledKeyPath()
    {
        Desk desk({String(QStringLiteral("a"))});
        auto made = std::make_unique<Editor>(desk.owner.get());
        made->setKeyPath(QStringLiteral("people.selection.note"));
        made->setEnabledKeyPath(QStringLiteral("unlocked"));
        Editor *editor = desk.install(std::move(made));
        QVERIFY(editor->isFormattable());
        desk.owner->setUnlocked(false);
        QTRY_VERIFY(!editor->isFormattable());
        QVERIFY(!editor->textView()->isEnabled() && !editor->segmentedControl()->isEnabled());
        desk.owner->setUnlocked(true);
        QTRY_VERIFY(editor->isFormattable());
    }

    void aPlainTextPropertyKeepsTheText()
    {
        EditorWindow window;
        window.people[0]->setName(QStringLiteral("Ada"));
        auto made = std::make_unique<Editor>(window.owner.get());
        made->setKeyPath(QStringLiteral("people.selection.name"));
        Editor *editor = window.install(std::move(made));
        window.select({0});
        editor->textView()->setFocus();
        QTest::keyClicks(editor->textView(), QStringLiteral("Dr "));
        editor->textView()->commitEditing();
        QCOMPARE(window.people[0]->name(), QStringLiteral("Dr Ada"));
    }

    void imagesAreDrawnInTheColorOfThePalette()
    {
        const QString name = QStringLiteral("ZelTextAlignRightTemplate");
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
        QVERIFY(ZelTextFormatImages::alignmentImage(QStringLiteral("other")).isNull());
        QPixmap own(4, 4);
        own.fill(Qt::magenta);
        ZelNamedImages::setImageForName(own, name);
        QCOMPARE(ZelTextFormatImages::alignmentImage(name).cacheKey(), ZelNamedImages::imageNamed(name).cacheKey());
        ZelNamedImages::setImageForName({}, name);
        const auto center = [](const QIcon &icon) {
            return icon.pixmap(QSize(14, 14), 1.0).toImage().pixelColor(7, 5);
        };
        QCOMPARE(center(ZelTextFormatImages::textColorImage(QColor(Qt::blue))), QColor(Qt::blue));
        QCOMPARE(center(ZelTextFormatImages::textColorImage(QVariant::fromValue(ZelNoSelectionMarker))).alpha(), 0);
    }

    void theProxyShowsOneStyleAsValues()
    {
        String string = aligned("one\n", 2, 5);
        string.append(aligned("two\n", 2, 7));
        Card card(string);
        ZelParagraphStyleProxy proxy(&card, QStringLiteral("note"));
        QCOMPARE(ZelValueForKey(&proxy, "alignment"), QVariant(2U));
        QVERIFY(isMultiple(ZelValueForKey(&proxy, "lineSpacing")));
        QVERIFY_EXCEPTION_THROWN(ZelValueForKey(&proxy, "color"), ZelUndefinedKeyException);
        proxy.setRange(String::Range{5, 0});
        QCOMPARE(ZelValueForKey(&proxy, "lineSpacing"), QVariant(7.0));

        int notices = 0;
        static const char context = 0;
        ZelObservations(this).addObservationWithObject(
            &proxy, "lineSpacing", 0, [&](ZelBlockObservation *, const ZelKeyValueChange &) { ++notices; }, &context);
        ZelSetValueForKey(&proxy, 9, "lineSpacing");
        QCOMPARE(card.note.paragraphStyleAt(0).lineSpacing, 5.0);
        QCOMPARE(card.note.paragraphStyleAt(4).lineSpacing, 9.0);
        QCOMPARE(notices, 1);
        card.setNote(string);
        QCOMPARE(notices, 2);
        QCOMPARE(ZelValueForKey(&proxy, "lineSpacing"), QVariant(7.0));
        ZelSetValueForKey(&proxy, 1, "headerLevel");
        QCOMPARE(notices, 2);
        ZelSetValueForKey(&proxy, QVariant::fromValue(ZelMultipleValuesMarker), "lineSpacing");
        QCOMPARE(card.note.paragraphStyleAt(4).lineSpacing, 7.0);
        proxy.setRange({});
        QCOMPARE(notices, 3);
        card.setNote({});
        QVERIFY(isNoSelection(ZelValueForKey(&proxy, "lineSpacing")));
        ZelObservations(this).removeAllObservationsForContext(&context);
    }
};

QTEST_MAIN(tst_ZelInspectorAttributedStringProperty)
#include "tst_ZelInspectorAttributedStringProperty.moc"
