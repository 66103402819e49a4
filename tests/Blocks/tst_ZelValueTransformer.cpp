// SPDX-License-Identifier: MIT
#include "Blocks/ZelColorNameTransformer.h"
#include "Blocks/ZelNamedTransformers.h"
#include "Blocks/ZelReversibleValueTransformer.h"
#include "Blocks/ZelTransformerKit.h"
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Core/Values/ZelIndexSet.h"
#include "Core/Values/ZelOrderedSet.h"
#include "Core/Values/ZelValues.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelLocalizedString.h"
#include "Support/Failures.h"
#include "Support/TableRow.h"

#include <QPointF>
#include <QSet>
#include <QThread>

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

static QVariant halved(const QVariant &value)
{
    return value.toInt() / 2;
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
        const auto oneWay = ZelValueTransformer::transformerWithBlock(&doubled);
        QCOMPARE(oneWay->transformedValue(4), QVariant(8));
        QVERIFY(!oneWay->allowsReverseTransformation());
        QCOMPARE(oneWay->transformedValueClass(), "QVariant");
        const auto sameWay = ZelValueTransformer::reversibleTransformerWithBlock(&doubled);
        QVERIFY(sameWay->allowsReverseTransformation());
        QCOMPARE(sameWay->reverseTransformedValue(4), QVariant(8));
        const auto bothWays = ZelValueTransformer::reversibleTransformerWithForwardBlock(&doubled, &halved);
        QCOMPARE(bothWays->transformedValue(4), QVariant(8));
        QCOMPARE(bothWays->reverseTransformedValue(4), QVariant(2));
        QVERIFY_EXCEPTION_THROWN(ZelValueTransformer::transformerWithBlock({}), ZelInternalInconsistencyException);
    }

    void registrationKeepsWhatIsThere()
    {
        const auto add = [](const char *name, const char *type, const ZelValueTransformer::Block &block) {
            return ZelTransformerKit::registerValueTransformerWithName(name, type, block);
        };
        QVERIFY(ZelTransformerKit::registerValueTransformerWithName("Doubled", "int", &doubled, &halved));
        const ZelValueTransformerPtr registered = named("Doubled");
        QCOMPARE(registered->transformedValueClass(), "int");
        QVERIFY(registered->allowsReverseTransformation());
        QCOMPARE(registered->reverseTransformedValue(8), QVariant(4));
        QVERIFY(!add("Doubled", "int", &halved));
        QCOMPARE(named("Doubled"), registered);
        QVERIFY(add("Halved", "int", &halved) && !named("Halved")->allowsReverseTransformation());
        ZelClassRegistry::registerClass("Shape", &QObject::staticMetaObject,
                                        [](QObject *owner) { return new QObject(owner); });
        for (const char *taken : {"Shape", "QObject", "QString", "QSignalMapper", "ZelNegateBooleanTransformerName"})
            QVERIFY2(!add(taken, "int", &halved), taken);
        Failures failures;
        const ZelReversibleValueTransformer transformer({}, {});
        QVERIFY(!transformer.transformedValue(1).isValid() && !transformer.reverseTransformedValue(1).isValid());
        QVERIFY(!add("", "int", &halved) && !add("New", "", &halved) && !add("New", "int", {}) && !named("New"));
        const QString invalid = ": Invalid parameter not satisfying: ";
        QCOMPARE(failures.seen, (QStringList{"Blocks/ZelValueTransformer" + invalid + "forwardBlock != nil",
                                             "Blocks/ZelReversibleValueTransformer" + invalid + "reverseBlock",
                                             "Blocks/ZelTransformerKit" + invalid + "name",
                                             "Blocks/ZelTransformerKit" + invalid + "transformedValueClass",
                                             "Blocks/ZelTransformerKit" + invalid + "transformedValueBlock"}));
    }

    void namedOnesTransformTheirTypesOnly()
    {
        enum Way { Forward, Reverse };
        const auto transformed = [](Way way, const QString &name, const QVariant &value) {
            return way == Reverse ? named(name)->reverseTransformedValue(value) : named(name)->transformedValue(value);
        };
        using Pairs = QList<std::pair<QVariant, QVariant>>;
        const auto check = [&](Way way, const QString &name, const Pairs &valuesAndResults) {
            QVERIFY(way == Forward || named(name)->allowsReverseTransformation());
            for (const auto &[value, expected] : valuesAndResults) {
                const TableRow row(name + ", " + value.toString());
                const QVariant result = transformed(way, name, value);
                QCOMPARE(result, expected);
                QCOMPARE(result.typeId(), expected.typeId());
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
        check(Forward, ZelPointerToStringTransformerName,
              {{255, "0xff"},
               {-1, "0xffffffffffffffff"},
               {16.9, "0x10"},
               {1e300, "0xfffffffffffff800"},
               {-1e300, "0x8000000000000000"},
               {-1.5, "0xffffffffffffffff"},
               {qQNaN(), "0x8000000000000000"},
               {none, none}});
        check(Reverse, ZelPointerToStringTransformerName, {{"0xff", 255ULL}, {"ff", 255ULL}, {"", none}, {"zz", none}});
        checkThrows(Reverse, ZelPointerToStringTransformerName, 1);
        check(Forward, ZelFirstInArrayTransformerName,
              {{QVariantList({7, 8}), 7}, {QStringList("a"), "a"}, {QVariantList(), none}, {ZelNull(), none}});
        checkThrows(Forward, ZelFirstInArrayTransformerName, QVariant::fromValue(QSet<int>{1}));
        checkThrows(Forward, ZelFirstInArrayTransformerName, QVariant::fromValue(ZelOrderedSet<int>{1}));
        check(Forward, ZelNilOrNoTransformerName, {{5, 5}, {none, false}, {ZelNull(), false}});
        check(Forward, ZelPercentValueTransformerName, {{0.25, 25.0}, {2, 200.0}, {none, none}});
        check(Reverse, ZelPercentValueTransformerName, {{25, 0.25}});
        checkThrows(Reverse, ZelPercentValueTransformerName, "text");
        Crowd crowd, nobody;
        crowd.count = 3;
        check(Forward, ZelIsNotEmptyTransformerName,
              {{QVariantList{0}, true},
               {QVariant::fromValue(QSet<int>{0}), true},
               {QVariantMap{{"a", 0}}, true},
               {QVariant::fromValue(ZelIndexSet{0}), true},
               {QVariant::fromValue(&crowd), true},
               {none, false},
               {ZelNull(), false},
               {QVariantList(), false},
               {QStringList(), false},
               {QVariantMap(), false},
               {QVariant::fromValue(ZelIndexSet()), false},
               {QVariant::fromValue(&nobody), false}});
        checkThrows(Forward, ZelIsNotEmptyTransformerName, QVariant::fromValue<QObject *>(this));
        check(Reverse, ZelColorNameTransformerName, {{"Rot", QColor(Qt::black)}, {none, none}});
        checkThrows(Reverse, ZelColorNameTransformerName, QColor(Qt::red));
        const QVariant marker = QVariant::fromValue(ZelMultipleValuesMarker); // passes through
        for (const QString &any :
             {ZelPointerToStringTransformerName, ZelFirstInArrayTransformerName, ZelIsNotEmptyTransformerName,
              ZelNilOrNoTransformerName, ZelPercentValueTransformerName, ZelColorNameTransformerName}) {
            checkThrows(Forward, any, "text");
            QVERIFY2(ZelIsMarker(transformed(Forward, any, marker), ZelMultipleValuesMarker), qPrintable(any));
            QVERIFY2(ZelIsMarker(transformed(Reverse, any, marker), ZelMultipleValuesMarker), qPrintable(any));
        }
    }

    void someAreRegisteredAtFirstUse()
    {
        QVERIFY(!named(ZelDebugTransformerName) && !named(ZelZeroPointTransformerName));
        QCOMPARE(ZelDebugTransformer::transformerName(), "ZelDebugTransformerName");
        const ZelValueTransformerPtr debug = named(ZelDebugTransformerName);
        const ZelZeroPointTransformer zeroPoint;
        QVERIFY(debug && named(ZelZeroPointTransformerName));
        const QVariant marker = QVariant::fromValue(ZelNoSelectionMarker);
        for (const QVariant &nothing : {QVariant(), ZelNull(), marker})
            QCOMPARE(zeroPoint.transformedValue(nothing), QVariant(QPointF(0, 0)));
        QCOMPARE(zeroPoint.transformedValue("text"), "text");
        QCOMPARE(debug->transformedValue("text"), "text");
        QVERIFY(ZelIsMarker(debug->transformedValue(marker), ZelNoSelectionMarker));
    }

    void colorsHaveNames()
    {
        const auto nameOf = [](const QVariant &color) {
            return named(ZelColorNameTransformerName)->transformedValue(color).toString();
        };
        const auto system = [&](const char *key) { return nameOf(ZelColor::named("System", key).toVariant()); };
        std::unique_ptr<QThread> thread(QThread::create([&] { QCOMPARE(nameOf(QColor(Qt::red)), "Rot"); }));
        thread->start();
        QCOMPARE(nameOf(QColor(Qt::red)), "Rot"); // the first list wins
        QVERIFY(thread->wait());
        QCOMPARE(nameOf(ZelColor(QColor(Qt::red)).toVariant()), "Rot");
        QCOMPARE(nameOf(ZelColor(ZelColor::CalibratedRGB, {1, 0, 0, 1}).toVariant()), "Rot");
        QCOMPARE(nameOf(QColor(1, 2, 3)), "Only");
        QCOMPARE(system("textColor"), "Text Color");
        QCOMPARE(system("textBackgroundColor"), "TextBackground Color");
        QCOMPARE(system("selectedTextColor"), "Selected Text Color");
        QVERIFY(nameOf(QColor(3, 2, 1)).isEmpty() && !nameOf(QColor(3, 2, 1)).isNull());
    }
};

QTEST_MAIN(tst_ZelValueTransformer)
#include "tst_ZelValueTransformer.moc"
