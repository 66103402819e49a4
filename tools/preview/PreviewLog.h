// SPDX-License-Identifier: MIT
#pragma once

#include <QMutex>
#include <QObject>
#include <QStringList>

/// Takes the library's lines of the log while it exists; they are logged all the same. There is one at a time.
class PreviewLog : public QObject
{
    Q_OBJECT
public:
    explicit PreviewLog(QObject *parent = nullptr);
    ~PreviewLog() override;

    /// What was logged since the last call.
    QStringList take();

Q_SIGNALS:
    /// There are lines to be taken. Sent later, since a line may be logged in the middle of anything.
    void logged();

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message);

    QMutex m_mutex;
    QStringList m_lines;
};
