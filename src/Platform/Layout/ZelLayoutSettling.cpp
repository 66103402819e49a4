// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelLayoutSettling.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

void ZelLayoutSettling::settle(const QWidget *widget)
{
    // A widget that is laid out announces its own change to the next; what is posted meanwhile finds nothing to do.
    QPointer<QWidget> around = widget->parentWidget();
    while (around) {
        QEvent request(QEvent::LayoutRequest);
        QCoreApplication::sendEvent(around, &request);
        if (around)
            around = around->isWindow() ? nullptr : around->parentWidget();
    }
}
