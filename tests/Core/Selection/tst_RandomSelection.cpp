// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelArrayController.h"
#include "Core/Selection/private/ZelTypedColumn.h"
#include "Core/Values/ZelValues.h"
#include "Core/Watch.h"
#include "Support/Person.h"
#include "Support/Random.h"

#include <QCoreApplication>
#include <memory>
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

const QStringList g_keys{"name", "height", "frame", "silent"};

/// A selection of some of many objects, and a list that says which. Few objects tell at once, many at the end of a
/// turn.
class World
{
public:
    explicit World(unsigned seed)
        : m_random(seed)
    {
        for (int i = 0; i < (seed % 2 ? 6 : 60); ++i)
            m_objects.push_back(made());
        for (const QString &key : g_keys) {
            m_watches.push_back(std::make_unique<Watch>(&m_controller, QString("selection." + key)));
            m_known.append(fold(key));
        }
    }

    void step()
    {
        const quint32 kind = m_random.below(8);
        if (kind == 0) {
            select();
        } else if (kind == 1) {
            die();
        } else if (kind == 2) {
            writeToAll();
        } else if (kind == 3) {
            const ZelObjectController::ChangeBatch batch(&m_controller);
            for (int i = 0; i < 5; ++i)
                change();
        } else {
            change();
        }
        QCoreApplication::processEvents(); // large selections are connected, and tell of changes, when there is time
        for (qsizetype i = 0; i < g_keys.size(); ++i)
            check(g_keys.at(i), *m_watches[size_t(i)], m_known[i]);
        checkColumn();
    }

private:
    std::unique_ptr<QObject> made()
    {
        if (m_random.below(30) == 0)
            return std::make_unique<Tree>();
        return std::make_unique<Person>();
    }
    QVariant someValue(const QString &key)
    {
        const int number = int(m_random.below(8) / 7); // mostly alike
        return key == "height"  ? QVariant(double(number))
               : key == "frame" ? QVariant(QRectF(number, 0, 1, m_random.below(6) / 5))
                                : QVariant(number ? "x" : QString());
    }
    static QVariant plainValue(const QObject *object, const QString &key)
    {
        return object->property(key.toLatin1().constData());
    }

    void select()
    {
        m_selected.clear();
        const quint32 oneIn = 1 + m_random.below(3) * m_random.below(8);
        for (const auto &object : m_objects)
            if (m_random.below(oneIn) == 0)
                m_selected.append(object.get());
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
        const QString key = g_keys.at(m_random.below(4));
        QObject *object = m_objects[m_random.below(quint32(m_objects.size()))].get();
        if (!plainValue(object, key).isValid())
            return;
        object->setProperty(key.toLatin1().constData(), someValue(key));
        ZelRereadSilentProperties();
    }
    void writeToAll()
    {
        const QString key = g_keys.at(m_random.below(4));
        QObjectList known = m_selected;
        known.removeIf([&](const QObject *object) { return !plainValue(object, key).isValid(); });
        if (known.isEmpty())
            return;
        const QVariant value = someValue(key);
        ZelSetValueForKeyPath(&m_controller, value, ZelKeyPath("selection." + key));
        for (const QObject *object : std::as_const(known))
            QCOMPARE(plainValue(object, key), value);
    }

    /// The objects' values one after the other, read without the library.
    QVariant fold(const QString &key) const
    {
        QVariant known = QVariant::fromValue(ZelNoSelectionMarker);
        for (qsizetype i = 0; i < m_selected.size(); ++i) {
            const QVariant value = plainValue(m_selected.at(i), key);
            if (!value.isValid())
                return QVariant::fromValue(ZelNotApplicableMarker);
            if (i > 0 && value != known)
                return QVariant::fromValue(ZelMultipleValuesMarker);
            known = value;
        }
        return known;
    }
    void check(const QString &key, Watch &watch, QVariant &known)
    {
        const QVariant now = fold(key), former = std::exchange(known, now);
        const QList<ZelKeyValueChange> changes = std::exchange(watch.changes, {});
        const QByteArray what = key.toLatin1();
        QVERIFY2(ZelEqual(ZelValueForKeyPath(&m_controller, ZelKeyPath("selection." + key)), now), what);
        QVERIFY2(ZelEqual(former, now) || !changes.isEmpty(), what);
        if (changes.isEmpty())
            return;
        QVERIFY2(ZelEqual(changes.first().keyValueChangeOld(), former), what);
        QVERIFY2(ZelEqual(changes.last().keyValueChangeNew(), now), what);
    }
    /// The numbers of all frames agree with the frames, and an edit names the objects whose frames it changes.
    void checkColumn()
    {
        ZelTypedColumn column(m_controller, "frame", 4);
        const auto found = column.fold([](ZelTypedColumn::Numbers &numbers) { numbers[0] += 1; });
        QList<QRectF> before;
        QList<QPointer<QObject>> others;
        const QRectF first = m_selected.isEmpty() ? QRectF() : plainValue(m_selected.first(), "frame").toRectF();
        unsigned differing = 0;
        for (QObject *object : std::as_const(m_selected)) {
            if (!qobject_cast<const Person *>(object))
                return;
            const QRectF frame = plainValue(object, "frame").toRectF();
            differing |= unsigned(frame.x() != first.x()) | unsigned(frame.width() != first.width()) << 2 |
                         unsigned(frame.height() != first.height()) << 3;
            if (frame.height() == 1)
                continue;
            others.append(object);
            before.append(frame);
        }
        QVERIFY(found);
        QCOMPARE(found->first.has_value(), !m_selected.isEmpty());
        QVERIFY(!found->first || (*found->first)[0] == first.x() + 1);
        QCOMPARE(found->differing, differing);
        const auto edit = column.edit([](ZelTypedColumn::Numbers &numbers) { numbers[3] = 1; });
        QVERIFY(edit);
        QCOMPARE(edit->objects, others);
        for (qsizetype i = 0; i < others.size(); ++i) {
            QCOMPARE(edit->before.at(i).toRectF(), before.at(i));
            QCOMPARE(edit->after.at(i).toRectF().height(), 1);
        }
    }

    Random m_random;
    std::vector<std::unique_ptr<QObject>> m_objects;
    QObjectList m_selected;
    ZelArrayController m_controller;
    std::vector<std::unique_ptr<Watch>> m_watches;
    QVariantList m_known; // what each has told last
};

} // namespace

class tst_RandomSelection : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Against a list that is looked through every time.
    void theSelectionIsWhatItsObjectsSay() { stepThrough<World>(40, 150); }
};

QTEST_GUILESS_MAIN(tst_RandomSelection)
#include "tst_RandomSelection.moc"
