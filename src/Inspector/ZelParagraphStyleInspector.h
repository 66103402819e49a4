// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

class QObject;
class ZelInspectorSlice;

/// What the editor of rich text shows in its popover.
class ZEL_EXPORT ZelParagraphStyleInspector
{
public:
    /// Makes a slice from the description "ZelParagraphStyle.xml" among the application's resources. The caller owns
    /// it. If the application has no such file, or one that cannot be read, this fails as the generator does.
    static ZelInspectorSlice *create(QObject *owner);
    /// Lets all editors of rich text make their popovers with create(), unless the application has set another maker.
    static void useForEditors();
};
