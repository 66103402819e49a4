// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelCheckBox.h"
#include "Platform/Controls/ZelLabel.h"
#include "Platform/Controls/ZelSlider.h"
#include "Platform/Controls/ZelStepper.h"
#include "Platform/Controls/ZelTextField.h"

#include <optional>

/// Edits a number: a text field with a unit, a stepper or a slider or both, and a checkbox for "no value".
///
/// The controls are bound to the model. Limits hold for stepper and slider; what is typed is not limited.
class ZelInspectorNumberProperty : public ZelInspectorProperty
{
    Q_OBJECT
public:
    enum FormatStyle { IntegerStyle = 0, DecimalStyle = 1 };
    enum SliderType { NoSlider = 0, CircularSlider = 1, LinearSlider = 2 };

    explicit ZelInspectorNumberProperty(QObject *owner);
    ~ZelInspectorNumberProperty() override;

    /// Whether the checkbox is off (rather than on) for no value; false by default.
    bool nilValueControlIsOffWhenNil = false;
    uint formatStyle = IntegerStyle;
    QString formatUnit; ///< appended to the number, with any leading space
    uint sliderType = NoSlider;
    std::optional<double> increment = 1;
    QString incrementKeyPath;
    bool slidesInSteps = false; ///< whether the slider keeps to steps of the increment; else it goes anywhere
    std::optional<double> maximum;
    QString maximumKeyPath;
    std::optional<double> minimum;
    QString minimumKeyPath;
    QString placeholder;        ///< shown for no value
    QString nonNilValueKeyPath; ///< of the value written when the checkbox is switched to "has a value"
    QString nonNilValueTitle;   ///< the checkbox's title; without one there is no checkbox

    ZelTextField *textField() const { return m_textField; }
    ZelStepper *stepper() const { return m_stepper; }
    ZelSlider *slider() const { return m_slider; }
    ZelLabel *label() const { return m_label; }
    ZelCheckBox *nonNillCheckbox() const { return m_nonNillCheckbox; }

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    Q_INVOKABLE void toggleNilValue(QObject *sender);
    QWidget *viewForBaselineAlignment() override;
    QList<QWidget *> controlsNamedByRow() override;
    bool canTileIntoColumnsWithWidth(double width) override;
    bool canTileIntoColumnsWithProperty(const ZelInspectorProperty *other) const override;

private:
    void addTextField(ZelView *container);
    void addStepper(ZelView *container);
    void addSlider(ZelView *container);
    void layOut(ZelView *container);
    void addNonNilCheckbox(ZelView *container, ZelView *content);
    void bindLimits();
    void bindValues();
    bool usesStepper() const { return sliderType != CircularSlider; }
    bool usesSlider() const { return sliderType != NoSlider; }

    QPointer<ZelTextField> m_textField;
    QPointer<ZelStepper> m_stepper;
    QPointer<ZelSlider> m_slider;
    QPointer<ZelLabel> m_label;
    QPointer<ZelCheckBox> m_nonNillCheckbox;
};
