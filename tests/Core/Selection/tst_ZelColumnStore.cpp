// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelArrayController.h"
#include "Core/Selection/ZelColumnStore.h"
#include "Core/Selection/ZelValueBlock.h"
#include "Core/Values/ZelValues.h"
#include "Core/Watch.h"
#include <vector>

namespace {
std::vector<double> g_levels; // of all samples, by their rows
int g_calls = 0;              // of getters and setters

class Sample : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double level READ level WRITE setLevel NOTIFY levelChanged)
    Q_PROPERTY(double other MEMBER m_other NOTIFY otherChanged)
public:
    explicit Sample(size_t row)
        : row(row)
    {
    }
    double level() const
    {
        ++g_calls;
        return g_levels[row];
    }
    void setLevel(double level)
    {
        ++g_calls;
        g_levels[row] = level;
        Q_EMIT levelChanged();
    }
    const size_t row;

Q_SIGNALS:
    void levelChanged();
    void otherChanged();

private:
    double m_other = 1;
};

/// Has a property of that name, and no store.
class Stranger : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double level MEMBER level NOTIFY levelChanged)
public:
    double level = 1;
Q_SIGNALS:
    void levelChanged();
};

class Samples : public ZelColumnStore
{
public:
    bool readColumn(ZelKey key, QMetaType type, std::span<const QObject *const> objects, void *values) const override
    {
        if (key != ZelKey("level") || type != QMetaType::fromType<double>())
            return false;
        for (size_t i = 0; i < objects.size(); ++i)
            static_cast<double *>(values)[i] = g_levels[static_cast<const Sample *>(objects[i])->row];
        read += qsizetype(objects.size());
        return true;
    }
    bool writeColumn(ZelKey key, QMetaType, std::span<QObject *const> objects, const void *values) override
    {
        if (key != ZelKey("level") || isReadOnly)
            return false;
        for (size_t i = 0; i < objects.size(); ++i)
            g_levels[static_cast<Sample *>(objects[i])->row] = static_cast<const double *>(values)[i];
        Q_EMIT static_cast<Sample *>(objects[0])->levelChanged();
        written += qsizetype(objects.size());
        return true;
    }
    mutable qsizetype read = 0;
    qsizetype written = 0;
    bool isReadOnly = false;
};
} // namespace

class tst_ZelColumnStore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aStoreAnswersForASelection()
    {
        constexpr size_t count = 3000;
        g_levels.assign(count, 1.0);
        std::vector<std::unique_ptr<QObject>> objects;
        QList<QObject *> all;
        for (size_t row = 0; row < count; ++row) {
            objects.push_back(row == 7 ? std::unique_ptr<QObject>(new Stranger) : std::make_unique<Sample>(row));
            all.append(objects.back().get());
        }
        auto samples = std::make_unique<Samples>();
        ZelColumnStore::registerStore(&Sample::staticMetaObject, samples.get());
        ZelArrayController controller;
        controller.setSelectedObjects(all);
        const QList<QPointer<QObject>> held = controller.heldObjects();
        objects[1000].reset();
        const auto value = [&](const char *key) { return ZelValueForKey(controller.selection(), ZelKey(key)); };
        const auto levels = [&](size_t row) { return g_levels[row]; };
        QCOMPARE(value("level"), QVariant(1.0));
        QVERIFY(ZelIsMarker(value("other"), ZelNotApplicableMarker)); // the stranger lacks it
        QVERIFY(samples->read > 2900 && g_calls < 100);
        g_levels.back() = 2;
        QVERIFY(ZelIsMarker(value("level"), ZelMultipleValuesMarker));
        const Watch watch(&controller, "selection.level", 0);
        g_calls = 0;
        ZelSetValueForKey(controller.selection(), 5, ZelKey("level"));
        QCOMPARE(samples->written, qsizetype(count) - 2);
        QCOMPARE(g_calls, 0);
        QCOMPARE(watch.count(), 1);
        QVERIFY(levels(0) == 5 && levels(999) == 5 && levels(1000) == 1 && levels(count - 1) == 5);
        QCOMPARE(value("level"), QVariant(5.0));
        // Each object's own value, as undo writes them.
        g_calls = 0;
        ZelValueBlock before(QMetaType::fromType<double>(), qsizetype(count)), after(before.type(), before.size());
        for (qsizetype i = 0; i < before.size(); ++i) {
            *static_cast<double *>(before.data(i)) = i == 3 ? 4 : 5;
            *static_cast<double *>(after.data(i)) = double(i);
        }
        after.write(held, ZelKeyPath("level"), before, [](qsizetype, const void *present, void *renewed) {
            *static_cast<double *>(renewed) = -*static_cast<const double *>(present);
        });
        QVERIFY(levels(3) == -5 && levels(4) == 4 && levels(999) == 999 && levels(1000) == 1 && levels(2999) == 2999);
        QCOMPARE(all.at(7)->property("level"), QVariant(7.0));
        before.write(held, ZelKeyPath("level"));
        QVERIFY(levels(3) == 4 && levels(999) == 5 && levels(1000) == 1);
        QCOMPARE(g_calls, 0);
        samples->isReadOnly = true;
        ZelSetValueForKey(controller.selection(), 6.0, ZelKey("level"));
        QVERIFY(g_calls > 2900 && levels(0) == 6 && levels(2999) == 6);
        samples.reset();
        QCOMPARE(value("level"), QVariant(6.0));
    }
};
QTEST_GUILESS_MAIN(tst_ZelColumnStore)
#include "tst_ZelColumnStore.moc"
