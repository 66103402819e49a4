// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelGrowingTextEditor.h"

#include "Platform/Controls/ZelGrowingTextField.h"
#include "Platform/Controls/ZelThemeColor.h"

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

/// Text begins at the edge of its own direction, as in a line edit; Qt's layout of plain texts leaves it on the left.
void ZelGrowingTextEditor::alignText()
{
    const bool isRightToLeft = document()->firstBlock().text().isRightToLeft();
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
    if (m_field && event->type() == QEvent::ShortcutOverride &&
        m_field->editorReservesShortcut(static_cast<QKeyEvent *>(event)))
        return true;
    return QPlainTextEdit::event(event);
}

/// The mouse's events end here, as in a line edit, whether or not the text has a use for them: the field that they
/// would come to next hands those that it gets to the editor.
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
    const QWidget *popup = QApplication::activePopupWidget();
    const QWidget *opener = popup ? popup->parentWidget() : nullptr;
    const bool isOwnMenu = opener == this || (opener && isAncestorOf(opener));
    if (event->reason() == Qt::PopupFocusReason && isOwnMenu)
        return;
    // The window gives the focus back to the same widget when it is active again.
    const bool stays = event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (m_field)
        m_field->editorLostFocus(!stays);
}

void ZelGrowingTextEditor::keyPressEvent(QKeyEvent *event)
{
    if (!m_field || !m_field->editorKeyPressed(event))
        QPlainTextEdit::keyPressEvent(event);
}

/// A text edit may have a line to scroll by although the text fits: where the field has room for it, the wheel is the
/// pane's.
void ZelGrowingTextEditor::wheelEvent(QWheelEvent *event)
{
    const bool isCut = m_field && m_field->height() < m_field->heightForWidth(m_field->width());
    if (hasFocus() && isCut && verticalScrollBar()->maximum() > 0)
        QPlainTextEdit::wheelEvent(event);
    else
        event->ignore();
}
