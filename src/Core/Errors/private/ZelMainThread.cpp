// SPDX-License-Identifier: MIT
#include "Core/Errors/private/ZelMainThread.h"

#include "Core/Errors/ZelAssertions.h"

#include <QCoreApplication>
#include <QThread>

void ZelRequireMainThread()
{
#ifndef QT_NO_DEBUG
    const QCoreApplication *application = QCoreApplication::instance();
    ZelCheck(!application || QThread::currentThread() == application->thread(),
             QStringLiteral("Models must be changed on the main thread"));
#endif
}
