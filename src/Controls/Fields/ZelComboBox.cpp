// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelComboBox.h"

#include "Controls/Fields/ZelTextField.h"
#include "Controls/private/ZelControlSupport.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace {

/// Whether the event is about to commit what was typed.
bool endsTyping(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return event->type() == QEvent::FocusOut;
    return ZelControlSupport::isReturn(static_cast<const QKeyEvent *>(event));
}

/// QComboBox makes a completer for a line edit that has none, which costs more than the rest of the box. This one keeps
/// it from doing so.
QCompleter *noCompleter()
{
    static QPointer<QCompleter> completer;
    if (!completer)
        completer = new QCompleter(QCoreApplication::instance());
    return completer;
}

constexpr int g_minimumLetters = 6;

} // namespace

ZelComboBox::ZelComboBox(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    m_field = new ZelTextField(this); // sends us events while m_field is still null
    m_field->setCompleter(noCompleter());
    setLineEdit(m_field);
    m_field->setCompleter(nullptr);
    m_field->installEventFilter(this);
    setInsertPolicy(NoInsert);
    setDuplicatesEnabled(true); // otherwise Return replaces the typing by an item that differs in case
    connect(m_field, &ZelTextField::objectValueChanged, this, &ZelComboBox::objectValueChanged);
    connect(m_field, &ZelTextField::editableChanged, this, &ZelComboBox::editableChanged);
    connect(m_field, &ZelTextField::valueEdited, this, &ZelComboBox::valueEdited);
    connect(m_field, &ZelTextField::action, this, &ZelComboBox::action);
    connect(this, &QComboBox::activated, this, &ZelComboBox::commitEditing);
}

QVariant ZelComboBox::objectValue() const
{
    return m_field->objectValue();
}

void ZelComboBox::setObjectValue(const QVariant &value)
{
    m_field->setObjectValue(value);
    showValueInList();
}

/// Makes the item for the value the current one, unless the user is typing something else. QComboBox then writes the
/// item's text into the field.
void ZelComboBox::showValueInList()
{
    if (m_field->isEditing())
        return;
    const int index =
        m_field->text().isEmpty() ? -1 : findText(m_field->text(), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index == currentIndex())
        return;
    const QSignalBlocker blocker(this);
    setCurrentIndex(index);
    m_field->discardEditing();
}

QStringList ZelComboBox::contentValues() const
{
    QStringList texts;
    for (int i = 0; i < count(); ++i)
        texts.append(itemText(i));
    return texts;
}

void ZelComboBox::setContentValues(const QStringList &texts)
{
    if (texts == contentValues())
        return;
    const QSignalBlocker blocker(this);
    const bool editing = m_field->isEditing();
    const QString typed = m_field->text();
    const int cursor = m_field->cursorPosition();
    clear();
    addItems(texts);
    setCurrentIndex(-1); // QComboBox makes the first item current by itself
    if (editing) {
        m_field->setText(typed);
        m_field->setCursorPosition(cursor);
    } else {
        m_field->discardEditing();
        showValueInList();
    }
}

bool ZelComboBox::isValueEditable() const
{
    return m_field->isEditable();
}

void ZelComboBox::setValueEditable(bool editable)
{
    m_field->setEditable(editable);
    if (!editable)
        hidePopup();
    update();
}

void ZelComboBox::initStyleOption(QStyleOptionComboBox *option) const
{
    QComboBox::initStyleOption(option);
    if (m_field && !isValueEditable())
        ZelControlSupport::showDisabled(option);
}

/// The box is wide enough for some letters, whatever is in the list. QComboBox has a size policy for this, which
/// creates the list's view at once; that view is half of what a box costs.
QSize ZelComboBox::sizeHint() const
{
    ensurePolished();
    const QFontMetrics metrics = fontMetrics();
    const QSize room(g_minimumLetters * metrics.horizontalAdvance(QLatin1Char('X')) + iconSize().width() + 4,
                     std::max(metrics.height(), iconSize().height()) + 2);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, room, this);
}

QSize ZelComboBox::minimumSizeHint() const
{
    return sizeHint();
}

/// The completer is made only when the user enters the box.
void ZelComboBox::addCompleter()
{
    if (completer())
        return;
    auto *completer = new QCompleter(model(), m_field);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setCompletionMode(QCompleter::InlineCompletion);
    setCompleter(completer);
}

QString ZelComboBox::nullPlaceholder() const
{
    return m_field->nullPlaceholder();
}

void ZelComboBox::setNullPlaceholder(const QString &text)
{
    m_field->setNullPlaceholder(text);
}

/// A typed text that differs from an item only in its case becomes the item's text.
void ZelComboBox::completeText()
{
    if (!m_field->isEditing() || findText(m_field->text(), Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0)
        return;
    const int index = findText(m_field->text(), Qt::MatchFixedString);
    if (index >= 0)
        m_field->setText(itemText(index));
}

bool ZelComboBox::filterEvent(QObject *watched, QEvent *event)
{
    if (watched == m_field && m_field) {
        if (event->type() == QEvent::KeyPress)
            addCompleter();
        if (endsTyping(event))
            completeText();
    }
    return QComboBox::eventFilter(watched, event);
}

bool ZelComboBox::commitEditing()
{
    completeText();
    return m_field->commitEditing();
}

void ZelComboBox::discardEditing()
{
    m_field->discardEditing();
    showValueInList();
}

void ZelComboBox::showPopup()
{
    if (isValueEditable())
        QComboBox::showPopup();
}

bool ZelComboBox::handleEvent(QEvent *event)
{
    if (ZelControlSupport::isInput(event) && !isValueEditable()) {
        event->ignore();
        return true;
    }
    if (m_field && event->type() == QEvent::FocusIn)
        addCompleter();
    ZelControlHelp::describeFocused(event, this);
    if (event->type() == QEvent::ToolTip && ZelControlHelp::showToolTip(event, this))
        return true;
    // The focus belongs to the box and not to the field. QComboBox passes events on to the field directly, past event
    // filters.
    if (m_field && endsTyping(event))
        completeText();
    return QComboBox::event(event);
}

void ZelComboBox::wheelEvent(QWheelEvent *event)
{
    if (m_field->hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
