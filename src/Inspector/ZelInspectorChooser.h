// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelSelector.h"
#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorChooserChoice.h"
#include "Views/ZelSwitchContainerView.h"

class ZelInspectorSliver;
class ZelInspectorTextEnumerationProperty;
class ZelMenuItem;
class ZelOptionGroup;

/// A row with a pop-up of choices, and below it the content of the choice whose value the model holds.
///
/// If no choice stands for the value, no content is shown. The choices are read when the view is made; later changes of
/// them do not show.
class ZEL_EXPORT ZelInspectorChooser : public ZelInspectorConditionalContainer
{
    Q_OBJECT
    /// The value that the pop-up shows and edits.
    Q_PROPERTY(QString keyPath READ keyPath WRITE setKeyPath NOTIFY keyPathChanged)
    /// True by default. Enables the pop-up.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString enabledKeyPath READ enabledKeyPath WRITE setEnabledKeyPath NOTIFY enabledKeyPathChanged)
    /// Sent to the owner after every choice by the user.
    Q_PROPERTY(ZelSelector actionSelector READ actionSelector WRITE setActionSelector NOTIFY actionSelectorChanged)
    /// Names the undo step of every choice by the user.
    Q_PROPERTY(QString actionName READ actionName WRITE setActionName NOTIFY actionNameChanged)
    Q_PROPERTY(QList<ZelInspectorChooserChoice *> choices READ choices WRITE setChoices NOTIFY choicesChanged)
    // What the chooser shows and what it is made of. The chooser sets these; so may a subclass that makes its view
    // differently.
    Q_PROPERTY(
        ZelInspectorChooserChoice *currentChoice READ currentChoice MEMBER m_currentChoice NOTIFY currentChoiceChanged)
    Q_PROPERTY(ZelInspectorSliver *sliver READ sliver MEMBER m_sliver NOTIFY sliverChanged)
    Q_PROPERTY(ZelInspectorTextEnumerationProperty *property READ property MEMBER m_property NOTIFY propertyChanged)
    Q_PROPERTY(
        ZelSwitchContainerView *containerView READ containerView MEMBER m_containerView NOTIFY containerViewChanged)
    Q_MOC_INCLUDE("Inspector/Properties/ZelInspectorTextEnumerationProperty.h")
    Q_MOC_INCLUDE("Inspector/ZelInspectorSliver.h")
    /// These two items are kept for the application and are null by default; the chooser does not use them. An item
    /// without a parent becomes the chooser's child.
    Q_PROPERTY(ZelMenuItem *separatorMenuItem READ separatorMenuItem WRITE setSeparatorMenuItem NOTIFY
                   separatorMenuItemChanged)
    Q_PROPERTY(ZelMenuItem *multipleValuesMenuItem READ multipleValuesMenuItem WRITE setMultipleValuesMenuItem NOTIFY
                   multipleValuesMenuItemChanged)
    Q_MOC_INCLUDE("Controls/Menus/ZelMenuItem.h")
public:
    explicit ZelInspectorChooser(QObject *owner);
    ~ZelInspectorChooser() override;

    const QString &keyPath() const { return m_keyPath; }
    void setKeyPath(const QString &keyPath);
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    const QString &enabledKeyPath() const { return m_enabledKeyPath; }
    void setEnabledKeyPath(const QString &keyPath);
    const ZelSelector &actionSelector() const { return m_actionSelector; }
    void setActionSelector(const ZelSelector &selector);
    const QString &actionName() const { return m_actionName; }
    void setActionName(const QString &name);
    QList<ZelInspectorChooserChoice *> choices() const { return m_choices.list(); }
    void setChoices(const QList<ZelInspectorChooserChoice *> &choices);

    /// The first choice with an equal value; null if there is none.
    ZelInspectorChooserChoice *choiceForValue(const QVariant &value) const;
    /// The choice whose content is shown; null for none.
    ZelInspectorChooserChoice *currentChoice() const { return m_currentChoice; }
    /// Shows the content of the choice that the model's value stands for.
    void updateContentView();

    ZelMenuItem *separatorMenuItem() const;
    void setSeparatorMenuItem(ZelMenuItem *item);
    ZelMenuItem *multipleValuesMenuItem() const;
    void setMultipleValuesMenuItem(ZelMenuItem *item);

    // These are made with the view and are null before. A view that is loaded after the owner has died has no row with
    // the pop-up.
    ZelInspectorSliver *sliver() const;
    ZelInspectorTextEnumerationProperty *property() const;
    ZelSwitchContainerView *containerView() const;

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    /// Asks the row with the pop-up, the current choice and the chooser's own editors; stops with false at the first
    /// refusal. Does nothing and answers true while the view is not installed.
    bool commitEditing() override;
    void discardEditing() override;

Q_SIGNALS:
    void keyPathChanged();
    void enabledChanged();
    void enabledKeyPathChanged();
    void actionSelectorChanged();
    void actionNameChanged();
    void choicesChanged();
    void currentChoiceChanged();
    void sliverChanged();
    void propertyChanged();
    void containerViewChanged();
    void separatorMenuItemChanged();
    void multipleValuesMenuItemChanged();

protected:
    /// The tool tip belongs to the row with the pop-up, the help text to what is chosen, too.
    void showHelp() override;
    void titleDidChange() override;

    QList<QPointer<ZelViewController>> childControllers() const override;

private:
    void adopt(ZelMenuItem *item);
    void makeSliver();
    ZelOptionGroup *makeOptionGroup();
    void configureProperty();
    void observeKeyPath();

    QString m_keyPath;
    QString m_enabledKeyPath;
    QString m_actionName;
    ZelSelector m_actionSelector;
    ZelChildControllers<ZelInspectorChooserChoice> m_choices;
    QPointer<ZelInspectorChooserChoice> m_currentChoice;
    QPointer<ZelInspectorSliver> m_sliver;
    QPointer<ZelInspectorTextEnumerationProperty> m_property;
    QPointer<ZelSwitchContainerView> m_containerView;
    QPointer<ZelMenuItem> m_separatorMenuItem;
    QPointer<ZelMenuItem> m_multipleValuesMenuItem;
    bool m_enabled = true;
};
