// SPDX-License-Identifier: MIT
#include "Controls/private/ZelGrowingTextEditor.h"

#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/private/ZelThemeColor.h"

#include <QApplication>
#include <QScrollBar>
#include <QTextBlock>

ZelGrowingTextEditor::ZelGrowingTextEditor(ZelGrowingTextField *field)
    : ZelGuardedScrollArea(field)
    , m_field(field)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTabChangesFocus(true);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    connect(this, &QPlainTextEdit::textChanged, this, &ZelGrowingTextEditor::alignText);
}

/// The text begins at the edge of its own direction, as in a line edit, or of the field's where that is a label.
/// QPlainTextEdit would leave it on the left.
void ZelGrowingTextEditor::alignText()
{
    const bool isOfLabel = m_field && m_field->isLabelStyle();
    const bool isRightToLeft =
        isOfLabel ? m_field->layoutDirection() == Qt::RightToLeft : document()->firstBlock().text().isRightToLeft();
    QTextOption option = document()->defaultTextOption();
    if (option.alignment().testFlag(Qt::AlignRight) == isRightToLeft)
        return;
    option.setAlignment(isRightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    document()->setDefaultTextOption(option);
}

void ZelGrowingTextEditor::takeFocus(Qt::FocusReason reason)
{
    QWidget::setTabOrder(m_field, this);
    m_field->setFocusProxy(this);
    setFocus(reason);
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        selectAll();
}

void ZelGrowingTextEditor::setTextColor(const QColor &color)
{
    QPalette colors;
    colors.setResolveMask(0);
    colors.setColor(QPalette::Text, color);
    colors.setColor(QPalette::PlaceholderText, ZelThemeColor::dimmed(m_field->palette()));
    setPalette(colors);
}

void ZelGrowingTextEditor::forward(QMouseEvent *event)
{
    const QPointF position = viewport()->mapFrom(m_field, event->position().toPoint());
    QMouseEvent copy(event->type(), position, event->scenePosition(), event->globalPosition(), event->button(),
                     event->buttons(), event->modifiers(), event->pointingDevice());
    QApplication::sendEvent(viewport(), &copy);
}

void ZelGrowingTextEditor::disconnectField()
{
    disconnect(m_field);
    m_field = nullptr;
}

bool ZelGrowingTextEditor::handleEvent(QEvent *event)
{
    const bool isSettled = m_field && event->type() == QEvent::ShortcutOverride && m_field->sessionEvent(event);
    return isSettled || QPlainTextEdit::event(event);
}

/// Mouse events end here, as in a line edit, even if the text ignores them. Otherwise they would reach the field, which
/// passes its mouse events on to the editor, and so on for ever.
bool ZelGrowingTextEditor::viewportEvent(QEvent *event)
{
    const bool handled = QPlainTextEdit::viewportEvent(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::ContextMenu:
        event->accept();
        return true;
    default:
        return handled;
    }
}

void ZelGrowingTextEditor::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (m_field)
        m_field->editorLostFocus(event);
}

void ZelGrowingTextEditor::keyPressEvent(QKeyEvent *event)
{
    if (m_field && m_field->editorKeyPressed(event))
        return;
    const QPointer<ZelGrowingTextEditor> guard(this);
    QPlainTextEdit::keyPressEvent(event);
    if (guard && isReadOnly() && !isCut())
        verticalScrollBar()->setValue(0);
}

/// Whether the field is too low for its text. QPlainTextEdit may be able to scroll although the text fits, and a text
/// that cannot be changed is scrolled by the arrow keys.
bool ZelGrowingTextEditor::isCut() const
{
    return m_field && m_field->height() < m_field->heightForWidth(m_field->width());
}

/// While the field is high enough, the wheel belongs to the pane around it.
void ZelGrowingTextEditor::wheelEvent(QWheelEvent *event)
{
    if (hasFocus() && isCut() && verticalScrollBar()->maximum() > 0)
        QPlainTextEdit::wheelEvent(event);
    else
        event->ignore();
}
