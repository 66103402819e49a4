// SPDX-License-Identifier: MIT
#include "Controls/ZelGrowingTokenField.h"

#include "Controls/ZelToken.h"
#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelErrorNote.h"
#include "Platform/Controls/ZelThemeColor.h"
#include "Platform/Runtime/ZelPropertyAccessor.h"
#include "Platform/Runtime/ZelValues.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

QVariantList listOf(const QVariant &value)
{
    if (ZelIsNull(value) || ZelIsControllerMarker(value))
        return {};
    const bool isText = value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QByteArray;
    return !isText && value.canConvert<QVariantList>() ? value.toList() : QVariantList{value};
}

bool isReturn(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

void registerAccessors()
{
    using Field = ZelGrowingTokenField;
    auto value = std::make_unique<ZelFunctionAccessor<Field>>([](const Field *field) { return field->objectValue(); },
                                                              [](Field *field, const QVariant &newValue) {
                                                                  field->setObjectValue(newValue);
                                                                  return true;
                                                              });
    value->setNotify(&Field::objectValueChanged).setEdit(&Field::valueEdited).setTakesMarkers();
    ZelPropertyAccessor::registerAccessor(&Field::staticMetaObject, "value", std::move(value));
}

} // namespace

ZelGrowingTokenField::ZelGrowingTokenField(QWidget *parent)
    : ZelGuarded(parent)
    , m_input(new QLineEdit(this))
{
    static const bool registered = (registerAccessors(), true);
    Q_UNUSED(registered)
    ZelControlSupport::prepare();
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setCursor(Qt::IBeamCursor);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_input);
    m_input->setFrame(false);
    m_input->installEventFilter(this);
    connect(m_input, &QLineEdit::textEdited, this, &ZelGrowingTokenField::typed);
    connect(m_input, &QLineEdit::textChanged, this, &ZelGrowingTokenField::itemsDidChange);
}

ZelGrowingTokenField::~ZelGrowingTokenField()
{
    // They lose the focus while they are deleted; by then there is no field to tell.
    for (QWidget *item : itemsInOrder())
        item->removeEventFilter(this);
    m_input->disconnect(this);
}

// Value

void ZelGrowingTokenField::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_content.value, value);
    const bool keepsEdit = isEditing() && (!changed || hasFocusInside());
    m_content.value = value;
    if (!keepsEdit && !m_settlesSoon)
        showValue();
    if (changed)
        Q_EMIT objectValueChanged();
}

void ZelGrowingTokenField::setFormatter(const ZelFormatter::Ptr &formatter)
{
    m_content.formatter = formatter;
    if (isEditing())
        return;
    while (!m_tokens.isEmpty())
        takeToken(m_tokens.size() - 1); // their texts may be others
    showValue();
}

void ZelGrowingTokenField::setNullPlaceholder(const QString &text)
{
    m_content.nullPlaceholder = text;
    itemsDidChange();
}

void ZelGrowingTokenField::setEditable(bool editable)
{
    if (editable == m_editable)
        return;
    if (!editable)
        discardEditing();
    m_editable = editable;
    m_input->setVisible(editable);
    setFocusProxy(editable ? m_input : nullptr);
    itemsDidChange();
    Q_EMIT editableChanged();
}

bool ZelGrowingTokenField::isEditing() const
{
    return !m_settlesSoon && (!m_input->text().isEmpty() || !ZelEqual(m_values, listOf(m_content.value)));
}

void ZelGrowingTokenField::showValue()
{
    setError({});
    m_input->clear();
    const QVariantList values = listOf(m_content.value);
    const qsizetype selected = selectedToken();
    if (!ZelEqual(values, m_values) || m_tokens.size() != values.size()) {
        while (!m_tokens.isEmpty())
            takeToken(m_tokens.size() - 1);
        for (const QVariant &value : values)
            insertToken(m_tokens.size(), value);
        if (selected >= 0)
            (m_tokens.isEmpty() ? static_cast<QWidget *>(this) : m_tokens.at(qMin(selected, m_tokens.size() - 1)))
                ->setFocus(Qt::OtherFocusReason);
    }
    m_inputIndex = m_tokens.size();
    itemsDidChange();
}

bool ZelGrowingTokenField::commitEditing()
{
    if (!isEditing())
        return true;
    if (!tokenize(m_input->text()))
        return false;
    m_inputIndex = m_tokens.size();
    reportChange();
    return true;
}

/// Hands the value on at once and shows it in the next turn: a window that is being deleted loses the focus, too, and
/// cannot have new children.
void ZelGrowingTokenField::commitWithoutTokens()
{
    QVariantList typed;
    if (!isEditing() || !parsePieces(m_input->text(), &typed))
        return;
    QVariantList values = m_values.mid(0, m_inputIndex);
    values += typed;
    values += m_values.mid(m_inputIndex);
    m_settlesSoon = true;
    QMetaObject::invokeMethod(this, &ZelGrowingTokenField::settle, Qt::QueuedConnection);
    reportValue(values);
}

