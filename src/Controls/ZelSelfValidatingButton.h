// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelPushButton.h"
#include "Platform/Runtime/ZelSelector.h"

#include <QPointer>
#include <memory>

class ZelDelayedInvocation;
class ZelDelayedValidation;

/// A push button that sends an action and is enabled while the action has a receiver that takes it.
///
/// While it is shown it looks again shortly after the user has done anything. How a receiver is found, and how it says
/// that it does not take the action now, is told at ZelActionTarget; it is asked with the button as the item. Without
/// an action the button is left as it is. A click leaves the focus where it is; Tab leads to the button.
class ZelSelfValidatingButton : public ZelPushButton
{
    Q_OBJECT
    /// Null, the default, stands for the first who can take the action, from the focus widget outwards.
    Q_PROPERTY(QObject *target READ target WRITE setTarget)
    Q_PROPERTY(ZelSelector action READ action WRITE setAction)
    /// For the receiver to tell buttons apart; 0.
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

    /// Looks now. Does nothing where the button does not validate itself.
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
