// SPDX-License-Identifier: MIT
#include "Command.h"

// Each command is one function in a source of its own, and one entry in the table below.
int runCheck(const QCommandLineParser &arguments);
int runDescribe(const QCommandLineParser &arguments);
int runSchema(const QCommandLineParser &arguments);
int runStrings(const QCommandLineParser &arguments);
int runManual(const QCommandLineParser &arguments);
int runPreview(const QCommandLineParser &arguments);

namespace {

#define ZEL_RESOURCES_OPTION                                                                                           \
    {                                                                                                                  \
        "resources", "FOLDER", "look for included files and images there, or by their names in a file .qrc"            \
    }

constexpr Option g_check[] = {
    {"types", "FILE", "compare key paths with the classes of this file of moc's (metatypes.json)"},
    {"owner", "CLASS", "the class of the inspector's owner, at which key paths begin"},
    {"selection", "PATH=CLASS", "the class of what the controller at the path selects; several with commas"},
    ZEL_RESOURCES_OPTION,
    {"class", "NAME", "a class of the application's for class=\"...\""},
    {"transformer", "NAME", "a value transformer of the application's"},
    {"image", "NAME", "an image of the application's that is in no folder of resources"},
    {"color-list", "NAME", "a color list of the application's"},
    {"property-type", "NAME", "a type of editors that the application makes"},
    {"key", "CLASS.KEY", "a key that the class does not declare, or one that is to have no NOTIFY signal"},
    {"format", "FORMAT", "how mistakes are printed: text, json or github", nullptr, "text json github"},
    {"complete", nullptr, "FILES are all descriptions of the application; others are in the resources only"},
    {"werror", nullptr, "warnings make the check fail, too"},
};

constexpr Option g_describe[] = {
    {"types", "FILE", "the application's classes, in a file of moc's (metatypes.json)"},
    {"key-path", "PATH", "where the objects are, selectionController.selection by default; empty for the owner"},
    {"owner", "CLASS", "the class of the inspector's owner, at which key paths begin"},
    {"root", "KIND", "a slice with a section for each class, the standard, or a pane with a box for each", nullptr,
     "slice pane"},
    {"output", "FILE", "write there instead of to the standard output", "o"},
};

constexpr Option g_schema[] = {
    {"rng", nullptr, "RELAX NG in XML syntax, the standard"},
    {"xsd", nullptr, "XML Schema 1.0, which does not tell the types of properties apart"},
    {"output", "FILE", "write there instead of to the standard output", "o"},
};

constexpr Option g_strings[] = {
    {"output", "FILE", "the file of translations, made or brought up to date", "o"},
    {"language", "CODE", "the language of a new file, such as de_DE"},
    {"context", "NAME", "the context of the texts, Application by default"},
    {"types", "FILE", "the application's classes, whose enumerations editors offer (metatypes.json)"},
    {"owner", "CLASS", "the class of the inspector's owner, at which key paths begin"},
    {"selection", "PATH=CLASS", "the class of what the controller at the path selects; several with commas"},
    {"also", "ELEMENT@NAME", "an attribute that the application translates itself, such as sliver@title"},
    ZEL_RESOURCES_OPTION,
    {"locations", "KIND", "whether the file tells where the texts are: relative, the standard, or none", nullptr,
     "relative none"},
};

constexpr Option g_preview[] = {
    {"types", "FILE", "the application's classes, in a file of moc's (metatypes.json)"},
    {"owner", "CLASS", "the class of the inspector's owner, at which key paths begin"},
    {"selection", "PATH=CLASS", "the class of what the controller at the path selects"},
    {"data", "FILE", "values for the objects, in JSON"},
    ZEL_RESOURCES_OPTION,
    {"translation", "FILE", "a translation (.qm) to choose among the languages"},
    {"context", "NAME", "the context of the texts, Application by default"},
    {"select", "WHICH", "what is selected at first: none, one, equal or different, the standard", nullptr,
     "none one equal different"},
    {"width", "PIXELS", "the width of the panel at first"},
    {"text-size", "PERCENT", "the size of the text at first"},
    {"longer-texts", nullptr, "begin with texts that are longer, and accented"},
    {"dark", nullptr, "begin with a dark palette"},
    {"rtl", nullptr, "begin with a layout from right to left"},
    {"screenshot", "FILE", "write a picture (PNG) and end, also without a display"},
};

constexpr Option g_manual[] = {
    {"man", nullptr, "the manual page, the standard"},
    {"completion", nullptr, "the completion for bash"},
};

constexpr Command g_commands[] = {
    {"check", "FILES", "finds what is wrong in descriptions",
     "Tells everything that is wrong or suspicious in the descriptions and in all files that they include, each with "
     "file, "
     "line and column, and what would be right. Files that others of the list include are checked where they are "
     "included.\n\n"
     "With the files that Qt's moc writes about the application's classes (qt_extract_metatypes), key paths and "
     "selectors "
     "are compared with these classes. No code of the application runs. A description may name its classes itself, in "
     "the "
     "attributes types:owner and types:selection of any element.\n\n"
     "The exit status is 0 if there are no errors, 1 if there are, and 2 if the command was called in a wrong way.",
     g_check, &runCheck},
    {"describe", "CLASS", "writes a description of a class to begin with",
     "The description has a section for each class from the base to this one, and an editor for each property, as its "
     "type is. Titles are made of the names in the code; what the classes say in Q_CLASSINFO counts.\n\n"
     "The class is read from the files of Qt's moc, and the check finds nothing in the description with the same "
     "files. Properties without an editor, and those without a NOTIFY signal, are told on the standard error.",
     g_describe, &runDescribe},
    {"schema", nullptr, "prints the schema of descriptions",
     "Editors that know the schema complete elements, attributes and values, and mark mistakes while one types.",
     g_schema, &runSchema},
    {"strings", "FILES", "collects the texts of descriptions for Qt Linguist",
     "Writes the localized texts of the descriptions, and of all files that they include, into a file of translations "
     "(.ts). Translations that are there are kept; those of texts that are gone are marked as vanished.",
     g_strings, &runStrings},
    {"preview", "FILE", "shows a description in a window, and what is wrong with it",
     "The panel has a model that is made up from its key paths, so that none, one, equal and different objects can be "
     "tried, in both palettes, in several widths, from right to left and with longer texts. When a file is saved, the "
     "panel is built anew.\n\n"
     "With --screenshot, the exit status is 1 if the description is wrong.",
     g_preview, &runPreview, true},
    {"manual", nullptr, "prints this program's manual page or its completion for bash", "", g_manual, &runManual},
};

} // namespace

std::span<const Command> commands()
{
    return g_commands;
}
