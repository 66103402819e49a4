// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelDatePicker.h"

#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelPressGrouping.h"
#include "Platform/Controls/ZelThemeColor.h"
#include "Platform/Runtime/ZelValues.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimeZone>

namespace {

const QString g_noDate = QStringLiteral("\u2013");

/// The texts of years must not be ambiguous.
QString withLongYear(QString format)
{
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

QDateTime inTimeZoneOf(const QDateTime &time, const QDateTime &model)
{
    switch (model.timeSpec()) {
    case Qt::UTC:
        return time.toUTC();
    case Qt::OffsetFromUTC:
        return time.toOffsetFromUtc(model.offsetFromUtc());
    case Qt::TimeZone:
        return time.toTimeZone(model.timeZone());
    default:
        return time;
    }
}

} // namespace

ZelDatePicker::ZelDatePicker(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::StrongFocus);
    setKeyboardTracking(false);
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    showValue();
}

ZelDatePicker::~ZelDatePicker() = default;

bool ZelDatePicker::hasDate() const
{
    const int type = m_value.typeId();
    return (type == QMetaType::QDate || type == QMetaType::QDateTime) && ZelIsNotNull(m_value);
}

void ZelDatePicker::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_value, value);
    m_value = value;
    // Typing that was left behind gives way to another value; it might be another object's by now.
    if (!isEditing() || (changed && !hasFocus()))
        showValue();
    if (changed)
        Q_EMIT objectValueChanged();
}

void ZelDatePicker::setNullPlaceholder(const QString &text)
{
    if (text == m_nullPlaceholder)
        return;
    m_nullPlaceholder = text;
    if (!isEditing())
        showValue();
}

void ZelDatePicker::setEditable(bool editable)
{
    if (editable == isEditable())
        return;
    setReadOnly(!editable);
    if (!editable)
        discardEditing();
    Q_EMIT editableChanged();
}

QString ZelDatePicker::format() const
{
    const QString date = withLongYear(locale().dateFormat(QLocale::ShortFormat));
    if (!m_showsTime)
        return date;
    QString time = locale().timeFormat(QLocale::ShortFormat);
    time.remove(u't');
    return date + u' ' + time.trimmed();
}

void ZelDatePicker::showValue()
{
    if (hasDate())
        m_showsTime = m_value.typeId() == QMetaType::QDateTime;
    const QString wanted = format();
    if (displayFormat() != wanted)
        setDisplayFormat(wanted);
    m_isCleared = false;
    m_showsNone = !hasDate();
    if (m_showsNone) {
        const QString text = placeholder();
        showNone(text.isEmpty() ? g_noDate : text);
    } else {
        setSpecialValueText({});
        setDateTime(m_showsTime ? m_value.toDateTime().toLocalTime() : m_value.toDate().startOfDay());
    }
    m_shownText = text();
    updateColors();
}

/// What stands for several dates; null otherwise.
QString ZelDatePicker::placeholder() const
{
    return ZelIsControllerMarker(m_value) ? ZelControlSupport::markerText(m_value) : m_nullPlaceholder;
}

/// The text stands for the smallest date, which is shown as what it is otherwise.
void ZelDatePicker::showNone(const QString &text)
{
    setSpecialValueText(text);
    setDateTime(minimumDateTime());
}

void ZelDatePicker::updateColors()
{
    QPalette colors;
    colors.setResolveMask(0);
    if (m_showsNone)
        colors.setColor(QPalette::Text, ZelThemeColor::dimmed(palette()));
    if (m_showsNone || lineEdit()->testAttribute(Qt::WA_SetPalette))
        lineEdit()->setPalette(colors);
}

bool ZelDatePicker::isEditing() const
{
    return text() != m_shownText;
}

QVariant ZelDatePicker::enteredValue() const
{
    if (!m_showsTime)
        return date();
    const bool hasZone = m_value.typeId() == QMetaType::QDateTime;
    return hasZone ? inTimeZoneOf(dateTime(), m_value.toDateTime()) : dateTime();
}

