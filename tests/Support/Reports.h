// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include <QDebug>
#include <optional>

/// Takes what the library and Qt report while it exists, but for what offscreen platforms complain about.
class Reports : public ZelExceptionReporter
{
public:
    Reports()
        : m_former(setCurrent(this))
        , m_formerHandler(qInstallMessageHandler(&Reports::handle))
    {
        messages.clear();
    }
    ~Reports() override
    {
        qInstallMessageHandler(m_formerHandler);
        setCurrent(m_former);
    }

    void reportException(const QString &message, const ZelSourcePlace &place) override
    {
        messages.append(place.appendedTo(message));
    }
    /// Works, and notes what is thrown.
    template<typename Work> void collect(Work work)
    {
        try {
            work();
        } catch (const ZelException &exception) {
            messages.append(QString::fromUtf8(exception.what()));
        } catch (const std::runtime_error &) { // knows no place: a line of the log is to tell it
        }
    }

    static inline QStringList messages;

private:
    static void handle(QtMsgType type, const QMessageLogContext &, const QString &message)
    {
        if (type != QtDebugMsg && type != QtInfoMsg && !message.startsWith("This plugin does not support"))
            messages.append(message);
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(message));
    }

    ZelExceptionReporter *m_former;
    QtMessageHandler m_formerHandler;
};

template<typename Value> QDebug operator<<(QDebug debug, const std::optional<Value> &value)
{
    return value ? debug << *value : debug << "nothing";
}

/// The values as a debugger shows them, with blanks between: one comparison tells all that differ.
template<typename... Values> QString say(const Values &...values)
{
    QString text;
    QDebug debug(&text);
    (debug << ... << values);
    return text.trimmed();
}
