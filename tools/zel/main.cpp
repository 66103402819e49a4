// SPDX-License-Identifier: MIT
#include "Command.h"
#include "Manual.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

const Command *commandNamed(const QByteArray &name)
{
    const auto all = commands();
    const auto found = std::ranges::find_if(all, [&](const Command &command) { return name == command.name; });
    return found == all.end() ? nullptr : &*found;
}

void print(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
}

/// Windows without a display cannot be seen, but pictures of them can be taken.
void useDisplayIfThereIsOne()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

int runCommand(const Command &command, const QStringList &arguments)
{
    QCommandLineParser parser;
    for (const Option &option : command.options) {
        QStringList names{QLatin1String(option.name)};
        if (option.letter)
            names.append(QLatin1String(option.letter));
        parser.addOption(QCommandLineOption(names, {}, option.value ? QLatin1String(option.value) : QLatin1String()));
    }
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
    if (!parser.parse(arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        print(Manual::help(command));
        return Clean;
    }
    const bool hasArguments = !parser.positionalArguments().isEmpty();
    if (hasArguments != bool(command.arguments))
        return wrongUsage(hasArguments ? QStringLiteral("zel %1 takes no files.").arg(QLatin1String(command.name))
                                       : QStringLiteral("%1 is missing.").arg(QLatin1String(command.arguments)));
    for (const Option &option : command.options) {
        const QString value = parser.value(QLatin1String(option.name));
        if (option.choices && !value.isNull() && !QString::fromLatin1(option.choices).split(u' ').contains(value))
            return wrongUsage(
                QStringLiteral("--%1 is one of: %2").arg(QLatin1String(option.name), QLatin1String(option.choices)));
    }
    return command.run(parser);
}

} // namespace

int wrongUsage(const QString &message)
{
    std::fprintf(stderr, "zel: %s\nTry: zel --help\n", message.toUtf8().constData());
    return WrongUsage;
}

int main(int argc, char *argv[])
{
    QByteArray name = argc > 1 ? argv[1] : "";
    const bool wantsHelp = name == "help" || name == "--help" || name == "-h";
    if (wantsHelp && argc > 2)
        name = argv[2];
    const Command *command = commandNamed(name);
    std::unique_ptr<QCoreApplication> application;
    if (command && command->hasWindows) {
        useDisplayIfThereIsOne();
        application = std::make_unique<QApplication>(argc, argv);
    } else {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // for whatever asks for it
        application = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationVersion(QStringLiteral(ZEL_VERSION));

    if (name == "--version") {
        print(QStringLiteral("zel %1\n").arg(QCoreApplication::applicationVersion()));
        return Clean;
    }
    if (wantsHelp) {
        if (argc > 2 && !command)
            return wrongUsage(QStringLiteral("There is no command \"%1\".").arg(QString::fromUtf8(name)));
        print(command ? Manual::help(*command) : Manual::help());
        return Clean;
    }
    if (!command)
        return wrongUsage(name.isEmpty() ? QStringLiteral("No command is given.")
                                         : QStringLiteral("There is no command \"%1\".").arg(QString::fromUtf8(name)));
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeAt(1);
    return runCommand(*command, arguments);
}
