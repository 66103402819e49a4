// SPDX-License-Identifier: MIT
#include "Blocks/ZelBlocks.h"
#include "Support/Failures.h"
#include <QTest>
#include <QThread>
#include <QThreadPool>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <numeric>

namespace {
using Ints = QList<int>;

bool isEven(qsizetype i)
{
    return i % 2 == 0;
}

/// Where calls wait until one on another thread has come, where there is one.
class Meeting
{
public:
    void join()
    {
        std::unique_lock lock(m_mutex);
        m_threads.insert(QThread::currentThreadId());
        m_joined.notify_all();
        m_joined.wait_for(lock, std::chrono::seconds(20), [this] { return hasHappened(); });
    }
    bool hasHappened() const { return m_threads.size() > 1 || QThreadPool::globalInstance()->maxThreadCount() == 1; }

private:
    std::mutex m_mutex;
    std::condition_variable m_joined;
    QSet<Qt::HANDLE> m_threads;
};

/// Whether the block is called once for each element, from 0 to 999, and on more than one thread.
template<typename Collection> void verifyApply(const Collection &collection)
{
    std::vector<std::atomic<int>> calls(1000);
    Meeting meeting;
    ZelBlocks(collection).apply([&](qsizetype i, auto...) {
        ++calls.at(size_t(i));
        meeting.join();
    });
    QVERIFY(std::all_of(calls.begin(), calls.end(), [](const std::atomic<int> &n) { return n == 1; }));
    QVERIFY(meeting.hasHappened());
}

/// Whether just the entries go that do not stay, and all are there as long as there are questions.
template<typename Dictionary, typename Stays> void verifyRemoval(const Dictionary &original, const Stays &stays)
{
    Dictionary changed = original, expected = original;
    expected.removeIf([&](const auto &entry) { return !stays(entry.key(), entry.value()); });
    qsizetype calls = 0;
    ZelBlocks(changed).performSelect([&](const auto &key, const auto &value) {
        calls += changed.size() == original.size() && changed.value(key) == value;
        return stays(key, value);
    });
    QCOMPARE(changed, expected);
    QCOMPARE(calls, original.size());
}

QHash<int, QString> numberNames(int count)
{
    QHash<int, QString> names;
    for (int i = 0; i < count; ++i)
        names.insert(i, QString::number(i));
    return names;
}
} // namespace

