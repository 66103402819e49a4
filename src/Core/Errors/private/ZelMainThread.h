// SPDX-License-Identifier: MIT
#pragma once

/// In a debug build of the library, asserts that the calling thread is the application's main thread, to which
/// everything belongs that is kept about observed objects.
void ZelRequireMainThread();
