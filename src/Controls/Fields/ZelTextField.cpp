// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelTextField.h"

#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelFieldSteps.h"
#include "Controls/private/ZelLineEditMargin.h"
#include "Controls/private/ZelTextWidth.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/private/ZelAssign.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionFrame>
#include <QTextLayout>
#include <QWheelEvent>
#include <cmath>

namespace {

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

} // namespace

ZelTextField::ZelTextField(QWidget *parent)
    : ZelGuarded(parent)
    , ZelEditSessionOf(this)
{
}

ZelTextField::~ZelTextField() = default;

void ZelTextField::setFormatter(const ZelFormatter::Ptr &formatter)
{
    m_sizeHint = QSize();
    ZelEditSession::setFormatter(formatter);
}

void ZelTextField::setLabelStyle(bool labelStyle)
{
    if (!ZelAssign(m_labelStyle, labelStyle))
        return;
    setFrame(!labelStyle);
    setEditable(!labelStyle);
    m_sizeHint = m_minimumSizeHint = QSize();
    alignLabel();
    updateColors();
}

/// What is only shown stands beside the label of its row, whatever the direction of the text.
void ZelTextField::alignLabel()
{
    const bool isRight = m_labelStyle && layoutDirection() == Qt::RightToLeft;
    setAlignment((isRight ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeading) | Qt::AlignVCenter);
}

void ZelTextField::setDimmed(bool dimmed)
{
    if (ZelAssign(m_dimmed, dimmed))
        updateColors();
}

void ZelTextField::showValue()
{
    setModified(false);
    showPlaceholder();
    const bool focused = hasFocus();
    const QVariant value = objectValue();
    const QString string = focused && isEditable() ? editingString(value) : displayString(value);
    if (string == text())
        return;
    const bool allSelected = focused && hasSelectedText() && selectedText() == text();
    setText(string);
    if (allSelected)
        selectAll();
    else if (!focused)
        setCursorPosition(0);
}

/// QLineEdit draws the placeholder while the field has the focus, and knows nothing but to elide it. The name of a
/// marker that does not fit is made invisible then, and a dash is drawn.
void ZelTextField::showPlaceholder()
{
    const QString shown = placeholder();
    if (shown != placeholderText())
        setPlaceholderText(shown);
    const bool isDash = hasFocus() && ZelControlSupport::isMarkerText(shown) &&
                        ZelControlSupport::fitted(shown, fontMetrics(), textRect().width()) != shown;
    if (ZelAssign(m_showsDash, isDash))
        updateColors();
}

/// The typing is watched only while a refused text is in the field.
void ZelTextField::errorDidChange()
{
    disconnect(m_errorConnection);
    if (!errorText().isEmpty())
        m_errorConnection = connect(this, &QLineEdit::textEdited, this, [this] { typingDidChange(); });
    updateColors();
}

void ZelTextField::updateColors()
{
    if (m_updatingColors)
        return;
    const QScopedValueRollback updating(m_updatingColors, true);
    // Own colours are dropped first, so that palette() answers the inherited ones.
    setPalette(QPalette());
    const bool isPlain = errorText().isEmpty() && !m_labelStyle && !m_dimmed;
    if (isPlain && !hasFocus()) // paintEvent then draws the placeholder itself
        return;
    QPalette colors;
    colors.setResolveMask(0);
    const QColor dimmed = ZelThemeColor::dimmed(palette());
    colors.setColor(QPalette::PlaceholderText, m_showsDash ? QColor(Qt::transparent) : dimmed);
    if (m_labelStyle)
        colors.setColor(QPalette::Base, Qt::transparent);
    if (m_labelStyle)
        colors.setColor(QPalette::Text, dimmed);
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        if (m_dimmed) // disabled texts look like this anyway
            colors.setColor(group, QPalette::Text, dimmed);
    }
    if (!errorText().isEmpty())
        colors.setColor(QPalette::Text, ZelThemeColor::error(palette()));
    setPalette(colors);
}

