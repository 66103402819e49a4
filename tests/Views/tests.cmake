# SPDX-License-Identifier: MIT
zel_test(Views/tst_ZelStackView zel_views)
zel_test(Views/tst_ZelContainerView zel_views)
zel_test(Views/tst_ZelScrollView zel_views)
zel_test(Views/tst_ZelMagnificationView zel_views)
zel_test(Views/tst_ZelMagnificationViewEvents zel_views)
