// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Support/Figure.h"
#include "Text/ZelFontManager.h"
#include "Text/ZelTextDocumentCoder.h"
#include <QTest>
#include <QtWidgets>

using String = ZelAttributedString;
using Style = ZelParagraphStyle;
using Coder = ZelTextDocumentCoder;
using Manager = ZelFontManager;

class tst_ZelText : public QObject
{
    Q_OBJECT
    static Style aligned(uint alignment) { return {.alignment = alignment}; }
    static String throughDocument(const String &string)
    {
        QTextDocument document;
        Coder::write(string, &document);
        return Coder::read(&document);
    }
    /// Starts and lengths of the runs that have the attribute.
    static QString places(const String &string, const QString &name)
    {
        QStringList list;
        for (const String::Run &run : string.runs()) {
            if (run.attributes.contains(name))
                list << QString::number(run.range.start) + u'+' + QString::number(run.range.length);
        }
        return list.join(u' ');
    }

private Q_SLOTS:
    void rangesAreClippedAndKeepPairsTogether()
    {
        constexpr qsizetype most = std::numeric_limits<qsizetype>::max();
        const std::pair<String::Range, const char *> rows[] = {
            {{1, 1}, "1+1"},     {{0, 6}, "0+6"}, {{4, most}, "4+2"}, {{-2, 3}, "0+1"}, {{6, 3}, ""},
            {{-most, most}, ""}, {{3, -2}, ""},   {{1, 2}, "1+3"},    {{3, 2}, "2+3"},  {{3, 0}, ""}};
        for (const auto &[range, expected] : rows) {
            String string("ab\U0001F600cd"); // the pair is at 2
            string.setAttribute(String::Link, "x", range);
            QCOMPARE(places(string, String::Link), expected);
            QCOMPARE(throughDocument(string), string);
        }
    }

    void equalNeighboursBecomeOneRun()
    {
        String string("abcdef");
        const String plain = string;
        string.setAttribute(String::ForegroundColor, QColor(Qt::red), {0, 2});
        string.setAttribute(String::ForegroundColor, QVariant::fromValue(ZelColor(QColor(Qt::red))), {2, 2});
        QCOMPARE(string.runs().size(), 2);
        QCOMPARE(string.attributeAt(String::ForegroundColor, 3), QVariant(QColor(Qt::red)));
        QVERIFY(string.attributesAt(6).isEmpty() && string.attributesAt(7).isEmpty() && string != plain);
        string.setAttribute(String::ForegroundColor, {}, {0, 6});
        QCOMPARE(string, plain);
        string.setAttribute(String::StrikeOut, true, {1, 2});
        string.setAttribute(String::StrikeOut, false, {0, 6});
        QCOMPARE(string, plain);
        QFont font("Serif", 14); // whose lines are attributes of their own
        font.setUnderline(true);
        string = String("abc", {{String::Font, font}, {String::UnderlineStyle, 0}});
        QCOMPARE(places(string, String::UnderlineStyle), ""); // what is said of it prevails
        string.setAttribute(String::Font, font, {0, 1});
        QCOMPARE(places(string, String::UnderlineStyle), "0+1");
        font.setUnderline(false);
        string.setAttribute(String::Font, font, {0, 3});
        QCOMPARE(places(string, String::UnderlineStyle), "0+1");
        QVERIFY(!string.attributeAt(String::Font, 0).value<QFont>().underline());
        QCOMPARE(throughDocument(string), string);
    }

    void piecesAreTakenAndReplaced()
    {
        String string("hello world");
        string.setAttribute(String::Overline, true, {6, 5});
        const String world = string.mid({4, 100});
        QCOMPARE(world.text(), "o world");
        QCOMPARE(places(world, String::Overline), "2+5");
        string.replace({0, 5}, world.mid({2, 3}));
        QCOMPARE(string.text(), "wor world");
        QCOMPARE(places(string, String::Overline), "0+3 4+5");
        string.replace({3, 1}, {});
        string.append(world);
        QCOMPARE(places(string, String::Overline), "0+8 10+5");
        string.replace({0, 100}, {});
        QVERIFY(string == String("") && string.runs().isEmpty());
        // Unset is not empty.
        const String unset;
        QVERIFY(unset.isNull() && unset.isEmpty() && unset != String("") && unset == String(QString()));
        QVERIFY(!unset.toVariant().isValid());
        string = unset;
        string.setAttribute(String::Overline, true, {0, 4});
        string.setParagraphStyle(aligned(2), {0, 0});
        QVERIFY(string == unset && string.mid({0, 1}).isEmpty());
        QCOMPARE(string.paragraphRange({3, 3}), (String::Range{0, 0}));
        string.append(String(""));
        QVERIFY(!string.isNull());
    }

