# SPDX-License-Identifier: MIT
zel_test(Observation/tst_ZelDelayedInvocation zel_observation)
zel_test(Observation/tst_ZelObservations zel_observation)
zel_test(Observation/tst_ZelKeyPathObservation zel_observation)
zel_test(Observation/tst_ZelKeyValueBinding zel_observation)
zel_test(Blocks/tst_ZelWindow zel_blocks)

foreach(test tst_ZelObservations tst_ZelKeyPathObservation)
    target_sources(${test} PRIVATE Observation/Club.h)
endforeach()
