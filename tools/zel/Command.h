// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineParser>
#include <span>

/// An option of a command. Options without a value are switches; those with one may be given several times.
struct Option
{
    const char *name;
    const char *value; ///< what stands for the value in the help; null for a switch
    const char *summary;
    const char *letter = nullptr;  ///< a short name, null if there is none
    const char *choices = nullptr; ///< the words that are values, with blanks between them; null if any text is
};

enum ExitStatus { Clean = 0, Failed = 1, WrongUsage = 2 };

/// A subcommand. Help, completion and manual page are made from this.
struct Command
{
    const char *name;
    const char *arguments; ///< such as "FILES"; null if it takes none
    const char *summary;
    const char *description; ///< for the manual page, in paragraphs
    std::span<const Option> options;
    int (*run)(const QCommandLineParser &arguments); ///< answers the exit status
    /// Whether it shows windows: others run where there is no display.
    bool hasWindows = false;
};

/// All commands in the order of the help.
std::span<const Command> commands();

/// Prints what is wrong with the arguments of a command, and answers WrongUsage.
int wrongUsage(const QString &message);
