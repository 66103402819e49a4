// SPDX-License-Identifier: MIT
#include "Command.h"
#include "Inspector/Checking/ZelTypeDescription.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Output.h"

#include <cstdio>

namespace {

void note(const QString &text)
{
    std::fprintf(stderr, "zel: %s\n", text.toUtf8().constData());
}

/// What the description does not tell, or not well enough.
void tellWhatIsMissing(const ZelTypeDescription &description)
{
    if (!description.propertiesWithoutEditor.isEmpty())
        note(QStringLiteral("There is no editor for: ") +
             description.propertiesWithoutEditor.join(QStringLiteral(", ")));
    if (!description.propertiesOnlyShown.isEmpty())
        note(QStringLiteral("Only shown, since their editors write a single key of an object that a controller selects "
                            "(--key-path partController.selection): ") +
             description.propertiesOnlyShown.join(QStringLiteral(", ")));
    if (!description.silentProperties.isEmpty())
        note(QStringLiteral("No NOTIFY signal, so that changes that no inspector makes are not seen: ") +
             description.silentProperties.join(QStringLiteral(", ")));
    if (!description.unknownBase.isNull())
        note(QStringLiteral("The properties of %1 are missing, which is not among the types")
                 .arg(description.unknownBase));
}

} // namespace

int runDescribe(const QCommandLineParser &arguments)
{
    const QStringList files = arguments.values(QStringLiteral("types"));
    const QStringList names = arguments.positionalArguments();
    if (files.isEmpty() || names.size() != 1)
        return wrongUsage(files.isEmpty() ? QStringLiteral("The classes are missing (--types).")
                                          : QStringLiteral("One class is described at a time."));
    const ZelDeclarativeInspectorGenerator registersWhatTheLibraryHas;
    ZelTypeTable types;
    types.addKnownClasses();
    for (const QString &file : files) {
        if (const QString error = types.read(file); !error.isNull())
            return Output::fail(file, error);
    }
    ZelTypeDescription::Options options;
    options.keyPath = arguments.isSet(QStringLiteral("key-path")) ? arguments.value(QStringLiteral("key-path"))
                                                                  : QStringLiteral("selectionController.selection");
    options.owner = arguments.value(QStringLiteral("owner"));
    if (arguments.value(QStringLiteral("root")) == u"pane")
        options.root = ZelInspectorDescription::Options::Pane;
    const ZelTypeDescription description = ZelTypeDescription::ofClass(types, names.first(), options);
    if (!description.error.isNull()) {
        note(description.error);
        return Failed;
    }
    tellWhatIsMissing(description);
    return Output::write(description.xml, arguments.value(QStringLiteral("output")));
}
