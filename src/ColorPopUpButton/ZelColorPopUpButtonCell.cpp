// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorPopUpButtonCell.h"

#include "Blocks/ZelNamedTransformers.h"
#include "ColorPopUpButton/ZelColorMenuItemView.h"
#include "ColorPopUpButton/ZelUsedColorList.h"
#include "ColorPopUpButton/private/ZelColorHexItem.h"
#include "ColorPopUpButton/private/ZelColorMenuItem.h"
#include "ColorPopUpButton/private/ZelColorSwatch.h"
#include "ColorPopUpButton/private/ZelScreenColorPicker.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/private/ZelColorPanelClient.h"
#include "Controls/private/ZelControlSupport.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelLocalizedString.h"
#include "Resources/private/ZelSystemColors.h"

const QString ZelColorPopUpButtonDidBecomeActiveNotification =
    QStringLiteral("ZelColorPopUpButtonDidBecomeActiveNotification");

namespace {

const char g_menuContext = 0;

const QString g_wrongValue = QStringLiteral("Wrong value");

bool isPresentColor(const QVariant &value)
{
    return !ZelIsNull(value) && !ZelIsControllerMarker(value);
}

bool isNamed(const QVariant &color)
{
    return ZelColor::fromVariant(color).space() == ZelColor::Named;
}

/// Whether the colours are equal or look the same: a model that holds QColors does not keep the colour space. Named
/// colours are equal only to themselves.
bool looksSame(const QVariant &a, const QVariant &b)
{
    return ZelEqual(a, b) || (!isNamed(a) && !isNamed(b) && ZelColor::matches(a, b));
}

QIcon swatch(const QVariant &color)
{
    return ZelColorSwatch::image(ZelColor::fromVariant(color));
}

} // namespace

ZelColorPopUpButtonCell::ZelColorPopUpButtonCell(ZelPopUpButton *button)
    : QObject(button)
    , m_button(button)
    , m_displayItem(new ZelMenuItem(this))
    , m_panelClient(new ZelColorPanelClient(
          this, [this] { return m_button->isEnabled() && m_button->isEditable(); },
          [this] { return ZelColor::fromVariant(m_selectedColor).toQColor(); }))
{
    connect(m_panelClient, &ZelColorPanelClient::colorChosen, this, &ZelColorPopUpButtonCell::takePanelColor);
    connect(m_panelClient, &ZelColorPanelClient::activeChanged, this, &ZelColorPopUpButtonCell::panelActiveDidChange);
    static const bool registered = [] {
        ZelRegisterTransformers();
        return true;
    }();
    Q_UNUSED(registered)
    m_colorList = ZelColorList::colorListNamed(QStringLiteral("Crayons"));
    updateColors();
}

ZelColorPopUpButtonCell::~ZelColorPopUpButtonCell()
{
    deactivateColorPanel();
}

// Colours

void ZelColorPopUpButtonCell::setColorList(const ZelColorListPtr &list)
{
    if (!ZelCheck(!list.isNull(), g_wrongValue) || !ZelAssign(m_colorList, list))
        return;
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    const QList<ZelColor> former = m_colors;
    updateColors();
    if (guard && m_colors == former)
        showColors(); // the same colours may have other names in the new list
    if (guard)
        Q_EMIT colorListChanged();
}

void ZelColorPopUpButtonCell::updateColors()
{
    if (!m_colorList)
        return;
    QList<ZelColor> colors;
    const QStringList keys = m_colorList->allKeys();
    for (const QString &key : keys)
        colors.append(m_colorList->colorWithKey(key));
    setColors(colors);
}

void ZelColorPopUpButtonCell::setColors(const QList<ZelColor> &colors)
{
    if (!ZelAssign(m_colors, colors))
        return;
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    showColors();
    if (guard)
        Q_EMIT colorsChanged();
}

void ZelColorPopUpButtonCell::showColors()
{
    updateTitle();
    if (m_isMenuMade)
        updateMenu();
}

void ZelColorPopUpButtonCell::setDefaultColor(const ZelColor &color)
{
    if (!ZelCheck(color.isValid(), g_wrongValue) || !ZelAssign(m_defaultColor, color))
        return;
    updateDefaultMenuItem();
    updateTitle();
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    upateSelectedMenuItem();
    if (guard)
        Q_EMIT defaultColorChanged();
}

