// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextField.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelGrowingTextEditor.h"
#include "Controls/private/ZelLineEditMargin.h"
#include "Controls/private/ZelTextWidth.h"
#include "Controls/private/ZelThemeColor.h"
#include "Controls/private/ZelWrappedText.h"
#include "Core/Values/private/ZelAssign.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QtMath>

ZelGrowingTextField::ZelGrowingTextField(QWidget *parent)
    : ZelGuarded(parent)
    , ZelEditSessionOf(this)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
    setAttribute(Qt::WA_Hover);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

ZelGrowingTextField::~ZelGrowingTextField()
{
    // The editor loses the focus while it is deleted, when the field's members are gone already.
    if (m_editor)
        m_editor->disconnectField();
}

void ZelGrowingTextField::applyEditable(bool editable)
{
    m_editable = editable;
    if (m_editor)
        m_editor->setReadOnly(!editable);
    updateFocusPolicy();
}

void ZelGrowingTextField::setLabelStyle(bool labelStyle)
{
    if (!ZelAssign(m_labelStyle, labelStyle))
        return;
    setEditable(!labelStyle);
    m_contentMargins.reset();
    forgetMeasures();
    updateGeometry();
    update();
}

QString ZelGrowingTextField::text() const
{
    return m_editor ? m_editor->toPlainText() : m_text;
}

/// A click gives the focus only if the text can be edited or selected; Tab may still reach the field otherwise.
void ZelGrowingTextField::updateFocusPolicy()
{
    setFocusPolicy(m_editable || !m_text.isEmpty() ? Qt::StrongFocus : Qt::TabFocus);
}

void ZelGrowingTextField::showValue()
{
    m_text = m_editor && m_editable ? editingString(objectValue()) : displayString(objectValue());
    if (m_editor) {
        if (m_editor->toPlainText() != m_text)
            m_editor->setPlainText(m_text);
        m_editor->document()->setModified(false);
        m_editor->setPlaceholderText(fittedPlaceholder());
    }
    updateFocusPolicy();
    textMayNeedHeight();
    update();
}

bool ZelGrowingTextField::isTextModified() const
{
    return m_editor && m_editor->document()->isModified();
}

void ZelGrowingTextField::errorDidChange()
{
    if (m_editor)
        m_editor->setTextColor(textColor());
}

QColor ZelGrowingTextField::textColor() const
{
    if (!errorText().isEmpty())
        return ZelThemeColor::error(palette());
    return m_labelStyle ? ZelThemeColor::dimmed(palette()) : palette().color(QPalette::Text);
}

void ZelGrowingTextField::openEditor(Qt::FocusReason reason)
{
    const bool keepsTyping = isEditing();
    m_editor = new ZelGrowingTextEditor(this);
    m_editor->setReadOnly(!m_editable);
    m_editor->setTextColor(textColor());
    placeEditor();
    if (keepsTyping)
        m_editor->setPlainText(m_text);
    else
        discardEditing(); // the editing text may differ from the shown text
    connect(m_editor, &QPlainTextEdit::textChanged, this, &ZelGrowingTextField::editorTextChanged);
    m_editor->show();
    m_editor->takeFocus(reason);
    update();
}

/// A QPlainTextEdit counts its last line as hidden, and scrolls, unless a further pixel is free below it.
void ZelGrowingTextField::placeEditor()
{
    m_editor->setGeometry(contentRect().adjusted(0, 0, 0, 1));
    m_editor->setPlaceholderText(fittedPlaceholder());
}

void ZelGrowingTextField::closeEditor()
{
    if (!m_editor)
        return;
    m_text = m_editor->toPlainText();
    const bool keepsTyping = isEditing();
    m_editor->disconnectField();
    m_editor->hide();
    m_editor->deleteLater();
    m_editor = nullptr;
    setFocusProxy(nullptr);
    if (!keepsTyping)
        discardEditing();
    update();
}

void ZelGrowingTextField::editorTextChanged()
{
    typingDidChange();
    m_editor->setPlaceholderText(fittedPlaceholder());
    textMayNeedHeight();
}

void ZelGrowingTextField::editorLostFocus(const QFocusEvent *event)
{
    // After these reasons the focus returns to the same widget, so the editor must stay.
    const bool stays = event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!focusLeft(event))
        return;
    if (!stays && m_editor && !m_editor->hasFocus())
        closeEditor();
    update();
}

bool ZelGrowingTextField::editorKeyPressed(QKeyEvent *event)
{
    const bool breaksLine =
        ZelControlSupport::isReturn(event) && event->modifiers() & (Qt::AltModifier | Qt::ShiftModifier);
    if (breaksLine && m_editable) {
        m_editor->insertPlainText(QStringLiteral("\n"));
        return true;
    }
    const KeyUse use = keyPressed(event);
    const bool isEscape = event->key() == Qt::Key_Escape;
    if (use == KeyUse::None && !isEscape)
        return false;
    // As in a line edit, the window's default button gets Return after the text was committed.
    event->setAccepted(isEscape ? use == KeyUse::Discarded : use == KeyUse::Taken);
    if (use != KeyUse::Taken && use != KeyUse::None && m_editor)
        m_editor->selectAll();
    return true;
}

bool ZelGrowingTextField::handleEvent(QEvent *event)
{
    if (sessionEvent(event))
        return true;
    if (event->type() == QEvent::ToolTip &&
        ZelControlHelp::showToolTip(event, this, fittedPlaceholder() == placeholder() ? QString() : placeholder()))
        return true;
    return QWidget::event(event);
}

void ZelGrowingTextField::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
        m_contentMargins.reset();
        forgetMeasures();
        updateGeometry();
        break;
    case QEvent::PaletteChange:
        if (m_editor)
            m_editor->setTextColor(textColor());
        break;
    default:
        break;
    }
}

