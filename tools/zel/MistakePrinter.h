// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelDescriptionMistake.h"

#include <QList>

/// Mistakes as other programs read them.
namespace MistakePrinter {

/// The format is "text", in the manner of compilers, "json", or "github", for its actions. Places are below the present
/// folder where they can be.
QString print(const QList<ZelDescriptionMistake> &mistakes, const QString &format);

} // namespace MistakePrinter
