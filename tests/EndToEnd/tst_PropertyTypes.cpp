// SPDX-License-Identifier: MIT
#include "Core/Values/ZelOptionalType.h"
#include "FigureSheet.h"
#include "Inspector/Properties/ZelInspectorFlagsProperty.h"
#include "Inspector/Properties/ZelInspectorNumbersProperty.h"
#include "Inspector/Properties/private/ZelValueClipboard.h"
#include "Resources/ZelLocalizedString.h"

namespace {
struct Money
{
    int cents = 0;
    friend bool operator==(const Money &a, const Money &b) { return a.cents == b.cents; }
};

/// A property of every kind. What it is not told, it has the default of.
class Stamp : public QObject
{
    Q_OBJECT
public:
    enum class Pen { NoPen = -1, SolidLine, DashDotLine = 7, Alias = 7 };
    Q_ENUM(Pen)
    enum class Wide : quint64 { Far = 0x8000000000000001 };
    Q_ENUM(Wide)
    enum Style { Plain = 0, Bold = 1, Italic = 2, StrikeOut = 8, All = 11 };
    Q_DECLARE_FLAGS(Styles, Style)
    Q_FLAG(Styles)
    STORED(Stamp::Pen, pen, setPen)
    STORED(Stamp::Wide, wide, setWide)
    STORED(Styles, styles, setStyles)
    STORED(QTime, time, setTime)
    STORED(QUrl, url, setUrl)
    STORED(QKeySequence, keys, setKeys)
    STORED(QLocale, locale, setLocale)
    STORED(QTimeZone, zone, setZone)
    STORED(QRegularExpression, expression, setExpression)
    STORED(QByteArray, bytes, setBytes)
    STORED(Money, money, setMoney)
    STORED(QVector3D, vector, setVector)
    STORED(QMargins, margins, setMargins)
    STORED(std::optional<int>, count, setCount)
    STORED(std::optional<Stamp::Pen>, lastPen, setLastPen)
    STORED(qint64, signedNumber, setSignedNumber)
    STORED(quint64, unsignedNumber, setUnsignedNumber)
    STORED(QPixmap, picture, setPicture)
    STORED(QVariant, any, setAny)
    Q_SIGNAL void changed();
    QVariantMap values;

private:
    void store(const QString &key, const QVariant &value)
    {
        values.insert(key, value);
        Q_EMIT changed();
    }
};

/// Another class that has the enumeration of the first.
class Seal : public QObject
{
    Q_OBJECT
public:
    MODEL_VALUE(Stamp::Pen, pen, Stamp::Pen::NoPen)
    Q_SIGNAL void changed();
};

struct Desk : Sheet
{
    using Sheet::Sheet;
    ~Desk() override { selectObjects({}); }

    void selectStamps() const { selectObjects({const_cast<Stamp *>(&a), const_cast<Stamp *>(&b)}); }
    QStringList items(const QString &key) const
    {
        QStringList titles;
        for (const ZelMenuItem *item : editor<ZelInspectorTextEnumerationProperty>(key)->menuItems()) {
            if (!item->isSeparator() && !ZelIsControllerMarker(item->representedObject()))
                titles.append(item->title());
        }
        return titles;
    }
    QString boxes(const QString &key) const
    {
        QString states;
        for (const ZelCheckBox *box : editor<ZelInspectorFlagsProperty>(key)->checkboxes())
            states += box->isEnabled() ? QStringLiteral("-~+").at(box->checkState()) : QChar(u'x');
        return states;
    }
    void clickBox(const QString &key, int index) const
    {
        auto *box = editor<ZelInspectorFlagsProperty>(key)->checkboxes().at(index);
        click(box, {8, box->height() / 2});
    }
    ZelTextField *field(const QString &key) const { return editor<ZelInspectorNumberProperty>(key)->textField(); }

    Stamp a, b;
};
} // namespace

