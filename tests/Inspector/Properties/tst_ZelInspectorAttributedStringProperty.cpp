// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"

#include "Controls/ZelColorPanel.h"
#include "Core/Errors/ZelException.h"
#include "Core/Values/ZelValues.h"
#include "FigureWindow.h"
#include "Inspector/Properties/private/ZelParagraphStyleProxy.h"
#include "Inspector/Properties/private/ZelTextFormatImages.h"
#include "Inspector/ZelParagraphStyleInspector.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelNamedImages.h"
#include "Support/Recorder.h"

#include <QSignalSpy>

namespace {

using String = ZelAttributedString;
using Editor = ZelInspectorAttributedStringProperty;
using Style = ZelParagraphStyle;

String colored(const QString &text, const QColor &color)
{
    return String(text, {{String::ForegroundColor, color}});
}

String aligned(const QString &text, uint alignment, double lineSpacing)
{
    Style style;
    style.alignment = alignment;
    style.lineSpacing = lineSpacing;
    String string(text);
    string.setParagraphStyle(style, {0, string.length()});
    return string;
}

/// A shown editor of a figure's text.
struct Desk : FigureWindow
{
    explicit Desk(const String &string)
        : property(edit<Editor>("text"))
        , text(property->textView())
        , bar(property->segmentedControl())
    {
        first.text = string;
        resize(320, 300);
        select({&first});
        text->setFocus();
    }
    ~Desk() override { ZelColorPanel::sharedColorPanel()->close(); }

    /// A value of what is selected in the text.
    QVariant value(const char *name, qsizetype start, qsizetype length) const
    {
        text->setSelectedRange({start, length});
        return property->property(name);
    }
    void click(int segment) const { QTest::mouseClick(bar, Qt::LeftButton, {}, bar->segmentRect(segment).center()); }

    Editor *property;
    ZelInspectorTextView *text;
    ZelSegmentedControl *bar;
};

bool isNone(const QVariant &value)
{
    return ZelIsMarker(value, ZelNoSelectionMarker);
}

bool isMultiple(const QVariant &value)
{
    return ZelIsMarker(value, ZelMultipleValuesMarker);
}

} // namespace

