// SPDX-License-Identifier: MIT
#include "Text/ZelAttributedString.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Resources/ZelColor.h"
#include "Text/ZelTextDocumentCoder.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using String = ZelAttributedString;
using Coder = ZelTextDocumentCoder;

/// A model with a rich-text property.
class Card : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ZelAttributedString note MEMBER note NOTIFY noteChanged)
    Q_PROPERTY(QString title MEMBER title NOTIFY titleChanged)
public:
    ZelAttributedString note;
    QString title;
Q_SIGNALS:
    void noteChanged();
    void titleChanged();
};

class tst_ZelAttributedString : public QObject
{
    Q_OBJECT

    static ZelParagraphStyle aligned(uint alignment)
    {
        ZelParagraphStyle style;
        style.alignment = alignment;
        return style;
    }
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
                list.append(QStringLiteral("%1+%2").arg(run.range.start).arg(run.range.length));
        }
        return list.join(u' ');
    }

private Q_SLOTS:
    void rangesAreClippedAndKeepPairsTogether_data()
    {
        QTest::addColumn<String::Range>("range");
        QTest::addColumn<QString>("expected");
        constexpr qsizetype most = std::numeric_limits<qsizetype>::max();
        QTest::newRow("inside") << String::Range{1, 1} << "1+1";
        QTest::newRow("all") << String::Range{0, 6} << "0+6";
        QTest::newRow("beyond the end") << String::Range{4, most} << "4+2";
        QTest::newRow("from before the start") << String::Range{-2, 3} << "0+1";
        QTest::newRow("outside") << String::Range{6, 3} << "";
        QTest::newRow("before") << String::Range{-most, most} << "";
        QTest::newRow("negative") << String::Range{3, -2} << "";
        QTest::newRow("ends within a pair") << String::Range{1, 2} << "1+3";
        QTest::newRow("begins within a pair") << String::Range{3, 2} << "2+3";
        QTest::newRow("empty within a pair") << String::Range{3, 0} << "";
    }
    void rangesAreClippedAndKeepPairsTogether()
    {
        QFETCH(String::Range, range);
        QFETCH(QString, expected);
        String string(QString::fromUtf8("ab\U0001F600cd"));
        QCOMPARE(string.length(), 6);
        string.setAttribute(String::Link, QStringLiteral("x"), range);
        QCOMPARE(places(string, String::Link), expected);
        QCOMPARE(throughDocument(string), string);
    }

    void equalNeighboursBecomeOneRun()
    {
        String string(QStringLiteral("abcdef"));
        const String plain = string;
        string.setAttribute(String::ForegroundColor, QColor(Qt::red), {0, 2});
        string.setAttribute(String::ForegroundColor, QVariant::fromValue(ZelColor(QColor(Qt::red))), {2, 2});
        QCOMPARE(string.runs().size(), 2);
        QCOMPARE(string.attributeAt(String::ForegroundColor, 3), QVariant(QColor(Qt::red)));
        QCOMPARE(string.attributesAt(6), String::Attributes());
        QCOMPARE(string.attributesAt(7), String::Attributes());
        const String copy = string;
        string.setAttribute(String::ForegroundColor, {}, {0, 6});
        QCOMPARE(string, plain);
        QVERIFY(copy != string);
        string.setAttribute(String::StrikeOut, true, {1, 2});
        string.setAttribute(String::StrikeOut, false, {0, 6});
        QCOMPARE(string, plain);
    }

    void aFontsLinesAreAttributesOfTheirOwn()
    {
        QFont font(QStringLiteral("Serif"), 14);
        font.setUnderline(true);
        String string(QStringLiteral("abc"), {{String::Font, font}, {String::UnderlineStyle, 0}});
        QVERIFY(!string.attributeAt(String::UnderlineStyle, 0).isValid()); // what is said of it prevails
        string.setAttribute(String::Font, font, {0, 1});
        QCOMPARE(places(string, String::UnderlineStyle), QStringLiteral("0+1"));
        font.setUnderline(false);
        string.setAttribute(String::Font, font, {0, 3});
        QCOMPARE(places(string, String::UnderlineStyle), QStringLiteral("0+1"));
        QVERIFY(!string.attributeAt(String::Font, 0).value<QFont>().underline());
        QCOMPARE(throughDocument(string), string);
    }

    void piecesAreTakenAndReplaced()
    {
        String string(QStringLiteral("hello world"));
        string.setAttribute(String::Overline, true, {6, 5});
        const String world = string.mid({4, 100});
        QCOMPARE(world.text(), QStringLiteral("o world"));
        QCOMPARE(places(world, String::Overline), QStringLiteral("2+5"));
        string.replace({0, 5}, world.mid({2, 3}));
        QCOMPARE(string.text(), QStringLiteral("wor world"));
        QCOMPARE(places(string, String::Overline), QStringLiteral("0+3 4+5"));
        string.replace({3, 1}, {});
        QCOMPARE(string.runs().size(), 1);
        string.append(world);
        QCOMPARE(places(string, String::Overline), QStringLiteral("0+8 10+5"));
        string.replace({0, 100}, {});
        QCOMPARE(string, String(QStringLiteral("")));
        QVERIFY(string.runs().isEmpty());
    }

    void unsetIsNotEmpty()
    {
        const String unset;
        QVERIFY(unset.isNull() && unset.isEmpty());
        QVERIFY(unset != String(QStringLiteral("")));
        QCOMPARE(unset, String(QString()));
        QVERIFY(!unset.toVariant().isValid());
        String string = unset;
        string.setAttribute(String::Overline, true, {0, 4});
        string.setParagraphStyle(aligned(2), {0, 0});
        QCOMPARE(string, unset);
        QCOMPARE(string.paragraphRange({3, 3}), (String::Range{0, 0}));
        QVERIFY(string.runs().isEmpty() && string.mid({0, 1}).isEmpty());
        string.append(String(QStringLiteral("")));
        QVERIFY(!string.isNull());
    }

    void paragraphsAreSetAsAWhole_data()
    {
        QTest::addColumn<String::Range>("range");
        QTest::addColumn<QString>("expected");
        QTest::newRow("insertion point") << String::Range{1, 0} << "0+3";
        QTest::newRow("at a newline") << String::Range{2, 0} << "0+3";
        QTest::newRow("empty paragraph") << String::Range{3, 0} << "3+1";
        QTest::newRow("with its newline") << String::Range{0, 3} << "0+3";
        QTest::newRow("across") << String::Range{2, 2} << "0+4";
        QTest::newRow("last") << String::Range{5, 0} << "4+2";
        QTest::newRow("end") << String::Range{6, 0} << "4+2";
        QTest::newRow("all") << String::Range{0, 6} << "0+6";
    }
    void paragraphsAreSetAsAWhole()
    {
        QFETCH(String::Range, range);
        QFETCH(QString, expected);
        String string(QStringLiteral("ab\n\ncd"));
        string.setParagraphStyle(aligned(ZelParagraphStyle::AlignCenter), range);
        QCOMPARE(places(string, String::ParagraphStyle), expected);
        QCOMPARE(string.paragraphStyleAt(range.start).alignment, uint(ZelParagraphStyle::AlignCenter));
        QCOMPARE(throughDocument(string), string);
    }

    void paragraphsAreChangedEachFromItsOwnStyle()
    {
        String string(QStringLiteral("ab\n\ncd\nef"));
        string.setAttribute(String::Overline, true, {1, 4}); // ends within a paragraph
        string.setParagraphStyle(aligned(ZelParagraphStyle::AlignRight), {4, 1});
        QCOMPARE(string.paragraphStyles({1, 4}).size(), 3);
        QCOMPARE(string.paragraphStyles({1, 4}).last(), aligned(ZelParagraphStyle::AlignRight));
        QVERIFY(string.paragraphStyles({9, 0}).size() == 1 && String().paragraphStyles({0, 1}).isEmpty());
        const String former = string;
        string.changeParagraphStyles([](ZelParagraphStyle &style) { style.alignment += style.alignment == 1 ? 1 : 0; },
                                     {1, 4});
        QCOMPARE(string.paragraphStyleAt(4), aligned(ZelParagraphStyle::AlignCenter));
        QCOMPARE(places(string, String::ParagraphStyle), places(former, String::ParagraphStyle)); // no more are said
        QCOMPARE(places(string, String::Overline), QStringLiteral("1+3 4+1"));
        string.changeParagraphStyles([](ZelParagraphStyle &style) { style.headerLevel = 1; }, {0, 10});
        QCOMPARE(places(string, String::ParagraphStyle), QStringLiteral("0+1 1+3 4+1 5+2 7+2"));
        QCOMPARE(string.text(), former.text());
    }

    void linesEndAlike()
    {
        const String string(QStringLiteral("a\r\nb\rc\u2029d\u2028e\u00a0\n"));
        QCOMPARE(string.text(), QStringLiteral("a\nb\nc\nd\u2028e\u00a0\n"));
        QCOMPARE(throughDocument(string), string);
    }

    void aDocumentKeepsWhatItCannotShow()
    {
        ZelParagraphStyle style;
        style.alignment = ZelParagraphStyle::AlignJustified;
        style.firstLineHeadIndent = 0.1;
        style.headIndent = 0.3;
        style.tailIndent = 200;
        style.defaultTabInterval = 36;
        style.lineHeightMultiple = 1.1;
        style.maximumLineHeight = 30;
        style.minimumLineHeight = 12;
        style.lineSpacing = 3;
        style.paragraphSpacing = 7.5;
        style.paragraphSpacingBefore = 4;
        style.lineBreakMode = ZelParagraphStyle::TruncatingMiddle;
        style.hyphenationFactor = 0.3F;
        style.tighteningFactorForTruncation = 0.05F;
        style.headerLevel = 2;
        style.baseWritingDirection = ZelParagraphStyle::RightToLeft;
        style.tabStops = {{40, QTextOption::CenterTab}, {80, QTextOption::DelimiterTab, u'.'}};
        String string(QStringLiteral("one\n\ntwo\nthree"), {{QStringLiteral("Author"), 7}});
        string.setAttribute(String::ForegroundColor, QStringLiteral("no colour"), {0, 2});
        string.setParagraphStyle(style, {0, 4});
        string.setParagraphStyle({}, {5, 3}); // the default style, but said
        QTextDocument document;
        Coder::write(string, &document);
        QCOMPARE(Coder::read(&document), string);

        // What is changed in the document is changed; the rest of the style stays.
        QTextCursor cursor(&document);
        QTextBlockFormat change;
        change.setAlignment(Qt::AlignHCenter);
        change.setLineHeight(20, QTextBlockFormat::FixedHeight);
        cursor.mergeBlockFormat(change);
        style.alignment = ZelParagraphStyle::AlignCenter;
        style.minimumLineHeight = style.maximumLineHeight = 20;
        style.lineHeightMultiple = style.lineSpacing = 0;
        QCOMPARE(Coder::read(&document).paragraphStyleAt(0), style);
    }

    void formatsComeBack()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        bold.setFontLetterSpacingType(QFont::PercentageSpacing);
        bold.setFontLetterSpacing(120);
        bold.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        bold.setUnderlineColor(Qt::green);
        QTextCharFormat link;
        link.setAnchor(true);
        link.setAnchorHref(QStringLiteral("https://example.org/"));
        link.setForeground(QColor(1, 2, 3, 4));
        link.setBackground(Qt::yellow);
        link.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
        link.setFontStrikeOut(true);
        QTextBlockFormat block;
        block.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
        block.setLeftMargin(10);
        block.setRightMargin(20);
        block.setTextIndent(-5);
        block.setTopMargin(3);
        block.setBottomMargin(6);
        block.setLineHeight(150, QTextBlockFormat::ProportionalHeight);
        block.setHeadingLevel(1);
        block.setTabPositions({{30, QTextOption::RightTab}});
        cursor.setBlockFormat(block);
        cursor.insertText(QStringLiteral("bold"), bold);
        cursor.insertBlock(QTextBlockFormat(), link);
        cursor.insertText(QStringLiteral("link"), link);
        cursor.insertImage([] {
            QTextImageFormat image;
            image.setName(QStringLiteral(":/a.png"));
            image.setWidth(12);
            return image;
        }());

        const String string = Coder::read(&document);
        QCOMPARE(string.runs().size(), 4); // the newline has the format of the second block
        const ZelParagraphStyle style = string.paragraphStyleAt(0);
        QCOMPARE(style.firstLineHeadIndent, 5.0);
        QCOMPARE(style.tailIndent, -20.0);
        QCOMPARE(style.lineHeightMultiple, 1.5);
        QTextDocument other;
        Coder::write(string, &other);
        QCOMPARE(other.toHtml(), document.toHtml());
        QCOMPARE(Coder::read(&other), string);
    }

    void directionsMirrorIndents()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextBlockFormat block;
        block.setRightMargin(15);
        block.setAlignment(Qt::AlignRight);
        cursor.setBlockFormat(block);
        cursor.insertText(QString::fromUtf8("\u05d0\u05d1"));
        const ZelParagraphStyle style = Coder::read(&document).paragraphStyleAt(0);
        QCOMPARE(style.headIndent, 15.0);
        QCOMPARE(style.tailIndent, 0.0);
        QCOMPARE(style.alignment, uint(ZelParagraphStyle::AlignLeft)); // the side where such lines end
        QCOMPARE(style.baseWritingDirection, int(ZelParagraphStyle::NaturalDirection));
        Coder::write(Coder::read(&document), &document);
        QCOMPARE(document.begin().blockFormat().rightMargin(), 15.0);
    }

    void typingThatTurnsAParagraphRoundLeavesItsStyle()
    {
        ZelParagraphStyle style;
        style.headIndent = 10;
        style.firstLineHeadIndent = 12;
        style.tailIndent = -3;
        String string(QStringLiteral("abc"));
        string.setParagraphStyle(style, {0, 3});
        QTextDocument document;
        Coder::write(string, &document);
        QTextCursor cursor(&document);
        cursor.insertText(QString::fromUtf8("\u05d0\u05d1 "));
        QCOMPARE(document.begin().textDirection(), Qt::RightToLeft);
        QCOMPARE(Coder::read(&document).paragraphStyleAt(0), style);
        Coder::write(Coder::read(&document), &document);
        QCOMPARE(document.begin().blockFormat().rightMargin(), 10.0);
    }

    void anInsertionLeavesTheStyleOfParagraphsThatItJoins()
    {
        String target(QStringLiteral("ab\ncd"));
        target.setParagraphStyle(aligned(1), {0, 5});
        String inserted(QStringLiteral("x\ny\nz"));
        inserted.setParagraphStyle(aligned(2), {0, 5});
        QTextDocument document;
        Coder::write(target, &document);
        QTextCursor cursor(&document);
        cursor.setPosition(1);
        Coder::insert(inserted, cursor);
        const String result = Coder::read(&document);
        QCOMPARE(result.text(), QStringLiteral("ax\ny\nzb\ncd"));
        QCOMPARE(result.paragraphStyleAt(0).alignment, 1U);
        QCOMPARE(result.paragraphStyleAt(4).alignment, 2U);
        QCOMPARE(result.paragraphStyleAt(6).alignment, 1U);
        document.undo();
        QCOMPARE(Coder::read(&document), target);
        cursor.setPosition(3);
        cursor.setPosition(5, QTextCursor::KeepAnchor);
        QCOMPARE(Coder::readSelection(cursor), target.mid({3, 2}));
        QVERIFY(Coder::readSelection(QTextCursor(&document)).isNull());
    }

    void anEmptyLastParagraphLooksLikeTheOneBefore()
    {
        String string(QStringLiteral("ab\n"));
        string.setParagraphStyle(aligned(ZelParagraphStyle::AlignCenter), {0, 3});
        QTextDocument document;
        Coder::write(string, &document);
        QCOMPARE(document.lastBlock().blockFormat().alignment(), Qt::AlignHCenter);
        QCOMPARE(Coder::read(&document), string);
        Coder::write({}, &document);
        QCOMPARE(Coder::read(&document), String(QStringLiteral("")));
        QCOMPARE(document.begin().blockFormat().alignment(), Qt::AlignLeft);
    }

    void modelsHoldRichText()
    {
        Card card;
        const String string(QStringLiteral("note"), {{String::Overline, true}});
        ZelSetValueForKey(&card, QVariant::fromValue(string), "note");
        QCOMPARE(card.note, string);
        QVERIFY(ZelEqual(ZelValueForKey(&card, "note"), QVariant::fromValue(string)));
        QVERIFY(!ZelEqual(ZelValueForKey(&card, "note"), QVariant::fromValue(String(QStringLiteral("note")))));
        ZelSetValueForKey(&card, QVariant::fromValue(string), "title");
        QCOMPARE(card.title, QStringLiteral("note"));
        ZelSetValueForKey(&card, QStringLiteral("plain"), "note");
        QCOMPARE(card.note, String(QStringLiteral("plain")));
        ZelSetValueForKey(&card, {}, "note");
        QVERIFY(card.note.isNull());
        QVERIFY(String::fromVariant(5).isNull());
    }
};

QTEST_MAIN(tst_ZelAttributedString)
#include "tst_ZelAttributedString.moc"
