// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorCompositeProperty.h"

/// The base of the editors of two numbers side by side, with a checkbox above them for "no value" if wanted.
class ZEL_EXPORT ZelInspectorPairProperty : public ZelInspectorCompositeProperty
{
    Q_OBJECT
    Q_PROPERTY(bool nilValueControlIsOffWhenNil MEMBER nilValueControlIsOffWhenNil)
    Q_PROPERTY(QString nonNilValueKeyPath MEMBER nonNilValueKeyPath)
    Q_PROPERTY(ZelInspectorBooleanProperty *nonNilProperty MEMBER m_nonNilProperty)
    /// 1 for a value, 0 for none, or a selection marker.
    Q_PROPERTY(QVariant nonNil READ nonNil WRITE setNonNil NOTIFY nonNilChanged)
public:
    /// Kept for the application; the editors do not need it.
    bool nilValueControlIsOffWhenNil = false;
    /// The owner's key path of the value that the checkbox writes when it is switched on; without one there is no
    /// checkbox.
    QString nonNilValueKeyPath;

    ZelInspectorBooleanProperty *nonNilProperty() const { return m_nonNilProperty; }
    const QVariant &nonNil() const { return m_nonNil; }
    void setNonNil(const QVariant &value);
    /// Writes the value at nonNilValueKeyPath if `nonNil` is true, and else no value.
    Q_INVOKABLE void toggleNilValue();

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    QStringList searchTexts() const override;
    QWidget *viewForBaselineAlignment() override;

Q_SIGNALS:
    void nonNilChanged();

protected:
    using ZelInspectorCompositeProperty::ZelInspectorCompositeProperty;

    struct Title
    {
        QString text;
        QString keyPath;
    };
    virtual Title titleOfComponent(int index) const = 0;
    /// The name of the checkbox's undo step.
    virtual QString toggleActionName() const { return actionName(); }
    ZelInspectorNumberProperty *numberProperty(int index) const { return m_numberProperties[index]; }
    void didUpdateValues() override;
    ZelValueSummary valueSummaryOfPart(const QString &key) const override;

private:
    void addNumberEditors(ZelView *row);

    QPointer<ZelInspectorNumberProperty> m_numberProperties[2];
    QPointer<ZelInspectorBooleanProperty> m_nonNilProperty;
    QVariant m_nonNil;
};
