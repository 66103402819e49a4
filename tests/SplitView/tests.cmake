# SPDX-License-Identifier: MIT
zel_test(SplitView/tst_ZelPrioritySplitViewItem zel_splitview)
zel_test(SplitView/tst_ZelPrioritySplitViewDelegate zel_splitview)
zel_e2e_test(SplitView/tst_Dividers zel_splitview)
