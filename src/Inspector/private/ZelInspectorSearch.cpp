// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelInspectorSearch.h"

#include "Core/Values/private/ZelAssign.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Inspector/private/ZelFoldedText.h"
#include "Inspector/private/ZelSearchBar.h"
#include "Inspector/private/ZelSearchOutcome.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "Views/private/ZelSight.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSet>

namespace {

constexpr int g_scrollMargin = 8;
constexpr int g_smallestRowHeight = 16; // pixels
constexpr double g_restDelay = 0.02;    // seconds, in which what is in sight is painted
constexpr int g_rounds = 8;             // of updates that cause each other

/// The view in which the container's view stands, or will stand.
QWidget *viewAround(ZelInspectorContainer *container)
{
    if (container->isViewLoaded())
        return container->view()->parentWidget();
    auto *parent = qobject_cast<ZelViewController *>(container->parent());
    return parent && parent->isViewLoaded() ? parent->view() : nullptr;
}

} // namespace

ZelInspectorSearch::ZelInspectorSearch(ZelTabbedInspector *inspector)
    : ZelGuarded(inspector)
    , m_inspector(inspector)
{
    m_filterRest.setDelay(g_restDelay);
    ZelView *view = inspector->view();
    m_bar = new ZelSearchBar;
    QLineEdit *field = m_bar->field();
    m_field = field;
    field->setText(inspector->searchText());
    field->installEventFilter(this);
    view->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, [this](const QString &text) {
        ZelExceptionReporter::run(m_inspector, [&] { m_inspector->setSearchText(text); });
    });
    connect(qApp, &QApplication::focusChanged, this, &ZelInspectorSearch::focusDidChange);
}

ZelSearchBar *ZelInspectorSearch::bar() const
{
    return m_bar;
}

// Keys and the focus

/// The key for finding is taken here and not by a shortcut: the application may have one for the same key in this
/// window, and Qt performs neither of two that are meant by one key.
bool ZelInspectorSearch::filterEvent(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isPress && event->type() != QEvent::ShortcutOverride)
        return false;
    auto *press = static_cast<QKeyEvent *>(event);
    const bool isInField = m_bar && watched == m_bar->field();
    const bool canLeave = m_isOn || (isInField && !m_formerFocus.isEmpty());
    const bool isEscape = canLeave && press->matches(QKeySequence::Cancel);
    if (isEscape || press->matches(QKeySequence::Find)) {
        press->accept();
        if (isPress)
            isEscape ? leave() : focusField();
        return true;
    }
    if (!isPress || !isInField || press->modifiers() & ~Qt::KeypadModifier)
        return false;
    const int key = press->key();
    const bool goesOn = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down;
    if (goesOn)
        focusFirstFound();
    return goesOn;
}

void ZelInspectorSearch::focusField()
{
    if (!m_bar)
        return;
    m_bar->field()->setFocus(Qt::ShortcutFocusReason);
    m_bar->field()->selectAll();
}

void ZelInspectorSearch::focusDidChange(QWidget *former, QWidget *present)
{
    if (!m_field)
        return;
    if (present == m_field) {
        if (former && !m_isOn)
            m_formerFocus.note(former);
        makeIndex();
    } else if (former == m_field && !m_isOn) {
        forgetIndex();
    }
}

/// Ends the search and goes back to where the focus was.
void ZelInspectorSearch::leave()
{
    const QPointer<ZelInspectorSearch> alive(this);
    const ZelSearchFocus formerFocus = m_formerFocus;
    const ScrollPositions positions = m_isOn ? m_scrollPositions : ScrollPositions();
    m_inspector->setSearchText({});
    if (alive)
        formerFocus.restore();
    scrollTo(positions); // a scroll view may have followed the focus
}

/// Goes to the first control that stands in a row that was found.
void ZelInspectorSearch::focusFirstFound()
{
    const ZelInspectorPane *pane = m_inspector->currentInspector();
    if (!m_isOn || !m_index || !m_bar || !pane || !pane->scrollView())
        return;
    QWidget *found = ZelSearchFocus::firstFound(m_bar->field(), *m_index, m_marks);
    if (!found)
        return;
    pane->scrollView()->ensureWidgetVisible(found, 0, g_scrollMargin);
    found->setFocus(Qt::TabFocusReason);
}

// The index

