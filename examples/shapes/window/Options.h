// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

class QCoreApplication;

/// What the command line asks for.
struct Options
{
    QString screenshot;      ///< the file for a picture of the window; the program exits then
    QList<int> selectedRows; ///< rows from the bottom, from 0
    bool selectsAll = false;
    int tab = -1;        ///< of the inspector; negative for the one it had last
    int shapeCount = -1; ///< negative for the picture
    QString description; ///< the folder of the inspector's description; empty for the built-in one
    QString language = QStringLiteral("en");
    bool dark = false;
    int inspectorWidth = -1; ///< pixels; 0 to collapse it, negative for the one it had last
    int zoom = 0;            ///< percent; 0 to fit the page into the window
    QString settings;        ///< the file that keeps how the window is divided; empty to keep nothing

    /// Reads the arguments of the application; ends the program with a message where they make no sense.
    static Options parse(const QCoreApplication &application);
};
