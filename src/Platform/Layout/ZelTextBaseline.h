// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// The distance of the first text baseline of a widget from its top, for a widget of that height, in points.
///
/// A ZelBaselineProvider is asked first; then come the metrics of Qt's own controls; then the first visible child,
/// offset by its place; the bottom otherwise.
double ZelTextBaseline(const QWidget *widget, double height);
