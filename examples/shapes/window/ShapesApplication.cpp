// SPDX-License-Identifier: MIT
#include "window/ShapesApplication.h"

#include <QMessageBox>
#include <cstdio>

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

void ShapesApplication::report(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    static bool shown = false;
    if (isHeadless() || shown)
        return;
    // Later, since the caller may be painting, when no other window can be opened.
    shown = true;
    QMetaObject::invokeMethod(
        qApp,
        [message] {
            QMessageBox::warning(activeWindow(), applicationName(), message);
            shown = false;
        },
        Qt::QueuedConnection);
}
