// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

/// The application, in the same style on every platform, and without a screen where there is none.
class ShapesApplication : public QApplication
{
    Q_OBJECT
public:
    ShapesApplication(int &argc, char **argv);

    /// On the standard error stream, and in a message box where there is a screen.
    static void report(const QString &message);
    /// Whether nobody can see the windows.
    static bool isHeadless() { return platformName() == u"offscreen" || platformName() == u"minimal"; }
};
