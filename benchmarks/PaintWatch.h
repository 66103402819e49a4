// SPDX-License-Identifier: MIT
#pragma once

#include "Bench.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QWidget>

/// Sees whether anything in a widget has been painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(const QWidget *watched)
        : m_watched(watched)
    {
        qApp->installEventFilter(this);
    }

    /// Processes events until then.
    void waitForPaint()
    {
        m_painted = false;
        for (const QDeadlineTimer deadline(10'000); !m_painted;) {
            QApplication::processEvents();
            Bench::expect(!deadline.hasExpired(), "the inspector is not painted");
        }
    }

    /// Processes the events of some time, so that nothing is left over.
    static void settle()
    {
        for (const QDeadlineTimer deadline(200); !deadline.hasExpired();)
            QApplication::processEvents();
        Bench::deleteWhatIsDue();
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && object->isWidgetType()) {
            const auto *widget = static_cast<const QWidget *>(object);
            m_painted = m_painted || widget == m_watched || m_watched->isAncestorOf(widget);
        }
        return false;
    }

private:
    const QWidget *m_watched;
    bool m_painted = false;
};
