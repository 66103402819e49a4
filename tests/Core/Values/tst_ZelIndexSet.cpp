// SPDX-License-Identifier: MIT
#include "Core/Values/ZelIndexSet.h"

#include <QRandomGenerator>
#include <QTest>
#include <set>

class tst_ZelIndexSet : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void behavesLikeASetOfIntegers()
    {
        QRandomGenerator random(42);
        ZelIndexSet indexes;
        std::set<qsizetype> reference;
        for (int step = 0; step < 2000; ++step) {
            const ZelIndexSet::Range range{qsizetype(random.bounded(60)), qsizetype(random.bounded(7))};
            const bool inserts = random.bounded(2) == 0;
            inserts ? indexes.insert(range) : indexes.remove(range);
            for (qsizetype i = range.first; i < range.end(); ++i)
                inserts ? (void)reference.insert(i) : (void)reference.erase(i);
            std::set<qsizetype> found;
            indexes.forEach([&](qsizetype i) { found.insert(i); });
            QCOMPARE(found, reference);
            QCOMPARE(indexes.count(), qsizetype(reference.size()));
            for (qsizetype i = 0; i < 70; ++i)
                QCOMPARE(indexes.contains(i), reference.contains(i));
        }
    }

    void touchingRangesBecomeOne()
    {
        ZelIndexSet indexes = ZelIndexSet::withRange(0, 1000000);
        indexes.insert(1000000);
        QCOMPARE(indexes.ranges().size(), 1);
        QCOMPARE(indexes.last(), 1000000);
        QCOMPARE(ZelIndexSet({3, 1, 2}), ZelIndexSet::withRange(1, 3));
    }
};

QTEST_MAIN(tst_ZelIndexSet)
#include "tst_ZelIndexSet.moc"
