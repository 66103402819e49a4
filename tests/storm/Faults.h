// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

/// What the storm's own observers, setters, transformers and actions throw while they are told to.
class Fault : public std::runtime_error
{
public:
    Fault()
        : std::runtime_error("injected fault")
    {
    }

    enum Source { Observer = 1, Setter = 2, Transformer = 4, Action = 8, All = 15 };
    inline static unsigned armed = 0; ///< the sources that throw
    inline static int thrown = 0;
    static void at(Source source)
    {
        if (!(armed & source))
            return;
        ++thrown;
        throw Fault();
    }
};
