// SPDX-License-Identifier: MIT
// The application itself, what may be thrown in it, and its time.
#include "Storm.h"
#include "Blocks/ZelTransformerKit.h"
#include "Core/Errors/ZelException.h"
#include "Resources/ZelBundle.h"
#include <sys/mman.h>

namespace {
bool isProvoked(const std::exception &exception)
{
    // Objects of one class have properties that nobody can write, and lack many. Others hold any value.
    if (const auto *unknown = dynamic_cast<const ZelUndefinedKeyException *>(&exception))
        return unknown->className() == QLatin1String(Locked::staticMetaObject.className());
    const auto *raised = dynamic_cast<const ZelException *>(&exception);
    return (raised && raised->reason().startsWith(QLatin1String("Unsupported value found: "))) ||
           dynamic_cast<const Fault *>(&exception);
}

/// Finds the exception that is being handled, unless the storm may have provoked it.
void judge(const QByteArray &where, bool mayBeProvoked = true)
{
    QByteArray message = "not even a std::exception";
    try {
        throw;
    } catch (const std::exception &exception) {
        message = exception.what();
        if (mayBeProvoked && isProvoked(exception))
            return;
    } catch (...) {
    }
    Progress::find(where + ": " + message);
}

class Reporter : public ZelExceptionReporter
{
public:
    void reportException(const QString &, const ZelSourcePlace &place) override
    {
        judge("reported at " + place.appendedTo(QString()).toUtf8());
    }
};

void hearMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    if (type == QtFatalMsg)
        std::abort();
    // The second is a mistake of applications, which the storm makes on purpose.
    const bool isProvoked = message.contains(QStringLiteral("injected fault")) ||
                            message.contains(QStringLiteral("will unload view but the view is still used"));
    if (message.contains(QStringLiteral("ERROR:")) && !isProvoked)
        Progress::find("logged: " + message.toUtf8());
}

int g_argumentCount = 1;
char g_name[] = "storm";
char *g_arguments[] = {g_name, nullptr};

/// What leaves the handler of an event is found here; an event loop that something else runs is ended.
class Application : public QApplication
{
public:
    Application()
        : QApplication(g_argumentCount, g_arguments)
    {
        setQuitOnLastWindowClosed(false);
        setStartDragDistance(1 << 20); // dragging texts about needs an event loop of its own
        setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [] {
            static int blocks = 0; // steps never wait: this is the loop of a dialog or the like
            if (++blocks > 100)
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
            // What is thrown while a widget is put into another one, or a dynamic property is set, reaches whoever does
            // that, as with any call.
            if (type == QEvent::ParentChange || type == QEvent::ChildAdded || type == QEvent::Show ||
                type == QEvent::DynamicPropertyChange)
                throw;
            judge("left the handler of event " + QByteArray::number(type) + " of " + name, false);
            return true;
        }
    }
};
} // namespace

QByteArray Step::toText() const
{
    return kind + " " + QByteArray::number(a) + " " + QByteArray::number(b) + " " + QByteArray::number(c);
}

Progress &Progress::shared()
{
    static auto *progress =
        new (mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Progress;
    return *progress;
}

void Progress::find(const QByteArray &text, const QString &newDetail)
{
    if (shared().finding[0])
        return;
    qstrncpy(shared().finding, text.constData(), sizeof finding);
    if (!newDetail.isEmpty())
        setDetail(newDetail.toUtf8());
}

Storm::Storm()
{
    addUserSteps();
    addModelSteps();
    addUndoSteps();
    addWindowSteps();
    add("process", 40, Edit, [](const Step &) { QCoreApplication::processEvents(); });
    // Also deletes what is to be deleted later.
    add("drain", 6, Edit, [this](const Step &) { settle(); });
    add("wait", 6, Edit, [](const Step &step) {
        static const int times[] = {60, 300, 800, 2000, 10000};
        advanceTime(times[step.a % std::size(times)]);
        QCoreApplication::processEvents();
    });
    add("check", 3, Edit, [this](const Step &) {
        calm();
        checkEditors();
    });
}

const Storm::Kind &Storm::kind(const QByteArray &name) const
{
    for (const Kind &kind : m_kinds) {
        if (kind.name == name)
            return kind;
    }
    throw std::runtime_error("no such step: " + name.toStdString());
}

void Storm::asApplication(const std::function<void()> &work)
{
    try {
        work();
    } catch (...) {
        judge("a call raised");
    }
}

void Storm::run(const Steps &steps)
{
    Reporter reporter;
    ZelExceptionReporter::setCurrent(&reporter);
    advanceTime(0);
    qInstallMessageHandler(hearMessage);
    m_application = std::make_unique<Application>();
    ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)});
    const auto same = [](const QVariant &value) {
        Fault::at(Fault::Transformer);
        return value;
    };
    using Kit = ZelTransformerKit;
    for (const QString &name : {QStringLiteral("StormNumber"), QStringLiteral("StormText")})
        Kit::registerValueTransformerWithName(name, QStringLiteral("QVariant"), same, same);
    Kit::registerValueTransformerWithName(QStringLiteral("StormTruth"), QStringLiteral("QVariant"), same);
    makeOwner();
    for (quint32 i = 0; i < 8; ++i)
        m_objects.emplace_back(SheetKeys::create(i + 1));
    makeWindow(true);
    makeInspector();
    Progress &progress = Progress::shared();
    for (int i = 0; i < steps.size() && !progress.finding[0]; ++i) {
        const Step &step = steps.at(i);
        const Kind &known = kind(step.kind);
        progress.step = i;
        progress.detail[0] = 0;
        advanceTime(5);
        m_isTainted = m_isTainted || known.effect == Change;
        asApplication([&] { known.perform(step); });
        if (step.c % 4 == 0)
            asApplication([] { QCoreApplication::processEvents(); });
        if (traces)
            std::fprintf(stderr, "%d %s: %s, %d of %d commands\n", i, step.toText().constData(), progress.detail,
                         stack() ? stack()->index() : 0, stack() ? stack()->count() : 0);
    }
    progress.faults = Fault::thrown;
    Fault::armed = 0;
    clearWatchers();
    m_inspector.reset();
    m_window.reset();
    m_otherWindow.reset();
    for (const QPointer<QObject> &object : m_objects)
        delete object;
    m_owner.reset();
    m_stack.reset();
    m_application.reset();
    ZelExceptionReporter::setCurrent(nullptr);
}

void Storm::settle()
{
    for (int i = 0; i < 4; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// Nothing is open, pressed or being entered.
void Storm::calm()
{
    for (int i = 0; i < 8 && QApplication::activePopupWidget(); ++i)
        QApplication::activePopupWidget()->close();
    if (m_window)
        kind("release").perform({});
    commitTyping();
    settle();
}
