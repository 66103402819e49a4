// SPDX-License-Identifier: MIT
#include "Blocks/ZelColorNameTransformer.h"
#include "Blocks/ZelNamedTransformers.h"
#include "Core/Errors/ZelException.h"
#include "Core/Values/ZelIndexSet.h"
#include "Core/Values/ZelOrderedSet.h"
#include "Core/Values/ZelValues.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelLocalizedString.h"

#include <QPointF>
#include <QSet>
#include <QTest>
#include <QThread>

#include <limits>

class Crowd : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count MEMBER m_count)

public:
    explicit Crowd(int count)
        : m_count(count)
    {
    }

private:
    int m_count;
};

class tst_ZelNamedTransformers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void valuesAreTransformed_data();
    void valuesAreTransformed();
    void otherTypesThrow_data();
    void otherTypesThrow();
    void markersPassThrough();
    void countsDecideOnEmptiness();
    void someAreRegisteredAtFirstUse();
    void colorsHaveNames();

private:
    static ZelValueTransformerPtr named(const QString &name)
    {
        return ZelAbstractValueTransformer::valueTransformerForName(name);
    }
};

void tst_ZelNamedTransformers::initTestCase()
{
    ZelRegisterTransformers();
    // Names are gathered once, so this must be in place before the first use.
    ZelSetLocalizationFunction([](const QString &key) { return key == u"Red" ? QStringLiteral("Rot") : QString(); });
    ZelColorList::addColorList(ZelColorListPtr::create(
        QStringLiteral("Mine"), QList<ZelColorList::Entry>{{QStringLiteral("Second"), QColor(Qt::red)},
                                                           {QStringLiteral("Only"), QColor(1, 2, 3)}}));
}

void tst_ZelNamedTransformers::valuesAreTransformed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("reverse");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *title, const QString &name, const QVariant &value, const QVariant &expected) {
        QTest::newRow(title) << name << value << false << expected;
    };
    const auto back = [](const char *title, const QString &name, const QVariant &value, const QVariant &expected) {
        QTest::newRow(title) << name << value << true << expected;
    };
    const auto text = [](const char *characters) { return QString::fromUtf8(characters); };
    const QString pointer = ZelPointerToStringTransformerName;
    row("255", pointer, 255, text("0xff"));
    row("negative", pointer, -1, text("0xffffffffffffffff"));
    row("fraction", pointer, 16.9, text("0x10"));
    row("huge", pointer, 1e300, text("0xfffffffffffff800"));
    row("hugely negative", pointer, -1e300, text("0x8000000000000000"));
    row("not a number", pointer, std::numeric_limits<double>::quiet_NaN(), text("0x8000000000000000"));
    row("no pointer", pointer, {}, {});
    back("0xff", pointer, text("0xff"), 255ULL);
    back("ff", pointer, text("ff"), 255ULL);
    back("empty", pointer, text(""), {});
    back("zz", pointer, text("zz"), {});
    row("first", ZelFirstInArrayTransformerName, QVariantList({7, 8}), 7);
    row("first text", ZelFirstInArrayTransformerName, QStringList(text("a")), text("a"));
    row("first of none", ZelFirstInArrayTransformerName, QVariantList(), {});
    row("first of null", ZelFirstInArrayTransformerName, ZelNull(), {});
    row("nil or no", ZelNilOrNoTransformerName, 5, 5);
    row("nil", ZelNilOrNoTransformerName, {}, false);
    row("null", ZelNilOrNoTransformerName, ZelNull(), false);
    row("percent", ZelPercentValueTransformerName, 0.25, 25.0);
    row("percent of integer", ZelPercentValueTransformerName, 2, 200.0);
    row("no percent", ZelPercentValueTransformerName, {}, {});
    back("percent, reverse", ZelPercentValueTransformerName, 25, 0.25);
    back("color", ZelColorNameTransformerName, text("Rot"), QColor(Qt::black));
    back("no color", ZelColorNameTransformerName, {}, {});
}

void tst_ZelNamedTransformers::valuesAreTransformed()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(bool, reverse);
    QFETCH(QVariant, expected);
    QVERIFY(!reverse || named(name)->allowsReverseTransformation());
    const QVariant result =
        reverse ? named(name)->reverseTransformedValue(value) : named(name)->transformedValue(value);
    QCOMPARE(result, expected);
    QCOMPARE(result.typeId(), expected.typeId());
}

void tst_ZelNamedTransformers::otherTypesThrow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("reverse");
    const QVariant text = QStringLiteral("text");
    QTest::newRow("pointer") << ZelPointerToStringTransformerName << text << false;
    QTest::newRow("pointer, reverse") << ZelPointerToStringTransformerName << QVariant(1) << true;
    QTest::newRow("first") << ZelFirstInArrayTransformerName << text << false;
    const QVariant set = QVariant::fromValue(QSet<int>{1});
    QTest::newRow("first of a set") << ZelFirstInArrayTransformerName << set << false;
    const QVariant orderedSet = QVariant::fromValue(ZelOrderedSet<int>{1});
    QTest::newRow("first of an ordered set") << ZelFirstInArrayTransformerName << orderedSet << false;
    QTest::newRow("not empty") << ZelIsNotEmptyTransformerName << text << false;
    QTest::newRow("nil or no") << ZelNilOrNoTransformerName << text << false;
    QTest::newRow("percent") << ZelPercentValueTransformerName << text << false;
    QTest::newRow("percent, reverse") << ZelPercentValueTransformerName << text << true;
    QTest::newRow("color") << ZelColorNameTransformerName << text << false;
    QTest::newRow("color, reverse") << ZelColorNameTransformerName << QVariant(QColor(Qt::red)) << true;
}

