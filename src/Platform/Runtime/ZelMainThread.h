// SPDX-License-Identifier: MIT
#pragma once

/// In a debug build of the library: asserts that the calling thread is the application's main one. Everything that is
/// kept about observed objects belongs to it.
void ZelRequireMainThread();
