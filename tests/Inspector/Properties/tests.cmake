zel_test(Inspector / Properties / tst_ZelInspectorProperty zel_properties)
    zel_test(Inspector / Properties / tst_SimpleProperties zel_properties)
        zel_test(Inspector / Properties / tst_ZelInspectorNumberProperty zel_properties)
            zel_test(Inspector / Properties / tst_EnumerationProperties zel_properties)
