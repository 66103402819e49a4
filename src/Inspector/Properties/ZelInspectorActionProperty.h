// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelPushButton.h"

/// A button that sends the owner the action.
class ZelInspectorActionProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QString menuItemsKeyPath MEMBER menuItemsKeyPath)
    Q_PROPERTY(ZelPushButton *button MEMBER m_button)
public:
    explicit ZelInspectorActionProperty(QObject *owner);
    ~ZelInspectorActionProperty() override;

    QString menuItemsKeyPath; ///< carried for subclasses; this editor has no menu
    ZelPushButton *button() const { return m_button; }

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    QWidget *viewForBaselineAlignment() override;

private:
    QPointer<ZelPushButton> m_button;
};
