// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelDatePicker.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelLineEditMargin.h"
#include "Controls/private/ZelPressGrouping.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/ZelValues.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QTimeZone>

namespace {

const QString g_noDate = QStringLiteral("\u2013");

/// Makes years have four digits, because two digits are ambiguous.
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
    , ZelEditSessionOf(this)
{
    setFocusPolicy(Qt::StrongFocus);
    setKeyboardTracking(false);
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    discardEditing();
}

ZelDatePicker::~ZelDatePicker() = default;

bool ZelDatePicker::hasDate() const
{
    const QVariant value = objectValue();
    const int type = value.typeId();
    return (type == QMetaType::QDate || type == QMetaType::QDateTime) && ZelIsNotNull(value);
}

QString ZelDatePicker::format(bool showsTime) const
{
    const QString date = withLongYear(locale().dateFormat(QLocale::ShortFormat));
    if (!showsTime)
        return date;
    QString time = locale().timeFormat(QLocale::ShortFormat);
    time.remove(u't');
    return date + u' ' + time.trimmed();
}

QString ZelDatePicker::textForDate(const QVariant &value) const
{
    if (value.typeId() == QMetaType::QDate)
        return locale().toString(value.toDate(), format(false));
    return value.typeId() == QMetaType::QDateTime ? locale().toString(value.toDateTime().toLocalTime(), format(true))
                                                  : QString();
}

void ZelDatePicker::showValue()
{
    const QVariant value = objectValue();
    if (hasDate())
        m_showsTime = value.typeId() == QMetaType::QDateTime;
    // The parts of a date stand in the order of its language. QDateTimeEdit reverses them with the window.
    setLayoutDirection(locale().textDirection());
    const QString wanted = format(m_showsTime);
    if (displayFormat() != wanted)
        setDisplayFormat(wanted);
    m_isCleared = false;
    m_showsNone = !hasDate();
    if (m_showsNone) {
        const QString text = placeholder();
        showNone(text.isEmpty() ? g_noDate : text);
    } else {
        setSpecialValueText({});
        setDateTime(m_showsTime ? value.toDateTime().toLocalTime() : value.toDate().startOfDay());
    }
    updateColors();
}

/// QDateTimeEdit cannot be empty. The text is its special text for the smallest date; without a special text that date
/// is shown like any other.
void ZelDatePicker::showNone(const QString &text)
{
    setSpecialValueText(text);
    setDateTime(minimumDateTime());
    lineEdit()->installEventFilter(this);
}

/// What there is room for of the text that stands in place of a date.
QString ZelDatePicker::shownNone() const
{
    return ZelControlSupport::fitted(lineEdit()->text(), fontMetrics(), lineEdit()->width() - 2 * ZelLineEditMargin);
}

/// The line edit would cut a text that does not fit, and the text must stay whole for whoever cannot see it.
bool ZelDatePicker::filterEvent(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint || watched != lineEdit() || !m_showsNone ||
        !ZelControlSupport::isMarkerText(lineEdit()->text()) || shownNone() == lineEdit()->text())
        return QDateTimeEdit::eventFilter(watched, event);
    QPainter painter(lineEdit());
    painter.setPen(lineEdit()->palette().color(QPalette::Text));
    const QRect area = lineEdit()->rect().adjusted(ZelLineEditMargin, 0, -ZelLineEditMargin, 0);
    painter.drawText(area, int(QStyle::visualAlignment(layoutDirection(), alignment()) | Qt::AlignVCenter),
                     shownNone());
    return true;
}

void ZelDatePicker::applyEditable(bool editable)
{
    setReadOnly(!editable);
    updateColors();
}

/// The line edit covers what the style draws for the whole field.
void ZelDatePicker::updateColors()
{
    QPalette colors;
    colors.setResolveMask(0);
    if (m_showsNone)
        colors.setColor(QPalette::Text, ZelThemeColor::dimmed(palette()));
    if (isReadOnly())
        colors.setBrush(QPalette::Base, palette().window());
    if (m_showsNone || isReadOnly() || lineEdit()->testAttribute(Qt::WA_SetPalette))
        lineEdit()->setPalette(colors);
}

QVariant ZelDatePicker::enteredValue() const
{
    if (!m_showsTime)
        return date();
    const QVariant value = objectValue();
    const bool hasZone = value.typeId() == QMetaType::QDateTime;
    return hasZone ? inTimeZoneOf(dateTime(), value.toDateTime()) : dateTime();
}

bool ZelDatePicker::readValue(QVariant *value, QString *error)
{
    interpretText();
    *value = m_isCleared ? QVariant() : m_showsNone ? objectValue() : enteredValue();
    return !isChange(*value) || accepts(*value, error);
}

/// Clearing the date is a change also where a marker stands for several dates.
bool ZelDatePicker::isChange(const QVariant &value) const
{
    return ZelEditSession::isChange(value) || (m_isCleared && !placeholder().isEmpty());
}

/// Shows the present day without committing it.
void ZelDatePicker::beginWithToday()
{
    m_showsNone = m_isCleared = false;
    setSpecialValueText({});
    setDateTime(QDate::currentDate().startOfDay());
    setSelectedSection(sectionAt(0));
    updateColors();
}

/// Shows that there is no date, without committing it.
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

bool ZelDatePicker::handleEvent(QEvent *event)
{
    ZelControlHelp::describeFocused(event, this);
    if (sessionEvent(event))
        return true;
    const bool isCut = event->type() == QEvent::ToolTip && m_showsNone && shownNone() != lineEdit()->text();
    if (event->type() == QEvent::ToolTip &&
        ZelControlHelp::showToolTip(event, this, isCut ? lineEdit()->text() : QString()))
        return true;
    return QDateTimeEdit::event(event);
}

void ZelDatePicker::initStyleOption(QStyleOptionSpinBox *option) const
{
    QDateTimeEdit::initStyleOption(option);
    if (parentWidget())
        option->direction = parentWidget()->layoutDirection(); // in which the stepper stands
    ZelControlSupport::showTypable(option, !isReadOnly());
}

void ZelDatePicker::changeEvent(QEvent *event)
{
    QDateTimeEdit::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        discardEditing();
    else if (event->type() == QEvent::PaletteChange)
        updateColors();
}

/// Without a date there are no sections, so Tab must leave the field at once.
bool ZelDatePicker::focusNextPrevChild(bool next)
{
    return m_showsNone ? QWidget::focusNextPrevChild(next) : QDateTimeEdit::focusNextPrevChild(next);
}

void ZelDatePicker::focusOutEvent(QFocusEvent *event)
{
    if (focusLeft(event))
        QDateTimeEdit::focusOutEvent(event);
}

void ZelDatePicker::keyPressEvent(QKeyEvent *event)
{
    const bool types = !event->text().isEmpty() && event->text().at(0).isDigit();
    const bool deletes = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    // Qt does not select a special text, so a shown placeholder counts as wholly selected.
    const bool isWhole = m_showsNone ? !placeholder().isEmpty() && !m_isCleared : lineEdit()->selectedText() == text();
    if (deletes && isEditable() && isWhole) {
        clearDate();
        return;
    }
    if (event->matches(QKeySequence::Undo) && isEditing()) { // Qt's field has nothing of its sections to undo
        discardEditing();
        return;
    }
    const KeyUse use = keyPressed(event);
    if (use == KeyUse::Discarded || use == KeyUse::Taken)
        return;
    if (types && m_showsNone && isEditable())
        beginWithToday();
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