class TestBlocks : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void collectionsAreAskedFoldedAndMapped()
    {
        const Ints list{3, 4, 5, 6};
        Ints seen;
        ZelBlocks(list).each([&](int i) { seen.append(i); });
        QCOMPARE(seen, list);
        QCOMPARE(ZelBlocks(list).match(isEven), std::optional(4));
        QCOMPARE(ZelBlocks(list).match([](int i) { return i > 6; }), std::nullopt);
        QCOMPARE(ZelBlocks(list).select(isEven), Ints({4, 6}));
        QCOMPARE(ZelBlocks(list).reject(isEven), Ints({3, 5}));
        QCOMPARE(ZelBlocks(QStringList{"a", "bc"}).map(&QString::size), QList<qsizetype>({1, 2}));
        const auto joined = [](const QString &s, int i) { return QString(s + QString::number(i)); };
        QCOMPARE(ZelBlocks(list).reduce(QString("0"), joined), "03456");
        const QList<QObject *> objects{nullptr, this};
        QCOMPARE(ZelBlocks(objects).match([](QObject *object) { return object; }), this);
        QVERIFY(!ZelBlocks(objects).match([](QObject *) { return false; }));
        QVERIFY(!ZelBlocks(QVariantList{1}).match([](const QVariant &) { return false; }).isValid());
        int calls = 0; // no more than are needed
        const auto isFour = [&](int i) { return ++calls && i == 4; };
        QVERIFY(ZelBlocks(list).any(isFour) && !ZelBlocks(list).none(isFour) && !ZelBlocks(list).all(isFour));
        QCOMPARE(calls, 2 + 2 + 1);
        QVERIFY(ZelBlocks(Ints()).all(isFour) && ZelBlocks(Ints()).none(isFour) && !ZelBlocks(Ints()).any(isFour));
        const auto corresponds = [](const auto &collection, const auto &other) {
            return ZelBlocks(collection).corresponds(other, [](int a, int b) { return a == b; });
        };
        QVERIFY(corresponds(Ints{1}, Ints{1, 2}) && !corresponds(Ints{1, 2}, Ints{1})); // the other may have more
        QVERIFY(!corresponds(Ints(), Ints{1}) && !corresponds(Ints{1, 2}, Ints{1, 3}));
        QVERIFY(corresponds(ZelIndexSet{1, 4, 5}, ZelIndexSet{1, 4, 5, 6}));
        QVERIFY(!corresponds(ZelIndexSet{1, 4, 5}, ZelIndexSet{1, 4}));
        const ZelIndexSet indexes = ZelIndexSet::withRange(0, 1000000);
        QCOMPARE(ZelBlocks(indexes).match([](qsizetype i) { return i > 998; }), 999);
        QCOMPARE(ZelBlocks(indexes).match([](qsizetype) { return false; }), -1);
        QVERIFY(!ZelBlocks(indexes).select([](qsizetype) { return false; }).has_value());
        QVERIFY(!ZelBlocks(ZelIndexSet()).map([](qsizetype i) { return i; }).has_value());
        QCOMPARE(*ZelBlocks(indexes).map([](qsizetype i) { return 999999 - i / 2; }),
                 ZelIndexSet::withRange(500000, 500000));
        const QSet<int> set{1, 2, 3, 4};
        QCOMPARE(ZelBlocks(set).map([](int i) { return i / 2; }), QSet<int>({0, 1, 2}));
        QCOMPARE(ZelBlocks(set).reduce(0, std::plus<int>()), 10);
        QCOMPARE(ZelBlocks(set).match([](int i) { return i == 3; }), std::optional(3));
    }

    void absentResultsAreStoredAsNull()
    {
        QVariantList list{1, QVariant(), "x"};
        const auto twice = [](const QVariant &v) { return ZelIsNumber(v) ? QVariant(v.toInt() * 2) : QVariant(); };
        QCOMPARE(ZelBlocks(list).map(twice), QVariantList({2, ZelNull(), ZelNull()}));
        ZelBlocks(list).performMap(twice);
        QCOMPARE(list, QVariantList({2, ZelNull(), ZelNull()}));
        QVariantMap map{{"a", 1}, {"b", 2}};
        ZelBlocks(map).performMap([](const QString &key, const QVariant &) { return key == "a" ? QVariant() : 2.0; });
        QVERIFY(ZelNull() == map.value("a"));
        QCOMPARE(map.value("b").typeId(), QMetaType::Int); // 2.0 is the same value
        const auto values =
            ZelBlocks(QSet<int>{1, 2, 3, 4}).map([](int i) { return i > 2 ? QVariant() : QVariant(i); });
        QVERIFY(values.size() == 3 && values.contains(ZelNull()));
    }

    void collectionsChangeInPlace()
    {
        Ints list{1, 2, 3, 4};
        ZelBlocks(list).performReject(isEven);
        QCOMPARE(list, Ints({1, 3}));
        // The block sees the elements as they were, and is asked once for each.
        ZelBlocks(list).performMap([&](int i) { return i + list.first(); });
        QCOMPARE(list, Ints({2, 4}));
        QStringList texts{"a", "b"};
        const QStringList shared = texts;
        ZelBlocks(texts).performMap([](const QString &text) { return QString(text.toLatin1()); });
        ZelBlocks(texts).performSelect([](const QString &) { return true; });
        QVERIFY(texts.isSharedWith(shared)); // equal results are not stored
        ZelOrderedSet<int> ordered{4, 3, 2, 1};
        QCOMPARE(ZelBlocks(ordered).map([](int i) { return i / 2; }).values(), Ints({2, 1, 0}));
        int calls = 0;
        ZelBlocks(ordered).performMap([&](int) { return ++calls; });
        QCOMPARE(calls, 4);
        QCOMPARE(ordered.values(), Ints({4, 3, 2, 1}));
        ZelBlocks(ordered).performSelect(isEven);
        QCOMPARE(ordered.values(), Ints({4, 2}));
        QCOMPARE(ordered.indexOf(2), 1);
        QSet<int> set{1, 2, 3, 4};
        ZelBlocks(set).performReject(isEven);
        ZelBlocks(set).performMap([](int i) { return i * 10; });
        QCOMPARE(set, QSet<int>({10, 30}));
        ZelIndexSet indexes = ZelIndexSet::withRange(0, 1000000);
        ZelBlocks(indexes).performReject([](qsizetype i) { return i < 600000; });
        QCOMPARE(indexes, ZelIndexSet::withRange(600000, 400000));
        ZelBlocks(indexes).performMap([](qsizetype i) { return i % 3; });
        QCOMPARE(indexes, ZelIndexSet({0, 1, 2}));
    }

    void dictionariesAreAskedAndChanged()
    {
        QHash<int, QString> names = numberNames(100);
        const auto isShort = [](int key, const QString &name) { return key < 10 && name.size() == 1; };
        QCOMPARE(ZelBlocks(names).select(isShort), numberNames(10));
        QCOMPARE(*ZelBlocks(names).match([](int key, const QString &) { return key == 42; }), "42");
        QVERIFY(ZelBlocks(names).any(isShort) && !ZelBlocks(names).all(isShort));
        const QHash<int, qsizetype> sizes = ZelBlocks(names).map([](int, const QString &name) { return name.size(); });
        QVERIFY(sizes.size() == 100 && sizes.value(99) == 2);
        ZelBlocks(names).performMap([](int key, const QString &name) { return key < 5 ? name + "!" : name; });
        QCOMPARE(names.value(4) + names.value(5), "4!5");
        ZelBlocks(names).performReject(isShort);
        QVERIFY(names.size() == 95 && names.contains(4) && !names.contains(5)); // all but 5 to 9
        const QMap<QString, int> map{{"c", 1}, {"a", 2}, {"b", 3}};
        QCOMPARE(ZelBlocks(map).match([](const QString &, int value) { return value > 1; }), std::optional(2));
        const QMap<QString, QString> keys = ZelBlocks(map).map([](const QString &key, int) { return key + key; });
        QCOMPARE(keys.values(), QStringList({"aa", "bb", "cc"}));
        QHash<QString, int> byText;
        for (int i = 1; i <= 5000; ++i)
            byText.insert(QString::number(i * 7919), i);
        const QSet<QString> texts(byText.keyBegin(), byText.keyEnd());
        for (const int divisor : {1, 2, 3, 50, 10000}) { // one entry in so many stays
            verifyRemoval(byText, [&](const QString &, int i) { return i % divisor == 0; });
            verifyRemoval(numberNames(5000), [&](int i, const QString &) { return i % divisor == 0; });
            verifyRemoval(map, [&](const QString &, int i) { return i % divisor == 0; });
            const auto goes = [&](const QString &text) { return text.toInt() / 7919 % divisor != 0; };
            QSet<QString> changed = texts, expected = texts;
            ZelBlocks(changed).performReject(goes);
            expected.removeIf(goes);
            QCOMPARE(changed, expected);
        }
    }

    void slowWorkIsConcurrent()
    {
        Meeting meeting;
        std::atomic<int> calls = 0;
        const auto selected = ZelBlocks(numberNames(200)).select([&](int key, const QString &) {
            if (++calls <= 100)
                QThread::usleep(100); // the first are tried one by one
            else
                meeting.join();
            return key < 120;
        });
        QCOMPARE(selected, numberNames(120));
        QVERIFY(meeting.hasHappened());
        Ints list(1000);
        std::iota(list.begin(), list.end(), 0);
        verifyApply(list);
        verifyApply(ZelIndexSet::withRange(0, 1000));
        verifyApply(QSet<int>(list.begin(), list.end()));
        verifyApply(numberNames(1000));
        const ZelIndexSet scattered{3, 5, 100, 101, 102, 7000};
        std::atomic<qsizetype> sum = 0;
        ZelBlocks(scattered).apply([&](qsizetype i) { sum += i; });
        QCOMPARE(sum.load(), 3 + 5 + 100 + 101 + 102 + 7000);
        sum = 0;
        ZelBlocks(list).apply([&](int) { ZelBlocks(scattered).apply([&](qsizetype) { ++sum; }); }); // work within work
        QCOMPARE(sum.load(), 6000);
    }

    void throwingAndMissingBlocksChangeNothing()
    {
        const auto throwing = [](int i, auto...) {
            if (i == 3)
                throw std::runtime_error("three");
            return i == 1;
        };
        const auto check = [](const auto &original, const auto &change) {
            auto collection = original;
            QVERIFY_EXCEPTION_THROWN(change(ZelBlocks(collection)), std::runtime_error);
            QCOMPARE(collection, original);
        };
        const auto select = [&](const auto &blocks) { blocks.performSelect(throwing); };
        Ints list{1, 2, 3, 4};
        check(list, select);
        check(list, [&](const auto &blocks) { blocks.performMap(throwing); });
        check(list, [&](const auto &blocks) { blocks.apply(throwing); });
        check(ZelIndexSet{1, 2, 3, 4}, select);
        check(numberNames(5), select);
        check(QSet<int>{1, 2, 3, 4}, select);
        Failures failures;
        const std::function<bool(int)> missing;
        ZelBlocks(list).each(missing);
        ZelBlocks(list).reject(missing);
        ZelBlocks(list).performReject(missing);
        ZelBlocks(list).match(static_cast<bool (*)(int)>(nullptr));
        QCOMPARE(failures.taken().filter(": Invalid parameter not satisfying: block != nil").size(), 4);
        QCOMPARE(list, Ints({1, 2, 3, 4}));
    }
};
QTEST_APPLESS_MAIN(TestBlocks)
#include "tst_ZelBlocks.moc"
