// SPDX-License-Identifier: MIT
#include "PreviewCommand.h"

#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "PreviewWindow.h"
#include "Resources/ZelBundle.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTimer>
#include <cstdio>

namespace {

enum ExitStatus { Clean = 0, Failed = 1, WrongUsage = 2 };

constexpr int g_pictureDelay = 400; // in milliseconds: what was put off to later turns is to be on the picture

int complain(const QString &message)
{
    std::fprintf(stderr, "zel: %s\n", qPrintable(message));
    return WrongUsage;
}

/// Answers what is wrong, or null.
QString readData(const QString &file, QJsonObject &data)
{
    if (file.isEmpty())
        return {};
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
        return QStringLiteral("%1: %2").arg(file, input.errorString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(input.readAll(), &error);
    if (!document.isObject())
        return QStringLiteral("%1: %2").arg(file, document.isNull() ? error.errorString()
                                                                    : QStringLiteral("An object is expected."));
    data = document.object();
    return {};
}

QString readModel(const QCommandLineParser &arguments, PreviewWindow::Options &options)
{
    PreviewModel::Settings &model = options.model;
    for (const QString &file : arguments.values(QStringLiteral("types"))) {
        if (const QString wrong = model.types.read(file); !wrong.isNull())
            return QStringLiteral("%1: %2").arg(file, wrong);
    }
    options.check.resourceFolders = arguments.values(QStringLiteral("resources"));
    options.check.typeFiles = arguments.values(QStringLiteral("types"));
    options.check.owner = model.owner = arguments.value(QStringLiteral("owner"));
    const QString selections = arguments.values(QStringLiteral("selection")).join(u' ');
    if (const QString wrong = ZelDescriptionChecker::readSelections(selections, model.selections); !wrong.isNull())
        return QStringLiteral("--selection takes PATH=CLASS, not \"%1\".").arg(wrong);
    options.check.selections = model.selections;
    return readData(arguments.value(QStringLiteral("data")), model.data);
}

/// Answers false if the text is no number within the limits.
bool readNumber(const QCommandLineParser &arguments, const QString &option, int least, int most, int &number)
{
    if (!arguments.isSet(option))
        return true;
    bool isRead = false;
    const int value = arguments.value(option).toInt(&isRead);
    if (!isRead || value < least || value > most)
        return false;
    number = value;
    return true;
}

void readLanguage(const QCommandLineParser &arguments, PreviewWindow::Options &options)
{
    options.translations = arguments.values(QStringLiteral("translation"));
    if (!options.translations.isEmpty())
        options.language = 2;
    if (arguments.isSet(QStringLiteral("longer-texts")))
        options.language = 1;
    if (arguments.isSet(QStringLiteral("context")))
        ZelBundle::mainBundle().setLocalizationContext(arguments.value(QStringLiteral("context")));
}

int takePicture(PreviewWindow &window, const QString &file)
{
    for (const QString &line : window.complaints())
        std::fprintf(stderr, "%s\n", qPrintable(line));
    if (!window.grab().save(file, "PNG")) {
        std::fprintf(stderr, "zel: Cannot write %s\n", qPrintable(file));
        return Failed;
    }
    return window.hasErrors() ? Failed : Clean;
}

} // namespace

int runPreview(const QCommandLineParser &arguments)
{
    const QStringList files = arguments.positionalArguments();
    if (files.size() != 1)
        return complain(QStringLiteral("One description is shown at a time."));
    const QString picture = arguments.value(QStringLiteral("screenshot"));
    if (picture.isEmpty() && QGuiApplication::platformName() == u"offscreen")
        return complain(QStringLiteral("There is no display; --screenshot FILE writes a picture."));
    const QFileInfo file(files.first());
    PreviewWindow::Options options;
    options.description = QUrl::fromLocalFile(file.absoluteFilePath());
    if (const QString wrong = readModel(arguments, options); !wrong.isNull())
        return complain(wrong);
    if (!readNumber(arguments, QStringLiteral("width"), 120, 2000, options.width) ||
        !readNumber(arguments, QStringLiteral("text-size"), 50, 300, options.textSize))
        return complain(QStringLiteral("--width is from 120 to 2000 pixels, --text-size from 50 to 300 percent."));
    options.selection =
        arguments.isSet(QStringLiteral("select")) ? arguments.value(QStringLiteral("select")) : options.selection;
    options.isDark = arguments.isSet(QStringLiteral("dark"));
    options.isRightToLeft = arguments.isSet(QStringLiteral("rtl"));
    readLanguage(arguments, options);
    ZelBundle::mainBundle().setResourcePaths(QStringList(file.absolutePath()) +
                                             arguments.values(QStringLiteral("resources")));
    QApplication::setStyle(QStringLiteral("Fusion"));                  // whose palettes can be chosen
    const ZelDeclarativeInspectorGenerator registersWhatTheLibraryHas; // which the checker knows then
    PreviewWindow window(options);
    window.resize(options.width + 640, 720);
    window.show();
    if (!picture.isEmpty())
        QTimer::singleShot(g_pictureDelay, &window, [&] { QCoreApplication::exit(takePicture(window, picture)); });
    return QCoreApplication::exec();
}
