// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelCheckBox.h"

#include <optional>

/// Edits a truth value, or some bits of an integer, with a checkbox.
class ZelInspectorBooleanProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QVariant bits READ bitsValue WRITE setBitsValue)
    Q_PROPERTY(ZelCheckBox *checkbox MEMBER m_checkbox)
public:
    explicit ZelInspectorBooleanProperty(QObject *owner);
    ~ZelInspectorBooleanProperty() override;

    /// The bits that the checkbox sets and clears; without them the value itself becomes 1 or 0.
    std::optional<quint64> bits;
    /// The same as a number, or absent.
    QVariant bitsValue() const { return bits ? QVariant(*bits) : QVariant(); }
    void setBitsValue(const QVariant &value);
    ZelCheckBox *checkbox() const { return m_checkbox; }

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;
    bool canTileIntoColumnsWithWidth(double width) override;

protected:
    bool storesSingleKey() const override { return true; }

private:
    QPointer<ZelCheckBox> m_checkbox;
};
