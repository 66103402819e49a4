// SPDX-License-Identifier: MIT
#pragma once

#include "SplitView/ZelSplitView.h"

class QSettings;

/// The list, the canvas and the inspector, side by side. The canvas gets what the window grows by, and gives what it
/// shrinks by as long as it has room; the other two have the width that the user gave them, in a window that is too
/// small for it less, and can be collapsed.
class Panes : public ZelSplitView
{
    Q_OBJECT
public:
    enum Pane { List, Canvas, Inspector, Count };

    /// Takes the widgets over.
    Panes(QWidget *list, QWidget *canvas, QWidget *inspector);

    /// The width in pixels that the user gave the pane, which may be collapsed or have less just now.
    int paneWidth(Pane pane) const { return m_widths[pane]; }
    /// Opens the pane. A width beyond the pane's limits moves the limit.
    void setPaneWidth(Pane pane, int width);
    bool isCollapsed(Pane pane) const;
    void setCollapsed(Pane pane, bool collapsed);

    void save(QSettings &settings) const;
    void restore(const QSettings &settings);

Q_SIGNALS:
    /// However the pane was collapsed or opened; a turn of the event loop later.
    void collapsedChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Delegate;
    void resizeHiddenPanes();
    void paneMoved();
    void noteWidths(bool isOpened);

    Delegate *m_delegate;
    int m_widths[Count];
    int m_seenWidths[Count] = {};
    int m_seenWidth = 0;
    bool m_collapsed[Count] = {};
    bool m_hasMoved = false;
};