bool ZelDatePicker::commitEditing()
{
    if (!isEditing()) {
        showValue();
        return true;
    }
    interpretText();
    const QVariant value = m_isCleared ? QVariant() : m_showsNone ? m_value : enteredValue();
    const bool changed = !ZelEqual(value, m_value) || (m_isCleared && !placeholder().isEmpty());
    if (changed)
        m_value = value;
    showValue();
    if (changed)
        ZelControlSupport::reportNewValue(this);
    return true;
}

void ZelDatePicker::discardEditing()
{
    showValue();
}

/// Shown, but not committed.
void ZelDatePicker::beginWithToday()
{
    m_showsNone = m_isCleared = false;
    setSpecialValueText({});
    setDateTime(QDate::currentDate().startOfDay());
    setSelectedSection(sectionAt(0));
    updateColors();
}

/// Shown, but not committed.
void ZelDatePicker::clearDate()
{
    m_showsNone = m_isCleared = true;
    showNone(g_noDate);
    updateColors();
}

void ZelDatePicker::stepBy(int steps)
{
    if (m_showsNone)
        beginWithToday();
    else
        QDateTimeEdit::stepBy(steps);
    commitEditing();
}

/// Undo and redo are the window's when there is no typing to undo, Escape is the field's when there is.
bool ZelDatePicker::reservesShortcut(QKeyEvent *event) const
{
    const bool undoes = event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo);
    if (undoes && !isEditing()) {
        event->ignore();
        return true;
    }
    if (!undoes && isEditing() && event->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return false;
}

bool ZelDatePicker::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && reservesShortcut(static_cast<QKeyEvent *>(event)))
        return true;
    return QDateTimeEdit::event(event);
}

void ZelDatePicker::changeEvent(QEvent *event)
{
    QDateTimeEdit::changeEvent(event);
    if (event->type() == QEvent::LocaleChange || (event->type() == QEvent::EnabledChange && !isEnabled()))
        showValue();
    else if (event->type() == QEvent::PaletteChange)
        updateColors();
}

/// Without a date there are no sections for Tab to step through.
bool ZelDatePicker::focusNextPrevChild(bool next)
{
    return m_showsNone ? QWidget::focusNextPrevChild(next) : QDateTimeEdit::focusNextPrevChild(next);
}

void ZelDatePicker::focusOutEvent(QFocusEvent *event)
{
    const QPointer<ZelDatePicker> guard(this);
    if (event->reason() != Qt::PopupFocusReason)
        commitEditing();
    if (guard)
        QDateTimeEdit::focusOutEvent(event);
}

void ZelDatePicker::keyPressEvent(QKeyEvent *event)
{
    const bool commits = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool types = !event->text().isEmpty() && event->text().at(0).isDigit();
    const QPointer<ZelDatePicker> guard(this);
    if (event->key() == Qt::Key_Escape && isEditing()) {
        discardEditing();
        return;
    }
    const bool deletes = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    // Qt selects nothing of a marker's name.
    const bool isWhole = m_showsNone ? !placeholder().isEmpty() && !m_isCleared : lineEdit()->selectedText() == text();
    if (deletes && isEditable() && isWhole) {
        clearDate();
        return;
    }
    if (commits && isEditable())
        commitEditing();
    else if (types && m_showsNone && isEditable())
        beginWithToday();
    if (guard)
        QDateTimeEdit::keyPressEvent(event);
}

void ZelDatePicker::mousePressEvent(QMouseEvent *event)
{
    const QPointer<ZelDatePicker> guard(this);
    m_pressGrouping = std::make_unique<ZelPressGrouping>(this, [this] { m_pressGrouping.reset(); });
    QDateTimeEdit::mousePressEvent(event);
    if (guard && !(event->buttons() & Qt::LeftButton))
        m_pressGrouping.reset();
}

void ZelDatePicker::mouseReleaseEvent(QMouseEvent *event)
{
    QDateTimeEdit::mouseReleaseEvent(event);
    m_pressGrouping.reset();
}

void ZelDatePicker::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QDateTimeEdit::wheelEvent(event);
    else
        event->ignore();
}