void ZelColorPopUpButtonCell::setSelectedColor(const QVariant &value)
{
    const bool isOfColorType =
        value.typeId() == QMetaType::QColor || value.metaType() == QMetaType::fromType<ZelColor>();
    const QVariant color = isOfColorType ? ZelColor::fromVariant(value).toVariant() : value;
    if (!ZelCheck(isOfColorType || !isPresentColor(color), g_wrongValue) || ZelEqual(color, m_selectedColor))
        return;
    m_selectedColor = color;
    updateTitle();
    m_panelClient->showColor(); // another object may be selected now
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    upateSelectedMenuItem(); // this may call others, which may delete the cell
    if (guard)
        Q_EMIT selectedColorChanged();
}

bool ZelColorPopUpButtonCell::showsAlpha() const
{
    return m_panelClient->showsAlpha();
}

void ZelColorPopUpButtonCell::setShowsAlpha(bool shows)
{
    if (shows == showsAlpha())
        return;
    m_panelClient->setShowsAlpha(shows);
    Q_EMIT showsAlphaChanged();
}

void ZelColorPopUpButtonCell::setControlSize(quint32 size)
{
    if (!ZelAssign(m_controlSize, size))
        return;
    m_button->setFont(ZelControlSize::font(size)); // the menu gets the font from the button
    if (m_isMenuMade)
        updateMenu();
    Q_EMIT controlSizeChanged();
}

bool ZelColorPopUpButtonCell::isDefault(const QVariant &color) const
{
    return looksSame(color, m_defaultColor.toVariant());
}

int ZelColorPopUpButtonCell::indexOfColor(const ZelColor &color) const
{
    const qsizetype index = m_colors.indexOf(color);
    if (index >= 0)
        return int(index);
    const QVariant value = color.toVariant();
    const auto found = std::find_if(m_colors.begin(), m_colors.end(),
                                    [&](const ZelColor &listed) { return looksSame(listed.toVariant(), value); });
    return found == m_colors.end() ? -1 : int(found - m_colors.begin());
}

// Titles

/// The name in the button's own list. The transformer does not know lists that were added after its first use.
QString ZelColorPopUpButtonCell::nameInList(const ZelColor &color) const
{
    const int index = indexOfColor(color);
    return index < 0 || !m_colorList ? QString() : ZelSystemColors::localizedName(m_colorList->allKeys().value(index));
}

QString ZelColorPopUpButtonCell::nameOf(const QVariant &color) const
{
    const auto transformer = ZelAbstractValueTransformer::valueTransformerForName(ZelColorNameTransformerName);
    if (!ZelCheck(!transformer.isNull(), QStringLiteral("Missing transformer")))
        return {};
    const ZelColor known = ZelColor::fromVariant(color);
    const QString own = nameInList(known);
    // For a colour of another space the transformer names one that looks the same, from any list. The button's own list
    // comes first then.
    const bool isExact = known.space() == ZelColor::DeviceRGB || known.space() == ZelColor::Named;
    const QString name = transformer->transformedValue(color).toString();
    return name.isEmpty() || (!isExact && !own.isEmpty()) ? own : name;
}

QString ZelColorPopUpButtonCell::title() const
{
    return m_displayItem->title();
}

QString ZelColorPopUpButtonCell::nameOrDefault(const QVariant &color) const
{
    return isDefault(color) ? ZelLocalizedString(QStringLiteral("Default")) : nameOf(color);
}

QString ZelColorPopUpButtonCell::textForColor(const QVariant &color) const
{
    const QString name = nameOrDefault(color);
    const QColor plain = ZelColor::fromVariant(color).toQColor();
    return name.isEmpty() ? plain.name(plain.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb) : name;
}

void ZelColorPopUpButtonCell::updateTitle()
{
    QString title;
    if (ZelIsMarker(m_selectedColor, ZelNoSelectionMarker) || ZelIsMarker(m_selectedColor, ZelMultipleValuesMarker))
        title = ZelControlSupport::markerText(m_selectedColor);
    else if (isPresentColor(m_selectedColor))
        title = nameOrDefault(m_selectedColor);
    if (title != m_displayItem->title())
        m_displayItem->setTitle(title);
    m_displayItem->setImage(swatch(m_selectedColor));
    m_button->update();
}

// The menu

