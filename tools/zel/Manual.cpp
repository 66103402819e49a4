// SPDX-License-Identifier: MIT
#include "Manual.h"

#include "Command.h"

#include <QStringList>
#include <cstdio>

namespace {

QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}

QString usage(const Command &command)
{
    return QStringLiteral("zel %1%2 [OPTIONS]")
        .arg(text(command.name), command.arguments ? QString(u' ' + text(command.arguments)) : QString());
}

QString signature(const Option &option)
{
    const QString letter = option.letter ? QStringLiteral("-%1, ").arg(text(option.letter)) : QString();
    const QString value = option.value ? QString(u' ' + text(option.value)) : QString();
    return QString(letter + QStringLiteral("--") + text(option.name) + value);
}

/// A text for man, in which a backslash and a hyphen mean something else.
QString escaped(QString line)
{
    return line.replace(u'\\', QStringLiteral("\\e")).replace(u'-', QStringLiteral("\\-"));
}

QStringList optionNames(const Command &command)
{
    QStringList names;
    for (const Option &option : command.options)
        names.append(QStringLiteral("--") + text(option.name));
    names.append(QStringLiteral("--help"));
    return names;
}

QString caseForValue(const Command &command, const Option &option)
{
    if (!option.value)
        return {};
    const QString value = text(option.value);
    QString words = QStringLiteral("COMPREPLY=()");
    if (option.choices)
        words = QStringLiteral("COMPREPLY=($(compgen -W '%1' -- \"$word\"))").arg(text(option.choices));
    else if (value == u"FILE" || value == u"FOLDER")
        words = QStringLiteral("COMPREPLY=($(compgen %1 -- \"$word\"))")
                    .arg(value == u"FILE" ? QStringLiteral("-f") : QStringLiteral("-d"));
    QString pattern = text(command.name) + QStringLiteral(",--") + text(option.name);
    if (option.letter)
        pattern += u'|' + text(command.name) + QStringLiteral(",-") + text(option.letter);
    return QStringLiteral("        %1) %2; return ;;\n").arg(pattern, words);
}

} // namespace

QString Manual::help()
{
    QString result = QStringLiteral("zel: a help for those who write descriptions of inspectors\n\n"
                                    "Usage: zel COMMAND [FILES] [OPTIONS]\n\n");
    for (const Command &command : commands())
        result += QStringLiteral("  %1 %2\n").arg(text(command.name), -10).arg(text(command.summary));
    return result + QStringLiteral("\nzel COMMAND --help tells the options of a command, zel --version the version.\n");
}

QString Manual::help(const Command &command)
{
    QString result =
        QStringLiteral("Usage: %1\n\nzel %2 %3.\n\n").arg(usage(command), text(command.name), text(command.summary));
    for (const Option &option : command.options)
        result += QStringLiteral("  %1 %2\n").arg(signature(option), -24).arg(text(option.summary));
    return result;
}

QString Manual::page()
{
    QString result =
        QStringLiteral(".TH ZEL 1\n.SH NAME\nzel \\- a help for those who write descriptions of inspectors\n"
                       ".SH SYNOPSIS\n");
    for (const Command &command : commands())
        result += QStringLiteral(".B %1\n.br\n").arg(escaped(usage(command)));
    result += QStringLiteral(".SH DESCRIPTION\nA description is a file in XML from which the library Zel builds the "
                             "inspector of an application.\nOptions with a value may be given several times.\n");
    for (const Command &command : commands()) {
        result += QStringLiteral(".SS %1\n").arg(escaped(usage(command)));
        result += escaped(text(command.description)).replace(QStringLiteral("\n\n"), QStringLiteral("\n.PP\n")) + u'\n';
        for (const Option &option : command.options)
            result += QStringLiteral(".TP\n.B %1\n%2\n").arg(escaped(signature(option)), escaped(text(option.summary)));
    }
    return result;
}

QString Manual::completion()
{
    QStringList names;
    QString values;
    QString options;
    for (const Command &command : commands()) {
        names.append(text(command.name));
        for (const Option &option : command.options)
            values += caseForValue(command, option);
        options +=
            QStringLiteral("        %1) options='%2' ;;\n").arg(text(command.name), optionNames(command).join(u' '));
    }
    return QStringLiteral("# Completion of zel for bash; made by zel itself.\n"
                          "_zel()\n{\n"
                          "    local word=${COMP_WORDS[COMP_CWORD]} options=\n"
                          "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                          "        COMPREPLY=($(compgen -W '%1 help --help --version' -- \"$word\"))\n"
                          "        return\n"
                          "    fi\n"
                          "    case ${COMP_WORDS[1]},${COMP_WORDS[COMP_CWORD-1]} in\n%2    esac\n"
                          "    case ${COMP_WORDS[1]} in\n"
                          "        help) COMPREPLY=($(compgen -W '%1' -- \"$word\")); return ;;\n%3    esac\n"
                          "    case $word in\n"
                          "        -*) COMPREPLY=($(compgen -W \"$options\" -- \"$word\")) ;;\n"
                          "        *) COMPREPLY=($(compgen -f -- \"$word\")) ;;\n"
                          "    esac\n}\n"
                          "complete -o filenames -F _zel zel\n")
        .arg(names.join(u' '), values, options);
}

int runManual(const QCommandLineParser &arguments)
{
    const QString result = arguments.isSet(QStringLiteral("completion")) ? Manual::completion() : Manual::page();
    std::fputs(result.toUtf8().constData(), stdout);
    return Clean;
}
