// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"
#include "window/Options.h"
#include "window/ShapesApplication.h"

#include <QFileInfo>
#include <QPixmap>
#include <QTimer>
#include <cstdio>

namespace {
void takePicture(MainWindow &window, const QString &file)
{
    const bool saved = window.grab().save(file, "PNG");
    const QString path = QFileInfo(file).absoluteFilePath();
    std::fprintf(saved ? stdout : stderr, saved ? "%s\n" : "Cannot write %s\n", qPrintable(path));
    QCoreApplication::exit(saved ? 0 : 1);
}
} // namespace

int main(int argc, char *argv[])
{
    ShapesApplication application(argc, argv);
    Options options = Options::parse(application);
    if (options.screenshot.isEmpty() && ShapesApplication::isHeadless())
        options.screenshot = QStringLiteral("shapes.png");
    MainWindow window(options);
    window.show();
    // What was put off to later turns of the event loop is to be on the picture.
    if (!options.screenshot.isEmpty())
        QTimer::singleShot(300, &window, [&] { takePicture(window, options.screenshot); });
    return application.exec();
}
