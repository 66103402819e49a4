// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelGrowingTextView.h"

#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Layout/ZelLayoutSettling.h"
#include "Platform/Resources/ZelTextDocumentCoder.h"
#include "Platform/Runtime/ZelValues.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QtMath>

namespace {

constexpr int s_padding = 2; // as in a line edit

bool isReturn(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

/// The value without its unset states: equal values show the same.
QVariant present(const QVariant &value)
{
    const bool isText = value.metaType() == QMetaType::fromType<ZelAttributedString>();
    return isText ? value.value<ZelAttributedString>().toVariant() : ZelPresent(value);
}

} // namespace

ZelGrowingTextView::ZelGrowingTextView(QWidget *parent)
    : ZelGuardedScrollArea(parent)
{
    ZelControlSupport::prepare();
    document()->setDocumentMargin(s_padding);
    document()->setModified(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTabChangesFocus(true);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(document(), &QTextDocument::contentsChange, this, [this] { m_read = {}; });
    connect(document(), &QTextDocument::contentsChanged, this, &ZelGrowingTextView::textMayNeedHeight);
}

ZelAttributedString ZelGrowingTextView::attributedString() const
{
    if (m_read.isNull())
        m_read = ZelTextDocumentCoder::read(document());
    return m_read;
}

void ZelGrowingTextView::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_content.value, value);
    m_content.value = value;
    if (!isEditing())
        showValue();
    if (changed)
        Q_EMIT objectValueChanged();
}

void ZelGrowingTextView::setNullPlaceholder(const QString &text)
{
    m_content.nullPlaceholder = text;
    setPlaceholderText(m_content.placeholder());
}

void ZelGrowingTextView::setEditable(bool editable)
{
    if (editable == isEditable())
        return;
    setReadOnly(!editable);
    if (!editable)
        discardEditing();
    Q_EMIT editableChanged();
}

void ZelGrowingTextView::setHeightLimits(int minimum, int maximum)
{
    m_minimumHeight = minimum;
    m_maximumHeight = std::max(minimum, maximum);
    updateScrollBar();
    updateGeometry();
}

bool ZelGrowingTextView::isEditing() const
{
    return document()->isModified();
}

void ZelGrowingTextView::showValue()
{
    setPlaceholderText(m_content.placeholder());
    ZelAttributedString string = ZelAttributedString::fromVariant(m_content.value);
    if (string.isNull())
        string = ZelAttributedString(QStringLiteral(""));
    if (string != attributedString())
        showText(string);
    document()->setModified(false);
    document()->clearUndoRedoStacks(); // from here on they are the window's business
}

/// Keeps the selection as far as the new text has the place.
void ZelGrowingTextView::showText(const ZelAttributedString &string)
{
    const auto length = int(string.length());
    QTextCursor cursor = textCursor();
    const bool fits = cursor.selectionStart() < length;
    const int anchor = fits ? std::min(cursor.anchor(), length) : 0;
    const int position = fits ? std::min(cursor.position(), length) : 0;
    ZelTextDocumentCoder::write(string, document());
    cursor = QTextCursor(document());
    cursor.setPosition(int(beforePair(anchor)));
    cursor.setPosition(int(beforePair(position)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

qsizetype ZelGrowingTextView::beforePair(qsizetype position) const
{
    const bool isInside = position > 0 && document()->characterAt(int(position)).isLowSurrogate() &&
                          document()->characterAt(int(position) - 1).isHighSurrogate();
    return isInside ? position - 1 : position;
}

bool ZelGrowingTextView::commitEditing()
{
    if (!isEditing()) {
        showValue();
        return true;
    }
    const ZelAttributedString string = attributedString();
    const QVariant value = string.isEmpty() ? QVariant() : string.toVariant();
    const bool changed = !ZelEqual(value, present(m_content.value));
    if (changed)
        m_content.value = value;
    showValue();
    if (changed) {
        const QPointer<ZelGrowingTextView> guard(this);
        Q_EMIT objectValueChanged();
        if (guard)
            ZelControlSupport::reportEdit(this);
    }
    return true;
}

void ZelGrowingTextView::discardEditing()
{
    showValue();
}

bool ZelGrowingTextView::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && reservesShortcut(static_cast<QKeyEvent *>(event)))
        return true;
    return QTextEdit::event(event);
}

/// Escape and Control+Return belong to the view while it is edited; undo and redo are the window's when nothing was
/// typed.
bool ZelGrowingTextView::reservesShortcut(QKeyEvent *event) const
{
    if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) {
        if (isEditing())
            return false;
        event->ignore();
        return true;
    }
    const bool ends = event->key() == Qt::Key_Escape || (isReturn(event) && event->modifiers() & Qt::ControlModifier);
    if (!isEditing() || !ends)
        return false;
    event->accept();
    return true;
}

