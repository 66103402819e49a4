// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Selection/ZelArrayController.h"
#include "Core/Selection/private/ZelTypedColumn.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"
#include "Support/Random.h"

#include <QCoreApplication>
#include <QTest>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

/// It has a height, and nothing else that people have.
class Tree : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double height MEMBER m_height NOTIFY heightChanged)
Q_SIGNALS:
    void heightChanged();

private:
    double m_height = 1;
};

namespace {

const char g_context = 0;
const QStringList g_keys{"name", "height", "frame", "silent"};

struct Observer : ZelKeyValueObserver
{
    QString path;
    QVariant known;
    QList<ZelKeyValueChange> changes;

    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change, const void *) override
    {
        changes.append(change);
    }
};

/// A selection of some of many objects, and a list that says which.
class World
{
public:
    World(unsigned seed, int count)
        : m_random(seed)
    {
        for (int i = 0; i < count; ++i)
            m_objects.push_back(made());
        for (const QString &key : g_keys) {
            m_observers.push_back(std::make_unique<Observer>());
            m_observers.back()->path = QStringLiteral("selection.") + key;
            m_observers.back()->known = fold(key);
            ZelAddObserver(&m_controller, m_observers.back().get(), m_observers.back()->path,
                           ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionOld, &g_context);
        }
    }
    ~World()
    {
        for (const auto &observer : m_observers)
            ZelRemoveObserver(&m_controller, observer.get(), observer->path, &g_context);
    }

    void step()
    {
        switch (m_random.below(8)) {
        case 0:
            select();
            break;
        case 1:
            die();
            break;
        case 2:
            writeToAll();
            break;
        case 3: {
            const ZelObjectController::ChangeBatch batch(&m_controller);
            for (int i = 0; i < 5; ++i)
                change();
            break;
        }
        default:
            change();
        }
        QCoreApplication::processEvents(); // large selections are connected, and tell of changes, when there is time
        for (size_t i = 0; i < m_observers.size(); ++i)
            check(*m_observers[i], g_keys.at(qsizetype(i)));
        checkColumn();
    }

private:
    std::unique_ptr<QObject> made()
    {
        if (m_random.below(30) == 0)
            return std::make_unique<Tree>();
        return std::make_unique<Person>(QString());
    }
    QObject *some() { return m_objects[m_random.below(quint32(m_objects.size()))].get(); }
    QVariant someValue(const QString &key)
    {
        const int number = int(m_random.below(8) / 7); // mostly alike
        return key == QLatin1String("height")  ? QVariant(double(number))
               : key == QLatin1String("frame") ? QVariant(QRectF(number, 0, 1, m_random.below(6) / 5))
                                               : QVariant(number ? QStringLiteral("x") : QString());
    }

    void select()
    {
        m_selected.clear();
        const quint32 oneIn = 1 + m_random.below(3) * m_random.below(8);
        for (const auto &object : m_objects) {
            if (m_random.below(oneIn) == 0)
                m_selected.append(object.get());
        }
        m_controller.setSelectedObjects(m_selected);
    }
    void die()
    {
        auto &place = m_objects[m_random.below(quint32(m_objects.size()))];
        m_selected.removeOne(place.get());
        place.reset();
        place = made();
    }
    void change()
    {
        const QString key = g_keys.at(m_random.below(quint32(g_keys.size())));
        QObject *object = some();
        if (!ZelHasKey(object, key))
            return;
        object->setProperty(key.toLatin1().constData(), someValue(key));
        ZelRereadSilentProperties();
    }
    void writeToAll()
    {
        const QString key = g_keys.at(m_random.below(quint32(g_keys.size())));
        const bool isKnown = std::any_of(m_selected.cbegin(), m_selected.cend(),
                                         [&](const QObject *object) { return ZelHasKey(object, key); });
        if (!isKnown)
            return;
        const QVariant value = someValue(key);
        ZelSetValueForKeyPath(&m_controller, value, ZelKeyPath(QStringLiteral("selection.") + key));
        for (const QObject *object : std::as_const(m_selected)) {
            if (ZelHasKey(object, key))
                QCOMPARE(object->property(key.toLatin1().constData()), value);
        }
    }

