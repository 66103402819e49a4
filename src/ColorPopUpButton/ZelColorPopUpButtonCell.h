// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelControlSize.h"
#include "Core/ZelExport.h"
#include "Resources/ZelColorList.h"

#include <QObject>

class QAction;
class ZelColorHexItem;
class ZelColorMenuItem;
class ZelColorMenuItemView;
class ZelColorPanelClient;
class ZelMenuItem;
class ZelPopUpButton;

// Tags of the menu's items.
inline constexpr int ZelColorPopUpButtonDefaultColorTag = 9983242;
inline constexpr int ZelColorPopUpButtonCurrentColorTag = 4765386;
/// The tag of the first colour of the list. The following colours have the following numbers.
inline constexpr int ZelColorPopUpButtonColorsTag = 3462764;

/// Posted with the cell as the object when it takes over the colour panel.
extern ZEL_EXPORT const QString ZelColorPopUpButtonDidBecomeActiveNotification;

/// What a colour pop-up button does: its menu, its choice, and its link to the colour panel.
///
/// The menu offers the default colour, the current one, the recently used ones, the colours of a list, and the colour
/// panel. Its items are made when they are first needed, the four fixed ones only once. While the panel is open for
/// this cell, every move in it selects a colour and is reported; all moves of one drag are one undo step. The link ends
/// when the panel is closed, another cell takes it over, or the button dies. A button that is disabled or not editable
/// does not follow the panel.
///
/// Below these items the open menu has two more, which are not among the items of the button: one that picks a colour
/// from the screen, where the platform shows it to programs, and a field for a colour's digits or name.
///
/// Colours are compared by their look, because a model that holds QColors does not keep the colour space: a colour that
/// looks like one of the list counts as that one. Named colours are equal only to themselves. A title is the localised
/// name in the first list that has the colour (see ZelColorNameTransformer). A colour that is in no such list, or only
/// looks like one in a list, gets its name from the button's own list.
class ZEL_EXPORT ZelColorPopUpButtonCell : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ZelColorListPtr colorList READ colorList WRITE setColorList NOTIFY colorListChanged)
    Q_PROPERTY(QList<ZelColor> colors READ colors WRITE setColors NOTIFY colorsChanged)
    Q_PROPERTY(ZelColor defaultColor READ defaultColor WRITE setDefaultColor NOTIFY defaultColorChanged)
    Q_PROPERTY(QVariant selectedColor READ selectedColor WRITE setSelectedColor NOTIFY selectedColorChanged)
    Q_PROPERTY(bool showsAlpha READ showsAlpha WRITE setShowsAlpha NOTIFY showsAlphaChanged)
    /// False by default. True opens the panel for this button, false ends the link to the panel.
    Q_PROPERTY(bool colorPanelActive READ isColorPanelActive WRITE setColorPanelActive NOTIFY colorPanelActiveChanged)
    /// A ZelControlSize::Size, small by default. It determines the font of the button and its menu.
    Q_PROPERTY(quint32 controlSize READ controlSize WRITE setControlSize NOTIFY controlSizeChanged)
    // The items, which are made when they are first asked for.
    Q_PROPERTY(ZelMenuItem *defaultMenuItem READ defaultMenuItem CONSTANT)
    Q_PROPERTY(ZelMenuItem *currentMenuItem READ currentMenuItem CONSTANT)
    Q_PROPERTY(ZelColorMenuItem *recentlyMenuItem READ recentlyMenuItem CONSTANT)
    Q_PROPERTY(ZelMenuItem *otherMenuItem READ otherMenuItem CONSTANT)
    Q_MOC_INCLUDE("ColorPopUpButton/private/ZelColorMenuItem.h")
    Q_MOC_INCLUDE("Controls/Menus/ZelMenuItem.h")
