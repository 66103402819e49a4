// SPDX-License-Identifier: MIT
#include "PreviewLog.h"

namespace {

PreviewLog *g_log = nullptr;
QtMessageHandler g_former = nullptr;

} // namespace

PreviewLog::PreviewLog(QObject *parent)
    : QObject(parent)
{
    g_log = this;
    g_former = qInstallMessageHandler(&PreviewLog::handle);
}

PreviewLog::~PreviewLog()
{
    qInstallMessageHandler(g_former);
    g_log = nullptr;
}

QStringList PreviewLog::take()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_lines, {});
}

void PreviewLog::handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (g_former)
        g_former(type, context, message);
    if (!g_log || qstrcmp(context.category, "zel") != 0 || type == QtDebugMsg)
        return;
    const QMutexLocker lock(&g_log->m_mutex);
    if (g_log->m_lines.isEmpty())
        QMetaObject::invokeMethod(g_log, &PreviewLog::logged, Qt::QueuedConnection);
    g_log->m_lines.append(message);
}
