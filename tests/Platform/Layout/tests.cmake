# SPDX-License-Identifier: MIT
zel_test(Platform/Layout/tst_ZelConstraintSolver zel_layout)
zel_test(Platform/Layout/tst_ZelLayoutAxis zel_layout)
zel_test(Platform/Layout/tst_ZelSharedAxis zel_layout)
zel_test(Platform/Layout/tst_ZelVisualFormat zel_layout)
zel_test(Platform/Layout/tst_ZelConstraintLayout zel_layout)
