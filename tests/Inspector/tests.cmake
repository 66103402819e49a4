# SPDX-License-Identifier: MIT
# The description reader is tested from its sources, without the rest of the inspector and what that needs.
zel_program(tst_ZelInspectorConfiguration SOURCES Inspector/tst_ZelInspectorConfiguration.cpp
            ${PROJECT_SOURCE_DIR}/src/Inspector/ZelInspectorConfiguration.cpp
            ${PROJECT_SOURCE_DIR}/src/Inspector/NSColor+ZelInspector.cpp LIBRARIES zel_resources Qt6::Test)
add_test(NAME tst_ZelInspectorConfiguration COMMAND tst_ZelInspectorConfiguration)
set_tests_properties(tst_ZelInspectorConfiguration PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8"
                     TIMEOUT 300)