void ZelInspectorSearch::makeIndex()
{
    if (m_index)
        return;
    m_index = std::make_shared<const ZelSearchIndex>(m_inspector->panes());
    m_watch = std::make_unique<QObject>();
    const auto contentDidChange = [this] { this->contentDidChange(); };
    const auto conditionsDidChange = [this] {
        if (m_isOn)
            m_update.schedule();
    };
    m_index->watch(m_watch.get(), conditionsDidChange, contentDidChange);
    connect(m_inspector, &ZelTabbedInspector::panesChanged, m_watch.get(), contentDidChange);
    m_isOutdated = false;
}

void ZelInspectorSearch::forgetIndex()
{
    m_watch.reset();
    m_index.reset();
}

void ZelInspectorSearch::contentDidChange()
{
    m_isOutdated = true;
    if (m_isOn)
        m_update.schedule();
}

// Filtering

void ZelInspectorSearch::update()
{
    m_isDue = true;
    if (m_isUpdating)
        return; // whoever is called by an update may cause another one
    const ZelMemberScope updating(this, m_isUpdating, true);
    for (int round = 0; round < g_rounds && updating.isOwnerAlive() && std::exchange(m_isDue, false); ++round)
        updateNow();
}

void ZelInspectorSearch::updateNow()
{
    const QPointer<ZelInspectorSearch> alive(this);
    if (m_bar && m_bar->field()->text() != m_inspector->searchText())
        m_bar->field()->setText(m_inspector->searchText());
    const bool isShown = m_inspector->isViewInstalled() && m_bar;
    const QStringList words = isShown ? ZelFoldedText::words(m_inspector->searchText()) : QStringList();
    if (words.isEmpty())
        return suspend();
    if (!m_isOn)
        begin();
    if (alive && m_isOutdated && m_index) {
        apply(std::vector<Filter>(m_index->nodes().size()), {}); // what has left the inspector must not stay hidden
        if (alive)
            forgetIndex();
    }
    if (!alive || !m_isOn)
        return;
    makeIndex();
    filter(words);
}

/// Notes what is going to be put back.
void ZelInspectorSearch::begin()
{
    m_isOn = true;
    m_formerPane = m_inspector->currentInspector();
    m_scrollPositions.clear();
    for (ZelInspectorPane *pane : m_inspector->panes()) {
        m_scrollPositions.emplace_back(pane, pane->scrollPosition());
        if (ZelSight *sight = pane->containerView() ? ZelSight::around(pane->containerView()) : nullptr)
            connect(sight, &ZelSight::partsDidCome, this, &ZelInspectorSearch::rowsDidCome, Qt::UniqueConnection);
    }
    m_inspector->setStateHeld(true);
    // A row that is about to hide commits what is typed there. A text that is refused stays in it. To ask the editors
    // without the focus would take as long as to search.
    const QWidget *focus = QApplication::focusWidget();
    if (!focus || !m_inspector->containerView() || !m_inspector->containerView()->isAncestorOf(focus))
        return;
    const ZelPassiveEdits passive;
    m_inspector->commitEditing();
}

void ZelInspectorSearch::filter(const QStringList &words)
{
    const QPointer<ZelInspectorSearch> alive(this);
    const std::shared_ptr<const ZelSearchIndex> index = m_index;
    const bool isOther = ZelAssign(m_words, words);
    m_findings = index->find(words);
    if (isOther) {
        ScrollPositions tops = m_scrollPositions;
        for (auto &[pane, position] : tops)
            position = 0;
        scrollTo(tops);
    }
    const qsizetype pane = showOutcome();
    // The rows of a pane that is not shown yet are hidden at little cost.
    const Part part = isOther ? partInSight(pane) : Part();
    const Containers changed = apply(filters(), part);
    if (!alive || !m_isOn || index != m_index)
        return;
    selectPane(pane);
    if (!alive || !m_isOn || index != m_index)
        return;
    finish(changed, part);
    if (alive && isOther)
        m_filterRest.schedule();
}

/// Filters what was put off, so that the key press is answered on the screen first.
void ZelInspectorSearch::filterRest()
{
    const QPointer<ZelInspectorSearch> alive(this);
    if (!m_isOn || m_isOutdated || m_isUpdating || !m_index)
        return;
    {
        const ZelMemberScope updating(this, m_isUpdating, true);
        const std::shared_ptr<const ZelSearchIndex> index = m_index;
        const Containers changed = apply(filters(), {});
        if (alive && m_isOn && index == m_index)
            finish(changed, {});
    }
    if (alive && m_isDue)
        update();
}

