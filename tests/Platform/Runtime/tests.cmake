zel_test(Platform/Runtime/tst_ZelValues zel_runtime)
zel_test(Platform/Runtime/tst_ZelIndexSet zel_runtime)
zel_test(Platform/Runtime/tst_ZelKeyValueCoding zel_runtime)
zel_test(Platform/Runtime/tst_ZelKeyValueObserving zel_runtime)
