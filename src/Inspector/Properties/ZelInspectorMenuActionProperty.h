// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// A pull-down menu of actions that the owner supplies.
class ZEL_EXPORT ZelInspectorMenuActionProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QString menuItemsKeyPath MEMBER menuItemsKeyPath)
    Q_PROPERTY(ZelPopUpButton *popUpButton MEMBER m_popUpButton)
public:
    explicit ZelInspectorMenuActionProperty(QObject *owner);

    /// Key path of a list of QAction, which stay the owner's. Choosing one triggers it.
    QString menuItemsKeyPath;
    ZelPopUpButton *popUpButton() const { return m_popUpButton; }

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;

private:
    QPointer<ZelPopUpButton> m_popUpButton;
    QPointer<ZelMenuItem> m_titleItem; // the first item, which a pull-down shows
};
