// SPDX-License-Identifier: MIT
#include "Command.h"
#include "Inspector/Checking/ZelDescriptionChecker.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "MistakePrinter.h"
#include "Output.h"
#include "TranslationFile.h"

#include <QFileInfo>
#include <cstdio>

int runStrings(const QCommandLineParser &arguments)
{
    const QString output = arguments.value(QStringLiteral("output"));
    if (output.isEmpty())
        return wrongUsage(QStringLiteral("The file of translations is missing (--output)."));
    ZelDescriptionStrings::Options options{
        arguments.values(QStringLiteral("resources")), arguments.values(QStringLiteral("also")),
        arguments.values(QStringLiteral("types")), arguments.value(QStringLiteral("owner"))};
    const QString selections = arguments.values(QStringLiteral("selection")).join(u' ');
    if (const QString wrong = ZelDescriptionChecker::readSelections(selections, options.selections); !wrong.isNull())
        return wrongUsage(QStringLiteral("--selection takes PATH=CLASS, not \"%1\".").arg(wrong));
    const ZelDeclarativeInspectorGenerator registersWhatTheLibraryHas;
    QList<ZelDescriptionMistake> mistakes;
    const QList<ZelDescriptionStrings::Text> texts =
        ZelDescriptionStrings::collect(arguments.positionalArguments(), options, mistakes);
    if (!mistakes.isEmpty()) {
        // Texts of a file that cannot be read would count as gone.
        std::fputs(MistakePrinter::print(mistakes, {}).toUtf8().constData(), stderr);
        return Failed;
    }

    TranslationFile translations;
    if (QFileInfo::exists(output)) {
        if (const QString error = translations.read(output); !error.isNull())
            return Output::fail(output, error);
    }
    const QString language = arguments.value(QStringLiteral("language"));
    translations.setLanguage(language.isEmpty() ? translations.language() : language);
    const QString given = arguments.value(QStringLiteral("context"));
    const QString context = given.isEmpty() ? QStringLiteral("Application") : given;
    translations.update(context, texts);
    const bool hasLocations = arguments.value(QStringLiteral("locations")) != u"none";
    translations.setLocations(context, texts, hasLocations ? QFileInfo(output).absolutePath() : QString());

    return Output::write(translations.text(), output);
}
