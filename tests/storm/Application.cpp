// SPDX-License-Identifier: MIT
#include "Application.h"

#include "Core/Errors/ZelException.h"
#include "Models.h"

#include <QAbstractEventDispatcher>
#include <QFont>
#include <QStyle>
#include <QStyleFactory>

namespace {

QByteArray messageOf(std::exception_ptr thrown)
{
    try {
        std::rethrow_exception(thrown);
    } catch (const std::exception &exception) {
        return exception.what();
    } catch (...) {
        return "not even a std::exception";
    }
}

void hearMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    if (type == QtFatalMsg)
        std::abort();
    // The second is a mistake of applications, which the storm makes on purpose.
    const bool isExpected = message.contains(QStringLiteral("injected fault")) ||
                            message.contains(QStringLiteral("will unload view but the view is still used"));
    if (message.contains(QStringLiteral("ERROR:")) && !isExpected)
        Progress::shared().find("logged: " + message.toUtf8());
}

/// What is thrown while a widget is put into another one, or a dynamic property is set, reaches whoever does that, as
/// with any call.
bool isPartOfCall(int type)
{
    return type == QEvent::ParentChange || type == QEvent::ChildAdded || type == QEvent::Show ||
           type == QEvent::DynamicPropertyChange;
}

int g_argumentCount = 1;
char g_name[] = "storm";
char *g_arguments[] = {g_name, nullptr};

} // namespace

class Storm::Application::Guard : public QApplication
{
public:
    Guard()
        : QApplication(g_argumentCount, g_arguments)
    {
        setQuitOnLastWindowClosed(false);
        setStartDragDistance(1 << 20); // dragging texts about needs an event loop of its own
        setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] {
            // Steps never wait: this is the loop of a dialog or the like.
            if (++m_blocks > 100)
                qFatal("an event loop that does not end");
            if (QWidget *widget = activePopupWidget() ? activePopupWidget() : activeModalWidget())
                widget->close();
            QAbstractEventDispatcher::instance()->wakeUp();
        });
    }

    bool notify(QObject *receiver, QEvent *event) override
    {
        const char *name = receiver->metaObject()->className(); // it may die
        const int type = event->type();
        try {
            return QApplication::notify(receiver, event);
        } catch (...) {
            if (isPartOfCall(type))
                throw;
            Progress::shared().find("left the handler of event " + QByteArray::number(type) + " of " + name + ": " +
                                    messageOf(std::current_exception()));
            return true;
        }
    }

private:
    int m_blocks = 0;
};

Storm::Application::Application()
{
    qInstallMessageHandler(hearMessage);
    m_guard = std::make_unique<Guard>();
}

Storm::Application::~Application() = default;

Storm::Reporter::Reporter()
{
    setCurrent(this);
}

Storm::Reporter::~Reporter()
{
    setCurrent(nullptr);
}

void Storm::Reporter::reportException(const QString &, const ZelSourcePlace &place)
{
    judge("reported at " + place.appendedTo(QString()).toUtf8());
}

void Storm::Reporter::judge(const QByteArray &where)
{
    if (!isExpected())
        Progress::shared().find(where + ": " + messageOf(std::current_exception()));
}

bool Storm::Reporter::isExpected()
{
    try {
        throw;
    } catch (const Fault &) {
        return true;
    } catch (const ZelUndefinedKeyException &exception) {
        // Objects of this class have properties that nobody can write, and lack many.
        return exception.className() == QLatin1String(Locked::staticMetaObject.className());
    } catch (const ZelException &exception) {
        return exception.reason().startsWith(QLatin1String("Unsupported value found: ")); // models hold any value
    } catch (...) {
        return false;
    }
}
