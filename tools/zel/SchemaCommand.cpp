// SPDX-License-Identifier: MIT
#include "Command.h"
#include "Inspector/Checking/ZelDescriptionGrammar.h"
#include "Output.h"

int runSchema(const QCommandLineParser &arguments)
{
    const bool isXsd = arguments.isSet(QStringLiteral("xsd"));
    if (isXsd && arguments.isSet(QStringLiteral("rng")))
        return wrongUsage(QStringLiteral("One schema is printed at a time, --rng or --xsd."));
    return Output::write(isXsd ? ZelDescriptionGrammar::xmlSchema() : ZelDescriptionGrammar::relaxNG(),
                         arguments.value(QStringLiteral("output")));
}
