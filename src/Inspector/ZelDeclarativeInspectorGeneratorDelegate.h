// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

class ZelDeclarativeInspectorGenerator;
class ZelInspectorConfiguration;
class ZelInspectorProperty;

/// Makes the editors of property types that are an application's own.
class ZEL_EXPORT ZelDeclarativeInspectorGeneratorDelegate
{
public:
    virtual ~ZelDeclarativeInspectorGeneratorDelegate() = default;
    /// Makes and configures an editor for a "property" element whose type the generator does not know. The generator
    /// takes it over. Null if the delegate does not know the type either.
    virtual ZelInspectorProperty *
    declarativeInspectorGeneratorCreatePropertyForConfiguration(ZelDeclarativeInspectorGenerator *,
                                                                const ZelInspectorConfiguration &)
    {
        return nullptr;
    }
};
