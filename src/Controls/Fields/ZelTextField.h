// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelEditSession.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"

#include <QLineEdit>
#include <functional>
#include <memory>

struct ZelFieldSteps;

/// A line edit that shows a value through a formatter.
///
/// While it has the focus it shows the formatter's editing text. ZelEditSession describes what happens to the typing. A
/// text that was refused has the error colour.
class ZEL_EXPORT ZelTextField : public ZelGuarded<QLineEdit>, public ZelEditSessionOf<ZelTextField>
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
    Q_PROPERTY(bool labelStyle READ isLabelStyle WRITE setLabelStyle)
    Q_PROPERTY(double increment READ increment WRITE setIncrement)
    Q_PROPERTY(double minValue READ minValue WRITE setMinValue)
    Q_PROPERTY(double maxValue READ maxValue WRITE setMaxValue)
public:
    explicit ZelTextField(QWidget *parent = nullptr);
    ~ZelTextField() override;

    using ZelEditSession::enterValue;
    using ZelEditSession::errorText;
    using ZelEditSession::formatter;
    using ZelEditSession::setValueCheck;
    /// Reads a text as if it had been typed here. Answers false, with a reason for people, if it cannot be accepted.
    /// What is answered otherwise is for enterValue.
    bool readText(const QString &text, QVariant *value, QString *error) const { return parse(text, value, error); }
    void setFormatter(const ZelFormatter::Ptr &formatter);

    bool isEditable() const override { return !isReadOnly(); }

    /// Whether the field looks like a label whose text can be selected: without frame and background, in the colour of
    /// placeholders, and not editable.
    bool isLabelStyle() const { return m_labelStyle; }
    void setLabelStyle(bool labelStyle);

    /// Whether the text has the colour of placeholders, because it says that there is no value; false by default.
    bool isDimmed() const { return m_dimmed; }
    void setDimmed(bool dimmed);

    // Numbers are stepped by the arrow and page keys, and by the wheel while the field has the focus.
    /// How much a step adds; 0, which is the default, for no steps. Shift makes ten steps of one, Alt a tenth. Several
    /// different values are stepped each from its own, and none from 0. Steps that follow each other within half a
    /// second are one undo step.
    double increment() const;
    void setIncrement(double increment);
    /// Steps stop at the limits, which by default are those of doubles. What is typed is not limited.
    double minValue() const;
    void setMinValue(double value);
    double maxValue() const;
    void setMaxValue(double value);
    /// Increment and limits count in the model's unit where the field shows another: in what this transformer, which
    /// must be reversible, makes the shown numbers of. Null by default.
    void setStepTransformer(const ZelValueTransformerPtr &transformer);
    /// Whether steps beyond one limit go on at the other one; false by default.
    void setWraps(bool wraps);
    /// What steps a shown number by so many increments. It may be used after the field is gone.
    std::function<double(double number, double steps)> stepFunction() const;
    /// Takes what is being typed, then steps by so many increments as a user does, and reports it.
    void stepBy(double steps);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void objectValueChanged();
    void editableChanged();
    /// The user has changed the value.
    void valueEdited();
    /// Sent after valueEdited.
    void action();

protected:
    bool handleEvent(QEvent *event) override;
    void initStyleOption(QStyleOptionFrame *option) const override;
    void changeEvent(QEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QString fieldText() const override { return text(); }
    void showValue() override;
    bool isTextModified() const override { return isModified(); }
    void showPlaceholder();
    void applyEditable(bool editable) override { setReadOnly(!editable); }
    void errorDidChange() override;
    void alignLabel();
    void updateColors();
    QRect textRect() const;
    QString elidedWhole() const;
    void paintText(const QString &string, ZelFormatter::Range unit, bool isPlaceholder);

    ZelFieldSteps &steps();
    bool canStep() const;
    bool stepByKey(const QKeyEvent *event);
    void stepInBurst(double count, bool continues);

    std::unique_ptr<ZelFieldSteps> m_steps; // only of a field that is stepped
    QMetaObject::Connection m_errorConnection;
    mutable QSize m_sizeHint;
    mutable QSize m_minimumSizeHint;
    mutable QString m_measuredText;
    mutable int m_measuredWidth = 0;
    bool m_labelStyle = false;
    bool m_dimmed = false;
    bool m_showsDash = false; // in place of a placeholder, while the field has the focus
    bool m_updatingColors = false;
};
