// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QByteArray>

/// The grammar of descriptions for other programs, made from the table that the reader's checks use.
class ZEL_EXPORT ZelDescriptionGrammar
{
public:
    /// A schema in RELAX NG's XML syntax, with which editors complete and check. It knows which attributes an element
    /// has in each role and what they hold, and lets attributes and elements of other namespaces pass.
    static QByteArray relaxNG();
    /// An XML Schema 1.0 for editors that know nothing else. Properties admit the attributes of all types in it, and
    /// any others.
    static QByteArray xmlSchema();
};
