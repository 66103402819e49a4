// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Inspector/private/ZelSearchIndex.h"
#include "Observation/ZelDelayedInvocation.h"

#include <memory>

class ZelExpandableView;
class ZelInspectorConditionalContainer;
class ZelLabel;
class ZelScrollView;
class ZelSearchBar;
class ZelTabbedInspector;

/// The find field of a tabbed inspector, and what it does to the rows.
///
/// While there is a text in the field, every container in which nothing is found is filtered out where it stands: no
/// view is moved, made anew or loaded for it. What else is changed for the time of the search - folded inspectors are
/// unfolded, another tab is selected, panes are scrolled - is put back when the text is gone. The index of the texts
/// exists from the moment the field gets the focus until the search is over.
///
/// Whatever shows or hides a view, or commits an edit, may call the application, which may end the inspector: all that
/// is gone on with afterwards is checked.
class ZelInspectorSearch : public ZelGuarded<QObject>
{
public:
    /// The inspector is the parent; its view is being loaded.
    explicit ZelInspectorSearch(ZelTabbedInspector *inspector);

    /// Made without a parent, for the inspector to put it into its view.
    ZelSearchBar *bar() const;
    /// How many rows are shown because they were found; 0 while there is no search.
    int foundCount() const { return m_foundCount; }

    /// Shows the inspector's text in the field, and what it finds in the panes.
    void update();
    void scheduleUpdate() { m_update.schedule(); }
    /// Gives everything back, but leaves the text in the field: the inspector leaves its window.
    void suspend();
    /// Goes to the field.
    void focusField();

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;

private:
    using Node = ZelSearchIndex::Node;
    using Finding = ZelSearchIndex::Finding;
    using ScrollPositions = std::vector<std::pair<QPointer<ZelInspectorPane>, int>>;
    /// What a filter does to a container.
    struct Filter
    {
        bool leavesOut = false;
        bool leavesOutRow = false; ///< the row of a chooser with its pop-up
    };

    void leave();
    void focusFirstFound();
    void noteFocus(QWidget *widget);
    void focusDidChange(QWidget *former, QWidget *present);
    void makeIndex();
    void forgetIndex();
    void contentDidChange();

    void updateNow();
    void begin();
    void filter(const QStringList &words);
    void apply(const std::vector<Filter> &filters);
    void giveBack();
    void unfold(const Node &node);
    void settle(const std::vector<QPointer<ZelInspectorConditionalContainer>> &changed) const;
    static void scrollTo(const ScrollPositions &positions);

    void markParts(const std::vector<Finding> &findings, const QStringList &words);
    void mark(std::vector<QPointer<ZelLabel>> labels, const QStringList &words);
    void showOutcome(const std::vector<Finding> &findings);
    void showNotes(const std::vector<QStringList> &notes);
    void setTabCounts(const std::vector<int> &counts);
    void selectPane(const std::vector<int> &found, const std::vector<QStringList> &notes);
    void selectPane(qsizetype index);

    ZelTabbedInspector *m_inspector;
    QPointer<ZelSearchBar> m_bar;
    std::shared_ptr<const ZelSearchIndex> m_index;
    std::unique_ptr<QObject> m_watch; // the context of what is connected to the containers in the index
    ZelDelayedInvocation m_update{[this] { update(); }};
    QStringList m_words;
    std::vector<QPointer<ZelLabel>> m_marked;
    int m_foundCount = 0;
    bool m_isOn = false;
    bool m_isOutdated = false; // the index
    bool m_isUpdating = false;
    bool m_isDue = false;

    // What is put back
    std::vector<QPointer<QWidget>> m_formerFocus; // what had it, and the controls around that
    QPointer<ZelInspectorPane> m_formerPane;
    std::vector<QPointer<ZelExpandableView>> m_unfolded;
    ScrollPositions m_scrollPositions;
};
