// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// Edits a text with a field that grows with its content. Several texts, and no selection, are shown as the field's
/// placeholder; the field has no value then.
class ZEL_EXPORT ZelInspectorStringProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(bool allowsNilValues MEMBER allowsNilValues)
    Q_PROPERTY(bool editable MEMBER editable)
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(ZelGrowingTextField *textField MEMBER m_textField)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
public:
    explicit ZelInspectorStringProperty(QObject *owner);

    bool allowsNilValues = false; ///< whether an empty field means no value
    bool editable = true;
    QString placeholder;
    ZelGrowingTextField *textField() const { return m_textField; }
    ZelLabel *label() const { return m_label; }

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

private:
    QVariant entered(const QVariant &fieldValue) const;

    QPointer<ZelGrowingTextField> m_textField;
    QPointer<ZelLabel> m_label;
};
