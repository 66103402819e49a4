# SPDX-License-Identifier: MIT
zel_test(Blocks/tst_ZelNamedTransformers zel_blocks)
zel_test(Blocks/tst_ZelValueTransformer zel_blocks)
zel_test(Blocks/tst_ZelBlocks zel_blocks)
zel_test(Blocks/tst_ZelBlockProperties zel_blocks)
