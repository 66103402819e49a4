// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelFirstException.h"

#include <QWidget>

class ZelView;

/// One walk down a subtree that has entered or is leaving a window.
///
/// Whether there is a window is found out once, at the top. A view that is in the wanted state already is passed over
/// with all that is below it: an installed view never holds a fully made view that is not, nor the other way round.
/// Hooks may add, move and delete any view meanwhile. The first exception that a hook throws is kept until the walk is
/// done.
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
    /// Installs or uninstalls the views from the widget down, as hasWindow tells.
    static void windowMayHaveChanged(QWidget *widget);
    /// Uninstalls them ahead of a removal.
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
    bool m_updatesConstraints = true; // at the end of the walk
    ZelFirstException m_errors;
};
