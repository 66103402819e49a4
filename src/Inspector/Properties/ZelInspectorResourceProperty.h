// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelComboBox.h"
#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// Edits the name of one of the owner's resources: a field that completes what is typed, with the names in its menu.
/// Other names may be typed as well. The control is bound to the model.
class ZEL_EXPORT ZelInspectorResourceProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(QString resourcesKeyPath MEMBER resourcesKeyPath)
    Q_PROPERTY(ZelComboBox *comboBox MEMBER m_comboBox)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
public:
    explicit ZelInspectorResourceProperty(QObject *owner);

    QString placeholder;      ///< shown for no value
    QString resourcesKeyPath; ///< of the list of names
    ZelComboBox *comboBox() const { return m_comboBox; }
    ZelLabel *label() const { return m_label; }

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    QWidget *viewForBaselineAlignment() override;
    QList<QWidget *> controlsNamedByRow() override;
    /// The placeholder for no value, and the other way round.
    QString textOfValue(const QVariant &modelValue) const override;
    bool readText(const QString &text, QVariant *modelValue, QString *error) const override;

private:
    QPointer<ZelComboBox> m_comboBox;
    QPointer<ZelLabel> m_label;
};
