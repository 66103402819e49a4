// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelLocalizedString.h"
#include "Support/Failures.h"
#include "Support/Folder.h"
#include "Support/Reports.h"
#include <QTest>
#include <sys/stat.h>

namespace {
using Configuration = ZelInspectorConfiguration;

/// A document type declaration whose entities each hold ten of the one before, used by the default of an attribute:
/// short, and work without end.
QByteArray nestedEntities()
{
    QByteArray text = "<!DOCTYPE a [<!ENTITY e0 ''>";
    for (int i = 1; i < 12; ++i)
        text += "<!ENTITY e" + QByteArray::number(i) + " '" +
                QByteArray("&e" + QByteArray::number(i - 1) + ';').repeated(10) + "'>";
    return text + "<!ATTLIST a x CDATA '&e11;'>]>";
}

QByteArray manyAttributes(int count)
{
    QByteArray text = "<a";
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i, 36) + "=''";
    return text + "/>";
}

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

/// The elements' names, places and attributes in document order, on one line.
QString outline(const ZelXmlElement &element)
{
    QString text = QString("%1@%2:%3").arg(element.name()).arg(element.place().line).arg(element.place().column);
    for (qsizetype i = 0; i < element.attributeCount(); ++i)
        text += u' ' + element.attributeName(i) + u'=' + element.attributeValue(i);
    element.forEachChild([&](const ZelXmlElement &child) { text += u" (" + outline(child) + u')'; });
    return text;
}

Configuration parsed(const QByteArray &text)
{
    return Configuration(ZelXmlReader().readData(text, "/a.xml"));
}

/// An element whose attribute "v" holds the text.
Configuration withValue(const char *text)
{
    return parsed(QString(u"<a v=\"" + QString::fromUtf8(text).toHtmlEscaped() + u"\"/>").toUtf8());
}

QString text(const ZelSourcePlace &place)
{
    return QString("%1:%2:%3 %4").arg(place.file).arg(place.line).arg(place.column).arg(place.element);
}
} // namespace

class tst_Description : public QObject
{
    Q_OBJECT
    Folder m_directory;

private Q_SLOTS:
    void documentsAreReadWithPlaces()
    {
        const std::pair<QByteArray, const char *> documents[] = {
            {"<a>\n <b x='1'><c/></b><d\n y='2'\n/>\n</a>", "a@1:1 (b@2:2 x=1 (c@2:11)) (d@2:19 y=2)"},
            {"<a>\r\n\r\n  <b/>\n\t<c/></a>", "a@1:1 (b@3:3) (c@4:2)"},
            {"<?xml version=\"1.0\" encoding='utf-8' standalone=\"yes\" ?>\n<a/>", "a@2:1"},
            {"\xEF\xBB\xBF<?xml version='1.0'?><a/>", "a@1:22"},
            {"<a>\xC3\xA4\xF0\x9F\x99\x82<b/></a>", "a@1:1 (b@1:6)"}, // columns count characters
            {"<a>text<!-- <b/> --><![CDATA[<c/>]]><?pi <d/> ?><e/></a>", "a@1:1 (e@1:49)"},
            {"<!-- <!DOCTYPE a> --><a><![CDATA[<!DOCTYPE a>]]></a>", "a@1:22"},
            {"<a x='>\"=' y=\"'/>&lt;!&#65;&amp;\"><b/></a>", "a@1:1 x=>\"= y='/><!A& (b@1:35)"},
            {"<p:a q:x='1'/>", "p:a@1:1 q:x=1"}, // prefixes are part of names
        };
        for (const auto &[data, expected] : documents) {
            ZelReadError error;
            const ZelXmlElement root = ZelXmlReader().readData(data, {}, &error);
            QCOMPARE(error.message + outline(root), QString::fromUtf8(expected));
        }
    }

