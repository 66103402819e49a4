// SPDX-License-Identifier: MIT
// Draws the pictures of docs/gallery.md: zel_gallery FOLDER. Exits with 1 if something was logged, or not written.
#include "Gallery.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QStyleFactory>
#include <cstdio>

namespace {

int g_complaints = 0;

void countComplaints(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg || type == QtInfoMsg || qstrcmp(context.category, "zel") != 0)
        return;
    ++g_complaints;
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the same pictures on all machines
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"), 9);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    QApplication::setFont(font);
    qInstallMessageHandler(&countComplaints);
    const Gallery gallery(application.arguments().value(1, QStringLiteral(".")));
    QStringList names = QDir(QStringLiteral(":/editors")).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
    const QStringList wanted = application.arguments().mid(2);
    QList<QByteArray> all;
    bool isWritten = true;
    for (const QString &name : std::as_const(names)) {
        QFile file(QStringLiteral(":/editors/") + name);
        isWritten = file.open(QIODevice::ReadOnly) && isWritten;
        all.append(file.readAll());
        const QString title = name.chopped(4);
        if (wanted.isEmpty() || wanted.contains(title))
            isWritten = gallery.draw(title, all.last()) && isWritten;
    }
    isWritten = gallery.drawMirrored(all) && isWritten;
    return isWritten && g_complaints == 0 ? 0 : 1;
}
