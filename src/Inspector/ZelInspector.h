// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorSlice.h"
#include "Inspector/ZelStackUpdate.h"

class ZelExpandableView;

/// A box with a title that can be folded away, holding slices one below the other.
///
/// The view of a slice that has never been visible is not made.
class ZEL_EXPORT ZelInspector : public ZelInspectorConditionalContainer
{
    Q_OBJECT
    Q_CLASSINFO("ZelState", "expanded")
    Q_PROPERTY(QList<ZelInspectorSlice *> slices READ slices WRITE setSlices NOTIFY slicesChanged)
    /// Whether the box is unfolded; true by default.
    Q_PROPERTY(bool expanded READ isExpanded WRITE setExpanded NOTIFY expandedChanged)
    /// The inspector sets it; so may a subclass that makes its view differently.
    Q_PROPERTY(ZelVerticalStackView *slicesView READ slicesView MEMBER m_slicesView NOTIFY slicesViewChanged)
public:
    /// The title is the localized "No title" until it is set.
    explicit ZelInspector(QObject *owner);
    ~ZelInspector() override;

    QList<ZelInspectorSlice *> slices() const { return m_slices.list(); }
    void setSlices(const QList<ZelInspectorSlice *> &slices);

    bool isExpanded() const { return m_expanded; }
    void setExpanded(bool expanded);

    /// The body of the box; null while the view is not loaded.
    ZelVerticalStackView *slicesView() const;

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    /// Puts the views of those slices into the stack that are visible or have been visible.
    void updateView();
    /// Updates the stack whenever the slice is shown or hidden, until stopObservationOfSlice is called.
    void startObservationForSlice(ZelInspectorSlice *slice);
    void stopObservationOfSlice(ZelInspectorSlice *slice);

Q_SIGNALS:
    void slicesChanged();
    void slicesViewChanged();
    void expandedChanged();
    /// The user wants this box, and all those beside it, to be unfolded or folded.
    void expandedForAll(bool expanded);

protected:
    /// The tool tip belongs to the header, the help text to everything in the inspector.
    void showHelp() override;
    void titleDidChange() override;

    QList<QPointer<ZelViewController>> childControllers() const override { return m_slices.pointers(); }

private:
    void sliceVisibleDidChange() { m_stackUpdate.request(); }

    ZelChildControllers<ZelInspectorSlice> m_slices;
    ZelStackUpdate m_stackUpdate{[this] { updateView(); }};
    QPointer<ZelExpandableView> m_box;
    QPointer<ZelVerticalStackView> m_slicesView;
    bool m_expanded = true;
};