class tst_PropertyTypes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QMetaType::registerConverter<Money, QString>([](const Money &m) { return QString::number(m.cents / 100.0); });
        const auto read = [](const void *text, void *money) {
            bool isNumber = false;
            const double amount = static_cast<const QString *>(text)->toDouble(&isNumber);
            *static_cast<Money *>(money) = {qRound(amount * 100)};
            return isNumber;
        };
        QMetaType::registerConverterFunction(read, QMetaType::fromType<QString>(), QMetaType::fromType<Money>());
        ZelOptionalType::registerType<Stamp::Pen>();
    }

    void theKeysOfAnEnumerationAreItsChoices()
    {
        const auto former = ZelSetLocalizationFunction(
            [](const QString &key) { return key == u"Dash Dot Line" ? QStringLiteral("Strichpunkt") : QString(); });
        Desk desk(Sheet::row("pen", "enumeration") + Sheet::row("any", "enumeration"));
        QCOMPARE(desk.items("pen"), QStringList());
        Seal seal;
        desk.a.setAny(QVariant::fromValue(Stamp::Pen::NoPen));
        desk.selectObjects({&desk.a, &seal});
        QCOMPARE(desk.items("pen"), QStringList({"No Pen", "Solid Line", "Strichpunkt"}));
        QCOMPARE(desk.shown("pen"), "Multiple Values");
        desk.edit("pen", "Strichpunkt");
        QCOMPARE(std::pair(desk.a.pen(), seal.pen), std::pair(Stamp::Pen::DashDotLine, Stamp::Pen::DashDotLine));
        desk.undo();
        QCOMPARE(std::pair(desk.a.pen(), seal.pen), std::pair(Stamp::Pen::SolidLine, Stamp::Pen::NoPen));
        desk.selectObjects({&desk.a});
        QCOMPARE(desk.shown("any"), "No Pen");
        desk.edit("any", "Solid Line");
        QCOMPARE(desk.a.any().metaType(), QMetaType::fromType<Stamp::Pen>());
        QCOMPARE(desk.a.any().value<Stamp::Pen>(), Stamp::Pen::SolidLine);
        QVERIFY(desk.editor<ZelInspectorProperty>("pen")->pasteValue(3).startsWith("This is none"));
        ZelSetLocalizationFunction(former);
    }

    void eachFlagIsWrittenForItself_data()
    {
        QTest::addColumn<bool>("isMenu");
        QTest::newRow("checkboxes") << false;
        QTest::newRow("menu") << true;
    }
    void eachFlagIsWrittenForItself()
    {
        QFETCH(bool, isMenu);
        Desk desk(isMenu ? Sheet::row("styles", "enumeration") + Sheet::row("any", "flags", "style='popup'")
                         : Sheet::row("styles", "flags") + Sheet::row("any", "flags"));
        desk.a.setStyles({Stamp::Bold, Stamp::Italic});
        desk.b.setStyles(Stamp::Styles::fromInt(Stamp::Bold | 64));
        desk.selectStamps();
        const auto toggle = [&desk = static_cast<const Desk &>(desk), isMenu](int index) {
            if (isMenu)
                Sheet::choose(desk.editor<ZelInspectorTextEnumerationProperty>("styles")->popUpButton(),
                              QStringList{"Bold", "Italic", "Strike Out"}.at(index));
            else
                desk.clickBox("styles", index);
        };
        const auto styles = [&] { return std::pair(int(desk.a.styles()), int(desk.b.styles())); };
        if (isMenu)
            QCOMPARE(desk.items("styles"), QStringList({"Multiple Values", "Bold", "Italic", "Strike Out"}));
        else
            QCOMPARE(desk.boxes("styles"), "+~-");
        toggle(1);
        QCOMPARE(styles(), std::pair(3, 67));
        toggle(2);
        QCOMPARE(styles(), std::pair(11, 75));
        toggle(0);
        QCOMPARE(styles(), std::pair(10, 74));
        QCOMPARE(desk.stack.count(), 3);
        QCOMPARE(desk.stack.undoText(), "Change styles");
        for (int i = 0; i < 3; ++i)
            desk.undo();
        QCOMPARE(styles(), std::pair(3, 65));
        const auto *editor = desk.editor<ZelInspectorProperty>("styles");
        QCOMPARE(editor->textOfValue(75), "Bold, Italic, Strike Out, 0x40");
        QVariant read;
        QString error;
        QVERIFY(editor->readText("italic | Strike out", &read, &error));
        QCOMPARE(read.value<Stamp::Styles>(), Stamp::Styles(Stamp::Italic | Stamp::StrikeOut));
        QVERIFY(const_cast<ZelInspectorProperty *>(editor)->pasteValue(read).isNull());
        QCOMPARE(styles(), std::pair(10, 74)); // 64 belongs to no flag
        desk.selectObjects({});
        if (isMenu)
            QVERIFY(!desk.editor<ZelInspectorTextEnumerationProperty>("styles")->popUpButton()->isEnabled());
        else
            QCOMPARE(desk.boxes("styles"), "xxx");
    }

    void severalKeysOfAnEnumerationAreNone()
    {
        Desk desk(Sheet::row("pen", "flags") + Sheet::row("any", "flags"));
        desk.a.setPen(Stamp::Pen::SolidLine);
        desk.a.setAny(QVariant::fromValue(Stamp::Pen::DashDotLine));
        desk.selectObjects({&desk.a});
        QCOMPARE(desk.boxes("pen"), "xx");
        QCOMPARE(desk.boxes("any"), "~+"); // the type of its value is not the property's
        desk.clickBox("any", 0);
        QCOMPARE(desk.a.any(), QVariant::fromValue(Stamp::Pen::DashDotLine));
        QCOMPARE(desk.boxes("any"), "~+");
        QCOMPARE(desk.stack.count(), 0);
    }

    void flagsMayBeOptionsOfANumberOf64Bits()
    {
        Desk desk(Sheet::row("unsignedNumber", "flags",
                             "><option-group><option title='High' value='0x8000000000000000'/>"
                             "<option title='Low' value='1'/></option-group>") +
                  Sheet::row("wide", "enumeration",
                             "><option-group><option title='Far' value='0x8000000000000001'/></option-group>"));
        desk.a.setUnsignedNumber(0x8000000000000003);
        desk.selectObjects({&desk.a});
        QCOMPARE(desk.boxes("unsignedNumber"), "++");
        desk.clickBox("unsignedNumber", 0);
        QCOMPARE(desk.a.unsignedNumber(), quint64(3));
        desk.clickBox("unsignedNumber", 0);
        QCOMPARE(desk.a.unsignedNumber(), quint64(0x8000000000000003));
        desk.edit("wide", "Far");
        QCOMPARE(desk.a.wide(), Stamp::Wide::Far);
        QCOMPARE(desk.shown("wide"), "Far");
    }

    void valuesOfManyTypesAreEditedAsTexts()
    {
        struct Row
        {
            const char *key;
            QVariant value;
            const char *shown;
            const char *typed;
            QVariant entered;
            const char *bad;
            const char *reason;
        };
        const Row rows[] = {
            {"time", QTime(10, 20), "10:20", "11:30:15", QTime(11, 30, 15), "25:00", "This is not a time."},
            {"url", QUrl("http://a.b"), "http://a.b", "http://c", QUrl("http://c"), "http://x y:z",
             "This is not an address."},
            {"keys", QVariant::fromValue(QKeySequence("Ctrl+K")), "Ctrl+K", "Ctrl+L",
             QVariant::fromValue(QKeySequence("Ctrl+L")), "Ctrl+Nowhere", "These are not keys."},
            {"locale", QLocale("de_AT"), "de_AT", "fr_CH", QLocale("fr_CH"), "nowhere", "This is not a language."},
            {"zone", QVariant::fromValue(QTimeZone("Europe/Berlin")), "Europe/Berlin", "Asia/Tokyo",
             QVariant::fromValue(QTimeZone("Asia/Tokyo")), "Asia/Nowhere", "This is not a time zone."},
            {"expression", QRegularExpression("a+"), "a+", "(b)", QRegularExpression("(b)"), "(b",
             "This is not a regular expression: "},
            {"bytes", QByteArray("abc"), "abc", "x y", QByteArray("x y"), nullptr, nullptr},
            {"money", QVariant::fromValue(Money{150}), "1.5", "2.25", QVariant::fromValue(Money{225}), "much",
             "This is not a value."},
            {"vector", QVector3D(1, 2.1F, 3), "1, 2.1, 3", "4, 5, -6.7", QVector3D(4, 5, -6.7F), "4, 5",
             "These are not 3 numbers."},
        };
        QByteArray description;
        for (const Row &row : rows)
            description += Sheet::row(row.key, "string");
        Desk desk(description);
        for (const Row &row : rows)
            desk.a.values.insert(row.key, row.value);
        desk.selectObjects({&desk.a});
        for (const Row &row : rows) {
            const TableRow table(row.key);
            QCOMPARE(desk.shown(row.key), row.shown);
            desk.edit(row.key, row.shown);
            QCOMPARE(desk.stack.count(), 0); // unchanged
            if (row.bad) {
                desk.edit(row.key, row.bad);
                QVERIFY2(desk.note().startsWith(row.reason), qPrintable(desk.note()));
                QCOMPARE(desk.a.values.value(row.key), row.value);
                QCOMPARE(desk.shown(row.key), row.bad);
                Sheet::press(Qt::Key_Escape);
            }
            desk.edit(row.key, row.typed);
            QCOMPARE(desk.a.values.value(row.key), row.entered);
            desk.undo();
            QCOMPARE(desk.a.values.value(row.key), row.value);
            desk.stack.clear();
        }
    }

    void whatATextDoesNotTellIsKept()
    {
        Desk desk(Sheet::row("expression", "string", "editsMultipleValues='yes'") + Sheet::row("bytes", "string"));
        const QByteArray binary("\xff\0z", 3);
        desk.a.setExpression(QRegularExpression("a", QRegularExpression::CaseInsensitiveOption));
        desk.b.setExpression(QRegularExpression("b", QRegularExpression::MultilineOption));
        desk.a.setBytes(binary);
        desk.selectObjects({&desk.a});
        QCOMPARE(desk.shown("bytes"), "ff 00 7a");
        desk.edit("bytes", "text");
        QCOMPARE(desk.a.bytes(), binary);
        desk.selectStamps();
        desk.edit("expression", "c");
        QCOMPARE(desk.a.expression(), QRegularExpression("c", QRegularExpression::CaseInsensitiveOption));
        QCOMPARE(desk.b.expression(), QRegularExpression("c", QRegularExpression::MultilineOption));
        desk.undo();
        QCOMPARE(desk.b.expression().pattern(), "b");
        const std::unique_ptr<QMimeData> copied(
            ZelValueClipboard::mimeData({{"e", QVariant::fromValue(desk.a.expression())},
                                         {"z", QVariant::fromValue(QTimeZone("Asia/Tokyo"))},
                                         {"m", QVariant::fromValue(QMargins(1, 2, 3, 4))}},
                                        {}));
        const auto pasted = ZelValueClipboard::values(copied.get()).value_or(ZelValueClipboard::Values());
        QCOMPARE(pasted.value("e").toRegularExpression(), desk.a.expression());
        QCOMPARE(pasted.value("z").value<QTimeZone>(), QTimeZone("Asia/Tokyo"));
        QCOMPARE(pasted.value("m").value<QMargins>(), QMargins(1, 2, 3, 4));
    }

    void everyNumberOfMarginsAndVectorsIsEditedForItself()
    {
        Desk desk(Sheet::row("margins", "margins") + Sheet::row("vector", "vector", "formatStyle='decimal'") +
                  "<sliver><property type='number' keyPath='people.selection.margins.right' minimum='-9'/></sliver>");
        desk.a.setMargins({1, 2, 3, 4});
        desk.b.setMargins({1, 6, 7, 8});
        desk.a.setVector({1, 2, 3});
        desk.selectStamps();
        const auto fields = [&](const QString &key) {
            return desk.editor<ZelInspectorNumbersProperty>(key)->numberProperties();
        };
        QCOMPARE(fields("margins").at(0)->textField()->text(), "1");
        Sheet::enter(fields("margins").at(1)->textField(), "9");
        QCOMPARE(std::pair(desk.a.margins(), desk.b.margins()), std::pair(QMargins(1, 9, 3, 4), QMargins(1, 9, 7, 8)));
        desk.undo();
        QCOMPARE(std::pair(desk.a.margins(), desk.b.margins()), std::pair(QMargins(1, 2, 3, 4), QMargins(1, 6, 7, 8)));
        Sheet::enter(desk.field("margins.right"), "+=1");
        QCOMPARE(std::pair(desk.a.margins(), desk.b.margins()), std::pair(QMargins(1, 2, 4, 4), QMargins(1, 6, 8, 8)));
        Sheet::enter(fields("vector").at(2)->textField(), "2.1");
        QCOMPARE(std::pair(desk.a.vector(), desk.b.vector()), std::pair(QVector3D(1, 2, 2.1F), QVector3D(0, 0, 2.1F)));
    }

    void anEmptyOptionalHasNoValue()
    {
        Desk desk(Sheet::row("count", "number", "placeholder='None' minimum='-1e9'") +
                  Sheet::row("lastPen", "enumeration"));
        desk.a.setCount(7);
        desk.a.setLastPen(Stamp::Pen::SolidLine);
        desk.selectObjects({&desk.a});
        QCOMPARE(desk.shown("count"), "7");
        QCOMPARE(desk.shown("lastPen"), "Solid Line");
        desk.edit("count", "");
        QCOMPARE(desk.a.count(), std::nullopt);
        QCOMPARE(desk.shown("count"), "None");
        desk.edit("count", "5000000000");
        QVERIFY2(desk.note().contains("2,147,483,647"), qPrintable(desk.note()));
        Sheet::press(Qt::Key_Escape);
        desk.edit("count", "0");
        QCOMPARE(desk.a.count(), 0);
        desk.undo();
        QCOMPARE(desk.a.count(), std::nullopt);
        desk.undo();
        QCOMPARE(desk.a.count(), 7);
        desk.edit("lastPen", "No Pen");
        QCOMPARE(desk.a.lastPen(), Stamp::Pen::NoPen);
    }

    void integersOf64BitsStayExact()
    {
        const QByteArray wide = "minimum='-1e30' maximum='1e30'";
        Desk desk(Sheet::row("signedNumber", "number", wide) + Sheet::row("unsignedNumber", "number", wide));
        constexpr qint64 odd = 9007199254740993; // no double
        constexpr quint64 most = std::numeric_limits<quint64>::max();
        desk.a.setSignedNumber(odd);
        desk.b.setSignedNumber(-odd);
        desk.selectStamps();
        desk.edit("signedNumber", "+=2");
        QCOMPARE(std::pair(desk.a.signedNumber(), desk.b.signedNumber()), std::pair(odd + 2, -odd + 2));
        Sheet::press(Qt::Key_Up);
        QCOMPARE(std::pair(desk.a.signedNumber(), desk.b.signedNumber()), std::pair(odd + 3, -odd + 3));
        desk.edit("signedNumber", "*=3");
        QVERIFY2(desk.note().startsWith("The result would not be exact."), qPrintable(desk.note()));
        Sheet::press(Qt::Key_Escape);
        desk.selectObjects({&desk.a});
        auto *stepper = desk.editor<ZelInspectorNumberProperty>("signedNumber")->stepper();
        stepper->stepBy(1);
        QCOMPARE(desk.a.signedNumber(), odd + 4);
        desk.edit("signedNumber", "-=5");
        QCOMPARE(desk.a.signedNumber(), odd - 1);
        desk.edit("signedNumber", "2^53+1");
        QVERIFY2(desk.note().contains("all its digits"), qPrintable(desk.note()));
        Sheet::press(Qt::Key_Escape);
        desk.edit("signedNumber", "9223372036854775807");
        stepper->stepBy(1);
        QCOMPARE(desk.a.signedNumber(), std::numeric_limits<qint64>::max());
        desk.edit("signedNumber", "+=1");
        QVERIFY2(desk.note().contains("9,223,372,036,854,775,807"), qPrintable(desk.note()));
        Sheet::press(Qt::Key_Escape);
        desk.edit("unsignedNumber", "18446744073709551615");
        QCOMPARE(desk.a.unsignedNumber(), most);
        stepper = desk.editor<ZelInspectorNumberProperty>("unsignedNumber")->stepper();
        stepper->stepBy(1);
        QCOMPARE(desk.a.unsignedNumber(), most);
        stepper->stepBy(-1);
        desk.edit("unsignedNumber", "-=1");
        QCOMPARE(desk.a.unsignedNumber(), most - 2);
        while (desk.stack.canUndo())
            desk.undo();
        QCOMPARE(std::pair(desk.a.signedNumber(), desk.b.signedNumber()), std::pair(odd, -odd));
    }

    void whatAnEditorCannotEditIsSaid()
    {
        const auto expect = [](const char *text) {
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QString(text) + ".*Inspector.xml:\\d+:\\d+, <property>"));
        };
        Desk desk(Sheet::row("picture", "string") + Sheet::row("styles", "color") + Sheet::row("zone", "number") +
                  Sheet::row("wide", "enumeration") + Sheet::row("zone", "string") + Sheet::row("vector", "point"));
        expect("ZelInspectorStringProperty cannot edit \"picture\", which is of the type QPixmap");
        expect("ZelInspectorColorProperty cannot edit \"styles\"");
        expect("ZelInspectorNumberProperty cannot edit \"zone\", which is of the type QTimeZone");
        expect("The editor has no options, and the property \"wide\"");
        expect("ZelInspectorSizeProperty cannot edit \"vector\"");
        desk.selectObjects({&desk.a});
        desk.selectStamps(); // once
    }
};
QTEST_MAIN(tst_PropertyTypes)
#include "tst_PropertyTypes.moc"
