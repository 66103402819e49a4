// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/private/ZelFirstException.h"

#include <QWidget>

class ZelView;

/// Walks once down a subtree that has entered or is leaving a window, and installs or uninstalls its views.
///
/// Whether there is a window is determined once, at the top. A view that is in the wanted state already is skipped with
/// everything below it: below an installed view every fully constructed view is installed, and below one that is not
/// none is. Hooks may add, move and delete any view during the walk. The first exception that a hook throws is kept
/// until the walk is done.
class ZelViewInstaller
{
public:
    explicit ZelViewInstaller(bool installing)
        : m_installing(installing)
    {
    }

    void visit(QWidget *widget);
    const ZelFirstException &errors() const { return m_errors; }

    /// Whether the widget's top-level widget counts as a window.
    static bool hasWindow(const QWidget *widget);
    /// Installs or uninstalls the views from the widget down, depending on hasWindow.
    static void windowMayHaveChanged(QWidget *widget);
    /// Uninstalls the views from the widget down before the widget is taken out.
    static void willLoseWindow(QWidget *widget);
    /// Installs the views below the view if it is installed.
    static void installSubviews(ZelView *view);

private:
    static void watchAncestors(const QWidget *widget);
    template<typename Visit> void walk(Visit visit);
    void runHooks(ZelView *view);
    void visitChildren(QWidget *parent);
    bool appliesTo(const QWidget *widget) const;

    bool m_installing;
    bool m_updatesConstraints = true; // whether the end of the walk runs the scheduled constraint updates
    ZelFirstException m_errors;
};
