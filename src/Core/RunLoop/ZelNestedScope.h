// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QtGlobal>

/// A scope on the stack. Scopes nest, and a kind of scope is active from the beginning of the outermost to its end. A
/// kind is a class that derives from this one. Scopes belong to the main thread.
template<typename Kind> class ZEL_EXPORT ZelNestedScope
{
public:
    static bool isActive() { return s_depth > 0; }
    Q_DISABLE_COPY_MOVE(ZelNestedScope)

protected:
    explicit ZelNestedScope(bool counts)
        : m_counts(counts)
    {
        s_depth += m_counts;
    }
    ~ZelNestedScope() { s_depth -= m_counts; }

private:
    inline static int s_depth = 0;
    bool m_counts;
};
