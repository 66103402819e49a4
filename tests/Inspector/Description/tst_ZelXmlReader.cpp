// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelXmlReader.h"

#include <QElapsedTimer>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

namespace {

/// A document type declaration whose entities each hold ten of the one before, used by the default of an attribute:
/// short, and work without end.
QByteArray nestedEntities(const QByteArray &base)
{
    QByteArray text = "<!DOCTYPE a [<!ENTITY e0 \"" + base + "\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray before = "&e" + QByteArray::number(i - 1) + ';';
        text += "<!ENTITY e" + QByteArray::number(i) + " \"" + before.repeated(10) + "\">";
    }
    return text + "<!ATTLIST a x CDATA '&e11;'>]>";
}

QByteArray encoded(const QByteArray &text, QStringConverter::Encoding encoding)
{
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(QString::fromUtf8(text));
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
    QString text = QStringLiteral("%1@%2:%3").arg(element.name()).arg(element.place().line).arg(element.place().column);
    for (qsizetype i = 0; i < element.attributeCount(); ++i)
        text += u' ' + element.attributeName(i) + u'=' + element.attributeValue(i);
    element.forEachChild([&](const ZelXmlElement &child) { text += u" (" + outline(child) + u')'; });
    return text;
}

} // namespace

class tst_ZelXmlReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_directory.isValid()); }
    void documentsAreReadWithPlaces_data();
    void documentsAreReadWithPlaces();
    void hostileDocumentsAreRefusedInTime_data();
    void hostileDocumentsAreRefusedInTime();
    void filesThatCannotBeRead_data();
    void filesThatCannotBeRead();
    void limitsCanBeRaised();
    void emptyAndMissingAttributesDiffer();
    void elementsKeepTheTreeAlive();

private:
    QString write(const QString &name, const QByteArray &data)
    {
        QFile file(m_directory.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    QTemporaryDir m_directory;
};

void tst_ZelXmlReader::documentsAreReadWithPlaces_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nesting") << QByteArray("<a>\n <b x='1'><c/></b><d\n y='2'\n/>\n</a>")
                             << "a@1:1 (b@2:2 x=1 (c@2:11)) (d@2:19 y=2)";
    QTest::newRow("line ends") << QByteArray("<a>\r\n\r\n  <b/>\n\t<c/></a>") << "a@1:1 (b@3:3) (c@4:2)";
    QTest::newRow("declaration") << QByteArray("<?xml version=\"1.0\" encoding='utf-8' standalone=\"yes\" ?>\n<a/>")
                                 << "a@2:1";
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<?xml version='1.0'?><a/>") << "a@1:22";
    QTest::newRow("columns count characters") << QByteArray("<a>\xC3\xA4\xF0\x9F\x99\x82<b/></a>") << "a@1:1 (b@1:6)";
    QTest::newRow("only elements count") << QByteArray("<a>text<!-- <b/> --><![CDATA[<c/>]]><?pi <d/> ?><e/></a>")
                                         << "a@1:1 (e@1:49)";
    QTest::newRow("a declaration in a comment")
        << QByteArray("<!-- <!DOCTYPE a> --><a><![CDATA[<!DOCTYPE a>]]></a>") << "a@1:22";
    QTest::newRow("markup in values") << QByteArray("<a x='>\"=' y=\"'/>&lt;!&#65;&amp;\"><b/></a>")
                                      << "a@1:1 x=>\"= y='/><!A& (b@1:35)";
    QTest::newRow("prefixes are part of names") << QByteArray("<p:a q:x='1'/>") << "p:a@1:1 q:x=1";
}

void tst_ZelXmlReader::documentsAreReadWithPlaces()
{
    QFETCH(QByteArray, data);
    ZelReadError error;
    const ZelXmlElement root = ZelXmlReader().readData(data, {}, &error);
    QCOMPARE(error.message, QString());
    QTEST(outline(root), "expected");
}

