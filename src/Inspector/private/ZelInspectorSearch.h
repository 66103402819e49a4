// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Inspector/private/ZelSearchFocus.h"
#include "Inspector/private/ZelSearchMarks.h"
#include "Observation/ZelDelayedInvocation.h"

#include <limits>
#include <memory>

class ZelExpandableView;
class ZelInspectorConditionalContainer;
class ZelScrollView;
class ZelSearchBar;
class ZelTabbedInspector;

/// The find field of a tabbed inspector, and what it does to the rows.
///
/// While there is a text in the field, every container in which nothing is found is filtered out where it stands: no
/// view is moved, made anew or loaded for it. A key press filters what is in sight, and the rest right afterwards. What
/// else is changed for the time of the search - folded inspectors are unfolded, another tab is selected, panes are
/// scrolled - is put back when the text is gone. The index of the texts exists from the moment the field gets the focus
/// until the search is over.
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
    using Containers = std::vector<QPointer<ZelInspectorConditionalContainer>>;
    /// The nodes of a pane, or of all for a negative one, up to an index.
    struct Part
    {
        int pane = -1;
        size_t end = std::numeric_limits<size_t>::max();
        bool has(const Node &node, size_t index) const;
    };
    /// What a filter does to a container.
    struct Filter
    {
        bool leavesOut = false;
        bool leavesOutRow = false; ///< the row of a chooser with its pop-up
    };

    void leave();
    void focusFirstFound();
    void focusDidChange(QWidget *former, QWidget *present);
    void makeIndex();
    void forgetIndex();
    void contentDidChange();

    void updateNow();
    void begin();
    void filter(const QStringList &words);
    void filterRest();
    void finish(const Containers &changed, const Part &part);
    void giveBack();
    Part partInSight(qsizetype pane) const;
    std::vector<Filter> filters() const;
    Containers apply(const std::vector<Filter> &filters, const Part &part);
    void unfold(const Node &node);
    void settle(const Containers &changed) const;
    static void scrollTo(const ScrollPositions &positions);

    void rowsDidCome();
    void markParts(const Part &part);
    qsizetype showOutcome();
    void showNotes(const QStringList &notes);
    void setTabCounts(const std::vector<int> &counts);
    void selectPane(qsizetype index);

    ZelTabbedInspector *m_inspector;
    QPointer<ZelSearchBar> m_bar;
    QPointer<QWidget> m_field; // of the bar; known as such until its very end, when it loses the focus
    std::shared_ptr<const ZelSearchIndex> m_index;
    std::unique_ptr<QObject> m_watch; // the context of what is connected to the containers in the index
    ZelDelayedInvocation m_update{[this] { update(); }};
    ZelDelayedInvocation m_filterRest{[this] { filterRest(); }};
    ZelDelayedInvocation m_mark{[this] { markParts({}); }};
    QStringList m_words;
    std::vector<Finding> m_findings; // for each node of the index, while there is a search
    ZelSearchMarks m_marks;
    int m_foundCount = 0;
    bool m_isOn = false;
    bool m_isOutdated = false; // the index
    bool m_isUpdating = false;
    bool m_isDue = false;

    // What is put back
    ZelSearchFocus m_formerFocus;
    QPointer<ZelInspectorPane> m_formerPane;
    std::vector<QPointer<ZelExpandableView>> m_unfolded;
    ScrollPositions m_scrollPositions;
};
