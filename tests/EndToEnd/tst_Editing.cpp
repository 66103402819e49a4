// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

namespace {
using Texts = QStringList;
using Values = QVariantList;

/// An edit of one or two objects' values. What is refused writes nothing, and says why.
struct Edit
{
    const char *key;
    const char *type;
    const char *more;
    Values old;
    const char *text;
    Values edited;
    const char *shown; // before and after it
    const char *refusal = "";
};

#define CRAYONS "colorList='Crayons'"
#define POINT "class='ZelInspectorPointProperty'"
#define RICH "attributed='yes' "
#define LIST "class='ZelInspectorArrayProperty'"
#define FLAGS                                                                                                          \
    "bitMask='12'><option-group><option title='none' value='0'/><option title='four' value='4'/></option-group>"       \
    "<option-group><option title='eight' value='8'/></option-group>"

const QVariant g_red = QColor(Qt::red), g_blue = QColor(Qt::blue), g_none;
const QVariant g_richGreen = ZelColor(Qt::green).toVariant(), g_richBlue = ZelColor(Qt::blue).toVariant();
const QVariant g_frame = QRectF(5, 2, 30, 40), g_moved = QRectF(7.5, 2, 30, 40);
const QDate g_day(2024, 5, 6), g_otherDay(2024, 5, 17);
const QDateTime g_midnight = g_day.startOfDay(), g_otherMidnight = g_otherDay.startOfDay();
const QDateTime g_noon(g_day, {12, 0, 7}, Qt::UTC), g_otherNoon(g_otherDay, {12, 0, 7}, Qt::UTC);
const QVariant g_numbers = QVariant::fromValue(QList<int>{1, 2}),
               g_otherNumbers = QVariant::fromValue(QList<int>{1, 3});
const QVariant g_a = ZelAttributedString("a").toVariant(), g_noRichText = QVariant::fromValue(ZelAttributedString());
const char *const g_noAddress = "This is not an address.", *const g_range = "The number must be between 0 and 255.";

const Edit g_edits[] = {
    // Colours stay of the class that each object has.
    {"fill", "color", CRAYONS, {g_red, QColor(Qt::green)}, "Blue", {g_blue, g_blue}, "Multiple Values|Blue"},
    {"fill", "color", CRAYONS, {QColor()}, "Blue", {g_blue}, "|Blue"},
    {"rich", "color", CRAYONS, {g_red}, "Blue", {g_richBlue}, "Red|Blue"},
    {"rich", "color", CRAYONS, {g_none}, "Blue", {g_richBlue}, "|Blue"},
    {"note", "color", CRAYONS, {g_red, g_none}, "Blue", {g_blue, g_blue}, "Multiple Values|Blue"},
    {"note", "color", CRAYONS, {g_richGreen, g_none}, "Blue", {g_richBlue, g_richBlue}, "Multiple Values|Blue"},
    {"note", "color", CRAYONS, {g_red, g_richGreen}, "Blue", {g_blue, g_richBlue}, "Multiple Values|Multiple Values"},
    {"note", "color", CRAYONS, {g_none, g_none}, "Blue", {g_blue, g_blue}, "|Blue"},
    // A day stays a day, and a time a time.
    {"day", "date", "", {g_day}, "17", {g_otherDay}, "6 May 2024|17 May 2024"},
    {"time", "date", "", {g_midnight}, "17", {g_otherMidnight}, "6 May 2024 00:00:00|17 May 2024 00:00:00"},
    {"note", "date", "", {g_day}, "17", {g_otherDay}, "6 May 2024|17 May 2024"},
    {"note", "date", "", {g_noon}, "17", {g_otherNoon}, "6 May 2024 12:00:07|17 May 2024 12:00:07"},
    {"day", "date", "", {g_day}, "06", {}, "6 May 2024|6 May 2024"},
    // A component is written into what each object has, and into a point where there is none.
    {"place", "custom", POINT, {QPointF(1, 2), QPointF(1, 5)}, "3", {QPointF(3, 2), QPointF(3, 5)}, "1|3"},
    {"place", "custom", POINT, {QPointF(1, 2)}, "0.1", {QPointF(double(0.1F), 2)}, "1|0.1"},
    {"place", "custom", POINT, {QPointF(1, 2)}, "", {QPointF(0, 2)}, "1|0"},
    {"note", "custom", POINT, {QPoint(1, 2)}, "3", {QPoint(3, 2)}, "1|3"},
    {"note", "custom", POINT, {QSizeF(1, 2)}, "3", {QSizeF(3, 2)}, "1|3"},
    {"note", "custom", POINT, {QSize(1, 2)}, "3", {QSize(3, 2)}, "1|3"},
    {"note", "custom", POINT, {g_none}, "3", {QPointF(3, 0)}, "|3"},
    {"note", "custom", POINT, {"1,2"}, "3", {QPointF(3, 0)}, "|3"},
    {"note", "frame", "", {QRect(5, 2, 30, 40)}, "7.5", {QRect(8, 2, 30, 40)}, "5|8"},
    {"note", "frame", "", {g_frame, g_none}, "7.5", {g_moved, QRectF(7.5, 0, 0, 0)}, "Multiple Values|7.5"},
    // Lists keep their types.
    {"tags", "custom", LIST, {Texts{"a", "b"}}, "x", {Texts{"a", "x"}}, "a b|a x"},
    {"note", "custom", LIST, {QVariant(Values{1, 2.5})}, "7.25", {QVariant(Values{1, 7.25})}, "1 2.5|1 7.25"},
    {"note", "custom", LIST, {QVariant(Values{1, 2})}, "many", {}, "1 2|1 2"},
    {"note", "custom", LIST, {QVariant(Values{1, "b"})}, "7", {QVariant(Values{1, "7"})}, "1 b|1 7"},
    {"note", "custom", LIST, {g_numbers}, "3", {g_otherNumbers}, "1 2|1 3"},
    // Only what the property takes.
    {"pattern", "string", "", {"Dots"}, "", {""}, "Dots|"},
    {"pattern", "string", "allowsNilValues='yes' placeholder='none'", {"Dots"}, "", {QString()}, "Dots|none"},
    {"pattern", "string", "", {"Dots"}, "Dots", {}, "Dots|Dots"},
    {"pattern", "resource", "resourcesKeyPath='names' placeholder='Any'", {"Dots"}, "", {QString()}, "Dots|Any"},
    {"text", "string", RICH, {g_a}, "", {ZelAttributedString("").toVariant()}, "a|"},
    {"text", "string", RICH "allowsNilValues='yes' placeholder='none'", {g_a}, "", {g_noRichText}, "a|none"},
    {"name", "string", RICH, {"Ada"}, "Bea", {"Bea"}, "Ada|Bea"},
    {"height", "number", "formatUnit=' pt'", {3.0, 4.0}, "14pt", {14.0, 14.0}, "Multiple Values|14"},
    {"height", "number", "", {2.1256}, "14", {14.0}, "2.126|14"},
    {"height", "number", "formatStyle='decimal'", {2.1256}, "14", {14.0}, "2.13|14"},
    {"height", "number", "", {3.0}, "tall", {}, "3|tall", "This is not a number."},
    {"byte", "number", "", {7}, "300", {}, "7|300", g_range},
    {"byte", "number", "minimum='-10'", {7}, "-5", {}, "7|-5", g_range},
    {"byte", "number", "", {7}, "255", {QVariant::fromValue(uchar(255))}, "7|255"},
    {"flags", "string", "", {7}, "many", {}, "7|many", "This is not a number."},
    {"address", "string", "", {QUrl("http://a")}, "http://[bad", {}, "http://a|http://[bad", g_noAddress},
    {"address", "string", "", {QUrl("http://a")}, "http://b", {QUrl("http://b")}, "http://a|http://b"},
    {"address", "resource", "", {QUrl("http://a")}, "http://[bad", {}, "http://a|http://[bad", g_noAddress},
    {"hour", "string", "", {QTime(12, 30)}, "soon", {}, "12:30|soon", "This is not a time."},
    {"role", "string", "", {Person::Guest}, "Oval", {}, "Guest|Oval", "This must be one of Guest, Member, Admin."},
    {"role", "string", "", {Person::Guest}, "Admin", {QVariant::fromValue(Person::Admin)}, "Guest|Admin"},
    // Bits: those of others are kept, and a sign is one as well.
    {"active", "boolean", "title='On'", {false, false}, "", {true, true}, "off|on"},
    {"flags", "boolean", "bits='4'", {-3, 1}, "", {-3, 5}, "mixed|on"},
    {"flags", "boolean", "bits='4'", {-3, 5}, "", {-7, 1}, "on|off"},
    {"flags", "enumeration", FLAGS, {0x05, 0x15}, "eight", {0x09, 0x19}, "four|eight"},
    {"flags", "enumeration", "style='segmented' " FLAGS, {0x15, 0x08}, "2", {0x19, 0x08}, "|2"},
};

QString described(const QVariant &value)
{
    if (value.typeId() == qMetaTypeId<ZelColor>())
        return u"ZelColor " + ZelColor::fromVariant(value).toQColor().name();
    if (value.typeId() == QMetaType::QString)
        return value.toString().isNull() ? "no text" : QString(u"text " + value.toString());
    if (value.typeId() == qMetaTypeId<ZelAttributedString>())
        return value.value<ZelAttributedString>().isNull()
                   ? "no string"
                   : QString(u"string " + value.value<ZelAttributedString>().text());
    return QDebug::toString(value);
}
} // namespace

