// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"
#include "window/Options.h"
#include "window/ShapesApplication.h"

#include <cstdlib>

/// Ends when the window was painted for the first time.
int main(int argc, char *argv[])
{
    ShapesApplication application(argc, argv);
    MainWindow window(Options::parse(application));
    window.show();
    QCoreApplication::processEvents();
    std::_Exit(window.isVisible() ? EXIT_SUCCESS : EXIT_FAILURE);
}
