// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelEditor.h"
#include "Platform/Controls/ZelFieldContent.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QLineEdit>
#include <QPointer>

class ZelErrorNote;

/// A line edit that shows a value through a formatter.
///
/// While it has the focus it shows the formatter's editing text. Return and the loss of the focus commit: the text is
/// parsed, stored and reported, unless it is the one that was shown. A text that cannot be parsed never leaves the
/// field: it stays, in the error colour with the reason beside it, until it is corrected, Escape discards it, or
/// another value arrives when the focus has gone. A value that arrives while the user is typing is stored but not shown
/// before the typing is committed or discarded.
/// Selection markers and absent values are shown as placeholders.
class ZelTextField : public ZelGuarded<QLineEdit>, public ZelEditor
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
    Q_PROPERTY(bool labelStyle READ isLabelStyle WRITE setLabelStyle)
public:
    explicit ZelTextField(QWidget *parent = nullptr);

    QVariant objectValue() const { return m_content.value; }
    void setObjectValue(const QVariant &value);

    /// Null: the value is the text itself.
    const ZelFormatter::Ptr &formatter() const { return m_content.formatter; }
    /// Shows the value anew, also when the formatter is the same.
    void setFormatter(const ZelFormatter::Ptr &formatter);
    /// Asked for every value that a text means before it is taken, such as for the limits of what the model can hold. A
    /// value that it refuses is a text that cannot be taken; the reason that it gives is shown. None unless set.
    void setValueCheck(const ZelValueCheck &check) { m_content.check = check; }

    /// The text shown for an absent value; null.
    QString nullPlaceholder() const { return m_content.nullPlaceholder; }
    void setNullPlaceholder(const QString &text);

    /// Whether users may change the text; true. What was typed is discarded when it becomes false.
    bool isEditable() const { return !isReadOnly(); }
    void setEditable(bool editable);

    /// The look of a label that can be selected: no frame, no background, the colour of placeholders; not editable.
    bool isLabelStyle() const { return m_labelStyle; }
    void setLabelStyle(bool labelStyle);

    /// Whether the text has the colour of placeholders, because it is no value but says that there is none; false.
    bool isDimmed() const { return m_dimmed; }
    void setDimmed(bool dimmed);

    /// Whether there is typing that has neither been committed nor discarded.
    bool isEditing() const { return text() != m_shownText; }
    /// Why the text could not be taken; null if nothing is wrong with it.
    QString errorText() const { return m_error; }

    bool commitEditing() override;
    void discardEditing() override;

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
    void changeEvent(QEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showValue();
    void showText(const QString &text);
    void setError(const QString &error);
    void checkAgain();
    void updateColors();
    bool reservesShortcut(QKeyEvent *event) const;
    QRect textRect() const;
    QString elidedWhole() const;
    void paintText(const QString &string, ZelFormatter::Range unit, bool isPlaceholder);

    ZelFieldContent m_content;
    QString m_shownText;
    QString m_error;
    QMetaObject::Connection m_errorConnection;
    QPointer<ZelErrorNote> m_errorNote;
    mutable QSize m_sizeHint;
    mutable QSize m_minimumSizeHint;
    mutable QString m_measuredText;
    mutable int m_measuredWidth = 0;
    bool m_labelStyle = false;
    bool m_dimmed = false;
    bool m_updatingColors = false;
};