/// What of rich texts a user does not see or reach.
class tst_ZelInspectorAttributedStringProperty : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        ZelParagraphStyleInspector::useForEditors();
        ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)});
    }

    void valuesAreThoseOfTheRunsInTheSelection()
    {
        String string = colored("red", Qt::red);
        string.append(colored("blue", Qt::blue));
        string.append(String("\nplain"));
        string.setAttribute(String::Font, QFont("Serif", 20), {0, 3});
        Desk desk(string);
        QCOMPARE(desk.value("textColor", 0, 3), QVariant(QColor(Qt::red)));
        QVERIFY(isMultiple(desk.value("textColor", 1, 4)));
        QCOMPARE(desk.value("textColor", 3, 0), QVariant(QColor(Qt::blue))); // of the character behind it
        QVERIFY(isMultiple(desk.value("textColor", 3, 5)));                  // the newline has none
        QVERIFY(!desk.value("textColor", string.length(), 0).isValid());
        QCOMPARE(desk.property->property("font"), QVariant(desk.text->font()));
        QCOMPARE(desk.value("font", 0, 3).value<QFont>().pointSize(), 20);
        QVERIFY(isMultiple(desk.value("font", 0, 4)));
        QList<String::Range> ranges;
        desk.text->setSelectedRange({1, 7});
        desk.property->enumerateAttributesForSelection(
            [&](const String::Range &range, const String::Attributes &) { ranges.append(range); });
        QCOMPARE(ranges, (QList<String::Range>{{1, 2}, {3, 4}, {7, 1}}));
        Failures failures;
        desk.property->enumerateAttributesForSelection({});
        QVERIFY(failures.taken().join(u'|').endsWith(": Invalid parameter not satisfying: block"));
        const auto areNone = [&] {
            for (const char *name : {"textColor", "backgroundColor", "font", "alignment", "baseWritingDirection"}) {
                if (!isNone(desk.property->property(name)))
                    return false;
            }
            return true;
        };
        desk.select({});
        QVERIFY(areNone());
        desk.first.text = {};
        desk.select({&desk.first});
        QVERIFY(areNone());
    }

    void aRunDoesNotPartASurrogatePair()
    {
        Desk desk(String(QString::fromUtf8("a\U0001F600\U0001F601b")));
        const std::pair<String::Range, String::Range> rows[] = {{{2, 2}, {1, 4}}, {{2, 0}, {1, 0}}, {{3, 3}, {3, 3}}};
        for (const auto &[range, selected] : rows) {
            desk.text->setSelectedRange(range);
            QCOMPARE(desk.text->selectedRange(), selected);
        }
        desk.property->setAttribute(String::Overline, true);
        desk.text->commitEditing();
        QCOMPARE(desk.first.text.runs().first().range, (String::Range{0, 3}));
    }

    void paragraphsWithoutAStyleSayNothing()
    {
        String string("plain\n");
        string.append(aligned("center\n", Style::AlignCenter, 3));
        string.append(aligned("right", Style::AlignRight, 3));
        const Desk desk(string);
        const auto segments = [&] {
            QList<int> list;
            for (int i = 0; i < desk.bar->segmentCount(); ++i) {
                if (desk.bar->isSegmentSelected(i))
                    list.append(i);
            }
            return list;
        };
        QVERIFY(isNone(desk.value("alignment", 0, 0)) && segments().isEmpty());
        QCOMPARE(desk.value("alignment", 0, 8), uint(Style::AlignCenter));
        QCOMPARE(segments(), QList<int>{Editor::CenterSegment});
        QVERIFY(isMultiple(desk.value("alignment", 0, string.length())) && segments().isEmpty());
        QCOMPARE(desk.property->property("lineSpacing"), 3.0);
        QCOMPARE(desk.property->property("hyphenationFactor").typeId(), int(QMetaType::Float));
        QCOMPARE(desk.property->property("headerLevel").typeId(), int(QMetaType::Int));
        desk.click(Editor::MoreSegment); // which changes nothing of that
        QVERIFY(isNone(desk.value("headIndent", 0, 0)));
        desk.property->popover()->performClose();
    }

    void aFontIsAppliedAsAWhole()
    {
        Desk desk(String("abc"));
        desk.text->setSelectedRange({0, 2});
        QFont font("Serif", 18, QFont::Bold);
        desk.property->setProperty("font", font);
        desk.property->fontDidChange();
        QCOMPARE(desk.first.text.runs().size(), 2);
        QCOMPARE(desk.first.text.attributeAt(String::Font, 0).value<QFont>().pointSize(), 18);
        QVERIFY(!desk.first.text.attributeAt(String::Font, 2).isValid());
        desk.text->setSelectedRange({0, 3});
        desk.property->fontDidChange(); // several fonts
        QCOMPARE(desk.steps(), 1);
        font.setPixelSize(33);
        desk.property->setProperty("font", font);
        desk.property->fontDidChange();
        QCOMPARE(desk.text->attributedString().attributeAt(String::Font, 0).value<QFont>().pixelSize(), 33);
    }

    void anInsertionPointTakesFormatsForWhatIsTypedNext()
    {
        String string("small big");
        string.setAttribute(String::Font, QFont("Serif", 20), {6, 3});
        Desk desk(string);
        ZelInspectorFontProperty *font = desk.property->fontProperty();
        desk.text->setSelectedRange({6, 3});
        QTRY_COMPARE(font->stepper()->objectValue(), 20.0);
        QTest::keyClick(font->stepper(), Qt::Key_Up);
        QCOMPARE(desk.first.text.attributeAt(String::Font, 6).value<QFont>().pointSizeF(), 21.0);
        QVERIFY(!desk.first.text.attributeAt(String::Font, 0).isValid());
        QCOMPARE(desk.steps(), 1);
        desk.undo();
        QCOMPARE(font->fontSize(), 20.0);
        desk.text->setSelectedRange({7, 0});
        QTest::keyClick(font->stepper(), Qt::Key_Up);
        desk.click(Editor::BackgroundColorSegment);
        const QSignalSpy notices(desk.property, &Editor::selectionValuesChanged);
        static_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window())->setCurrentColor(Qt::cyan);
        QCOMPARE(desk.property->property("backgroundColor"), QVariant(QColor(Qt::cyan)));
        QCOMPARE(notices.count(), 1);
        QCOMPARE(desk.first.text, string);
        QCOMPARE(desk.undoManager.stack()->index(), 0);
        ZelColorPanel::sharedColorPanel()->close();
        QVERIFY(!desk.property->isColorPanelActive() && !desk.bar->isSegmentSelected(Editor::BackgroundColorSegment));
        desk.text->setSelectedRange({0, 9});
        QTRY_COMPARE(font->textField()->text(), "Multiple Fonts");
        desk.select({});
        QTRY_VERIFY(!font->button()->isEnabled());
    }

    void whatIsOpenIsLetGoWithTheView()
    {
        Desk desk(colored("first", Qt::red));
        ZelBundle::mainBundle().setResourcePaths({});
        Failures failures;
        desk.click(Editor::MoreSegment);
        ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)});
        QVERIFY(failures.taken().join(u'|').endsWith(": Missing URL"));
        QVERIFY(!desk.property->popover());
        desk.click(Editor::MoreSegment); // the description is there now
        QVERIFY(desk.property->popover() && desk.property->popover()->isShown());
        desk.property->popover()->performClose();
        desk.text->setSelectedRange({0, 5});
        desk.click(Editor::TextColorSegment);
        QVERIFY(desk.property->isColorPanelActive());
        desk.property->view()->setParent(nullptr); // uninstalled
        QVERIFY(!desk.property->isColorPanelActive() && !desk.bar->isSegmentSelected(Editor::TextColorSegment));
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
        Figure card;
        card.text = string;
        ZelParagraphStyleProxy proxy(&card, "text");
        QCOMPARE(ZelValueForKey(&proxy, "alignment"), 2U);
        QVERIFY(isMultiple(ZelValueForKey(&proxy, "lineSpacing")));
        QVERIFY_EXCEPTION_THROWN(ZelValueForKey(&proxy, "color"), ZelUndefinedKeyException);
        proxy.setRange(String::Range{5, 0});
        QCOMPARE(ZelValueForKey(&proxy, "lineSpacing"), 7.0);

        Recorder recorder;
        ZelAddObserver(&proxy, &recorder, ZelKeyPath("lineSpacing"), 0, nullptr);
        ZelSetValueForKey(&proxy, 9, "lineSpacing");
        QCOMPARE(card.text.paragraphStyleAt(0).lineSpacing, 5.0);
        QCOMPARE(card.text.paragraphStyleAt(4).lineSpacing, 9.0);
        QCOMPARE(recorder.count(), 1);
        card.setProperty("text", QVariant::fromValue(string));
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(ZelValueForKey(&proxy, "lineSpacing"), 7.0);
        ZelSetValueForKey(&proxy, 1, "headerLevel");
        QCOMPARE(recorder.count(), 2);
        ZelSetValueForKey(&proxy, QVariant::fromValue(ZelMultipleValuesMarker), "lineSpacing");
        QCOMPARE(card.text.paragraphStyleAt(4).lineSpacing, 7.0);
        proxy.setRange({});
        QCOMPARE(recorder.count(), 3);
        card.setProperty("text", QVariant::fromValue(String()));
        QVERIFY(isNone(ZelValueForKey(&proxy, "lineSpacing")));
        ZelRemoveObserver(&proxy, &recorder, ZelKeyPath("lineSpacing"), nullptr);
    }
};

QTEST_MAIN(tst_ZelInspectorAttributedStringProperty)
#include "tst_ZelInspectorAttributedStringProperty.moc"