    /// The objects' values one after the other, read without the library.
    QVariant fold(const QString &key) const
    {
        QVariant known = QVariant::fromValue(ZelNoSelectionMarker);
        for (qsizetype i = 0; i < m_selected.size(); ++i) {
            const QVariant value = m_selected.at(i)->property(key.toLatin1().constData());
            if (!value.isValid())
                return QVariant::fromValue(ZelNotApplicableMarker);
            if (i > 0 && value != known)
                return QVariant::fromValue(ZelMultipleValuesMarker);
            known = value;
        }
        return known;
    }

    void check(Observer &observer, const QString &key)
    {
        const QVariant now = fold(key);
        const QVariant former = std::exchange(observer.known, now);
        const QList<ZelKeyValueChange> changes = std::exchange(observer.changes, {});
        QVERIFY2(ZelEqual(ZelValueForKeyPath(&m_controller, observer.path), now), qPrintable(observer.path));
        QVERIFY2(ZelEqual(former, now) || !changes.isEmpty(), qPrintable(observer.path + u" was not told"));
        if (changes.isEmpty())
            return;
        QVERIFY2(ZelEqual(changes.first().keyValueChangeOld(), former), qPrintable(observer.path));
        QVERIFY2(ZelEqual(changes.last().keyValueChangeNew(), now), qPrintable(observer.path));
    }

    /// The numbers of all frames agree with the frames, and an edit names the objects whose frames it changes.
    void checkColumn()
    {
        ZelTypedColumn column(m_controller, "frame", 4);
        const auto found = column.fold([](ZelTypedColumn::Numbers &numbers) { numbers[0] += 1; });
        const bool areFrames = std::all_of(m_selected.cbegin(), m_selected.cend(),
                                           [](const QObject *object) { return qobject_cast<const Person *>(object); });
        if (!areFrames)
            return;
        QVERIFY(found);
        QCOMPARE(found->first.has_value(), !m_selected.isEmpty());
        unsigned differing = 0;
        QList<QPointer<QObject>> others;
        for (QObject *object : std::as_const(m_selected)) {
            const QRectF frame = static_cast<Person *>(object)->frame();
            const QRectF first = static_cast<Person *>(m_selected.first())->frame();
            differing |= unsigned(frame.x() != first.x()) | unsigned(frame.width() != first.width()) << 2 |
                         unsigned(frame.height() != first.height()) << 3;
            QCOMPARE((*found->first)[0], first.x() + 1);
            if (frame.height() != 1)
                others.append(object);
        }
        QCOMPARE(found->differing, differing);
        const auto edit = column.edit([](ZelTypedColumn::Numbers &numbers) { numbers[3] = 1; });
        QVERIFY(edit);
        QCOMPARE(edit->objects, others);
        for (qsizetype i = 0; i < others.size(); ++i) {
            QCOMPARE(edit->before.at(i).toRectF(), static_cast<Person *>(others.at(i).data())->frame());
            QCOMPARE(edit->after.at(i).toRectF().height(), 1);
        }
    }

    Random m_random;
    std::vector<std::unique_ptr<QObject>> m_objects;
    QList<QObject *> m_selected;
    ZelArrayController m_controller;
    std::vector<std::unique_ptr<Observer>> m_observers;
};

} // namespace

class tst_RandomSelection : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Few objects tell at once, many at the end of a turn: both against a list that is looked through every time.
    void theSelectionIsWhatItsObjectsSay()
    {
        for (unsigned seed = 1; seed <= 40; ++seed) {
            World world(seed, seed % 2 ? 6 : 60);
            for (int step = 0; step < 150; ++step) {
                world.step();
                if (QTest::currentTestFailed()) {
                    qWarning() << "seed" << seed << "step" << step;
                    return;
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_RandomSelection)
#include "tst_RandomSelection.moc"
