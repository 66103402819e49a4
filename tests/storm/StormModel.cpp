// SPDX-License-Identifier: MIT
// The steps in which the application changes its objects.
#include "Application.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Models.h"
#include "Observation/ZelObservations.h"
#include "Progress.h"

#include <QMetaProperty>
#include <QScopedValueRollback>

namespace {

const char g_context = 0;
constexpr size_t g_mostObjects = 200;

} // namespace

QList<QObject *> Storm::living() const
{
    QList<QObject *> objects;
    for (const QPointer<QObject> &object : m_objects) {
        if (object)
            objects.append(object);
    }
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

void Storm::select(const Step &step)
{
    if (!m_owner) {
        makeOwner();
        makeInspector();
    }
    QList<QObject *> objects = living();
    if (objects.isEmpty())
        return;
    const int first = int(step.b % quint32(objects.size()));
    static const int counts[] = {0, 1, 1, 1, 1, 2, 2, 3, 10, 1000};
    const int count = counts[step.a % std::size(counts)];
    objects =
        objects.mid(first, count) + objects.mid(0, std::min(first, std::max(0, count - int(objects.size()) + first)));
    if (step.c % 3 == 0)
        objects.removeIf([](const QObject *object) { return !qobject_cast<const Sheet *>(object); });
    else if (step.c % 3 == 1)
        objects.removeIf([](const QObject *object) { return qobject_cast<const Locked *>(object) != nullptr; });
    sheets()->setSelectedObjects(objects);
}

void Storm::selectInGroups(const Step &step)
{
    if (!m_owner)
        return;
    QList<QObject *> chosen;
    for (size_t i = 0; i < m_owner->groupList.size(); ++i) {
        if (step.a >> i & 1)
            chosen.append(m_owner->groupList[i].get());
    }
    m_owner->groupController.setSelectedObjects(chosen);
    m_owner->groupList[step.b % m_owner->groupList.size()]->controller.setSelectedObjects(
        living().mid(int(step.b / 2 % 5), int(step.c % 3)));
}

/// Objects that cannot tell of a change have it announced, or the application says that something has changed.
void Storm::setValue(QObject *object, const QByteArray &key, quint32 number)
{
    const int index = object->metaObject()->indexOfProperty(key);
    const bool isDynamic = index < 0 && object->dynamicPropertyNames().contains(key);
    if (!isDynamic && (index < 0 || !object->metaObject()->property(index).isWritable()))
        return;
    const QVariant value = SheetKeys::value(key, number);
    if (!isDynamic && object->metaObject()->property(index).hasNotifySignal())
        object->setProperty(key, value);
    else
        ZelSetValueForKey(object, value, ZelKey(key.constData()));
}

void Storm::set(const Step &step)
{
    const QByteArray key = SheetKeys::all().at(int(step.b % quint32(SheetKeys::all().size())));
    if (QObject *changed = object(step.a)) {
        Progress::shared().setDetail("set " + key + " of " + changed->metaObject()->className());
        setValue(changed, key, step.c);
    }
}

void Storm::setMany(const Step &step)
{
    const QByteArray key = SheetKeys::all().at(int(step.b % quint32(SheetKeys::all().size())));
    for (const QPointer<QObject> object : living().mid(int(step.a % 4), 30)) {
        if (object)
            setValue(object, key, step.c);
    }
}

void Storm::setPart(const Step &step)
{
    QObject *whole = object(step.a);
    if (!whole || whole->metaObject()->indexOfProperty("part") < 0)
        return;
    auto *part = qobject_cast<Part *>(ZelValueForKey(whole, "part").value<QObject *>());
    if (step.b % 4 == 0)
        ZelSetValueForKey(whole, QVariant::fromValue<QObject *>(nullptr), "part");
    else if (step.b % 4 == 1 || !part)
        ZelSetValueForKey(whole, QVariant::fromValue<QObject *>(new Part(whole)), "part");
    else
        ZelSetValueForKey(part, step.c % 2 ? QVariant(QStringLiteral("other")) : QVariant(2.5),
                          step.c % 2 ? ZelKey("label") : ZelKey("amount"));
}

void Storm::setOwner(const Step &step)
{
    if (!m_owner)
        return;
    switch (step.a % 4) {
    case 0:
        m_owner->unlocked = step.b % 4 != 0;
        break;
    case 1:
        m_owner->heading = step.b % 2 ? QStringLiteral("A & B") : QString();
        break;
    case 2:
        m_owner->limit = double(step.b % 200);
        break;
    default:
        m_owner->names = m_owner->names.mid(1) + m_owner->names.mid(0, 1);
    }
    Q_EMIT m_owner->changed();
}

void Storm::kill(const Step &step)
{
    const quint32 count = step.c % 16 == 0 ? 10 : 1;
    for (quint32 i = 0; i < count && m_objects.size() > 3; ++i) {
        const QPointer<QObject> dying = object(step.a + i * 5);
        if (!dying)
            break;
        Progress::shared().setDetail(QByteArray("kill ") + dying->metaObject()->className());
        if (step.b % 4 == 0)
            dying->deleteLater();
        else
            delete dying.data();
    }
    std::erase_if(m_objects, [](const QPointer<QObject> &object) { return !object; });
}

/// The whole still points to its part in the moment in which that dies.
void Storm::killPart(const Step &step)
{
    QObject *whole = object(step.a);
    auto *part = whole ? whole->findChild<Part *>() : nullptr;
    if (!part || ZelValueForKey(whole, "part").value<QObject *>() != part)
        return;
    // Nothing may be thrown through a destructor: what observers throw is the application's to catch here.
    QObject::connect(part, &QObject::destroyed, whole, [this, whole] {
        asApplication([whole] { ZelSetValueForKey(whole, QVariant::fromValue<QObject *>(nullptr), "part"); });
    });
    delete part;
}

void Storm::add(const Step &step)
{
    static const size_t counts[] = {1, 1, 1, 2, 5, 40};
    for (size_t i = 0; i < counts[step.a % std::size(counts)] && m_objects.size() < g_mostObjects; ++i) {
        QObject *added = SheetKeys::create(step.b + quint32(i));
        m_objects.emplace_back(added);
        noteBase(added);
        if (m_owner && step.c % 2)
            sheets()->addObject(added);
    }
}

void Storm::content(const Step &step)
{
    QObject *changed = object(step.a);
    if (!m_owner || !changed)
        return;
    if (step.b % 3 == 0)
        sheets()->setContent(living());
    else if (step.b % 3 == 1)
        sheets()->removeObject(changed);
    else
        sheets()->addObject(changed);
}

void Storm::killOwner(const Step &)
{
    m_owner.reset();
}

void Storm::makeOwner()
{
    m_owner = std::make_unique<Owner>();
    m_owner->react = [this](int number) { reactToAction(number); };
    m_isTainted = true;
}

void Storm::watch(const Step &step)
{
    static const ZelKeyValueObservingOptions options[] = {0,
                                                          ZelKeyValueObservingOptionNew,
                                                          ZelKeyValueObservingOptionOld,
                                                          ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionOld,
                                                          ZelKeyValueObservingOptionPrior,
                                                          ZelKeyValueObservingOptionEqualCheck,
                                                          ZelKeyValueObservingOptionInitial};
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
                                  options[step.b % std::size(options)], block, &g_context);
}

void Storm::unwatch(const Step &step)
{
    if (m_watchers.empty())
        return;
    const auto at = m_watchers.begin() + int(step.a % m_watchers.size());
    ZelObservations(at->get()).removeAllObservationsForContext(&g_context);
    m_watchers.erase(at);
}

void Storm::clearWatchers()
{
    while (!m_watchers.empty())
        unwatch({});
}

void Storm::arm(const Step &step)
{
    Fault::armed |= 1u << (step.a % 4);
}

void Storm::disarm(const Step &)
{
    Fault::armed = 0;
}
