// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelInspectorConfiguration.h"

#include "Core/Errors/ZelAssertions.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelLocalizedString.h"

#include <QTemporaryDir>
#include <QTest>

#include <limits>

namespace {

/// Notes what failed, and goes on.
class QuietHandler : public ZelAssertionHandler
{
public:
    QuietHandler()
        : m_former(setCurrent(this))
    {
    }
    ~QuietHandler() override { setCurrent(m_former); }
    void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &place) override
    {
        locations.append(location);
        messages.append(message);
        places.append(place);
    }
    QStringList locations;
    QStringList messages;
    QList<ZelSourcePlace> places;

private:
    ZelAssertionHandler *m_former;
};

ZelInspectorConfiguration parsed(const QByteArray &text)
{
    return ZelInspectorConfiguration(ZelXmlReader().readData(text));
}

/// An element whose attribute "v" holds the text.
ZelInspectorConfiguration withValue(const QString &text)
{
    return parsed(QString(u"<a v=\"" + text.toHtmlEscaped() + u"\"/>").toUtf8());
}

class Doubling : public ZelAbstractValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override { return value.toInt() * 2; }
};

} // namespace

class tst_ZelInspectorConfiguration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void childrenAreFoundByName();
    void absentAttributesGiveTheDefault();
    void booleans_data();
    void booleans();
    void integers_data();
    void integers();
    void hexadecimalErrorsCarryTheirPlace();
    void textsAndTheirDefaultsAreTranslated();
    void transformersAreLookedUp();
    void missingResourcesCountAsAbsent();
    void colors_data();
    void colors();
    void wrongColorsAreAssertions_data();
    void wrongColorsAreAssertions();
    void filesAreReadFromUrls();
};

void tst_ZelInspectorConfiguration::childrenAreFoundByName()
{
    const ZelInspectorConfiguration root = parsed("<pane>text<b n='1'/><c n='2'><b/></c><!-- --><b n='3'/><B/></pane>");
    QCOMPARE(root.name(), QStringLiteral("pane"));
    const auto numbers = [](const QList<ZelInspectorConfiguration> &configurations) {
        QString text;
        for (const ZelInspectorConfiguration &configuration : configurations)
            text += configuration.name() + configuration.stringValueNamed("n") + u' ';
        return text;
    };
    QCOMPARE(numbers(root.configurations()), QStringLiteral("b1 c2 b3 B "));
    QCOMPARE(numbers(root.configurationsNamed("b")), QStringLiteral("b1 b3 "));
    QVERIFY(ZelInspectorConfiguration().configurations().isEmpty());
}

void tst_ZelInspectorConfiguration::absentAttributesGiveTheDefault()
{
    const ZelInspectorConfiguration root = parsed("<a V='1' empty=''/>");
    const ZelColor red(QColor(Qt::red));
    const auto transformer = ZelValueTransformerPtr(new Doubling);
    QVERIFY(!root.hasValueNamed("v") && root.hasValueNamed("V"));
    QCOMPARE(root.stringValueNamed("v", QStringLiteral("d")), QStringLiteral("d"));
    QVERIFY(root.stringValueNamed("v").isNull());
    QCOMPARE(root.booleanValueNamed("v", true), true);
    QCOMPARE(root.integerValueNamed("v", -3), -3);
    QCOMPARE(root.unsignedIntegerValueNamed("v", std::numeric_limits<quint64>::max()),
             std::numeric_limits<quint64>::max());
    QCOMPARE(root.doubleValueNamed("v", 0.5), 0.5);
    QCOMPARE(root.selectorValueNamed("v", "copyStyle:").name(), QStringLiteral("copyStyle:"));
    QCOMPARE(root.valueTransformerForAttributeNamed("v", transformer), transformer);
    QCOMPARE(root.urlValueNamed("v", QUrl(QStringLiteral("qrc:/d"))), QUrl(QStringLiteral("qrc:/d")));
    QCOMPARE(root.colorForValueNamed("v", red), red);

    QVERIFY(!root.stringValueNamed("empty", QStringLiteral("d")).isNull());
    QCOMPARE(root.stringValueNamed("empty", QStringLiteral("d")), QString());
    QCOMPARE(root.booleanValueNamed("empty", true), false);
    QCOMPARE(root.integerValueNamed("empty", 3), 0);
    QCOMPARE(root.doubleValueNamed("empty", 3), 0.0);
    QVERIFY(root.selectorValueNamed("empty", "copyStyle:").isNull());
}

