# SPDX-License-Identifier: MIT
zel_test(Extensions/tst_ZelRecoverableError zel_extensions)
zel_test(Extensions/tst_ZelTimingLog zel_extensions)
