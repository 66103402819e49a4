// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Marks what applications may use of the library. Everything else is hidden in the shared library.
#if defined(ZEL_STATIC)
#define ZEL_EXPORT
#elif defined(ZEL_BUILD)
#define ZEL_EXPORT Q_DECL_EXPORT
#else
#define ZEL_EXPORT Q_DECL_IMPORT
#endif
