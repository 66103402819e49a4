// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

/// Reports exceptions that come out of event handlers, and goes on.
class ShapesApplication : public QApplication
{
    Q_OBJECT
public:
    ShapesApplication(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;
    /// On the standard error stream, and in a message box where there is a screen.
    static void report(const QString &message);
    /// Whether nobody can see the windows.
    static bool isHeadless() { return platformName() == u"offscreen" || platformName() == u"minimal"; }
};