void ZelGrowingTextField::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (!m_editor)
        openEditor(event->reason());
}

void ZelGrowingTextField::mousePressEvent(QMouseEvent *event)
{
    forwardToEditor(event);
}

void ZelGrowingTextField::mouseMoveEvent(QMouseEvent *event)
{
    forwardToEditor(event);
}

void ZelGrowingTextField::mouseReleaseEvent(QMouseEvent *event)
{
    forwardToEditor(event);
}

void ZelGrowingTextField::contextMenuEvent(QContextMenuEvent *event)
{
    if (!m_editor) {
        event->ignore();
        return;
    }
    QContextMenuEvent copy(event->reason(), m_editor->viewport()->mapFrom(this, event->pos()), event->globalPos());
    QCoreApplication::sendEvent(m_editor->viewport(), &copy);
}

/// A press opens the editor. That press, and the moves and the release after it, go on to the editor.
void ZelGrowingTextField::forwardToEditor(QMouseEvent *event)
{
    if (m_editor)
        m_editor->forward(event);
    else
        event->ignore();
}

void ZelGrowingTextField::initStyleOption(QStyleOptionFrame *option) const
{
    option->initFrom(this);
    option->lineWidth = m_labelStyle ? 0 : style()->pixelMetric(QStyle::PM_DefaultFrameWidth, option, this);
    option->midLineWidth = 0;
    option->state |= QStyle::State_Sunken;
    if (!m_editable)
        option->state |= QStyle::State_ReadOnly;
    if (m_editor && m_editor->hasFocus())
        option->state |= QStyle::State_HasFocus;
    ZelControlSupport::showTypable(option, m_editable);
}

/// With these margins a field of one line is as high as a line edit, and its text is in the same place.
QMargins ZelGrowingTextField::contentMargins() const
{
    if (m_contentMargins)
        return *m_contentMargins;
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int height = ZelControlSupport::fieldHeight(this, !m_labelStyle);
    option.rect = QRect(0, 0, 1000, height);
    const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    const int textHeight = option.fontMetrics.height();
    const int top = contents.y() + (contents.height() - textHeight + 1) / 2;
    return m_contentMargins.emplace(contents.x() + ZelLineEditMargin, top,
                                    option.rect.right() - contents.right() + ZelLineEditMargin,
                                    std::max(0, height - top - textHeight));
}

QRect ZelGrowingTextField::contentRect() const
{
    return rect().marginsRemoved(contentMargins());
}

double ZelGrowingTextField::baselineOffset() const
{
    return contentMargins().top() + fontMetrics().ascent();
}

int ZelGrowingTextField::heightForWidth(int width) const
{
    if (width == m_measuredWidth)
        return m_measuredHeight;
    const QMargins margins = contentMargins();
    const int available = std::max(1, width - margins.left() - margins.right());
    const QString string = text();
    int textHeight = fontMetrics().height();
    if (string.contains(QLatin1Char('\n')) || ZelTextWidth(this, string) >= available)
        textHeight = std::max(textHeight, qCeil(ZelWrappedText::height(string, font(), available)));
    m_measuredWidth = width;
    return m_measuredHeight = textHeight + margins.top() + margins.bottom();
}

void ZelGrowingTextField::forgetMeasures()
{
    m_measuredWidth = -1;
    m_sizeHint = QSize();
}

/// The name of a marker stays in one line: unlike other placeholders it is not wrapped.
QString ZelGrowingTextField::fittedPlaceholder() const
{
    const QString text = placeholder();
    return ZelControlSupport::isMarkerText(text) ? ZelControlSupport::fitted(text, fontMetrics(), contentRect().width())
                                                 : text;
}

void ZelGrowingTextField::textMayNeedHeight()
{
    if (m_measuredWidth < 0)
        return; // nobody has asked for the size since the last change
    const int former = m_measuredWidth == width() ? m_measuredHeight : -1;
    forgetMeasures();
    if (former == heightForWidth(width()))
        return;
    updateGeometry();
    if (m_editor) // the field must grow while the user is typing
        ZelLayoutTurn::settle(this);
}

QSize ZelGrowingTextField::sizeHint() const
{
    if (!m_sizeHint.isValid()) {
        const QMargins margins = contentMargins();
        const int preferred = 17 * fontMetrics().horizontalAdvance(QLatin1Char('x')) + margins.left() + margins.right();
        m_sizeHint = QSize(preferred, heightForWidth(preferred));
    }
    return m_sizeHint;
}

QSize ZelGrowingTextField::minimumSizeHint() const
{
    const QMargins margins = contentMargins();
    return {fontMetrics().maxWidth() + margins.left() + margins.right(),
            ZelControlSupport::fieldHeight(this, !m_labelStyle)};
}

void ZelGrowingTextField::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_editor)
        placeEditor();
}

void ZelGrowingTextField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!m_labelStyle) {
        QStyleOptionFrame panel;
        initStyleOption(&panel);
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
    }
    if (!m_editor)
        paintText(&painter);
    if (!m_labelStyle)
        paintError(&painter);
}

void ZelGrowingTextField::paintText(QPainter *painter) const
{
    const bool empty = m_text.isEmpty();
    const QString string = empty ? fittedPlaceholder() : m_text;
    if (string.isEmpty())
        return;
    painter->setPen(empty ? ZelThemeColor::dimmed(palette()) : textColor());
    // What is only shown stands beside the label of its row, as in a label.
    ZelWrappedText::paint(painter, string, font(), contentRect(),
                          m_labelStyle ? std::optional(layoutDirection()) : std::nullopt);
}
