// SPDX-License-Identifier: MIT
#pragma once

class QObject;
class ZelInspectorSlice;

/// What the editor of rich text shows in its popover.
class ZelParagraphStyleInspector
{
public:
    /// A slice made from the description "ZelParagraphStyle.xml" among the application's resources, the caller's. Fails
    /// as the generator does where the application has none, or one that cannot be read.
    static ZelInspectorSlice *create(QObject *owner);
    /// Gives it to all editors of rich text, unless the application has given them another maker.
    static void useForEditors();
};
