// SPDX-License-Identifier: MIT
#include "Inspector/ZelTabbedInspector.h"

#include "Core/Values/private/ZelAssign.h"
#include "Inspector/private/ZelInspectorSearch.h"
#include "Inspector/private/ZelSearchBar.h"
#include "Inspector/private/ZelStateTree.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelNamedImages.h"
#include "TabBar/ZelButtonMatrix.h"
#include "TabBar/ZelTabBar.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/private/ZelTabOrder.h"
#include "Views/ZelSwitchContainerView.h"

ZelTabbedInspector::ZelTabbedInspector(QObject *owner)
    : ZelInspectorContainer(owner)
{
    connect(this, &ZelTabbedInspector::selectedPaneIndexChanged, this, &ZelTabbedInspector::selectedPaneNameChanged);
}

ZelTabbedInspector::~ZelTabbedInspector()
{
    flushState();
    uninstall();
}

void ZelTabbedInspector::setPanes(const QList<ZelInspectorPane *> &panes)
{
    if (m_panes.assign(panes, this))
        Q_EMIT panesChanged();
}

void ZelTabbedInspector::setEnabled(bool enabled)
{
    if (ZelAssign(m_enabled, enabled))
        Q_EMIT enabledChanged();
}

void ZelTabbedInspector::setEnabledKeyPath(const QString &keyPath)
{
    if (ZelAssign(m_enabledKeyPath, keyPath))
        Q_EMIT enabledKeyPathChanged();
}

void ZelTabbedInspector::setEnabledValueTransformer(const ZelValueTransformerPtr &transformer)
{
    if (ZelAssign(m_enabledValueTransformer, transformer))
        Q_EMIT enabledValueTransformerChanged();
}

void ZelTabbedInspector::setSearchEnabled(bool enabled)
{
    if (!ZelAssign(m_searchEnabled, enabled))
        return;
    const QPointer<ZelTabbedInspector> alive(this);
    if (isViewLoaded())
        updateSearch();
    if (alive && m_search && isViewInstalled())
        m_search->update();
    if (alive)
        Q_EMIT searchEnabledChanged();
}

void ZelTabbedInspector::setSearchText(const QString &text)
{
    if (!ZelAssign(m_searchText, text))
        return;
    const QPointer<ZelTabbedInspector> alive(this);
    if (m_search)
        m_search->update();
    if (alive)
        Q_EMIT searchTextChanged();
}

int ZelTabbedInspector::searchCount() const
{
    return m_search ? m_search->foundCount() : 0;
}

void ZelTabbedInspector::focusSearchField()
{
    if (m_search)
        m_search->focusField();
}

QList<QPointer<ZelViewController>> ZelTabbedInspector::childControllers() const
{
    return {m_currentInspector.data()};
}

ZelTabBar *ZelTabbedInspector::tabBar() const
{
    return m_tabBar;
}

ZelSwitchContainerView *ZelTabbedInspector::containerView() const
{
    return m_containerView;
}

// View

void ZelTabbedInspector::loadView()
{
    auto *inspector = new ZelView;
    setView(inspector);
    m_tabBar = new ZelTabBar(inspector);
    m_tabBar->setDelegate(this);
    m_containerView = new ZelSwitchContainerView(inspector);
    const QList<ZelInspectorPane *> all = panes();
    m_containerView->setChildViewControllers({all.begin(), all.end()});
    makeTabs();
    Q_EMIT tabBarChanged();
    Q_EMIT containerViewChanged();
    selectInspector(m_selectedPaneIndex);
    updateSearch();
}

/// Makes or removes the field above the tabs.
void ZelTabbedInspector::updateSearch()
{
    if (m_search) {
        m_search->suspend();
        delete m_search->bar();
        ZelEventScope::dispose(std::exchange(m_search, nullptr));
    }
    if (!isViewLoaded())
        return;
    if (m_searchEnabled) {
        const ZelTabOrder tabOrder(view());
        m_search = new ZelInspectorSearch(this);
        view()->addSubview(m_search->bar(), 0);
        tabOrder.followSubviews();
    }
    layOut();
}

void ZelTabbedInspector::layOut()
{
    QHash<QString, QWidget *> views{{QStringLiteral("tabBar"), m_tabBar},
                                    {QStringLiteral("containerView"), m_containerView}};
    QStringList formats{QStringLiteral("H:|[tabBar]|"), QStringLiteral("H:|[containerView]|")};
    if (m_search) {
        views.insert(QStringLiteral("search"), m_search->bar());
        formats += {QStringLiteral("H:|[search]|"), QStringLiteral("V:|[search][tabBar(22)][containerView]|")};
    } else {
        formats += QStringLiteral("V:|[tabBar(22)][containerView]|");
    }
    view()->removeConstraints(std::exchange(m_columnConstraints, {}));
    for (const QString &format : std::as_const(formats))
        m_columnConstraints += view()->addConstraintsWithVisualFormat(format, views);
}