    void paragraphsAreSetAndChangedAsAWhole()
    {
        const std::pair<String::Range, const char *> rows[] = {{{1, 0}, "0+3"}, {{2, 0}, "0+3"}, {{3, 0}, "3+1"},
                                                               {{0, 3}, "0+3"}, {{2, 2}, "0+4"}, {{5, 0}, "4+2"},
                                                               {{6, 0}, "4+2"}, {{0, 6}, "0+6"}};
        for (const auto &[range, expected] : rows) {
            String string("ab\n\ncd");
            string.setParagraphStyle(aligned(Style::AlignCenter), range);
            QCOMPARE(places(string, String::ParagraphStyle), expected);
            QCOMPARE(string.paragraphStyleAt(range.start), aligned(Style::AlignCenter));
            QCOMPARE(throughDocument(string), string);
        }
        QCOMPARE(String("\nab").paragraphRange({0, 1}), (String::Range{0, 1}));
        String string("ab\n\ncd\nef");
        string.setAttribute(String::Overline, true, {1, 4}); // ends within a paragraph
        string.setParagraphStyle(aligned(1), {4, 1});
        QCOMPARE(string.paragraphStyles({1, 4}), (QList{Style(), Style(), aligned(1)}));
        QVERIFY(string.paragraphStyles({9, 0}).size() == 1 && String().paragraphStyles({0, 1}).isEmpty());
        // Each is changed from its own style, and no more styles are said.
        string.changeParagraphStyles([](Style &style) { style.alignment += style.alignment == 1 ? 1 : 0; }, {1, 4});
        QCOMPARE(string.paragraphStyleAt(4), aligned(2));
        QCOMPARE(places(string, String::ParagraphStyle), "4+1 5+2");
        QCOMPARE(places(string, String::Overline), "1+3 4+1");
        string.changeParagraphStyles([](Style &style) { style.headerLevel = 1; }, {0, 10});
        QCOMPARE(places(string, String::ParagraphStyle), "0+1 1+3 4+1 5+2 7+2");
        QCOMPARE(string.text(), "ab\n\ncd\nef");
    }

    void aDocumentKeepsWhatItCannotShow()
    {
        const String lines("a\r\nb\rc\u2029d\u2028e\u00a0\n");
        QCOMPARE(lines.text(), "a\nb\nc\nd\u2028e\u00a0\n");
        QCOMPARE(throughDocument(lines), lines);
        Style style; // no member keeps its default, and a document can show only some of them
        const double values[] = {3, 0.1, 0.3, 200, 36, 1.1, 30, 12, 3, 7.5, 4, 5, 0.25, 0.125, 2, 1};
        for (int i = 0; i < Style::staticMetaObject.propertyCount(); ++i)
            Style::staticMetaObject.property(i).writeOnGadget(&style, values[i]);
        style.tabStops = {{40, QTextOption::CenterTab}, {80, QTextOption::DelimiterTab, u'.'}};
        String string("one\n\ntwo\nthree", {{"Author", 7}});
        string.setAttribute(String::ForegroundColor, "no colour", {0, 2});
        string.setParagraphStyle(style, {0, 4});
        string.setParagraphStyle({}, {5, 3}); // the default style, but said
        QTextDocument document;
        Coder::write(string, &document);
        QCOMPARE(Coder::read(&document), string);
        // What is changed in the document is changed; the rest of the style stays.
        QTextBlockFormat change;
        change.setAlignment(Qt::AlignHCenter);
        change.setLineHeight(20, QTextBlockFormat::FixedHeight);
        QTextCursor(&document).mergeBlockFormat(change);
        style.alignment = Style::AlignCenter;
        style.minimumLineHeight = style.maximumLineHeight = 20;
        style.lineHeightMultiple = style.lineSpacing = 0;
        QCOMPARE(Coder::read(&document).paragraphStyleAt(0), style);
    }

