# SPDX-License-Identifier: MIT
zel_e2e_test(SplitView/tst_Dividers zel_splitview)
