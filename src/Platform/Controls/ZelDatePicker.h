// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelEditor.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QDateTimeEdit>
#include <QVariant>
#include <memory>

class ZelPressGrouping;

/// A field for a date, or a date and a time, that may also hold none.
///
/// The value is a QDate, which stays one, or a QDateTime, shown in local time and handed back in its own time zone; its
/// seconds are kept. Without a date the field shows a dash, or what stands for several dates: a selection marker's name
/// or the null placeholder. The first digit or step begins with the present day. Delete or Backspace leaves no date
/// where the whole text is selected, or something stands for several.
///
/// Return, the loss of the focus and every step commit: what was entered is stored and reported, unless it is the date
/// that was shown. Escape discards. A value that arrives while the user is typing is stored but not shown before the
/// typing is committed or discarded. The steps of one press of the mouse are one undo grouping.
class ZelDatePicker : public ZelGuarded<QDateTimeEdit>, public ZelEditor
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
public:
    explicit ZelDatePicker(QWidget *parent = nullptr);
    ~ZelDatePicker() override;

    QVariant objectValue() const { return m_value; }
    /// Anything but a QDate or a QDateTime shows no date.
    void setObjectValue(const QVariant &value);

    /// Whether users may change the date; true. What was typed is discarded when it becomes false.
    bool isEditable() const { return !isReadOnly(); }
    void setEditable(bool editable);

    /// The text shown for an absent value; null, which stands for a dash.
    QString nullPlaceholder() const { return m_nullPlaceholder; }
    void setNullPlaceholder(const QString &text);

    /// Whether there is typing that has neither been committed nor discarded.
    bool isEditing() const;
    bool commitEditing() override;
    void discardEditing() override;

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
    void changeEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool hasDate() const;
    QString format() const;
    QVariant enteredValue() const;
    void showValue();
    void updateColors();
    void beginWithToday();
    void clearDate();
    void showNone(const QString &text);
    QString placeholder() const;
    bool reservesShortcut(QKeyEvent *event) const;

    QVariant m_value;
    QString m_nullPlaceholder;
    QString m_shownText;
    std::unique_ptr<ZelPressGrouping> m_pressGrouping;
    bool m_showsTime = false;
    bool m_showsNone = true;
    bool m_isCleared = false; // entered, but not committed
};
