// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"

Q_LOGGING_CATEGORY(zelLog, "zel")

namespace {

ZelAssertionHandler *g_handler = nullptr;

/// The path below src/, without its ending: "Inspector/ZelInspectorSlice".
QString locationOf(const char *file)
{
    QString path = QString::fromUtf8(file);
    const qsizetype root = path.lastIndexOf(QLatin1String("src/"));
    if (root >= 0)
        path = path.mid(root + 4);
    // Applications know the locations, so these stay the same when a file moves into a subfolder.
    path.remove(QLatin1String("private/")).remove(QLatin1String("Description/"));
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot > path.lastIndexOf(u'/') ? path.left(dot) : path;
}

} // namespace

void ZelLogWarning(const QString &message, const ZelSourcePlace &place)
{
    qCWarning(zelLog).noquote() << "WARNING:" << place.appendedTo(message);
}

void ZelLogError(const QString &message, const ZelSourcePlace &place)
{
    qCWarning(zelLog).noquote() << "ERROR:" << place.appendedTo(message);
}

void ZelAssertionHandler::handleFailure(const QString &location, const QString &message, const ZelSourcePlace &place)
{
    throw ZelInternalInconsistencyException(message, location, place);
}

ZelAssertionHandler *ZelAssertionHandler::current()
{
    static ZelAssertionHandler throwing;
    return g_handler ? g_handler : &throwing;
}

ZelAssertionHandler *ZelAssertionHandler::setCurrent(ZelAssertionHandler *handler)
{
    return std::exchange(g_handler, handler);
}

void ZelFail(const QString &message, const ZelSourcePlace &place, const char *file)
{
    ZelAssertionHandler::current()->handleFailure(locationOf(file), message,
                                                  place.isUnknown() ? ZelPlaceScope::current() : place);
}

void ZelFailParameter(const char *text, const char *file)
{
    ZelFail(QStringLiteral("Invalid parameter not satisfying: ") + QString::fromUtf8(text), {}, file);
}

void ZelReportFailure(const QString &message, const char *file) noexcept
{
    try {
        ZelFail(message, {}, file);
    } catch (...) { // a handler of the application's may throw anything
        qCWarning(zelLog).noquote() << "ERROR:" << message;
    }
}
