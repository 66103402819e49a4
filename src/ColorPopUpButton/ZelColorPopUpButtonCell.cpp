// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorPopUpButtonCell.h"

#include "Blocks/ZelNamedTransformers.h"
#include "ColorPopUpButton/ZelColorMenuItem.h"
#include "ColorPopUpButton/ZelColorMenuItemView.h"
#include "ColorPopUpButton/ZelColorSwatch.h"
#include "ColorPopUpButton/ZelUsedColorList.h"
#include "Observation/ZelObservations.h"
#include "Platform/Controls/ZelColorPanel.h"
#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelMenuItem.h"
#include "Platform/Controls/ZelPopUpButton.h"
#include "Platform/Resources/ZelLocalizedString.h"
#include "Platform/RunLoop/ZelNotificationCenter.h"
#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelValues.h"

const QString ZelColorPopUpButtonDidBecomeActiveNotification =
    QStringLiteral("ZelColorPopUpButtonDidBecomeActiveNotification");

namespace {

const char g_context = 0;

const QString g_wrongValue = QStringLiteral("Wrong value");

bool isPresentColor(const QVariant &value)
{
    return !ZelIsNull(value) && !ZelIsControllerMarker(value);
}

bool isNamed(const QVariant &color)
{
    return ZelColor::fromVariant(color).space() == ZelColor::Named;
}

/// The same colour, or one that looks the same in another colour space, as a model that holds QColors answers it. Names
/// stand for themselves only.
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
{
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
    if (!ZelCheck(!list.isNull(), g_wrongValue) || list == m_colorList)
        return;
    m_colorList = list;
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    const QList<ZelColor> former = m_colors;
    updateColors();
    if (guard && m_colors == former)
        showColors(); // the same ones may have other names
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
    if (colors == m_colors)
        return;
    m_colors = colors;
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
    if (!ZelCheck(color.isValid(), g_wrongValue) || color == m_defaultColor)
        return;
    m_defaultColor = color;
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
    showInPanel();
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    upateSelectedMenuItem(); // which tells of it, too
    if (guard)
        Q_EMIT selectedColorChanged();
}

void ZelColorPopUpButtonCell::setShowsAlpha(bool shows)
{
    if (shows == m_showsAlpha)
        return;
    m_showsAlpha = shows;
    if (m_isColorPanelActive && m_panel)
        m_panel->setShowsAlpha(shows);
    Q_EMIT showsAlphaChanged();
}

void ZelColorPopUpButtonCell::setControlSize(quint32 size)
{
    if (std::exchange(m_controlSize, size) == size)
        return;
    m_button->setFont(ZelControlSize::font(size)); // the menu's, too
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

/// A list that the application added has names that nobody else knows.
QString ZelColorPopUpButtonCell::nameInList(const ZelColor &color) const
{
    const int index = indexOfColor(color);
    return index < 0 || !m_colorList ? QString() : ZelLocalizedString(m_colorList->allKeys().value(index));
}

QString ZelColorPopUpButtonCell::nameOf(const QVariant &color) const
{
    const auto transformer = ZelAbstractValueTransformer::valueTransformerForName(ZelColorNameTransformerName);
    if (!ZelCheck(!transformer.isNull(), QStringLiteral("Missing transformer")))
        return {};
    const ZelColor known = ZelColor::fromVariant(color);
    const QString own = nameInList(known);
    // A colour of another space is named after one that looks the same, in whatever list: the button's goes first.
    const bool isExact = known.space() == ZelColor::DeviceRGB || known.space() == ZelColor::Named;
    const QString name = transformer->transformedValue(color).toString();
    return name.isEmpty() || (!isExact && !own.isEmpty()) ? own : name;
}

QString ZelColorPopUpButtonCell::title() const
{
    return m_displayItem->title();
}

void ZelColorPopUpButtonCell::updateTitle()
{
    QString title;
    if (ZelIsMarker(m_selectedColor, ZelNoSelectionMarker) || ZelIsMarker(m_selectedColor, ZelMultipleValuesMarker))
        title = ZelControlSupport::markerText(m_selectedColor);
    else if (isPresentColor(m_selectedColor))
        title = isDefault(m_selectedColor) ? ZelLocalizedString(QStringLiteral("Default")) : nameOf(m_selectedColor);
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
        auto *item = new ZelMenuItem(ZelLocalizedString(QString::fromLatin1(title)), this);
        item->setTag(tag);
        return item;
    };
    m_defaultMenuItem = make("Default", ZelColorPopUpButtonDefaultColorTag);
    m_currentMenuItem = make("Current Color", ZelColorPopUpButtonCurrentColorTag);
    m_otherMenuItem = make("Other...", 0);
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

/// Menus call from the event loop.
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

void ZelColorPopUpButtonCell::makeMenu()
{
    if (!m_isMenuMade)
        updateMenu();
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
        item->deleteLater(); // perhaps it is one of these that was chosen
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
    makeMenu();
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
        m_button->setObjectValue(m_selectedColor); // the item is selected when it is made
        return;
    }
    m_currentMenuItem->setImage(swatch(m_selectedColor));
    m_currentMenuItem->setRepresentedObject(m_selectedColor);
    m_button->selectItem(menuItemForColor(m_selectedColor));
}

ZelMenuItem *ZelColorPopUpButtonCell::defaultMenuItem()
{
    makeMenu();
    return m_defaultMenuItem;
}

ZelMenuItem *ZelColorPopUpButtonCell::currentMenuItem()
{
    makeMenu();
    return m_currentMenuItem;
}

ZelColorMenuItem *ZelColorPopUpButtonCell::recentlyMenuItem()
{
    makeMenu();
    return m_recentlyMenuItem;
}

ZelMenuItem *ZelColorPopUpButtonCell::otherMenuItem()
{
    makeMenu();
    return m_otherMenuItem;
}

// What the user chooses

/// The colour is a copy: what it was taken from may be gone before this ends.
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

// The colour panel

void ZelColorPopUpButtonCell::activateColorPanel()
{
    ZelColorPanel *panel = ZelColorPanel::sharedColorPanel();
    if (m_isColorPanelActive) {
        panel->orderFront(m_button);
        return;
    }
    ZelNotificationCenter::defaultCenter()->post(ZelColorPopUpButtonDidBecomeActiveNotification, this);
    m_panel = panel;
    panel->setDelegate(this);
    connect(panel, &ZelColorPanel::willClose, this, &ZelColorPopUpButtonCell::colorPanelWillClose);
    connect(panel, &ZelColorPanel::delegateDidChange, this, &ZelColorPopUpButtonCell::deactivateColorPanel);
    connect(panel, &ZelColorPanel::colorDidChange, this, &ZelColorPopUpButtonCell::colorPanelDidChange);
    connect(panel, &ZelColorPanel::trackingDidEnd, this, &ZelColorPopUpButtonCell::endDrag);
    ZelObservations(this).addObservationWithCenter(
        nullptr, ZelColorPopUpButtonDidBecomeActiveNotification, nullptr,
        [this](ZelNotificationObservation *, const ZelNotification &) { colorPopUpButtonDidBecomeActive(); },
        &g_context);
    m_isColorPanelActive = true;
    panel->setShowsAlpha(m_showsAlpha);
    panel->setColor(isPresentColor(m_selectedColor) ? ZelColor::fromVariant(m_selectedColor).toQColor() : Qt::black);
    panel->orderFront(m_button);
    Q_EMIT colorPanelActiveChanged();
}

void ZelColorPopUpButtonCell::deactivateColorPanel()
{
    if (!m_isColorPanelActive)
        return;
    m_isColorPanelActive = false;
    endDrag();
    if (m_panel) {
        m_panel->disconnect(this);
        if (m_panel->delegate() == this)
            m_panel->setDelegate(nullptr);
    }
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    if (isPresentColor(m_selectedColor))
        ZelUsedColorList::sharedUsedColorList()->usedColor(ZelColor::fromVariant(m_selectedColor));
    Q_EMIT colorPanelActiveChanged();
}

/// Another selection shows its colour in the panel; during a drag, it is the panel that leads.
void ZelColorPopUpButtonCell::showInPanel()
{
    if (m_isColorPanelActive && m_panel && !m_panel->isTracking() && isPresentColor(m_selectedColor))
        m_panel->setColor(ZelColor::fromVariant(m_selectedColor).toQColor());
}

void ZelColorPopUpButtonCell::colorPanelDidChange()
{
    if (!m_isColorPanelActive || !m_panel || !m_button->isEnabled() || !m_button->isEditable())
        return;
    if (m_panel->isTracking() && !m_dragGrouping)
        m_dragGrouping = std::make_unique<ZelUndoGrouping>(m_button);
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    setSelectedColor(QVariant::fromValue(ZelColor(m_panel->color())));
    if (guard)
        ZelControlSupport::reportEdit(m_button);
}

void ZelColorPopUpButtonCell::endDrag()
{
    const QPointer<ZelColorPopUpButtonCell> guard(this);
    m_dragGrouping.reset();
    if (guard)
        showInPanel(); // the model may have made something else of it
}
