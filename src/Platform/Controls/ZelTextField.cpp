// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelTextField.h"

#include "Platform/Controls/ZelControlSize.h"
#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelErrorNote.h"
#include "Platform/Controls/ZelTextWidth.h"
#include "Platform/Controls/ZelThemeColor.h"
#include "Platform/Runtime/ZelValues.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionFrame>
#include <QTextLayout>

namespace {

/// The margins that a QLineEdit keeps around its text.
constexpr int s_horizontalMargin = 2;

QTextLine layOut(QTextLayout &layout, Qt::LayoutDirection direction, double width)
{
    QTextOption option;
    option.setTextDirection(direction);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    return line;
}

bool isReturn(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

ZelTextField::ZelTextField(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
}

void ZelTextField::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_content.value, value);
    m_content.value = value;
    // A text that could not be taken, left behind, gives way to another value; it might be another object's by now.
    if (!isEditing() || (changed && !hasFocus()))
        showValue();
    if (changed)
        Q_EMIT objectValueChanged();
}

void ZelTextField::setFormatter(const ZelFormatter::Ptr &formatter)
{
    m_content.formatter = formatter;
    m_sizeHint = QSize();
    if (!isEditing())
        showValue();
}

void ZelTextField::setNullPlaceholder(const QString &text)
{
    m_content.nullPlaceholder = text;
    if (!isEditing())
        showValue();
}

void ZelTextField::setEditable(bool editable)
{
    if (editable == isEditable())
        return;
    setReadOnly(!editable);
    if (!editable)
        discardEditing();
    Q_EMIT editableChanged();
}

void ZelTextField::setLabelStyle(bool labelStyle)
{
    if (labelStyle == m_labelStyle)
        return;
    m_labelStyle = labelStyle;
    setFrame(!labelStyle);
    setEditable(!labelStyle);
    m_sizeHint = m_minimumSizeHint = QSize();
    updateColors();
}

void ZelTextField::setDimmed(bool dimmed)
{
    if (dimmed == m_dimmed)
        return;
    m_dimmed = dimmed;
    updateColors();
}

void ZelTextField::showValue()
{
    setError({});
    const QString placeholder = m_content.placeholder();
    if (placeholder != placeholderText())
        setPlaceholderText(placeholder);
    showText(hasFocus() && isEditable() ? m_content.editingString() : m_content.displayString());
}

void ZelTextField::showText(const QString &string)
{
    if (string != text()) {
        const bool allSelected = hasFocus() && hasSelectedText() && selectedText() == text();
        setText(string);
        if (allSelected)
            selectAll();
        else if (!hasFocus())
            setCursorPosition(0);
    }
    m_shownText = text();
}

bool ZelTextField::commitEditing()
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

void ZelTextField::discardEditing()
{
    m_shownText = text();
    showValue();
}

void ZelTextField::setError(const QString &error)
{
    if (error == m_error)
        return;
    m_error = error;
    setAccessibleDescription(error);
    disconnect(m_errorConnection);
    if (!error.isEmpty())
        m_errorConnection = connect(this, &QLineEdit::textEdited, this, &ZelTextField::checkAgain);
    ZelErrorNote::show(&m_errorNote, this, error);
    updateColors();
    update();
}

/// What was refused is watched until it is mended.
void ZelTextField::checkAgain()
{
    QVariant value;
    QString error;
    if (isEditing())
        m_content.parse(text(), &value, &error);
    setError(error);
}

void ZelTextField::updateColors()
{
    if (m_updatingColors)
        return;
    const QScopedValueRollback updating(m_updatingColors, true);
    setPalette(QPalette());
    const bool isPlain = m_error.isEmpty() && !m_labelStyle && !m_dimmed;
    if (isPlain && !hasFocus()) // a placeholder is painted here then
        return;
    QPalette colors;
    colors.setResolveMask(0);
    const QColor dimmed = ZelThemeColor::dimmed(palette());
    colors.setColor(QPalette::PlaceholderText, dimmed);
    if (m_labelStyle)
        colors.setColor(QPalette::Base, Qt::transparent);
    if (m_labelStyle)
        colors.setColor(QPalette::Text, dimmed);
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        if (m_dimmed) // as what is disabled is anyway
            colors.setColor(group, QPalette::Text, dimmed);
    }
    if (!m_error.isEmpty())
        colors.setColor(QPalette::Text, ZelThemeColor::error(palette()));
    setPalette(colors);
}

QSize ZelTextField::sizeHint() const
{
    if (!m_sizeHint.isValid()) {
        m_sizeHint = QLineEdit::sizeHint();
        if (m_content.formatter) { // what it shows is short: a line edit wants room for 17 letters
            const int letters = 17 * fontMetrics().horizontalAdvance(u'x');
            m_sizeHint.rwidth() += ZelControlSize::digitsWidth(font(), 6) - letters;
        }
    }
    return m_sizeHint;
}

QSize ZelTextField::minimumSizeHint() const
{
    if (!m_minimumSizeHint.isValid())
        m_minimumSizeHint = QLineEdit::minimumSizeHint();
    return m_minimumSizeHint;
}

/// Escape and Return belong to the field while it is edited. Undo and redo are the window's when there is no typing
/// to undo, although a line edit would keep them.
bool ZelTextField::reservesShortcut(QKeyEvent *event) const
{
    if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) {
        if (isEditing() && isEditable())
            return false;
        event->ignore();
        return true;
    }
    if (!isEditing() || !(event->key() == Qt::Key_Escape || isReturn(event)))
        return false;
    event->accept();
    return true;
}