/// Unfolds, lays out and marks what the filter has left in a part of the inspector.
void ZelInspectorSearch::finish(const Containers &changed, const Part &part)
{
    const QPointer<ZelInspectorSearch> alive(this);
    const std::shared_ptr<const ZelSearchIndex> index = m_index;
    for (size_t i = 0; alive && i < index->nodes().size(); ++i) {
        if (part.has(index->nodes()[i], i) && m_findings[i].contains)
            unfold(index->nodes()[i]);
        if (!alive || !m_isOn || index != m_index)
            return;
    }
    settle(changed);
    if (alive && m_isOn && index == m_index)
        markParts(part);
}

bool ZelInspectorSearch::Part::has(const Node &node, size_t index) const
{
    return (pane < 0 || node.pane == pane) && index < end;
}

/// The part of a pane, scrolled to its top, that is seen when the filter is applied.
ZelInspectorSearch::Part ZelInspectorSearch::partInSight(qsizetype pane) const
{
    const int rowCount = m_inspector->containerView()->height() / g_smallestRowHeight + 1;
    int seen = 0;
    for (size_t i = 0; i < m_findings.size(); ++i) {
        if (m_index->nodes()[i].pane != pane || !m_findings[i].matches || m_findings[i].hiddenBy >= 0)
            continue;
        if (++seen > rowCount)
            return {int(pane), i};
    }
    return {int(pane), m_findings.size()};
}

std::vector<ZelInspectorSearch::Filter> ZelInspectorSearch::filters() const
{
    std::vector<Filter> filters(m_findings.size());
    for (size_t i = 0; i < m_findings.size(); ++i) {
        const Finding &finding = m_findings[i];
        const bool isLeftOut = !finding.contains && !finding.matches;
        filters[i] = {m_index->nodes()[i].conditional() && isLeftOut, !finding.matches};
    }
    return filters;
}

/// Sets the filters in a part of the inspector: from the outside to the inside where views are hidden, and the other
/// way round where they are shown, since what is in a hidden view is hidden and shown at little cost. What is in a
/// container that is left out keeps its state. Answers the containers that changed.
ZelInspectorSearch::Containers ZelInspectorSearch::apply(const std::vector<Filter> &filters, const Part &part)
{
    const QPointer<ZelInspectorSearch> alive(this);
    const std::shared_ptr<const ZelSearchIndex> index = m_index;
    std::vector<bool> isWithin(filters.size()); // a container that is left out
    Containers changed;
    const auto set = [&](ZelInspectorConditionalContainer *container, bool isLeftOut, bool isNow) {
        if (!alive || !container || isLeftOut != isNow || container->isFilteredOut() == isNow)
            return;
        if (isNow && !m_isOn)
            return; // the search has ended meanwhile
        changed.emplace_back(container);
        container->setFilteredOut(isNow);
    };
    const auto setNode = [&](size_t i, bool isNow) {
        const Node &node = index->nodes()[i];
        if (isWithin[i] || !node.container || !part.has(node, i))
            return;
        if (node.kind == ZelSearchIndex::Kind::Chooser)
            set(node.row(), filters[i].leavesOutRow, isNow);
        set(node.conditional(), filters[i].leavesOut, isNow);
    };
    for (size_t i = 0; i < filters.size(); ++i) {
        const int parent = index->nodes()[i].parent;
        isWithin[i] = parent >= 0 && (isWithin[size_t(parent)] || filters[size_t(parent)].leavesOut);
        setNode(i, true);
    }
    for (size_t i = filters.size(); i-- > 0;)
        setNode(i, false);
    return changed;
}

void ZelInspectorSearch::suspend()
{
    m_update.cancel();
    if (m_isOn)
        giveBack();
}

