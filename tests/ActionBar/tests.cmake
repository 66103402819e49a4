# SPDX-License-Identifier: MIT
zel_test(ActionBar/tst_ZelActionBar zel_actionbar)
