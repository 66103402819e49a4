// SPDX-License-Identifier: MIT
#pragma once

#include <QTransform>

#include <functional>

class QEvent;

/// An event at a position, as a view sees it whose coordinates differ from its widget's.
namespace ZelScaledEvent {

using Receiver = std::function<bool(QEvent *)>;

/// Hands the receiver a copy of the event at the mapped position, and takes over whether the copy was accepted, and for
/// drops with which action. Touches and gestures, which have many positions, are handed on as they are.
bool deliver(QEvent *event, const QTransform &toView, const Receiver &receiver);

} // namespace ZelScaledEvent
