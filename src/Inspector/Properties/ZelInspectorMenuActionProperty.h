// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelMenuItem.h"
#include "Platform/Controls/ZelPopUpButton.h"

/// A pull-down menu of actions that the owner supplies.
class ZelInspectorMenuActionProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QString menuItemsKeyPath MEMBER menuItemsKeyPath)
    Q_PROPERTY(ZelPopUpButton *popUpButton MEMBER m_popUpButton)
public:
    explicit ZelInspectorMenuActionProperty(QObject *owner);
    ~ZelInspectorMenuActionProperty() override;

    /// Key path of a list of QAction, which stay the owner's. Choosing one triggers it.
    QString menuItemsKeyPath;
    ZelPopUpButton *popUpButton() const { return m_popUpButton; }

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;

private:
    QPointer<ZelPopUpButton> m_popUpButton;
    QPointer<ZelMenuItem> m_titleItem; // the first item, which a pull-down shows
};
