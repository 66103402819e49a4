// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextView.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Values/ZelValues.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "Text/ZelTextDocumentCoder.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <QtMath>

namespace {

constexpr int g_padding = 2; // as in a line edit

/// The value without its unset states, so that values that look the same compare equal.
QVariant present(const QVariant &value)
{
    const bool isText = value.metaType() == QMetaType::fromType<ZelAttributedString>();
    return isText ? value.value<ZelAttributedString>().toVariant() : ZelPresent(value);
}

} // namespace

ZelGrowingTextView::ZelGrowingTextView(QWidget *parent)
    : ZelGuardedScrollArea(parent)
    , ZelEditSessionOf(this)
{
    document()->setDocumentMargin(g_padding);
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
    connect(this, &QTextEdit::textChanged, this, [this] {
        typingDidChange();
        setPlaceholderText(placeholder());
    });
}

ZelAttributedString ZelGrowingTextView::attributedString() const
{
    if (m_read.isNull())
        m_read = ZelTextDocumentCoder::read(document());
    return m_read;
}

void ZelGrowingTextView::setHeightLimits(int minimum, int maximum)
{
    m_minimumHeight = minimum;
    m_maximumHeight = std::max(minimum, maximum);
    updateScrollBar();
    updateGeometry();
}

void ZelGrowingTextView::showValue()
{
    ZelAttributedString string = ZelAttributedString::fromVariant(objectValue());
    if (string.isNull())
        string = ZelAttributedString(QStringLiteral(""));
    if (string != attributedString())
        showText(string);
    document()->setModified(false);
    setPlaceholderText(placeholder());
    document()->clearUndoRedoStacks(); // from here on the window's undo stack undoes the edit
}

/// QTextEdit would break the name of a marker into lines and cut them. Nothing else is in the view then.
void ZelGrowingTextView::paintEvent(QPaintEvent *event)
{
    const QRect area = viewport()->rect().adjusted(g_padding, g_padding, -g_padding, -g_padding);
    const QString name = document()->isEmpty() ? placeholderText() : QString();
    if (!ZelControlSupport::isMarkerText(name) ||
        ZelControlSupport::fitted(name, fontMetrics(), area.width()) == name) {
        QTextEdit::paintEvent(event);
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(area, int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)), ZelShortMarkerText);
}

/// Keeps the selection as far as the new text reaches.
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

bool ZelGrowingTextView::readValue(QVariant *value, QString *error)
{
    const ZelAttributedString string = attributedString();
    *value = string.isEmpty() ? QVariant() : string.toVariant();
    return !isChange(*value) || accepts(*value, error);
}

/// Several texts are emptied by a text that was typed over them and deleted again.
bool ZelGrowingTextView::isChange(const QVariant &value) const
{
    if (ZelIsNull(value) && ZelIsControllerMarker(objectValue()))
        return isEditing() && ZelIsMarker(objectValue(), ZelMultipleValuesMarker);
    return !ZelEqual(value, present(objectValue()));
}

bool ZelGrowingTextView::isCommitKey(const QKeyEvent *event) const
{
    return ZelControlSupport::isReturn(event) && event->modifiers() & Qt::ControlModifier;
}

bool ZelGrowingTextView::handleEvent(QEvent *event)
{
    ZelControlHelp::describeFocused(event, this);
    return sessionEvent(event) || QTextEdit::event(event);
}

void ZelGrowingTextView::keyPressEvent(QKeyEvent *event)
{
    const KeyUse use = keyPressed(event);
    if (use != KeyUse::None)
        event->accept();
    else if (event->key() == Qt::Key_Escape)
        event->ignore();
    else
        QTextEdit::keyPressEvent(event);
}

/// A drop into a view without the focus is committed at once, since no loss of the focus will end that edit.
void ZelGrowingTextView::dropEvent(QDropEvent *event)
{
    const QPointer<ZelGrowingTextView> guard(this);
    QTextEdit::dropEvent(event);
    if (guard && !hasFocus())
        commitEditing();
}

void ZelGrowingTextView::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    focusLeft(event);
}

/// Inserted text goes through an attributed string, which leaves out everything that the value cannot hold.
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
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::ReadOnlyChange)
        viewport()->setBackgroundRole(isEnabled() && !isReadOnly() ? QPalette::Base : QPalette::Window);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        textMayNeedHeight();
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

/// Shows the bar only when the text is higher than the limit. A bar as needed would appear and vanish, and wrap the
/// text again each time, whenever the view is about to grow.
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
    if (hasFocus() || isEditing()) // the view must grow while the user is typing
        ZelLayoutTurn::settle(this);
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

/// Answers the height as far as it matters, without laying out a copy of the text, which takes long for long texts.
/// Negative if such a layout is needed.
double ZelGrowingTextView::knownHeight(int textWidth) const
{
    if (document()->blockCount() > m_maximumHeight)
        return document()->blockCount(); // a paragraph has at least one pixel
    if (!isVisible())
        return -1;
    const int shownWidth = viewport()->width();
    const double shown = document()->size().height();
    constexpr double distance = 4; // so far beyond the limit that no other line breaks lead back below it
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
    const int preferred = 17 * fontMetrics().horizontalAdvance(QLatin1Char('x')) + 2 * (frameWidth() + g_padding);
    return {preferred, heightForWidth(preferred)};
}

QSize ZelGrowingTextView::minimumSizeHint() const
{
    const int frame = 2 * (frameWidth() + g_padding);
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
