// SPDX-License-Identifier: MIT
#include "Command.h"
#include "Inspector/Checking/ZelDescriptionChecker.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "MistakePrinter.h"

#include <algorithm>
#include <cstdio>

int runCheck(const QCommandLineParser &arguments)
{
    const auto values = [&](const char *name) { return arguments.values(QLatin1String(name)); };
    ZelDescriptionChecker::Options options;
    options.resourceFolders = values("resources");
    options.typeFiles = values("types");
    options.owner = arguments.value(QStringLiteral("owner"));
    options.classes = values("class");
    options.transformers = values("transformer");
    options.images = values("image");
    options.colorLists = values("color-list");
    options.propertyTypes = values("property-type");
    options.keys = values("key");
    options.isComplete = arguments.isSet(QStringLiteral("complete"));
    const QString selections = values("selection").join(u' ');
    if (const QString wrong = ZelDescriptionChecker::readSelections(selections, options.selections); !wrong.isNull())
        return wrongUsage(QStringLiteral("--selection takes PATH=CLASS, not \"%1\".").arg(wrong));

    const ZelDeclarativeInspectorGenerator registersWhatTheLibraryHas;
    const QList<ZelDescriptionMistake> mistakes = ZelDescriptionChecker(options).check(arguments.positionalArguments());
    const bool isStrict = arguments.isSet(QStringLiteral("werror"));
    const QString text = MistakePrinter::print(mistakes, arguments.value(QStringLiteral("format")));
    std::fputs(text.toUtf8().constData(), stdout);
    const bool hasFailed = std::ranges::any_of(mistakes, [&](const ZelDescriptionMistake &mistake) {
        return isStrict || mistake.severity == ZelDescriptionMistake::Error;
    });
    return hasFailed ? Failed : Clean;
}
