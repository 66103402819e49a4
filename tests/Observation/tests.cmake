# SPDX-License-Identifier: MIT
foreach(test tst_ZelObservations tst_ZelKeyPathObservation)
    zel_test(Observation/${test} zel_observation)
    target_sources(${test} PRIVATE Observation/Club.h)
endforeach()
