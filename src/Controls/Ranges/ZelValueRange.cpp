// SPDX-License-Identifier: MIT
#include "Controls/Ranges/ZelValueRange.h"

#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelExactInteger.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace {

double bounded(double value)
{
    constexpr double largest = std::numeric_limits<double>::max();
    return std::isnan(value) ? 0 : std::max(-largest, std::min(value, largest));
}

/// Whether it is a whole number of fewer digits than a double holds.
bool isWhole(double value)
{
    return std::abs(value) < 1e15 && value == double(qint64(value));
}

/// Sums of decimal fractions have noise in their last binary digits, which 15 decimal digits do not show. Numbers that
/// need all their digits are left alone, and so are whole numbers, which have no noise.
double withoutNoise(double value)
{
    if (std::abs(value) >= 1e15 || isWhole(value))
        return value;
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 14);
    std::from_chars(text, written.ptr, value);
    return value;
}

} // namespace

bool ZelValueRange::isEmpty() const
{
    return !(bounded(minimum) < bounded(maximum)) || std::isnan(minimum) || std::isnan(maximum);
}

double ZelValueRange::clamp(double value) const
{
    const double low = bounded(minimum);
    return isEmpty() || std::isnan(value) ? low : std::max(low, std::min(value, bounded(maximum)));
}

double ZelValueRange::fractionOf(double value) const
{
    if (isEmpty())
        return 0;
    // Everything is halved, because the distance between the limits may exceed the largest double.
    const double low = bounded(minimum) / 2;
    return std::clamp((clamp(value) / 2 - low) / (bounded(maximum) / 2 - low), 0.0, 1.0);
}

double ZelValueRange::valueAt(double fraction) const
{
    return isEmpty() ? clamp(0) : clamp(std::lerp(bounded(minimum), bounded(maximum), std::clamp(fraction, 0.0, 1.0)));
}

double ZelValueRange::stepped(double value, double increment) const
{
    const double sum = value + increment;
    if (minimum < sum && sum < maximum && isWhole(sum))
        return sum; // quickly, since many objects may be stepped
    return clamp(std::isfinite(sum) ? withoutNoise(sum) : sum);
}

double ZelValueRange::wrapped(double value) const
{
    const double length = bounded(maximum) - bounded(minimum);
    if (isEmpty() || !std::isfinite(length) || !std::isfinite(value) || clamp(value) == value)
        return value;
    const double rest = std::fmod(value - minimum, length);
    return clamp(withoutNoise(minimum + (rest < 0 ? rest + length : rest)));
}

QVariant ZelValueRange::steppedValue(const QVariant &value, double increment, double fallback, bool wraps) const
{
    const auto next = [range = *this, increment, wraps](double own) {
        const double number = range.stepped(own, increment);
        return wraps && !range.isEmpty() && number == own ? range.valueAt(increment > 0 ? 0 : 1) : number;
    };
    return ZelNumberChange::stepped(value, next, fallback, wraps ? nullptr : integerStep(increment));
}

std::function<QVariant(const QVariant &)> ZelValueRange::integerStep(double increment) const
{
    if (increment != std::trunc(increment) || ZelExactInteger::isInexact(increment) || std::abs(increment) > 1e18)
        return {};
    return [range = *this, addend = qlonglong(increment)](const QVariant &integer) {
        const QVariant sum = ZelExactInteger::sum(integer, addend);
        const double number = sum.toDouble();
        return number == range.clamp(number) ? sum : QVariant(range.clamp(number));
    };
}

double ZelValueRange::nearestStep(double value, double increment) const
{
    const double size = std::abs(increment);
    const double steps = std::round((value - bounded(minimum)) / size);
    if (isEmpty() || !(size > 0) || !std::isfinite(size) || !std::isfinite(steps))
        return value;
    const double step = stepped(bounded(minimum), steps * size);
    const double end = bounded(maximum);
    return std::abs(end - value) < std::abs(step - value) ? end : step;
}

double ZelValueRange::number(const QVariant &value, double fallback)
{
    if (!value.isValid() || ZelIsControllerMarker(value))
        return fallback;
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok && std::isfinite(number) ? number : fallback;
}