void tst_ZelInspectorConfiguration::booleans_data()
{
    QTest::addColumn<bool>("expected");
    for (const char *text : {"yes", "YES", "True", "1", "tRuE"})
        QTest::newRow(text) << true;
    for (const char *text : {"on", "no", "", "0", "2", " yes", "yes ", "truee", "ye\u017F"})
        QTest::newRow(text) << false;
}

void tst_ZelInspectorConfiguration::booleans()
{
    QTEST(withValue(QString::fromUtf8(QTest::currentDataTag())).booleanValueNamed("v", true), "expected");
}

void tst_ZelInspectorConfiguration::integers_data()
{
    QTest::addColumn<qint64>("expected");
    const auto row = [](const char *text, qint64 expected) { QTest::newRow(text) << expected; };
    row("0x1F", 31);
    row("0X1f", 31);
    row("0xFFFFFFFFFFFFFFFF", -1);
    row(" 0x1F", 0);
    row("-0x1F", 0);
    row("12abc", 12);
    row("abc", 0);
    row("-5", -5);
}

void tst_ZelInspectorConfiguration::integers()
{
    QFETCH(qint64, expected);
    const ZelInspectorConfiguration configuration = withValue(QString::fromUtf8(QTest::currentDataTag()));
    QCOMPARE(configuration.integerValueNamed("v", 7), expected);
    QCOMPARE(configuration.unsignedIntegerValueNamed("v", 7), quint64(expected));
}

void tst_ZelInspectorConfiguration::hexadecimalErrorsCarryTheirPlace()
{
    QuietHandler handler;
    const QByteArray text = "<section>\n  <property bits='0xZZ'/></section>";
    const ZelXmlElement root = ZelXmlReader().readData(text, QStringLiteral("/panels/Layout.xml"));
    const ZelInspectorConfiguration property = ZelInspectorConfiguration(root).configurations().first();
    QCOMPARE(property.unsignedIntegerValueNamed("bits", 7), 7u);
    QCOMPARE(handler.messages, QStringList(QStringLiteral("Unabled to parse hex value: 0xZZ")));
    QCOMPARE(handler.locations, QStringList(QStringLiteral("Inspector/ZelInspectorConfiguration")));
    QCOMPARE(handler.places.first().file, QStringLiteral("/panels/Layout.xml"));
    QCOMPARE(handler.places.first().element, QStringLiteral("property"));
    QCOMPARE(handler.places.first().line, 2);
    QCOMPARE(handler.places.first().column, 3);
}

void tst_ZelInspectorConfiguration::textsAndTheirDefaultsAreTranslated()
{
    ZelSetLocalizationFunction([](const QString &key) -> QString { return u'<' + key + u'>'; });
    const ZelInspectorConfiguration root = parsed("<a title='Width' empty=''/>");
    QCOMPARE(root.localizedStringValueNamed("title"), QStringLiteral("<Width>"));
    QCOMPARE(root.stringValueNamed("title"), QStringLiteral("Width"));
    QCOMPARE(root.localizedStringValueNamed("v", QStringLiteral("Height")), QStringLiteral("<Height>"));
    QVERIFY(root.localizedStringValueNamed("v").isNull());
    const QString empty = root.localizedStringValueNamed("empty", QStringLiteral("Height"));
    QVERIFY(empty.isEmpty() && !empty.isNull());
    ZelSetLocalizationFunction({});
}

void tst_ZelInspectorConfiguration::transformersAreLookedUp()
{
    const auto transformer = ZelValueTransformerPtr(new Doubling);
    ZelAbstractValueTransformer::setValueTransformer(transformer, QStringLiteral("Doubling"));
    QCOMPARE(withValue(QStringLiteral("Doubling")).valueTransformerForAttributeNamed("v"), transformer);
    QuietHandler handler;
    QVERIFY(!withValue(QStringLiteral("Tripling")).valueTransformerForAttributeNamed("v", transformer));
    QCOMPARE(handler.messages, QStringList(QStringLiteral("Missing value transformer for name Tripling")));
}