void ZelGrowingTokenField::settle()
{
    if (std::exchange(m_settlesSoon, false))
        showValue();
}

void ZelGrowingTokenField::discardEditing()
{
    if (isEditing())
        showValue();
}

/// The field may be gone afterwards.
void ZelGrowingTokenField::reportChange()
{
    itemsDidChange();
    reportValue(m_values);
}

void ZelGrowingTokenField::reportValue(const QVariantList &values)
{
    if (ZelEqual(values, listOf(m_content.value)))
        return;
    m_content.value = values;
    ZelControlSupport::reportNewValue(this);
}

void ZelGrowingTokenField::setError(const QString &error)
{
    if (error == m_error)
        return;
    m_error = error;
    setAccessibleDescription(error);
    QPalette colors;
    if (!error.isEmpty())
        colors.setColor(QPalette::Text, ZelThemeColor::error(palette()));
    m_input->setPalette(colors);
    ZelErrorNote::show(&m_errorNote, this, error);
    update();
}

// Tokens

void ZelGrowingTokenField::insertToken(qsizetype index, const QVariant &value)
{
    ZelFieldContent content = m_content;
    content.value = value;
    auto *token = new ZelToken(content.displayString(), this);
    token->installEventFilter(this);
    connect(token, &ZelToken::doubleClicked, this, [this, token] { editToken(m_tokens.indexOf(token)); });
    m_tokens.insert(index, token);
    m_values.insert(index, value);
    token->show();
}

/// Out of the field; the value is left to the caller.
void ZelGrowingTokenField::takeToken(qsizetype index)
{
    ZelToken *token = m_tokens.takeAt(index);
    m_values.removeAt(index);
    m_inputIndex -= index < m_inputIndex;
    token->removeEventFilter(this);
    token->disconnect(this);
    token->hide();
    token->deleteLater(); // it may be the one whose event led here
}

void ZelGrowingTokenField::removeToken(qsizetype index)
{
    QWidget *next = index + 1 < m_tokens.size() ? m_tokens.at(index + 1) : static_cast<QWidget *>(m_input);
    if (!moveFocus(next, &index))
        return;
    takeToken(index);
    if (m_input->text().isEmpty())
        reportChange();
    else
        itemsDidChange(); // a part of the edit, and given up with it
}

/// Focuses a widget before a token goes, whose index is kept up to date. False if whoever heard of it took the token
/// away.
bool ZelGrowingTokenField::moveFocus(QWidget *next, qsizetype *index)
{
    const QPointer<ZelToken> token = m_tokens.at(*index);
    next->setFocus(Qt::OtherFocusReason);
    *index = token ? m_tokens.indexOf(token) : -1;
    return *index >= 0;
}

/// Puts the token's text into the input in its place.
void ZelGrowingTokenField::editToken(qsizetype index)
{
    const QPointer<ZelGrowingTokenField> guard(this);
    if (!m_editable || index < 0 || !commitEditing() || !guard || index >= m_tokens.size())
        return;
    ZelFieldContent content = m_content;
    content.value = m_values.at(index);
    if (!moveFocus(m_input, &index))
        return;
    takeToken(index);
    m_inputIndex = index;
    m_input->setText(content.editingString());
    m_input->selectAll();
    itemsDidChange();
}

qsizetype ZelGrowingTokenField::selectedToken() const
{
    for (qsizetype i = 0; i < m_tokens.size(); ++i)
        if (m_tokens.at(i)->hasFocus())
            return i;
    return -1;
}

void ZelGrowingTokenField::selectNeighbour(int step)
{
    const QList<QWidget *> items = itemsInOrder();
    QWidget *focused = QApplication::focusWidget();
    const qsizetype place = focused == this ? (step > 0 ? -1 : items.size()) : items.indexOf(focused);
    QWidget *next = items.value(place + step);
    if (!next)
        return;
    next->setFocus(Qt::OtherFocusReason);
    if (next == m_input)
        m_input->setCursorPosition(step > 0 ? 0 : int(m_input->text().size()));
}

// Typing

void ZelGrowingTokenField::typed(const QString &text)
{
    if (QVariantList values; !m_error.isEmpty() && !parsePieces(text, &values))
        return; // what was refused is watched until it is mended
    const auto isSeparator = [this](QChar c) { return m_tokenizingCharacters.contains(c); };
    const auto last = std::find_if(text.rbegin(), text.rend(), isSeparator);
    if (last == text.rend())
        return;
    const qsizetype rest = text.rend() - last;
    if (!tokenize(text.left(rest)))
        return;
    m_input->setText(text.mid(rest).trimmed());
    reportChange();
}

/// Turns a text into tokens before the input and clears that; leaves everything as it is where a piece means no value.
bool ZelGrowingTokenField::tokenize(const QString &text)
{
    QVariantList values;
    if (!parsePieces(text, &values))
        return false;
    m_input->clear();
    for (const QVariant &value : values)
        insertToken(m_inputIndex++, value);
    return true;
}

