// SPDX-License-Identifier: MIT
#include "Storm.h"

#include "Application.h"
#include "Blocks/ZelTransformerKit.h"
#include "Clock.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Models.h"
#include "Progress.h"
#include "Resources/ZelBundle.h"
#include "ViewController/ZelView.h"

#include <QFile>

const std::vector<Storm::Kind> &Storm::kinds()
{
    static const std::vector<Kind> table{
        {"press", 4, true, &Storm::press},
        {"release", 4, true, &Storm::release},
        {"click", 30, true, &Storm::click},
        {"doubleClick", 6, true, &Storm::doubleClick},
        {"drag", 8, true, &Storm::drag},
        {"hover", 4, true, &Storm::hover},
        {"wheel", 10, true, &Storm::wheel},
        {"tablet", 2, true, &Storm::tablet},
        {"key", 50, true, &Storm::key},
        {"type", 15, true, &Storm::type},
        {"edit", 50, true, &Storm::edit},
        {"closePopups", 12, true, &Storm::closePopups},
        {"focus", 15, true, &Storm::focus},
        {"activate", 3, true, &Storm::activate},
        {"select", 40, true, &Storm::select},
        {"selectInGroups", 6, true, &Storm::selectInGroups},
        {"set", 40, false, &Storm::set},
        {"setMany", 6, false, &Storm::setMany},
        {"setPart", 8, false, &Storm::setPart},
        {"setOwner", 6, false, &Storm::setOwner},
        {"kill", 12, false, &Storm::kill},
        {"killPart", 2, false, &Storm::killPart},
        {"add", 14, true, &Storm::add},
        {"content", 6, true, &Storm::content},
        {"killOwner", 1, false, &Storm::killOwner},
        {"watch", 10, false, &Storm::watch},
        {"unwatch", 8, true, &Storm::unwatch},
        {"arm", 4, false, &Storm::arm},
        {"disarm", 8, true, &Storm::disarm},
        {"undo", 16, true, &Storm::undo},
        {"redo", 12, true, &Storm::redo},
        {"command", 4, true, &Storm::command},
        {"baseline", 0, true, &Storm::baseline},
        {"roundTrip", 0, true, &Storm::roundTrip},
        {"tab", 8, true, &Storm::tab},
        {"scroll", 4, true, &Storm::scroll},
        {"reparent", 2, false, &Storm::reparent},
        {"showOrHide", 2, true, &Storm::showOrHide},
        {"rekey", 4, false, &Storm::rekey},
        {"enable", 4, true, &Storm::enable},
        {"rebuild", 1, true, &Storm::rebuild},
        {"rebuildWindow", 1, false, &Storm::rebuildWindow},
        {"look", 1, true, &Storm::look},
        {"resize", 2, true, &Storm::resize},
        {"paint", 1, true, &Storm::paint},
        {"process", 40, true, &Storm::process},
        {"drain", 6, true, &Storm::drain},
        {"wait", 6, true, &Storm::wait},
        {"check", 3, true, &Storm::check},
    };
    return table;
}

Storm::Storm()
{
    Clock::start();
    m_application = std::make_unique<Application>();
    m_reporter = std::make_unique<Reporter>();
    ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)});
    const auto same = [](const QVariant &value) {
        Fault::at(Fault::Transformer);
        return value;
    };
    ZelTransformerKit::registerValueTransformerWithName(QStringLiteral("StormNumber"), QStringLiteral("QVariant"), same,
                                                        same);
    ZelTransformerKit::registerValueTransformerWithName(QStringLiteral("StormText"), QStringLiteral("QVariant"), same,
                                                        same);
    ZelTransformerKit::registerValueTransformerWithName(QStringLiteral("StormTruth"), QStringLiteral("QVariant"), same);
    makeOwner();
    for (quint32 i = 0; i < 8; ++i)
        m_objects.emplace_back(SheetKeys::create(i + 1));
    makeWindow(true);
    makeInspector();
}

Storm::~Storm()
{
    Fault::armed = 0;
    clearWatchers();
    m_inspector.reset();
    m_window.reset();
    m_otherWindow.reset();
    for (const QPointer<QObject> &object : m_objects)
        delete object;
    m_owner.reset();
    m_stack.reset();
}

bool Storm::run(const Steps &steps)
{
    Progress &progress = Progress::shared();
    for (int i = 0; i < steps.size() && !progress.hasFinding(); ++i) {
        const Step &step = steps.at(i);
        progress.step = i;
        progress.detail[0] = 0;
        Clock::advance(5);
        m_isTainted = m_isTainted || !kinds().at(size_t(step.kind)).isEdit;
        asApplication([&] { (this->*kinds().at(size_t(step.kind)).perform)(step); });
        if (step.c % 4 == 0)
            asApplication([] { QCoreApplication::processEvents(); });
        if (traces)
            std::fprintf(stderr, "%d %s: %s, %d of %d commands\n", i, step.toText().constData(), progress.detail,
                         stack() ? stack()->index() : 0, stack() ? stack()->count() : 0);
    }
    progress.faults = Fault::thrown;
    return !progress.hasFinding();
}

void Storm::process(const Step &)
{
    QCoreApplication::processEvents();
}

/// Also deletes what is to be deleted later.
void Storm::drain(const Step &)
{
    settle();
}

void Storm::settle()
{
    for (int i = 0; i < 4; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void Storm::wait(const Step &step)
{
    static const int times[] = {60, 300, 800, 2000, 10000};
    Clock::advance(times[step.a % std::size(times)]);
    QCoreApplication::processEvents();
}

/// Nothing is open, pressed or being entered.
void Storm::calm()
{
    for (int i = 0; i < 8 && QApplication::activePopupWidget(); ++i)
        QApplication::activePopupWidget()->close();
    if (m_window)
        release({});
    commitTyping();
    settle();
}

void Storm::check(const Step &)
{
    calm();
    checkEditors();
}