void tst_ZelNamedTransformers::otherTypesThrow()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(bool, reverse);
    try {
        reverse ? named(name)->reverseTransformedValue(value) : named(name)->transformedValue(value);
        QFAIL("no exception");
    } catch (const ZelInternalInconsistencyException &exception) {
        QCOMPARE(exception.reason(), QString(u"Cannot transform value (" + ZelClassName(value) + u")."));
    }
}

void tst_ZelNamedTransformers::markersPassThrough()
{
    const QVariant marker = QVariant::fromValue(ZelMultipleValuesMarker);
    for (const QString &name :
         {ZelPointerToStringTransformerName, ZelFirstInArrayTransformerName, ZelIsNotEmptyTransformerName,
          ZelNilOrNoTransformerName, ZelPercentValueTransformerName, ZelColorNameTransformerName}) {
        QVERIFY2(ZelIsMarker(named(name)->transformedValue(marker), ZelMultipleValuesMarker), qPrintable(name));
        QVERIFY2(ZelIsMarker(named(name)->reverseTransformedValue(marker), ZelMultipleValuesMarker), qPrintable(name));
    }
}

void tst_ZelNamedTransformers::countsDecideOnEmptiness()
{
    const ZelValueTransformerPtr transformer = named(ZelIsNotEmptyTransformerName);
    const auto isNotEmpty = [&](const QVariant &value) {
        return transformer->transformedValue(value) == QVariant(true);
    };
    Crowd crowd(3);
    Crowd nobody(0);
    QVERIFY(isNotEmpty(QVariantList{0}));
    QVERIFY(isNotEmpty(QVariant::fromValue(QSet<int>{0})));
    QVERIFY(isNotEmpty(QVariantMap{{QStringLiteral("a"), 0}}));
    QVERIFY(isNotEmpty(QVariant::fromValue(ZelIndexSet{0})));
    QVERIFY(isNotEmpty(QVariant::fromValue(&crowd)));
    for (const QVariant &empty :
         {QVariant(), ZelNull(), QVariant(QVariantList()), QVariant(QStringList()), QVariant(QVariantMap()),
          QVariant::fromValue(ZelIndexSet()), QVariant::fromValue(&nobody)})
        QCOMPARE(transformer->transformedValue(empty), QVariant(false));
    QVERIFY_EXCEPTION_THROWN(transformer->transformedValue(QVariant::fromValue<QObject *>(this)),
                             ZelInternalInconsistencyException);
}

void tst_ZelNamedTransformers::someAreRegisteredAtFirstUse()
{
    QVERIFY(!named(ZelDebugTransformerName));
    QVERIFY(!named(ZelZeroPointTransformerName));
    QCOMPARE(ZelDebugTransformer::transformerName(), QStringLiteral("ZelDebugTransformerName"));
    QVERIFY(named(ZelDebugTransformerName));
    const ZelZeroPointTransformer zeroPoint;
    QVERIFY(named(ZelZeroPointTransformerName));

    const QVariant marker = QVariant::fromValue(ZelNoSelectionMarker);
    for (const QVariant &nothing : {QVariant(), ZelNull(), marker})
        QCOMPARE(zeroPoint.transformedValue(nothing), QVariant(QPointF(0, 0)));
    const QVariant text = QStringLiteral("text");
    QCOMPARE(zeroPoint.transformedValue(text), text);
    QCOMPARE(named(ZelDebugTransformerName)->transformedValue(text), text);
    QVERIFY(ZelIsMarker(named(ZelDebugTransformerName)->transformedValue(marker), ZelNoSelectionMarker));
}

void tst_ZelNamedTransformers::colorsHaveNames()
{
    const ZelValueTransformerPtr transformer = named(ZelColorNameTransformerName);
    const auto nameOf = [&](const ZelColor &color) {
        return transformer->transformedValue(color.toVariant()).toString();
    };
    const auto system = [&](const char *key) {
        return nameOf(ZelColor::named(QStringLiteral("System"), QString::fromUtf8(key)));
    };
    std::unique_ptr<QThread> thread(QThread::create([&] { QCOMPARE(nameOf(QColor(Qt::red)), QStringLiteral("Rot")); }));
    thread->start();
    QCOMPARE(nameOf(QColor(Qt::red)), QStringLiteral("Rot")); // the first list wins
    QVERIFY(thread->wait());
    QCOMPARE(transformer->transformedValue(QColor(Qt::red)), QVariant(QStringLiteral("Rot")));
    QCOMPARE(nameOf(ZelColor(ZelColor::CalibratedRGB, {1, 0, 0, 1})), QStringLiteral("Rot"));
    QCOMPARE(nameOf(QColor(1, 2, 3)), QStringLiteral("Only"));
    QCOMPARE(system("textColor"), QStringLiteral("Text Color"));
    QCOMPARE(system("textBackgroundColor"), QStringLiteral("TextBackground Color"));
    QCOMPARE(system("selectedTextColor"), QStringLiteral("Selected Text Color"));
    const QVariant unknown = transformer->transformedValue(QColor(3, 2, 1));
    QVERIFY(unknown.typeId() == QMetaType::QString && !unknown.toString().isNull() && unknown.toString().isEmpty());
}

QTEST_MAIN(tst_ZelNamedTransformers)
#include "tst_ZelNamedTransformers.moc"
