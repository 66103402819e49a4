// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelCheckBox.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

#include <optional>

/// Edits a truth value, or some bits of an integer, with a checkbox.
class ZEL_EXPORT ZelInspectorBooleanProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QVariant bits READ bitsValue WRITE setBitsValue)
    Q_PROPERTY(ZelCheckBox *checkbox MEMBER m_checkbox)
public:
    explicit ZelInspectorBooleanProperty(QObject *owner);

    /// The bits that the checkbox sets and clears; without them, the value itself becomes 1 or 0.
    std::optional<quint64> bits;
    /// The bits as a number; absent without any.
    QVariant bitsValue() const { return bits ? QVariant(*bits) : QVariant(); }
    void setBitsValue(const QVariant &value);
    ZelCheckBox *checkbox() const { return m_checkbox; }

    /// "On" or "Off".
    QString textForValue(const QVariant &value) const override;
    ZelValueSummary valueSummary() const override;

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;
    bool canTileIntoColumnsWithWidth(double width) override;

protected:
    QMetaType valueType() const override { return QMetaType::fromType<bool>(); }
    std::optional<quint64> editedBits() const override { return bits; }
    bool storesSingleKey() const override { return true; }

private:
    QPointer<ZelCheckBox> m_checkbox;
};
