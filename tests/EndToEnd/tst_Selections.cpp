// SPDX-License-Identifier: MIT
#include "Sheet.h"

#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"

#include <QLineEdit>

namespace {

using Window = SheetWindow;
using ArrayEditor = ZelInspectorArrayProperty;
using FrameEditor = ZelInspectorBoundsProperty;

QString shownIn(const QLineEdit *field)
{
    return field->text().isEmpty() ? field->placeholderText() : field->text();
}

ZelTextField *widthField(const Window &window)
{
    return window.editor<ZelInspectorSizeProperty>("size")->widthProperty()->textField();
}

ZelTextField *xField(const Window &window)
{
    return window.editor<FrameEditor>("frame")->originXProperty()->textField();
}

ZelTextField *patternField(const Window &window)
{
    return window.editor<ZelInspectorResourceProperty>("pattern")->comboBox()->textField();
}

ZelInspectorTextView *textView(const Window &window)
{
    return window.editor<ZelInspectorAttributedStringProperty>("text")->textView();
}

/// Where there is no single date, that of today gets the day.
void typeDay(const Window &window, const char *day)
{
    ZelDatePicker *picker = window.editor<ZelInspectorDateProperty>("day")->datePicker();
    Window::click(picker, {8, picker->height() / 2});
    picker->setSelectedSection(QDateTimeEdit::DaySection);
    Window::type(QString::fromLatin1(day));
}

QString rowsOf(const ArrayEditor *editor)
{
    QStringList texts;
    for (int row = 0; row < editor->numberOfRows(); ++row)
        texts.append(editor->tableView()->model()->index(row, 0).data().toString());
    return texts.join(u' ');
}

void clickAdd(const ArrayEditor *editor)
{
    Window::click(editor->actionBar()->itemViews().at(0));
}

/// How a kind of editor is read and used, and what it must show: for no object, for one or equal ones, for different
/// ones, and after the edit.
struct Kind
{
    const char *key;
    QString (*shown)(const Window &window);
    void (*begin)(Window &window); // what is left for `end` is typing that can be given up
    QKeyCombination end;
    QVariant other;
    const char *none;
    const char *one;
    const char *different;
    const char *edited;
    const char *actionName;
    bool editsDifferent = true;
};

const QKeyCombination g_return(Qt::Key_Return);
const QKeyCombination g_controlReturn(Qt::ControlModifier, Qt::Key_Return);
const QKeyCombination g_nothing(Qt::Key_unknown);

const Kind g_kinds[] = {
    {"fill",
     [](const Window &window) { return window.editor<ZelInspectorColorProperty>("fill")->popUpButton()->shownText(); },
     [](Window &window) {
         Window::choose(window.editor<ZelInspectorColorProperty>("fill")->popUpButton(), QStringLiteral("Yellow"));
     },
     g_nothing, QColor(Qt::blue), "No Selection", "Red", "Multiple Values", "Yellow", "Change fill"},
    {"day", [](const Window &window) { return window.editor<ZelInspectorDateProperty>("day")->datePicker()->text(); },
     [](Window &window) { typeDay(window, "17"); }, g_return, QDate(2025, 1, 2), "No Selection", "6 May 2024",
     "Multiple Values", "17 ", "Change day"},
    {"pattern", [](const Window &window) { return shownIn(patternField(window)); },
     [](Window &window) { Window::replaceText(patternField(window), QStringLiteral("Waves")); }, g_return,
     QStringLiteral("Lines"), "No Selection", "Dots", "Multiple Values", "Waves", "Change pattern"},
    {"size", [](const Window &window) { return shownIn(widthField(window)); },
     [](Window &window) { Window::replaceText(widthField(window), QStringLiteral("77")); }, g_return, QSizeF(31, 44),
     "No Selection", "30", "Multiple Values", "77", "Change size"},
    {"frame", [](const Window &window) { return shownIn(xField(window)); },
     [](Window &window) { Window::replaceText(xField(window), QStringLiteral("77")); }, g_return,
     QRectF(11, 21, 101, 51), "No Selection", "10", "Multiple Values", "77", "Change Origin X"},
    {"font", [](const Window &window) { return window.editor<ZelInspectorFontProperty>("font")->textField()->text(); },
     [](Window &window) {
         auto *editor = window.editor<ZelInspectorFontProperty>("font");
         Window::click(editor->button());
         Window::choose(editor->popoverView()->fontFamilyPopUpButton(), QStringLiteral("DejaVu Sans Mono"));
         Window::press(Qt::Key_Escape);
     },
     g_nothing, QFont(QStringLiteral("DejaVu Serif"), 11), "No Font", "DejaVu Sans Book 9", "Multiple Fonts",
     "DejaVu Sans Mono", "Change font"},
    {"tags", [](const Window &window) { return rowsOf(window.editor<ArrayEditor>("tags")); },
     [](Window &window) { clickAdd(window.editor<ArrayEditor>("tags")); }, g_nothing, QStringList{QStringLiteral("c")},
     "", "a b", "", "a b Item", "Change tags", false},
    {"text",
     [](const Window &window) {
         const QString text = textView(window)->toPlainText();
         return text.isEmpty() ? textView(window)->placeholderText() : text;
     },
     [](Window &window) { Window::replaceText(textView(window), QStringLiteral("new")); }, g_controlReturn,
     ZelAttributedString(QStringLiteral("other")).toVariant(), "No Selection", "one\ntwo", "Multiple Values", "new",
     "Change text", false},
};

void end(const Kind &kind)
{
    if (kind.end != g_nothing)
        Window::press(kind.end.key(), kind.end.keyboardModifiers());
}

} // namespace

