// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"

/// Chooses one of a list of titles with a pop-up button, or shows the chosen title as text. Where several may be
/// chosen, the button names those that are, and its menu marks them.
class ZEL_EXPORT ZelInspectorTextEnumerationProperty : public ZelInspectorEnumerationProperty
{
    Q_OBJECT
    Q_PROPERTY(ZelPopUpButton *popUpButton MEMBER m_popUpButton)
    Q_PROPERTY(ZelTextField *textField MEMBER m_textField)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
    /// All items in their order: the options, then the separator and the two items for no and for multiple values.
    Q_PROPERTY(QList<ZelMenuItem *> menu READ menuItems STORED false)
    Q_PROPERTY(ZelMenuItem *separatorMenuItem MEMBER m_separatorItem)
    Q_PROPERTY(ZelMenuItem *noSelectionMenuItem MEMBER m_noSelectionItem)
    Q_PROPERTY(ZelMenuItem *multipleValuesMenuItem MEMBER m_multipleValuesItem)
public:
    explicit ZelInspectorTextEnumerationProperty(QObject *owner);

    /// The controls that loadView made; null where there is none.
    ZelPopUpButton *popUpButton() const { return m_popUpButton; }
    ZelTextField *textField() const { return m_textField; }
    ZelLabel *label() const { return m_label; }
    const QList<ZelMenuItem *> &menuItems() const { return m_items; }
    ZelMenuItem *separatorMenuItem() const { return m_separatorItem; }
    ZelMenuItem *noSelectionMenuItem() const { return m_noSelectionItem; }
    ZelMenuItem *multipleValuesMenuItem() const { return m_multipleValuesItem; }
    /// A new item of the menu, which the editor owns; a null title counts as an empty one.
    ZelMenuItem *menuItemWithTitle(const QString &title, const QIcon &image, const QVariant &representedObject,
                                   bool hidden, bool enabled);
    /// The first option that stands for the value; null if there is none.
    ZelMenuItem *menuItemForValue(const QVariant &value) const;

    /// The title of the option that stands for the value.
    QString textForValue(const QVariant &value) const override;

    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    void rebuildView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

private:
    void toggle(const ZelMenuItem *item);
    void updateFlags(const QVariant &value);
    void addItem(const Choice &choice);
    void addFixedItems();
    void showItem(ZelMenuItem *item);
    ZelPopUpButton::ItemMarks marksOfUsedOptions() const;

    QPointer<ZelPopUpButton> m_popUpButton;
    QPointer<ZelTextField> m_textField;
    QPointer<ZelLabel> m_label;
    QList<ZelMenuItem *> m_items;
    QList<ZelMenuItem *> m_options; // made by the last rebuild
    ZelMenuItem *m_separatorItem = nullptr;
    ZelMenuItem *m_noSelectionItem = nullptr;
    ZelMenuItem *m_multipleValuesItem = nullptr;
    ZelMenuItem *m_flagsItem = nullptr; // the title of the button whose menu has flags
};
