# SPDX-License-Identifier: MIT
# The description reader needs the resources only, so its test does not wait for the rest of the inspector.
add_library(zel_description STATIC ${PROJECT_SOURCE_DIR}/src/Inspector/ZelInspectorConfiguration.cpp
            ${PROJECT_SOURCE_DIR}/src/Inspector/NSColor+ZelInspector.cpp)
target_link_libraries(zel_description PRIVATE zel_flags PUBLIC zel_resources)
zel_use_pch(zel_description)
zel_test(Inspector/tst_ZelInspectorConfiguration zel_description)
zel_test(Inspector/tst_ZelDeclarativeInspectorGenerator zel_inspector)
zel_test(Inspector/tst_InspectorContainers zel_inspector)
zel_test(Inspector/tst_DescriptionFaults zel_inspector)
zel_test(Inspector/tst_DeclaredProperties zel_inspector zel_splitview)
