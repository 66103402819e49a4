# SPDX-License-Identifier: MIT
zel_test(Controls/tst_SmallButtons zel_controls)
zel_test(Controls/tst_SmallViews zel_controls)
zel_test(Controls/tst_ZelGrowingTokenField zel_controls)
zel_test(Controls/tst_ZelLinkTextField zel_controls)
