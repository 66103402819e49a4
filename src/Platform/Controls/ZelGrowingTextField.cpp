// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelGrowingTextField.h"

#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelErrorNote.h"
#include "Platform/Controls/ZelGrowingTextEditor.h"
#include "Platform/Controls/ZelTextWidth.h"
#include "Platform/Controls/ZelThemeColor.h"
#include "Platform/Layout/ZelLayoutSettling.h"
#include "Platform/Runtime/ZelValues.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTextLayout>
#include <QtMath>

namespace {

/// As in a line edit.
constexpr int s_horizontalMargin = 2;

bool isReturn(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

/// The text's own direction, whatever the window's.
Qt::LayoutDirection directionOf(const QString &text)
{
    return text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

/// Lays a text out as the editor does; answers its height.
double layOut(QTextLayout *layout, double width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const Qt::LayoutDirection direction = directionOf(layout->text());
    option.setTextDirection(direction);
    option.setAlignment(QStyle::visualAlignment(direction, Qt::AlignLeft));
    layout->setTextOption(option);
    double height = 0;
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout->endLayout();
    return height;
}

QString withLineSeparators(const QString &text)
{
    return QString(text).replace(QLatin1Char('\n'), QChar::LineSeparator);
}

} // namespace

ZelGrowingTextField::ZelGrowingTextField(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
    setAttribute(Qt::WA_Hover);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

ZelGrowingTextField::~ZelGrowingTextField()
{
    // Its focus is lost while it is deleted; by then there is no field to tell.
    if (m_editor)
        m_editor->disconnectField();
}

void ZelGrowingTextField::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_content.value, value);
    m_content.value = value;
    // A text that could not be taken, left behind, gives way to another value; it might be another object's by now.
    if (!isEditing() || (changed && !hasFocus()))
        showValue();
    if (changed)
        Q_EMIT objectValueChanged();
}

void ZelGrowingTextField::setFormatter(const ZelFormatter::Ptr &formatter)
{
    m_content.formatter = formatter;
    if (!isEditing())
        showValue();
}

void ZelGrowingTextField::setNullPlaceholder(const QString &text)
{
    m_content.nullPlaceholder = text;
    if (!isEditing())
        showValue();
}

void ZelGrowingTextField::setEditable(bool editable)
{
    if (editable == m_editable)
        return;
    m_editable = editable;
    if (m_editor)
        m_editor->setReadOnly(!editable);
    if (!editable)
        discardEditing();
    updateFocusPolicy();
    Q_EMIT editableChanged();
}

void ZelGrowingTextField::setLabelStyle(bool labelStyle)
{
    if (labelStyle == m_labelStyle)
        return;
    m_labelStyle = labelStyle;
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

/// A click is for typing, or for selecting what there is; the keyboard may still come by.
void ZelGrowingTextField::updateFocusPolicy()
{
    setFocusPolicy(m_editable || !m_text.isEmpty() ? Qt::StrongFocus : Qt::TabFocus);
}

void ZelGrowingTextField::showValue()
{
    setError({});
    const QString string = m_editor && m_editable ? m_content.editingString() : m_content.displayString();
    if (m_editor) {
        m_editor->setPlaceholderText(m_content.placeholder());
        if (m_editor->toPlainText() != string)
            m_editor->setPlainText(string);
    }
    m_text = string;
    m_shownText = text();
    updateFocusPolicy();
    textMayNeedHeight();
    update();
}

bool ZelGrowingTextField::commitEditing()
{
    if (!isEditing()) {
        showValue();
        return true;
    }
    QVariant value;
    QString error;
    if (!m_content.parse(text(), &value, &error)) {
        setError(error);
        return false;
    }
    const bool changed = !ZelEqual(value, m_content.value);
    if (changed)
        m_content.value = value;
    m_shownText = text();
    showValue();
    if (changed)
        ZelControlSupport::reportNewValue(this);
    return true;
}

void ZelGrowingTextField::discardEditing()
{
    m_shownText = text();
    showValue();
}

void ZelGrowingTextField::setError(const QString &error)
{
    if (error == m_error)
        return;
    m_error = error;
    setAccessibleDescription(error);
    if (m_editor)
        m_editor->setTextColor(textColor());
    ZelErrorNote::show(&m_errorNote, this, error);
    update();
}

/// What was refused is watched until it is mended.
void ZelGrowingTextField::checkAgain()
{
    QVariant value;
    QString error;
    if (!m_error.isEmpty() && isEditing())
        m_content.parse(text(), &value, &error);
    setError(error);
}

QColor ZelGrowingTextField::textColor() const
{
    if (!m_error.isEmpty())
        return ZelThemeColor::error(palette());
    return m_labelStyle ? ZelThemeColor::dimmed(palette()) : palette().color(QPalette::Text);
}

void ZelGrowingTextField::openEditor(Qt::FocusReason reason)
{
    const QString typed = isEditing() ? m_text : QString();
    const bool keepsTyping = isEditing();
    m_editor = new ZelGrowingTextEditor(this);
    m_editor->setReadOnly(!m_editable);
    m_editor->setTextColor(textColor());
    m_editor->setGeometry(contentRect());
    if (keepsTyping)
        m_editor->setPlainText(typed);
    else
        showValue();
    connect(m_editor, &QPlainTextEdit::textChanged, this, &ZelGrowingTextField::editorTextChanged);
    m_editor->show();
    m_editor->takeFocus(reason);
    update();
}

void ZelGrowingTextField::closeEditor()
{
    if (!m_editor)
        return;
    m_text = m_editor->toPlainText();
    const bool clean = !isEditing();
    m_editor->disconnectField();
    m_editor->hide();
    m_editor->deleteLater();
    m_editor = nullptr;
    setFocusProxy(nullptr);
    if (clean)
        showValue();
    update();
}

void ZelGrowingTextField::editorTextChanged()
{
    checkAgain();
    textMayNeedHeight();
}

void ZelGrowingTextField::editorLostFocus(bool closes)
{
    const QPointer<ZelGrowingTextField> guard(this);
    commitEditing();
    if (guard && closes && m_editor && !m_editor->hasFocus())
        closeEditor();
    if (guard)
        update();
}

/// Escape and Return belong to the field while it is edited; undo and redo are the window's when nothing was typed.
bool ZelGrowingTextField::editorReservesShortcut(QKeyEvent *event) const
{
    if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) {
        if (isEditing() && m_editable)
            return false;
        event->ignore();
        return true;
    }
    if (!isEditing() || !(event->key() == Qt::Key_Escape || isReturn(event)))
        return false;
    event->accept();
    return true;
}

bool ZelGrowingTextField::editorKeyPressed(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        const bool discards = isEditing();
        event->setAccepted(discards);
        if (discards) {
            discardEditing();
            m_editor->selectAll();
        }
        return true;
    }
    if (!isReturn(event) || !m_editable)
        return false;
    if (event->modifiers() & (Qt::AltModifier | Qt::ShiftModifier)) {
        m_editor->insertPlainText(QStringLiteral("\n"));
        return true;
    }
    const QPointer<ZelGrowingTextField> guard(this);
    const bool committed = commitEditing();
    // As in a line edit: the window's default button may have the key when it was taken.
    event->setAccepted(!committed || !guard);
    if (guard && committed && m_editor)
        m_editor->selectAll();
    return true;
}