void ZelColorPopUpButtonCell::makeFixedItems()
{
    if (m_defaultMenuItem)
        return;
    const auto make = [this](const char *title, int tag) {
        auto *item = new ZelMenuItem(ZelLocalizedString(title), this);
        item->setTag(tag);
        return item;
    };
    m_defaultMenuItem = make(QT_TRANSLATE_NOOP("Application", "Default"), ZelColorPopUpButtonDefaultColorTag);
    m_currentMenuItem = make(QT_TRANSLATE_NOOP("Application", "Current Color"), ZelColorPopUpButtonCurrentColorTag);
    m_otherMenuItem = make(QT_TRANSLATE_NOOP("Application", "Other..."), 0);
    m_recentlyMenuItem = new ZelColorMenuItem(ZelLocalizedString(QStringLiteral("Recently Used Colors")), this);
    for (int i = 0; i < 4; ++i)
        m_separators.append(ZelMenuItem::separatorItem(this));
    connectItem(m_defaultMenuItem, [this] { selectDefaultColor(); });
    connectItem(m_currentMenuItem, [this] { selectCurrentColor(); });
    connect(m_recentlyMenuItem, &ZelColorMenuItem::colorChosen, this,
            &ZelColorPopUpButtonCell::selectRecentlyUsedColor);
    connectItem(m_otherMenuItem, [this] { selectOtherColor(); });
    updateDefaultMenuItem();
}

/// Exceptions are caught here, because menus trigger items from the event loop.
template<typename Choice> void ZelColorPopUpButtonCell::connectItem(QAction *item, Choice choice)
{
    connect(item, &QAction::triggered, this, [this, choice] { ZelExceptionReporter::run(m_button, choice); });
}

ZelMenuItem *ZelColorPopUpButtonCell::makeColorItem(int index)
{
    const QVariant color = m_colors.at(index).toVariant();
    auto *item = new ZelMenuItem(nameOf(color), swatch(color), color, this);
    item->setTag(ZelColorPopUpButtonColorsTag + index);
    connectItem(item, [this, item] { selectColor(item); });
    return item;
}

bool ZelColorPopUpButtonCell::makeMenu()
{
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    if (!m_isMenuMade)
        updateMenu();
    return guard;
}

void ZelColorPopUpButtonCell::updateMenu()
{
    makeFixedItems();
    m_recentlyMenuItem->setControlSize(m_controlSize);
    const QList<ZelMenuItem *> former = std::exchange(m_colorItems, {});
    QList<QAction *> items{m_defaultMenuItem,  m_separators.at(0), m_currentMenuItem,
                           m_separators.at(1), m_recentlyMenuItem, m_separators.at(2)};
    for (int i = 0; i < m_colors.size(); ++i) {
        m_colorItems.append(makeColorItem(i));
        items.append(m_colorItems.last());
    }
    items << m_separators.at(3) << m_otherMenuItem;
    m_isMenuMade = true;
    for (ZelMenuItem *item : former)
        item->deleteLater(); // the choice of one of these may have led here
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    m_button->setItems(items);
    if (guard)
        upateSelectedMenuItem();
}

void ZelColorPopUpButtonCell::updateDefaultMenuItem()
{
    if (!m_defaultMenuItem)
        return;
    m_defaultMenuItem->setImage(ZelColorSwatch::image(m_defaultColor));
    m_defaultMenuItem->setRepresentedObject(m_defaultColor.toVariant());
}

ZelMenuItem *ZelColorPopUpButtonCell::menuItemForColor(const QVariant &color)
{
    if (!makeMenu())
        return nullptr;
    if (isDefault(color))
        return m_defaultMenuItem;
    const int index = isPresentColor(color) ? indexOfColor(ZelColor::fromVariant(color)) : -1;
    if (index >= 0)
        return m_colorItems.at(index);
    m_currentMenuItem->setImage(swatch(color));
    return m_currentMenuItem;
}

void ZelColorPopUpButtonCell::upateSelectedMenuItem()
{
    if (!m_isMenuMade) {
        m_button->setObjectValue(m_selectedColor); // the button selects the item when it is added
        return;
    }
    m_currentMenuItem->setImage(swatch(m_selectedColor));
    m_currentMenuItem->setRepresentedObject(m_selectedColor);
    m_button->selectItem(menuItemForColor(m_selectedColor)); // the menu is made: nobody dies before the item is known
}

ZelMenuItem *ZelColorPopUpButtonCell::defaultMenuItem()
{
    return makeMenu() ? m_defaultMenuItem : nullptr;
}

ZelMenuItem *ZelColorPopUpButtonCell::currentMenuItem()
{
    return makeMenu() ? m_currentMenuItem : nullptr;
}

ZelColorMenuItem *ZelColorPopUpButtonCell::recentlyMenuItem()
{
    return makeMenu() ? m_recentlyMenuItem : nullptr;
}

ZelMenuItem *ZelColorPopUpButtonCell::otherMenuItem()
{
    return makeMenu() ? m_otherMenuItem : nullptr;
}

