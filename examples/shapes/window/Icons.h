// SPDX-License-Identifier: MIT
#pragma once

#include "model/Shape.h"

#include <QIcon>

/// The application's pictograms, which follow the text colour of the palette.
namespace Icons {
/// The file of that name without its ending, in the resources. Icons are made once for each palette.
QIcon named(const QString &name);
QIcon ofKind(Shape::Kind kind);
/// To be called when the palette has changed.
void forget();
} // namespace Icons
