// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextView.h"

#include "ControlPanel.h"

#include <QMimeData>
#include <QScrollBar>

namespace {

using String = ZelAttributedString;
using Panel = ControlPanel<ZelGrowingTextView>;

QVariant rich(const QString &text, const String::Attributes &attributes = {{String::Overline, true}})
{
    return QVariant::fromValue(String(text, attributes));
}

} // namespace

class tst_ZelGrowingTextView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void isAsHighAsItsTextUpToALimit()
    {
        ZelGrowingTextView view;
        view.setHeightLimits(19, 120);
        view.setObjectValue(QStringLiteral("one"));
        const int one = view.heightForWidth(200);
        QVERIFY(one >= view.fontMetrics().height() && one < 60);
        view.setObjectValue(QStringLiteral("one\ntwo"));
        const int two = view.heightForWidth(200);
        QVERIFY(two > one);
        view.setObjectValue(QStringLiteral("many words that do not fit into such a narrow view"));
        QVERIFY(view.heightForWidth(120) > view.heightForWidth(1000));
        QFont font;
        font.setPointSize(30);
        view.setObjectValue(rich(QStringLiteral("one"), {{String::Font, font}}));
        QVERIFY(view.heightForWidth(200) > one);
        view.setFont(font);
        QVERIFY(!view.isEditing());
        view.setObjectValue(QString(QStringLiteral("line\n")).repeated(100));
        QCOMPARE(view.heightForWidth(200), 120);
    }

    void measuresAloneWhatItShows()
    {
        Panel panel;
        panel.control->setObjectValue(rich(QStringLiteral("some words that wrap in a narrow view\n\nand more")));
        panel.resize(120, 300);
        QCoreApplication::processEvents();
        ZelGrowingTextView hidden;
        hidden.setFont(panel.control->font());
        hidden.setObjectValue(panel.control->objectValue());
        QCOMPARE(panel.control->heightForWidth(panel.control->width()), hidden.heightForWidth(panel.control->width()));
    }

    void growsWhileTypingAndScrollsAtTheLimit()
    {
        Panel panel;
        ZelGrowingTextView *view = panel.control;
        view->setHeightLimits(19, 100);
        view->setFocus();
        const int before = view->sizeHint().height();
        QTest::keyClick(view, Qt::Key_Return);
        QVERIFY(view->heightForWidth(view->width()) > before);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        for (int i = 0; i < 20; ++i)
            QTest::keyClick(view, Qt::Key_Return);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
        QCOMPARE(view->attributedString().text(), QString(21, u'\n'));
    }

    void richTextIsTypedAndUndone()
    {
        Panel panel;
        ZelGrowingTextView *view = panel.control;
        view->setFocus();
        view->setObjectValue(rich(QStringLiteral("ab")));
        view->selectAll();
        QTest::keyClicks(view, QStringLiteral("x"));
        QTest::keyClick(view, Qt::Key_Return);
        QTest::keySequence(view, QKeySequence::Undo); // the typing's own
        QTest::keyClicks(view, QStringLiteral("y"));
        view->commitEditing();
        QCOMPARE(view->objectValue(), rich(view->toPlainText()));
        QVERIFY(!view->document()->isUndoAvailable()); // that of the edit is the window's
        view->selectAll();
        QTest::keyClick(view, Qt::Key_Backspace);
        view->commitEditing();
        QVERIFY(!view->objectValue().isValid());
    }

    void whatIsDroppedIntoItIsCommitted()
    {
        Panel panel;
        QMimeData data;
        data.setText(QStringLiteral("dropped"));
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(panel.control->viewport(), &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(panel.control->viewport(), &drop);
        QCOMPARE(panel.control->attributedString().text(), QStringLiteral("dropped"));
        QCOMPARE(panel.takeLog(), Panel::edits(1));
    }

    void aNewTextKeepsTheSelectionAsFarAsItGoes_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("expected");
        QTest::newRow("inside") << 1 << 3 << "1 3";
        QTest::newRow("backwards") << 3 << 1 << "3 1";
        QTest::newRow("past the end") << 2 << 7 << "2 4";
        QTest::newRow("at the end") << 4 << 6 << "0 0";
        QTest::newRow("beyond the end") << 6 << 6 << "0 0";
        QTest::newRow("within a pair") << 3 << 3 << "2 2";
    }
    void aNewTextKeepsTheSelectionAsFarAsItGoes()
    {
        QFETCH(int, anchor);
        QFETCH(int, position);
        QFETCH(QString, expected);
        ZelGrowingTextView view;
        view.setObjectValue(QStringLiteral("abcdefgh"));
        QTextCursor cursor = view.textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        view.setTextCursor(cursor);
        const bool hasPair = anchor == 3 && position == 3;
        view.setObjectValue(rich(hasPair ? QString::fromUtf8("ab\U0001F600") : QStringLiteral("abcd")));
        const QTextCursor kept = view.textCursor();
        QCOMPARE(QStringLiteral("%1 %2").arg(kept.anchor()).arg(kept.position()), expected);
    }

    void pastedTablesAndListsBecomeText()
    {
        Panel panel;
        QMimeData data;
        data.setHtml(QStringLiteral("<ul><li>one</li></ul><table><tr><td>t<b>w</b>o</td></tr></table>"));
        struct View : ZelGrowingTextView
        {
            using ZelGrowingTextView::insertFromMimeData;
        };
        View view;
        view.insertFromMimeData(&data);
        QVERIFY(view.document()->rootFrame()->childFrames().isEmpty());
        const String string = view.attributedString();
        QVERIFY(string.text().contains(QStringLiteral("one\n")) && string.text().contains(QStringLiteral("two")));
        const qsizetype bold = string.text().indexOf(QLatin1Char('w'));
        QCOMPARE(string.attributeAt(String::Font, bold).value<QFont>().weight(), QFont::Bold);
        QVERIFY(view.textCursor().atEnd());
    }
};

QTEST_MAIN(tst_ZelGrowingTextView)
#include "tst_ZelGrowingTextView.moc"