    void hostileDocumentsAreRefusedInTime()
    {
        const QByteArray entities = nestedEntities();
        const char *noType = "A document type declaration is not allowed.";
        const char *noUtf8 = "The text is not encoded in UTF-8.";
        const std::tuple<QByteArray, const char *, const char *> documents[] = {
            // what the message contains, its place
            {"", "The file is empty.", "1:1"},
            {"  \n ", "Premature end", "2:2"},
            {"<a>\n<b x='1'", "Premature end", "2:1"},
            {"<a>\n <b></c></a>", "tag mismatch", "2:7"},
            {"<a/>\n<b/>", "Extra content", "2:1"},
            {"<a x='1' x='2'/>", "Attribute 'x' redefined", "1:10"},
            {"<?xml version='1.0'?>\n <!DOCTYPE a>\n<a/>", noType, "2:2"},
            {entities + "<a>&e11;</a>", noType, "1:1"},
            {"<a>\n" + entities + "&e11;</a>", noType, "2:3"},
            {"<a/>\n" + entities, noType, "2:1"},
            {"<?xml version='1.0' encoding='?><!--'?>" + entities + "--><a/>", "XML declaration", "1:31"},
            {"<!----><?xml version='1.0' encoding='?><!--'?>" + entities + "--><a/>", "not at the beginning", "1:8"},
            {QByteArray("\xFF\xFE<\0a\0/\0>\0", 10), noUtf8, "1:1"},
            {QByteArray("\0<\0a\0/\0>", 8), noUtf8, "1:1"},
            {"<?xml version='1.0' encoding='UTF-16'?><a/>", "encoding \"UTF-16\"", "1:1"},
            {"<?xml version='1.1'?><a/>", "XML version", "1:1"},
            {"<a>\n\xC3\xA4\xFF</a>", noUtf8, "2:2"},
            {QByteArray("<a>\n<b\0/></a>", 13), noUtf8, "2:3"},
            {"<a>\n\xC3", noUtf8, "2:1"},
            {"<a>\n<b x='&lt;&gt;&amp;&quot;&apos;&#65;&foo;'/></a>", "\"foo\"", "2:1"},
            {"<a>\n&#0;</a>", "Invalid character reference", "2:1"},
            {"\n" + QByteArray("<a>").repeated(80000), "More than 64 elements", "2:193"},
            {manyAttributes(30000), "more than 256 attributes", "1:1"},
            {"<a" + QByteArray("=").repeated(200000), "not well-formed", "1:3"},
            {"<a x='" + QByteArray(10'000'000, 'x') + "'/>", "larger than 262144 bytes", "0:0"},
        };
        for (const auto &[data, message, place] : documents) {
            const QString path = m_directory.write("hostile.xml", data).toLocalFile();
            ZelReadError error;
            QVERIFY2(ZelXmlReader().readUrl(QUrl::fromLocalFile(path), &error).isNull(), data.left(80));
            QVERIFY2(error.message.contains(message), qPrintable(data.left(80) + ": " + error.message));
            QCOMPARE(text(error.place).section(' ', 0, 0), QFileInfo(path).canonicalFilePath() + ':' + place);
        }
    }

    void filesThatCannotBeRead()
    {
        QVERIFY(::mkfifo(qPrintable(m_directory.filePath("pipe")), 0600) == 0);
        const QString folder = "file:" + m_directory.path() + '/';
        const std::pair<QString, const char *> files[] = {
            {folder + "missing.xml", "The file does not exist."},
            {folder, "This is a directory, not a file."},
            {folder + "pipe", "This is not an ordinary file."},
            {"http://localhost/a.xml", "Only local files and resources can be read."},
            {"qrc:/missing.xml", "The file does not exist."},
        };
        for (const auto &[url, message] : files) {
            ZelReadError error;
            QVERIFY2(ZelXmlReader().readUrl(QUrl(url), &error).isNull(), qPrintable(url));
            QCOMPARE(error.localizedDescription(), message);
            QVERIFY(!error.place.file.isEmpty());
        }
    }

    void limitsCanBeRaised()
    {
        const QByteArray large = "<a x='" + QByteArray(10'000'000, 'x') + "'/>";
        QCOMPARE(ZelXmlReader({.size = large.size()}).readData(large).attribute("x").size(), 10'000'000);
        const auto reads = [](const QByteArray &data, const ZelXmlReader::Limits &limits = {}) {
            return !ZelXmlReader(limits).readData(data).isNull();
        };
        QVERIFY(!reads(large, {.size = large.size() - 1}));
        QVERIFY(reads(nested(64)) && !reads(nested(65)) && reads(nested(65), {.depth = 65}));
        QVERIFY(reads(manyAttributes(256)) && !reads(manyAttributes(257)));
        QVERIFY(reads("<a><b/><c/></a>", {.elements = 3}) && !reads("<a><b/><c/></a>", {.elements = 2}));
    }

