// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelColorHexView.h"

#include "ColorPopUpButton/ZelColorPopUpButtonCell.h"
#include "ColorPopUpButton/private/ZelColorFormatter.h"
#include "ColorPopUpButton/private/ZelMenuTracking.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/ZelLabel.h"
#include "Controls/private/ZelControlSupport.h"
#include "Resources/ZelLocalizedString.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace {

constexpr QMargins g_margins(19, 2, 19, 3); // in line with the strip of used colours

/// Gives up the typing when it loses the focus. Only its own menu of commands does not end the edit.
class HexField : public ZelTextField
{
public:
    using ZelTextField::ZelTextField;

protected:
    void focusOutEvent(QFocusEvent *event) override
    {
        const QWidget *popup = QApplication::activePopupWidget();
        if (!popup || popup == window())
            discardEditing();
        ZelTextField::focusOutEvent(event);
    }
};

} // namespace

ZelColorHexView::ZelColorHexView(ZelColorPopUpButtonCell *cell, QWidget *parent)
    : ZelGuarded(parent)
    , m_cell(cell)
    , m_field(new HexField(this))
{
    const QString title = ZelLocalizedString(QStringLiteral("Hex"));
    auto *label = new ZelLabel(title, this);
    for (QWidget *part : {static_cast<QWidget *>(label), static_cast<QWidget *>(m_field)})
        part->setFont(ZelControlSize::font(cell->controlSize()));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(g_margins);
    row->addWidget(label);
    row->addWidget(m_field, 1);
    m_field->setAccessibleName(title);
    m_field->setNullPlaceholder(QStringLiteral("#rrggbb"));
    m_field->setFormatter(std::make_shared<ZelColorFormatter>(cell->colorList()));
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_field);
    setAttribute(Qt::WA_NoMousePropagation); // the menu would take a click beside the field for a choice
    const auto showColor = [this] { m_field->setObjectValue(m_cell->selectedColor()); };
    connect(cell, &ZelColorPopUpButtonCell::selectedColorChanged, this, showColor);
    connect(m_field, &ZelTextField::action, this, &ZelColorHexView::takeColor);
    showColor();
}

/// The menu is closed first, because the choice may delete its owner.
void ZelColorHexView::takeColor()
{
    const QPointer<ZelColorPopUpButtonCell> cell = m_cell;
    const ZelColor color = ZelColor::fromVariant(m_field->objectValue());
    ZelMenuTracking::cancel(this);
    if (cell)
        cell->chooseColor(color);
}

/// Return must not reach the menu, which would choose the item under the pointer.
void ZelColorHexView::keyPressEvent(QKeyEvent *event)
{
    if (ZelControlSupport::isReturn(event))
        ZelMenuTracking::cancel(this);
    else
        ZelGuarded::keyPressEvent(event);
}