/// Each of the larger editors, with no object and with several ones.
class tst_Selections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void noneOneManyEqualAndDifferent_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(g_kinds)); ++i)
            QTest::newRow(g_kinds[i].key) << i;
    }
    void noneOneManyEqualAndDifferent()
    {
        QFETCH(int, index);
        const Kind &kind = g_kinds[index];
        Window window(Window::allRows());
        window.set(2, kind.key, kind.other);
        const QVariant first = window.value(0, kind.key);
        const auto showsAndLeaves = [&](const QList<int> &selection, const char *text) {
            window.select(selection);
            return kind.shown(window) == QString::fromUtf8(text) && window.stack.count() == 0;
        };
        QCOMPARE(kind.shown(window), QString::fromUtf8(kind.none));
        QVERIFY(showsAndLeaves({0}, kind.one));
        QVERIFY(showsAndLeaves({0, 1}, kind.one));
        QVERIFY(showsAndLeaves({0, 1, 2}, kind.different));
        QVERIFY(showsAndLeaves({}, kind.none));

        window.select({0, 2});
        kind.begin(window);
        end(kind);
        const int partner = kind.editsDifferent ? 2 : 1;
        if (!kind.editsDifferent) {
            QCOMPARE(window.stack.count(), 0);
            QCOMPARE(window.value(0, kind.key), first);
            QCOMPARE(window.value(2, kind.key), kind.other);
            window.select({0, 1});
            kind.begin(window);
            end(kind);
        }
        QCOMPARE(window.stack.count(), 1);
        QCOMPARE(window.stack.undoText(), QString::fromUtf8(kind.actionName));
        QCOMPARE(window.owner->actions, 1);
        QVERIFY2(kind.shown(window).contains(QString::fromUtf8(kind.edited)), qPrintable(kind.shown(window)));
        QVERIFY(window.value(0, kind.key) != first);
        for (int other : {1, 2}) {
            window.select({other});
            QCOMPARE(kind.shown(window).contains(QString::fromUtf8(kind.edited)), other == partner);
        }

        window.select({0, 1, 2}); // whatever is selected by then
        window.undo();
        QCOMPARE(window.value(0, kind.key), first);
        QCOMPARE(window.value(1, kind.key), first);
        QCOMPARE(window.value(2, kind.key), kind.other);
        QCOMPARE(kind.shown(window), QString::fromUtf8(kind.different));
        window.select({0});
        QCOMPARE(kind.shown(window), QString::fromUtf8(kind.one));
        window.stack.redo();
        window.settle();
        QVERIFY(kind.shown(window).contains(QString::fromUtf8(kind.edited)));
    }

    void typingBelongsToWhatWasSelected_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(g_kinds)); ++i) {
            if (g_kinds[i].end != g_nothing)
                QTest::newRow(g_kinds[i].key) << i;
        }
    }
    void typingBelongsToWhatWasSelected()
    {
        QFETCH(int, index);
        const Kind &kind = g_kinds[index];
        Window window(Window::allRows());
        window.set(2, kind.key, kind.other);
        const QVariant first = window.value(0, kind.key);
        window.select({0, 1});
        kind.begin(window);
        window.select({2});
        QCOMPARE(window.value(2, kind.key), kind.other);
        QVERIFY(window.value(0, kind.key) != first);
        QVERIFY(!kind.shown(window).contains(QString::fromUtf8(kind.edited)));
        QCOMPARE(window.stack.count(), 1);
        QCOMPARE(window.stack.undoText(), QString::fromUtf8(kind.actionName));
        window.undo();
        QCOMPARE(window.value(0, kind.key), first);
        QCOMPARE(window.value(1, kind.key), first);
        QCOMPARE(window.value(2, kind.key), kind.other);
    }

    void typingIsKeptWhileTheModelChanges_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("commits");
        for (int i = 0; i < int(std::size(g_kinds)); ++i) {
            if (g_kinds[i].end == g_nothing)
                continue;
            QTest::addRow("%s, committed", g_kinds[i].key) << i << true;
            QTest::addRow("%s, discarded", g_kinds[i].key) << i << false;
        }
    }
    void typingIsKeptWhileTheModelChanges()
    {
        QFETCH(int, index);
        QFETCH(bool, commits);
        const Kind &kind = g_kinds[index];
        Window window(Window::allRows());
        window.select({0});
        kind.begin(window);
        const QString typed = kind.shown(window);
        QVERIFY2(typed.contains(QString::fromUtf8(kind.edited)), qPrintable(typed));
        window.set(0, kind.key, kind.other);
        QCOMPARE(kind.shown(window), typed);
        QCOMPARE(window.value(0, kind.key), kind.other);
        if (!commits) {
            Window::press(Qt::Key_Escape);
            QCOMPARE(window.stack.count(), 0);
        } else {
            end(kind);
            QVERIFY(kind.shown(window).contains(QString::fromUtf8(kind.edited)));
            QVERIFY(window.value(0, kind.key) != kind.other);
            QCOMPARE(window.stack.count(), 1);
            window.undo();
        }
        QCOMPARE(window.value(0, kind.key), kind.other);
        const QString newer = kind.shown(window);
        window.set(1, kind.key, kind.other);
        window.select({1});
        QCOMPARE(kind.shown(window), newer); // as one sees who comes anew
        QVERIFY(newer != typed && newer != QString::fromUtf8(kind.one));
    }
};

QTEST_MAIN(tst_Selections)
#include "moc_Sheet.cpp"
#include "tst_Selections.moc"
