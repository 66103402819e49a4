// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorPane.h"
#include "TabBar/ZelTabBar.h"
#include "Views/ZelSwitchContainerView.h"

class ZelInspectorSearch;

/// A whole inspector: panes behind a tab bar, of which one is shown.
///
/// A field above the tabs, if it is wanted, finds rows in all panes while the user types: by their titles, by the
/// titles of their sections and inspectors, and by the keys that they edit. The other rows are hidden meanwhile, and
/// the tabs show how many were found. A row that its condition hides is named below the others, with the reason. The
/// search ends with Escape, which puts back the tab, the folded inspectors, the scroll positions and the focus.
///
/// A tab cannot be left while an edit cannot be committed. The tabs are made once, with the view: later changes of the
/// panes do not show in it.
class ZEL_EXPORT ZelTabbedInspector : public ZelInspectorContainer, public ZelTabBarDelegate
{
    Q_OBJECT
    Q_CLASSINFO("ZelState", "selectedPaneName searchText")
    Q_PROPERTY(QList<ZelInspectorPane *> panes READ panes WRITE setPanes NOTIFY panesChanged)
    /// True by default. Enables the tab bar; taken over when the view is installed.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString enabledKeyPath READ enabledKeyPath WRITE setEnabledKeyPath NOTIFY enabledKeyPathChanged)
    Q_PROPERTY(ZelValueTransformerPtr enabledValueTransformer READ enabledValueTransformer WRITE
                   setEnabledValueTransformer NOTIFY enabledValueTransformerChanged)
    /// 0 by default.
    Q_PROPERTY(
        quint64 selectedPaneIndex READ selectedPaneIndex WRITE setSelectedPaneIndex NOTIFY selectedPaneIndexChanged)
    /// False by default. Whether there is the field for finding rows. The key for finding, such as Control+F, leads to
    /// it while the focus is in the inspector.
    Q_PROPERTY(bool searchEnabled READ isSearchEnabled WRITE setSearchEnabled NOTIFY searchEnabledChanged)
    /// What stands in the field; empty by default, which finds nothing and hides nothing. It is kept while there is no
    /// field or no window, and takes effect with them.
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QString selectedPaneName READ selectedPaneName WRITE setSelectedPaneName NOTIFY selectedPaneNameChanged)
    // What the inspector shows and what it is made of. The inspector sets these; so may a subclass that makes its view
    // differently.
    Q_PROPERTY(ZelInspectorPane *currentInspector READ currentInspector MEMBER m_currentInspector NOTIFY
                   currentInspectorChanged)
    Q_PROPERTY(ZelTabBar *tabBar READ tabBar MEMBER m_tabBar NOTIFY tabBarChanged)
    Q_PROPERTY(
        ZelSwitchContainerView *containerView READ containerView MEMBER m_containerView NOTIFY containerViewChanged)
public:
    explicit ZelTabbedInspector(QObject *owner);
    ~ZelTabbedInspector() override;

    QList<ZelInspectorPane *> panes() const { return m_panes.list(); }
    void setPanes(const QList<ZelInspectorPane *> &panes);
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    const QString &enabledKeyPath() const { return m_enabledKeyPath; }
    void setEnabledKeyPath(const QString &keyPath);
    const ZelValueTransformerPtr &enabledValueTransformer() const { return m_enabledValueTransformer; }
    void setEnabledValueTransformer(const ZelValueTransformerPtr &transformer);

    quint64 selectedPaneIndex() const { return m_selectedPaneIndex; }
    /// Selects the pane, now or when the view is made.
    void setSelectedPaneIndex(quint64 index);
    /// What the selected pane is called in a saved state. Setting a name that no pane has selects nothing else; it is
    /// answered until another pane is selected.
    QString selectedPaneName() const;
    void setSelectedPaneName(const QString &name);
    /// Prepares the current pane for reuse and shows the one of that index. It does not ask the current pane whether
    /// its edit can be committed. An index behind the last pane shows none.
    void selectInspector(quint64 index);
    /// The pane that is shown, or will be when the view is made; null until one is selected.
    ZelInspectorPane *currentInspector() const { return m_currentInspector; }

    bool isSearchEnabled() const { return m_searchEnabled; }
    void setSearchEnabled(bool enabled);
    const QString &searchText() const { return m_searchText; }
    /// Searches at once if the inspector is in a window. All words have to be found; case and diacritics do not matter.
    void setSearchText(const QString &text);
    /// How many rows are shown because they were found; 0 while there is no search.
    int searchCount() const;
    /// Puts the focus into the field and selects its text. Does nothing while there is no field.
    void focusSearchField();

    // Null while the view is not loaded.
    ZelTabBar *tabBar() const;
    ZelSwitchContainerView *containerView() const;

    QList<QPointer<ZelViewController>> allChildControllers() const override { return m_panes.pointers(); }
    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;

    bool tabBarShouldSelectItem(ZelTabBar *tabBar, ZelTabBarItem *item) override;
    void tabBarDidSelectItem(ZelTabBar *tabBar, ZelTabBarItem *item) override;

Q_SIGNALS:
    void panesChanged();
    void enabledChanged();
    void enabledKeyPathChanged();
    void enabledValueTransformerChanged();
    void selectedPaneIndexChanged();
    void searchEnabledChanged();
    void searchTextChanged();
    void selectedPaneNameChanged();
    void currentInspectorChanged();
    void tabBarChanged();
    void containerViewChanged();

protected:
    /// Only the current pane: the others are not in use.
    QList<QPointer<ZelViewController>> childControllers() const override;

private:
    void makeTabs();
    void updateSearch();
    void layOut();

    ZelChildControllers<ZelInspectorPane> m_panes;
    QString m_enabledKeyPath;
    QString m_searchText;
    ZelValueTransformerPtr m_enabledValueTransformer;
    QPointer<ZelInspectorPane> m_currentInspector;
    QPointer<ZelTabBar> m_tabBar;
    QPointer<ZelSwitchContainerView> m_containerView;
    QPointer<ZelInspectorSearch> m_search; // while the view is loaded and search is enabled
    QList<ZelLayoutConstraint::Ptr> m_columnConstraints;
    QString m_missingPaneName;
    quint64 m_selectedPaneIndex = 0;
    bool m_enabled = true;
    bool m_searchEnabled = false;
};