QSize ZelTextField::sizeHint() const
{
    if (!m_sizeHint.isValid()) {
        m_sizeHint = QLineEdit::sizeHint();
        if (formatter()) { // formatted values are short, while a line edit asks for room for 17 letters
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

// Steps

ZelFieldSteps &ZelTextField::steps()
{
    if (!m_steps)
        m_steps = std::make_unique<ZelFieldSteps>();
    return *m_steps;
}

double ZelTextField::increment() const
{
    return m_steps ? m_steps->increment : 0;
}

void ZelTextField::setIncrement(double increment)
{
    steps().increment = increment;
}

double ZelTextField::minValue() const
{
    return m_steps ? m_steps->range.minimum : ZelFieldSteps().range.minimum;
}

void ZelTextField::setMinValue(double value)
{
    steps().range.minimum = value;
}

double ZelTextField::maxValue() const
{
    return m_steps ? m_steps->range.maximum : ZelFieldSteps().range.maximum;
}

void ZelTextField::setMaxValue(double value)
{
    steps().range.maximum = value;
}

void ZelTextField::setStepTransformer(const ZelValueTransformerPtr &transformer)
{
    if (transformer || m_steps)
        steps().transformer = transformer;
}

void ZelTextField::setWraps(bool wraps)
{
    if (wraps || m_steps)
        steps().wraps = wraps;
}

std::function<double(double, double)> ZelTextField::stepFunction() const
{
    return m_steps ? m_steps->function() : ZelFieldSteps().function();
}

bool ZelTextField::canStep() const
{
    const double increment = this->increment();
    return increment != 0 && std::isfinite(increment) && !m_steps->range.isEmpty() && isEditable() && isEnabled();
}

void ZelTextField::stepBy(double steps)
{
    const QPointer<ZelTextField> guard(this);
    if (!canStep() || !commitEditing() || !guard)
        return;
    enterValue(m_steps->steppedValue(objectValue(), steps));
    if (guard && hasFocus())
        selectAll();
}

bool ZelTextField::stepByKey(const QKeyEvent *event)
{
    const double count = canStep() ? ZelFieldSteps::stepsForKey(event) : 0;
    if (count != 0)
        stepInBurst(count, event->isAutoRepeat());
    return count != 0;
}

void ZelTextField::stepInBurst(double count, bool continues)
{
    const ZelUndoBurst::Edit edit(m_steps->burst, continues);
    stepBy(count);
}

void ZelTextField::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || !canStep()) {
        QLineEdit::wheelEvent(event);
        return;
    }
    event->accept();
    if (const int count = ZelControlSupport::wheelSteps(event, &m_steps->wheelAngle))
        stepInBurst(count * ZelFieldSteps::factorFor(event->modifiers()), false);
}

// Events

bool ZelTextField::handleEvent(QEvent *event)
{
    const bool isKey = event->type() == QEvent::ShortcutOverride;
    if (isKey && canStep() && ZelFieldSteps::stepsForKey(static_cast<QKeyEvent *>(event)) != 0) {
        event->accept();
        return true;
    }
    ZelControlHelp::describeFocused(event, this);
    const bool isSettled = sessionEvent(event) || (event->type() == QEvent::ToolTip &&
                                                   ZelControlHelp::showToolTip(event, this, elidedWhole()));
    return isSettled || QLineEdit::event(event);
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
    case QEvent::LayoutDirectionChange:
        if (m_labelStyle)
            alignLabel();
        break;
    case QEvent::PaletteChange:
        if (testAttribute(Qt::WA_SetPalette))
            updateColors();
        break;
    default:
        break;
    }
}

/// A drop into a field without the focus is committed at once, since no loss of the focus will end that edit.
void ZelTextField::dropEvent(QDropEvent *event)
{
    const QPointer<ZelTextField> guard(this);
    QLineEdit::dropEvent(event);
    if (guard && !hasFocus())
        commitEditing();
}

void ZelTextField::focusInEvent(QFocusEvent *event)
{
    refresh();
    showPlaceholder();
    updateColors();
    connect(this, &QLineEdit::textEdited, this, &ZelTextField::showPlaceholder, Qt::UniqueConnection);
    QLineEdit::focusInEvent(event);
}

void ZelTextField::focusOutEvent(QFocusEvent *event)
{
    if (!focusLeft(event))
        return;
    showPlaceholder();
    updateColors();
    QLineEdit::focusOutEvent(event);
}

void ZelTextField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    if (hasFocus())
        showPlaceholder();
}

