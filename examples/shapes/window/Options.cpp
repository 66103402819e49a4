// SPDX-License-Identifier: MIT
#include "window/Options.h"

#include <QCommandLineParser>
#include <QStandardPaths>
#include <cstdio>

namespace {
[[noreturn]] void refuse(const QString &option, const QString &value)
{
    std::fprintf(stderr, "--%s: %s makes no sense\n", qPrintable(option), qPrintable(value));
    std::exit(2);
}

class Reader
{
public:
    explicit Reader(const QCommandLineParser &parser)
        : m_parser(parser)
    {
    }

    void read(const QString &option, int &value, int least) const
    {
        if (m_parser.isSet(option))
            value = number(option, m_parser.value(option), least);
    }
    void read(const QString &option, QString &value) const
    {
        if (m_parser.isSet(option))
            value = m_parser.value(option);
    }
    int number(const QString &option, const QString &text, int least) const
    {
        bool ok = false;
        const int number = text.toInt(&ok);
        if (!ok || number < least)
            refuse(option, text);
        return number;
    }

private:
    const QCommandLineParser &m_parser;
};
} // namespace

Options Options::parse(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A small drawing program whose inspector is described in XML."));
    parser.addHelpOption();
    parser.addOptions({
        {"screenshot", "Write a picture of the window to the file, and exit.", "file"},
        {"select", "Select none, all, or the shapes of these numbers, from 0.", "none|all|N,N"},
        {"tab", "Show this tab of the inspector, from 0.", "number"},
        {"objects", "Start with so many shapes.", "number"},
        {"description", "Use the inspector description in this folder.", "folder"},
        {"language", "Speak en or de.", "language"},
        {"dark", "Use the dark palette."},
        {"inspector-width", "The width of the inspector in pixels; 0 collapses it.", "pixels"},
        {"zoom", "Magnify the page to so many percent.", "percent"},
    });
    parser.process(application);

    Options options;
    const Reader reader(parser);
    reader.read("screenshot", options.screenshot);
    reader.read("tab", options.tab, 0);
    reader.read("objects", options.shapeCount, 0);
    reader.read("description", options.description);
    reader.read("language", options.language);
    reader.read("inspector-width", options.inspectorWidth, 0);
    reader.read("zoom", options.zoom, 1);
    if (options.screenshot.isEmpty())
        options.settings =
            QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/shapes.ini");
    options.dark = parser.isSet("dark");
    const QString select = parser.value("select");
    options.selectsAll = select == u"all";
    if (!select.isEmpty() && !options.selectsAll && select != u"none") {
        for (const QString &text : select.split(u','))
            options.selectedRows.append(reader.number("select", text, 0));
    }
    return options;
}