    void formatsComeBack()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        document.setHtml(
            "<p align='right' style='margin-left:10px; margin-right:20px; margin-top:3px; margin-bottom:6px;"
            "text-indent:-5px; line-height:150%'><b>bold</b></p><p><a href='https://example.org/'"
            "style='color:#010203; background:yellow; vertical-align:super; text-decoration:line-through'>"
            "link</a><img src=':/a.png' width=12></p>");
        QTextBlockFormat block;
        block.setHeadingLevel(1);
        block.setTabPositions({{30, QTextOption::RightTab}});
        cursor.setPosition(0);
        cursor.mergeBlockFormat(block);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        QTextCharFormat underlined;
        underlined.setFontLetterSpacing(120);
        underlined.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        underlined.setUnderlineColor(Qt::green);
        cursor.mergeCharFormat(underlined);
        const String string = Coder::read(&document);
        QCOMPARE(string.runs().size(), 4); // the newline has none of these
        const Style style{.alignment = Style::AlignRight,
                          .firstLineHeadIndent = 5,
                          .headIndent = 10,
                          .tailIndent = -20,
                          .lineHeightMultiple = 1.5,
                          .paragraphSpacing = 6,
                          .paragraphSpacingBefore = 3,
                          .headerLevel = 1,
                          .tabStops = {{30, QTextOption::RightTab}}};
        QCOMPARE(string.paragraphStyleAt(0), style);
        QTextDocument other;
        Coder::write(string, &other);
        QCOMPARE(other.toHtml(), document.toHtml());
        QCOMPARE(Coder::read(&other), string);
        for (const double most : {14.0, 0.0}) { // a line that is as high, or at least
            const Style high{.maximumLineHeight = most, .minimumLineHeight = 14};
            String line("a");
            line.setParagraphStyle(high, {0, 1});
            Coder::write(line, &other);
            QCOMPARE(Coder::read(&other).paragraphStyleAt(0), high);
        }
    }

    void directionsMirrorIndents()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextBlockFormat block;
        block.setRightMargin(15);
        block.setAlignment(Qt::AlignRight);
        cursor.setBlockFormat(block);
        cursor.insertText("\u05d0\u05d1");
        // The alignment is to the side where such lines end.
        Style expected{.alignment = Style::AlignLeft, .firstLineHeadIndent = 15, .headIndent = 15};
        QCOMPARE(Coder::read(&document).paragraphStyleAt(0), expected);
        Coder::write(Coder::read(&document), &document);
        QCOMPARE(document.begin().blockFormat().rightMargin(), 15.0);
        // Typing that turns a paragraph round leaves its style.
        expected = {.firstLineHeadIndent = 12, .headIndent = 10, .tailIndent = -3};
        String string("abc");
        string.setParagraphStyle(expected, {0, 3});
        Coder::write(string, &document);
        QTextCursor(&document).insertText("\u05d0\u05d1 ");
        QCOMPARE(document.begin().textDirection(), Qt::RightToLeft);
        QCOMPARE(Coder::read(&document).paragraphStyleAt(0), expected);
        Coder::write(Coder::read(&document), &document);
        QCOMPARE(document.begin().blockFormat().rightMargin(), 10.0);
    }

    void insertionsLeaveTheStylesThatTheyJoin()
    {
        String target("ab\ncd");
        target.setParagraphStyle(aligned(1), {0, 5});
        String inserted("x\ny\nz");
        inserted.setParagraphStyle(aligned(2), {0, 5});
        QTextDocument document;
        Coder::write(target, &document);
        QTextCursor cursor(&document);
        cursor.setPosition(1);
        Coder::insert(inserted, cursor);
        const String result = Coder::read(&document);
        QCOMPARE(result.text(), "ax\ny\nzb\ncd");
        QCOMPARE(result.paragraphStyles({0, 11}), (QList{aligned(1), aligned(2), aligned(1), aligned(1)}));
        document.undo();
        QCOMPARE(Coder::read(&document), target);
        cursor.setPosition(3);
        cursor.setPosition(5, QTextCursor::KeepAnchor);
        QCOMPARE(Coder::readSelection(cursor), target.mid({3, 2}));
        QVERIFY(Coder::readSelection(QTextCursor(&document)).isNull());
        String string("ab\n"); // an empty last paragraph looks like the one before
        string.setParagraphStyle(aligned(Style::AlignCenter), {0, 3});
        Coder::write(string, &document);
        QCOMPARE(document.lastBlock().blockFormat().alignment(), Qt::AlignHCenter);
        QCOMPARE(Coder::read(&document), string);
        Coder::write({}, &document);
        QCOMPARE(Coder::read(&document), String(""));
        QCOMPARE(document.begin().blockFormat().alignment(), Qt::AlignLeft);
    }

    void modelsHoldRichText()
    {
        Figure figure;
        const String string("note", {{String::Overline, true}});
        ZelSetValueForKey(&figure, QVariant::fromValue(string), "text");
        QCOMPARE(figure.text, string);
        QVERIFY(ZelEqual(ZelValueForKey(&figure, "text"), QVariant::fromValue(string)));
        QVERIFY(!ZelEqual(ZelValueForKey(&figure, "text"), QVariant::fromValue(String("note"))));
        ZelSetValueForKey(&figure, QVariant::fromValue(string), "pattern");
        QCOMPARE(figure.pattern, "note");
        ZelSetValueForKey(&figure, "plain", "text");
        QCOMPARE(figure.text, String("plain"));
        ZelSetValueForKey(&figure, {}, "text");
        QVERIFY(figure.text.isNull() && String::fromVariant(5).isNull());
    }

    void facesAreFoundAndConverted()
    {
        const QString family = "DejaVu Sans";
        const QStringList faces = Manager::availableFacesOfFamily(family);
        QVERIFY2(faces.size() > 2, "The tests need this font.");
        const auto look = [](const QFont &font) { return std::tuple(font.weight(), font.style(), font.stretch()); };
        // Every face, named or taken apart into weight, slant and width, leads back to its name.
        for (const QString &face : faces) {
            const QFont named = Manager::convertFontToFace(QFont(), family, face);
            QCOMPARE(Manager::faceOf(named), face);
            QCOMPARE(Manager::familyOf(named), family);
            QFont apart = named;
            apart.setStyleName({});
            // Two faces may differ in their names only, as far as Qt can tell.
            const QFont found = Manager::convertFontToFace(QFont(), family, Manager::faceOf(apart));
            QVERIFY(look(found) == look(named));
        }
        QCOMPARE(Manager::faceOf(QFont(family, 9, QFont::Bold, true)), "Bold Oblique");
        QVERIFY(Manager::availableFacesOfFamily("Nowhere").isEmpty());
        QCOMPARE(Manager::faceOf(QFont("Nowhere")), "Regular");
        QVERIFY(Manager::availableFontFamilies().contains(family));
        // Conversions keep the rest.
        QFont font("DejaVu Sans", 10);
        font.setBold(true);
        font.setStrikeOut(true);
        const QFont larger = Manager::convertFontToSize(font, 12.5);
        QCOMPARE(larger.pointSizeF(), 12.5);
        QVERIFY(larger.bold() && larger.strikeOut());
        for (const double none : {0.0, -1.0, qQNaN()})
            QCOMPARE(Manager::convertFontToSize(font, none), font);
        font.setPixelSize(20);
        QCOMPARE(Manager::convertFontToSize(font, 30.6).pixelSize(), 31);
        font.setStyleName("ExtraLight");
        QFont serif = Manager::convertFontToFamily(font, "DejaVu Serif");
        QCOMPARE(QFontInfo(serif).family(), "DejaVu Serif");
        QVERIFY(serif.styleName().isEmpty() && serif.strikeOut()); // that family's face
        QCOMPARE(Manager::sizeOf(serif), 20.0);
        QCOMPARE(Manager::convertFontToFamily(font, QString()), font);
        font.setStyleName("Bold");
        serif = Manager::convertFontToFamily(font, "DejaVu Serif");
        QVERIFY(serif.bold() && !Manager::convertFontToFace(serif, "DejaVu Serif", "Book").bold());
    }

    void familiesAndPlatformFontsHaveNames()
    {
        const QStringList families{"Round Mono", "Round", "Square [one]", "Square [two]"};
        const auto among = [&](const char *name) { return Manager::familyAmong(families, name); };
        QCOMPARE(among("Round"), "Round");
        QCOMPARE(among("ROUND"), "Round");
        QCOMPARE(among("Square"), "Square [one]"); // of several foundries
        QCOMPARE(among("Square [two]"), "Square [two]");
        QCOMPARE(among("Squ"), QString());
        const QString family = Manager::availableFamilyOf(QFont("sans-serif"));
        QVERIFY(Manager::availableFontFamilies().contains(family));
        QCOMPARE(Manager::availableFacesOfFamily("sans-serif"), Manager::availableFacesOfFamily(family));
        QVERIFY(Manager::availableFamilyOf(QFont("Nowhere")).isNull());
        for (int font = Manager::SystemFont; font <= Manager::UserFixedPitchFont; ++font) // they have sizes
            QVERIFY(Manager::sizeOf(Manager::platformFont(Manager::PlatformFont(font))) > 0);
        const double size = Manager::sizeOf(QApplication::font());
        const Manager::PlatformFont fonts[] = {
            Manager::SystemFont,          Manager::UserFont,       Manager::BoldSystemFont,    Manager::SmallSystemFont,
            Manager::SmallBoldSystemFont, Manager::MiniSystemFont, Manager::MiniBoldSystemFont};
        QString looks;
        for (const auto font : fonts) {
            const QFont shown = Manager::platformFont(font);
            looks += QString("%1%2 ").arg(shown.pointSizeF() / size * 13).arg(shown.bold() ? "b" : "");
        }
        QCOMPARE(looks, "13 13 13b 11 11b 9 9b ");
        // Not every font that is says so of itself.
        const QFontMetricsF fixedPitch(Manager::platformFont(Manager::UserFixedPitchFont));
        QCOMPARE(fixedPitch.horizontalAdvance(u'i'), fixedPitch.horizontalAdvance(u'W'));
    }
};
QTEST_MAIN(tst_ZelText)
#include "tst_ZelText.moc"
