// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// Edits a text with a field that grows with its content. Several texts, and no selection, are shown as the field's
/// placeholder; the field has no value then.
///
/// With editsMultipleValues, several texts can be overwritten: what is typed becomes the text of every object. A field
/// in which nothing stands in the end writes nothing, so that nobody loses their texts by entering and leaving it.
class ZEL_EXPORT ZelInspectorStringProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(bool allowsNilValues MEMBER allowsNilValues)
    Q_PROPERTY(bool editable MEMBER editable)
    Q_PROPERTY(bool editsMultipleValues MEMBER editsMultipleValues)
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(ZelGrowingTextField *textField MEMBER m_textField)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
public:
    explicit ZelInspectorStringProperty(QObject *owner);

    bool allowsNilValues = false; ///< whether an empty field means no value
    bool editable = true;
    bool editsMultipleValues = false; ///< whether several different texts can be overwritten
    QString placeholder;
    ZelGrowingTextField *textField() const { return m_textField; }
    ZelLabel *label() const { return m_label; }

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

protected:
    QMetaType valueType() const override { return QMetaType::fromType<QString>(); }

private:
    static QVariant shown(const QVariant &value);
    bool overwrites(const QVariant &value) const;
    bool isOfExpressions() const;
    void writeExpression(const QString &pattern);
    QVariant entered(const QVariant &fieldValue) const;

    QPointer<ZelGrowingTextField> m_textField;
    QPointer<ZelLabel> m_label;
};
