// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"

/// Something that is wrong or suspicious in a description.
struct ZelDescriptionMistake
{
    /// An error is certainly not what was meant; of a warning that is only likely.
    enum Severity { Error, Warning };

    Severity severity = Error;
    QString message;
    ZelSourcePlace place; ///< of the attribute where it is known, else of the element
    QString attribute;    ///< the name of the attribute; null if the whole element is concerned
    QString
        suggestion; ///< what was probably meant in place of a name; null if nothing is near. The message asks for it.
};