void tst_ZelXmlReader::hostileDocumentsAreRefusedInTime_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("message"); // what it contains
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    const QByteArray full = nestedEntities("x");
    const QByteArray empty = nestedEntities("");
    const QString noType = QStringLiteral("A document type declaration is not allowed.");
    const QString noUtf8 = QStringLiteral("The text is not encoded in UTF-8.");
    const auto row = [](const char *name, const QByteArray &data, const QString &message, int line, int column) {
        QTest::newRow(name) << data << message << line << column;
    };
    row("empty", "", "The file is empty.", 1, 1);
    row("only blanks", "  \n ", "Premature end", 2, 2);
    row("truncated", "<a>\n<b x='1'", "Premature end", 2, 1);
    row("mismatched tags", "<a>\n <b></c></a>", "tag mismatch", 2, 7);
    row("two roots", "<a/>\n<b/>", "Extra content", 2, 1);
    row("repeated attribute", "<a x='1' x='2'/>", "Attribute 'x' redefined", 1, 10);
    row("type declaration", "<?xml version='1.0'?>\n <!DOCTYPE a>\n<a/>", noType, 2, 2);
    row("nested entities", full + "<a>&e11;</a>", noType, 1, 1);
    row("nested entities, empty base", empty + "<a>&e11;</a>", noType, 1, 1);
    row("entities below the root", "<a>\n" + empty + "&e11;</a>", noType, 2, 3);
    row("entities behind the root", "<a/>\n" + empty, noType, 2, 1);
    row("entities behind a broken comment", "<!-- -- -->" + empty + "<a/>", "not well-formed", 1, 8);
    row("entities behind a quote in a declaration", "<?xml version='1.0' encoding='?><!--'?>" + empty + "--><a/>",
        "XML declaration", 1, 31);
    row("entities behind a later declaration", "<!----><?xml version='1.0' encoding='?><!--'?>" + empty + "--><a/>",
        "XML declaration", 1, 8);
    row("entities in UTF-16", encoded(empty, QStringConverter::Utf16LE), noUtf8, 1, 1);
    row("entities in UTF-32", encoded(empty, QStringConverter::Utf32BE), noUtf8, 1, 1);
    row("Latin 1", "<?xml version='1.0' encoding='ISO-8859-1'?><a/>", "encoding \"ISO-8859-1\"", 1, 1);
    row("declared as UTF-16", "<?xml version='1.0' encoding='UTF-16'?><a/>", "encoding \"UTF-16\"", 1, 1);
    row("invalid UTF-8", "<a>\n\xC3\xA4\xFF</a>", noUtf8, 2, 2);
    row("zero byte", QByteArray("<a>\n<b\0/></a>", 13), noUtf8, 2, 3);
    row("unknown entity in a value", "<a>\n<b x='&lt;&#65;&foo;'/></a>", "\"foo\"", 2, 1);
    row("unknown entity in text", "<a>\n&foo;</a>", "\"foo\"", 2, 1);
    row("character cut off", "<a>\n\xC3", noUtf8, 2, 1);
    row("other version", "<?xml version='1.1'?><a/>", "XML version", 1, 1);
    row("endless depth", "\n" + QByteArray("<a>").repeated(80000), "More than 64 elements", 2, 64 * 3 + 1);
    row("one too deep", nested(65), "More than 64 elements", 1, 64 * 3 + 1);
    row("endless attributes", manyAttributes(30000), "more than 256 attributes", 1, 1);
    row("endless attributes without values", "<a" + QByteArray("=").repeated(200000), "not well-formed", 1, 3);
    row("too large", "<a x='" + QByteArray(10'000'000, 'x') + "'/>", "larger than 262144 bytes", 0, 0);
}

void tst_ZelXmlReader::hostileDocumentsAreRefusedInTime()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, message);
    const QString path = write(QStringLiteral("hostile.xml"), data);
    ZelReadError error;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(ZelXmlReader().readUrl(QUrl::fromLocalFile(path), &error).isNull());
    QCOMPARE_LT(timer.elapsed(), 1000);
    QVERIFY2(error.message.contains(message), qPrintable(error.message));
    QCOMPARE(error.place.file, QFileInfo(path).canonicalFilePath());
    QTEST(int(error.place.line), "line");
    QTEST(int(error.place.column), "column");
}