/// The values of a text; shows why there are none for one of its pieces.
bool ZelGrowingTokenField::parsePieces(const QString &text, QVariantList *values)
{
    for (const QString &piece : pieces(text)) {
        QVariant value;
        QString error;
        if (!m_content.parse(piece, &value, &error)) {
            setError(error);
            return false;
        }
        values->append(value);
    }
    setError({});
    return true;
}

QStringList ZelGrowingTokenField::pieces(const QString &text) const
{
    QStringList pieces{QString()};
    for (const QChar c : text) {
        if (m_tokenizingCharacters.contains(c))
            pieces.append(QString());
        else
            pieces.last().append(c);
    }
    for (QString &piece : pieces)
        piece = piece.trimmed();
    pieces.removeAll(QString());
    return pieces;
}

// Events

bool ZelGrowingTokenField::filterEvent(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        settle();
        m_input->setAccessibleName(accessibleName());
        update();
        break;
    case QEvent::FocusOut:
        focusMayHaveLeft(event);
        break;
    case QEvent::ShortcutOverride:
        return object == m_input && reservesShortcut(static_cast<QKeyEvent *>(event));
    case QEvent::KeyPress:
        return object == m_input && inputKeyPressed(static_cast<QKeyEvent *>(event));
    default:
        break;
    }
    return false;
}

bool ZelGrowingTokenField::hasFocusInside() const
{
    const QWidget *focused = QApplication::focusWidget();
    return focused && (focused == this || isAncestorOf(focused));
}

void ZelGrowingTokenField::focusMayHaveLeft(const QEvent *event)
{
    update();
    const Qt::FocusReason reason = static_cast<const QFocusEvent *>(event)->reason();
    if (reason == Qt::PopupFocusReason || hasFocusInside())
        return;
    if (reason == Qt::ActiveWindowFocusReason)
        commitWithoutTokens();
    else
        commitEditing();
}

/// Return and Escape are the field's while it is edited; undo and redo are the window's while nothing was typed.
bool ZelGrowingTokenField::reservesShortcut(QKeyEvent *event) const
{
    if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) {
        event->ignore();
        return m_input->text().isEmpty();
    }
    if (!isEditing() || !(event->key() == Qt::Key_Escape || isReturn(event)))
        return false;
    event->accept();
    return true;
}

bool ZelGrowingTokenField::inputKeyPressed(const QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isEditing()) {
        discardEditing();
        return true;
    }
    if (isReturn(event) && isEditing()) {
        commitEditing();
        return true;
    }
    if (event->modifiers() & ~Qt::KeypadModifier || m_input->hasSelectedText())
        return false;
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    const int back = isRightToLeft ? Qt::Key_Right : Qt::Key_Left;
    const int forward = isRightToLeft ? Qt::Key_Left : Qt::Key_Right;
    const bool atStart = m_input->cursorPosition() == 0;
    const bool atEnd = m_input->cursorPosition() == m_input->text().size();
    if (atStart && m_inputIndex > 0 && (event->key() == back || event->key() == Qt::Key_Backspace)) {
        selectNeighbour(-1);
        return true;
    }
    if (atEnd && m_inputIndex < m_tokens.size() && event->key() == forward) {
        selectNeighbour(1);
        return true;
    }
    return false;
}

/// What the tokens leave to the field, and what it gets itself when there is no input.
void ZelGrowingTokenField::keyPressEvent(QKeyEvent *event)
{
    const qsizetype selected = selectedToken();
    const bool edits = m_editable && selected >= 0;
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    if (m_editable && selected < 0) {
        event->ignore(); // the input has no use for it
    } else if (event->matches(QKeySequence::Copy) && selected >= 0) {
        QApplication::clipboard()->setText(m_tokens.at(selected)->text());
    } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        selectNeighbour(event->key() == Qt::Key_Right ? forward : -forward);
    } else if (edits && (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete)) {
        removeToken(selected);
    } else if (edits && (isReturn(event) || event->key() == Qt::Key_F2)) {
        editToken(selected);
    } else if (edits && !event->text().isEmpty() && event->text().at(0).isPrint() &&
               !ZelControlSupport::hasCommandModifier(event)) {
        m_input->setFocus(Qt::OtherFocusReason);
        m_input->insert(event->text());
        typed(m_input->text());
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ZelGrowingTokenField::mousePressEvent(QMouseEvent *event)
{
    if (m_editable)
        m_input->setFocus(Qt::MouseFocusReason);
    QWidget::mousePressEvent(event);
}

bool ZelGrowingTokenField::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && ZelControlSupport::showToolTip(event, this, m_error))
        return true;
    return QWidget::event(event);
}

void ZelGrowingTokenField::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::EnabledChange:
        if (!isEnabled())
            discardEditing();
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        itemsDidChange();
        break;
    default:
        break;
    }
}