bool ZelTextField::handleEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (reservesShortcut(static_cast<QKeyEvent *>(event)))
            return true;
        break;
    case QEvent::ToolTip:
        if (ZelControlSupport::showToolTip(event, this, m_error.isEmpty() ? elidedWhole() : m_error))
            return true;
        break;
    default:
        break;
    }
    return QLineEdit::event(event);
}

void ZelTextField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
        m_sizeHint = m_minimumSizeHint = QSize();
        m_measuredText = QString();
        break;
    case QEvent::PaletteChange:
        if (testAttribute(Qt::WA_SetPalette))
            updateColors();
        break;
    case QEvent::EnabledChange:
        if (!isEnabled())
            discardEditing();
        break;
    default:
        break;
    }
}

void ZelTextField::dropEvent(QDropEvent *event)
{
    const QPointer<ZelTextField> guard(this);
    QLineEdit::dropEvent(event);
    if (guard && !hasFocus())
        commitEditing();
}

void ZelTextField::focusInEvent(QFocusEvent *event)
{
    if (!isEditing())
        showValue();
    updateColors();
    QLineEdit::focusInEvent(event);
}

void ZelTextField::focusOutEvent(QFocusEvent *event)
{
    const QWidget *popup = QApplication::activePopupWidget();
    const bool ownPopup = event->reason() == Qt::PopupFocusReason && popup && popup->parentWidget() == this;
    const QPointer<ZelTextField> guard(this);
    if (!ownPopup)
        commitEditing();
    if (!guard)
        return;
    updateColors();
    QLineEdit::focusOutEvent(event);
}

void ZelTextField::keyPressEvent(QKeyEvent *event)
{
    if (isReturn(event) && isEditable()) {
        const QPointer<ZelTextField> guard(this);
        if (!commitEditing() || !guard)
            return;
        selectAll();
    } else if (event->key() == Qt::Key_Escape && isEditing()) {
        discardEditing();
        selectAll();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

/// Where the text may be, left to right.
QRect ZelTextField::textRect() const
{
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    const QRect contents =
        style()->subElementRect(QStyle::SE_LineEditContents, &panel, this).marginsRemoved(textMargins());
    return contents.adjusted(s_horizontalMargin, 0, -s_horizontalMargin, 0);
}

/// The whole text where the field is too narrow to show it; otherwise null.
QString ZelTextField::elidedWhole() const
{
    const QString string = text();
    if (hasFocus() || echoMode() != Normal)
        return {};
    if (m_measuredText != string) {
        m_measuredText = string;
        m_measuredWidth = ZelTextWidth(this, string);
    }
    // Most texts are far from filling the field; for those the style need not be asked.
    const bool fits = m_measuredWidth <= width() / 2 || m_measuredWidth <= textRect().width();
    return fits ? QString() : string;
}

void ZelTextField::paintEvent(QPaintEvent *event)
{
    const bool own = !hasFocus() && !hasSelectedText() && echoMode() == Normal && actions().isEmpty();
    const ZelFormatter::Range unit =
        own && m_content.formatter && !isEditing() ? m_content.formatter->unitRange(text()) : ZelFormatter::Range();
    const bool isPlaceholder = own && text().isEmpty() && !placeholderText().isEmpty();
    if (isPlaceholder || (own && !text().isEmpty() && (unit.length > 0 || !elidedWhole().isNull())))
        paintText(isPlaceholder ? placeholderText() : displayText(), unit, isPlaceholder);
    else
        QLineEdit::paintEvent(event);
    if (!m_error.isEmpty() && !m_labelStyle) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(ZelThemeColor::error(palette()));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    }
}

/// What a line edit paints, but elided at the tail, and units and placeholders in a colour that can be read.
void ZelTextField::paintText(const QString &string, ZelFormatter::Range unit, bool isPlaceholder)
{
    QPainter painter(this);
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);

    const QRect area = textRect();
    const QString shown = fontMetrics().elidedText(string, Qt::ElideRight, area.width());
    // The text's own direction, whatever the window's: a minus sign or a unit stays on its side of the number.
    const Qt::LayoutDirection direction = string.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    QTextLayout layout(shown, font());
    if (unit.length > 0) {
        QTextLayout::FormatRange dimmed;
        dimmed.start = int(unit.start);
        dimmed.length = int(std::min(unit.length, shown.size() - unit.start));
        const QColor unitColor = palette().color(QPalette::Disabled, QPalette::Text);
        dimmed.format.setForeground(ZelThemeColor::legible(unitColor, palette()));
        if (dimmed.length > 0)
            layout.setFormats({dimmed});
    }
    const QTextLine line = layOut(layout, direction, std::max(1, area.width() + 1));
    QTextLayout whole(string, font());
    const QTextLine wholeLine = layOut(whole, direction, QWIDGETSIZE_MAX);

    // To the pixel where a line edit puts it, which keeps room for a cursor: nothing moves when the focus comes.
    const Qt::Alignment visual = QStyle::visualAlignment(direction, alignment());
    const int used = qRound(line.naturalTextWidth()) + 1;
    int left = area.x();
    if (visual & Qt::AlignRight)
        left += area.width() - used - 1;
    else if (visual & Qt::AlignHCenter)
        left -= (used - area.width()) / 2;
    double x = std::max(left, area.x());
    if (direction == Qt::RightToLeft)
        x -= line.naturalTextRect().x();
    const int height = std::max(fontMetrics().height(), qRound(wholeLine.ascent() + wholeLine.descent()));
    const int top = area.y() + (area.height() - height + 1) / 2 + fontMetrics().ascent() - qRound(wholeLine.ascent());
    painter.setPen(isPlaceholder ? ZelThemeColor::dimmed(palette()) : palette().color(QPalette::Text));
    painter.setClipRect(area);
    layout.draw(&painter, QPointF(x, top + wholeLine.ascent() - line.ascent()));
}
