// SPDX-License-Identifier: MIT
#pragma once

class ZelDeclarativeInspectorGenerator;
class ZelInspectorConfiguration;
class ZelInspectorProperty;

/// Makes the editors of property types that are an application's own.
class ZelDeclarativeInspectorGeneratorDelegate
{
public:
    virtual ~ZelDeclarativeInspectorGeneratorDelegate() = default;
    /// An editor for a "property" element of a type that the generator does not know, configured, for the generator to
    /// keep; or null.
    virtual ZelInspectorProperty *
    declarativeInspectorGeneratorCreatePropertyForConfiguration(ZelDeclarativeInspectorGenerator *,
                                                                const ZelInspectorConfiguration &)
    {
        return nullptr;
    }
};
