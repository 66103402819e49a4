// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelEditSession.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QDateTimeEdit>
#include <memory>

class ZelPressGrouping;

/// A field for a date, or for a date and a time, that may also be empty.
///
/// The value is a QDate or a QDateTime; an edit keeps the type. A QDateTime is shown in local time and handed back in
/// its own time zone, with its seconds. Without a date the field shows a dash, the null placeholder or the name of a
/// selection marker, and the first digit or step begins with the present day. Delete and Backspace clear the date where
/// the whole text is selected or a placeholder is shown.
///
/// It is edited as ZelEditSession describes. In addition every step commits; the steps of one press of the mouse are
/// one undo grouping. Anything but a QDate or a QDateTime shows no date, and the placeholder for an absent value is a
/// dash unless another one is set.
class ZEL_EXPORT ZelDatePicker : public ZelGuarded<QDateTimeEdit>, public ZelEditSessionOf<ZelDatePicker>
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
public:
    explicit ZelDatePicker(QWidget *parent = nullptr);
    ~ZelDatePicker() override;

    /// How the picker shows a date or a time; null for any other value.
    QString textForDate(const QVariant &value) const;
    using ZelEditSession::errorText;
    using ZelEditSession::setValueCheck;

    bool isEditable() const override { return !isReadOnly(); }
    void stepBy(int steps) override;

Q_SIGNALS:
    void objectValueChanged();
    void editableChanged();
    /// The user has changed the value.
    void valueEdited();
    /// Sent after valueEdited.
    void action();

protected:
    bool handleEvent(QEvent *event) override;
    bool filterEvent(QObject *watched, QEvent *event) override;
    void initStyleOption(QStyleOptionSpinBox *option) const override;
    void changeEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool hasDate() const;
    QString format(bool showsTime) const;
    QVariant enteredValue() const;
    QString fieldText() const override { return text(); }
    void showValue() override;
    bool readValue(QVariant *value, QString *error) override;
    bool isChange(const QVariant &value) const override;
    void applyEditable(bool editable) override;
    void updateColors();
    void beginWithToday();
    void clearDate();
    void showNone(const QString &text);
    QString shownNone() const;

    std::unique_ptr<ZelPressGrouping> m_pressGrouping;
    bool m_showsTime = false;
    bool m_showsNone = true;
    bool m_isCleared = false; // the user has deleted the date, and that is not committed yet
};
