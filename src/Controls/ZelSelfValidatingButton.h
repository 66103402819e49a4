// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelPushButton.h"
#include "Core/KeyValue/ZelSelector.h"
#include "Core/ZelExport.h"

#include <QPointer>
#include <memory>

class ZelDelayedInvocation;
class ZelDelayedValidation;

/// A push button that sends an action and is enabled while there is a receiver that accepts the action.
///
/// While it is shown it checks this again a tenth of a second after any event of the user. ZelActionTarget describes
/// how the receiver is found and how it refuses the action; the receiver is asked about the button as the item. Without
/// an action the button's state is left alone. A click does not take the focus; Tab does.
class ZEL_EXPORT ZelSelfValidatingButton : public ZelPushButton
{
    Q_OBJECT
    /// The receiver of the action. Null, the default, stands for the first object that can take the action, from the
    /// focus widget outwards.
    Q_PROPERTY(QObject *target READ target WRITE setTarget)
    Q_PROPERTY(ZelSelector action READ action WRITE setAction)
    /// A number by which the receiver can tell buttons apart; 0 by default.
    Q_PROPERTY(int tag READ tag WRITE setTag)
    /// True by default.
    Q_PROPERTY(bool autovalidates READ autovalidates WRITE setAutovalidates)
public:
    explicit ZelSelfValidatingButton(QWidget *parent = nullptr);
    ZelSelfValidatingButton(const QString &title, QObject *target, const ZelSelector &action,
                            QWidget *parent = nullptr);
    ~ZelSelfValidatingButton() override;

    QObject *target() const { return m_target; }
    void setTarget(QObject *target);
    const ZelSelector &action() const { return m_action; }
    void setAction(const ZelSelector &action);
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }
    bool autovalidates() const { return m_autovalidates; }
    void setAutovalidates(bool autovalidates) { m_autovalidates = autovalidates; }

    /// Checks now. Does nothing if autovalidates is false or there is no action.
    void validate();
    ZelDelayedInvocation &validateInvocation();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QPointer<QObject> m_target;
    ZelSelector m_action;
    std::unique_ptr<ZelDelayedValidation> m_validation;
    int m_tag = 0;
    bool m_autovalidates = true;
    bool m_observesEvents = false;
};
