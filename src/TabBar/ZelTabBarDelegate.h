// SPDX-License-Identifier: MIT
#pragma once

class ZelTabBar;
class ZelTabBarItem;

/// Asked before the user selects a tab, and told afterwards.
class ZelTabBarDelegate
{
public:
    virtual ~ZelTabBarDelegate() = default;
    /// False keeps the selected tab.
    virtual bool tabBarShouldSelectItem(ZelTabBar *, ZelTabBarItem *) { return true; }
    virtual void tabBarWillSelectItem(ZelTabBar *, ZelTabBarItem *) {}
    virtual void tabBarDidSelectItem(ZelTabBar *, ZelTabBarItem *) {}
};
