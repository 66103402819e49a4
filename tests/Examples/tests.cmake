# SPDX-License-Identifier: MIT
if(ZEL_BUILD_EXAMPLES)
    zel_test(Examples/tst_ShapesDocument zel_shapes_app)
    zel_test(Examples/tst_ShapesCanvas zel_shapes_app)
    zel_test(Examples/tst_ShapesList zel_shapes_app)
    zel_test(Examples/tst_ShapesDescription zel_shapes_app)
endif()
