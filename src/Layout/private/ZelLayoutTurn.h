// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <array>
#include <vector>

/// The layout work of one turn of the event loop. It is put off until all who need some have asked, and is then done
/// for all of them. A posted layout request for each would cost more than the work, because Qt searches the whole queue
/// for an equal one, and showing thousands of widgets fills the queue.
class ZelLayoutTurn : public ZelGuarded<QObject>
{
public:
    /// What is to be done, in this order.
    enum Phase {
        /// Views update their constraints. This runs ahead of the layout requests that are posted already, which would
        /// lay out with the former constraints.
        Constraints,
        /// Layouts whose children announced a change while being shown are checked, once all children are visible.
        ShownChildren
    };
    using Work = void (*)(QObject *object);

    static ZelLayoutTurn &instance();

    /// Has the work done for the object, unless the object dies before. Requests are not compared: the caller sees to
    /// it that it asks once.
    void add(Phase phase, QObject *object, Work work);
    /// Does the work of a phase now, and the work that is added meanwhile. After eight rounds the rest is left for the
    /// next turn. Does nothing when called by work of the same phase. The first exception is thrown on when all is
    /// done.
    void perform(Phase phase);

    /// Lays the widgets around a widget out at once, from the inner ones to the window, after the widget has announced
    /// another size hint with updateGeometry(). Qt would take a turn for each of them, and paint the states in between.
    /// It is meant for what grows under a user's hands; many changes at a time are better left to the event loop, which
    /// takes them together.
    static void settle(const QWidget *widget);
    /// The same for several widgets, which are laid out themselves, too. What is around more than one of them is laid
    /// out once.
    static void settle(const QList<QWidget *> &widgets);

protected:
    bool handleEvent(QEvent *event) override;

private:
    struct Entry
    {
        QPointer<QObject> object;
        Work work;
    };
    struct Queue
    {
        std::vector<Entry> entries;
        bool isPosted = false;
        bool isPerformed = false;
    };
    std::array<Queue, 2> m_queues; // by phase
};
