// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelSourcePlace.h"

#include <QVariant>

namespace {

const char g_placeProperty[] = "_zel_place";
thread_local ZelPlaceScope *t_innermost = nullptr;

} // namespace

QString ZelSourcePlace::appendedTo(const QString &message) const
{
    if (isEmpty())
        return message;
    QString where = file;
    if (line > 0)
        where += QStringLiteral(":%1:%2").arg(line).arg(column);
    if (!element.isEmpty())
        where += QStringLiteral(", <%1>").arg(element);
    return QStringLiteral("%1 (%2)").arg(message, where);
}

void ZelSourcePlace::setForObject(QObject *object, const ZelSourcePlace &place)
{
    if (object)
        object->setProperty(g_placeProperty, QVariant::fromValue(place));
}

ZelSourcePlace ZelSourcePlace::ofObject(const QObject *object)
{
    for (; object; object = object->parent()) {
        const auto *placed = dynamic_cast<const ZelPlaced *>(object);
        if (const ZelSourcePlace place = placed ? placed->place() : ZelSourcePlace(); !place.isEmpty())
            return place;
        if (const QVariant filed = object->property(g_placeProperty); filed.isValid())
            return filed.value<ZelSourcePlace>();
    }
    return {};
}

ZelPlaceScope::ZelPlaceScope(const QObject *object)
    : m_object(object)
    , m_outer(std::exchange(t_innermost, this))
{
}

ZelPlaceScope::ZelPlaceScope(const ZelSourcePlace &place)
    : m_place(place)
    , m_outer(std::exchange(t_innermost, this))
{
}

ZelPlaceScope::~ZelPlaceScope()
{
    t_innermost = m_outer;
}

const QObject *ZelPlaceScope::currentObject()
{
    const ZelPlaceScope *scope = t_innermost;
    while (scope && !scope->m_object)
        scope = scope->m_outer;
    return scope ? scope->m_object.data() : nullptr;
}

ZelSourcePlace ZelPlaceScope::current()
{
    for (const ZelPlaceScope *scope = t_innermost; scope; scope = scope->m_outer) {
        const ZelSourcePlace place =
            scope->m_place.isEmpty() ? ZelSourcePlace::ofObject(scope->m_object) : scope->m_place;
        if (!place.isEmpty())
            return place;
    }
    return {};
}
