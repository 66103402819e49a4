// SPDX-License-Identifier: MIT
#include "Core/Undo/ZelUndoManager.h"
#include "FigureSheet.h"
#include "Inspector/Properties/private/ZelValueClipboard.h"
#include "Support/Failures.h"
#include <limits>

namespace {
/// A model whose class resets one of its properties, and keeps it within limits without a word.
class Bottle : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double height READ height WRITE setHeight RESET resetHeight NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
public:
    double height() const { return m_height; }
    void setHeight(double height)
    {
        m_height = qBound(0.0, height, 100.0);
        Q_EMIT changed();
    }
    void resetHeight() { setHeight(33); }
    QString name() const { return "bottle"; }
    MODEL_VALUE(uchar, flags, 0)
    Q_SIGNAL void changed();

private:
    double m_height = 1;
};

/// One row for each kind of editor, with the default that is given and the text of the value that it means.
struct DefaultCase
{
    const char *key;
    const char *type;
    const char *more;
    QVariant other;
    QVariant meant;
};

const QList<DefaultCase> g_cases{
    {"name", "string", "defaultValue='No one'", "P", "No one"},
    {"height", "number", "defaultValue='1.5'", 7.0, 1.5},
    {"note", "number", "defaultValue='8' nonNilValueTitle='On' nonNilValueKeyPath='extra'", QVariant(), 8},
    {"active", "boolean", "defaultValue='yes'", false, true},
    {"role", "enumeration", "defaultValue='Admin'><option-group><option title='A' value='2'/></option-group>",
     QVariant::fromValue(Person::Guest), QVariant::fromValue(Person::Admin)},
    {"fill", "color", "defaultValue='#102030'", QColor(Qt::red), QColor(16, 32, 48)},
    {"rich", "color", "defaultValue='NSCalibratedWhiteColorSpace 0.5 1'",
     QVariant::fromValue(ZelColor(ZelColor::CalibratedWhite, {0, 1})),
     QVariant::fromValue(ZelColor(ZelColor::CalibratedWhite, {0.5, 1}))},
    {"day", "date", "defaultValue='2020-02-29'", QDate(2024, 5, 6), QDate(2020, 2, 29)},
    {"size", "size", "defaultValue='3, 4.5'", QSizeF(1, 1), QSizeF(3, 4.5)},
    {"frame", "frame", "defaultValue='1 2 3 4'", QRectF(9, 9, 9, 9), QRectF(1, 2, 3, 4)},
    {"font", "font", "defaultValue='DejaVu Sans,13'", QFont("DejaVu Sans", 9), QFont("DejaVu Sans", 13)},
    {"tags", "custom", "class='ZelInspectorArrayProperty' defaultValue='x, y'", QStringList{"a"},
     QStringList{"x", "y"}},
    {"pattern", "resource", "defaultValueKeyPath='extra'", "Dots", "Plain"},
    {"byte", "number", "defaultValue='0x20'", 3, 32},
};

struct Rows : Sheet
{
    using Sheet::Sheet;
    ZelInspectorSliver *sliver(const QString &key) const
    {
        return qobject_cast<ZelInspectorSliver *>(editor<ZelInspectorProperty>(key)->parent());
    }
    bool isMarked(const QString &key) const
    {
        const ZelInspectorSliver *row = sliver(key);
        return row->label()->isDotted();
    }
    /// The menu that a right click there or, for a null position, the key opens.
    static QMenu *menu(QWidget *widget, bool byKey = false)
    {
        const QPoint place = widget->rect().center();
        if (byKey) {
            press(Qt::Key_F10, Qt::ShiftModifier);
        } else {
            QWidget *target = widget->childAt(place) ? widget->childAt(place) : widget;
            QContextMenuEvent event(QContextMenuEvent::Mouse, target->mapFrom(widget, place),
                                    widget->mapToGlobal(place));
            QApplication::sendEvent(target, &event);
        }
        settle();
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }
    static QAction *command(const QMenu *menu, const QString &text)
    {
        for (QAction *action : menu ? menu->actions() : QList<QAction *>()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }
    /// Chooses it; false if there is no such command or it is disabled.
    static bool choose(QMenu *menu, const QString &text)
    {
        QAction *action = command(menu, text);
        const bool isEnabled = action && action->isEnabled();
        const QPointer<QMenu> open(menu);
        if (isEnabled)
            action->trigger();
        if (open)
            open->close();
        settle();
        return isEnabled;
    }
    bool chooseFor(const QString &key, const QString &text) const { return choose(menu(sliver(key)->label()), text); }
};

QMimeData *valuesOf(const QByteArray &json)
{
    auto *data = new QMimeData;
    data->setData(ZelValueClipboard::mimeType(), json);
    return data;
}
} // namespace

