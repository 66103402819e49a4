// SPDX-License-Identifier: MIT
#include "Core/Values/ZelOptionalType.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QRectF>
#include <QStringList>
#include <QUrl>
#include <deque>

namespace {

template<typename... Types> std::deque<ZelOptionalType> typesOf()
{
    return {ZelOptionalType::of<Types>()...};
}

/// A queue, since entries that were found must stay where they are.
std::deque<ZelOptionalType> &types()
{
    static auto *known = new std::deque<ZelOptionalType>(
        typesOf<bool, int, uint, short, ushort, uchar, qlonglong, qulonglong, float, double, QString, QStringList,
                QDate, QTime, QDateTime, QColor, QFont, QUrl, QPoint, QPointF, QSize, QSizeF, QRect, QRectF>());
    return *known;
}

} // namespace

bool ZelOptionalType::isOptional(QMetaType type)
{
    return type.isValid() && QByteArrayView(type.name()).startsWith("std::optional<");
}

const ZelOptionalType *ZelOptionalType::find(QMetaType type)
{
    if (!isOptional(type))
        return nullptr;
    for (const ZelOptionalType &known : types()) {
        if (known.optional == type)
            return &known;
    }
    return nullptr;
}

void ZelOptionalType::add(const ZelOptionalType &type)
{
    if (!find(type.optional))
        types().push_back(type);
}