bool ZelGrowingTextField::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && ZelControlSupport::showToolTip(event, this, m_error))
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
    case QEvent::EnabledChange:
        if (!isEnabled())
            discardEditing();
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

/// The press that gave the field the focus, and what follows it, belong to the editor that it opened.
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
}

/// The margins around the text that make a field of one line as high as a line edit and its text lie in the same place.
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
    return m_contentMargins.emplace(contents.x() + s_horizontalMargin, top,
                                    option.rect.right() - contents.right() + s_horizontalMargin,
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
    if (string.contains(QLatin1Char('\n')) || ZelTextWidth(this, string) >= available) {
        QTextLayout layout(withLineSeparators(string), font());
        textHeight = std::max(textHeight, qCeil(layOut(&layout, available)));
    }
    m_measuredWidth = width;
    return m_measuredHeight = textHeight + margins.top() + margins.bottom();
}

void ZelGrowingTextField::forgetMeasures()
{
    m_measuredWidth = -1;
    m_sizeHint = QSize();
}

void ZelGrowingTextField::textMayNeedHeight()
{
    if (m_measuredWidth < 0)
        return; // nobody has asked since
    const int former = m_measuredWidth == width() ? m_measuredHeight : -1;
    forgetMeasures();
    if (former == heightForWidth(width()))
        return;
    updateGeometry();
    if (m_editor) // it grows under the user's hands
        ZelLayoutSettling::settle(this);
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
        m_editor->setGeometry(contentRect());
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
    if (!m_error.isEmpty() && !m_labelStyle) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(ZelThemeColor::error(palette()));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    }
}

/// Draws the lines that have room; where that is not all, the last one is elided.
void ZelGrowingTextField::paintText(QPainter *painter) const
{
    const QRect area = contentRect();
    const bool empty = m_text.isEmpty();
    const QString string = empty ? m_content.placeholder() : m_text;
    if (string.isEmpty())
        return;
    painter->setPen(empty ? ZelThemeColor::dimmed(palette()) : textColor());
    QTextLayout layout(withLineSeparators(string), font());
    layOut(&layout, area.width());
    const int lines = std::clamp(int(area.height() / layout.lineAt(0).height() + 0.01), 1, layout.lineCount());
    for (int i = 0; i < lines; ++i) {
        const QTextLine line = layout.lineAt(i);
        if (i + 1 < lines || lines == layout.lineCount()) {
            line.draw(painter, area.topLeft());
            continue;
        }
        const QString rest = string.mid(line.textStart()).replace(QLatin1Char('\n'), QLatin1Char(' '));
        const QRect place(area.x(), area.y() + qRound(line.y()), area.width(), qCeil(line.height()));
        const int flags = int(QStyle::visualAlignment(directionOf(string), Qt::AlignLeft)) | Qt::TextSingleLine;
        painter->drawText(place, flags, fontMetrics().elidedText(rest, Qt::ElideRight, area.width()));
    }
}
