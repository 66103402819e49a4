// SPDX-License-Identifier: MIT
#include "Controls/private/ZelFieldSteps.h"

#include "Core/Values/ZelNumberChange.h"

#include <QKeyEvent>
#include <limits>

ZelFieldSteps::ZelFieldSteps()
{
    range.maximum = std::numeric_limits<double>::max();
    range.minimum = -range.maximum;
}

std::function<double(double, double)> ZelFieldSteps::function() const
{
    const auto stepped = [range = range, increment = increment, wraps = wraps](double number, double count) {
        const double change = count * increment;
        return wraps ? range.wrapped(ZelFieldSteps().range.stepped(number, change)) : range.stepped(number, change);
    };
    if (!transformer)
        return stepped;
    return [stepped, transformer = transformer](double number, double count) {
        const double model = ZelValueRange::number(transformer->reverseTransformedValue(number));
        const QVariant shown = transformer->transformedValue(stepped(model, count));
        return ZelFieldSteps().range.stepped(ZelValueRange::number(shown), 0); // without the noise of the transformer
    };
}

QVariant ZelFieldSteps::steppedValue(const QVariant &value, double count) const
{
    return ZelNumberChange::stepped(
        value, [step = function(), count](double number) { return step(number, count); }, 0,
        transformer ? nullptr : range.integerStep(count * increment));
}

double ZelFieldSteps::factorFor(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 10 : 1) * (modifiers & Qt::AltModifier ? 0.1 : 1);
}

double ZelFieldSteps::stepsForKey(const QKeyEvent *event)
{
    static const QHash<int, int> steps = {
        {Qt::Key_Up, 1}, {Qt::Key_Down, -1}, {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}};
    return event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)
               ? 0
               : steps.value(event->key()) * factorFor(event->modifiers());
}