    void filesAreReadFromUrls()
    {
        const QString path =
            m_directory.write("tree.xml", "<a>text<b n='1'/><c n='2'><b/></c><!-- --><b n='3'/><B/></a>").toLocalFile();
        const QString detour = m_directory.path() + "/../" + QFileInfo(m_directory.path()).fileName() + "/tree.xml";
        const QUrl url = QUrl::fromLocalFile(detour);
        const auto outlines = [](const QList<Configuration> &configurations) {
            QStringList texts;
            for (const Configuration &configuration : configurations)
                texts += outline(configuration.element());
            return texts.join(' ');
        };
        // Elements keep their tree alive.
        const QList<Configuration> children = Configuration::initWIthURL(url)->configurations();
        QCOMPARE(outlines(children), "b@1:8 n=1 c@1:18 n=2 (b@1:27) b@1:43 n=3 B@1:53");
        QCOMPARE(outlines(Configuration::initWIthURL(url)->configurationsNamed("b")), "b@1:8 n=1 b@1:43 n=3");
        QCOMPARE(text(children.last().place()), QFileInfo(path).canonicalFilePath() + ":1:53 B");
        QVERIFY(Configuration().configurations().isEmpty());
        const ZelXmlReader::Limits former = Configuration::limits();
        Configuration::setLimits({.size = 4});
        ZelReadError error;
        QVERIFY(!Configuration::initWIthURL(url, &error));
        QCOMPARE(error.message, "The file is larger than 4 bytes.");
        Configuration::setLimits(former);
        const Failures failures;
        QVERIFY(!Configuration::initWIthURL({}));
        QVERIFY2(failures.seen.value(0).endsWith(": Invalid parameter not satisfying: url"),
                 qPrintable(failures.seen.join('\n')));
    }

    void absentAndEmptyAttributesDiffer()
    {
        const Configuration root = parsed("<a V='1' empty=''/>");
        const ZelColor red = QColor(Qt::red);
        const auto transformer = ZelAbstractValueTransformer::valueTransformerForName(ZelNegateBooleanTransformerName);
        QVERIFY(!root.hasValueNamed("v") && root.hasValueNamed("V") && root.hasValueNamed("empty"));
        const auto plain = [&](const char *name) {
            return say(root.stringValueNamed(name, "d"), root.booleanValueNamed(name, true),
                       root.integerValueNamed(name, -3), root.unsignedIntegerValueNamed(name, ~quint64(0)),
                       root.doubleValueNamed(name, 0.5), root.selectorValueNamed(name, "copyStyle:").name(),
                       root.keyPathValueNamed(name, "k"), root.localizedStringValueNamed(name, "Height"));
        };
        ZelSetLocalizationFunction([](const QString &key) -> QString { return '<' + key + '>'; });
        QCOMPARE(plain("v"), R"("d" true -3 18446744073709551615 0.5 "copyStyle:" "k" "<Height>")");
        QCOMPARE(plain("empty"), R"("" false 0 0 0 "" "" "")");
        QCOMPARE(plain("V"), R"("1" true 1 1 1 "1" "1" "<1>")");
        QVERIFY(root.localizedStringValueNamed("v").isNull() && !root.localizedStringValueNamed("empty", "d").isNull());
        ZelSetLocalizationFunction({});
        QVERIFY(root.stringValueNamed("v").isNull() && !root.stringValueNamed("empty", "d").isNull());
        QVERIFY(root.selectorValueNamed("empty", "copyStyle:").isNull());
        QCOMPARE(root.valueTransformerForAttributeNamed("v", transformer), transformer);
        QCOMPARE(root.urlValueNamed("v", QUrl("qrc:/d")), QUrl("qrc:/d"));
        QCOMPARE(root.colorForValueNamed("v", red), red);
        QVERIFY(!root.element().attribute("empty").isNull() && ZelXmlElement().attribute("v").isNull());
    }

    void booleansAndIntegers()
    {
        for (const char *yes : {"yes", "True", "1", "tRuE"})
            QVERIFY2(withValue(yes).booleanValueNamed("v", false), yes);
        for (const char *no : {"on", "no", "2", " yes", "yes ", "truee", "ye\u017F"})
            QVERIFY2(!withValue(no).booleanValueNamed("v", true), no);
        const std::pair<const char *, qint64> integers[] = {
            {"0X1f", 31}, {"0xFFFFFFFFFFFFFFFF", -1}, {" 0x1F", 0}, {"-0x1F", 0}, {"12abc", 12}, {"abc", 0}, {"-5", -5},
        };
        for (const auto &[text, expected] : integers) {
            const Configuration element = withValue(text);
            QCOMPARE(say(text, element.integerValueNamed("v", 7), element.unsignedIntegerValueNamed("v", 7)),
                     say(text, expected, quint64(expected)));
        }
        QCOMPARE(withValue("2.5x").doubleValueNamed("v", 7), 2.5);
    }