void ZelGrowingTextView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        const bool discards = isEditing();
        if (discards)
            discardEditing();
        event->setAccepted(discards);
    } else if (isReturn(event) && event->modifiers() & Qt::ControlModifier && isEditable()) {
        event->accept();
        commitEditing();
    } else {
        QTextEdit::keyPressEvent(event);
    }
}

void ZelGrowingTextView::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    const QWidget *popup = QApplication::activePopupWidget();
    const QWidget *opener = popup ? popup->parentWidget() : nullptr;
    const bool isOwnMenu = opener == this || (opener && isAncestorOf(opener));
    if (event->reason() != Qt::PopupFocusReason || !isOwnMenu)
        commitEditing();
}

/// What is inserted is turned into an attributed string first, so that nothing comes in that the value cannot hold.
void ZelGrowingTextView::insertFromMimeData(const QMimeData *source)
{
    if (!source->hasHtml()) {
        QTextEdit::insertFromMimeData(source);
        return;
    }
    QTextDocument document;
    document.setHtml(source->html());
    const ZelAttributedString string = ZelTextDocumentCoder::read(&document);
    const int end = textCursor().selectionStart() + int(string.length());
    ZelTextDocumentCoder::insert(string, textCursor());
    QTextCursor cursor = textCursor();
    cursor.setPosition(std::min(end, cursor.document()->characterCount() - 1));
    setTextCursor(cursor);
    ensureCursorVisible();
}

void ZelGrowingTextView::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        textMayNeedHeight();
    else if (event->type() == QEvent::EnabledChange && !isEnabled())
        discardEditing();
}

void ZelGrowingTextView::wheelEvent(QWheelEvent *event)
{
    if (hasFocus() && verticalScrollBar()->maximum() > 0)
        QTextEdit::wheelEvent(event);
    else
        event->ignore();
}

// Size

void ZelGrowingTextView::resizeEvent(QResizeEvent *event)
{
    QTextEdit::resizeEvent(event);
    updateScrollBar();
}

/// Without it a bar would come and go, and wrap the text anew, whenever the view is about to grow.
void ZelGrowingTextView::updateScrollBar()
{
    const bool scrolls = neededHeight(width()) > m_maximumHeight;
    setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void ZelGrowingTextView::textMayNeedHeight()
{
    m_measuredWidth = -1;
    const int needed = heightForWidth(width());
    updateScrollBar();
    if (needed == height())
        return;
    updateGeometry();
    if (hasFocus() || isEditing()) // it grows under the user's hands
        ZelLayoutSettling::settle(this);
}

int ZelGrowingTextView::measuredHeight(int textWidth) const
{
    if (textWidth == m_measuredWidth)
        return m_measuredHeight;
    double height = knownHeight(textWidth);
    if (height < 0) {
        const std::unique_ptr<QTextDocument> copy(document()->clone());
        copy->setTextWidth(textWidth);
        height = copy->size().height();
    }
    m_measuredWidth = textWidth;
    return m_measuredHeight = qCeil(height);
}

/// The height as far as it matters, without laying a copy of the text out, which takes long where the text is long;
/// negative where it takes that.
double ZelGrowingTextView::knownHeight(int textWidth) const
{
    if (document()->blockCount() > m_maximumHeight)
        return document()->blockCount(); // no paragraph is lower than a pixel
    if (!isVisible())
        return -1;
    const int shownWidth = viewport()->width();
    const double shown = document()->size().height();
    constexpr double distance = 4; // so far beyond the limit that no other breaking of lines leads back
    const bool isFarBeyond = shown * std::min(1.0, double(shownWidth) / textWidth) > distance * m_maximumHeight;
    return textWidth == shownWidth || isFarBeyond ? shown : -1;
}

int ZelGrowingTextView::neededHeight(int width) const
{
    const int frame = 2 * frameWidth();
    return measuredHeight(std::max(1, width - frame)) + frame;
}

int ZelGrowingTextView::heightForWidth(int width) const
{
    return std::clamp(neededHeight(width), m_minimumHeight, m_maximumHeight);
}

QSize ZelGrowingTextView::sizeHint() const
{
    const int preferred = 17 * fontMetrics().horizontalAdvance(QLatin1Char('x')) + 2 * (frameWidth() + s_padding);
    return {preferred, heightForWidth(preferred)};
}

QSize ZelGrowingTextView::minimumSizeHint() const
{
    const int frame = 2 * (frameWidth() + s_padding);
    const int line = std::max(m_minimumHeight, fontMetrics().lineSpacing() + frame);
    return {4 * fontMetrics().horizontalAdvance(QLatin1Char('x')) + frame, line};
}

double ZelGrowingTextView::baselineOffsetForHeight(double) const
{
    const QTextBlock first = document()->begin();
    const double top = frameWidth() + document()->documentLayout()->blockBoundingRect(first).top();
    const QTextLayout *layout = first.layout();
    return top + (layout->lineCount() > 0 ? layout->lineAt(0).ascent() : fontMetrics().ascent());
}
