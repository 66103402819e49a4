// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorCompositeProperty.h"

/// Edits the numbers of margins, of a line or of a vector, each in a field of its own.
class ZEL_EXPORT ZelInspectorNumbersProperty : public ZelInspectorCompositeProperty
{
    Q_OBJECT
    Q_PROPERTY(QVariant first READ first WRITE setFirst NOTIFY firstChanged)
    Q_PROPERTY(QVariant second READ second WRITE setSecond NOTIFY secondChanged)
    Q_PROPERTY(QVariant third READ third WRITE setThird NOTIFY thirdChanged)
    Q_PROPERTY(QVariant fourth READ fourth WRITE setFourth NOTIFY fourthChanged)
public:
    enum Kind { Margins, Line, Vector2, Vector3, Vector4 };
    ZelInspectorNumbersProperty(QObject *owner, Kind kind);

    QVariant first() const { return component(0); }
    void setFirst(const QVariant &value) { setComponent(0, value); }
    QVariant second() const { return component(1); }
    void setSecond(const QVariant &value) { setComponent(1, value); }
    QVariant third() const { return componentIfAny(2); }
    void setThird(const QVariant &value) { setComponent(2, value); }
    QVariant fourth() const { return componentIfAny(3); }
    void setFourth(const QVariant &value) { setComponent(3, value); }

    const QList<QPointer<ZelInspectorNumberProperty>> &numberProperties() const { return m_numberProperties; }

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    QWidget *viewForBaselineAlignment() override;

private:
    QVariant componentIfAny(int index) const;
    void addRow(ZelView *container, const QList<QWidget *> &row, QWidget *above, bool isLast);

    Kind m_kind;
    QList<QPointer<ZelInspectorNumberProperty>> m_numberProperties;
};
