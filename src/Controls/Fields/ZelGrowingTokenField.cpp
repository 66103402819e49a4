// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTokenField.h"

#include "Controls/Fields/ZelToken.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/ZelValues.h"

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

} // namespace

ZelGrowingTokenField::ZelGrowingTokenField(QWidget *parent)
    : ZelGuarded(parent)
    , ZelEditSessionOf(this)
    , m_input(new QLineEdit(this))
{
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
    // The items lose the focus while they are deleted, when the field's members are gone already.
    for (QWidget *item : itemsInOrder())
        item->removeEventFilter(this);
    m_input->disconnect(this);
}

// Value

bool ZelGrowingTokenField::isEditing() const
{
    return !m_settlesSoon && (!m_input->text().isEmpty() || isChange(values()));
}

bool ZelGrowingTokenField::isChange(const QVariant &value) const
{
    return !ZelEqual(value, listOf(objectValue()));
}

/// The values of the tokens, with the typed ones at the place of the input.
bool ZelGrowingTokenField::readValue(QVariant *value, QString *error)
{
    QVariantList typed;
    if (!parsePieces(m_input->text(), &typed, error))
        return false;
    const QVariantList all = values();
    *value = all.mid(0, m_inputIndex) + typed + all.mid(m_inputIndex);
    return true;
}

/// A window that is being deleted also loses the focus, but must not get new children. So what is committed when the
/// window loses the focus is shown in the next turn.
void ZelGrowingTokenField::showValue()
{
    if (m_showsLater && !std::exchange(m_settlesSoon, true))
        QMetaObject::invokeMethod(this, &ZelGrowingTokenField::settle, Qt::QueuedConnection);
    if (m_settlesSoon)
        return;
    m_input->clear();
    showTokens(listOf(objectValue()));
    itemsDidChange();
}

void ZelGrowingTokenField::settle()
{
    if (std::exchange(m_settlesSoon, false))
        discardEditing();
}

void ZelGrowingTokenField::applyEditable(bool editable)
{
    if (!editable)
        discardEditing(); // otherwise the input would commit when it is hidden
    m_editable = editable;
    m_input->setVisible(editable);
    setFocusProxy(editable ? m_input : nullptr);
    itemsDidChange();
}

void ZelGrowingTokenField::errorDidChange()
{
    QPalette colors;
    if (!errorText().isEmpty())
        colors.setColor(QPalette::Text, ZelThemeColor::error(palette()));
    m_input->setPalette(colors);
}

// Tokens

QVariantList ZelGrowingTokenField::values() const
{
    QVariantList values;
    values.reserve(m_values.size());
    for (const ZelKeptValue &value : m_values)
        values.append(value.value());
    return values;
}

/// Replaces only the tokens that differ, so that the others keep the focus.
void ZelGrowingTokenField::showTokens(const QVariantList &values)
{
    const auto isShown = [&](qsizetype token, qsizetype value) {
        return ZelEqual(m_values.at(token).value(), values.at(value)) &&
               m_tokens.at(token)->text() == displayString(values.at(value));
    };
    const qsizetype selected = selectedToken();
    const qsizetype shorter = qMin(m_tokens.size(), values.size());
    qsizetype head = 0;
    while (head < shorter && isShown(head, head))
        ++head;
    qsizetype tail = 0;
    while (tail < shorter - head && isShown(m_tokens.size() - tail - 1, values.size() - tail - 1))
        ++tail;
    QList<ZelToken *> former;
    while (m_tokens.size() > head + tail)
        former.append(takeToken(head));
    for (qsizetype i = head; i < values.size() - tail; ++i)
        insertToken(i, values.at(i));
    m_inputIndex = m_tokens.size();
    if (selected >= 0 && selectedToken() < 0)
        (m_tokens.isEmpty() ? static_cast<QWidget *>(this) : m_tokens.at(qMin(selected, m_tokens.size() - 1)))
            ->setFocus(Qt::OtherFocusReason);
    for (ZelToken *token : std::as_const(former))
        retire(token);
}

void ZelGrowingTokenField::insertToken(qsizetype index, const QVariant &value)
{
    auto *token = new ZelToken(displayString(value), this);
    token->installEventFilter(this);
    connect(token, &ZelToken::doubleClicked, this, [this, token] { editToken(m_tokens.indexOf(token)); });
    m_tokens.insert(index, token);
    m_values.insert(index, ZelKeptValue(value));
    token->show();
}

/// Takes the token out of the lists. The caller retires it when all lists are consistent again, because hiding it may
/// move the focus and call others.
ZelToken *ZelGrowingTokenField::takeToken(qsizetype index)
{
    m_values.removeAt(index);
    m_inputIndex -= index < m_inputIndex;
    return m_tokens.takeAt(index);
}

