// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelPushButton.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// A button that sends the owner the action.
class ZEL_EXPORT ZelInspectorActionProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QString menuItemsKeyPath MEMBER menuItemsKeyPath)
    Q_PROPERTY(ZelPushButton *button MEMBER m_button)
public:
    explicit ZelInspectorActionProperty(QObject *owner);

    QString menuItemsKeyPath; ///< carried for subclasses; this editor has no menu
    ZelPushButton *button() const { return m_button; }

    void loadView() override;
    void viewDidInstall() override;
    QWidget *viewForBaselineAlignment() override;

private:
    QPointer<ZelPushButton> m_button;
};