/// What a person does with an inspector, with mouse and keyboard in a shown window.
class tst_Editing : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void valuesAreWrittenAsTheModelHoldsThem()
    {
        for (const Edit &edit : g_edits) {
            const TableRow inRow(QStringLiteral("%1 %2 %3, %4").arg(edit.key, edit.type, edit.shown, edit.text));
            Sheet window(Sheet::row(edit.key, edit.type, edit.more));
            const qsizetype count = edit.old.size();
            const auto values = [&] {
                Texts texts;
                for (int i = 0; i < count; ++i)
                    texts.append(described(window.value(i, edit.key)));
                return texts;
            };
            for (int i = 0; i < count; ++i)
                window.set(i, edit.key, edit.old[i]);
            window.select(count == 1 ? QList<int>{0} : QList<int>{0, 1});
            const Texts before = values();
            const QString shown = window.shown(edit.key);
            window.edit(edit.key, edit.text);
            QCOMPARE(shown + u'|' + window.shown(edit.key), edit.shown);
            Texts expected = before;
            for (int i = 0; i < edit.edited.size(); ++i) {
                expected[i] = described(edit.edited[i]);
                QVERIFY(expected[i].startsWith("ZelColor") || ZelEqual(window.value(i, edit.key), edit.edited[i]));
            }
            QCOMPARE(values(), expected);
            const QWidget *view = window.editor<ZelInspectorProperty>(edit.key)->view();
            const auto *growing = view->findChild<ZelGrowingTextField *>();
            const auto *field = view->findChild<ZelTextField *>();
            QCOMPARE(growing ? growing->errorText() : field ? field->errorText() : QString(), edit.refusal);
            const bool isStep = !edit.edited.isEmpty();
            const bool isOfCell = QByteArray(edit.more) == LIST; // which is no action
            QCOMPARE(window.stack.count(), isStep ? 1 : 0);
            QCOMPARE(window.owner->actions, isStep && !isOfCell ? 1 : 0);
            if (!isStep)
                continue;
            QCOMPARE(window.stack.undoText(), isOfCell ? QString()
                                              : QByteArray(edit.type) == "frame"
                                                  ? QString("Change Origin X")
                                                  : QString(QString("Change ") + edit.key));
            window.undo();
            QCOMPARE(values(), before);
            QCOMPARE(window.shown(edit.key), shown);
        }
    }

    void textThatIsNoNumberIsDroppedWithTheSelection()
    {
        Sheet window(Sheet::row("height", "number"));
        window.set(1, "height", 3);
        window.select({0});
        window.begin("height", "no number");
        for (int figure : {1, 0}) {
            window.select({figure});
            QCOMPARE(window.shown("height"), figure == 0 ? "0" : "3");
        }
        QCOMPARE(window.stack.count(), 0);
    }

    void manyChangesAreOneRefresh()
    {
        Sheet window(Sheet::row("name", "string"));
        window.select({0, 1, 2});
        auto *field = window.editor<ZelInspectorStringProperty>("name")->textField();
        int refreshes = 0;
        connect(field, &ZelGrowingTextField::objectValueChanged, &window, [&] { ++refreshes; });
        for (int i = 0; i < 50; ++i) {
            for (const auto &person : window.figures)
                person->setName(QStringLiteral("N%1").arg(i));
        }
        QCOMPARE(refreshes, 0);
        window.settle();
        QCOMPARE(refreshes, 1);
        QCOMPARE(field->text(), "N49");
    }
};
QTEST_MAIN(tst_Editing)
#include "tst_Editing.moc"
