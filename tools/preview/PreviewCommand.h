// SPDX-License-Identifier: MIT
#pragma once

class QCommandLineParser;

/// Shows a description in a window, or in a picture: `zel preview FILE`. The options are those of the program's table.
/// Answers 0; 1 if the description is wrong or the picture cannot be written; 2 if the arguments are wrong.
int runPreview(const QCommandLineParser &arguments);