void ZelColorPopUpButtonCell::makeItemsOfMenu()
{
    if (m_hexMenuItem)
        return;
    m_pickMenuItem = new ZelMenuItem(ZelLocalizedString(QStringLiteral("Pick Screen Color")), this);
    // Queued, because the menu has the mouse until it is closed.
    connect(m_pickMenuItem, &QAction::triggered, this, &ZelColorPopUpButtonCell::pickScreenColor, Qt::QueuedConnection);
    m_hexSeparator = ZelMenuItem::separatorItem(this);
    m_hexMenuItem = new ZelColorHexItem(this);
}

QList<QAction *> ZelColorPopUpButtonCell::withItemsOfMenu(const QList<QAction *> &items)
{
    makeItemsOfMenu();
    QList<QAction *> added{m_hexMenuItem, m_hexSeparator};
    if (ZelScreenColorPicker::isPossible(m_button))
        added.prepend(m_pickMenuItem);
    const qsizetype colors = items.indexOf(m_separators.at(2)) + 1;
    return items.first(colors) + added + items.sliced(colors);
}

// What the user chooses

/// The colour is passed by value, because its owner may die before this ends.
void ZelColorPopUpButtonCell::takeChoice(QVariant color, QAction *item)
{
    if (looksSame(color, m_selectedColor))
        return;
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    setSelectedColor(color);
    if (guard && isPresentColor(color))
        ZelUsedColorList::sharedUsedColorList()->usedColor(ZelColor::fromVariant(color));
    if (guard && item)
        m_button->selectItem(item);
    if (guard)
        ZelControlSupport::reportEdit(m_button);
}

void ZelColorPopUpButtonCell::selectDefaultColor()
{
    takeChoice(m_defaultColor.toVariant(), m_defaultMenuItem);
}

void ZelColorPopUpButtonCell::selectCurrentColor()
{
    const QPointer<ZelPopUpButton> button(m_button);
    button->selectItem(currentMenuItem());
    if (button)
        Q_EMIT button->action();
}

void ZelColorPopUpButtonCell::selectRecentlyUsedColor(const ZelColorMenuItemView *sender)
{
    takeChoice(sender->selectedColor(), nullptr);
}

void ZelColorPopUpButtonCell::selectColor(const QObject *sender)
{
    const auto *item = qobject_cast<const ZelMenuItem *>(sender);
    const int index = item ? item->tag() - ZelColorPopUpButtonColorsTag : -1;
    if (index >= 0 && index < m_colors.size())
        takeChoice(m_colors.at(index).toVariant(), m_colorItems.value(index));
}

void ZelColorPopUpButtonCell::selectOtherColor()
{
    activateColorPanel();
}

void ZelColorPopUpButtonCell::pickScreenColor()
{
    if (!m_button->isVisible() || !m_button->isEnabled() || !m_button->isEditable())
        return;
    auto *picker = new ZelScreenColorPicker(m_button);
    connect(picker, &ZelScreenColorPicker::picked, this, [this](const QColor &color) {
        if (m_button->isEnabled() && m_button->isEditable())
            chooseColor(color);
    });
}

// The colour panel

bool ZelColorPopUpButtonCell::isColorPanelActive() const
{
    return m_panelClient->isActive();
}

void ZelColorPopUpButtonCell::activateColorPanel()
{
    if (!isColorPanelActive())
        ZelNotificationCenter::defaultCenter()->post(ZelColorPopUpButtonDidBecomeActiveNotification, this);
    m_panelClient->activate(m_button);
}

void ZelColorPopUpButtonCell::deactivateColorPanel()
{
    m_panelClient->deactivate();
}

void ZelColorPopUpButtonCell::panelActiveDidChange()
{
    if (isColorPanelActive()) {
        ZelObservations(this).addObservationWithCenter(
            nullptr, ZelColorPopUpButtonDidBecomeActiveNotification, nullptr,
            [this](ZelNotificationObservation *, const ZelNotification &) { colorPopUpButtonDidBecomeActive(); },
            &g_menuContext);
    } else {
        ZelObservations(this).removeAllObservationsForContext(&g_menuContext);
        if (isPresentColor(m_selectedColor))
            ZelUsedColorList::sharedUsedColorList()->usedColor(ZelColor::fromVariant(m_selectedColor));
    }
    Q_EMIT colorPanelActiveChanged();
}

void ZelColorPopUpButtonCell::colorPanelDidChange()
{
    m_panelClient->takeColor();
}

void ZelColorPopUpButtonCell::takePanelColor(const QColor &color)
{
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    setSelectedColor(QVariant::fromValue(ZelColor(color)));
    if (guard)
        ZelControlSupport::reportEdit(m_button);
}
