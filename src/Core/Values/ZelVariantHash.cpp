// SPDX-License-Identifier: MIT
#include "Core/Values/ZelVariantHash.h"

#include "Core/Values/ZelValues.h"

#include <QDateTime>
#include <QUrl>
#include <QUuid>

size_t ZelVariantHash(const QVariant &value, size_t seed)
{
    if (ZelIsAbsent(value))
        return seed;
    if (ZelIsNumber(value))
        return qHash(value.toDouble(), seed); // by no narrower type, since numbers are equal across types
    if (const QObject *object = ZelObject(value))
        return qHash(object, seed);
    switch (value.typeId()) {
    case QMetaType::QString:
        return qHash(value.toString(), seed);
    case QMetaType::QByteArray:
        return qHash(value.toByteArray(), seed);
    case QMetaType::QDate:
        return qHash(value.toDate(), seed);
    case QMetaType::QTime:
        return qHash(value.toTime(), seed);
    case QMetaType::QDateTime:
        return qHash(value.toDateTime(), seed);
    case QMetaType::QUrl:
        return qHash(value.toUrl(), seed);
    case QMetaType::QUuid:
        return qHash(value.toUuid(), seed);
    default:
        return qHash(value.typeId(), seed);
    }
}
