# SPDX-License-Identifier: MIT
zel_test(Platform/RunLoop/tst_ZelRunLoop zel_runloop)
zel_test(Platform/RunLoop/tst_ZelNotificationCenter zel_runloop)
zel_test(Platform/RunLoop/tst_ZelEventMonitor zel_runloop)
