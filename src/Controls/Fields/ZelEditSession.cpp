// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelEditSession.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelErrorNote.h"
#include "Controls/private/ZelRefusalMark.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/RunLoop/ZelPassiveEdits.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <cmath>

namespace {

/// Whether a value has a text of its own.
bool isShown(const QVariant &value)
{
    return !ZelIsNull(value) && !ZelIsControllerMarker(value) && !ZelNumberChange::of(value);
}

} // namespace

ZelEditSession::ZelEditSession(QWidget *field)
    : m_field(field)
{
    ZelControlSupport::prepare();
}

ZelEditSession::~ZelEditSession() = default;

// The value

void ZelEditSession::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_value, value);
    // Typing that was left in the field without the focus is discarded, because the value may by now belong to another
    // object.
    const bool keepsTyping = isEditing() && (!changed || hasFocusInside());
    m_value = value;
    if (!keepsTyping)
        discardEditing();
    if (changed)
        send(Signal::ObjectValueChanged);
}

void ZelEditSession::setFormatter(const ZelFormatter::Ptr &formatter)
{
    m_formatter = formatter;
    refresh();
}

void ZelEditSession::setNullPlaceholder(const QString &text)
{
    if (ZelAssign(m_nullPlaceholder, text))
        refresh();
}

void ZelEditSession::setEditable(bool editable)
{
    if (editable == isEditable())
        return;
    applyEditable(editable);
    if (!editable)
        discardEditing();
    send(Signal::EditableChanged);
}

QString ZelEditSession::displayString(const QVariant &value) const
{
    if (!isShown(value))
        return {};
    return m_formatter ? m_formatter->stringForObjectValue(value) : value.toString();
}

QString ZelEditSession::editingString(const QVariant &value) const
{
    if (!m_formatter || !isShown(value))
        return displayString(value);
    return m_formatter->editingStringForObjectValue(value);
}

QString ZelEditSession::placeholder() const
{
    // A text that was emptied by typing replaces all of them, unlike one that was not touched.
    const bool isMarker = ZelIsControllerMarker(m_value) && !isTextModified();
    return isMarker ? ZelControlSupport::markerText(m_value) : m_nullPlaceholder;
}

bool ZelEditSession::parse(const QString &text, QVariant *value, QString *error) const
{
    if (!m_formatter) {
        *value = text.isEmpty() ? QVariant() : QVariant(text);
    } else if (!m_formatter->objectValueForString(text, value, error)) {
        if (error->isEmpty())
            *error = ZelLocalizedString(QStringLiteral("This is not a value."));
        return false;
    }
    if (!accepts(*value, error) || !ZelNumberChange::of(*value))
        return error->isEmpty();
    return applyChange(value, error) && (ZelNumberChange::of(*value) || accepts(*value, error));
}

bool ZelEditSession::accepts(const QVariant &value, QString *error) const
{
    *error = m_check ? m_check(value) : QString();
    return error->isEmpty();
}

/// Makes a number of a change where one number is shown, which all objects then have. Only what depends on an object's
/// place remains a change.
bool ZelEditSession::applyChange(QVariant *value, QString *error) const
{
    const ZelNumberChange *change = ZelNumberChange::of(*value);
    if (!change || change->usesPlace() || !ZelIsNumber(m_value) || !std::isfinite(m_value.toDouble()))
        return true;
    const QVariant number = change->value(m_value);
    if (!number.isValid())
        *error = ZelLocalizedString(change->isInexact(m_value) ? "The result would not be exact."
                                                               : "The result is not a number.");
    *value = number;
    return number.isValid();
}

// The edit

bool ZelEditSession::isEditing() const
{
    const bool isOfTexts = !m_formatter && ZelIsMarker(m_value, ZelMultipleValuesMarker);
    return fieldText() != m_shownText || (isOfTexts && isTextModified());
}

bool ZelEditSession::readValue(QVariant *value, QString *error)
{
    return parse(fieldText(), value, error);
}

bool ZelEditSession::isChange(const QVariant &value) const
{
    return !ZelEqual(value, m_value);
}

bool ZelEditSession::commitEditing()
{
    QVariant value = m_value;
    QString error;
    const bool isTyped = isEditing();
    if (isTyped && !readValue(&value, &error)) {
        setError(error);
        return false;
    }
    const bool changed = isTyped && isChange(value);
    if (changed)
        m_value = value;
    discardEditing(); // the typing is the value now, whose formatted text may differ
    if (changed)
        report();
    return true;
}

void ZelEditSession::discardEditing()
{
    m_shownText = fieldText(); // receivers of the new text must see that nothing is typed any more
    setError({});
    showValue();
    m_shownText = fieldText();
}

