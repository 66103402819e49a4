// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelGrowingTextView.h"

#include "Platform/Controls/ZelSegmentedControl.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"
#include "Platform/Runtime/ZelValues.h"

#include "ControlPanel.h"

#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QUndoStack>

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

    void theRowsAroundItMoveAtOnce()
    {
        Panel panel; // with rows in rows, as an inspector has them
        auto *below = new QWidget;
        auto *row = new QWidget;
        auto *column = new QVBoxLayout(row);
        panel.layout()->addWidget(row);
        column->addWidget(panel.control);
        panel.layout()->addWidget(below);
        below->setFixedHeight(10);
        panel.layout()->addItem(new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
        panel.resize(200, 400);
        panel.control->setFocus();
        QCoreApplication::processEvents();
        const int height = panel.control->height();
        const int place = below->y();
        QTest::keyClick(panel.control, Qt::Key_Return);
        QVERIFY(panel.control->height() > height);
        QCOMPARE(below->y() - place, panel.control->height() - height);
    }

    void leavingAndControlReturnCommit_data()
    {
        QTest::addColumn<bool>("leaves");
        QTest::newRow("leaving") << true;
        QTest::newRow("Control+Return") << false;
    }
    void leavingAndControlReturnCommit()
    {
        QFETCH(bool, leaves);
        Panel panel;
        ZelGrowingTextView *view = panel.control;
        view->setFocus();
        view->setObjectValue(rich(QStringLiteral("ab")));
        view->selectAll();
        const auto end = [&] {
            leaves ? panel.other->setFocus() : QTest::keyClick(view, Qt::Key_Return, Qt::ControlModifier);
            view->setFocus();
        };
        end();
        QCOMPARE(panel.takeLog(), QStringList());
        QTest::keyClicks(view, QStringLiteral("x"));
        QVERIFY(view->isEditing());
        QCOMPARE(panel.takeLog(), QStringList());
        end();
        QCOMPARE(panel.takeLog(), Panel::edits(1));
        QCOMPARE(panel.level, 1);
        QVERIFY(!view->isEditing());
        QCOMPARE(view->objectValue(), rich(QStringLiteral("x")));
        QTest::keyClick(view, Qt::Key_Backspace);
        end();
        QVERIFY(!view->objectValue().isValid());
        QTest::keyClicks(view, QStringLiteral("y"));
        QTest::keyClick(view, Qt::Key_Backspace);
        panel.takeLog();
        end();
        QCOMPARE(panel.takeLog(), QStringList());
    }

    void valueArrivingWhileTypingIsKeptAside()
    {
        Panel panel;
        ZelGrowingTextView *view = panel.control;
        view->setObjectValue(rich(QStringLiteral("old")));
        view->setFocus();
        QTest::keyClicks(view, QStringLiteral("typed "));
        view->setObjectValue(rich(QStringLiteral("new")));
        QCOMPARE(view->attributedString().text(), QStringLiteral("typed old"));
        QTest::keyClick(view, Qt::Key_Escape);
        QCOMPARE(view->attributedString().text(), QStringLiteral("new"));
        QCOMPARE(panel.takeLog(), QStringList());
        QTest::keyClicks(view, QStringLiteral("x"));
        view->setObjectValue(QVariant::fromValue(ZelNoSelectionMarker));
        view->setEditable(false);
        QVERIFY(view->attributedString().isEmpty());
        QCOMPARE(view->placeholderText(), QStringLiteral("No Selection"));
        view->setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
        QCOMPARE(view->placeholderText(), QStringLiteral("Multiple Values"));
        view->setNullPlaceholder(QStringLiteral("Nothing"));
        view->setObjectValue(QVariant());
        QCOMPARE(view->placeholderText(), QStringLiteral("Nothing"));
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

    void onlyTypingIsUndoneInTheView()
    {
        Panel panel;
        ZelGrowingTextView *view = panel.control;
        view->setObjectValue(QStringLiteral("ab"));
        view->setFocus();
        QAction windowUndo;
        windowUndo.setShortcut(QKeySequence::Undo);
        panel.addAction(&windowUndo);
        QSignalSpy spy(&windowUndo, &QAction::triggered);
        QTest::keyClicks(view, QStringLiteral("x"));
        QTest::keySequence(view, QKeySequence::Undo);
        QCOMPARE(view->attributedString().text(), QStringLiteral("ab"));
        QVERIFY(!view->isEditing());
        QCOMPARE(spy.count(), 0);
        QTest::keySequence(view, QKeySequence::Undo);
        QCOMPARE(spy.count(), 1);
        QTest::keyClicks(view, QStringLiteral("x"));
        view->commitEditing();
        QTest::keySequence(view, QKeySequence::Undo);
        QCOMPARE(view->attributedString().text(), QStringLiteral("xab"));
        QCOMPARE(spy.count(), 2);
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

    void mayDieWhenItReports()
    {
        Panel panel;
        panel.whenEdited = [&] { delete panel.control; };
        panel.control->setFocus();
        QTest::keyClicks(panel.control, QStringLiteral("x"));
        panel.control->commitEditing();
        QVERIFY(!panel.control);
        QCOMPARE(panel.takeLog(), QStringList(QStringLiteral("valueEdited")));
    }

    void isBoundByItsValue()
    {
        ZelGrowingTextView view;
        ZelSetValueForKey(&view, rich(QStringLiteral("a")), "value");
        QCOMPARE(view.attributedString().text(), QStringLiteral("a"));
        QCOMPARE(ZelValueForKey(&view, "value"), rich(QStringLiteral("a")));
    }

    void segmentsAreSelectedByThemselves()
    {
        ControlPanel<ZelSegmentedControl> panel;
        ZelSegmentedControl *bar = panel.control;
        bar->setSegmentCount(3);
        bar->setSelectsAny(true);
        bar->setSegmentEnabled(1, false);
        panel.resize(200, 80);
        QCoreApplication::processEvents();
        for (int segment : {2, 1, 0, 2})
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->segmentRect(segment).center());
        QCOMPARE(panel.takeLog(), panel.edits(3));
        QVERIFY(bar->isSegmentSelected(0) && !bar->isSegmentSelected(1) && !bar->isSegmentSelected(2));
        QCOMPARE(bar->clickedSegment(), 2);
        QVERIFY(!bar->selectedIndex().isValid());
        QTest::keyClick(bar, Qt::Key_Left);
        QCOMPARE(panel.takeLog(), QStringList());
        QTest::keyClick(bar, Qt::Key_Space);
        QCOMPARE(bar->clickedSegment(), 0);
        QVERIFY(!bar->isSegmentSelected(0));
    }
};

QTEST_MAIN(tst_ZelGrowingTextView)
#include "tst_ZelGrowingTextView.moc"
