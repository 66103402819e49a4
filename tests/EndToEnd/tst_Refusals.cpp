// SPDX-License-Identifier: MIT
#include "Controls/private/ZelRefusalMark.h"
#include "FigureSheet.h"

namespace {
/// Keeps its values while it is stubborn, and says what is wrong with a value while it has a reason.
class Model : public QObject
{
    Q_OBJECT
public:
    explicit Model(const QString &name)
        : values{{"name", name},
                 {"pattern", "Dots"},
                 {"ratio", 5.0},
                 {"on", false},
                 {"kind", 0},
                 {"fill", QColor(Qt::red)},
                 {"day", QDate(2024, 5, 6)},
                 {"font", QFont("DejaVu Sans", 9)},
                 {"size", QSizeF(30, 40)},
                 {"tags", QStringList{"a", "b"}},
                 {"text", QVariant::fromValue(ZelAttributedString("old"))}}
    {
    }
    STORED(QString, name, setName)
    STORED(QString, pattern, setPattern)
    STORED(double, ratio, setRatio)
    STORED(bool, on, setOn)
    STORED(int, kind, setKind)
    STORED(QColor, fill, setFill)
    STORED(QDate, day, setDay)
    STORED(QFont, font, setFont)
    STORED(QSizeF, size, setSize)
    STORED(QStringList, tags, setTags)
    STORED(ZelAttributedString, text, setText)
    QVariantMap values;
    QString reason;
    QVariant asked;
    int writes = 0;
    bool isStubborn = false;
    double rounding = 0;
    Q_INVOKABLE QString validateName(const QString &value) { return ask(value); }
    Q_INVOKABLE QString validateRatio(double value) { return ask(value); }
    Q_INVOKABLE QString validateOn(bool value) { return ask(value); }
    Q_INVOKABLE QString validateKind(const QVariant &value) { return ask(value); }
    Q_INVOKABLE QString validateFill(const QColor &value) { return ask(value); }
    Q_INVOKABLE QString validateDay(QDate value) { return ask(value); }
    Q_INVOKABLE QString validateSize(const QSizeF &value) { return ask(value); }

Q_SIGNALS:
    void changed();

private:
    QString ask(const QVariant &value)
    {
        asked = value;
        return reason;
    }
    void store(const QString &key, const QVariant &value)
    {
        ++writes;
        if (isStubborn)
            return;
        const double step = value.typeId() == QMetaType::Double ? rounding : 0;
        values.insert(key, step > 0 ? QVariant(std::round(value.toDouble() / step) * step) : value);
        Q_EMIT changed();
    }
};

struct Animated : QProxyStyle
{
    explicit Animated(bool isAnimated)
        : duration(isAnimated ? 200 : 0)
    {
    }
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? duration : QProxyStyle::styleHint(hint, option, widget, data);
    }
    int duration;
};

struct Desk : Sheet
{
    Desk()
        : Sheet(
              row("name", "string") + row("pattern", "resource", "resourcesKeyPath='names'") +
                  row("ratio", "number", "maximum='100' formatStyle='decimal' slider='linear'") + row("on", "boolean") +
                  row("kind", "enumeration",
                      "><option-group><option title='One' value='0'/><option title='Two' value='1'/></option-group>") +
                  row("fill", "color", "colorList='Crayons'") + row("day", "date") + row("font", "font") +
                  row("size", "size") + row("tags", "custom", "class='ZelInspectorArrayProperty'") +
                  row("text", "string", "attributed='yes'"),
              {340, 900})
    {
        for (auto &model : models)
            all.append(&model);
        selectObjects(all);
    }
    ~Desk() override { selectObjects({}); }

    static ZelRefusalMark *mark()
    {
        for (QWidget *widget : QApplication::allWidgets()) {
            if (auto *mark = qobject_cast<ZelRefusalMark *>(widget))
                return mark;
        }
        return nullptr;
    }
    Model models[2]{Model("A"), Model("A")};
    QList<QObject *> all;
};
} // namespace

