# SPDX-License-Identifier: MIT
zel_test(Geometry/tst_ZelScalarMath zel_geometry)
zel_test(Geometry/tst_ZelPoint zel_geometry)
zel_test(Geometry/tst_ZelRectAnchor zel_geometry)
zel_test(Geometry/tst_ZelSnapUtilities zel_geometry)
zel_test(Geometry/tst_ZelSpline zel_geometry)