void ZelEditSession::refresh()
{
    if (!isEditing())
        discardEditing();
}

void ZelEditSession::enterValue(const QVariant &value)
{
    if (!isChange(value))
        return;
    m_value = value;
    // A change has no text. The field keeps the number's until it is told what the change made of it.
    if (isEditing() || !ZelNumberChange::of(value))
        discardEditing();
    report();
}

void ZelEditSession::takeValue(const QVariant &value)
{
    if (!isChange(value))
        return;
    m_value = value;
    report();
}

/// Receivers may do anything, including deleting the field.
void ZelEditSession::report()
{
    const QPointer<QWidget> guard(m_field);
    ZelControlSupport::announceValue(m_field, m_value);
    send(Signal::ObjectValueChanged);
    if (!guard)
        return;
    const auto valueEdited = [this, guard, entered = m_value] {
        send(Signal::ValueEdited);
        // Bindings have shown by now what the model made of the value. Less than the field shows does not matter.
        const bool isOther = guard && isShown(entered) && ZelNotEqual(entered, m_value);
        const QString text = isOther ? displayString(entered) : QString();
        if (isOther && (text.isEmpty() || text != displayString(m_value))) // lists and rich texts are no plain text
            ZelRefusalMark::showChange(m_field, text,
                                       ZelIsControllerMarker(m_value) ? QString() : displayString(m_value));
    };
    ZelControlSupport::reportEdit(m_field, valueEdited, [this] { send(Signal::Action); });
}

// The error

void ZelEditSession::setError(const QString &error)
{
    if (!ZelAssign(m_error, error))
        return;
    m_field->setAccessibleDescription(error);
    ZelErrorNote::show(&m_errorNote, m_field, error);
    errorDidChange();
    m_field->update();
    if (error.isEmpty() || !QAccessible::isActive())
        return;
    QAccessibleEvent alert(m_field, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ZelEditSession::typingDidChange()
{
    if (m_error.isEmpty())
        return;
    QVariant value;
    QString error;
    if (isEditing())
        readValue(&value, &error);
    setError(error);
}

void ZelEditSession::paintError(QPainter *painter) const
{
    if (m_error.isEmpty())
        return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(ZelThemeColor::error(m_field->palette()));
    painter->drawRoundedRect(QRectF(m_field->rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

// Events

bool ZelEditSession::contains(const QWidget *widget) const
{
    return widget && (widget == m_field || m_field->isAncestorOf(widget));
}

bool ZelEditSession::hasFocusInside() const
{
    return m_field->hasFocus() || contains(QApplication::focusWidget());
}

bool ZelEditSession::isCommitKey(const QKeyEvent *event) const
{
    return ZelControlSupport::isReturn(event);
}

bool ZelEditSession::sessionEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return reservesShortcut(static_cast<QKeyEvent *>(event));
    case QEvent::ToolTip:
        return !m_error.isEmpty() && ZelControlHelp::showToolTip(event, m_field, m_error, m_field->rect());
    case QEvent::EnabledChange:
        if (!m_field->isEnabled())
            discardEditing();
        return false;
    default:
        return false;
    }
}

/// While the user is typing, the keys that end the edit belong to the field and not to a shortcut. If there is no
/// typing to undo, undo and redo go to the window; Qt's fields would keep them.
bool ZelEditSession::reservesShortcut(QKeyEvent *event) const
{
    const bool undoes = event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo);
    if (undoes && !(isEditing() && isEditable())) {
        event->ignore();
        return true;
    }
    if (undoes || !isEditing() || !(event->key() == Qt::Key_Escape || isCommitKey(event)))
        return false;
    event->accept();
    return true;
}

ZelEditSession::KeyUse ZelEditSession::keyPressed(const QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isEditing()) {
        discardEditing();
        return KeyUse::Discarded;
    }
    if (!isCommitKey(event) || !isEditable())
        return KeyUse::None;
    const QPointer<QWidget> guard(m_field);
    const bool isCommitted = commitEditing();
    return isCommitted && guard ? KeyUse::Committed : KeyUse::Taken;
}

/// A menu or a list that the field itself opened does not end the edit.
bool ZelEditSession::focusLeft(const QFocusEvent *event)
{
    const QPointer<QWidget> guard(m_field);
    const QWidget *popup = event->reason() == Qt::PopupFocusReason ? QApplication::activePopupWidget() : nullptr;
    if (!popup || !contains(popup->parentWidget())) {
        const ZelPassiveEdits passive;
        commitEditing();
    }
    return guard;
}
