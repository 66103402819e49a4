// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorPopUpButton.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelControlSize.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/Values/ZelValues.h"

namespace {

/// Makes the key "value" the colour and not the menu item.
void registerValue()
{
    using Accessor = ZelFunctionAccessor<ZelColorPopUpButton>;
    auto accessor =
        std::make_unique<Accessor>([](const ZelColorPopUpButton *button) { return button->selectedColor(); },
                                   [](ZelColorPopUpButton *button, const QVariant &value) {
                                       button->setSelectedColor(value);
                                       return true;
                                   });
    accessor->setNotify(&ZelColorPopUpButton::selectedColorChanged)
        .setEdit(&ZelPopUpButton::valueEdited)
        .setTakesMarkers();
    ZelPropertyAccessor::registerAccessor(&ZelColorPopUpButton::staticMetaObject, "value", std::move(accessor));
}

} // namespace

ZelColorPopUpButton::ZelColorPopUpButton(QWidget *parent)
    : ZelPopUpButton(parent)
    , m_cell(new ZelColorPopUpButtonCell(this))
{
    static const bool registered = (registerValue(), true);
    Q_UNUSED(registered)
    connect(m_cell, &ZelColorPopUpButtonCell::colorListChanged, this, &ZelColorPopUpButton::colorListChanged);
    connect(m_cell, &ZelColorPopUpButtonCell::defaultColorChanged, this, &ZelColorPopUpButton::defaultColorChanged);
    connect(m_cell, &ZelColorPopUpButtonCell::selectedColorChanged, this, &ZelColorPopUpButton::selectedColorChanged);
    connect(m_cell, &ZelColorPopUpButtonCell::showsAlphaChanged, this, &ZelColorPopUpButton::showsAlphaChanged);
}

ZelColorPopUpButton::~ZelColorPopUpButton()
{
    m_cell->deactivateColorPanel();
}

QSize ZelColorPopUpButton::sizeHint() const
{
    constexpr int letters = 13;
    return sizeForTextWidth(ZelControlSize::imageSide + 4 + letters * fontMetrics().averageCharWidth());
}

QAction *ZelColorPopUpButton::shownItem() const
{
    const bool isMarker =
        ZelIsMarker(selectedColor(), ZelNoSelectionMarker) || ZelIsMarker(selectedColor(), ZelMultipleValuesMarker);
    return isMarker ? nullptr : m_cell->displayItem(); // without an item the button shows the marker dimmed
}

QString ZelColorPopUpButton::spokenText() const
{
    const QString text = shownText();
    const QColor color = ZelColor::fromVariant(selectedColor()).toQColor();
    return text.isEmpty() && color.isValid() ? color.name() : text;
}

void ZelColorPopUpButton::prepareItems()
{
    m_cell->makeMenu();
}

bool ZelColorPopUpButton::canStepTo(const QAction *item) const
{
    const auto *known = qobject_cast<const ZelMenuItem *>(item);
    return known && ZelPopUpButton::canStepTo(item) &&
           (known->tag() == ZelColorPopUpButtonDefaultColorTag || ZelColor::isColor(known->representedObject())) &&
           known->tag() != ZelColorPopUpButtonCurrentColorTag;
}

/// Does nothing, because the items select and report the colour themselves.
void ZelColorPopUpButton::chooseItem(QAction *) {}
