// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

class ZelTabBar;
class ZelTabBarItem;

/// Is asked before the user selects a tab, and told about it.
class ZEL_EXPORT ZelTabBarDelegate
{
public:
    virtual ~ZelTabBarDelegate() = default;
    /// False refuses the selection, so that the selected tab does not change.
    virtual bool tabBarShouldSelectItem(ZelTabBar *, ZelTabBarItem *) { return true; }
    virtual void tabBarWillSelectItem(ZelTabBar *, ZelTabBarItem *) {}
    virtual void tabBarDidSelectItem(ZelTabBar *, ZelTabBarItem *) {}
};
