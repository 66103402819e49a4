// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelTextField.h"
#include "Controls/Ranges/ZelSlider.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelLabel.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

#include <optional>

/// Edits a number: a text field with a unit, a stepper or a slider or both, and a checkbox for "no value".
///
/// The controls are bound to the model. Limits hold for stepper, slider and the keys that step the field, and for what
/// a typed calculation makes of an object's own number. A number that is typed is not limited by them, but by what the
/// model's property can hold. If the property cannot be written, the stepper is
/// hidden. The fields below are read when the view is loaded or installed; later changes of them do not show.
class ZEL_EXPORT ZelInspectorNumberProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(bool nilValueControlIsOffWhenNil MEMBER nilValueControlIsOffWhenNil)
    Q_PROPERTY(uint formatStyle MEMBER formatStyle)
    Q_PROPERTY(QString formatUnit MEMBER formatUnit)
    Q_PROPERTY(uint sliderType MEMBER sliderType)
    Q_PROPERTY(QVariant increment READ incrementValue WRITE setIncrementValue)
    Q_PROPERTY(QString incrementKeyPath MEMBER incrementKeyPath)
    Q_PROPERTY(QVariant maximum READ maximumValue WRITE setMaximumValue)
    Q_PROPERTY(QString maximumKeyPath MEMBER maximumKeyPath)
    Q_PROPERTY(QVariant minimum READ minimumValue WRITE setMinimumValue)
    Q_PROPERTY(QString minimumKeyPath MEMBER minimumKeyPath)
    Q_PROPERTY(bool wraps MEMBER wraps)
    Q_PROPERTY(bool expressions MEMBER expressions)
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(QString nonNilValueKeyPath MEMBER nonNilValueKeyPath)
    Q_PROPERTY(QString nonNilValueTitle MEMBER nonNilValueTitle)
    Q_PROPERTY(ZelTextField *textField MEMBER m_textField)
    Q_PROPERTY(ZelStepper *stepper MEMBER m_stepper)
    Q_PROPERTY(ZelSlider *slider MEMBER m_slider)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
    Q_PROPERTY(ZelCheckBox *nonNillCheckbox MEMBER m_nonNillCheckbox)
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
    /// Whether numbers beyond one limit go on at the other one, as angles do, also those that are typed. The field then
    /// enters none beyond the limits.
    bool wraps = false;
    bool expressions = true;    ///< whether calculations may be typed, see ZelNumberExpression
    QString placeholder;        ///< shown for no value
    QString nonNilValueKeyPath; ///< of the value written when the checkbox is switched to "has a value"
    QString nonNilValueTitle;   ///< the checkbox's title; without one there is no checkbox

    // The optional numbers as values of properties; absent if there is no number.
    QVariant incrementValue() const { return variantOf(increment); }
    void setIncrementValue(const QVariant &value) { increment = numberOf(value); }
    QVariant maximumValue() const { return variantOf(maximum); }
    void setMaximumValue(const QVariant &value) { maximum = numberOf(value); }
    QVariant minimumValue() const { return variantOf(minimum); }
    void setMinimumValue(const QVariant &value) { minimum = numberOf(value); }
    static QVariant variantOf(const std::optional<double> &number) { return number ? QVariant(*number) : QVariant(); }
    static std::optional<double> numberOf(const QVariant &value);

    ZelTextField *textField() const { return m_textField; }
    ZelStepper *stepper() const { return m_stepper; }
    ZelSlider *slider() const { return m_slider; }
    ZelLabel *label() const { return m_label; }
    ZelCheckBox *nonNillCheckbox() const { return m_nonNillCheckbox; }

    /// The number with its unit; the placeholder for no value.
    QString textForValue(const QVariant &value) const override;

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    /// Lets users change an editor's number by dragging the widget, which stands beside the editor as its title; null
    /// for none any more. The label of the editor's own title does so by itself.
    static void letTitleScrub(QWidget *title, ZelInspectorNumberProperty *editor);
    Q_INVOKABLE void toggleNilValue(QObject *sender);
    QString textOfValue(const QVariant &modelValue) const override;
    bool readText(const QString &text, QVariant *modelValue, QString *error) const override;
    QStringList searchTexts() const override { return {nonNilValueTitle}; }
    QWidget *viewForBaselineAlignment() override;
    QList<QWidget *> controlsNamedByRow() override;
    bool canTileIntoColumnsWithWidth(double width) override;
    bool canTileIntoColumnsWithProperty(const ZelInspectorProperty *other) const override;

protected:
    QMetaType valueType() const override { return QMetaType::fromType<double>(); }
    bool tellsRange() const override { return true; }
    QString refusalOfResult(double number) const override;

private:
    QString refusalOfTyped(const QVariant &value) const;
    std::optional<ZelValueRange> modelRange() const;
    void addTextField(ZelView *container);
    void addStepper(ZelView *container);
    void addSlider(ZelView *container);
    void layOut(ZelView *container);
    void addNonNilCheckbox(ZelView *container, ZelView *content);
    double lastDigit() const;
    void bindLimits();
    void bindValues();
    void bindValue(QWidget *control, ZelBindingOptions options);
    bool usesStepper() const { return sliderType != CircularSlider; }
    bool usesSlider() const { return sliderType != NoSlider; }

    QPointer<ZelTextField> m_textField;
    QPointer<ZelStepper> m_stepper;
    QPointer<ZelSlider> m_slider;
    QPointer<ZelLabel> m_label;
    QPointer<ZelCheckBox> m_nonNillCheckbox;
    bool m_isBoundReadOnly = false;
    bool m_impliesMinimum = false; // the description gives none
    bool m_impliesMaximum = false;
};