void ZelTabbedInspector::makeTabs()
{
    QList<ZelTabBarItem *> items;
    for (const ZelInspectorPane *pane : panes()) {
        auto *item = new ZelTabBarItem(ZelNamedImages::templateImage(pane->image()), 0, m_tabBar);
        const QString &help = pane->toolTip();
        item->setToolTip(help.isEmpty()            ? pane->title()
                         : pane->title().isEmpty() ? help
                                                   : pane->title() + u'\n' + help);
        // All tabs have the same key; it selects the first one.
        item->setKeyEquivalent(QStringLiteral("1"));
        item->setKeyEquivalentModifierMask(Qt::ControlModifier);
        items.append(item);
    }
    m_tabBar->setItems(items);
}

void ZelTabbedInspector::viewWillUninstall()
{
    ZelInspectorContainer::viewWillUninstall();
    if (m_search)
        m_search->suspend();
}

void ZelTabbedInspector::viewDidInstall()
{
    ZelInspectorContainer::viewDidInstall();
    // Only in a window does the tab order have a beginning; before, the field counts as preceding the tabs wherever it
    // stands.
    if (m_search)
        ZelTabOrder(view()).followSubviews();
    if (m_search && !m_searchText.isEmpty())
        m_search->scheduleUpdate(); // when the panes are installed, too
    if (!m_tabBar)
        return;
    m_tabBar->setEnabled(m_enabled);
    if (m_enabledKeyPath.isEmpty() || !owner())
        return;
    ZelBindingOptions options;
    if (m_enabledValueTransformer)
        options.insert(ZelValueTransformerBindingOption, QVariant::fromValue(m_enabledValueTransformer));
    ZelObservations(this).addBindingWithObject(m_tabBar, ZelEnabledBinding, owner(), m_enabledKeyPath, options,
                                               &ZelInstalledContext);
}

// Selection

void ZelTabbedInspector::setSelectedPaneIndex(quint64 index)
{
    if (index != m_selectedPaneIndex)
        selectInspector(index);
}

void ZelTabbedInspector::selectInspector(quint64 index)
{
    // What was typed in the former pane is committed when that pane is hidden, and the edit's action may delete the
    // inspector.
    const QPointer<ZelTabbedInspector> alive(this);
    if (isViewInstalled() && m_currentInspector)
        m_currentInspector->prepareForReuse();
    if (!alive)
        return;
    const QPointer<ZelInspectorPane> former = std::exchange(m_currentInspector, nullptr);
    const bool isOther = std::exchange(m_selectedPaneIndex, index) != index;
    if (isOther)
        m_missingPaneName.clear();
    m_currentInspector = panes().value(qsizetype(index));
    if (m_containerView)
        m_containerView->setSelectedChildViewControllerIndex(index);
    if (alive && m_currentInspector)
        m_currentInspector->refresh();
    if (!alive)
        return;
    ZelTabBarItem *item = m_tabBar ? m_tabBar->items().value(qsizetype(index)) : nullptr;
    if (item && m_tabBar->selectedItem() != item)
        m_tabBar->setSelectedItem(item);
    if (m_currentInspector != former)
        Q_EMIT currentInspectorChanged();
    if (isOther && alive)
        Q_EMIT selectedPaneIndexChanged();
}

QString ZelTabbedInspector::selectedPaneName() const
{
    if (!m_missingPaneName.isNull())
        return m_missingPaneName;
    const ZelInspectorPane *selected = panes().value(qsizetype(m_selectedPaneIndex));
    for (const ZelStateTree::Part &part : ZelStateTree::partsOf(this)) {
        if (part.controller == selected)
            return part.name;
    }
    return {};
}

void ZelTabbedInspector::setSelectedPaneName(const QString &name)
{
    const QList<ZelInspectorPane *> all = panes();
    for (const ZelStateTree::Part &part : ZelStateTree::partsOf(this)) {
        const qsizetype index = all.indexOf(part.controller);
        if (part.name == name && index >= 0)
            return setSelectedPaneIndex(quint64(index));
    }
    if (ZelAssign(m_missingPaneName, name))
        Q_EMIT selectedPaneNameChanged();
}

bool ZelTabbedInspector::tabBarShouldSelectItem(ZelTabBar *, ZelTabBarItem *)
{
    return commitEditing();
}

void ZelTabbedInspector::tabBarDidSelectItem(ZelTabBar *tabBar, ZelTabBarItem *item)
{
    const qsizetype index = tabBar->items().indexOf(item);
    if (index >= 0)
        selectInspector(quint64(index));
}
