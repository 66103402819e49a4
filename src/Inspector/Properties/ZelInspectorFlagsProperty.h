// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"

class ZelCheckBox;
class ZelCheckBoxFlow;
class ZelLabel;

/// Edits flags with a checkbox for each option: the bits that it stands for are set and cleared in every object, and
/// the others stay as they are.
class ZEL_EXPORT ZelInspectorFlagsProperty : public ZelInspectorEnumerationProperty
{
    Q_OBJECT
public:
    explicit ZelInspectorFlagsProperty(QObject *owner);

    /// The boxes, in the order of the options.
    QList<ZelCheckBox *> checkboxes() const;

    /// The titles of the flags that are set.
    QString textForValue(const QVariant &value) const override;
    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    void rebuildView() override;
    QWidget *viewForBaselineAlignment() override;
    QList<QWidget *> controlsNamedByRow() override;

private:
    void toggle(ZelCheckBox *box);

    QPointer<ZelCheckBoxFlow> m_flow;
    QPointer<ZelLabel> m_label;
    QList<Choice> m_flags;
};
