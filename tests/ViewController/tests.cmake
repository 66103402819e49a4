# SPDX-License-Identifier: MIT
zel_test(ViewController/tst_ZelView zel_viewcontroller)
zel_test(ViewController/tst_ZelViewController zel_viewcontroller)
