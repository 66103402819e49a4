// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelInspectorSlice.h"
#include "Inspector/ZelStackUpdate.h"

class ZelExpandableView;

/// A box with a title that can be folded away, holding slices one below the other.
///
/// The view of a slice that has never been visible is not made.
class ZelInspector : public ZelInspectorConditionalContainer
{
    Q_OBJECT
    Q_PROPERTY(QList<ZelInspectorSlice *> slices READ slices WRITE setSlices NOTIFY slicesChanged)
    /// The inspector's own: set by a subclass that makes its view otherwise.
    Q_PROPERTY(ZelVerticalStackView *slicesView READ slicesView MEMBER m_slicesView NOTIFY slicesViewChanged)
public:
    /// The title is the localized "No title" until it is set.
    explicit ZelInspector(QObject *owner);
    ~ZelInspector() override;

    QList<ZelInspectorSlice *> slices() const { return m_slices.list(); }
    void setSlices(const QList<ZelInspectorSlice *> &slices);

    /// The body of the box; null while the view is not loaded.
    ZelVerticalStackView *slicesView() const;

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    /// Stacks the views of the slices that are visible or have been.
    void updateView();
    /// Has the box follow whether the slice is visible, until the next call stops it.
    void startObservationForSlice(ZelInspectorSlice *slice);
    void stopObservationOfSlice(ZelInspectorSlice *slice);

Q_SIGNALS:
    void slicesChanged();
    void slicesViewChanged();

protected:
    QList<QPointer<ZelViewController>> childControllers() const override { return m_slices.pointers(); }

private:
    void sliceVisibleDidChange() { m_stackUpdate.request(); }

    ZelChildControllers<ZelInspectorSlice> m_slices;
    ZelStackUpdate m_stackUpdate{[this] { updateView(); }};
    QPointer<ZelExpandableView> m_box;
    QPointer<ZelVerticalStackView> m_slicesView;
};
