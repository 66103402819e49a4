// SPDX-License-Identifier: MIT
#include "Blocks/ZelBlocks.h"

#include <QTest>
#include <QThread>
#include <QThreadPool>
#include <atomic>
#include <condition_variable>
#include <mutex>

namespace {

bool isEven(qsizetype i)
{
    return i % 2 == 0;
}

/// Counts its copies.
struct Counted
{
    explicit Counted(int value)
        : value(value)
    {
    }
    Counted(const Counted &other)
        : value(other.value)
    {
        ++copies;
    }
    Counted(Counted &&) = default;
    Counted &operator=(const Counted &) = default;
    bool isBig() const { return value > 2; }

    int value;
    static inline int copies = 0;
};

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

/// Whether the block is called once for each of the elements, and on more than one thread.
template<typename Apply> void verifyApply(qsizetype count, const Apply &apply)
{
    std::vector<std::atomic<int>> calls(static_cast<size_t>(count));
    Meeting meeting;
    apply([&](qsizetype i) {
        ++calls.at(size_t(i));
        meeting.join();
    });
    QVERIFY(std::all_of(calls.begin(), calls.end(), [](const std::atomic<int> &n) { return n == 1; }));
    QVERIFY(meeting.hasHappened());
}

/// Whether just the entries go that do not stay, and all are there as long as there are questions.
template<typename Dictionary, typename Stays> void verifyRemoval(const Dictionary &original, const Stays &stays)
{
    Dictionary expected;
    for (auto entry = original.cbegin(); entry != original.cend(); ++entry) {
        if (stays(entry.key(), entry.value()))
            expected.insert(entry.key(), entry.value());
    }
    Dictionary changed = original;
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
    void listsAreSearchedAndFiltered();
    void readingCopiesNothing();
    void absentResultsAreStoredAsNull();
    void foldsAndQuestionsStopInTime();
    void correspondenceIsAsymmetric();
    void listsChangeInPlace();
    void orderedSets();
    void setsMergeEqualResults();
    void dictionaries();
    void entriesAreRemovedWhenAllHaveBeenAsked_data();
    void entriesAreRemovedWhenAllHaveBeenAsked();
    void slowSelectionOfEntriesIsConcurrent();
    void indexSetsKeepRanges();
    void appliesConcurrently();
    void throwingBlockChangesNothing();
    void missingBlockIsAsserted();
};

void TestBlocks::listsAreSearchedAndFiltered()
{
    const QList<int> list{3, 4, 5, 6};
    QList<int> seen;
    ZelBlocks(list).each([&](int i) { seen.append(i); });
    QCOMPARE(seen, list);
    QCOMPARE(ZelBlocks(list).match(isEven), std::optional(4));
    QCOMPARE(ZelBlocks(list).match([](int i) { return i > 6; }), std::nullopt);
    QCOMPARE(ZelBlocks(list).select(isEven), QList<int>({4, 6}));
    QCOMPARE(ZelBlocks(list).reject(isEven), QList<int>({3, 5}));
    QCOMPARE(ZelBlocks(QStringList{"a", "bc"}).map(&QString::size), QList<qsizetype>({1, 2}));

    QObject named;
    named.setObjectName("it");
    const QList<QObject *> objects{this, &named};
    QCOMPARE(ZelBlocks(objects).match([](QObject *o) { return o->objectName() == "it"; }), &named);
    QVERIFY(!ZelBlocks(objects).match([](QObject *) { return false; }));
    QVERIFY(!ZelBlocks(QVariantList{1}).match([](const QVariant &) { return false; }).isValid());
}

void TestBlocks::readingCopiesNothing()
{
    QList<Counted> list{Counted(1), Counted(2), Counted(3)};
    const QList<Counted> shared = list;
    Counted::copies = 0;
    ZelBlocks(list).each([](const Counted &) {});
    QVERIFY(ZelBlocks(list).any(&Counted::isBig) && !ZelBlocks(list).all(&Counted::isBig));
    ZelBlocks(list).apply([](const Counted &) {});
    ZelBlocks(list).map(&Counted::value);
    ZelBlocks(list).performSelect([](const Counted &) { return true; });
    QVERIFY(list.isSharedWith(shared));
    QCOMPARE(Counted::copies, 0);
    ZelBlocks(list).select(&Counted::isBig);
    QCOMPARE(Counted::copies, 1);
}

void TestBlocks::absentResultsAreStoredAsNull()
{
    const QVariantList list{1, QVariant(), "x"};
    const auto twice = [](const QVariant &v) { return ZelIsNumber(v) ? QVariant(v.toInt() * 2) : QVariant(); };
    QCOMPARE(ZelBlocks(list).map(twice), QVariantList({2, ZelNull(), ZelNull()}));
    QVariantList changed = list;
    ZelBlocks(changed).performMap(twice);
    QCOMPARE(changed, QVariantList({2, ZelNull(), ZelNull()}));
    QVariantMap map{{"a", 1}, {"b", 2}};
    ZelBlocks(map).performMap([](const QString &key, const QVariant &) { return key == "a" ? QVariant() : 2.0; });
    QVERIFY(ZelNull() == map.value("a"));
    QCOMPARE(map.value("b").typeId(), QMetaType::Int); // 2.0 is the same value
}

void TestBlocks::foldsAndQuestionsStopInTime()
{
    const QList<int> list{1, 2, 3};
    QCOMPARE(
        ZelBlocks(list).reduce(QString("0"), [](const QString &s, int i) { return QString(s + QString::number(i)); }),
        "0123");
    QCOMPARE(ZelBlocks(QList<int>()).reduce(7, [](int, int) { return 0; }), 7);
    int calls = 0;
    const auto isTwo = [&](int i) { return ++calls && i == 2; };
    QVERIFY(ZelBlocks(list).any(isTwo));
    QVERIFY(!ZelBlocks(list).none(isTwo));
    QVERIFY(!ZelBlocks(list).all(isTwo));
    QCOMPARE(calls, 2 + 2 + 1);
    QVERIFY(ZelBlocks(QList<int>()).all(isTwo) && ZelBlocks(QList<int>()).none(isTwo));
}

void TestBlocks::correspondenceIsAsymmetric()
{
    const auto isEqual = [](int a, int b) { return a == b; };
    QVERIFY(ZelBlocks(QList<int>{1}).corresponds(QList<int>{1, 2}, isEqual));
    QVERIFY(!ZelBlocks(QList<int>{1, 2}).corresponds(QList<int>{1}, isEqual));
    QVERIFY(!ZelBlocks(QList<int>()).corresponds(QList<int>{1}, isEqual));
    QVERIFY(!ZelBlocks(QList<int>{1, 2}).corresponds(QList<int>{1, 3}, isEqual));
    QVERIFY(ZelBlocks(ZelOrderedSet<int>{1, 2}).corresponds(QList<int>{1, 2}, isEqual));
    QVERIFY(ZelBlocks(ZelIndexSet{1, 4, 5}).corresponds(ZelIndexSet{1, 4, 5, 6}, isEqual));
    QVERIFY(!ZelBlocks(ZelIndexSet{1, 4, 5}).corresponds(ZelIndexSet{1, 4}, isEqual));
}

void TestBlocks::listsChangeInPlace()
{
    QList<int> list{1, 2, 3, 4};
    ZelBlocks(list).performReject(isEven);
    QCOMPARE(list, QList<int>({1, 3}));
    // The block sees the elements as they were, and is asked once for each.
    QList<int> sums{1, 2, 3};
    ZelBlocks(sums).performMap([&](int i) { return i + sums.first(); });
    QCOMPARE(sums, QList<int>({2, 3, 4}));
    QStringList texts{"a", "b"};
    const QStringList shared = texts;
    ZelBlocks(texts).performMap([](const QString &text) { return QString(text.toLatin1()); });
    QVERIFY(texts.isSharedWith(shared)); // equal results are not stored
}

void TestBlocks::orderedSets()
{
    ZelOrderedSet<int> set{4, 3, 2, 1};
    QCOMPARE(ZelBlocks(set).select(isEven), QList<int>({4, 2}));
    QCOMPARE(ZelBlocks(set).map([](int i) { return i / 2; }).values(), QList<int>({2, 1, 0}));
    int calls = 0;
    ZelBlocks(set).performMap([&](int) { return ++calls; });
    QCOMPARE(calls, 4);
    QCOMPARE(set.values(), QList<int>({4, 3, 2, 1}));
    ZelBlocks(set).performSelect(isEven);
    QCOMPARE(set.values(), QList<int>({4, 2}));
    QCOMPARE(set.indexOf(2), 1);
}

void TestBlocks::setsMergeEqualResults()
{
    QSet<int> set{1, 2, 3, 4};
    QCOMPARE(ZelBlocks(set).map([](int i) { return i / 2; }), QSet<int>({0, 1, 2}));
    QCOMPARE(ZelBlocks(set).reduce(0, std::plus<int>()), 10);
    QVERIFY(isEven(ZelBlocks(set).match(isEven).value_or(1)));
    const auto values = ZelBlocks(set).map([](int i) { return i > 2 ? QVariant() : QVariant(i); });
    QCOMPARE(values.size(), 3);
    QVERIFY(values.contains(ZelNull()));
    ZelBlocks(set).performReject(isEven);
    ZelBlocks(set).performMap([](int i) { return i * 10; });
    QCOMPARE(set, QSet<int>({10, 30}));
}

void TestBlocks::dictionaries()
{
    QHash<int, QString> names = numberNames(100);
    const auto isShort = [](int key, const QString &name) { return key < 10 && name.size() == 1; };
    QCOMPARE(ZelBlocks(names).select(isShort), numberNames(10));
    QCOMPARE(ZelBlocks(names).match([](int key, const QString &) { return key == 42; }), std::optional<QString>("42"));
    QVERIFY(ZelBlocks(names).any(isShort) && !ZelBlocks(names).all(isShort));
    const QHash<int, qsizetype> sizes = ZelBlocks(names).map([](int, const QString &name) { return name.size(); });
    QCOMPARE(sizes.size(), 100);
    QCOMPARE(sizes.value(99), 2);
    ZelBlocks(names).performMap([](int key, const QString &name) { return key < 5 ? name + "!" : name; });
    QCOMPARE(names.value(4) + names.value(5), "4!5");
    ZelBlocks(names).performReject(isShort);
    QCOMPARE(names.size(), 95); // all but 5 to 9
    QVERIFY(names.contains(4) && !names.contains(5));

    QMap<QString, int> map{{"c", 1}, {"a", 2}, {"b", 3}};
    QCOMPARE(ZelBlocks(map).match([](const QString &, int value) { return value > 1; }), std::optional(2));
    const QMap<QString, QString> keys = ZelBlocks(map).map([](const QString &key, int) { return key + key; });
    QCOMPARE(keys.values(), QStringList({"aa", "bb", "cc"}));
}

void TestBlocks::entriesAreRemovedWhenAllHaveBeenAsked_data()
{
    QTest::addColumn<int>("divisor"); // one entry in so many stays
    for (int divisor : {1, 2, 3, 50, 10000})
        QTest::addRow("%d", divisor) << divisor;
}

void TestBlocks::entriesAreRemovedWhenAllHaveBeenAsked()
{
    QFETCH(const int, divisor);
    QHash<QString, int> byText;
    QHash<int, QString> byNumber;
    QSet<QString> texts;
    QSet<QString> expectedTexts;
    for (int i = 1; i <= 5000; ++i) {
        const QString text = QString::number(i * 7919);
        byText.insert(text, i);
        byNumber.insert(i, text);
        texts.insert(text);
        if (i % divisor == 0)
            expectedTexts.insert(text);
    }
    const auto numberOf = [](const QString &text) { return text.toInt() / 7919; };
    verifyRemoval(byText, [&](const QString &, int i) { return i % divisor == 0; });
    verifyRemoval(byNumber, [&](int i, const QString &) { return i % divisor == 0; });
    verifyRemoval(QMap<QString, int>({{"a", 1}, {"b", 2}, {"c", 3}}),
                  [&](const QString &, int i) { return i % divisor == 0; });
    ZelBlocks(texts).performReject([&](const QString &text) { return numberOf(text) % divisor != 0; });
    QCOMPARE(texts, expectedTexts);
}

void TestBlocks::slowSelectionOfEntriesIsConcurrent()
{
    const QHash<int, QString> names = numberNames(200);
    Meeting meeting;
    std::atomic<int> calls = 0;
    const auto selected = ZelBlocks(names).select([&](int key, const QString &) {
        if (++calls <= 100)
            QThread::usleep(100); // the first are tried one by one
        else
            meeting.join();
        return key < 120;
    });
    QCOMPARE(selected, numberNames(120));
    QVERIFY(meeting.hasHappened());
}

void TestBlocks::indexSetsKeepRanges()
{
    ZelIndexSet set = ZelIndexSet::withRange(0, 1000000);
    QCOMPARE(ZelBlocks(set).match([](qsizetype i) { return i > 998; }), 999);
    QCOMPARE(ZelBlocks(set).match([](qsizetype) { return false; }), -1);
    QVERIFY(!ZelBlocks(set).select([](qsizetype) { return false; }).has_value());
    QVERIFY(!ZelBlocks(ZelIndexSet()).map([](qsizetype i) { return i; }).has_value());
    const auto lower = [](qsizetype i) { return i < 600000; };
    QCOMPARE(ZelBlocks(set).select(lower)->ranges().size(), 1);
    QCOMPARE(*ZelBlocks(set).map([](qsizetype i) { return 999999 - i / 2; }), ZelIndexSet::withRange(500000, 500000));
    ZelBlocks(set).performReject(lower);
    QCOMPARE(set, ZelIndexSet::withRange(600000, 400000));
    ZelBlocks(set).performMap([](qsizetype i) { return i % 3; });
    QCOMPARE(set, ZelIndexSet({0, 1, 2}));
}

void TestBlocks::appliesConcurrently()
{
    QList<int> list;
    for (int i = 0; i < 1000; ++i)
        list.append(i);
    verifyApply(1000, [&](const auto &block) { ZelBlocks(list).apply(block); });
    verifyApply(1000, [&](const auto &block) { ZelBlocks(ZelOrderedSet<int>(list)).apply(block); });
    verifyApply(1000, [&](const auto &block) { ZelBlocks(QSet<int>(list.begin(), list.end())).apply(block); });
    verifyApply(1000, [&](const auto &block) { ZelBlocks(ZelIndexSet::withRange(0, 1000)).apply(block); });
    const ZelIndexSet scattered{3, 5, 100, 101, 102, 7000};
    std::atomic<qsizetype> sum = 0;
    ZelBlocks(scattered).apply([&](qsizetype i) { sum += i; });
    QCOMPARE(sum.load(), 3 + 5 + 100 + 101 + 102 + 7000);
    sum = 0;
    ZelBlocks(list).apply([&](int) { ZelBlocks(scattered).apply([&](qsizetype) { ++sum; }); }); // work within work
    QCOMPARE(sum.load(), 6000);
    verifyApply(1000, [&](const auto &block) {
        ZelBlocks(numberNames(1000)).apply([&](int key, const QString &) { block(key); });
    });
}

void TestBlocks::throwingBlockChangesNothing()
{
    const auto throwing = [](int i) {
        if (i == 3)
            throw std::runtime_error("three");
        return i == 1;
    };
    QList<int> list{1, 2, 3, 4};
    ZelIndexSet indexes{1, 2, 3, 4};
    QVERIFY_EXCEPTION_THROWN(ZelBlocks(list).performSelect(throwing), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(ZelBlocks(list).performMap(throwing), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(ZelBlocks(indexes).performSelect(throwing), std::runtime_error);
    QHash<int, QString> names = numberNames(5);
    QSet<int> set{1, 2, 3, 4};
    QVERIFY_EXCEPTION_THROWN(ZelBlocks(names).performSelect([&](int i, const QString &) { return throwing(i); }),
                             std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(ZelBlocks(set).performSelect(throwing), std::runtime_error);
    QCOMPARE(list, QList<int>({1, 2, 3, 4}));
    QCOMPARE(indexes, ZelIndexSet({1, 2, 3, 4}));
    QCOMPARE(names, numberNames(5));
    QCOMPARE(set, QSet<int>({1, 2, 3, 4}));
    QVERIFY_EXCEPTION_THROWN(ZelBlocks(list).apply(throwing), std::runtime_error);
}

void TestBlocks::missingBlockIsAsserted()
{
    const std::function<bool(int)> missing;
    QList<int> list{1, 2};
    const auto verify = [](const auto &operation) {
        try {
            operation();
        } catch (const ZelInternalInconsistencyException &e) {
            QCOMPARE(e.reason(), "Invalid parameter not satisfying: block != nil");
            return;
        }
        QFAIL("not asserted");
    };
    verify([&] { ZelBlocks(list).each(missing); });
    verify([&] { ZelBlocks(list).reject(missing); });
    verify([&] { ZelBlocks(list).performReject(missing); });
    verify([&] { ZelBlocks(list).match(static_cast<bool (*)(int)>(nullptr)); });
    QCOMPARE(list, QList<int>({1, 2}));
}

QTEST_APPLESS_MAIN(TestBlocks)
#include "tst_ZelBlocks.moc"
