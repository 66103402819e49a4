// SPDX-License-Identifier: MIT
// The steps in which the application changes its objects.
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Observation/ZelObservations.h"
#include "Storm.h"

namespace {
const char g_context = 0;
constexpr size_t g_mostObjects = 200;

/// Objects that cannot tell of a change have it announced, or the application says that something has changed.
void setValue(QObject *object, const QByteArray &key, quint32 number)
{
    const QMetaProperty property = object->metaObject()->property(object->metaObject()->indexOfProperty(key));
    if (!property.isWritable() && (property.isValid() || !object->dynamicPropertyNames().contains(key)))
        return;
    const QVariant value = SheetKeys::value(key, number);
    if (property.hasNotifySignal())
        object->setProperty(key, value);
    else
        ZelSetValueForKey(object, value, ZelKey(key.constData()));
}

void setPart(QObject *whole, Part *part)
{
    ZelSetValueForKey(whole, QVariant::fromValue<QObject *>(part), "part");
}
} // namespace

QList<QObject *> Storm::living() const
{
    QList<QObject *> objects(m_objects.begin(), m_objects.end());
    objects.removeAll(nullptr);
    return objects;
}

/// Selected objects are chosen more often than others.
QObject *Storm::object(quint32 number) const
{
    QList<QObject *> objects = number % 4 && m_owner ? sheets()->selectedObjects() : QList<QObject *>();
    if (objects.isEmpty())
        objects = living();
    return objects.isEmpty() ? nullptr : objects.at(int(number / 4 % quint32(objects.size())));
}

void Storm::makeOwner()
{
    m_owner = std::make_unique<Owner>();
    m_owner->react = [this](int number) { reactToAction(number); };
    m_isTainted = true;
}

void Storm::removeWatcher(quint32 number)
{
    if (m_watchers.empty())
        return;
    const auto at = m_watchers.begin() + int(number % m_watchers.size());
    ZelObservations(at->get()).removeAllObservationsForContext(&g_context);
    m_watchers.erase(at);
}

void Storm::clearWatchers()
{
    while (!m_watchers.empty())
        removeWatcher(0);
}

