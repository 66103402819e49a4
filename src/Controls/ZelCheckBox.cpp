// SPDX-License-Identifier: MIT
#include "Controls/ZelCheckBox.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelMarkedText.h"
#include "Controls/private/ZelTitleText.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

Qt::CheckState stateFor(const QVariant &value)
{
    if (ZelIsMarker(value, ZelMultipleValuesMarker))
        return Qt::PartiallyChecked;
    return !ZelIsNull(value) && !ZelIsControllerMarker(value) && value.toBool() ? Qt::Checked : Qt::Unchecked;
}

} // namespace

ZelCheckBox::ZelCheckBox(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    ZelControlSupport::letShrink(this);
    connect(this, &QCheckBox::stateChanged, this, &ZelCheckBox::objectValueChanged);
    connect(this, &QCheckBox::clicked, this, [this] {
        if (m_editable)
            ZelControlSupport::reportEdit(this);
    });
}

ZelCheckBox::ZelCheckBox(const QString &title, QWidget *parent)
    : ZelCheckBox(parent)
{
    setTitle(title);
}

QString ZelCheckBox::title() const
{
    return ZelTitleText::toTitle(text());
}

void ZelCheckBox::setTitle(const QString &title)
{
    setText(ZelTitleText::fromTitle(title));
    m_markedParts.clear();
}

void ZelCheckBox::setMarkedParts(const QList<ZelLabel::Part> &parts)
{
    if (ZelAssign(m_markedParts, parts))
        update();
}

QVariant ZelCheckBox::objectValue() const
{
    const Qt::CheckState state = checkState();
    if (stateFor(m_value) == state)
        return m_value;
    return state == Qt::PartiallyChecked ? QVariant::fromValue(ZelMultipleValuesMarker) : QVariant(isChecked());
}

void ZelCheckBox::setObjectValue(const QVariant &value)
{
    const QVariant former = objectValue();
    const Qt::CheckState state = stateFor(value);
    m_value = value;
    if (state != checkState()) {
        setCheckState(state);
        return;
    }
    if (!ZelEqual(former, value))
        Q_EMIT objectValueChanged();
}

void ZelCheckBox::setEditable(bool editable)
{
    if (!ZelAssign(m_editable, editable))
        return;
    update();
    Q_EMIT editableChanged();
}

int ZelCheckBox::titleWidth() const
{
    return fontMetrics().size(Qt::TextShowMnemonic, text()).width();
}

QSize ZelCheckBox::sizeHint() const
{
    // QAbstractButton::setText calls no virtual function, so a new text is noticed here.
    if (!m_sizeHint.isValid() || m_sizedTitle != text()) {
        m_sizedTitle = text();
        m_sizeHint = QCheckBox::sizeHint();
    }
    return m_sizeHint;
}

QSize ZelCheckBox::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    const int shortened = fontMetrics().horizontalAdvance(QChar(0x2026)) * 2;
    return {hint.width() - std::max(0, titleWidth() - shortened), hint.height()};
}

bool ZelCheckBox::handleEvent(QEvent *event)
{
    if (!m_editable && ZelControlSupport::isInput(event)) {
        event->ignore();
        return true;
    }
    ZelControlHelp::describeFocused(event, this);
    if (event->type() == QEvent::ToolTip &&
        ZelControlHelp::showToolTip(event, this, width() < sizeHint().width() ? title() : QString()))
        return true;
    return QCheckBox::event(event);
}

void ZelCheckBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_sizeHint = QSize();
    QCheckBox::changeEvent(event);
}

void ZelCheckBox::initStyleOption(QStyleOptionButton *option) const
{
    QCheckBox::initStyleOption(option);
    if (!m_editable)
        ZelControlSupport::showDisabled(option);
}

/// The title is elided here and not in initStyleOption, because the size hint uses that, too.
void ZelCheckBox::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect contents = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
    if (width() < sizeHint().width())
        option.text =
            fontMetrics().elidedText(option.text, Qt::ElideRight, contents.width(), int(Qt::TextShowMnemonic));
    if (!m_markedParts.isEmpty()) { // only the backgrounds: the style paints the text
        painter.setPen(Qt::transparent);
        ZelMarkedText::paint(&painter, this, contents, ZelTitleText::toTitle(option.text),
                             QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter),
                             m_markedParts);
    }
    painter.drawControl(QStyle::CE_CheckBox, option);
}

void ZelCheckBox::nextCheckState()
{
    // Assistive technology clicks without an event, so that the filter of input does not see it.
    if (m_editable)
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}