void ZelInspectorSearch::giveBack()
{
    const QPointer<ZelInspectorSearch> alive(this);
    const ScrollPositions positions = std::exchange(m_scrollPositions, {});
    m_filterRest.cancel();
    m_mark.cancel();
    m_isOn = false;
    m_foundCount = 0;
    m_words.clear();
    m_findings.clear();
    m_marks.clear();
    for (const QPointer<ZelExpandableView> &box : std::exchange(m_unfolded, {})) {
        if (box)
            box->setExpanded(false);
    }
    Containers changed;
    if (alive && m_index)
        changed = apply(std::vector<Filter>(m_index->nodes().size()), {});
    if (alive)
        selectPane(m_formerPane ? m_inspector->panes().indexOf(m_formerPane) : -1);
    if (!alive)
        return;
    showNotes({});
    setTabCounts(std::vector<int>(size_t(m_inspector->panes().size()), -1));
    settle(changed);
    scrollTo(positions);
    if (alive)
        m_inspector->setStateHeld(false);
    if (!alive || !m_bar)
        return;
    m_bar->setOutcome({});
    if (!m_bar->field()->hasFocus())
        forgetIndex();
}

void ZelInspectorSearch::unfold(const Node &node)
{
    if (node.kind != ZelSearchIndex::Kind::Inspector || !node.container || !node.container->isViewLoaded())
        return;
    auto *box = qobject_cast<ZelExpandableView *>(node.container->view());
    if (!box || box->isExpanded())
        return;
    m_unfolded.emplace_back(box);
    box->setExpanded(true);
}

/// Lays out what is around the views that were hidden or shown in the current pane. The event loop would do it level by
/// level, and may paint in between.
void ZelInspectorSearch::settle(const Containers &changed) const
{
    const ZelInspectorPane *pane = m_inspector->currentInspector();
    const QWidget *document = pane && m_inspector->isViewInstalled() ? pane->containerView() : nullptr;
    QSet<QWidget *> around;
    for (const auto &container : changed) {
        QWidget *parent = document && container ? viewAround(container) : nullptr;
        if (parent && (parent == document || document->isAncestorOf(parent)))
            around.insert(parent);
    }
    ZelLayoutTurn::settle(around.values());
}

void ZelInspectorSearch::scrollTo(const ScrollPositions &positions)
{
    for (const auto &[pane, position] : positions) {
        if (pane)
            pane->setScrollPosition(position);
    }
}

// What is shown of the outcome

void ZelInspectorSearch::rowsDidCome()
{
    if (m_isOn)
        m_mark.schedule();
}

void ZelInspectorSearch::markParts(const Part &part)
{
    std::vector<QPointer<QWidget>> titled;
    for (size_t i = 0; m_index && i < m_findings.size(); ++i) {
        const Node &node = m_index->nodes()[i];
        if (!part.has(node, i) || !m_findings[i].contains)
            continue;
        for (QWidget *widget : ZelSearchMarks::titledOf(node))
            titled.emplace_back(widget);
    }
    m_marks.mark(titled, m_words);
}

/// Says what was found, and answers the pane in which it is to be seen.
qsizetype ZelInspectorSearch::showOutcome()
{
    const ZelSearchOutcome outcome(*m_index, m_findings, size_t(m_inspector->panes().size()));
    m_foundCount = outcome.foundCount();
    m_bar->setOutcome(outcome.text());
    showNotes(outcome.notes());
    setTabCounts(outcome.tabCounts());
    return outcome.paneToShow(qsizetype(m_inspector->selectedPaneIndex()));
}

void ZelInspectorSearch::showNotes(const QStringList &notes)
{
    const QList<ZelInspectorPane *> panes = m_inspector->panes();
    for (qsizetype i = 0; i < panes.size(); ++i)
        panes.at(i)->setNote(notes.value(i));
}

void ZelInspectorSearch::setTabCounts(const std::vector<int> &counts)
{
    const QList<ZelTabBarItem *> items =
        m_inspector->tabBar() ? m_inspector->tabBar()->items() : QList<ZelTabBarItem *>();
    for (qsizetype i = 0; i < items.size() && size_t(i) < counts.size(); ++i)
        items.at(i)->setCount(counts[size_t(i)]);
}

void ZelInspectorSearch::selectPane(qsizetype index)
{
    if (index < 0 || quint64(index) == m_inspector->selectedPaneIndex())
        return;
    const QPointer<ZelInspectorSearch> alive(this);
    const ZelPassiveEdits passive;
    if (m_inspector->commitEditing() && alive)
        m_inspector->selectInspector(quint64(index));
}
