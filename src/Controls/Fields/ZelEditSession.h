// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelFormatter.h"
#include "Core/Binding/ZelEditor.h"
#include "Core/ZelExport.h"

#include <QPointer>
#include <QVariant>
#include <functional>

class QEvent;
class QFocusEvent;
class QKeyEvent;
class QPainter;
class QWidget;
class ZelErrorNote;

/// Answers the reason, for people, why a value cannot be accepted; null if it can.
using ZelValueCheck = std::function<QString(const QVariant &value)>;

/// What all fields have in common: the value behind the field, and what happens to the typing.
///
/// The text in the field is a working copy of the value. Return and the loss of the focus commit it: the text is read,
/// stored and reported in one undo grouping, unless it means the value that was there. Escape restores the value. A
/// text that cannot be accepted is never stored: it stays in the field, with the reason beside it, until the user
/// corrects or discards it, or until another value arrives while the focus is elsewhere. A value that arrives while the
/// user is typing is stored at once and shown after the typing was committed or discarded. Selection markers and absent
/// values are shown as placeholders.
///
/// The subclass says how its text is read and shown. It calls the session when a key is pressed, when the focus leaves
/// and when the text changes.
class ZEL_EXPORT ZelEditSession : public ZelEditor
{
public:
    QVariant objectValue() const { return m_value; }
    void setObjectValue(const QVariant &value);

    /// The text shown for an absent value; null by default.
    QString nullPlaceholder() const { return m_nullPlaceholder; }
    void setNullPlaceholder(const QString &text);

    /// Whether users may change the value; true by default. Typing is discarded when this becomes false.
    virtual bool isEditable() const = 0;
    void setEditable(bool editable);

    /// Whether there is typing that has neither been committed nor discarded.
    virtual bool isEditing() const;
    bool commitEditing() override;
    void discardEditing() override;

protected:
    enum class Signal { ObjectValueChanged, EditableChanged, ValueEdited, Action };
    /// What a key has done. After `Taken` the subclass does nothing more: the text was refused, or the field is gone.
    enum class KeyUse { None, Discarded, Committed, Taken };

    explicit ZelEditSession(QWidget *field);
    ~ZelEditSession() override;
    Q_DISABLE_COPY_MOVE(ZelEditSession)

    // The fields that show values as plain texts make these public.
    /// Null by default: the value is the text itself.
    const ZelFormatter::Ptr &formatter() const { return m_formatter; }
    /// Shows the value again, even if the formatter is the same.
    void setFormatter(const ZelFormatter::Ptr &formatter);
    /// The check is asked about every value that was read from a text before it is stored, for instance to enforce the
    /// limits of the model. A ZelNumberChange is asked about as such, and again as the number that it gives. If the
    /// model keeps another number than the one that was entered, the check is asked about a change to that for a
    /// reason. If it refuses the value, the text is refused and the reason is shown. There is no check by default.
    void setValueCheck(const ZelValueCheck &check) { m_check = check; }
    /// Why the text was refused; null if nothing is wrong with it.
    QString errorText() const { return m_error; }

    // How the text is read and shown.
    /// The text in the field. Fields that override both isEditing() and readValue() need not answer it.
    virtual QString fieldText() const { return {}; }
    /// Whether the user has changed the text since the value was shown, even if it is the same again. Matters while the
    /// value stands for several texts, all of which an emptied field replaces.
    virtual bool isTextModified() const { return false; }
    /// Replaces the text in the field by the value or its placeholder. Only the session calls this; a field calls
    /// refresh().
    virtual void showValue() = 0;
    /// Reads the value that was entered. Answers false, with a reason for people, if the text cannot be accepted.
    virtual bool readValue(QVariant *value, QString *error);
    /// Whether the value that was entered is to be stored and reported.
    virtual bool isChange(const QVariant &value) const;
    /// Whether the key commits. Return does, unless a subclass says otherwise.
    virtual bool isCommitKey(const QKeyEvent *event) const;
    virtual void applyEditable(bool editable) = 0;
    virtual void errorDidChange() {}
    virtual void send(Signal signal) = 0;

    /// The text shown and the text edited for a value; null for an absent value and for markers.
    QString displayString(const QVariant &value) const;
    QString editingString(const QVariant &value) const;
    /// The name of the marker if the value is one, otherwise the null placeholder.
    QString placeholder() const;
    bool parse(const QString &text, QVariant *value, QString *error) const;
    /// Asks the check, if there is one.
    bool accepts(const QVariant &value, QString *error) const;

    // What happens to the field.
    /// The field calls this first for every event. If it answers true, nothing is left to do for the event.
    bool sessionEvent(QEvent *event);
    KeyUse keyPressed(const QKeyEvent *event);
    /// Answers false if the field is gone afterwards.
    bool focusLeft(const QFocusEvent *event);
    /// The field calls this when its text has changed: while a refused text stands there, it is read again after every
    /// change.
    void typingDidChange();
    /// Shows the value again unless the user is typing.
    void refresh();
    /// Stores a value that was entered without showing it. The field may be gone afterwards.
    void takeValue(const QVariant &value);
    /// Stores a value that was entered by other means than typing, and shows it. The field may be gone afterwards.
    void enterValue(const QVariant &value);
    void setError(const QString &error);
    void paintError(QPainter *painter) const;
    /// Whether the field or a widget in it has the focus.
    bool hasFocusInside() const;

private:
    bool applyChange(QVariant *value, QString *error) const;
    bool contains(const QWidget *widget) const;
    bool reservesShortcut(QKeyEvent *event) const;
    void report();

    QWidget *m_field;
    QVariant m_value;
    ZelFormatter::Ptr m_formatter;
    ZelValueCheck m_check;
    QString m_nullPlaceholder;
    QString m_shownText; // what the field shows for the value
    QString m_error;
    QPointer<ZelErrorNote> m_errorNote;
};

/// The edit session of a class of fields, whose signals it sends.
template<typename Field> class ZelEditSessionOf : public ZelEditSession
{
protected:
    using ZelEditSession::ZelEditSession;

private:
    void send(Signal signal) override
    {
        auto *field = static_cast<Field *>(this);
        switch (signal) {
        case Signal::ObjectValueChanged:
            Q_EMIT field->objectValueChanged();
            break;
        case Signal::EditableChanged:
            Q_EMIT field->editableChanged();
            break;
        case Signal::ValueEdited:
            Q_EMIT field->valueEdited();
            break;
        case Signal::Action:
            Q_EMIT field->action();
            break;
        }
    }
};
