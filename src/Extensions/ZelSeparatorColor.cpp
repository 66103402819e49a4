// SPDX-License-Identifier: MIT
#include "Extensions/ZelSeparatorColor.h"

#include "Core/Errors/ZelAssertions.h"

QColor ZelSeparatorColorForLevel(quint64 level, bool active, const QPalette &palette)
{
    static constexpr double activeStrengths[] = {0.45, 0.3, 0.18};
    static constexpr double inactiveStrengths[] = {0.3, 0.2, 0.12};
    const bool isKnown = ZelCheck(level < std::size(activeStrengths), QStringLiteral("Unexpected case occured"));
    const size_t index = isKnown ? size_t(level) : std::size(activeStrengths) - 1;
    const double strength = (active ? activeStrengths : inactiveStrengths)[index];
    // Opaque, since the line may lie over a pane.
    const QColor line = palette.color(QPalette::WindowText);
    const QColor ground = palette.color(QPalette::Window);
    const auto mix = [&](double a, double b) { return int(a * strength + b * (1 - strength) + 0.5); };
    return QColor(mix(line.red(), ground.red()), mix(line.green(), ground.green()), mix(line.blue(), ground.blue()));
}
