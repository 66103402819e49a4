// SPDX-License-Identifier: MIT
#include "Controls/private/ZelFieldSteps.h"

#include <QKeyEvent>
#include <limits>

ZelFieldSteps::ZelFieldSteps()
{
    range.maximum = std::numeric_limits<double>::max();
    range.minimum = -range.maximum;
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
