# SPDX-License-Identifier: MIT
zel_test(Platform/Binding/tst_ZelBinding zel_binding)
