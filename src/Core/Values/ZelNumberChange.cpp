// SPDX-License-Identifier: MIT
#include "Core/Values/ZelNumberChange.h"

#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelExactInteger.h"
#include "Core/Values/private/ZelNumberTypes.h"
#include "Core/Values/private/ZelSpareNumbers.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace {
constexpr double g_noNumber = std::numeric_limits<double>::quiet_NaN();
}

double ZelNumberChange::number(double own, qsizetype index, qsizetype count) const
{
    return m_calculation ? m_calculation->function(own, index, count) : g_noNumber;
}

ZelNumberChange::Numbers ZelNumberChange::numbers(const Numbers &own) const
{
    const size_t count = own->size();
    if (!m_calculation)
        return std::make_shared<const std::vector<double>>(count, g_noNumber);
    const auto isSame = [](double a, double b) { return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b); };
    const Numbers &known = m_calculation->own;
    if (known != own && (!known || !std::equal(known->begin(), known->end(), own->begin(), own->end(), isSame))) {
        const auto changed = ZelSpareNumbers::make(count);
        for (size_t i = 0; i < count; ++i)
            (*changed)[i] = m_calculation->function((*own)[i], qsizetype(i), qsizetype(count));
        m_calculation->own = own;
        m_calculation->changed = changed;
    }
    return m_calculation->changed;
}

QVariant ZelNumberChange::value(const QVariant &own, qsizetype index, qsizetype count) const
{
    QVariant value;
    if (m_exact && ZelExactInteger::isInteger(own)) {
        value = (*m_exact)(own);
        (void)ZelValueConversion::convert(value, own.metaType());
    } else if (const double changed = number(ownNumber(own), index, count); std::isfinite(changed)) {
        if (!ZelExactInteger::isWide(own.metaType()) || !ZelExactInteger::isInexact(changed))
            value = changed;
    }
    return value;
}

bool ZelNumberChange::isInexact(const QVariant &own, qsizetype index, qsizetype count) const
{
    return ZelExactInteger::isWide(own.metaType()) && !value(own, index, count).isValid() &&
           std::isfinite(number(own.toDouble(), index, count));
}

const ZelNumberChange *ZelNumberChange::of(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<ZelNumberChange>()
               ? static_cast<const ZelNumberChange *>(value.constData())
               : nullptr;
}

QVariant ZelNumberChange::stepped(const QVariant &value, const std::function<double(double)> &step, double fallback,
                                  const ExactFunction &exact)
{
    const auto next = [step, fallback](double own) { return step(std::isfinite(own) ? own : fallback); };
    if (ZelIsMarker(value, ZelMultipleValuesMarker) || of(value)) {
        ZelNumberChange change([next](double own, qsizetype, qsizetype) { return next(own); });
        if (exact)
            change.setExactFunction(exact);
        return QVariant::fromValue(change);
    }
    if (exact && ZelExactInteger::isInteger(value))
        return exact(value);
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
