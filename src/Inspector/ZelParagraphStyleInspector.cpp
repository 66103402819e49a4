// SPDX-License-Identifier: MIT
#include "Inspector/ZelParagraphStyleInspector.h"

#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorSlice.h"
#include "Resources/ZelBundle.h"

namespace {

// Applications may make the editor themselves, without a generator.
[[maybe_unused]] const bool used = (ZelParagraphStyleInspector::useForEditors(), true);

} // namespace

ZelInspectorSlice *ZelParagraphStyleInspector::create(QObject *owner)
{
    ZelDeclarativeInspectorGenerator generator;
    generator.setUrl(
        ZelBundle::mainBundle().urlForResource(QStringLiteral("ZelParagraphStyle"), QStringLiteral("xml")));
    generator.setOwner(owner);
    ZelInspectorSlice *slice = generator.createSlice();
    if (slice)
        slice->setUsesAlternatingBackgroundColors(false);
    return slice;
}

void ZelParagraphStyleInspector::useForEditors()
{
    if (!ZelInspectorAttributedStringProperty::paragraphStyleInspectorMaker())
        ZelInspectorAttributedStringProperty::setParagraphStyleInspectorMaker(&ZelParagraphStyleInspector::create);
}
