// SPDX-License-Identifier: MIT
#include "Core/Values/ZelOrderedSet.h"

#include <QDate>
#include <QTest>

class TestOrderedSet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsFirstPlaces();
    void changesKeepPlacesAndLookUpInStep();
    void comparesVariantsAsValues();
    void isAListToTheRest();
};

void TestOrderedSet::keepsFirstPlaces()
{
    const ZelOrderedSet<QString> set(QStringList{"c", "a", "c", "b", "a"});
    QCOMPARE(set.values(), QStringList({"c", "a", "b"}));
    QCOMPARE(set.indexOf("b"), 2);
    QCOMPARE(set.indexOf("d"), -1);
    QCOMPARE(ZelOrderedSet<QString>().indexOf("a"), -1);
    QVERIFY(set == ZelOrderedSet<QString>({"c", "a", "b"}));
    QVERIFY(!(set == ZelOrderedSet<QString>({"a", "b", "c"})));
}

void TestOrderedSet::changesKeepPlacesAndLookUpInStep()
{
    ZelOrderedSet<int> set;
    for (int i = 0; i < 5000; ++i)
        QVERIFY(set.append(i * 1024)); // all alike in their low bits
    const ZelOrderedSet<int> copy = set;
    QCOMPARE(set.removeIf([](int i) { return i % 2048 != 0; }), 2500);
    QVERIFY(!set.append(2048) && set.insert(1, 7) && !set.insert(0, 7));
    QVERIFY(set.replace(0, 9) && set.replace(0, 9) && !set.replace(0, 7)); // 9, 7, 2048, 4096, ...
    QVERIFY(set.remove(2048) && !set.remove(2048));
    QCOMPARE(set.size(), 2500);
    for (qsizetype i = 0; i < set.size(); ++i)
        QCOMPARE(set.indexOf(set.at(i)), i);
    QVERIFY(!set.contains(0) && !set.contains(1024));
    QCOMPARE(copy.size(), 5000);
    QCOMPARE(copy.indexOf(1024), 1);
}

void TestOrderedSet::comparesVariantsAsValues()
{
    QObject object;
    const ZelOrderedSet<QVariant> set{1, QVariant(), QStringLiteral("1"), ZelNull(), QVariant::fromValue(&object)};
    QCOMPARE(set.size(), 5);
    QCOMPARE(set.indexOf(1.0), 0);
    QCOMPARE(set.indexOf(quint64(1)), 0);
    QCOMPARE(set.indexOf(true), 0);
    QCOMPARE(set.indexOf(QString()), 1); // an unset text is absent
    QCOMPARE(set.indexOf(QVariant::fromValue<QObject *>(nullptr)), 1);
    QCOMPARE(set.indexOf(ZelNull()), 3);
    QCOMPARE(set.indexOf(QVariant::fromValue(&object)), 4);

    // Equal values must not differ in their hashes, whatever they are.
    const QVariantList values{-0.0, QDate(2020, 2, 2), QByteArray("a"), QPointF(1, 2), QVariantList{1, 2}, 1e300};
    const ZelOrderedSet<QVariant> others(values);
    for (qsizetype i = 0; i < values.size(); ++i)
        QCOMPARE(others.indexOf(values.at(i)), i);
    QCOMPARE(others.indexOf(0), 0);
}

void TestOrderedSet::isAListToTheRest()
{
    const QVariant value = QVariant::fromValue(ZelOrderedSet<QVariant>{3, 1, 3, 2});
    QVERIFY(ZelIsList(value));
    QCOMPARE(ZelList(value), QVariantList({3, 1, 2}));
    QCOMPARE(ZelList(QVariant::fromValue(ZelOrderedSet<int>{5, 4})), QVariantList({5, 4}));
}

QTEST_APPLESS_MAIN(TestOrderedSet)
#include "tst_ZelOrderedSet.moc"
