// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelStackUpdate.h"
#include "Views/ZelScrollView.h"

#include <QIcon>

class ZelInspectorNote;

/// A scrolling column of inspectors: what one tab shows.
///
/// The inspectors' views are in the column only while the pane is installed. The view of an inspector that has never
/// been visible is not made.
class ZEL_EXPORT ZelInspectorPane : public ZelInspectorContainer
{
    Q_OBJECT
    Q_CLASSINFO("ZelState", "scrollPosition")
    Q_PROPERTY(QIcon image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(QList<ZelInspector *> inspectors READ inspectors WRITE setInspectors NOTIFY inspectorsChanged)
    /// A dimmed text of one or more lines below the inspectors; none by default.
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged)
    /// How far the column is scrolled, in pixels.
    Q_PROPERTY(int scrollPosition READ scrollPosition WRITE setScrollPosition NOTIFY scrollPositionChanged)
    // What the pane is made of. The pane sets these; so may a subclass that makes its view differently.
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

    const QString &note() const { return m_note; }
    void setNote(const QString &note);
    int scrollPosition() const { return m_scrollPosition; }
    /// Scrolls now, or when the column is high enough, unless the user scrolls before.
    void setScrollPosition(int position);
    /// Folds all boxes, or unfolds them.
    void setAllExpanded(bool expanded);

    // Null while the view is not loaded.
    ZelScrollView *scrollView() const;
    ZelVerticalStackView *containerView() const;

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    /// Deactivates the inspectors, and puts the views of those into the column that are visible or have been visible.
    /// Does nothing while the view is not installed.
    void updateView();
    /// Commits what is being entered into the inspectors, and prepares all of them for reuse if none refuses.
    void deactivateInspectors();
    /// Updates the column whenever the inspector is shown or hidden, until stopObservationOfInspector is called.
    void startObservationForInspector(ZelInspector *inspector);
    void stopObservationOfInspector(ZelInspector *inspector);

Q_SIGNALS:
    void imageChanged();
    void inspectorsChanged();
    void noteChanged();
    void scrollPositionChanged();
    void scrollViewChanged();
    void containerViewChanged();

protected:
    /// The tool tip is shown by the tab.
    void showHelp() override;

    QList<QPointer<ZelViewController>> childControllers() const override { return m_inspectors.pointers(); }

private:
    void inspectorVisibleDidChange() { m_stackUpdate.request(); }
    void stackInspectors();
    void updateNote();
    void followScrolling();
    void scrollIfDue();
    void didScroll(int position);

    ZelChildControllers<ZelInspector> m_inspectors;
    ZelStackUpdate m_stackUpdate{[this] { updateView(); }};
    QIcon m_image;
    QPointer<ZelScrollView> m_scrollView;
    QPointer<ZelVerticalStackView> m_containerView;
    QString m_note;
    QPointer<ZelInspectorNote> m_noteView; // while the view is installed and there is a note
    int m_scrollPosition = 0;
    bool m_isScrollDue = false; // the position was set, and not reached yet
};