void tst_ZelInspectorConfiguration::missingResourcesCountAsAbsent()
{
    QTemporaryDir directory;
    ZelBundle::mainBundle().setResourcePaths({directory.path()});
    const QUrl fallback(QStringLiteral("qrc:/d"));
    QCOMPARE(withValue(QStringLiteral("Layout.xml")).urlValueNamed("v", fallback), fallback);
    QFile file(directory.filePath(QStringLiteral("Layout.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(withValue(QStringLiteral("Layout.xml")).urlValueNamed("v", fallback),
             QUrl::fromLocalFile(file.fileName()));
    ZelBundle::mainBundle().setResourcePaths({});
}

void tst_ZelInspectorConfiguration::colors_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<ZelColor>("expected");
    const auto row = [](const char *text, const ZelColor &expected) {
        const QString read = QString::fromUtf8(text);
        QTest::newRow(qPrintable(read.simplified())) << read << expected;
    };
    row("NSCalibratedWhiteColorSpace 0.5 1", ZelColor(ZelColor::CalibratedWhite, {0.5, 1}));
    row("NSCalibratedRGBColorSpace 1 0.5 0 1", ZelColor(ZelColor::CalibratedRGB, {1, 0.5, 0, 1}));
    row("NSDeviceWhiteColorSpace 0.25 0.5", ZelColor(ZelColor::DeviceWhite, {0.25, 0.5}));
    row("NSDeviceRGBColorSpace 1 0 0 1", ZelColor(QColor(Qt::red)));
    row("NSDeviceCMYKColorSpace 0 1 1 0 1", ZelColor(ZelColor::DeviceCMYK, {0, 1, 1, 0, 1}));
    row("NSNamedColorSpace System textColor", ZelColor::named(QStringLiteral("System"), QStringLiteral("textColor")));
    row("NSNamedColorSpace Crayons Red", ZelColor(QColor(Qt::red)));
    row("NSDeviceRGBColorSpace 1\t0\n0.5x", ZelColor(ZelColor::DeviceRGB, {1, 0, 0.5}));
    row("NSDeviceRGBColorSpace 1  1 one", ZelColor(ZelColor::DeviceRGB, {1, 0, 1, 0}));
    row("NSDeviceRGBColorSpace", ZelColor(ZelColor::DeviceRGB, {}));
}

void tst_ZelInspectorConfiguration::colors()
{
    QFETCH(QString, text);
    QTEST(withValue(text).colorForValueNamed("v"), "expected");
}

void tst_ZelInspectorConfiguration::wrongColorsAreAssertions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *text, const char *message) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(message);
    };
    row("", "Incorrect color format: ");
    row("  ", "Incorrect color format:   ");
    row("red", "Unsupported color space red");
    row("nsdevicergbcolorspace 1 0 0 1", "Unsupported color space nsdevicergbcolorspace");
    row(" NSDeviceRGBColorSpace 1 0 0 1", "Unsupported color space ");
    row("NSNamedColorSpace System", "Unexpected count of color components");
    row("NSNamedColorSpace System text Color", "Unexpected count of color components");
    row("NSNamedColorSpace System text", "No color found in color list System with name text");
    row("NSNamedColorSpace None Red", "No color found in color list None with name Red");
}

void tst_ZelInspectorConfiguration::wrongColorsAreAssertions()
{
    QFETCH(QString, text);
    QFETCH(QString, message);
    QuietHandler handler;
    QVERIFY(!withValue(text).colorForValueNamed("v", QColor(Qt::red)).isValid());
    QCOMPARE(handler.messages, QStringList(message));
    QCOMPARE(handler.locations, QStringList(QStringLiteral("Inspector/NSColor+ZelInspector")));
    QCOMPARE(handler.places.first().element, QStringLiteral("a"));
}

void tst_ZelInspectorConfiguration::filesAreReadFromUrls()
{
    QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("Layout.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("<panes/>") > 0);
    file.close();
    const QUrl url = QUrl::fromLocalFile(file.fileName());
    QCOMPARE(ZelInspectorConfiguration::initWIthURL(url)->name(), QStringLiteral("panes"));
    QCOMPARE(ZelInspectorConfiguration::initWIthURL(url)->place().file, QFileInfo(file).canonicalFilePath());

    const ZelXmlReader::Limits former = ZelInspectorConfiguration::limits();
    ZelInspectorConfiguration::setLimits({.size = 4});
    ZelReadError error;
    QVERIFY(!ZelInspectorConfiguration::initWIthURL(url, &error));
    QCOMPARE(error.message, QStringLiteral("The file is larger than 4 bytes."));
    ZelInspectorConfiguration::setLimits(former);

    QuietHandler handler;
    QVERIFY(!ZelInspectorConfiguration::initWIthURL({}));
    QCOMPARE(handler.messages, QStringList(QStringLiteral("Invalid parameter not satisfying: url")));
}

QTEST_MAIN(tst_ZelInspectorConfiguration)
#include "tst_ZelInspectorConfiguration.moc"