/// What happens to values that models do not take.
class tst_Refusals : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(new Animated(true));
        QLocale::setDefault(QLocale::c());
    }

    void theModelsValueIsShownAgain()
    {
        const std::tuple<QString, const char *, QString> rows[] = {
            {"name", "new", "new was changed to A."},
            {"pattern", "Lines", "Lines was changed to Dots."},
            {"ratio", "7", "7 was changed to 5."},
            {"on", "", ""},
            {"kind", "Two", ""},
            {"day", "9", "9 May 2024 was changed to 6 May 2024."},
            {"font", "DejaVu Serif", ""},
            {"size", "7", "7 was changed to 30."},
            {"tags", "new", "a, new was changed to a, b."},
            {"text", "new", "new was changed to old."}};
        for (const auto &[key, text, note] : rows) {
            const TableRow inRow(key);
            Desk desk;
            const QString before = desk.shown(key);
            const QVariant value = desk.models[0].values.value(key);
            desk.models[0].isStubborn = desk.models[1].isStubborn = true;
            desk.edit(key, text);
            QCOMPARE(desk.shown(key), before);
            QVERIFY(desk.models[0].writes > 0);
            QVERIFY2(desk.mark(), "no flash");
            QCOMPARE(desk.note(), note);
            QCOMPARE(desk.stack.count(), 0);
            const QPointer<ZelRefusalMark> mark = desk.mark();
            QVERIFY(mark->isVisible() || key == "font"); // whose popover was closed
            QTRY_VERIFY(!mark || !mark->isVisible());
            desk.models[0].isStubborn = desk.models[1].isStubborn = false;
            delete mark;
            desk.edit(key, text);
            QVERIFY(desk.models[0].values.value(key) != value);
            QVERIFY2(!desk.mark(), "a flash for a value that was taken");
            QCOMPARE(desk.stack.count(), 1);
        }
    }

    void roundingIsNoRefusal()
    {
        Desk desk;
        desk.models[0].rounding = desk.models[1].rounding = 0.001;
        desk.edit("ratio", "7.1234567");
        QCOMPARE(desk.models[0].ratio(), 7.123);
        QVERIFY(!desk.mark());
        desk.models[0].rounding = desk.models[1].rounding = 5;
        desk.edit("ratio", "7.9");
        QCOMPARE(desk.models[0].ratio(), 10.0);
        QVERIFY(desk.mark());
        delete desk.mark();
        auto *slider = desk.editor<ZelInspectorNumberProperty>("ratio")->slider();
        slider->goToValue(51.5);
        QCOMPARE(desk.models[0].ratio(), 50.0);
        QVERIFY(!desk.mark());
        desk.models[0].isStubborn = desk.models[1].isStubborn = true;
        slider->goToValue(80);
        QCOMPARE(slider->doubleValue(), 50.0);
        QVERIFY(desk.mark());
        QCOMPARE(desk.note(), "");
        desk.edit("ratio", "120");
        QCOMPARE(desk.note(), "120 was changed to 50.");
    }

    void withoutAnimationsNothingFlashes()
    {
        QApplication::setStyle(new Animated(false));
        {
            Desk desk;
            desk.models[0].isStubborn = true;
            desk.edit("on", {});
            QVERIFY(desk.mark() && !desk.mark()->isVisible());
            QVERIFY(!desk.mark()->findChild<QVariantAnimation *>());
            QVERIFY(!desk.editor<ZelInspectorBooleanProperty>("on")->checkbox()->accessibleDescription().isEmpty());
        } // the mark goes with its control
        QApplication::setStyle(new Animated(true));
    }

    void aModelSaysWhatIsWrong()
    {
        const std::tuple<QString, const char *, QVariant, bool> rows[] = {
            {"name", "new", "new", true},          {"ratio", "7", 7.0, true}, {"size", "7", QSizeF(7, 40), true},
            {"day", "9", QDate(2024, 5, 9), true}, {"on", "", true, false},   {"kind", "Two", 1, false}};
        for (const auto &[key, text, asked, keepsTyping] : rows) {
            const TableRow inRow(key);
            Desk desk;
            const QString before = desk.shown(key);
            desk.models[1].reason = "Not %2 this.";
            desk.edit(key, text);
            QCOMPARE(desk.note(), "Not %2 this.");
            QCOMPARE(desk.models[1].asked, asked);
            QCOMPARE(desk.models[0].writes + desk.models[1].writes, 0); // all or nothing
            QCOMPARE(desk.stack.count(), 0);
            QCOMPARE(desk.owner->actions, 0);
            QCOMPARE(desk.shown(key) == before, !keepsTyping);
            desk.models[0].reason = "First.";
            if (keepsTyping)
                Sheet::press(Qt::Key_Return);
            else
                desk.edit(key, text);
            QCOMPARE(desk.note(), "First. This concerns 2 of 2 objects.");
            Sheet::press(Qt::Key_Escape);
            QCOMPARE(desk.note(), "");
            QCOMPARE(desk.shown(key), before);
            desk.models[0].reason = desk.models[1].reason = {};
            desk.edit(key, text);
            QVERIFY(desk.models[0].writes == 1 && desk.models[1].writes == 1);
            QVERIFY(!desk.mark() || desk.note().isEmpty());
            desk.models[0].reason = "Undo is not asked.";
            desk.undo();
            QCOMPARE(desk.shown(key), before);
            QCOMPARE(desk.models[0].writes, 2);
        }
    }

    void controlsWithoutATextShowANote()
    {
        Desk desk;
        desk.models[0].reason = "Too much.";
        auto *number = desk.editor<ZelInspectorNumberProperty>("ratio");
        number->stepper()->stepBy(1);
        QCOMPARE(desk.note(), "Too much.");
        QCOMPARE(number->stepper()->doubleValue(), 5.0);
        number->slider()->goToValue(60);
        QCOMPARE(number->slider()->doubleValue(), 5.0);
        auto *fill = desk.editor<ZelInspectorColorProperty>("fill")->popUpButton();
        fill->setSelectedColor(QColor(Qt::blue));
        Q_EMIT fill->action();
        Sheet::settle();
        QCOMPARE(desk.models[0].writes + desk.models[1].writes, 0);
        QCOMPARE(desk.models[0].asked, QVariant(QColor(Qt::blue)));
        QCOMPARE(ZelColor::fromVariant(fill->selectedColor()).toQColor(), QColor(Qt::red));
        QCOMPARE(desk.owner->actions, 0);
    }

    /// The last object on the way is asked, about the value that it will have as a whole.
    void longPathsAskTheLastObject()
    {
        Desk desk;
        QObject holder;
        holder.setProperty("model", QVariant::fromValue<QObject *>(&desk.models[0]));
        desk.models[0].reason = "No.";
        ZelTextField field;
        ZelBind(&field, ZelValueBinding, &holder, QStringLiteral("model.size.width"));
        field.show();
        QTest::keyClicks(&field, "7");
        field.setText("70");
        field.commitEditing();
        QCOMPARE(desk.models[0].asked, QVariant(QSizeF(70, 40)));
        QCOMPARE(desk.models[0].writes, 0);
        QCOMPARE(field.objectValue(), QVariant(30.0));
        QVERIFY(field.findChild<ZelRefusalMark *>());
    }
};
QTEST_MAIN(tst_Refusals)
#include "tst_Refusals.moc"
