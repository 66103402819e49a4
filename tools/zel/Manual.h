// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

struct Command;

/// What there is to read about the program, made from the table of its commands.
namespace Manual {

QString help();
QString help(const Command &command);
/// The manual page, in the language of man.
QString page();
/// The completion for bash.
QString completion();

} // namespace Manual