    void colors()
    {
        const std::pair<const char *, ZelColor> rows[] = {
            {"NSCalibratedWhiteColorSpace 0.5 1", ZelColor(ZelColor::CalibratedWhite, {0.5, 1})},
            {"NSCalibratedRGBColorSpace 1 0.5 0 1", ZelColor(ZelColor::CalibratedRGB, {1, 0.5, 0, 1})},
            {"NSDeviceWhiteColorSpace 0.25 0.5", ZelColor(ZelColor::DeviceWhite, {0.25, 0.5})},
            {"NSDeviceRGBColorSpace 1 0 0 1", ZelColor(QColor(Qt::red))},
            {"NSDeviceCMYKColorSpace 0 1 1 0 1", ZelColor(ZelColor::DeviceCMYK, {0, 1, 1, 0, 1})},
            {"NSNamedColorSpace System textColor", ZelColor::named("System", "textColor")},
            {"NSNamedColorSpace Crayons Red", ZelColor(QColor(Qt::red))},
            {"NSDeviceRGBColorSpace 1\t0\n0.5x", ZelColor(ZelColor::DeviceRGB, {1, 0, 0.5})},
            {"NSDeviceRGBColorSpace 1  1 one", ZelColor(ZelColor::DeviceRGB, {1, 0, 1, 0})},
            {"NSDeviceRGBColorSpace", ZelColor(ZelColor::DeviceRGB, {})},
        };
        for (const auto &[text, expected] : rows)
            QVERIFY2(withValue(text).colorForValueNamed("v") == expected, text);
    }

    void assertionsCarryTheirPlace()
    {
        const auto asColor = [](const Configuration &element) {
            return !element.colorForValueNamed("v", ZelColor(QColor(Qt::red))).isValid();
        };
        const auto asBits = [](const Configuration &element) { return element.unsignedIntegerValueNamed("v", 7) == 7; };
        const auto asTransformer = [](const Configuration &element) {
            const auto any = ZelAbstractValueTransformer::valueTransformerForName(ZelNegateBooleanTransformerName);
            return any && !element.valueTransformerForAttributeNamed("v", any);
        };
        const auto asKeyPath = [](const Configuration &element) { return element.keyPathValueNamed("v", "d") == u"d"; };
        const std::tuple<bool (*)(const Configuration &), QByteArray, const char *> rows[] = {
            {asBits, "0xZZ", "Unabled to parse hex value: 0xZZ"},
            {asTransformer, "Tripling", "Missing value transformer for name Tripling"},
            {asKeyPath, QByteArray(4097, 'a'), "The key path has more than 4096 characters"},
            {asKeyPath, QByteArray("a.").repeated(64) + 'a', "The key path has more than 64 keys"},
            {asColor, "  ", "Incorrect color format:   "},
            {asColor, "nsdevicergbcolorspace 1 0 0 1", "Unsupported color space nsdevicergbcolorspace"},
            {asColor, " NSDeviceRGBColorSpace 1 0 0 1", "Unsupported color space "},
            {asColor, "NSNamedColorSpace System", "Unexpected count of color components"},
            {asColor, "NSNamedColorSpace System text Color", "Unexpected count of color components"},
            {asColor, "NSNamedColorSpace System text", "No color found in color list System with name text"},
            {asColor, "NSNamedColorSpace None Red", "No color found in color list None with name Red"},
        };
        for (const auto &[givesNoValue, value, message] : rows) {
            const Failures failures;
            QVERIFY2(givesNoValue(parsed("<b>\n  <a v='" + value + "'/></b>").configurations().first()), message);
            const char *location = givesNoValue == asColor ? "NSColor+ZelInspector: " : "ZelInspectorConfiguration: ";
            QCOMPARE(failures.seen, QStringList(QString("Inspector/") + location + message));
            QCOMPARE(text(failures.places.first()), "/a.xml:2:3 a");
        }
        const QByteArray longest = "a." + QByteArray("b.").repeated(62) + QByteArray(4096 - 126, 'c');
        QCOMPARE(withValue(longest).keyPathValueNamed("v").size(), 4096); // of 64 keys
    }
};
QTEST_MAIN(tst_Description)
#include "tst_Description.moc"