public:
    /// The button becomes the parent of the cell.
    explicit ZelColorPopUpButtonCell(ZelPopUpButton *button);
    ~ZelColorPopUpButtonCell() override;

    /// The list named "Crayons" by default. Setting null fails with the assertion "Wrong value".
    const ZelColorListPtr &colorList() const { return m_colorList; }
    void setColorList(const ZelColorListPtr &list);
    /// The colours of the list, in its order.
    const QList<ZelColor> &colors() const { return m_colors; }
    void setColors(const QList<ZelColor> &colors);

    /// The clear colour by default. Setting an invalid colour fails with the assertion "Wrong value".
    const ZelColor &defaultColor() const { return m_defaultColor; }
    void setDefaultColor(const ZelColor &color);

    /// A ZelColor, a selection marker, or absent, which is the default. The setter converts a QColor to a ZelColor; any
    /// other value fails with the assertion "Wrong value". Setting it is not reported as an edit.
    const QVariant &selectedColor() const { return m_selectedColor; }
    void setSelectedColor(const QVariant &color);

    /// Whether the panel lets users choose an opacity; false by default.
    bool showsAlpha() const;
    void setShowsAlpha(bool shows);

    quint32 controlSize() const { return m_controlSize; }
    void setControlSize(quint32 size);

    /// The name of the selected colour or marker, as the button shows it.
    QString title() const;
    /// The name with which the button would show the colour or, if that is empty, the colour in the form "#rrggbb",
    /// with its opacity "#aarrggbb".
    QString textForColor(const QVariant &color) const;
    /// The item that the button shows. It has the title and the swatch of the selected colour and is in no menu.
    ZelMenuItem *displayItem() const { return m_displayItem; }

    // The items, which are made if they are not there yet.
    ZelMenuItem *defaultMenuItem();
    ZelMenuItem *currentMenuItem();
    ZelColorMenuItem *recentlyMenuItem();
    ZelMenuItem *otherMenuItem();
    /// The item that stands for the colour: that of the default colour, one of the list, or else "Current Color", which
    /// gets the colour's swatch.
    ZelMenuItem *menuItemForColor(const QVariant &color);
    /// Makes the items if they are not there yet. Answers false if a receiver of what that selects has deleted the
    /// cell.
    bool makeMenu();

    void updateColors();
    void updateMenu();
    void updateTitle();
    void updateDefaultMenuItem();
    void upateSelectedMenuItem();

    bool isColorPanelActive() const;
    void setColorPanelActive(bool active) { active ? activateColorPanel() : deactivateColorPanel(); }
    /// Opens the colour panel for this button. Any other client loses it.
    void activateColorPanel();
    void deactivateColorPanel();
    // Called when the panel or another cell has changed.
    /// Selects the panel's colour and reports it.
    void colorPanelDidChange();
    void colorPanelWillClose() { deactivateColorPanel(); }
    void colorPopUpButtonDidBecomeActive() { deactivateColorPanel(); }

    /// The items of the open menu: with those that are no items of the button, made when they are first asked for.
    /// They stand above the colours of the list, of which there may be more than fit the screen.
    QList<QAction *> withItemsOfMenu(const QList<QAction *> &items);

    /// Takes a choice of the user: selects the colour, notes it as used, and reports it. Does nothing if it looks like
    /// the selected one. The button may be gone afterwards.
    void chooseColor(const ZelColor &color) { takeChoice(color.toVariant(), nullptr); }
    /// Lets the user pick a colour on the screen; see the class.
    void pickScreenColor();

    // The actions of the items.
    void selectDefaultColor();
    void selectCurrentColor();
    void selectRecentlyUsedColor(const ZelColorMenuItemView *sender);
    void selectColor(const QObject *sender);
    void selectOtherColor();

Q_SIGNALS:
    void colorListChanged();
    void colorsChanged();
    void defaultColorChanged();
    void selectedColorChanged();
    void showsAlphaChanged();
    void colorPanelActiveChanged();
    void controlSizeChanged();

private:
    void makeFixedItems();
    template<typename Choice> void connectItem(QAction *item, Choice choice);
    ZelMenuItem *makeColorItem(int index);
    QString nameOf(const QVariant &color) const;
    QString nameOrDefault(const QVariant &color) const;
    QString nameInList(const ZelColor &color) const;
    bool isDefault(const QVariant &color) const;
    int indexOfColor(const ZelColor &color) const;
    void showColors();
    void takeChoice(QVariant color, QAction *item);
    void takePanelColor(const QColor &color);
    void panelActiveDidChange();
    void makeItemsOfMenu();

    ZelPopUpButton *m_button;
    ZelMenuItem *m_displayItem;
    ZelColorPanelClient *m_panelClient;
    ZelMenuItem *m_defaultMenuItem = nullptr;
    ZelMenuItem *m_currentMenuItem = nullptr;
    ZelColorMenuItem *m_recentlyMenuItem = nullptr;
    ZelMenuItem *m_otherMenuItem = nullptr;
    ZelMenuItem *m_pickMenuItem = nullptr;
    ZelMenuItem *m_hexSeparator = nullptr;
    ZelColorHexItem *m_hexMenuItem = nullptr;
    QList<ZelMenuItem *> m_colorItems;
    QList<QAction *> m_separators;

    ZelColorListPtr m_colorList;
    QList<ZelColor> m_colors;
    ZelColor m_defaultColor{QColor(Qt::transparent)};
    QVariant m_selectedColor;
    quint32 m_controlSize = ZelControlSize::Small;
    bool m_isMenuMade = false;
};
