// SPDX-License-Identifier: MIT
#include "Observation/ZelNotificationObservation.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"

QSharedPointer<ZelNotificationObservation>
ZelNotificationObservation::observationWithCenter(ZelNotificationCenter *center, const QString &name, QObject *object,
                                                  Block block)
{
    if (!center)
        center = ZelNotificationCenter::defaultCenter();
    const bool valid =
        ZelRequire(center, "center") && ZelRequire(!name.isEmpty(), "name") && ZelRequire(bool(block), "block");
    if (!valid)
        return {};
    return started<ZelNotificationObservation>(center, name, object, std::move(block));
}

ZelNotificationObservation::ZelNotificationObservation(ZelNotificationCenter *center, const QString &name,
                                                       QObject *object, Block block)
    : m_center(center)
    , m_name(name)
    , m_object(object)
    , m_objectAddress(object)
    , m_block(std::move(block))
{
}

QString ZelNotificationObservation::description() const
{
    return title("ZelNotificationObservation") %
           QStringLiteral("{name=%1, object=%2}").arg(m_name, ZelObjectDescription(m_object));
}

void ZelNotificationObservation::observeNotification(const ZelNotification &notification)
{
    if (isCancelled())
        return;
    const Delivery delivery(this);
    m_block(this, notification);
}

void ZelNotificationObservation::start()
{
    m_center->addObserver(this, m_name, m_object);
}

void ZelNotificationObservation::stop()
{
    if (m_center)
        m_center->removeObserver(this, m_name, m_objectAddress);
    m_center.clear();
    m_name = {};
    m_object.clear();
    m_objectAddress = nullptr;
}