void ZelTextField::keyPressEvent(QKeyEvent *event)
{
    if (stepByKey(event))
        return;
    const KeyUse use = keyPressed(event);
    if (use == KeyUse::Discarded || use == KeyUse::Committed)
        selectAll();
    if (use == KeyUse::None || use == KeyUse::Committed) // the window's default button may get Return after a commit
        QLineEdit::keyPressEvent(event);
}

/// The rectangle of the text, computed by the style.
QRect ZelTextField::textRect() const
{
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    const QRect contents =
        style()->subElementRect(QStyle::SE_LineEditContents, &panel, this).marginsRemoved(textMargins());
    return contents.adjusted(ZelLineEditMargin, 0, -ZelLineEditMargin, 0);
}

/// Answers the whole text, or the placeholder that stands in its place, if the field is too narrow to show it,
/// otherwise null.
QString ZelTextField::elidedWhole() const
{
    const QString string = text().isEmpty() ? placeholder() : text();
    if (hasFocus() || echoMode() != Normal)
        return {};
    if (m_measuredText != string) {
        m_measuredText = string;
        m_measuredWidth = ZelTextWidth(this, string);
    }
    // Most texts are much shorter than the field, so that the style need not be asked for the rectangle.
    const bool fits = m_measuredWidth <= width() / 2 || m_measuredWidth <= textRect().width();
    return fits ? QString() : string;
}

void ZelTextField::initStyleOption(QStyleOptionFrame *option) const
{
    QLineEdit::initStyleOption(option);
    if (!m_labelStyle)
        ZelControlSupport::showTypable(option, isEditable());
}

void ZelTextField::paintEvent(QPaintEvent *event)
{
    const bool own = !hasFocus() && !hasSelectedText() && echoMode() == Normal && actions().isEmpty();
    const ZelFormatter::Range unit =
        own && formatter() && !isEditing() ? formatter()->unitRange(text()) : ZelFormatter::Range();
    const bool isPlaceholder = own && text().isEmpty() && !placeholderText().isEmpty();
    if (isPlaceholder || (own && !text().isEmpty() && (unit.length > 0 || !elidedWhole().isNull())))
        paintText(isPlaceholder ? placeholderText() : displayText(), unit, isPlaceholder);
    else
        QLineEdit::paintEvent(event);
    if (m_showsDash && text().isEmpty()) {
        QPainter painter(this);
        painter.setPen(ZelThemeColor::dimmed(palette()));
        const Qt::Alignment visual = QStyle::visualAlignment(layoutDirection(), alignment());
        painter.drawText(textRect(), int(visual) | Qt::AlignVCenter, ZelShortMarkerText);
    }
    if (!errorText().isEmpty() && !m_labelStyle) {
        QPainter painter(this);
        paintError(&painter);
    }
}

void ZelTextField::paintText(const QString &string, ZelFormatter::Range unit, bool isPlaceholder)
{
    QPainter painter(this);
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);

    const QRect area = textRect();
    // A dimmed text says that there is no value, as the name of a marker does.
    const QString fitted = ZelControlSupport::fitted(string, fontMetrics(), area.width());
    const QString shown = m_dimmed && fitted != string ? ZelShortMarkerText : fitted;
    // Draws in the text's own direction, not the window's, so that a minus sign or a unit stays on its side of the
    // number.
    const Qt::LayoutDirection direction = string.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    QTextLayout layout(shown, font());
    if (unit.length > 0) {
        QTextLayout::FormatRange dimmed;
        dimmed.start = int(unit.start);
        dimmed.length = int(std::min(unit.length, shown.size() - unit.start));
        const QColor unitColor = palette().color(QPalette::Disabled, QPalette::Text);
        dimmed.format.setForeground(isEnabled() ? ZelThemeColor::legible(unitColor, palette()) : unitColor);
        if (dimmed.length > 0)
            layout.setFormats({dimmed});
    }
    const QTextLine line = layOut(layout, direction, std::max(1, area.width() + 1));
    QTextLayout whole(string, font());
    const QTextLine wholeLine = layOut(whole, direction, QWIDGETSIZE_MAX);

    // Draws the text exactly where QLineEdit draws it, which leaves room for a cursor, so that nothing moves when the
    // field gets the focus.
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
