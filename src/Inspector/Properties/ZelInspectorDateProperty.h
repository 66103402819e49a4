// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelDatePicker.h"
#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// Edits a date (QDate) or a date and a time (QDateTime) with a field. If there is no single date, none is shown, and a
/// date that is entered becomes every object's.
class ZEL_EXPORT ZelInspectorDateProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(ZelDatePicker *datePicker MEMBER m_datePicker)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
public:
    explicit ZelInspectorDateProperty(QObject *owner);

    QString placeholder; ///< shown for no date, where there is a dash otherwise
    ZelDatePicker *datePicker() const { return m_datePicker; }
    ZelLabel *label() const { return m_label; }

    void configure(const ZelInspectorConfiguration &configuration) override;
    /// The date as the field shows it.
    QString textForValue(const QVariant &value) const override;

    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;
    double baselineOffsetFromView() const override;

protected:
    QMetaType valueType() const override { return QMetaType::fromType<QDateTime>(); }

private:
    QPointer<ZelDatePicker> m_datePicker;
    QPointer<ZelLabel> m_label;
};
