// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorConditionalContainer.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Views/ZelVerticalStackView.h"

class ZelRowBlocks;

/// Rows and choosers one below the other, under the title as a heading.
///
/// A change of the title or of the list shows at the end of the turn, or before if the window is painted before.
///
/// In a panel of more than about three screens, the views of rows in a ZelScrollView are made when they come into
/// sight, or when somebody asks their controllers for them; spaces stand in for the others. Rows that are far out of
/// sight give their views back when there are more than 500, unless they hold the focus or an edit. While assistive
/// technology is in use, all rows have views.
class ZEL_EXPORT ZelInspectorSection : public ZelInspectorConditionalContainer
{
    Q_OBJECT
    /// Objects of ZelInspectorSliver and ZelInspectorChooser, in any order.
    Q_PROPERTY(QList<ZelInspectorConditionalContainer *> sliversAndChoosers READ sliversAndChoosers WRITE
                   setSliversAndChoosers NOTIFY sliversAndChoosersChanged)
    // The heading. The section sets these; so may a subclass that makes it differently.
    Q_PROPERTY(ZelVerticalStackView *labelContainerView READ labelContainerView MEMBER m_labelContainerView NOTIFY
                   labelContainerViewChanged)
    Q_PROPERTY(ZelLabel *label READ label MEMBER m_label NOTIFY labelChanged)
public:
    explicit ZelInspectorSection(QObject *owner);
    ~ZelInspectorSection() override;

    QList<ZelInspectorConditionalContainer *> sliversAndChoosers() const { return m_sliversAndChoosers.list(); }
    void setSliversAndChoosers(const QList<ZelInspectorConditionalContainer *> &sliversAndChoosers);

    /// The heading with its label; null while there is none.
    ZelVerticalStackView *labelContainerView() const;
    ZelLabel *label() const;

    // Rows that will come when they are seen have nothing to commit or to put away before.
    void prepareForReuse() override;
    bool commitEditing() override;

    void loadView() override;
    void viewWillUnload() override;
    /// Fills the view anew.
    void updateView();

Q_SIGNALS:
    void sliversAndChoosersChanged();
    void labelContainerViewChanged();
    void labelChanged();

protected:
    /// The tool tip belongs to the heading, the help text to everything in the section.
    void showHelp() override;
    void titleDidChange() override;

    QList<QPointer<ZelViewController>> childControllers() const override { return m_sliversAndChoosers.pointers(); }

private:
    void updateHeading();
    void makeHeading();
    void removeHeading();
    void scheduleUpdateView();
    QList<QWidget *> viewsOfRows();
    bool isAnyRowLoaded() const;
    bool isWorthDividing() const;

    ZelChildControllers<ZelInspectorConditionalContainer> m_sliversAndChoosers;
    QPointer<ZelVerticalStackView> m_labelContainerView;
    QPointer<ZelLabel> m_label;
    std::unique_ptr<ZelRowBlocks> m_blocks;                       // in a panel of very many rows
    std::unique_ptr<ZelDelayedInvocation> m_updateViewInvocation; // made when it is first scheduled
};
