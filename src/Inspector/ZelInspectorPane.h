// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelInspector.h"
#include "Inspector/ZelStackUpdate.h"
#include "Views/ZelScrollView.h"

#include <QIcon>

/// A scrolling column of inspectors: what one tab shows.
///
/// The inspectors' views are in the column only while the pane is installed. The view of an inspector that has never
/// been visible is not made.
class ZelInspectorPane : public ZelInspectorContainer
{
    Q_OBJECT
    Q_PROPERTY(QIcon image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(QList<ZelInspector *> inspectors READ inspectors WRITE setInspectors NOTIFY inspectorsChanged)
    // What the pane is made of. Its own: set by a subclass that makes its view otherwise.
    Q_PROPERTY(ZelScrollView *scrollView READ scrollView MEMBER m_scrollView NOTIFY scrollViewChanged)
    Q_PROPERTY(
        ZelVerticalStackView *containerView READ containerView MEMBER m_containerView NOTIFY containerViewChanged)
public:
    explicit ZelInspectorPane(QObject *owner);
    ~ZelInspectorPane() override;

    /// Shown on the tab; none by default.
    const QIcon &image() const { return m_image; }
    void setImage(const QIcon &image);
    QList<ZelInspector *> inspectors() const { return m_inspectors.list(); }
    void setInspectors(const QList<ZelInspector *> &inspectors);

    // Null while the view is not loaded.
    ZelScrollView *scrollView() const;
    ZelVerticalStackView *containerView() const;

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    /// Deactivates the inspectors, and stacks the views of those that are visible or have been.
    void updateView();
    /// Has all inspectors take what is being entered, and prepares them for reuse if none of them refuses.
    void deactivateInspectors();
    /// Has the column follow whether the inspector is visible, until the next call stops it.
    void startObservationForInspector(ZelInspector *inspector);
    void stopObservationOfInspector(ZelInspector *inspector);

Q_SIGNALS:
    void imageChanged();
    void inspectorsChanged();
    void scrollViewChanged();
    void containerViewChanged();

protected:
    QList<QPointer<ZelViewController>> childControllers() const override { return m_inspectors.pointers(); }

private:
    void inspectorVisibleDidChange() { m_stackUpdate.request(); }

    ZelChildControllers<ZelInspector> m_inspectors;
    ZelStackUpdate m_stackUpdate{[this] { updateView(); }};
    QIcon m_image;
    QPointer<ZelScrollView> m_scrollView;
    QPointer<ZelVerticalStackView> m_containerView;
};
