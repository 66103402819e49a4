// SPDX-License-Identifier: MIT
#include "Blocks/ZelColorNameTransformer.h"
#include "Blocks/ZelReversibleValueTransformer.h"
#include "Blocks/ZelTransformerKit.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Core/Values/ZelIndexSet.h"
#include "Core/Values/ZelOrderedSet.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelLocalizedString.h"
#include "Support/Failures.h"
#include "Support/TableRow.h"
#include <thread>

class Crowd : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count MEMBER count)
public:
    int count = 0;
};

static ZelValueTransformerPtr named(const QString &name)
{
    return ZelAbstractValueTransformer::valueTransformerForName(name);
}

static QVariant doubled(const QVariant &value)
{
    return value.toInt() * 2;
}

class tst_ZelValueTransformer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        // Names are gathered once, so this must be in place before the first use.
        ZelSetLocalizationFunction([](const QString &key) { return key == u"Red" ? "Rot" : QString(); });
        const QList<ZelColorList::Entry> colors{{"Second", QColor(Qt::red)}, {"Only", QColor(1, 2, 3)}};
        ZelColorList::addColorList(ZelColorListPtr::create("Mine", colors));
    }

    void blocksTransform()
    {
        const auto halved = [](const QVariant &value) { return value.toInt() / 2; };
        const auto check = [](const ZelValueTransformerPtr &transformer, const QString &type,
                              const QVariant &reversed) {
            QCOMPARE(transformer->transformedValue(4), QVariant(8));
            QCOMPARE(transformer->transformedValueClass(), type);
            QCOMPARE(transformer->allowsReverseTransformation(), reversed.isValid());
            if (reversed.isValid())
                QCOMPARE(transformer->reverseTransformedValue(4), reversed);
        };
        check(ZelValueTransformer::transformerWithBlock(&doubled), "QVariant", {});
        check(ZelValueTransformer::reversibleTransformerWithBlock(&doubled), "QVariant", 8);
        check(ZelValueTransformer::reversibleTransformerWithForwardBlock(&doubled, halved), "QVariant", 2);
        QVERIFY_EXCEPTION_THROWN(ZelValueTransformer::transformerWithBlock({}), ZelInternalInconsistencyException);
        const auto add = [](const char *name, const char *type, const ZelValueTransformer::Block &block) {
            return ZelTransformerKit::registerValueTransformerWithName(name, type, block);
        };
        QVERIFY(ZelTransformerKit::registerValueTransformerWithName("Doubled", "int", &doubled, halved));
        QVERIFY(!add("Doubled", "int", halved) && add("OneWay", "double", &doubled));
        check(named("Doubled"), "int", 2); // what is there stays
        check(named("OneWay"), "double", {});
        ZelClassRegistry::registerClass("Shape", &QObject::staticMetaObject,
                                        [](QObject *owner) { return new QObject(owner); });
        for (const char *taken : {"Shape", "QObject", "QString", "QSignalMapper", "ZelNegateBooleanTransformerName"})
            QVERIFY2(!add(taken, "int", halved), taken);
        Failures failures;
        const ZelReversibleValueTransformer transformer({}, {});
        QVERIFY(!transformer.transformedValue(1).isValid() && !transformer.reverseTransformedValue(1).isValid());
        QVERIFY(!add("", "int", halved) && !add("New", "", halved) && !add("New", "int", {}) && !named("New"));
        QCOMPARE(failures.taken().join('|').remove(" Invalid parameter not satisfying:").remove("Blocks/Zel"),
                 "ValueTransformer: forwardBlock != nil|ReversibleValueTransformer: reverseBlock|TransformerKit: name|"
                 "TransformerKit: transformedValueClass|TransformerKit: transformedValueBlock");
    }

    void namedOnesTransformTheirTypesOnly()
    {
        enum Way { Forward, Reverse };
        const auto transformed = [](Way way, const QString &name, const QVariant &value) {
            return way == Reverse ? named(name)->reverseTransformedValue(value) : named(name)->transformedValue(value);
        };
        const auto check = [&](Way way, const QString &name, const QVariantList &values, const QVariantList &results) {
            QVERIFY(way == Forward || named(name)->allowsReverseTransformation());
            for (qsizetype i = 0; i < values.size(); ++i) {
                const TableRow row(name + ", " + values.at(i).toString());
                const QVariant result = transformed(way, name, values.at(i));
                QCOMPARE(result, results.at(i));
                QCOMPARE(result.typeId(), results.at(i).typeId());
            }
        };
        const auto checkThrows = [&](Way way, const QString &name, const QVariant &value) {
            const TableRow row(name + ", " + value.toString());
            try {
                transformed(way, name, value);
                QFAIL("no exception");
            } catch (const ZelInternalInconsistencyException &exception) {
                QCOMPARE(exception.reason(), QString("Cannot transform value (" + ZelClassName(value) + ")."));
            }
        };
        const QVariant none;
        const QString &pointer = ZelPointerToStringTransformerName, &first = ZelFirstInArrayTransformerName,
                      &notEmpty = ZelIsNotEmptyTransformerName, &percent = ZelPercentValueTransformerName,
                      &colorName = ZelColorNameTransformerName, &nilOrNo = ZelNilOrNoTransformerName;
        check(Forward, pointer, {255, 16.9, 1e300, none}, {"0xff", "0x10", "0xfffffffffffff800", none});
        check(Forward, pointer, {-1, -1.5}, {"0xffffffffffffffff", "0xffffffffffffffff"});
        check(Forward, pointer, {-1e300, qQNaN()}, {"0x8000000000000000", "0x8000000000000000"});
        check(Reverse, pointer, {"0xff", "ff", "", "zz"}, {255ULL, 255ULL, none, none});
        checkThrows(Reverse, pointer, 1);
        check(Forward, first, {QVariantList({7, 8}), QStringList("a"), QVariantList(), ZelNull()},
              {7, "a", none, none});
        checkThrows(Forward, first, QVariant::fromValue(QSet<int>{1}));
        checkThrows(Forward, first, QVariant::fromValue(ZelOrderedSet<int>{1}));
        check(Forward, nilOrNo, {5, none, ZelNull()}, {5, false, false});
        check(Forward, percent, {0.25, 2, none}, {25.0, 200.0, none});
        check(Reverse, percent, {25}, {0.25});
        checkThrows(Reverse, percent, "text");
        Crowd crowd, nobody;
        crowd.count = 3;
        const auto any = [](const auto &value) { return QVariant::fromValue(value); };
        check(Forward, notEmpty,
              {any(QVariantList{0}), any(QSet<int>{0}), any(QVariantMap{{"a", 0}}), any(ZelIndexSet{0}), any(&crowd)},
              QVariantList(5, true));
        check(Forward, notEmpty,
              {none, ZelNull(), any(QVariantList()), any(QVariantMap()), any(ZelIndexSet()), any(&nobody)},
              QVariantList(6, false));
        checkThrows(Forward, notEmpty, any(static_cast<QObject *>(this)));
        check(Reverse, colorName, {"Rot", none}, {QColor(Qt::black), none});
        checkThrows(Reverse, colorName, QColor(Qt::red));
        const QVariant marker = QVariant::fromValue(ZelMultipleValuesMarker); // passes through
        for (const QString &name : {pointer, first, notEmpty, nilOrNo, percent, colorName}) {
            checkThrows(Forward, name, "text");
            for (const Way way : {Forward, Reverse})
                QVERIFY2(ZelIsMarker(transformed(way, name, marker), ZelMultipleValuesMarker), qPrintable(name));
        }
        // These are registered at their first use.
        QVERIFY(!named(ZelDebugTransformerName) && !named(ZelZeroPointTransformerName));
        QCOMPARE(ZelDebugTransformer::transformerName(), "ZelDebugTransformerName");
        const ZelValueTransformerPtr debug = named(ZelDebugTransformerName);
        const ZelZeroPointTransformer zeroPoint;
        QVERIFY(debug && named(ZelZeroPointTransformerName));
        for (const QVariant &nothing : {QVariant(), ZelNull(), marker})
            QCOMPARE(zeroPoint.transformedValue(nothing), QVariant(QPointF(0, 0)));
        QCOMPARE(zeroPoint.transformedValue("text"), "text");
        QCOMPARE(debug->transformedValue("text"), "text");
        QVERIFY(ZelIsMarker(debug->transformedValue(marker), ZelMultipleValuesMarker));
    }

    void colorsHaveNames()
    {
        const auto nameOf = [](const QVariant &color) {
            return named(ZelColorNameTransformerName)->transformedValue(color).toString();
        };
        const auto system = [&](const char *key) { return nameOf(ZelColor::named("System", key).toVariant()); };
        const auto isRed = [&] { QCOMPARE(nameOf(QColor(Qt::red)), "Rot"); }; // the first list wins
        std::thread thread(isRed);
        isRed();
        thread.join();
        QCOMPARE(nameOf(ZelColor(QColor(Qt::red)).toVariant()), "Rot");
        QCOMPARE(nameOf(ZelColor(ZelColor::CalibratedRGB, {1, 0, 0, 1}).toVariant()), "Rot");
        QCOMPARE(nameOf(QColor(1, 2, 3)), "Only");
        QCOMPARE(system("textColor") + ", " + system("textBackgroundColor"), "Text Color, TextBackground Color");
        QCOMPARE(system("selectedTextColor"), "Selected Text Color");
        QVERIFY(nameOf(QColor(3, 2, 1)).isEmpty() && !nameOf(QColor(3, 2, 1)).isNull());
    }
};
QTEST_MAIN(tst_ZelValueTransformer)
#include "tst_ZelValueTransformer.moc"