class tst_Rows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void resetsEachEditor()
    {
        QByteArray rows;
        for (const DefaultCase &row : g_cases)
            rows += Rows::row(row.key, row.type, row.more);
        Rows sheet(rows, {360, 900});
        sheet.owner->extra = "Plain";
        sheet.select({0, 1});
        for (const DefaultCase &row : g_cases) {
            const QString key = row.key;
            sheet.set(0, row.key, row.meant);
            sheet.set(1, row.key, row.meant);
            QVERIFY2(!sheet.isMarked(key), row.key);
            sheet.set(1, row.key, row.other);
            QVERIFY2(sheet.isMarked(key), row.key);
            sheet.set(0, row.key, row.other);
            QVERIFY2(sheet.isMarked(key), row.key);
            const int steps = sheet.stack.count();
            QVERIFY2(sheet.chooseFor(key, "Reset " + key), row.key);
            QVERIFY2(sheet.value(0, row.key) == row.meant && sheet.value(1, row.key) == row.meant, row.key);
            QVERIFY2(!sheet.isMarked(key), row.key);
            QCOMPARE(sheet.stack.count(), steps + 1);
            QCOMPARE(sheet.stack.undoText(), "Reset " + key);
            sheet.undo();
            QVERIFY2(ZelEqual(sheet.value(0, row.key), row.other), row.key);
            sheet.stack.redo();
            QVERIFY2(sheet.value(1, row.key) == row.meant, row.key);
        }
    }

    void resetsOnlyTheEditedBits()
    {
        Rows sheet(Rows::row("flags", "boolean", "bits='0x6' defaultValue='no'"));
        sheet.set(0, "flags", 1);
        sheet.set(1, "flags", 12);
        sheet.select({0});
        QVERIFY(!sheet.isMarked("flags"));
        sheet.select({0, 1});
        QVERIFY(sheet.isMarked("flags"));
        QVERIFY(sheet.chooseFor("flags", "Reset flags"));
        QCOMPARE(sheet.value(0, "flags"), 1);
        QCOMPARE(sheet.value(1, "flags"), 8);
        sheet.undo();
        QCOMPARE(sheet.value(1, "flags"), 12);
    }

    /// The label gets the focus by a click, and only where that makes sense.
    void resetsByKey()
    {
        Rows sheet(Rows::row("name", "string", "defaultValue='none'") +
                   Rows::row("height", "number", "defaultValue='2'") + Rows::row("pattern", "resource"));
        sheet.select({0, 1, 2});
        sheet.set(1, "name", "one");
        sheet.click(sheet.sliver("name")->label());
        QVERIFY(sheet.sliver("name")->label()->hasFocus());
        sheet.press(Qt::Key_Backspace);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(sheet.value(i, "name"), "none");
        QCOMPARE(sheet.stack.undoText(), "Reset name");
        sheet.press(Qt::Key_Delete); // there is nothing left to reset
        QCOMPARE(sheet.stack.count(), 1);
        sheet.undo();
        QCOMPARE(sheet.value(0, "name"), "P0");
        QCOMPARE(sheet.value(1, "name"), "one");
    }

    /// Each object has a default of its own; typing is dropped.
    void resetsToEachObjectsOwn()
    {
        Rows sheet(Rows::row("height", "number", "defaultValueKeyPath='people.selection.flags'"));
        for (int i = 0; i < 2; ++i)
            sheet.set(i, "flags", 10 + i);
        sheet.select({0, 1});
        QVERIFY(sheet.isMarked("height"));
        auto *editor = sheet.editor<ZelInspectorNumberProperty>("height");
        sheet.replaceText(editor->textField(), "77");
        QMenu *menu = sheet.menu(editor->textField(), true);
        QVERIFY(sheet.choose(menu, "Reset height"));
        QCOMPARE(sheet.value(0, "height"), 10.0);
        QCOMPARE(sheet.value(1, "height"), 11.0);
        QVERIFY(!sheet.isMarked("height"));
        sheet.click(sheet.sliver("height")->label());
        editor->textField()->clearFocus();
        sheet.settle();
        QCOMPARE(sheet.value(0, "height"), 10.0);
    }

    void resetsByTheClass()
    {
        Rows sheet(Rows::row("height", "number") + Rows::row("flags", "number"));
        Bottle bottle;
        sheet.set(0, "height", 5);
        sheet.selectObjects({sheet.figures[0].get()});
        QVERIFY(!sheet.chooseFor("height", "Reset height"));
        sheet.selectObjects({sheet.figures[0].get(), &bottle});
        QVERIFY(!sheet.chooseFor("flags", "Reset flags"));
        QVERIFY(sheet.chooseFor("height", "Reset height"));
        QCOMPARE(bottle.height(), 33.0);
        QCOMPARE(sheet.value(0, "height"), 5.0); // its class has no such function
        sheet.undo();
        QCOMPARE(bottle.height(), 1.0);
        sheet.stack.redo();
        QCOMPARE(bottle.height(), 33.0);
    }

    void refusesDefaults()
    {
        {
            Failures failures;
            Rows sheet(Rows::row("height", "number", "defaultValue='tall'"));
            QVERIFY(failures.taken().join(' ').contains("defaultValue=\"tall\" is no double"));
            QVERIFY(failures.places.first().line > 0);
        }
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("The default value \"Boss\" is no Person::Role .*xml:"));
        Rows sheet(Rows::row("role", "enumeration", "defaultValue='Boss'><option-group/>"));
        sheet.select({0});
        QVERIFY(!sheet.isMarked("role"));
        sheet.select({1, 2});
        QVERIFY(!sheet.isMarked("role"));
    }

    void resetsTheSection()
    {
        Rows sheet("<sliver><property type='boolean' title='Active' keyPath='people.selection.active' "
                   "defaultValue='yes'/></sliver>" +
                   Rows::row("name", "string", "defaultValue='none'") + Rows::row("height", "number"));
        sheet.select({0});
        ZelInspectorSliver *row = sheet.sliver("active");
        QVERIFY(!row->label());
        const auto *mark = row->view()->findChild<ZelLabel *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(mark && mark->isDotted() && mark->isVisible());
        QCOMPARE(mark->accessibleDescription(), "Changed from its default");
        QVERIFY(mark->geometry().right() < row->properties().first()->view()->x() + 4);
        QMenu *menu = sheet.menu(row->view());
        QVERIFY(sheet.command(menu, "Reset Active"));
        QVERIFY(sheet.choose(sheet.command(menu, "Section")->menu(), "Reset All"));
        QCOMPARE(sheet.value(0, "active"), true);
        QCOMPARE(sheet.value(0, "name"), "none");
        QCOMPARE(sheet.stack.count(), 1);
        QVERIFY(!row->view()->findChild<ZelLabel *>(QString(), Qt::FindDirectChildrenOnly));
        sheet.undo();
        QCOMPARE(sheet.value(0, "active"), false);
        QCOMPARE(sheet.value(0, "name"), "P0");
    }

    /// What editors have copied comes back exactly, in other objects and in another window.
    void copiesAndPastes()
    {
        QByteArray rows;
        for (const DefaultCase &row : g_cases)
            rows += Rows::row(row.key, row.type, row.more);
        Rows from(rows, {360, 900});
        Rows to(rows, {360, 900});
        from.select({0});
        to.select({1, 2});
        for (const DefaultCase &row : g_cases) {
            const QString key = row.key;
            from.set(0, row.key, row.meant);
            QVERIFY2(from.chooseFor(key, "Copy"), row.key);
            QVERIFY2(to.chooseFor(key, "Paste"), row.key);
            QVERIFY2(to.value(1, row.key) == row.meant && to.value(2, row.key) == row.meant, row.key);
            QCOMPARE(to.stack.undoText(), "Paste " + key);
            QVERIFY2(to.note().isEmpty(), row.key);
            to.undo();
        }
        to.select({0, 1});
        to.set(0, "name", "A");
        QVERIFY(!to.chooseFor("name", "Copy"));
        QVERIFY(to.chooseFor("size", "Copy Key Path"));
        QCOMPARE(QApplication::clipboard()->text(), "size");
    }

    /// What a section cannot take is left out and said; the rest is one step.
    void pastesASection()
    {
        const QByteArray rows = Rows::row("height", "number") + Rows::row("name", "string") +
                                Rows::row("flags", "number") + Rows::row("day", "date");
        Rows sheet(rows);
        sheet.select({0});
        sheet.set(0, "height", 12.5);
        sheet.set(0, "flags", 300);
        QMenu *menu = sheet.menu(sheet.sliver("name")->label());
        QVERIFY(sheet.choose(sheet.command(menu, "Section")->menu(), "Copy"));
        QVERIFY(QApplication::clipboard()->text().startsWith("height\t12.5\nname\tP0\nflags\t300\n"));
        Bottle bottle;
        sheet.selectObjects({&bottle});
        menu = sheet.menu(sheet.sliver("flags")->label());
        QVERIFY(sheet.choose(sheet.command(menu, "Section")->menu(), "Paste"));
        QCOMPARE(bottle.height(), 12.5);
        QCOMPARE(bottle.flags, uchar(0));
        const QString note = sheet.note();
        QVERIFY2(note.contains("name: This cannot be changed.") && note.contains("between 0 and 255") &&
                     note.contains("day: Not Applicable") && !note.contains("height"),
                 qPrintable(note));
        QCOMPARE(sheet.stack.count(), 1);
        sheet.undo();
        QCOMPARE(bottle.height(), 1.0);
    }

    void pastesTexts_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("value"); // absent where the text is refused
        const QVariant pair(QSizeF(1.5, 2.5));
        const auto add = [](const char *locale, const char *key, const char *text, const QVariant &value) {
            QTest::addRow("%s %s %s", locale, key, text) << locale << key << text << value;
        };
        for (const char *text : {"1.5, 2.5", "1.5 2.5", "1.5;2.5", "1.5\t2.5", "1.5\n2.5", "1.5,2.5"})
            add("en_US", "size", text, pair);
        for (const char *text : {"1,5; 2,5", "1,5 2,5", "1,5, 2,5"})
            add("de_DE", "size", text, pair);
        add("en_US", "size", "1,000", QSizeF(1000, 40));
        add("de_DE", "size", "1,5", QSizeF(1.5, 40));
        add("en_US", "frame", "1 2 3", QRectF(1, 2, 3, 50));
        add("en_US", "height", "1,234.5", 1234.5);
        add("en_US", "height", "high", {});
        add("en_US", "day", "2021-03-04", QDate(2021, 3, 4));
        add("de_DE", "day", "04.03.21", QDate(2021, 3, 4));
        add("en_US", "day", "never", {});
        add("en_US", "fill", "#00ff00", QColor(Qt::green));
        add("en_US", "fill", "greenish", {});
        add("en_US", "role", "second", 1);
        add("en_US", "role", "third", {});
        add("en_US", "pattern", "Plain", QVariant(QString()));
        add("en_US", "active", "on", true);
        add("en_US", "name", "1, 2", "1, 2");
        add("en_US", "byte", "256", {});
    }
    void pastesTexts()
    {
        QFETCH(QString, locale);
        QFETCH(QString, key);
        QFETCH(QVariant, value);
        QLocale::setDefault(QLocale(locale));
        const QByteArray name = key.toLatin1();
        const QHash<QString, QByteArray> types{{"size", "size"},      {"frame", "frame"},     {"day", "date"},
                                               {"fill", "color"},     {"name", "string"},     {"role", "enumeration"},
                                               {"active", "boolean"}, {"pattern", "resource"}};
        Rows sheet(Rows::row(name, types.value(key, "number"),
                             key == "role"      ? "><option-group><option title='Second' value='1'/></option-group>"
                             : key == "pattern" ? "placeholder='Plain'"
                                                : ""));
        sheet.select({0, 1});
        if (key == "pattern") { // no pattern is copied as it is shown
            sheet.set(0, "pattern", QString());
            sheet.set(1, "pattern", QString());
            QVERIFY(sheet.chooseFor(key, "Copy"));
            QCOMPARE(QApplication::clipboard()->text(), "Plain");
            sheet.set(1, "pattern", "Dots");
            sheet.set(0, "pattern", "Dots");
        }
        const QVariant before = sheet.value(0, name);
        QFETCH(QString, text);
        QApplication::clipboard()->setText(text);
        QVERIFY(sheet.chooseFor(key, "Paste"));
        QLocale::setDefault(QLocale::c());
        QVERIFY(ZelEqual(sheet.value(0, name), value.isValid() ? value : before) ||
                (value.isValid() && sheet.value(0, name).toInt() == value.toInt() && key == "role"));
        QCOMPARE(sheet.note().isEmpty(), value.isValid());
        QCOMPARE(sheet.note().contains("none of the choices"), key == "role" && !value.isValid());
        QCOMPARE(sheet.stack.count(), value.isValid() ? 1 : 0);
    }

    /// A default is a value of the model; a text is what the field shows.
    void usesTransformers()
    {
        Rows sheet(Rows::row("height", "number",
                             "valueTransformer='ZelPercentValueTransformerName' formatUnit=' %' defaultValue='0.5'"));
        sheet.select({0, 1});
        QVERIFY(sheet.isMarked("height"));
        QVERIFY(sheet.chooseFor("height", "Reset height"));
        QCOMPARE(sheet.value(1, "height"), 0.5);
        QVERIFY(!sheet.isMarked("height"));
        QVERIFY(sheet.chooseFor("height", "Copy"));
        QCOMPARE(QApplication::clipboard()->text(), "50 %");
        sheet.set(0, "height", 3);
        sheet.set(1, "height", 4);
        QVERIFY(sheet.chooseFor("height", "Paste"));
        QCOMPARE(sheet.value(1, "height"), 0.5);
        QApplication::clipboard()->setText("25 %");
        QVERIFY(sheet.chooseFor("height", "Paste"));
        QCOMPARE(sheet.value(0, "height"), 0.25);
    }

    /// Several numbers go to the field with the focus and those behind it, if they replace all of its text.
    void pastesNumbersByKey()
    {
        Rows sheet(Rows::row("frame", "frame"));
        sheet.select({0, 1});
        sheet.set(1, "frame", QRectF(1, 1, 1, 1));
        const auto fields = sheet.editor<ZelInspectorBoundsProperty>("frame")->view()->findChildren<ZelTextField *>();
        QApplication::clipboard()->setText("5 6 7 8 9");
        sheet.click(fields.at(1));
        sheet.press(Qt::Key_A, Qt::ControlModifier);
        sheet.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(sheet.value(0, "frame"), QRectF(10, 5, 6, 7));
        QCOMPARE(sheet.value(1, "frame"), QRectF(1, 5, 6, 7));
        QCOMPARE(sheet.stack.count(), 1);
        QVERIFY(sheet.note().contains("There is no field for this."));
        QVERIFY(fields.at(1)->hasFocus());
        QCOMPARE(fields.at(1)->text(), "5");
        sheet.undo();
        QCOMPARE(sheet.value(0, "frame"), QRectF(10, 20, 100, 50));
        QCOMPARE(sheet.value(1, "frame"), QRectF(1, 1, 1, 1));
    }

    /// Texts are read as if they were typed, each object's number changes by itself, and one that is refused keeps the
    /// others from being pasted.
    void pastesNumbersAsTyped()
    {
        Rows sheet(Rows::row("frame", "frame") + Rows::row("height", "number") + Rows::row("byte", "number"));
        sheet.select({0, 1});
        sheet.set(1, "frame", QRectF(1, 2, 3, 4));
        sheet.set(0, "height", 10);
        sheet.set(1, "height", 20);
        const auto paste = [&](const QString &key, const QString &text) {
            QApplication::clipboard()->setText(text);
            QVERIFY(sheet.chooseFor(key, "Paste"));
        };
        paste("frame", "50, x+1");
        QCOMPARE(sheet.value(0, "frame"), QRectF(50, 21, 100, 50));
        QCOMPARE(sheet.value(1, "frame"), QRectF(50, 3, 3, 4));
        QCOMPARE(sheet.stack.count(), 1);
        sheet.undo();
        QCOMPARE(sheet.value(1, "frame"), QRectF(1, 2, 3, 4));
        paste("frame", "x, +=5, max(1, 2), i*7");
        QCOMPARE(sheet.value(0, "frame"), QRectF(10, 20, 100, 50)); // five parts, of which not all are read
        QVERIFY(sheet.note().contains("Not pasted:"));
        paste("frame", "x; +=5; max(1, 2); 1+i*7");
        QCOMPARE(sheet.value(0, "frame"), QRectF(10, 25, 2, 1));
        QCOMPARE(sheet.value(1, "frame"), QRectF(1, 7, 2, 8));
        paste("height", "x*2");
        QCOMPARE(sheet.value(1, "height"), 40.0);
        const int steps = sheet.stack.count();
        paste("byte", "+=400");
        paste("frame", "1, 2, three, 4");
        QVERIFY(sheet.note().contains("Width: "));
        QCOMPARE(sheet.value(0, "frame"), QRectF(10, 25, 2, 1));
        QCOMPARE(sheet.stack.count(), steps);
    }

    /// As many numbers as fields are meant for them, even where commas might group digits.
    void pastesAsManyNumbersAsFields()
    {
        QLocale::setDefault(QLocale("en_US"));
        Rows sheet(Rows::row("frame", "frame") + Rows::row("size", "size"));
        sheet.select({0});
        QApplication::clipboard()->setText("100,200,200,100");
        QVERIFY(sheet.chooseFor("frame", "Paste"));
        QCOMPARE(sheet.value(0, "frame"), QRectF(100, 200, 200, 100));
        sheet.undo();
        const auto fields = sheet.editor<ZelInspectorBoundsProperty>("frame")->view()->findChildren<ZelTextField *>();
        const auto overwrite = [&](int index, const QString &text) {
            QApplication::clipboard()->setText(text);
            sheet.click(fields.at(index));
            sheet.press(Qt::Key_A, Qt::ControlModifier);
            sheet.press(Qt::Key_V, Qt::ControlModifier);
            sheet.press(Qt::Key_Return);
        };
        overwrite(0, "100,200,200,100");
        QCOMPARE(sheet.value(0, "frame"), QRectF(100, 200, 200, 100));
        overwrite(2, "1,234"); // the text of a field is pasted back as it was
        QCOMPARE(sheet.value(0, "frame"), QRectF(100, 200, 1234, 100));
        QApplication::clipboard()->setText("100,200");
        QVERIFY(sheet.chooseFor("size", "Paste"));
        QCOMPARE(sheet.value(0, "size"), QSizeF(100, 200));
        QLocale::setDefault(QLocale::c());
    }

    /// What the model would make another number of is not pasted.
    void refusesNumbersBeyondLimits()
    {
        Rows sheet(Rows::row("height", "number"));
        Bottle bottle;
        sheet.selectObjects({&bottle});
        QApplication::clipboard()->setText("300");
        QVERIFY(sheet.chooseFor("height", "Paste"));
        QCOMPARE(bottle.height(), 1.0);
        QCOMPARE(sheet.stack.count(), 0);
        QVERIFY2(sheet.note().contains("height: This would become 100."), qPrintable(sheet.note()));
        sheet.select({0}); // the note was about the others
        QVERIFY(sheet.note().isEmpty());
    }

    /// A section's menu is on its heading, an inspector's on its header, by mouse and by key, folded or not.
    void opensMenusOfSectionsAndInspectors()
    {
        Rows sheet("<panes><pane><inspector title='Look'><slice><section>" + Rows::row("name", "string") +
                   "<sliver title='Serial'><property type='string' keyPath='people.selection.role' editable='no'/>"
                   "</sliver></section><section title='Shadow'>" +
                   Rows::row("height", "number", "defaultValue='2'") + Rows::row("flags", "number") +
                   "</section></slice></inspector></pane></panes>");
        sheet.select({0});
        sheet.set(0, "height", 9);
        auto *section = qobject_cast<ZelInspectorSection *>(sheet.sliver("height")->parent());
        auto *box = sheet.findChild<ZelExpandableView *>();
        QMenu *menu = sheet.menu(section->label());
        QVERIFY(sheet.command(menu, "Look"));
        QVERIFY(sheet.choose(menu, "Copy"));
        QCOMPARE(QApplication::clipboard()->text(), "height\t9\nflags\t0");
        sheet.click(section->label());
        QVERIFY(sheet.choose(sheet.menu(section->label(), true), "Reset All"));
        QCOMPARE(sheet.value(0, "height"), 2.0);
        QCOMPARE(sheet.stack.undoText(), "Reset Shadow");
        box->header()->setFocus();
        box->setExpanded(false);
        QVERIFY(sheet.choose(sheet.menu(box->header(), true), "Copy"));
        QCOMPARE(QApplication::clipboard()->text(), "name\tP0\nheight\t2\nflags\t0");
        sheet.select({1, 2});
        QVERIFY(sheet.choose(sheet.menu(box->header()), "Paste"));
        QCOMPARE(sheet.value(2, "name"), "P0");
        QCOMPARE(sheet.value(1, "height"), 2.0);
        QVERIFY2(sheet.note().isEmpty(), qPrintable(sheet.note()));
        QCOMPARE(sheet.stack.undoText(), "Paste Look");
        sheet.undo();
        QCOMPARE(sheet.value(1, "name"), "P1");
    }

    /// The condition of a row may become true by the very reset.
    void resetsHiddenRows()
    {
        Rows sheet("<panes><pane><inspector title='Look'><slice><section>" +
                   Rows::row("active", "boolean", "defaultValue='yes'") +
                   "<sliver title='Width' visibleKeyPath='people.selection.active'><property type='number' "
                   "keyPath='people.selection.height' defaultValue='2'/></sliver></section>"
                   "<section visibleKeyPath='people.selection.active'>" +
                   Rows::row("name", "string", "defaultValue='none'") +
                   "</section></slice><slice visibleKeyPath='people.selection.active'><section>" +
                   Rows::row("byte", "number", "defaultValue='3'") + "</section></slice></inspector></pane></panes>");
        sheet.set(0, "height", 7);
        sheet.set(1, "active", true);
        sheet.select({0, 1});
        auto *box = sheet.findChild<ZelExpandableView *>();
        QVERIFY(sheet.choose(sheet.menu(box->header()), "Reset All"));
        for (int i : {0, 1}) {
            QCOMPARE(sheet.value(i, "active"), true);
            QCOMPARE(sheet.value(i, "height"), 2.0);
            QCOMPARE(sheet.value(i, "name"), "none");
            QCOMPARE(sheet.value(i, "byte"), 3);
        }
        QCOMPARE(sheet.stack.count(), 1);
        QCOMPARE(sheet.stack.undoText(), "Reset Look");
        sheet.undo();
        QCOMPARE(sheet.value(0, "height"), 7.0);
        QCOMPARE(sheet.value(1, "name"), "P1");
        QVERIFY(sheet.value(0, "byte") != 3);
    }

    /// What has no title is called by those of its editors or of their parts.
    void namesWhatIsReset()
    {
        Rows sheet("<sliver><property type='frame' keyPath='people.selection.frame'/></sliver><sliver>"
                   "<property type='boolean' title='On' keyPath='people.selection.active'/>"
                   "<property type='boolean' title='Flag' keyPath='people.selection.flags'/></sliver>");
        sheet.select({0});
        QMenu *menu = sheet.menu(sheet.editor<ZelInspectorBoundsProperty>("frame")->view());
        QVERIFY(sheet.command(menu, "Reset X, Y, Width, Height"));
        menu->close();
        const ZelView *row = sheet.sliver("active")->view();
        QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, row->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(const_cast<ZelView *>(row), &event);
        menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(sheet.command(menu, "Reset On, Flag"));
        menu->close();
    }

    /// A field's own menu comes first, also for the key.
    void extendsTheMenuOfTexts()
    {
        Rows sheet(Rows::row("height", "number", "defaultValue='3'") + Rows::row("name", "string") +
                   Rows::row("day", "date"));
        sheet.select({0});
        ZelTextField *field = sheet.editor<ZelInspectorNumberProperty>("height")->textField();
        sheet.click(field);
        for (const bool byKey : {false, true}) {
            QMenu *menu = sheet.menu(field, byKey);
            QVERIFY(menu && menu->actions().first()->text().contains("Undo"));
            QVERIFY(sheet.command(menu, "Copy Key Path"));
            QVERIFY(sheet.choose(menu, "Copy Value"));
        }
        QVERIFY(QApplication::clipboard()->mimeData()->hasFormat(ZelValueClipboard::mimeType()));
        auto *text = sheet.editor<ZelInspectorStringProperty>("name")->view()->findChild<ZelGrowingTextField *>();
        sheet.click(text);
        QMenu *menu = sheet.menu(text, true);
        QVERIFY(sheet.command(menu, "Copy Value"));
        sheet.choose(menu, "Copy Key Path");
        QCOMPARE(QApplication::clipboard()->text(), "name");
        menu = sheet.menu(sheet.editor<ZelInspectorDateProperty>("day")->view()->findChild<ZelDatePicker *>());
        QVERIFY(sheet.command(menu, "Copy Value") && menu->actions().first()->text().contains("Undo"));
        menu->close();
    }

    void refusesHostileClipboards()
    {
        const QByteArray deepList = QByteArray("{'type': 'list', 'value': [").repeated(400);
        const QByteArray clipboards[] = {
            "{height",
            "[1, 2]",
            "{'height': 5}",
            "{'height': {'type': 'object', 'value': '5'}}",
            "{'height': {'type': 'number', 'value': {'a': []}}}",
            "{'height': {'type': 'integer', 'value': '99999999999999999999'}}",
            "{'fill': {'type': 'color', 'value': ['1', '2', 'nan', '0', '0', '0']}}",
            "{'fill': {'type': 'color', 'value': ['0']}}",
            "{'size': {'type': 'geometry', 'value': ['QObject*', '1', '2']}}",
            "{'font': {'type': 'font', 'value': ['x,1e30', '1']}}",
            "{'note': {'type': 'paragraph', 'value': {'alignment': '-1'}}}",
            "{'height': " + deepList + QByteArray("]}").repeated(400) + "}",
            "{'height': " + QByteArray("[").repeated(100000) + "}",
            "{'height': {'type': 'text', 'value': '" + QByteArray(ZelValueClipboard::maximumSize, 'x') + "'}}",
            "{'time': {'type': 'moment', 'value': ['2020-01-01', '10:00:00.000', 'Nowhere/Never']}}"};
        Rows sheet(Rows::row("height", "number") + Rows::row("name", "string"));
        sheet.select({0});
        for (QByteArray json : clipboards) {
            const TableRow inRow(json.left(80));
            const std::unique_ptr<QMimeData> data(valuesOf(json.replace('\'', '"')));
            QVERIFY(!ZelValueClipboard::values(data.get()));
            QApplication::clipboard()->setMimeData(valuesOf(json));
            QVERIFY(sheet.chooseFor("height", "Paste"));
            QCOMPARE(sheet.stack.count(), 0);
            QVERIFY(sheet.note().contains("nothing on the clipboard"));
        }
    }

    void holdsValuesExactly()
    {
        ZelAttributedString rich("one\ntwo");
        ZelParagraphStyle style;
        style.headIndent = 0.1;
        style.hyphenationFactor = 0.3F;
        style.tabStops = {{72, QTextOption::RightTab, u'x'}};
        rich.setParagraphStyle(style, {0, 2});
        rich.setAttribute(ZelAttributedString::Font, QFont("DejaVu Sans", 13, QFont::Bold), {1, 4});
        rich.setAttribute(ZelAttributedString::UnderlineStyle, QVariant::fromValue(QTextCharFormat::WaveUnderline),
                          {2, 2});
        rich.setAttribute(ZelAttributedString::ForegroundColor, QColor(Qt::blue), {0, 5});
        const QDate day(2020, 1, 2);
        const QTime hour(3, 4, 5, 6);
        QVariantList values{QVariant(), true, 0.1, std::numeric_limits<double>::infinity(), -0.0, 5e-324};
        values += {std::numeric_limits<qlonglong>::min(), std::numeric_limits<qulonglong>::max()};
        values += {QStringLiteral("a\"b\n\u00e4"), QStringLiteral(""), QByteArray("\0\xff", 2)};
        values += {QUrl("http://a.example/b?c#d"), QDate(1, 1, 1), QTime(23, 59, 59, 999)};
        values += {QDateTime(day, hour), QDateTime(day, hour, Qt::UTC), QDateTime(day, hour, Qt::OffsetFromUTC, -5400)};
        values += QDateTime(QDate(2020, 7, 2), hour, QTimeZone("Europe/Berlin"));
        values += {QColor(1, 2, 3, 4), QColor::fromHsvF(0.3F, 0.4F, 0.5F, 0.6F), QColor::fromHslF(-1, 0, 0.5F)};
        values += QColor::fromCmykF(0.1F, 0.2F, 0.3F, 0.4F);
        values += {ZelColor(ZelColor::DeviceCMYK, {0.1, 0.2, 0.3, 0.4, 1}).toVariant(),
                   ZelColor::named("System", "textColor").toVariant(), QFont("DejaVu Sans", 11, QFont::Bold, true)};
        values += {QPoint(1, -2), QPointF(0.1, -1e300), QSize(3, 4), QSizeF(0.5, 6), QRect(1, 2, 3, 4)};
        values += {QRectF(0.1, 0.2, 0.3, 0.4), QStringList{"a", ""}};
        values.append(QVariant(QVariantList{1LL, QVariantList{true, QVariant()}}));
        values.append(rich.toVariant());
        ZelValueClipboard::Values all;
        for (qsizetype i = 0; i < values.size(); ++i) {
            QVERIFY2(ZelValueClipboard::canHold(values.at(i)), values.at(i).typeName());
            all.insert(QString::number(i), values.at(i));
        }
        const std::unique_ptr<QMimeData> data(ZelValueClipboard::mimeData(all, {}));
        const auto back = ZelValueClipboard::values(data.get());
        QVERIFY(back);
        for (qsizetype i = 0; i < values.size(); ++i) {
            const QVariant value = back->value(QString::number(i));
            QVERIFY2(value == values.at(i) && value.metaType() == values.at(i).metaType(),
                     qPrintable(QDebug::toString(value) + QDebug::toString(values.at(i))));
        }
        const std::unique_ptr<QMimeData> nan(ZelValueClipboard::mimeData({{"x", qQNaN()}}, {}));
        QVERIFY(std::isnan(ZelValueClipboard::values(nan.get())->value("x").toDouble()));
        QVERIFY(!ZelValueClipboard::canHold(QVariant::fromValue<QObject *>(this)));
        QVERIFY(!ZelValueClipboard::canHold(QVariant::fromValue(ZelMultipleValuesMarker)));
    }

    /// The inspector may go while its menu is open, or while a model takes a value.
    void survivesDeaths()
    {
        Rows sheet(Rows::row("name", "string", "defaultValue='none'") +
                   Rows::row("height", "number", "defaultValue='2'"));
        sheet.select({0});
        QPointer<QMenu> menu = sheet.menu(sheet.sliver("name")->label());
        QAction *reset = sheet.command(menu, "Reset name");
        connect(sheet.figures[0].get(), &Person::nameChanged, this, [&] { sheet.inspector.reset(); });
        reset->trigger();
        sheet.settle();
        QVERIFY(!sheet.inspector);
        QVERIFY(!menu);
        QCOMPARE(sheet.value(0, "name"), "none");
        QCOMPARE(sheet.stack.count(), 1);
    }
};
QTEST_MAIN(tst_Rows)
#include "tst_Rows.moc"
