# SPDX-License-Identifier: MIT
zel_test(Platform/Resources/tst_ZelAttributedString zel_resources)
zel_test(Platform/Resources/tst_ZelBundle zel_resources)
zel_test(Platform/Resources/tst_ZelColor zel_resources)
zel_test(Platform/Resources/tst_ZelNumberScanner zel_resources)
zel_test(Platform/Resources/tst_ZelXmlReader zel_resources)
zel_test(Platform/Resources/tst_ZelFontManager zel_resources)
