# SPDX-License-Identifier: MIT
zel_test(ExpandableViews/tst_ZelExpandableView zel_expandableviews)
