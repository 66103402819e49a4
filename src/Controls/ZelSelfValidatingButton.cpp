// SPDX-License-Identifier: MIT
#include "Controls/ZelSelfValidatingButton.h"

#include "Controls/private/ZelDelayedValidation.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Observation/ZelObservations.h"
#include "ViewController/private/ZelActionTarget.h"

namespace {
const char g_context = 0;
}

ZelSelfValidatingButton::ZelSelfValidatingButton(QWidget *parent)
    : ZelSelfValidatingButton(QString(), nullptr, ZelSelector(), parent)
{
}

ZelSelfValidatingButton::ZelSelfValidatingButton(const QString &title, QObject *target, const ZelSelector &action,
                                                 QWidget *parent)
    : ZelPushButton(title, parent)
    , m_target(target)
    , m_action(action)
    , m_validation(std::make_unique<ZelDelayedValidation>([this] { validate(); }))
{
    setFocusPolicy(Qt::TabFocus); // a click must not take the focus from the receiver of the action
    connect(this, &QAbstractButton::clicked, this, [this] {
        ZelExceptionReporter::run(this, [this] { ZelActionTarget::perform(m_action, m_target, this, this); });
    });
}

ZelSelfValidatingButton::~ZelSelfValidatingButton()
{
    ZelObservations(this).removeAllObservationsForContext(&g_context);
}

ZelDelayedInvocation &ZelSelfValidatingButton::validateInvocation()
{
    return m_validation->invocation();
}

void ZelSelfValidatingButton::setTarget(QObject *target)
{
    m_target = target;
    validate();
}

void ZelSelfValidatingButton::setAction(const ZelSelector &action)
{
    m_action = action;
    validate();
}

void ZelSelfValidatingButton::validate()
{
    if (!m_autovalidates || m_action.isNull())
        return;
    const QPointer<ZelSelfValidatingButton> guard(this);
    const bool isValid = ZelActionTarget::isValid(m_action, m_target, this, this);
    if (guard)
        setEnabled(isValid);
}

void ZelSelfValidatingButton::showEvent(QShowEvent *event)
{
    ZelPushButton::showEvent(event);
    if (m_observesEvents)
        return;
    m_observesEvents = true;
    m_validation->observeEvents(this, &g_context);
    // Checks at once, so that the button is never seen in a wrong state, and once more later, when the window has its
    // focus.
    m_validation->invocation().schedule();
    validate();
}

void ZelSelfValidatingButton::hideEvent(QHideEvent *event)
{
    ZelPushButton::hideEvent(event);
    m_observesEvents = false;
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    m_validation->invocation().cancel();
}