void tst_ZelXmlReader::filesThatCannotBeRead_data()
{
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<QString>("message");
    QVERIFY(::mkfifo(qPrintable(m_directory.filePath(QStringLiteral("pipe"))), 0600) == 0);
    const auto local = [this](const char *name) {
        return QUrl::fromLocalFile(m_directory.filePath(QString::fromUtf8(name)));
    };
    QTest::newRow("missing") << local("missing.xml") << "The file does not exist.";
    QTest::newRow("directory") << local("") << "This is a directory, not a file.";
    QTest::newRow("pipe") << local("pipe") << "This is not an ordinary file.";
    QTest::newRow("endless device") << QUrl::fromLocalFile(QStringLiteral("/dev/zero"))
                                    << "This is not an ordinary file.";
    QTest::newRow("network") << QUrl(QStringLiteral("http://localhost/a.xml"))
                             << "Only local files and resources can be read.";
    QTest::newRow("missing resource") << QUrl(QStringLiteral("qrc:/missing.xml")) << "The file does not exist.";
}

void tst_ZelXmlReader::filesThatCannotBeRead()
{
    QFETCH(QUrl, url);
    ZelReadError error;
    QVERIFY(ZelXmlReader().readUrl(url, &error).isNull());
    QTEST(error.localizedDescription(), "message");
    QVERIFY(!error.place.file.isEmpty());
}

void tst_ZelXmlReader::limitsCanBeRaised()
{
    const QByteArray large = "<a x='" + QByteArray(10'000'000, 'x') + "'/>";
    QElapsedTimer timer;
    timer.start();
    const ZelXmlElement root = ZelXmlReader({.size = large.size()}).readData(large);
    QCOMPARE_LT(timer.elapsed(), 1000);
    QCOMPARE(root.attribute("x").size(), 10'000'000);
    QVERIFY(ZelXmlReader({.size = large.size() - 1}).readData(large).isNull());
    QVERIFY(!ZelXmlReader().readData(nested(64)).isNull());
    QVERIFY(!ZelXmlReader({.depth = 65}).readData(nested(65)).isNull());
    QVERIFY(!ZelXmlReader().readData(manyAttributes(256)).isNull());
    QVERIFY(ZelXmlReader().readData(manyAttributes(257)).isNull());
    QVERIFY(!ZelXmlReader({.elements = 3}).readData("<a><b/><c/></a>").isNull());
    QVERIFY(ZelXmlReader({.elements = 2}).readData("<a><b/><c/></a>").isNull());
}

void tst_ZelXmlReader::emptyAndMissingAttributesDiffer()
{
    const ZelXmlElement root = ZelXmlReader().readData("<a x=''/>");
    QVERIFY(root.hasAttribute("x"));
    QVERIFY(!root.attribute("x").isNull() && root.attribute("x").isEmpty());
    QVERIFY(!root.attribute("x").toString().isNull());
    QVERIFY(!root.hasAttribute("X"));
    QVERIFY(root.attribute("X").isNull());
    QVERIFY(ZelXmlElement().attribute("x").isNull());
}

void tst_ZelXmlReader::elementsKeepTheTreeAlive()
{
    ZelXmlElement kept;
    {
        const QString path = write(QStringLiteral("tree.xml"), "<a><b x='value'/></a>");
        const QString detour = m_directory.path() + u"/../" + QFileInfo(m_directory.path()).fileName() + u"/tree.xml";
        const ZelXmlElement root = ZelXmlReader().readUrl(QUrl::fromLocalFile(detour));
        QCOMPARE(root.file(), QFileInfo(path).canonicalFilePath());
        root.forEachChild([&](const ZelXmlElement &child) { kept = child; });
    }
    QCOMPARE(kept.name(), QStringLiteral("b"));
    QCOMPARE(kept.attribute(u"x"), QStringLiteral("value"));
}

QTEST_MAIN(tst_ZelXmlReader)
#include "tst_ZelXmlReader.moc"
