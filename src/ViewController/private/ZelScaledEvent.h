// SPDX-License-Identifier: MIT
#pragma once

#include <QTransform>

#include <functional>

class QEvent;

/// Events with a position, for views whose coordinates differ from their widgets' coordinates.
namespace ZelScaledEvent {

using Receiver = std::function<bool(QEvent *)>;

/// Passes a copy of the event at the mapped position to the receiver. The event then takes over whether the copy was
/// accepted, and for drops the action. Touches and gestures, which have many positions, are passed on unchanged.
bool deliver(QEvent *event, const QTransform &toView, const Receiver &receiver);

} // namespace ZelScaledEvent
