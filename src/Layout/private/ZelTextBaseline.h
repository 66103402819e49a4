// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// Answers the distance of the first text baseline of a widget from its top when it has that height, in points.
///
/// A ZelBaselineProvider is asked. For Qt's own controls the style's metrics count. For another widget it is the
/// baseline of its first child that is not hidden, where that child goes; without one it is the bottom.
double ZelTextBaseline(const QWidget *widget, double height);
