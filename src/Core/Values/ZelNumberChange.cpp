// SPDX-License-Identifier: MIT
#include "Core/Values/ZelNumberChange.h"

#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelNumberTypes.h"

#include <cmath>
#include <limits>

namespace {
constexpr double g_noNumber = std::numeric_limits<double>::quiet_NaN();
}

double ZelNumberChange::number(double own, qsizetype index, qsizetype count) const
{
    return m_function ? (*m_function)(own, index, count) : g_noNumber;
}

const ZelNumberChange *ZelNumberChange::of(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<ZelNumberChange>()
               ? static_cast<const ZelNumberChange *>(value.constData())
               : nullptr;
}

QVariant ZelNumberChange::stepped(const QVariant &value, const std::function<double(double)> &step, double fallback)
{
    const auto next = [step, fallback](double own) { return step(std::isfinite(own) ? own : fallback); };
    if (ZelIsMarker(value, ZelMultipleValuesMarker) || of(value))
        return QVariant::fromValue(ZelNumberChange([next](double own, qsizetype, qsizetype) { return next(own); }));
    return next(ZelIsNull(value) || ZelIsControllerMarker(value) ? fallback : value.toDouble());
}

double ZelNumberChange::ownNumber(const QVariant &value)
{
    if (ZelIsNull(value) || ZelIsControllerMarker(value))
        return g_noNumber;
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return g_noNumber;
    constexpr double largestExact = 9007199254740992.0;
    const bool isExact = ZelNumberTypes::isFloating(value.typeId()) || std::abs(number) <= largestExact;
    return isExact ? number : g_noNumber;
}
