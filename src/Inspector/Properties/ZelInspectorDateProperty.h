// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelDatePicker.h"
#include "Platform/Controls/ZelLabel.h"

/// Edits a date (QDate) or a date and a time (QDateTime) with a field. Several dates, and none, show no date; the next
/// one entered is every object's.
class ZelInspectorDateProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(ZelDatePicker *datePicker MEMBER m_datePicker)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
public:
    explicit ZelInspectorDateProperty(QObject *owner);
    ~ZelInspectorDateProperty() override;

    ZelDatePicker *datePicker() const { return m_datePicker; }
    ZelLabel *label() const { return m_label; }

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;
    double baselineOffsetFromView() const override;

private:
    QPointer<ZelDatePicker> m_datePicker;
    QPointer<ZelLabel> m_label;
};
