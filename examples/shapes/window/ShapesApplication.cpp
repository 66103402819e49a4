// SPDX-License-Identifier: MIT
#include "window/ShapesApplication.h"

#include <QMessageBox>
#include <cstdio>
#include <exception>

namespace {
/// Must be asked for before the application is made: it reads the platform once.
void chooseOffscreenWithoutDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

int &prepared(int &argc)
{
    chooseOffscreenWithoutDisplay();
    return argc;
}
} // namespace

ShapesApplication::ShapesApplication(int &argc, char **argv)
    : QApplication(prepared(argc), argv)
{
    setApplicationName(QStringLiteral("Shapes"));
    setStyle(QStringLiteral("Fusion"));
}

bool ShapesApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &exception) {
        report(QString::fromUtf8(exception.what()));
        return false;
    }
}

void ShapesApplication::report(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    static bool shown = false;
    if (isHeadless() || shown)
        return;
    // The event that failed may be one of painting, in which no other window can be opened.
    shown = true;
    QMetaObject::invokeMethod(
        qApp,
        [message] {
            QMessageBox::warning(activeWindow(), applicationName(), message);
            shown = false;
        },
        Qt::QueuedConnection);
}
