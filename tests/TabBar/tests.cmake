# SPDX-License-Identifier: MIT
zel_test(TabBar/tst_ZelTabBar zel_tabbar)