void ZelGrowingTokenField::retire(ZelToken *token)
{
    token->removeEventFilter(this);
    token->disconnect(this);
    token->hide();
    token->deleteLater(); // an event of this token may have led here
}

void ZelGrowingTokenField::removeToken(qsizetype index)
{
    QWidget *next = index + 1 < m_tokens.size() ? m_tokens.at(index + 1) : static_cast<QWidget *>(m_input);
    if (!moveFocus(next, &index))
        return;
    retire(takeToken(index));
    itemsDidChange();
    if (m_input->text().isEmpty())
        takeValue(values()); // otherwise the removal is part of the edit and is discarded with it
}

/// Moves the focus to a widget before a token is removed, and updates the token's index. Answers false if a receiver of
/// the focus change has removed the token.
bool ZelGrowingTokenField::moveFocus(QWidget *next, qsizetype *index)
{
    const QPointer<ZelToken> token = m_tokens.at(*index);
    next->setFocus(Qt::OtherFocusReason);
    *index = token ? m_tokens.indexOf(token) : -1;
    return *index >= 0;
}

/// Replaces the token by the input with the token's text.
void ZelGrowingTokenField::editToken(qsizetype index)
{
    const QPointer<ZelGrowingTokenField> guard(this);
    const QPointer<ZelToken> token = m_tokens.value(index);
    if (!m_editable || !token || !commitEditing() || !guard)
        return;
    index = m_tokens.indexOf(token); // the commit may have inserted tokens before it
    if (index < 0)
        return;
    const QString text = editingString(m_values.at(index).value());
    if (!moveFocus(m_input, &index))
        return;
    retire(takeToken(index));
    m_inputIndex = index;
    m_input->setText(text);
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

/// A separator commits the text before it; the rest is still being typed.
void ZelGrowingTokenField::typed(const QString &text)
{
    typingDidChange();
    const auto isSeparator = [this](QChar c) { return m_tokenizingCharacters.contains(c); };
    const auto last = std::find_if(text.rbegin(), text.rend(), isSeparator);
    if (!errorText().isEmpty() || last == text.rend())
        return;
    const qsizetype rest = text.rend() - last;
    QVariantList pieces;
    QString error;
    if (!parsePieces(text.left(rest), &pieces, &error)) {
        setError(error);
        return;
    }
    m_input->setText(text.mid(rest).trimmed());
    for (const QVariant &value : std::as_const(pieces))
        insertToken(m_inputIndex++, value);
    itemsDidChange();
    takeValue(values());
}

/// Reads all pieces of the text, or none if one of them is refused.
bool ZelGrowingTokenField::parsePieces(const QString &text, QVariantList *values, QString *error) const
{
    for (const QString &piece : pieces(text)) {
        QVariant value;
        if (!parse(piece, &value, error))
            return false;
        values->append(value);
    }
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
        focusMayHaveLeft(static_cast<const QFocusEvent *>(event));
        break;
    case QEvent::ShortcutOverride:
        return object == m_input && sessionEvent(event);
    case QEvent::KeyPress:
        return object == m_input && inputKeyPressed(static_cast<QKeyEvent *>(event));
    default:
        break;
    }
    return false;
}

void ZelGrowingTokenField::focusMayHaveLeft(const QFocusEvent *event)
{
    update();
    if (event->reason() != Qt::PopupFocusReason && hasFocusInside())
        return;
    m_showsLater = event->reason() == Qt::ActiveWindowFocusReason && isEditing();
    if (focusLeft(event))
        m_showsLater = false;
}

bool ZelGrowingTokenField::inputKeyPressed(const QKeyEvent *event)
{
    if (isEditing() && keyPressed(event) != KeyUse::None)
        return true;
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

/// Gets the keys that the tokens ignore, and the field's own when there is no input.
void ZelGrowingTokenField::keyPressEvent(QKeyEvent *event)
{
    const qsizetype selected = selectedToken();
    const bool edits = m_editable && selected >= 0;
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    if (m_editable && selected < 0) {
        event->ignore(); // the input has ignored the key
    } else if (event->matches(QKeySequence::Copy) && selected >= 0) {
        QApplication::clipboard()->setText(m_tokens.at(selected)->text());
    } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        selectNeighbour(event->key() == Qt::Key_Right ? forward : -forward);
    } else if (edits && (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete)) {
        removeToken(selected);
    } else if (edits && (ZelControlSupport::isReturn(event) || event->key() == Qt::Key_F2)) {
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
    const bool isKey = event->type() == QEvent::ShortcutOverride; // the filter has seen it, or it is for a token
    return (!isKey && sessionEvent(event)) || QWidget::event(event);
}

void ZelGrowingTokenField::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        itemsDidChange();
        break;
    default:
        break;
    }
}
