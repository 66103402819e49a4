// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"
#include "Platform/Controls/ZelLabel.h"
#include "Platform/Controls/ZelPopUpButton.h"
#include "Platform/Controls/ZelTextField.h"

class ZelMenuItem;

/// Chooses one of a list of titles with a pop-up button, or shows the chosen title as text.
class ZelInspectorTextEnumerationProperty : public ZelInspectorEnumerationProperty
{
    Q_OBJECT
public:
    explicit ZelInspectorTextEnumerationProperty(QObject *owner);
    ~ZelInspectorTextEnumerationProperty() override;

    /// The controls that loadView made; null where there is none.
    ZelPopUpButton *popUpButton() const { return m_popUpButton; }
    ZelTextField *textField() const { return m_textField; }
    ZelLabel *label() const { return m_label; }
    /// All items in their order: the options, then the separator and the two items for no and for multiple values.
    const QList<ZelMenuItem *> &menuItems() const { return m_items; }
    ZelMenuItem *separatorMenuItem() const { return m_separatorItem; }
    ZelMenuItem *noSelectionMenuItem() const { return m_noSelectionItem; }
    ZelMenuItem *multipleValuesMenuItem() const { return m_multipleValuesItem; }
    /// The first option that stands for the value; null if there is none.
    ZelMenuItem *menuItemForValue(const QVariant &value) const;

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    void rebuildView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

private:
    ZelMenuItem *addItem(const Choice &choice);
    void addFixedItems();
    void showItem(ZelMenuItem *item);

    QPointer<ZelPopUpButton> m_popUpButton;
    QPointer<ZelTextField> m_textField;
    QPointer<ZelLabel> m_label;
    QList<ZelMenuItem *> m_items;
    QList<ZelMenuItem *> m_options; // made by the last rebuild
    ZelMenuItem *m_separatorItem = nullptr;
    ZelMenuItem *m_noSelectionItem = nullptr;
    ZelMenuItem *m_multipleValuesItem = nullptr;
};
