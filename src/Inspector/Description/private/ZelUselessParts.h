// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelDescriptionMistake.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QList>

/// What is right by itself but has no effect where it stands.
namespace ZelUselessParts {

/// A warning for each such attribute of the element, for its options, and for the element itself.
QList<ZelDescriptionMistake> of(const ZelInspectorConfiguration &element, const ZelDescriptionSchema::Element &schema);

} // namespace ZelUselessParts