void Storm::addModelSteps()
{
    add("select", 40, Edit, [this](const Step &step) {
        if (!m_owner) {
            makeOwner();
            makeInspector();
        }
        QList<QObject *> objects = living();
        if (objects.isEmpty())
            return;
        static const int counts[] = {0, 1, 1, 1, 1, 2, 2, 3, 10, 1000};
        const int count = counts[step.a % std::size(counts)];
        const int first = int(step.b % quint32(objects.size()));
        const int wrapped = std::clamp(count - int(objects.size()) + first, 0, first);
        objects = objects.mid(first, count) + objects.mid(0, wrapped);
        if (step.c % 3 == 0)
            objects.removeIf([](const QObject *object) { return !qobject_cast<const Sheet *>(object); });
        else if (step.c % 3 == 1)
            objects.removeIf([](const QObject *object) { return qobject_cast<const Locked *>(object) != nullptr; });
        sheets()->setSelectedObjects(objects);
    });
    add("selectInGroups", 6, Edit, [this](const Step &step) {
        if (!m_owner)
            return;
        auto &groups = m_owner->groupList;
        QList<QObject *> chosen;
        for (size_t i = 0; i < groups.size(); ++i) {
            if (step.a >> i & 1)
                chosen.append(&groups[i]);
        }
        m_owner->groupController.setSelectedObjects(chosen);
        groups[step.b % groups.size()].controller.setSelectedObjects(
            living().mid(int(step.b / 2 % 5), int(step.c % 3)));
    });
    add("set", 40, Change, [this](const Step &step) {
        if (QObject *changed = object(step.a)) {
            Progress::setDetail("set " + SheetKeys::key(step.b) + " of " + changed->metaObject()->className());
            setValue(changed, SheetKeys::key(step.b), step.c);
        }
    });
    add("setMany", 6, Change, [this](const Step &step) {
        const QList<QObject *> objects = living().mid(int(step.a % 4), 30);
        for (const QPointer<QObject> &object : QList<QPointer<QObject>>(objects.begin(), objects.end())) {
            if (object)
                setValue(object, SheetKeys::key(step.b), step.c);
        }
    });
    add("setPart", 8, Change, [this](const Step &step) {
        QObject *whole = object(step.a);
        if (!whole || whole->metaObject()->indexOfProperty("part") < 0)
            return;
        auto *part = qobject_cast<Part *>(ZelValueForKey(whole, "part").value<QObject *>());
        if (step.b % 4 == 0)
            setPart(whole, nullptr);
        else if (step.b % 4 == 1 || !part)
            setPart(whole, new Part(whole));
        else if (step.c % 2)
            ZelSetValueForKey(part, QStringLiteral("other"), "label");
        else
            ZelSetValueForKey(part, 2.5, "amount");
    });
    add("setOwner", 6, Change, [this](const Step &step) {
        if (!m_owner)
            return;
        if (step.a % 4 == 0)
            m_owner->unlocked = step.b % 4 != 0;
        else if (step.a % 4 == 1)
            m_owner->heading = step.b % 2 ? QStringLiteral("A & B") : QString();
        else if (step.a % 4 == 2)
            m_owner->limit = double(step.b % 200);
        else
            m_owner->names.append(m_owner->names.takeFirst());
        Q_EMIT m_owner->changed();
    });
    add("kill", 12, Change, [this](const Step &step) {
        const quint32 count = step.c % 16 == 0 ? 10 : 1;
        for (quint32 i = 0; i < count && m_objects.size() > 3; ++i) {
            QObject *dying = object(step.a + i * 5);
            if (!dying)
                break;
            Progress::setDetail(QByteArray("kill ") + dying->metaObject()->className());
            if (step.b % 4 == 0)
                dying->deleteLater();
            else
                delete dying;
        }
        std::erase(m_objects, nullptr);
    });
    // The whole still points to its part in the moment in which that dies.
    add("killPart", 2, Change, [this](const Step &step) {
        QObject *whole = object(step.a);
        auto *part = whole ? whole->findChild<Part *>() : nullptr;
        if (!part || ZelValueForKey(whole, "part").value<QObject *>() != part)
            return;
        // Nothing may be thrown through a destructor: what observers throw is the application's to catch here.
        QObject::connect(part, &QObject::destroyed, whole,
                         [whole] { asApplication([whole] { setPart(whole, nullptr); }); });
        delete part;
    });
    add("add", 14, Edit, [this](const Step &step) {
        static const quint32 counts[] = {1, 1, 1, 2, 5, 40};
        for (quint32 i = 0; i < counts[step.a % std::size(counts)] && m_objects.size() < g_mostObjects; ++i) {
            QObject *added = m_objects.emplace_back(SheetKeys::create(step.b + i));
            noteBase(added);
            if (m_owner && step.c % 2)
                sheets()->addObject(added);
        }
    });
    add("content", 6, Edit, [this](const Step &step) {
        QObject *changed = object(step.a);
        if (!m_owner || !changed)
            return;
        if (step.b % 3 == 0)
            sheets()->setContent(living());
        else if (step.b % 3 == 1)
            sheets()->removeObject(changed);
        else
            sheets()->addObject(changed);
    });
    add("killOwner", 1, Change, [this](const Step &) { m_owner.reset(); });
    add("watch", 10, Change, [this](const Step &step) {
        constexpr ZelKeyValueObservingOptions all =
            ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionOld | ZelKeyValueObservingOptionPrior |
            ZelKeyValueObservingOptionEqualCheck | ZelKeyValueObservingOptionInitial;
        static const char *const paths[] = {"number", "text", "part", "part.label", "bits", "frame", "note", "amount"};
        QObject *target = step.a % 3 && m_owner ? sheets()->selection() : object(step.a / 4);
        if (!target || m_watchers.size() > 20)
            return;
        const quint32 habit = step.c % 6;
        const auto block = [this, habit](ZelBlockObservation *, const ZelKeyValueChange &change) {
            (void)(change.hasNew() && change.keyValueChangeNew().isValid());
            (void)(change.hasOld() && change.keyValueChangeOld().isValid());
            static bool isBusy = false;
            if (habit == 4)
                Fault::at(Fault::Observer);
            if (isBusy || habit < 5)
                return;
            const QScopedValueRollback busy(isBusy, true);
            if (QObject *other = object(quint32(m_watchers.size()) * 4))
                setValue(other, "text", quint32(m_objects.size()));
            if (m_owner)
                sheets()->setSelectedObjects(living().mid(int(m_watchers.size() % 3), 2));
        };
        m_watchers.push_back(std::make_unique<QObject>());
        ZelObservations(m_watchers.back().get())
            .addObservationWithObject(target, ZelKeyPath(QString::fromLatin1(paths[step.c / 8 % std::size(paths)])),
                                      step.b & all, block, &g_context);
    });
    add("unwatch", 8, Edit, [this](const Step &step) { removeWatcher(step.a); });
    add("arm", 4, Change, [](const Step &step) { Fault::armed |= 1u << (step.a % 4); });
    add("disarm", 8, Edit, [](const Step &) { Fault::armed = 0; });
}
