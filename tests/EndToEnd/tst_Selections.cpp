// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

namespace {
/// How a kind of editor is used, and what it must show: for no object, for one or equal ones, for different ones, and
/// after the edit.
struct Kind
{
    const char *key;
    const char *type;
    const char *more;
    const char *text; // typed or chosen, where this ends no typing
    QVariant other;
    const char *none;
    const char *one;
    const char *different;
    const char *edited;
    bool isTyped = true;
    bool editsDifferent = true;
    const char *actionName = nullptr;
};

const Kind g_kinds[] = {
    {"name", "string", "", "Ada", "Bea", "No Selection", "P0", "Multiple Values", "Ada", true, false},
    {"height", "number", "", "77", 9.0, "No Selection", "0", "Multiple Values", "77"},
    {"flags", "boolean", "title='Bit' bits='4'", "", 5, "off", "off", "mixed", "on", false},
    {"role", "enumeration",
     "><option-group><option title='Guest' value='0'/><option title='Member' value='1'/><option title='Admin' "
     "value='2'/></option-group>",
     "Member", QVariant::fromValue(Person::Admin), "No Selection", "Guest", "Multiple Values", "Member", false},
    {"fill", "color", "colorList='Crayons'", "Yellow", QColor(Qt::blue), "No Selection", "Red", "Multiple Values",
     "Yellow", false},
    {"day", "date", "", "17", QDate(2025, 1, 2), "No Selection", "6 May 2024", "Multiple Values", "17 "},
    {"pattern", "resource", "resourcesKeyPath='names'", "Waves", "Lines", "No Selection", "Dots", "Multiple Values",
     "Waves"},
    {"place", "custom", "class='ZelInspectorPointProperty'", "77", QPointF(3, 9), "No Selection", "1",
     "Multiple Values", "77"},
    {"size", "size", "", "77", QSizeF(31, 44), "No Selection", "30", "Multiple Values", "77"},
    {"frame", "frame", "showOriginSelector='yes'", "77", QRectF(11, 21, 101, 51), "No Selection", "10",
     "Multiple Values", "77", true, true, "Change Origin X"},
    {"font", "font", "", "DejaVu Sans Mono", QFont("DejaVu Serif", 11), "No Font", "DejaVu Sans Book 9",
     "Multiple Fonts", "DejaVu Sans Mono", false},
    {"tags", "custom", "class='ZelInspectorArrayProperty'", "+", QStringList{"c"}, "", "a b", "", "a b Item", false,
     false},
    {"text", "string", "attributed='yes'", "new", ZelAttributedString("other").toVariant(), "No Selection", "one\ntwo",
     "Multiple Values", "new", true, false},
};

/// A window with one editor of equal objects and another one.
class Window : public Sheet
{
public:
    explicit Window(const Kind &kind)
        : Sheet(row(kind.key, kind.type, kind.more))
        , first(value(0, kind.key))
        , actionName(kind.actionName ? QString(kind.actionName) : QString(QString("Change ") + kind.key))
        , m_kind(kind)
    {
        set(1, kind.key, first);
        set(2, kind.key, kind.other);
    }
    QString shown() const { return Sheet::shown(m_kind.key); }
    bool showsEdited() const { return shown().contains(m_kind.edited); }
    QKeyCombination begin() const { return Sheet::begin(m_kind.key, m_kind.text); }
    bool areAsAtFirst() const
    {
        return value(0, m_kind.key) == first && value(1, m_kind.key) == first && value(2, m_kind.key) == m_kind.other;
    }

    const QVariant first;
    const QString actionName;

private:
    const Kind &m_kind;
};
} // namespace

/// Each editor, with no object and with several ones.
class tst_Selections : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void noneOneManyEqualAndDifferent()
    {
        for (const Kind &kind : g_kinds) {
            const TableRow inRow(kind.key);
            Window window(kind);
            const std::pair<QList<int>, const char *> shows[] = {
                {{}, kind.none}, {{0}, kind.one}, {{0, 1}, kind.one}, {{0, 1, 2}, kind.different}, {{}, kind.none}};
            for (const auto &[selection, text] : shows) {
                window.select(selection);
                QCOMPARE(window.shown(), text);
                QCOMPARE(window.stack.count(), 0);
            }
            window.select({0, 2});
            Window::end(window.begin());
            const int partner = kind.editsDifferent ? 2 : 1;
            if (!kind.editsDifferent) {
                QVERIFY(window.areAsAtFirst() && window.stack.count() == 0);
                window.select({0, 1});
                Window::end(window.begin());
            }
            QCOMPARE(window.stack.count(), 1);
            QCOMPARE(window.stack.undoText(), window.actionName);
            QCOMPARE(window.owner->actions, 1);
            QVERIFY2(window.showsEdited(), qPrintable(window.shown()));
            QVERIFY(window.value(0, kind.key) != window.first);
            for (int other : {1, 2}) {
                window.select({other});
                QCOMPARE(window.showsEdited(), other == partner);
            }
            window.select({0, 1, 2}); // whatever is selected by then
            window.undo();
            QVERIFY(window.areAsAtFirst());
            QCOMPARE(window.shown(), kind.different);
            window.select({0});
            QCOMPARE(window.shown(), kind.one);
            window.stack.redo();
            window.settle();
            QVERIFY(window.showsEdited());
        }
    }

    void typingBelongsToWhatWasSelected()
    {
        for (const Kind &kind : g_kinds) {
            if (!kind.isTyped)
                continue;
            const TableRow inRow(kind.key);
            Window window(kind);
            window.select({0, 1});
            window.begin();
            window.select({2}); // by a shortcut, say: the field keeps the focus
            QCOMPARE(window.value(2, kind.key), kind.other);
            QVERIFY(window.value(0, kind.key) != window.first && !window.showsEdited());
            QCOMPARE(window.stack.count(), 1);
            QCOMPARE(window.stack.undoText(), window.actionName);
            window.undo();
            QVERIFY(window.areAsAtFirst());
        }
    }
};
QTEST_MAIN(tst_Selections)
#include "tst_Selections.moc"
